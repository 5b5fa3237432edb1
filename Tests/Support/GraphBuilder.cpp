#include "GraphBuilder.h"

#include "EdGraphNode_Comment.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_CallFunction.h"
#include "Session/EditorModules.h"
#include "UObject/Package.h"

FGraphBuilder::FGraphBuilder()
{
	EditorModules::StartTools();
	EditorModules::StartEditor();
	Graph = NewObject<UEdGraph>(GetTransientPackage());
	Graph->Schema = UEdGraphSchema_K2::StaticClass();
}

FNodeHandle FGraphBuilder::Bare(int32 X, int32 Y)
{
	UEdGraphNode* const Node = NewObject<UEdGraphNode>(Graph);
	Node->CreateNewGuid();
	Graph->AddNode(Node, false, false);
	Move(Node, X, Y);
	return {Node};
}

FNodeHandle FGraphBuilder::Exec(int32 NumOutputs, int32 NumDataInputs)
{
	const FNodeHandle Node = Bare();
	AddPin(Node, EGPD_Input, TEXT("execute"), true);
	for (int32 Index = 0; Index < NumOutputs; ++Index)
	{
		AddPin(Node, EGPD_Output, Index == 0 ? TEXT("then") : *FString::Printf(TEXT("then%d"), Index), true);
	}
	AddDataInputs(Node, NumDataInputs);
	return Node;
}

FNodeHandle FGraphBuilder::Event(int32 NumOutputs)
{
	const FNodeHandle Node = Bare();
	for (int32 Index = 0; Index < NumOutputs; ++Index)
	{
		AddPin(Node, EGPD_Output, Index == 0 ? TEXT("then") : *FString::Printf(TEXT("then%d"), Index), true);
	}
	return Node;
}

FNodeHandle FGraphBuilder::Pure(int32 NumDataInputs)
{
	const FNodeHandle Node = Bare();
	AddPin(Node, EGPD_Output, TEXT("out"));
	AddDataInputs(Node, NumDataInputs);
	return Node;
}

FNodeHandle FGraphBuilder::Comment(int32 X, int32 Y, int32 Width, int32 Height)
{
	UEdGraphNode_Comment* const Node = NewObject<UEdGraphNode_Comment>(Graph);
	Node->CreateNewGuid();
	Graph->AddNode(Node, false, false);
	Move(Node, X, Y);
	Node->NodeWidth = Width;
	Node->NodeHeight = Height;
	return {Node};
}

UEdGraphPin* FGraphBuilder::AddPin(UEdGraphNode* Node, EEdGraphPinDirection Direction, const TCHAR* Name, bool bExec)
{
	return Node->CreatePin(Direction, bExec ? UEdGraphSchema_K2::PC_Exec : UEdGraphSchema_K2::PC_Int, FName(Name));
}

FNodeHandle FGraphBuilder::Call(const TCHAR* ClassPath, const TCHAR* FunctionName)
{
	UClass* const Class = FindObject<UClass>(nullptr, ClassPath);
	UFunction* const Function = Class ? Class->FindFunctionByName(FName(FunctionName)) : nullptr;
	if (!Function)
	{
		return {};
	}
	FGraphNodeCreator<UK2Node_CallFunction> Creator(*Graph);
	UK2Node_CallFunction* const Node = Creator.CreateNode(false);
	Node->SetFromFunction(Function);
	Creator.Finalize();
	return {Node};
}

void FGraphBuilder::Link(UEdGraphPin* From, UEdGraphPin* To)
{
	From->MakeLinkTo(To);
}

void FGraphBuilder::AddDataInputs(UEdGraphNode* Node, int32 Count)
{
	for (int32 Index = 0; Index < Count; ++Index)
	{
		AddPin(Node, EGPD_Input, *FString::Printf(TEXT("in%d"), Index));
	}
}

void PrintTo(const FString& Text, std::ostream* Out)
{
	*Out << '"' << ToStd(Text) << '"';
}

void PrintTo(const FIntPoint& Point, std::ostream* Out)
{
	*Out << '(' << Point.X << ", " << Point.Y << ')';
}

void PrintTo(const FVector2D& Vector, std::ostream* Out)
{
	*Out << '(' << Vector.X << ", " << Vector.Y << ')';
}
