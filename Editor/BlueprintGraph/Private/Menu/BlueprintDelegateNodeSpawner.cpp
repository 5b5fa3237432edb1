#include "BlueprintDelegateNodeSpawner.h"

#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_AssignDelegate.h"
#include "K2Node_CallDelegate.h"
#include "K2Node_ClearDelegate.h"
#include "K2Node_RemoveDelegate.h"
#include "Menu/SpawnerPins.h"
#include "Nodes/MenuWords.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UBlueprintDelegateNodeSpawner, "/Script/BlueprintGraph", CLASS_None)

void UBlueprintDelegateNodeSpawner::DescribeClass(FClassDescriber&) {}

namespace DelegateSpawners
{
static const TCHAR* VerbOf(const UClass& NodeClass)
{
	if (NodeClass.IsChildOf(UK2Node_AssignDelegate::StaticClass()))
	{
		return TEXT("Assign ");
	}
	if (NodeClass.IsChildOf(UK2Node_AddDelegate::StaticClass()))
	{
		return TEXT("Bind Event to ");
	}
	if (NodeClass.IsChildOf(UK2Node_RemoveDelegate::StaticClass()))
	{
		return TEXT("Unbind Event from ");
	}
	return NodeClass.IsChildOf(UK2Node_ClearDelegate::StaticClass()) ? TEXT("Unbind all Events from ") : TEXT("Call ");
}
} // namespace DelegateSpawners

UBlueprintDelegateNodeSpawner* UBlueprintDelegateNodeSpawner::Create(
	const UClass* InNodeClass, const FMulticastDelegateProperty* Property, UObject* Outer)
{
	if (!InNodeClass || !Property || !Property->GetOwnerClass())
	{
		return nullptr;
	}
	UBlueprintDelegateNodeSpawner* const Spawner = NewObject<UBlueprintDelegateNodeSpawner>(
		Outer ? Outer : GetTransientPackageAsObject());
	Spawner->NodeClass = const_cast<UClass*>(InNodeClass);
	Spawner->OwnerClass = MenuWords::LastingClass(Property->GetOwnerClass());
	Spawner->PropertyName = Property->GetFName();
	FBlueprintActionUiSpec& Words = Spawner->DefaultMenuSignature;
	Words.MenuName = FText::FromString(
		DelegateSpawners::VerbOf(*InNodeClass) + Property->GetDisplayNameText().ToString());
	const FString Category = MenuWords::CategoryOf(
		Property->FindMetaData(FBlueprintMetadata::MD_FunctionCategory), FString());
	const bool bOwnCategory = !Category.IsEmpty() && Category != TEXT("Default");
	Words.Category = MenuWords::SharedText(bOwnCategory ? Category : FString(TEXT("Event Dispatchers")));
	Words.Keywords = FText::FromName(Spawner->PropertyName);
	return Spawner;
}

const FMulticastDelegateProperty* UBlueprintDelegateNodeSpawner::GetDelegateProperty() const
{
	return FindFProperty<FMulticastDelegateProperty>(MenuWords::LookupClass(OwnerClass.Get()), PropertyName);
}

bool UBlueprintDelegateNodeSpawner::IsBindable() const
{
	return GetDelegateProperty() != nullptr;
}

void UBlueprintDelegateNodeSpawner::Bind(UEdGraphNode& NewNode, bool) const
{
	UK2Node_BaseMCDelegate* const Node = CastChecked<UK2Node_BaseMCDelegate>(&NewNode);
	Node->SetFromProperty(
		GetDelegateProperty(), MenuWords::IsMemberOf(OwnerClass.Get(), Node->GetBlueprint()), OwnerClass.Get());
}

bool UBlueprintDelegateNodeSpawner::AnyPin(FPinVisitor Visit) const
{
	const FMulticastDelegateProperty* const Property = GetDelegateProperty();
	if (!Property)
	{
		return false;
	}
	if (SpawnerPins::AnyExec(Visit) || SpawnerPins::AnyObject(*OwnerClass.Get(), EGPD_Input, Visit))
	{
		return true;
	}
	const UFunction* const Signature = Property->SignatureFunction;
	if (NodeClass->IsChildOf(UK2Node_CallDelegate::StaticClass()))
	{
		return Signature && SpawnerPins::AnyParameter(*Signature, Visit);
	}
	return !NodeClass->IsChildOf(UK2Node_ClearDelegate::StaticClass())
		&& SpawnerPins::AnyDelegate(Signature, EGPD_Input, Visit);
}
