#include "Cli/GraphClipboard.h"

#include "AssetOperationBase.h"
#include "BlueprintUtils.h"
#include "Containers/StringConv.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphUtilities.h"
#include "Engine/Blueprint.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Misc/FeedbackContext.h"
#include "Standalone/EdGraphNode_Placeholder.h"
#include "ToolResult.h"

namespace GraphClipboard
{
namespace
{
/** What the importer complains of. */
class FCollectedLines final : public FFeedbackContext
{
public:
	void Serialize(const TCHAR* Text, ELogVerbosity::Type, const FName&) override { Lines.Add(FString(Text)); }
	TArray<FString> Lines;
};

UEdGraph* FindGraph(const std::string& AssetPath, const std::string& GraphName, Morvane::FToolResult& Result)
{
	const FString Path = FAssetOperationBase::NormalizeAssetPath(FromUtf8(AssetPath));
	UBlueprint* const Blueprint = FBlueprintUtils::LoadBlueprint(Path, Result);
	if (!Blueprint)
	{
		return nullptr;
	}
	const FString Name = FromUtf8(GraphName);
	TArray<UEdGraph*> Graphs;
	Blueprint->GetAllGraphs(Graphs);
	FString Known;
	for (UEdGraph* const Graph : Graphs)
	{
		if (Graph->GetName() == Name)
		{
			return Graph;
		}
		Known += (Known.IsEmpty() ? TEXT("") : TEXT(", ")) + Graph->GetName();
	}
	Result.AddErrorMessage(FString::Printf(TEXT("'%s' has no graph '%s'; its graphs: %s"), *Path, *Name, *Known));
	return nullptr;
}

/** By its name or its id. */
UEdGraphNode* FindNode(const UEdGraph& Graph, const FString& NameOrId)
{
	FGuid Id;
	const bool bIsId = FGuid::Parse(NameOrId, Id);
	for (UEdGraphNode* const Node : Graph.Nodes)
	{
		if (Node->GetName() == NameOrId || (bIsId && Node->NodeGuid == Id))
		{
			return Node;
		}
	}
	return nullptr;
}

TSharedPtr<FJsonValue> Describe(const UEdGraphNode& Node)
{
	const TSharedPtr<FJsonObject> Object = MakeShared<FJsonObject>();
	const UEdGraphNode_Placeholder* const Placeholder = Cast<UEdGraphNode_Placeholder>(&Node);
	Object->SetStringField(TEXT("name"), Node.GetName());
	Object->SetStringField(
		TEXT("class"), Placeholder ? Placeholder->GetOriginalClassPath() : Node.GetClass()->GetPathName());
	Object->SetStringField(TEXT("title"), Node.GetNodeTitle(ENodeTitleType::ListView).ToString());
	Object->SetStringField(TEXT("guid"), Node.NodeGuid.ToString());
	Object->SetNumberField(TEXT("x"), Node.NodePosX);
	Object->SetNumberField(TEXT("y"), Node.NodePosY);
	if (Placeholder)
	{
		Object->SetBoolField(TEXT("unknown"), true);
	}
	return MakeShared<FJsonValueObject>(Object);
}

void MoveTopLeftTo(const FPlace& Place, const TSet<UEdGraphNode*>& Nodes)
{
	FPlace Corner{MAX_int32, MAX_int32};
	for (const UEdGraphNode* const Node : Nodes)
	{
		Corner.X = FMath::Min(Corner.X, Node->NodePosX);
		Corner.Y = FMath::Min(Corner.Y, Node->NodePosY);
	}
	for (UEdGraphNode* const Node : Nodes)
	{
		// Text may have nodes as far apart as numbers go.
		Node->NodePosX = static_cast<int32>(static_cast<int64>(Node->NodePosX) - Corner.X + Place.X);
		Node->NodePosY = static_cast<int32>(static_cast<int64>(Node->NodePosY) - Corner.Y + Place.Y);
	}
}

void Tell(const UEdGraph& Graph, const TSet<UEdGraphNode*>& Nodes, Morvane::FToolResult& Result)
{
	TArray<TSharedPtr<FJsonValue>> Rows;
	int32 NumLinks = 0;
	for (const UEdGraphNode* const Node : Nodes)
	{
		Rows.Add(Describe(*Node));
		for (const UEdGraphPin* const Pin : Node->Pins)
		{
			NumLinks += Pin->Direction == EGPD_Output ? Pin->LinkedTo.Num() : 0;
		}
	}
	const TSharedPtr<FJsonObject> Pasted = MakeShared<FJsonObject>();
	Pasted->SetStringField(TEXT("graph"), Graph.GetName());
	Pasted->SetArrayField(TEXT("nodes"), Rows);
	Pasted->SetNumberField(TEXT("links"), NumLinks);
	Result.SetData(TEXT("pasted"), Pasted);
	Result.AddSuccessMessage(FString::Printf(TEXT("Pasted %d node(s) into '%s'"), Nodes.Num(), *Graph.GetName()));
}
} // namespace

std::string Copy(const std::string& AssetPath, const std::string& GraphName, const std::vector<std::string>& NodeNames,
	Morvane::FToolResult& Result)
{
	const UEdGraph* const Graph = FindGraph(AssetPath, GraphName, Result);
	if (!Graph)
	{
		return std::string();
	}
	TSet<UObject*> Nodes;
	for (UEdGraphNode* const Node : Graph->Nodes)
	{
		if (NodeNames.empty())
		{
			Nodes.Add(Node);
		}
	}
	for (const std::string& Name : NodeNames)
	{
		UEdGraphNode* const Node = FindNode(*Graph, FromUtf8(Name));
		if (!Node)
		{
			Result.AddErrorMessage(FString::Printf(
				TEXT("The graph '%s' has no node with the name or id '%s'"), *Graph->GetName(), *FromUtf8(Name)));
			return std::string();
		}
		Nodes.Add(Node);
	}
	FString Text;
	FEdGraphUtilities::ExportNodesToText(Nodes, Text);
	return ToUtf8(Text);
}

void Paste(const std::string& AssetPath, const std::string& GraphName, std::string_view Text,
	const std::optional<FPlace>& TopLeft, Morvane::FToolResult& Result)
{
	UEdGraph* const Graph = FindGraph(AssetPath, GraphName, Result);
	if (!Graph)
	{
		return;
	}
	FCollectedLines Complaints;
	TSet<UEdGraphNode*> Nodes;
	FEdGraphUtilities::ImportNodesFromText(Graph, FromUtf8(Text), Nodes, &Complaints);
	if (Nodes.IsEmpty())
	{
		const FString Reasons = FString::Join(Complaints.Lines, TEXT("; "));
		Result.AddErrorMessage(TEXT("The text has no node that could be pasted: ") + Reasons);
		return;
	}
	FEdGraphUtilities::PostProcessPastedNodes(Nodes, &Complaints);
	for (const FString& Line : Complaints.Lines)
	{
		Result.AddWarningMessage(Line);
	}
	if (TopLeft)
	{
		MoveTopLeftTo(*TopLeft, Nodes);
	}
	UBlueprint* const Blueprint = FBlueprintEditorUtils::FindBlueprintForGraph(Graph);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	if (FAssetOperationBase::SaveAsset(Blueprint, Result))
	{
		Tell(*Graph, Nodes, Result);
	}
}
} // namespace GraphClipboard
