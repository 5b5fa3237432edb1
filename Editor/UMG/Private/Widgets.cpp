#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetTree.h"
#include "Components/ContentWidget.h"
#include "Components/PanelWidget.h"
#include "UMGClasses.h"
#include "UObject/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UVisual, "/Script/UMG", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UWidget, "/Script/UMG", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UPanelSlot, "/Script/UMG", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UPanelWidget, "/Script/UMG", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UContentWidget, "/Script/UMG", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UUserWidget, "/Script/UMG", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UWidgetTree, "/Script/UMG", CLASS_None)

void UVisual::DescribeClass(FClassDescriber&) {}

void UWidget::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("Slot"), &UWidget::Slot, CPF_InstancedReference);
	Class.Property(TEXT("bIsVariable"), &UWidget::bIsVariable);
	Class.Property(TEXT("DisplayLabel"), &UWidget::DisplayLabel);
}

void UPanelSlot::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("Parent"), &UPanelSlot::Parent);
	Class.Property(TEXT("Content"), &UPanelSlot::Content);
}

void UPanelWidget::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("Slots"), &UPanelWidget::Slots, CPF_InstancedReference);
}

void UContentWidget::DescribeClass(FClassDescriber&) {}
void UUserWidget::DescribeClass(FClassDescriber&) {}

void UWidgetTree::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("RootWidget"), &UWidgetTree::RootWidget, CPF_InstancedReference);
}

UPanelWidget* UWidget::GetParent() const
{
	return Slot ? Slot->Parent.Get() : nullptr;
}

void UWidget::RemoveFromParent()
{
	if (UPanelWidget* const Parent = GetParent())
	{
		Parent->RemoveChild(this);
	}
}

UWidget* UPanelWidget::GetChildAt(int32 Index) const
{
	return Slots.IsValidIndex(Index) && Slots[Index] ? Slots[Index]->Content.Get() : nullptr;
}

TArray<UWidget*> UPanelWidget::GetAllChildren() const
{
	TArray<UWidget*> Children;
	for (const UPanelSlot* const Child : Slots)
	{
		Children.Add(Child->Content);
	}
	return Children;
}

int32 UPanelWidget::GetChildIndex(const UWidget* Content) const
{
	return Slots.IndexOfByPredicate(
		[Content](const TObjectPtr<UPanelSlot>& Child) { return Child && Child->Content.Get() == Content; });
}

UPanelSlot* UPanelWidget::AddChild(UWidget* Content)
{
	return InsertChildAt(Slots.Num(), Content);
}

UPanelSlot* UPanelWidget::InsertChildAt(int32 Index, UWidget* Content)
{
	if (!Content || !CanAddMoreChildren())
	{
		return nullptr;
	}
	for (const UWidget* Above = this; Above; Above = Above->GetParent())
	{
		if (Above == Content)
		{
			return nullptr;
		}
	}
	Content->RemoveFromParent();
	UPanelSlot* const NewSlot = NewObject<UPanelSlot>(this, GetSlotClass(), NAME_None, RF_Transactional);
	NewSlot->Parent = this;
	NewSlot->Content = Content;
	Content->Slot = NewSlot;
	Slots.Insert(NewSlot, FMath::Clamp(Index, 0, Slots.Num()));
	return NewSlot;
}

bool UPanelWidget::RemoveChild(UWidget* Content)
{
	const int32 Index = GetChildIndex(Content);
	return Index != INDEX_NONE && RemoveChildAt(Index);
}

bool UPanelWidget::RemoveChildAt(int32 Index)
{
	if (!Slots.IsValidIndex(Index))
	{
		return false;
	}
	UPanelSlot* const Removed = Slots[Index];
	if (Removed->Content)
	{
		Removed->Content->Slot = nullptr;
	}
	Removed->Content = nullptr;
	Removed->Parent = nullptr;
	Slots.RemoveAt(Index);
	Removed->MarkAsGarbage();
	return true;
}

void UPanelWidget::ClearChildren()
{
	for (int32 Index = Slots.Num() - 1; Index >= 0; --Index)
	{
		RemoveChildAt(Index);
	}
}

bool UPanelWidget::CanHaveMultipleChildren() const
{
	return !IsA<UContentWidget>();
}

UClass* UPanelWidget::GetSlotClass() const
{
	for (const UClass* Class = GetClass(); Class && Class != UPanelWidget::StaticClass();
		 Class = Class->GetSuperClass())
	{
		FString Name = Class->GetName();
		// "GridPanel" has "GridSlot", everything else its own name with "Slot" behind.
		for (const FString& SlotName : {Name + TEXT("Slot"), Name.Replace(TEXT("Panel"), TEXT("Slot"))})
		{
			const FString Path = FString::Printf(TEXT("/Script/UMG.%s"), *SlotName);
			UClass* const SlotClass = SlotName.EndsWith(TEXT("Slot")) ? FindObject<UClass>(nullptr, Path) : nullptr;
			if (SlotClass && SlotClass->IsChildOf(UPanelSlot::StaticClass()))
			{
				return SlotClass;
			}
		}
	}
	return UPanelSlot::StaticClass();
}

UWidget* UWidgetTree::ConstructWidget(const UClass* WidgetClass, FName WidgetName)
{
	return WidgetClass && WidgetClass->IsChildOf(UWidget::StaticClass())
		? NewObject<UWidget>(this, WidgetClass, WidgetName, RF_Transactional)
		: nullptr;
}

void UWidgetTree::ForEachWidget(TFunctionRef<void(UWidget*)> Visit) const
{
	TArray<UWidget*> Stack;
	if (RootWidget)
	{
		Stack.Add(RootWidget);
	}
	while (!Stack.IsEmpty())
	{
		UWidget* const Widget = Stack.Pop();
		Visit(Widget);
		if (const UPanelWidget* const Panel = Cast<UPanelWidget>(Widget))
		{
			for (int32 Index = Panel->GetChildrenCount() - 1; Index >= 0; --Index)
			{
				if (UWidget* const Child = Panel->GetChildAt(Index))
				{
					Stack.Add(Child);
				}
			}
		}
	}
}

void UWidgetTree::GetAllWidgets(TArray<UWidget*>& Widgets) const
{
	ForEachWidget([&Widgets](UWidget* Widget) { Widgets.Add(Widget); });
}

UWidget* UWidgetTree::FindWidget(const FName& Name) const
{
	UWidget* Found = nullptr;
	ForEachWidget(
		[&Found, &Name](UWidget* Widget)
		{
			if (!Found && Widget->GetFName() == Name)
			{
				Found = Widget;
			}
		});
	return Found;
}

bool UWidgetTree::RemoveWidget(UWidget* Widget)
{
	if (!Widget)
	{
		return false;
	}
	if (Widget == RootWidget.Get())
	{
		RootWidget = nullptr;
		return true;
	}
	UPanelWidget* const Parent = Widget->GetParent();
	return Parent && Parent->RemoveChild(Widget);
}

UPanelWidget* UWidgetTree::FindWidgetParent(UWidget* Widget, int32& OutChildIndex)
{
	UPanelWidget* const Parent = Widget->GetParent();
	OutChildIndex = Parent ? Parent->GetChildIndex(Widget) : INDEX_NONE;
	return Parent;
}
