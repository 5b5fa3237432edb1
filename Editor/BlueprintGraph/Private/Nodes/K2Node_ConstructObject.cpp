// Nodes that make an object of a class: actors, objects, widgets, components.

#include "K2Node_AddComponentByClass.h"
#include "K2Node_CreateWidget.h"
#include "K2Node_GenericCreateObject.h"
#include "K2Node_SpawnActorFromClass.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "ClassPins.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphSchema.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "ExposedVariables.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_ConstructObjectFromClass, "/Script/BlueprintGraph", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UK2Node_SpawnActorFromClass, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_GenericCreateObject, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_AddComponentByClass, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_CreateWidget, "/Script/UMGEditor", CLASS_None)

void UK2Node_ConstructObjectFromClass::DescribeClass(FClassDescriber&) {}
void UK2Node_SpawnActorFromClass::DescribeClass(FClassDescriber&) {}
void UK2Node_GenericCreateObject::DescribeClass(FClassDescriber&) {}
void UK2Node_AddComponentByClass::DescribeClass(FClassDescriber&) {}
void UK2Node_CreateWidget::DescribeClass(FClassDescriber&) {}

namespace ConstructObject
{
const FName ClassPin(TEXT("Class"));
/** What the outer's pin is called in older assets; it is the self pin since, so that nothing linked means the
 * Blueprint. */
const FName OldOuterPin(TEXT("Outer"));
const FName WorldContextPin(TEXT("WorldContextObject"));
const FName TransformPin(TEXT("SpawnTransform"));
const FName CollisionPin(TEXT("CollisionHandlingOverride"));
const FName ScalePin(TEXT("TransformScaleMethod"));
const FName OwnerPin(TEXT("Owner"));
const FName OwningPlayerPin(TEXT("OwningPlayer"));
const FName ManualAttachmentPin(TEXT("bManualAttachment"));
const FName RelativeTransformPin(TEXT("RelativeTransform"));

static UClass* FindClass(const TCHAR* Path)
{
	return FindObject<UClass>(nullptr, Path);
}
} // namespace ConstructObject

UEdGraphPin* UK2Node_ConstructObjectFromClass::GetClassPin(const TArray<UEdGraphPin*>* InPinsToSearch) const
{
	return ClassPins::FindInput(*this, InPinsToSearch, ConstructObject::ClassPin);
}

UEdGraphPin* UK2Node_ConstructObjectFromClass::GetOuterPin() const
{
	return UseOuter() ? FindPin(UEdGraphSchema_K2::PN_Self, EGPD_Input) : nullptr;
}

UEdGraphPin* UK2Node_ConstructObjectFromClass::GetResultPin() const
{
	return FindPin(UEdGraphSchema_K2::PN_ReturnValue, EGPD_Output);
}

bool UK2Node_ConstructObjectFromClass::UseWorldContext() const
{
	const UBlueprint* const Blueprint = GetBlueprint();
	const UClass* const Parent = Blueprint ? Blueprint->ParentClass.Get() : nullptr;
	return Parent && Parent->HasMetaData(FBlueprintMetadata::MD_ShowWorldContextPin);
}

UClass* UK2Node_ConstructObjectFromClass::GetClassPinBaseClass() const
{
	return UObject::StaticClass();
}

UClass* UK2Node_ConstructObjectFromClass::GetClassToSpawn(const TArray<UEdGraphPin*>* InPinsToSearch) const
{
	return ClassPins::GetChosen(GetClassPin(InPinsToSearch));
}

bool UK2Node_ConstructObjectFromClass::IsSpawnVarPin(UEdGraphPin* Pin) const
{
	if (Pin->ParentPin)
	{
		return IsSpawnVarPin(Pin->ParentPin);
	}
	const FName Name = Pin->PinName;
	return Name != UEdGraphSchema_K2::PN_Execute && Name != UEdGraphSchema_K2::PN_Then
		&& Name != UEdGraphSchema_K2::PN_ReturnValue && Name != ConstructObject::ClassPin
		&& Name != ConstructObject::WorldContextPin && Name != UEdGraphSchema_K2::PN_Self;
}

