#include "EdGraph/EdGraph.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_VariableGet.h"
#include "Structuring.h"
#include "UObject/Script.h"

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace StructureVariablesTest
{
static UEdGraph* FindFunction(const FStructuring& Case, const TCHAR* Name)
{
	for (UEdGraph* const Graph : Case.Blueprint->FunctionGraphs)
	{
		if (Graph->GetFName() == Name)
		{
			return Graph;
		}
	}
	return nullptr;
}

struct FDefaultCase
{
	const char* Label;
	const char* Type;
	const char* Json;
	const char* Expected;
};

/** What the class default is after a variable of the type was made with the value, here and in what is read again. */
const FDefaultCase Defaults[] = {
	{"bool", R"({"category":"bool"})", "true", "True"},
	{"bool as a word", R"({"category":"bool"})", R"("yes")", "True"},
	{"bool as 1", R"({"category":"bool"})", "1", "True"},
	{"int", R"({"category":"int"})", "-5", "-5"},
	{"int as text", R"({"category":"int"})", R"(" 7 ")", "7"},
	{"int64 beyond doubles", R"({"category":"int64"})", R"("9007199254740993")", "9007199254740993"},
	{"byte", R"({"category":"byte"})", "255", "255"},
	{"float", R"({"category":"float"})", "0.25", "0.250000"},
	{"double", R"({"category":"double"})", R"("1e3")", "1000.000000"},
	{"name", R"({"category":"name"})", R"("North")", "North"},
	{"string", R"({"category":"string"})", R"("say \"hi\"")", "say \"hi\""},
	{"string of a number", R"({"category":"string"})", "5", "5"},
	{"string of a fraction", R"({"category":"string"})", "0.5", "0.5"},
	{"text", R"({"category":"text"})", R"("Welcome")", "Welcome"},
	{"enum", R"({"category":"byte","sub_category_object":"EMovementMode"})", R"("MOVE_Falling")", "MOVE_Falling"},
	{"enum by shown name", R"({"category":"byte","sub_category_object":"EMovementMode"})", R"("Falling")",
		"MOVE_Falling"},
	{"enum by number", R"({"category":"byte","sub_category_object":"EMovementMode"})", "3", "MOVE_Falling"},
	{"vector as object", R"({"category":"vector"})", R"({"x":1,"Y":"2","z":3.5})",
		"(X=1.000000,Y=2.000000,Z=3.500000)"},
	{"vector as text", R"({"category":"vector"})", R"j("(X=1,Z=3)")j", "(X=1.000000,Y=0.000000,Z=3.000000)"},
	{"vector as printed", R"({"category":"vector"})", R"("X=1 Y=2 Z=3")", "(X=1.000000,Y=2.000000,Z=3.000000)"},
	{"vector as numbers", R"({"category":"vector"})", R"("1, 2, 3")", "(X=1.000000,Y=2.000000,Z=3.000000)"},
	{"vector as list", R"({"category":"vector"})", "[1,2,3]", "(X=1.000000,Y=2.000000,Z=3.000000)"},
	{"rotator", R"({"category":"rotator"})", R"({"yaw":90})", "(Pitch=0.000000,Yaw=90.000000,Roll=0.000000)"},
	{"transform", R"({"category":"transform"})", R"({"location":[1,2,3],"rotation":{"yaw":180},"scale":"2,2,2"})",
		"(Rotation=(X=0.000000,Y=0.000000,Z=1.000000,W=0.000000),Translation=(X=1.000000,Y=2.000000,Z=3.000000),"
		"Scale3D=(X=2.000000,Y=2.000000,Z=2.000000))"},
	{"transform as text", R"({"category":"transform"})", R"("1,2,3|0,0,0|1,1,1")",
		"(Rotation=(X=0.000000,Y=0.000000,Z=0.000000,W=1.000000),Translation=(X=1.000000,Y=2.000000,Z=3.000000),"
		"Scale3D=(X=1.000000,Y=1.000000,Z=1.000000))"},
	{"colour", R"({"category":"LinearColor"})", R"({"R":1,"G":0.5,"B":0})",
		"(R=1.000000,G=0.500000,B=0.000000,A=1.000000)"},
	{"colour in hex", R"({"category":"struct","sub_category_object":"Color"})", R"("#FF8000")",
		"(B=0,G=128,R=255,A=255)"},
	{"class", R"({"category":"class","sub_category_object":"Actor"})", R"("Pawn")",
		"/Script/CoreUObject.Class'/Script/Engine.Pawn'"},
	{"soft class", R"({"category":"softclass","sub_category_object":"Actor"})", R"("Character")",
		"/Script/Engine.Character"},
	{"soft object", R"({"category":"softobject","sub_category_object":"StaticMesh"})", R"("/Game/M/SM_A.SM_A")",
		"/Game/M/SM_A.SM_A"},
	{"no object", R"({"category":"object","sub_category_object":"Actor"})", "null", "None"},
	{"array", R"({"category":"int","container_type":"array"})", R"([1,"2",3])", "(1,2,3)"},
	{"array as text", R"({"category":"int","container_type":"array"})", R"j("(1,2)")j", "(1,2)"},
	{"empty array", R"({"category":"int","container_type":"array"})", "[]", ""},
	{"set", R"({"category":"string","container_type":"set"})", R"(["a","b","a"])", R"(("a","b"))"},
	{"map", R"({"category":"name","container_type":"map","value_type":{"category":"int"}})", R"({"a":1,"b":"2"})",
		R"((("a", 1),("b", 2)))"},
	{"map by pairs", R"({"category":"int","container_type":"map","value_type":{"category":"bool"}})",
		R"([{"key":1,"value":true}])", "((1, True))"},
	{"struct", R"({"category":"struct","sub_category_object":"GameplayTag"})", R"({"tag_name":"A.B"})",
		R"j((TagName="A.B"))j"},
	{"tag as text", R"({"category":"struct","sub_category_object":"GameplayTag"})", R"("A.B")", R"j((TagName="A.B"))j"},
};
} // namespace StructureVariablesTest

