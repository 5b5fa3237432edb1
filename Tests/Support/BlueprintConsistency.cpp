#include "BlueprintConsistency.h"

#include <iostream>
#include <sstream>

#include "Blueprint/WidgetTree.h"
#include "BlueprintBuilder.h"
#include "Components/ActorComponent.h"
#include "Components/PanelSlot.h"
#include "Components/PanelWidget.h"
#include "EdGraphSchema_K2.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/TimelineTemplate.h"
#include "K2Node_BaseMCDelegate.h"
#include "K2Node_CallFunction.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionTerminator.h"
#include "K2Node_Timeline.h"
#include "K2Node_Variable.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "WidgetBlueprint.h"

#include <map>
#include <set>

namespace BlueprintConsistency
{
class FInspection
{
public:
	explicit FInspection(UBlueprint& InBlueprint)
		: Blueprint(InBlueprint)
	{
		FBlueprintEditorUtils::EnsureSkeletonIsUpToDate(&Blueprint);
	}

	std::vector<std::string> Run()
	{
		InspectGraphs();
		InspectVariables();
		InspectComponents();
		InspectTimelines();
		InspectInterfaces();
		if (UWidgetBlueprint* const Widget = Cast<UWidgetBlueprint>(&Blueprint))
		{
			InspectWidgets(*Widget);
		}
		return Faults;
	}

private:
	void Expect(bool bHolds, const FString& Thing, const char* Rule)
	{
		if (!bHolds)
		{
			Faults.push_back(ToStd(Thing) + ": " + Rule);
		}
	}

	/** Members of all kinds share one space of names. */
	void TakeName(const FString& Name, const char* Kind)
	{
		const std::string Key = ToStd(Name.ToLower());
		const auto [Place, bNew] = Members.emplace(Key, Kind);
		Expect(bNew, Name, ("is the name of a " + Place->second + " and a " + Kind).c_str());
	}

	void TakeGuid(const FGuid& Guid, const FString& Owner)
	{
		Expect(Guid.IsValid(), Owner, "has no guid");
		Expect(Guids.insert(ToStd(Guid.ToString())).second, Owner, "has the guid of something else");
	}

	FProperty* FindOwnProperty(FName Name) const
	{
		const UClass* const Class = Blueprint.GeneratedClass.Get();
		FProperty* const Property = Class->FindPropertyByName(Name);
		return Property && Property->GetOwnerClass() == Class ? Property : nullptr;
	}

	void InspectGraphs()
	{
		TArray<UEdGraph*> Graphs;
		Blueprint.GetAllGraphs(Graphs);
		std::set<const UEdGraph*> Seen;
		for (UEdGraph* const Graph : Graphs)
		{
			Expect(!Graph->IsGarbage(), Graph->GetName(), "is garbage and still listed");
			Expect(Seen.insert(Graph).second, Graph->GetName(), "is listed twice");
			Expect(Graph->IsIn(&Blueprint), Graph->GetName(), "stands outside of its Blueprint");
			TakeGuid(Graph->GraphGuid, Graph->GetName());
			for (UEdGraphNode* const Node : Graph->Nodes)
			{
				InspectNode(*Graph, *Node);
			}
		}
		for (const TArray<TObjectPtr<UEdGraph>>* const List :
			{&Blueprint.FunctionGraphs, &Blueprint.MacroGraphs, &Blueprint.UbergraphPages})
		{
			for (const UEdGraph* const Graph : *List)
			{
				TakeName(Graph->GetName(), "graph");
			}
		}
	}

	void InspectNode(UEdGraph& Graph, UEdGraphNode& Node)
	{
		const FString Name = Graph.GetName() + TEXT(".") + Node.GetName();
		Expect(!Node.IsGarbage(), Name, "is garbage and still in its graph");
		Expect(Node.GetOuter() == &Graph, Name, "stands in another graph");
		TakeGuid(Node.NodeGuid, Name);
		for (UEdGraphPin* const Pin : Node.Pins)
		{
			const FString PinName = Name + TEXT(".") + Pin->GetName();
			Expect(Pin->GetOwningNode() == &Node, PinName, "belongs to another node");
			Expect(!Pin->ParentPin || Pin->ParentPin->SubPins.Contains(Pin), PinName, "is unknown to its parent pin");
			for (UEdGraphPin* const Other : Pin->LinkedTo)
			{
				Expect(Other->LinkedTo.Contains(Pin), PinName, "has a link of one side");
				Expect(Graph.Nodes.Contains(Other->GetOwningNode()), PinName, "is linked to a node that is not there");
			}
		}
		InspectReferences(Graph, Node, Name);
	}

