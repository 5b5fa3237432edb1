#include "BlueprintVariableNodeSpawner.h"

#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_VariableSet.h"
#include "Menu/SpawnerPins.h"
#include "Nodes/MenuWords.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UBlueprintVariableNodeSpawner, "/Script/BlueprintGraph", CLASS_None)

void UBlueprintVariableNodeSpawner::DescribeClass(FClassDescriber&) {}

void UBlueprintVariableNodeSpawner::SetWords(const FString& Name, const FText& Category)
{
	const bool bSets = NodeClass.Get()->IsChildOf(UK2Node_VariableSet::StaticClass());
	DefaultMenuSignature.MenuName = FText::FromString((bSets ? TEXT("Set ") : TEXT("Get ")) + Name);
	DefaultMenuSignature.Category = Category;
	DefaultMenuSignature.Keywords = FText::FromName(VariableName);
}

UBlueprintVariableNodeSpawner* UBlueprintVariableNodeSpawner::CreateFromMemberOrParam(
	const UClass* InNodeClass, const FProperty* VarProperty, UObject* Outer)
{
	if (!InNodeClass || !VarProperty || !VarProperty->GetOwnerClass())
	{
		return nullptr;
	}
	UBlueprintVariableNodeSpawner* const Spawner = NewObject<UBlueprintVariableNodeSpawner>(
		Outer ? Outer : GetTransientPackageAsObject());
	Spawner->NodeClass = const_cast<UClass*>(InNodeClass);
	Spawner->OwnerClass = MenuWords::LastingClass(VarProperty->GetOwnerClass());
	Spawner->VariableName = VarProperty->GetFName();
	const UClass& Owner = *VarProperty->GetOwnerClass();
	const FString* const Category = VarProperty->FindMetaData(FBlueprintMetadata::MD_FunctionCategory);
	Spawner->SetWords(VarProperty->GetDisplayNameText().ToString(),
		Owner.ClassGeneratedBy ? MenuWords::MemberCategory(Category) : MenuWords::ForeignCategory(Owner));
	return Spawner;
}

UBlueprintVariableNodeSpawner* UBlueprintVariableNodeSpawner::CreateFromLocal(
	const UClass* InNodeClass, UEdGraph* VarContext, const FBPVariableDescription& VarDesc, UObject* Outer)
{
	if (!InNodeClass || !VarContext)
	{
		return nullptr;
	}
	UBlueprintVariableNodeSpawner* const Spawner = NewObject<UBlueprintVariableNodeSpawner>(
		Outer ? Outer : GetTransientPackageAsObject());
	Spawner->NodeClass = const_cast<UClass*>(InNodeClass);
	Spawner->VariableName = VarDesc.VarName;
	Spawner->LocalScope = VarContext->GetName();
	Spawner->LocalGuid = VarDesc.VarGuid;
	Spawner->LocalType = VarDesc.VarType;
	const bool bIsBool = VarDesc.VarType.PinCategory == UEdGraphSchema_K2::PC_Boolean;
	Spawner->SetWords(FName::NameToDisplayString(VarDesc.VarName.ToString(), bIsBool),
		MenuWords::MemberCategory(&VarDesc.Category.ToString()));
	return Spawner;
}

const FProperty* UBlueprintVariableNodeSpawner::GetVarProperty() const
{
	const UClass* const Class = MenuWords::LookupClass(OwnerClass.Get());
	return Class ? Class->FindPropertyByName(VariableName) : nullptr;
}

bool UBlueprintVariableNodeSpawner::IsBindable() const
{
	return IsLocalVariable() || GetVarProperty();
}

void UBlueprintVariableNodeSpawner::Bind(UEdGraphNode& NewNode, bool) const
{
	UK2Node_Variable* const Node = CastChecked<UK2Node_Variable>(&NewNode);
	if (IsLocalVariable())
	{
		Node->VariableReference.SetLocalMember(VariableName, LocalScope, LocalGuid);
		return;
	}
	Node->SetFromProperty(
		GetVarProperty(), MenuWords::IsMemberOf(OwnerClass.Get(), Node->GetBlueprint()), OwnerClass.Get());
}

bool UBlueprintVariableNodeSpawner::AnyPin(FPinVisitor Visit) const
{
	const bool bSets = NodeClass->IsChildOf(UK2Node_VariableSet::StaticClass());
	if (bSets && SpawnerPins::AnyExec(Visit))
	{
		return true;
	}
	if (IsLocalVariable())
	{
		return Visit(LocalType, EGPD_Output) || (bSets && Visit(LocalType, EGPD_Input));
	}
	const FProperty* const Property = GetVarProperty();
	return Property
		&& (SpawnerPins::AnyObject(*OwnerClass.Get(), EGPD_Input, Visit)
			|| SpawnerPins::AnyValue(*Property, EGPD_Output, Visit)
			|| (bSets && SpawnerPins::AnyValue(*Property, EGPD_Input, Visit)));
}
