#pragma once

#include "Engine/SCS_Node.h"
#include "SubobjectData.h"

class AActor;
class UActorComponent;
class USimpleConstructionScript;

/** Makes the tree of an actor Blueprint's components out of the three places they come from. */
class FSubobjectDataGathering
{
public:
	explicit FSubobjectDataGathering(UBlueprint& InBlueprint);

	/** Parents before children. */
	TArray<FSubobjectDataHandle> Handles;

private:
	void AddNativeComponents(const AActor& Default);
	void AddScript(USimpleConstructionScript& Script);
	void AddNode(USCS_Node& Node, const FSubobjectDataHandle& Parent);
	FSubobjectDataHandle FindParentOfRoot(const USCS_Node& Node) const;
	FSubobjectDataHandle FindByObject(const UObject* Object) const;
	FSubobjectDataHandle Add(UObject& Object, USCS_Node* Node, const FSubobjectDataHandle& Parent);
	/** In the order of the tree, which the sources do not follow. */
	void Sort();

	UBlueprint& Blueprint;
	FSubobjectDataHandle SceneRoot;
	TMap<const FSubobjectData*, TArray<FSubobjectDataHandle>> Children;
};
