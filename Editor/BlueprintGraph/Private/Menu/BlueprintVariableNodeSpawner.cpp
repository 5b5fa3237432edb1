#include "BlueprintVariableNodeSpawner.h"

#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintClassProvider.h"
#include "K2Node_VariableSet.h"
#include "Menu/MenuWords.h"
#include "UObject/NativeClass.h"

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
	Spawner->SetWords(VarProperty->GetDisplayNameText().ToString(), MenuWords::VariableCategory(*VarProperty));
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
	const bool bIsBool = VarDesc.VarType.PinCategory == UEdGraphSchema_K2::PC_Boolean;
	const FString Category = VarDesc.Category.IsEmpty() ? FString(TEXT("Default")) : VarDesc.Category.ToString();
	Spawner->SetWords(FName::NameToDisplayString(VarDesc.VarName.ToString(), bIsBool),
		FText::FromString(TEXT("Variables|") + MenuWords::ReadableCategory(Category)));
	return Spawner;
}

const FProperty* UBlueprintVariableNodeSpawner::GetVarProperty() const
{
	const UClass* const Class = MenuWords::LookupClass(OwnerClass.Get());
	return Class ? Class->FindPropertyByName(VariableName) : nullptr;
}

void UBlueprintVariableNodeSpawner::Bind(UEdGraphNode* NewNode) const
{
	UK2Node_Variable* const Node = CastChecked<UK2Node_Variable>(NewNode);
	if (IsLocalVariable())
	{
		Node->VariableReference.SetLocalMember(VariableName, LocalScope, LocalGuid);
		return;
	}
	const FProperty* const Property = GetVarProperty();
	const UBlueprint* const Blueprint = Node->GetBlueprint();
	const UClass* const Self = BlueprintClassProvider::GetSelfClass(Blueprint);
	const UClass* const Owner = OwnerClass.Get();
	const bool bSelfContext = Self
		&& (Self->IsChildOf(Owner) || Self->GetAuthoritativeClass()->IsChildOf(Owner)
			|| Owner->ClassGeneratedBy == Blueprint);
	Node->SetFromProperty(Property, bSelfContext, OwnerClass.Get());
}

UEdGraphNode* UBlueprintVariableNodeSpawner::Invoke(
	UEdGraph* ParentGraph, const FBindingSet& Bindings, const FVector2D Location) const
{
	if (!IsLocalVariable() && !GetVarProperty())
	{
		return nullptr;
	}
	return SpawnEdGraphNode(
		NodeClass.Get(), ParentGraph, Bindings, Location, [this](UEdGraphNode* Node, bool) { Bind(Node); });
}
