#include "IdentityBinding.h"

#include "EdGraph/EdGraphNode.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "JsonReading.h"
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
FString Text(const FJsonObject& Identity, const TCHAR* Field)
{
	FString Value;
	MorvaneJson::TryGetStringField(Identity, Field, Value);
	return Value;
}

bool IsSet(const FJsonObject& Identity, const TCHAR* Field)
{
	bool bValue = false;
	return MorvaneJson::TryGetBoolField(Identity, Field, bValue) && bValue;
}

namespace
{
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
		if (Pair.Value && MorvaneJson::TryGetString(*Pair.Value, Value))
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
		Info->PinType.bIsReference = IsSet(**Row, TEXT("ref"));
		Info->PinType.bIsConst = IsSet(**Row, TEXT("const"));
		Info->DesiredPinDirection = Text(**Row, TEXT("dir")) == TEXT("out") ? EGPD_Output : EGPD_Input;
		Info->PinDefaultValue = Text(**Row, TEXT("default"));
		Node.UserDefinedPins.Add(Info);
	}
}
FString DescribeMissing(const TCHAR* Kind, const FString& Name)
{
	return FString::Printf(TEXT("The %s '%s' is not known."), Kind, *Name);
}

bool IsSelfContext(const FJsonObject& Identity)
{
	return IsSet(Identity, TEXT("self_context"));
}

template <typename T>
T* FindNamed(const FJsonObject& Identity, const TCHAR* Field)
{
	return FindObject<T>(nullptr, Text(Identity, Field));
}

void ApplyCall(UK2Node_CallFunction& Call, const FJsonObject& Identity)
{
	const bool bBound = !Call.FunctionReference.GetMemberName().IsNone();
	Refer(Call.FunctionReference, Text(Identity, TEXT("function")), Text(Identity, TEXT("function_parent")),
		IsSelfContext(Identity));
	const UFunction* const Function = bBound ? nullptr : Call.GetTargetFunction();
	Call.bDefaultsToPureFunc |= Function && Function->HasAnyFunctionFlags(FUNC_BlueprintPure);
}

FString MissingOfCall(const UK2Node_CallFunction& Call, const FJsonObject&)
{
	return Call.GetTargetFunction() ? FString() : DescribeMissing(TEXT("function"), Call.GetFunctionName().ToString());
}

void ApplyTerminator(UK2Node_FunctionTerminator& Terminator, const FJsonObject& Identity)
{
	const FString Parent = Text(Identity, TEXT("function_parent"));
	const FString Name = Text(Identity, TEXT("function"));
	if (Terminator.FunctionReference.GetMemberName().IsNone() && Parent.IsEmpty())
	{
		Terminator.FunctionReference.SetMemberName(FName(Name));
	}
	Refer(Terminator.FunctionReference, Name, Parent, false);
}

void ApplyEvent(UK2Node_Event& Event, const FJsonObject& Identity)
{
	const FString Custom = Text(Identity, TEXT("custom_event"));
	const FString Name = Text(Identity, TEXT("event"));
	Event.bOverrideFunction |= Custom.IsEmpty() && !Name.IsEmpty();
	Refer(Event.EventReference, Name, Text(Identity, TEXT("event_parent")), false);
	if (Event.CustomFunctionName.IsNone() && !Custom.IsEmpty())
	{
		Event.CustomFunctionName = FName(Custom);
	}
}

FString MissingOfEvent(const UK2Node_Event& Event, const FJsonObject&)
{
	const FName Name = Event.EventReference.GetMemberName();
	return Name.IsNone() || Event.FindEventSignatureFunction() ? FString()
															   : DescribeMissing(TEXT("event"), Name.ToString());
}

void ApplyStruct(UK2Node_StructOperation& Node, const FJsonObject& Identity)
{
	SetObjectProperty(Node, TEXT("StructType"), FindNamed<UScriptStruct>(Identity, TEXT("struct")));
}

FString MissingOfStruct(const UK2Node_StructOperation& Node, const FJsonObject& Identity)
{
	return Node.StructType ? FString() : DescribeMissing(TEXT("struct"), Text(Identity, TEXT("struct")));
}

void ApplyVariable(UK2Node_Variable& Variable, const FJsonObject& Identity)
{
	Refer(Variable.VariableReference, Text(Identity, TEXT("variable")), Text(Identity, TEXT("variable_parent")),
		IsSelfContext(Identity));
}

FString MissingOfVariable(const UK2Node_Variable& Variable, const FJsonObject&)
{
	return Variable.GetPropertyForVariable() ? FString()
											 : DescribeMissing(TEXT("variable"), Variable.GetVarNameString());
}

