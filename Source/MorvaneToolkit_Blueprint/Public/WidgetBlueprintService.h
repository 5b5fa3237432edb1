#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

namespace Morvane
{
class FToolResult;
}
struct FWidgetChanges;
class UPanelWidget;
class UWidget;
class UWidgetBlueprint;

/** Edits of a Widget Blueprint in memory. What is done stays done when a later step fails. Stateless. */
class MORVANETOOLKIT_BLUEPRINT_API FWidgetBlueprintService
{
public:
	/**
	 * Runs "root_widget" and then the operations of "widgets" in order. The first that fails ends it: false after an
	 * error, and a warning that tells which one it was.
	 */
	static bool ModifyWidgetTree(UWidgetBlueprint* Blueprint, const TSharedPtr<FJsonObject>& Request,
		Morvane::FToolResult& Result, FWidgetChanges& Changes);
	/**
	 * Makes or changes the widget of one record; a new one is placed in the parent, or nowhere when that is null. Null
	 * after an error. bOutStructureChanged (may be null) tells whether the Blueprint's class changes.
	 */
	static UWidget* CreateOrModifyWidget(UWidgetBlueprint* Blueprint, const TSharedPtr<FJsonObject>& Record,
		UPanelWidget* Parent, Morvane::FToolResult& Result, bool* bOutStructureChanged, FWidgetChanges& Changes);
	/**
	 * Moves a widget to a place in a panel; an index outside of its children means the end. What the layout of the old
	 * place and of the new one have in common is kept. False after an error.
	 */
	static bool ReorderWidget(UWidgetBlueprint* Blueprint, const FString& Name, UPanelWidget* NewParent, int32 Index,
		Morvane::FToolResult& Result);
	/**
	 * Gives the widget an event node for each delegate name with the value true. A delegate that fails is a warning.
	 * False when there is no graph for them.
	 */
	static bool CreateWidgetEventNodes(UWidgetBlueprint* Blueprint, const FString& WidgetName,
		const TSharedPtr<FJsonObject>& Events, Morvane::FToolResult& Result, TSet<FString>* OutCreatedEvents);
	/** Adds and removes animations. The first operation that fails ends it: false after an error. */
	static bool ModifyAnimations(
		UWidgetBlueprint* Blueprint, const TArray<TSharedPtr<FJsonValue>>& Operations, Morvane::FToolResult& Result);
};
