#include "WidgetBlueprint.h"

#include "Animation/WidgetAnimation.h"
#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetTree.h"
#include "Components/ContentWidget.h"
#include "Components/ExpandableArea.h"
#include "Components/NamedSlot.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "LoadedWidgets.h"
#include "MovieScene.h"
#include "Standalone/NativeClass.h"
#include "Standalone/UMGClasses.h"
#include "Standalone/WidgetBlueprintVariables.h"

IMPLEMENT_EDITOR_CLASS(UWidgetBlueprint, "/Script/UMGEditor", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UWidgetAnimation, "/Script/UMG", CLASS_None)
IMPLEMENT_EDITOR_STRUCT(FWidgetAnimationBinding, "/Script/UMG")
IMPLEMENT_EDITOR_STRUCT(FEditorPropertyPathSegment, "/Script/UMGEditor")
IMPLEMENT_EDITOR_STRUCT(FEditorPropertyPath, "/Script/UMGEditor")
IMPLEMENT_EDITOR_STRUCT(FDelegateEditorBinding, "/Script/UMGEditor")

template <>
UEnum* StaticEnum<EBindingKind>()
{
	static UEnum* const Enum = NativeClass::RegisterEnum(TEXT("EBindingKind"), TEXT("/Script/UMG"),
		UEnum::ECppForm::EnumClass, {{TEXT("Function"), 0}, {TEXT("Property"), 1}});
	return Enum;
}

void FEditorPropertyPathSegment::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("Struct"), &FEditorPropertyPathSegment::Struct);
	Struct.Property(TEXT("MemberName"), &FEditorPropertyPathSegment::MemberName);
	Struct.Property(TEXT("MemberGuid"), &FEditorPropertyPathSegment::MemberGuid);
	Struct.Property(TEXT("IsProperty"), &FEditorPropertyPathSegment::IsProperty);
}

void FEditorPropertyPath::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("Segments"), &FEditorPropertyPath::Segments);
}

void FDelegateEditorBinding::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("ObjectName"), &FDelegateEditorBinding::ObjectName);
	Struct.Property(TEXT("PropertyName"), &FDelegateEditorBinding::PropertyName);
	Struct.Property(TEXT("FunctionName"), &FDelegateEditorBinding::FunctionName);
	Struct.Property(TEXT("SourceProperty"), &FDelegateEditorBinding::SourceProperty);
	Struct.Property(TEXT("SourcePath"), &FDelegateEditorBinding::SourcePath);
	Struct.Property(TEXT("MemberGuid"), &FDelegateEditorBinding::MemberGuid);
	Struct.Property(TEXT("Kind"), &FDelegateEditorBinding::Kind);
}

void UWidgetBlueprint::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("WidgetTree"), &UWidgetBlueprint::WidgetTree, CPF_InstancedReference);
	Class.Property(TEXT("Bindings"), &UWidgetBlueprint::Bindings);
	Class.Property(TEXT("Animations"), &UWidgetBlueprint::Animations);
	Class.Property(TEXT("WidgetVariableNameToGuidMap"), &UWidgetBlueprint::WidgetVariableNameToGuidMap);
}

void UWidgetAnimation::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("MovieScene"), &UWidgetAnimation::MovieScene);
	Class.Property(TEXT("AnimationBindings"), &UWidgetAnimation::AnimationBindings);
	Class.Property(TEXT("DisplayLabel"), &UWidgetAnimation::DisplayLabel);
}

void FWidgetAnimationBinding::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("WidgetName"), &FWidgetAnimationBinding::WidgetName);
	Struct.Property(TEXT("SlotWidgetName"), &FWidgetAnimationBinding::SlotWidgetName);
	Struct.Property(TEXT("AnimationGuid"), &FWidgetAnimationBinding::AnimationGuid);
	Struct.Property(TEXT("bIsRootWidget"), &FWidgetAnimationBinding::bIsRootWidget);
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

namespace WidgetCycles
{
/** Whether a widget of the class holds, at any depth, one that the Blueprint makes. */
static bool Holds(const UClass* Class, const UWidgetBlueprint& Blueprint, TSet<const UWidgetBlueprint*>& Seen)
{
	const UClass* const Own = Blueprint.GeneratedClass.Get();
	const UWidgetBlueprint* const Maker = Cast<UWidgetBlueprint>(UBlueprint::GetBlueprintFromClass(Class));
	if (Own && Class->IsChildOf(Own))
	{
		return true;
	}
	if (!Maker || Seen.Contains(Maker))
	{
		return false;
	}
	Seen.Add(Maker);
	for (const UWidget* const Widget : Maker->GetAllSourceWidgets())
	{
		if (Holds(Widget->GetClass(), Blueprint, Seen))
		{
			return true;
		}
	}
	return false;
}
} // namespace WidgetCycles

