#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** A subsystem of the game, by its class. */
class UK2Node_GetSubsystem : public UK2Node
{
	EDITOR_CLASS(UK2Node_GetSubsystem, UK2Node)

public:
	void Initialize(UClass* NodeClass) { CustomClass = TSubclassOf<UObject>(NodeClass); }
	UEdGraphPin* GetClassPin() const;
	UEdGraphPin* GetResultPin() const;

	bool IsNodePure() const override { return true; }
	void AllocateDefaultPins() override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetMenuCategory() const override;
	void GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const override;
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;

	TSubclassOf<UObject> CustomClass;

protected:
	/** The classes whose subsystems the node class gives, as paths. */
	virtual TArray<const TCHAR*> GetBaseClassPaths() const;
	virtual bool NeedsWorldContext() const;
	virtual void CreateOwnPins() {}
	virtual const TCHAR* GetCategoryWord() const;
};

/** A subsystem of a player, reached through the player's controller. */
class UK2Node_GetSubsystemFromPC : public UK2Node_GetSubsystem
{
	EDITOR_CLASS(UK2Node_GetSubsystemFromPC, UK2Node_GetSubsystem)

protected:
	TArray<const TCHAR*> GetBaseClassPaths() const override;
	bool NeedsWorldContext() const override { return false; }
	void CreateOwnPins() override;
	const TCHAR* GetCategoryWord() const override;
};

/** A subsystem of the engine. */
class UK2Node_GetEngineSubsystem : public UK2Node_GetSubsystem
{
	EDITOR_CLASS(UK2Node_GetEngineSubsystem, UK2Node_GetSubsystem)

protected:
	TArray<const TCHAR*> GetBaseClassPaths() const override;
	bool NeedsWorldContext() const override { return false; }
	const TCHAR* GetCategoryWord() const override;
};

/** A subsystem of the editor. */
class UK2Node_GetEditorSubsystem : public UK2Node_GetSubsystem
{
	EDITOR_CLASS(UK2Node_GetEditorSubsystem, UK2Node_GetSubsystem)

protected:
	TArray<const TCHAR*> GetBaseClassPaths() const override;
	bool NeedsWorldContext() const override { return false; }
	const TCHAR* GetCategoryWord() const override;
};
