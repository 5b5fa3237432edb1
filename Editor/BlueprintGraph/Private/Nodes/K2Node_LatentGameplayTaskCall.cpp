// Tasks of gameplay and of abilities, which may spawn an actor and set its variables.

#include "K2Node_LatentGameplayTaskCall.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "ClassPins.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "ExposedVariables.h"
#include "FunctionPins.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_LatentGameplayTaskCall, "/Script/GameplayTasksEditor", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_LatentAbilityCall, "/Script/GameplayAbilitiesEditor", CLASS_None)

void UK2Node_LatentGameplayTaskCall::DescribeClass(FClassDescriber&) {}
void UK2Node_LatentAbilityCall::DescribeClass(FClassDescriber&) {}

UK2Node_LatentGameplayTaskCall::UK2Node_LatentGameplayTaskCall()
{
	ProxyActivateFunctionName = FName(TEXT("ReadyForActivation"));
}

UClass* UK2Node_LatentGameplayTaskCall::GetTaskBaseClass() const
{
	return FindObject<UClass>(nullptr, TEXT("/Script/GameplayTasks.GameplayTask"));
}

UClass* UK2Node_LatentAbilityCall::GetTaskBaseClass() const
{
	return FindObject<UClass>(nullptr, TEXT("/Script/GameplayAbilities.AbilityTask"));
}

FText UK2Node_LatentGameplayTaskCall::GetDefaultCategory() const
{
	return NSLOCTEXT("K2Node", "GameplayTasksCategory", "Gameplay Tasks");
}

FText UK2Node_LatentAbilityCall::GetDefaultCategory() const
{
	return NSLOCTEXT("K2Node", "AbilityTasksCategory", "Ability|Tasks");
}

namespace LatentTasks
{
const FName ClassPin(TEXT("Class"));
const FName SpawnedActorPin(TEXT("SpawnedActor"));

/** A task that spawns an actor lets its class be chosen, and its variables be set before it begins to play. */
static bool SpawnsActor(const UClass& Task)
{
	static const FName BeginSpawning(TEXT("BeginSpawningActor"));
	static const FName FinishSpawning(TEXT("FinishSpawningActor"));
	return Task.FindFunctionByName(BeginSpawning) && Task.FindFunctionByName(FinishSpawning);
}

/** Variables that the factory says make no sense for what its task spawns. */
static TSet<FName> HiddenVariables(const UFunction* Factory)
{
	static const FName HideSpawnParms(TEXT("HideSpawnParms"));
	return Factory ? FunctionPins::NamesInMetaData(*Factory, HideSpawnParms) : TSet<FName>();
}
} // namespace LatentTasks

UEdGraphPin* UK2Node_LatentGameplayTaskCall::GetClassPin(const TArray<UEdGraphPin*>* InPinsToSearch) const
{
	return ClassPins::FindInput(*this, InPinsToSearch, LatentTasks::ClassPin);
}

UClass* UK2Node_LatentGameplayTaskCall::GetClassToSpawn(const TArray<UEdGraphPin*>* InPinsToSearch) const
{
	return ClassPins::GetChosen(GetClassPin(InPinsToSearch));
}

void UK2Node_LatentGameplayTaskCall::CreatePinsForClass(UClass* InClass)
{
	ExposedVariables::CreatePins(*this, *InClass, LatentTasks::HiddenVariables(GetFactoryFunction()), nullptr);
}

void UK2Node_LatentGameplayTaskCall::AllocateDefaultPins()
{
	Super::AllocateDefaultPins();
	const UClass* const Class = ProxyClass.Get();
	if (GetFactoryFunction() && Class && LatentTasks::SpawnsActor(*Class))
	{
		UClass* const Actor = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor"));
		if (!FindPin(LatentTasks::ClassPin))
		{
			CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Class, Actor, LatentTasks::ClassPin);
		}
		if (!FindPin(LatentTasks::SpawnedActorPin))
		{
			CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Object, Actor, LatentTasks::SpawnedActorPin);
		}
	}
}

void UK2Node_LatentGameplayTaskCall::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	Super::ReallocatePinsDuringReconstruction(OldPins);
	UClass* const Class = GetFactoryFunction() ? GetClassToSpawn(&OldPins) : nullptr;
	if (Class)
	{
		CreatePinsForClass(Class);
		RestoreSplitPins(OldPins);
	}
}

void UK2Node_LatentGameplayTaskCall::PostPlacedNewNode()
{
	Super::PostPlacedNewNode();
	if (UClass* const Class = GetClassToSpawn())
	{
		CreatePinsForClass(Class);
	}
}

void UK2Node_LatentGameplayTaskCall::PinDefaultValueChanged(UEdGraphPin* Pin)
{
	Super::PinDefaultValueChanged(Pin);
	if (Pin && Pin == GetClassPin())
	{
		ReconstructNode();
	}
}

void UK2Node_LatentGameplayTaskCall::PinConnectionListChanged(UEdGraphPin* Pin)
{
	Super::PinConnectionListChanged(Pin);
	if (Pin && Pin == GetClassPin())
	{
		ReconstructNode();
	}
}

void UK2Node_LatentGameplayTaskCall::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	AddFactoryActions(ActionRegistrar, GetTaskBaseClass());
}

bool UK2Node_LatentAbilityCall::IsCompatibleWithGraph(const UEdGraph* Graph) const
{
	const UBlueprint* const Blueprint = Graph ? Graph->GetTypedOuter<UBlueprint>() : nullptr;
	const UClass* const Parent = Blueprint ? Blueprint->ParentClass.Get() : nullptr;
	const UClass* const Ability = FindObject<UClass>(nullptr, TEXT("/Script/GameplayAbilities.GameplayAbility"));
	return Parent && Ability && Parent->IsChildOf(Ability) && Super::IsCompatibleWithGraph(Graph);
}
