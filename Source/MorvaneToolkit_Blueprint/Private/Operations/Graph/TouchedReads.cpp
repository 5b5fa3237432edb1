#include "Operations/Graph/TouchedReads.h"

#include "BlueprintGraphUtils.h"
#include "Dom/JsonObject.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "Utils/Read/EventTracing.h"
#include "Utils/Report/ShownNodes.h"
#include "Utils/Report/TrackedNames.h"

namespace TouchedReadsImpl
{
static FString TitleOf(const UEdGraphNode& Node)
{
	return Node.GetNodeTitle(ENodeTitleType::FullTitle).ToString();
}

/** The interface whose function the graph is; empty for other graphs. */
static FString FindInterface(const UBlueprint& Blueprint, UEdGraph& Graph)
{
	for (const FBPInterfaceDescription& Row : Blueprint.ImplementedInterfaces)
	{
		if (Row.Interface.Get() && Row.Graphs.Contains(&Graph))
		{
			return Row.Interface.Get()->GetName();
		}
	}
	return FString();
}
} // namespace TouchedReadsImpl

FTouchedReads::FTouchedReads(UBlueprint& InBlueprint, UEdGraph& InGraph)
	: Blueprint(InBlueprint)
	, TopGraph(*FBlueprintEditorUtils::GetTopLevelGraph(&InGraph))
	, TopGraphName(TopGraph.GetName())
{
	if (FBlueprintGraphUtils::IsUbergraphPage(&Blueprint, &TopGraph))
	{
		TraceBefore = MakeUnique<FEventTrace>(TopGraph);
	}
}

FTouchedReads::~FTouchedReads() = default;

UEdGraphNode* FTouchedReads::GetNodeOfPage(UEdGraphNode& Node) const
{
	UEdGraphNode* OnPage = &Node;
	while (OnPage && OnPage->GetGraph() != &TopGraph)
	{
		const UEdGraph* const Within = OnPage->GetGraph();
		OnPage = Within ? Within->GetTypedOuter<UEdGraphNode>() : nullptr;
	}
	return OnPage;
}

void FTouchedReads::NoteEvents(const FEventTrace& Trace, UEdGraphNode& Node)
{
	const TArray<UEdGraphNode*> Reaching = Trace.EventsOf(&Node);
	for (const UEdGraphNode* const Event : Reaching)
	{
		Events.Add(TouchedReadsImpl::TitleOf(*Event));
	}
	if (Reaching.IsEmpty())
	{
		FloatingNodes.Add(TouchedReadsImpl::TitleOf(Node));
	}
}

void FTouchedReads::TouchNode(UEdGraphNode& Node)
{
	Shown.Append(ShownNodes::WithNeighbors(Node));
	if (!TraceBefore)
	{
		TouchGraph();
		return;
	}
	UEdGraphNode* const OnPage = GetNodeOfPage(Node);
	if (OnPage && !Known.Contains(OnPage))
	{
		Known.Add(OnPage);
		Touched.Add(OnPage);
		NoteEvents(*TraceBefore, *OnPage);
	}
}

void FTouchedReads::TouchGraph()
{
	if (TraceBefore)
	{
		for (UEdGraphNode* const Node : TopGraph.Nodes)
		{
			if (EventTracing::IsEvent(Node))
			{
				Events.Add(TouchedReadsImpl::TitleOf(*Node));
			}
		}
		return;
	}
	const FString Interface = TouchedReadsImpl::FindInterface(Blueprint, TopGraph);
	if (!Interface.IsEmpty())
	{
		Interfaces.Add(Interface);
	}
	else if (FBlueprintGraphUtils::IsDelegateSignatureGraph(&Blueprint, &TopGraph))
	{
		Delegates.Add(TopGraphName);
	}
	else
	{
		const bool bMacro = Blueprint.MacroGraphs.Contains(&TopGraph);
		(bMacro ? Macros : Functions).Add(TopGraphName);
	}
}

void FTouchedReads::TrackEvents(
	const FString& Path, const TCHAR* NameField, const TSet<FString>& Names, Morvane::FToolResult& Result) const
{
	using namespace Morvane;
	if (Names.IsEmpty())
	{
		return;
	}
	TArray<TSharedPtr<FJsonValue>> Entries;
	for (const FString& Name : Names)
	{
		const TSharedRef<FJsonObject> Entry = MakeShared<FJsonObject>();
		Entry->SetStringField(ToolInfo::FieldName_GraphName, TopGraphName);
		Entry->SetStringField(NameField, Name);
		Entries.Add(MakeShared<FJsonValueObject>(Entry));
	}
	const TSharedPtr<FJsonObject> Parameters = MakeShared<FJsonObject>();
	Parameters->SetStringField(ToolInfo::FieldName_Path, Path);
	Parameters->SetArrayField(ToolInfo::FieldName_Events, MoveTemp(Entries));
	Result.TrackModification(ToolInfo::ToolName_ReadBlueprintEvent, Parameters);
}

void FTouchedReads::Track(const FString& Path, Morvane::FToolResult& Result)
{
	using namespace Morvane;
	if (TraceBefore && IsValid(&TopGraph) && !Touched.IsEmpty())
	{
		// A link that went may have set a node free, and a new title is the one to read by.
		const FEventTrace TraceAfter(TopGraph);
		for (const TWeakObjectPtr<UEdGraphNode>& Weak : Touched)
		{
			if (UEdGraphNode* const Node = Weak.Get())
			{
				NoteEvents(TraceAfter, *Node);
			}
		}
	}
	for (const FString& NodeGuid : Shown)
	{
		Result.AddShownNode(NodeGuid);
	}
	TrackEvents(Path, ToolInfo::FieldName_EventName, Events, Result);
	TrackEvents(Path, ToolInfo::FieldName_FloatingNodeName, FloatingNodes, Result);
	const auto TrackSet = [&](const TCHAR* ReadTool, const TCHAR* Field, const TSet<FString>& Names)
	{ TrackNames(ReadTool, Path, Field, Names.Array(), Result); };
	TrackSet(ToolInfo::ToolName_ReadBlueprintFunction, ToolInfo::FieldName_FunctionName, Functions);
	TrackSet(ToolInfo::ToolName_ReadBlueprintDelegate, ToolInfo::FieldName_DelegateName, Delegates);
	TrackSet(ToolInfo::ToolName_ReadBlueprintMacro, ToolInfo::FieldName_MacroName, Macros);
	TrackSet(ToolInfo::ToolName_ReadBlueprintInterface, ToolInfo::FieldName_InterfaceName, Interfaces);
}