using namespace StructureVariablesTest;

TEST(StructureVariables, DefaultsOfEveryCategory)
{
	FStructuring Case;
	std::string Entries;
	int32 Number = 0;
	for (const FDefaultCase& Row : Defaults)
	{
		Entries += (Number > 0 ? "," : "") + std::string("\"V") + std::to_string(Number)
			+ R"(":{"action":"add","type":)" + Row.Type + R"(,"default_variable_value":)" + Row.Json + "}";
		++Number;
	}
	Case.Variables(Entries);
	EXPECT_THAT(Case.Told(), IsEmpty());
	EXPECT_THAT(Case.Refused(), IsEmpty());
	for (const bool bReloaded : {false, true})
	{
		if (bReloaded)
		{
			EXPECT_THAT(Case.Faults(), IsEmpty());
		}
		Number = 0;
		for (const FDefaultCase& Row : Defaults)
		{
			const FString Name = FString::Printf(TEXT("V%d"), Number++);
			EXPECT_EQ(Case.Default(*Name), Row.Expected) << Row.Label << (bReloaded ? " read again" : "");
		}
	}
}

TEST(StructureVariables, ADefaultThatIsNoValueIsNamedAndLeavesTheOldOne)
{
	struct FRow
	{
		const char* Type;
		const char* Good;
		const char* Bad;
		const char* Told;
	};
	for (const FRow& Row : {FRow{R"({"category":"int"})", "5", R"("abc")", "'abc' is not a valid Integer"},
			 FRow{R"({"category":"int"})", "5", "3000000000", "3000000000 is not a valid Integer"},
			 FRow{R"({"category":"int"})", "5", "1.5", "1.5 is not a valid Integer"},
			 FRow{R"({"category":"byte"})", "5", "256", "256 is not a valid Byte"},
			 FRow{R"({"category":"bool"})", "true", R"("maybe")", "'maybe' is not a valid Boolean"},
			 FRow{R"({"category":"string"})", R"("x")", R"({"a":1})", R"({"a":1} is not a valid String)"},
			 FRow{R"({"category":"vector"})", "[1,2,3]", R"({"x":1,"q":2})", "Vector has no member 'q'"},
			 FRow{R"({"category":"vector"})", "[1,2,3]", "[1,2]", "Vector does not have 2 numbers"},
			 FRow{R"({"category":"int","container_type":"array"})", "[1]", R"([1,"x"])", "'x' is not a valid Integer"},
			 FRow{R"({"category":"int","container_type":"array"})", "[1]", "5", "5 is not a valid Array of Integers"},
			 FRow{R"({"category":"byte","sub_category_object":"EMovementMode"})", "1", R"("Hopping")",
				 "is not an entry of the enum EMovementMode"},
			 FRow{R"({"category":"class","sub_category_object":"Pawn"})", R"("Pawn")", R"("StaticMesh")",
				 "'StaticMesh'"},
			 FRow{R"({"category":"softobject","sub_category_object":"Actor"})", R"("/Game/A.A")", R"("nowhere")",
				 "'nowhere' is not a valid"}})
	{
		FStructuring Case;
		const std::string Type = Row.Type;
		Case.Variables(R"("V":{"action":"add","type":)" + Type + R"(,"default_variable_value":)" + Row.Good + "}");
		const std::string Before = Case.Default(TEXT("V"));
		ASSERT_NE(Before, "none") << Row.Type;
		Case.Variables(std::string(R"("V":{"default_variable_value":)") + Row.Bad + "}");
		EXPECT_EQ(Case.Default(TEXT("V")), Before) << Row.Bad;
		EXPECT_THAT(Case.Told(),
			ElementsAre("Could not directly set property value for 'V', falling back to variable description update.",
				AllOf(
					StartsWith("The default_variable_value of variable 'V' was left as it is: "), HasSubstr(Row.Told)),
				"Some class structure modifications failed in Blueprint: BP_Test"))
			<< Row.Type << Row.Bad;
		EXPECT_THAT(Case.Faults(), IsEmpty()) << Row.Type;
	}
}

