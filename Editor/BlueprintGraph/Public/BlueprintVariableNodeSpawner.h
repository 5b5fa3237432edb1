#pragma once

#include "BlueprintNodeSpawner.h"
#include "CoreMinimal.h"

class FProperty;
struct FBPVariableDescription;

/** Spawns the read or the write of a variable. */
class UBlueprintVariableNodeSpawner : public UBlueprintNodeSpawner
{
	EDITOR_CLASS(UBlueprintVariableNodeSpawner, UBlueprintNodeSpawner)

public:
	/** NodeClass is that of a variable get or set. */
	static UBlueprintVariableNodeSpawner* CreateFromMemberOrParam(
		const UClass* NodeClass, const FProperty* VarProperty, UObject* Outer = nullptr);
	/** A local variable of the function that the graph is of. */
	static UBlueprintVariableNodeSpawner* CreateFromLocal(
		const UClass* NodeClass, UEdGraph* VarContext, const FBPVariableDescription& VarDesc, UObject* Outer = nullptr);
	/** Found by name each time; null for a local variable or one that is gone. */
	const FProperty* GetVarProperty() const;
	bool IsLocalVariable() const { return !LocalScope.IsEmpty(); }
	bool AnyPin(FPinVisitor Visit) const override;

protected:
	bool IsBindable() const override;
	void Bind(UEdGraphNode& Node, bool bIsTemplate) const override;

private:
	void SetWords(const FString& VariableName, const FText& Category);

	TWeakObjectPtr<UClass> OwnerClass;
	FName VariableName;
	FString LocalScope;
	FGuid LocalGuid;
	FEdGraphPinType LocalType;
};
