#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

class UBlueprint;
class USceneComponent;
class USCS_Node;

/** The components that a Blueprint adds to its actors, as a forest of nodes. */
class USimpleConstructionScript : public UObject
{
	EDITOR_CLASS(USimpleConstructionScript, UObject)

public:
	/** A node with a fresh template of the class; in no list until AddNode. */
	USCS_Node* CreateNode(UClass* NewComponentClass, FName NewComponentVariableName = NAME_None);
	/** Adds as a root. */
	void AddNode(USCS_Node* Node);
	/** Takes the node out; its children move up to its parent. */
	void RemoveNodeAndPromoteChildren(USCS_Node* Node);
	/** Takes the node out with the nodes below it. */
	void RemoveNode(USCS_Node* Node, bool bValidateSceneRootNodes = true);
	/** Depth first, parents before children. */
	TArray<USCS_Node*> GetAllNodes() const;
	const TArray<TObjectPtr<USCS_Node>>& GetRootNodes() const { return RootNodes; }
	USCS_Node* FindParentNode(USCS_Node* InNode) const;
	USCS_Node* FindSCSNode(FName InName) const;
	/** What becomes the actor's root: a native component, one of a parent Blueprint, or the first scene component here;
	 * null when there is none. OutSCSNode is its node, where it has one. */
	USceneComponent* GetSceneRootComponentTemplate(
		bool bShouldUseDefaultRoot = false, USCS_Node** OutSCSNode = nullptr) const;
	USCS_Node* GetDefaultSceneRootNode() const { return DefaultSceneRootNode; }
	/** Gives an actor without any scene component its "DefaultSceneRoot", and takes that away when there is another
	 * root. */
	void ValidateSceneRootNodes();
	UBlueprint* GetBlueprint() const;
	UClass* GetOwnerClass() const;
	/** The desired name, or one made of the class's, with a number where it is taken. */
	FName GenerateNewComponentName(const UClass* ComponentClass, FName DesiredName = NAME_None) const;
	/** Nodes that were removed, and their templates, are not written. */
	void PreSave() override;

	TArray<TObjectPtr<USCS_Node>> RootNodes;
	TArray<TObjectPtr<USCS_Node>> AllNodes;
	TObjectPtr<USCS_Node> DefaultSceneRootNode;

private:
	USceneComponent* FindOwnSceneRoot(bool bShouldUseDefaultRoot, USCS_Node** OutSCSNode) const;
	void MoveLeftoverAside(UObject* TemplateOuter, FName TemplateName) const;
};
