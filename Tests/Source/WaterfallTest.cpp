#include "BlueprintMatchingUtils.h"
#include "BlueprintUtils.h"
#include "EdGraphSchema_K2.h"
#include "GameFramework/Actor.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CallParentFunction.h"
#include "K2Node_CreateDelegate.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_IfThenElse.h"
#include "K2Node_MathExpression.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Populating.h"
#include "Spawning/ClassResolution.h"
#include "Spawning/DeterministicSpawn.h"
#include "Spawning/PostSpawnValidation.h"
#include "Spawning/SpawnWaterfall.h"
#include "UObject/Package.h"

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

namespace WaterfallTest
{
/** A menu entry that does what a test wants. */
struct FMadeUpAction : FEdGraphSchemaAction
{
	FMadeUpAction(const TCHAR* Title, TFunction<UEdGraphNode*(UEdGraph&)> InMake)
		: FEdGraphSchemaAction(FText(), FText::FromString(Title), FText(), 0)
		, Make(MoveTemp(InMake))
	{
	}
	UEdGraphNode* PerformAction(UEdGraph* Graph, UEdGraphPin*, const FVector2f&, bool) override
	{
		return Make ? Make(*Graph) : nullptr;
	}
	TFunction<UEdGraphNode*(UEdGraph&)> Make;
};

/** One request straight into the waterfall, with a menu of the test's own. */
struct FWaterfall
{
	FBlueprintBuilder Blueprint;
	Morvane::FToolResult Result = MakeResult();
	TSharedPtr<FSharedActionMenu> Menu = MakeShared<FSharedActionMenu>();
	FSpawnLookups Lookups;

	void Offer(const TCHAR* Title, TFunction<UEdGraphNode*(UEdGraph&)> Make = nullptr)
	{
		Menu->AddAction(MakeShared<FMadeUpAction>(Title, MoveTemp(Make)));
	}
	UEdGraphNode* Spawn(const FBPNodeModification& Record, UEdGraph* Graph = nullptr)
	{
		Result = MakeResult();
		return FBlueprintSpawnWaterfall::CreateNodeFromRecord(
			Graph ? Graph : Blueprint.EventGraph().Get(), Record, Blueprint.Get(), Menu, Result, Lookups, nullptr);
	}
	/** Offers one action that makes the node, asks for it, and answers what was reported. */
	std::vector<std::string> Refused(TFunction<UEdGraphNode*(UEdGraph&)> Make, FBPNodeModification Record = {})
	{
		Menu = MakeShared<FSharedActionMenu>();
		Offer(TEXT("Thing"), MoveTemp(Make));
		Record.MenuTitle = TEXT("Thing");
		const int32 NumBefore = Blueprint.EventGraph().Get()->Nodes.Num();
		EXPECT_EQ(Spawn(Record), nullptr);
		EXPECT_EQ(Blueprint.EventGraph().Get()->Nodes.Num(), NumBefore) << "a discarded node leaves nothing behind";
		return Warnings(Result);
	}
};

template <typename TNode>
UEdGraphNode* Make(UEdGraph& Graph, TFunction<void(TNode&)> Bind = nullptr)
{
	FGraphNodeCreator<TNode> Creator(Graph);
	TNode* const Node = Creator.CreateNode(false);
	if (Bind)
	{
		Bind(*Node);
	}
	Creator.Finalize();
	return Node;
}

static FBPNodeModification WithMetadata(std::initializer_list<std::pair<const TCHAR*, const TCHAR*>> Entries)
{
	FBPNodeModification Record;
	Record.NodeGuid = TEXT("n");
	for (const auto& [Key, Value] : Entries)
	{
		Record.Metadata.Add(Key, Value);
	}
	return Record;
}

static std::string VariableNode(const std::string& Class, const std::string& Metadata)
{
	return R"({"node_guid":"v","class_name":")" + Class + R"(","node_metadata":{)" + Metadata + "}}";
}
} // namespace WaterfallTest

using namespace WaterfallTest;

TEST(Waterfall, LabelsAreDecidedInOrder)
{
	FPopulating Case;
	Case.Nodes(R"({"menu_title":"Delay"},{"menu_title":"Delay","class_name":"K2Node_CallFunction"},
		{"menu_title":"Delay","class_name":"K2Node_CallFunction","menu_category":"No Such Category"},
		{"menu_title":"Delay","target_class":"KismetSystemLibrary"},
		{"menu_title":"Delay","node_metadata":{"spawn_method":"  mine "}},)"
		+ EventNode("e", "ReceiveTick") + "," + CallNode("d", "KismetSystemLibrary", "Delay"));
	EXPECT_EQ(Case.Told(TEXT("spawn_methods")),
		R"({"cam_global":2,"cam_global_with_class":1,"cam_filtered":1,"mine":1,"deterministic_event":1,"deterministic":1})");
	EXPECT_EQ(Case.Data(TEXT("nodes_created")), "7") << "a category and a class alone narrow nothing";
	EXPECT_EQ(Case.Telemetry()->GetArrayField(TEXT("node_creation_latency_ms")).Num(), 7);
}

