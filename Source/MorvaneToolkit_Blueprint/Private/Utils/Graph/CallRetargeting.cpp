#include "Utils/Graph/CallRetargeting.h"

#include "BlueprintFunctionNodeSpawner.h"
#include "BlueprintNodeUtils.h"
#include "BlueprintUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CallParentFunction.h"
#include "K2Node_CommutativeAssociativeBinaryOperator.h"
#include "K2Node_Message.h"
#include "K2Node_PromotableOperator.h"
#include "ToolResult.h"
#include "UObject/UObjectGlobals.h"
#include "Utils/Asset/SafeObjectLoad.h"
#include "Utils/Graph/NodeRefresh.h"
#include "Utils/Request/GraphRecords.h"

namespace CallRetargetingImpl
{
const TCHAR* const FunctionKey = TEXT("FunctionName");
const TCHAR* const ClassKey = TEXT("ClassName");

/** A Blueprint, or the class that it made, stands for the class that knows what is not compiled yet. */
static UClass* AsClass(UObject* Object)
{
	UClass* const Class = Cast<UClass>(Object);
	UBlueprint* const Blueprint = Class ? UBlueprint::GetBlueprintFromClass(Class) : Cast<UBlueprint>(Object);
	return Blueprint ? FMemberReference::GetBlueprintSelfClass(Blueprint) : Class;
}

static UClass* FindInScriptPackages(const FString& Name)
{
	for (const TCHAR* const Prefix :
		{TEXT("Script/Engine."), TEXT("Script/CoreUObject."), TEXT("Script/AIModule."), TEXT("Script/UMG.")})
	{
		if (UClass* const Class = AsClass(SafeObjectLoad::TryLoad(TEXT("/") + FString(Prefix) + Name)))
		{
			return Class;
		}
	}
	return nullptr;
}

/** The libraries that a call mostly means, by their names with the prefix of code or without. */
static UClass* FindLibrary(const FString& Name)
{
	for (const TCHAR* const Library : {TEXT("KismetSystemLibrary"), TEXT("KismetMathLibrary"),
			 TEXT("KismetStringLibrary"), TEXT("KismetArrayLibrary")})
	{
		if (Name.Equals(Library, ESearchCase::IgnoreCase)
			|| Name.Equals(FString(TEXT("U")) + Library, ESearchCase::IgnoreCase))
		{
			return FindInScriptPackages(Library);
		}
	}
	return nullptr;
}

static UClass* FindClass(const UEdGraphNode& Node, const FString& Name, Morvane::FToolResult& Result)
{
	if (Name.StartsWith(TEXT("/")))
	{
		UClass* const Class = AsClass(FBlueprintUtils::TryLoadBlueprint(Name));
		return Class ? Class : AsClass(SafeObjectLoad::LoadObjectSafe(Name, Result));
	}
	if (Name.Equals(TEXT("self"), ESearchCase::IgnoreCase))
	{
		return AsClass(Node.GetTypedOuter<UBlueprint>());
	}
	UClass* Class = FindInScriptPackages(Name);
	Class = Class ? Class : FindLibrary(Name);
	Class = Class ? Class : AsClass(StaticFindFirstObject(UClass::StaticClass(), *Name));
	return Class ? Class : AsClass(FBlueprintUtils::TryLoadBlueprint(Name));
}

/** Whether the function's calls are nodes of this one's class; OutWanted is the class that they have. */
static bool IsOfKind(const UK2Node_CallFunction& Call, const UFunction& Function, const UClass*& OutWanted)
{
	const UBlueprintFunctionNodeSpawner* const Spawner = UBlueprintFunctionNodeSpawner::Create(&Function, nullptr);
	const UClass* const Plain = UK2Node_CallFunction::StaticClass();
	OutWanted = Spawner && Spawner->NodeClass.Get() ? Spawner->NodeClass.Get() : Plain;
	// A plain call of an operator has its two inputs for good.
	const bool bOperator = OutWanted->IsChildOf(UK2Node_CommutativeAssociativeBinaryOperator::StaticClass())
		|| OutWanted->IsChildOf(UK2Node_PromotableOperator::StaticClass());
	return Call.GetClass() == OutWanted || (Call.GetClass() == Plain && bOperator);
}

/** Why the node is none that calls the function; empty when it is. */
static FString FindOtherKind(const UK2Node_CallFunction& Call, const UFunction& Function)
{
	if (Call.IsA<UK2Node_PromotableOperator>())
	{
		return TEXT("an operator takes the function that fits what is linked to it");
	}
	const UClass* const Owner = Function.GetOwnerClass();
	const UBlueprint* const Blueprint = Call.GetBlueprint();
	const bool bOfParent = Call.IsA<UK2Node_CallParentFunction>() && Blueprint && Blueprint->ParentClass.Get()
		&& Blueprint->ParentClass->IsChildOf(Owner);
	const bool bOfInterface = Call.IsA<UK2Node_Message>() && Owner && Owner->HasAnyClassFlags(CLASS_Interface);
	const UClass* Wanted = nullptr;
	return IsOfKind(Call, Function, Wanted) || bOfParent || bOfInterface
		? FString()
		: FString::Printf(TEXT("its calls are nodes of class %s, and this one is a %s"), *Wanted->GetName(),
			*Call.GetClass()->GetName());
}

/** Why the node cannot call the function where it stands; empty when it can. Binds the node, and lets go again. */
static FString FindObstacle(UK2Node_CallFunction& Call, const UFunction& Function)
{
	if (!UEdGraphSchema_K2::CanUserKismetCallFunction(&Function))
	{
		return TEXT("it is not callable from Blueprints");
	}
	const FString OtherKind = FindOtherKind(Call, Function);
	if (!OtherKind.IsEmpty())
	{
		return OtherKind;
	}
	const FMemberReference Kept = Call.FunctionReference;
	const bool bWasPure = Call.bDefaultsToPureFunc;
	Call.SetFromFunction(&Function);
	const bool bMayStand = Call.CanPasteHere(Call.GetGraph());
	Call.FunctionReference = Kept;
	Call.bDefaultsToPureFunc = bWasPure;
	return bMayStand ? FString() : FString(TEXT("it cannot stand in this graph"));
}

/** Takes the pins away that only the function of before had; answers the values that go with them. */
static TArray<FString> DropOldPins(UK2Node_CallFunction& Call)
{
	TArray<FString> Values;
	const TArray<UEdGraphPin*> Pins = Call.Pins;
	for (UEdGraphPin* const Pin : Pins)
	{
		if (!Pin->bOrphanedPin || Pin->ParentPin)
		{
			continue;
		}
		const FString Value = Pin->GetDefaultAsString();
		if (Pin->LinkedTo.IsEmpty() && !Value.IsEmpty())
		{
			Values.Add(Pin->GetName() + TEXT(" = ") + Value);
		}
		Call.RemovePin(Pin);
	}
	return Values;
}

/** The object that the old function was called on may be none for the new one; answers the links that go. */
static TArray<FString> DropWrongTargets(UK2Node_CallFunction& Call)
{
	TArray<FString> Links;
	UEdGraphPin* const Self = Call.FindPin(UEdGraphSchema_K2::PN_Self, EGPD_Input);
	const TArray<UEdGraphPin*> Linked = Self ? Self->LinkedTo : TArray<UEdGraphPin*>();
	for (UEdGraphPin* const Object : Linked)
	{
		if (Self->bHidden
			|| !Call.GetK2Schema()->ArePinTypesCompatible(
				Object->PinType, Self->PinType, Call.GetBlueprintClassFromNode()))
		{
			Links.Add(NodeRefresh::Describe(*Object->GetOwningNode()) + TEXT(".") + Object->GetName() + TEXT(" -> ")
				+ NodeRefresh::Describe(Call) + TEXT(".self"));
			Self->BreakLinkTo(Object);
		}
	}
	return Links;
}

/** A library's call holds the library as its object; the one of before stays in the pin when that is made anew. */
static void HoldLibrary(const UK2Node_CallFunction& Call, const UFunction& Function)
{
	const UClass* const Owner = Function.HasAnyFunctionFlags(FUNC_Static) ? Function.GetOwnerClass() : nullptr;
	if (UEdGraphPin* const Self = Call.FindPin(UEdGraphSchema_K2::PN_Self, EGPD_Input))
	{
		Self->DefaultObject = Owner ? Owner->GetDefaultObject() : nullptr;
	}
}

static void Bind(UK2Node_CallFunction& Call, const UFunction& Function, Morvane::FToolResult& Result)
{
	Call.Modify();
	Call.SetFromFunction(&Function);
	TArray<FString> Lost = NodeRefresh::Reconstruct({&Call});
	HoldLibrary(Call, Function);
	// The function was meant to be another one, so nothing waits for the old one's pins to come back.
	Lost.Append(DropWrongTargets(Call));
	Lost.Append(DropOldPins(Call));
	if (!Lost.IsEmpty())
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Node '%s' has no pins for these links and values any more; they are removed: %s"),
				*NodeRefresh::Describe(Call), *FString::Join(Lost, TEXT(", "))));
	}
}
} // namespace CallRetargetingImpl

