#include "K2Node_GetSubsystem.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_GetSubsystem, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_GetSubsystemFromPC, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_GetEngineSubsystem, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_GetEditorSubsystem, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_GetSubsystem::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("CustomClass"), &UK2Node_GetSubsystem::CustomClass);
}

void UK2Node_GetSubsystemFromPC::DescribeClass(FClassDescriber&) {}
void UK2Node_GetEngineSubsystem::DescribeClass(FClassDescriber&) {}
void UK2Node_GetEditorSubsystem::DescribeClass(FClassDescriber&) {}

namespace Subsystems
{
const FName ClassPin(TEXT("Class"));
const FName WorldContextPin(TEXT("WorldContextObject"));
const FName ControllerPin(TEXT("PlayerController"));
} // namespace Subsystems

UEdGraphPin* UK2Node_GetSubsystem::GetClassPin() const
{
	return FindPin(Subsystems::ClassPin, EGPD_Input);
}

UEdGraphPin* UK2Node_GetSubsystem::GetResultPin() const
{
	return FindPin(UEdGraphSchema_K2::PN_ReturnValue, EGPD_Output);
}

TArray<const TCHAR*> UK2Node_GetSubsystem::GetBaseClassPaths() const
{
	return {TEXT("/Script/Engine.GameInstanceSubsystem"), TEXT("/Script/Engine.WorldSubsystem"),
		TEXT("/Script/Engine.LocalPlayerSubsystem"), TEXT("/Script/Engine.AudioEngineSubsystem")};
}

TArray<const TCHAR*> UK2Node_GetSubsystemFromPC::GetBaseClassPaths() const
{
	return {TEXT("/Script/Engine.LocalPlayerSubsystem")};
}

TArray<const TCHAR*> UK2Node_GetEngineSubsystem::GetBaseClassPaths() const
{
	return {TEXT("/Script/Engine.EngineSubsystem")};
}

TArray<const TCHAR*> UK2Node_GetEditorSubsystem::GetBaseClassPaths() const
{
	return {TEXT("/Script/EditorSubsystem.EditorSubsystem")};
}

const TCHAR* UK2Node_GetSubsystem::GetCategoryWord() const
{
	struct FGroup
	{
		const TCHAR* Base;
		const TCHAR* Words;
	};
	static constexpr FGroup Groups[] = {{TEXT("/Script/Engine.GameInstanceSubsystem"), TEXT("GameInstance Subsystems")},
		{TEXT("/Script/Engine.LocalPlayerSubsystem"), TEXT("LocalPlayer Subsystems")},
		{TEXT("/Script/Engine.WorldSubsystem"), TEXT("World Subsystems")},
		{TEXT("/Script/Engine.AudioEngineSubsystem"), TEXT("AudioEngine Subsystems")}};
	for (const FGroup& Group : Groups)
	{
		const UClass* const Base = FindObject<UClass>(nullptr, Group.Base);
		if (Base && CustomClass.Get() && CustomClass->IsChildOf(Base))
		{
			return Group.Words;
		}
	}
	return TEXT("Subsystems");
}

const TCHAR* UK2Node_GetSubsystemFromPC::GetCategoryWord() const
{
	return TEXT("PlayerController|LocalPlayer Subsystems");
}

const TCHAR* UK2Node_GetEngineSubsystem::GetCategoryWord() const
{
	return TEXT("Engine Subsystems");
}

const TCHAR* UK2Node_GetEditorSubsystem::GetCategoryWord() const
{
	return TEXT("Editor Subsystems");
}

bool UK2Node_GetSubsystem::NeedsWorldContext() const
{
	const UBlueprint* const Blueprint = GetBlueprint();
	const UClass* const Parent = Blueprint ? Blueprint->ParentClass.Get() : nullptr;
	return Parent && Parent->HasMetaData(FBlueprintMetadata::MD_ShowWorldContextPin);
}

void UK2Node_GetSubsystemFromPC::CreateOwnPins()
{
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Object,
		FindObject<UClass>(nullptr, TEXT("/Script/Engine.PlayerController")), Subsystems::ControllerPin);
}

void UK2Node_GetSubsystem::AllocateDefaultPins()
{
	if (NeedsWorldContext())
	{
		CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Object, UObject::StaticClass(), Subsystems::WorldContextPin);
	}
	CreateOwnPins();
	// A node for several kinds of subsystem lets its pin choose among all of them.
	const TArray<const TCHAR*> Paths = GetBaseClassPaths();
	UClass* const Base = FindObject<UClass>(nullptr, Paths.Num() == 1 ? Paths[0] : TEXT("/Script/Engine.Subsystem"));
	UClass* Result = CustomClass.Get();
	if (!Result)
	{
		CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Class, Base, Subsystems::ClassPin);
		Result = Base;
	}
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Object, Result, UEdGraphSchema_K2::PN_ReturnValue);
	Super::AllocateDefaultPins();
}

FText UK2Node_GetSubsystem::GetNodeTitle(ENodeTitleType::Type) const
{
	const UClass* const Class = CustomClass.Get();
	return Class ? FText::FromString(FString::Printf(TEXT("Get %s"), *Class->GetDisplayNameText().ToString()))
				 : NSLOCTEXT("K2Node", "GetSubsystem", "Get Subsystem");
}

FText UK2Node_GetSubsystem::GetTooltipText() const
{
	const UClass* const Class = CustomClass.Get();
	return Class
		? FText::FromString(FString::Printf(TEXT("The %s that is there"), *Class->GetDisplayNameText().ToString()))
		: NSLOCTEXT("K2Node", "GetSubsystem_Tooltip", "The subsystem of the class");
}

FText UK2Node_GetSubsystem::GetMenuCategory() const
{
	return FText::FromString(GetCategoryWord());
}

void UK2Node_GetSubsystem::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	for (const TCHAR* const Path : GetBaseClassPaths())
	{
		const UClass* const Base = FindObject<UClass>(nullptr, Path);
		TArray<UClass*> Classes;
		if (Base)
		{
			GetDerivedClasses(Base, Classes);
		}
		for (UClass* const Class : Classes)
		{
			if (!Class->HasAnyClassFlags(CLASS_Abstract)
				&& UEdGraphSchema_K2::IsAllowableBlueprintVariableType(Class, true))
			{
				ActionRegistrar.AddBlueprintAction(Class,
					UBlueprintNodeSpawner::Create(GetClass(), nullptr,
						[Class](UEdGraphNode* Node, bool)
						{ CastChecked<UK2Node_GetSubsystem>(Node)->Initialize(Class); }));
			}
		}
	}
}

void UK2Node_GetSubsystem::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	const UEdGraphPin* const ClassPin = GetClassPin();
	if (!CustomClass.Get() && (!ClassPin || (!ClassPin->DefaultObject && ClassPin->LinkedTo.IsEmpty())))
	{
		MessageLog.Error(TEXT("Node @@ must have a class specified."), this);
	}
}
