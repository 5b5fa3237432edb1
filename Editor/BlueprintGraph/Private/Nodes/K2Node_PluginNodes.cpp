// Nodes that plugins add to graphs: cues, animations of widgets, scripts.

#include "K2Node_ExecutePythonScript.h"
#include "K2Node_GameplayCueEvent.h"
#include "K2Node_WidgetAnimationEvent.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "EdGraphSchema_K2.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_GameplayCueEvent, "/Script/GameplayAbilitiesEditor", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_WidgetAnimationEvent, "/Script/UMGEditor", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_ExecutePythonScript, "/Script/PythonScriptPlugin", CLASS_None)

void UK2Node_GameplayCueEvent::DescribeClass(FClassDescriber&) {}

void UK2Node_WidgetAnimationEvent::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("AnimationPropertyName"), &UK2Node_WidgetAnimationEvent::AnimationPropertyName);
	Class.Property(TEXT("UserTag"), &UK2Node_WidgetAnimationEvent::UserTag);
}

void UK2Node_ExecutePythonScript::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("Inputs"), &UK2Node_ExecutePythonScript::Inputs);
	Class.Property(TEXT("Outputs"), &UK2Node_ExecutePythonScript::Outputs);
}

UK2Node_GameplayCueEvent::UK2Node_GameplayCueEvent()
{
	bInternalEvent = true;
	if (UClass* const Interface = FindObject<UClass>(nullptr, TEXT("/Script/GameplayAbilities.GameplayCueInterface")))
	{
		EventReference.SetExternalMember(FName(TEXT("BlueprintCustomHandler")), TSubclassOf<UObject>(Interface));
	}
}

FText UK2Node_GameplayCueEvent::GetMenuCategory() const
{
	return NSLOCTEXT("K2Node", "GameplayCueCategory", "GameplayCue");
}

UK2Node_WidgetAnimationEvent::UK2Node_WidgetAnimationEvent()
{
	bInternalEvent = true;
}

FText UK2Node_WidgetAnimationEvent::GetNodeTitle(ENodeTitleType::Type) const
{
	return FText::FromString(FString::Printf(TEXT("Animation Event: %s"), *AnimationPropertyName.ToString()));
}

FText UK2Node_WidgetAnimationEvent::GetMenuCategory() const
{
	return NSLOCTEXT("UMG", "AnimationCategory", "User Interface|Animation");
}

UK2Node_ExecutePythonScript::UK2Node_ExecutePythonScript()
{
	if (UClass* const Library = FindObject<UClass>(nullptr, TEXT("/Script/PythonScriptPlugin.PythonScriptLibrary")))
	{
		FunctionReference.SetExternalMember(FName(TEXT("ExecutePythonScript")), TSubclassOf<UObject>(Library));
	}
}

void UK2Node_ExecutePythonScript::AllocateDefaultPins()
{
	Super::AllocateDefaultPins();
	// The lists of names that the call takes are filled from the node's own pins.
	for (const TCHAR* const List : {TEXT("PythonInputs"), TEXT("PythonOutputs")})
	{
		if (UEdGraphPin* const Pin = FindPin(FName(List)))
		{
			Pin->bHidden = true;
		}
	}
	for (const FName Name : Inputs)
	{
		CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Wildcard, Name);
	}
	for (const FName Name : Outputs)
	{
		CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Wildcard, Name);
	}
}

FText UK2Node_ExecutePythonScript::GetNodeTitle(ENodeTitleType::Type) const
{
	return NSLOCTEXT("K2Node", "ExecutePythonScript", "Execute Python Script");
}

void UK2Node_ExecutePythonScript::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
}
