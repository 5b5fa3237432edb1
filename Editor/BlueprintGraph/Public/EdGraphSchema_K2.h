#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphSchema.h"
#include "UObject/Script.h"

class UBlueprint;
class UK2Node;

/** Metadata keys that graphs read. */
struct FBlueprintMetadata
{
	static const FName MD_AllowableBlueprintVariableType;
	static const FName MD_NotAllowableBlueprintVariableType;
	static const FName MD_BlueprintSpawnableComponent;
	static const FName MD_IsBlueprintBase;
	static const FName MD_RestrictedToClasses;
	static const FName MD_ShowHiddenSelfPins;
	static const FName MD_ShowWorldContextPin;
	static const FName MD_Protected;
	static const FName MD_Latent;
	static const FName MD_CustomThunk;
	static const FName MD_Variadic;
	static const FName MD_UnsafeForConstructionScripts;
	static const FName MD_FunctionCategory;
	static const FName MD_DefaultToSelf;
	static const FName MD_WorldContext;
	static const FName MD_CallableWithoutWorldContext;
	static const FName MD_AutoCreateRefTerm;
	static const FName MD_HideAssetPicker;
	static const FName MD_ExposeOnSpawn;
	static const FName MD_PropertyGetFunction;
	static const FName MD_PropertySetFunction;
	static const FName MD_InternalUseParam;
	static const FName MD_DeprecatedFunction;
	static const FName MD_DeprecationMessage;
	static const FName MD_ArrayParam;
	static const FName MD_ArrayDependentParam;
	static const FName MD_SetParam;
	static const FName MD_MapParam;
	static const FName MD_MapKeyParam;
	static const FName MD_MapValueParam;
	static const FName MD_CommutativeAssociativeBinaryOperator;
	static const FName MD_CustomStructureParam;
	static const FName MD_DynamicOutputType;
	static const FName MD_DynamicOutputParam;
	static const FName MD_CompactNodeTitle;
	static const FName MD_DisplayName;
	static const FName MD_ToolTip;
	static const FName MD_Tooltip;
	static const FName MD_Private;
	static const FName MD_BlueprintInternalUseOnly;
	static const FName MD_BlueprintType;
	static const FName MD_NotBlueprintType;
	static const FName MD_AllowPrivateAccess;
	static const FName MD_FunctionKeywords;
	static const FName MD_ExpandEnumAsExecs;
	static const FName MD_ExpandBoolAsExecs;
	static const FName MD_AdvancedDisplay;
	static const FName MD_HidePin;
	static const FName MD_HasDedicatedAsyncNode;
	static const FName MD_NativeMakeFunction;
	static const FName MD_NativeBreakFunction;
	static const FName MD_Keywords;
};

/** The rules of Blueprint graphs. */
class UEdGraphSchema_K2 : public UEdGraphSchema
{
	EDITOR_CLASS(UEdGraphSchema_K2, UEdGraphSchema)

public:
	static const FName PC_Exec;
	static const FName PC_Boolean;
	static const FName PC_Byte;
	static const FName PC_Class;
	static const FName PC_SoftClass;
	static const FName PC_Int;
	static const FName PC_Int64;
	static const FName PC_Float;
	static const FName PC_Double;
	static const FName PC_Real;
	static const FName PC_Name;
	static const FName PC_Delegate;
	static const FName PC_MCDelegate;
	static const FName PC_Object;
	static const FName PC_Interface;
	static const FName PC_SoftObject;
	static const FName PC_String;
	static const FName PC_Text;
	static const FName PC_Struct;
	static const FName PC_Wildcard;
	static const FName PC_FieldPath;
	static const FName PC_Enum;

	static const FName PSC_Self;
	static const FName PSC_Index;
	static const FName PSC_Bitmask;

	static const FName PN_Execute;
	static const FName PN_Then;
	static const FName PN_Completed;
	static const FName PN_DelegateEntry;
	static const FName PN_EntryPoint;
	static const FName PN_Self;
	static const FName PN_Else;
	static const FName PN_Loop;
	static const FName PN_After;
	static const FName PN_ReturnValue;
	static const FName PN_ObjectToCast;
	static const FName PN_Condition;
	static const FName PN_Start;
	static const FName PN_Stop;
	static const FName PN_Delay;
	static const FName PN_Index;
	static const FName PN_Item;
	static const FName PN_CastSucceeded;
	static const FName PN_CastFailed;
	static const FName PN_CastedValuePrefix;
	static const FName PN_MatineeFinished;