void UK2Node_ConstructObjectFromClass::AllocateDefaultPins()
{
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Execute);
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Then);
	if (UseWorldContext())
	{
		CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Object, UObject::StaticClass(), ConstructObject::WorldContextPin);
	}
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Class, GetClassPinBaseClass(), ConstructObject::ClassPin);
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Object, GetClassPinBaseClass(), UEdGraphSchema_K2::PN_ReturnValue);
	if (UseOuter())
	{
		UEdGraphPin* const Outer = CreatePin(
			EGPD_Input, UEdGraphSchema_K2::PC_Object, UObject::StaticClass(), UEdGraphSchema_K2::PN_Self);
		Outer->PinFriendlyName = NSLOCTEXT("K2Node", "Outer", "Outer");
	}
	CreateOwnPins();
	Super::AllocateDefaultPins();
}

void UK2Node_ConstructObjectFromClass::CreatePinsForClass(UClass* InClass, TArray<UEdGraphPin*>* OutClassPins)
{
	ExposedVariables::CreatePins(*this, *InClass, TSet<FName>(), OutClassPins);
	if (UEdGraphPin* const Result = GetResultPin())
	{
		Result->PinType.PinSubCategoryObject = InClass->GetAuthoritativeClass();
	}
}

void UK2Node_ConstructObjectFromClass::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	AllocateDefaultPins();
	if (UClass* const Class = GetClassToSpawn(&OldPins))
	{
		CreatePinsForClass(Class);
	}
	RestoreSplitPins(OldPins);
}

UK2Node::ERedirectType UK2Node_ConstructObjectFromClass::DoPinsMatchForReconstruction(
	const UEdGraphPin* NewPin, int32 NewPinIndex, const UEdGraphPin* OldPin, int32 OldPinIndex) const
{
	const bool bOuter = UseOuter() && NewPin->PinName == UEdGraphSchema_K2::PN_Self
		&& OldPin->PinName == ConstructObject::OldOuterPin && OldPin->Direction == EGPD_Input;
	return bOuter ? ERedirectType_Name : Super::DoPinsMatchForReconstruction(NewPin, NewPinIndex, OldPin, OldPinIndex);
}

void UK2Node_ConstructObjectFromClass::PostPlacedNewNode()
{
	Super::PostPlacedNewNode();
	if (UClass* const Class = GetClassToSpawn())
	{
		CreatePinsForClass(Class);
	}
}

void UK2Node_ConstructObjectFromClass::OnClassPinChanged()
{
	const UClass* const Class = GetClassToSpawn();
	if (UEdGraphPin* const Result = GetResultPin())
	{
		// The result is the same pin whatever it gives: it stays, and loses only the links that cannot take the new
		// class.
		Result->PinType.PinSubCategoryObject = Class ? Class->GetAuthoritativeClass() : GetClassPinBaseClass();
	}
	// Whatever the old class exposed goes; what was linked or set and has no like in the new class stays as an orphan.
	ReconstructNode();
	BreakUnfitLinks(GetResultPin());
}

void UK2Node_ConstructObjectFromClass::PinDefaultValueChanged(UEdGraphPin* Pin)
{
	Super::PinDefaultValueChanged(Pin);
	if (Pin && Pin->PinName == ConstructObject::ClassPin)
	{
		OnClassPinChanged();
	}
}

void UK2Node_ConstructObjectFromClass::PinConnectionListChanged(UEdGraphPin* Pin)
{
	Super::PinConnectionListChanged(Pin);
	if (Pin && Pin->PinName == ConstructObject::ClassPin)
	{
		OnClassPinChanged();
	}
}

FString UK2Node_ConstructObjectFromClass::GetTitlePrefix() const
{
	return TEXT("Construct");
}

FText UK2Node_ConstructObjectFromClass::GetBaseNodeTitle() const
{
	return NSLOCTEXT("K2Node", "ConstructObject_BaseTitle", "Construct Object from Class");
}

FText UK2Node_ConstructObjectFromClass::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	if (TitleType == ENodeTitleType::ListView || TitleType == ENodeTitleType::MenuTitle)
	{
		return GetBaseNodeTitle();
	}
	const UClass* const Class = GetClassToSpawn();
	const FString Name = Class ? Class->GetDisplayNameText().ToString() : FString(TEXT("NONE"));
	return FText::FromString(GetTitlePrefix() + TEXT(" ") + Name);
}

FText UK2Node_ConstructObjectFromClass::GetTooltipText() const
{
	return NSLOCTEXT("K2Node", "ConstructObject_Tooltip", "Makes an object of the class");
}

FText UK2Node_ConstructObjectFromClass::GetMenuCategory() const
{
	return NSLOCTEXT("K2Node", "ConstructObject_Category", "Game");
}

void UK2Node_ConstructObjectFromClass::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
}