TEST(StructureVariables, FlagsAndMetadataAgree)
{
	FStructuring Case;
	Case.Variables(R"("All":{"action":"add","type":"int","category":"Stats|Life","tooltip":"How much",
		"replication":"REPLICATED","instance_editable":"true","expose_on_spawn":true,"blueprint_read_only":true,
		"save_game":1,"config":true},
		"Hidden":{"action":"add","type":{"category":"int"},"private":true})");
	EXPECT_THAT(Case.Told(), IsEmpty());
	const FBPVariableDescription* All = Case.Variable(TEXT("All"));
	ASSERT_NE(All, nullptr);
	EXPECT_EQ(All->PropertyFlags & 0x1000000000000, 0x1000000000000u);
	EXPECT_EQ(All->PropertyFlags & 0x1000000, 0x1000000u);
	EXPECT_EQ(All->PropertyFlags & 0x4000, 0x4000u);
	EXPECT_EQ(All->PropertyFlags & 0x100000020, 0x20u);
	EXPECT_EQ(All->PropertyFlags & CPF_DisableEditOnInstance, 0u);
	EXPECT_NE(All->PropertyFlags & CPF_BlueprintReadOnly, 0u);
	EXPECT_EQ(All->Category.ToString(), TEXT("Stats|Life"));
	EXPECT_EQ(All->GetMetaData(TEXT("Tooltip")), TEXT("How much"));
	EXPECT_EQ(All->GetMetaData(FBlueprintMetadata::MD_ExposeOnSpawn), TEXT("true"));
	const FBPVariableDescription* const Hidden = Case.Variable(TEXT("Hidden"));
	EXPECT_EQ(Hidden->PropertyFlags & 0x10000, 0x10000u);
	EXPECT_EQ(Hidden->GetMetaData(FBlueprintMetadata::MD_Private), TEXT("true"));

	// Off again, and what shares a flag with it stays as it was asked for.
	Case.Variables(R"("All":{"expose_on_spawn":false,"config":"false","save_game":0,"replication":"none",
		"private":true,"instance_editable":true},"Hidden":{"private":false})");
	All = Case.Variable(TEXT("All"));
	EXPECT_EQ(All->PropertyFlags & (0x1000000000000 | 0x1000000 | 0x4000 | 0x20 | 0x10000), 0u);
	EXPECT_FALSE(All->HasMetaData(FBlueprintMetadata::MD_ExposeOnSpawn));
	EXPECT_TRUE(All->HasMetaData(FBlueprintMetadata::MD_Private));
	EXPECT_EQ(Case.Variable(TEXT("Hidden"))->PropertyFlags & 0x10000, 0x10000u) << "public is not open to instances";
	EXPECT_FALSE(Case.Variable(TEXT("Hidden"))->HasMetaData(FBlueprintMetadata::MD_Private));
	EXPECT_THAT(Case.Faults(), IsEmpty());
}