	void InspectReferences(const UEdGraph& Graph, const UEdGraphNode& Node, const FString& Name)
	{
		if (const UK2Node_Variable* const Variable = Cast<UK2Node_Variable>(&Node))
		{
			Expect(Variable->GetPropertyForVariable() != nullptr, Name, "refers to a variable that is not there");
			Expect(Variable->GetValuePin() != nullptr, Name, "has no pin of its variable's name");
		}
		if (const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node))
		{
			Expect(Call->GetTargetFunction() != nullptr, Name, "calls a function that is not there");
		}
		if (const UK2Node_BaseMCDelegate* const Dispatcher = Cast<UK2Node_BaseMCDelegate>(&Node))
		{
			Expect(Dispatcher->GetDelegateSignature() != nullptr, Name, "is about a dispatcher that is not there");
		}
		if (const UK2Node_ComponentBoundEvent* const Event = Cast<UK2Node_ComponentBoundEvent>(&Node))
		{
			const FProperty* const Member = Blueprint.GeneratedClass->FindPropertyByName(Event->ComponentPropertyName);
			Expect(CastField<FObjectProperty>(Member) != nullptr, Name, "is bound to a component that is not there");
		}
		if (const UK2Node_CustomEvent* const Event = Cast<UK2Node_CustomEvent>(&Node))
		{
			TakeName(Event->CustomFunctionName.ToString(), "custom event");
		}
		if (const UK2Node_FunctionTerminator* const End = Cast<UK2Node_FunctionTerminator>(&Node))
		{
			const bool bSignature = FBlueprintEditorUtils::IsDelegateSignatureGraph(&Graph);
			const FName Function = End->FunctionReference.GetMemberName();
			Expect(
				bSignature || Function.IsNone() || Function == Graph.GetFName(), Name, "has another function's name");
			Expect(!End->FunctionReference.GetMemberParentClass() || End->FindSignatureFunction(), Name,
				"overrides a function that is not there");
		}
	}

	void InspectVariables()
	{
		for (const FBPVariableDescription& Variable : Blueprint.NewVariables)
		{
			const FString Name = Variable.VarName.ToString();
			TakeName(Name, "variable");
			TakeGuid(Variable.VarGuid, Name);
			Expect(FindOwnProperty(Variable.VarName) != nullptr, Name, "is no property of the class");
			const bool bDispatcher = Variable.VarType.PinCategory == UEdGraphSchema_K2::PC_MCDelegate;
			const UEdGraph* const Signature = FBlueprintEditorUtils::GetDelegateSignatureGraphByName(
				&Blueprint, Variable.VarName);
			Expect(bDispatcher == (Signature != nullptr), Name, "is half a dispatcher");
			Expect(
				Variable.RepNotifyFunc.IsNone() || Blueprint.GeneratedClass->FindFunctionByName(Variable.RepNotifyFunc),
				Name, "notifies a function that is not there");
		}
		for (const UEdGraph* const Signature : Blueprint.DelegateSignatureGraphs)
		{
			Expect(FBlueprintEditorUtils::FindNewVariableIndex(&Blueprint, Signature->GetFName()) != INDEX_NONE,
				Signature->GetName(), "is a signature without a dispatcher");
		}
	}

	void InspectComponents()
	{
		USimpleConstructionScript* const Script = Blueprint.SimpleConstructionScript;
		if (!Script)
		{
			return;
		}
		const TArray<USCS_Node*> Nodes = Script->GetAllNodes();
		Expect(Nodes.Num() == Script->AllNodes.Num(), Script->GetName(), "lists other nodes than its tree holds");
		for (USCS_Node* const Node : Nodes)
		{
			const FString Name = Node->GetVariableName().ToString();
			TakeName(Name, "component");
			TakeGuid(Node->VariableGuid, Name);
			Expect(Node->GetOuter() == Script, Name, "belongs to another construction script");
			Expect(Script->AllNodes.Contains(Node), Name, "is in the tree and not listed");
			const UActorComponent* const Template = Node->ComponentTemplate;
			Expect(Template && Template->GetName() == Name + TEXT("_GEN_VARIABLE"), Name, "has another's template");
			Expect(Template && Template->GetOuter() == Blueprint.GeneratedClass.Get(), Name, "has a stray template");
			Expect(Template && Template->GetClass() == Node->ComponentClass.Get(), Name,
				"has a template of another class");
			Expect(FindOwnProperty(Node->GetVariableName()) != nullptr, Name, "is no property of the class");
		}
	}

