// Components of a Blueprint's construction script: one batch. First what is added and modified, then what is removed,
// then one compile.

#include "AssetOperationBase.h"
#include "BlueprintCreateModifyRemoveUtils.h"
#include "BlueprintUtils.h"
#include "Components/ActorComponent.h"
#include "Engine/Blueprint.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Asset/NativeComponents.h"
#include "Utils/Report/TrackedNames.h"
#include "Utils/Structure/ComponentAttachment.h"
#include "Utils/Structure/ComponentProperties.h"
#include "Utils/Structure/InheritedComponents.h"
#include "Utils/Structure/MemberNodes.h"
#include "Utils/Structure/StructureBatch.h"
#include "Utils/Structure/StructureNames.h"

namespace BlueprintComponents
{
using namespace Morvane;

static bool IsComponent(const UClass* Class)
{
	return Class && Class->IsChildOf(UActorComponent::StaticClass());
}

/** "Box" is short for the component, and so is "PointLight", though an actor has that name: an actor is no component.
 * Null when there is no such component. */
static UClass* FindComponentClass(const FString& Type)
{
	UClass* const Named = FAssetOperationBase::GetAssetClassFromAssetName(Type);
	if (IsComponent(Named))
	{
		return Named;
	}
	UClass* const Meant = FAssetOperationBase::GetAssetClassFromAssetName(Type + TEXT("Component"));
	const bool bOfAKind = IsComponent(Meant) && Meant != UActorComponent::StaticClass(); // "Actor" is short for none
	return bOfAKind && !Meant->HasAnyClassFlags(CLASS_Abstract) ? Meant : nullptr;
}

class FBatch
{
public:
	FBatch(UBlueprint& InBlueprint, FToolResult& InResult)
		: Blueprint(InBlueprint)
		, Script(*InBlueprint.SimpleConstructionScript)
		, Result(InResult)
		, Handles(InBlueprint)
	{
		for (USCS_Node* const Node : Script.GetAllNodes())
		{
			Nodes.Add(Node->GetVariableName(), Node);
		}
	}

	void Run(const TArray<TSharedPtr<FJsonValue>>& Components)
	{
		const FStructureKind Kind{TEXT("component"),
			{TEXT("name"), TEXT("action"), TEXT("type"), TEXT("properties"), TEXT("attach_to")},
			TEXT("Component entry missing 'name' field.")};
		StructureBatch::Walk(
			Components, Kind, Result,
			[this](const FStructureEntry& Entry, bool bAdd) { AddOrModify(Entry.Name, Entry, bAdd); },
			[this](const FString& Name) { Remove(Name); });
		Finish();
	}

private:
	USCS_Node* Find(const FString& Name) const { return Nodes.FindRef(FName(*Name)); }

	/** The stand-in for a root comes and goes with the other scene components. */
	void SettleStandIn()
	{
		USCS_Node* const StandIn = Script.GetDefaultSceneRootNode();
		if (StandIn && Script.GetRootNodes().Contains(StandIn))
		{
			Nodes.Add(StandIn->GetVariableName(), StandIn);
		}
		else if (StandIn)
		{
			Nodes.Remove(StandIn->GetVariableName());
		}
	}

	void AddOrModify(const FString& Name, const FStructureEntry& Entry, bool bAdd)
	{
		SettleStandIn();
		USCS_Node* const Node = Find(Name);
		if (bAdd && Node)
		{
			Result.AddWarningMessage(FString::Printf(TEXT("Component '%s' already exists, cannot add"), *Name));
		}
		else if (bAdd)
		{
			Add(Name, Entry);
		}
		else if (Node)
		{
			Modify(Name, *Node, Entry);
		}
		else
		{
			ModifyInherited(Name, Entry);
		}
	}

	/** The values of an inherited component are this Blueprint's; what it is and where it hangs is its parent's. */
	void ModifyInherited(const FString& Name, const FStructureEntry& Entry)
	{
		UClass* const Class = FBlueprintEditorUtils::GetMostUpToDateClass(Blueprint.GeneratedClass);
		UActorComponent* const Native = Class ? NativeComponents::Find(*Class, Name) : nullptr;
		if (Native)
		{
			// It belongs to the class default object, which each class has for itself.
			WarnOfFixedKeys(Name, NativeComponents::FindOwner(*Native)->GetName(), Entry);
			FinishInherited(Name, Native->GetName(), ApplyProperties(*Native, Name, Entry));
			return;
		}
		const FName Wanted(*Name);
		for (const USCS_Node* const Node : FBlueprintUtils::GetBlueprintComponentsFromSCS(&Blueprint))
		{
			if (Node->GetVariableName() == Wanted)
			{
				ModifyOfParent(Name, *Node, Entry);
				return;
			}
		}
		Result.AddWarningMessage(FString::Printf(TEXT("Component '%s' not found for modification"), *Name));
	}

