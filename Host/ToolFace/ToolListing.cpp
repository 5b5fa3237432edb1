#include "ToolFace/ToolListing.h"

#include <set>
#include <string_view>

#include <simdjson.h>

#include "Support/JsonText.h"
#include "ToolFace/ResultObject.h"
#include "ToolFace/ToolSchema.h"

namespace ToolListingPrivate
{
static std::string Minify(const std::string_view Json)
{
	std::string Small(Json.size(), '\0');
	size_t Length = 0;
	if (simdjson::minify(Json.data(), Json.size(), Small.data(), Length) != simdjson::SUCCESS)
	{
		return std::string(Json);
	}
	Small.resize(Length);
	return Small;
}

/** Adds the names of the shared types that Schema points to, and those that they point to. */
static void CollectTypes(const std::string_view Schema, std::set<std::string_view>& OutNames)
{
	constexpr std::string_view Prefix = "#/$defs/";
	for (size_t At = Schema.find(Prefix); At != std::string_view::npos; At = Schema.find(Prefix, At))
	{
		At += Prefix.size();
		const std::string_view Name = Schema.substr(At, Schema.find('"', At) - At);
		if (OutNames.insert(Name).second)
		{
			CollectTypes(ToolSchemas::SharedType(Name), OutNames);
		}
	}
}

static std::string_view BoolText(const bool bValue)
{
	return bValue ? "true" : "false";
}

static std::string Annotations(const FToolSchema& Schema)
{
	std::string Text = R"({"title":)" + JsonText::Quote(Schema.Title);
	Text.append(R"(,"readOnlyHint":)").append(BoolText(Schema.bReadOnly));
	Text.append(R"(,"destructiveHint":)").append(BoolText(Schema.bDestructive));
	Text.append(R"(,"idempotentHint":)").append(BoolText(Schema.bIdempotent));
	return Text.append(R"(,"openWorldHint":false})");
}

static std::string Entry(const FToolListing& Tool)
{
	std::string Text = R"({"name":)" + JsonText::Quote(Tool.Name);
	const FToolSchema* Schema = ToolSchemas::Find(Tool.Name);
	if (Schema)
	{
		Text += R"(,"title":)" + JsonText::Quote(Schema->Title);
	}
	Text += R"(,"description":)" + JsonText::Quote(Tool.Description);
	Text += R"(,"inputSchema":)" + ToolListing::InputSchemaJson(Tool.Name);
	Text += R"(,"outputSchema":)" + Minify(ResultObject::Schema());
	if (Schema)
	{
		Text += R"(,"annotations":)" + Annotations(*Schema);
	}
	return Text + "}";
}
} // namespace ToolListingPrivate

std::string ToolListing::InputSchemaJson(const std::string& ToolName)
{
	const FToolSchema* Schema = ToolSchemas::Find(ToolName);
	if (!Schema)
	{
		return R"({"type":"object"})";
	}
	std::set<std::string_view> Names;
	ToolListingPrivate::CollectTypes(Schema->Input, Names);
	std::string Text = ToolListingPrivate::Minify(Schema->Input);
	if (Names.empty())
	{
		return Text;
	}
	Text.pop_back();
	Text += R"(,"$defs":{)";
	for (const std::string_view Name : Names)
	{
		Text += JsonText::Quote(Name) + ":" + ToolListingPrivate::Minify(ToolSchemas::SharedType(Name)) + ",";
	}
	Text.back() = '}';
	return Text + "}";
}

std::string ToolListing::Json(const std::vector<FToolListing>& Tools)
{
	std::string Text = "[";
	for (const FToolListing& Tool : Tools)
	{
		Text += Text.size() > 1 ? "," : "";
		Text += ToolListingPrivate::Entry(Tool);
	}
	return Text + "]";
}
