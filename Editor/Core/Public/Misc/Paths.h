#pragma once

#include "Containers/Array.h"
#include "Containers/UnrealString.h"

class FPaths
{
public:
	/** Joins the pieces with one slash between; empty pieces are skipped. */
	template <typename... PathTypes>
	static FString Combine(const PathTypes&... Pieces)
	{
		FString Result;
		((Result /= FStringView(Pieces)), ...);
		return Result;
	}
	/** "Name" of "Dir/Name.ext"; with bRemovePath false "Dir/Name". */
	static FString GetBaseFilename(const FString& Path, bool bRemovePath = true);
	/** "Name.ext" of "Dir/Name.ext". */
	static FString GetCleanFilename(const FString& Path);
	/** "Dir" of "Dir/Name.ext"; empty when there is no slash. */
	static FString GetPath(const FString& Path);
	static FString GetExtension(const FString& Path, bool bIncludeDot = false);
	static void NormalizeFilename(FString& Path);
	/** NormalizeFilename, and no slash at the end. */
	static void NormalizeDirectoryName(FString& Path);
	static FString ConvertRelativePathToFull(const FString& Path);
	static bool FileExists(const FString& Path);

	/** Each ends with a slash. */
	static FString ProjectDir();
	static FString ProjectContentDir();
	static FString ProjectPluginsDir();
	static FString ProjectConfigDir();
};
