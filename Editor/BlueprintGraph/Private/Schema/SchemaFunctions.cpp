// What graphs may do with functions and members: call, override, place as event, bind to a delegate.

#include "EdGraphSchema_K2.h"

#include "Engine/Blueprint.h"
#include "UObject/UnrealType.h"

bool UEdGraphSchema_K2::HasFunctionAnyOutputParameter(const UFunction* Function)
{
	for (TFieldIterator<FProperty> It(Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		// A by-reference input is marked as an output too; the reference flag tells them apart.
		const bool bOutput = It->HasAnyPropertyFlags(CPF_OutParm) && !It->HasAnyPropertyFlags(CPF_ReferenceParm);
		if (It->HasAnyPropertyFlags(CPF_Parm) && (bOutput || It->HasAnyPropertyFlags(CPF_ReturnParm)))
		{
			return true;
		}
	}
	return false;
}

bool UEdGraphSchema_K2::FunctionCanBePlacedAsEvent(const UFunction* InFunction)
{
	static const FName ForceAsFunction(TEXT("ForceAsFunction"));
	static const FName ThreadSafe(TEXT("BlueprintThreadSafe"));
	// An event runs in the event graph, which changes its object, on the game's thread, and gives nothing back.
	constexpr EFunctionFlags NoEvent = static_cast<EFunctionFlags>(FUNC_Static | FUNC_Const | FUNC_BlueprintPure);
	return InFunction && CanKismetOverrideFunction(InFunction) && !InFunction->HasAnyFunctionFlags(NoEvent)
		&& InFunction->GetFName() != FN_UserConstructionScript // a graph of its own, which is never an event
		&& !InFunction->HasMetaData(ForceAsFunction) && !InFunction->HasMetaData(ThreadSafe)
		&& !HasFunctionAnyOutputParameter(InFunction);
}

bool UEdGraphSchema_K2::FunctionCanBeUsedInDelegate(const UFunction* InFunction)
{
	return CanUserKismetCallFunction(InFunction) && !InFunction->HasMetaData(FBlueprintMetadata::MD_Latent)
		&& !InFunction->HasAllFunctionFlags(FUNC_BlueprintPure);
}

bool UEdGraphSchema_K2::CanKismetOverrideFunction(const UFunction* Function)
{
	return Function && Function->HasAllFunctionFlags(FUNC_BlueprintEvent)
		&& !Function->HasAllFunctionFlags(FUNC_Delegate)
		&& !Function->GetBoolMetaData(FBlueprintMetadata::MD_BlueprintInternalUseOnly)
		&& !Function->HasMetaData(FBlueprintMetadata::MD_DeprecatedFunction);
}

bool UEdGraphSchema_K2::CanUserKismetCallFunction(const UFunction* Function)
{
	return Function && Function->HasAllFunctionFlags(FUNC_BlueprintCallable)
		&& !Function->HasAllFunctionFlags(FUNC_Delegate)
		&& !Function->GetBoolMetaData(FBlueprintMetadata::MD_BlueprintInternalUseOnly)
		&& !Function->HasMetaData(FBlueprintMetadata::MD_DeprecatedFunction);
}

bool UEdGraphSchema_K2::CanUserKismetAccessVariable(
	const FProperty* Property, const UClass*, EDelegateFilterMode FilterMode)
{
	const bool bIsDelegate = Property->IsA<FMulticastDelegateProperty>();
	if (FilterMode == CannotBeDelegate && bIsDelegate)
	{
		return false;
	}
	return Property->HasAnyPropertyFlags(CPF_BlueprintVisible)
		|| (bIsDelegate && Property->HasAnyPropertyFlags(CPF_BlueprintAssignable | CPF_BlueprintCallable));
}

bool UEdGraphSchema_K2::CanFunctionBeUsedInGraph(const UClass* InClass, const UFunction* InFunction,
	const UEdGraph* InDestGraph, uint32 InFunctionTypes, bool, FText* OutReason) const
{
	const auto Refuse = [OutReason](const TCHAR* Reason)
	{
		if (OutReason)
		{
			*OutReason = FText::FromString(Reason);
		}
		return false;
	};
	if (!CanUserKismetCallFunction(InFunction))
	{
		return Refuse(TEXT("Function is not callable from Blueprints."));
	}
	const bool bPure = InFunction->HasAnyFunctionFlags(FUNC_BlueprintPure);
	if (bPure ? !(InFunctionTypes & FT_Pure) : !(InFunctionTypes & FT_Imperative))
	{
		return Refuse(TEXT("Function kind is not allowed in this graph."));
	}
	const bool bLatent = InFunction->HasMetaData(FBlueprintMetadata::MD_Latent);
	if (bLatent && InDestGraph && GetGraphType(InDestGraph) == GT_Function)
	{
		return Refuse(TEXT("Latent functions are only allowed in event graphs and macros."));
	}
	if (!InFunction->HasAnyFunctionFlags(FUNC_Static) && InClass
		&& !InFunction->GetOwnerClass()->IsChildOf(UObject::StaticClass()))
	{
		return Refuse(TEXT("Function has no owning class."));
	}
	return true;
}

FText UEdGraphSchema_K2::GetFriendlySignatureName(const UFunction* Function)
{
	if (const FString* const Display = Function->FindMetaData(FBlueprintMetadata::MD_DisplayName))
	{
		return FText::FromString(*Display);
	}
	FString Name = Function->GetName();
	for (const TCHAR* const Prefix : {TEXT("K2_"), TEXT("BP_")})
	{
		if (Name.StartsWith(Prefix, ESearchCase::CaseSensitive))
		{
			Name.RightChopInline(3);
			break;
		}
	}
	return FText::FromString(FName::NameToDisplayString(Name, false));
}

bool UEdGraphSchema_K2::IsPropertyExposedOnSpawn(const FProperty* Property)
{
	return Property
		&& (Property->HasMetaData(FBlueprintMetadata::MD_ExposeOnSpawn)
			|| Property->HasAnyPropertyFlags(CPF_ExposeOnSpawn));
}

const UFunction* UEdGraphSchema_K2::GetCallableParentFunction(const UFunction* Function)
{
	if (!Function || !Cast<UClass>(Function->GetOuter()))
	{
		return nullptr;
	}
	const UClass* const Parent = static_cast<const UClass*>(Function->GetOuter())->GetSuperClass();
	const UFunction* const ParentFunction = Parent ? Parent->FindFunctionByName(Function->GetFName()) : nullptr;
	return ParentFunction && ParentFunction->HasAnyFunctionFlags(FUNC_BlueprintEvent) ? ParentFunction : nullptr;
}