TEST(Waterfall, ThresholdComesFromTheRequestWhereItIsOne)
{
	for (const auto& [Text, Expected] : {std::pair(TEXT("0.25"), 0.25f), {TEXT("0"), 0.0f}, {TEXT("1"), 1.0f},
			 {TEXT("1.5"), 0.6f}, {TEXT("-1"), 0.6f}, {TEXT("abc"), 0.0f}, {TEXT(""), 0.6f}})
	{
		EXPECT_EQ(FBlueprintSpawnWaterfall::GetMinimumConfidence(WithMetadata({{TEXT("minimum_confidence"), Text}})),
			Expected)
			<< ToStd(Text);
	}
	FPopulating Case;
	Case.Nodes(LooseNode("a", "Launch Nuclear Missile", R"("node_metadata":{"minimum_confidence":"abc"})"));
	EXPECT_EQ(Case.Data(TEXT("nodes_created")), "1") << "text that is no number accepts anything";
	Case.Nodes(LooseNode("a", "Print String", R"("node_metadata":{"minimum_confidence":"1.0"})"));
	EXPECT_EQ(Case.Data(TEXT("nodes_created")), "1") << "as much as the threshold is enough";
}

TEST(Waterfall, NoMatchIsToldWithWhatIsOnOffer)
{
	FPopulating Case;
	Case.Nodes(LooseNode("x", "Launch Nuclear Missile"));
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre(AllOf(HasSubstr("\nTop candidates:\n  1. '"), Not(HasSubstr("confidence: 0.00")))))
		<< "no chance hits";
	Case.Nodes(LooseNode("x", "Set Nuclear Missile Location"));
	ASSERT_THAT(Warnings(*Case.Result), SizeIs(1));
	const std::string Warning = Warnings(*Case.Result)[0];
	EXPECT_THAT(Warning,
		AllOf(StartsWith("[Failure] No confident fuzzy match for node 'Set Nuclear Missile Location' (best: '"),
			HasSubstr("threshold: 0.60). Suggestions are provided (not mandatory); consider deterministic spawning if "
					  "possible or refining the fuzzy request.\nTop candidates:\n  1. '"),
			HasSubstr("\n  20. '"), Not(HasSubstr("\n  21. '"))));
	EXPECT_THAT(Case.Failures(), ElementsAre(Warning));
	EXPECT_THAT(Case.Told(TEXT("candidate_matches")), StartsWith(R"([{"context":"x","candidates":[{"menu_title":)"));
	EXPECT_TRUE(Case.Result->WasSuccessful());

	FWaterfall Empty;
	EXPECT_EQ(Empty.Spawn(FBPNodeModification()), nullptr);
	EXPECT_THAT(
		Warnings(Empty.Result), ElementsAre(StartsWith("[Failure] Fuzzy matching found 0 matching candidates")));
	EXPECT_THAT(Telemetry(Empty.Result), HasSubstr(R"("candidate_matches":[{"candidates":[]}])"));
}

TEST(Waterfall, WhatAnActionFailsToMakeIsDescribed)
{
	FWaterfall Case;
	const std::vector<std::string> Told = Case.Refused(nullptr);
	ASSERT_THAT(Told, SizeIs(1));
	EXPECT_THAT(Told[0],
		AllOf(StartsWith("[Failure] PerformAction returned null when spawning node.\n  Requested Node: 'Thing' (class: "
						 ")\n  Matched Action: 'Thing' (class: )\n  Menu Category: ''\n  Confidence: 1.00\n  Target "
						 "Class: 'null'\n  Position: ("),
			HasSubstr("Graph: 'EventGraph'\n  Possible causes:")));
}

TEST(Waterfall, InternalFaultsAreErrorsAndNoValidationFailures)
{
	FWaterfall Case;
	Case.Menu = nullptr;
	EXPECT_EQ(Case.Spawn(FBPNodeModification()), nullptr);
	EXPECT_THAT(Errors(Case.Result), ElementsAre("SharedCAM is null - internal error"));
	EXPECT_THAT(Telemetry(Case.Result), Not(HasSubstr("validation_failures")));
	Morvane::FToolResult Result = MakeResult();
	EXPECT_EQ(FBlueprintSpawnWaterfall::CreateNodeFromRecord(
				  nullptr, FBPNodeModification(), Case.Blueprint.Get(), nullptr, Result, Case.Lookups, nullptr),
		nullptr);
	EXPECT_THAT(Errors(Result), ElementsAre("Invalid graph or blueprint"));
	EXPECT_EQ(Telemetry(Result), "null");
}

TEST(Waterfall, AnExactRequestThatIsWrongNeverBecomesSomethingSimilar)
{
	FPopulating Case;
	Case.Nodes(CallNode("f", "KismetSystemLibrary", "NoSuchFunction", R"("menu_title":"Print String")") + ","
		+ CallNode("c", "NoSuchClass", "PrintString", R"("menu_title":"Print String")")
		+ R"(,{"node_guid":"k","class_name":"K2Node_IfThenElse","target_class":"Actor","target_function":"X","menu_title":"Branch"})");
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre(
			"[Failure] Deterministic spawn unavailable for KismetSystemLibrary::NoSuchFunction (class or function - incorrect or not found).",
			"[Failure] Deterministic spawn unavailable for NoSuchClass::PrintString (class or function - incorrect or not found).",
			"[Failure] Deterministic spawn unavailable for Actor::X (class or function - incorrect or not found)."));
	EXPECT_THAT(Case.Failures(),
		Contains(
			"Deterministic spawn failed: Function 'NoSuchFunction' not found in class 'KismetSystemLibrary' (or overloads exist without menu_title). Returning failure to caller."));
	EXPECT_THAT(Case.Failures(),
		Contains(AllOf(StartsWith("Deterministic spawn failed: Class 'NoSuchClass' not found.\n  Node Type: "
								  "K2Node_CallFunction\n  Target Function: PrintString\n"),
			HasSubstr("    - NoSuchClass\n    - UNoSuchClass\n    - /Script/Engine.NoSuchClass\n"))));
	EXPECT_EQ(Case.Data(TEXT("nodes_created")), "0");
}

