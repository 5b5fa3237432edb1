// What a Blueprint declares wrongly: members, ends of functions, macros, access across Blueprints.

#include "CompileFaults.h"
#include "CompileLog.h"
#include "CompileScene.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/TimelineTemplate.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_Timeline.h"
#include "K2Node_Tunnel.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "UObject/Package.h"

#include <gmock/gmock.h>

namespace CompilerDeclarationsTests
{
using FSchema = UEdGraphSchema_K2;

static UK2Node_FunctionEntry* EntryOf(UEdGraph* Graph)
{
	return FBlueprintEditorUtils::GetEntryNode(Graph);
}

static UK2Node_FunctionResult* AddResult(UEdGraph* Graph)
{
	FGraphNodeCreator<UK2Node_FunctionResult> Creator(*Graph);
	UK2Node_FunctionResult* const Result = Creator.CreateNode(false);
	Creator.Finalize();
	return Result;
}

static UEdGraph* AddMacro(const FBlueprintBuilder& Blueprint, const TCHAR* Name)
{
	UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
		Blueprint.Get(), Name, UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddMacroGraph(Blueprint.Get(), Graph, true, nullptr);
	return Graph;
}

static UK2Node_MacroInstance* UseMacro(UEdGraph* Graph, UEdGraph* Macro)
{
	FGraphNodeCreator<UK2Node_MacroInstance> Creator(*Graph);
	UK2Node_MacroInstance* const Node = Creator.CreateNode(false);
	Node->SetMacroGraph(Macro);
	Creator.Finalize();
	return Node;
}

static FBPVariableDescription& Variable(const FBlueprintBuilder& Blueprint, const TCHAR* Name)
{
	Blueprint.AddVariable(Name, FBlueprintBuilder::Type(FSchema::PC_Boolean));
	return Blueprint->NewVariables.Last();
}

/** A Blueprint that other ones derive from and call. */
class FOther
{
public:
	explicit FOther(UClass* Parent = nullptr)
		: Blueprint(FKismetEditorUtilities::CreateBlueprint(
			Parent ? Parent : FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor")),
			CreatePackage(TEXT("/Game/Tests/BP_Other")), TEXT("BP_Other"), BPTYPE_Normal))
	{
	}
	~FOther() { Blueprint->GetOutermost()->MarkAsGarbage(); }

	UEdGraph* AddFunction(const TCHAR* Name, int32 Access = FUNC_Public) const
	{
		UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
			Blueprint, Name, UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
		FBlueprintEditorUtils::AddFunctionGraph<UClass>(Blueprint, Graph, true, nullptr);
		UK2Node_FunctionEntry* const Entry = EntryOf(Graph);
		Entry->SetExtraFlags((Entry->GetExtraFlags() & ~FUNC_AccessSpecifiers) | Access);
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
		return Graph;
	}

	UBlueprint* const Blueprint;
};
} // namespace CompilerDeclarationsTests

using namespace CompilerDeclarationsTests;