void ApplyDelegate(UK2Node_BaseMCDelegate& Delegate, const FJsonObject& Identity)
{
	Refer(Delegate.DelegateReference, Text(Identity, TEXT("delegate")), Text(Identity, TEXT("delegate_parent")),
		IsSelfContext(Identity));
}

FString MissingOfDelegate(const UK2Node_BaseMCDelegate& Delegate, const FJsonObject&)
{
	return Delegate.GetProperty() ? FString()
								  : DescribeMissing(TEXT("event dispatcher"), Delegate.GetPropertyName().ToString());
}

void ApplyMacro(UK2Node_MacroInstance& Macro, const FJsonObject& Identity)
{
	FString Asset;
	FString Name;
	FString Package;
	if (!Macro.GetMacroGraph() && Text(Identity, TEXT("macro")).Split(TEXT(":"), &Asset, &Name)
		&& Asset.Split(TEXT("."), &Package, nullptr))
	{
		Macro.SetMacroGraph(StandardMacros::FindMacro(FName(Name), Package));
	}
}

FString MissingOfMacro(const UK2Node_MacroInstance& Macro, const FJsonObject& Identity)
{
	return Macro.GetMacroGraph() ? FString() : DescribeMissing(TEXT("macro"), Text(Identity, TEXT("macro")));
}

FString MissingOfTask(const UK2Node_BaseAsyncTask& Task, const FJsonObject&)
{
	return Task.GetFactoryFunction() ? FString()
									 : DescribeMissing(TEXT("task"), Task.ProxyFactoryFunctionName.ToString());
}

void ApplyCast(UK2Node_DynamicCast& Node, const FJsonObject& Identity)
{
	SetObjectProperty(Node, TEXT("TargetType"), FindNamed<UClass>(Identity, TEXT("cast_target")));
}

FString MissingOfCast(const UK2Node_DynamicCast& Node, const FJsonObject& Identity)
{
	return Node.TargetType.Get() ? FString() : DescribeMissing(TEXT("class"), Text(Identity, TEXT("cast_target")));
}

FString MissingOfSwitch(const UK2Node_SwitchEnum& Switch, const FJsonObject& Identity)
{
	return Switch.Enum ? FString() : DescribeMissing(TEXT("enum"), Text(Identity, TEXT("enum")));
}

void ApplySubsystem(UK2Node_GetSubsystem& Node, const FJsonObject& Identity)
{
	SetObjectProperty(Node, TEXT("CustomClass"), FindNamed<UClass>(Identity, TEXT("custom_class")));
}

FString MissingOfSubsystem(const UK2Node_GetSubsystem& Subsystem, const FJsonObject& Identity)
{
	const FString Wanted = Text(Identity, TEXT("custom_class"));
	return Wanted.IsEmpty() || Subsystem.CustomClass.Get() ? FString() : DescribeMissing(TEXT("class"), Wanted);
}

template <typename TNode>
void ApplyKey(TNode& Node, const FJsonObject& Identity)
{
	const FString Key = Text(Identity, TEXT("key"));
	if (!Key.IsEmpty())
	{
		Node.InputKey = FKey(FName(Key));
	}
}

template <typename TNode>
FString MissesNothing(const TNode&, const FJsonObject&)
{
	return FString();
}

template <typename TNode>
void AppliesNothing(TNode&, const FJsonObject&)
{
}

/** What the members of an identity mean to one family of nodes. */
struct FNodeKind
{
	UClass* (*GetClass)();
	void (*Apply)(UEdGraphNode& Node, const FJsonObject& Identity);
	FString (*FindMissing)(const UEdGraphNode& Node, const FJsonObject& Identity);
};

template <typename TNode, void (*Apply)(TNode&, const FJsonObject&),
	FString (*Missing)(const TNode&, const FJsonObject&) = &MissesNothing<TNode>>
constexpr FNodeKind MakeKind()
{
	return {&TNode::StaticClass,
		[](UEdGraphNode& Node, const FJsonObject& Identity) { Apply(static_cast<TNode&>(Node), Identity); },
		[](const UEdGraphNode& Node, const FJsonObject& Identity)
		{ return Missing(static_cast<const TNode&>(Node), Identity); }};
}

