#pragma once

#include "CoreMinimal.h"
#include "K2Node_Variable.h"

/** The base of nodes about the members of a struct. */
class UK2Node_StructOperation : public UK2Node_Variable
{
	EDITOR_CLASS(UK2Node_StructOperation, UK2Node_Variable)

public:
	bool HasExternalDependencies(TArray<UStruct*>* OptionalOutput = nullptr) const override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	ERedirectType DoPinsMatchForReconstruction(
		const UEdGraphPin* NewPin, int32 NewPinIndex, const UEdGraphPin* OldPin, int32 OldPinIndex) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
	FText GetMenuCategory() const override;

	/** Members in order, and which of them have a pin. */
	TArray<FOptionalPinFromProperty> ShowPinForProperties;
	TObjectPtr<UScriptStruct> StructType;

protected:
	/** Brings the list up to date with the struct: what an author hid stays hidden. */
	void RebuildPropertyList();
	virtual bool IsMemberUsable(const FProperty& Property) const { return false; }
	/** Whether a member that the node did not know yet gets a pin. */
	virtual bool IsMemberShownAtFirst() const { return true; }
	/** Pins for the shown members, behind those that are there. */
	void CreateMemberPins(EEdGraphPinDirection Direction);
	/** With many members all but the first two fold away. */
	void FoldManyMembers();
	/** A member's default as pins spell it; empty when the member starts with zero. */
	FString GetMemberDefault(const FProperty& Property) const;
	FString GetStructDisplayName() const;
};
