#include "Engine/SimpleConstructionScript.h"

#include "Components/SceneComponent.h"
#include "ConstructionScriptNodes.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/SCS_Node.h"
#include "GameFramework/Actor.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(USimpleConstructionScript, "/Script/Engine", CLASS_None)

void USimpleConstructionScript::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("RootNodes"), &USimpleConstructionScript::RootNodes);
	Class.Property(TEXT("AllNodes"), &USimpleConstructionScript::AllNodes);
	Class.Property(TEXT("DefaultSceneRootNode"), &USimpleConstructionScript::DefaultSceneRootNode);
}

namespace ConstructionScript
{
/** Where templates live: the generated class, as what instances are made from. */
static UObject* TemplateOuter(const USimpleConstructionScript& Script)
{
	UBlueprint* const Blueprint = Script.GetBlueprint();
	UObject* const Class = Blueprint ? Blueprint->GeneratedClass.Get() : nullptr;
	return Class ? Class : Script.GetOuter();
}

/** A component is a member beside the others: no other node, variable, timeline or inherited member has its name. */
static bool IsVariableNameTaken(const USimpleConstructionScript& Script, FName Name)
{
	const auto HasName = [Name](const USCS_Node* Node) { return Node && Node->GetVariableName() == Name; };
	if (HasName(Script.DefaultSceneRootNode) || Script.AllNodes.ContainsByPredicate(HasName))
	{
		return true;
	}
	UBlueprint* const Blueprint = Script.GetBlueprint();
	const UClass* const Parent = Blueprint ? Blueprint->ParentClass.Get() : nullptr;
	return Blueprint
		&& (Blueprint->FindTimelineTemplateByVariableName(Name) || (Parent && Parent->FindPropertyByName(Name))
			|| Blueprint->NewVariables.ContainsByPredicate(
				[Name](const FBPVariableDescription& Variable) { return Variable.VarName == Name; }));
}
} // namespace ConstructionScript

USCS_Node* USimpleConstructionScript::CreateNode(UClass* NewComponentClass, FName NewComponentVariableName)
{
	if (!NewComponentClass || !NewComponentClass->IsChildOf(UActorComponent::StaticClass()))
	{
		return nullptr;
	}
	const FName VariableName = GenerateNewComponentName(NewComponentClass, NewComponentVariableName);
	UObject* const TemplateOuter = ConstructionScript::TemplateOuter(*this);
	const FName TemplateName = ConstructionScriptNodes::TemplateName(VariableName);
	MoveLeftoverAside(TemplateOuter, TemplateName);
	UActorComponent* const Template = NewObject<UActorComponent>(TemplateOuter, NewComponentClass, TemplateName,
		static_cast<EObjectFlags>(RF_ArchetypeObject | RF_Transactional | RF_Public));
	USCS_Node* const Node = NewObject<USCS_Node>(
		this, MakeUniqueObjectName(this, USCS_Node::StaticClass()), RF_Transactional);
	Node->ComponentTemplate = Template;
	Node->ComponentClass = NewComponentClass;
	Node->VariableGuid = FGuid::NewGuid();
	Node->SetVariableName(VariableName, false);
	return Node;
}

void USimpleConstructionScript::MoveLeftoverAside(UObject* TemplateOuter, FName TemplateName) const
{
	UObject* const Occupant = StaticFindObjectFast(nullptr, TemplateOuter, TemplateName);
	if (Occupant)
	{
		// The names of variables are free here, so this is the template of a node that was removed.
		Occupant->Rename(*MakeUniqueObjectName(TemplateOuter, Occupant->GetClass(), TemplateName).ToString(), nullptr);
	}
}

void USimpleConstructionScript::AddNode(USCS_Node* Node)
{
	Modify();
	RootNodes.AddUnique(Node);
	TArray<USCS_Node*> Added;
	ConstructionScriptNodes::CollectBelow(Node, Added);
	for (USCS_Node* const Below : Added)
	{
		AllNodes.AddUnique(Below);
	}
	ValidateSceneRootNodes();
}

