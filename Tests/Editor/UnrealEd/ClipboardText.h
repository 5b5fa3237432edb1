#pragma once

#include "EdGraphUtilities.h"

#include "GraphBuilder.h"
#include "Misc/FeedbackContext.h"

#include <string>
#include <vector>

/** Nodes to text and back, as tests of the clipboard do it. */
namespace ClipboardTests
{
class FWarnings final : public FFeedbackContext
{
public:
	void Serialize(const TCHAR* Text, ELogVerbosity::Type, const FName&) override
	{
		Lines.push_back(ToStd(FString(Text)));
	}
	std::vector<std::string> Lines;
};

inline TArray<UEdGraphNode*> Paste(UEdGraph* Graph, const std::string& Text, FWarnings* Warnings = nullptr)
{
	FWarnings Dropped;
	FWarnings& Used = Warnings ? *Warnings : Dropped;
	TSet<UEdGraphNode*> Nodes;
	FEdGraphUtilities::ImportNodesFromText(Graph, FromUtf8(Text), Nodes, &Used);
	FEdGraphUtilities::PostProcessPastedNodes(Nodes, &Used);
	return Nodes.Array();
}

inline std::string Copy(const TArray<UEdGraphNode*>& Nodes)
{
	TSet<UObject*> Objects;
	for (UEdGraphNode* const Node : Nodes)
	{
		Objects.Add(Node);
	}
	FString Text;
	FEdGraphUtilities::ExportNodesToText(Objects, Text);
	return ToStd(Text);
}
} // namespace ClipboardTests