TEST(Waterfall, ExactRequestsTakeClassesAndFunctionsInAnySpelling)
{
	FPopulating Case;
	const struct
	{
		const char* Class;
		const char* Function;
		const char* Spawned;
	} Calls[] = {{"KismetSystemLibrary", "PrintString", "PrintString"},
		{"UKismetSystemLibrary", "printstring", "PrintString"},
		{"/Script/Engine.KismetSystemLibrary", "Print String", "PrintString"},
		{"AActor", "GetActorLocation", "K2_GetActorLocation"}, {"Actor", "K2_GetActorLocation", "K2_GetActorLocation"},
		{"Actor", "k2_getactorlocation", "K2_GetActorLocation"}, // shown without the prefix
		{"KismetMathLibrary", "ADD_INTINT", "Add_IntInt"}, // shown as a sign
		{"Button", "SetColorAndOpacity", "SetColorAndOpacity"}};
	for (const auto& [Class, Function, Spawned] : Calls)
	{
		Case.Nodes(CallNode("n", Class, Function));
		ASSERT_EQ(Case.Data(TEXT("nodes_created")), "1") << Class << "::" << Function;
		const UK2Node_CallFunction* const Node = Cast<UK2Node_CallFunction>(FBlueprintMatchingUtils::FindNodeByGuid(
			Case.Blueprint.EventGraph().Get(), UTF8_TO_TCHAR(Case.GuidOf("n").c_str())));
		ASSERT_TRUE(Node) << Class << "::" << Function;
		EXPECT_EQ(ToStd(Node->GetFunctionName().ToString()), Spawned) << Class << "::" << Function;
		EXPECT_EQ(
			Case.Told(UTF8_TO_TCHAR((std::string("class_resolution_method_") + Class).c_str())), "\"direct_path\"")
			<< Class;
	}
	Case.Nodes(
		R"({"node_guid":"c","class_name":"k2node_dynamiccast","target_class":"Character","target_function":"any"})");
	EXPECT_EQ(Case.Data(TEXT("nodes_created")), "1");
	const UK2Node_DynamicCast* const Cast = FPopulating::FindNode<UK2Node_DynamicCast>(
		Case.Blueprint.EventGraph().Get());
	ASSERT_TRUE(Cast);
	EXPECT_EQ(ToStd(Cast->TargetType->GetName()), "Character");
	Case.Nodes(R"({"node_guid":"o","class_name":"K2Node_PromotableOperator","target_class":"KismetMathLibrary",
		"target_function":"Add_IntInt","menu_title":"Add"})");
	EXPECT_EQ(Case.Data(TEXT("nodes_created")), "1");
}

TEST(Waterfall, AWireChoosesAmongNamesakesWhicheverEndIsNamedFirst)
{
	FPopulating Case;
	RunTool(Morvane::ToolInfo::ToolName_ModifyBlueprintClassStructure,
		R"({"path":")" + ToStd(Case.Blueprint.Path())
			+ R"(","components":[{"name":"Blast","type":"RadialForceComponent"}]})");
	const std::string Call = LooseNode("call", "Fire Impulse");
	const std::string ByTitle = LooseNode("get", "Get Blast");
	const std::string ByName =
		R"({"node_guid":"get","class_name":"K2Node_VariableGet","node_metadata":{"variable_name":"Blast"}})";
	for (const std::string& Nodes : {Call + "," + ByTitle, Call + "," + ByName, ByTitle + "," + Call})
	{
		Case.Populate(R"("nodes":[)" + Nodes
			+ R"(],"connections":[{"source_node_guid":"get","source_pin_name":"Blast","target_node_guid":"call","target_pin_name":"Target"}])");
		EXPECT_THAT(Warnings(*Case.Result), IsEmpty()) << Nodes;
		const UK2Node_CallFunction* const Node = Cast<UK2Node_CallFunction>(FBlueprintMatchingUtils::FindNodeByGuid(
			Case.Blueprint.EventGraph().Get(), UTF8_TO_TCHAR(Case.GuidOf("call").c_str())));
		ASSERT_TRUE(Node) << Nodes;
		EXPECT_EQ(ToStd(Node->GetTargetFunction()->GetOwnerClass()->GetName()), "RadialForceComponent") << Nodes;
	}
}

