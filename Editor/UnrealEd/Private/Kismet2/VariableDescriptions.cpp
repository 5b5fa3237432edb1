#include "Kismet2/VariableDescriptions.h"

#include "EdGraphSchema_K2.h"
#include "GameFramework/Actor.h"
#include "Kismet2/BlueprintEditorUtils.h"

namespace VariableDescriptions
{
namespace
{
/** What a new variable has until an author says otherwise: editable on the class alone. */
constexpr uint64 NewVariableFlags = CPF_Edit | CPF_BlueprintVisible | CPF_DisableEditOnInstance;

FString DisplayName(FName Name, const FEdGraphPinType& Type)
{
	return FName::NameToDisplayString(Name.ToString(), Type.PinCategory == UEdGraphSchema_K2::PC_Boolean);
}

/** A class default cannot name an actor: those live in levels, and the class is used in many. */
void SettleObjectType(const UBlueprint& Blueprint, FBPVariableDescription& Variable)
{
	FEdGraphPinType& Type = Variable.VarType;
	Variable.PropertyFlags &= ~static_cast<uint64>(CPF_DisableEditOnTemplate);
	if (Type.PinCategory != UEdGraphSchema_K2::PC_Object && Type.PinCategory != UEdGraphSchema_K2::PC_Interface)
	{
		return;
	}
	if (Type.PinSubCategory == UEdGraphSchema_K2::PSC_Self)
	{
		Type.PinSubCategory = NAME_None;
		Type.PinSubCategoryObject = Blueprint.GeneratedClass.Get();
	}
	else if (!Type.PinSubCategoryObject.Get() && Type.PinCategory == UEdGraphSchema_K2::PC_Object)
	{
		Type.PinSubCategory = NAME_None;
		Type.PinSubCategoryObject = UObject::StaticClass();
	}
	const UClass* const Class = Cast<UClass>(Type.PinSubCategoryObject.Get());
	if (Class && Class->IsChildOf(AActor::StaticClass()))
	{
		Variable.PropertyFlags |= CPF_DisableEditOnTemplate;
	}
}

bool CanRead(const FEdGraphPinType& Type, FName Name, const FString& Text)
{
	const UEdGraphSchema_K2& Schema = *GetDefault<UEdGraphSchema_K2>();
	return !Type.IsContainer() && Schema.DefaultValueSimpleValidation(Type, Name, Text, nullptr, FText());
}
} // namespace

FBPVariableDescription Make(
	const UBlueprint& Blueprint, FName Name, const FEdGraphPinType& Type, const FString& DefaultValue)
{
	FBPVariableDescription Variable;
	Variable.VarName = Name;
	Variable.VarGuid = FGuid::NewGuid();
	Variable.VarType = Type;
	Variable.FriendlyName = DisplayName(Name, Type);
	Variable.DefaultValue = DefaultValue;
	Variable.Category = UEdGraphSchema_K2::VR_DefaultCategory;
	Variable.PropertyFlags = NewVariableFlags;
	if (Type.PinCategory == UEdGraphSchema_K2::PC_MCDelegate)
	{
		Variable.PropertyFlags |= CPF_BlueprintAssignable | CPF_BlueprintCallable;
	}
	SettleObjectType(Blueprint, Variable);
	return Variable;
}

void ChangeType(const UBlueprint& Blueprint, FBPVariableDescription& Variable, const FEdGraphPinType& NewType)
{
	const bool bWasBool = Variable.VarType.PinCategory == UEdGraphSchema_K2::PC_Boolean;
	const bool bIsBool = NewType.PinCategory == UEdGraphSchema_K2::PC_Boolean;
	Variable.VarType = NewType;
	if (bWasBool != bIsBool)
	{
		Variable.FriendlyName = DisplayName(Variable.VarName, NewType);
	}
	if (NewType.IsSet() || NewType.IsMap())
	{
		// Sets and maps have no replication.
		Variable.PropertyFlags &= ~static_cast<uint64>(CPF_Net | CPF_RepNotify);
		Variable.RepNotifyFunc = NAME_None;
	}
	SettleObjectType(Blueprint, Variable);
	if (!Variable.DefaultValue.IsEmpty() && !CanRead(Variable.VarType, Variable.VarName, Variable.DefaultValue))
	{
		Variable.DefaultValue.Empty();
	}
}

void Rename(FBPVariableDescription& Variable, FName NewName)
{
	Variable.VarName = NewName;
	Variable.FriendlyName = DisplayName(NewName, Variable.VarType);
}

FBPVariableDescription* Find(UBlueprint* Blueprint, FName Name, const UStruct* LocalScope)
{
	if (LocalScope)
	{
		return FBlueprintEditorUtils::FindLocalVariable(Blueprint, LocalScope, Name);
	}
	const int32 Index = FBlueprintEditorUtils::FindNewVariableIndex(Blueprint, Name);
	return Index == INDEX_NONE ? nullptr : &Blueprint->NewVariables[Index];
}
} // namespace VariableDescriptions
