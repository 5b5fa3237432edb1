#pragma once

#include "BlueprintBuilder.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_MacroInstance.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Standalone/StandardMacros.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

/**
 * A graph put together as an author does it: nodes by a name of the test's own, links in words ("begin.then >
 * print.execute") through the schema. A pin or a link that is not to be had fails the test.
 */
class FCompileScene
{
public:
	explicit FCompileScene(const FBlueprintBuilder& InBlueprint, UEdGraph* InGraph = nullptr)
		: Blueprint(InBlueprint)
		, Graph(InGraph ? InGraph : InBlueprint.EventGraph().Get())
	{
		Nodes["entry"] = FBlueprintEditorUtils::GetEntryNode(Graph.Get());
	}

	UEdGraphNode* operator[](const std::string& Name)
	{
		EXPECT_NE(Nodes[Name], nullptr) << Name;
		return Nodes[Name];
	}

	/** A node of a class, bound to what the test says before its pins are made. */
	template <class TNode, class TBind>
	TNode* Add(const std::string& Name, TBind&& Bind)
	{
		FGraphNodeCreator<TNode> Creator(*Graph.Get());
		TNode* const Node = Creator.CreateNode(false);
		Bind(*Node);
		Creator.Finalize();
		Nodes[Name] = Node;
		return Node;
	}
	template <class TNode>
	TNode* Add(const std::string& Name)
	{
		return Add<TNode>(Name, [](TNode&) {});
	}

	void Call(const std::string& Name, const TCHAR* ClassPath, const TCHAR* Function)
	{
		Nodes[Name] = Graph.Call(ClassPath, Function);
	}
	/** A call of a function of the Blueprint itself. */
	void CallOwn(const std::string& Name, const TCHAR* Function)
	{
		Add<UK2Node_CallFunction>(
			Name, [Function](UK2Node_CallFunction& Node) { Node.FunctionReference.SetSelfMember(FName(Function)); });
	}
	void Print(const std::string& Name) { Call(Name, TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("PrintString")); }
	/** The event of the parent class, which may stand in the graph already. */
	void Event(const std::string& Name, const TCHAR* Function)
	{
		UClass* const Parent = Blueprint->ParentClass.Get();
		Nodes[Name] = FBlueprintEditorUtils::FindOverrideForFunction(Blueprint.Get(), Parent, Function);
		if (!Nodes[Name])
		{
			Add<UK2Node_Event>(Name,
				[Function, Parent](UK2Node_Event& Node)
				{
					Node.EventReference.SetExternalMember(FName(Function), Parent);
					Node.bOverrideFunction = true;
				});
		}
	}
	UK2Node_CustomEvent* CustomEvent(const std::string& Name, const TCHAR* Function)
	{
		return Add<UK2Node_CustomEvent>(
			Name, [Function](UK2Node_CustomEvent& Node) { Node.CustomFunctionName = FName(Function); });
	}
	void Macro(const std::string& Name, const TCHAR* Macro)
	{
		UEdGraph* const MacroGraph = StandardMacros::FindMacro(FName(Macro));
		ASSERT_NE(MacroGraph, nullptr) << ToStd(Macro);
		Add<UK2Node_MacroInstance>(Name, [MacroGraph](UK2Node_MacroInstance& Node) { Node.SetMacroGraph(MacroGraph); });
	}
	void Get(const std::string& Name, const TCHAR* Variable)
	{
		Add<UK2Node_VariableGet>(
			Name, [Variable](UK2Node_VariableGet& Node) { Node.VariableReference.SetSelfMember(FName(Variable)); });
	}
	void Set(const std::string& Name, const TCHAR* Variable)
	{
		Add<UK2Node_VariableSet>(
			Name, [Variable](UK2Node_VariableSet& Node) { Node.VariableReference.SetSelfMember(FName(Variable)); });
	}

	UEdGraphPin* Pin(const std::string& Path, EEdGraphPinDirection Direction = EGPD_MAX)
	{
		const std::size_t Dot = Path.find('.');
		UEdGraphNode* const Node = (*this)[Path.substr(0, Dot)];
		UEdGraphPin* const Found = Node ? Node->FindPin(FString(UTF8_TO_TCHAR(Path.substr(Dot + 1).c_str())), Direction)
										: nullptr;
		EXPECT_NE(Found, nullptr) << Path;
		return Found;
	}
	void Wire(std::initializer_list<const char*> Links)
	{
		for (const std::string Link : Links)
		{
			const std::size_t Arrow = Link.find(" > ");
			UEdGraphPin* const From = Pin(Link.substr(0, Arrow), EGPD_Output);
			UEdGraphPin* const To = Pin(Link.substr(Arrow + 3), EGPD_Input);
			if (From && To)
			{
				EXPECT_TRUE(From->GetSchema()->TryCreateConnection(From, To)) << Link;
			}
		}
	}
	/** Types a value into a pin, as the schema takes it. */
	void Type(const std::string& Path, const TCHAR* Value)
	{
		if (UEdGraphPin* const Found = Pin(Path, EGPD_Input))
		{
			Found->GetSchema()->TrySetDefaultValue(*Found, Value);
		}
	}

	const FBlueprintBuilder& Blueprint;
	FGraphBuilder Graph;
	std::map<std::string, UEdGraphNode*> Nodes;
};