void UK2Node_ConstructObjectFromClass::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	const UEdGraphPin* const ClassPin = GetClassPin();
	if (!ClassPin || !ClassPin->LinkedTo.IsEmpty())
	{
		return;
	}
	const UClass* const Class = GetClassToSpawn();
	if (!Class)
	{
		MessageLog.Error(TEXT("Spawn node @@ must have a @@ specified."), this, ClassPin);
	}
	else if (Class->HasAnyClassFlags(CLASS_Abstract))
	{
		MessageLog.Error(*FString::Printf(TEXT("Cannot construct objects of type '%s' in @@: the class is abstract."),
							 *Class->GetName()),
			this);
	}
}

UClass* UK2Node_SpawnActorFromClass::GetClassPinBaseClass() const
{
	return ConstructObject::FindClass(TEXT("/Script/Engine.Actor"));
}

bool UK2Node_SpawnActorFromClass::IsSpawnVarPin(UEdGraphPin* Pin) const
{
	const FName Name = Pin->ParentPin ? Pin->ParentPin->PinName : Pin->PinName;
	return Super::IsSpawnVarPin(Pin) && Name != ConstructObject::TransformPin && Name != ConstructObject::CollisionPin
		&& Name != ConstructObject::ScalePin && Name != ConstructObject::OwnerPin;
}

void UK2Node_SpawnActorFromClass::CreateOwnPins()
{
	UScriptStruct* const Transform = TBaseStructure<FTransform>::Get();
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Struct, Transform, ConstructObject::TransformPin);
	UEnum* const Collision = FindObject<UEnum>(nullptr, TEXT("/Script/Engine.ESpawnActorCollisionHandlingMethod"));
	UEdGraphPin* const CollisionPin = CreatePin(
		EGPD_Input, UEdGraphSchema_K2::PC_Byte, Collision, ConstructObject::CollisionPin);
	CollisionPin->DefaultValue = Collision ? Collision->GetNameStringByValue(0) : FString();
	UEnum* const Scale = FindObject<UEnum>(nullptr, TEXT("/Script/Engine.ESpawnActorScaleMethod"));
	UEdGraphPin* const ScalePin = CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Byte, Scale, ConstructObject::ScalePin);
	ScalePin->DefaultValue = TEXT("MultiplyWithRoot");
	ScalePin->bAdvancedView = true;
	UEdGraphPin* const OwnerPin = CreatePin(
		EGPD_Input, UEdGraphSchema_K2::PC_Object, GetClassPinBaseClass(), ConstructObject::OwnerPin);
	OwnerPin->bAdvancedView = true;
	if (AdvancedPinDisplay == ENodeAdvancedPins::NoPins)
	{
		AdvancedPinDisplay = ENodeAdvancedPins::Hidden;
	}
}

bool UK2Node_SpawnActorFromClass::IsCompatibleWithGraph(const UEdGraph* Graph) const
{
	if (!Graph || !Graph->GetSchema() || UEdGraphSchema_K2::IsConstructionScript(Graph))
	{
		return false;
	}
	const EGraphType Type = Graph->GetSchema()->GetGraphType(Graph);
	return (Type == GT_Ubergraph || Type == GT_Function || Type == GT_Macro) && Super::IsCompatibleWithGraph(Graph);
}

FString UK2Node_SpawnActorFromClass::GetTitlePrefix() const
{
	return TEXT("SpawnActor");
}

FText UK2Node_SpawnActorFromClass::GetBaseNodeTitle() const
{
	return NSLOCTEXT("K2Node", "SpawnActor_BaseTitle", "Spawn Actor from Class");
}

FText UK2Node_SpawnActorFromClass::GetTooltipText() const
{
	return NSLOCTEXT("K2Node", "SpawnActor_Tooltip", "Spawns an actor of the class at a place");
}

FText UK2Node_SpawnActorFromClass::GetKeywords() const
{
	return NSLOCTEXT("K2Node", "SpawnActor_Keywords", "Create Instance");
}

FText UK2Node_SpawnActorFromClass::GetMenuCategory() const
{
	return NSLOCTEXT("K2Node", "SpawnActor_Category", "Game");
}

void UK2Node_GenericCreateObject::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	const UClass* const Class = GetClassToSpawn();
	const UClass* const Actor = ConstructObject::FindClass(TEXT("/Script/Engine.Actor"));
	if (Class && Actor && Class->IsChildOf(Actor))
	{
		MessageLog.Error(
			*FString::Printf(TEXT("Cannot construct actors with @@: '%s' has to be spawned."), *Class->GetName()),
			this);
	}
}