bool CallRetargeting::IsAskedFor(const FBPNodeModification& Record)
{
	return !Record.GetMetadata(CallRetargetingImpl::FunctionKey).IsEmpty();
}

bool CallRetargeting::Apply(UEdGraphNode& Node, const FBPNodeModification& Record, Morvane::FToolResult& Result)
{
	using namespace CallRetargetingImpl;
	UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node);
	if (!Call)
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Node '%s' is no function call, so FunctionName does not apply to it"),
				*FBlueprintNodeUtils::GetFullTitle(&Node)));
		return false;
	}
	const FString FunctionName = Record.GetMetadata(FunctionKey);
	const FString Asked = Record.GetMetadata(ClassKey);
	const FString ClassName = Asked.IsEmpty() ? FString(TEXT("KismetSystemLibrary")) : Asked;
	const UClass* const Class = FindClass(Node, ClassName, Result);
	if (!Class)
	{
		Result.AddWarningMessage(FString::Printf(TEXT("Class '%s' not found"), *ClassName));
		return false;
	}
	const UFunction* const Function = Class->FindFunctionByName(FName(*FunctionName));
	if (!Function)
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Function '%s' not found in class '%s'"), *FunctionName, *ClassName));
		return false;
	}
	const FString Obstacle = FindObstacle(*Call, *Function);
	if (!Obstacle.IsEmpty())
	{
		Result.AddWarningMessage(FString::Printf(TEXT("Function '%s' of class '%s' cannot be called by node '%s': %s"),
			*FunctionName, *ClassName, *FBlueprintNodeUtils::GetFullTitle(&Node), *Obstacle));
		return false;
	}
	Bind(*Call, *Function, Result);
	return true;
}
