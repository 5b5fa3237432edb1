// The widget tree: records become widgets, and widgets move.

#include "WidgetBlueprintService.h"

#include "Blueprint/WidgetTree.h"
#include "Components/PanelSlot.h"
#include "Components/PanelWidget.h"
#include "JsonReading.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResult.h"
#include "Utils/Widget/QuotedValue.h"
#include "Utils/Widget/WidgetChanges.h"
#include "Utils/Widget/WidgetPlacement.h"
#include "Utils/Widget/WidgetTreeRun.h"
#include "WidgetBlueprint.h"
#include "WidgetBlueprintUtils.h"

namespace WidgetTreeEdit
{
using Morvane::FToolResult;

static bool HasTree(const UWidgetBlueprint* Blueprint, FToolResult& Result)
{
	if (Blueprint && Blueprint->WidgetTree)
	{
		return true;
	}
	Result.AddErrorMessage(TEXT("Widget Blueprint or Widget Tree is null"));
	return false;
}

/** The widget that a record means, made if it is new; null after an error. */
static UWidget* FindOrCreate(UWidgetBlueprint& Blueprint, const FJsonObject& Record, const FString& Name,
	UPanelWidget* Parent, FToolResult& Result, bool& bOutCreated)
{
	FString Action;
	bOutCreated = !MorvaneJson::TryGetStringField(Record, TEXT("action"), Action) || !IsAction(Action, TEXT("modify"));
	if (!bOutCreated)
	{
		UWidget* const Known = FindWidget(Blueprint, Name);
		if (!Known)
		{
			Result.AddErrorMessage(
				FString::Printf(TEXT("Widget '%s' not found for modification"), *QuotedValue::Shorten(Name)));
		}
		return Known;
	}
	FString Class;
	if (!MorvaneJson::TryGetStringField(Record, TEXT("class"), Class))
	{
		Result.AddErrorMessage(TEXT("Widget class path is required for new widgets"));
		return nullptr;
	}
	UWidget* const Made = FWidgetBlueprintUtils::CreateWidget(&Blueprint, Class, Name, Parent, Result);
	if (Made)
	{
		Result.AddSuccessMessage(
			FString::Printf(TEXT("Created widget '%s' of class '%s'"), *Name, *QuotedValue::Shorten(Class)));
	}
	return Made;
}

/** True when the Blueprint gets or loses a variable by it. */
static bool ApplyIsVariable(UWidget& Widget, const FJsonObject& Record, FWidgetChanges& Changes)
{
	bool bIsVariable = false;
	if (!MorvaneJson::TryGetBoolField(Record, TEXT("is_variable"), bIsVariable) || Widget.bIsVariable == bIsVariable)
	{
		return false;
	}
	Widget.Modify();
	Widget.bIsVariable = bIsVariable;
	Changes.Variables.Add(Widget.GetName());
	return true;
}

} // namespace WidgetTreeEdit

bool FWidgetBlueprintService::ModifyWidgetTree(UWidgetBlueprint* Blueprint, const TSharedPtr<FJsonObject>& Request,
	Morvane::FToolResult& Result, FWidgetChanges& Changes)
{
	return WidgetTreeEdit::HasTree(Blueprint, Result)
		&& (!Request || WidgetTreeEdit::RunRequest(*Blueprint, *Request, Result, Changes));
}

UWidget* FWidgetBlueprintService::CreateOrModifyWidget(UWidgetBlueprint* Blueprint,
	const TSharedPtr<FJsonObject>& Record, UPanelWidget* Parent, Morvane::FToolResult& Result,
	bool* bOutStructureChanged, FWidgetChanges& Changes)
{
	using namespace WidgetTreeEdit;
	if (!HasTree(Blueprint, Result))
	{
		return nullptr;
	}
	FString Name;
	if (!Record || !MorvaneJson::TryGetStringField(*Record, TEXT("name"), Name) || Name.IsEmpty())
	{
		Result.AddErrorMessage(TEXT("Widget name is required"));
		return nullptr;
	}
	bool bCreated = false;
	UWidget* const Widget = FindOrCreate(*Blueprint, *Record, Name, Parent, Result, bCreated);
	if (!Widget)
	{
		return nullptr;
	}
	const bool bVariable = ApplyIsVariable(*Widget, *Record, Changes);
	if (const TSharedPtr<FJsonObject> Properties = GetObject(*Record, TEXT("properties")))
	{
		FWidgetBlueprintUtils::ApplyWidgetProperties(Widget, Properties, Result);
	}
	const TSharedPtr<FJsonObject> Layout = GetObject(*Record, TEXT("slot"));
	if (Layout && Widget->Slot)
	{
		FWidgetBlueprintUtils::ApplySlotProperties(Widget->Slot, Layout, Result);
	}
	else if (Layout && !Layout->Values.IsEmpty())
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("Widget '%s' stands in no panel, so it has no slot properties to set"), *Widget->GetName()));
	}
	if (bOutStructureChanged)
	{
		*bOutStructureChanged = bCreated || bVariable;
	}
	if (bCreated || bVariable)
	{
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	}
	Changes.Widgets.Add(Widget->GetName());
	if (const TSharedPtr<FJsonObject> Events = GetObject(*Record, TEXT("events")))
	{
		if (Changes.bCollectEvents)
		{
			Changes.PendingEvents.Add({Widget->GetName(), Events});
		}
		else
		{
			CreateWidgetEventNodes(Blueprint, Widget->GetName(), Events, Result, &Changes.Events);
		}
	}
	return Widget;
}

bool FWidgetBlueprintService::ReorderWidget(UWidgetBlueprint* Blueprint, const FString& Name, UPanelWidget* NewParent,
	int32 Index, Morvane::FToolResult& Result)
{
	using namespace WidgetTreeEdit;
	if (!HasTree(Blueprint, Result))
	{
		return false;
	}
	UWidget* const Widget = FindWidget(*Blueprint, Name);
	if (!Widget)
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("Widget '%s' not found for reordering"), *QuotedValue::Shorten(Name)));
		return false;
	}
	if (!NewParent)
	{
		Result.AddErrorMessage(TEXT("New parent widget is required for reorder"));
		return false;
	}
	if (!WidgetPlacement::CheckNotWithin(*Widget, *NewParent, Result) || !WidgetPlacement::CheckLoose(*Widget, Result)
		|| !WidgetPlacement::CheckRoom(*NewParent, Name, Widget, Result))
	{
		return false;
	}
	WidgetPlacement::Move(*Widget, *NewParent, Index);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	Result.AddSuccessMessage(FString::Printf(TEXT("Reordered widget '%s'"), *Name));
	return true;
}
