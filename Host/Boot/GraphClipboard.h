#pragma once

#include <string>
#include <string_view>

namespace Morvane
{
class FToolResult;
}

/** Copy and paste of whole graphs, as text that the editor's graph panel takes and gives. The project is open. */
namespace GraphClipboard
{
/** The nodes of a Blueprint's graph, in the graph's order. Empty after an error in the result. */
std::string Copy(const std::string& AssetPath, const std::string& GraphName, Morvane::FToolResult& Result);

/**
 * Adds the text's nodes to the graph and saves the asset. The data names what was pasted, with its new ids; what could
 * not be taken over is told as warnings.
 */
void Paste(
	const std::string& AssetPath, const std::string& GraphName, std::string_view Text, Morvane::FToolResult& Result);
} // namespace GraphClipboard
