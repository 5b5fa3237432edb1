#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Morvane
{
class FToolResult;
}

/** Copy and paste of whole graphs, as text that the editor's graph panel takes and gives. The project is open. */
namespace GraphClipboard
{
/** The nodes of those names or ids in a Blueprint's graph; without any, all in the graph's order. Empty after an error
 * in the result. */
std::string Copy(const std::string& AssetPath, const std::string& GraphName, const std::vector<std::string>& NodeNames,
	Morvane::FToolResult& Result);

/** A place in a graph. */
struct FPlace
{
	int X = 0;
	int Y = 0;
};

/**
 * Adds the text's nodes to the graph and saves the asset. They stand where the text has them, or, as at an editor's
 * cursor, with the top left corner of them all at the place given. The data names what was pasted, with its new ids;
 * what could not be taken over is told as warnings. A text that cannot be read changes nothing.
 */
void Paste(const std::string& AssetPath, const std::string& GraphName, std::string_view Text,
	const std::optional<FPlace>& TopLeft, Morvane::FToolResult& Result);
} // namespace GraphClipboard
