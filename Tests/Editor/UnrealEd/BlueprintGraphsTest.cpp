#include "EditedBlueprint.h"

#include "K2Node_Composite.h"
#include "K2Node_CreateDelegate.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionEntry.h"

using namespace EditedBlueprint;

namespace BlueprintGraphsTests
{
enum class EKind
{
	Function,
	Macro,
	Page,
	Signature,
};

static UEdGraph* AddGraph(UBlueprint* Blueprint, EKind Kind, const TCHAR* Name)
{
	if (Kind == EKind::Function)
	{
		return AddFunction(Blueprint, Name).Get();
	}
	if (Kind == EKind::Signature)
	{
		return AddDispatcher(Blueprint, Name);
	}
	UEdGraph* const Graph = FUtils::CreateNewGraph(
		Blueprint, FName(Name), UEdGraph::StaticClass(), FSchema::StaticClass());
	if (Kind == EKind::Macro)
	{
		FUtils::AddMacroGraph(Blueprint, Graph, true, nullptr);
	}
	else
	{
		FUtils::AddUbergraphPage(Blueprint, Graph);
	}
	return Graph;
}

static bool Contains(const UBlueprint* Blueprint, const UEdGraph* Graph)
{
	TArray<UEdGraph*> Graphs;
	Blueprint->GetAllGraphs(Graphs);
	return Graphs.Contains(const_cast<UEdGraph*>(Graph));
}
} // namespace BlueprintGraphsTests

using namespace BlueprintGraphsTests;

TEST(BlueprintGraphs, ARemovedGraphIsGoneAndItsNameFree)
{
	const auto ByUtils = [](UBlueprint* Blueprint, UEdGraph* Graph) { FUtils::RemoveGraph(Blueprint, Graph); };
	const auto BySchema = [](UBlueprint*, UEdGraph* Graph) { EXPECT_TRUE(Graph->GetSchema()->TryDeleteGraph(Graph)); };
	for (const EKind Kind : {EKind::Function, EKind::Macro, EKind::Page})
	{
		for (void (*const Remove)(UBlueprint*, UEdGraph*) : {+ByUtils, +BySchema})
		{
			FBlueprintBuilder Blueprint;
			UEdGraph* const Graph = AddGraph(Blueprint.Get(), Kind, TEXT("Velvet"));
			FGraphBuilder(Graph).Call(TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("PrintString"));
			ASSERT_TRUE(Contains(Blueprint.Get(), Graph));
			Remove(Blueprint.Get(), Graph);
			EXPECT_FALSE(Contains(Blueprint.Get(), Graph)) << static_cast<int>(Kind);
			ASSERT_TRUE(Blueprint.Save());
			EXPECT_EQ(ReadBlueprintFile(Blueprint).find("Velvet"), std::string::npos) << static_cast<int>(Kind);
			EXPECT_EQ(ToStd(AddGraph(Blueprint.Get(), Kind, TEXT("Velvet"))->GetName()), "Velvet");
			EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty()) << static_cast<int>(Kind);
		}
	}
}

TEST(BlueprintGraphs, ACollapsedGraphGoesWithItsNodeAndTheOtherWayRound)
{
	for (const bool bByGraph : {true, false})
	{
		FBlueprintBuilder Blueprint;
		UK2Node_Composite* const Node = Blueprint.EventGraph().Add<UK2Node_Composite>();
		UEdGraph* const Inner = Node->BoundGraph;
		ASSERT_TRUE(Contains(Blueprint.Get(), Inner));
		if (bByGraph)
		{
			EXPECT_TRUE(Inner->GetSchema()->TryDeleteGraph(Inner));
		}
		else
		{
			FUtils::RemoveNode(Blueprint.Get(), Node);
		}
		EXPECT_FALSE(Contains(Blueprint.Get(), Inner));
		EXPECT_FALSE(Blueprint.EventGraph().Get()->Nodes.Contains(Node));
		EXPECT_TRUE(Blueprint.EventGraph().Get()->SubGraphs.IsEmpty());
		EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty()) << bByGraph;
	}
}

