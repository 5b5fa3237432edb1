#include "K2Node_PlayAnimation.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_PlayAnimation, "/Script/UMGEditor", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_PlayAnimationTimeRange, "/Script/UMGEditor", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_PlayAnimation2, "/Script/UMGEditor", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_PlayAnimationTimeRange2, "/Script/UMGEditor", CLASS_None)

void UK2Node_PlayAnimation::DescribeClass(FClassDescriber&) {}
void UK2Node_PlayAnimationTimeRange::DescribeClass(FClassDescriber&) {}
void UK2Node_PlayAnimation2::DescribeClass(FClassDescriber&) {}
void UK2Node_PlayAnimationTimeRange2::DescribeClass(FClassDescriber&) {}

UK2Node_PlayAnimation::UK2Node_PlayAnimation()
{
	PlayWith(TEXT("CreatePlayAnimationProxyObject"));
}

UK2Node_PlayAnimationTimeRange::UK2Node_PlayAnimationTimeRange()
{
	PlayWith(TEXT("CreatePlayAnimationTimeRangeProxyObject"));
}

UK2Node_PlayAnimation2::UK2Node_PlayAnimation2()
{
	PlayWith(TEXT("NewPlayAnimationProxyObject"));
}

UK2Node_PlayAnimationTimeRange2::UK2Node_PlayAnimationTimeRange2()
{
	PlayWith(TEXT("NewPlayAnimationTimeRangeProxyObject"));
}

void UK2Node_PlayAnimation::PlayWith(const TCHAR* FactoryFunction)
{
	ProxyFactoryFunctionName = FName(FactoryFunction);
	ProxyFactoryClass = FindObject<UClass>(nullptr, TEXT("/Script/UMG.WidgetAnimationPlayCallbackProxy"));
	ProxyClass = ProxyFactoryClass;
}

void UK2Node_PlayAnimation::CreateFlowPins()
{
	Super::CreateFlowPins();
	static const FName Result(TEXT("Result"));
	const UFunction* const Factory = GetFactoryFunction();
	if (const FProperty* const Param = Factory ? Factory->FindPropertyByName(Result) : nullptr)
	{
		UEdGraphPin* const Pin = CreatePinFromProperty(Param, EGPD_Output, Result);
		Pin->PinType.bIsReference = false;
	}
}

FText UK2Node_PlayAnimation::GetNodeTitle(ENodeTitleType::Type) const
{
	return NSLOCTEXT("UMG", "PlayAnimationWithFinished", "Play Animation with Finished event");
}

FText UK2Node_PlayAnimationTimeRange::GetNodeTitle(ENodeTitleType::Type) const
{
	return NSLOCTEXT("UMG", "PlayAnimationTimeRangeWithFinished", "Play Animation Time Range with Finished event");
}

FText UK2Node_PlayAnimation::GetMenuCategory() const
{
	return NSLOCTEXT("UMG", "AnimationCategory", "User Interface|Animation");
}

void UK2Node_PlayAnimation2::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
}

void UK2Node_PlayAnimationTimeRange2::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
}
