#pragma once

#include "CoreMinimal.h"

class FFeedbackContext;
class UEdGraph;
class UEdGraphNode;
class UObject;

/** Nodes as text and back: what copy and paste of a graph editor do. */
class FEdGraphUtilities
{
public:
	/** Writes the nodes, in the set's order, as the clipboard has them. Links to other nodes are written too. */
	static void ExportNodesToText(const TSet<UObject*>& NodesToExport, FString& ExportedText);
	/**
	 * Makes the text's nodes in the graph, with new guids and pin ids and the links among them. Takes what any editor
	 * generation writes, and passes over words around it. A node of a class that is not known becomes a placeholder;
	 * one that no graph of the schema takes is left out. What was left out or could not be read goes to Warn (null: to
	 * the log), one line each. Text that is no object text makes nothing.
	 */
	static void ImportNodesFromText(UEdGraph* DestinationGraph, const FString& TextToImport,
		TSet<UEdGraphNode*>& ImportedNodeSet, FFeedbackContext* Warn = nullptr);
	/** Whether the text has at least one node that the graph takes. */
	static bool CanImportNodesFromText(const UEdGraph* DestinationGraph, const FString& TextToImport);
	/**
	 * Lets the nodes settle in their graph: names that must be unique, types that older texts did not tell, the
	 * Blueprint's own class; then makes their pins anew. Nothing that an author put into the text is lost: a node that
	 * does not belong in the graph, or refers to what is not there, keeps its pins and is named to Warn, and the
	 * compile tells of it. An event that the Blueprint has already becomes a custom event and is replaced in the set;
	 * a function's entry gives its links to the one that is there and leaves the set.
	 */
	static void PostProcessPastedNodes(TSet<UEdGraphNode*>& SpawnedNodes, FFeedbackContext* Warn = nullptr);
};
