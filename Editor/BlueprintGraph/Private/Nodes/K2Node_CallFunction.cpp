#include "K2Node_CallFunction.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "FunctionPins.h"
#include "K2Node_Event.h"
#include "Kismet2/CompilerResultsLog.h"
#include "UObject/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_CallFunction, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_CallFunction::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("bDefaultsToPureFunc"), &UK2Node_CallFunction::bDefaultsToPureFunc);
	Class.Property(TEXT("bIsPureFunc"), &UK2Node_CallFunction::bIsPureFunc, CPF_TextExportTransient | CPF_Deprecated);
	Class.Property(TEXT("bIsConstFunc"), &UK2Node_CallFunction::bIsConstFunc, CPF_TextExportTransient | CPF_Deprecated);
	Class.Property(TEXT("bWantsEnumToExecExpansion"), &UK2Node_CallFunction::bWantsEnumToExecExpansion);
	Class.Property(TEXT("bIsInterfaceCall"), &UK2Node_CallFunction::bIsInterfaceCall);
	Class.Property(TEXT("bIsFinalFunction"), &UK2Node_CallFunction::bIsFinalFunction);
	Class.Property(TEXT("FunctionReference"), &UK2Node_CallFunction::FunctionReference);
}

void UK2Node_CallFunction::SetFromFunction(const UFunction* Function)
{
	if (!Function)
	{
		return;
	}
	bDefaultsToPureFunc = Function->HasAnyFunctionFlags(FUNC_BlueprintPure);
	FunctionReference.SetFromField(Function, IsSelfOrParentClass(Function->GetOwnerClass()));
	static const FName DevelopmentOnly(TEXT("DevelopmentOnly"));
	if (Function->HasMetaData(DevelopmentOnly))
	{
		SetEnabledState(ENodeEnabledState::DevelopmentOnly, false);
	}
}

UFunction* UK2Node_CallFunction::GetTargetFunction() const
{
	return ResolveFunction(FunctionReference);
}

UFunction* UK2Node_CallFunction::GetTargetFunctionFromSkeletonClass() const
{
	return GetTargetFunction();
}

UEdGraphPin* UK2Node_CallFunction::GetReturnValuePin() const
{
	return FindPin(UEdGraphSchema_K2::PN_ReturnValue, EGPD_Output);
}

bool UK2Node_CallFunction::IsNodePure() const
{
	return bDefaultsToPureFunc;
}

bool UK2Node_CallFunction::IsLatentFunction() const
{
	const UFunction* const Function = GetTargetFunction();
	return Function && Function->HasMetaData(FBlueprintMetadata::MD_Latent);
}

void UK2Node_CallFunction::TakeOlderForm()
{
	bDefaultsToPureFunc |= bIsPureFunc;
	bIsPureFunc = false;
	bIsConstFunc = false;
	// The libraries' functions of single precision live on under the names of those of double precision.
	static const FString Single(TEXT("Float"));
	const FString Name = GetFunctionName().ToString();
	const UClass* const Library = FunctionReference.GetMemberParentClass();
	if (!Library || !Name.Contains(Single, ESearchCase::CaseSensitive)
		|| Library->FindFunctionByName(GetFunctionName()))
	{
		return;
	}
	const FName Successor(Name.Replace(*Single, TEXT("Double"), ESearchCase::CaseSensitive));
	if (Library->FindFunctionByName(Successor))
	{
		FunctionReference.SetMemberName(Successor);
	}
}

void UK2Node_CallFunction::PostEditImport()
{
	Super::PostEditImport();
	TakeOlderForm();
}

void UK2Node_CallFunction::PostLoad()
{
	Super::PostLoad();
	TakeOlderForm();
}

FText UK2Node_CallFunction::GetUserFacingFunctionName(const UFunction* Function)
{
	return UEdGraphSchema_K2::GetFriendlySignatureName(Function);
}

FText UK2Node_CallFunction::GetDefaultCategoryForFunction(const UFunction* Function, const FText& BaseCategory)
{
	const FString* const Category = Function->FindMetaData(FBlueprintMetadata::MD_FunctionCategory);
	if (!Category || Category->IsEmpty())
	{
		return BaseCategory;
	}
	return FText::FromString(BaseCategory.IsEmpty() ? *Category : BaseCategory.ToString() + TEXT("|") + *Category);
}

FText UK2Node_CallFunction::GetKeywordsForFunction(const UFunction* Function)
{
	FString Keywords = Function->GetName();
	for (const FName Key : {FBlueprintMetadata::MD_CompactNodeTitle, FBlueprintMetadata::MD_FunctionKeywords})
	{
		if (const FString* const More = Function->FindMetaData(Key))
		{
			Keywords += TEXT(" ") + *More;
		}
	}
	return FText::FromString(Keywords);
}

FString UK2Node_CallFunction::GetDefaultTooltipForFunction(const UFunction* Function)
{
	const FString Tooltip = Function->GetToolTipText().ToString();
	return Tooltip.IsEmpty() ? GetUserFacingFunctionName(Function).ToString() : Tooltip;
}

