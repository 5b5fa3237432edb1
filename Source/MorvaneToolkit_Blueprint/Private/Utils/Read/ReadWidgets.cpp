// A Widget Blueprint's tree as JSON: the skeleton of all widgets, details of those that are asked for.

#include "WidgetBlueprintUtils.h"

#include <cwctype>

#include "Blueprint/WidgetTree.h"
#include "Components/PanelSlot.h"
#include "Components/PanelWidget.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Read/ReadDetail.h"
#include "Utils/Read/ReadItems.h"
#include "Utils/Read/ReadUnresolved.h"
#include "Utils/Widget/NamedPlaces.h"
#include "WidgetBlueprint.h"

namespace ReadWidgets
{
/** Every editable property that has a text, whatever its type, by name; in lean those that somebody set. */
static TSharedPtr<FJsonObject> ExportProperties(UObject& Object, bool bLean)
{
	const TSharedPtr<FJsonObject> Properties = MakeShared<FJsonObject>();
	const UObject* const Default = Object.GetClass()->GetDefaultObject();
	for (TFieldIterator<FProperty> It(Object.GetClass(), EFieldIteratorFlags::IncludeSuper); It; ++It)
	{
		if (It->HasAnyPropertyFlags(CPF_Transient | CPF_Deprecated) || !It->HasAnyPropertyFlags(CPF_Edit))
		{
			continue;
		}
		// The slot is shown beside the properties, by its own.
		if (bLean && (It->Identical_InContainer(&Object, Default) || It->GetFName() == TEXT("Slot")))
		{
			continue;
		}
		// Against itself as the default: a value tells all of its members, and none is left out for being zero. A lean
		// one of some length tells those that are not as in a new widget.
		FString Text;
		const void* const Value = It->ContainerPtrToValuePtr<void>(&Object);
		if (bLean)
		{
			Text = ReadDetail::GetValue(Object, **It, true);
		}
		else
		{
			It->ExportText_Direct(Text, Value, Value, &Object, PPF_None);
		}
		if (!Text.IsEmpty())
		{
			Properties->SetStringField(It->GetName(), Text);
		}
	}
	return Properties;
}

/** As the editor names a widget that nobody has named: "TextBlock", "TextBlock_4". */
static bool IsNamedByClass(const UWidget& Widget)
{
	const FString Name = Widget.GetName();
	const FString Class = Widget.GetClass()->GetName();
	return Name.Equals(Class, ESearchCase::CaseSensitive)
		|| Name.StartsWith(Class + TEXT("_"), ESearchCase::CaseSensitive);
}

static void SetHead(FJsonObject& Node, const UWidget& Widget, bool bLean)
{
	Node.SetStringField(TEXT("name"), Widget.GetName());
	if (!bLean || !IsNamedByClass(Widget))
	{
		Node.SetStringField(TEXT("class"), Widget.GetClass()->GetName());
	}
	if (ReadUnresolved::IsUnresolved(Widget.GetClass()))
	{
		Node.SetStringField(TEXT("class_path"), Widget.GetClass()->GetPathName());
		ReadUnresolved::SetFlag(Node, Widget.GetClass());
	}
	if (!bLean || Widget.bIsVariable != Widget.GetClass()->GetDefaultObject<UWidget>()->bIsVariable)
	{
		Node.SetBoolField(TEXT("is_variable"), Widget.bIsVariable);
	}
}

/** Of children without children and flags, the name with the class behind it: "Title (TextBlock)". */
static void ReduceToNames(TArray<TSharedPtr<FJsonValue>>& Children)
{
	ReadSections::ReduceToNames(Children, TEXT("name"));
	for (TSharedPtr<FJsonValue>& Child : Children)
	{
		const TSharedPtr<FJsonObject>* Object = nullptr;
		if (Child->TryGetObject(Object) && (*Object)->Values.Num() == 2 && (*Object)->HasField(TEXT("class")))
		{
			Child = MakeShared<FJsonValueString>(FString::Printf(
				TEXT("%s (%s)"), *(*Object)->GetStringField(TEXT("name")), *(*Object)->GetStringField(TEXT("class"))));
		}
	}
}

/** What a widget that is no panel holds: the content of its named slots, without what stands below that. */
static TArray<UWidget*> FindSlotContent(UWidget& Widget)
{
	TArray<UWidget*> Below;
	UWidgetTree::GetChildWidgets(&Widget, Below);
	TArray<UWidget*> Content;
	TSet<const UWidget*> Deeper;
	for (UWidget* const Child : Below)
	{
		if (Deeper.Contains(Child))
		{
			continue;
		}
		Content.Add(Child);
		TArray<UWidget*> OfChild;
		UWidgetTree::GetChildWidgets(Child, OfChild);
		for (const UWidget* const Inner : OfChild)
		{
			Deeper.Add(Inner);
		}
	}
	return Content;
}

/** Content of a named slot says which, as it has no slot object that tells its place. */
static void SetNamedSlot(FJsonObject& Node, UObject& Host, const UWidget& Content)
{
	for (const FName Name : NamedPlaces::GetNames(Host))
	{
		if (NamedPlaces::FPlace{&Host, Name}.GetContent() == &Content)
		{
			Node.SetStringField(TEXT("named_slot"), Name.ToString());
			return;
		}
	}
}

/** What a Blueprint without a root of its own puts into the slots that the Blueprints above leave open. */
static void SetTreesSlots(FJsonObject& Hierarchy, UWidgetBlueprint& Blueprint, bool bLean)
{
	TArray<TSharedPtr<FJsonValue>> Contents;
	for (const FName Name : NamedPlaces::GetNames(*Blueprint.WidgetTree))
	{
		UWidget* const Content = NamedPlaces::FPlace{Blueprint.WidgetTree.Get(), Name}.GetContent();
		if (Content)
		{
			const TSharedPtr<FJsonObject> Node = FWidgetBlueprintUtils::SerializeWidgetHierarchyNode(
				Content, &Blueprint, bLean);
			Node->SetStringField(TEXT("named_slot"), Name.ToString());
			Contents.Add(MakeShared<FJsonValueObject>(Node));
		}
	}
	if (!Contents.IsEmpty())
	{
		Hierarchy.SetArrayField(TEXT("named_slots"), MoveTemp(Contents));
	}
}

static void SetUnlessEmpty(FJsonObject& Details, const TCHAR* Key, const TSharedPtr<FJsonObject>& Object)
{
	if (Object && !Object->Values.IsEmpty())
	{
		Details.SetObjectField(Key, Object);
	}
}
} // namespace ReadWidgets

