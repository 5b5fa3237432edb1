#include "Utils/Widget/WidgetNames.h"

#include "Animation/WidgetAnimation.h"
#include "AssetOperationBase.h"
#include "Components/Widget.h"
#include "EdGraph/EdGraph.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Request/NewNames.h"
#include "Utils/Widget/QuotedValue.h"
#include "WidgetBlueprint.h"

namespace WidgetNames
{
namespace
{
/** A variable of the parent class for a widget is filled with the widget of its name. */
bool IsWantedByParent(const UWidgetBlueprint& Blueprint, FName Name)
{
	const UClass* const Parent = Blueprint.ParentClass.Get();
	const FObjectPropertyBase* const Property = Parent
		? CastField<FObjectPropertyBase>(Parent->FindPropertyByName(Name))
		: nullptr;
	return Property && Property->PropertyClass && Property->PropertyClass->IsChildOf(UWidget::StaticClass());
}

bool IsInherited(const UWidgetBlueprint& Blueprint, FName Name)
{
	const UClass* const Parent = Blueprint.ParentClass.Get();
	return Parent && (Parent->FindPropertyByName(Name) || Parent->FindFunctionByName(Name));
}

bool IsOwnGraph(const UWidgetBlueprint& Blueprint, FName Name)
{
	const auto Has = [Name](const auto& Graphs) {
		return Graphs.ContainsByPredicate([Name](const UEdGraph* Graph) { return Graph && Graph->GetFName() == Name; });
	};
	return Has(Blueprint.UbergraphPages) || Has(Blueprint.FunctionGraphs) || Has(Blueprint.MacroGraphs)
		|| Has(Blueprint.DelegateSignatureGraphs);
}

bool IsAnimation(const UWidgetBlueprint& Blueprint, FName Name)
{
	return Blueprint.Animations.ContainsByPredicate(
		[Name](const UWidgetAnimation* Animation) { return Animation && Animation->GetFName() == Name; });
}
} // namespace

UClass* FindClass(const FString& ClassPath)
{
	const FString Text = ClassPath.TrimStartAndEnd();
	if (Text.IsEmpty() || Text.Len() >= NAME_SIZE)
	{
		return nullptr;
	}
	if (!Text.Contains(TEXT("/")) && !Text.Contains(TEXT(".")))
	{
		const FString Bare = Text.Replace(TEXT(" "), TEXT(""));
		for (const FString& Name : {Bare, Bare.StartsWith(TEXT("U")) ? Bare.Mid(1) : Bare})
		{
			if (UClass* const Class = FindObject<UClass>(nullptr, TEXT("/Script/UMG.") + Name))
			{
				return Class;
			}
		}
	}
	return FAssetOperationBase::GetAssetClassFromAssetName(Text);
}

bool CheckSpelling(const FString& Name, Morvane::FToolResult& Result)
{
	if (Name.Len() > FKismetNameValidator::GetMaximumNameLength())
	{
		Result.AddErrorMessage(FString::Printf(TEXT("The name '%s' is too long: names have up to %d characters"),
			*QuotedValue::Shorten(Name), FKismetNameValidator::GetMaximumNameLength()));
		return false;
	}
	FText Reason;
	if (!NewNames::FindFault(Name).IsEmpty() || !FName::IsValidXName(Name, INVALID_OBJECTNAME_CHARACTERS, &Reason))
	{
		Result.AddErrorMessage(FString::Printf(
			TEXT("'%s' is no name for a widget or an animation: use letters, digits and underscores"), *Name));
		return false;
	}
	return true;
}

bool IsTakenByMember(const UWidgetBlueprint& Blueprint, FName Name)
{
	return FBlueprintEditorUtils::FindNewVariableIndex(&Blueprint, Name) != INDEX_NONE || IsInherited(Blueprint, Name)
		|| IsOwnGraph(Blueprint, Name) || IsAnimation(Blueprint, Name);
}

bool CheckFree(const UWidgetBlueprint& Blueprint, const FString& Name, Morvane::FToolResult& Result)
{
	const FName Wanted(*Name);
	if (IsWantedByParent(Blueprint, Wanted) || !IsTakenByMember(Blueprint, Wanted))
	{
		return true;
	}
	Result.AddErrorMessage(FString::Printf(
		TEXT("Widget '%s' was not created: '%s' has a variable, function, graph or animation of that name"), *Name,
		*Blueprint.GetName()));
	return false;
}
} // namespace WidgetNames
