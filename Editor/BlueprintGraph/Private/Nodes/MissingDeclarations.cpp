#include "Nodes/MissingDeclarations.h"

#include "Engine/Blueprint.h"
#include "K2Node_BaseMCDelegate.h"
#include "K2Node_CallFunction.h"
#include "K2Node_ConstructObjectFromClass.h"
#include "K2Node_EditablePinBase.h"
#include "K2Node_Event.h"
#include "K2Node_GetClassDefaults.h"
#include "K2Node_LatentGameplayTaskCall.h"
#include "K2Node_Variable.h"
#include "Standalone/MissingObjects.h"
#include "UObject/UnrealType.h"

namespace MissingDeclarations
{
namespace
{
/** The parameters that an author gave to an entry, a result or a custom event. */
void VisitUserPins(UObject& Owner, TFunctionRef<void(UObject*&)> Visit)
{
	const UK2Node_EditablePinBase* const Node = Cast<UK2Node_EditablePinBase>(&Owner);
	for (int32 Index = 0; Node && Index < Node->UserDefinedPins.Num(); ++Index)
	{
		FUserPinInfo& Info = *Node->UserDefinedPins[Index];
		for (TFieldIterator<FProperty> It(FEdGraphPinType::StaticStruct()); It; ++It)
		{
			It->VisitObjects(It->ContainerPtrToValuePtr<void>(&Info.PinType), Visit);
		}
	}
}

/** Whether the node names a member that its class does not have. */
bool LacksMember(const UK2Node& Node)
{
	if (const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node))
	{
		return !Call->GetTargetFunction();
	}
	if (const UK2Node_Variable* const Variable = Cast<UK2Node_Variable>(&Node))
	{
		return !Variable->GetPropertyForVariable();
	}
	if (const UK2Node_BaseMCDelegate* const Dispatcher = Cast<UK2Node_BaseMCDelegate>(&Node))
	{
		return !Dispatcher->GetProperty();
	}
	const UK2Node_Event* const Event = Cast<UK2Node_Event>(&Node);
	return Event && Event->bOverrideFunction && !Event->FindEventSignatureFunction();
}

bool HasMissingParent(const UK2Node& Node)
{
	const UBlueprint* const Blueprint = Node.GetTypedOuter<UBlueprint>();
	return Blueprint && FMissingObjects::FindMissingParent(Blueprint->ParentClass.Get());
}
} // namespace

bool IsMissing(const UK2Node& Node)
{
	bool bMissing = false;
	for (TFieldIterator<FProperty> It(Node.GetClass()); It && !bMissing; ++It)
	{
		It->VisitObjects(It->GetValuePtr(const_cast<UK2Node*>(&Node)),
			[&bMissing](UObject*& Object) { bMissing = bMissing || FMissingObjects::IsMissing(Object); });
	}
	if (const UK2Node_ConstructObjectFromClass* const Construct = Cast<UK2Node_ConstructObjectFromClass>(&Node))
	{
		bMissing = bMissing || FMissingObjects::IsMissing(Construct->GetClassToSpawn());
	}
	else if (const UK2Node_LatentGameplayTaskCall* const Task = Cast<UK2Node_LatentGameplayTaskCall>(&Node))
	{
		bMissing = bMissing || FMissingObjects::FindMissingParent(Task->GetClassToSpawn());
	}
	else if (const UK2Node_GetClassDefaults* const Defaults = Cast<UK2Node_GetClassDefaults>(&Node))
	{
		bMissing = bMissing || FMissingObjects::FindMissingParent(Defaults->GetInputClass());
	}
	return bMissing || (HasMissingParent(Node) && LacksMember(Node));
}

void Register()
{
	static bool bRegistered = false;
	if (!bRegistered)
	{
		bRegistered = true;
		FMissingObjects::AddReferences(&VisitUserPins);
	}
}
} // namespace MissingDeclarations
