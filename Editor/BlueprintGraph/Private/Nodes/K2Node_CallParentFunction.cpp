#include "K2Node_CallParentFunction.h"

#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_CallParentFunction, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_CallParentFunction::DescribeClass(FClassDescriber&) {}

void UK2Node_CallParentFunction::SetFromFunction(const UFunction* Function)
{
	if (!Function)
	{
		return;
	}
	bDefaultsToPureFunc = Function->HasAnyFunctionFlags(FUNC_BlueprintPure);
	bIsFinalFunction = true;
	UClass* const Owner = Function->GetOwnerClass();
	FunctionReference.SetExternalMember(
		Function->GetFName(), TSubclassOf<UObject>(Owner ? Owner->GetAuthoritativeClass() : nullptr));
}

void UK2Node_CallParentFunction::AllocateDefaultPins()
{
	Super::AllocateDefaultPins();
	// The parent's implementation runs on self and on nothing else.
	if (UEdGraphPin* const SelfPin = UEdGraphSchema_K2::FindSelfPin(*this, EGPD_Input))
	{
		SelfPin->bHidden = true;
	}
}

FText UK2Node_CallParentFunction::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	const UFunction* const Function = GetTargetFunction();
	if (TitleType == ENodeTitleType::MenuTitle && !Function)
	{
		return NSLOCTEXT("K2Node", "AddCallToParent", "Add Call to Parent Function");
	}
	const FString Name = Function ? GetUserFacingFunctionName(Function).ToString()
								  : FName::NameToDisplayString(FunctionReference.GetMemberName().ToString(), false);
	return FText::FromString(FString::Printf(TEXT("Parent: %s"), *Name));
}

void UK2Node_CallParentFunction::PostPlacedNewNode()
{
	Super::PostPlacedNewNode();
	const UFunction* const Function = GetTargetFunction();
	const UBlueprint* const Blueprint = GetBlueprint();
	const UClass* const Parent = Blueprint ? Blueprint->ParentClass.Get() : nullptr;
	// The nearest implementation, so that a class put in between later is not skipped by what is placed from now on.
	if (const UFunction* const Nearest = Function && Parent ? Parent->FindFunctionByName(Function->GetFName())
															: nullptr)
	{
		FunctionReference.SetExternalMember(
			Nearest->GetFName(), TSubclassOf<UObject>(Nearest->GetOwnerClass()->GetAuthoritativeClass()));
	}
}