const FFault DeclarationFaults[] = {
	{"ComponentNamedAsVariable",
		[](const FBlueprintBuilder& Blueprint)
		{
			Variable(Blueprint, TEXT("Lamp"));
			USCS_Node* const Node = Blueprint->SimpleConstructionScript->CreateNode(
				FindObject<UClass>(nullptr, TEXT("/Script/Engine.PointLightComponent")), TEXT("Light"));
			Blueprint->SimpleConstructionScript->AddNode(Node);
			Node->InternalVariableName = TEXT("Lamp");
		},
		{"error: The name 'Lamp' is used by a variable and by a component; every member of a Blueprint needs a name of its own"}},
	{"FunctionNamedAsVariableOfTheParent",
		[](const FBlueprintBuilder& Blueprint) { Blueprint.Function(TEXT("bReplicates")); },
		{"error: The function 'bReplicates' has the name of a variable of the parent class 'Actor': bReplicates {no node}"}},
	{"EventAndFunctionOfOneName",
		[](const FBlueprintBuilder& Blueprint)
		{
			FCompileScene Scene(Blueprint);
			Scene.Event("begin", TEXT("ReceiveBeginPlay"));
			Scene.Print("print");
			Scene.Wire({"begin.then > print.execute"});
			UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
				Blueprint.Get(), TEXT("ReceiveBeginPlay"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
			FBlueprintEditorUtils::AddFunctionGraph<UClass>(
				Blueprint.Get(), Graph, false, Blueprint->ParentClass.Get());
		},
		{"error: The name 'ReceiveBeginPlay' is used by a function and by an event; every member of a Blueprint needs a name of its own: Event BeginPlay {Event BeginPlay}"}},
	{"EventWithoutName",
		[](const FBlueprintBuilder& Blueprint)
		{ FCompileScene(Blueprint).CustomEvent("event", TEXT("x"))->CustomFunctionName = NAME_None; },
		{"error: The custom event None has no name {None}"}},
	{"NotifyFunctionMissing",
		[](const FBlueprintBuilder& Blueprint)
		{
			FBPVariableDescription& Open = Variable(Blueprint, TEXT("bOpen"));
			Open.PropertyFlags |= CPF_Net | CPF_RepNotify;
			Open.RepNotifyFunc = TEXT("OnRep_bOpen");
		},
		{"warning: The variable 'bOpen' is replicated with a notification, but its notify function 'OnRep_bOpen' does not exist"}},
	{"ExposedButNotEditable",
		[](const FBlueprintBuilder& Blueprint)
		{ Variable(Blueprint, TEXT("bOpen")).SetMetaData(FBlueprintMetadata::MD_ExposeOnSpawn, TEXT("true")); },
		{"warning: The variable 'bOpen' is exposed on spawn but not editable on instances; make it instance editable too"}},
	{"DispatcherWithoutSignature",
		[](const FBlueprintBuilder& Blueprint)
		{
			FBlueprintEditorUtils::AddMemberVariable(
				Blueprint.Get(), TEXT("OnOpened"), FBlueprintBuilder::Type(FSchema::PC_MCDelegate));
		},
		{"error: The event dispatcher 'OnOpened' has no signature"}},
	{"ComponentOfNoClass",
		[](const FBlueprintBuilder& Blueprint)
		{
			USCS_Node* const Node = Blueprint->SimpleConstructionScript->CreateNode(
				FindObject<UClass>(nullptr, TEXT("/Script/Engine.PointLightComponent")), TEXT("Light"));
			Blueprint->SimpleConstructionScript->AddNode(Node);
			Node->ComponentClass = nullptr;
		},
		{"error: The class of the component 'Light' is gone"}},
	{"ComponentOfAbstractClass",
		[](const FBlueprintBuilder& Blueprint)
		{
			USCS_Node* const Node = Blueprint->SimpleConstructionScript->CreateNode(
				FindObject<UClass>(nullptr, TEXT("/Script/Engine.PointLightComponent")), TEXT("Light"));
			Blueprint->SimpleConstructionScript->AddNode(Node);
			Node->ComponentClass = FindObject<UClass>(nullptr, TEXT("/Script/Engine.LightComponent"));
		},
		{"error: The component 'Light' is of the abstract class 'LightComponent', of which there can be no object; choose a class derived from it"}},
	{"NativeFunctionCannotBeOverridden",
		[](const FBlueprintBuilder& Blueprint) { Blueprint.Function(TEXT("K2_GetActorLocation")); },
		{"error: 'K2_GetActorLocation' is a function of 'Actor' that cannot be overridden; rename Get Actor Location {Get Actor Location}"}},
	{"OverrideWithOtherParameters",
		[](const FBlueprintBuilder& Blueprint)
		{
			EntryOf(Blueprint.Function(TEXT("ReceiveDestroyed")).Get())
				->CreateUserDefinedPin(TEXT("Why"), FBlueprintBuilder::Type(FSchema::PC_String), EGPD_Output);
		},
		{"error: Destroyed overrides a function of 'Actor', but its inputs and outputs are not those of the function there {Destroyed}"}},
	{"OverrideOfBeforeParametersWereAdded",
		[](const FBlueprintBuilder& Blueprint) { Blueprint.Function(TEXT("ReceiveTick")); },
		{"warning: Tick overrides a function of 'Actor' that has more parameters by now; the node gets them when it is refreshed {Tick}"}},
	{"ReturnNodesDiffer",
		[](const FBlueprintBuilder& Blueprint)
		{
			UEdGraph* const Graph = Blueprint.Function(TEXT("Measure")).Get();
			UK2Node_FunctionResult* const First = AddResult(Graph);
			UK2Node_FunctionResult* const Second = AddResult(Graph);
			FGraphBuilder::Link(EntryOf(Graph)->FindPin(TEXT("then")), First->FindPin(TEXT("execute")));
			First->UserDefinedPins.Empty();
			First->CreateUserDefinedPin(TEXT("Length"), FBlueprintBuilder::Type(FSchema::PC_Int), EGPD_Input);
			(void)Second;
		},
		{"error: Return Node and Return Node return different things; all return nodes of a function need the same pins {Return Node; Return Node}"}},
	{"InputAndOutputOfOneName",
		[](const FBlueprintBuilder& Blueprint)
		{
			UEdGraph* const Graph = Blueprint.Function(TEXT("Measure")).Get();
			UK2Node_FunctionResult* const Result = AddResult(Graph);
			FGraphBuilder::Link(EntryOf(Graph)->FindPin(TEXT("then")), Result->FindPin(TEXT("execute")));
			EntryOf(Graph)->CreateUserDefinedPin(TEXT("Length"), FBlueprintBuilder::Type(FSchema::PC_Int), EGPD_Output);
			Result->CreateUserDefinedPin(TEXT("Length"), FBlueprintBuilder::Type(FSchema::PC_Int), EGPD_Input);
		},
		{"warning: The function 'Measure' has an input and an output of one name, which its callers cannot tell apart: Length {Return Node.Length}"}},
	{"ReturnNodeNotReached",
		[](const FBlueprintBuilder& Blueprint)
		{
			for (const TCHAR* const Name : {TEXT("Unwritten"), TEXT("Given"), TEXT("Acting")})
			{
				FCompileScene Scene(Blueprint, Blueprint.Function(Name).Get());
				AddResult(Scene.Graph.Get())
					->CreateUserDefinedPin(Name, FBlueprintBuilder::Type(FSchema::PC_String), EGPD_Input);
				Scene.Nodes["result"] = Scene.Graph.Get()->Nodes.Last();
				Scene.Call("value", TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("GetGameName"));
				Scene.Print("print");
				if (FString(Name) == TEXT("Given"))
				{
					Scene.Wire({"value.ReturnValue > result.Given"});
				}
				if (FString(Name) == TEXT("Acting"))
				{
					Scene.Wire({"entry.then > print.execute"});
				}
				else
				{
					Scene["print"]->DestroyNode();
				}
			}
		},
		{"note: Return Node is never executed: nothing is connected to execute {Return Node; Return Node.execute}",
			"note: Return Node is never executed: nothing is connected to execute {Return Node; Return Node.execute}"}},
	{"ParameterOfMissingType",
		[](const FBlueprintBuilder& Blueprint)
		{
			EntryOf(Blueprint.Function(TEXT("Take")).Get())
				->CreateUserDefinedPin(TEXT("What"), FBlueprintBuilder::Type(FSchema::PC_Struct), EGPD_Output);
		},
		{"error: The parameter What of Take has an invalid type: Structure {Take.What; Take}"}},
	{"LocalVariableClashesAndIsOfNoType",
		[](const FBlueprintBuilder& Blueprint)
		{
			UEdGraph* const Graph = Blueprint.Function(TEXT("Take")).Get();
			EntryOf(Graph)->CreateUserDefinedPin(TEXT("What"), FBlueprintBuilder::Type(FSchema::PC_Int), EGPD_Output);
			for (const auto& [Name, Category, Default] : {std::tuple(TEXT("What"), FSchema::PC_Int, TEXT("")),
					 std::tuple(TEXT("Lost"), FSchema::PC_Struct, TEXT("")),
					 std::tuple(TEXT("Count"), FSchema::PC_Int, TEXT("many"))})
			{
				FBPVariableDescription Local;
				Local.VarName = Name;
				Local.VarType = FBlueprintBuilder::Type(Category);
				Local.DefaultValue = Default;
				EntryOf(Graph)->LocalVariables.Add(Local);
			}
		},
		{"error: The function Take has another local variable or parameter named 'What' {Take}",
			"error: The local variable 'Lost' of Take has an invalid type: Structure {Take}",
			"warning: The default value 'many' of the local variable 'Count' of Take is not a valid Integer {Take}"}},
	{"MacroInItself",
		[](const FBlueprintBuilder& Blueprint)
		{
			UEdGraph* const First = AddMacro(Blueprint, TEXT("First"));
			UEdGraph* const Second = AddMacro(Blueprint, TEXT("Second"));
			UseMacro(First, Second);
			UseMacro(Second, First);
		},
		{"error: The macro of Second uses itself, so it could be unfolded for ever {Second}",
			"error: The macro of First uses itself, so it could be unfolded for ever {First}"}},
	{"LatentActionInMacroInFunction",
		[](const FBlueprintBuilder& Blueprint)
		{
			UEdGraph* const Macro = AddMacro(Blueprint, TEXT("Wait"));
			FGraphBuilder(Macro).Call(TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("Delay"));
			UseMacro(Blueprint.Function(TEXT("Take")).Get(), Macro);
			UseMacro(Blueprint.EventGraph().Get(), Macro);
		},
		{"error: Wait holds a latent action, which can only be used in an event graph, not in a function {Wait}",
			"note: Delay is never executed: nothing is connected to execute {Delay; Delay.execute}"}},
	{"TimelineInFunction",
		[](const FBlueprintBuilder& Blueprint)
		{
			FBlueprintEditorUtils::AddNewTimeline(Blueprint.Get(), TEXT("Swing"));
			FCompileScene Scene(Blueprint, Blueprint.Function(TEXT("Take")).Get());
			Scene.Add<UK2Node_Timeline>("time", [](UK2Node_Timeline& Node) { Node.TimelineName = TEXT("Swing"); });
			Scene.Wire({"entry.then > time.Play"});
		},
		{"error: Swing can only stand in an event graph, not in a function or a macro {Swing}"}},
	{"ConstFunctionChangesItsObject",
		[](const FBlueprintBuilder& Blueprint)
		{
			Variable(Blueprint, TEXT("bOpen"));
			UEdGraph* const Graph = Blueprint.Function(TEXT("Peek")).Get();
			EntryOf(Graph)->AddExtraFlags(FUNC_Const);
			FCompileScene Scene(Blueprint, Graph);
			Scene.Set("set", TEXT("bOpen"));
			Scene.Wire({"entry.then > set.execute"});
		},
		{"error: Set Open changes a variable of the object in a const function, which promises not to {Set Open}"}},
};

INSTANTIATE_TEST_SUITE_P(Declarations, FCompileFault, testing::ValuesIn(DeclarationFaults), FaultName);

TEST(CompilerAccess, PrivateAndProtectedMembersAreKeptFromOthers)
{
	const FBlueprintBuilder Blueprint;
	const FOther Other;
	const std::pair<const TCHAR*, int32> Functions[] = {
		{TEXT("Shown"), FUNC_Public}, {TEXT("Kept"), FUNC_Protected}, {TEXT("Hidden"), FUNC_Private}};
	FCompileScene Scene(Blueprint);
	Scene.Event("begin", TEXT("ReceiveBeginPlay"));
	UEdGraphPin* Then = Scene.Pin("begin.then");
	for (const std::pair<const TCHAR*, int32>& Function : Functions)
	{
		Other.AddFunction(Function.first, Function.second);
		const std::string Id = ToStd(Function.first);
		Scene.Add<UK2Node_CallFunction>(Id,
			[&](UK2Node_CallFunction& Node)
			{ Node.FunctionReference.SetExternalMember(Function.first, Other.Blueprint->GeneratedClass); });
		FGraphBuilder::Link(Then, Scene.Pin(Id + ".execute"));
		Then = Scene.Pin(Id + ".then");
	}
	Scene.Add<UK2Node_VariableGet>(
		"other", [](UK2Node_VariableGet& Node) { Node.VariableReference.SetSelfMember(TEXT("Other")); });
	Blueprint.AddVariable(TEXT("Other"), FBlueprintBuilder::Type(FSchema::PC_Object, Other.Blueprint->GeneratedClass));
	Scene["other"]->ReconstructNode();
	Scene.Wire({"other.Other > Shown.self", "other.Other > Kept.self", "other.Other > Hidden.self"});
	EXPECT_THAT(CompileMessages(Blueprint.Get()),
		testing::ElementsAre(
			"error: The function of Kept is protected: only 'BP_Other_C' and classes derived from it may call it {Kept}",
			"error: The function of Hidden is private to 'BP_Other_C' {Hidden}"));
}

TEST(CompilerAccess, AChildMayUseWhatIsProtected)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Kept = Blueprint.Function(TEXT("Kept")).Get();
	EntryOf(Kept)->SetExtraFlags((EntryOf(Kept)->GetExtraFlags() & ~FUNC_AccessSpecifiers) | FUNC_Protected);
	Variable(Blueprint, TEXT("bSecret")).SetMetaData(FBlueprintMetadata::MD_Private, TEXT("true"));
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint.Get());
	ASSERT_THAT(CompileMessages(Blueprint.Get()), testing::IsEmpty());

	const FOther Child(Blueprint->GeneratedClass);
	FGraphBuilder Graph(FBlueprintEditorUtils::FindEventGraph(Child.Blueprint));
	UK2Node_CustomEvent* const Event = Graph.Add<UK2Node_CustomEvent>();
	Event->CustomFunctionName = TEXT("Go");
	FGraphNodeCreator<UK2Node_CallFunction> Calls(*Graph.Get());
	UK2Node_CallFunction* const Call = Calls.CreateNode(false);
	Call->FunctionReference.SetSelfMember(TEXT("Kept"));
	Calls.Finalize();
	FGraphBuilder::Then({Event}, {Call});
	EXPECT_THAT(CompileMessages(Child.Blueprint), testing::IsEmpty());
	FGraphNodeCreator<UK2Node_VariableGet> Gets(*Graph.Get());
	Gets.CreateNode(false)->VariableReference.SetSelfMember(TEXT("bSecret"));
	Gets.Finalize();
	EXPECT_THAT(CompileMessages(Child.Blueprint),
		testing::ElementsAre("error: The variable of Get Secret is private to 'BP_Test_C' {Get Secret}"));
}

