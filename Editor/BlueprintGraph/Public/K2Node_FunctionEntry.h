#pragma once

#include "CoreMinimal.h"
#include "Engine/Blueprint.h"
#include "K2Node_FunctionTerminator.h"

/** Where a function starts: its parameters, flags, metadata and local variables. */
class UK2Node_FunctionEntry : public UK2Node_FunctionTerminator
{
	EDITOR_CLASS(UK2Node_FunctionEntry, UK2Node_FunctionTerminator)

public:
	int32 GetExtraFlags() const { return ExtraFlags; }
	void SetExtraFlags(int32 NewFlags) { ExtraFlags = NewFlags; }
	void AddExtraFlags(int32 Flags) { ExtraFlags |= Flags; }
	void ClearExtraFlags(int32 Flags) { ExtraFlags &= ~Flags; }
	/** Flags of the function that the graph makes: those of the signature it overrides and the extra ones. */
	int32 GetFunctionFlags() const;
	/** The hidden pin by which a function of a library knows the world of its caller; null for any other function. */
	UEdGraphPin* GetAutoWorldContextPin() const;

	bool DrawNodeAsEntry() const override { return true; }
	void HandleFunctionRenamed(UBlueprint* InBlueprint, UClass* InFunctionClass, UEdGraph* InGraph,
		const FName& InOldFuncName, const FName& InNewFuncName) override;
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	void PostReconstructNode() override;
	bool ModifyUserDefinedPinDefaultValue(TSharedPtr<FUserPinInfo> PinInfo, const FString& NewDefaultValue) override;
	bool ShouldUseConstRefParams() const override;

	FName CustomGeneratedFunctionName;
	FKismetUserDeclaredFunctionMetadata MetaData;
	TArray<FBPVariableDescription> LocalVariables;
	bool bEnforceConstCorrectness = true;
	int32 ExtraFlags = 0;

protected:
	UEdGraphPin* CreatePinFromUserDefinitionInternal(const TSharedPtr<FUserPinInfo> NewPinInfo) override;
};