TEST(BlueprintGraphs, CallsFollowARenamedFunction)
{
	FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.Function(TEXT("Open")).Get();
	FUtils::GetEntryNode(Graph)->CreateUserDefinedPin(
		TEXT("Width"), FBlueprintBuilder::Type(FSchema::PC_Int), EGPD_Output);
	Blueprint.AddVariable(TEXT("Door"), FBlueprintBuilder::Type(FSchema::PC_Boolean));
	FUtils::SetBlueprintVariableRepNotifyFunc(Blueprint.Get(), TEXT("Door"), TEXT("Open"));
	UClass* const Class = Blueprint->GeneratedClass.Get();
	UK2Node_CallFunction* const Call = AddCall(Blueprint.EventGraph(), TEXT("Open"));
	UK2Node_CreateDelegate* const Bind = Blueprint.EventGraph().Add<UK2Node_CreateDelegate>();
	Bind->SetFunction(TEXT("Open"));
	const FOther User(TEXT("BP_User"), FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor")));
	UK2Node_CallFunction* const Foreign = AddCall(User.EventGraph(), TEXT("Open"), Class);
	const FOther Child(TEXT("BP_Child"), Class);
	UEdGraph* const Override = FUtils::CreateNewGraph(
		Child.Get(), TEXT("Open"), UEdGraph::StaticClass(), FSchema::StaticClass());
	FUtils::AddFunctionGraph(Child.Get(), Override, false, Class);
	UK2Node_CallFunction* const Alike = AddCall(Blueprint.EventGraph(), TEXT("PrintString"),
		FindObject<UClass>(nullptr, TEXT("/Script/Engine.KismetSystemLibrary")));

	FUtils::RenameGraph(Graph, TEXT("Unlock"));

	for (const UK2Node_CallFunction* const Node : {Call, Foreign})
	{
		EXPECT_EQ(Node->FunctionReference.GetMemberName(), FName(TEXT("Unlock"))) << ToStd(Node->GetPathName());
		EXPECT_NE(Node->GetTargetFunction(), nullptr) << ToStd(Node->GetPathName());
		EXPECT_NE(Node->FindPin(TEXT("Width")), nullptr) << ToStd(Node->GetPathName());
	}
	EXPECT_EQ(Bind->GetFunctionName(), FName(TEXT("Unlock")));
	EXPECT_EQ(FUtils::GetBlueprintVariableRepNotifyFunc(Blueprint.Get(), TEXT("Door")), FName(TEXT("Unlock")));
	EXPECT_EQ(ToStd(Override->GetName()), "Unlock");
	EXPECT_EQ(FUtils::GetEntryNode(Override)->FindSignatureFunction(), Class->FindFunctionByName(TEXT("Unlock")));
	EXPECT_EQ(Alike->FunctionReference.GetMemberName(), FName(TEXT("PrintString")));
	EXPECT_THAT(FindInconsistencies(*User.Get()), IsEmpty());
	EXPECT_THAT(FindInconsistencies(*Child.Get()), IsEmpty());
	EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty());
	EXPECT_EQ(ReadBlueprintFile(Blueprint).find("\"Open\""), std::string::npos);
}

TEST(BlueprintGraphs, CallsFollowARenamedCustomEvent)
{
	FBlueprintBuilder Blueprint;
	UK2Node_CustomEvent* const Event = Add<UK2Node_CustomEvent>(
		Blueprint.EventGraph(), [](UK2Node_CustomEvent& Node) { Node.CustomFunctionName = TEXT("Ring"); });
	FUtils::MarkBlueprintAsStructurallyModified(Blueprint.Get());
	UK2Node_CallFunction* const Call = AddCall(Blueprint.EventGraph(), TEXT("Ring"));
	Event->OnRenameNode(TEXT("Knock"));
	EXPECT_EQ(Call->FunctionReference.GetMemberName(), FName(TEXT("Knock")));
	EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty());
}

