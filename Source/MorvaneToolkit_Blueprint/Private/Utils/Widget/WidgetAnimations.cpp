// Animations of a Widget Blueprint: made empty and removed. What they do is authored elsewhere.

#include "Animation/WidgetAnimation.h"
#include "Blueprint/WidgetTree.h"
#include "JsonReading.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Misc/FrameRate.h"
#include "MovieScene.h"
#include "ToolResult.h"
#include "UObject/Package.h"
#include "Utils/Widget/QuotedValue.h"
#include "Utils/Widget/WidgetNames.h"
#include "Utils/Widget/WidgetRemains.h"
#include "WidgetBlueprint.h"
#include "WidgetBlueprintService.h"

namespace WidgetAnimationEdit
{
using Morvane::FToolResult;

constexpr double Duration = 5.0;

/** By its own name or the one that it shows. */
static UWidgetAnimation* Find(const UWidgetBlueprint& Blueprint, const FString& Name)
{
	for (UWidgetAnimation* const Animation : Blueprint.Animations)
	{
		if (Animation
			&& (Animation->GetName().Equals(Name, ESearchCase::IgnoreCase)
				|| Animation->GetDisplayLabel().Equals(Name, ESearchCase::IgnoreCase)))
		{
			return Animation;
		}
	}
	return nullptr;
}

static bool IsTaken(UWidgetBlueprint& Blueprint, const FString& Name)
{
	const FName Member(*Name);
	return Find(Blueprint, Name) || WidgetNames::IsTakenByMember(Blueprint, Member)
		|| (Blueprint.WidgetTree && Blueprint.WidgetTree->FindWidget(Member))
		|| StaticFindObjectFast(nullptr, &Blueprint, Member);
}

/** Ignoring case; the highest number that is known to be in use is where the search goes on. */
static FString MakeUnique(UWidgetBlueprint& Blueprint, const FString& Name, TMap<FString, int32>& LastNumbers)
{
	FString Unique = Name;
	int32& Number = LastNumbers.FindOrAdd(Name);
	while (IsTaken(Blueprint, Unique))
	{
		Unique = FString::Printf(TEXT("%s_%d"), *Name, ++Number);
	}
	return Unique;
}

static void Add(UWidgetBlueprint& Blueprint, const FString& Name, FToolResult& Result)
{
	UWidgetAnimation* const Animation = NewObject<UWidgetAnimation>(&Blueprint, FName(*Name), RF_Transactional);
	Animation->MovieScene = NewObject<UMovieScene>(Animation, FName(*Name), RF_Transactional);
	Animation->SetDisplayLabel(Name);
	const FFrameRate Ticks = Animation->MovieScene->GetTickResolution();
	Animation->MovieScene->SetPlaybackRange(
		TRange<FFrameNumber>(Ticks.AsFrameNumber(0.0), Ticks.AsFrameNumber(Duration)));
	Blueprint.Animations.Add(Animation);
	Result.AddSuccessMessage(FString::Printf(TEXT("Created animation '%s'"), *Name));
}

static bool Remove(UWidgetBlueprint& Blueprint, const FString& Name, TSet<FString>& Removed, FToolResult& Result)
{
	UWidgetAnimation* const Animation = Find(Blueprint, Name);
	if (!Animation)
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("Animation '%s' not found for removal"), *QuotedValue::Shorten(Name)));
		return false;
	}
	Removed.Add(Animation->GetName());
	Blueprint.Animations.Remove(Animation);
	// Its name is free from now on, also for one that is made before the object is gone.
	Animation->Rename(*MakeUniqueObjectName(&Blueprint, Animation->GetClass(), TEXT("Removed")).ToString(), nullptr);
	Animation->MarkAsGarbage();
	Result.AddSuccessMessage(FString::Printf(TEXT("Removed animation '%s'"), *Name));
	return true;
}

/** What the operations of one call know of each other. */
struct FState
{
	TMap<FString, int32> LastNumbers;
	TSet<FString> Removed;
	bool bAny = false;
};

static bool RunOperation(
	UWidgetBlueprint& Blueprint, const TSharedPtr<FJsonValue>& Value, FState& State, FToolResult& Result)
{
	const TSharedPtr<FJsonObject>* Operation = nullptr;
	FString Name;
	if (!Value || !Value->TryGetObject(Operation) || !MorvaneJson::TryGetStringField(**Operation, TEXT("name"), Name)
		|| Name.IsEmpty())
	{
		Result.AddErrorMessage(TEXT("Animation name is required"));
		return false;
	}
	FString Action;
	if (!MorvaneJson::TryGetStringField(**Operation, TEXT("action"), Action))
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("Animation '%s' does not have an 'action' field"), *QuotedValue::Shorten(Name)));
		return false;
	}
	if (Action.Equals(TEXT("remove"), ESearchCase::IgnoreCase))
	{
		const bool bRemoved = Remove(Blueprint, Name, State.Removed, Result);
		State.bAny = State.bAny || bRemoved;
		return bRemoved;
	}
	if (!Action.Equals(TEXT("add"), ESearchCase::IgnoreCase))
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Animation '%s' has unsupported action '%s'"),
			*QuotedValue::Shorten(Name), *QuotedValue::Shorten(Action)));
		return false;
	}
	if (!WidgetNames::CheckSpelling(Name, Result))
	{
		return false;
	}
	Add(Blueprint, MakeUnique(Blueprint, Name, State.LastNumbers), Result);
	State.bAny = true;
	return true;
}

static void TellFailure(int32 Index, bool bAny, FToolResult& Result)
{
	Result.AddWarningMessage(
		bAny ? FString::Printf(
			TEXT(
				"Operation animations[%d] failed and ended the call. What earlier operations changed stands in memory, unsaved; the next successful call on this Blueprint saves it."),
			Index)
			 : FString::Printf(TEXT("Operation animations[%d] failed and ended the call."), Index));
}
} // namespace WidgetAnimationEdit

bool FWidgetBlueprintService::ModifyAnimations(
	UWidgetBlueprint* Blueprint, const TArray<TSharedPtr<FJsonValue>>& Operations, Morvane::FToolResult& Result)
{
	using namespace WidgetAnimationEdit;
	if (!Blueprint)
	{
		Result.AddErrorMessage(TEXT("Widget Blueprint is null"));
		return false;
	}
	FState State;
	bool bDone = true;
	for (int32 Index = 0; bDone && Index < Operations.Num(); ++Index)
	{
		bDone = RunOperation(*Blueprint, Operations[Index], State, Result);
		if (!bDone)
		{
			TellFailure(Index, State.bAny || Blueprint->GetOutermost()->IsDirty(), Result);
		}
	}
	WidgetRemains::Remove(*Blueprint, State.Removed, Result);
	if (State.bAny)
	{
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	}
	return bDone;
}
