#include "Spawning/PostSpawnValidation.h"

#include "AnimStateNode.h"
#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_ActorBoundEvent.h"
#include "K2Node_CallFunction.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_CreateDelegate.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_MathExpression.h"
#include "K2Node_Variable.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Spawning/SpawnAttempt.h"
#include "Spawning/SpawnWaterfall.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Graph/EventNodes.h"
#include "Utils/Graph/PinConnections.h"
#include "Utils/Report/GraphTelemetry.h"
#include "Utils/Request/NewNames.h"

UEdGraphNode* FPostSpawnValidation::Run(UEdGraphNode* InNode)
{
	Node = InNode;
	const bool bStays = HasRequestedClass() && TakesStateName() && HasRequestedFunction() && HasExistingFunction()
		&& HasExistingEvent() && TakesEventName() && HasCastTarget() && TakesPosition() && TakesMathExpression()
		&& TakesFunctionPins() && HasExistingVariable() && TakesBindingFunction() && CountsEnumComparison();
	return bStays ? Node : nullptr;
}

bool FPostSpawnValidation::HasRequestedClass()
{
	const FString Requested = Record.ClassName.IsEmpty() ? Record.GetMetadata(TEXT("class_name")) : Record.ClassName;
	if (Requested.IsEmpty() || Requested.Equals(TEXT("EdGraphNode_Comment"), ESearchCase::CaseSensitive))
	{
		return true;
	}
	if (!Node)
	{
		SpawnReport::Report(Result, TEXT("[Failure] Cannot validate node class because node creation failed"));
		return false;
	}
	const FString Spawned = Node->GetClass()->GetName();
	if (FBlueprintSpawnWaterfall::IsEquivalentNodeClass(Requested, Spawned, Node))
	{
		return true;
	}
	return DiscardWithCandidates(FString::Printf(
		TEXT(
			"[Failure] Created node '%s' (class '%s') but requested class '%s' not a known equivalent conversion. Suggestions are provided (not mandatory); consider deterministic spawning if possible or refining the fuzzy request."),
		*FBlueprintNodeUtils::GetFullTitle(Node), *Spawned, *Requested));
}

bool FPostSpawnValidation::TakesStateName()
{
	const FString StateName = Record.GetMetadata(TEXT("state_name"));
	UAnimStateNode* const State = Cast<UAnimStateNode>(Node);
	if (State && !StateName.IsEmpty())
	{
		State->OnRenameNode(StateName);
	}
	return true;
}

bool FPostSpawnValidation::HasRequestedFunction()
{
	FString Requested = Record.GetMetadata(TEXT("target_function"));
	Requested = Requested.IsEmpty() ? Record.GetMetadata(TEXT("FunctionName")) : Requested;
	if (Requested.IsEmpty())
	{
		return true;
	}
	if (!Node)
	{
		SpawnReport::Report(Result, TEXT("[Failure] Cannot validate function binding because node creation failed"));
		return false;
	}
	const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(Node);
	const FString Spawned = Call ? Call->FunctionReference.GetMemberName().ToString() : Requested;
	if (Spawned.Equals(Requested, ESearchCase::CaseSensitive))
	{
		return true;
	}
	return DiscardWithCandidates(FString::Printf(
		TEXT(
			"[Failure] Created function node '%s' but function '%s' was requested (spawned '%s'). Suggestions are provided (not mandatory); consider deterministic spawning if possible or refining the fuzzy request."),
		*FBlueprintNodeUtils::GetFullTitle(Node), *Requested, *Spawned));
}

bool FPostSpawnValidation::HasExistingFunction()
{
	const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(Node);
	// With the function named in the metadata, the name itself has just been compared.
	if (!Call || !Record.GetMetadata(TEXT("target_function")).IsEmpty() || Call->GetTargetFunction())
	{
		return true;
	}
	const UClass* const Parent = Call->FunctionReference.GetMemberParentClass();
	return Discard(FString::Printf(
		TEXT(
			"[Failure] Function node validation failed: Function '%s' does not exist in class '%s' (fuzzy match may have selected wrong node)"),
		*Call->FunctionReference.GetMemberName().ToString(), Parent ? *Parent->GetName() : TEXT("Unknown")));
}

bool FPostSpawnValidation::IsBoundToSomething(const UK2Node_Event& Event) const
{
	// Such an event answers a delegate of a component; no function of the class has its name.
	if (const UK2Node_ComponentBoundEvent* const Bound = Cast<UK2Node_ComponentBoundEvent>(&Event))
	{
		const UClass* const Class = Event.GetBlueprintClassFromNode();
		return Class && Class->FindPropertyByName(Bound->ComponentPropertyName) && Bound->GetTargetDelegateProperty();
	}
	const UK2Node_ActorBoundEvent* const Bound = Cast<UK2Node_ActorBoundEvent>(&Event);
	return Bound && Bound->EventOwner && Bound->GetTargetDelegateProperty();
}

