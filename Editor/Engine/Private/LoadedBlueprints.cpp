// What Blueprints, graphs and construction scripts hold, set right after reading.

#include "LoadedBlueprints.h"

#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphNode.h"
#include "Engine/Blueprint.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "Standalone/LoadedStructure.h"
#include "Standalone/MissingObjects.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"

namespace LoadedBlueprints
{
using LoadedStructure::FForest;

static bool IsElsewhere(const UObject& Owner, const UObject& Part)
{
	return Owner.GetOutermost() != Part.GetOutermost();
}

/** Lists that form a tree: what stands in one stands in no other, nor anywhere below itself, and belongs to the same
 * asset. */
class FTree
{
public:
	FTree(const TCHAR* InKind, FFeedbackContext& InWarn)
		: Kind(InKind)
		, Warn(InWarn)
	{
	}

	/** Property is the list's name, for the text of what belongs to another asset; that is not lost. */
	template <class T>
	void Take(UObject& Owner, TArray<TObjectPtr<T>>& List, const TCHAR* Property)
	{
		for (const TObjectPtr<T>& Part : List)
		{
			if (Part && IsElsewhere(Owner, *Part))
			{
				LoadedStructure::KeepEntry(Owner, FName(Property), *Part);
			}
		}
		Cut(Owner, List, [&](const UObject& Part) { return IsElsewhere(Owner, Part) || !Forest.Adopt(&Owner, &Part); });
	}
	/** After all lists were taken: what came together bottom up may be deep all the same. */
	template <class T>
	void CutDeep(const UObject& Owner, TArray<TObjectPtr<T>>& List)
	{
		Cut(Owner, List, [&](const UObject& Part) { return Forest.IsTooDeep(&Part); });
	}

private:
	template <class T>
	void Cut(const UObject& Owner, TArray<TObjectPtr<T>>& List, TFunctionRef<bool(const UObject&)> IsCut)
	{
		List.RemoveAll(
			[&](const TObjectPtr<T>& Part)
			{
				const bool bCut = !Part || IsCut(*Part);
				if (bCut && Part)
				{
					Warn.Logf(TEXT("'%s' lists the %s '%s', which stands in another place, holds it or is of another "
								   "asset; the entry is left out"),
						*Owner.GetPathName(), Kind, *Part->GetName());
				}
				return bCut;
			});
	}

