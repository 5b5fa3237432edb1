// One request to edit a widget tree: the root, then the operations in order until one fails.

#include "Utils/Widget/WidgetTreeRun.h"

#include "Blueprint/WidgetTree.h"
#include "Components/PanelWidget.h"
#include "JsonReading.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResult.h"
#include "Utils/Widget/QuotedValue.h"
#include "Utils/Widget/WidgetChanges.h"
#include "Utils/Widget/WidgetEvents.h"
#include "Utils/Widget/WidgetNames.h"
#include "Utils/Widget/WidgetPlacement.h"
#include "Utils/Widget/WidgetRemains.h"
#include "Utils/Widget/WidgetTargets.h"
#include "WidgetBlueprint.h"
#include "WidgetBlueprintService.h"

namespace WidgetTreeEdit
{
/** A name as long as no object's is never made one: names live as long as the process. */
UWidget* FindWidget(const UWidgetBlueprint& Blueprint, const FString& Name)
{
	return !Name.IsEmpty() && Name.Len() < NAME_SIZE ? Blueprint.WidgetTree->FindWidget(FName(*Name)) : nullptr;
}

TSharedPtr<FJsonObject> GetObject(const FJsonObject& Json, const TCHAR* Key)
{
	const TSharedPtr<FJsonObject>* Object = nullptr;
	return Json.TryGetObjectField(Key, Object) ? *Object : nullptr;
}

bool IsAction(const FString& Action, const TCHAR* Word)
{
	return Action.Equals(Word, ESearchCase::IgnoreCase);
}

namespace
{
using Morvane::FToolResult;

/** One call: the root and the operations, in order. */
class FRun
{
public:
	FRun(UWidgetBlueprint& InBlueprint, FToolResult& InResult, FWidgetChanges& InChanges)
		: Blueprint(InBlueprint)
		, Tree(*InBlueprint.WidgetTree)
		, Result(InResult)
		, Changes(InChanges)
	{
	}

	bool Run(const FJsonObject& Request)
	{
		Changes.bCollectEvents = true;
		const TSharedPtr<FJsonObject> Root = GetObject(Request, TEXT("root_widget"));
		const bool bDone = (!Root || RunRoot(*Root, Root)) && RunAll(Request);
		MakePendingEvents();
		Changes.bCollectEvents = false;
		WidgetRemains::Remove(Blueprint, Changes.Removed, Result);
		WidgetRemains::TellUsers(Blueprint, Changes.Variables, Result);
		if (Changes.bAny)
		{
			FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
		}
		return bDone;
	}

private:
	bool RunRoot(const FJsonObject& Record, const TSharedPtr<FJsonObject>& Shared)
	{
		FString Name;
		FString Action;
		MorvaneJson::TryGetStringField(Record, TEXT("name"), Name);
		MorvaneJson::TryGetStringField(Record, TEXT("action"), Action);
		UWidget* const OldRoot = Tree.RootWidget;
		const bool bModify = IsAction(Action, TEXT("modify"));
		const bool bSameName = !bModify && OldRoot && OldRoot == FindWidget(Blueprint, Name);
		const FString OldName = OldRoot ? OldRoot->GetName() : FString();
		if (bSameName)
		{
			// A new root of the old one's name is meant to take its place.
			OldRoot->Rename(*MakeUniqueObjectName(&Tree, OldRoot->GetClass(), OldRoot->GetFName()).ToString(), nullptr,
				REN_DoNotDirty);
		}
		UWidget* const NewRoot = FWidgetBlueprintService::CreateOrModifyWidget(
			&Blueprint, Shared, nullptr, Result, nullptr, Changes);
		if (!NewRoot)
		{
			if (bSameName)
			{
				OldRoot->Rename(*OldName, nullptr, REN_DoNotDirty);
			}
			return TellFailure(TEXT("root_widget"), Name);
		}
		WidgetPlacement::ReplaceRoot(Tree, *NewRoot, Result, Changes);
		Changes.bAny = true;
		Changes.NumModified += bModify ? 1 : 0;
		if (bModify)
		{
			TellClass(*NewRoot, Record);
		}
		return true;
	}

