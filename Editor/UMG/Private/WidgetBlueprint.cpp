#include "WidgetBlueprint.h"

#include "Animation/WidgetAnimation.h"
#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetTree.h"
#include "Components/ContentWidget.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "MovieScene.h"
#include "UMGClasses.h"
#include "UObject/NativeClass.h"
#include "WidgetBlueprintVariables.h"

IMPLEMENT_EDITOR_CLASS(UWidgetBlueprint, "/Script/UMGEditor", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UWidgetAnimation, "/Script/UMG", CLASS_None)

void UWidgetBlueprint::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("WidgetTree"), &UWidgetBlueprint::WidgetTree, CPF_InstancedReference);
	Class.Property(TEXT("Animations"), &UWidgetBlueprint::Animations);
}

void UWidgetAnimation::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("MovieScene"), &UWidgetAnimation::MovieScene);
	Class.Property(TEXT("DisplayLabel"), &UWidgetAnimation::DisplayLabel);
}

UClass* UWidgetBlueprint::GetBlueprintClass() const
{
	return UWidgetBlueprintGeneratedClass::StaticClass();
}

void UWidgetBlueprint::ForEachSourceWidget(TFunctionRef<void(UWidget*)> Visit) const
{
	if (WidgetTree)
	{
		WidgetTree->ForEachWidget(Visit);
	}
}

TArray<UWidget*> UWidgetBlueprint::GetAllSourceWidgets() const
{
	TArray<UWidget*> Widgets;
	ForEachSourceWidget([&Widgets](UWidget* Widget) { Widgets.Add(Widget); });
	return Widgets;
}

float UWidgetAnimation::GetStartTime() const
{
	return MovieScene ? static_cast<float>(MovieScene->GetPlaybackStartSeconds()) : 0.0f;
}

float UWidgetAnimation::GetEndTime() const
{
	return MovieScene ? static_cast<float>(MovieScene->GetPlaybackEndSeconds()) : 0.0f;
}

TArray<FWidgetBlueprintVariable> FWidgetBlueprintVariable::Collect(const UBlueprint* Blueprint)
{
	TArray<FWidgetBlueprintVariable> Variables;
	const UWidgetBlueprint* const WidgetBlueprint = Cast<UWidgetBlueprint>(Blueprint);
	if (!WidgetBlueprint)
	{
		return Variables;
	}
	WidgetBlueprint->ForEachSourceWidget(
		[&Variables](UWidget* Widget)
		{
			if (Widget->bIsVariable)
			{
				Variables.Add(FWidgetBlueprintVariable{Widget->GetFName(), Widget->GetClass()});
			}
		});
	for (const UWidgetAnimation* const Animation : WidgetBlueprint->Animations)
	{
		if (Animation)
		{
			Variables.Add(
				FWidgetBlueprintVariable{FName(Animation->GetDisplayLabel()), UWidgetAnimation::StaticClass()});
		}
	}
	return Variables;
}

void RegisterUMGClasses()
{
	NativeClass::RegisterNativeClasses({&UVisual::StaticClass, &UWidget::StaticClass, &UPanelSlot::StaticClass,
		&UPanelWidget::StaticClass, &UContentWidget::StaticClass, &UUserWidget::StaticClass, &UWidgetTree::StaticClass,
		&UWidgetBlueprint::StaticClass, &UWidgetAnimation::StaticClass, &UMovieScene::StaticClass});
}
