// What nodes refer to beside their properties, and what a Blueprint does when something that it refers to comes or
// goes.

#include "MissingReferences.h"

#include "EdGraph/EdGraphNode.h"
#include "Engine/Blueprint.h"
#include "Standalone/MissingObjects.h"

namespace MissingReferences
{
namespace
{
void VisitWeak(TWeakObjectPtr<UObject>& Pointer, TFunctionRef<void(UObject*&)> Visit)
{
	UObject* const Before = Pointer.Get(true);
	UObject* Object = Before;
	Visit(Object);
	if (Object != Before)
	{
		Pointer = Object;
	}
}

void VisitType(FEdGraphPinType& Type, TFunctionRef<void(UObject*&)> Visit)
{
	VisitWeak(Type.PinSubCategoryObject, Visit);
	VisitWeak(Type.PinValueType.TerminalSubCategoryObject, Visit);
	Visit(Type.PinSubCategoryMemberReference.MemberParent);
}

void VisitPins(UObject& Owner, TFunctionRef<void(UObject*&)> Visit)
{
	const UEdGraphNode* const Node = Cast<UEdGraphNode>(&Owner);
	if (!Node)
	{
		return;
	}
	for (UEdGraphPin* const Pin : Node->Pins)
	{
		UObject* const Before = Pin->DefaultObject;
		UObject* Object = Before;
		Visit(Object);
		if (Object != Before)
		{
			Pin->DefaultObject = Object;
		}
		VisitType(Pin->PinType, Visit);
	}
}

/** The class is built anew before it is next asked for. */
void MarkStale(UObject& Owner)
{
	UBlueprint* const Own = Cast<UBlueprint>(&Owner);
	UBlueprint* Blueprint = Own ? Own : Owner.GetTypedOuter<UBlueprint>();
	if (!Blueprint)
	{
		const UClass* const Class = Cast<UClass>(&Owner);
		const UClass* const Around = Class ? Class : Owner.GetTypedOuter<UClass>();
		Blueprint = UBlueprint::GetBlueprintFromClass(Around ? Around : Owner.GetClass());
	}
	if (Blueprint)
	{
		Blueprint->bSkeletonIsStale = true;
	}
}
} // namespace

void Register()
{
	static bool bRegistered = false;
	if (!bRegistered)
	{
		bRegistered = true;
		FMissingObjects::AddReferences(&VisitPins);
		FMissingObjects::AddListener(&MarkStale);
	}
}
} // namespace MissingReferences