TEST(ClassResolution, NamesBecomeVariantsInOrder)
{
	const FPopulating Project;
	const auto Variants = [](const TCHAR* Text) { return ToStdList(ClassResolution::MakeVariants(Text)); };
	EXPECT_THAT(Variants(TEXT("PlayerController")),
		ElementsAre("PlayerController", "UPlayerController", "/Script/Engine.PlayerController",
			"/Script/GameplayAbilities.PlayerController", "/Script/UMG.PlayerController",
			"/Script/AIModule.PlayerController"));
	EXPECT_THAT(Variants(TEXT("Character")), Not(Contains("ACharacter")));
	EXPECT_THAT(Variants(TEXT("MyPawn")), Contains("AMyPawn"));
	EXPECT_THAT(Variants(TEXT("DoorActor")), Contains("ADoorActor"));
	EXPECT_THAT(Variants(TEXT("AActor")), AllOf(Contains("/Script/Engine.Actor"), Contains("UAActor")));
	EXPECT_THAT(Variants(TEXT("/Game/Foo/BP_Bar")), ElementsAre("/Game/Foo/BP_Bar", "/Game/Foo/BP_Bar_C"));
	EXPECT_THAT(Variants(TEXT("/game/Foo/BP_Bar.BP_Bar_C")), ElementsAre("/game/Foo/BP_Bar.BP_Bar_C"));
	EXPECT_THAT(Variants(TEXT("/Script/UMG.Button")), ElementsAre("/Script/UMG.Button"));

	TArray<FString> Twelve;
	for (int32 Index = 0; Index < 12; ++Index)
	{
		Twelve.Add(FString::FromInt(Index));
	}
	const std::string Text = ToStd(ClassResolution::DescribeVariants(Twelve));
	EXPECT_THAT(Text, AllOf(StartsWith("    - 0\n"), HasSubstr("    - 9\n    ... and 2 more variants")));
}

