#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"
#include "Templates/SubclassOf.h"

/** Asks whether an object is of a class, and gives it as that. */
class UK2Node_DynamicCast : public UK2Node
{
	EDITOR_CLASS(UK2Node_DynamicCast, UK2Node)

public:
	void SetPurity(bool bNewPurity);
	UEdGraphPin* GetCastResultPin() const;
	virtual UEdGraphPin* GetCastSourcePin() const;
	virtual UEdGraphPin* GetBoolSuccessPin() const;
	bool IsNodePure() const override { return bIsPureCast; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	ERedirectType DoPinsMatchForReconstruction(
		const UEdGraphPin* NewPin, int32 NewPinIndex, const UEdGraphPin* OldPin, int32 OldPinIndex) const override;
	void PostPlacedNewNode() override;
	bool IsConnectionDisallowed(
		const UEdGraphPin* MyPin, const UEdGraphPin* OtherPin, FString& OutReason) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	TSubclassOf<UObject> TargetType;
	bool bIsPureCast = false;

protected:
	virtual FText GetCastTypeName() const;
	void CreateExecPins();
	void CreateSuccessPin();
};
