#pragma once

#include "CoreMinimal.h"
#include "BlueprintNodeSpawner.h"

/** Spawns the call of a function, as the node class that fits it (array, operator, material collection, ... calls have their own). */
class UBlueprintFunctionNodeSpawner : public UBlueprintNodeSpawner
{
	EDITOR_CLASS(UBlueprintFunctionNodeSpawner, UBlueprintNodeSpawner)

public:
	/** Null for a null function or one that graphs may not call. */
	static UBlueprintFunctionNodeSpawner* Create(const UFunction* Function, UObject* Outer = nullptr);
	static UBlueprintFunctionNodeSpawner* Create(TSubclassOf<UEdGraphNode> NodeClass, const UFunction* Function, UObject* Outer = nullptr);
	/** The node class that a call of the function has. */
	static UClass* GetNodeClassForFunction(const UFunction* Function);
	const UFunction* GetFunction() const { return Function; }
	UEdGraphNode* Invoke(UEdGraph* ParentGraph, const FBindingSet& Bindings, const FVector2D Location) const override;
	FBlueprintActionUiSpec GetUiSpec() const override;
	using UBlueprintNodeSpawner::Invoke;

private:
	const UFunction* Function = nullptr;
};
