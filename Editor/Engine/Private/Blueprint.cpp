#include "Engine/Blueprint.h"

#include "Animation/AnimBlueprint.h"
#include "Components/ActorComponent.h"
#include "EdGraph/EdGraph.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/InheritableComponentHandler.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/TimelineTemplate.h"
#include "Standalone/BlueprintClassProvider.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UBlueprintCore, "/Script/Engine", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UBlueprint, "/Script/Engine", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimBlueprint, "/Script/Engine", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UBlueprintGeneratedClass, "/Script/Engine", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UWidgetBlueprintGeneratedClass, "/Script/UMG", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimBlueprintGeneratedClass, "/Script/Engine", CLASS_None)
IMPLEMENT_EDITOR_STRUCT(FBPVariableMetaDataEntry, "/Script/Engine")
IMPLEMENT_EDITOR_STRUCT(FBPVariableDescription, "/Script/Engine")
IMPLEMENT_EDITOR_STRUCT(FBPInterfaceDescription, "/Script/Engine")

template <>
UEnum* StaticEnum<ELifetimeCondition>()
{
	static UEnum* const Enum = NativeClass::RegisterEnum(TEXT("ELifetimeCondition"), TEXT("/Script/CoreUObject"),
		UEnum::ECppForm::Regular,
		{{TEXT("COND_None"), COND_None}, {TEXT("COND_InitialOnly"), COND_InitialOnly},
			{TEXT("COND_OwnerOnly"), COND_OwnerOnly}, {TEXT("COND_SkipOwner"), COND_SkipOwner},
			{TEXT("COND_SimulatedOnly"), COND_SimulatedOnly}, {TEXT("COND_AutonomousOnly"), COND_AutonomousOnly},
			{TEXT("COND_SimulatedOrPhysics"), COND_SimulatedOrPhysics},
			{TEXT("COND_InitialOrOwner"), COND_InitialOrOwner}, {TEXT("COND_Custom"), COND_Custom},
			{TEXT("COND_ReplayOrOwner"), COND_ReplayOrOwner}, {TEXT("COND_ReplayOnly"), COND_ReplayOnly},
			{TEXT("COND_SimulatedOnlyNoReplay"), COND_SimulatedOnlyNoReplay},
			{TEXT("COND_SimulatedOrPhysicsNoReplay"), COND_SimulatedOrPhysicsNoReplay},
			{TEXT("COND_SkipReplay"), COND_SkipReplay}, {TEXT("COND_Dynamic"), COND_Dynamic},
			{TEXT("COND_Never"), COND_Never}});
	return Enum;
}

template <>
UEnum* StaticEnum<EBlueprintType>()
{
	static UEnum* const Enum = NativeClass::RegisterEnum(TEXT("EBlueprintType"), TEXT("/Script/Engine"),
		UEnum::ECppForm::Regular,
		{{TEXT("BPTYPE_Normal"), BPTYPE_Normal}, {TEXT("BPTYPE_Const"), BPTYPE_Const},
			{TEXT("BPTYPE_MacroLibrary"), BPTYPE_MacroLibrary}, {TEXT("BPTYPE_Interface"), BPTYPE_Interface},
			{TEXT("BPTYPE_LevelScript"), BPTYPE_LevelScript},
			{TEXT("BPTYPE_FunctionLibrary"), BPTYPE_FunctionLibrary}});
	return Enum;
}

void FBPVariableMetaDataEntry::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("DataKey"), &FBPVariableMetaDataEntry::DataKey);
	Struct.Property(TEXT("DataValue"), &FBPVariableMetaDataEntry::DataValue);
}

void FBPVariableDescription::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("VarName"), &FBPVariableDescription::VarName);
	Struct.Property(TEXT("VarGuid"), &FBPVariableDescription::VarGuid);
	Struct.Property(TEXT("VarType"), &FBPVariableDescription::VarType);
	Struct.Property(TEXT("FriendlyName"), &FBPVariableDescription::FriendlyName);
	Struct.Property(TEXT("Category"), &FBPVariableDescription::Category);
	Struct.Property(TEXT("PropertyFlags"), &FBPVariableDescription::PropertyFlags);
	Struct.Property(TEXT("RepNotifyFunc"), &FBPVariableDescription::RepNotifyFunc);
	Struct.Property(TEXT("ReplicationCondition"), &FBPVariableDescription::ReplicationCondition);
	Struct.Property(TEXT("MetaDataArray"), &FBPVariableDescription::MetaDataArray);
	Struct.Property(TEXT("DefaultValue"), &FBPVariableDescription::DefaultValue);
}

