// Nodes that start a task and go on at its events.

#include "K2Node_AsyncAction.h"
#include "K2Node_LatentGameplayTaskCall.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphSchema.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "ExposedVariables.h"
#include "FunctionPins.h"
#include "K2Node_CallFunction.h"
#include "Kismet2/CompilerResultsLog.h"
#include "UObject/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_BaseAsyncTask, "/Script/BlueprintGraph", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UK2Node_AsyncAction, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_LatentGameplayTaskCall, "/Script/GameplayTasksEditor", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_LatentAbilityCall, "/Script/GameplayAbilitiesEditor", CLASS_None)

void UK2Node_BaseAsyncTask::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("ProxyFactoryFunctionName"), &UK2Node_BaseAsyncTask::ProxyFactoryFunctionName);
	Class.Property(TEXT("ProxyFactoryClass"), &UK2Node_BaseAsyncTask::ProxyFactoryClass);
	Class.Property(TEXT("ProxyClass"), &UK2Node_BaseAsyncTask::ProxyClass);
	Class.Property(TEXT("ProxyActivateFunctionName"), &UK2Node_BaseAsyncTask::ProxyActivateFunctionName);
}

void UK2Node_AsyncAction::DescribeClass(FClassDescriber&) {}
void UK2Node_LatentGameplayTaskCall::DescribeClass(FClassDescriber&) {}
void UK2Node_LatentAbilityCall::DescribeClass(FClassDescriber&) {}

UK2Node_AsyncAction::UK2Node_AsyncAction()
{
	ProxyActivateFunctionName = FName(TEXT("Activate"));
}

UK2Node_LatentGameplayTaskCall::UK2Node_LatentGameplayTaskCall()
{
	ProxyActivateFunctionName = FName(TEXT("ReadyForActivation"));
}

UFunction* UK2Node_BaseAsyncTask::GetFactoryFunction() const
{
	const UClass* const Class = ProxyFactoryClass.Get();
	return Class ? Class->FindFunctionByName(ProxyFactoryFunctionName) : nullptr;
}

void UK2Node_BaseAsyncTask::InitializeProxyFromFunction(const UFunction* ProxyFunction)
{
	if (!ProxyFunction)
	{
		return;
	}
	ProxyFactoryFunctionName = ProxyFunction->GetFName();
	ProxyFactoryClass = TSubclassOf<UObject>(ProxyFunction->GetOwnerClass());
	const FObjectProperty* const Return = CastField<FObjectProperty>(ProxyFunction->GetReturnProperty());
	ProxyClass = TSubclassOf<UObject>(Return ? Return->PropertyClass : ProxyFunction->GetOwnerClass());
}

void UK2Node_BaseAsyncTask::CreateEventPins()
{
	const UClass* const Class = ProxyClass.Get();
	if (!Class)
	{
		return;
	}
	const UFunction* Signature = nullptr;
	for (TFieldIterator<FProperty> It(Class, EFieldIteratorFlags::IncludeSuper); It; ++It)
	{
		const FMulticastDelegateProperty* const Event = CastField<FMulticastDelegateProperty>(*It);
		if (!Event || !Event->HasAnyPropertyFlags(CPF_BlueprintAssignable))
		{
			continue;
		}
		UEdGraphPin* const Pin = CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, Event->GetFName());
		Pin->PinFriendlyName = Event->GetDisplayNameText();
		Pin->PinToolTip = Event->GetToolTipText().ToString();
		Signature = Signature ? Signature : Event->SignatureFunction;
	}
	if (!Signature)
	{
		return;
	}
	for (TFieldIterator<FProperty> It(Signature, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		const bool bInput = !It->HasAnyPropertyFlags(CPF_OutParm) || It->HasAnyPropertyFlags(CPF_ReferenceParm);
		if (It->HasAnyPropertyFlags(CPF_Parm) && bInput)
		{
			CreatePinFromProperty(*It, EGPD_Output, It->GetFName());
		}
	}
}

bool UK2Node_BaseAsyncTask::IsFactoryParameterHidden(const UFunction& Function, const FProperty& Param) const
{
	const FName Name = Param.GetFName();
	if (FunctionPins::Get(Function).HiddenByMetaData.Contains(Name))
	{
		return true;
	}
	return FunctionPins::IsWorldContextHidden(Function, GetBlueprint())
		&& FunctionPins::Get(Function).WorldContext == Name;
}

