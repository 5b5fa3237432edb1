#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

namespace Morvane
{
class FToolResult;
}
class UEdGraph;
class UEdGraphNode;
class UEdGraphPin;

/**
 * JSON views of a Blueprint, its graphs, nodes and pins. Reads change nothing.
 *
 * A read runs on behalf of a read tool, which the command names: that steers how much is shown. Whatever is missing
 * below the Blueprint itself is an entry or an "error" key where it would have stood, never an error of the tool.
 */
class MORVANETOOLKIT_BLUEPRINT_API FBlueprintReadUtils
{
public:
	/** The document of one Blueprint as text, or "{}" after errors in the result. */
	static FString ReadBlueprint(const TSharedPtr<FJsonObject>& Command, Morvane::FToolResult& Result);

	/** A graph as a flat list of its nodes, nested graphs within. Never null: what cannot be read is an object with
	 * "error". */
	static TSharedPtr<FJsonObject> ReadEdGraph(const UEdGraph* Graph, const TSharedPtr<FJsonObject>& Command);
	static TSharedPtr<FJsonObject> ReadEdGraph(
		const UEdGraph* Graph, const TSharedPtr<FJsonObject>& Command, int32 Depth, TSet<const UEdGraph*>& Visited);
	/**
	 * An event graph as flows: for each event the nodes that belong to it, then the nodes that belong to none. With
	 * bRestrict only flows that hold a node of the given short ids stand.
	 */
	static TSharedPtr<FJsonObject> ReadEventGraph(const UEdGraph* Graph, const TSharedPtr<FJsonObject>& Command,
		bool bRestrict, const TSet<FString>& ShortNodeIds);

	/** Null for a null node. Pins are not in it; the caller adds them. */
	static TSharedPtr<FJsonObject> ReadNodeInfo(
		const UEdGraphNode* Node, const TSharedPtr<FJsonObject>& Command, int32 Depth, TSet<const UEdGraph*>& Visited);
	/** Null for a null pin. The set is taken and has no effect. */
	static TSharedPtr<FJsonObject> ReadPinInfo(
		const UEdGraphPin* Pin, const TSet<const UEdGraphNode*>* Nodes = nullptr);
	/** What follows "Target is " in a title, ignoring case; empty when that is not in it. */
	static void ExtractTitleTargetClass(const FString& Title, FString& OutClass);
};
