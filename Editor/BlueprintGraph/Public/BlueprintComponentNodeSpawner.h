#pragma once

#include "BlueprintNodeSpawner.h"
#include "CoreMinimal.h"

/** Spawns the node that adds a component of a class, with the template that the Blueprint keeps for it. */
class UBlueprintComponentNodeSpawner : public UBlueprintNodeSpawner
{
	EDITOR_CLASS(UBlueprintComponentNodeSpawner, UBlueprintNodeSpawner)

public:
	static UBlueprintComponentNodeSpawner* Create(UClass& ComponentClass, UObject* Outer = nullptr);
	/** Whether an actor's Blueprint may add components of the class. */
	static bool IsSpawnable(const UClass& Class);
	/** Null when the class is gone. */
	UClass* GetComponentClass() const { return ComponentClass.Get(); }
	const UClass* GetRequiredClass() const override;
	UEdGraphNode* Invoke(UEdGraph* ParentGraph, const FBindingSet& Bindings, const FVector2D Location) const override;
	using UBlueprintNodeSpawner::Invoke;
	bool AnyPin(FPinVisitor Visit) const override;

protected:
	bool IsBindable() const override { return GetComponentClass() != nullptr; }
	void Bind(UEdGraphNode& Node, bool bIsTemplate) const override;

private:
	TWeakObjectPtr<UClass> ComponentClass;
};
