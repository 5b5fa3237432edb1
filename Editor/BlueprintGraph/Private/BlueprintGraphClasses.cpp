#include "BlueprintGraphClasses.h"

#include "BlueprintDelegateNodeSpawner.h"
#include "BlueprintEventNodeSpawner.h"
#include "BlueprintFunctionNodeSpawner.h"
#include "BlueprintVariableNodeSpawner.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_ActorBoundEvent.h"
#include "K2Node_AssignDelegate.h"
#include "K2Node_CallDelegate.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CallParentFunction.h"
#include "K2Node_ClassDynamicCast.h"
#include "K2Node_ClearDelegate.h"
#include "K2Node_CommutativeAssociativeBinaryOperator.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_Composite.h"
#include "K2Node_CreateDelegate.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_ExecutionSequence.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_IfThenElse.h"
#include "K2Node_Knot.h"
#include "K2Node_Literal.h"
#include "K2Node_MacroInstance.h"
#include "K2Node_PromotableOperator.h"
#include "K2Node_RemoveDelegate.h"
#include "K2Node_Self.h"
#include "K2Node_Timeline.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "UObject/NativeClass.h"

void RegisterBlueprintGraphClasses()
{
	NativeClass::RegisterNativeClasses({&UEdGraphSchema_K2::StaticClass, &UBlueprintNodeSpawner::StaticClass,
		&UBlueprintFunctionNodeSpawner::StaticClass, &UBlueprintVariableNodeSpawner::StaticClass,
		&UBlueprintEventNodeSpawner::StaticClass, &UBlueprintBoundEventNodeSpawner::StaticClass,
		&UBlueprintDelegateNodeSpawner::StaticClass, &UK2Node::StaticClass, &UK2Node_EditablePinBase::StaticClass,
		&UK2Node_FunctionTerminator::StaticClass, &UK2Node_FunctionEntry::StaticClass,
		&UK2Node_FunctionResult::StaticClass, &UK2Node_Variable::StaticClass, &UK2Node_VariableGet::StaticClass,
		&UK2Node_VariableSet::StaticClass, &UK2Node_CallFunction::StaticClass, &UK2Node_CallParentFunction::StaticClass,
		&UK2Node_EventNodeInterface::StaticClass, &UK2Node_Event::StaticClass, &UK2Node_CustomEvent::StaticClass,
		&UK2Node_ComponentBoundEvent::StaticClass, &UK2Node_ActorBoundEvent::StaticClass,
		&UK2Node_AddPinInterface::StaticClass, &UK2Node_DynamicCast::StaticClass,
		&UK2Node_ClassDynamicCast::StaticClass, &UK2Node_Self::StaticClass, &UK2Node_Knot::StaticClass,
		&UK2Node_Tunnel::StaticClass, &UK2Node_Composite::StaticClass, &UK2Node_MacroInstance::StaticClass,
		&UK2Node_IfThenElse::StaticClass, &UK2Node_ExecutionSequence::StaticClass, &UK2Node_Literal::StaticClass,
		&UK2Node_CreateDelegate::StaticClass, &UK2Node_BaseMCDelegate::StaticClass, &UK2Node_AddDelegate::StaticClass,
		&UK2Node_RemoveDelegate::StaticClass, &UK2Node_ClearDelegate::StaticClass, &UK2Node_CallDelegate::StaticClass,
		&UK2Node_AssignDelegate::StaticClass, &UK2Node_CommutativeAssociativeBinaryOperator::StaticClass,
		&UK2Node_PromotableOperator::StaticClass, &UK2Node_Timeline::StaticClass});
	FUserPinInfo::StaticStruct();
	FKismetUserDeclaredFunctionMetadata::StaticStruct();
	FOptionalPinFromProperty::StaticStruct();
	FGraphReference::StaticStruct();
}
