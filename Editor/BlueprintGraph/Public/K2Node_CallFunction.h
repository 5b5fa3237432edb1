#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** An author's word on whether a call has execution pins, against what its function says. */
enum class ENodePurityOverride : uint8
{
	Unset,
	Pure,
	Impure,
};
template <>
UEnum* StaticEnum<ENodePurityOverride>();

/** A call of a function, of self or of a target. */
class UK2Node_CallFunction : public UK2Node
{
	EDITOR_CLASS(UK2Node_CallFunction, UK2Node)

public:
	/** Binds to a function: reference, purity, enabled state. Pins come with AllocateDefaultPins. */
	virtual void SetFromFunction(const UFunction* Function);
	/** The function, looked for in the Blueprint's class when in self context; null when it is gone. */
	UFunction* GetTargetFunction() const;
	FName GetFunctionName() const { return FunctionReference.GetMemberName(); }
	UEdGraphPin* GetReturnValuePin() const;
	/** Pins of a function's parameters, after exec and self pins. */
	virtual bool CreatePinsForFunctionCall(const UFunction* Function);
	virtual void PostParameterPinCreated(UEdGraphPin* Pin) {}
	void CreateExecPinsForFunctionCall(const UFunction* Function);
	UEdGraphPin* CreateSelfPin(const UFunction* Function);
	static UEdGraphPin* CreateSelfPin(UEdGraphNode* Node, const UFunction* Function);
	bool IsLatentFunction() const;
	/** The name for people: DisplayName metadata, else the name without K2_ made readable. */
	static FText GetUserFacingFunctionName(const UFunction* Function);
	static FText GetDefaultCategoryForFunction(const UFunction* Function, const FText& BaseCategory);
	static FText GetKeywordsForFunction(const UFunction* Function);
	static FString GetDefaultTooltipForFunction(const UFunction* Function);
	static FString GetCompactNodeTitle(const UFunction* Function);
	static bool ShouldDrawCompact(const UFunction* Function);
	static bool IsStructureWildcardProperty(const UFunction* InFunction, FName PropertyName);
	static bool IsWildcardProperty(const UFunction* InFunction, const FProperty* InProperty);
	/** The class as the title's "Target is ..." names it. */
	FText GetFunctionContextString() const;

	/** Only a pure function is safe to run more or less often, so only its calls may gain and lose execution pins. */
	bool CanToggleNodePurity() const;
	/** Gives a call of a pure function execution pins, or takes them away again. */
	void ToggleNodePurityOverride();
	/** Called once for each target, a function must change something, finish at once and give nothing back. */
	static bool CanFunctionSupportMultipleTargets(const UFunction* InFunction);

	bool IsNodePure() const override;
	bool IsLatentForMacros() const override { return IsLatentFunction(); }
	bool AllowMultipleSelfs(bool bInputAsArray) const override;
	void HandleFunctionRenamed(UBlueprint* InBlueprint, UClass* InFunctionClass, UEdGraph* InGraph,
		const FName& InOldFuncName, const FName& InNewFuncName) override;
	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	void PostReconstructNode() override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	void PinDefaultValueChanged(UEdGraphPin* Pin) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	FText GetKeywords() const override;
	bool ShouldDrawCompact() const override;
	FText GetCompactNodeTitle() const override;
	bool CanPasteHere(const UEdGraph* TargetGraph) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
	void PostEditImport() override;
	void PostLoad() override;

	/** The parameters that the node does not show: latent info, world context where there is one, and what metadata
	 * names. */
	TSet<FName> GetHiddenParameters(const UFunction* Function) const;

	FMemberReference FunctionReference;
	/** As newer text has it: a call that is pure unless told otherwise. */
	bool bDefaultsToPureFunc = false;
	/** As older text has it; read, and never written. */
	bool bIsPureFunc = false;
	bool bIsConstFunc = false;
	bool bWantsEnumToExecExpansion = false;
	bool bIsInterfaceCall = false;
	bool bIsFinalFunction = false;
	bool bIsBeadFunction = false;
	ENodePurityOverride NodePurityOverride = ENodePurityOverride::Unset;

private:
	/** Purity and function names as versions before wrote them. */
	void TakeOlderForm();
	UEdGraphPin* CreateParameterPin(const UFunction* Function, const FProperty* Param, const TSet<FName>& Hidden);
	/** Exec pins in the place of an enum parameter. Answers whether they take the place of the plain input or output.
	 */
	bool CreateEnumExecPins(const UFunction* Function, EEdGraphPinDirection Direction);
	/** Gives outputs whose type follows a class pin the class that this pin chooses. */
	/** Parameters of whatever struct is linked. */
	void ConformCustomStructures();
	void ConformDynamicOutputs();
	void ConformContainerPins();
};
