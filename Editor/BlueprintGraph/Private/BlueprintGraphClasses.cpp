#include "Standalone/BlueprintGraphClasses.h"

#include "BlueprintComponentNodeSpawner.h"
#include "BlueprintDelegateNodeSpawner.h"
#include "BlueprintEventNodeSpawner.h"
#include "BlueprintFieldNodeSpawner.h"
#include "BlueprintFunctionNodeSpawner.h"
#include "BlueprintVariableNodeSpawner.h"
#include "EdGraphSchema_K2.h"
#include "GameplayTagsK2Node_SwitchGameplayTag.h"
#include "K2Node.h"
#include "K2Node_ActorBoundEvent.h"
#include "K2Node_AddComponent.h"
#include "K2Node_AddComponentByClass.h"
#include "K2Node_AddDelegate.h"
#include "K2Node_AddPinInterface.h"
#include "K2Node_AIMoveTo.h"
#include "K2Node_AssignDelegate.h"
#include "K2Node_AssignmentStatement.h"
#include "K2Node_AsyncAction.h"
#include "K2Node_BaseAsyncTask.h"
#include "K2Node_BaseMCDelegate.h"
#include "K2Node_BitmaskLiteral.h"
#include "K2Node_BreakStruct.h"
#include "K2Node_CallArrayFunction.h"
#include "K2Node_CallDataTableFunction.h"
#include "K2Node_CallDelegate.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CallFunctionOnMember.h"
#include "K2Node_CallMaterialParameterCollectionFunction.h"
#include "K2Node_CallParentFunction.h"
#include "K2Node_CastByteToEnum.h"
#include "K2Node_ClassDynamicCast.h"
#include "K2Node_ClearDelegate.h"
#include "K2Node_CommutativeAssociativeBinaryOperator.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_Composite.h"
#include "K2Node_ConstructObjectFromClass.h"
#include "K2Node_ConvertAsset.h"
#include "K2Node_CreateDelegate.h"
#include "K2Node_CreateDragDropOperation.h"
#include "K2Node_CreateWidget.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_DoOnceMultiInput.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_EaseFunction.h"
#include "K2Node_EditablePinBase.h"
#include "K2Node_EditorPropertyAccess.h"
#include "K2Node_EnhancedInputAction.h"
#include "K2Node_EnumEquality.h"
#include "K2Node_EnumInequality.h"
#include "K2Node_EnumLiteral.h"
#include "K2Node_Event.h"
#include "K2Node_EventNodeInterface.h"
#include "K2Node_ExecutePythonScript.h"
#include "K2Node_ExecutionSequence.h"
#include "K2Node_ForEachElementInEnum.h"
#include "K2Node_FormatText.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_FunctionTerminator.h"
#include "K2Node_GameplayCueEvent.h"
#include "K2Node_GenericCreateObject.h"
#include "K2Node_GetArrayItem.h"
#include "K2Node_GetClassDefaults.h"
#include "K2Node_GetDataTableRow.h"
#include "K2Node_GetEnumeratorName.h"
#include "K2Node_GetEnumeratorNameAsString.h"
#include "K2Node_GetInputActionValue.h"
#include "K2Node_GetInputAxisValue.h"
#include "K2Node_GetInputVectorAxisValue.h"
#include "K2Node_GetNumEnumEntries.h"
#include "K2Node_GetSubsystem.h"
#include "K2Node_IfThenElse.h"
#include "K2Node_InputAction.h"
#include "K2Node_InputAxisEvent.h"
#include "K2Node_InputAxisKeyEvent.h"
#include "K2Node_InputDebugKey.h"
#include "K2Node_InputKey.h"
#include "K2Node_InputTouch.h"
#include "K2Node_InputVectorAxisEvent.h"
#include "K2Node_Knot.h"
#include "K2Node_LatentGameplayTaskCall.h"
#include "K2Node_Literal.h"
#include "K2Node_LoadAsset.h"
#include "K2Node_MacroInstance.h"
#include "K2Node_MakeArray.h"
#include "K2Node_MakeContainer.h"
#include "K2Node_MakeMap.h"
#include "K2Node_MakeSet.h"
#include "K2Node_MakeStruct.h"
#include "K2Node_MathExpression.h"
#include "K2Node_Message.h"
#include "K2Node_MultiGate.h"
#include "K2Node_PlayAnimation.h"
#include "K2Node_PlayMontage.h"
#include "K2Node_PromotableOperator.h"
#include "K2Node_RemoveDelegate.h"
#include "K2Node_Select.h"
#include "K2Node_Self.h"
#include "K2Node_SetFieldsInStruct.h"
#include "K2Node_SetVariableOnPersistentFrame.h"
#include "K2Node_SpawnActorFromClass.h"
#include "K2Node_StructMemberGet.h"
#include "K2Node_StructMemberSet.h"
#include "K2Node_StructOperation.h"
#include "K2Node_Switch.h"
#include "K2Node_SwitchEnum.h"
#include "K2Node_SwitchInteger.h"
#include "K2Node_SwitchName.h"
#include "K2Node_SwitchString.h"
#include "K2Node_TemporaryVariable.h"
#include "K2Node_Timeline.h"
#include "K2Node_Tunnel.h"
#include "K2Node_Variable.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "K2Node_VariableSetRef.h"
#include "K2Node_WidgetAnimationEvent.h"
#include "Menu/ActionSources.h"
#include "Menu/OfferNodeSpawner.h"
#include "NodeDependingOnEnumInterface.h"
#include "Nodes/MissingDeclarations.h"
#include "Standalone/K2Node_EnumNodes.h"
#include "Standalone/NativeClass.h"

