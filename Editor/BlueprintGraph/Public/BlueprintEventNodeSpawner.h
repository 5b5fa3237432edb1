#pragma once

#include "BlueprintNodeSpawner.h"
#include "CoreMinimal.h"

class FObjectProperty;
class FMulticastDelegateProperty;

/** Places the event of a function that Blueprints implement. One event stands once in a Blueprint: a second request
 * gives the first node. */
class UBlueprintEventNodeSpawner : public UBlueprintNodeSpawner
{
	EDITOR_CLASS(UBlueprintEventNodeSpawner, UBlueprintNodeSpawner)

public:
	/** Null for a function that is no event. */
	static UBlueprintEventNodeSpawner* Create(const UFunction* EventFunc, UObject* Outer = nullptr);
	const UFunction* GetEventFunction() const;
	/** The node that implements the event in the graph's Blueprint already, or null. */
	UEdGraphNode* FindPreExistingEvent(UEdGraph* ParentGraph) const;
	const UClass* GetRequiredClass() const override { return EventOwner.Get(); }
	UEdGraphNode* Invoke(UEdGraph* ParentGraph, const FBindingSet& Bindings, const FVector2D Location) const override;
	using UBlueprintNodeSpawner::Invoke;
	bool AnyPin(FPinVisitor Visit) const override;

protected:
	bool IsBindable() const override;
	void Bind(UEdGraphNode& Node, bool bIsTemplate) const override;

private:
	TWeakObjectPtr<UClass> EventOwner;
	FName EventName;
};

/** Places the event of one of the Blueprint's components: its dispatcher, bound from the start. */
class UBlueprintBoundEventNodeSpawner : public UBlueprintNodeSpawner
{
	EDITOR_CLASS(UBlueprintBoundEventNodeSpawner, UBlueprintNodeSpawner)

public:
	static UBlueprintBoundEventNodeSpawner* Create(const FObjectProperty* ComponentProperty,
		const FMulticastDelegateProperty* EventDelegate, UObject* Outer = nullptr);
	UEdGraphNode* FindPreExistingEvent(UEdGraph* ParentGraph) const;
	UEdGraphNode* Invoke(UEdGraph* ParentGraph, const FBindingSet& Bindings, const FVector2D Location) const override;
	using UBlueprintNodeSpawner::Invoke;
	bool AnyPin(FPinVisitor Visit) const override;

protected:
	void Bind(UEdGraphNode& Node, bool bIsTemplate) const override;

private:
	const FMulticastDelegateProperty* FindDelegate() const;

	FName ComponentName;
	TWeakObjectPtr<UClass> DelegateOwner;
	FName DelegateName;
};