bool FPostSpawnValidation::HasExistingEvent()
{
	const UK2Node_Event* const Event = Cast<UK2Node_Event>(Node);
	const FName EventName = Event ? Event->EventReference.GetMemberName() : FName();
	if (EventName.IsNone() || IsBoundToSomething(*Event))
	{
		return true;
	}
	const UClass* const Class = FBlueprintEditorUtils::GetMostUpToDateClass(Blueprint.GeneratedClass);
	if (Class && Class->FindFunctionByName(EventName))
	{
		return true;
	}
	return Discard(FString::Printf(
		TEXT(
			"[Failure] Event node validation failed: Event '%s' does not exist in Blueprint class (fuzzy match may have selected wrong node)"),
		*EventName.ToString()));
}

bool FPostSpawnValidation::TakesEventName()
{
	UK2Node_CustomEvent* const Event = Cast<UK2Node_CustomEvent>(Node);
	if (!Event)
	{
		return true;
	}
	if (Event->GetFunctionName().IsNone())
	{
		return Discard(TEXT("[Failure] Custom event node validation failed: Custom event has no name"));
	}
	const FString EventName = Record.GetMetadata(TEXT("event_name"));
	const FString Fault = EventName.IsEmpty() ? FString() : NewNames::FindFault(EventName);
	if (!Fault.IsEmpty())
	{
		return Discard(FString::Printf(TEXT("[Failure] Custom event node validation failed: %s"), *Fault));
	}
	if (!EventName.IsEmpty())
	{
		Event->CustomFunctionName = FName(*EventName);
		Event->bIsEditable = true;
	}
	return true;
}

bool FPostSpawnValidation::HasCastTarget()
{
	const UK2Node_DynamicCast* const CastNode = Cast<UK2Node_DynamicCast>(Node);
	if (!CastNode || CastNode->TargetType)
	{
		return true;
	}
	return Discard(TEXT(
		"[Failure] Cast node validation failed: Target class does not exist (fuzzy match may have selected wrong node)"));
}

bool FPostSpawnValidation::TakesPosition()
{
	if (Node)
	{
		Node->NodePosX = static_cast<int32>(Position.X);
		Node->NodePosY = static_cast<int32>(Position.Y);
	}
	return true;
}

bool FPostSpawnValidation::TakesMathExpression()
{
	UK2Node_MathExpression* const Expression = Cast<UK2Node_MathExpression>(Node);
	if (!Expression)
	{
		return true;
	}
	// The title of the request is the expression itself.
	Expression->OnRenameNode(Record.MenuTitle);
	if (!Expression->bHasCompilerMessage || Expression->ErrorType < 1)
	{
		return true;
	}
	return Discard(
		FString::Printf(TEXT("[Failure] Invalid math expression '%s': %s"), *Record.MenuTitle, *Expression->ErrorMsg));
}

bool FPostSpawnValidation::TakesFunctionPins()
{
	const bool bEntry = Node && Node->IsA<UK2Node_FunctionEntry>();
	const bool bResult = Node && Node->IsA<UK2Node_FunctionResult>();
	if (!bEntry && !bResult)
	{
		return true;
	}
	UK2Node_EditablePinBase& Terminator = *CastChecked<UK2Node_EditablePinBase>(Node);
	for (const FBPPinModification& Pin : Record.Pins)
	{
		if (Pin.Action == EBPNodeAction::Add && !AddFunctionPin(Terminator, Pin, bEntry))
		{
			return false;
		}
	}
	return true;
}

bool FPostSpawnValidation::AddFunctionPin(
	UK2Node_EditablePinBase& Terminator, const FBPPinModification& Pin, bool bParameter)
{
	const FEdGraphPinType Type = FBlueprintPinUtils::ConvertPinType(Pin.Type.Get(FBPPinType()));
	Terminator.CreateUserDefinedPin(FName(*Pin.Name), Type, bParameter ? EGPD_Output : EGPD_Input, true);
	const UEdGraphPin* const Made = Terminator.FindPin(Pin.Name);
	if (!Made)
	{
		return Discard(bParameter
				? FString::Printf(TEXT("[Failure] Failed to create function parameter '%s'"), *Pin.Name)
				: FString::Printf(TEXT("[Failure] Failed to create function return value '%s'"), *Pin.Name));
	}
	// The category alone: a class that could not be found is for the compile to tell.
	if (Made->PinType.PinCategory == Type.PinCategory)
	{
		return true;
	}
	const FString Expected = Type.PinCategory.ToString();
	const FString Got = Made->PinType.PinCategory.ToString();
	return Discard(bParameter
			? FString::Printf(TEXT("[Failure] Function parameter '%s' has wrong type (expected %s, got %s)"), *Pin.Name,
				*Expected, *Got)
			: FString::Printf(TEXT("[Failure] Function return value '%s' has wrong type (expected %s, got %s)"),
				*Pin.Name, *Expected, *Got));
}

