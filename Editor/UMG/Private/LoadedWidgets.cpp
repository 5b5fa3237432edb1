// What panels hold, set right after reading.

#include "LoadedWidgets.h"

#include "Blueprint/WidgetTree.h"
#include "Components/PanelWidget.h"
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

static void Settle(TConstArrayView<UObject*> Objects, FFeedbackContext& Warn)
{
	FSettling Settling(Warn);
	ForEach<UWidgetTree>(Objects, [&](UWidgetTree& Tree) { Settling.TakeRoot(Tree); });
	ForEach<UPanelWidget>(Objects, [&](UPanelWidget& Panel) { Settling.TakeSlots(Panel); });
	ForEach<UPanelWidget>(Objects, [&](UPanelWidget& Panel) { Settling.CutDeep(Panel); });
	ForEach<UPanelWidget>(Objects, [](UPanelWidget& Panel) { SetWayUp(Panel); });
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