	static const FName FN_UserConstructionScript;
	static const FName FN_ExecuteUbergraphBase;
	static const FName GN_EventGraph;
	static const FName GN_AnimGraph;
	static const FText VR_DefaultCategory;

	// The general schema.
	void GetGraphContextActions(FGraphContextMenuBuilder& ContextMenuBuilder) const override;
	const FPinConnectionResponse CanCreateConnection(const UEdGraphPin* A, const UEdGraphPin* B) const override;
	bool TryCreateConnection(UEdGraphPin* A, UEdGraphPin* B) const override;
	bool CreateAutomaticConversionNodeAndConnections(UEdGraphPin* A, UEdGraphPin* B) const override;
	bool CreatePromotedConnection(UEdGraphPin* A, UEdGraphPin* B) const override;
	FString IsPinDefaultValid(const UEdGraphPin* Pin, const FString& NewDefaultValue,
		TObjectPtr<UObject> NewDefaultObject, const FText& InNewDefaultText) const override;
	void TrySetDefaultValue(
		UEdGraphPin& InPin, const FString& InNewDefaultValue, bool bMarkAsModified = true) const override;
	void TrySetDefaultObject(
		UEdGraphPin& InPin, UObject* InNewDefaultObject, bool bMarkAsModified = true) const override;
	void TrySetDefaultText(
		UEdGraphPin& InPin, const FText& InNewDefaultText, bool bMarkAsModified = true) const override;
	bool DoesDefaultValueMatch(const UEdGraphPin& InPin, const FString& InPinValue) const override;
	bool DoesDefaultValueMatchAutogenerated(const UEdGraphPin& InPin) const override;
	void ResetPinToAutogeneratedDefaultValue(UEdGraphPin* Pin, bool bCallModifyCallbacks = true) const override;
	void SetPinAutogeneratedDefaultValue(UEdGraphPin* Pin, const FString& NewValue) const override;
	FText GetPinDisplayName(const UEdGraphPin* Pin) const override;
	EGraphType GetGraphType(const UEdGraph* TestEdGraph) const override;
	void CreateDefaultNodesForGraph(UEdGraph& Graph) const override;
	void GetGraphDisplayInformation(const UEdGraph& Graph, FGraphDisplayInfo& DisplayInfo) const override;
	void BreakPinLinks(UEdGraphPin& TargetPin, bool bSendsNodeNotification) const override;
	void BreakSinglePinLink(UEdGraphPin* SourcePin, UEdGraphPin* TargetPin) const override;
	bool TryDeleteGraph(UEdGraph* GraphToDelete) const override;
	bool IsSelfPin(const UEdGraphPin& Pin) const override;

