#include "Utils/Widget/NamedPlaces.h"

#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetTree.h"
#include "Components/NamedSlotInterface.h"
#include "Engine/Blueprint.h"
#include "ToolResult.h"
#include "Utils/Widget/QuotedValue.h"

namespace NamedPlaces
{
namespace
{
FString JoinNames(const TArray<FName>& Names)
{
	TArray<FString> Texts;
	for (const FName Name : Names)
	{
		Texts.Add(Name.ToString());
	}
	return Texts.IsEmpty() ? FString(TEXT("none")) : FString::Join(Texts, TEXT(", "));
}

/** "'Area' of class 'ExpandableArea'"; a tree is shown by its Blueprint. */
FString Describe(const UObject& Host)
{
	const UBlueprint* const Blueprint = Host.IsA<UWidget>() ? nullptr : Host.GetTypedOuter<UBlueprint>();
	return FString::Printf(TEXT("'%s' of class '%s'"), Blueprint ? *Blueprint->GetName() : *Host.GetName(),
		Blueprint ? *Blueprint->GetClass()->GetName() : *Host.GetClass()->GetName());
}

/** Also those that a user widget's class has lost since they were filled. */
TArray<FName> GetNamesInUse(UObject& Host)
{
	TArray<FName> Names = GetNames(Host);
	if (const UUserWidget* const UserWidget = Cast<UUserWidget>(&Host))
	{
		for (const FNamedSlotBinding& Binding : UserWidget->NamedSlotBindings)
		{
			Names.AddUnique(Binding.Name);
		}
	}
	return Names;
}

/** The name that is meant; none after an error. */
FName ChooseName(UObject& Host, const FString& Slot, const FString& WidgetName, Morvane::FToolResult& Result)
{
	const TArray<FName> Names = GetNames(Host);
	if (Slot.IsEmpty())
	{
		if (Names.Num() != 1)
		{
			Result.AddErrorMessage(FString::Printf(
				TEXT("Widget '%s' was not placed: %s holds widgets in named slots. Give named_slot, one of: %s"),
				*QuotedValue::Shorten(WidgetName), *Describe(Host), *JoinNames(Names)));
		}
		return Names.Num() == 1 ? Names[0] : NAME_None;
	}
	const FName* const Found = Names.FindByPredicate(
		[&Slot](FName Name) { return Name.ToString().Equals(Slot, ESearchCase::IgnoreCase); });
	if (!Found)
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("Widget '%s' was not placed: %s has no named slot '%s'. It has: %s"),
				*QuotedValue::Shorten(WidgetName), *Describe(Host), *QuotedValue::Shorten(Slot), *JoinNames(Names)));
	}
	return Found ? *Found : FName(NAME_None);
}
} // namespace

UWidget* FPlace::GetContent() const
{
	const INamedSlotInterface* const Slots = Cast<INamedSlotInterface>(Host);
	return Slots ? Slots->GetContentForSlot(Slot) : nullptr;
}

void FPlace::SetContent(UWidget* Content) const
{
	if (INamedSlotInterface* const Slots = Cast<INamedSlotInterface>(Host))
	{
		Host->Modify();
		Slots->SetContentForSlot(Slot, Content);
	}
}

TArray<FName> GetNames(UObject& Host)
{
	TArray<FName> Names;
	if (const INamedSlotInterface* const Slots = Cast<INamedSlotInterface>(&Host))
	{
		Slots->GetSlotNames(Names);
	}
	return Names;
}

FPlace FindOf(UWidgetTree& Tree, const UWidget& Widget)
{
	if (Widget.GetParent() || Tree.RootWidget.Get() == &Widget)
	{
		return FPlace();
	}
	TArray<UWidget*> Widgets;
	Tree.GetAllWidgets(Widgets);
	TArray<UObject*> Hosts = {&Tree};
	for (UWidget* const Candidate : Widgets)
	{
		Hosts.Add(Candidate);
	}
	for (UObject* const Host : Hosts)
	{
		for (const FName Name : GetNamesInUse(*Host))
		{
			const FPlace Place{Host, Name};
			if (Place.GetContent() == &Widget)
			{
				return Place;
			}
		}
	}
	return FPlace();
}

FPlace Choose(
	UObject& Host, const FString& Slot, const FString& WidgetName, const UWidget* Moved, Morvane::FToolResult& Result)
{
	const FPlace Place{&Host, ChooseName(Host, Slot, WidgetName, Result)};
	if (Place.Slot.IsNone())
	{
		return FPlace();
	}
	const UWidget* const Held = Place.GetContent();
	if (Held && Held != Moved)
	{
		Result.AddErrorMessage(FString::Printf(
			TEXT(
				"Widget '%s' cannot be placed in the slot '%s' of %s, which holds one widget and has '%s'. Give it a panel, or remove that one first."),
			*QuotedValue::Shorten(WidgetName), *Place.Slot.ToString(), *Describe(Host), *Held->GetName()));
		return FPlace();
	}
	return Place;
}
} // namespace NamedPlaces
