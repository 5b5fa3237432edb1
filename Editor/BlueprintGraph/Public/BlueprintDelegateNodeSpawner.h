#pragma once

#include "BlueprintNodeSpawner.h"
#include "CoreMinimal.h"

class FMulticastDelegateProperty;

/** Spawns a node about an event dispatcher: bind, unbind, clear, call or assign. */
class UBlueprintDelegateNodeSpawner : public UBlueprintNodeSpawner
{
	EDITOR_CLASS(UBlueprintDelegateNodeSpawner, UBlueprintNodeSpawner)

public:
	static UBlueprintDelegateNodeSpawner* Create(
		const UClass* NodeClass, const FMulticastDelegateProperty* Property, UObject* Outer = nullptr);
	const FMulticastDelegateProperty* GetDelegateProperty() const;
	bool AnyPin(FPinVisitor Visit) const override;

protected:
	bool IsBindable() const override;
	void Bind(UEdGraphNode& Node, bool bIsTemplate) const override;

private:
	TWeakObjectPtr<UClass> OwnerClass;
	FName PropertyName;
};
