#include "IdentityBinding.h"

#include "EdGraph/EdGraphNode.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_BaseAsyncTask.h"
#include "K2Node_BaseMCDelegate.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_FunctionTerminator.h"
#include "K2Node_GetSubsystem.h"
#include "K2Node_InputDebugKey.h"
#include "K2Node_InputKey.h"
#include "K2Node_MacroInstance.h"
#include "K2Node_StructOperation.h"
#include "K2Node_SwitchEnum.h"
#include "K2Node_Variable.h"
#include "Standalone/ObjectText.h"
#include "Standalone/StandardMacros.h"

namespace IdentityBinding
{
namespace
{
FString Text(const FJsonObject& Identity, const TCHAR* Field)
{
	FString Value;
	Identity.TryGetStringField(Field, Value);
	return Value;
}

/** Complaints about single lines are of no interest: FindMissing tells what matters. */
class FSilence : public FFeedbackContext
{
public:
	void Serialize(const TCHAR*, ELogVerbosity::Type, const FName&) override {}
};

void AppendLines(const FJsonObject& Identity, const TCHAR* Field, FString& Out)
{
	const TSharedPtr<FJsonObject>* Lines = nullptr;
	if (!Identity.TryGetObjectField(Field, Lines))
	{
		return;
	}
	for (const auto& Pair : (*Lines)->Values)
	{
		FString Value;
		if (Pair.Value && Pair.Value->TryGetString(Value))
		{
			Out += FString::Printf(TEXT("   %s=%s\n"), *Pair.Key, *Value);
		}
	}
}

void Refer(FMemberReference& Reference, const FString& Name, const FString& ParentPath, bool bSelf)
{
	if (!Reference.GetMemberName().IsNone() || Name.IsEmpty())
	{
		return;
	}
	if (bSelf || ParentPath.IsEmpty())
	{
		Reference.SetSelfMember(FName(Name));
	}
	else if (UClass* const Parent = FindObject<UClass>(nullptr, ParentPath))
	{
		Reference.SetExternalMember(FName(Name), TSubclassOf<UObject>(Parent));
	}
	else
	{
		Reference.SetGlobalField(FName(Name), FindPackage(nullptr, *ParentPath));
	}
}

void SetObjectProperty(UEdGraphNode& Node, const TCHAR* Name, UObject* Value)
{
	const FObjectPropertyBase* const Property = CastField<FObjectPropertyBase>(
		Node.GetClass()->FindPropertyByName(FName(Name)));
	if (Property && Value && !Property->GetObjectPropertyValue_InContainer(&Node))
	{
		Property->SetObjectPropertyValue_InContainer(&Node, Value);
	}
}

void AddUserPins(UK2Node_EditablePinBase& Node, const FJsonObject& Identity)
{
	const TArray<TSharedPtr<FJsonValue>>* Rows = nullptr;
	if (!Identity.TryGetArrayField(TEXT("user_pins"), Rows))
	{
		return;
	}
	for (const TSharedPtr<FJsonValue>& Value : *Rows)
	{
		const TSharedPtr<FJsonObject>* Row = nullptr;
		if (!Value->TryGetObject(Row))
		{
			continue;
		}
		const TSharedPtr<FUserPinInfo> Info = MakeShared<FUserPinInfo>();
		const FString Category = Text(**Row, TEXT("cat"));
		const bool bOldFloat = Category == TEXT("float");
		Info->PinName = FName(Text(**Row, TEXT("name")));
		Info->PinType.PinCategory = bOldFloat ? UEdGraphSchema_K2::PC_Real : FName(Category);
		Info->PinType.PinSubCategory = bOldFloat ? UEdGraphSchema_K2::PC_Double : FName(Text(**Row, TEXT("sub")));
		Info->PinType.PinSubCategoryObject = FindObject<UObject>(nullptr, Text(**Row, TEXT("obj")));
		const FString Container = Text(**Row, TEXT("container"));
		Info->PinType.ContainerType = Container == TEXT("Array") ? EPinContainerType::Array
			: Container == TEXT("Set")							 ? EPinContainerType::Set
			: Container == TEXT("Map")							 ? EPinContainerType::Map
																 : EPinContainerType::None;
		Info->DesiredPinDirection = Text(**Row, TEXT("dir")) == TEXT("out") ? EGPD_Output : EGPD_Input;
		Info->PinDefaultValue = Text(**Row, TEXT("default"));
		Node.UserDefinedPins.Add(Info);
	}
}
} // namespace

void ApplyPropertyLines(UEdGraphNode& Node, const FJsonObject& Identity)
{
	FString Lines;
	AppendLines(Identity, TEXT("keys"), Lines);
	AppendLines(Identity, TEXT("props"), Lines);
	if (Lines.IsEmpty())
	{
		return;
	}
	const FString Whole = FString::Printf(TEXT("Begin Object Class=%s Name=\"%s\"\n%sEnd Object\n"),
		*Node.GetClass()->GetPathName(), *Node.GetName(), *Lines);
	FObjectTextTree Tree;
	FObjectTextError Error;
	if (Tree.Parse(FStringView(Whole), Error) && !Tree.Objects.empty())
	{
		FSilence Silence;
		FObjectTextImport(Silence, false).ImportInto(&Node, Tree.Objects[0]);
	}
}

void ApplyFields(UEdGraphNode& Node, const FJsonObject& Identity)
{
	bool bSelf = false;
	Identity.TryGetBoolField(TEXT("self_context"), bSelf);
	if (UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node))
	{
		const bool bBound = !Call->FunctionReference.GetMemberName().IsNone();
		Refer(
			Call->FunctionReference, Text(Identity, TEXT("function")), Text(Identity, TEXT("function_parent")), bSelf);
		const UFunction* const Function = bBound ? nullptr : Call->GetTargetFunction();
		Call->bDefaultsToPureFunc |= Function && Function->HasAnyFunctionFlags(FUNC_BlueprintPure);
	}
	else if (UK2Node_FunctionTerminator* const Terminator = Cast<UK2Node_FunctionTerminator>(&Node))
	{
		const FString Parent = Text(Identity, TEXT("function_parent"));
		const FString Name = Text(Identity, TEXT("function"));
		if (Terminator->FunctionReference.GetMemberName().IsNone() && Parent.IsEmpty())
		{
			Terminator->FunctionReference.SetMemberName(FName(Name));
		}
		Refer(Terminator->FunctionReference, Name, Parent, false);
	}
	else if (UK2Node_Event* const Event = Cast<UK2Node_Event>(&Node))
	{
		const FString Custom = Text(Identity, TEXT("custom_event"));
		const FString Name = Text(Identity, TEXT("event"));
		Event->bOverrideFunction |= Custom.IsEmpty() && !Name.IsEmpty();
		Refer(Event->EventReference, Name, Text(Identity, TEXT("event_parent")), false);
		Event->CustomFunctionName = Event->CustomFunctionName.IsNone() && !Custom.IsEmpty() ? FName(Custom)
																							: Event->CustomFunctionName;
	}
	else if (UK2Node_StructOperation* const Struct = Cast<UK2Node_StructOperation>(&Node))
	{
		SetObjectProperty(Node, TEXT("StructType"), FindObject<UScriptStruct>(nullptr, Text(Identity, TEXT("struct"))));
	}
	else if (UK2Node_Variable* const Variable = Cast<UK2Node_Variable>(&Node))
	{
		Refer(Variable->VariableReference, Text(Identity, TEXT("variable")), Text(Identity, TEXT("variable_parent")),
			bSelf);
	}
	else if (UK2Node_BaseMCDelegate* const Delegate = Cast<UK2Node_BaseMCDelegate>(&Node))
	{
		Refer(Delegate->DelegateReference, Text(Identity, TEXT("delegate")), Text(Identity, TEXT("delegate_parent")),
			bSelf);
	}
	else if (UK2Node_MacroInstance* const Macro = Cast<UK2Node_MacroInstance>(&Node))
	{
		const FString Path = Text(Identity, TEXT("macro"));
		FString Asset;
		FString Name;
		FString Package;
		if (!Macro->GetMacroGraph() && Path.Split(TEXT(":"), &Asset, &Name)
			&& Asset.Split(TEXT("."), &Package, nullptr))
		{
			Macro->SetMacroGraph(StandardMacros::FindMacro(FName(Name), Package));
		}
	}
	const FString Key = Text(Identity, TEXT("key"));
	UK2Node_InputKey* const InputKey = Key.IsEmpty() ? nullptr : Cast<UK2Node_InputKey>(&Node);
	UK2Node_InputDebugKey* const DebugKey = Key.IsEmpty() ? nullptr : Cast<UK2Node_InputDebugKey>(&Node);
	if (InputKey)
	{
		InputKey->InputKey = FKey(FName(Key));
	}
	if (DebugKey)
	{
		DebugKey->InputKey = FKey(FName(Key));
	}
	SetObjectProperty(Node, TEXT("TargetType"), FindObject<UClass>(nullptr, Text(Identity, TEXT("cast_target"))));
	SetObjectProperty(Node, TEXT("Enum"), FindObject<UEnum>(nullptr, Text(Identity, TEXT("enum"))));
	SetObjectProperty(Node, TEXT("CustomClass"), FindObject<UClass>(nullptr, Text(Identity, TEXT("custom_class"))));
	if (UK2Node_EditablePinBase* const Editable = Cast<UK2Node_EditablePinBase>(&Node))
	{
		AddUserPins(*Editable, Identity);
	}
}