TEST(ClassResolution, BlueprintsAreFoundByNameUnlessTwoHaveIt)
{
	FPopulating Case;
	const auto MakeAt = [](const char* Path)
	{
		RunTool(TEXT("bp_populate_graph"),
			std::string(R"({"path":")") + Path + R"(","graph_name":"Open","nodes":[{"menu_title":"Delay until"}]})");
	};
	MakeAt("/Game/A/BP_Door");
	FString Error;
	EXPECT_EQ(ToStd(ClassResolution::ResolveBlueprintClassByName(TEXT("/Elsewhere/BP_Door_C"), Error)->GetName()),
		"BP_Door_C");
	Case.Nodes(CallNode("n", "BP_Door", "Open"));
	EXPECT_EQ(Case.Told(TEXT("class_resolution_method_BP_Door")), R"("asset_registry")");
	EXPECT_EQ(Case.Told(TEXT("asset_registry_lookups")), "1");
	EXPECT_EQ(Case.Data(TEXT("nodes_created")), "1") << testing::PrintToString(Case.Failures());
	Case.Nodes(CallNode("n", "/Game/A/BP_Door.BP_Door", "Open"));
	EXPECT_EQ(Case.Told(TEXT("class_resolution_method_/Game/A/BP_Door.BP_Door")), R"("blueprint_path")");

	MakeAt("/Game/B/BP_Door");
	Case.Nodes(CallNode("n", "BP_Door", "Open"));
	EXPECT_THAT(Case.Failures(),
		ElementsAre(
			"Ambiguous Blueprint name 'BP_Door'. Found 2 matches: /Game/A/BP_Door.BP_Door, /Game/B/BP_Door.BP_Door. Use full package path.",
			StartsWith("Deterministic spawn failed: Class 'BP_Door' not found."),
			StartsWith("[Failure] Deterministic spawn unavailable for BP_Door::Open")));
	EXPECT_THAT(Warnings(*Case.Result), SizeIs(1)) << "the reasons are for the telemetry";
	for (const TCHAR* const Name : {TEXT("/Game/A/BP_Door"), TEXT("/Game/B/BP_Door")})
	{
		FindPackage(nullptr, Name)->MarkAsGarbage();
	}
}

TEST(DeterministicSpawn, OfSeveralFunctionsTheTitleOrTheExactNameChooses)
{
	EditorModules::StartEditor();
	const UClass* const Library = FindObject<UClass>(nullptr, TEXT("/Script/Engine.KismetMathLibrary"));
	ASSERT_TRUE(Library);
	const auto Find = [Library](const TCHAR* Name, const TCHAR* Title)
	{
		UFunction* Function = nullptr;
		return FBlueprintDeterministicSpawn::FindFunctionWithOverloadHandling(Library, Name, Title, Function)
			? ToStd(Function->GetName())
			: std::string("none");
	};
	EXPECT_EQ(Find(TEXT("Clamp"), TEXT("Clamp (Integer)")), "Clamp");
	EXPECT_EQ(Find(TEXT("FClamp"), TEXT("")), "FClamp");
	EXPECT_EQ(Find(TEXT(""), TEXT("Clamp")), "none");
	EXPECT_EQ(Find(TEXT("NoSuch"), TEXT("Clamp")), "none");
	// Two functions are shown as "Normalize 2D"; one of them has the name, too.
	EXPECT_EQ(Find(TEXT("Normalize 2D"), TEXT("")), "none") << "neither title nor name chooses";
	EXPECT_EQ(Find(TEXT("normalize2d"), TEXT("")), "Normalize2D");
	EXPECT_EQ(Find(TEXT("Normalize 2D"), TEXT("Normal2D")), "Normal2D");
	EXPECT_EQ(Find(TEXT("Normalize 2D"), TEXT("nothing of the kind")), "none") << "equally bad is no choice";
	EXPECT_EQ(Find(TEXT("Normalize 2D"), TEXT("normalize it")), "none") << "equally good is none either";
	EXPECT_EQ(Find(TEXT("Normalize2D"), TEXT("nothing of the kind")), "Normalize2D");
	UFunction* Function = nullptr;
	EXPECT_FALSE(
		FBlueprintDeterministicSpawn::FindFunctionWithOverloadHandling(nullptr, TEXT("Clamp"), TEXT(""), Function));
	EXPECT_EQ(ToStd(FBlueprintDeterministicSpawn::DescribeSignature(*Library->FindFunctionByName(TEXT("RandomBool")))),
		"None");
	EXPECT_THAT(ToStd(FBlueprintDeterministicSpawn::DescribeSignature(*Library->FindFunctionByName(TEXT("FClamp")))),
		AllOf(HasSubstr(" Value, "), Not(HasSubstr("ReturnValue"))));
}

TEST(DeterministicSpawn, OverloadsWithoutATitleAreTold)
{
	FPopulating Case;
	const auto Told = [&Case](const char* Class, const char* Function, const std::string& More = "")
	{
		Case.Nodes(CallNode("n", Class, Function, More));
		EXPECT_EQ(Case.Data(TEXT("nodes_created")), "1") << Function;
		return Warnings(*Case.Result);
	};
	EXPECT_THAT(Told("KismetMathLibrary", "Normalize2D"),
		ElementsAre(
			"Overloaded function 'KismetMathLibrary::Normalize2D' spawned without menu_title. Consider adding menu_title for accuracy. Available: Normalize 2D, Normalize 2D"));
	EXPECT_THAT(Told("KismetMathLibrary", "Normalize2D", R"("menu_title":"Normal2D")"), IsEmpty());
	EXPECT_THAT(Told("KismetMathLibrary", "Normal2D"), IsEmpty()) << "nothing else is called so";
	// What a class overrides is one function, however often it is declared.
	EXPECT_THAT(Told("StaticMeshComponent", "SetMaterial"), IsEmpty());
	RunTool(TEXT("bp_create_asset"),
		R"({"path":"/Game/Tests/BP_Child","blueprint_parent_class":{"type":"blueprint","parent_path":"/Game/Tests/BP_Test"}})");
	for (const char* const Path : {"BP_Test", "BP_Child"})
	{
		RunTool(TEXT("bp_create_graph"),
			std::string(R"({"path":"/Game/Tests/)") + Path + R"(","functions":[{"name":"Heal"}]})");
	}
	EXPECT_THAT(Told("/Game/Tests/BP_Child", "Heal"), IsEmpty());
	FindPackage(nullptr, TEXT("/Game/Tests/BP_Child"))->MarkAsGarbage();
}

TEST(Waterfall, VariablesOfTheBlueprintAreChecked)
{
	FPopulating Case;
	Case.Blueprint.AddVariable(TEXT("Health"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int));
	Case.Nodes(R"({"node_guid":"v","class_name":"k2node_variableget","position":{"x":320,"y":-40},
		"node_metadata":{"variable_name":"Health","event_name":"Tick"}},)"
		+ VariableNode("K2Node_VariableSet", R"("variable_name":"Health")"));
	EXPECT_EQ(Case.Data(TEXT("nodes_created")), "2") << "a variable class goes before an event name";
	EXPECT_TRUE(FPopulating::FindNode<UK2Node_VariableGet>(Case.Blueprint.EventGraph().Get()));
	EXPECT_TRUE(FPopulating::FindNode<UK2Node_VariableSet>(Case.Blueprint.EventGraph().Get()));

	Case.Nodes(VariableNode("K2Node_VariableGet", R"("variable_name":"Nope")"));
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre(
			"[Failure] Variable 'Nope' does not exist in Blueprint. Create the variable first using bp_populate_graph before using it in bp_populate_graph."));
	Case.Nodes(VariableNode("K2Node_VariableGet", R"("variable_name":"Health","variable_source_class":"")"));
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre(
			"[Failure] Cross-object variable access requires ALL of: variable_source_class, property_owner_node_guid, owner_pin_name. Got: source_class=present, owner_guid=missing, owner_pin=missing. If you want a Blueprint-owned variable, omit all three fields."));
}

