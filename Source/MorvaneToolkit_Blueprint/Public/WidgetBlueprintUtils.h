#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

namespace Morvane
{
class FToolResult;
}
class FJsonValue;
class FProperty;
class UBlueprint;
class UClass;
class UEdGraph;
class UEdGraphNode;
class UObject;
class UPanelSlot;
class UPanelWidget;
class UWidget;
class UWidgetBlueprint;

/** Routines on Widget Blueprints and their widgets. */
class MORVANETOOLKIT_BLUEPRINT_API FWidgetBlueprintUtils
{
public:
	// Reading

	/** {"root_widget": node}, or an object without keys when there is no root. Never null. */
	static TSharedPtr<FJsonObject> SerializeWidgetHierarchy(UWidgetBlueprint* Blueprint, bool bLean = false);
	/**
	 * Name, class, is_variable and children of one widget and all below it; null for a null widget. In lean without the
	 * class where the name begins with it, and a child that has only its name is that name.
	 */
	static TSharedPtr<FJsonObject> SerializeWidgetHierarchyNode(
		UWidget* Widget, UWidgetBlueprint* Blueprint, bool bLean = false);
	/** The widget with its parent, slot and properties; null for a null widget. */
	static TSharedPtr<FJsonObject> SerializeWidgetDetails(
		UWidget* Widget, UWidgetBlueprint* Blueprint, bool bLean = false);
	/** Editable properties as text, in lean those that are not as in every new object; null for a null object. */
	static TSharedPtr<FJsonObject> SerializeSlotProperties(UPanelSlot* Slot, bool bLean = false);
	static TSharedPtr<FJsonObject> SerializeWidgetProperties(UWidget* Widget, bool bLean = false);
	/** Whether a widget's variable may have the name; a refusal is a warning of the result. */
	static bool VerifyBlueprintVariableName(UBlueprint* Blueprint, const FString& Name, Morvane::FToolResult& Result);

	// Making

	/**
	 * A widget in the Blueprint's tree, behind the other children of the parent; without a parent it stands nowhere
	 * yet. The class is a class path, a native class's short name or a Widget Blueprint by path or name. Null after an
	 * error in the result: no such widget class, a name that is taken or none, a parent without room, a Blueprint that
	 * would hold itself.
	 */
	static UWidget* CreateWidget(UWidgetBlueprint* Blueprint, const FString& ClassPath, const FString& Name,
		UPanelWidget* Parent, Morvane::FToolResult& Result);
	/**
	 * The event of a widget's delegate in the graph. The widget is known by its variable, so the class is brought up to
	 * date. Null after a message in the result.
	 */
	static UEdGraphNode* CreateComponentBoundEventNode(UEdGraph* Graph, const FString& WidgetName,
		const FString& DelegateName, int32 PosX, int32 PosY, Morvane::FToolResult& Result);

	// Properties by name, "Outer.Inner" for a member of a struct. True when every key was applied; each that was not is
	// a warning of the result and keeps its old value.

	static bool ApplyWidgetProperties(
		UWidget* Widget, const TSharedPtr<FJsonObject>& Properties, Morvane::FToolResult& Result);
	static bool ApplySlotProperties(
		UPanelSlot* Slot, const TSharedPtr<FJsonObject>& Properties, Morvane::FToolResult& Result);
	/** Writes a JSON object into a struct; see the table in WidgetComplexProperties.cpp for the forms that are its own.
	 */
	static bool HandleComplexWidgetProperty(UWidget* Widget, const FProperty* Property,
		const TSharedPtr<FJsonObject>& Value, const FString& Name, Morvane::FToolResult& Result);
	static bool HandleComplexSlotProperty(UPanelSlot* Slot, const FProperty* Property,
		const TSharedPtr<FJsonObject>& Value, const FString& Name, Morvane::FToolResult& Result);
	/** The enumerator for "Center" and the like; any other value as it is. Ignores case. */
	static FString MapAlignmentEnumValue(const FString& PropertyName, const FString& Value);
	/** What an author may set on slots of the class. */
	static TArray<FString> GetValidSlotProperties(const UClass* SlotClass);
	/** Names of the slot classes whose properties were listed already; kept for the life of the process. */
	static TSet<FString>& GetProcessedSlotClasses();
};