void RegisterBlueprintGraphClasses()
{
	MissingDeclarations::Register();
	NativeClass::RegisterNativeClasses({&UEdGraphSchema_K2::StaticClass, &UBlueprintNodeSpawner::StaticClass,
		&UBlueprintFunctionNodeSpawner::StaticClass, &UOfferNodeSpawner::StaticClass, &UK2Node::StaticClass,
		&UK2Node_EditablePinBase::StaticClass, &UK2Node_Event::StaticClass, &UK2Node_ActorBoundEvent::StaticClass,
		&UK2Node_CallFunction::StaticClass, &UK2Node_AddComponent::StaticClass,
		&UK2Node_ConstructObjectFromClass::StaticClass, &UK2Node_AddComponentByClass::StaticClass,
		&UK2Node_BaseMCDelegate::StaticClass, &UK2Node_AddDelegate::StaticClass, &UK2Node_AddPinInterface::StaticClass,
		&UK2Node_AssignDelegate::StaticClass, &UK2Node_AssignmentStatement::StaticClass,
		&UK2Node_BaseAsyncTask::StaticClass, &UK2Node_AsyncAction::StaticClass, &UK2Node_Variable::StaticClass,
		&UK2Node_StructOperation::StaticClass, &UK2Node_StructMemberGet::StaticClass,
		&UK2Node_BitmaskLiteral::StaticClass, &UK2Node_BreakStruct::StaticClass,
		&UK2Node_CallArrayFunction::StaticClass, &UK2Node_CallDataTableFunction::StaticClass,
		&UK2Node_CallDelegate::StaticClass, &UK2Node_CallFunctionOnMember::StaticClass,
		&UK2Node_CallMaterialParameterCollectionFunction::StaticClass, &UK2Node_CallParentFunction::StaticClass,
		&UK2Node_EnumNodeBase::StaticClass, &UK2Node_CastByteToEnum::StaticClass, &UK2Node_DynamicCast::StaticClass,
		&UK2Node_ClassDynamicCast::StaticClass, &UK2Node_ClearDelegate::StaticClass,
		&UK2Node_CommutativeAssociativeBinaryOperator::StaticClass, &UK2Node_ComponentBoundEvent::StaticClass,
		&UK2Node_Tunnel::StaticClass, &UK2Node_Composite::StaticClass, &UK2Node_ConvertAsset::StaticClass,
		&UK2Node_CreateDelegate::StaticClass, &UK2Node_CreateDragDropOperation::StaticClass,
		&UK2Node_CreateWidget::StaticClass, &UK2Node_CustomEvent::StaticClass, &UK2Node_DoOnceMultiInput::StaticClass,
		&UK2Node_EaseFunction::StaticClass, &UK2Node_EnhancedInputAction::StaticClass,
		&UK2Node_EnumEquality::StaticClass, &UK2Node_EnumInequality::StaticClass, &UK2Node_EnumLiteral::StaticClass,
		&UK2Node_EventNodeInterface::StaticClass, &UK2Node_ExecutionSequence::StaticClass,
		&UK2Node_ForEachElementInEnum::StaticClass, &UK2Node_FormatText::StaticClass,
		&UK2Node_FunctionTerminator::StaticClass, &UK2Node_FunctionEntry::StaticClass,
		&UK2Node_FunctionResult::StaticClass, &UK2Node_GenericCreateObject::StaticClass,
		&UK2Node_GetArrayItem::StaticClass, &UK2Node_GetClassDefaults::StaticClass,
		&UK2Node_GetDataTableRow::StaticClass, &UK2Node_GetInputActionValue::StaticClass,
		&UK2Node_GetEnumeratorName::StaticClass, &UK2Node_GetEnumeratorNameAsString::StaticClass,
		&UK2Node_GetNumEnumEntries::StaticClass, &UK2Node_GetInputAxisValue::StaticClass,
		&UK2Node_GetInputAxisKeyValue::StaticClass, &UK2Node_GetInputVectorAxisValue::StaticClass,
		&UK2Node_AIMoveTo::StaticClass, &UK2Node_PlayMontage::StaticClass, &UK2Node_PlayAnimation::StaticClass,
		&UK2Node_PlayAnimationTimeRange::StaticClass, &UK2Node_PlayAnimation2::StaticClass,
		&UK2Node_PlayAnimationTimeRange2::StaticClass, &UK2Node_EditorPropertyAccessBase::StaticClass,
		&UK2Node_GetEditorProperty::StaticClass, &UK2Node_SetEditorProperty::StaticClass,
		&UK2Node_VariableSetRef::StaticClass, &UK2Node_GameplayCueEvent::StaticClass,
		&UK2Node_WidgetAnimationEvent::StaticClass, &UK2Node_ExecutePythonScript::StaticClass,
		&UK2Node_GetSubsystem::StaticClass, &UK2Node_GetSubsystemFromPC::StaticClass,
		&UK2Node_GetEngineSubsystem::StaticClass, &UK2Node_GetEditorSubsystem::StaticClass,
		&UK2Node_IfThenElse::StaticClass, &UK2Node_InputAction::StaticClass, &UK2Node_InputAxisEvent::StaticClass,
		&UK2Node_InputAxisKeyEvent::StaticClass, &UK2Node_InputDebugKey::StaticClass, &UK2Node_InputKey::StaticClass,
		&UK2Node_InputTouch::StaticClass, &UK2Node_InputVectorAxisEvent::StaticClass, &UK2Node_Knot::StaticClass,
		&UK2Node_LatentGameplayTaskCall::StaticClass, &UK2Node_LatentAbilityCall::StaticClass,
		&UK2Node_Literal::StaticClass, &UK2Node_LoadAsset::StaticClass, &UK2Node_LoadAssetClass::StaticClass,
		&UK2Node_LoadAssets::StaticClass, &UK2Node_MacroInstance::StaticClass, &UK2Node_MakeContainer::StaticClass,
		&UK2Node_MakeArray::StaticClass, &UK2Node_MakeMap::StaticClass, &UK2Node_MakeSet::StaticClass,
		&UK2Node_StructMemberSet::StaticClass, &UK2Node_MakeStruct::StaticClass, &UK2Node_Message::StaticClass,
		&UK2Node_MultiGate::StaticClass, &UK2Node_PromotableOperator::StaticClass, &UK2Node_RemoveDelegate::StaticClass,
		&UK2Node_Select::StaticClass, &UK2Node_Self::StaticClass, &UK2Node_SetFieldsInStruct::StaticClass,
		&UK2Node_SetVariableOnPersistentFrame::StaticClass, &UK2Node_SpawnActorFromClass::StaticClass,
		&UK2Node_Switch::StaticClass, &UK2Node_SwitchEnum::StaticClass, &UK2Node_SwitchInteger::StaticClass,
		&UK2Node_SwitchName::StaticClass, &UK2Node_SwitchString::StaticClass, &UK2Node_TemporaryVariable::StaticClass,
		&UK2Node_Timeline::StaticClass, &UK2Node_VariableGet::StaticClass, &UK2Node_VariableSet::StaticClass,
		&UNodeDependingOnEnumInterface::StaticClass, &UBlueprintVariableNodeSpawner::StaticClass,
		&UBlueprintEventNodeSpawner::StaticClass, &UBlueprintBoundEventNodeSpawner::StaticClass,
		&UBlueprintDelegateNodeSpawner::StaticClass, &UBlueprintComponentNodeSpawner::StaticClass,
		&UBlueprintFieldNodeSpawner::StaticClass, &UOfferNodeSpawner::StaticClass, &UK2Node_MathExpression::StaticClass,
		&UGameplayTagsK2Node_SwitchGameplayTag::StaticClass,
		&UGameplayTagsK2Node_SwitchGameplayTagContainer::StaticClass});
	ActionSources::TellOffersInFiles();
	FUserPinInfo::StaticStruct();
	FKismetUserDeclaredFunctionMetadata::StaticStruct();
	FOptionalPinFromProperty::StaticStruct();
	FGraphReference::StaticStruct();
}
