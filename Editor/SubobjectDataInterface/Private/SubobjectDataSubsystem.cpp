#include "SubobjectDataSubsystem.h"

#include "Components/SceneComponent.h"
#include "Engine/Blueprint.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "Standalone/NativeClass.h"
#include "Standalone/SubobjectDataFaults.h"
#include "Standalone/SubobjectDataInterfaceClasses.h"
#include "SubobjectDataGathering.h"

IMPLEMENT_EDITOR_CLASS(USubobjectDataSubsystem, "/Script/SubobjectDataInterface", CLASS_None)

void USubobjectDataSubsystem::DescribeClass(FClassDescriber&) {}

void RegisterSubobjectDataInterfaceClasses()
{
	NativeClass::RegisterNativeClasses({&USubobjectDataSubsystem::StaticClass});
}

namespace SubobjectDataFaults
{
static ESubobjectFault Present = ESubobjectFault::None;

void Set(ESubobjectFault Fault)
{
	Present = Fault;
}
} // namespace SubobjectDataFaults

USubobjectDataSubsystem* USubobjectDataSubsystem::Get()
{
	if (SubobjectDataFaults::Present == ESubobjectFault::Missing)
	{
		return nullptr;
	}
	// It has no state, so the class default object serves.
	return static_cast<USubobjectDataSubsystem*>(StaticClass()->GetDefaultObject());
}

void USubobjectDataSubsystem::K2_GatherSubobjectDataForBlueprint(
	UBlueprint* Context, TArray<FSubobjectDataHandle>& OutArray) const
{
	OutArray.Empty();
	if (Context)
	{
		OutArray = FSubobjectDataGathering(*Context).Handles;
	}
}

FSubobjectDataHandle USubobjectDataSubsystem::FindHandleForObject(
	const FSubobjectDataHandle& ContextHandle, const UObject* ObjectToFind, UBlueprint* BPContext) const
{
	UBlueprint* const Blueprint = BPContext || !ContextHandle.IsValid() ? BPContext
																		: ContextHandle.GetData()->GetBlueprint();
	TArray<FSubobjectDataHandle> Handles;
	K2_GatherSubobjectDataForBlueprint(Blueprint, Handles);
	for (const FSubobjectDataHandle& Handle : Handles)
	{
		const FSubobjectData& Data = *Handle.GetData();
		if (ObjectToFind && (Data.GetObject() == ObjectToFind || Data.GetSCSNode() == ObjectToFind))
		{
			return Handle;
		}
	}
	return FSubobjectDataHandle::InvalidHandle;
}

namespace Subobjects
{
/** Hangs a node that is in no list on a component, or leaves it a root. */
static void Attach(USimpleConstructionScript& Script, USCS_Node& Node, const FSubobjectData& Parent)
{
	USCS_Node* const ParentNode = Parent.GetSCSNode();
	if (ParentNode && ParentNode->GetSCS() == &Script)
	{
		ParentNode->AddChildNode(&Node);
		return;
	}
	const USceneComponent* const Scene = Cast<USceneComponent>(Parent.GetComponentTemplate());
	if (ParentNode)
	{
		Node.SetParent(ParentNode);
	}
	else if (Scene && Cast<USceneComponent>(Node.ComponentTemplate.Get()))
	{
		Node.SetParent(Scene);
	}
	Script.AddNode(&Node);
}

/** Whether a node of the script may hang on the component: that stands in the tree, and not below the node. */
static bool CanHang(const USCS_Node& Node, const FSubobjectData& Parent)
{
	const USimpleConstructionScript* const Script = Node.GetSCS();
	const USCS_Node* const ParentNode = Parent.GetSCSNode();
	const bool bOwn = ParentNode && ParentNode->GetSCS() == Script;
	return Parent.IsSceneComponent() && ParentNode != &Node
		&& (!bOwn || (Script->AllNodes.Contains(ParentNode) && !ParentNode->IsChildOf(&Node)));
}

/** Whether the component is what the node hangs on, and not only by default: what hangs on the root for want of a
 * parent of its own gets it as its parent. */
static bool HangsOn(USCS_Node& Node, const FSubobjectData& Parent)
{
	const USimpleConstructionScript* const Script = Node.GetSCS();
	const USCS_Node* const ParentNode = Parent.GetSCSNode();
	if (ParentNode && ParentNode->GetSCS() == Script)
	{
		return ParentNode->GetChildNodes().Contains(&Node);
	}
	return Script->GetRootNodes().Contains(&Node) && Node.ParentComponentOrVariableName == Parent.GetVariableName();
}

/** The parent that a component of the class really gets: what has no place hangs on the actor. */
static const FSubobjectData* ChooseParent(const FSubobjectDataHandle& Asked, const UClass& Class)
{
	return Class.IsChildOf(USceneComponent::StaticClass()) && Asked.GetData()->IsSceneComponent() ? Asked.GetData()
																								  : nullptr;
}
} // namespace Subobjects

