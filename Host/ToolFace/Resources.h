#pragma once

#include <string>
#include <string_view>
#include <vector>

/** Something with an address that a client may read. All text is UTF-8. */
struct FResourceListing
{
	std::string Uri;
	std::string Name;
	std::string Title;
	std::string Description;
};

/** What reading an address gave. */
struct FResourceOutcome
{
	enum class EFault
	{
		None,
		/** Nothing has this address. */
		Unknown,
		/** It has one and cannot be shown now: the project belongs to another process. */
		Unavailable
	};

	/** One JSON document. */
	std::string Text;
	EFault Fault = EFault::None;
	/** One sentence, empty without a fault. */
	std::string Message;
};

/** What a client may write where a name is asked for. */
struct FCompletions
{
	/** Best first, no more than a client takes. */
	std::vector<std::string> Values;
	/** How many there are in all. */
	size_t Total = 0;

	static constexpr size_t MaxValues = 100;
};

/** What kind of name is asked for. */
enum class ENameKind
{
	None,
	/** Title of an action in the graph menu. */
	MenuTitle,
	/** Asset of the project. */
	AssetPath,
	/** Blueprint of the project. */
	BlueprintPath,
	/** Folder with assets, of the project or the engine. */
	FolderPath,
	/** Class that assets have. */
	AssetClass,
	/** Class of graph nodes. */
	NodeClass,
	/** Class that a Blueprint may derive from. */
	ParentClass,
	ToolName
};

/** The addresses that are the same in every project, as the protocol lists them. */
namespace ResourceTemplates
{
/** An address with places for names, such as "morvane://menu{?query,limit}". */
struct FTemplate
{
	std::string_view Uri;
	std::string_view Name;
	std::string_view Title;
	std::string_view Description;
	/** Of the names that stand in it, those that can be completed. */
	std::vector<std::pair<std::string_view, ENameKind>> Names;
};

const std::vector<FTemplate>& GetAll();
/** Null when no template is written so. */
const FTemplate* Find(std::string_view Uri);
/** As the value of "resourceTemplates". */
std::string Json();
/** The addresses without places: the menu and the assets. */
const std::vector<FResourceListing>& GetFixed();
/** One entry of "resources". */
std::string Json(const FResourceListing& Resource);
} // namespace ResourceTemplates
