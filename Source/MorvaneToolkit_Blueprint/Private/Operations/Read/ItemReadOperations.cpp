// The seven reads of one item by name. They differ in words alone, which stand in a row each.

#include "BlueprintReadOperations.h"

#include "AssetOperationBase.h"
#include "BlueprintReadUtils.h"
#include "Operations/Read/ReadStatus.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "Utils/Request/RequiredField.h"

namespace ItemReads
{
using Morvane::FToolResult;
namespace ToolInfo = Morvane::ToolInfo;

/** How a failed read is worded. */
enum class EFailureWording
{
	AtPath,
	FromBlueprint,
};

struct FItemRead
{
	/** "component": the word in messages. */
	const TCHAR* Word;
	/** "component_name": the field with the name, in the command and in the read. */
	const TCHAR* NameField;
	const TCHAR* ReadTool;
	/** "components": the section of the document. */
	const TCHAR* Section;
	EFailureWording FailureWording;
};

void AddFailure(const FItemRead& Item, const FString& Name, const FString& Path, FToolResult& Result)
{
	if (Item.FailureWording == EFailureWording::FromBlueprint)
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Failed to read %s '%s' from Blueprint: %s"), Item.Word, *Name,
			*FAssetOperationBase::GetAssetNameFromPath(Path)));
		return;
	}
	Result.AddErrorMessage(FString::Printf(TEXT("Failed to read %s '%s' at path: %s"), Item.Word, *Name, *Path));
}

void Read(const FItemRead& Item, const FJsonObject& Args, FToolResult& Result)
{
	FString Path;
	FString Name;
	if (!RequireStringField(Args, TEXT("path"), Path, Result)
		|| !RequireStringField(Args, Item.NameField, Name, Result))
	{
		return;
	}
	Path = FAssetOperationBase::ResolveBlueprintPath(Path);
	const TSharedPtr<FJsonObject> Command = MakeShared<FJsonObject>();
	Command->SetStringField(TEXT("path"), Path);
	Command->SetArrayField(Item.NameField, {MakeShared<FJsonValueString>(Name)});
	Command->SetStringField(ToolInfo::FieldName_ReadTool, Item.ReadTool);
	const FString Text = FBlueprintReadUtils::ReadBlueprint(Command, Result);
	if (Text.IsEmpty() || Text == TEXT("{}"))
	{
		AddFailure(Item, Name, Path, Result);
		return;
	}
	Result.SetData(TEXT("content"), Text);
	if (!Result.WasSuccessful())
	{
		return;
	}
	const FString AssetName = FAssetOperationBase::GetAssetNameFromPath(Path);
	if (ReadStatus::IsFirstMissing(Text, Item.Section))
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("'%s' %s does not exist in Blueprint: %s"), *Name, Item.Word, *AssetName));
		return;
	}
	Result.AddSuccessMessage(
		FString::Printf(TEXT("Successfully read %s '%s' from Blueprint: %s"), Item.Word, *Name, *AssetName));
}

constexpr FItemRead Variable{TEXT("variable"), ToolInfo::FieldName_VariableName,
	ToolInfo::ToolName_ReadBlueprintVariable, TEXT("variables"), EFailureWording::AtPath};
constexpr FItemRead Component{TEXT("component"), ToolInfo::FieldName_ComponentName,
	ToolInfo::ToolName_ReadBlueprintComponent, TEXT("components"), EFailureWording::AtPath};
constexpr FItemRead Function{TEXT("function"), ToolInfo::FieldName_FunctionName,
	ToolInfo::ToolName_ReadBlueprintFunction, TEXT("functions"), EFailureWording::FromBlueprint};
constexpr FItemRead Interface{TEXT("interface"), ToolInfo::FieldName_InterfaceName,
	ToolInfo::ToolName_ReadBlueprintInterface, TEXT("interfaces"), EFailureWording::AtPath};
constexpr FItemRead Timeline{TEXT("timeline"), ToolInfo::FieldName_TimelineName,
	ToolInfo::ToolName_ReadBlueprintTimeline, TEXT("timelines"), EFailureWording::AtPath};
constexpr FItemRead Delegate{TEXT("delegate"), ToolInfo::FieldName_DelegateName,
	ToolInfo::ToolName_ReadBlueprintDelegate, TEXT("delegates"), EFailureWording::AtPath};
constexpr FItemRead Macro{TEXT("macro"), ToolInfo::FieldName_MacroName, ToolInfo::ToolName_ReadBlueprintMacro,
	TEXT("macros"), EFailureWording::FromBlueprint};
} // namespace ItemReads

void FBlueprintVariableReadOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ItemReads::Read(ItemReads::Variable, Args, Result);
}

void FBlueprintComponentReadOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ItemReads::Read(ItemReads::Component, Args, Result);
}

void FBlueprintFunctionReadOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ItemReads::Read(ItemReads::Function, Args, Result);
}

void FBlueprintInterfaceReadOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ItemReads::Read(ItemReads::Interface, Args, Result);
}

void FBlueprintTimelineReadOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ItemReads::Read(ItemReads::Timeline, Args, Result);
}

void FBlueprintDelegateReadOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ItemReads::Read(ItemReads::Delegate, Args, Result);
}

void FBlueprintMacroReadOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ItemReads::Read(ItemReads::Macro, Args, Result);
}
