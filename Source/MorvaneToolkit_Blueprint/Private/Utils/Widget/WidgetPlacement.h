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