UClass* UK2Node_CreateWidget::GetClassPinBaseClass() const
{
	return ConstructObject::FindClass(TEXT("/Script/UMG.UserWidget"));
}

bool UK2Node_CreateWidget::IsSpawnVarPin(UEdGraphPin* Pin) const
{
	return Super::IsSpawnVarPin(Pin) && Pin->PinName != ConstructObject::OwningPlayerPin;
}

void UK2Node_CreateWidget::CreateOwnPins()
{
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Object,
		ConstructObject::FindClass(TEXT("/Script/Engine.PlayerController")), ConstructObject::OwningPlayerPin);
}

FString UK2Node_CreateWidget::GetTitlePrefix() const
{
	return TEXT("Create");
}

FText UK2Node_CreateWidget::GetBaseNodeTitle() const
{
	return NSLOCTEXT("UMG", "CreateWidget_BaseTitle", "Create Widget");
}

FText UK2Node_CreateWidget::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	if (TitleType == ENodeTitleType::ListView || TitleType == ENodeTitleType::MenuTitle)
	{
		return GetBaseNodeTitle();
	}
	const UClass* const Class = GetClassToSpawn();
	return Class ? FText::FromString(FString::Printf(TEXT("Create %s Widget"), *Class->GetDisplayNameText().ToString()))
				 : GetBaseNodeTitle();
}

FText UK2Node_CreateWidget::GetMenuCategory() const
{
	return NSLOCTEXT("UMG", "CreateWidget_Category", "User Interface");
}

UClass* UK2Node_AddComponentByClass::GetClassPinBaseClass() const
{
	return ConstructObject::FindClass(TEXT("/Script/Engine.ActorComponent"));
}

bool UK2Node_AddComponentByClass::IsSpawnVarPin(UEdGraphPin* Pin) const
{
	const FName Name = Pin->ParentPin ? Pin->ParentPin->PinName : Pin->PinName;
	return Super::IsSpawnVarPin(Pin) && Name != ConstructObject::ManualAttachmentPin
		&& Name != ConstructObject::RelativeTransformPin && Name != UEdGraphSchema_K2::PN_Self;
}

void UK2Node_AddComponentByClass::CreateOwnPins()
{
	FCreatePinParams BehindExecute;
	BehindExecute.Index = 1;
	UEdGraphPin* const SelfPin = CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Object,
		ConstructObject::FindClass(TEXT("/Script/Engine.Actor")), UEdGraphSchema_K2::PN_Self, BehindExecute);
	SelfPin->PinFriendlyName = NSLOCTEXT("K2Node", "Target", "Target");
	UEdGraphPin* const Manual = CreatePin(
		EGPD_Input, UEdGraphSchema_K2::PC_Boolean, ConstructObject::ManualAttachmentPin);
	GetK2Schema()->SetPinAutogeneratedDefaultValueBasedOnType(Manual);
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Struct, static_cast<UObject*>(TBaseStructure<FTransform>::Get()),
		ConstructObject::RelativeTransformPin);
	ShowAttachmentPins(false);
}

void UK2Node_AddComponentByClass::ShowAttachmentPins(bool bShow)
{
	for (const FName Name : {ConstructObject::ManualAttachmentPin, ConstructObject::RelativeTransformPin})
	{
		if (UEdGraphPin* const Pin = FindPin(Name, EGPD_Input))
		{
			Pin->bHidden = !bShow;
		}
	}
}

void UK2Node_AddComponentByClass::CreatePinsForClass(UClass* InClass, TArray<UEdGraphPin*>* OutClassPins)
{
	// Only what stands somewhere in the scene is attached.
	const UClass* const SceneComponent = ConstructObject::FindClass(TEXT("/Script/Engine.SceneComponent"));
	ShowAttachmentPins(SceneComponent && InClass->IsChildOf(SceneComponent));
	Super::CreatePinsForClass(InClass, OutClassPins);
}

FString UK2Node_AddComponentByClass::GetTitlePrefix() const
{
	return TEXT("Add");
}

FText UK2Node_AddComponentByClass::GetBaseNodeTitle() const
{
	return NSLOCTEXT("K2Node", "AddComponentByClass_BaseTitle", "Add Component by Class");
}

FText UK2Node_AddComponentByClass::GetMenuCategory() const
{
	return NSLOCTEXT("K2Node", "AddComponentByClass_Category", "Components");
}