	/** One that a parent Blueprint makes has its template there, so that this Blueprint gets a template of its own. */
	void ModifyOfParent(const FString& Name, const USCS_Node& Node, const FStructureEntry& Entry)
	{
		const UClass* const Owner = Node.GetSCS()->GetOwnerClass();
		const FString OwnerName = Owner ? Owner->GetName() : FString(TEXT("the parent class"));
		WarnOfFixedKeys(Name, OwnerName, Entry);
		FInheritedComponent Component(Blueprint, Node);
		if (!Component.GetTemplate())
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT("Component '%s' is inherited from '%s' and can only be modified there"), *Name, *OwnerName));
			return;
		}
		const bool bChanged = ApplyProperties(*Component.GetTemplate(), Name, Entry);
		if (!bChanged)
		{
			Component.Forget();
		}
		FinishInherited(Name, Node.GetVariableName().ToString(), bChanged);
	}

	void WarnOfFixedKeys(const FString& Name, const FString& Owner, const FStructureEntry& Entry)
	{
		for (const TCHAR* const Key : {TEXT("type"), TEXT("attach_to")})
		{
			if (Entry.ReadString(Key))
			{
				Result.AddWarningMessage(FString::Printf(
					TEXT("Component '%s' is inherited from '%s' and keeps its class and place; '%s' was left out"),
					*Name, *Owner, Key));
			}
		}
	}

	void FinishInherited(const FString& Name, const FString& OwnName, bool bChanged)
	{
		if (!bChanged)
		{
			Result.AddSuccessMessage(FString::Printf(TEXT("No changes made to component: %s"), *Name));
			return;
		}
		Result.AddSuccessMessage(FString::Printf(TEXT("Modified existing component: %s"), *Name));
		Changed.Add(OwnName);
	}

	/** True when the entry's "properties" changed a value. */
	bool ApplyProperties(UActorComponent& Template, const FString& Name, const FStructureEntry& Entry)
	{
		const TSharedPtr<FJsonObject> Properties = Entry.ReadObject(TEXT("properties"));
		return Properties && ComponentProperties::Apply(Template, Name, *Properties, Inheriting, Result);
	}

	/** Null after a warning. */
	UClass* ReadClass(const FString& Name, const FString& Type)
	{
		UClass* const Class = FindComponentClass(Type);
		if (!Class)
		{
			Result.AddWarningMessage(FString::Printf(TEXT("Invalid component class: %s"), *Type));
			return nullptr;
		}
		if (Class->HasAnyClassFlags(CLASS_Abstract))
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT("Invalid component class: %s (it is abstract; use a class derived from it)"), *Type));
			return nullptr;
		}
		return Class;
	}

	void Add(const FString& Name, const FStructureEntry& Entry)
	{
		const TOptional<FString> Type = Entry.ReadString(TEXT("type"));
		if (!Type)
		{
			Result.AddWarningMessage(
				FString::Printf(TEXT("Component '%s' with 'Add' action missing 'type' field."), *Name));
			return;
		}
		if (!FBlueprintUtils::VerifyBlueprintVariableName(&Blueprint, Name, Result)
			|| !StructureNames::VerifyObjectName(Name, Result))
		{
			return;
		}
		UClass* const Class = ReadClass(Name, *Type);
		if (!Class)
		{
			return;
		}
		USCS_Node* const Node = Script.CreateNode(Class, FName(*Name));
		if (!Node || !Node->ComponentTemplate)
		{
			Result.AddWarningMessage(FString::Printf(TEXT("Failed to create component: %s"), *Name));
			return;
		}
		Script.Modify();
		ApplyProperties(*Node->ComponentTemplate, Name, Entry);
		const TOptional<FString> ParentName = Entry.ReadString(TEXT("attach_to"));
		USCS_Node* const Parent = ParentName ? Find(*ParentName) : nullptr;
		ComponentAttachment::AddNode(Blueprint, *Node, Parent);
		Nodes.Add(Node->GetVariableName(), Node);
		Result.AddSuccessMessage(FString::Printf(TEXT("Created new component: %s of type %s"), *Name, **Type));
		if (Parent && ComponentAttachment::CanHang(*Node, *Parent))
		{
			Result.AddSuccessMessage(
				FString::Printf(TEXT("Attached existing component '%s' to parent '%s'"), *Name, **ParentName));
		}
		else if (ParentName)
		{
			ComponentAttachment::Attach(Blueprint, *Node, Parent, *ParentName, Handles, Result);
		}
		Changed.Add(Name);
	}

	void Modify(const FString& Name, USCS_Node& Node, const FStructureEntry& Entry)
	{
		bool bChanged = Node.ComponentTemplate && ApplyProperties(*Node.ComponentTemplate, Name, Entry);
		const TOptional<FString> Type = Entry.ReadString(TEXT("type"));
		if (Type && FindComponentClass(*Type) != Node.ComponentClass.Get())
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT("Component '%s' is of class %s and keeps it; remove it and add it again for another"), *Name,
				*Node.ComponentClass.Get()->GetName()));
		}
		if (const TOptional<FString> ParentName = Entry.ReadString(TEXT("attach_to")))
		{
			bChanged |= ComponentAttachment::Attach(Blueprint, Node, Find(*ParentName), *ParentName, Handles, Result);
		}
		if (!bChanged)
		{
			Result.AddSuccessMessage(FString::Printf(TEXT("No changes made to component: %s"), *Name));
			return;
		}
		Result.AddSuccessMessage(FString::Printf(TEXT("Modified existing component: %s"), *Name));
		Changed.Add(Node.GetVariableName().ToString());
	}

	void Remove(const FString& Name)
	{
		SettleStandIn();
		USCS_Node* const Node = Find(Name);
		if (!Node)
		{
			ReportMissing(Name);
			return;
		}
		if (Node == Script.GetDefaultSceneRootNode() && Node->GetChildNodes().IsEmpty())
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT("Component '%s' stands in for a root and stays until another scene component takes its place"),
				*Name));
			return;
		}
		if (!Node->GetChildNodes().IsEmpty())
		{
			Result.AddWarningMessage(
				FString::Printf(TEXT("Warning: Removing component '%s' will affect %d attached children."), *Name,
					Node->GetChildNodes().Num()));
		}
		TArray<USCS_Node*> Leaving = Node->GetAllChildNodes();
		Leaving.Insert(Node, 0);
		Script.RemoveNode(Node);
		for (USCS_Node* const Each : Leaving)
		{
			Forget(*Each, Each != Node);
		}
		Result.AddSuccessMessage(FString::Printf(TEXT("Removed component: %s"), *Name));
	}

	/** What hung below a removed component went with it. */
	void Forget(const USCS_Node& Node, bool bWithParent)
	{
		const FName Variable = Node.GetVariableName();
		MemberNodes::Remove(Blueprint, Variable, FString::Printf(TEXT("component '%s'"), *Variable.ToString()), Result);
		Nodes.Remove(Variable);
		Gone.Add(Variable);
		Changed.Add(Variable.ToString());
		if (bWithParent)
		{
			GoneWithParent.Add(Variable);
			Result.AddWarningMessage(FString::Printf(
				TEXT("Component '%s' was removed with the component that it hung on"), *Variable.ToString()));
		}
	}

	void ReportMissing(const FString& Name)
	{
		if (GoneWithParent.Contains(FName(*Name)))
		{
			Result.AddSuccessMessage(FString::Printf(TEXT("Removed component: %s"), *Name));
			return;
		}
		Result.AddWarningMessage(FString::Printf(TEXT("Component not found for removal: %s"), *Name));
	}

	void Finish()
	{
		if (!Changed.IsEmpty())
		{
			Blueprint.MarkPackageDirty();
			FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
		}
		MemberNodes::WarnOfNodesElsewhere(Blueprint, Gone, Result);
		FBlueprintUtils::CompileBlueprint(&Blueprint, false);
		TrackNames(ToolInfo::ToolName_ReadBlueprintComponent, Blueprint.GetPathName(),
			ToolInfo::FieldName_ComponentName, Changed, Result);
	}

	UBlueprint& Blueprint;
	USimpleConstructionScript& Script;
	FToolResult& Result;
	FComponentHandles Handles;
	const FInheritingTemplates Inheriting;
	TMap<FName, USCS_Node*> Nodes;
	TSet<FName> Gone;
	TSet<FName> GoneWithParent;
	TArray<FString> Changed;
};
} // namespace BlueprintComponents

bool FBlueprintCreateModifyRemoveUtils::CreateModifyRemoveBlueprintComponent(
	UBlueprint* Blueprint, const TArray<TSharedPtr<FJsonValue>>& Components, Morvane::FToolResult& Result)
{
	if (!Blueprint)
	{
		Result.AddErrorMessage(TEXT("Invalid Blueprint provided."));
		return false;
	}
	if (!Blueprint->SimpleConstructionScript)
	{
		Result.AddErrorMessage(TEXT("Blueprint does not have a SimpleConstructionScript."));
		return false;
	}
	BlueprintComponents::FBatch(*Blueprint, Result).Run(Components);
	return true;
}
