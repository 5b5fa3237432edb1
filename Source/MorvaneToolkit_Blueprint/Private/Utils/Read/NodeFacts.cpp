#include "Utils/Read/NodeFacts.h"

#include "Dom/JsonObject.h"
#include "EdGraph/EdGraph.h"
#include "InputCoreTypes.h"
#include "K2Node_ActorBoundEvent.h"
#include "K2Node_BaseAsyncTask.h"
#include "K2Node_BaseMCDelegate.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_CreateDelegate.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_EnhancedInputAction.h"
#include "K2Node_GetSubsystem.h"
#include "K2Node_InputAction.h"
#include "K2Node_InputAxisEvent.h"
#include "K2Node_InputAxisKeyEvent.h"
#include "K2Node_InputDebugKey.h"
#include "K2Node_InputKey.h"
#include "K2Node_MacroInstance.h"
#include "K2Node_MathExpression.h"
#include "K2Node_StructOperation.h"
#include "K2Node_Timeline.h"
#include "NodeDependingOnEnumInterface.h"

namespace NodeFacts
{
namespace
{
void SetName(FJsonObject& Properties, const TCHAR* Key, FName Name)
{
	if (!Name.IsNone())
	{
		Properties.SetStringField(Key, Name.ToString());
	}
}

void SetPath(FJsonObject& Properties, const TCHAR* Key, const UObject* Object)
{
	if (Object)
	{
		Properties.SetStringField(Key, Object->GetPathName());
	}
}

/** By its short name, as calls and variables tell theirs. */
void SetClass(FJsonObject& Properties, const TCHAR* Key, const UClass* Class)
{
	if (Class)
	{
		Properties.SetStringField(Key, Class->GetName());
	}
}

void SetIf(FJsonObject& Properties, const TCHAR* Key, bool bValue)
{
	if (bValue)
	{
		Properties.SetBoolField(Key, true);
	}
}

void SetModifiers(FJsonObject& Properties, bool bControl, bool bAlt, bool bShift, bool bCommand)
{
	SetIf(Properties, TEXT("ctrl"), bControl);
	SetIf(Properties, TEXT("alt"), bAlt);
	SetIf(Properties, TEXT("shift"), bShift);
	SetIf(Properties, TEXT("cmd"), bCommand);
}

void Tell(FJsonObject& Properties, const UK2Node_MacroInstance& Node)
{
	if (const UEdGraph* const Macro = Node.GetMacroGraph())
	{
		SetName(Properties, TEXT("macro_name"), Macro->GetFName());
		SetPath(Properties, TEXT("macro_path"), Macro);
	}
}

void Tell(FJsonObject& Properties, const UK2Node_CreateDelegate& Node)
{
	SetName(Properties, TEXT("function_name"), Node.GetFunctionName());
}

void Tell(FJsonObject& Properties, const UK2Node_BaseMCDelegate& Node)
{
	SetName(Properties, TEXT("delegate_name"), Node.GetPropertyName());
	SetClass(Properties, TEXT("delegate_class"), Node.DelegateReference.GetMemberParentClass());
}

void Tell(FJsonObject& Properties, const UK2Node_DynamicCast& Node)
{
	SetPath(Properties, TEXT("target_class"), Node.TargetType.Get());
	SetIf(Properties, TEXT("is_pure"), Node.bIsPureCast);
}

/** Where a call of the event is executed, in the words in which populating takes it. */
void Tell(FJsonObject& Properties, const UK2Node_CustomEvent& Node)
{
	struct FRow
	{
		EFunctionFlags Flag;
		const TCHAR* Word;
	};
	static constexpr FRow Rows[] = {
		{FUNC_NetServer, TEXT("server")}, {FUNC_NetClient, TEXT("client")}, {FUNC_NetMulticast, TEXT("multicast")}};
	for (const FRow& Row : Rows)
	{
		if ((Node.FunctionFlags & Row.Flag) != 0)
		{
			Properties.SetStringField(TEXT("replicates"), Row.Word);
			SetIf(Properties, TEXT("reliable"), (Node.FunctionFlags & FUNC_NetReliable) != 0);
		}
	}
	SetIf(Properties, TEXT("call_in_editor"), Node.bCallInEditor);
}

void Tell(FJsonObject& Properties, const UK2Node_ComponentBoundEvent& Node)
{
	SetName(Properties, TEXT("component_name"), Node.ComponentPropertyName);
	SetName(Properties, TEXT("delegate_name"), Node.DelegatePropertyName);
}

void Tell(FJsonObject& Properties, const UK2Node_ActorBoundEvent& Node)
{
	SetPath(Properties, TEXT("actor"), Node.EventOwner.Get());
	SetName(Properties, TEXT("delegate_name"), Node.DelegatePropertyName);
}

void Tell(FJsonObject& Properties, const UK2Node_StructOperation& Node)
{
	SetPath(Properties, TEXT("struct"), Node.StructType.Get());
}

void Tell(FJsonObject& Properties, const UK2Node_Timeline& Node)
{
	SetName(Properties, TEXT("timeline_name"), Node.TimelineName);
}

void Tell(FJsonObject& Properties, const UK2Node_InputKey& Node)
{
	SetName(Properties, TEXT("input_key"), Node.InputKey.GetFName());
	SetModifiers(Properties, Node.bControl, Node.bAlt, Node.bShift, Node.bCommand);
}

void Tell(FJsonObject& Properties, const UK2Node_InputDebugKey& Node)
{
	SetName(Properties, TEXT("input_key"), Node.InputKey.GetFName());
	SetModifiers(Properties, Node.bControl, Node.bAlt, Node.bShift, Node.bCommand);
}

void Tell(FJsonObject& Properties, const UK2Node_InputAxisKeyEvent& Node)
{
	SetName(Properties, TEXT("input_key"), Node.AxisKey.GetFName());
}

void Tell(FJsonObject& Properties, const UK2Node_InputAction& Node)
{
	SetName(Properties, TEXT("input_action"), Node.InputActionName);
}

void Tell(FJsonObject& Properties, const UK2Node_InputAxisEvent& Node)
{
	SetName(Properties, TEXT("input_axis"), Node.InputAxisName);
}

void Tell(FJsonObject& Properties, const UK2Node_EnhancedInputAction& Node)
{
	SetPath(Properties, TEXT("input_action"), Node.InputAction.Get());
}

void Tell(FJsonObject& Properties, const UK2Node_BaseAsyncTask& Node)
{
	if (const UFunction* const Factory = Node.GetFactoryFunction())
	{
		SetName(Properties, TEXT("function_name"), Factory->GetFName());
		SetClass(Properties, TEXT("function_class"), Factory->GetOwnerClass());
	}
}

void Tell(FJsonObject& Properties, const UK2Node_GetSubsystem& Node)
{
	if (const UEdGraphPin* const Result = Node.GetResultPin())
	{
		SetPath(Properties, TEXT("subsystem_class"), Result->PinType.PinSubCategoryObject.Get());
	}
}

void Tell(FJsonObject& Properties, const UK2Node_MathExpression& Node)
{
	if (!Node.Expression.IsEmpty())
	{
		Properties.SetStringField(TEXT("expression"), Node.Expression);
	}
}

template <class... TNodes>
void TellFirstOf(FJsonObject& Properties, const UEdGraphNode& Node)
{
	const auto TellOne = [&]<class TNode>(const TNode*)
	{
		const TNode* const Fitting = Cast<TNode>(&Node);
		if (Fitting)
		{
			Tell(Properties, *Fitting);
		}
		return Fitting != nullptr;
	};
	(TellOne(static_cast<const TNodes*>(nullptr)) || ...);
}
} // namespace

void Set(FJsonObject& Properties, const UEdGraphNode& Node)
{
	TellFirstOf<UK2Node_MacroInstance, UK2Node_CreateDelegate, UK2Node_BaseMCDelegate, UK2Node_DynamicCast,
		UK2Node_CustomEvent, UK2Node_ComponentBoundEvent, UK2Node_ActorBoundEvent, UK2Node_StructOperation,
		UK2Node_Timeline, UK2Node_InputKey, UK2Node_InputDebugKey, UK2Node_InputAxisKeyEvent, UK2Node_InputAction,
		UK2Node_InputAxisEvent, UK2Node_EnhancedInputAction, UK2Node_BaseAsyncTask, UK2Node_GetSubsystem,
		UK2Node_MathExpression>(Properties, Node);
	if (const INodeDependingOnEnumInterface* const OfEnum = Cast<INodeDependingOnEnumInterface>(&Node))
	{
		SetPath(Properties, TEXT("enum"), OfEnum->GetEnum());
	}
}
} // namespace NodeFacts
