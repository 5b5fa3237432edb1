#include "Utils/Report/TrackedNames.h"

#include "Dom/JsonObject.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "Utils/Report/JsonTexts.h"

void TrackNames(const TCHAR* const ReadTool, const FString& Path, const TCHAR* const NameField,
	const TArray<FString>& Names, Morvane::FToolResult& Result)
{
	if (Names.IsEmpty())
	{
		return;
	}
	const TSharedPtr<FJsonObject> Parameters = MakeShared<FJsonObject>();
	Parameters->SetStringField(Morvane::ToolInfo::FieldName_Path, Path);
	Parameters->SetArrayField(NameField, ToJsonTexts(Names));
	Result.TrackModification(ReadTool, Parameters);
}