TEST(Waterfall, VariablesOfOtherObjectsNeedOwnerPinAndClass)
{
	FPopulating Case;
	const std::string Owner = CallNode("o", "GameplayStatics", "GetPlayerCharacter");
	const auto Get = [](const std::string& Guid, const std::string& Pin, const std::string& Class,
						 const std::string& Name = "CharacterMovement", const std::string& Node = "K2Node_VariableGet")
	{
		return VariableNode(Node,
			R"("variable_name":")" + Name + R"(","variable_source_class":")" + Class
				+ R"(","property_owner_node_guid":")" + Guid + R"(","owner_pin_name":")" + Pin + "\"");
	};
	const std::string Character = "/Script/Engine.Character";
	Case.Nodes(Owner + "," + Get("o", "ReturnValue", Character));
	EXPECT_EQ(Case.Data(TEXT("nodes_created")), "2") << testing::PrintToString(Warnings(*Case.Result));
	EXPECT_EQ(Case.Told(TEXT("cross_object_owner_resolution_v")), R"("session_map")");
	const UK2Node_VariableGet* const Node = FPopulating::FindNode<UK2Node_VariableGet>(
		Case.Blueprint.EventGraph().Get());
	ASSERT_TRUE(Node);
	EXPECT_EQ(Node->FindPin(TEXT("self"))->LinkedTo.Num(), 1);

	std::string Part = Case.GuidOf("o").substr(5, 6);
	std::transform(Part.begin(), Part.end(), Part.begin(), [](unsigned char Char) { return std::tolower(Char); });
	Case.Nodes(Get(Part, "ReturnValue", Character));
	EXPECT_EQ(Case.Told(TEXT("cross_object_owner_resolution_v")), R"("graph_nodes")");
	EXPECT_EQ(Case.Data(TEXT("nodes_created")), "1");

	const std::pair<std::string, std::string> Failures[] = {
		{Get("zz", "ReturnValue", Character),
			"[Failure] Owner node 'zz' not found in CreatedNodes session map or Graph->Nodes"},
		{Get(Part, "Nope", Character), "[Failure] Owner pin 'Nope' not found on node"},
		{Get(Part, "ReturnValue", Character, "Nope"),
			"[Failure] Cross-object variable get spawn returned null for variable 'Nope' on class '/Script/Engine.Character'"},
		{Get(Part, "ReturnValue", Character, "Nope", "K2Node_VariableSet"),
			"[Failure] Cross-object variable set spawn returned null for variable 'Nope' on class '/Script/Engine.Character'"},
		{Get(Part, "ReturnValue", "/Script/Foo.BP_Test"),
			"[Failure] Class '/Script/Foo.BP_Test' not found. Suggestion: Did you mean '/Game/Tests/BP_Test.BP_Test'?"},
		{Get(Part, "ReturnValue", "/Game/Foo/Character"),
			"[Failure] Class '/Game/Foo/Character' not found. Suggestion: Did you mean '/Script/Engine.Character'?"},
		{Get(Part, "ReturnValue", "/Game/Foo/Wibble"),
			"[Failure] Class '/Game/Foo/Wibble' not found. Note: Use '/Script/ModuleName.ClassName' for C++ classes or '/Game/Path/Blueprint' for Blueprint classes."},
	};
	for (const auto& [Request, Warning] : Failures)
	{
		Case.Nodes(Request);
		EXPECT_THAT(Warnings(*Case.Result), Contains(Warning));
		EXPECT_THAT(Case.Failures(), ElementsAre(Warning));
	}
	Case.Nodes(Get(Part, "ReturnValue", "/Game/Foo/Character"));
	EXPECT_EQ(Case.Told(TEXT("class_path_suggestion")), R"("/Script/Engine.Character")");
	EXPECT_EQ(Case.Told(TEXT("class_path_suggestion_context")),
		R"("Found C++ class 'Character' in module 'Engine' - use '/Script/' path instead")");
}

TEST(Waterfall, EventsAndParentCallsHaveRoadsOfTheirOwn)
{
	FPopulating Case;
	Case.Blueprint.Function(TEXT("Heal"));
	Case.Nodes(EventNode("e", "ReceiveTick"), "Heal");
	EXPECT_THAT(Warnings(*Case.Result), ElementsAre("Cannot create event nodes outside EventGraph 'Heal'"));
	EXPECT_THAT(Case.Failures(), IsEmpty());
	// The key alone asks for an event: nothing else is made where its name is missing.
	for (const char* const Request : {R"({"class_name":"K2Node_Event"})", R"({"class_name":"k2node_customevent"})",
			 R"({"menu_title":"Print String","node_metadata":{"event_name":""}})"})
	{
		Case.Nodes(Request);
		EXPECT_THAT(Case.Failures(), ElementsAre("[Failure] Event requests must include node_metadata.event_name"))
			<< Request;
		EXPECT_THAT(Errors(*Case.Result), ElementsAre("Event requests must include node_metadata.event_name"));
		EXPECT_THAT(Warnings(*Case.Result), IsEmpty()) << Request;
	}

	Case.Nodes(
		R"({"class_name":"K2Node_CallParentFunction","menu_title":"parent: ReceiveBeginPlay","position":{"x":700,"y":50}})");
	EXPECT_EQ(Case.Data(TEXT("nodes_created")), "1");
	const UK2Node_CallParentFunction* const Call = FPopulating::FindNode<UK2Node_CallParentFunction>(
		Case.Blueprint.EventGraph().Get());
	ASSERT_TRUE(Call);
	EXPECT_EQ(ToStd(Call->GetFunctionName().ToString()), "ReceiveBeginPlay");
	EXPECT_TRUE(Call->FindPin(TEXT("then")));
	Case.Nodes(
		R"({"class_name":"K2Node_CallParentFunction"},{"class_name":"K2Node_CallParentFunction","target_function":"Nope"})");
	EXPECT_THAT(Warnings(*Case.Result),
		ElementsAre(
			"[Failure] K2Node_CallParentFunction requires either target_function or menu_title with 'Parent: FunctionName' format",
			AllOf(StartsWith("[Failure] Function 'Nope' not found in parent class 'Actor'. Available functions: ["),
				HasSubstr("ReceiveTick"))));
	FWaterfall Orphan;
	Orphan.Blueprint->ParentClass = nullptr;
	FBPNodeModification Record;
	Record.ClassName = TEXT("K2Node_CallParentFunction");
	Record.TargetFunction = TEXT("ReceiveTick");
	EXPECT_EQ(Orphan.Spawn(Record), nullptr);
	EXPECT_THAT(Warnings(Orphan.Result),
		ElementsAre("[Failure] Blueprint has no parent class - cannot create parent function call"));
}