	// Pins.
	/** Whether the function that the pin belongs to makes something to refer to where nothing is wired in. */
	static bool IsAutoCreateRefTerm(const UEdGraphPin* Pin);
	static bool IsExecPin(const UEdGraphPin& Pin) { return Pin.PinType.PinCategory == PC_Exec; }
	/** Output to input of fitting type; a direction clash is told apart. */
	bool ArePinsCompatible(const UEdGraphPin* PinA, const UEdGraphPin* PinB, const UClass* CallingContext = nullptr,
		bool bIgnoreArray = false) const;
	bool ArePinTypesCompatible(const FEdGraphPinType& Output, const FEdGraphPinType& Input,
		const UClass* CallingContext = nullptr, bool bIgnoreArray = false) const;
	/** Sorts the two by direction; false when both face the same way. */
	static bool CategorizePinsByDirection(
		const UEdGraphPin* PinA, const UEdGraphPin* PinB, const UEdGraphPin*& InputPin, const UEdGraphPin*& OutputPin);
	template <class TPin>
	static bool CategorizePinsByDirection(TPin* PinA, TPin* PinB, TPin*& InputPin, TPin*& OutputPin);
	static bool ConvertPropertyToPinTypeStatic(const FProperty* Property, FEdGraphPinType& TypeOut);
	bool ConvertPropertyToPinType(const FProperty* Property, FEdGraphPinType& TypeOut) const
	{
		return ConvertPropertyToPinTypeStatic(Property, TypeOut);
	}
	/** "Integer", "Array of Vectors", "Actor Object Reference". */
	static FText TypeToText(const FEdGraphPinType& Type);
	static FText TypeToText(const FProperty* Property);
	static FText TerminalTypeToText(FName Category, FName SubCategory, UObject* SubCategoryObject, bool bIsWeakPtr);
	static FText GetCategoryText(FName Category, FName SubCategory = NAME_None, bool bForMenu = false);
	/** Gives a pin the default its type or its parameter starts with. */
	void SetPinDefaultValueAtConstruction(UEdGraphPin* Pin, const FString& DefaultValueString) const;
	void SetPinAutogeneratedDefaultValueBasedOnType(UEdGraphPin* Pin) const;
	bool DefaultValueSimpleValidation(const FEdGraphPinType& PinType, const FName PinName,
		const FString& NewDefaultValue, TObjectPtr<UObject> NewDefaultObject, const FText& InText,
		FString* OutMsg = nullptr) const;
	/** Splits a default text into value, object or text as the type stores it. */
	void GetPinDefaultValuesFromString(const FEdGraphPinType& PinType, UObject* OwningObject,
		const FString& NewDefaultValue, FString& UseDefaultValue, TObjectPtr<UObject>& UseDefaultObject,
		FText& UseDefaultText, bool bPreserveTextIdentity = true) const;
	bool FindFunctionParameterDefaultValue(const UFunction* Function, const FProperty* Param, FString& OutString) const;
	static bool IsPropertyExposedOnSpawn(const FProperty* Property);
	bool PinHasSplittableStructType(const UEdGraphPin* InGraphPin) const;
	bool CanSplitStructPin(const UEdGraphPin& Pin) const;
	bool CanRecombineStructPin(const UEdGraphPin& Pin) const;
	void SplitPin(UEdGraphPin* Pin, bool bNotify = true) const;
	void RecombinePin(UEdGraphPin* Pin) const;
	bool SearchForAutocastFunction(const FEdGraphPinType& OutputPinType, const FEdGraphPinType& InputPinType,
		FName& TargetFunction, UClass*& FunctionOwner) const;
	/** A node that converts between the types, not yet in a graph's lists; null when there is none. */
	bool FindSpecializedConversionNode(const FEdGraphPinType& OutputPinType, const UEdGraphPin& InputPin,
		bool bCreateNode, UK2Node*& TargetNode) const;
	static UEdGraphPin* FindSelfPin(const UEdGraphNode& Node, EEdGraphPinDirection Dir);
	static UEdGraphPin* FindExecutionPin(const UEdGraphNode& Node, EEdGraphPinDirection Dir);

	// Functions and classes.
	static bool FunctionCanBePlacedAsEvent(const UFunction* InFunction);
	static bool FunctionCanBeUsedInDelegate(const UFunction* InFunction);
	static bool CanKismetOverrideFunction(const UFunction* Function);
	static bool CanUserKismetCallFunction(const UFunction* Function);
	static bool HasFunctionAnyOutputParameter(const UFunction* Function);
	static FText GetFriendlySignatureName(const UFunction* Function);
	static bool IsAllowableBlueprintVariableType(const UClass* InClass, bool bAssumeBlueprintType = false);
	static bool IsAllowableBlueprintVariableType(const UScriptStruct* InStruct, bool bForInternalUse = false);
	static bool IsAllowableBlueprintVariableType(const UEnum* InEnum);
	static bool IsConstructionScript(const UEdGraph* TestEdGraph);
	bool DoesGraphSupportImpureFunctions(const UEdGraph* InGraph) const;
	/** Adds to the flags of the graph's entry node. */
	void AddExtraFunctionFlags(const UEdGraph* CurrentGraph, int32 ExtraFlags) const;
	void ClearExtraFunctionFlags(const UEdGraph* CurrentGraph, int32 ExtraFlags) const;
	/** Makes the entry node (and result) take author's pins, or not. */
	void MarkFunctionEntryAsEditable(const UEdGraph* CurrentGraph, bool bNewEditable) const;
	void CreateFunctionGraphTerminators(UEdGraph& Graph, UClass* Class) const;
	void CreateFunctionGraphTerminators(UEdGraph& Graph, const UFunction* FunctionSignature) const;
	void CreateMacroGraphTerminators(UEdGraph& Graph, UClass* Class) const;

	/** Height of a node that has not been drawn: title and the taller side's pins. */
	static float EstimateNodeHeight(UEdGraphNode* Node);
};

template <class TPin>
bool UEdGraphSchema_K2::CategorizePinsByDirection(TPin* PinA, TPin* PinB, TPin*& InputPin, TPin*& OutputPin)
{
	InputPin = PinA->Direction == EGPD_Input ? PinA : (PinB->Direction == EGPD_Input ? PinB : nullptr);
	OutputPin = PinA->Direction == EGPD_Output ? PinA : (PinB->Direction == EGPD_Output ? PinB : nullptr);
	return InputPin && OutputPin;
}
