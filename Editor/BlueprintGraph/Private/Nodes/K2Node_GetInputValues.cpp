// Values of input axes, asked for where they are needed. Each is a call of an actor's function, whose argument the node
// itself holds.

#include "K2Node_GetInputAxisValue.h"
#include "K2Node_GetInputVectorAxisValue.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "InputBinding.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_GetInputAxisValue, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_GetInputAxisKeyValue, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_GetInputVectorAxisValue, "/Script/BlueprintGraph", CLASS_None)

namespace InputAxisValues
{
const FName AxisName(TEXT("InputAxisName"));
const FName AxisKey(TEXT("InputAxisKey"));

static void Call(UK2Node_CallFunction& Node, const TCHAR* FunctionName)
{
	const UClass* const Actor = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor"));
	if (const UFunction* const Function = Actor ? Actor->FindFunctionByName(FName(FunctionName)) : nullptr)
	{
		Node.SetFromFunction(Function);
	}
	Node.FunctionReference.SetSelfMember(FName(FunctionName));
}

/** Only the node's own name or key makes sense, so it shows as the title and not as a pin. */
static void Fill(UK2Node_CallFunction& Node, FName PinName, const FString& Value)
{
	if (UEdGraphPin* const Pin = Node.FindPin(PinName, EGPD_Input))
	{
		Pin->DefaultValue = Value;
	}
	if (UEdGraphPin* const Self = Node.FindPin(UEdGraphSchema_K2::PN_Self, EGPD_Input))
	{
		Self->bHidden = true;
		Self->bNotConnectable = true;
	}
}

static FText Title(const FString& Axis)
{
	return FText::FromString(TEXT("Get ") + Axis);
}
} // namespace InputAxisValues

void UK2Node_GetInputAxisValue::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("InputAxisName"), &UK2Node_GetInputAxisValue::InputAxisName);
	InputBinding::Describe<UK2Node_GetInputAxisValue>(Class);
}

void UK2Node_GetInputAxisKeyValue::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("InputAxisKey"), &UK2Node_GetInputAxisKeyValue::InputAxisKey);
	InputBinding::Describe<UK2Node_GetInputAxisKeyValue>(Class);
}

void UK2Node_GetInputVectorAxisValue::DescribeClass(FClassDescriber&) {}

void UK2Node_GetInputAxisValue::Initialize(const FName AxisName)
{
	InputAxisName = AxisName;
	InputAxisValues::Call(*this, TEXT("GetInputAxisValue"));
}

void UK2Node_GetInputAxisKeyValue::BindTo(const FKey& Key, const TCHAR* FunctionName)
{
	InputAxisKey = Key;
	InputAxisValues::Call(*this, FunctionName);
}

void UK2Node_GetInputAxisKeyValue::Initialize(const FKey AxisKey)
{
	BindTo(AxisKey, TEXT("GetInputAxisKeyValue"));
}

void UK2Node_GetInputVectorAxisValue::Initialize(const FKey AxisKey)
{
	BindTo(AxisKey, TEXT("GetInputVectorAxisValue"));
}

void UK2Node_GetInputAxisValue::AllocateDefaultPins()
{
	Super::AllocateDefaultPins();
	InputAxisValues::Fill(*this, InputAxisValues::AxisName, InputAxisName.ToString());
}

void UK2Node_GetInputAxisKeyValue::AllocateDefaultPins()
{
	Super::AllocateDefaultPins();
	InputAxisValues::Fill(*this, InputAxisValues::AxisKey, InputAxisKey.ToString());
}

FText UK2Node_GetInputAxisValue::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	return TitleType == ENodeTitleType::MenuTitle ? FText::FromName(InputAxisName)
												  : InputAxisValues::Title(InputAxisName.ToString());
}

FText UK2Node_GetInputAxisKeyValue::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	const FText Key = InputAxisKey.GetDisplayName();
	return TitleType == ENodeTitleType::MenuTitle ? Key : InputAxisValues::Title(Key.ToString());
}

FText UK2Node_GetInputAxisValue::GetMenuCategory() const
{
	return NSLOCTEXT("K2Node", "AxisValues", "Input|Axis Values");
}

FText UK2Node_GetInputAxisKeyValue::GetMenuCategory() const
{
	return FText::FromString(FString::Printf(TEXT("Input|%s Values"), *InputAxisKey.GetMenuCategory().ToString()));
}

bool UK2Node_GetInputAxisKeyValue::IsKeyOfKind(const FKey& Key) const
{
	return Key.IsAxis1D();
}

bool UK2Node_GetInputVectorAxisValue::IsKeyOfKind(const FKey& Key) const
{
	return Key.IsAxis2D() || Key.IsAxis3D();
}

void UK2Node_GetInputAxisKeyValue::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	for (const FKey& Key : FKey::GetAllKeys())
	{
		if (IsKeyOfKind(Key))
		{
			ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass(), nullptr,
				[Key](UEdGraphNode* Node, bool) { CastChecked<UK2Node_GetInputAxisKeyValue>(Node)->Initialize(Key); }));
		}
	}
}