FString UK2Node_CallFunction::GetCompactNodeTitle(const UFunction* Function)
{
	const FString* const Title = Function->FindMetaData(FBlueprintMetadata::MD_CompactNodeTitle);
	return Title ? *Title : Function->GetName();
}

bool UK2Node_CallFunction::ShouldDrawCompact(const UFunction* Function)
{
	return Function && Function->HasMetaData(FBlueprintMetadata::MD_CompactNodeTitle);
}

bool UK2Node_CallFunction::ShouldDrawCompact() const
{
	return ShouldDrawCompact(GetTargetFunction());
}

FText UK2Node_CallFunction::GetCompactNodeTitle() const
{
	const UFunction* const Function = GetTargetFunction();
	return Function ? FText::FromString(GetCompactNodeTitle(Function)) : Super::GetCompactNodeTitle();
}

FText UK2Node_CallFunction::GetFunctionContextString() const
{
	const UEdGraphPin* const SelfPin = UEdGraphSchema_K2::FindSelfPin(*this, EGPD_Input);
	const UFunction* const Function = GetTargetFunction();
	UClass* const Owner = Function ? Function->GetOwnerClass() : nullptr;
	if (!SelfPin || SelfPin->bHidden || !Owner)
	{
		return FText::GetEmpty();
	}
	const FString Target = Owner->GetAuthoritativeClass()->GetDisplayNameText().ToString();
	return FText::FromString(FString::Printf(TEXT("\nTarget is %s"), *Target));
}

FText UK2Node_CallFunction::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	const UFunction* const Function = GetTargetFunction();
	const FString Name = Function ? GetUserFacingFunctionName(Function).ToString()
								  : FName::NameToDisplayString(FunctionReference.GetMemberName().ToString(), false);
	if (TitleType != ENodeTitleType::FullTitle || !Function)
	{
		return FText::FromString(Name);
	}
	// Where a replicated call runs matters to the reader as much as what it is called on.
	const FString Net =
		UK2Node_Event::GetLocalizedNetString(static_cast<uint32>(Function->FunctionFlags), true).ToString();
	return FText::FromString(Name + GetFunctionContextString().ToString() + (Net.IsEmpty() ? Net : TEXT("\n") + Net));
}

FText UK2Node_CallFunction::GetTooltipText() const
{
	const UFunction* const Function = GetTargetFunction();
	if (!Function)
	{
		return FText::FromString(FString::Printf(TEXT("Call unknown function %s"), *GetFunctionName().ToString()));
	}
	FString Tooltip = GetDefaultTooltipForFunction(Function);
	if (const UClass* const Owner = Function->GetOwnerClass())
	{
		Tooltip += FString::Printf(TEXT("\n\nTarget is %s"), *Owner->GetDisplayNameText().ToString());
	}
	return FText::FromString(Tooltip);
}

FText UK2Node_CallFunction::GetMenuCategory() const
{
	const UFunction* const Function = GetTargetFunction();
	return Function ? GetDefaultCategoryForFunction(Function, FText::GetEmpty()) : FText::GetEmpty();
}

FText UK2Node_CallFunction::GetKeywords() const
{
	const UFunction* const Function = GetTargetFunction();
	return Function ? GetKeywordsForFunction(Function) : FText::GetEmpty();
}

bool UK2Node_CallFunction::CanPasteHere(const UEdGraph* TargetGraph) const
{
	return Super::CanPasteHere(TargetGraph);
}

bool UK2Node_CallFunction::IsStructureWildcardProperty(const UFunction* InFunction, FName PropertyName)
{
	return InFunction && FunctionPins::Get(*InFunction).CustomStructures.Contains(PropertyName);
}

bool UK2Node_CallFunction::IsWildcardProperty(const UFunction* InFunction, const FProperty* InProperty)
{
	return InProperty && IsStructureWildcardProperty(InFunction, InProperty->GetFName());
}

void UK2Node_CallFunction::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	const UFunction* const Function = GetTargetFunction();
	if (!Function)
	{
		const UClass* const Scope = FunctionReference.GetMemberParentClass(GetBlueprintClassFromNode());
		MessageLog.Error(
			*FString::Printf(
				TEXT("Could not find a function named \"%s\" in '%s'.\nMake sure '%s' has been compiled for @@"),
				*GetFunctionName().ToString(), Scope ? *Scope->GetName() : TEXT("None"),
				Scope ? *Scope->GetName() : TEXT("None")),
			this);
		return;
	}
	if (Function->HasMetaData(FBlueprintMetadata::MD_DeprecatedFunction))
	{
		const FString* const Advice = Function->FindMetaData(FBlueprintMetadata::MD_DeprecationMessage);
		MessageLog.Warning(*FString::Printf(TEXT("@@: Function '%s' is deprecated. %s"),
							   *GetUserFacingFunctionName(Function).ToString(), Advice ? **Advice : TEXT("")),
			this);
	}
}