TEST(BlueprintGraphs, NodesFindWhatWasRenamedWhileTheyWereNotInMemory)
{
	FBlueprintBuilder Blueprint;
	const FOther Owner(TEXT("BP_Owner"), FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor")));
	ASSERT_TRUE(FUtils::AddMemberVariable(Owner.Get(), TEXT("Door"), FBlueprintBuilder::Type(FSchema::PC_Boolean)));
	UEdGraph* const Function = AddFunction(Owner.Get(), TEXT("Open")).Get();
	FUtils::EnsureSkeletonIsUpToDate(Owner.Get());
	Add<UK2Node_VariableGet>(Blueprint.EventGraph(),
		[&Owner](UK2Node_VariableGet& Node)
		{ Node.VariableReference.SetFromField(Owner.Class()->FindPropertyByName(TEXT("Door")), false); });
	Add<UK2Node_CallFunction>(Blueprint.EventGraph(),
		[&Owner](UK2Node_CallFunction& Node)
		{ Node.FunctionReference.SetFromField<UFunction>(Owner.Class()->FindFunctionByName(TEXT("Open")), false); });
	ASSERT_TRUE(Blueprint.Save());
	// Behind the back of those who refer to them, as if they were not there.
	Owner->NewVariables[0].VarName = TEXT("Gate");
	ASSERT_TRUE(Function->Rename(TEXT("Unlock"), nullptr));
	FUtils::GetEntryNode(Function)->FunctionReference.SetMemberName(TEXT("Unlock"));
	FUtils::MarkBlueprintAsStructurallyModified(Owner.Get());
	ASSERT_NE(Blueprint.Reload(), nullptr);
	EXPECT_THAT(FindInconsistencies(*Blueprint.Get()), IsEmpty());
	TArray<UK2Node_VariableGet*> Gets;
	FUtils::GetAllNodesOfClass(Blueprint.Get(), Gets);
	ASSERT_EQ(Gets.Num(), 1);
	EXPECT_EQ(Gets[0]->GetVarName(), FName(TEXT("Gate")));
}

TEST(BlueprintGraphs, ATakenGraphNameIsNotGiven)
{
	FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.Function(TEXT("Open")).Get();
	Blueprint.Function(TEXT("Close"));
	for (const TCHAR* const Taken : {TEXT("Close"), TEXT("close"), TEXT("EventGraph"), TEXT("")})
	{
		FUtils::RenameGraph(Graph, Taken);
		EXPECT_EQ(ToStd(Graph->GetName()), "Open") << ToStd(Taken);
	}
	FUtils::RenameGraph(Graph, TEXT("OPEN"));
	EXPECT_EQ(ToStd(Graph->GetName()), "OPEN");
	EXPECT_THAT(FindInconsistenciesAfterReload(Blueprint), IsEmpty());
}

TEST(BlueprintGraphs, DependentsAreThoseThatMentionTheClass)
{
	const FBlueprintBuilder Blueprint;
	UClass* const Class = Blueprint->GeneratedClass.Get();
	UClass* const Actor = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor"));
	const FOther Child(TEXT("BP_Child"), Class);
	const FOther ByVariable(TEXT("BP_ByVariable"), Actor);
	FUtils::AddMemberVariable(ByVariable.Get(), TEXT("Friend"), FBlueprintBuilder::Type(FSchema::PC_Object, Class));
	const FOther ByNode(TEXT("BP_ByNode"), Actor);
	AddAccess<UK2Node_VariableGet>(ByNode.EventGraph(), TEXT("Friend"), Class);
	const FOther Stranger(TEXT("BP_Stranger"), Actor);
	TArray<UBlueprint*> Dependents;
	FUtils::GetDependentBlueprints(Blueprint.Get(), Dependents);
	EXPECT_THAT(std::vector<UBlueprint*>(Dependents.GetData(), Dependents.GetData() + Dependents.Num()),
		testing::UnorderedElementsAre(Child.Get(), ByVariable.Get(), ByNode.Get()));
}
