#include "Utils/Graph/MemberUsers.h"

#include "BlueprintGraphUtils.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "K2Node_BaseMCDelegate.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CreateDelegate.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionTerminator.h"
#include "K2Node_MacroInstance.h"
#include "UObject/UObjectIterator.h"

namespace MemberUsersImpl
{
/** Whether the class is the Blueprint's, or one below it. */
static bool IsClassOf(const UClass* Class, const UBlueprint& Blueprint)
{
	const UClass* const Own = Blueprint.GeneratedClass.Get();
	return Class && (Class->ClassGeneratedBy == &Blueprint || (Own && Class->IsChildOf(Own)));
}

/** The nodes of one Blueprint that stand for the members of another, or of itself. */
class FSearch
{
public:
	FSearch(const UBlueprint& InDeclarer, const FDeclaredMembers& InMembers, TArray<UK2Node*>& InOut)
		: Declarer(InDeclarer)
		, Members(InMembers)
		, Out(InOut)
	{
	}

	void Visit(const UBlueprint& Home)
	{
		bIsHome = &Home == &Declarer;
		bInherits = bIsHome || IsClassOf(Home.ParentClass.Get(), Declarer);
		TArray<UEdGraph*> Graphs;
		Home.GetAllGraphs(Graphs);
		for (const UEdGraph* const Graph : Graphs)
		{
			for (UEdGraphNode* const Node : Graph->Nodes)
			{
				UK2Node* const K2Node = Cast<UK2Node>(Node);
				if (K2Node && Uses(*K2Node))
				{
					Out.AddUnique(K2Node);
				}
			}
		}
	}

private:
	bool Means(const FMemberReference& Reference) const
	{
		return Reference.IsSelfContext() ? bInherits : IsClassOf(Reference.GetMemberParentClass(), Declarer);
	}

	bool UsesFunction(UK2Node& Node) const
	{
		if (const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node))
		{
			return Members.Functions.Contains(Call->GetFunctionName()) && Means(Call->FunctionReference);
		}
		if (const UK2Node_CreateDelegate* const Chosen = Cast<UK2Node_CreateDelegate>(&Node))
		{
			return Members.Functions.Contains(Chosen->GetFunctionName())
				&& IsClassOf(Chosen->GetScopeClass(), Declarer);
		}
		if (const UK2Node_Event* const Event = Cast<UK2Node_Event>(&Node))
		{
			return Event->bOverrideFunction && Members.Functions.Contains(Event->EventReference.GetMemberName())
				&& IsClassOf(Event->EventReference.GetMemberParentClass(), Declarer);
		}
		const UK2Node_FunctionTerminator* const End = bIsHome ? nullptr : Cast<UK2Node_FunctionTerminator>(&Node);
		return End && Members.Functions.Contains(End->FunctionReference.GetMemberName())
			&& IsClassOf(End->FunctionReference.GetMemberParentClass(), Declarer);
	}

	bool Uses(UK2Node& Node)
	{
		if (const UK2Node_MacroInstance* const Macro = Cast<UK2Node_MacroInstance>(&Node))
		{
			return Members.Macros.Contains(Macro->GetMacroGraph());
		}
		if (const UK2Node_BaseMCDelegate* const Dispatcher = Cast<UK2Node_BaseMCDelegate>(&Node))
		{
			const bool bUses = Members.Dispatchers.Contains(Dispatcher->GetPropertyName())
				&& Means(Dispatcher->DelegateReference);
			if (bUses)
			{
				AddBound(*Dispatcher);
			}
			return bUses;
		}
		return UsesFunction(Node);
	}

	/** Events and chosen functions that are linked to a dispatcher have its signature. */
	void AddBound(const UK2Node_BaseMCDelegate& Dispatcher)
	{
		const UEdGraphPin* const Pin = Dispatcher.GetDelegatePin();
		for (const UEdGraphPin* const Linked : Pin ? Pin->LinkedTo : TArray<UEdGraphPin*>())
		{
			UK2Node* const Bound = Cast<UK2Node>(Linked->GetOwningNode());
			if (Bound && (Bound->IsA<UK2Node_CustomEvent>() || Bound->IsA<UK2Node_CreateDelegate>()))
			{
				Out.AddUnique(Bound);
			}
		}
	}

	const UBlueprint& Declarer;
	const FDeclaredMembers& Members;
	TArray<UK2Node*>& Out;
	bool bIsHome = false;
	bool bInherits = false;
};

static void AddEventsOf(const UEdGraph& Graph, TSet<FName>& OutNames)
{
	TArray<UK2Node_CustomEvent*> Events;
	Graph.GetNodesOfClass(Events);
	for (const UK2Node_CustomEvent* const Event : Events)
	{
		OutNames.Add(Event->GetFunctionName());
	}
}
} // namespace MemberUsersImpl

FDeclaredMembers FDeclaredMembers::OfGraph(const UBlueprint& Blueprint, const UEdGraph& Graph)
{
	FDeclaredMembers Members;
	if (FBlueprintGraphUtils::IsDelegateSignatureGraph(&Blueprint, &Graph))
	{
		Members.Dispatchers.Add(Graph.GetFName());
		return Members;
	}
	if (FBlueprintGraphUtils::FindFunctionEntry(&Graph))
	{
		Members.Functions.Add(Graph.GetFName());
	}
	if (Blueprint.MacroGraphs.ContainsByPredicate([&Graph](const UEdGraph* Macro) { return Macro == &Graph; }))
	{
		Members.Macros.Add(&Graph);
	}
	TArray<UEdGraph*> Graphs;
	Graph.GetAllChildrenGraphs(Graphs);
	MemberUsersImpl::AddEventsOf(Graph, Members.Functions);
	for (const UEdGraph* const Nested : Graphs)
	{
		MemberUsersImpl::AddEventsOf(*Nested, Members.Functions);
	}
	return Members;
}

void FDeclaredMembers::Append(const FDeclaredMembers& Other)
{
	Functions.Append(Other.Functions);
	Dispatchers.Append(Other.Dispatchers);
	Macros.Append(Other.Macros);
}

TArray<UK2Node*> MemberUsers::Find(const UBlueprint& Blueprint, const FDeclaredMembers& Members)
{
	TArray<UK2Node*> Users;
	if (Members.IsEmpty())
	{
		return Users;
	}
	MemberUsersImpl::FSearch Search(Blueprint, Members, Users);
	Search.Visit(Blueprint);
	for (TObjectIterator<UBlueprint> It; It; ++It)
	{
		if (*It != &Blueprint && IsValid(*It) && !It->HasAnyFlags(RF_ClassDefaultObject))
		{
			Search.Visit(**It);
		}
	}
	return Users;
}
