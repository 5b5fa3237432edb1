#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "K2Node_CallParentFunction.h"
#include "Spawning/SpawnAttempt.h"
#include "UObject/UnrealType.h"
#include "Utils/Graph/LooseNames.h"

// The parent call road: what it makes is complete, and is not validated again.

bool FSpawnAttempt::IsParentCallRequest() const
{
	return Record.ClassName.Equals(TEXT("K2Node_CallParentFunction"), ESearchCase::CaseSensitive);
}

UEdGraphNode* FSpawnAttempt::SpawnParentCall()
{
	FString FunctionName;
	if (!ReadParentFunctionName(FunctionName))
	{
		return nullptr;
	}
	const UClass* const ParentClass = Blueprint.ParentClass;
	if (!ParentClass)
	{
		return Fail(TEXT("[Failure] Blueprint has no parent class - cannot create parent function call"));
	}
	UFunction* const Exact = ParentClass->FindFunctionByName(FName(*FunctionName));
	UFunction* const Function = Exact ? Exact : LooseNames::FindFunction(ParentClass, FunctionName);
	if (Function)
	{
		return SpawnParentCallOf(*Function);
	}
	TArray<FString> Names;
	for (TFieldIterator<UFunction> It(ParentClass); It; ++It)
	{
		Names.Add(It->GetName());
	}
	return Fail(
		FString::Printf(TEXT("[Failure] Function '%s' not found in parent class '%s'. Available functions: [%s]"),
			*FunctionName, *ParentClass->GetName(), *FString::Join(Names, TEXT(", "))));
}

bool FSpawnAttempt::ReadParentFunctionName(FString& OutName)
{
	static const FString TitlePrefix = TEXT("Parent: ");
	OutName = Record.TargetFunction.IsEmpty() ? Record.MenuTitle : Record.TargetFunction;
	if (OutName.IsEmpty())
	{
		Fail(TEXT(
			"[Failure] K2Node_CallParentFunction requires either target_function or menu_title with 'Parent: FunctionName' format"));
		return false;
	}
	if (Record.TargetFunction.IsEmpty() && OutName.StartsWith(TitlePrefix, ESearchCase::IgnoreCase))
	{
		OutName.RightChopInline(TitlePrefix.Len());
	}
	return true;
}

UEdGraphNode* FSpawnAttempt::SpawnParentCallOf(UFunction& Function)
{
	const FVector2D Place = GetRequestedPosition();
	UK2Node_CallParentFunction* const Node = NewObject<UK2Node_CallParentFunction>(&Graph);
	if (!Node)
	{
		return Fail(TEXT("[Failure] Failed to create UK2Node_CallParentFunction instance"));
	}
	Node->CreateNewGuid();
	Node->FunctionReference.SetExternalMember(Function.GetFName(), Function.GetOwnerClass());
	Node->SetFromFunction(&Function);
	Node->AllocateDefaultPins();
	Node->NodePosX = static_cast<int32>(Place.X);
	Node->NodePosY = static_cast<int32>(Place.Y);
	Graph.AddNode(Node, true, true);
	return Node;
}
