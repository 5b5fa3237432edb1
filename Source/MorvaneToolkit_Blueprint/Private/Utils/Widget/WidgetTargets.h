#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "Utils/Widget/NamedPlaces.h"

class UPanelWidget;

/** Where operations put widgets. */
namespace WidgetTargets
{
/** A panel or a named place; with neither, the widget is to be the root. */
struct FTarget
{
	UPanelWidget* Panel = nullptr;
	NamedPlaces::FPlace Place;
};

/**
 * What the operation puts its widget into, which is Moved, or a new one for null. Parent is the widget that it names;
 * without one the root takes what it has room for. False after an error.
 */
bool Find(UWidgetTree& Tree, const FJsonObject& Operation, UWidget* Parent, const UWidget* Moved,
	Morvane::FToolResult& Result, FTarget& OutTarget);
} // namespace WidgetTargets