bool USubobjectDataSubsystem::ReparentSubobject(
	const FReparentSubobjectParams& Params, const FSubobjectDataHandle& ToReparentHandle) const
{
	UBlueprint* const Blueprint = Params.BlueprintContext;
	if (!Blueprint || !Blueprint->SimpleConstructionScript || !Params.NewParentHandle.IsValid()
		|| !ToReparentHandle.IsValid() || SubobjectDataFaults::Present == ESubobjectFault::Refusing)
	{
		return false;
	}
	// Handles that were taken before another move tell of the tree as it was then, so it is the nodes that are asked.
	const FSubobjectData& Parent = *Params.NewParentHandle.GetData();
	USCS_Node* const Node = ToReparentHandle.GetData()->GetSCSNode();
	if (!ToReparentHandle.GetData()->CanReparent() || !Node
		|| Node->GetSCS() != Blueprint->SimpleConstructionScript.Get()
		|| !Blueprint->SimpleConstructionScript->AllNodes.Contains(Node) || !Subobjects::CanHang(*Node, Parent))
	{
		return false;
	}
	if (Subobjects::HangsOn(*Node, Parent))
	{
		return true;
	}
	Blueprint->SimpleConstructionScript->Modify();
	Node->Modify();
	Blueprint->SimpleConstructionScript->RemoveNode(Node, false);
	Subobjects::Attach(*Blueprint->SimpleConstructionScript, *Node, Parent);
	Blueprint->SimpleConstructionScript->ValidateSceneRootNodes();
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	return true;
}

bool USubobjectDataSubsystem::ReparentSubobjects(
	const FReparentSubobjectParams& Params, const TArray<FSubobjectDataHandle>& HandlesToMove) const
{
	bool bAllMoved = !HandlesToMove.IsEmpty();
	for (const FSubobjectDataHandle& Handle : HandlesToMove)
	{
		bAllMoved &= ReparentSubobject(Params, Handle);
	}
	return bAllMoved;
}

FSubobjectDataHandle USubobjectDataSubsystem::AddNewSubobject(
	const FAddNewSubobjectParams& Params, FText& FailReason) const
{
	UBlueprint* const Blueprint = Params.BlueprintContext;
	USimpleConstructionScript* const Script = Blueprint ? Blueprint->SimpleConstructionScript.Get() : nullptr;
	if (!Script || !Params.ParentHandle.IsValid())
	{
		FailReason = FText::FromString(TEXT("There is no Blueprint with components, or no parent to add to."));
		return FSubobjectDataHandle::InvalidHandle;
	}
	USCS_Node* const Node = Script->CreateNode(Params.NewClass);
	if (!Node)
	{
		FailReason = FText::FromString(TEXT("The class is no component class."));
		return FSubobjectDataHandle::InvalidHandle;
	}
	if (const FSubobjectData* const Parent = Subobjects::ChooseParent(Params.ParentHandle, *Params.NewClass))
	{
		Subobjects::Attach(*Script, *Node, *Parent);
	}
	else
	{
		Script->AddNode(Node);
	}
	if (!Params.bSkipMarkBlueprintModified)
	{
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	}
	return FindHandleForObject(FSubobjectDataHandle(), Node, Blueprint);
}

int32 USubobjectDataSubsystem::DeleteSubobjects(const FSubobjectDataHandle& ContextHandle,
	const TArray<FSubobjectDataHandle>& SubobjectsToDelete, UBlueprint* BPContext) const
{
	UBlueprint* const Blueprint = BPContext || !ContextHandle.IsValid() ? BPContext
																		: ContextHandle.GetData()->GetBlueprint();
	int32 NumDeleted = 0;
	for (const FSubobjectDataHandle& Handle : SubobjectsToDelete)
	{
		const FSubobjectData* const Data = Handle.GetData();
		USCS_Node* const Node = Data ? Data->GetSCSNode() : nullptr;
		if (!Blueprint || !Node || !Data->CanDelete() || Node->GetSCS() != Blueprint->SimpleConstructionScript.Get())
		{
			continue;
		}
		Blueprint->Modify();
		FBlueprintEditorUtils::RemoveVariableNodes(Blueprint, Node->GetVariableName());
		Blueprint->SimpleConstructionScript->RemoveNodeAndPromoteChildren(Node);
		++NumDeleted;
	}
	if (NumDeleted > 0)
	{
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	}
	return NumDeleted;
}

bool USubobjectDataSubsystem::IsValidRename(
	const FSubobjectDataHandle& Handle, const FText& InNewText, FText& OutErrorMessage) const
{
	const FSubobjectData* const Data = Handle.GetData();
	if (!Data || !Data->CanRename())
	{
		OutErrorMessage = FText::FromString(TEXT("This component cannot be renamed here."));
		return false;
	}
	FKismetNameValidator Validator(Data->GetBlueprint(), Data->GetVariableName());
	const FString& Name = InNewText.ToString();
	const EValidatorResult Result = Validator.IsValid(Name);
	OutErrorMessage = INameValidatorInterface::GetErrorText(Name, Result);
	return Result == EValidatorResult::Ok;
}

bool USubobjectDataSubsystem::RenameSubobject(const FSubobjectDataHandle& Handle, const FText& InNewName) const
{
	FText Ignored;
	if (!IsValidRename(Handle, InNewName, Ignored))
	{
		return false;
	}
	const FSubobjectData& Data = *Handle.GetData();
	FBlueprintEditorUtils::RenameComponentMemberVariable(
		Data.GetBlueprint(), Data.GetSCSNode(), FName(InNewName.ToString()));
	return true;
}
