#include "K2Node_CallFunction.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "FunctionPins.h"
#include "FunctionTips.h"
#include "K2Node_Event.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Nodes/MenuWords.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_CallFunction, "/Script/BlueprintGraph", CLASS_None)

template <>
UEnum* StaticEnum<ENodePurityOverride>()
{
	static UEnum* const Enum = NativeClass::RegisterEnum(TEXT("ENodePurityOverride"), TEXT("/Script/BlueprintGraph"),
		UEnum::ECppForm::EnumClass, {{TEXT("Unset"), 0}, {TEXT("Pure"), 1}, {TEXT("Impure"), 2}});
	return Enum;
}

void UK2Node_CallFunction::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("bDefaultsToPureFunc"), &UK2Node_CallFunction::bDefaultsToPureFunc);
	Class.Property(TEXT("bIsPureFunc"), &UK2Node_CallFunction::bIsPureFunc, CPF_TextExportTransient | CPF_Deprecated);
	Class.Property(TEXT("bIsConstFunc"), &UK2Node_CallFunction::bIsConstFunc, CPF_TextExportTransient | CPF_Deprecated);
	Class.Property(TEXT("bWantsEnumToExecExpansion"), &UK2Node_CallFunction::bWantsEnumToExecExpansion);
	Class.Property(TEXT("bIsInterfaceCall"), &UK2Node_CallFunction::bIsInterfaceCall);
	Class.Property(TEXT("bIsFinalFunction"), &UK2Node_CallFunction::bIsFinalFunction);
	Class.Property(TEXT("FunctionReference"), &UK2Node_CallFunction::FunctionReference);
	Class.Property(TEXT("NodePurityOverride"), &UK2Node_CallFunction::NodePurityOverride);
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

UEdGraphPin* UK2Node_CallFunction::GetReturnValuePin() const
{
	return FindPin(UEdGraphSchema_K2::PN_ReturnValue, EGPD_Output);
}

bool UK2Node_CallFunction::IsNodePure() const
{
	return NodePurityOverride == ENodePurityOverride::Unset ? bDefaultsToPureFunc
															: NodePurityOverride == ENodePurityOverride::Pure;
}

bool UK2Node_CallFunction::CanToggleNodePurity() const
{
	const UFunction* const Function = GetTargetFunction();
	const UEdGraph* const Graph = GetGraph();
	return Function && Function->HasAnyFunctionFlags(FUNC_BlueprintPure) && Graph
		&& GetK2Schema()->DoesGraphSupportImpureFunctions(Graph);
}

void UK2Node_CallFunction::ToggleNodePurityOverride()
{
	if (!CanToggleNodePurity())
	{
		return;
	}
	const bool bMakePure = !IsNodePure();
	const ENodePurityOverride Word = bMakePure ? ENodePurityOverride::Pure : ENodePurityOverride::Impure;
	// Back at the function's own purity the author has no word of his own any more.
	NodePurityOverride = bMakePure == bDefaultsToPureFunc ? ENodePurityOverride::Unset : Word;
	ReconstructNode();
}

bool UK2Node_CallFunction::IsLatentFunction() const
{
	const UFunction* const Function = GetTargetFunction();
	return Function && Function->HasMetaData(FBlueprintMetadata::MD_Latent);
}

bool UK2Node_CallFunction::CanFunctionSupportMultipleTargets(const UFunction* InFunction)
{
	return InFunction && !InFunction->HasAnyFunctionFlags(FUNC_BlueprintPure) && !InFunction->GetReturnProperty()
		&& !InFunction->HasMetaData(FBlueprintMetadata::MD_Latent);
}

bool UK2Node_CallFunction::AllowMultipleSelfs(bool) const
{
	return CanFunctionSupportMultipleTargets(GetTargetFunction());
}

void UK2Node_CallFunction::TakeOlderForm()
{
	bDefaultsToPureFunc |= bIsPureFunc;
	bIsPureFunc = false;
	bIsConstFunc = false;
	// The libraries' functions of single precision live on under the names of those of double precision.
	static const FString Single(TEXT("Float"));
	const FString Name = GetFunctionName().ToString();
	const UBlueprint* const Blueprint = FunctionReference.IsSelfContext() ? GetBlueprint() : nullptr;
	const UClass* const Library = Blueprint ? Blueprint->ParentClass.Get() : FunctionReference.GetMemberParentClass();
	if (!Library || Library->FindFunctionByName(GetFunctionName()))
	{
		return;
	}
	// A name of native code is kept for that, and Blueprints call it under a prefix.
	for (const FString& Successor :
		{Name.Replace(*Single, TEXT("Double"), ESearchCase::CaseSensitive), TEXT("K2_") + Name})
	{
		const UFunction* const Function = Library->FindFunctionByName(FName(Successor));
		if (Function && !Function->GetOwnerClass()->ClassGeneratedBy)
		{
			FunctionReference.SetMemberName(FName(Successor));
			return;
		}
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
	const FString Category = MenuWords::CategoryOf(
		Function->FindMetaData(FBlueprintMetadata::MD_FunctionCategory), FString());
	if (Category.IsEmpty())
	{
		return BaseCategory;
	}
	return FText::FromString(BaseCategory.IsEmpty() ? Category : BaseCategory.ToString() + TEXT("|") + Category);
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
	return FunctionTips::Describe(*Function);
}

FString UK2Node_CallFunction::GetCompactNodeTitle(const UFunction* Function)
{
	struct FSign
	{
		const TCHAR* Typed;
		const TCHAR* Drawn;
	};
	// Declarations are typed in ASCII; nodes show the sign that is meant.
	static constexpr FSign Signs[] = {
		{TEXT("*"), TEXT("\u00D7")}, {TEXT("/"), TEXT("\u00F7")}, {TEXT("->"), TEXT("\u2022")}};
	const FString* const Title = Function->FindMetaData(FBlueprintMetadata::MD_CompactNodeTitle);
	if (!Title || Title->IsEmpty())
	{
		return Function->GetName();
	}
	for (const FSign& Sign : Signs)
	{
		if (*Title == Sign.Typed)
		{
			return Sign.Drawn;
		}
	}
	return *Title;
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
	FString Tooltip = GetDefaultTooltipForFunction(Function) + FunctionTips::WhereItRuns(*Function);
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
	if (!Super::CanPasteHere(TargetGraph) || !TargetGraph || !TargetGraph->GetSchema())
	{
		return false;
	}
	const bool bIsFunction = TargetGraph->GetSchema()->GetGraphType(TargetGraph) == GT_Function;
	return !(bIsFunction && IsLatentFunction())
		&& (IsNodePure() || GetK2Schema()->DoesGraphSupportImpureFunctions(TargetGraph));
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
