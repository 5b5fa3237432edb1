#include "ToolFace/ToolSchema.h"

#include <algorithm>

const std::vector<const FToolSchema*>& ToolSchemas::All()
{
	static const std::vector<const FToolSchema*> Schemas = {
		&ReadBlueprintSchemaSchema,
		&ReadBlueprintVariableSchema,
		&ReadBlueprintComponentSchema,
		&ReadBlueprintFunctionSchema,
		&ReadBlueprintInterfaceSchema,
		&ReadBlueprintEventSchema,
		&ReadBlueprintTimelineSchema,
		&ReadBlueprintDelegateSchema,
		&ReadBlueprintMacroSchema,
		&ReadBlueprintWidgetTreeSchema,
		&ModifyBlueprintClassStructureSchema,
		&UiModifyWidgetBpSchema,
		&BpPopulateGraphSchema,
		&BpCreateGraphSchema,
		&BpModifyGraphNodesSchema,
		&BpRemoveGraphConnectionsSchema,
		&BpCreateAssetSchema,
		&DeleteBlueprintSchema,
		&CompileBlueprintSchema,
	};
	return Schemas;
}

const FToolSchema* ToolSchemas::Find(const std::string_view ToolName)
{
	const std::vector<const FToolSchema*>& Schemas = All();
	const auto Known = std::find_if(
		Schemas.begin(), Schemas.end(), [ToolName](const FToolSchema* Schema) { return Schema->Name == ToolName; });
	return Known != Schemas.end() ? *Known : nullptr;
}