TEST(PostSpawn, ANodeOfAnotherClassThanAskedForStays)
{
	FPopulating Case;
	Case.Nodes(LooseNode("b", "Branch", R"("class_name":"K2Node_CallFunction")"));
	EXPECT_EQ(Case.Data(TEXT("nodes_created")), "1");
	EXPECT_TRUE(FPopulating::FindNode<UK2Node_IfThenElse>(Case.Blueprint.EventGraph().Get()));
}

TEST(PostSpawn, AMathExpressionIsTheTitle)
{
	FPopulating Case;
	Case.Nodes(LooseNode("m", "(a + b) * 2", R"("class_name":"K2Node_MathExpression")") + ","
		+ LooseNode("w", "a + * b)", R"("class_name":"MathExpression")"));
	EXPECT_EQ(Case.Data(TEXT("nodes_created")), "1") << testing::PrintToString(Warnings(*Case.Result));
	EXPECT_THAT(Warnings(*Case.Result), ElementsAre(StartsWith("[Failure] Invalid math expression 'a + * b)': ")));
	const UEdGraphNode* const Node = FPopulating::FindNode<UK2Node_MathExpression>(Case.Blueprint.EventGraph().Get());
	ASSERT_TRUE(Node);
	EXPECT_TRUE(Node->FindPin(TEXT("a")) && Node->FindPin(TEXT("b")));
}

TEST(PostSpawn, TheFunctionOfTheMetadataMustBeTheOneSpawned)
{
	FPopulating Case;
	Case.Nodes(LooseNode("a", "Print String", R"("node_metadata":{"target_function":"PrintText"})") + ","
		+ LooseNode("b", "Print String", R"("node_metadata":{"FunctionName":"PrintString"})") + ","
		+ LooseNode("c", "Branch", R"("node_metadata":{"FunctionName":"PrintString"})") + ","
		+ LooseNode("d", "Print String", R"("node_metadata":{"FunctionName":"printstring"})"));
	const auto Refusal = [](const std::string& Asked)
	{
		return "[Failure] Created function node 'Print String' but function '" + Asked
			+ "' was requested (spawned 'PrintString'). Suggestions are provided (not mandatory); consider deterministic spawning if possible or refining the fuzzy request.";
	};
	EXPECT_THAT(Warnings(*Case.Result), ElementsAre(Refusal("PrintText"), Refusal("printstring")))
		<< "case counts here";
	EXPECT_EQ(Case.Data(TEXT("nodes_created")), "2");
	EXPECT_EQ(Case.Telemetry()->GetArrayField(TEXT("candidate_matches")).Num(), 2);
}

TEST(PostSpawn, NodesThatMeanNothingAreDiscarded)
{
	FWaterfall Case;
	EXPECT_THAT(Case.Refused(
					[](UEdGraph& Graph)
					{
						return Make<UK2Node_CallFunction>(Graph,
							[](UK2Node_CallFunction& Node)
							{ Node.FunctionReference.SetExternalMember(TEXT("Gone"), AActor::StaticClass()); });
					}),
		ElementsAre(
			"[Failure] Function node validation failed: Function 'Gone' does not exist in class 'Actor' (fuzzy match may have selected wrong node)"));
	EXPECT_THAT(Case.Refused([](UEdGraph& Graph) { return Make<UK2Node_CallFunction>(Graph); }),
		ElementsAre(HasSubstr("does not exist in class 'Unknown'")));
	EXPECT_THAT(Case.Refused(
					[](UEdGraph& Graph)
					{
						return Make<UK2Node_Event>(Graph,
							[](UK2Node_Event& Node)
							{ Node.EventReference.SetExternalMember(TEXT("ReceiveGone"), AActor::StaticClass()); });
					}),
		ElementsAre(
			"[Failure] Event node validation failed: Event 'ReceiveGone' does not exist in Blueprint class (fuzzy match may have selected wrong node)"));
	EXPECT_THAT(Case.Refused([](UEdGraph& Graph) { return Make<UK2Node_DynamicCast>(Graph); }),
		ElementsAre(
			"[Failure] Cast node validation failed: Target class does not exist (fuzzy match may have selected wrong node)"));
	EXPECT_THAT(Case.Refused(
					[](UEdGraph& Graph)
					{
						return Make<UK2Node_VariableGet>(Graph,
							[](UK2Node_VariableGet& Node) { Node.VariableReference.SetSelfMember(TEXT("Nope")); });
					}),
		ElementsAre(StartsWith("[Failure] Variable 'Nope' does not exist in blueprint.")));
	EXPECT_THAT(Case.Refused(
					[](UEdGraph& Graph)
					{
						UK2Node_CustomEvent* const Node = Cast<UK2Node_CustomEvent>(Make<UK2Node_CustomEvent>(Graph));
						Node->CustomFunctionName = FName();
						return Node;
					}),
		ElementsAre("[Failure] Custom event node validation failed: Custom event has no name"));
}