TEST(CompilerInheritance, AChildSeesWhatItsParentDeclaresNow)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Take = Blueprint.Function(TEXT("Take")).Get();
	ASSERT_THAT(CompileMessages(Blueprint.Get()), testing::IsEmpty());
	const FOther Child(Blueprint->GeneratedClass);
	UEdGraph* const Override = FBlueprintEditorUtils::CreateNewGraph(
		Child.Blueprint, TEXT("Take"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddFunctionGraph(Child.Blueprint, Override, false, Blueprint->GeneratedClass.Get());
	EXPECT_THAT(CompileMessages(Child.Blueprint), testing::IsEmpty());

	EntryOf(Take)->CreateUserDefinedPin(TEXT("Words"), FBlueprintBuilder::Type(FSchema::PC_String), EGPD_Output);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint.Get());
	EXPECT_THAT(CompileMessages(Child.Blueprint), testing::IsEmpty()) << "the override follows";
	EXPECT_NE(EntryOf(Override)->FindPin(TEXT("Words")), nullptr);
	EXPECT_NE(Child.Blueprint->GeneratedClass->FindFunctionByName(TEXT("Take"), EIncludeSuperFlag::ExcludeSuper)
				  ->FindPropertyByName(TEXT("Words")),
		nullptr);
}

