#pragma once

#include "CoreMinimal.h"
#include "UObject/Class.h"
#include "UObject/Object.h"

class UEdGraphNode;
class UEdGraphPin;
class UEdGraphSchema;
class FOutputDevice;

enum EEdGraphPinDirection : int
{
	EGPD_Input,
	EGPD_Output,
	EGPD_MAX,
};

enum class EPinContainerType : uint8
{
	None,
	Array,
	Set,
	Map,
};

/** The reference that a pin type makes to a member, for delegates: the signature function. */
struct FSimpleMemberReference
{
	EDITOR_STRUCT(FSimpleMemberReference)

	UObject* GetMemberParentObject() const { return MemberParent; }
	void Reset() { *this = FSimpleMemberReference(); }
	bool operator==(const FSimpleMemberReference& Other) const = default;

	/** A class, or the package for a signature that stands outside classes. */
	UObject* MemberParent = nullptr;
	FName MemberName;
	FGuid MemberGuid;
};

/** The type of one end of a container: the value side of a map. */
struct FEdGraphTerminalType
{
	EDITOR_STRUCT(FEdGraphTerminalType)

	FEdGraphTerminalType() = default;
	static FEdGraphTerminalType FromPinType(const struct FEdGraphPinType& PinType);
	bool operator==(const FEdGraphTerminalType& Other) const;
	/** See FEdGraphPinType::PostImportText. */
	void PostImportText();

	FName TerminalCategory;
	FName TerminalSubCategory;
	TWeakObjectPtr<UObject> TerminalSubCategoryObject;
	uint8 bTerminalIsConst : 1 = false;
	uint8 bTerminalIsWeakPointer : 1 = false;
	uint8 bTerminalIsUObjectWrapper : 1 = false;
};

/** What may flow through a pin. */
struct FEdGraphPinType
{
	EDITOR_STRUCT(FEdGraphPinType)

	FEdGraphPinType() = default;
	FEdGraphPinType(FName InPinCategory, FName InPinSubCategory, UObject* InPinSubCategoryObject,
		EPinContainerType InContainerType, bool bInIsReference, const FEdGraphTerminalType& InValueTerminalType)
		: PinCategory(InPinCategory)
		, PinSubCategory(InPinSubCategory)
		, PinSubCategoryObject(InPinSubCategoryObject)
		, PinValueType(InValueTerminalType)
		, ContainerType(InContainerType)
		, bIsReference(bInIsReference)
	{
	}

	bool IsArray() const { return ContainerType == EPinContainerType::Array; }
	bool IsSet() const { return ContainerType == EPinContainerType::Set; }
	bool IsMap() const { return ContainerType == EPinContainerType::Map; }
	bool IsContainer() const { return ContainerType != EPinContainerType::None; }
	void ResetToDefaults() { *this = FEdGraphPinType(); }
	static FEdGraphPinType GetPinTypeForTerminalType(const FEdGraphTerminalType& TerminalType);
	bool operator==(const FEdGraphPinType& Other) const;
	/** A float of before there were two precisions was the editor's Float, which is a double today. */
	void PostImportText();

	FName PinCategory;
	FName PinSubCategory;
	TWeakObjectPtr<UObject> PinSubCategoryObject;
	FSimpleMemberReference PinSubCategoryMemberReference;
	FEdGraphTerminalType PinValueType;
	EPinContainerType ContainerType = EPinContainerType::None;
	uint8 bIsReference : 1 = false;
	uint8 bIsConst : 1 = false;
	uint8 bIsWeakPointer : 1 = false;
	uint8 bIsUObjectWrapper : 1 = false;
	uint8 bSerializeAsSinglePrecisionFloat : 1 = false;
};

enum EBlueprintPinStyleType : int
{
	BPST_Original,
	BPST_VariantA,
};

/**
 * A pin of a node. No object: the node owns it and destroys it. Links are kept on both ends and are always made and
 * broken in pairs.
 *
 * A node may make its pins anew whenever it hears of a change: of a class chosen, of a link. So a pin that is destroyed
 * stays readable until the collection that follows the tool call, without links and with WasTrashed() set, and whoever
 * holds it across such a change finds its successor through FEdGraphPinReference: pins that are made anew keep their
 * id.
 */
class UEdGraphPin
{
public:
	static UEdGraphPin* CreatePin(UEdGraphNode* InOwningNode);
	~UEdGraphPin();
	UEdGraphPin(const UEdGraphPin&) = delete;
	UEdGraphPin& operator=(const UEdGraphPin&) = delete;

	UEdGraphNode* GetOwningNode() const { return OwningNode; }
	UEdGraphNode* GetOwningNodeUnchecked() const { return OwningNode; }
	const UEdGraphSchema* GetSchema() const;
	FName GetFName() const { return PinName; }
	FString GetName() const { return PinName.ToString(); }
	FText GetDisplayName() const;

