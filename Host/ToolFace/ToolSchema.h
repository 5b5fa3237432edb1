#pragma once

#include <string_view>
#include <vector>

/**
 * What a client is told about the arguments of one tool, beyond the tool's own name and description.
 *
 * The schema guides the model and is no gate: nothing here is checked before a call, since the tools' own messages are
 * the contract. It stays in the part of JSON Schema that all clients share, and may point to the shared types with
 * "$ref": "#/$defs/<name>"; those it needs are added when the tools are listed.
 */
struct FToolSchema
{
	std::string_view Name;
	std::string_view Title;
	bool bReadOnly = false;
	bool bDestructive = true;
	bool bIdempotent = false;
	/** A JSON Schema with "type": "object". Written for reading; blanks are dropped on output. */
	std::string_view Input;
};

namespace ToolSchemas
{
/** Null for a tool that this host knows nothing of. */
const FToolSchema* Find(std::string_view ToolName);

const std::vector<const FToolSchema*>& All();

/** The schema of a type that several tools share; empty when there is none of that name. */
std::string_view SharedType(std::string_view Name);
} // namespace ToolSchemas

// One line a tool, in the order of the tool table. Each schema stands in Schemas/, in the file of the tool's name.
#define MORVANE_TOOL_SCHEMAS(ROW) \
	ROW(ReadBlueprintSchemaSchema) \
	ROW(ReadBlueprintVariableSchema) \
	ROW(ReadBlueprintComponentSchema) \
	ROW(ReadBlueprintFunctionSchema) \
	ROW(ReadBlueprintInterfaceSchema) \
	ROW(ReadBlueprintEventSchema) \
	ROW(ReadBlueprintTimelineSchema) \
	ROW(ReadBlueprintDelegateSchema) \
	ROW(ReadBlueprintMacroSchema) \
	ROW(ReadBlueprintWidgetTreeSchema) \
	ROW(ModifyBlueprintClassStructureSchema) \
	ROW(UiModifyWidgetBpSchema) \
	ROW(BpPopulateGraphSchema) \
	ROW(BpCreateGraphSchema) \
	ROW(BpModifyGraphNodesSchema) \
	ROW(BpRemoveGraphConnectionsSchema) \
	ROW(BpCreateAssetSchema) \
	ROW(DeleteBlueprintSchema) \
	ROW(CompileBlueprintSchema)

#define MORVANE_DECLARE_SCHEMA(Schema) extern const FToolSchema Schema;
MORVANE_TOOL_SCHEMAS(MORVANE_DECLARE_SCHEMA)
#undef MORVANE_DECLARE_SCHEMA
