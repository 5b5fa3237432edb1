#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

namespace Morvane
{
class FToolResult;
}
class UBlueprint;
class UObject;
class UPanelSlot;
class UWidget;
class UWidgetBlueprint;

/** Routines on Widget Blueprints and their widgets. */
class FWidgetBlueprintUtils
{
public:
	/** {"root_widget": node}, or an object without keys when there is no root. Never null. */
	static TSharedPtr<FJsonObject> SerializeWidgetHierarchy(UWidgetBlueprint* Blueprint);
	/** Name, class, is_variable and children of one widget and all below it; null for a null widget. */
	static TSharedPtr<FJsonObject> SerializeWidgetHierarchyNode(UWidget* Widget, UWidgetBlueprint* Blueprint);
	/** The widget with its parent, slot and properties; null for a null widget. */
	static TSharedPtr<FJsonObject> SerializeWidgetDetails(UWidget* Widget, UWidgetBlueprint* Blueprint);
	/** Editable properties as text; null for a null object. */
	static TSharedPtr<FJsonObject> SerializeSlotProperties(UPanelSlot* Slot);
	static TSharedPtr<FJsonObject> SerializeWidgetProperties(UWidget* Widget);
	/** Whether a widget's variable may have the name; a refusal is a warning of the result. */
	static bool VerifyBlueprintVariableName(UBlueprint* Blueprint, const FString& Name, Morvane::FToolResult& Result);
};