	const TCHAR* const Kind;
	FFeedbackContext& Warn;
	FForest Forest;
};

template <class T>
TArray<T*> OfClass(TConstArrayView<UObject*> Objects)
{
	TArray<T*> Found;
	for (UObject* const Object : Objects)
	{
		if (T* const Typed = Cast<T>(Object))
		{
			Found.Add(Typed);
		}
	}
	return Found;
}

static void TakeGraphs(UBlueprint& Blueprint, FTree& Graphs)
{
	Graphs.Take<UEdGraph>(Blueprint, Blueprint.FunctionGraphs, TEXT("FunctionGraphs"));
	Graphs.Take<UEdGraph>(Blueprint, Blueprint.MacroGraphs, TEXT("MacroGraphs"));
	Graphs.Take<UEdGraph>(Blueprint, Blueprint.UbergraphPages, TEXT("UbergraphPages"));
	Graphs.Take<UEdGraph>(Blueprint, Blueprint.DelegateSignatureGraphs, TEXT("DelegateSignatureGraphs"));
	for (FBPInterfaceDescription& Interface : Blueprint.ImplementedInterfaces)
	{
		Graphs.Take<UEdGraph>(Blueprint, Interface.Graphs, TEXT("FunctionGraphs"));
	}
}

static void SettleGraphs(TConstArrayView<UObject*> Objects, FFeedbackContext& Warn)
{
	FTree Graphs(TEXT("graph"), Warn);
	FTree Nodes(TEXT("node"), Warn);
	const TArray<UEdGraph*> All = OfClass<UEdGraph>(Objects);
	for (UBlueprint* const Blueprint : OfClass<UBlueprint>(Objects))
	{
		TakeGraphs(*Blueprint, Graphs);
	}
	for (UEdGraph* const Graph : All)
	{
		Graphs.Take<UEdGraph>(*Graph, Graph->SubGraphs, TEXT("SubGraphs"));
		Nodes.Take<UEdGraphNode>(*Graph, Graph->Nodes, TEXT("Nodes"));
	}
	for (UEdGraph* const Graph : All)
	{
		Graphs.CutDeep<UEdGraph>(*Graph, Graph->SubGraphs);
	}
}

/** The properties with which nodes of a class hold a graph of their own. */
static TArray<const FObjectProperty*> FindGraphProperties(const UClass* Class)
{
	TArray<const FObjectProperty*> Found;
	for (TFieldIterator<FProperty> It(Class); It; ++It)
	{
		const FObjectProperty* const Property = It->IsNativeMember() ? CastField<FObjectProperty>(*It) : nullptr;
		if (Property && Property->PropertyClass && Property->PropertyClass->IsChildOf(UEdGraph::StaticClass()))
		{
			Found.Add(Property);
		}
	}
	return Found;
}

/** A graph is bound to one node, which does not stand in it. */
static void SettleBoundGraphs(TConstArrayView<UObject*> Objects, FFeedbackContext& Warn)
{
	FForest Forest;
	TMap<const UClass*, TArray<const FObjectProperty*>> PropertiesOf;
	for (UEdGraphNode* const Node : OfClass<UEdGraphNode>(Objects))
	{
		if (!PropertiesOf.Contains(Node->GetClass()))
		{
			PropertiesOf.Add(Node->GetClass(), FindGraphProperties(Node->GetClass()));
		}
		for (const FObjectProperty* const Property : *PropertiesOf.Find(Node->GetClass()))
		{
			const UObject* const Bound = Property->GetObjectPropertyValue_InContainer(Node);
			const UEdGraph* const Graph = Node->GetGraph();
			if (Bound && (IsElsewhere(*Node, *Bound) || Node->IsIn(Bound) || !Graph || !Forest.Adopt(Graph, Bound)))
			{
				Warn.Logf(TEXT("'%s' is bound to the graph '%s', which is bound to another node, holds it or is of "
							   "another asset; it is bound to none"),
					*Node->GetPathName(), *Bound->GetName());
				Property->SetObjectPropertyValue_InContainer(Node, nullptr);
			}
		}
	}
}

static void SettleComponents(TConstArrayView<UObject*> Objects, FFeedbackContext& Warn)
{
	FTree Tree(TEXT("component"), Warn);
	const TArray<USCS_Node*> All = OfClass<USCS_Node>(Objects);
	for (USimpleConstructionScript* const Script : OfClass<USimpleConstructionScript>(Objects))
	{
		Tree.Take<USCS_Node>(*Script, Script->RootNodes, TEXT("RootNodes"));
		TSet<USCS_Node*> Seen;
		Script->AllNodes.RemoveAll(
			[&](const TObjectPtr<USCS_Node>& Node)
			{
				bool bSeen = false;
				Seen.Add(Node.Get(), &bSeen);
				return bSeen || IsElsewhere(*Script, *Node);
			});
	}
	for (USCS_Node* const Node : All)
	{
		Tree.Take<USCS_Node>(*Node, Node->ChildNodes, TEXT("ChildNodes"));
	}
	for (USCS_Node* const Node : All)
	{
		Tree.CutDeep<USCS_Node>(*Node, Node->ChildNodes);
	}
}

/** The Blueprint of a class, also one that is being read and has not been bound to its class yet. */
static const UBlueprint* FindBlueprint(const UClass* Class)
{
	if (const UBlueprint* const Blueprint = UBlueprint::GetBlueprintFromClass(Class))
	{
		return Blueprint;
	}
	const UObject* const Outer = Class ? Class->GetOuter() : nullptr;
	for (UObject* Inner = Outer ? Outer->GetFirstInner() : nullptr; Inner; Inner = Inner->GetNextInner())
	{
		const UBlueprint* const Blueprint = Cast<UBlueprint>(Inner);
		if (Blueprint && Blueprint->GeneratedClass.Get() == Class)
		{
			return Blueprint;
		}
	}
	return nullptr;
}

/** Whether a class is what it is through the Blueprint: by its parents or by the interfaces of any of them. */
static bool LeadsTo(const UClass* From, const UBlueprint& To)
{
	TArray<const UClass*> Open = {From};
	TSet<const UClass*> Seen;
	while (!Open.IsEmpty())
	{
		const UClass* const Class = Open.Pop();
		bool bSeen = false;
		Seen.Add(Class, &bSeen);
		const UBlueprint* const Blueprint = bSeen || !Class ? nullptr : FindBlueprint(Class);
		if (Blueprint == &To)
		{
			return true;
		}
		if (Blueprint)
		{
			Open.Add(Blueprint->ParentClass.Get());
			for (const FBPInterfaceDescription& Row : Blueprint->ImplementedInterfaces)
			{
				Open.Add(Row.Interface.Get());
			}
		}
	}
	return false;
}

static UClass* FindNativeParent(const UBlueprint& Blueprint)
{
	UClass* Class = Blueprint.GeneratedClass.Get();
	while (Class && (FindBlueprint(Class) || Class == Blueprint.GeneratedClass.Get()))
	{
		Class = Class->GetSuperClass();
	}
	return Class;
}

/** Two assets that are each other's parent are what a merge makes of two versions. The one that is read last gives in.
 */
static void SettleParents(TConstArrayView<UObject*> Objects, FFeedbackContext& Warn)
{
	for (UBlueprint* const Blueprint : OfClass<UBlueprint>(Objects))
	{
		if (LeadsTo(Blueprint->ParentClass.Get(), *Blueprint))
		{
			UClass* const Native = FindNativeParent(*Blueprint);
			Warn.Logf(TEXT("the parent class '%s' of '%s' descends from it; its parent is '%s' now"),
				*Blueprint->ParentClass.Get()->GetPathName(), *Blueprint->GetName(),
				Native ? *Native->GetPathName() : TEXT("None"));
			Blueprint->ParentClass = Native;
		}
		for (FBPInterfaceDescription& Row : Blueprint->ImplementedInterfaces)
		{
			if (LeadsTo(Row.Interface.Get(), *Blueprint))
			{
				Warn.Logf(TEXT("the interface '%s' of '%s' is made of it; it is implemented no more"),
					*Row.Interface.Get()->GetPathName(), *Blueprint->GetName());
				Row.Interface = nullptr;
			}
		}
	}
}
} // namespace LoadedBlueprints

namespace LoadedBlueprints
{
/** What was missing at load may come later and be made of what waited for it. */
static void SettleBound(UObject& Owner)
{
	class FToldLater final : public FFeedbackContext
	{
	public:
		void Serialize(const TCHAR* Text, ELogVerbosity::Type, const FName&) override
		{
			UE_LOG(LogTemp, Warning, TEXT("%s"), Text);
		}
	};
	FToldLater Warn;
	if (Owner.IsA<UBlueprint>())
	{
		SettleParents(TArray<UObject*>{&Owner}, Warn);
	}
}
} // namespace LoadedBlueprints

void AddBlueprintStructureChecks()
{
	FMissingObjects::AddListener(&LoadedBlueprints::SettleBound);
	LoadedStructure::AddCheck(&LoadedBlueprints::SettleGraphs);
	LoadedStructure::AddCheck(&LoadedBlueprints::SettleBoundGraphs);
	LoadedStructure::AddCheck(&LoadedBlueprints::SettleComponents);
	LoadedStructure::AddCheck(&LoadedBlueprints::SettleParents);
}
