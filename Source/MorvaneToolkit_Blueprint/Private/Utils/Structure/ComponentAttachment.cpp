#include "Utils/Structure/ComponentAttachment.h"

#include "Components/SceneComponent.h"
#include "Engine/Blueprint.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "SubobjectData.h"
#include "SubobjectDataSubsystem.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"

namespace ComponentAttachment
{
namespace
{
bool IsScene(const USCS_Node& Node)
{
	return Node.ComponentTemplate && Node.ComponentTemplate->IsA<USceneComponent>();
}

/** The component that a member of the class holds; in code it mostly has another name than the member. */
const UObject* FindHeldComponent(const UBlueprint& Blueprint, FName Member)
{
	UClass* const Class = Blueprint.GeneratedClass.Get();
	const FObjectProperty* const Property = CastField<FObjectProperty>(Class->FindPropertyByName(Member));
	return Property ? Property->GetObjectPropertyValue_InContainer(Class->GetDefaultObject()) : nullptr;
}

/** The links of the nodes alone, without the tree that the subsystem keeps; only where the result is a tree. */
bool AttachDirectly(UBlueprint& Blueprint, USCS_Node& Node, USCS_Node* OwnParent)
{
	if (!OwnParent || !CanHang(Node, *OwnParent))
	{
		return false;
	}
	USimpleConstructionScript& Script = *Blueprint.SimpleConstructionScript;
	Script.Modify();
	Script.RemoveNode(&Node, false);
	OwnParent->AddChildNode(&Node);
	Script.ValidateSceneRootNodes();
	return true;
}

FString WhyNot(const USCS_Node& Node, const USCS_Node* OwnParent)
{
	if (!IsScene(Node))
	{
		return FString::Printf(TEXT("'%s' is no scene component"), *Node.GetVariableName().ToString());
	}
	if (OwnParent && !IsScene(*OwnParent))
	{
		return FString::Printf(TEXT("'%s' is no scene component"), *OwnParent->GetVariableName().ToString());
	}
	if (OwnParent == &Node)
	{
		return TEXT("a component cannot hang on itself");
	}
	return OwnParent && OwnParent->IsChildOf(&Node) ? FString::Printf(TEXT("'%s' hangs on '%s' already"),
			   *OwnParent->GetVariableName().ToString(), *Node.GetVariableName().ToString())
													: FString(TEXT("it is no place for a component"));
}

bool IsThere(const UBlueprint& Blueprint, const USCS_Node& Node, const USCS_Node* OwnParent, FName ParentName)
{
	return OwnParent ? OwnParent->GetChildNodes().Contains(&Node)
					 : Blueprint.SimpleConstructionScript->GetRootNodes().Contains(&Node)
			&& Node.ParentComponentOrVariableName == ParentName;
}
} // namespace

bool CanHang(const USCS_Node& Child, const USCS_Node& Parent)
{
	return IsScene(Child) && IsScene(Parent) && &Child != &Parent && !Parent.IsChildOf(&Child);
}

void AddNode(UBlueprint& Blueprint, USCS_Node& Node, USCS_Node* Parent)
{
	if (Parent && CanHang(Node, *Parent))
	{
		// At once, since the stand-in for a root leaves as soon as another root is there.
		Parent->AddChildNode(&Node);
		return;
	}
	Blueprint.SimpleConstructionScript->AddNode(&Node);
}

bool Attach(UBlueprint& Blueprint, USCS_Node& Node, USCS_Node* OwnParent, const FString& ParentName,
	FComponentHandles& Handles, Morvane::FToolResult& Result)
{
	const FString Name = Node.GetVariableName().ToString();
	USubobjectDataSubsystem* const Subsystem = USubobjectDataSubsystem::Get();
	const FSubobjectDataHandle Parent = OwnParent ? Handles.Find(*OwnParent) : Handles.FindInherited(ParentName);
	if (!OwnParent && !Parent.IsValid())
	{
		Result.AddWarningMessage(FString::Printf(TEXT("Parent component '%s' not found for attachment"), *ParentName));
		return false;
	}
	const FName InheritedName = OwnParent ? FName() : Parent.GetData()->GetVariableName();
	if (IsThere(Blueprint, Node, OwnParent, InheritedName))
	{
		return false;
	}
	if (!Subsystem)
	{
		Result.AddWarningMessage(TEXT("SubobjectDataSubsystem not available, using fallback attachment method"));
		const bool bAttached = AttachDirectly(Blueprint, Node, OwnParent);
		if (bAttached)
		{
			Result.AddSuccessMessage(FString::Printf(
				TEXT("Attached existing component '%s' to parent '%s' (fallback)"), *Name, *ParentName));
		}
		return bAttached;
	}
	FReparentSubobjectParams Params;
	Params.NewParentHandle = Parent;
	Params.BlueprintContext = &Blueprint;
	if (Subsystem->ReparentSubobjects(Params, {Handles.Find(Node)}))
	{
		Result.AddSuccessMessage(
			FString::Printf(TEXT("Attached existing component '%s' to parent '%s'"), *Name, *ParentName));
		return true;
	}
	Result.AddWarningMessage(FString::Printf(
		TEXT("Failed to reparent component '%s' to '%s' using SubobjectDataSubsystem"), *Name, *ParentName));
	if (!AttachDirectly(Blueprint, Node, OwnParent))
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Component '%s' stays where it is: %s"), *Name, *WhyNot(Node, OwnParent)));
		return false;
	}
	Result.AddSuccessMessage(
		FString::Printf(TEXT("Attached existing component '%s' to parent '%s' (direct method)"), *Name, *ParentName));
	return true;
}
} // namespace ComponentAttachment

FComponentHandles::FComponentHandles(UBlueprint& InBlueprint)
	: Blueprint(InBlueprint)
{
}

void FComponentHandles::Gather()
{
	Default = Blueprint.GeneratedClass.Get()->GetDefaultObject();
	ByObject.Empty();
	ByName.Empty();
	const USubobjectDataSubsystem* const Subsystem = USubobjectDataSubsystem::Get();
	if (!Subsystem)
	{
		return;
	}
	TArray<FSubobjectDataHandle> Handles;
	Subsystem->K2_GatherSubobjectDataForBlueprint(&Blueprint, Handles);
	for (const FSubobjectDataHandle& Handle : Handles)
	{
		const FSubobjectData& Data = *Handle.GetData();
		ByObject.Add(Data.GetObject(), Handle);
		if (Data.IsInheritedComponent())
		{
			ByName.FindOrAdd(Data.GetVariableName(), Handle);
		}
	}
}

FSubobjectDataHandle FComponentHandles::Find(const USCS_Node& Node)
{
	const UObject* const Template = Node.ComponentTemplate;
	if (Template && !ByObject.Contains(Template))
	{
		Gather();
	}
	return ByObject.FindRef(Template);
}

FSubobjectDataHandle FComponentHandles::FindInherited(const FString& Name)
{
	if (Default.Get() != Blueprint.GeneratedClass.Get()->GetDefaultObject())
	{
		Gather();
	}
	const FSubobjectDataHandle* const Named = ByName.Find(FName(*Name));
	return Named ? *Named : ByObject.FindRef(ComponentAttachment::FindHeldComponent(Blueprint, FName(*Name)));
}
