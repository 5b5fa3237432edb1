#pragma once

#include "BlueprintNodeSpawner.h"
#include "CoreMinimal.h"

class UField;

/** Spawns a node about a type: a cast to a class, the making or breaking of a struct. */
class UBlueprintFieldNodeSpawner : public UBlueprintNodeSpawner
{
	EDITOR_CLASS(UBlueprintFieldNodeSpawner, UBlueprintNodeSpawner)

public:
	/** Member is the node's property that holds the type. */
	static UBlueprintFieldNodeSpawner* Create(
		const UClass* NodeClass, UField& Field, FName Member, UObject* Outer = nullptr);
	/** Null when the type is gone. */
	UField* GetField() const { return Field.Get(); }
	bool AnyPin(FPinVisitor Visit) const override;

protected:
	bool IsBindable() const override { return GetField() != nullptr; }
	void Bind(UEdGraphNode& Node, bool bIsTemplate) const override;

private:
	TWeakObjectPtr<UField> Field;
	FName Member;
};
