#pragma once

#include "BlueprintNodeSpawner.h"
#include "CoreMinimal.h"

/** Spawns the call of a function, as the node class that fits it (array, operator, material collection, ... calls have
 * their own). */
class UBlueprintFunctionNodeSpawner : public UBlueprintNodeSpawner
{
	EDITOR_CLASS(UBlueprintFunctionNodeSpawner, UBlueprintNodeSpawner)

public:
	/** Null for a null function or one that graphs may not call. */
	static UBlueprintFunctionNodeSpawner* Create(const UFunction* Function, UObject* Outer = nullptr);
	static UBlueprintFunctionNodeSpawner* Create(
		TSubclassOf<UEdGraphNode> NodeClass, const UFunction* Function, UObject* Outer = nullptr);
	/** The node class that a call of the function has. */
	static UClass* GetNodeClassForFunction(const UFunction* Function);
	/** "Utilities|Flow Control": the category as menus show it, each part made readable. */
	static FText GetMenuCategory(const UFunction* Function);
	/**
	 * Found by name each time, as the class of a Blueprint is built anew with every change; null when it is gone.
	 */
	const UFunction* GetFunction() const;
	bool AnyPin(FPinVisitor Visit) const override;

protected:
	bool IsBindable() const override;
	void Bind(UEdGraphNode& Node, bool bIsTemplate) const override;

private:
	TWeakObjectPtr<UClass> FunctionOwner;
	FName FunctionName;
};
