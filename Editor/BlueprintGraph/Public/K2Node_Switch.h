#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"
#include "K2Node_AddPinInterface.h"

/** The base of the switches: one exec output for each case of the selection. */
class UK2Node_Switch : public UK2Node, public IK2Node_AddPinInterface
{
	EDITOR_CLASS(UK2Node_Switch, UK2Node)

public:
	UEdGraphPin* GetSelectionPin() const;
	UEdGraphPin* GetDefaultPin() const;
	static FName GetSelectionPinName();
	/** A name that no case has yet. */
	virtual FName GetUniquePinName();
	virtual FEdGraphPinType GetPinType() const { return FEdGraphPinType(); }
	virtual void AddPinToSwitchNode();
	virtual void RemovePinFromSwitchNode(UEdGraphPin* TargetPin);
	virtual bool CanRemoveExecutionPin(UEdGraphPin* TargetPin) const;

	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	void AddInputPin() override { AddPinToSwitchNode(); }
	bool CanAddPin() const override { return SupportsAddPinButton(); }
	bool CanRemovePin(const UEdGraphPin* Pin) const override
	{
		return CanRemoveExecutionPin(const_cast<UEdGraphPin*>(Pin));
	}
	void RemoveInputPin(UEdGraphPin* Pin) override { RemovePinFromSwitchNode(Pin); }
	virtual bool SupportsAddPinButton() const { return true; }
	FText GetKeywords() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;

	bool bHasDefaultPin = true;
	FName FunctionName;
	TSubclassOf<UObject> FunctionClass;

protected:
	virtual void CreateSelectionPin() {}
	/** The pins of the named cases; a switch whose cases come from elsewhere makes its own. */
	virtual void CreateCasePins();
	/** Where the switch keeps the names of the cases that an author added; null when cases have no names of their own.
	 */
	virtual TArray<FName>* GetCaseNames() { return nullptr; }
	void CreateFunctionPin();
	/** The comparison that tells the cases apart. */
	void SetFunction(const TCHAR* ClassPath, const TCHAR* Name);
	bool IsCasePin(const UEdGraphPin& Pin) const;
};