TEST(StructureVariables, RefusedEntriesAreToldAndTheOthersAreDone)
{
	FStructuring Case;
	Case.Blueprint.Function(TEXT("Fire"));
	Case.Variables(R"("NoType":{"action":"add"},"BadType":{"action":"add","type":{"category":"nonsense"}},
		"Exec":{"action":"add","type":{"category":"exec"}},"Widget":{"action":"add",
			"type":{"category":"object","sub_category_object":"/Script/UMG.TextBlock"}},
		"Dispatcher":{"action":"add","type":{"category":"mcdelegate"}},
		"Flags":{"action":"add","type":{"category":"bool","container_type":"set"}},
		"Missing":{"tooltip":"x"},"Gone":{"action":"remove"},"Odd":{"action":"explode"},"Number":5,
		"None":{"action":"add","type":"int"},"":{"action":"add","type":"int"},"a.b":{"action":"add","type":"int"},
		")"
		+ std::string(1000, 'x') + R"(":{"action":"add","type":"int"},"DefaultSceneRoot":{"tooltip":"x"},
		"My Good Name":{"action":"add","type":"int","defualt_variable_value":3},"MyGoodName":{"action":"add","type":"int"},
		"Fire":{"action":"add","type":"int"})");
	EXPECT_THAT(Case.Told(),
		ElementsAre("Variable 'NoType' with Add action is missing Type information",
			"Invalid variable type for variable: BadType", "Invalid variable type for variable: Exec",
			"Variable 'Widget' is a widget type and must use ui_modify_widget_bp",
			StartsWith("Invalid variable type for variable: Dispatcher"),
			StartsWith("Invalid variable type for variable: Flags"), "Variable 'Missing' not found for modification",
			"Unknown action 'explode' of variable 'Odd'; use add, modify or remove",
			"Invalid JSON format for variable: Number", StartsWith("'DefaultSceneRoot' is a component"),
			StartsWith("Unknown key 'defualt_variable_value' of variable 'My Good Name' was ignored"),
			"Variable 'MyGoodName' already exists, cannot add",
			StartsWith("The name 'Fire' is taken by a function or graph"), "Variable 'Gone' not found for removal",
			"Some class structure modifications failed in Blueprint: BP_Test"));
	EXPECT_THAT(Case.Refused(),
		ElementsAre(EndsWith("for name 'None'"), "Variable name cannot be empty", EndsWith("for name 'a.b'"),
			StartsWith("Names must have fewer than 100 characters! for name 'xxx")));
	EXPECT_THAT(Case.Done(),
		ElementsAre("Created new variable: My Good Name", "Modified variable: My Good Name",
			"Created new variable: Fire_0", "Modified variable: Fire_0"));
	EXPECT_THAT(Case.Faults(), IsEmpty());
	EXPECT_EQ(Case.Blueprint->NewVariables.Num(), 2);
}

TEST(StructureVariables, InheritedPropertiesGetOnlyDefaults)
{
	FStructuring Case;
	Case.Variables(R"("Tags":{"default_variable_value":["a","b"]},"initial life span":{"default_variable_value":"2.5"},
		"bReplicates":{"tooltip":"x"},"NetPriority":{"default_variable_value":"high"},"RootComponent":
		{"default_variable_value":"None"},"Instigator":{"action":"remove"},"bHidden":{"action":"add","type":"bool"})");
	EXPECT_THAT(Case.Done(),
		ElementsAre("Modified inherited property value: Tags", "Modified inherited property value: InitialLifeSpan"));
	EXPECT_THAT(Case.Told(),
		ElementsAre(
			"Property 'bReplicates' is inherited. Only default values can be modified for inherited properties.",
			"Failed to modify inherited property value: NetPriority", HasSubstr("'high' is not a valid"),
			"Failed to modify inherited property value: RootComponent",
			HasSubstr("it holds a part of the object itself"), "Variable 'bHidden' already exists, cannot add",
			"Property 'Instigator' is inherited or native and cannot be removed from Blueprint",
			"Some class structure modifications failed in Blueprint: BP_Test"));
	EXPECT_THAT(Case.Faults(), IsEmpty());
	EXPECT_EQ(Case.Default(TEXT("Tags")), R"(("a","b"))") << "read again";
	EXPECT_EQ(Case.Default(TEXT("InitialLifeSpan")), "2.500000");
}