	/** Links both ways, asking nobody; a link that stands is kept once. */
	void MakeLinkTo(UEdGraphPin* ToPin);
	void BreakLinkTo(UEdGraphPin* ToPin);
	void BreakAllPinLinks(bool bNotifyNodes = false, bool bIncludeSubPins = false);
	/** Takes the id, the default if an author changed it, and the links, each in its place among its partner's. */
	void MovePersistentDataFromOldPin(UEdGraphPin& SourcePin);
	bool HasAnyConnections() const { return !LinkedTo.IsEmpty(); }
	bool IsLinkedTo(const UEdGraphPin* Other) const { return LinkedTo.Contains(const_cast<UEdGraphPin*>(Other)); }
	bool WasTrashed() const { return bWasTrashed; }
	/** Takes the pin out of all links and relations; it is freed by the next Purge. */
	void MarkAsGarbage();
	/** Frees the pins that were marked; called after each collection of objects, when no tool holds a pin. */
	static void Purge();
	void Modify();

	/** Text of the value: default object path, text or value, whichever the type uses. */
	FString GetDefaultAsString() const;
	bool DoesDefaultValueMatchAutogenerated() const;
	void ResetDefaultValue();
	bool ShouldSavePinIfOrphaned() const { return bSavePinIfOrphaned; }

	/** "(PinId=...,PinName=...,...)" in the form of the clipboard and of saved assets. */
	bool ExportTextItem(FString& ValueStr, int32 PortFlags) const;
	/** Reads that form. Links are kept as node name and pin id until ResolveReferences of the importing code. */
	bool ImportTextItem(const TCHAR*& Buffer, int32 PortFlags, UObject* Parent, FOutputDevice* ErrorText);

	FGuid PinId;
	FName PinName;
	FText PinFriendlyName;
	FString PinToolTip;
	EEdGraphPinDirection Direction = EGPD_Input;
	FEdGraphPinType PinType;
	FString DefaultValue;
	FString AutogeneratedDefaultValue;
	TObjectPtr<UObject> DefaultObject;
	FText DefaultTextValue;
	TArray<UEdGraphPin*> LinkedTo;
	TArray<UEdGraphPin*> SubPins;
	UEdGraphPin* ParentPin = nullptr;
	UEdGraphPin* ReferencePassThroughConnection = nullptr;
	FGuid PersistentGuid;
	int32 SourceIndex = INDEX_NONE;

	uint8 bHidden : 1 = false;
	uint8 bNotConnectable : 1 = false;
	uint8 bDefaultValueIsReadOnly : 1 = false;
	uint8 bDefaultValueIsIgnored : 1 = false;
	uint8 bIsDiffing : 1 = false;
	uint8 bAdvancedView : 1 = false;
	uint8 bDisplayAsMutableRef : 1 = false;
	uint8 bAllowFriendlyName : 1 = true;
	uint8 bOrphanedPin : 1 = false;
	uint8 bSavePinIfOrphaned : 1 = true;
	uint8 bUseBackwardsCompatForEmptyAutogeneratedValue : 1 = false;

	/** A link as text had it, until the pin it names is known. */
	struct FPendingReference
	{
		FString NodeName;
		FGuid PinId;
	};
	struct FPendingReferences
	{
		TArray<FPendingReference> LinkedTo;
		TArray<FPendingReference> SubPins;
		TOptional<FPendingReference> ParentPin;
		TOptional<FPendingReference> PassThrough;
	};
	/** Set by ImportTextItem, taken by whoever resolves; null otherwise. */
	TUniquePtr<FPendingReferences> Pending;

	/** A field of the text that nothing here understands: of another version, or naming something that is missing. */
	struct FKeptField
	{
		FString Key;
		FString Value;
		/** The field's text as this pin would write it right after reading; the kept text stands as long as that does.
		 */
		FString TextAfter;
	};
	/** Written back unchanged. */
	TArray<FKeptField> KeptFields;

private:
	explicit UEdGraphPin(UEdGraphNode* InOwningNode)
		: OwningNode(InOwningNode)
	{
	}

	/** Leaves links, parent, parts and pass-through of both sides. */
	void Detach();

	UEdGraphNode* OwningNode = nullptr;
	bool bWasTrashed = false;
};

/** A handle that reads as null once the pin is gone: owning node and pin id. */
struct FEdGraphPinReference
{
	FEdGraphPinReference() = default;
	FEdGraphPinReference(UEdGraphPin* Pin) { SetPin(Pin); }
	void SetPin(const UEdGraphPin* Pin);
	UEdGraphPin* Get() const;

	TWeakObjectPtr<UEdGraphNode> OwningNode;
	FGuid PinId;
};
