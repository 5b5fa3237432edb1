#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"
#include "UObject/Object.h"

class UEdGraph;
class UEdGraphSchema;
class FCompilerResultsLog;
class INameValidatorInterface;

namespace ENodeTitleType
{
enum Type : int
{
	/** All of it, maybe on several lines. */
	FullTitle,
	/** One line, for lists. */
	ListView,
	EditableTitle,
	/** As in the action menu. */
	MenuTitle,
	MAX_TitleTypes,
};
}

namespace ENodeAdvancedPins
{
enum Type : uint8
{
	NoPins,
	Shown,
	Hidden,
};
}

enum class ENodeEnabledState : uint8
{
	Enabled,
	Disabled,
	DevelopmentOnly,
};

/** What a new pin has beyond its terminal type; UEdGraphNode::FCreatePinParams. */
struct FCreateGraphPinParams
{
	EPinContainerType ContainerType = EPinContainerType::None;
	bool bIsReference = false;
	bool bIsConst = false;
	int32 Index = INDEX_NONE;
	FEdGraphTerminalType ValueTerminalType;
};

/** A node of a graph: where it stands, what it says, and its pins in order. */
class UEdGraphNode : public UObject
{
	EDITOR_CLASS(UEdGraphNode, UObject)

public:
	UEdGraphNode() = default;
	~UEdGraphNode() override;

	/** The graph, or null for a node outside one. */
	UEdGraph* GetGraph() const;
	const UEdGraphSchema* GetSchema() const;

	UEdGraphPin* FindPin(FName PinName, EEdGraphPinDirection Direction = EGPD_MAX) const;
	UEdGraphPin* FindPin(const TCHAR* PinName, EEdGraphPinDirection Direction = EGPD_MAX) const
	{
		return FindPin(FName(PinName), Direction);
	}
	UEdGraphPin* FindPin(const FString& PinName, EEdGraphPinDirection Direction = EGPD_MAX) const
	{
		return FindPin(FName(PinName), Direction);
	}
	UEdGraphPin* FindPinChecked(FName PinName, EEdGraphPinDirection Direction = EGPD_MAX) const;
	UEdGraphPin* FindPinById(const FGuid& PinId) const;
	template <class TPredicate>
	UEdGraphPin* FindPinByPredicate(TPredicate&& Predicate) const
	{
		UEdGraphPin* const* const Found = Pins.FindByPredicate(Predicate);
		return Found ? *Found : nullptr;
	}

	using FCreatePinParams = FCreateGraphPinParams;
	UEdGraphPin* CreatePin(
		EEdGraphPinDirection Dir, const FEdGraphPinType& InPinType, FName PinName, int32 Index = INDEX_NONE);
	UEdGraphPin* CreatePin(EEdGraphPinDirection Dir, FName PinCategory, FName PinName,
		const FCreatePinParams& PinParams = FCreatePinParams());
	UEdGraphPin* CreatePin(EEdGraphPinDirection Dir, FName PinCategory, FName PinSubCategory, FName PinName,
		const FCreatePinParams& PinParams = FCreatePinParams());
	UEdGraphPin* CreatePin(EEdGraphPinDirection Dir, FName PinCategory, UObject* PinSubCategoryObject, FName PinName,
		const FCreatePinParams& PinParams = FCreatePinParams());
	UEdGraphPin* CreatePin(EEdGraphPinDirection Dir, FName PinCategory, FName PinSubCategory,
		UObject* PinSubCategoryObject, FName PinName, const FCreatePinParams& PinParams = FCreatePinParams());
	/** A name no pin of the node has: the base name with a number behind it if need be. */
	FName CreateUniquePinName(FName SourcePinName) const;
	/** Takes the pin and its sub pins out, breaking links. */
	bool RemovePin(UEdGraphPin* Pin);
	void BreakAllNodeLinks();

	void CreateNewGuid();
	/** Breaks links, leaves the graph, becomes garbage. */
	virtual void DestroyNode();