TEST(StructureVariables, NotifyFunctionComesFollowsAndGoes)
{
	FStructuring Case;
	Case.Variables(R"("Health":{"action":"add","type":"float","replication":"Rep_Notify"})");
	EXPECT_EQ(Case.Variable(TEXT("Health"))->PropertyFlags & 0x100000020, 0x100000020u);
	EXPECT_EQ(Case.Variable(TEXT("Health"))->RepNotifyFunc, TEXT("OnRep_Health"));
	UEdGraph* Graph = FindFunction(Case, TEXT("OnRep_Health"));
	ASSERT_NE(Graph, nullptr);
	const UK2Node_FunctionEntry* Entry = FBlueprintEditorUtils::GetEntryNode(Graph);
	EXPECT_EQ(Entry->MetaData.Category.ToString(), TEXT("RepNotify"));
	EXPECT_EQ(Entry->GetExtraFlags() & 0x1200040, 0x1200040);
	ASSERT_EQ(Entry->UserDefinedPins.Num(), 1);
	EXPECT_EQ(Entry->UserDefinedPins[0]->PinType, Case.Variable(TEXT("Health"))->VarType);
	TArray<UK2Node_FunctionResult*> Results;
	Graph->GetNodesOfClass(Results);
	EXPECT_EQ(Results.Num(), 1);
	EXPECT_EQ(Case.Result->GetModifications().Last().ReadTool, TEXT("read_blueprint_function"));

	Case.Variables(R"("Health":{"type":{"category":"string"}})");
	Entry = FBlueprintEditorUtils::GetEntryNode(FindFunction(Case, TEXT("OnRep_Health")));
	EXPECT_EQ(Entry->UserDefinedPins[0]->PinType.PinCategory, UEdGraphSchema_K2::PC_String);
	EXPECT_THAT(Case.Faults(), IsEmpty());

	Case.Variables(R"("Health":{"replication":"replicated"})");
	EXPECT_EQ(FindFunction(Case, TEXT("OnRep_Health")), nullptr) << "nobody put anything into it";
	EXPECT_TRUE(Case.Variable(TEXT("Health"))->RepNotifyFunc.IsNone());
	Case.Variables(R"("Health":{"replication":"rep_notify"})");
	ASSERT_NE(FindFunction(Case, TEXT("OnRep_Health")), nullptr) << "made again under the same name";
	Case.Nodes(R"({"node_guid":"p","class_name":"K2Node_CallFunction","target_class":"KismetSystemLibrary",
		"target_function":"PrintString"})",
		"OnRep_Health");
	Case.Variables(R"("Health":{"replication":"none"})");
	EXPECT_THAT(Case.Told(), ElementsAre(StartsWith("Function 'OnRep_Health' is no longer called")));
	EXPECT_NE(FindFunction(Case, TEXT("OnRep_Health")), nullptr);

	Case.Variables(R"("Health":{"action":"remove"})");
	EXPECT_THAT(Case.Done(), ElementsAre("Removed variable: Health"));
	EXPECT_EQ(FindFunction(Case, TEXT("OnRep_Health")), nullptr);
	EXPECT_THAT(Case.Faults(), IsEmpty());

	Case.Variables(
		R"("OnRep_R":{"action":"add","type":"int"},"R":{"action":"add","type":"int","replication":"rep_notify"})");
	EXPECT_THAT(Case.Told(), Contains(StartsWith("Variable 'R' cannot have a notify function of its name: ")));
	EXPECT_TRUE(Case.Variable(TEXT("R"))->RepNotifyFunc.IsNone());
	EXPECT_THAT(Case.Faults(), IsEmpty());

	Case.Variables(
		R"("M":{"action":"add","type":{"category":"int","container_type":"set"},"replication":"replicated"})");
	EXPECT_THAT(Case.Told(), Contains("Variable 'M' cannot be replicated: sets and maps are not"));
	EXPECT_EQ(Case.Variable(TEXT("M"))->PropertyFlags & CPF_Net, 0u);
}