bool UWidgetBlueprint::IsWidgetFreeFromCircularReferences(UUserWidget* UserWidget) const
{
	TSet<const UWidgetBlueprint*> Seen;
	return UserWidget && !WidgetCycles::Holds(UserWidget->GetClass(), *this, Seen);
}

void UWidgetBlueprint::OnVariableRenamed(const FName& OldName, const FName& NewName)
{
	if (const FGuid* const Guid = WidgetVariableNameToGuidMap.Find(OldName))
	{
		const FGuid Kept = *Guid;
		WidgetVariableNameToGuidMap.Remove(OldName);
		WidgetVariableNameToGuidMap.Add(NewName, Kept);
	}
	for (FDelegateEditorBinding& Binding : Bindings)
	{
		if (FName(Binding.ObjectName) == OldName)
		{
			Binding.ObjectName = NewName.ToString();
		}
		if (Binding.SourceProperty == OldName)
		{
			Binding.SourceProperty = NewName;
		}
		if (!Binding.SourcePath.IsEmpty() && Binding.SourcePath.Segments[0].MemberName == OldName)
		{
			Binding.SourcePath.Segments[0].MemberName = NewName;
		}
	}
	for (UWidgetAnimation* const Animation : Animations)
	{
		for (FWidgetAnimationBinding& Binding : Animation->AnimationBindings)
		{
			Binding.WidgetName = Binding.WidgetName == OldName ? NewName : Binding.WidgetName;
			Binding.SlotWidgetName = Binding.SlotWidgetName == OldName ? NewName : Binding.SlotWidgetName;
		}
	}
}

void UWidgetBlueprint::NotifyGraphRenamed(UEdGraph* Graph, FName OldName, FName NewName)
{
	Super::NotifyGraphRenamed(Graph, OldName, NewName);
	for (FDelegateEditorBinding& Binding : Bindings)
	{
		if (Binding.FunctionName == OldName)
		{
			Binding.FunctionName = NewName;
		}
	}
}

void UWidgetBlueprint::PreSave()
{
	Super::PreSave();
	ConformVariableGuids();
	DropBindingsOfMissingWidgets();
}

void UWidgetBlueprint::ConformVariableGuids()
{
	// Rebuilt in the order of the tree, so that what is written depends on nothing but what is there.
	TMap<FName, FGuid> Guids;
	const auto Keep = [this, &Guids](FName Name)
	{
		const FGuid* const Known = WidgetVariableNameToGuidMap.Find(Name);
		Guids.Add(Name, Known ? *Known : FGuid::NewGuid());
	};
	ForEachSourceWidget([&Keep](const UWidget* Widget) { Keep(Widget->GetFName()); });
	for (const UWidgetAnimation* const Animation : Animations)
	{
		if (Animation)
		{
			Keep(Animation->GetFName());
		}
	}
	WidgetVariableNameToGuidMap = MoveTemp(Guids);
}

void UWidgetBlueprint::DropBindingsOfMissingWidgets()
{
	// The widget itself is a possible target under the Blueprint's own name.
	const FString Self = GetName();
	Bindings.RemoveAll([this, &Self](const FDelegateEditorBinding& Binding)
		{ return Binding.ObjectName != Self && (!WidgetTree || !WidgetTree->FindWidget(FName(Binding.ObjectName))); });
}

namespace WidgetAnimations
{
static float ToSeconds(const UMovieScene* Scene, const FFrameNumber& (TRange<FFrameNumber>::*Bound)() const)
{
	return Scene ? static_cast<float>(Scene->GetTickResolution().AsSeconds((Scene->GetPlaybackRange().*Bound)()))
				 : 0.0f;
}
} // namespace WidgetAnimations

float UWidgetAnimation::GetStartTime() const
{
	return WidgetAnimations::ToSeconds(MovieScene, &TRange<FFrameNumber>::GetLowerBoundValue);
}

float UWidgetAnimation::GetEndTime() const
{
	return WidgetAnimations::ToSeconds(MovieScene, &TRange<FFrameNumber>::GetUpperBoundValue);
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
			Variables.Add(FWidgetBlueprintVariable{Animation->GetFName(), UWidgetAnimation::StaticClass()});
		}
	}
	return Variables;
}

void RegisterUMGClasses()
{
	NativeClass::RegisterNativeClasses({&UVisual::StaticClass, &UWidget::StaticClass, &UPanelSlot::StaticClass,
		&UPanelWidget::StaticClass, &UContentWidget::StaticClass, &UNamedSlotInterface::StaticClass,
		&UNamedSlot::StaticClass, &UExpandableArea::StaticClass, &UUserWidget::StaticClass, &UWidgetTree::StaticClass,
		&UWidgetBlueprint::StaticClass, &UWidgetAnimation::StaticClass, &UMovieScene::StaticClass});
	[[maybe_unused]] static const bool bCheckAdded = (AddWidgetStructureCheck(), true);
}
