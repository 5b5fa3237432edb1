#include "Utils/Structure/VariableDefaults.h"

#include "AssetOperationBase.h"
#include "Components/ActorComponent.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "JsonReading.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/CompilerResultsLog.h"
#include "KismetCompilerMisc.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Structure/PropertyJson.h"
#include "Utils/Structure/StructureEntry.h"

namespace VariableDefaults
{
namespace
{
/** The default that the class has, where it has the variable already and of this type. */
const FProperty* FindOnClass(const UBlueprint& Blueprint, const FProperty& Like)
{
	const UClass* const Class = Blueprint.GeneratedClass.Get();
	const FProperty* const Property = Class ? Class->FindPropertyByName(Like.GetFName()) : nullptr;
	return Property && Property->GetOwnerStruct() == Class && Property->SameType(&Like) ? Property : nullptr;
}

void WarnOfFault(const FString& Name, const FString& Fault, Morvane::FToolResult& Result)
{
	Result.AddWarningMessage(
		FString::Printf(TEXT("The default_variable_value of variable '%s' was left as it is: %s"), *Name, *Fault));
}

/** Whether the default object owns what the property points at. */
bool HoldsPart(const FProperty& Property)
{
	const FObjectPropertyBase* const Reference = CastField<FObjectPropertyBase>(&Property);
	return Property.HasAnyPropertyFlags(CPF_InstancedReference)
		|| (Reference && Reference->PropertyClass
			&& Reference->PropertyClass->IsChildOf(UActorComponent::StaticClass()));
}

/** Members of a struct that the request does not name keep what they are. */
void StartFromPresent(const FProperty& Property, const FBPVariableDescription& Variable, void* Value)
{
	FString Ignored;
	if (!Variable.DefaultValue.IsEmpty())
	{
		PropertyJson::Import(Property, Variable.DefaultValue, Value, nullptr, Ignored);
	}
}
} // namespace

TUniquePtr<FProperty> MakeProperty(UBlueprint& Blueprint, FName Name, const FEdGraphPinType& Type)
{
	FCompilerResultsLog Log;
	UClass* const Class = Blueprint.GeneratedClass.Get();
	return TUniquePtr<FProperty>(FKismetCompilerUtilities::CreatePropertyOnScope(
		Class, Name, Type, Class, CPF_None, GetDefault<UEdGraphSchema_K2>(), Log));
}

bool Apply(UBlueprint& Blueprint, FBPVariableDescription& Variable, const TSharedPtr<FJsonValue>& Json,
	Morvane::FToolResult& Result)
{
	const FString Name = Variable.VarName.ToString();
	const TUniquePtr<FProperty> Property = MakeProperty(Blueprint, Variable.VarName, Variable.VarType);
	if (!Property)
	{
		WarnOfFault(Name, TEXT("its type holds no value"), Result);
		return false;
	}
	const FPropertyScratch Value(*Property);
	StartFromPresent(*Property, Variable, Value.Get());
	FString Fault;
	if (!PropertyJson::Write(*Property, Json, Value.Get(), &Blueprint, Fault))
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("Could not directly set property value for '%s', falling back to variable description update."),
			*Name));
		// The description takes no more than the property does: what it held would be gone at the next compile.
		WarnOfFault(Name, Fault, Result);
		return false;
	}
	Variable.DefaultValue = PropertyJson::ToText(*Property, Value.Get(), &Blueprint);
	UClass* const Class = Blueprint.GeneratedClass.Get();
	UObject* const Default = Class ? Class->GetDefaultObject(false) : nullptr;
	if (!Default)
	{
		Result.AddWarningMessage(
			TEXT("Blueprint Class Default Object not available, setting default value in variable description only."));
		return true;
	}
	// A variable that the class does not have yet gets its default from the description, when the class is made.
	const FProperty* const OnClass = FindOnClass(Blueprint, *Property);
	if (OnClass && !FAssetOperationBase::SetPropertyValueAsString(Default, OnClass, Variable.DefaultValue))
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("Could not directly set property value for '%s', falling back to variable description update."),
			*Name));
	}
	return true;
}

bool ApplyInherited(UBlueprint& Blueprint, const FProperty& Property, const FString& Name,
	const TSharedPtr<FJsonValue>& Json, Morvane::FToolResult& Result)
{
	UClass* const Class = Blueprint.GeneratedClass.Get();
	UObject* const Default = Class ? Class->GetDefaultObject() : nullptr;
	if (!Default)
	{
		Result.AddWarningMessage(TEXT("Blueprint Class Default Object not available."));
		return false;
	}
	const void* const Present = Property.ContainerPtrToValuePtr<void>(Default);
	const FPropertyScratch Value(Property, Present);
	FString Fault;
	bool bSet = !HoldsPart(Property);
	Fault = bSet ? FString() : FString(TEXT("it holds a part of the object itself"));
	bSet = bSet && PropertyJson::Write(Property, Json, Value.Get(), Default, Fault);
	if (bSet && !Property.Identical(Value.Get(), Present))
	{
		bSet = FAssetOperationBase::SetPropertyValueAsString(
				   Default, &Property, PropertyJson::ToText(Property, Value.Get(), Default))
			&& Property.Identical(Value.Get(), Property.ContainerPtrToValuePtr<void>(Default));
	}
	if (!bSet)
	{
		Result.AddWarningMessage(FString::Printf(TEXT("Failed to modify inherited property value: %s"), *Name));
		if (!Fault.IsEmpty())
		{
			WarnOfFault(Name, Fault, Result);
		}
		return false;
	}
	Result.AddSuccessMessage(FString::Printf(TEXT("Modified inherited property value: %s"), *Name));
	return true;
}

FString ToText(const TSharedPtr<FJsonValue>& Json, const FEdGraphPinType& Type)
{
	FString Text;
	bool bFlag = false;
	double Number = 0.0;
	if (MorvaneJson::TryGetBool(*Json, bFlag))
	{
		return bFlag ? TEXT("true") : TEXT("false");
	}
	if (!MorvaneJson::TryGetNumber(*Json, Number))
	{
		MorvaneJson::TryGetString(*Json, Text);
		return Text;
	}
	if (Type.PinCategory == UEdGraphSchema_K2::PC_Int || Type.PinCategory == UEdGraphSchema_K2::PC_Byte)
	{
		return FString::Printf(TEXT("%d"), static_cast<int32>(Number));
	}
	if (Type.PinCategory == UEdGraphSchema_K2::PC_Int64)
	{
		return FString::Printf(TEXT("%lld"), static_cast<int64>(Number));
	}
	return Type.PinCategory == UEdGraphSchema_K2::PC_Real ? FString::Printf(TEXT("%f"), Number)
														  : StructureValues::NumberText(Number);
}
} // namespace VariableDefaults
