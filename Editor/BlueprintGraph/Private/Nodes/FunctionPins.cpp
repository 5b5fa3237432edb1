#include "FunctionPins.h"

#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "UObject/UnrealType.h"

namespace FunctionPins
{
namespace
{
void AddNames(const UFunction& Function, FName Key, TSet<FName>& Out)
{
	const FString* const List = Function.FindMetaData(Key);
	if (!List || List->IsEmpty())
	{
		return;
	}
	TArray<FString> Names;
	FString Flat = *List;
	Flat.ReplaceInline(TEXT("|"), TEXT(","));
	Flat.ParseIntoArray(Names, TEXT(","));
	for (const FString& Name : Names)
	{
		Out.Add(FName(Name.TrimStartAndEnd()));
	}
}

const FProperty* FindExpanded(const UFunction& Function)
{
	for (const FName Key : {FBlueprintMetadata::MD_ExpandEnumAsExecs, FBlueprintMetadata::MD_ExpandBoolAsExecs})
	{
		for (const FName Name : NamesInMetaData(Function, Key))
		{
			if (const FProperty* const Param = Function.FindPropertyByName(Name))
			{
				return Param;
			}
		}
	}
	return nullptr;
}

/** Metadata names the parameters that fold away, or says how many stay in sight. */
void AddAdvanced(const UFunction& Function, TSet<FName>& Out)
{
	const FString* const Value = Function.FindMetaData(FBlueprintMetadata::MD_AdvancedDisplay);
	if (!Value || Value->IsEmpty())
	{
		return;
	}
	if (!Value->IsNumeric())
	{
		AddNames(Function, FBlueprintMetadata::MD_AdvancedDisplay, Out);
		return;
	}
	int32 InSight = FCString::Atoi(**Value);
	for (TFieldIterator<FProperty> It(&Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		if (It->HasAnyPropertyFlags(CPF_Parm) && !It->HasAnyPropertyFlags(CPF_ReturnParm) && InSight-- <= 0)
		{
			Out.Add(It->GetFName());
		}
	}
}

FFunctionPinFacts WorkOut(const UFunction& Function)
{
	static const FName LatentInfo(TEXT("LatentInfo"));
	FFunctionPinFacts Facts;
	AddNames(Function, LatentInfo, Facts.HiddenByMetaData);
	AddNames(Function, FBlueprintMetadata::MD_HidePin, Facts.HiddenByMetaData);
	AddNames(Function, FBlueprintMetadata::MD_InternalUseParam, Facts.HiddenByMetaData);
	AddNames(Function, FBlueprintMetadata::MD_AutoCreateRefTerm, Facts.AutoCreated);
	AddNames(Function, FBlueprintMetadata::MD_CustomStructureParam, Facts.CustomStructures);
	for (const FName Key : {FBlueprintMetadata::MD_SetParam, FBlueprintMetadata::MD_MapParam,
			 FBlueprintMetadata::MD_MapKeyParam, FBlueprintMetadata::MD_MapValueParam})
	{
		AddNames(Function, Key, Facts.ContainerParams);
	}
	AddAdvanced(Function, Facts.Advanced);
	if (const FString* const Context = Function.FindMetaData(FBlueprintMetadata::MD_WorldContext))
	{
		Facts.WorldContext = FName(*Context);
	}
	Facts.bLatent = Function.HasMetaData(FBlueprintMetadata::MD_Latent);
	Facts.Expanded = FindExpanded(Function);
	Facts.bWantsExpansion = Function.HasMetaData(FBlueprintMetadata::MD_ExpandEnumAsExecs)
		|| Function.HasMetaData(FBlueprintMetadata::MD_ExpandBoolAsExecs);
	if (const FString* const Picker = Function.FindMetaData(FBlueprintMetadata::MD_DynamicOutputType))
	{
		Facts.DynamicTypePicker = FName(*Picker);
		for (const FName Name : NamesInMetaData(Function, FBlueprintMetadata::MD_DynamicOutputParam))
		{
			Facts.DynamicOutputs.Add(Name);
		}
		if (Facts.DynamicOutputs.IsEmpty())
		{
			Facts.DynamicOutputs.Add(UEdGraphSchema_K2::PN_ReturnValue);
		}
	}
	Facts.bHasContainerParams = Function.HasMetaData(FBlueprintMetadata::MD_SetParam)
		|| Function.HasMetaData(FBlueprintMetadata::MD_MapParam);
	return Facts;
}

struct FKept
{
	TWeakObjectPtr<UFunction> Function;
	FFunctionPinFacts Facts;
};
} // namespace

bool HasWorld(const UClass* Class)
{
	static const TSet<FName> Bases = {FName(TEXT("Actor")), FName(TEXT("ActorComponent")), FName(TEXT("UserWidget")),
		FName(TEXT("AnimInstance")), FName(TEXT("GameInstance")), FName(TEXT("Subsystem")), FName(TEXT("BTNode")),
		FName(TEXT("GameplayAbility")), FName(TEXT("GameplayTask")), FName(TEXT("BlueprintFunctionLibrary")),
		FName(TEXT("AnimNotify")), FName(TEXT("AnimNotifyState")), FName(TEXT("CheatManagerExtension")),
		FName(TEXT("CheatManager")), FName(TEXT("EnvQueryGenerator")), FName(TEXT("EnvQueryTest")),
		FName(TEXT("EnvQueryContext")), FName(TEXT("StateTreeNodeBlueprintBase")), FName(TEXT("Player")),
		FName(TEXT("BlueprintAsyncActionBase"))};
	for (; Class; Class = Class->GetSuperClass())
	{
		if (Bases.Contains(Class->GetFName()))
		{
			return true;
		}
	}
	return false;
}

TSet<FName> NamesInMetaData(const UFunction& Function, FName Key)
{
	TSet<FName> Names;
	AddNames(Function, Key, Names);
	return Names;
}

const FFunctionPinFacts& Get(const UFunction& Function)
{
	const UClass* const Owner = Function.GetOwnerClass();
	if (!Owner || Owner->ClassGeneratedBy)
	{
		static FFunctionPinFacts OfBlueprintFunction;
		OfBlueprintFunction = WorkOut(Function);
		return OfBlueprintFunction;
	}
	// The weak pointer tells a function of a project's catalogue, replaced since at the same address, from the one
	// before.
	static TMap<const UFunction*, FKept> Kept;
	FKept& Entry = Kept.FindOrAdd(&Function);
	if (Entry.Function.Get() != &Function)
	{
		Entry.Function = const_cast<UFunction*>(&Function);
		Entry.Facts = WorkOut(Function);
	}
	return Entry.Facts;
}

bool IsWorldContextHidden(const UFunction& Function, const UBlueprint* Caller)
{
	if (Get(Function).WorldContext.IsNone())
	{
		return false;
	}
	const UClass* const Self = Caller ? Caller->ParentClass.Get() : nullptr;
	if (Caller && Caller->BlueprintType == BPTYPE_FunctionLibrary)
	{
		// Its functions have no object to ask: whoever calls them brings the world along.
		return false;
	}
	return !Self || (HasWorld(Self) && !Self->HasMetaData(FBlueprintMetadata::MD_ShowWorldContextPin));
}
} // namespace FunctionPins