void USimpleConstructionScript::RemoveNodeAndPromoteChildren(USCS_Node* Node)
{
	Modify();
	USCS_Node* const Parent = FindParentNode(Node);
	const TArray<TObjectPtr<USCS_Node>> Children = Node->ChildNodes;
	for (USCS_Node* const Child : Children)
	{
		Node->RemoveChildNode(Child, false);
		if (Parent)
		{
			Parent->AddChildNode(Child, false);
		}
		else
		{
			RootNodes.AddUnique(Child);
		}
	}
	RemoveNode(Node);
}

void USimpleConstructionScript::RemoveNode(USCS_Node* Node, bool bValidateSceneRootNodes)
{
	Modify();
	if (USCS_Node* const Parent = FindParentNode(Node))
	{
		Parent->RemoveChildNode(Node);
	}
	else if (RootNodes.Remove(Node) > 0)
	{
		// What it hung on outside of this script holds for a root alone.
		Node->Modify();
		Node->ParentComponentOrVariableName = NAME_None;
		Node->ParentComponentOwnerClassName = NAME_None;
		Node->bIsParentComponentNative = false;
	}
	TArray<USCS_Node*> Removed;
	ConstructionScriptNodes::CollectBelow(Node, Removed);
	for (USCS_Node* const Below : Removed)
	{
		AllNodes.Remove(Below);
	}
	if (bValidateSceneRootNodes)
	{
		ValidateSceneRootNodes();
	}
}

TArray<USCS_Node*> USimpleConstructionScript::GetAllNodes() const
{
	TArray<USCS_Node*> Nodes;
	for (USCS_Node* const Root : RootNodes)
	{
		if (Root)
		{
			ConstructionScriptNodes::CollectBelow(Root, Nodes);
		}
	}
	return Nodes;
}

USCS_Node* USimpleConstructionScript::FindParentNode(USCS_Node* InNode) const
{
	for (USCS_Node* const Node : AllNodes)
	{
		if (Node
			&& Node->ChildNodes.ContainsByPredicate(
				[InNode](const TObjectPtr<USCS_Node>& Child) { return Child.Get() == InNode; }))
		{
			return Node;
		}
	}
	return nullptr;
}

USCS_Node* USimpleConstructionScript::FindSCSNode(FName InName) const
{
	for (USCS_Node* const Node : GetAllNodes())
	{
		if (Node->GetVariableName() == InName
			|| (Node->ComponentTemplate && Node->ComponentTemplate->GetFName() == InName))
		{
			return Node;
		}
	}
	return nullptr;
}

USceneComponent* USimpleConstructionScript::GetSceneRootComponentTemplate(
	bool bShouldUseDefaultRoot, USCS_Node** OutSCSNode) const
{
	if (OutSCSNode)
	{
		*OutSCSNode = nullptr;
	}
	const UBlueprint* const Blueprint = GetBlueprint();
	const UClass* const ParentClass = Blueprint ? Blueprint->ParentClass.Get() : nullptr;
	const AActor* const Default = ParentClass ? Cast<AActor>(ParentClass->GetDefaultObject()) : nullptr;
	if (Default && Default->GetRootComponent())
	{
		return Default->GetRootComponent();
	}
	for (const UBlueprint* Above = UBlueprint::GetBlueprintFromClass(ParentClass); Above;
		 Above = UBlueprint::GetBlueprintFromClass(Above->ParentClass.Get()))
	{
		const USimpleConstructionScript* const Script = Above->SimpleConstructionScript;
		if (USceneComponent* const Root = Script ? Script->FindOwnSceneRoot(bShouldUseDefaultRoot, OutSCSNode)
												 : nullptr)
		{
			return Root;
		}
	}
	return FindOwnSceneRoot(bShouldUseDefaultRoot, OutSCSNode);
}

USceneComponent* USimpleConstructionScript::FindOwnSceneRoot(bool bShouldUseDefaultRoot, USCS_Node** OutSCSNode) const
{
	for (USCS_Node* const Root : RootNodes)
	{
		USceneComponent* const Template = Root ? Cast<USceneComponent>(Root->ComponentTemplate.Get()) : nullptr;
		if (Template && (bShouldUseDefaultRoot || Root != DefaultSceneRootNode.Get()))
		{
			if (OutSCSNode)
			{
				*OutSCSNode = Root;
			}
			return Template;
		}
	}
	return nullptr;
}

