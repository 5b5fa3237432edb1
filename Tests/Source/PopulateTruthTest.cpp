// What a populate call says it made is what stands in the graph.

#include "EdGraphSchema_K2.h"
#include "K2Node_CallFunction.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_GetDataTableRow.h"
#include "Populating.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace PopulateTruthTest
{
std::string ModifyPin(const std::string& Name, const std::string& Value)
{
	return R"({"action":"modify","name":")" + Name + R"(","value":")" + Value + "\"}";
}

std::string Pins(const std::string& List)
{
	return R"("pins":[)" + List + "]";
}

/** The event graph as the file holds it. */
UEdGraph* ReadBack(FPopulating& Run)
{
	UBlueprint* const Blueprint = Run.Blueprint.Reload();
	return Blueprint ? Blueprint->UbergraphPages[0].Get() : nullptr;
}
} // namespace PopulateTruthTest

using namespace PopulateTruthTest;

TEST(PopulateTruth, ACastToABlueprintNamesItsResultAsTheEditorDoes)
{
	FPopulating Run;
	RunTool(Morvane::ToolInfo::ToolName_BPCreateAsset,
		R"({"path":"/Game/Tests/MyMonsterBP","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Character"}})");
	Run.Populate(R"("nodes":[{"node_guid":"cast","class_name":"K2Node_DynamicCast","target_class":"MyMonsterBP",)"
				 R"("target_function":"any"},)"
		+ CallNode("destroy", "Actor", "K2_DestroyActor") + R"(],"connections":[)"
		+ Link("cast", "AsMy Monster BP", "destroy", "self") + "]");
	EXPECT_THAT(Warnings(*Run.Result), IsEmpty());
	const UEdGraph* const Graph = ReadBack(Run);
	ASSERT_NE(Graph, nullptr);
	const UEdGraphPin* const Cast = FPopulating::FindNode<UK2Node_DynamicCast>(Graph)->GetCastResultPin();
	EXPECT_EQ(ToStd(Cast->PinName.ToString()), "AsMy Monster BP");
	EXPECT_EQ(Cast->LinkedTo.Num(), 1);
}

TEST(PopulateTruth, AnOperatorKeepsTheOtherOperandsValueWhenALinkComes)
{
	const struct
	{
		const char* Function;
		const char* Value;
		const char* TypedIn;
		const char* Linked;
		const char* Source;
		const char* Bound;
	} Cases[] = {
		{"Multiply_VectorFloat", "1000", "B", "A", "GetActorForwardVector", "Multiply_VectorFloat"},
		{"Multiply_VectorInt", "3", "B", "A", "GetActorForwardVector", "Multiply_VectorInt"},
		{"Multiply_DoubleDouble", "0.5", "B", "A", "GetActorForwardVector", "Multiply_VectorFloat"},
		{"Add_VectorVector", "1, 2, 3", "A", "B", "GetActorForwardVector", "Add_VectorVector"},
		{"Greater_DoubleDouble", "5", "B", "A", "GetGameTimeSinceCreation", "Greater_DoubleDouble"},
	};
	for (const auto& Case : Cases)
	{
		FPopulating Run;
		Run.Populate(R"("nodes":[)"
			+ CallNode("op", "KismetMathLibrary", Case.Function, Pins(ModifyPin(Case.TypedIn, Case.Value))) + ","
			+ CallNode("source", "Actor", Case.Source) + R"(],"connections":[)"
			+ Link("source", "ReturnValue", "op", Case.Linked) + "]");
		EXPECT_THAT(Warnings(*Run.Result), IsEmpty()) << Case.Function;
		const UEdGraph* const Graph = ReadBack(Run);
		ASSERT_NE(Graph, nullptr);
		const UK2Node_CallFunction* Operator = nullptr;
		for (UEdGraphNode* const Node : Graph->Nodes)
		{
			Operator = Node->FindPin(TEXT("B")) ? Cast<UK2Node_CallFunction>(Node) : Operator;
		}
		ASSERT_NE(Operator, nullptr) << Case.Function;
		EXPECT_EQ(ToStd(Operator->GetFunctionName().ToString()), Case.Bound) << Case.Function;
		EXPECT_EQ(ToStd(Operator->FindPin(UTF8_TO_TCHAR(Case.TypedIn))->DefaultValue), Case.Value) << Case.Function;
	}
}

TEST(PopulateTruth, AnOwnerThatDoesNotFitAVariableIsToldWithItsReason)
{
	FPopulating Run;
	Run.Nodes(CallNode("owner", "KismetSystemLibrary", "GetGameTimeInSeconds")
		+ R"(,{"node_guid":"get","class_name":"K2Node_VariableGet","node_metadata":{"variable_name":"bHidden",)"
		  R"("variable_source_class":"/Script/Engine.Actor","property_owner_node_guid":"owner","owner_pin_name":"ReturnValue"}})");
	EXPECT_THAT(Warnings(*Run.Result),
		ElementsAre(HasSubstr("[Failure] Variable 'bHidden' was placed without its owner: pin 'ReturnValue' of "
							  "'Get Game Time in Seconds")));
	EXPECT_THAT(Warnings(*Run.Result)[0], HasSubstr("is not compatible with"));
}

TEST(PopulateTruth, ARowOfADataTableHasTheTablesStruct)
{
	FPopulating Run;
	UClass* const TableClass = FindObject<UClass>(nullptr, TEXT("/Script/Engine.DataTable"));
	UObject* const Table = NewObject<UObject>(
		CreatePackage(TEXT("/Game/Tests/DT_Items")), TableClass, TEXT("DT_Items"), RF_Public | RF_Standalone);
	const FProperty* const RowStruct = TableClass->FindPropertyByName(TEXT("RowStruct"));
	RowStruct->ImportText_InContainer(TEXT("/Script/Engine.HitResult"), Table, Table, PPF_None);
	Run.Nodes(LooseNode("row", "Get Data Table Row", Pins(ModifyPin("DataTable", "/Game/Tests/DT_Items.DT_Items"))));
	EXPECT_THAT(Warnings(*Run.Result), IsEmpty());
	const UK2Node_GetDataTableRow* const Row = FPopulating::FindNode<UK2Node_GetDataTableRow>(
		Run.Blueprint->UbergraphPages[0].Get());
	ASSERT_NE(Row, nullptr);
	EXPECT_EQ(ToStd(UEdGraphSchema_K2::TypeToText(Row->GetResultPin()->PinType).ToString()), "Hit Result Structure");
	Table->GetOutermost()->MarkAsGarbage();
}
