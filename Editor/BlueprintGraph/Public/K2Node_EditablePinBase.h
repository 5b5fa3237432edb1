#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** A pin that an author gave a node. */
struct FUserPinInfo
{
	EDITOR_STRUCT(FUserPinInfo)

	FName PinName;
	FEdGraphPinType PinType;
	EEdGraphPinDirection DesiredPinDirection = EGPD_Input;
	FString PinDefaultValue;

	/** What it was read from, when that names something that is missing. Written back as long as it exports TextAfter.
	 */
	FString KeptText;
	FString TextAfter;
};

/** Metadata that an author gives a function: what the details panel shows. */
struct FKismetUserDeclaredFunctionMetadata
{
	EDITOR_STRUCT(FKismetUserDeclaredFunctionMetadata)

	void SetMetaData(FName Key, const FString& Value) { MetaDataMap.Add(Key, Value); }
	bool HasMetaData(FName Key) const { return MetaDataMap.Contains(Key); }

	FText ToolTip;
	FText Category;
	FText Keywords;
	FText CompactNodeTitle;
	FLinearColor InstanceTitleColor = FLinearColor(1.0f, 1.0f, 1.0f, 1.0f);
	FString DeprecationMessage;
	bool bIsDeprecated = false;
	bool bCallInEditor = false;
	bool bThreadSafe = false;
	bool bIsUnsafeDuringActorConstruction = false;
	TMap<FName, FString> MetaDataMap;
};

/** A node whose pins an author may add to: function entry and result, custom events, tunnels, math expressions. */
class UK2Node_EditablePinBase : public UK2Node
{
	EDITOR_CLASS(UK2Node_EditablePinBase, UK2Node)

public:
	virtual bool ShouldUseConstRefParams() const { return false; }
	/** Whether a pin of the type may be made; a refusal is told in OutErrorMessage. */
	virtual bool CanCreateUserDefinedPin(
		const FEdGraphPinType& InPinType, EEdGraphPinDirection InDesiredDirection, FText& OutErrorMessage)
	{
		return true;
	}
	/** Adds a pin, asking nobody; with bUseUniqueName the name gets a number when taken. Which way the pin faces is the
	 * node's to say: an entry's always face out. */
	UEdGraphPin* CreateUserDefinedPin(FName InPinName, const FEdGraphPinType& InPinType,
		EEdGraphPinDirection InDesiredDirection, bool bUseUniqueName = true);
	void RemoveUserDefinedPinByName(FName PinName);
	bool UserDefinedPinExists(FName PinName) const;
	virtual bool ModifyUserDefinedPinDefaultValue(TSharedPtr<FUserPinInfo> PinInfo, const FString& NewDefaultValue);
	virtual UEdGraphPin* CreatePinFromUserDefinition(const TSharedPtr<FUserPinInfo> NewPinInfo);
	static FKismetUserDeclaredFunctionMetadata* GetGraphFunctionMetaData(const UEdGraph* InGraph);
	/** Whether an author may change the pins. */
	virtual bool IsEditable() const { return bIsEditable; }
	/** Pins for the parameters of a signature: of the entry those that come in, of a result those that go out. False
	 * when one has no pin type. */
	bool CreatePinsForFunctionEntryExit(const UFunction* Function, bool bForFunctionEntry);

	void AllocateDefaultPins() override;
	void PinDefaultValueChanged(UEdGraphPin* Pin) override;
	void ExportCustomProperties(FOutputDevice& Out, uint32 Indent) override;
	void ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn) override;

	bool bIsEditable = false;
	TArray<TSharedPtr<FUserPinInfo>> UserDefinedPins;

protected:
	virtual UEdGraphPin* CreatePinFromUserDefinitionInternal(const TSharedPtr<FUserPinInfo> NewPinInfo);
};