TEST(PostSpawn, CustomEventsTakeTheirName)
{
	FWaterfall Case;
	Case.Offer(TEXT("Thing"),
		[](UEdGraph& Graph) {
			return Make<UK2Node_CustomEvent>(
				Graph, [](UK2Node_CustomEvent& Node) { Node.CustomFunctionName = TEXT("Old"); });
		});
	FBPNodeModification Record = WithMetadata({{TEXT("test_category"), TEXT("Enum_Comparison")}});
	Record.MenuTitle = TEXT("Thing");
	Record.PositionX = 900;
	Record.PositionY = 900;
	const UK2Node_CustomEvent* const Event = Cast<UK2Node_CustomEvent>(Case.Spawn(Record));
	ASSERT_TRUE(Event);
	EXPECT_NE(Event->NodePosX, 900) << "menu nodes go to the good place; layout moves them later";
	EXPECT_THAT(Telemetry(Case.Result), HasSubstr(R"("enum_comparison_attempts":1,"enum_comparison_failures":0)"));
}

TEST(PostSpawn, FunctionTerminatorsTakeThePinsOfTheRequest)
{
	FWaterfall Case;
	UEdGraph* const Function = Case.Blueprint.Function(TEXT("Heal")).Get();
	Case.Offer(TEXT("Result"), [](UEdGraph& Graph) { return Make<UK2Node_FunctionResult>(Graph); });
	const auto Request = [](const TCHAR* Name, const TCHAR* Category)
	{
		FBPNodeModification Record;
		Record.MenuTitle = TEXT("Result");
		FBPPinModification& Pin = Record.Pins.AddDefaulted_GetRef();
		Pin.Name = Name;
		Pin.Type = FBPPinType();
		Pin.Type->Category = Category;
		FBPPinModification& Ignored = Record.Pins.AddDefaulted_GetRef();
		Ignored.Name = TEXT("Other");
		Ignored.Action = EBPNodeAction::Modify;
		return Record;
	};
	const UEdGraphNode* const Node = Case.Spawn(Request(TEXT("Amount"), TEXT("float")), Function);
	ASSERT_TRUE(Node) << testing::PrintToString(Warnings(Case.Result));
	const UEdGraphPin* const Pin = Node->FindPin(TEXT("Amount"));
	ASSERT_TRUE(Pin);
	EXPECT_EQ(Pin->Direction, EGPD_Input);
	EXPECT_EQ(Pin->PinType.PinCategory, UEdGraphSchema_K2::PC_Real);
	EXPECT_FALSE(Node->FindPin(TEXT("Other")));
	EXPECT_EQ(Case.Spawn(Request(TEXT("execute"), TEXT("int")), Function), nullptr);
	EXPECT_THAT(Warnings(Case.Result),
		ElementsAre("[Failure] Function return value 'execute' has wrong type (expected int, got exec)"));
}

TEST(PostSpawn, DelegatesAreBoundOrKeptUnbound)
{
	FWaterfall Case;
	Case.Offer(TEXT("Create Event"), [](UEdGraph& Graph) { return Make<UK2Node_CreateDelegate>(Graph); });
	Make<UK2Node_CustomEvent>(*Case.Blueprint.EventGraph().Get(),
		[](UK2Node_CustomEvent& Event) { Event.CustomFunctionName = TEXT("Boom"); });
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Case.Blueprint.Get());
	FBPNodeModification Record = WithMetadata({{TEXT("binding_function"), TEXT("boom")}});
	Record.MenuTitle = TEXT("Create Event");
	const UK2Node_CreateDelegate* const Bound = Cast<UK2Node_CreateDelegate>(Case.Spawn(Record));
	ASSERT_TRUE(Bound);
	EXPECT_EQ(Bound->GetFunctionName(), FName(TEXT("Boom")));
	EXPECT_THAT(Telemetry(Case.Result), HasSubstr(R"("delegate_binding_n":"boom")"));

	Record.Metadata.Add(TEXT("binding_function"), TEXT("Nope"));
	EXPECT_TRUE(Case.Spawn(Record)) << "it can be bound later";
	EXPECT_THAT(Warnings(Case.Result),
		ElementsAre(AllOf(StartsWith("Available delegate-compatible functions in '"), HasSubstr("Boom"))));
	EXPECT_THAT(Telemetry(Case.Result),
		AllOf(HasSubstr("Could not find delegate-compatible function 'Nope' in scope class '"),
			HasSubstr(R"("delegate_binding_failures":[{"node_id":"n","requested_function":"Nope","scope_class":")"),
			HasSubstr(R"("reason":"function_not_found_or_incompatible"}])")));
}

TEST(PostSpawn, ANodeThatNeverCameIsToldByTheFirstCheckThatNeedsIt)
{
	FBlueprintBuilder Blueprint;
	const auto Check = [&Blueprint](const FBPNodeModification& Record)
	{
		Morvane::FToolResult Result = MakeResult();
		EXPECT_EQ(FPostSpawnValidation(*Blueprint.EventGraph().Get(), Record, *Blueprint.Get(), {}, FVector2D(0.0, 0.0),
					  TEXT(""), Result)
					  .Run(nullptr),
			nullptr);
		return Warnings(Result);
	};
	FBPNodeModification Record;
	EXPECT_THAT(Check(Record), IsEmpty());
	Record.Metadata.Add(TEXT("FunctionName"), TEXT("F"));
	EXPECT_THAT(Check(Record), ElementsAre("[Failure] Cannot validate function binding because node creation failed"));
	Record.Metadata.Add(TEXT("class_name"), TEXT("K2Node_CallFunction"));
	EXPECT_THAT(Check(Record), ElementsAre("[Failure] Cannot validate node class because node creation failed"));
}
