#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraph.h"

class UBlueprint;

enum EGraphType : int
{
	GT_Function,
	GT_Ubergraph,
	GT_Macro,
	GT_Animation,
	GT_StateMachine,
	GT_MAX,
};

enum ECanCreateConnectionResponse : int
{
	CONNECT_RESPONSE_MAKE,
	CONNECT_RESPONSE_DISALLOW,
	CONNECT_RESPONSE_BREAK_OTHERS_A,
	CONNECT_RESPONSE_BREAK_OTHERS_B,
	CONNECT_RESPONSE_BREAK_OTHERS_AB,
	CONNECT_RESPONSE_MAKE_WITH_CONVERSION_NODE,
	CONNECT_RESPONSE_MAKE_WITH_PROMOTION,
	CONNECT_RESPONSE_MAX,
};

/** What the schema says to a wished link, and a sentence for people. */
struct FPinConnectionResponse
{
	FPinConnectionResponse() = default;
	FPinConnectionResponse(ECanCreateConnectionResponse InResponse, FText InMessage)
		: Message(MoveTemp(InMessage))
		, Response(InResponse)
	{
	}
	FPinConnectionResponse(ECanCreateConnectionResponse InResponse, const TCHAR* InMessage)
		: Message(FText::FromString(InMessage))
		, Response(InResponse)
	{
	}
	bool CanSafeConnect() const { return Response == CONNECT_RESPONSE_MAKE; }
	bool IsDisallowed() const { return Response == CONNECT_RESPONSE_DISALLOW; }

	FText Message;
	ECanCreateConnectionResponse Response = CONNECT_RESPONSE_MAKE;
	bool bFatal = false;
};

/** One entry of the action menu. */
struct FEdGraphSchemaAction
{
	static FName StaticGetTypeId()
	{
		static const FName Type(TEXT("FEdGraphSchemaAction"));
		return Type;
	}
	virtual FName GetTypeId() const { return StaticGetTypeId(); }

	FEdGraphSchemaAction() = default;
	FEdGraphSchemaAction(
		FText InNodeCategory, FText InMenuDesc, FText InToolTip, int32 InGrouping, FText InKeywords = FText())
		: Grouping(InGrouping)
		, MenuDescription(MoveTemp(InMenuDesc))
		, TooltipDescription(MoveTemp(InToolTip))
		, Category(MoveTemp(InNodeCategory))
		, Keywords(MoveTemp(InKeywords))
	{
	}
	virtual ~FEdGraphSchemaAction() = default;

	const FText& GetMenuDescription() const { return MenuDescription; }
	const FText& GetCategory() const { return Category; }
	/** Of thousands of entries few are ever pointed at, so an action may word it when first asked. */
	virtual const FText& GetTooltipDescription() const { return TooltipDescription; }
	const FText& GetKeywords() const { return Keywords; }

	/** Makes the action's node at a place, linked from FromPin when there is one; null when it makes none. */
	virtual UEdGraphNode* PerformAction(
		UEdGraph* ParentGraph, UEdGraphPin* FromPin, const FVector2f& Location, bool bSelectNewNode = true)
	{
		return nullptr;
	}

	int32 Grouping = 0;
	FText MenuDescription;
	FText TooltipDescription;
	FText Category;
	FText Keywords;
};

/** An action that duplicates a node it holds. */
struct FEdGraphSchemaAction_NewNode : FEdGraphSchemaAction
{
	static FName StaticGetTypeId()
	{
		static const FName Type(TEXT("FEdGraphSchemaAction_NewNode"));
		return Type;
	}
	FName GetTypeId() const override { return StaticGetTypeId(); }
	using FEdGraphSchemaAction::FEdGraphSchemaAction;
	UEdGraphNode* PerformAction(
		UEdGraph* ParentGraph, UEdGraphPin* FromPin, const FVector2f& Location, bool bSelectNewNode = true) override;

	/** The template; owned by the transient package, alive as long as the process. */
	TObjectPtr<UEdGraphNode> NodeTemplate;
};

/** A list of menu actions, in order. */
class FGraphActionListBuilderBase
{
public:
	virtual ~FGraphActionListBuilderBase() = default;
	virtual void AddAction(const TSharedPtr<FEdGraphSchemaAction>& NewAction, const FString& Category = FString());
	/** Adds the entries of another list behind these; that one is empty afterwards. */
	void Append(FGraphActionListBuilderBase& Other);
	int32 GetNumActions() const { return Entries.Num(); }
	TSharedPtr<FEdGraphSchemaAction> GetSchemaAction(int32 Index) const { return Entries[Index]; }
	void Empty() { Entries.Empty(); }
	const TArray<TSharedPtr<FEdGraphSchemaAction>>& GetEntries() const { return Entries; }

