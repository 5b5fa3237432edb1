#pragma once

#include "Containers/Array.h"
#include "Containers/StringConv.h"
#include "Containers/UnrealString.h"

struct FFileHelper
{
	enum class EEncodingOptions : uint8
	{
		AutoDetect,
		ForceAnsi,
		ForceUTF8WithoutBOM
	};

	/** UTF-8, with or without a byte order mark. False when the file cannot be read or is not valid UTF-8. */
	static bool LoadFileToString(FString& OutText, const TCHAR* Path);
	/** The same, with a sentence on what went wrong. */
	static bool LoadFileToString(FString& OutText, const TCHAR* Path, FString& OutError);
	static bool LoadFileToArray(TArray<uint8>& OutBytes, const TCHAR* Path);
	static bool LoadFileToBytes(std::string& OutBytes, const TCHAR* Path, FString& OutError);
	/** UTF-8 without a byte order mark; makes the folder if need be. Not atomic. */
	static bool SaveStringToFile(
		FStringView Text, const TCHAR* Path, EEncodingOptions Encoding = EEncodingOptions::ForceUTF8WithoutBOM);
	static bool SaveArrayToFile(TArrayView<const uint8> Bytes, const TCHAR* Path);
};
