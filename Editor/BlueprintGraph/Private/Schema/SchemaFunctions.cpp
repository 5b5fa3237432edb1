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
