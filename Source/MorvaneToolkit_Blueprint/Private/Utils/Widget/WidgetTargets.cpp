#include "Utils/Widget/WidgetTargets.h"

#include "Blueprint/WidgetTree.h"
#include "Components/PanelWidget.h"
#include "JsonReading.h"
#include "ToolResult.h"
#include "Utils/Widget/QuotedValue.h"

namespace WidgetTargets
{
namespace
{
/** One operation's search; an error tells why it found nothing. */
class FSearch
{
public:
	FSearch(UWidgetTree& InTree, const FJsonObject& Operation, Morvane::FToolResult& InResult)
		: Tree(InTree)
		, Result(InResult)
	{
		MorvaneJson::TryGetStringField(Operation, TEXT("name"), Name);
		MorvaneJson::TryGetStringField(Operation, TEXT("named_slot"), Slot);
	}

	bool Find(UWidget* Parent, const UWidget* Moved, FTarget& OutTarget)
	{
		OutTarget.Panel = Cast<UPanelWidget>(Parent);
		const bool bHost = Parent && !OutTarget.Panel && !NamedPlaces::GetNames(*Parent).IsEmpty();
		if (!Slot.IsEmpty() || bHost)
		{
			OutTarget.Place = FindPlace(Parent, Moved);
			return static_cast<bool>(OutTarget.Place);
		}
		return Parent ? CheckPanel(*Parent) : FindDefaultPanel(OutTarget.Panel);
	}

private:
	bool CheckPanel(const UWidget& Parent)
	{
		if (!Parent.IsA<UPanelWidget>())
		{
			Result.AddErrorMessage(
				FString::Printf(TEXT("Parent widget '%s' of class '%s' is no panel and cannot hold children"),
					*Parent.GetName(), *Parent.GetClass()->GetName()));
			return false;
		}
		return true;
	}

	/** The first widget of a tree becomes the root, and those after it go into it. */
	bool FindDefaultPanel(UPanelWidget*& OutPanel)
	{
		OutPanel = Cast<UPanelWidget>(Tree.RootWidget.Get());
		if (!Tree.RootWidget || Name.IsEmpty() || (OutPanel && OutPanel->CanAddMoreChildren()))
		{
			return true;
		}
		Result.AddErrorMessage(FString::Printf(
			TEXT("Widget '%s' has no parent, and the root '%s' has no room for it: name a panel as its parent"),
			*QuotedValue::Shorten(Name), *Tree.RootWidget->GetName()));
		return false;
	}

	/** Without a parent the slot is one that the Blueprints above leave open, which a root would hide. */
	NamedPlaces::FPlace FindPlace(UWidget* Parent, const UWidget* Moved)
	{
		if (!Parent && Tree.RootWidget)
		{
			Result.AddErrorMessage(
				FString::Printf(TEXT("Widget '%s' was not placed: name the parent that has the slot '%s'"),
					*QuotedValue::Shorten(Name), *QuotedValue::Shorten(Slot)));
			return NamedPlaces::FPlace();
		}
		UObject& Host = Parent ? static_cast<UObject&>(*Parent) : Tree;
		return NamedPlaces::Choose(Host, Slot, Name, Moved, Result);
	}

	UWidgetTree& Tree;
	Morvane::FToolResult& Result;
	FString Name;
	FString Slot;
};
} // namespace

bool Find(UWidgetTree& Tree, const FJsonObject& Operation, UWidget* Parent, const UWidget* Moved,
	Morvane::FToolResult& Result, FTarget& OutTarget)
{
	return FSearch(Tree, Operation, Result).Find(Parent, Moved, OutTarget);
}
} // namespace WidgetTargets