TEST(StructureVariables, OneInUseStaysAndItsNodesAreNamed)
{
	FStructuring Case;
	Case.Variables(
		R"("Health":{"action":"add","type":"float","replication":"replicated"},"Free":{"action":"add","type":"int"})");
	Case.Nodes(R"({"node_guid":"g","class_name":"K2Node_VariableGet","node_metadata":{"variable_name":"Health"}},
		{"node_guid":"s","class_name":"K2Node_VariableSet","node_metadata":{"variable_name":"Health"}})");
	Case.Variables(R"("Health":{"action":"remove"},"free":{"action":"REMOVE"})");
	ASSERT_THAT(Case.Told(),
		ElementsAre(AllOf(StartsWith("Cannot remove variable 'Health' because it is being used by 2 node(s):\n"),
						HasSubstr("\n  - Get variable node in graph 'EventGraph' (NodeID: "),
						HasSubstr("\n  - Set variable node in graph 'EventGraph' (NodeID: "),
						HasSubstr("\nPlease remove all references to this variable before attempting to delete it.")),
			"Some class structure modifications failed in Blueprint: BP_Test"));
	EXPECT_NE(Case.Variable(TEXT("Health")), nullptr);
	EXPECT_EQ(Case.Variable(TEXT("Free")), nullptr);
	EXPECT_THAT(Case.Faults(), IsEmpty());
}

TEST(StructureVariables, OneInUseElsewhereGoesAndTheNodesThereAreNamed)
{
	FStructuring Case;
	Case.Change(
		R"("variables":{"Health":{"action":"add","type":"float"}},"components":[{"name":"Lamp","type":"PointLight"}],
		"delegates":[{"name":"OnIt"}])");
	RunTool(TEXT("bp_create_asset"),
		R"({"path":"/Game/Tests/BP_Kid","blueprint_parent_class":{"type":"blueprint",
		"parent_path":")"
			+ ToStd(Case.Blueprint.Path()) + R"("}})");
	RunTool(TEXT("bp_populate_graph"), R"({"path":"/Game/Tests/BP_Kid","graph_name":"EventGraph","nodes":[
		{"node_guid":"g","class_name":"K2Node_VariableGet","node_metadata":{"variable_name":"Health"}},
		{"node_guid":"l","class_name":"K2Node_VariableGet","node_metadata":{"variable_name":"Lamp"}},
		{"node_guid":"c","menu_title":"Call OnIt"}]})");
	for (const char* const Removal :
		{R"("variables":{"Health":{"action":"remove"}})", R"("components":[{"name":"Lamp","action":"remove"}])",
			R"("delegates":[{"name":"OnIt","action":"remove"}])"})
	{
		Case.Change(Removal);
		EXPECT_THAT(Case.Told(),
			ElementsAre(StartsWith(
				"1 node(s) of other Blueprints still refer to what was removed from 'BP_Test': /Game/Tests/BP_Kid: ")))
			<< Removal;
	}
}

TEST(StructureVariables, NodesFollowANewTypeAndLostLinksAreNamed)
{
	FStructuring Case;
	Case.Variables(R"("Text":{"action":"add","type":"string","default_variable_value":"abc"})");
	Case.Populate(
		R"("nodes":[{"node_guid":"g","class_name":"K2Node_VariableGet","node_metadata":{"variable_name":"Text"}},
		{"node_guid":"p","class_name":"K2Node_CallFunction","target_class":"KismetSystemLibrary",
			"target_function":"PrintString"},
		{"node_guid":"s","class_name":"K2Node_VariableSet","node_metadata":{"variable_name":"Text"},
			"pins":[{"action":"modify","name":"Text","value":"typed"}]}],
		"connections":[{"source_node_guid":"g","source_pin_name":"Text","target_node_guid":"p","target_pin_name":"InString"}])");
	Case.Variables(R"("Text":{"type":{"category":"vector"}})");
	EXPECT_THAT(Case.Told(),
		ElementsAre(AllOf(StartsWith("Variable 'Text' changed its type: the link between pin 'Text' of 'Get Text'"),
						HasSubstr("and pin 'InString' of 'Print String'"),
						HasSubstr("in graph 'EventGraph' no longer fits and was removed")),
			StartsWith("Variable 'Text' changed its type: the value 'typed' of pin 'Text'"),
			"Variable 'Text' changed its type: its default value 'abc' no longer fits and was removed"));
	TArray<UK2Node_VariableGet*> Gets;
	FBlueprintEditorUtils::GetAllNodesOfClass(Case.Blueprint.Get(), Gets);
	ASSERT_EQ(Gets.Num(), 1);
	EXPECT_EQ(Gets[0]->GetValuePin()->PinType.PinCategory, UEdGraphSchema_K2::PC_Struct);
	EXPECT_TRUE(Gets[0]->GetValuePin()->LinkedTo.IsEmpty());
	EXPECT_THAT(Case.Faults(), IsEmpty());
}

