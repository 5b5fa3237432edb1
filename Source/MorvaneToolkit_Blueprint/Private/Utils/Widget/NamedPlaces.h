#pragma once

#include "CoreMinimal.h"

namespace Morvane
{
class FToolResult;
}
class UObject;
class UWidget;
class UWidgetTree;

/** Places that are no panels' slots: the header of an area, the open slots of a user widget, those of a parent's tree.
 */
namespace NamedPlaces
{
struct FPlace
{
	explicit operator bool() const { return Host != nullptr; }
	UWidget* GetContent() const;
	void SetContent(UWidget* Content) const;

	/** A widget, or the tree for what the Blueprints above leave open. */
	UObject* Host = nullptr;
	FName Slot;
};

/** The names of the host's places; none for what is no host. */
TArray<FName> GetNames(UObject& Host);

/** Where the widget stands; empty for one in a panel, for a root, and for one whose host keeps its places to itself. */
FPlace FindOf(UWidgetTree& Tree, const UWidget& Widget);

/**
 * The host's place of the name, with room for the widget; a host that has one place needs no name. Moved may be null.
 * Empty after an error.
 */
FPlace Choose(
	UObject& Host, const FString& Slot, const FString& WidgetName, const UWidget* Moved, Morvane::FToolResult& Result);
} // namespace NamedPlaces
