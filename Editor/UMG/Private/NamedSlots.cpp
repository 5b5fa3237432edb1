#include "NamedSlots.h"

#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetTree.h"
#include "Components/ExpandableArea.h"
#include "Components/NamedSlot.h"
#include "Standalone/NativeClass.h"
#include "WidgetBlueprint.h"

IMPLEMENT_EDITOR_CLASS(UNamedSlotInterface, "/Script/UMG", CLASS_Abstract | CLASS_Interface)
IMPLEMENT_EDITOR_CLASS(UNamedSlot, "/Script/UMG", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UExpandableArea, "/Script/UMG", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UUserWidget, "/Script/UMG", CLASS_None)
IMPLEMENT_EDITOR_STRUCT(FNamedSlotBinding, "/Script/UMG")

namespace NamedSlots
{
static FName Header()
{
	return FName(TEXT("Header"));
}

static FName Body()
{
	return FName(TEXT("Body"));
}
} // namespace NamedSlots

void UNamedSlotInterface::DescribeClass(FClassDescriber&) {}
void UNamedSlot::DescribeClass(FClassDescriber&) {}

void UExpandableArea::DescribeClass(FClassDescriber& Class)
{
	Class.Implements(UNamedSlotInterface::StaticClass());
	Class.Property(TEXT("HeaderContent"), &UExpandableArea::HeaderContent);
	Class.Property(TEXT("BodyContent"), &UExpandableArea::BodyContent);
}

void FNamedSlotBinding::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("Name"), &FNamedSlotBinding::Name);
	Struct.Property(TEXT("Content"), &FNamedSlotBinding::Content);
}

void UUserWidget::DescribeClass(FClassDescriber& Class)
{
	Class.Implements(UNamedSlotInterface::StaticClass());
	Class.Property(TEXT("NamedSlotBindings"), &UUserWidget::NamedSlotBindings);
}

void FSlotHosts::Set(UWidget* Content, UObject& Host)
{
	if (Content)
	{
		Content->Host = &Host;
	}
}

UObject* FSlotHosts::Get(const UWidget& Content)
{
	UObject* const Host = Content.Host.Get();
	const INamedSlotInterface* const Slots = Cast<INamedSlotInterface>(Host);
	const bool bHolds = Slots
		&& NamedSlots::GetFilled(*Slots).ContainsByPredicate(
			[&](FName Name) { return Slots->GetContentForSlot(Name) == &Content; });
	return bHolds ? Host : nullptr;
}

bool INamedSlotInterface::ContainsContent(UWidget* Content) const
{
	TArray<FName> Names;
	GetSlotNames(Names);
	return Names.ContainsByPredicate([this, Content](FName Name) { return GetContentForSlot(Name) == Content; });
}

void UExpandableArea::GetSlotNames(TArray<FName>& SlotNames) const
{
	SlotNames.Add(NamedSlots::Header());
	SlotNames.Add(NamedSlots::Body());
}

UWidget* UExpandableArea::GetContentForSlot(FName SlotName) const
{
	return SlotName == NamedSlots::Header() ? HeaderContent.Get()
		: SlotName == NamedSlots::Body()	? BodyContent.Get()
											: nullptr;
}

void UExpandableArea::SetContentForSlot(FName SlotName, UWidget* Content)
{
	FSlotHosts::Set(Content, *this);
	if (SlotName == NamedSlots::Header())
	{
		HeaderContent = Content;
	}
	else if (SlotName == NamedSlots::Body())
	{
		BodyContent = Content;
	}
}

void UUserWidget::GetSlotNames(TArray<FName>& SlotNames) const
{
	NamedSlots::AddOfClass(GetClass(), SlotNames);
}

UWidget* UUserWidget::GetContentForSlot(FName SlotName) const
{
	const FNamedSlotBinding* const Binding = NamedSlotBindings.FindByPredicate(
		[SlotName](const FNamedSlotBinding& Each) { return Each.Name == SlotName; });
	return Binding ? Binding->Content.Get() : nullptr;
}

void UUserWidget::SetContentForSlot(FName SlotName, UWidget* Content)
{
	FSlotHosts::Set(Content, *this);
	FNamedSlotBinding* const Binding = NamedSlotBindings.FindByPredicate(
		[SlotName](const FNamedSlotBinding& Each) { return Each.Name == SlotName; });
	if (Binding && Content)
	{
		Binding->Content = Content;
	}
	else if (Content)
	{
		NamedSlotBindings.Add({SlotName, Content});
	}
	else
	{
		NamedSlotBindings.RemoveAll([SlotName](const FNamedSlotBinding& Each) { return Each.Name == SlotName; });
	}
}

void NamedSlots::AddOfClass(const UClass* Class, TArray<FName>& OutNames)
{
	for (; Class; Class = Class->GetSuperClass())
	{
		const UWidgetBlueprint* const Blueprint = Cast<UWidgetBlueprint>(UBlueprint::GetBlueprintFromClass(Class));
		if (Blueprint)
		{
			Blueprint->ForEachSourceWidget(
				[&OutNames](const UWidget* Widget)
				{
					if (Widget->IsA<UNamedSlot>())
					{
						OutNames.AddUnique(Widget->GetFName());
					}
				});
		}
	}
}

TArray<FName> NamedSlots::GetFilled(const INamedSlotInterface& Host)
{
	TArray<FName> Names;
	if (const UUserWidget* const UserWidget = Cast<UUserWidget>(&Host))
	{
		for (const FNamedSlotBinding& Binding : UserWidget->NamedSlotBindings)
		{
			Names.Add(Binding.Name);
		}
	}
	else if (const UWidgetTree* const Tree = Cast<UWidgetTree>(&Host))
	{
		Tree->NamedSlotBindings.GetKeys(Names);
	}
	else
	{
		Host.GetSlotNames(Names);
	}
	Names.RemoveAll([&Host](FName Name) { return !Host.GetContentForSlot(Name); });
	return Names;
}