TEST(CompilerInheritance, EveryFunctionThatMayBeOverriddenCompiles)
{
	for (const TCHAR* const Parent :
		{TEXT("/Script/Engine.Actor"), TEXT("/Script/Engine.Character"), TEXT("/Script/Engine.PlayerController"),
			TEXT("/Script/Engine.GameModeBase"), TEXT("/Script/UMG.UserWidget"), TEXT("/Script/Engine.AnimInstance"),
			TEXT("/Script/AIModule.BTTask_BlueprintBase")})
	{
		const FBlueprintBuilder Blueprint(Parent);
		int32 Overrides = 0;
		for (TFieldIterator<UFunction> It(Blueprint->ParentClass.Get(), EFieldIteratorFlags::IncludeSuper); It; ++It)
		{
			const bool bThere = Blueprint->FunctionGraphs.ContainsByPredicate(
				[&It](const TObjectPtr<UEdGraph>& Graph) { return Graph->GetFName() == It->GetFName(); });
			if (bThere || !FSchema::CanKismetOverrideFunction(*It) || FSchema::FunctionCanBePlacedAsEvent(*It))
			{
				continue;
			}
			UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
				Blueprint.Get(), It->GetFName(), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
			FBlueprintEditorUtils::AddFunctionGraph(Blueprint.Get(), Graph, false, Blueprint->ParentClass.Get());
			++Overrides;
		}
		EXPECT_THAT(CompileMessages(Blueprint.Get()), testing::IsEmpty()) << ToStd(Parent) << ", " << Overrides;
	}
}
