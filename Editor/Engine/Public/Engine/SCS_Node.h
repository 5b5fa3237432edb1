#pragma once

#include "CoreMinimal.h"
#include "Templates/SubclassOf.h"
#include "UObject/Object.h"

class UActorComponent;
class UBlueprint;
class UBlueprintGeneratedClass;
class USimpleConstructionScript;

/** One component of a construction script. */
class USCS_Node : public UObject
{
	EDITOR_CLASS(USCS_Node, UObject)

public:
	FName GetVariableName() const { return InternalVariableName; }
	void SetVariableName(const FName& NewName, bool bRenameTemplate = true);
	/** The template that counts for a class: the nearest one that the class or a parent of it has in place of the
	 * node's. */
	UActorComponent* GetActualComponentTemplate(UBlueprintGeneratedClass* ActualBPGC) const;
	USimpleConstructionScript* GetSCS() const;
	const TArray<TObjectPtr<USCS_Node>>& GetChildNodes() const { return ChildNodes; }
	TArray<USCS_Node*> GetAllChildNodes() const;
	void AddChildNode(USCS_Node* InNode, bool bAddToAllNodes = true);
	void RemoveChildNode(USCS_Node* InNode, bool bRemoveFromAllNodes = true);
	/** Takes the children over from another node, in their order. */
	void MoveChildNodes(USCS_Node* SourceNode, int32 InsertLocation = INDEX_NONE);
	/** The template that the node's component hangs on: the parent node's, a native one or an inherited one. */
	class USceneComponent* GetParentComponentTemplate(UBlueprint* InBlueprint) const;
	bool IsChildOf(const USCS_Node* TestParent) const;
	bool IsRootNode() const;
	/** Attaches to a component that is no node: a native one or one of a parent Blueprint. */
	void SetParent(const USCS_Node* InParentNode);
	void SetParent(const class USceneComponent* InParentComponent);

	TSubclassOf<UActorComponent> ComponentClass;
	TObjectPtr<UActorComponent> ComponentTemplate;
	FText CategoryName;
	FName AttachToName;
	FName ParentComponentOrVariableName;
	FName ParentComponentOwnerClassName;
	bool bIsParentComponentNative = false;
	TArray<TObjectPtr<USCS_Node>> ChildNodes;
	FGuid VariableGuid;
	FName InternalVariableName;
};