	bool RunAll(const FJsonObject& Request)
	{
		const TArray<TSharedPtr<FJsonValue>>* Operations = nullptr;
		if (!Request.TryGetArrayField(TEXT("widgets"), Operations))
		{
			return true;
		}
		for (int32 Index = 0; Index < Operations->Num(); ++Index)
		{
			const TSharedPtr<FJsonObject>* Operation = nullptr;
			const TSharedPtr<FJsonValue>& Value = (*Operations)[Index];
			const bool bObject = Value && Value->TryGetObject(Operation);
			FString Action;
			if (!bObject || !MorvaneJson::TryGetStringField(**Operation, TEXT("action"), Action))
			{
				Result.AddErrorMessage(TEXT("Widget operation missing 'action' field"));
				return TellFailure(FString::Printf(TEXT("widgets[%d]"), Index), FString());
			}
			if (!RunOperation(Action, *Operation))
			{
				FString Name;
				MorvaneJson::TryGetStringField(**Operation, TEXT("name"), Name);
				return TellFailure(
					FString::Printf(TEXT("widgets[%d] (%s)"), Index, *QuotedValue::Shorten(Action)), Name);
			}
		}
		return true;
	}

	/** What stands in memory is neither taken back nor saved, which the caller has to know. */
	bool TellFailure(const FString& Operation, const FString& Name)
	{
		const FString Subject = Name.IsEmpty()
			? Operation
			: FString::Printf(TEXT("%s for '%s'"), *Operation, *QuotedValue::Shorten(Name));
		Result.AddWarningMessage(
			Changes.bAny ? FString::Printf(
				TEXT(
					"Operation %s failed and ended the call. What earlier operations changed stands in memory, unsaved; the next successful call on this Blueprint saves it."),
				*Subject)
						 : FString::Printf(
							 TEXT("Operation %s failed and ended the call; nothing was changed."), *Subject));
		return false;
	}

	bool RunOperation(const FString& Action, const TSharedPtr<FJsonObject>& Operation)
	{
		if (IsAction(Action, TEXT("add")))
		{
			return Add(Operation);
		}
		if (IsAction(Action, TEXT("modify")))
		{
			return Modify(Operation);
		}
		if (IsAction(Action, TEXT("reorder")))
		{
			return Reorder(*Operation);
		}
		// A word that is none of these is passed over.
		return !IsAction(Action, TEXT("remove")) || Remove(*Operation);
	}

	/** OutParent is null when the operation names none. */
	bool FindParent(const FJsonObject& Operation, UWidget*& OutParent)
	{
		FString Name;
		OutParent = nullptr;
		if (!MorvaneJson::TryGetStringField(Operation, TEXT("parent"), Name))
		{
			return true;
		}
		OutParent = FindWidget(Blueprint, Name);
		if (!OutParent)
		{
			Result.AddErrorMessage(FString::Printf(TEXT("Parent widget '%s' not found"), *QuotedValue::Shorten(Name)));
		}
		return OutParent != nullptr;
	}