void USimpleConstructionScript::PreSave()
{
	Super::PreSave();
	const TArray<USCS_Node*> Present = GetAllNodes();
	TArray<UObject*> Inner;
	GetObjectsWithOuter(this, Inner, false);
	for (UObject* const Object : Inner)
	{
		USCS_Node* const Node = Cast<USCS_Node>(Object);
		if (!Node || Node == DefaultSceneRootNode.Get() || Present.Contains(Node))
		{
			continue;
		}
		if (Node->ComponentTemplate)
		{
			Node->ComponentTemplate->MarkAsGarbage();
		}
		Node->MarkAsGarbage();
	}
}

void USimpleConstructionScript::ValidateSceneRootNodes()
{
	const UBlueprint* const Blueprint = GetBlueprint();
	UClass* const ParentClass = Blueprint ? Blueprint->ParentClass.Get() : nullptr;
	if (!ParentClass || !ParentClass->IsChildOf(AActor::StaticClass()))
	{
		return;
	}
	const AActor* const ParentDefault = static_cast<const AActor*>(ParentClass->GetDefaultObject());
	bool bHasSceneRoot = ParentDefault->GetRootComponent() != nullptr;
	for (const USCS_Node* const Root : RootNodes)
	{
		bHasSceneRoot |= Root && Root != DefaultSceneRootNode.Get()
			&& Cast<USceneComponent>(Root->ComponentTemplate.Get());
	}
	for (const UBlueprint* Parent = UBlueprint::GetBlueprintFromClass(ParentClass); Parent && !bHasSceneRoot;
		 Parent = UBlueprint::GetBlueprintFromClass(Parent->ParentClass.Get()))
	{
		bHasSceneRoot = Parent->SimpleConstructionScript && !Parent->SimpleConstructionScript->RootNodes.IsEmpty();
	}
	if (!bHasSceneRoot && !DefaultSceneRootNode)
	{
		DefaultSceneRootNode = CreateNode(USceneComponent::StaticClass(), TEXT("DefaultSceneRoot"));
	}
	if (!DefaultSceneRootNode)
	{
		return;
	}
	if (!bHasSceneRoot)
	{
		RootNodes.AddUnique(DefaultSceneRootNode);
		AllNodes.AddUnique(DefaultSceneRootNode);
	}
	else if (RootNodes.Contains(DefaultSceneRootNode))
	{
		// Another root took over. What hung below the stand-in moves up; the stand-in is kept aside for later.
		for (USCS_Node* const Child : DefaultSceneRootNode->ChildNodes)
		{
			RootNodes.AddUnique(Child);
		}
		DefaultSceneRootNode->ChildNodes.Empty();
		RootNodes.Remove(DefaultSceneRootNode);
		AllNodes.Remove(DefaultSceneRootNode);
	}
}

UBlueprint* USimpleConstructionScript::GetBlueprint() const
{
	if (UBlueprint* const Blueprint = Cast<UBlueprint>(GetOuter()))
	{
		return Blueprint;
	}
	return UBlueprint::GetBlueprintFromClass(Cast<UClass>(GetOuter()));
}

UClass* USimpleConstructionScript::GetOwnerClass() const
{
	const UBlueprint* const Blueprint = GetBlueprint();
	return Blueprint ? Blueprint->GeneratedClass.Get() : nullptr;
}

FName USimpleConstructionScript::GenerateNewComponentName(const UClass* ComponentClass, FName DesiredName) const
{
	const auto IsTaken = [this](FName Name) { return ConstructionScript::IsVariableNameTaken(*this, Name); };
	if (!DesiredName.IsNone() && !IsTaken(DesiredName))
	{
		return DesiredName;
	}
	FString Base = DesiredName.IsNone() ? ComponentClass->GetName() : DesiredName.ToString();
	if (DesiredName.IsNone())
	{
		Base.RemoveFromEnd(TEXT("_C"), ESearchCase::CaseSensitive);
		Base.RemoveFromEnd(TEXT("Component"), ESearchCase::CaseSensitive);
	}
	FName Candidate(Base);
	for (int32 Number = 1; IsTaken(Candidate); ++Number)
	{
		Candidate = FName(FString::Printf(TEXT("%s%d"), *Base, Number));
	}
	return Candidate;
}
