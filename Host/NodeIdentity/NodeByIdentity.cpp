#include "NodeIdentity/NodeByIdentity.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "IdentityBinding.h"
#include "K2Node_ConstructObjectFromClass.h"
#include "K2Node_FunctionTerminator.h"
#include "K2Node_PromotableOperator.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Standalone/ObjectText.h"
#include "UObject/Package.h"

namespace NodeIdentities
{
/** Where most members that graphs name are declared, nearest to what a Blueprint mostly is first. */
const TCHAR* const CommonParents[] = {TEXT("/Script/Engine.Actor"), TEXT("/Script/Engine.Pawn"),
	TEXT("/Script/Engine.Character"), TEXT("/Script/Engine.PlayerController"), TEXT("/Script/AIModule.AIController"),
	TEXT("/Script/Engine.GameModeBase"), TEXT("/Script/Engine.GameMode"), TEXT("/Script/UMG.UserWidget"),
	TEXT("/Script/Engine.ActorComponent"), TEXT("/Script/Engine.SceneComponent"), TEXT("/Script/Engine.AnimInstance"),
	TEXT("/Script/Engine.GameInstance"), TEXT("/Script/Engine.PlayerState"), TEXT("/Script/Engine.GameStateBase"),
	TEXT("/Script/Engine.HUD"), TEXT("/Script/Engine.PlayerCameraManager"),
	TEXT("/Script/GameplayAbilities.GameplayAbility"), TEXT("/Script/AIModule.BTTask_BlueprintBase"),
	TEXT("/Script/AIModule.BTService_BlueprintBase"), TEXT("/Script/AIModule.BTDecorator_BlueprintBase"),
	TEXT("/Script/Engine.SaveGame"), TEXT("/Script/CoreUObject.Object")};

static bool HasMember(const UClass& Class, FName Name, bool bFunction)
{
	return bFunction ? Class.FindFunctionByName(Name) != nullptr : Class.FindPropertyByName(Name) != nullptr;
}

/** The class that a member in self context belongs to: a common parent, else any class that declares it; null when
 * nobody does. */
static UClass* FindSelfWithMember(FName Name, bool bFunction)
{
	for (const TCHAR* const Path : CommonParents)
	{
		UClass* const Class = FindObject<UClass>(nullptr, Path);
		if (Class && HasMember(*Class, Name, bFunction))
		{
			return Class;
		}
	}
	TArray<UClass*> Classes;
	GetDerivedClasses(UObject::StaticClass(), Classes);
	for (UClass* const Class : Classes)
	{
		if (!Class->ClassGeneratedBy && HasMember(*Class, Name, bFunction))
		{
			return Class;
		}
	}
	return nullptr;
}
} // namespace NodeIdentities

FNodeByIdentity::~FNodeByIdentity()
{
	for (const auto& Pair : Scratch)
	{
		Pair.Value->GetPackage()->MarkAsGarbage();
	}
}

UClass* FNodeByIdentity::ChooseParent(const FJsonObject& Identity) const
{
	// What a target pin shows follows from the Blueprint that the node stood in, where the identity tells its class.
	UClass* const Self = FindObject<UClass>(nullptr, IdentityBinding::Text(Identity, TEXT("self_class")));
	if (Self && FKismetEditorUtilities::CanCreateBlueprintOfClass(Self))
	{
		return Self;
	}
	UClass* const Actor = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor"));
	if (UClass* const EventParent = FindObject<UClass>(nullptr, IdentityBinding::Text(Identity, TEXT("event_parent"))))
	{
		// The parent of a component's event is the class that declares the event, which need not be a Blueprint's
		// parent.
		return FKismetEditorUtilities::CanCreateBlueprintOfClass(EventParent) ? EventParent : Actor;
	}
	const bool bSelf = IdentityBinding::IsSet(Identity, TEXT("self_context"));
	UClass* const Declarer = bSelf ? FindObject<UClass>(nullptr, IdentityBinding::Text(Identity, TEXT("declared_in")))
								   : nullptr;
	if (Declarer && FKismetEditorUtilities::CanCreateBlueprintOfClass(Declarer))
	{
		return Declarer;
	}
	const struct
	{
		const TCHAR* Field;
		bool bFunction;
	} Members[] = {{TEXT("function"), true}, {TEXT("variable"), false}, {TEXT("delegate"), false}};
	for (const auto& Member : Members)
	{
		const FString Name = IdentityBinding::Text(Identity, Member.Field);
		UClass* const Found = bSelf && !Name.IsEmpty()
			? NodeIdentities::FindSelfWithMember(FName(Name), Member.bFunction)
			: nullptr;
		if (Found)
		{
			return Found;
		}
	}
	return Actor;
}

