#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphNode.h"
#include "Engine/MemberReference.h"
#include "Templates/SubclassOf.h"

class FBlueprintActionDatabaseRegistrar;
class FKismetCompilerContext;
class UBlueprint;
class UEdGraphSchema_K2;

/** Pins of a split struct, or of a node before it was reconstructed. */
struct FOptionalPinFromProperty
{
	EDITOR_STRUCT(FOptionalPinFromProperty)

	FName PropertyName;
	FString PropertyFriendlyName;
	FText PropertyTooltip;
	FName CategoryName;
	bool bShowPin = false;
	bool bCanToggleVisibility = false;
	bool bPropertyIsCustomized = false;
	bool bHasOverridePin = false;
	bool bIsMarkedForAdvancedDisplay = false;
	bool bIsOverrideEnabled = true;
	bool bIsSetValuePinVisible = true;
	bool bIsOverridePinVisible = true;
};

enum ERenamePinResult
{
	ERenamePinResult_Success,
	ERenamePinResult_NoSuchPin,
	ERenamePinResult_NameCollision,
};

/** A node of a Blueprint graph. */
class UK2Node : public UEdGraphNode
{
	EDITOR_CLASS(UK2Node, UEdGraphNode)

public:
	/** A pure node has no execution pins: it is evaluated by whoever needs its value. */
	virtual bool IsNodePure() const { return false; }
	virtual bool NodeCausesStructuralBlueprintChange() const { return false; }
	virtual bool ShouldDrawCompact() const { return false; }
	virtual FText GetCompactNodeTitle() const { return GetNodeTitle(ENodeTitleType::FullTitle); }
	virtual bool CanSplitPin(const UEdGraphPin* Pin) const;
	virtual bool HasExternalDependencies(TArray<UStruct*>* OptionalOutput = nullptr) const { return false; }
	virtual bool IsConnectionDisallowed(const UEdGraphPin* MyPin, const UEdGraphPin* OtherPin, FString& OutReason) const
	{
		return false;
	}
	/** Whether the target pin takes several links, each an object to call on; bInputAsArray asks about one link that
	 * brings a whole array of them. */
	virtual bool AllowMultipleSelfs(bool bInputAsArray) const { return false; }
	virtual bool CanPasteHere(const UEdGraph* TargetGraph) const { return true; }
	virtual bool DrawNodeAsEntry() const { return false; }
	virtual bool DrawNodeAsExit() const { return false; }
	virtual bool IsLatentForMacros() const { return false; }
	/** Adds what stands in the action menu for the class. */
	virtual void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const {}

	/** The Blueprint of the graph, or null outside one. */
	UBlueprint* GetBlueprint() const;
	/** The class that self means: the skeleton class when it stands, since it knows what was not compiled. */
	UClass* GetBlueprintClassFromNode() const;
	const UEdGraphSchema_K2* GetK2Schema() const;

	UEdGraphPin* GetExecPin() const;
	UEdGraphPin* GetThenPin() const;

	/**
	 * Makes the pins anew. Links and defaults go to new pins of the same name (or the redirected one); an old pin that
	 * is linked or changed and has no successor stays, marked as orphaned, so that nothing is lost in silence.
	 */
	void ReconstructNode() override;
	/** Pins of the class, with the old ones at hand (split pins, wildcards). */
	virtual void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins);
	virtual void PostReconstructNode();

	/** A variable of the class goes by another name now; a reference to it in this node follows, with the pins that
	 * bear its name. With a graph the variable is a local one of that graph's function. */
	virtual void HandleVariableRenamed(UBlueprint* InBlueprint, UClass* InVariableClass, UEdGraph* InGraph,
		const FName& InOldVarName, const FName& InNewVarName)
	{
	}
	/** The same for a function of the class. */
	virtual void HandleFunctionRenamed(UBlueprint* InBlueprint, UClass* InFunctionClass, UEdGraph* InGraph,
		const FName& InOldFuncName, const FName& InNewFuncName)
	{
	}
	/** Whether the node refers to a variable of that name: a member, or with a scope a local one of that function. */
	virtual bool ReferencesVariable(const FName& InVarName, const UStruct* InScope) const { return false; }
	/** Gives the pin of a name, and what it was split into, another name. */
	ERenamePinResult RenameUserDefinedPin(const FName OldName, const FName NewName, bool bTest = false);

	enum ERedirectType
	{
		ERedirectType_None,
		ERedirectType_Name,
		ERedirectType_Value,
		ERedirectType_Custom,
	};
	/** Whether the old pin lives on as the new one. */
	virtual ERedirectType DoPinsMatchForReconstruction(
		const UEdGraphPin* NewPin, int32 NewPinIndex, const UEdGraphPin* OldPin, int32 OldPinIndex) const;
	void RewireOldPinsToNewPins(TArray<UEdGraphPin*>& InOldPins, TArray<UEdGraphPin*>& InNewPins);
	void RestoreSplitPins(TArray<UEdGraphPin*>& OldPins);
	/** Frees pins that belong to the node no longer. */
	void DestroyPinList(TArray<UEdGraphPin*>& InPins);

	void PinConnectionListChanged(UEdGraphPin* Pin) override;
	void PinDefaultValueChanged(UEdGraphPin* Pin) override;
	/** Links the first fitting pin of this node to the pin that a user dragged from. */
	void AutowireNewNode(UEdGraphPin* FromPin) override;
	void PostPlacedNewNode() override;
	bool CanCreateUnderSpecifiedSchema(const UEdGraphSchema* Schema) const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
	/** The pin type of a property, through the schema; false when no pin carries it. */
	UEdGraphPin* CreatePinFromProperty(const FProperty* Property, EEdGraphPinDirection Direction, FName PinName);

	/** The function or property that a member reference means for this node. Own members are looked up in the up to
	 * date class; members of other classes cost no rebuild of it. */
	UFunction* ResolveFunction(const FMemberReference& Reference) const;
	FProperty* ResolveProperty(const FMemberReference& Reference) const;
	/** Whether a member of the class is the Blueprint's own or inherited one. Answered without building a class. */
	bool IsSelfOrParentClass(const UClass* Class) const;

	/** Whether the node is a fixed placeholder of its graph that an author may not remove. */
	bool CanUserDeleteNode() const override;

protected:
	/** Pins like the old ones that have no like among the new, for a node whose function, variable or macro is gone:
	 * nothing is lost until that is back. */
	void KeepOldPins(TArray<UEdGraphPin*>& OldPins);
	/** Breaks links of a pin whose type changed that would not be made now. The pin may be null. */
	void BreakUnfitLinks(UEdGraphPin* Pin);
	/** Links what ran a node before it turned pure to what ran after it. */
	void ReconnectPureExecPins(TArray<UEdGraphPin*>& OldPins);
};
