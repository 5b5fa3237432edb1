#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphNode.h"
#include "EdGraph/EdGraphPin.h"

#include <ostream>
#include <string>

/** A node in a test: its pins by name. */
struct FNodeHandle
{
	UEdGraphNode* Node = nullptr;

	UEdGraphNode* operator->() const { return Node; }
	operator UEdGraphNode*() const { return Node; }
	/** Null when there is none: a test that needs the pin fails where it uses it. */
	UEdGraphPin* Input(const TCHAR* Name) const { return Node->FindPin(Name, EGPD_Input); }
	UEdGraphPin* Output(const TCHAR* Name) const { return Node->FindPin(Name, EGPD_Output); }
	FIntPoint At() const { return FIntPoint(Node->NodePosX, Node->NodePosY); }
};

/**
 * Makes a graph in a line or two. The bare nodes have the pins they are given and no behaviour, which is what layout
 * and look-up need; Call and Add make real ones. A graph of its own lives in the transient package until the next
 * collection.
 */
class FGraphBuilder
{
public:
	FGraphBuilder();
	explicit FGraphBuilder(UEdGraph* InGraph)
		: Graph(InGraph)
	{
	}

	UEdGraph* Get() const { return Graph; }

	/** A node without pins. */
	FNodeHandle Bare(int32 X = 0, int32 Y = 0);
	/** "execute" and as many exec outputs as asked for ("then", "then1", ...), then data inputs "in0", "in1", ... */
	FNodeHandle Exec(int32 NumOutputs = 1, int32 NumDataInputs = 0);
	/** Exec outputs alone. */
	FNodeHandle Event(int32 NumOutputs = 1);
	/** A data output "out" and data inputs "in0", "in1", ... */
	FNodeHandle Pure(int32 NumDataInputs = 0);
	FNodeHandle Comment(int32 X, int32 Y, int32 Width, int32 Height);
	UEdGraphPin* AddPin(UEdGraphNode* Node, EEdGraphPinDirection Direction, const TCHAR* Name, bool bExec = false);

	/** A node of a class as its creator finishes it. */
	template <typename TNode>
	TNode* Add()
	{
		FGraphNodeCreator<TNode> Creator(*Graph);
		TNode* const Node = Creator.CreateNode(false);
		Creator.Finalize();
		return Node;
	}
	/** A call of a static function of a catalogued library class, by the class's short name. */
	FNodeHandle Call(const TCHAR* ClassPath, const TCHAR* FunctionName);

	/** Links without asking the schema. */
	static void Link(UEdGraphPin* From, UEdGraphPin* To);
	/** "then" to "execute". */
	static void Then(const FNodeHandle& From, const FNodeHandle& To)
	{
		Link(From.Output(TEXT("then")), To.Input(TEXT("execute")));
	}
	/** "out" of a pure node to an input. */
	static void Feed(const FNodeHandle& From, const FNodeHandle& To, const TCHAR* Input = TEXT("in0"))
	{
		Link(From.Output(TEXT("out")), To.Input(Input));
	}
	static void Move(UEdGraphNode* Node, int32 X, int32 Y)
	{
		Node->NodePosX = X;
		Node->NodePosY = Y;
	}

private:
	void AddDataInputs(UEdGraphNode* Node, int32 Count);

	UEdGraph* Graph = nullptr;
};

/** What a failing expectation prints. */
inline std::string ToStd(const FString& Text)
{
	const FTCHARToUTF8 Utf8(*Text);
	return std::string(Utf8.Get(), static_cast<std::size_t>(Utf8.Length()));
}
void PrintTo(const FString& Text, std::ostream* Out);
void PrintTo(const FIntPoint& Point, std::ostream* Out);
void PrintTo(const FVector2D& Vector, std::ostream* Out);
