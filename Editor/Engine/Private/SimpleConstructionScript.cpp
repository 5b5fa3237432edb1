#include "Engine/SimpleConstructionScript.h"

#include "Components/SceneComponent.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "GameFramework/Actor.h"
#include "UObject/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(USimpleConstructionScript, "/Script/Engine", CLASS_None)
IMPLEMENT_EDITOR_CLASS(USCS_Node, "/Script/Engine", CLASS_None)

void USimpleConstructionScript::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("RootNodes"), &USimpleConstructionScript::RootNodes);
	Class.Property(TEXT("AllNodes"), &USimpleConstructionScript::AllNodes);
	Class.Property(TEXT("DefaultSceneRootNode"), &USimpleConstructionScript::DefaultSceneRootNode);
}

void USCS_Node::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("ComponentClass"), &USCS_Node::ComponentClass);
	Class.Property(TEXT("ComponentTemplate"), &USCS_Node::ComponentTemplate);
	Class.Property(TEXT("CategoryName"), &USCS_Node::CategoryName);
	Class.Property(TEXT("AttachToName"), &USCS_Node::AttachToName);
	Class.Property(TEXT("ParentComponentOrVariableName"), &USCS_Node::ParentComponentOrVariableName);
	Class.Property(TEXT("ParentComponentOwnerClassName"), &USCS_Node::ParentComponentOwnerClassName);
	Class.Property(TEXT("bIsParentComponentNative"), &USCS_Node::bIsParentComponentNative);
	Class.Property(TEXT("ChildNodes"), &USCS_Node::ChildNodes);
	Class.Property(TEXT("VariableGuid"), &USCS_Node::VariableGuid);
	Class.Property(TEXT("InternalVariableName"), &USCS_Node::InternalVariableName);
}

namespace ConstructionScript
{
/** Templates are told from instances by this ending. */
const TCHAR* const TemplateSuffix = TEXT("_GEN_VARIABLE");

FName TemplateName(FName VariableName)
{
	return FName(VariableName.ToString() + TemplateSuffix);
}

/** Where templates live: the generated class, as what instances are made from. */
UObject* TemplateOuter(const USimpleConstructionScript& Script)
{
	UBlueprint* const Blueprint = Script.GetBlueprint();
	UObject* const Class = Blueprint ? Blueprint->GeneratedClass.Get() : nullptr;
	return Class ? Class : Script.GetOuter();
}

void CollectBelow(USCS_Node* Node, TArray<USCS_Node*>& Out)
{
	Out.Add(Node);
	for (USCS_Node* const Child : Node->ChildNodes)
	{
		if (Child)
		{
			CollectBelow(Child, Out);
		}
	}
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
	FName TemplateName = ConstructionScript::TemplateName(VariableName);
	if (!IsUniqueObjectName(TemplateName, TemplateOuter))
	{
		TemplateName = MakeUniqueObjectName(TemplateOuter, NewComponentClass, TemplateName);
	}
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

USCS_Node* USimpleConstructionScript::CreateNodeAndRenameComponent(UActorComponent* NewComponentTemplate)
{
	if (!NewComponentTemplate)
	{
		return nullptr;
	}
	USCS_Node* const Node = NewObject<USCS_Node>(
		this, MakeUniqueObjectName(this, USCS_Node::StaticClass()), RF_Transactional);
	Node->ComponentTemplate = NewComponentTemplate;
	Node->ComponentClass = NewComponentTemplate->GetClass();
	Node->VariableGuid = FGuid::NewGuid();
	Node->SetVariableName(GenerateNewComponentName(NewComponentTemplate->GetClass(), NewComponentTemplate->GetFName()));
	return Node;
}

void USimpleConstructionScript::AddNode(USCS_Node* Node)
{
	Modify();
	RootNodes.AddUnique(Node);
	AllNodes.AddUnique(Node);
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
	RootNodes.Remove(Node);
	TArray<USCS_Node*> Removed;
	ConstructionScript::CollectBelow(Node, Removed);
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
			ConstructionScript::CollectBelow(Root, Nodes);
		}
	}
	return Nodes;
}

USCS_Node* USimpleConstructionScript::FindParentNode(const USCS_Node* InNode) const
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
	const auto IsTaken = [this](FName Name)
	{
		for (const USCS_Node* const Node : AllNodes)
		{
			if (Node && Node->GetVariableName() == Name)
			{
				return true;
			}
		}
		return false;
	};
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

void USCS_Node::SetVariableName(const FName& NewName, bool bRenameTemplate)
{
	if (bRenameTemplate && ComponentTemplate)
	{
		const FName TemplateName = ConstructionScript::TemplateName(NewName);
		if (IsUniqueObjectName(TemplateName, ComponentTemplate->GetOuter()))
		{
			ComponentTemplate->Rename(*TemplateName.ToString());
		}
	}
	InternalVariableName = NewName;
}

USimpleConstructionScript* USCS_Node::GetSCS() const
{
	return Cast<USimpleConstructionScript>(GetOuter());
}

TArray<USCS_Node*> USCS_Node::GetAllChildNodes() const
{
	TArray<USCS_Node*> Nodes;
	for (USCS_Node* const Child : ChildNodes)
	{
		ConstructionScript::CollectBelow(Child, Nodes);
	}
	return Nodes;
}

void USCS_Node::AddChildNode(USCS_Node* InNode, bool bAddToAllNodes)
{
	if (!InNode || ChildNodes.Contains(InNode))
	{
		return;
	}
	Modify();
	ChildNodes.Add(InNode);
	if (USimpleConstructionScript* const Script = GetSCS(); Script && bAddToAllNodes)
	{
		Script->AllNodes.AddUnique(InNode);
	}
}

void USCS_Node::RemoveChildNode(USCS_Node* InNode, bool bRemoveFromAllNodes)
{
	Modify();
	ChildNodes.Remove(InNode);
	if (USimpleConstructionScript* const Script = GetSCS(); Script && bRemoveFromAllNodes)
	{
		Script->AllNodes.Remove(InNode);
	}
}

bool USCS_Node::IsChildOf(const USCS_Node* TestParent) const
{
	return TestParent && TestParent->GetAllChildNodes().Contains(const_cast<USCS_Node*>(this));
}

bool USCS_Node::IsRootNode() const
{
	const USimpleConstructionScript* const Script = GetSCS();
	return Script && Script->RootNodes.Contains(const_cast<USCS_Node*>(this));
}

void USCS_Node::SetParent(const USCS_Node* InParentNode)
{
	const USimpleConstructionScript* const ParentScript = InParentNode->GetSCS();
	const UClass* const OwnerClass = ParentScript ? ParentScript->GetOwnerClass() : nullptr;
	ParentComponentOrVariableName = InParentNode->GetVariableName();
	ParentComponentOwnerClassName = OwnerClass ? OwnerClass->GetFName() : FName();
	bIsParentComponentNative = false;
}

void USCS_Node::SetParent(const USceneComponent* InParentComponent)
{
	ParentComponentOrVariableName = InParentComponent->GetFName();
	ParentComponentOwnerClassName = NAME_None;
	bIsParentComponentNative = true;
}
