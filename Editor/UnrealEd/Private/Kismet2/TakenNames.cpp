#include "Kismet2/TakenNames.h"

#include "Compiler/BlueprintClassBuilder.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/TimelineTemplate.h"
#include "K2Node_Event.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Standalone/WidgetBlueprintVariables.h"

namespace TakenNames
{
namespace
{
/** Answers whether to go on. */
using FVisitor = TFunctionRef<bool(FName)>;

bool VisitTimeline(const UTimelineTemplate& Timeline, FVisitor Visit)
{
	const auto VisitTracks = [&Visit](const auto& Tracks)
	{
		return !Tracks.ContainsByPredicate(
			[&Visit](const FTTPropertyTrack& Track) { return !Visit(Track.GetPropertyName()); });
	};
	return Visit(Timeline.GetVariableName()) && Visit(Timeline.GetDirectionPropertyName())
		&& VisitTracks(Timeline.FloatTracks) && VisitTracks(Timeline.VectorTracks)
		&& VisitTracks(Timeline.LinearColorTracks);
}

bool VisitVariables(const UBlueprint& Blueprint, FVisitor Visit)
{
	for (const FBPVariableDescription& Variable : Blueprint.NewVariables)
	{
		if (!Visit(Variable.VarName))
		{
			return false;
		}
	}
	for (const UTimelineTemplate* const Timeline : Blueprint.Timelines)
	{
		if (Timeline && !VisitTimeline(*Timeline, Visit))
		{
			return false;
		}
	}
	const USimpleConstructionScript* const Script = Blueprint.SimpleConstructionScript;
	for (const USCS_Node* const Node : Script ? Script->GetAllNodes() : TArray<USCS_Node*>())
	{
		if (!Visit(Node->GetVariableName()))
		{
			return false;
		}
	}
	for (const FWidgetBlueprintVariable& Widget : FWidgetBlueprintVariable::Collect(&Blueprint))
	{
		if (!Visit(Widget.Name))
		{
			return false;
		}
	}
	return true;
}

bool VisitEvents(const UEdGraph& Graph, FVisitor Visit)
{
	for (UEdGraphNode* const Node : Graph.Nodes)
	{
		const UK2Node_Event* const Event = Cast<UK2Node_Event>(Node);
		if (Event && Event->IsNodeEnabled() && !Visit(Event->GetFunctionName()))
		{
			return false;
		}
	}
	for (const UEdGraph* const Inner : Graph.SubGraphs)
	{
		if (Inner && !VisitEvents(*Inner, Visit))
		{
			return false;
		}
	}
	return true;
}

bool VisitEvents(const UBlueprint& Blueprint, FVisitor Visit)
{
	for (const UEdGraph* const Page : Blueprint.UbergraphPages)
	{
		if (Page && !VisitEvents(*Page, Visit))
		{
			return false;
		}
	}
	return true;
}

/** A collapsed graph's name counts as well; its object stands below its node. */
bool IsNestedGraph(const UBlueprint& Blueprint, FName Name)
{
	if (!FindFirstObject<UEdGraph>(*Name.ToString()))
	{
		return false;
	}
	TArray<UEdGraph*> Graphs;
	Blueprint.GetAllGraphs(Graphs);
	return Graphs.ContainsByPredicate([Name](const UEdGraph* Graph) { return Graph->GetFName() == Name; });
}

bool IsSignature(const UBlueprint& Blueprint, FName Name)
{
	FString Base = Name.ToString();
	const FString Suffix = FBlueprintClassBuilder::DelegateSignatureName(FName(TEXT("X"))).ToString().Mid(1);
	if (!Base.RemoveFromEnd(Suffix, ESearchCase::IgnoreCase))
	{
		return false;
	}
	return FBlueprintEditorUtils::GetDelegateSignatureGraphByName(const_cast<UBlueprint*>(&Blueprint), FName(Base));
}

/** The functions of an interface count, made or not. */
bool IsOfInterface(const UBlueprint& Blueprint, FName Name)
{
	return Blueprint.ImplementedInterfaces.ContainsByPredicate([Name](const FBPInterfaceDescription& Row)
		{ return Row.Interface.Get() && Row.Interface.Get()->FindFunctionByName(Name); });
}

/** The class knows the events by name when it is up to date. */
bool IsEvent(const UBlueprint& Blueprint, FName Name)
{
	const UClass* const Class = Blueprint.bSkeletonIsStale ? nullptr : Blueprint.SkeletonGeneratedClass.Get();
	return Class ? Class->FindFunctionByName(Name, EIncludeSuperFlag::ExcludeSuper) != nullptr
				 : !VisitEvents(Blueprint, [Name](FName Known) { return Known != Name; });
}
} // namespace

bool IsVariable(const UBlueprint& Blueprint, FName Name)
{
	const UClass* const Parent = Blueprint.ParentClass.Get();
	return (Parent && Parent->FindPropertyByName(Name))
		|| !VisitVariables(Blueprint, [Name](FName Known) { return Known != Name; });
}

bool IsKnownAtOnce(const UBlueprint& Blueprint, FName Name)
{
	const UClass* const Parent = Blueprint.ParentClass.Get();
	return StaticFindObjectFast(nullptr, const_cast<UBlueprint*>(&Blueprint), Name)
		|| (Parent && (Parent->FindFunctionByName(Name) || Parent->FindPropertyByName(Name)))
		|| IsOfInterface(Blueprint, Name);
}

bool IsTaken(const UBlueprint& Blueprint, FName Name)
{
	return IsKnownAtOnce(Blueprint, Name) || IsVariable(Blueprint, Name) || IsEvent(Blueprint, Name)
		|| IsSignature(Blueprint, Name) || IsNestedGraph(Blueprint, Name);
}

void AddDeclared(const UBlueprint& Blueprint, TSet<FName>& Names)
{
	const auto Add = [&Names](FName Name)
	{
		Names.Add(Name);
		return true;
	};
	VisitVariables(Blueprint, Add);
	VisitEvents(Blueprint, Add);
	TArray<UEdGraph*> Graphs;
	Blueprint.GetAllGraphs(Graphs);
	for (const UEdGraph* const Graph : Graphs)
	{
		Names.Add(Graph->GetFName());
	}
	for (const UEdGraph* const Graph : Blueprint.DelegateSignatureGraphs)
	{
		Names.Add(FBlueprintClassBuilder::DelegateSignatureName(Graph->GetFName()));
	}
}

void MoveAside(UBlueprint& Blueprint, FName Name)
{
	USimpleConstructionScript* const Script = Blueprint.SimpleConstructionScript;
	USCS_Node* const Node = Script ? Script->FindSCSNode(Name) : nullptr;
	const bool bVariable = FBlueprintEditorUtils::FindNewVariableIndex(&Blueprint, Name) != INDEX_NONE;
	const bool bTimeline = Blueprint.FindTimelineTemplateByVariableName(Name) != nullptr;
	if (!Node && !bVariable && !bTimeline)
	{
		return;
	}
	const FName FreeName = FBlueprintEditorUtils::FindUniqueKismetName(&Blueprint, Name.ToString());
	if (bVariable)
	{
		FBlueprintEditorUtils::RenameMemberVariable(&Blueprint, Name, FreeName);
	}
	else if (bTimeline)
	{
		FBlueprintEditorUtils::RenameTimeline(&Blueprint, Name, FreeName);
	}
	else
	{
		FBlueprintEditorUtils::RenameComponentMemberVariable(&Blueprint, Node, FreeName);
	}
}
} // namespace TakenNames
