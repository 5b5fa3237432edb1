#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphSchema.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Spawning/SpawnAttempt.h"
#include "Utils/Graph/PinConnections.h"

// Many actions share a title: Set Text is there for each widget that has one. A title alone cannot tell them apart, the
// pins that the request speaks of do.

bool FSpawnAttempt::FitsWire(const UEdGraphPin& Pin, const FBPAskedPin& Asked) const
{
	const TWeakObjectPtr<UEdGraphNode>* const Made = CreatedNodes ? CreatedNodes->Find(Asked.OtherNodeGuid) : nullptr;
	const UEdGraphNode* const OtherNode = Made ? Made->Get() : nullptr;
	const UEdGraphPin* const Other = OtherNode ? FBlueprintPinUtils::FindPinWithAliases(OtherNode, Asked.OtherPinName,
										 Asked.bOutput ? EGPD_Input : EGPD_Output, nullptr)
											   : nullptr;
	const UEdGraphSchema* const Schema = Graph.GetSchema();
	if (!Other || !Schema)
	{
		return !Schema || FitsVariable(Pin, Asked.OtherVariable);
	}
	const FPinConnectionResponse Response = Asked.bOutput ? Schema->CanCreateConnection(&Pin, Other)
														  : Schema->CanCreateConnection(Other, &Pin);
	return Response.Response != CONNECT_RESPONSE_DISALLOW;
}

/** Requests may name a call before the variable that it is called on: the node is still to come, its type is known. */
bool FSpawnAttempt::FitsVariable(const UEdGraphPin& Pin, const FString& Variable) const
{
	const UClass* const Class = FBlueprintEditorUtils::GetMostUpToDateClass(Blueprint.GeneratedClass);
	const FProperty* Property = nullptr;
	for (const FString& Spelling : {Variable, Variable.Replace(TEXT(" "), TEXT(""))})
	{
		const FName Name(*Spelling, FNAME_Find);
		Property = Property || Name.IsNone() || !Class ? Property : Class->FindPropertyByName(Name);
	}
	FEdGraphPinType Type;
	const UEdGraphSchema_K2* const Schema = GetDefault<UEdGraphSchema_K2>();
	return !Property || !Schema->ConvertPropertyToPinType(Property, Type)
		|| Schema->ArePinTypesCompatible(Type, Pin.PinType, Class);
}

int32 FSpawnAttempt::CountFittingPins(const UEdGraphNode& Node) const
{
	int32 Count = 0;
	for (const FBPAskedPin& Asked : Record.AskedPins)
	{
		const EEdGraphPinDirection Direction = Asked.bOutput ? EGPD_Output : EGPD_Input;
		const UEdGraphPin* const Pin = FBlueprintPinUtils::FindPinWithAliases(&Node, Asked.Name, Direction, nullptr);
		Count += Pin && Pin->Direction == Direction && FitsWire(*Pin, Asked) ? 1 : 0;
	}
	return Count;
}

UEdGraphNode* FSpawnAttempt::ChooseNamesake(UEdGraphNode* Node)
{
	int32 MostFitting = CountFittingPins(*Node);
	const FString Title = Candidates[0].MenuTitle;
	for (int32 Index = 1; Index < Candidates.Num() && MostFitting < Record.AskedPins.Num(); ++Index)
	{
		const FCamCandidate& Candidate = Candidates[Index];
		if (!Candidate.Action || Candidate.MenuTitle != Title || Candidate.Confidence < MinimumConfidence)
		{
			continue;
		}
		const int32 NumBefore = Graph.Nodes.Num();
		UEdGraphNode* const Other = Candidate.Action->PerformAction(&Graph, nullptr, FVector2f(Position), true);
		if (!Other || Graph.Nodes.Num() == NumBefore)
		{
			continue;
		}
		const int32 NumFitting = CountFittingPins(*Other);
		const bool bBetter = NumFitting > MostFitting;
		(bBetter ? Node : Other)->DestroyNode();
		Node = bBetter ? Other : Node;
		MostFitting = bBetter ? NumFitting : MostFitting;
	}
	return Node;
}
