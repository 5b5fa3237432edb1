#pragma once

#include "CoreMinimal.h"

namespace Morvane
{
class FToolResult;
}
class UPanelWidget;
class UWidget;
class UWidgetTree;
struct FWidgetChanges;

/** Where widgets stand in a tree. */
namespace WidgetPlacement
{
/** Whether the panel has room for one more child, Moved (may be null) not counted. False after an error. */
bool CheckRoom(const UPanelWidget& Parent, const FString& Name, const UWidget* Moved, Morvane::FToolResult& Result);

/** Whether the widget may go into the parent, which is not it and does not stand below it. False after an error. */
bool CheckNotWithin(UWidget& Widget, const UWidget& NewParent, Morvane::FToolResult& Result);

/** Whether what holds the widget can let go of it. False after an error. */
bool CheckLoose(UWidget& Widget, Morvane::FToolResult& Result);

/** Takes the widget from where it stands in its tree, with all below it. */
void TakeOut(UWidget& Widget);

/**
 * Moves the widget to a place in the panel, which has room for it; an index outside of its children means the end. The
 * new place takes over what its layout has in common with that of the old one.
 */
void Move(UWidget& Widget, UPanelWidget& NewParent, int32 Index);

/**
 * Makes the widget the root of the tree. Children of the old root move into it as far as it can hold them; a warning
 * names those that are lost.
 */
void ReplaceRoot(UWidgetTree& Tree, UWidget& NewRoot, Morvane::FToolResult& Result, FWidgetChanges& Changes);

/** The names of the widget and of all below it. */
TArray<FString> NamesFrom(UWidget& Widget);
} // namespace WidgetPlacement
