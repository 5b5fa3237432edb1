#include "ToolTable.h"

#include "BlueprintCompileOperation.h"
#include "BlueprintCreateOperation.h"
#include "BlueprintGraphCreateOperation.h"
#include "BlueprintRemoveOperation.h"
#include "ToolAdapter.h"
#include "ToolInfo.h"

namespace ToolTableRows
{
template <const TCHAR* const& ToolName, FToolOperation Operation>
constexpr FToolRow MakeRow(EToolKind Kind, const TCHAR* SubOperation, const TCHAR* Parameters, const TCHAR* Description)
{
	return {ToolName, Kind, SubOperation, Parameters, Description,
		[](const FString& ParametersText, const FString& DescriptionText, const FString& Metadata) -> TSharedPtr<ITool>
		{ return MakeShared<TToolAdapter<ToolName, Operation>>(ParametersText, DescriptionText, Metadata); }};
}

// The order is that of registration, which the host shows. Descriptions are read by agents, word for word.
// clang-format off
constexpr FToolRow Rows[] = {
	MakeRow<Morvane::ToolInfo::ToolName_BPCreateGraph, &FBlueprintGraphCreateOperation::Execute>(EToolKind::Modify, nullptr, TEXT(""),
		TEXT("[INTERNAL TOOL] Create or configure Blueprint functions and delegate signatures (no node operations). Accepts batched 'functions' array with optional parameters/return_type metadata. Use with bp_populate_graph for node/connection workflows to maintain separation of concerns.")),
	MakeRow<Morvane::ToolInfo::ToolName_BPCreateAsset, &FBlueprintCreateOperation::Execute>(EToolKind::Create, nullptr, TEXT(""),
		TEXT("Creates a new Unreal Engine Blueprint, Animation Blueprint, Widget Blueprint, or Behavior Tree Task asset at the specified path with the specified parent class")),
	MakeRow<Morvane::ToolInfo::ToolName_DeleteBlueprint, &FBlueprintRemoveOperation::Execute>(EToolKind::Delete, nullptr, TEXT("{}"),
		TEXT("Remove a Blueprint asset from the project")),
	MakeRow<Morvane::ToolInfo::ToolName_CompileBlueprint, &FBlueprintCompileOperation::Execute>(EToolKind::Compile, nullptr, TEXT(""),
		TEXT("Compile one or more Blueprint assets. Takes an array of Blueprint paths and compiles each Blueprint, reporting compilation results including errors and warnings.")),
};
// clang-format on

const TCHAR* GetKindWord(EToolKind Kind)
{
	switch (Kind)
	{
	case EToolKind::Read:
		return TEXT("read");
	case EToolKind::Modify:
		return TEXT("modify");
	case EToolKind::Create:
		return TEXT("create");
	case EToolKind::Delete:
		return TEXT("delete");
	case EToolKind::Compile:
		return TEXT("compile");
	}
	return TEXT("");
}
} // namespace ToolTableRows

TArrayView<const FToolRow> ToolTable::GetRows()
{
	return ToolTableRows::Rows;
}

FString ToolTable::MakeMetadata(const FToolRow& Row)
{
	FString Metadata(TEXT("{\n"));
	Metadata += FString::Printf(TEXT("\"operation_type\": \"%s\",\n"), ToolTableRows::GetKindWord(Row.Kind));
	Metadata += Row.SubOperation ? TEXT("\"data_type\": \"Blueprint\",\n") : TEXT("\"data_type\": \"Blueprint\"\n");
	if (Row.SubOperation)
	{
		Metadata += FString::Printf(TEXT("\"sub_operation\": \"%s\"\n"), Row.SubOperation);
	}
	Metadata += TEXT("}");
	return Metadata;
}

TSharedPtr<ITool> ToolTable::MakeTool(const FToolRow& Row)
{
	return Row.Make(Row.Parameters, Row.Description, MakeMetadata(Row));
}
