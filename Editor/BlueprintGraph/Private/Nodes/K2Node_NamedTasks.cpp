// Tasks that have a node class of their own. The factory comes with the class and is not saved with a node.

#include "K2Node_AIMoveTo.h"
#include "K2Node_PlayMontage.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_AIMoveTo, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_PlayMontage, "/Script/AnimGraph", CLASS_None)

void UK2Node_AIMoveTo::DescribeClass(FClassDescriber&) {}
void UK2Node_PlayMontage::DescribeClass(FClassDescriber&) {}

UK2Node_AIMoveTo::UK2Node_AIMoveTo()
{
	ProxyFactoryFunctionName = FName(TEXT("CreateMoveToProxyObject"));
	ProxyFactoryClass = FindObject<UClass>(nullptr, TEXT("/Script/AIModule.AIBlueprintHelperLibrary"));
	ProxyClass = FindObject<UClass>(nullptr, TEXT("/Script/AIModule.AIAsyncTaskBlueprintProxy"));
}

UK2Node_PlayMontage::UK2Node_PlayMontage()
{
	ProxyFactoryFunctionName = FName(TEXT("CreateProxyObjectForPlayMontage"));
	ProxyFactoryClass = FindObject<UClass>(nullptr, TEXT("/Script/AnimGraphRuntime.PlayMontageCallbackProxy"));
	ProxyClass = ProxyFactoryClass;
}

FText UK2Node_AIMoveTo::GetNodeTitle(ENodeTitleType::Type) const
{
	return NSLOCTEXT("K2Node", "AIMoveTo", "AI MoveTo");
}

FText UK2Node_PlayMontage::GetNodeTitle(ENodeTitleType::Type) const
{
	return NSLOCTEXT("K2Node", "PlayMontage", "Play Montage");
}

FText UK2Node_AIMoveTo::GetMenuCategory() const
{
	return NSLOCTEXT("K2Node", "AIMoveToCategory", "AI");
}

FText UK2Node_PlayMontage::GetMenuCategory() const
{
	return NSLOCTEXT("K2Node", "PlayMontageCategory", "Animation|Montage");
}

void UK2Node_AIMoveTo::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
}

void UK2Node_PlayMontage::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
}