/** Each family stands before those that it derives from: a node is of the first that it belongs to. */
constexpr FNodeKind Kinds[] = {
	MakeKind<UK2Node_CallFunction, &ApplyCall, &MissingOfCall>(),
	MakeKind<UK2Node_FunctionTerminator, &ApplyTerminator>(),
	MakeKind<UK2Node_InputKey, &ApplyKey<UK2Node_InputKey>>(),
	MakeKind<UK2Node_InputDebugKey, &ApplyKey<UK2Node_InputDebugKey>>(),
	MakeKind<UK2Node_Event, &ApplyEvent, &MissingOfEvent>(),
	MakeKind<UK2Node_StructOperation, &ApplyStruct, &MissingOfStruct>(),
	MakeKind<UK2Node_Variable, &ApplyVariable, &MissingOfVariable>(),
	MakeKind<UK2Node_BaseMCDelegate, &ApplyDelegate, &MissingOfDelegate>(),
	MakeKind<UK2Node_MacroInstance, &ApplyMacro, &MissingOfMacro>(),
	MakeKind<UK2Node_BaseAsyncTask, &AppliesNothing<UK2Node_BaseAsyncTask>, &MissingOfTask>(),
	MakeKind<UK2Node_DynamicCast, &ApplyCast, &MissingOfCast>(),
	MakeKind<UK2Node_SwitchEnum, &AppliesNothing<UK2Node_SwitchEnum>, &MissingOfSwitch>(),
	MakeKind<UK2Node_GetSubsystem, &ApplySubsystem, &MissingOfSubsystem>(),
};

const FNodeKind* FindKind(const UEdGraphNode& Node)
{
	for (const FNodeKind& Kind : Kinds)
	{
		if (Node.GetClass()->IsChildOf(Kind.GetClass()))
		{
			return &Kind;
		}
	}
	return nullptr;
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
	if (const FNodeKind* const Kind = FindKind(Node))
	{
		Kind->Apply(Node, Identity);
	}
	// The nodes on enums are many families; they hold it under one name.
	SetObjectProperty(Node, TEXT("Enum"), FindNamed<UEnum>(Identity, TEXT("enum")));
	if (UK2Node_EditablePinBase* const Editable = Cast<UK2Node_EditablePinBase>(&Node))
	{
		AddUserPins(*Editable, Identity);
	}
}

void FillShownLists(UEdGraphNode& Node, const FJsonObject& Identity)
{
	static const FString Shown(TEXT("bShowPin=True"));
	const FStructProperty* const Member = CastField<FStructProperty>(
		Node.GetClass()->FindPropertyByName(FName(TEXT("Node"))));
	const TSharedPtr<FJsonObject>* Lines = nullptr;
	if (!Member || !Identity.TryGetObjectField(TEXT("props"), Lines) || (*Lines)->HasField(TEXT("Node")))
	{
		return;
	}
	for (TFieldIterator<FArrayProperty> It(Member->Struct); It; ++It)
	{
		const FString Name = FString::Printf(TEXT("PropertyName=\"%s\""), *It->GetName());
		const FScriptArrayHelper Elements(*It, It->ContainerPtrToValuePtr<void>(Member->GetValuePtr(&Node)));
		for (const auto& Pair : (*Lines)->Values)
		{
			FString Value;
			if (Elements.Num() == 0 && Pair.Value && Pair.Value->TryGetString(Value) && Value.Contains(Name)
				&& Value.Contains(Shown))
			{
				Elements.Resize(1);
			}
		}
	}
}

void HideUnlisted(UEdGraphNode& Node, const FJsonObject& Identity)
{
	const FArrayProperty* const Array = CastField<FArrayProperty>(
		Node.GetClass()->FindPropertyByName(FName(TEXT("ShowPinForProperties"))));
	const TSharedPtr<FJsonObject>* Lines = nullptr;
	if (!Array || !Identity.TryGetObjectField(TEXT("props"), Lines)
		|| !(*Lines)->HasField(TEXT("ShowPinForProperties(0)")))
	{
		return;
	}
	FString Listed;
	for (const auto& Pair : (*Lines)->Values)
	{
		FString Value;
		Listed += Pair.Value && MorvaneJson::TryGetString(*Pair.Value, Value) ? Value : FString();
	}
	// What another version of the struct has besides is no part of the node that the identity is about.
	const FScriptArrayHelper Records(Array, Array->GetValuePtr(&Node));
	for (int32 Index = 0; Index < Records.Num(); ++Index)
	{
		const FOptionalPinFromProperty& Record = *reinterpret_cast<FOptionalPinFromProperty*>(Records.GetRawPtr(Index));
		if (!Listed.Contains(FString::Printf(TEXT("PropertyName=\"%s\""), *Record.PropertyName.ToString())))
		{
			Node.RemovePin(Node.FindPin(Record.PropertyName));
		}
	}
}

FString FindMissing(const UEdGraphNode& Node, const FJsonObject& Identity)
{
	const FString Named = Text(Identity, TEXT("variable")) + Text(Identity, TEXT("function"))
		+ Text(Identity, TEXT("delegate"));
	if (IsSet(Identity, TEXT("member_has_guid")))
	{
		return FString::Printf(TEXT("The member '%s' belongs to a Blueprint that is not at hand."), *Named);
	}
	const FNodeKind* const Kind = FindKind(Node);
	return Kind ? Kind->FindMissing(Node, Identity) : FString();
}
} // namespace IdentityBinding
