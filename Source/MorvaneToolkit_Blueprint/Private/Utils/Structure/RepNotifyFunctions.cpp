#include "Utils/Structure/RepNotifyFunctions.h"

#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_CallFunction.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "ToolResult.h"
#include "UObject/Script.h"
#include "Utils/Structure/LostPins.h"
#include "Utils/Structure/StructureNames.h"

namespace RepNotifyFunctions
{
namespace
{
/** Runs on the side that receives, and so counts as a function of the net on both. */
constexpr int32 NotifyFlags = FUNC_Net | FUNC_NetServer | FUNC_NetClient;
static_assert(NotifyFlags == 0x1200040);
constexpr int32 PrefixLength = 6;
constexpr int32 ResultOffset = 400;

/** The type of the variable that the function is named after; a wildcard where there is none. */
FEdGraphPinType GetVariableType(const UBlueprint& Blueprint, FName FunctionName, FName& OutVariable)
{
	OutVariable = FName(*FunctionName.ToString().RightChop(PrefixLength));
	const int32 Index = FBlueprintEditorUtils::FindNewVariableIndex(&Blueprint, OutVariable);
	FEdGraphPinType Type;
	Type.PinCategory = UEdGraphSchema_K2::PC_Wildcard;
	return Index == INDEX_NONE ? Type : Blueprint.NewVariables[Index].VarType;
}

/** The value from before the change. It bears another name than the variable, which the function sees too. */
FName GetParameterName(FName Variable)
{
	return FName(*FString::Printf(TEXT("Old%s"), *Variable.ToString()));
}

UK2Node_FunctionEntry* EnsureEntry(UEdGraph& Graph, FName FunctionName)
{
	if (UK2Node_FunctionEntry* const Entry = FBlueprintEditorUtils::GetEntryNode(&Graph))
	{
		return Entry;
	}
	FGraphNodeCreator<UK2Node_FunctionEntry> Creator(Graph);
	UK2Node_FunctionEntry* const Entry = Creator.CreateNode(false);
	Entry->CustomGeneratedFunctionName = FunctionName;
	Creator.Finalize();
	return Entry;
}

void AddResult(UEdGraph& Graph, UK2Node_FunctionEntry& Entry)
{
	FGraphNodeCreator<UK2Node_FunctionResult> Creator(Graph);
	UK2Node_FunctionResult* const Result = Creator.CreateNode(false);
	Result->NodePosX = Entry.NodePosX + ResultOffset;
	Result->NodePosY = Entry.NodePosY;
	Creator.Finalize();
	UEdGraphPin* const From = Entry.GetThenPin();
	UEdGraphPin* const To = Result->GetExecPin();
	if (From && To)
	{
		From->MakeLinkTo(To);
	}
}

bool IsThere(const UBlueprint& Blueprint, FName FunctionName)
{
	const UClass* const Parent = Blueprint.ParentClass.Get();
	return Find(Blueprint, FunctionName) || (Parent && Parent->FindFunctionByName(FunctionName));
}

bool IsUsed(const UBlueprint& Blueprint, const UEdGraph& Graph)
{
	for (const UEdGraphNode* const Node : Graph.Nodes)
	{
		if (Node && !Node->IsA<UK2Node_FunctionTerminator>())
		{
			return true;
		}
	}
	TArray<UK2Node_CallFunction*> Calls;
	FBlueprintEditorUtils::GetAllNodesOfClass(&Blueprint, Calls);
	return Calls.ContainsByPredicate([&Graph](const UK2Node_CallFunction* Call)
		{ return Call->FunctionReference.GetMemberName() == Graph.GetFName(); });
}
} // namespace

FName MakeName(FName VariableName)
{
	return FName(*FString::Printf(TEXT("OnRep_%s"), *VariableName.ToString()));
}

UEdGraph* Find(const UBlueprint& Blueprint, FName FunctionName)
{
	for (UEdGraph* const Graph : Blueprint.FunctionGraphs)
	{
		if (Graph && Graph->GetFName() == FunctionName)
		{
			return Graph;
		}
	}
	return nullptr;
}

FString FindObstacle(const UBlueprint& Blueprint, FName FunctionName)
{
	FString Reason;
	if (IsThere(Blueprint, FunctionName) || !StructureNames::IsObjectName(FunctionName.ToString(), Reason))
	{
		return Reason;
	}
	const EValidatorResult Verdict = FKismetNameValidator(&Blueprint).IsValid(FunctionName);
	return INameValidatorInterface::GetErrorString(FunctionName.ToString(), Verdict);
}

bool Ensure(UBlueprint& Blueprint, FName FunctionName)
{
	if (IsThere(Blueprint, FunctionName))
	{
		return false;
	}
	UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
		&Blueprint, FunctionName, UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddFunctionGraph<UFunction>(&Blueprint, Graph, false, nullptr);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);

	UK2Node_FunctionEntry* const Entry = EnsureEntry(*Graph, FunctionName);
	Entry->MetaData.Category = FText::FromString(TEXT("RepNotify"));
	FName Variable;
	const FEdGraphPinType Type = GetVariableType(Blueprint, FunctionName, Variable);
	Entry->CreateUserDefinedPin(GetParameterName(Variable), Type, EGPD_Output);
	GetDefault<UEdGraphSchema_K2>()->AddExtraFunctionFlags(Graph, NotifyFlags);
	AddResult(*Graph, *Entry);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
	return true;
}

bool Remove(UBlueprint& Blueprint, FName FunctionName)
{
	UEdGraph* const Graph = Find(Blueprint, FunctionName);
	if (Graph)
	{
		FBlueprintEditorUtils::RemoveGraph(&Blueprint, Graph);
	}
	return Graph != nullptr;
}

bool RemoveUnlessUsed(UBlueprint& Blueprint, FName FunctionName, Morvane::FToolResult& Result)
{
	const UEdGraph* const Graph = Find(Blueprint, FunctionName);
	if (Graph && IsUsed(Blueprint, *Graph))
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT(
				"Function '%s' is no longer called when the variable changes; it stays because it holds or is used by nodes"),
			*FunctionName.ToString()));
		return false;
	}
	return Remove(Blueprint, FunctionName);
}

void FollowType(UBlueprint& Blueprint, const FBPVariableDescription& Variable, Morvane::FToolResult& Result)
{
	UEdGraph* const Graph = Find(Blueprint, MakeName(Variable.VarName));
	UK2Node_FunctionEntry* const Entry = Graph ? FBlueprintEditorUtils::GetEntryNode(Graph) : nullptr;
	if (!Entry)
	{
		return;
	}
	const FName Parameter = GetParameterName(Variable.VarName);
	for (const TSharedPtr<FUserPinInfo>& Pin : Entry->UserDefinedPins)
	{
		if (Pin->PinName == Parameter && Pin->PinType != Variable.VarType)
		{
			const FLostPins Lost({Entry});
			Pin->PinType = Variable.VarType;
			Entry->ReconstructNode();
			Lost.TakeOut(FString::Printf(TEXT("Function '%s' follows the new type of variable '%s'"), *Graph->GetName(),
							 *Variable.VarName.ToString()),
				Result);
			return;
		}
	}
}
} // namespace RepNotifyFunctions