void FBPVariableDescription::SetMetaData(FName Key, FString Value)
{
	const int32 Index = FindMetaDataEntryIndexForKey(Key);
	if (Index != INDEX_NONE)
	{
		MetaDataArray[Index].DataValue = MoveTemp(Value);
	}
	else
	{
		MetaDataArray.Add(FBPVariableMetaDataEntry(Key, MoveTemp(Value)));
	}
}

void FBPVariableDescription::RemoveMetaData(FName Key)
{
	MetaDataArray.RemoveAll([Key](const FBPVariableMetaDataEntry& Entry) { return Entry.DataKey == Key; });
}

const FString& FBPVariableDescription::GetMetaData(FName Key) const
{
	const int32 Index = FindMetaDataEntryIndexForKey(Key);
	check(Index != INDEX_NONE);
	return MetaDataArray[Index].DataValue;
}

int32 FBPVariableDescription::FindMetaDataEntryIndexForKey(FName Key) const
{
	return MetaDataArray.IndexOfByPredicate(
		[Key](const FBPVariableMetaDataEntry& Entry) { return Entry.DataKey == Key; });
}

void FBPInterfaceDescription::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("Interface"), &FBPInterfaceDescription::Interface);
	Struct.Property(TEXT("Graphs"), &FBPInterfaceDescription::Graphs);
}

void UBlueprintCore::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("SkeletonGeneratedClass"), &UBlueprintCore::SkeletonGeneratedClass, CPF_Transient);
	Class.Property(TEXT("GeneratedClass"), &UBlueprintCore::GeneratedClass);
	Class.Property(TEXT("BlueprintGuid"), &UBlueprintCore::BlueprintGuid);
}

void UBlueprint::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("ParentClass"), &UBlueprint::ParentClass);
	Class.Property(TEXT("BlueprintType"), &UBlueprint::BlueprintType);
	Class.Property(TEXT("bGenerateConstClass"), &UBlueprint::bGenerateConstClass);
	Class.Property(TEXT("bGenerateAbstractClass"), &UBlueprint::bGenerateAbstractClass);
	Class.Property(TEXT("bDeprecate"), &UBlueprint::bDeprecate);
	Class.Property(TEXT("BlueprintDisplayName"), &UBlueprint::BlueprintDisplayName);
	Class.Property(TEXT("BlueprintDescription"), &UBlueprint::BlueprintDescription);
	Class.Property(TEXT("BlueprintCategory"), &UBlueprint::BlueprintCategory);
	Class.Property(TEXT("SimpleConstructionScript"), &UBlueprint::SimpleConstructionScript);
	Class.Property(TEXT("InheritableComponentHandler"), &UBlueprint::InheritableComponentHandler);
	Class.Property(TEXT("UbergraphPages"), &UBlueprint::UbergraphPages);
	Class.Property(TEXT("FunctionGraphs"), &UBlueprint::FunctionGraphs);
	Class.Property(TEXT("DelegateSignatureGraphs"), &UBlueprint::DelegateSignatureGraphs);
	Class.Property(TEXT("MacroGraphs"), &UBlueprint::MacroGraphs);
	Class.Property(TEXT("ComponentTemplates"), &UBlueprint::ComponentTemplates);
	Class.Property(TEXT("Timelines"), &UBlueprint::Timelines);
	Class.Property(TEXT("NewVariables"), &UBlueprint::NewVariables);
	Class.Property(TEXT("ImplementedInterfaces"), &UBlueprint::ImplementedInterfaces);
	Class.Property(TEXT("CategorySorting"), &UBlueprint::CategorySorting);
}

void UAnimBlueprint::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("TargetSkeleton"), &UAnimBlueprint::TargetSkeleton);
}

void UBlueprintGeneratedClass::DescribeClass(FClassDescriber&) {}
void UWidgetBlueprintGeneratedClass::DescribeClass(FClassDescriber&) {}
void UAnimBlueprintGeneratedClass::DescribeClass(FClassDescriber&) {}

namespace BlueprintGraphs
{
static void AddWithChildren(UEdGraph* Graph, TArray<UEdGraph*>& Graphs)
{
	if (Graph)
	{
		Graphs.Add(Graph);
		Graph->GetAllChildrenGraphs(Graphs);
	}
}

static void AddAll(const TArray<TObjectPtr<UEdGraph>>& From, TArray<UEdGraph*>& Graphs)
{
	for (UEdGraph* const Graph : From)
	{
		AddWithChildren(Graph, Graphs);
	}
}
} // namespace BlueprintGraphs