FString FindMissing(const UEdGraphNode& Node, const FJsonObject& Identity)
{
	bool bOfBlueprint = false;
	const FString Named = Text(Identity, TEXT("variable")) + Text(Identity, TEXT("function"))
		+ Text(Identity, TEXT("delegate"));
	if (Identity.TryGetBoolField(TEXT("member_has_guid"), bOfBlueprint) && bOfBlueprint)
	{
		return FString::Printf(TEXT("The member '%s' belongs to a Blueprint that is not at hand."), *Named);
	}
	const auto Missing = [](const TCHAR* Kind, const FString& Name)
	{ return FString::Printf(TEXT("The %s '%s' is not known."), Kind, *Name); };
	if (const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node))
	{
		return Call->GetTargetFunction() ? FString() : Missing(TEXT("function"), Call->GetFunctionName().ToString());
	}
	if (const UK2Node_StructOperation* const Struct = Cast<UK2Node_StructOperation>(&Node))
	{
		return Struct->StructType ? FString() : Missing(TEXT("struct"), Text(Identity, TEXT("struct")));
	}
	if (const UK2Node_Variable* const Variable = Cast<UK2Node_Variable>(&Node))
	{
		return Variable->GetPropertyForVariable() ? FString() : Missing(TEXT("variable"), Variable->GetVarNameString());
	}
	if (const UK2Node_BaseMCDelegate* const Delegate = Cast<UK2Node_BaseMCDelegate>(&Node))
	{
		return Delegate->GetProperty() ? FString()
									   : Missing(TEXT("event dispatcher"), Delegate->GetPropertyName().ToString());
	}
	if (const UK2Node_MacroInstance* const Macro = Cast<UK2Node_MacroInstance>(&Node))
	{
		return Macro->GetMacroGraph() ? FString() : Missing(TEXT("macro"), Text(Identity, TEXT("macro")));
	}
	if (const UK2Node_BaseAsyncTask* const Task = Cast<UK2Node_BaseAsyncTask>(&Node))
	{
		return Task->GetFactoryFunction() ? FString()
										  : Missing(TEXT("task"), Task->ProxyFactoryFunctionName.ToString());
	}
	if (const UK2Node_DynamicCast* const DynamicCast = Cast<UK2Node_DynamicCast>(&Node))
	{
		return DynamicCast->TargetType.Get() ? FString() : Missing(TEXT("class"), Text(Identity, TEXT("cast_target")));
	}
	if (const UK2Node_SwitchEnum* const Switch = Cast<UK2Node_SwitchEnum>(&Node))
	{
		return Switch->Enum ? FString() : Missing(TEXT("enum"), Text(Identity, TEXT("enum")));
	}
	if (const UK2Node_GetSubsystem* const Subsystem = Cast<UK2Node_GetSubsystem>(&Node))
	{
		const FString Wanted = Text(Identity, TEXT("custom_class"));
		return Wanted.IsEmpty() || Subsystem->CustomClass.Get() ? FString() : Missing(TEXT("class"), Wanted);
	}
	const UK2Node_Event* const Event = Cast<UK2Node_Event>(&Node);
	const bool bNeedsSignature = Event && !Event->EventReference.GetMemberName().IsNone();
	return bNeedsSignature && !Event->FindEventSignatureFunction()
		? Missing(TEXT("event"), Event->EventReference.GetMemberName().ToString())
		: FString();
}
} // namespace IdentityBinding