bool FPostSpawnValidation::HasExistingVariable()
{
	const UK2Node_Variable* const Variable = Cast<UK2Node_Variable>(Node);
	if (!Variable || !(Variable->IsA<UK2Node_VariableGet>() || Variable->IsA<UK2Node_VariableSet>()))
	{
		return true;
	}
	// A local variable belongs to its function; the Blueprint's variables say nothing about it.
	const bool bLocal = Variable->VariableReference.IsLocalScope() && Variable->GetPropertyForVariable();
	// Nor do they about one of another object, when the request brings that object.
	const bool bForeign = Record.bTargetIsWired && !Variable->VariableReference.IsSelfContext()
		&& Variable->GetPropertyForVariable();
	if (bLocal || bForeign)
	{
		return true;
	}
	FString Error;
	const FString Name = Variable->VariableReference.GetMemberName().ToString();
	return FBlueprintEventNodeUtils::ValidateVariableExists(&Blueprint, Name, Error)
		|| Discard(FString::Printf(TEXT("[Failure] %s"), *Error));
}

bool FPostSpawnValidation::TakesBindingFunction()
{
	UK2Node_CreateDelegate* const Delegate = Cast<UK2Node_CreateDelegate>(Node);
	const FString FunctionName = Record.GetMetadata(TEXT("binding_function"));
	const UClass* const Scope = Delegate && !FunctionName.IsEmpty() ? Delegate->GetScopeClass(false) : nullptr;
	if (!Scope)
	{
		return true;
	}
	TArray<FString> Compatible;
	for (TFieldIterator<UFunction> It(Scope); It; ++It)
	{
		if (!UEdGraphSchema_K2::FunctionCanBeUsedInDelegate(*It))
		{
			continue;
		}
		Compatible.Add(It->GetName());
		if (It->GetFName() == FName(*FunctionName))
		{
			Delegate->SetFunction(It->GetFName());
			Delegate->HandleAnyChange(true);
			GraphTelemetry::SetString(
				Result, FString::Printf(TEXT("delegate_binding_%s"), *Record.NodeGuid), FunctionName);
			return true;
		}
	}
	// The node stays: it can be bound by a later call.
	ReportMissingBinding(FunctionName, *Scope, Compatible);
	return true;
}

void FPostSpawnValidation::ReportMissingBinding(
	const FString& FunctionName, const UClass& Scope, const TArray<FString>& Compatible)
{
	GraphTelemetry::RecordValidationFailure(Result,
		FString::Printf(TEXT("Could not find delegate-compatible function '%s' in scope class '%s' for node '%s'."),
			*FunctionName, *Scope.GetName(), *Record.NodeGuid));
	Result.AddWarningMessage(Compatible.IsEmpty()
			? FString::Printf(TEXT("No delegate-compatible functions found in scope class '%s'."), *Scope.GetName())
			: FString::Printf(TEXT("Available delegate-compatible functions in '%s': %s"), *Scope.GetName(),
				*FString::Join(Compatible, TEXT(", "))));

	const TSharedRef<FJsonObject> Failure = MakeShared<FJsonObject>();
	Failure->SetStringField(TEXT("node_id"), Record.NodeGuid);
	Failure->SetStringField(TEXT("requested_function"), FunctionName);
	Failure->SetStringField(TEXT("scope_class"), Scope.GetName());
	Failure->SetStringField(TEXT("reason"), TEXT("function_not_found_or_incompatible"));
	GraphTelemetry::Append(Result, TEXT("delegate_binding_failures"), Failure);
}

bool FPostSpawnValidation::CountsEnumComparison()
{
	if (Record.GetMetadata(TEXT("test_category")).Equals(TEXT("enum_comparison"), ESearchCase::IgnoreCase))
	{
		GraphTelemetry::Increment(Result, TEXT("enum_comparison_attempts"));
		if (!GraphTelemetry::Ensure(Result)->HasField(TEXT("enum_comparison_failures")))
		{
			GraphTelemetry::SetNumber(Result, TEXT("enum_comparison_failures"), 0.0);
		}
	}
	return true;
}

bool FPostSpawnValidation::Discard(const FString& Text)
{
	// The node's own way: what it made beside itself, a graph or a timeline, goes with it.
	Node->DestroyNode();
	SpawnReport::Report(Result, Text);
	return false;
}

bool FPostSpawnValidation::DiscardWithCandidates(const FString& Text)
{
	Discard(Text);
	FBlueprintCamMatching::RecordCandidateMatches(Candidates, Result, Context);
	return false;
}