	virtual void AllocateDefaultPins() {}
	/** Makes the pins anew and carries links and defaults over. */
	virtual void ReconstructNode() {}
	virtual void PostPlacedNewNode() {}
	virtual void PrepareForCopying() {}
	virtual void PostPasteNode() {}
	virtual void PinConnectionListChanged(UEdGraphPin* Pin) {}
	virtual void PinDefaultValueChanged(UEdGraphPin* Pin) {}
	virtual void PinTypeChanged(UEdGraphPin* Pin) {}
	virtual void NodeConnectionListChanged() {}
	virtual void AutowireNewNode(UEdGraphPin* FromPin) {}
	virtual void OnRenameNode(const FString& NewName) {}
	virtual TSharedPtr<INameValidatorInterface> MakeNameValidator() const;
	virtual bool CanUserDeleteNode() const { return true; }
	virtual bool CanCreateUnderSpecifiedSchema(const UEdGraphSchema* Schema) const { return true; }
	virtual bool IsCompatibleWithGraph(const UEdGraph* Graph) const { return true; }
	/** Graphs that live below the node: a composite's, a state's. */
	virtual TArray<UEdGraph*> GetSubGraphs() const { return {}; }

	virtual FText GetNodeTitle(ENodeTitleType::Type TitleType) const;
	virtual FText GetTooltipText() const;
	virtual FText GetKeywords() const { return FText(); }
	virtual FText GetMenuCategory() const { return FText(); }
	virtual FText GetPinDisplayName(const UEdGraphPin* Pin) const;
	virtual void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const {}

	bool IsNodeEnabled() const { return EnabledState != ENodeEnabledState::Disabled; }
	ENodeEnabledState GetDesiredEnabledState() const { return EnabledState; }
	void SetEnabledState(ENodeEnabledState NewState, bool bUserAction = true)
	{
		EnabledState = NewState;
		bUserSetEnabledState = bUserAction;
	}
	bool IsAutomaticallyPlacedGhostNode() const
	{
		return !bUserSetEnabledState && EnabledState == ENodeEnabledState::Disabled;
	}
	void MakeAutomaticallyPlacedGhostNode();

	void ExportCustomProperties(FOutputDevice& Out, uint32 Indent) override;
	void ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn) override;
	void PostEditImport() override;
	void PostLoad() override;
	void PostInitProperties() override;
	bool Modify(bool bAlwaysMarkDirty = true) override;
	/**
	 * Turns the links that pins were read with into links to pins of the graph's nodes, found by node name and pin id.
	 * One that names nobody is dropped. For all nodes of a graph (or a pasted set) at once, so that the cost is linear.
	 */
	static void ResolvePinReferences(TConstArrayView<UEdGraphNode*> Nodes);

	TArray<UEdGraphPin*> Pins;
	int32 NodePosX = 0;
	int32 NodePosY = 0;
	int32 NodeWidth = 0;
	int32 NodeHeight = 0;
	ENodeAdvancedPins::Type AdvancedPinDisplay = ENodeAdvancedPins::NoPins;
	ENodeEnabledState EnabledState = ENodeEnabledState::Enabled;
	bool bUserSetEnabledState = false;
	bool bHasCompilerMessage = false;
	bool bCommentBubblePinned = false;
	bool bCommentBubbleVisible = false;
	bool bCanRenameNode = false;
	bool bCanResizeNode = false;
	FString NodeComment;
	/** Severity and text of the last compiler message for this node (EMessageSeverity). */
	int32 ErrorType = 0;
	FString ErrorMsg;
	FGuid NodeGuid;
};

/** The namespace that Blueprint pin and node enums need for reflection. */
template <>
UEnum* StaticEnum<ENodeEnabledState>();
template <>
UEnum* StaticEnum<ENodeAdvancedPins::Type>();
template <>
UEnum* StaticEnum<EEdGraphPinDirection>();
template <>
UEnum* StaticEnum<EPinContainerType>();
