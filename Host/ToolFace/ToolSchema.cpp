#include "ToolFace/ToolSchema.h"

#include <algorithm>

const std::vector<const FToolSchema*>& ToolSchemas::All()
{
#define MORVANE_LIST_SCHEMA(Schema) &Schema,
	static const std::vector<const FToolSchema*> Schemas = {MORVANE_TOOL_SCHEMAS(MORVANE_LIST_SCHEMA)};
#undef MORVANE_LIST_SCHEMA
	return Schemas;
}

const FToolSchema* ToolSchemas::Find(const std::string_view ToolName)
{
	const std::vector<const FToolSchema*>& Schemas = All();
	const auto Known = std::find_if(
		Schemas.begin(), Schemas.end(), [ToolName](const FToolSchema* Schema) { return Schema->Name == ToolName; });
	return Known != Schemas.end() ? *Known : nullptr;
}
