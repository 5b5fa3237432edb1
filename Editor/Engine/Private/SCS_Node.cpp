#include "Engine/SCS_Node.h"

#include "Components/SceneComponent.h"
#include "ConstructionScriptNodes.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/InheritableComponentHandler.h"
#include "Engine/SimpleConstructionScript.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(USCS_Node, "/Script/Engine", CLASS_None)

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

namespace ConstructionScriptNodes
{
FName TemplateName(FName VariableName)
{
	return FName(VariableName.ToString() + TEXT("_GEN_VARIABLE"));
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
} // namespace ConstructionScriptNodes

void USCS_Node::SetVariableName(const FName& NewName, bool bRenameTemplate)
{
	if (bRenameTemplate && ComponentTemplate)
	{
		const FName TemplateName = ConstructionScriptNodes::TemplateName(NewName);
		if (IsUniqueObjectName(TemplateName, ComponentTemplate->GetOuter()))
		{
			ComponentTemplate->Rename(*TemplateName.ToString());
		}
	}
	InternalVariableName = NewName;
}

UActorComponent* USCS_Node::GetActualComponentTemplate(UBlueprintGeneratedClass* ActualBPGC) const
{
	const USimpleConstructionScript* const Script = GetSCS();
	const FComponentKey Key(this);
	for (; ActualBPGC && Script != ActualBPGC->SimpleConstructionScript.Get();
		 ActualBPGC = Cast<UBlueprintGeneratedClass>(ActualBPGC->GetSuperClass()))
	{
		const UInheritableComponentHandler* const Handler = ActualBPGC->InheritableComponentHandler.Get();
		if (UActorComponent* const Override = Handler ? Handler->GetOverridenComponentTemplate(Key) : nullptr)
		{
			return Override;
		}
	}
	return ComponentTemplate;
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
		ConstructionScriptNodes::CollectBelow(Child, Nodes);
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
	USimpleConstructionScript* const Script = GetSCS();
	if (!Script || !bAddToAllNodes)
	{
		return;
	}
	TArray<USCS_Node*> Added;
	ConstructionScriptNodes::CollectBelow(InNode, Added);
	for (USCS_Node* const Below : Added)
	{
		Script->AllNodes.AddUnique(Below);
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

void USCS_Node::MoveChildNodes(USCS_Node* SourceNode, int32 InsertLocation)
{
	if (SourceNode == this)
	{
		return;
	}
	Modify();
	SourceNode->Modify();
	int32 Index = InsertLocation == INDEX_NONE ? ChildNodes.Num() : InsertLocation;
	for (USCS_Node* const Child : SourceNode->ChildNodes)
	{
		ChildNodes.Insert(Child, Index);
		++Index;
	}
	SourceNode->ChildNodes.Empty();
}

USceneComponent* USCS_Node::GetParentComponentTemplate(UBlueprint* InBlueprint) const
{
	if (ParentComponentOrVariableName.IsNone())
	{
		const USimpleConstructionScript* const Script = GetSCS();
		const USCS_Node* const Parent = Script ? Script->FindParentNode(const_cast<USCS_Node*>(this)) : nullptr;
		return Parent ? Cast<USceneComponent>(Parent->ComponentTemplate.Get()) : nullptr;
	}
	if (bIsParentComponentNative)
	{
		UClass* const Parent = InBlueprint ? InBlueprint->ParentClass.Get() : nullptr;
		return Parent ? Cast<USceneComponent>(Parent->GetDefaultSubobjectByName(ParentComponentOrVariableName))
					  : nullptr;
	}
	for (const UBlueprint* Above = InBlueprint; Above;
		 Above = UBlueprint::GetBlueprintFromClass(Above->ParentClass.Get()))
	{
		const USimpleConstructionScript* const Script = Above->SimpleConstructionScript;
		const USCS_Node* const Node = Script ? Script->FindSCSNode(ParentComponentOrVariableName) : nullptr;
		if (Node && Above->GeneratedClass.Get()->GetFName() == ParentComponentOwnerClassName)
		{
			return Cast<USceneComponent>(Node->ComponentTemplate.Get());
		}
	}
	return nullptr;
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
