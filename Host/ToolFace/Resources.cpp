#include "ToolFace/Resources.h"

#include <algorithm>

#include "Support/JsonText.h"

namespace ResourceTemplatesPrivate
{
static std::string Entry(const char* const UriKey, const std::string_view Uri, const std::string_view Name,
	const std::string_view Title, const std::string_view Description)
{
	return "{" + JsonText::Quote(UriKey) + ":" + JsonText::Quote(Uri) + R"(,"name":)" + JsonText::Quote(Name)
		+ R"(,"title":)" + JsonText::Quote(Title) + R"(,"description":)" + JsonText::Quote(Description)
		+ R"(,"mimeType":"application/json"})";
}
} // namespace ResourceTemplatesPrivate

const std::vector<ResourceTemplates::FTemplate>& ResourceTemplates::GetAll()
{
	static const std::vector<FTemplate> Templates = {
		{"morvane://menu{?query,title,category,node_class,limit}", "menu", "Actions of the graph menu",
			"The actions whose title, category or keywords have all words of the query, best first, each with the request that places its node exactly. title names one, category and node_class narrow the list, limit (default 40) bounds it.",
			{{"query", ENameKind::MenuTitle}, {"title", ENameKind::MenuTitle}, {"node_class", ENameKind::NodeClass}}},
		{"morvane://node{?title,node_class,function,parent}", "node", "A node with its pins",
			"The nodes of that menu title with the names, types and defaults of their pins, before any is placed. function names one exactly: KismetSystemLibrary.PrintString. parent is the class of the Blueprint that the node would stand in; default Actor.",
			{{"title", ENameKind::MenuTitle}, {"node_class", ENameKind::NodeClass},
				{"parent", ENameKind::ParentClass}}},
		{"morvane://assets{?path,class,query,limit}", "assets", "Assets",
			"The assets below a folder (default the project; /Engine lists the engine's meshes, materials, fonts, textures and sounds that can be referred to), of a class and with a word in their name. limit defaults to 200.",
			{{"path", ENameKind::FolderPath}, {"class", ENameKind::AssetClass}}},
		{"morvane://blueprint{+path}{?event,function,detail}", "blueprint", "A Blueprint",
			"What a Blueprint holds: parent, variables, components, functions, events. path is the asset's, with its slash: morvane://blueprint/Game/Doors/BP_Door. event or function shows one of them with its nodes; detail=lean takes about a third of the length.",
			{{"path", ENameKind::BlueprintPath}}},
	};
	return Templates;
}

const ResourceTemplates::FTemplate* ResourceTemplates::Find(const std::string_view Uri)
{
	const std::vector<FTemplate>& All = GetAll();
	const auto Found = std::find_if(All.begin(), All.end(), [Uri](const FTemplate& One) { return One.Uri == Uri; });
	return Found != All.end() ? &*Found : nullptr;
}

std::string ResourceTemplates::Json()
{
	std::string Text = "[";
	for (const FTemplate& One : GetAll())
	{
		Text += Text.size() > 1 ? "," : "";
		Text += ResourceTemplatesPrivate::Entry("uriTemplate", One.Uri, One.Name, One.Title, One.Description);
	}
	return Text + "]";
}

const std::vector<FResourceListing>& ResourceTemplates::GetFixed()
{
	static const std::vector<FResourceListing> Fixed = {
		{"morvane://menu", "menu", "Graph menu",
			"How many actions the graph menu has, by category. Search it with morvane://menu?query=WORDS."},
		{"morvane://assets", "assets", "Assets of the project",
			"Every asset of the project with its class. morvane://assets?path=/Engine lists the engine's."},
	};
	return Fixed;
}

std::string ResourceTemplates::Json(const FResourceListing& Resource)
{
	return ResourceTemplatesPrivate::Entry("uri", Resource.Uri, Resource.Name, Resource.Title, Resource.Description);
}
