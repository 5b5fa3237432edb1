#include "Utils/Request/RequiredField.h"

#include "Dom/JsonObject.h"
#include "JsonReading.h"
#include "ToolResult.h"

bool RequireStringField(
	const FJsonObject& Args, const TCHAR* const Field, FString& OutValue, Morvane::FToolResult& Result)
{
	if (MorvaneJson::TryGetStringField(Args, Field, OutValue))
	{
		return true;
	}
	Result.AddErrorMessage(FString::Printf(TEXT("Missing required field '%s'"), Field));
	return false;
}
