#include "Utils/Structure/MemberNodes.h"

#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "K2Node_BaseMCDelegate.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_FunctionTerminator.h"
#include "K2Node_Variable.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResult.h"
#include "UObject/Package.h"
#include "UObject/UObjectIterator.h"

namespace MemberNodes
{
namespace
{
FString Describe(const UEdGraphNode& Node)
{
	return FString::Printf(TEXT("'%s' in graph '%s' (NodeID: %s)"), *FBlueprintNodeUtils::GetFullTitle(&Node),
		*Node.GetGraph()->GetName(), *FBlueprintNodeUtils::GetShortNodeId(&Node));
}

TArray<FString> DescribeUsers(const UBlueprint& Blueprint, TFunctionRef<bool(const UEdGraphNode&)> Uses)
{
	TArray<FString> Users;
	TArray<UEdGraph*> Graphs;
	Blueprint.GetAllGraphs(Graphs);
	for (const UEdGraph* const Graph : Graphs)
	{
		for (const UEdGraphNode* const Node : Graph->Nodes)
		{
			if (Node && Uses(*Node))
			{
				Users.Add(Describe(*Node));
			}
		}
	}
	return Users;
}

/** Whether a node that stands in a Blueprint of the class Home is about one of the Blueprint's members. A child's node
 * takes what it inherits as its own. */
bool RefersTo(const UEdGraphNode& Node, const TSet<FName>& Members, const UBlueprint& Blueprint, UClass* Home)
{
	const UClass* const Owner = Blueprint.GeneratedClass.Get();
	if (const UK2Node_ComponentBoundEvent* const Event = Cast<UK2Node_ComponentBoundEvent>(&Node))
	{
		return Home->IsChildOf(Owner) && Members.Contains(Event->GetComponentPropertyName());
	}
	const UK2Node_Variable* const Access = Cast<UK2Node_Variable>(&Node);
	const UK2Node_BaseMCDelegate* const Dispatcher = Cast<UK2Node_BaseMCDelegate>(&Node);
	const FMemberReference* const Reference = Access ? &Access->VariableReference
		: Dispatcher								 ? &Dispatcher->DelegateReference
													 : nullptr;
	if (!Reference || Reference->IsLocalScope() || !Members.Contains(Reference->GetMemberName()))
	{
		return false;
	}
	return Reference->IsSelfContext() ? Home->IsChildOf(Owner) : Reference->GetMemberParentClass() == Owner;
}
} // namespace

void Remove(UBlueprint& Blueprint, FName Member, const FString& What, Morvane::FToolResult& Result)
{
	UClass* const Self = Blueprint.GeneratedClass.Get();
	const TArray<FString> Users = DescribeUsers(Blueprint,
		[Member, Self](const UEdGraphNode& Node)
		{
			const UK2Node_Variable* const Access = Cast<UK2Node_Variable>(&Node);
			const UK2Node_ComponentBoundEvent* const Event = Cast<UK2Node_ComponentBoundEvent>(&Node);
			return (Event && Event->GetComponentPropertyName() == Member)
				|| (Access && Access->GetVarName() == Member && !Access->VariableReference.IsLocalScope()
					&& Access->VariableReference.GetMemberParentClass(Self) == Self);
		});
	FBlueprintEditorUtils::RemoveVariableNodes(&Blueprint, Member);
	if (!Users.IsEmpty())
	{
		Result.AddWarningMessage(FString::Printf(TEXT("%d node(s) about %s were removed with it: %s"), Users.Num(),
			*What, *FString::Join(Users, TEXT(", "))));
	}
}

void WarnOfDispatcherNodes(UBlueprint& Blueprint, FName Dispatcher, Morvane::FToolResult& Result)
{
	UClass* const Self = Blueprint.GeneratedClass.Get();
	const TArray<FString> Users = DescribeUsers(Blueprint,
		[Dispatcher, Self](const UEdGraphNode& Node)
		{
			const UK2Node_BaseMCDelegate* const User = Cast<UK2Node_BaseMCDelegate>(&Node);
			return User && User->DelegateReference.GetMemberName() == Dispatcher
				&& User->DelegateReference.GetMemberParentClass(Self) == Self;
		});
	if (!Users.IsEmpty())
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("%d node(s) still refer to delegate '%s', which is gone, and have to be removed too: %s"), Users.Num(),
			*Dispatcher.ToString(), *FString::Join(Users, TEXT(", "))));
	}
}
void WarnOfInterfaceNodes(const UBlueprint& Blueprint, const FBPInterfaceDescription& Interface, const FString& Name,
	Morvane::FToolResult& Result)
{
	const UClass* const Class = Interface.Interface.Get();
	TArray<FString> Lost = DescribeUsers(Blueprint,
		[Class](const UEdGraphNode& Node)
		{
			const UK2Node_Event* const Event = Cast<UK2Node_Event>(&Node);
			return Event && Event->IsNodeEnabled() && Event->EventReference.GetMemberParentClass() == Class;
		});
	for (const UEdGraph* const Graph : Interface.Graphs)
	{
		int32 NumOwn = 0;
		for (const UEdGraphNode* const Node : Graph ? Graph->Nodes : TArray<TObjectPtr<UEdGraphNode>>())
		{
			NumOwn += Node && !Node->IsA<UK2Node_FunctionTerminator>() ? 1 : 0;
		}
		if (NumOwn > 0)
		{
			Lost.Add(FString::Printf(TEXT("function '%s' with %d node(s)"), *Graph->GetName(), NumOwn));
		}
	}
	if (!Lost.IsEmpty())
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("What implemented interface '%s' was removed with it: %s"), *Name, *FString::Join(Lost, TEXT(", "))));
	}
}
void WarnOfNodesElsewhere(const UBlueprint& Blueprint, const TSet<FName>& Gone, Morvane::FToolResult& Result)
{
	if (Gone.IsEmpty())
	{
		return;
	}
	TArray<FString> Users;
	for (TObjectIterator<UBlueprint> It; It; ++It)
	{
		if (*It == &Blueprint || !IsValid(*It) || It->HasAnyFlags(RF_ClassDefaultObject))
		{
			continue;
		}
		for (const FString& User : DescribeUsers(**It,
				 [&](const UEdGraphNode& Node) { return RefersTo(Node, Gone, Blueprint, It->GeneratedClass.Get()); }))
		{
			Users.Add(It->GetOutermost()->GetName() + TEXT(": ") + User);
		}
	}
	if (!Users.IsEmpty())
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("%d node(s) of other Blueprints still refer to what was removed from '%s': %s"),
				Users.Num(), *Blueprint.GetName(), *FString::Join(Users, TEXT(", "))));
	}
}
} // namespace MemberNodes