	UObject* OwnerOfTemporaries = nullptr;

protected:
	TArray<TSharedPtr<FEdGraphSchemaAction>> Entries;
};

/** What a graph's own schema adds to: the graph, the pin dragged from, and what is selected. */
struct FGraphContextMenuBuilder : FGraphActionListBuilderBase
{
	explicit FGraphContextMenuBuilder(const UEdGraph* InGraph)
		: CurrentGraph(InGraph)
	{
	}

	const UEdGraph* CurrentGraph = nullptr;
	const UEdGraphPin* FromPin = nullptr;
	TArray<UObject*> SelectedObjects;
};

struct FGraphDisplayInfo
{
	FText PlainName;
	FText DisplayName;
	FText Tooltip;
};

/** The rules of a kind of graph. Stateless: its default object answers. */
class UEdGraphSchema : public UObject
{
	EDITOR_CLASS(UEdGraphSchema, UObject)

public:
	virtual void GetGraphContextActions(FGraphContextMenuBuilder& ContextMenuBuilder) const {}
	virtual const FPinConnectionResponse CanCreateConnection(const UEdGraphPin* A, const UEdGraphPin* B) const
	{
		return FPinConnectionResponse(CONNECT_RESPONSE_MAKE, TEXT("Not implemented by this schema"));
	}
	/** Links when the response allows, breaking others or adding a conversion node as it says. True when something was
	 * linked. */
	virtual bool TryCreateConnection(UEdGraphPin* A, UEdGraphPin* B) const;
	virtual bool CreateAutomaticConversionNodeAndConnections(UEdGraphPin* A, UEdGraphPin* B) const { return false; }
	virtual bool CreatePromotedConnection(UEdGraphPin* A, UEdGraphPin* B) const { return false; }
	/** Empty when the default could be set to this. */
	virtual FString IsPinDefaultValid(const UEdGraphPin* Pin, const FString& NewDefaultValue,
		TObjectPtr<UObject> NewDefaultObject, const FText& InNewDefaultText) const
	{
		return FString();
	}
	FString IsCurrentPinDefaultValid(const UEdGraphPin* Pin) const
	{
		return IsPinDefaultValid(Pin, Pin->DefaultValue, Pin->DefaultObject, Pin->DefaultTextValue);
	}
	virtual void TrySetDefaultValue(
		UEdGraphPin& InPin, const FString& InNewDefaultValue, bool bMarkAsModified = true) const;
	virtual void TrySetDefaultObject(
		UEdGraphPin& InPin, UObject* InNewDefaultObject, bool bMarkAsModified = true) const;
	virtual void TrySetDefaultText(
		UEdGraphPin& InPin, const FText& InNewDefaultText, bool bMarkAsModified = true) const;
	virtual bool DoesDefaultValueMatch(const UEdGraphPin& InPin, const FString& InPinValue) const
	{
		return InPin.DefaultValue.Equals(InPinValue);
	}
	virtual bool DoesDefaultValueMatchAutogenerated(const UEdGraphPin& InPin) const;
	virtual void ResetPinToAutogeneratedDefaultValue(UEdGraphPin* Pin, bool bCallModifyCallbacks = true) const;
	virtual void SetPinAutogeneratedDefaultValue(UEdGraphPin* Pin, const FString& NewValue) const;
	virtual FText GetPinDisplayName(const UEdGraphPin* Pin) const;
	virtual EGraphType GetGraphType(const UEdGraph* TestEdGraph) const { return GT_Function; }
	virtual void CreateDefaultNodesForGraph(UEdGraph& Graph) const {}
	virtual void GetGraphDisplayInformation(const UEdGraph& Graph, FGraphDisplayInfo& DisplayInfo) const;
	virtual void BreakNodeLinks(UEdGraphNode& TargetNode) const;
	virtual void BreakPinLinks(UEdGraphPin& TargetPin, bool bSendsNodeNotification) const;
	virtual void BreakSinglePinLink(UEdGraphPin* SourcePin, UEdGraphPin* TargetPin) const;
	virtual void ReconstructNode(UEdGraphNode& TargetNode, bool bIsBatchRequest = false) const
	{
		TargetNode.ReconstructNode();
	}
	virtual bool TryDeleteGraph(UEdGraph* GraphToDelete) const { return false; }
	virtual bool IsSelfPin(const UEdGraphPin& Pin) const { return false; }
};
