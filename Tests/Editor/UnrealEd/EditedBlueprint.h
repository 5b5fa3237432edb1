#pragma once

#include "BlueprintBuilder.h"
#include "BlueprintConsistency.h"
#include "EdGraphSchema_K2.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "K2Node_CallFunction.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "UObject/Package.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

/** What tests of edits to Blueprints share: nodes that refer to members, other Blueprints, values of defaults. */
namespace EditedBlueprint
{
using FSchema = UEdGraphSchema_K2;
using FUtils = FBlueprintEditorUtils;
using testing::IsEmpty;

/** A node, bound to what the test says before its pins are made. */
template <class TNode, class TBind>
TNode* Add(const FGraphBuilder& Graph, TBind&& Bind)
{
	FGraphNodeCreator<TNode> Creator(*Graph.Get());
	TNode* const Node = Creator.CreateNode(false);
	Bind(*Node);
	Creator.Finalize();
	return Node;
}

template <class TNode>
TNode* AddAccess(const FGraphBuilder& Graph, const TCHAR* Variable, UClass* Owner = nullptr)
{
	return Add<TNode>(Graph,
		[Variable, Owner](TNode& Node)
		{
			if (Owner)
			{
				Node.VariableReference.SetExternalMember(FName(Variable), Owner);
			}
			else
			{
				Node.VariableReference.SetSelfMember(FName(Variable));
			}
		});
}

inline UK2Node_CallFunction* AddCall(const FGraphBuilder& Graph, const TCHAR* Function, UClass* Owner = nullptr)
{
	return Add<UK2Node_CallFunction>(Graph,
		[Function, Owner](UK2Node_CallFunction& Node)
		{
			if (Owner)
			{
				Node.FunctionReference.SetExternalMember(FName(Function), Owner);
			}
			else
			{
				Node.FunctionReference.SetSelfMember(FName(Function));
			}
		});
}

/** A Blueprint beside the one under test; gone with this. */
class FOther
{
public:
	FOther(const TCHAR* Name, UClass* Parent, EBlueprintType Type = BPTYPE_Normal)
		: Blueprint(FKismetEditorUtilities::CreateBlueprint(
			Parent, CreatePackage(*(FString(TEXT("/Game/Tests/")) + Name)), Name, Type))
	{
	}
	~FOther() { Blueprint->GetOutermost()->MarkAsGarbage(); }
	FOther(const FOther&) = delete;
	FOther& operator=(const FOther&) = delete;

	UBlueprint* Get() const { return Blueprint; }
	UBlueprint* operator->() const { return Blueprint; }
	UClass* Class() const { return Blueprint->GeneratedClass.Get(); }
	FGraphBuilder EventGraph() const { return FGraphBuilder(FUtils::FindEventGraph(Blueprint)); }

private:
	UBlueprint* const Blueprint;
};

inline FGraphBuilder AddFunction(UBlueprint* Blueprint, const TCHAR* Name)
{
	UEdGraph* const Graph = FUtils::CreateNewGraph(
		Blueprint, FName(Name), UEdGraph::StaticClass(), FSchema::StaticClass());
	FUtils::AddFunctionGraph<UClass>(Blueprint, Graph, true, nullptr);
	return FGraphBuilder(Graph);
}

inline USCS_Node* AddComponent(
	UBlueprint* Blueprint, const TCHAR* ClassPath, const TCHAR* Name, USCS_Node* Parent = nullptr)
{
	USimpleConstructionScript& Script = *Blueprint->SimpleConstructionScript;
	USCS_Node* const Node = Script.CreateNode(FindObject<UClass>(nullptr, ClassPath), FName(Name));
	if (Parent)
	{
		Parent->AddChildNode(Node);
	}
	else
	{
		Script.AddNode(Node);
	}
	FUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	return Node;
}

/** A dispatcher as an author makes it: a variable and a signature. */
inline UEdGraph* AddDispatcher(UBlueprint* Blueprint, const TCHAR* Name)
{
	EXPECT_TRUE(FUtils::AddMemberVariable(Blueprint, FName(Name), FBlueprintBuilder::Type(FSchema::PC_MCDelegate)));
	UEdGraph* const Graph = FUtils::CreateNewGraph(
		Blueprint, FName(Name), UEdGraph::StaticClass(), FSchema::StaticClass());
	const FSchema& Schema = *GetDefault<FSchema>();
	Schema.CreateDefaultNodesForGraph(*Graph);
	Schema.CreateFunctionGraphTerminators(*Graph, static_cast<UClass*>(nullptr));
	Schema.AddExtraFunctionFlags(Graph, FUNC_BlueprintCallable | FUNC_BlueprintEvent | FUNC_Public);
	Schema.MarkFunctionEntryAsEditable(Graph, true);
	Blueprint->DelegateSignatureGraphs.Add(Graph);
	FUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	return Graph;
}

/** What the class default object holds, as text; "(gone)" without such a property. */
inline std::string DefaultOf(UBlueprint* Blueprint, const TCHAR* Name)
{
	FUtils::EnsureSkeletonIsUpToDate(Blueprint);
	UClass* const Class = Blueprint->GeneratedClass.Get();
	const FProperty* const Property = Class->FindPropertyByName(FName(Name));
	if (!Property)
	{
		return "(gone)";
	}
	FString Text;
	uint8* const Container = reinterpret_cast<uint8*>(Class->GetDefaultObject());
	FUtils::PropertyValueToString(Property, Container, Text, nullptr);
	return ToStd(Text);
}
} // namespace EditedBlueprint
