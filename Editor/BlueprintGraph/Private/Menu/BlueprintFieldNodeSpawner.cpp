#include "BlueprintFieldNodeSpawner.h"

#include "EdGraphSchema_K2.h"
#include "K2Node_BreakStruct.h"
#include "K2Node_ClassDynamicCast.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_MakeStruct.h"
#include "K2Node_SetFieldsInStruct.h"
#include "Menu/SpawnerPins.h"
#include "Standalone/NativeClass.h"
#include "UObject/UnrealType.h"

IMPLEMENT_EDITOR_CLASS(UBlueprintFieldNodeSpawner, "/Script/BlueprintGraph", CLASS_None)

void UBlueprintFieldNodeSpawner::DescribeClass(FClassDescriber&) {}

namespace FieldSpawners
{
using FPinVisitor = UBlueprintNodeSpawner::FPinVisitor;
using FSchema = UEdGraphSchema_K2;

static FEdGraphPinType TypeOf(FName Category, UObject* Object)
{
	return FEdGraphPinType(Category, NAME_None, Object, EPinContainerType::None, false, FEdGraphTerminalType());
}

static bool AnyOfCast(UClass& Target, bool bOfClass, FPinVisitor Visit)
{
	const FName Reference = bOfClass ? FSchema::PC_Class : FSchema::PC_Object;
	const bool bInterface = Target.HasAnyClassFlags(CLASS_Interface) && !bOfClass;
	return SpawnerPins::AnyExec(Visit) || Visit(TypeOf(Reference, UObject::StaticClass()), EGPD_Input)
		|| Visit(TypeOf(bInterface ? FSchema::PC_Interface : Reference, &Target), EGPD_Output);
}

static bool AnyOfStruct(const UClass& NodeClass, UScriptStruct& Struct, FPinVisitor Visit)
{
	const FEdGraphPinType Whole = TypeOf(FSchema::PC_Struct, &Struct);
	if (NodeClass.IsChildOf(UK2Node_SetFieldsInStruct::StaticClass()))
	{
		// Which members it sets is chosen once it stands.
		return SpawnerPins::AnyExec(Visit) || Visit(Whole, EGPD_Input) || Visit(Whole, EGPD_Output);
	}
	const bool bMakes = NodeClass.IsChildOf(UK2Node_MakeStruct::StaticClass());
	return Visit(Whole, bMakes ? EGPD_Output : EGPD_Input)
		|| SpawnerPins::AnyMember(Struct, bMakes ? EGPD_Input : EGPD_Output, Visit);
}
} // namespace FieldSpawners

UBlueprintFieldNodeSpawner* UBlueprintFieldNodeSpawner::Create(
	const UClass* InNodeClass, UField& InField, FName InMember, UObject* Outer)
{
	if (!InNodeClass)
	{
		return nullptr;
	}
	UBlueprintFieldNodeSpawner* const Spawner = NewObject<UBlueprintFieldNodeSpawner>(
		Outer ? Outer : GetTransientPackageAsObject());
	Spawner->NodeClass = const_cast<UClass*>(InNodeClass);
	Spawner->Field = &InField;
	Spawner->Member = InMember;
	return Spawner;
}

void UBlueprintFieldNodeSpawner::Bind(UEdGraphNode& Node, bool) const
{
	if (const FObjectPropertyBase* const Property = FindFProperty<FObjectPropertyBase>(Node.GetClass(), Member))
	{
		Property->SetObjectPropertyValue_InContainer(&Node, GetField());
	}
}

bool UBlueprintFieldNodeSpawner::AnyPin(FPinVisitor Visit) const
{
	using namespace FieldSpawners;
	UClass* const Class = Cast<UClass>(GetField());
	if (Class && NodeClass->IsChildOf(UK2Node_DynamicCast::StaticClass()))
	{
		return AnyOfCast(*Class, NodeClass->IsChildOf(UK2Node_ClassDynamicCast::StaticClass()), Visit);
	}
	UScriptStruct* const Struct = Cast<UScriptStruct>(GetField());
	const bool bOfStruct = NodeClass->IsChildOf(UK2Node_MakeStruct::StaticClass())
		|| NodeClass->IsChildOf(UK2Node_BreakStruct::StaticClass())
		|| NodeClass->IsChildOf(UK2Node_SetFieldsInStruct::StaticClass());
	return Struct && bOfStruct ? AnyOfStruct(*NodeClass.Get(), *Struct, Visit) : Super::AnyPin(Visit);
}
