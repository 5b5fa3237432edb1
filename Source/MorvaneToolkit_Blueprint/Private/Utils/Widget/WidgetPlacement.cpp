#include "Utils/Widget/WidgetPlacement.h"

#include "Blueprint/WidgetTree.h"
#include "Components/PanelSlot.h"
#include "Components/PanelWidget.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Widget/JsonPropertyValue.h"
#include "Utils/Widget/WidgetChanges.h"

namespace WidgetPlacement
{
namespace
{
/** Members of the same name and type that an author may set. */
void CopyLayout(const UPanelSlot& From, UPanelSlot& To)
{
	for (TFieldIterator<FProperty> It(To.GetClass(), EFieldIteratorFlags::IncludeSuper); It; ++It)
	{
		const FProperty* const Source = JsonPropertyValue::IsEditable(**It)
			? From.GetClass()->FindPropertyByName(It->GetFName())
			: nullptr;
		if (Source && Source->SameType(*It))
		{
			It->CopyCompleteValue(It->ContainerPtrToValuePtr<void>(&To), Source->ContainerPtrToValuePtr<void>(&From));
		}
	}
}

/** Where the children of the old root go; what finds no place is answered. */
TArray<FString> AdoptChildren(UPanelWidget& OldRoot, UPanelWidget* NewRoot)
{
	TArray<FString> Lost;
	for (UWidget* const Child : OldRoot.GetAllChildren())
	{
		if (!Child)
		{
			continue;
		}
		if (NewRoot && NewRoot->CanAddMoreChildren())
		{
			Move(*Child, *NewRoot, INDEX_NONE);
		}
		else
		{
			Lost.Append(NamesFrom(*Child));
		}
	}
	return Lost;
}
} // namespace

bool CheckRoom(const UPanelWidget& Parent, const FString& Name, const UWidget* Moved, Morvane::FToolResult& Result)
{
	if (Parent.CanAddMoreChildren() || (Moved && Moved->GetParent() == &Parent))
	{
		return true;
	}
	const UWidget* const Held = Parent.GetChildAt(0);
	Result.AddErrorMessage(FString::Printf(
		TEXT(
			"Widget '%s' cannot be placed in '%s' of class '%s', which holds one child and has '%s'. Give it a panel as its child, or remove that one first."),
		*Name, *Parent.GetName(), *Parent.GetClass()->GetName(), Held ? *Held->GetName() : TEXT("None")));
	return false;
}

void Move(UWidget& Widget, UPanelWidget& NewParent, int32 Index)
{
	const UPanelSlot* const OldSlot = Widget.Slot;
	if (UPanelWidget* const OldParent = Widget.GetParent())
	{
		OldParent->RemoveChild(&Widget);
	}
	const bool bInside = Index >= 0 && Index < NewParent.GetChildrenCount();
	UPanelSlot* const NewSlot = bInside ? NewParent.InsertChildAt(Index, &Widget) : NewParent.AddChild(&Widget);
	if (OldSlot && NewSlot)
	{
		CopyLayout(*OldSlot, *NewSlot);
	}
}

void ReplaceRoot(UWidgetTree& Tree, UWidget& NewRoot, Morvane::FToolResult& Result, FWidgetChanges& Changes)
{
	UWidget* const OldRoot = Tree.RootWidget;
	if (OldRoot == &NewRoot)
	{
		return;
	}
	NewRoot.RemoveFromParent();
	Tree.RootWidget = &NewRoot;
	if (!OldRoot)
	{
		return;
	}
	Changes.Removed.Add(OldRoot->GetName());
	UPanelWidget* const OldPanel = Cast<UPanelWidget>(OldRoot);
	const TArray<FString> Lost = OldPanel ? AdoptChildren(*OldPanel, Cast<UPanelWidget>(&NewRoot)) : TArray<FString>();
	if (!Lost.IsEmpty())
	{
		Changes.Removed.Append(Lost);
		Result.AddWarningMessage(FString::Printf(
			TEXT("The new root '%s' of class '%s' cannot hold all that the old root '%s' held. Lost: %s"),
			*NewRoot.GetName(), *NewRoot.GetClass()->GetName(), *OldRoot->GetName(), *FString::Join(Lost, TEXT(", "))));
	}
}

TArray<FString> NamesFrom(UWidget& Widget)
{
	TArray<FString> Names;
	TArray<UWidget*> Stack = {&Widget};
	while (!Stack.IsEmpty())
	{
		UWidget* const Next = Stack.Pop();
		Names.Add(Next->GetName());
		const UPanelWidget* const Panel = Cast<UPanelWidget>(Next);
		for (int32 Index = Panel ? Panel->GetChildrenCount() - 1 : -1; Index >= 0; --Index)
		{
			if (UWidget* const Child = Panel->GetChildAt(Index))
			{
				Stack.Add(Child);
			}
		}
	}
	return Names;
}
} // namespace WidgetPlacement