TEST(StructureVariables, ModifyWithoutChangeSaysSo)
{
	FStructuring Case;
	Case.Variables(R"("A":{"action":"add","type":"int","default_variable_value":5,"tooltip":"t"})");
	Case.Variables(R"("A":{})");
	const std::string Before = ReadBlueprintFile(Case.Blueprint);
	Case.Variables(R"("A":{"default_variable_value":"5","tooltip":"t","type":"int"},"a":{})");
	EXPECT_THAT(Case.Done(), ElementsAre("No changes made to variable: A", "No changes made to variable: A"));
	EXPECT_EQ(ReadBlueprintFile(Case.Blueprint), Before);
	// One thing alone is a change, each of them.
	const std::string Tracked =
		R"(read_blueprint_variable {"path":"/Game/Tests/BP_Test.BP_Test","variable_name":["A"]})";
	for (const char* const Change : {R"("category":"Stats")", R"("category":"STATS")", R"("tooltip":"T")",
			 R"("save_game":true)", R"("replication":"replicated")", R"("private":true)",
			 R"("default_variable_value":6)", R"("default_variable_value":5,"type":"int64")"})
	{
		Case.Variables(R"("a":{)" + std::string(Change) + "}");
		EXPECT_THAT(Case.Done(), ElementsAre("Modified variable: A")) << Change;
		EXPECT_THAT(Case.Tracked(), ElementsAre(Tracked)) << Change;
		Case.Variables(R"("a":{)" + std::string(Change) + "}");
		EXPECT_THAT(Case.Done(), ElementsAre("No changes made to variable: A")) << "the second time: " << Change;
		EXPECT_THAT(Case.Tracked(), IsEmpty()) << Change;
	}
	EXPECT_EQ(ToStd(Case.Variable(TEXT("A"))->Category.ToString()), "STATS");
	Case.Variables(R"("A":{"default_variable_value":""})");
	EXPECT_EQ(Case.Default(TEXT("A")), "5") << "no text is no number";
}

TEST(StructureVariables, MembersThatAreNotNamedKeepTheirValues)
{
	FStructuring Case;
	Case.Variables(R"("V":{"action":"add","type":"vector","default_variable_value":[1,2,3]})");
	Case.Variables(R"("V":{"default_variable_value":{"z":9}})");
	EXPECT_EQ(Case.Default(TEXT("V")), "(X=1.000000,Y=2.000000,Z=9.000000)");
	Case.Variables(R"("S":{"action":"add","type":"string","default_variable_value":"x"})");
	Case.Variables(R"("S":{"default_variable_value":""})");
	EXPECT_THAT(Case.Faults(), IsEmpty());
	EXPECT_EQ(Case.Default(TEXT("S")), "");
}

TEST(StructureVariables, OnlyBlueprintsOfClassesHaveThem)
{
	FStructuring Case(TEXT("/Script/Engine.BlueprintFunctionLibrary"));
	Case.Blueprint->BlueprintType = BPTYPE_FunctionLibrary;
	Case.Change(R"("variables":{"A":{"action":"add","type":"int"}},"timelines":[{"name":"T"}],
		"delegates":[{"name":"D"}],"components":[{"name":"C","type":"BoxComponent"}],
		"interfaces":[{"name":"GameplayTagAssetInterface"}])");
	EXPECT_THAT(Case.Refused(),
		ElementsAre(HasSubstr("cannot have variables"), "Blueprint does not have a SimpleConstructionScript.",
			HasSubstr("cannot implement interfaces"), HasSubstr("cannot have event dispatchers")));
	EXPECT_THAT(Case.Told(),
		ElementsAre(
			HasSubstr("can hold no timelines"), "Some class structure modifications failed in Blueprint: BP_Test"));
	EXPECT_TRUE(Case.Blueprint->NewVariables.IsEmpty());
	EXPECT_TRUE(Case.Blueprint->Timelines.IsEmpty());
}