TSharedPtr<FJsonObject> FWidgetBlueprintUtils::SerializeWidgetHierarchy(UWidgetBlueprint* Blueprint, bool bLean)
{
	const TSharedPtr<FJsonObject> Hierarchy = MakeShared<FJsonObject>();
	UWidget* const Root = Blueprint && Blueprint->WidgetTree ? Blueprint->WidgetTree->RootWidget.Get() : nullptr;
	if (Root)
	{
		Hierarchy->SetObjectField(TEXT("root_widget"), SerializeWidgetHierarchyNode(Root, Blueprint, bLean));
	}
	else if (Blueprint && Blueprint->WidgetTree)
	{
		ReadWidgets::SetTreesSlots(*Hierarchy, *Blueprint, bLean);
	}
	return Hierarchy;
}

TSharedPtr<FJsonObject> FWidgetBlueprintUtils::SerializeWidgetHierarchyNode(
	UWidget* Widget, UWidgetBlueprint* Blueprint, bool bLean)
{
	if (!Widget)
	{
		return nullptr;
	}
	const TSharedPtr<FJsonObject> Node = MakeShared<FJsonObject>();
	ReadWidgets::SetHead(*Node, *Widget, bLean);
	const UPanelWidget* const Panel = Cast<UPanelWidget>(Widget);
	TArray<TSharedPtr<FJsonValue>> Children;
	for (UWidget* const Child : Panel ? Panel->GetAllChildren() : ReadWidgets::FindSlotContent(*Widget))
	{
		if (Child)
		{
			const TSharedPtr<FJsonObject> ChildNode = SerializeWidgetHierarchyNode(Child, Blueprint, bLean);
			ReadWidgets::SetNamedSlot(*ChildNode, *Widget, *Child);
			Children.Add(MakeShared<FJsonValueObject>(ChildNode));
		}
	}
	if (bLean)
	{
		ReadWidgets::ReduceToNames(Children);
	}
	if (!Children.IsEmpty())
	{
		Node->SetArrayField(TEXT("children"), MoveTemp(Children));
	}
	return Node;
}

TSharedPtr<FJsonObject> FWidgetBlueprintUtils::SerializeWidgetDetails(
	UWidget* Widget, UWidgetBlueprint* Blueprint, bool bLean)
{
	if (!Widget)
	{
		return nullptr;
	}
	const TSharedPtr<FJsonObject> Details = MakeShared<FJsonObject>();
	ReadWidgets::SetHead(*Details, *Widget, false);
	if (bLean)
	{
		// The key that the details stand under.
		Details->RemoveField(TEXT("name"));
	}
	if (const UPanelWidget* const Parent = Widget->GetParent())
	{
		Details->SetStringField(TEXT("parent"), Parent->GetName());
	}
	else if (Blueprint && Blueprint->WidgetTree)
	{
		const NamedPlaces::FPlace Place = NamedPlaces::FindOf(*Blueprint->WidgetTree, *Widget);
		if (Place)
		{
			Details->SetStringField(TEXT("host"), Place.Host->GetName());
			Details->SetStringField(TEXT("named_slot"), Place.Slot.ToString());
		}
	}
	ReadWidgets::SetUnlessEmpty(*Details, TEXT("slot"), SerializeSlotProperties(Widget->Slot, bLean));
	ReadWidgets::SetUnlessEmpty(*Details, TEXT("properties"), SerializeWidgetProperties(Widget, bLean));
	return Details;
}

TSharedPtr<FJsonObject> FWidgetBlueprintUtils::SerializeSlotProperties(UPanelSlot* Slot, bool bLean)
{
	return Slot ? ReadWidgets::ExportProperties(*Slot, bLean) : nullptr;
}

TSharedPtr<FJsonObject> FWidgetBlueprintUtils::SerializeWidgetProperties(UWidget* Widget, bool bLean)
{
	return Widget ? ReadWidgets::ExportProperties(*Widget, bLean) : nullptr;
}

bool FWidgetBlueprintUtils::VerifyBlueprintVariableName(
	UBlueprint* Blueprint, const FString& Name, Morvane::FToolResult& Result)
{
	if (!Blueprint)
	{
		return false;
	}
	if (Name.IsEmpty())
	{
		Result.AddWarningMessage(TEXT("Variable name cannot be empty"));
		return false;
	}
	if (iswdigit(static_cast<wint_t>(Name[0])))
	{
		Result.AddWarningMessage(FString::Printf(TEXT("Invalid variable name '%s': Cannot start with a digit"), *Name));
		return false;
	}
	return true;
}