void UK2Node_BaseAsyncTask::CreateFactoryPins(const UFunction& Function)
{
	const UEdGraphSchema_K2* const Schema = GetK2Schema();
	for (TFieldIterator<FProperty> It(&Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		const bool bInput = !It->HasAnyPropertyFlags(CPF_ReturnParm)
			&& (!It->HasAnyPropertyFlags(CPF_OutParm) || It->HasAnyPropertyFlags(CPF_ReferenceParm));
		UEdGraphPin* const Pin = It->HasAnyPropertyFlags(CPF_Parm) && bInput
			? CreatePinFromProperty(*It, EGPD_Input, It->GetFName())
			: nullptr;
		if (!Pin)
		{
			continue;
		}
		Pin->PinType.bIsReference = It->HasAnyPropertyFlags(CPF_ReferenceParm);
		const bool bAutoCreated = FunctionPins::Get(Function).AutoCreated.Contains(It->GetFName());
		Pin->bDefaultValueIsIgnored = It->HasAnyPropertyFlags(CPF_ReferenceParm)
			&& (!bAutoCreated || Pin->PinType.IsContainer());
		Pin->bAdvancedView = It->HasAnyPropertyFlags(CPF_AdvancedDisplay)
			|| FunctionPins::Get(Function).Advanced.Contains(It->GetFName());
		if (Pin->bAdvancedView && AdvancedPinDisplay == ENodeAdvancedPins::NoPins)
		{
			AdvancedPinDisplay = ENodeAdvancedPins::Hidden;
		}
		if (const FString* const Display = It->FindMetaData(FBlueprintMetadata::MD_DisplayName))
		{
			Pin->PinFriendlyName = FText::FromString(*Display);
		}
		FString Default;
		if (Schema->FindFunctionParameterDefaultValue(&Function, *It, Default))
		{
			Schema->SetPinAutogeneratedDefaultValue(Pin, Default);
		}
		else
		{
			Schema->SetPinAutogeneratedDefaultValueBasedOnType(Pin);
		}
		Pin->bHidden = IsFactoryParameterHidden(Function, **It);
	}
}

namespace AsyncTasks
{
const FName ProxyPin(TEXT("AsyncTaskProxy"));

/** Metadata of the class or of one above it; null when none has the key. */
const FString* FindInherited(const UStruct* Struct, FName Key)
{
	for (; Struct; Struct = Struct->GetSuperStruct())
	{
		if (const FString* const Value = Struct->FindMetaData(Key))
		{
			return Value;
		}
	}
	return nullptr;
}
} // namespace AsyncTasks

void UK2Node_BaseAsyncTask::CreateFlowPins()
{
	static const FName HideThen(TEXT("HideThen"));
	static const FName ExposedAsyncProxy(TEXT("ExposedAsyncProxy"));
	UClass* const Class = ProxyClass.Get();
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Execute);
	if (!AsyncTasks::FindInherited(Class, HideThen))
	{
		CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Then);
	}
	if (const FString* const ProxyName = AsyncTasks::FindInherited(Class, ExposedAsyncProxy))
	{
		UEdGraphPin* const Proxy = CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Object, Class, AsyncTasks::ProxyPin);
		Proxy->PinFriendlyName = ProxyName->IsEmpty() ? FText() : FText::FromString(*ProxyName);
	}
}

void UK2Node_BaseAsyncTask::AllocateDefaultPins()
{
	CreateFlowPins();
	CreateEventPins();
	if (const UFunction* const Function = GetFactoryFunction())
	{
		CreateFactoryPins(*Function);
	}
	Super::AllocateDefaultPins();
}

void UK2Node_BaseAsyncTask::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	if (GetFactoryFunction())
	{
		Super::ReallocatePinsDuringReconstruction(OldPins);
		return;
	}
	KeepOldPins(OldPins);
}

FText UK2Node_BaseAsyncTask::GetNodeTitle(ENodeTitleType::Type) const
{
	const UFunction* const Function = GetFactoryFunction();
	return Function ? UK2Node_CallFunction::GetUserFacingFunctionName(Function)
					: NSLOCTEXT("K2Node", "AsyncTaskMissingFunction", "Async Task: Missing Function");
}

FText UK2Node_BaseAsyncTask::GetTooltipText() const
{
	const UFunction* const Function = GetFactoryFunction();
	return Function ? FText::FromString(UK2Node_CallFunction::GetDefaultTooltipForFunction(Function))
					: GetNodeTitle(ENodeTitleType::FullTitle);
}

FText UK2Node_BaseAsyncTask::GetKeywords() const
{
	const UFunction* const Function = GetFactoryFunction();
	return Function ? UK2Node_CallFunction::GetKeywordsForFunction(Function) : FText::GetEmpty();
}

FText UK2Node_BaseAsyncTask::GetMenuCategory() const
{
	const UFunction* const Function = GetFactoryFunction();
	return Function ? UK2Node_CallFunction::GetDefaultCategoryForFunction(Function, FText::GetEmpty())
					: FText::GetEmpty();
}

bool UK2Node_BaseAsyncTask::IsCompatibleWithGraph(const UEdGraph* Graph) const
{
	const EGraphType Type = Graph && Graph->GetSchema() ? Graph->GetSchema()->GetGraphType(Graph) : GT_MAX;
	return (Type == GT_Ubergraph || Type == GT_Macro) && Super::IsCompatibleWithGraph(Graph);
}

void UK2Node_BaseAsyncTask::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	if (!GetFactoryFunction())
	{
		const UClass* const Class = ProxyFactoryClass.Get();
		MessageLog.Error(*FString::Printf(TEXT("Async task node @@ refers to the missing function '%s' of '%s'."),
							 *ProxyFactoryFunctionName.ToString(), Class ? *Class->GetName() : TEXT("None")),
			this);
	}
	const UEdGraph* const Graph = GetGraph();
	if (Graph && !IsCompatibleWithGraph(Graph))
	{
		MessageLog.Error(TEXT("@@ goes on later and can only stand in an event graph."), this);
	}
}