UEdGraph* FNodeByIdentity::GetGraph(UClass* Parent, const UClass* NodeClass)
{
	UBlueprint*& Blueprint = Scratch.FindOrAdd(Parent);
	if (!Blueprint)
	{
		const FString PackageName = FString::Printf(
			TEXT("/Temp/NodeByIdentity/%s_%d"), *Parent->GetName(), Scratch.Num());
		UPackage* const Package = CreatePackage(*PackageName);
		const UClass* const Library = FindObject<UClass>(nullptr, TEXT("/Script/Engine.BlueprintFunctionLibrary"));
		const EBlueprintType Type = Library && Parent->IsChildOf(Library) ? BPTYPE_FunctionLibrary : BPTYPE_Normal;
		Blueprint = FKismetEditorUtilities::CreateBlueprint(Parent, Package, FName(TEXT("Scratch")), Type);
	}
	if (!Blueprint)
	{
		Scratch.Remove(Parent);
		return nullptr;
	}
	const bool bFunctionEnd = NodeClass->IsChildOf(UK2Node_FunctionTerminator::StaticClass());
	for (UEdGraph* const Graph : Blueprint->UbergraphPages)
	{
		if (Graph && !bFunctionEnd)
		{
			return Graph;
		}
	}
	UEdGraph* const Graph = NewObject<UEdGraph>(Blueprint, MakeUniqueObjectName(Blueprint, UEdGraph::StaticClass()));
	Graph->Schema = TSubclassOf<UEdGraphSchema>(UEdGraphSchema_K2::StaticClass());
	return Graph;
}

UEdGraph* FNodeByIdentity::GetEventGraph(UClass& Parent)
{
	return GetGraph(&Parent, UEdGraphNode::StaticClass());
}

UEdGraphNode* FNodeByIdentity::Make(const FJsonObject& Identity, FString& OutError)
{
	const FString ClassName = IdentityBinding::Text(Identity, TEXT("node_class"));
	UClass* NodeClass = FindObject<UClass>(nullptr, ClassName);
	NodeClass = NodeClass || ClassName.IsEmpty() ? NodeClass : FindFirstObject<UClass>(*ClassName);
	if (!NodeClass || !NodeClass->IsChildOf(UEdGraphNode::StaticClass()) || NodeClass->HasAnyClassFlags(CLASS_Abstract))
	{
		OutError = FString::Printf(TEXT("There is no node class '%s'."), *ClassName);
		return nullptr;
	}
	UClass* const Parent = ChooseParent(Identity);
	UEdGraph* const Graph = Parent ? GetGraph(Parent, NodeClass) : nullptr;
	if (!Graph)
	{
		OutError = FString::Printf(
			TEXT("No Blueprint of '%s' can be made for the node."), Parent ? *Parent->GetName() : TEXT("None"));
		return nullptr;
	}
	UEdGraphNode* const Node = Graph->CreateNode(NodeClass, false);
	Node->CreateNewGuid();
	IdentityBinding::ApplyPropertyLines(*Node, Identity);
	IdentityBinding::ApplyFields(*Node, Identity);
	Node->PostEditImport();
	OutError = IdentityBinding::FindMissing(*Node, Identity);
	if (!OutError.IsEmpty())
	{
		Node->DestroyNode();
		return nullptr;
	}
	IdentityBinding::FillShownLists(*Node, Identity);
	Node->AllocateDefaultPins();
	IdentityBinding::HideUnlisted(*Node, Identity);
	const UK2Node_ConstructObjectFromClass* const Construct = Cast<UK2Node_ConstructObjectFromClass>(Node);
	if (Construct && Construct->GetClassToSpawn())
	{
		// The class exposes pins of its own, which come with the class and not with the node.
		Node->ReconstructNode();
	}
	UK2Node_PromotableOperator* const Operator = Cast<UK2Node_PromotableOperator>(Node);
	if (Operator && !Operator->OperationName.IsNone())
	{
		// An operator that names its operation was bound to the overload by its operands.
		Operator->TakeTypesOfFunction();
	}
	return Node;
}

TSharedRef<FJsonObject> FNodeByIdentity::Describe(const FJsonObject& Identity)
{
	const TSharedRef<FJsonObject> Out = MakeShared<FJsonObject>();
	FString Error;
	UEdGraphNode* const Node = Make(Identity, Error);
	if (!Node)
	{
		Out->SetStringField(TEXT("error"), Error);
		return Out;
	}
	Out->SetStringField(TEXT("node_class"), Node->GetClass()->GetPathName());
	Out->SetArrayField(TEXT("pins"), DescribePins(*Node));
	Node->DestroyNode();
	return Out;
}
