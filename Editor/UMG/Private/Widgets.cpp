#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetTree.h"
#include "Components/ContentWidget.h"
#include "Components/PanelWidget.h"
#include "NamedSlots.h"
#include "Standalone/NativeClass.h"
#include "Standalone/ObjectText.h"
#include "Standalone/UMGClasses.h"
#include "WidgetBlueprint.h"

IMPLEMENT_EDITOR_CLASS(UVisual, "/Script/UMG", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UWidget, "/Script/UMG", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UPanelSlot, "/Script/UMG", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UPanelWidget, "/Script/UMG", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UContentWidget, "/Script/UMG", CLASS_Abstract)
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

void UWidgetTree::DescribeClass(FClassDescriber& Class)
{
	Class.Implements(UNamedSlotInterface::StaticClass());
	Class.Property(TEXT("RootWidget"), &UWidgetTree::RootWidget, CPF_InstancedReference);
	Class.Property(TEXT("NamedSlotBindings"), &UWidgetTree::NamedSlotBindings);
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

bool UPanelWidget::StandsIn(const UWidget* Content) const
{
	const UWidget* Above = this;
	while (Above && Above != Content)
	{
		Above = Above->GetParent();
	}
	return Above != nullptr;
}

UPanelSlot* UPanelWidget::AddChild(UWidget* Content)
{
	return InsertChildAt(Slots.Num(), Content);
}

UPanelSlot* UPanelWidget::InsertChildAt(int32 Index, UWidget* Content)
{
	if (!Content || !CanAddMoreChildren() || StandsIn(Content))
	{
		return nullptr;
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
	if (!WidgetClass || !WidgetClass->IsChildOf(UWidget::StaticClass())
		|| WidgetClass->HasAnyClassFlags(CLASS_Abstract))
	{
		return nullptr;
	}
	FName Name = WidgetName;
	if (UObject* const Occupant = Name.IsNone() ? nullptr : StaticFindObjectFast(nullptr, this, Name))
	{
		// A widget that was taken out of the tree gives its name up; one that stands in it keeps it.
		const UWidget* const Widget = Cast<UWidget>(Occupant);
		const FName OtherName = MakeUniqueObjectName(this, WidgetClass, Name);
		if (Widget && !Contains(*Widget))
		{
			Occupant->Rename(*OtherName.ToString(), nullptr);
		}
		else
		{
			Name = OtherName;
		}
	}
	return NewObject<UWidget>(this, WidgetClass, Name, RF_Transactional);
}

bool UWidgetTree::Contains(const UWidget& Widget) const
{
	const UWidget* Top = &Widget;
	const UObject* Above = &Widget;
	while (const UWidget* const Next = Cast<UWidget>(Above))
	{
		Top = Next;
		Above = Top->GetParent() ? Top->GetParent() : FSlotHosts::Get(*Top);
	}
	bool bFound = Top == RootWidget.Get() || Above == this;
	if (!bFound)
	{
		ForEachWidget([&bFound, Top](const UWidget* Other) { bFound |= Other == Top; });
	}
	return bFound;
}

void UWidgetTree::PreSave()
{
	Super::PreSave();
	TArray<UObject*> Inner;
	GetObjectsWithOuter(this, Inner, false);
	TSet<const UObject*> Standing;
	ForEachWidget([&Standing](const UWidget* Widget) { Standing.Add(Widget); });
	for (UObject* const Object : Inner)
	{
		if (Object->IsA<UWidget>() && !Standing.Contains(Object))
		{
			Object->MarkAsGarbage();
		}
	}
}

TArray<UWidget*> UWidgetTree::FindHosted(const UWidget& Widget)
{
	TArray<UWidget*> Hosted;
	if (const INamedSlotInterface* const Host = Cast<INamedSlotInterface>(&Widget))
	{
		for (const FName Name : NamedSlots::GetFilled(*Host))
		{
			Hosted.Add(Host->GetContentForSlot(Name));
		}
	}
	UWidgetTree* const Tree = Cast<UWidgetTree>(Widget.GetOuter());
	const FKeptObjectText* const Kept = Tree ? FKeptObjectText::Find(&Widget) : nullptr;
	if (!Kept || Kept->Lines.empty())
	{
		return Hosted;
	}
	const std::string Below = ToUtf8(Tree->GetPathName()) + ".";
	for (const std::string& Line : Kept->Lines)
	{
		for (std::size_t At = Line.find(Below); At != std::string::npos; At = Line.find(Below, At + 1))
		{
			const std::size_t Start = At + Below.size();
			const std::string Name = Line.substr(Start, Line.find_first_of("'\".:)", Start) - Start);
			UWidget* const Other = Cast<UWidget>(StaticFindObjectFast(nullptr, Tree, FName(FromUtf8(Name))));
			if (Other && Other != &Widget && Other != Tree->RootWidget.Get() && !Other->GetParent())
			{
				Hosted.AddUnique(Other);
			}
		}
	}
	return Hosted;
}

void UWidgetTree::Walk(UWidget* Top, TFunctionRef<void(UWidget*)> Visit)
{
	TArray<UWidget*> Stack = {Top};
	// A hosted widget may be named by several, and by what stands below it.
	TSet<const UWidget*> Hosted;
	while (!Stack.IsEmpty())
	{
		UWidget* const Widget = Stack.Pop();
		Visit(Widget);
		const TArray<UWidget*> InSlots = FindHosted(*Widget);
		for (int32 Index = InSlots.Num() - 1; Index >= 0; --Index)
		{
			if (InSlots[Index] != Top && !Hosted.Contains(InSlots[Index]))
			{
				Hosted.Add(InSlots[Index]);
				Stack.Add(InSlots[Index]);
			}
		}
		const UPanelWidget* const Panel = Cast<UPanelWidget>(Widget);
		for (int32 Index = Panel ? Panel->GetChildrenCount() - 1 : INDEX_NONE; Index >= 0; --Index)
		{
			if (UWidget* const Child = Panel->GetChildAt(Index))
			{
				Stack.Add(Child);
			}
		}
	}
}

void UWidgetTree::ForEachWidget(TFunctionRef<void(UWidget*)> Visit) const
{
	if (RootWidget)
	{
		Walk(RootWidget, Visit);
	}
	for (const FName Name : NamedSlots::GetFilled(*this))
	{
		Walk(GetContentForSlot(Name), Visit);
	}
}

void UWidgetTree::GetSlotNames(TArray<FName>& SlotNames) const
{
	const UWidgetBlueprint* const Blueprint = GetTypedOuter<UWidgetBlueprint>();
	NamedSlots::AddOfClass(Blueprint ? Blueprint->ParentClass.Get() : nullptr, SlotNames);
	for (const auto& Pair : NamedSlotBindings)
	{
		SlotNames.AddUnique(Pair.Key);
	}
}

UWidget* UWidgetTree::GetContentForSlot(FName SlotName) const
{
	const TObjectPtr<UWidget>* const Content = NamedSlotBindings.Find(SlotName);
	return Content ? Content->Get() : nullptr;
}

void UWidgetTree::SetContentForSlot(FName SlotName, UWidget* Content)
{
	FSlotHosts::Set(Content, *this);
	if (Content)
	{
		NamedSlotBindings.Add(SlotName, Content);
	}
	else
	{
		NamedSlotBindings.Remove(SlotName);
	}
}

void UWidgetTree::GetChildWidgets(UWidget* Parent, TArray<UWidget*>& Widgets)
{
	if (Parent)
	{
		Walk(Parent,
			[&](UWidget* Widget)
			{
				if (Widget != Parent)
				{
					Widgets.Add(Widget);
				}
			});
	}
}

void UWidgetTree::GetAllWidgets(TArray<UWidget*>& Widgets) const
{
	ForEachWidget([&Widgets](UWidget* Widget) { Widgets.Add(Widget); });
}

UWidget* UWidgetTree::FindWidget(const FName& Name) const
{
	// All widgets that the tree makes are its own, so that most are known by name without a walk.
	UWidget* const Own = Cast<UWidget>(StaticFindObjectFast(nullptr, const_cast<UWidgetTree*>(this), Name));
	if (Own && Contains(*Own))
	{
		return Own;
	}
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
