#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

enum ESelfContextInfo : uint8
{
	Unspecified,
	NotSelfContext,
};

/** The base of variable get and set. */
class UK2Node_Variable : public UK2Node
{
	EDITOR_CLASS(UK2Node_Variable, UK2Node)

public:
	void SetFromProperty(const FProperty* Property, bool bSelfContext, UClass* OwnerClass);
	FName GetVarName() const { return VariableReference.GetMemberName(); }
	FString GetVarNameString() const { return GetVarName().ToString(); }
	/** The pin of the value: named after the variable. */
	UEdGraphPin* GetValuePin() const;
	UClass* GetVariableSourceClass() const;
	/** The property, in the skeleton class or the external one; null when it is gone. */
	FProperty* GetPropertyForVariable() const;
	void CreatePinForSelf();
	bool CreatePinForVariable(EEdGraphPinDirection Direction, FName InPinName = NAME_None);

	void HandleVariableRenamed(UBlueprint* InBlueprint, UClass* InVariableClass, UEdGraph* InGraph,
		const FName& InOldVarName, const FName& InNewVarName) override;
	void HandleFunctionRenamed(UBlueprint* InBlueprint, UClass* InFunctionClass, UEdGraph* InGraph,
		const FName& InOldFuncName, const FName& InNewFuncName) override;
	bool ReferencesVariable(const FName& InVarName, const UStruct* InScope) const override;
	ERedirectType DoPinsMatchForReconstruction(
		const UEdGraphPin* NewPin, int32 NewPinIndex, const UEdGraphPin* OldPin, int32 OldPinIndex) const override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
	bool CanPasteHere(const UEdGraph* TargetGraph) const override;
	FText GetMenuCategory() const override;
	FText GetKeywords() const override { return FText(); }

	FMemberReference VariableReference;
	ESelfContextInfo SelfContextInfo = Unspecified;
};

template <>
UEnum* StaticEnum<ESelfContextInfo>();
