// New widgets: which class is meant, which names are free, where there is room.

#include "AssetOperationBase.h"
#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetTree.h"
#include "Components/PanelWidget.h"
#include "ToolResult.h"
#include "Utils/Widget/QuotedValue.h"
#include "Utils/Widget/WidgetNames.h"
#include "Utils/Widget/WidgetPlacement.h"
#include "WidgetBlueprint.h"
#include "WidgetBlueprintUtils.h"

namespace WidgetCreation
{
using Morvane::FToolResult;

static UClass* ResolveClass(const FString& ClassPath, FToolResult& Result)
{
	UClass* const Class = WidgetNames::FindClass(ClassPath);
	if (!Class)
	{
		Result.AddErrorMessage(FString::Printf(
			TEXT(
				"Widget class '%s' not found. Use a class path such as '/Script/UMG.Button' or the path of a Widget Blueprint."),
			*QuotedValue::Shorten(ClassPath)));
		return nullptr;
	}
	if (!Class->IsChildOf(UWidget::StaticClass()))
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Class '%s' is not a widget class"), *Class->GetPathName()));
		return nullptr;
	}
	if (Class->HasAnyClassFlags(CLASS_Abstract) || Class == UUserWidget::StaticClass())
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("Widget class '%s' is abstract and cannot be placed"), *Class->GetPathName()));
		return nullptr;
	}
	return Class;
}

/** Whether a widget of the tree may be of the class: a Blueprint's own widget is not part of itself at any depth. */
static bool CheckCycle(const UWidgetBlueprint& Blueprint, UWidget& Widget, FToolResult& Result)
{
	UUserWidget* const UserWidget = Cast<UUserWidget>(&Widget);
	if (!UserWidget || Blueprint.IsWidgetFreeFromCircularReferences(UserWidget))
	{
		return true;
	}
	Result.AddErrorMessage(FString::Printf(TEXT("Widget '%s' of class '%s' would make '%s' hold itself"),
		*Widget.GetName(), *Widget.GetClass()->GetName(), *Blueprint.GetName()));
	return false;
}

static bool CheckName(UWidgetBlueprint& Blueprint, const FString& Name, FToolResult& Result)
{
	if (!FWidgetBlueprintUtils::VerifyBlueprintVariableName(&Blueprint, Name, Result))
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("Widget '%s' was not created: no widget can have that name"), *Name));
		return false;
	}
	if (const UWidget* const Known = Blueprint.WidgetTree->FindWidget(FName(*Name)))
	{
		Result.AddErrorMessage(FString::Printf(
			TEXT("Widget '%s' already exists, of class '%s'. Use the action 'modify' to change it, or another name."),
			*Known->GetName(), *Known->GetClass()->GetName()));
		return false;
	}
	return WidgetNames::CheckFree(Blueprint, Name, Result);
}
} // namespace WidgetCreation

UWidget* FWidgetBlueprintUtils::CreateWidget(UWidgetBlueprint* Blueprint, const FString& ClassPath, const FString& Name,
	UPanelWidget* Parent, Morvane::FToolResult& Result)
{
	if (!Blueprint || !Blueprint->WidgetTree)
	{
		Result.AddErrorMessage(TEXT("Widget Blueprint or Widget Tree is null"));
		return nullptr;
	}
	const UClass* const Class = WidgetCreation::ResolveClass(ClassPath, Result);
	if (!Class || !WidgetNames::CheckSpelling(Name, Result) || !WidgetCreation::CheckName(*Blueprint, Name, Result)
		|| (Parent && !WidgetPlacement::CheckRoom(*Parent, Name, nullptr, Result)))
	{
		return nullptr;
	}
	UWidget* const Widget = Blueprint->WidgetTree->ConstructWidget<UWidget>(Class, FName(*Name));
	if (!Widget || !WidgetCreation::CheckCycle(*Blueprint, *Widget, Result))
	{
		return nullptr; // what was made stands nowhere and is not written
	}
	if (Parent)
	{
		Parent->AddChild(Widget);
	}
	return Widget;
}