void UBlueprint::GetAllGraphs(TArray<UEdGraph*>& Graphs) const
{
	BlueprintGraphs::AddAll(FunctionGraphs, Graphs);
	BlueprintGraphs::AddAll(MacroGraphs, Graphs);
	BlueprintGraphs::AddAll(UbergraphPages, Graphs);
	BlueprintGraphs::AddAll(DelegateSignatureGraphs, Graphs);
	for (const FBPInterfaceDescription& Interface : ImplementedInterfaces)
	{
		BlueprintGraphs::AddAll(Interface.Graphs, Graphs);
	}
}

UBlueprint* UBlueprint::GetBlueprintFromClass(const UClass* InClass)
{
	return InClass ? Cast<UBlueprint>(InClass->ClassGeneratedBy) : nullptr;
}

bool UBlueprint::GetBlueprintHierarchyFromClass(const UClass* InClass, TArray<UBlueprint*>& OutBlueprintParents)
{
	bool bNoErrors = true;
	for (const UClass* Class = InClass; UBlueprint* const Blueprint = GetBlueprintFromClass(Class);
		 Class = Class->GetSuperClass())
	{
		OutBlueprintParents.AddUnique(Blueprint);
		bNoErrors &= Blueprint->Status != BS_Error;
	}
	return bNoErrors;
}

UInheritableComponentHandler* UBlueprint::GetInheritableComponentHandler(bool bCreateIfNecessary)
{
	UBlueprintGeneratedClass* const Class = Cast<UBlueprintGeneratedClass>(GeneratedClass.Get());
	if (!InheritableComponentHandler && bCreateIfNecessary && Class)
	{
		Modify();
		InheritableComponentHandler = NewObject<UInheritableComponentHandler>(
			Class, TEXT("InheritableComponentHandler"), RF_Transactional);
		Class->InheritableComponentHandler = InheritableComponentHandler;
	}
	return InheritableComponentHandler.Get();
}

FText UBlueprint::GetDisplayNameOfType(EBlueprintType Type)
{
	return FText::FromString(StaticEnum<EBlueprintType>()->GetDisplayNameTextByValue(Type).ToString());
}

UClass* UBlueprint::GetBlueprintClass() const
{
	return UBlueprintGeneratedClass::StaticClass();
}

UClass* UAnimBlueprint::GetBlueprintClass() const
{
	return UAnimBlueprintGeneratedClass::StaticClass();
}

bool UBlueprint::SupportsEventGraphs() const
{
	return BlueprintType == BPTYPE_Normal || BlueprintType == BPTYPE_LevelScript;
}

UTimelineTemplate* UBlueprint::FindTimelineTemplateByVariableName(const FName& TimelineName)
{
	for (UTimelineTemplate* const Timeline : Timelines)
	{
		if (Timeline && Timeline->GetVariableName() == TimelineName)
		{
			return Timeline;
		}
	}
	return nullptr;
}

UActorComponent* UBlueprint::FindTemplateByName(const FName& TemplateName) const
{
	for (UActorComponent* const Template : ComponentTemplates)
	{
		if (Template && Template->GetFName() == TemplateName)
		{
			return Template;
		}
	}
	return nullptr;
}

void UBlueprint::PostLoad()
{
	Super::PostLoad();
	if (BlueprintClassProvider::Get().RegenerateOnLoad)
	{
		BlueprintClassProvider::Get().RegenerateOnLoad(this);
	}
}

UClass* UBlueprintGeneratedClass::GetAuthoritativeClass()
{
	const UBlueprint* const Blueprint = UBlueprint::GetBlueprintFromClass(this);
	return Blueprint && Blueprint->GeneratedClass.Get() ? Blueprint->GeneratedClass.Get() : this;
}

namespace BlueprintClassProvider
{
namespace
{
FFunctions Current;
}

void Set(const FFunctions& Functions)
{
	Current = Functions;
}

const FFunctions& Get()
{
	return Current;
}

UClass* GetSelfClass(const UBlueprint* Blueprint)
{
	if (!Blueprint)
	{
		return nullptr;
	}
	if (Blueprint->bSkeletonIsStale && Current.EnsureSkeletonIsUpToDate)
	{
		Current.EnsureSkeletonIsUpToDate(const_cast<UBlueprint*>(Blueprint));
	}
	if (Blueprint->SkeletonGeneratedClass.Get())
	{
		return Blueprint->SkeletonGeneratedClass.Get();
	}
	return Blueprint->GeneratedClass.Get() ? Blueprint->GeneratedClass.Get() : Blueprint->ParentClass.Get();
}

TSharedPtr<INameValidatorInterface> MakeNameValidator(const UBlueprint* Blueprint, FName ExistingName)
{
	return Blueprint && Current.MakeNameValidator ? Current.MakeNameValidator(Blueprint, ExistingName) : nullptr;
}
} // namespace BlueprintClassProvider
