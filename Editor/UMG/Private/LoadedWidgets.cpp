// What panels hold, set right after reading.

#include "LoadedWidgets.h"

#include "Blueprint/WidgetTree.h"
#include "Components/NamedSlotInterface.h"
#include "Components/PanelWidget.h"
#include "NamedSlots.h"
#include "Standalone/LoadedStructure.h"

/** The lists of panels, which are nobody else's to change. */
class FLoadedPanels
{
public:
	static TArray<TObjectPtr<UPanelSlot>>& SlotsOf(UPanelWidget& Panel) { return Panel.Slots; }
};

namespace LoadedWidgets
{
using LoadedStructure::FForest;

/** The ways up follow the lists down, which alone say where a widget stands. */
static void SetWayUp(UPanelWidget& Panel)
{
	for (UPanelSlot* const Slot : FLoadedPanels::SlotsOf(Panel))
	{
		Slot->Parent = &Panel;
		if (Slot->Content)
		{
			Slot->Content->Slot = Slot;
		}
	}
}

static void SetHosts(UObject& Host)
{
	const INamedSlotInterface& Slots = *Cast<INamedSlotInterface>(&Host);
	for (const FName Name : NamedSlots::GetFilled(Slots))
	{
		FSlotHosts::Set(Slots.GetContentForSlot(Name), Host);
	}
}

static bool StandsInItsSlot(const UWidget& Widget)
{
	const UPanelSlot* const Slot = Widget.Slot;
	UPanelWidget* const Panel = Slot ? Slot->Parent.Get() : nullptr;
	return Panel && Slot->Content.Get() == &Widget && FLoadedPanels::SlotsOf(*Panel).Contains(Widget.Slot);
}

class FSettling
{
public:
	explicit FSettling(FFeedbackContext& InWarn)
		: Warn(InWarn)
	{
	}

	void TakeRoot(const UWidgetTree& Tree)
	{
		if (Tree.RootWidget)
		{
			Forest.Adopt(&Tree, Tree.RootWidget.Get());
		}
	}
	void TakeSlots(UPanelWidget& Panel)
	{
		Cut(Panel,
			[&](const UPanelSlot& Slot)
			{
				const UWidget* const Content = Slot.Content;
				return !Forest.Adopt(&Panel, &Slot)
					|| (Content && (Content->GetOutermost() != Panel.GetOutermost() || !Forest.Adopt(&Slot, Content)));
			});
	}
	void TakeHosted(UObject& Host)
	{
		CutHosted(Host,
			[&](const UWidget& Content)
			{ return Content.GetOutermost() != Host.GetOutermost() || !Forest.Adopt(&Host, &Content); });
	}
	void CutDeepHosted(UObject& Host)
	{
		CutHosted(Host, [&](const UWidget& Content) { return Forest.IsTooDeep(&Content); });
	}
	void CutDeep(UPanelWidget& Panel)
	{
		Cut(Panel, [&](const UPanelSlot& Slot) { return Forest.IsTooDeep(&Slot); });
	}

private:
	void Cut(UPanelWidget& Panel, TFunctionRef<bool(const UPanelSlot&)> IsCut)
	{
		FLoadedPanels::SlotsOf(Panel).RemoveAll(
			[&](const TObjectPtr<UPanelSlot>& Slot)
			{
				const bool bCut = !Slot || IsCut(*Slot);
				if (bCut && Slot)
				{
					Warn.Logf(TEXT("'%s' holds '%s', which stands in another place, holds it or is of another asset; "
								   "the slot is left out"),
						*Panel.GetPathName(), Slot->Content ? *Slot->Content->GetName() : *Slot->GetName());
				}
				return bCut;
			});
	}

	void CutHosted(UObject& Host, TFunctionRef<bool(const UWidget&)> IsCut)
	{
		INamedSlotInterface& Slots = *Cast<INamedSlotInterface>(&Host);
		for (const FName Name : NamedSlots::GetFilled(Slots))
		{
			const UWidget* const Content = Slots.GetContentForSlot(Name);
			if (IsCut(*Content))
			{
				Warn.Logf(TEXT("'%s' holds '%s', which stands in another place, holds it or is of another asset; "
							   "the slot is left out"),
					*Host.GetPathName(), *Content->GetName());
				Slots.SetContentForSlot(Name, nullptr);
			}
		}
	}

	FFeedbackContext& Warn;
	FForest Forest;
};

template <class T>
void ForEach(TConstArrayView<UObject*> Objects, TFunctionRef<void(T&)> Visit)
{
	for (UObject* const Object : Objects)
	{
		if (T* const Typed = Cast<T>(Object))
		{
			Visit(*Typed);
		}
	}
}

static void ForEachHost(TConstArrayView<UObject*> Objects, TFunctionRef<void(UObject&)> Visit)
{
	for (UObject* const Object : Objects)
	{
		if (Cast<INamedSlotInterface>(Object))
		{
			Visit(*Object);
		}
	}
}

static void Settle(TConstArrayView<UObject*> Objects, FFeedbackContext& Warn)
{
	FSettling Settling(Warn);
	ForEach<UWidgetTree>(Objects, [&](UWidgetTree& Tree) { Settling.TakeRoot(Tree); });
	ForEach<UPanelWidget>(Objects, [&](UPanelWidget& Panel) { Settling.TakeSlots(Panel); });
	ForEachHost(Objects, [&](UObject& Host) { Settling.TakeHosted(Host); });
	ForEach<UPanelWidget>(Objects, [&](UPanelWidget& Panel) { Settling.CutDeep(Panel); });
	ForEachHost(Objects, [&](UObject& Host) { Settling.CutDeepHosted(Host); });
	ForEach<UPanelWidget>(Objects, [](UPanelWidget& Panel) { SetWayUp(Panel); });
	ForEachHost(Objects, [](UObject& Host) { SetHosts(Host); });
	ForEach<UWidget>(Objects,
		[](UWidget& Widget)
		{
			if (!StandsInItsSlot(Widget))
			{
				Widget.Slot = nullptr;
			}
		});
}
} // namespace LoadedWidgets

void AddWidgetStructureCheck()
{
	LoadedStructure::AddCheck(&LoadedWidgets::Settle);
}
