// What refers to variables and functions of a Blueprint, here and in other Blueprints.

#include "Kismet2/BlueprintEditorUtils.h"

#include "Compiler/BlueprintClassBuilder.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_Variable.h"
#include "Kismet2/TakenNames.h"
#include "Standalone/BlueprintClassProvider.h"
#include "UObject/UObjectIterator.h"
#include "WidgetBlueprint.h"

namespace BlueprintReferences
{
static bool IsOrDescends(const UObject* Object, const UClass& Class)
{
	const UClass* const Other = Cast<UClass>(Object);
	return Other && Other->IsChildOf(&Class);
}

static bool TypeMentions(const FEdGraphPinType& Type, const UClass& Class)
{
	return IsOrDescends(Type.PinSubCategoryObject.Get(), Class)
		|| IsOrDescends(Type.PinValueType.TerminalSubCategoryObject.Get(), Class)
		|| Type.PinSubCategoryMemberReference.MemberParent == &Class;
}

static bool GraphsMention(const UBlueprint& Blueprint, const UClass& Class)
{
	TArray<UEdGraph*> Graphs;
	Blueprint.GetAllGraphs(Graphs);
	for (const UEdGraph* const Graph : Graphs)
	{
		for (const UEdGraphNode* const Node : Graph->Nodes)
		{
			if (Node->Pins.ContainsByPredicate(
					[&Class](const UEdGraphPin* Pin) { return TypeMentions(Pin->PinType, Class); }))
			{
				return true;
			}
		}
	}
	return false;
}

/** Whether the Blueprint derives from the class or mentions it: in its interfaces, variables or graphs. */
static bool DependsOn(const UBlueprint& Blueprint, const UClass& Class)
{
	return IsOrDescends(Blueprint.ParentClass.Get(), Class)
		|| Blueprint.ImplementedInterfaces.ContainsByPredicate(
			[&Class](const FBPInterfaceDescription& Row) { return Row.Interface.Get() == &Class; })
		|| Blueprint.NewVariables.ContainsByPredicate(
			[&Class](const FBPVariableDescription& Variable) { return TypeMentions(Variable.VarType, Class); })
		|| GraphsMention(Blueprint, Class);
}

/** The Blueprint and those that depend on it. */
static TArray<UBlueprint*> WithDependents(UBlueprint* Blueprint)
{
	TArray<UBlueprint*> All = {Blueprint};
	FBlueprintEditorUtils::GetDependentBlueprints(Blueprint, All);
	return All;
}

static void VisitNodes(UBlueprint* Blueprint, TFunctionRef<void(UBlueprint*, UK2Node*)> Visit)
{
	for (UBlueprint* const Each : WithDependents(Blueprint))
	{
		TArray<UK2Node*> Nodes;
		TArray<UEdGraph*> Graphs;
		Each->GetAllGraphs(Graphs);
		for (const UEdGraph* const Graph : Graphs)
		{
			Graph->GetNodesOfClass(Nodes);
		}
		for (UK2Node* const Node : Nodes)
		{
			Visit(Each, Node);
		}
	}
}

/** Components of descendants name the inherited component that they hang on. */
static void MoveAttachments(UBlueprint* Blueprint, FName OldName, FName NewName)
{
	const UClass* const Class = Blueprint->GeneratedClass.Get();
	for (UBlueprint* const Each : WithDependents(Blueprint))
	{
		if (!Each->SimpleConstructionScript || !Class)
		{
			continue;
		}
		for (USCS_Node* const Node : Each->SimpleConstructionScript->GetAllNodes())
		{
			if (Node->ParentComponentOrVariableName == OldName
				&& Node->ParentComponentOwnerClassName == Class->GetFName())
			{
				Node->Modify();
				Node->ParentComponentOrVariableName = NewName;
			}
		}
	}
}

/** Overrides in descendants bear the function's name. */
static void MoveOverrides(UBlueprint* Blueprint, FName OldName, FName NewName)
{
	const UClass* const Class = Blueprint->GeneratedClass.Get();
	for (UBlueprint* const Each : WithDependents(Blueprint))
	{
		if (Each == Blueprint || !Class || !IsOrDescends(Each->ParentClass.Get(), *Class))
		{
			continue;
		}
		for (UEdGraph* const Graph : Each->FunctionGraphs)
		{
			if (Graph->GetFName() == OldName && Graph->Rename(*NewName.ToString(), nullptr))
			{
				FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Each);
			}
		}
	}
}
} // namespace BlueprintReferences

void FBlueprintEditorUtils::GetDependentBlueprints(UBlueprint* Blueprint, TArray<UBlueprint*>& DependentBlueprints)
{
	const UClass* const Class = Blueprint->GeneratedClass.Get();
	for (TObjectIterator<UBlueprint> It; It && Class; ++It)
	{
		if (*It != Blueprint && !DependentBlueprints.Contains(*It) && BlueprintReferences::DependsOn(**It, *Class))
		{
			DependentBlueprints.Add(*It);
		}
	}
}

void FBlueprintEditorUtils::ValidateBlueprintChildVariables(UBlueprint* InBlueprint, const FName InVariableName)
{
	const UClass* const Class = InBlueprint->GeneratedClass.Get();
	TArray<UBlueprint*> Children;
	for (TObjectIterator<UBlueprint> It; It && Class; ++It)
	{
		if (*It != InBlueprint && BlueprintReferences::IsOrDescends(It->ParentClass.Get(), *Class))
		{
			Children.Add(*It);
		}
	}
	for (UBlueprint* const Child : Children)
	{
		TakenNames::MoveAside(*Child, InVariableName);
	}
}

