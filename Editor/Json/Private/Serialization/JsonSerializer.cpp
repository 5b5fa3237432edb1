#include "Serialization/JsonSerializer.h"

#include "Containers/StringConv.h"
#include "Serialization/JsonParser.h"

bool FJsonSerializer::ReadValue(TJsonReader<TCHAR>& Reader, TSharedPtr<FJsonValue>& OutValue)
{
	FJsonParseError Error;
	if (JsonParser::Parse(Reader.Utf8, OutValue, Error))
	{
		return true;
	}
	Reader.ErrorMessage = FromUtf8(Error.Describe());
	Reader.LineNumber = static_cast<uint32>(Error.Line);
	return false;
}

bool FJsonSerializer::ReadObject(TJsonReader<TCHAR>& Reader, TSharedPtr<FJsonObject>& OutObject)
{
	OutObject = nullptr;
	TSharedPtr<FJsonValue> Root;
	if (!ReadValue(Reader, Root))
	{
		return false;
	}
	const TSharedPtr<FJsonObject>* Object = nullptr;
	OutObject = Root->TryGetObject(Object) ? *Object : nullptr;
	return OutObject.IsValid() || RefuseRoot(Reader, TEXT("The text is not a JSON object (line 1, character 1)"));
}

bool FJsonSerializer::ReadArray(TJsonReader<TCHAR>& Reader, TArray<TSharedPtr<FJsonValue>>& OutArray)
{
	OutArray.Empty();
	TSharedPtr<FJsonValue> Root;
	if (!ReadValue(Reader, Root))
	{
		return false;
	}
	if (Root->Type != EJson::Array)
	{
		return RefuseRoot(Reader, TEXT("The text is not a JSON array (line 1, character 1)"));
	}
	OutArray = Root->AsArray();
	return true;
}

bool FJsonSerializer::RefuseRoot(TJsonReader<TCHAR>& Reader, const TCHAR* Reason)
{
	Reader.ErrorMessage = Reason;
	Reader.LineNumber = 1;
	return false;
}
