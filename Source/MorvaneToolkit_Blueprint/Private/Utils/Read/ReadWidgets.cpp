// A Widget Blueprint's tree as JSON: the skeleton of all widgets, details of those that are asked for.

#include "WidgetBlueprintUtils.h"

#include <cwctype>

#include "Blueprint/WidgetTree.h"
#include "Components/PanelSlot.h"
#include "Components/PanelWidget.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Read/ReadUnresolved.h"
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
		// Against itself as the default: a value tells all of its members, and none is left out for being zero.
		FString Text;
		const void* const Value = It->ContainerPtrToValuePtr<void>(&Object);
		It->ExportText_Direct(Text, Value, Value, &Object, PPF_None);
		if (!Text.IsEmpty())
		{
			Properties->SetStringField(It->GetName(), Text);
		}
	}
	return Properties;
}

static void SetHead(FJsonObject& Node, const UWidget& Widget)
{
	Node.SetStringField(TEXT("name"), Widget.GetName());
	Node.SetStringField(TEXT("class"), Widget.GetClass()->GetName());
	if (ReadUnresolved::IsUnresolved(Widget.GetClass()))
	{
		Node.SetStringField(TEXT("class_path"), Widget.GetClass()->GetPathName());
		ReadUnresolved::SetFlag(Node, Widget.GetClass());
	}
	Node.SetBoolField(TEXT("is_variable"), Widget.bIsVariable);
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

static void SetUnlessEmpty(FJsonObject& Details, const TCHAR* Key, const TSharedPtr<FJsonObject>& Object)
{
	if (Object && !Object->Values.IsEmpty())
	{
		Details.SetObjectField(Key, Object);
	}
}
} // namespace ReadWidgets

TSharedPtr<FJsonObject> FWidgetBlueprintUtils::SerializeWidgetHierarchy(UWidgetBlueprint* Blueprint)
{
	const TSharedPtr<FJsonObject> Hierarchy = MakeShared<FJsonObject>();
	UWidget* const Root = Blueprint && Blueprint->WidgetTree ? Blueprint->WidgetTree->RootWidget.Get() : nullptr;
	if (Root)
	{
		Hierarchy->SetObjectField(TEXT("root_widget"), SerializeWidgetHierarchyNode(Root, Blueprint));
	}
	return Hierarchy;
}

TSharedPtr<FJsonObject> FWidgetBlueprintUtils::SerializeWidgetHierarchyNode(
	UWidget* Widget, UWidgetBlueprint* Blueprint)
{
	if (!Widget)
	{
		return nullptr;
	}
	const TSharedPtr<FJsonObject> Node = MakeShared<FJsonObject>();
	ReadWidgets::SetHead(*Node, *Widget);
	const UPanelWidget* const Panel = Cast<UPanelWidget>(Widget);
	TArray<TSharedPtr<FJsonValue>> Children;
	for (UWidget* const Child : Panel ? Panel->GetAllChildren() : ReadWidgets::FindSlotContent(*Widget))
	{
		if (Child)
		{
			Children.Add(MakeShared<FJsonValueObject>(SerializeWidgetHierarchyNode(Child, Blueprint)));
		}
	}
	if (!Children.IsEmpty())
	{
		Node->SetArrayField(TEXT("children"), MoveTemp(Children));
	}
	return Node;
}

TSharedPtr<FJsonObject> FWidgetBlueprintUtils::SerializeWidgetDetails(UWidget* Widget, UWidgetBlueprint*, bool bLean)
{
	if (!Widget)
	{
		return nullptr;
	}
	const TSharedPtr<FJsonObject> Details = MakeShared<FJsonObject>();
	ReadWidgets::SetHead(*Details, *Widget);
	if (const UPanelWidget* const Parent = Widget->GetParent())
	{
		Details->SetStringField(TEXT("parent"), Parent->GetName());
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