	void InspectTimelines()
	{
		for (const UTimelineTemplate* const Timeline : Blueprint.Timelines)
		{
			const FString Name = Timeline->GetVariableName().ToString();
			TakeName(Name, "timeline");
			TakeGuid(Timeline->TimelineGuid, Name);
			Expect(Timeline->GetName() == Name + TEXT("_Template"), Name, "has a template of another name");
			Expect(Timeline->GetOuter() == Blueprint.GeneratedClass.Get(), Name, "has a stray template");
			Expect(FindOwnProperty(Timeline->GetVariableName()) != nullptr, Name, "is no property of the class");
			for (const FTTFloatTrack& Track : Timeline->FloatTracks)
			{
				Expect(Track.GetPropertyName().ToString().StartsWith(Name + TEXT("_")), Name,
					"has a track that is named after another timeline");
			}
		}
		TArray<UK2Node_Timeline*> Nodes;
		FBlueprintEditorUtils::GetAllNodesOfClass(&Blueprint, Nodes);
		std::set<const UTimelineTemplate*> Shown;
		for (const UK2Node_Timeline* const Node : Nodes)
		{
			Expect(Node->GetTimelineTemplate() != nullptr, Node->GetName(), "shows a timeline that is not there");
			Expect(Shown.insert(Node->GetTimelineTemplate()).second, Node->GetName(), "shows another node's timeline");
		}
	}

	void InspectInterfaces()
	{
		for (const FBPInterfaceDescription& Row : Blueprint.ImplementedInterfaces)
		{
			const UClass* const Interface = Row.Interface.Get();
			Expect(Interface != nullptr, Blueprint.GetName(), "implements an interface that is not there");
			for (const UEdGraph* const Graph : Row.Graphs)
			{
				TakeName(Graph->GetName(), "graph");
				Expect(Interface && Interface->FindFunctionByName(Graph->GetFName()), Graph->GetName(),
					"implements no function of its interface");
			}
		}
	}

	void InspectWidgets(UWidgetBlueprint& Widgets)
	{
		for (UWidget* const Widget : Widgets.GetAllSourceWidgets())
		{
			const FString Name = Widget->GetName();
			TakeName(Name, "widget");
			Expect(Widget->GetOuter() == Widgets.WidgetTree.Get(), Name, "stands in another tree");
			Expect(!Widget->IsGarbage(), Name, "is garbage and still in the tree");
			const UPanelWidget* const Parent = Widget->GetParent();
			Expect(!Parent || (Widget->Slot->Content.Get() == Widget && Parent->GetChildIndex(Widget) != INDEX_NONE),
				Name, "has a slot that is not its own");
			Expect(!Widget->bIsVariable || FindOwnProperty(Widget->GetFName()), Name, "is no property of the class");
		}
	}

	UBlueprint& Blueprint;
	std::vector<std::string> Faults;
	std::map<std::string, std::string> Members;
	std::set<std::string> Guids;
};
} // namespace BlueprintConsistency

std::vector<std::string> FindInconsistencies(UBlueprint& Blueprint)
{
	return BlueprintConsistency::FInspection(Blueprint).Run();
}

std::string ReadBlueprintFile(const FBlueprintBuilder& Blueprint)
{
	return Blueprint.Folder().Read("Content/Tests/BP_Test.uatext");
}

/** The first lines that differ, behind the one in which the checksum stands. */
static std::string FirstDifference(const std::string& Left, const std::string& Right)
{
	std::istringstream LeftLines(Left);
	std::istringstream RightLines(Right);
	std::string LeftLine;
	std::string RightLine;
	while (std::getline(LeftLines, LeftLine) && std::getline(RightLines, RightLine))
	{
		const bool bSize = LeftLine.starts_with("Checksum=") || LeftLine.starts_with("Size=");
		if (LeftLine != RightLine && !bSize)
		{
			break;
		}
	}
	return "- " + LeftLine + "\n+ " + RightLine + "\n";
}

std::vector<std::string> FindInconsistenciesAfterReload(FBlueprintBuilder& Blueprint)
{
	std::vector<std::string> Faults = FindInconsistencies(*Blueprint.Get());
	if (!Blueprint.Save())
	{
		Faults.push_back("it cannot be saved");
		return Faults;
	}
	const std::string Saved = ReadBlueprintFile(Blueprint);
	if (!Blueprint.Reload())
	{
		Faults.push_back("it cannot be read again");
		return Faults;
	}
	for (const std::string& Fault : FindInconsistencies(*Blueprint.Get()))
	{
		Faults.push_back("after reading: " + Fault);
	}
	if (!Blueprint.Save() || ReadBlueprintFile(Blueprint) != Saved)
	{
		Faults.push_back("saving again changes the file");
		// Whoever sees the fault wants to know where; the list stays what tests compare with.
		std::cerr << FirstDifference(Saved, ReadBlueprintFile(Blueprint));
	}
	return Faults;
}
