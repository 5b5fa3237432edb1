#pragma once

#include "CoreMinimal.h"
#include "Engine/Blueprint.h"
#include "Engine/SCS_Node.h"
#include "SubobjectDataHandle.h"
#include "UObject/WeakObjectPtr.h"

class UActorComponent;

/** One object in the tree of an actor's components: the actor itself, or the template of a component. */
struct FSubobjectData
{
	/** The actor's class default object, or the component template; null when it is gone. */
	const UObject* GetObject() const { return Object.Get(); }
	const UActorComponent* GetComponentTemplate() const;
	/** The construction script's node; null for the actor and for native components. */
	USCS_Node* GetSCSNode() const { return Node.Get(); }
	/** The Blueprint whose construction script made it, or that it was gathered for. */
	UBlueprint* GetBlueprint() const { return Blueprint.Get(); }
	FName GetVariableName() const;

	bool IsValid() const { return GetObject() != nullptr; }
	bool IsRootActor() const { return IsValid() && !ParentHandle.IsValid(); }
	bool IsActor() const { return IsRootActor(); }
	bool IsComponent() const { return GetComponentTemplate() != nullptr; }
	bool IsSceneComponent() const;
	/** Made by the class in code, and so beyond an author's reach. */
	bool IsNativeComponent() const { return IsComponent() && !GetSCSNode(); }
	/** One of a parent Blueprint. */
	bool IsInheritedSCSComponent() const { return GetSCSNode() && bIsInherited; }
	bool IsInheritedComponent() const { return IsNativeComponent() || IsInheritedSCSComponent(); }
	/** The scene component that all others hang on. */
	bool IsRootComponent() const { return bIsRootComponent; }
	bool IsDefaultSceneRoot() const;
	/** Whether an author may move, delete and rename it. */
	bool CanReparent() const { return IsComponent() && !IsInheritedComponent() && IsSceneComponent(); }
	bool CanDelete() const { return IsComponent() && !IsInheritedComponent() && !IsDefaultSceneRoot(); }
	bool CanRename() const { return IsComponent() && !IsInheritedComponent(); }

	const FSubobjectDataHandle& GetParentHandle() const { return ParentHandle; }
	/** Whether it stands below the other one, at any depth. */
	bool IsAttachedTo(const FSubobjectDataHandle& InHandle) const;

private:
	friend class FSubobjectDataGathering;

	TWeakObjectPtr<UObject> Object;
	TWeakObjectPtr<USCS_Node> Node;
	TWeakObjectPtr<UBlueprint> Blueprint;
	/** Holds the parent, so no parent may hold its children. */
	FSubobjectDataHandle ParentHandle;
	bool bIsInherited = false;
	bool bIsRootComponent = false;
};