bool FBlueprintEditorUtils::IsVariableUsed(
	const UBlueprint* Blueprint, const FName& VariableName, const UEdGraph* LocalGraphScope)
{
	const UEdGraph* const Scope = GetTopLevelGraph(LocalGraphScope);
	TArray<UK2Node_Variable*> Nodes;
	GetAllNodesOfClass(Blueprint, Nodes);
	return Nodes.ContainsByPredicate(
		[&VariableName, Scope](const UK2Node_Variable* Node)
		{
			return Scope ? Node->GetVarName() == VariableName && GetTopLevelGraph(Node->GetGraph()) == Scope
						 : Node->ReferencesVariable(VariableName, nullptr);
		});
}

void FBlueprintEditorUtils::RemoveVariableNodes(
	UBlueprint* Blueprint, const FName VarName, bool const bForSelfOnly, UEdGraph* LocalGraphScope)
{
	UClass* const Self = Blueprint->GeneratedClass.Get();
	TArray<UK2Node*> Nodes;
	GetAllNodesOfClass(Blueprint, Nodes);
	for (UK2Node* const Node : Nodes)
	{
		if (LocalGraphScope && Node->GetGraph() != LocalGraphScope)
		{
			continue;
		}
		const UK2Node_Variable* const Access = Cast<UK2Node_Variable>(Node);
		const UK2Node_ComponentBoundEvent* const Event = Cast<UK2Node_ComponentBoundEvent>(Node);
		const bool bAccess = Access && Access->GetVarName() == VarName && !Access->VariableReference.IsLocalScope()
			&& (!bForSelfOnly || Access->VariableReference.GetMemberParentClass(Self) == Self);
		if (bAccess || (Event && Event->GetComponentPropertyName() == VarName))
		{
			Node->DestroyNode();
		}
	}
}

void FBlueprintEditorUtils::ReplaceVariableReferences(UBlueprint* Blueprint, const FName OldName, const FName NewName)
{
	UClass* const Class = Blueprint->GeneratedClass.Get();
	BlueprintReferences::VisitNodes(Blueprint,
		[Class, OldName, NewName](UBlueprint* Owner, UK2Node* Node)
		{ Node->HandleVariableRenamed(Owner, Class, nullptr, OldName, NewName); });
	BlueprintReferences::MoveAttachments(Blueprint, OldName, NewName);
	if (UWidgetBlueprint* const Widget = Cast<UWidgetBlueprint>(Blueprint))
	{
		Widget->OnVariableRenamed(OldName, NewName);
	}
}

void FBlueprintEditorUtils::ReplaceFunctionReferences(UBlueprint* Blueprint, const FName OldName, const FName NewName)
{
	UClass* const Class = Blueprint->GeneratedClass.Get();
	TArray<UEdGraph*> Graphs;
	Blueprint->GetAllGraphs(Graphs);
	UEdGraph* const* const Renamed = Graphs.FindByPredicate(
		[NewName](const UEdGraph* Graph) { return Graph->GetFName() == NewName; });
	UEdGraph* const Graph = Renamed ? *Renamed : nullptr;
	BlueprintReferences::VisitNodes(Blueprint,
		[Class, Graph, OldName, NewName](UBlueprint* Owner, UK2Node* Node)
		{ Node->HandleFunctionRenamed(Owner, Class, Graph, OldName, NewName); });
	for (FBPVariableDescription& Variable : Blueprint->NewVariables)
	{
		Variable.RepNotifyFunc = Variable.RepNotifyFunc == OldName ? NewName : Variable.RepNotifyFunc;
	}
	Blueprint->NotifyGraphRenamed(Graph, OldName, NewName);
	BlueprintReferences::MoveOverrides(Blueprint, OldName, NewName);
}

namespace DispatcherSignatures
{
/** Types that bind to a dispatcher name its signature and the class that declares it; other classes may have
 * dispatchers of the same name. Without a class, the Blueprint of the type is meant. */
static void Move(FEdGraphPinType& Type, const UObject* Class, bool bOfOwner, FName OldName, FName NewName)
{
	FSimpleMemberReference& Signature = Type.PinSubCategoryMemberReference;
	const bool bMeant = Signature.MemberParent ? Signature.MemberParent == Class : bOfOwner;
	if (bMeant && Signature.MemberName == OldName)
	{
		Signature.MemberName = NewName;
	}
}
} // namespace DispatcherSignatures

void FBlueprintEditorUtils::MoveDispatcherSignature(UBlueprint& Blueprint, FName OldName, FName NewName)
{
	if (UEdGraph* const Graph = GetDelegateSignatureGraphByName(&Blueprint, OldName))
	{
		RenameGraph(Graph, NewName.ToString());
	}
	const UClass* const Class = Blueprint.GeneratedClass.Get();
	const FName OldSignature = FBlueprintClassBuilder::DelegateSignatureName(OldName);
	const FName NewSignature = FBlueprintClassBuilder::DelegateSignatureName(NewName);
	for (FBPVariableDescription& Variable : Blueprint.NewVariables)
	{
		DispatcherSignatures::Move(Variable.VarType, Class, true, OldSignature, NewSignature);
	}
	BlueprintReferences::VisitNodes(&Blueprint,
		[&Blueprint, Class, OldSignature, NewSignature](UBlueprint* Owner, UK2Node* Node)
		{
			for (UEdGraphPin* const Pin : Node->Pins)
			{
				DispatcherSignatures::Move(Pin->PinType, Class, Owner == &Blueprint, OldSignature, NewSignature);
			}
		});
}