	bool Add(const TSharedPtr<FJsonObject>& Operation)
	{
		UWidget* Parent = nullptr;
		WidgetTargets::FTarget Target;
		if (!FindParent(*Operation, Parent) || !WidgetTargets::Find(Tree, *Operation, Parent, nullptr, Result, Target))
		{
			return false;
		}
		UWidget* const Made = FWidgetBlueprintService::CreateOrModifyWidget(
			&Blueprint, Operation, Target.Panel, Result, nullptr, Changes);
		if (!Made)
		{
			return false;
		}
		if (Target.Place)
		{
			Target.Place.SetContent(Made);
		}
		else if (!Target.Panel)
		{
			Tree.RootWidget = Made;
		}
		else if (!Parent)
		{
			Result.AddWarningMessage(
				FString::Printf(TEXT("Widget '%s' names no parent and was placed in the root '%s'"), *Made->GetName(),
					*Target.Panel->GetName()));
		}
		if (Operation->HasField(TEXT("index")))
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT("Widget '%s' was placed last: 'index' is read by the action 'reorder' alone"), *Made->GetName()));
		}
		Changes.bAny = true;
		return true;
	}

	bool Modify(const TSharedPtr<FJsonObject>& Operation)
	{
		UWidget* Parent = nullptr;
		if (!FindParent(*Operation, Parent))
		{
			return false;
		}
		bool bIsVariable = false;
		if (MorvaneJson::TryGetBoolField(*Operation, TEXT("is_variable"), bIsVariable))
		{
			MakePendingEvents(); // while their widgets are what they were when the events were asked for
		}
		UWidget* const Widget = FWidgetBlueprintService::CreateOrModifyWidget(
			&Blueprint, Operation, nullptr, Result, nullptr, Changes);
		if (!Widget)
		{
			return false;
		}
		if (Parent && Widget->GetParent() != Parent && NamedPlaces::FindOf(Tree, *Widget).Host != Parent)
		{
			Result.AddWarningMessage(
				FString::Printf(TEXT("Widget '%s' stays where it is: to move it into '%s', use the action 'reorder'"),
					*Widget->GetName(), *Parent->GetName()));
		}
		TellClass(*Widget, *Operation);
		++Changes.NumModified;
		Changes.bAny = true;
		return true;
	}

	/** A modify leaves the class as it is, which a record that names another one does not expect. */
	void TellClass(const UWidget& Widget, const FJsonObject& Record)
	{
		FString Class;
		const UClass* const Own = Widget.GetClass();
		if (MorvaneJson::TryGetStringField(Record, TEXT("class"), Class) && WidgetNames::FindClass(Class) != Own)
		{
			Result.AddWarningMessage(
				FString::Printf(TEXT("Widget '%s' stays of class '%s': a modify does not change the class"),
					*Widget.GetName(), *Own->GetName()));
		}
	}

	bool Reorder(const FJsonObject& Operation)
	{
		FString Name;
		if (!MorvaneJson::TryGetStringField(Operation, TEXT("name"), Name))
		{
			Result.AddErrorMessage(TEXT("Reorder operation missing 'name' field"));
			return false;
		}
		UWidget* Parent = nullptr;
		if (!FindParent(Operation, Parent))
		{
			return false;
		}
		UWidget* const Moved = FindWidget(Blueprint, Name);
		WidgetTargets::FTarget Target;
		// Without a widget or a place for it, the service says which of them is missing.
		const bool bPlace = Parent || Operation.HasField(TEXT("named_slot"));
		if (Moved && bPlace && !WidgetTargets::Find(Tree, Operation, Parent, Moved, Result, Target))
		{
			return false;
		}
		int32 Index = INDEX_NONE;
		MorvaneJson::TryGetNumberField(Operation, TEXT("index"), Index);
		const bool bDone = Target.Place
			? MoveInto(*Moved, Parent, Target.Place)
			: FWidgetBlueprintService::ReorderWidget(&Blueprint, Name, Target.Panel, Index, Result);
		if (!bDone)
		{
			return false;
		}
		Changes.Widgets.Add(FindWidget(Blueprint, Name)->GetName());
		Changes.bAny = true;
		return true;
	}

	bool MoveInto(UWidget& Widget, const UWidget* Parent, const NamedPlaces::FPlace& Place)
	{
		if ((Parent && !WidgetPlacement::CheckNotWithin(Widget, *Parent, Result))
			|| !WidgetPlacement::CheckLoose(Widget, Result))
		{
			return false;
		}
		WidgetPlacement::TakeOut(Widget);
		Place.SetContent(&Widget);
		Result.AddSuccessMessage(FString::Printf(TEXT("Reordered widget '%s'"), *Widget.GetName()));
		return true;
	}

	bool Remove(const FJsonObject& Operation)
	{
		FString Name;
		if (!MorvaneJson::TryGetStringField(Operation, TEXT("name"), Name))
		{
			Result.AddErrorMessage(TEXT("Remove widget operation missing 'name' field"));
			return false;
		}
		MakePendingEvents();
		UWidget* const Widget = FindWidget(Blueprint, Name);
		if (!Widget)
		{
			Result.AddErrorMessage(
				FString::Printf(TEXT("Widget '%s' not found for removal"), *QuotedValue::Shorten(Name)));
			return false;
		}
		if (!WidgetPlacement::CheckLoose(*Widget, Result))
		{
			return false;
		}
		Changes.Removed.Append(WidgetPlacement::NamesFrom(*Widget));
		WidgetPlacement::TakeOut(*Widget);
		Changes.Widgets.Add(Widget->GetName());
		Changes.bAny = true;
		Result.AddSuccessMessage(FString::Printf(TEXT("Removed widget '%s'"), *Name));
		return true;
	}

	void MakePendingEvents()
	{
		if (Changes.PendingEvents.IsEmpty())
		{
			return;
		}
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
		const TArray<FWidgetChanges::FPendingEvents> Pending = MoveTemp(Changes.PendingEvents);
		Changes.PendingEvents.Empty();
		WidgetEvents::Create(&Blueprint, Pending, Result, &Changes.Events);
	}

	UWidgetBlueprint& Blueprint;
	UWidgetTree& Tree;
	FToolResult& Result;
	FWidgetChanges& Changes;
};
} // namespace

bool RunRequest(
	UWidgetBlueprint& Blueprint, const FJsonObject& Request, Morvane::FToolResult& Result, FWidgetChanges& Changes)
{
	return FRun(Blueprint, Result, Changes).Run(Request);
}
} // namespace WidgetTreeEdit