namespace AsyncTasks
{
/** Static functions that make an object of a class below Base. */
void AddFactories(FBlueprintActionDatabaseRegistrar& ActionRegistrar, UClass* NodeClass, const UClass* Base)
{
	TArray<UClass*> Classes;
	if (Base)
	{
		GetDerivedClasses(Base, Classes);
	}
	static const FName HasOwnNode(TEXT("HasDedicatedAsyncNode"));
	for (UClass* const Class : Classes)
	{
		if (Class->HasMetaData(HasOwnNode))
		{
			continue;
		}
		for (TFieldIterator<UFunction> It(Class, EFieldIteratorFlags::ExcludeSuper); It; ++It)
		{
			const FObjectProperty* const Return = CastField<FObjectProperty>(It->GetReturnProperty());
			const UFunction* const Function = *It;
			const bool bFactory = It->HasAllFunctionFlags(FUNC_Static)
				&& It->HasAnyFunctionFlags(FUNC_BlueprintCallable) && Return && Return->PropertyClass
				&& Return->PropertyClass->IsChildOf(Base);
			if (bFactory)
			{
				ActionRegistrar.AddBlueprintAction(Class,
					UBlueprintNodeSpawner::Create(NodeClass, nullptr,
						[Function](UEdGraphNode* Node, bool)
						{ CastChecked<UK2Node_BaseAsyncTask>(Node)->InitializeProxyFromFunction(Function); }));
			}
		}
	}
}
} // namespace AsyncTasks

void UK2Node_AsyncAction::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	AsyncTasks::AddFactories(
		ActionRegistrar, GetClass(), FindObject<UClass>(nullptr, TEXT("/Script/Engine.BlueprintAsyncActionBase")));
}

UClass* UK2Node_LatentGameplayTaskCall::GetTaskBaseClass() const
{
	return FindObject<UClass>(nullptr, TEXT("/Script/GameplayTasks.GameplayTask"));
}

UClass* UK2Node_LatentAbilityCall::GetTaskBaseClass() const
{
	return FindObject<UClass>(nullptr, TEXT("/Script/GameplayAbilities.AbilityTask"));
}

namespace LatentTasks
{
const FName ClassPin(TEXT("Class"));
const FName SpawnedActorPin(TEXT("SpawnedActor"));

/** A task that spawns an actor lets its class be chosen, and its variables be set before it begins to play. */
bool SpawnsActor(const UClass& Task)
{
	static const FName BeginSpawning(TEXT("BeginSpawningActor"));
	static const FName FinishSpawning(TEXT("FinishSpawningActor"));
	return Task.FindFunctionByName(BeginSpawning) && Task.FindFunctionByName(FinishSpawning);
}

/** Variables that the factory says make no sense for what its task spawns. */
TSet<FName> HiddenVariables(const UFunction* Factory)
{
	static const FName HideSpawnParms(TEXT("HideSpawnParms"));
	return Factory ? FunctionPins::NamesInMetaData(*Factory, HideSpawnParms) : TSet<FName>();
}
} // namespace LatentTasks

UEdGraphPin* UK2Node_LatentGameplayTaskCall::GetClassPin(const TArray<UEdGraphPin*>* InPinsToSearch) const
{
	UEdGraphPin* const* const Found =
		(InPinsToSearch ? *InPinsToSearch : Pins)
			.FindByPredicate([](const UEdGraphPin* Pin)
				{ return Pin->PinName == LatentTasks::ClassPin && Pin->Direction == EGPD_Input; });
	return Found ? *Found : nullptr;
}

UClass* UK2Node_LatentGameplayTaskCall::GetClassToSpawn(const TArray<UEdGraphPin*>* InPinsToSearch) const
{
	const UEdGraphPin* const Pin = GetClassPin(InPinsToSearch);
	if (!Pin)
	{
		return nullptr;
	}
	return Pin->LinkedTo.IsEmpty() ? Cast<UClass>(Pin->DefaultObject.Get())
								   : Cast<UClass>(Pin->LinkedTo[0]->PinType.PinSubCategoryObject.Get());
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
	AsyncTasks::AddFactories(ActionRegistrar, GetClass(), GetTaskBaseClass());
}

bool UK2Node_LatentAbilityCall::IsCompatibleWithGraph(const UEdGraph* Graph) const
{
	const UBlueprint* const Blueprint = Graph ? Graph->GetTypedOuter<UBlueprint>() : nullptr;
	const UClass* const Parent = Blueprint ? Blueprint->ParentClass.Get() : nullptr;
	const UClass* const Ability = FindObject<UClass>(nullptr, TEXT("/Script/GameplayAbilities.GameplayAbility"));
	return Parent && Ability && Parent->IsChildOf(Ability) && Super::IsCompatibleWithGraph(Graph);
}
