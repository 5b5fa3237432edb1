#pragma once

#include "CoreMinimal.h"
#include "K2Node.h"

/** The base of nodes that start a task and go on at one of its events. */
class UK2Node_BaseAsyncTask : public UK2Node
{
	EDITOR_CLASS(UK2Node_BaseAsyncTask, UK2Node)

public:
	/** The static function that makes the task; null when it is gone. */
	UFunction* GetFactoryFunction() const;
	void AllocateDefaultPins() override;
	void ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins) override;
	FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	FText GetTooltipText() const override;
	FText GetKeywords() const override;
	FText GetMenuCategory() const override;
	bool IsCompatibleWithGraph(const UEdGraph* Graph) const override;
	bool IsLatentForMacros() const override { return true; }
	void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
	/** Takes factory, task class and activation from a factory function. */
	void InitializeProxyFromFunction(const UFunction* ProxyFunction);

	FName ProxyFactoryFunctionName;
	TSubclassOf<UObject> ProxyFactoryClass;
	TSubclassOf<UObject> ProxyClass;
	FName ProxyActivateFunctionName;

protected:
	/** An entry for each static function that makes an object of a class below the base. */
	void AddFactoryActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar, const UClass* Base) const;
	/** Where menus list tasks whose factory says nothing of it. */
	virtual FText GetDefaultCategory() const;
	/** The way in, the way on at once, and the task itself where its class wants to be seen. */
	virtual void CreateFlowPins();
	/** Exec outputs of the task's events, then the parameters of the first of them. */
	void CreateEventPins();
	void CreateFactoryPins(const UFunction& Function);
	virtual bool IsFactoryParameterHidden(const UFunction& Function, const FProperty& Param) const;
};
