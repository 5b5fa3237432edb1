#include "Utils/Widget/WidgetPlacement.h"

#include "Blueprint/WidgetTree.h"
#include "Components/PanelSlot.h"
#include "Components/PanelWidget.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Widget/JsonPropertyValue.h"
#include "Utils/Widget/NamedPlaces.h"
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

/** The children of the old root go into the new one as far as it has room. */
void AdoptChildren(const UPanelWidget& OldRoot, UPanelWidget& NewRoot)
{
	for (UWidget* const Child : OldRoot.GetAllChildren())
	{
		if (Child && NewRoot.CanAddMoreChildren())
		{
			Move(*Child, NewRoot, INDEX_NONE);
		}
	}
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

bool CheckNotWithin(UWidget& Widget, const UWidget& NewParent, Morvane::FToolResult& Result)
{
	TArray<UWidget*> Below;
	UWidgetTree::GetChildWidgets(&Widget, Below);
	if (&Widget != &NewParent && !Below.Contains(const_cast<UWidget*>(&NewParent)))
	{
		return true;
	}
	Result.AddErrorMessage(FString::Printf(
		TEXT("Widget '%s' cannot be moved into '%s', which is part of it"), *Widget.GetName(), *NewParent.GetName()));
	return false;
}

bool CheckLoose(UWidget& Widget, Morvane::FToolResult& Result)
{
	UWidgetTree* const Tree = Widget.GetTypedOuter<UWidgetTree>();
	if (Widget.GetParent() || !Tree || Tree->RootWidget.Get() == &Widget || NamedPlaces::FindOf(*Tree, Widget))
	{
		return true;
	}
	Result.AddErrorMessage(FString::Printf(
		TEXT("Widget '%s' cannot be taken from where it stands: what holds it is of a class that is not known"),
		*Widget.GetName()));
	return false;
}

void TakeOut(UWidget& Widget)
{
	UWidgetTree* const Tree = Widget.GetTypedOuter<UWidgetTree>();
	if (Tree && !Tree->RemoveWidget(&Widget))
	{
		NamedPlaces::FindOf(*Tree, Widget).SetContent(nullptr);
	}
}

void Move(UWidget& Widget, UPanelWidget& NewParent, int32 Index)
{
	const UPanelSlot* const OldSlot = Widget.Slot;
	TakeOut(Widget);
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
	TakeOut(NewRoot);
	Tree.RootWidget = &NewRoot;
	if (!OldRoot)
	{
		return;
	}
	Changes.Removed.Add(OldRoot->GetName());
	const UPanelWidget* const OldPanel = Cast<UPanelWidget>(OldRoot);
	UPanelWidget* const NewPanel = Cast<UPanelWidget>(&NewRoot);
	if (OldPanel && NewPanel)
	{
		AdoptChildren(*OldPanel, *NewPanel);
	}
	TArray<FString> Lost = NamesFrom(*OldRoot);
	Lost.RemoveAt(0);
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
	TArray<UWidget*> Below;
	UWidgetTree::GetChildWidgets(&Widget, Below);
	TArray<FString> Names = {Widget.GetName()};
	for (const UWidget* const Each : Below)
	{
		Names.Add(Each->GetName());
	}
	return Names;
}
} // namespace WidgetPlacement
