#include "ToolResults.h"
#include "Utils/Report/GraphSession.h"
#include "Utils/Report/GraphTelemetry.h"

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Telemetry, AnyWriterMakesTheObject)
{
	using namespace GraphTelemetry;
	struct FCase
	{
		void (*Write)(Morvane::FToolResult&);
		const char* Expected;
	};
	const FCase Cases[] = {
		{[](Morvane::FToolResult& R) { RecordPinDirectionFallback(R); }, R"({"pin_direction_fallbacks":1})"},
		{[](Morvane::FToolResult& R) { RecordSpawnMethod(R, TEXT("cam_global")); },
			R"({"spawn_methods":{"cam_global":1}})"},
		{[](Morvane::FToolResult& R) { RecordValidationFailure(R, TEXT("x")); },
			R"({"validation_failures":[{"message":"x"}]})"},
		{[](Morvane::FToolResult& R) { RecordNodeCreationLatency(R, TEXT("n"), TEXT("t"), 0.5); },
			R"({"node_creation_latency_ms":[{"node_id":"n","node_title":"t","duration_ms":0.5}]})"},
		{[](Morvane::FToolResult& R)
			{ RecordConnectionFailure(R, TEXT("a"), TEXT("b"), TEXT("c"), TEXT("d"), TEXT("e")); },
			R"({"connection_failures":[{"source_node":"a","source_pin":"b","target_node":"c","target_pin":"d","reason":"e"}]})"},
		{[](Morvane::FToolResult& R) { RecordHalfConnectedNode(R, TEXT("n"), TEXT("t"), 2, 1); },
			R"({"half_connected_nodes":[{"node_id":"n","node_title":"t","expected_connections":2,"actual_connections":1}]})"},
		{[](Morvane::FToolResult& R) { SetString(R, TEXT("k"), TEXT("v")); }, R"({"k":"v"})"},
	};
	for (const FCase& Case : Cases)
	{
		Morvane::FToolResult Result = MakeResult();
		EXPECT_EQ(Telemetry(Result), "null");
		Case.Write(Result);
		EXPECT_EQ(Telemetry(Result), Case.Expected);
	}
}

TEST(Telemetry, AddsToWhatIsThereInTheOrderOfEvents)
{
	Morvane::FToolResult Result = MakeResult();
	GraphTelemetry::SetNumber(Result, TEXT("cam_action_count"), 3);
	GraphTelemetry::RecordSpawnMethod(Result, TEXT("deterministic"));
	GraphTelemetry::RecordValidationFailure(Result, TEXT("first"));
	GraphTelemetry::RecordSpawnMethod(Result, TEXT("cam_filtered"));
	GraphTelemetry::RecordSpawnMethod(Result, TEXT("deterministic"));
	GraphTelemetry::RecordValidationFailure(Result, TEXT("second"));
	EXPECT_EQ(Telemetry(Result),
		R"({"cam_action_count":3,"spawn_methods":{"deterministic":2,"cam_filtered":1},)"
		R"("validation_failures":[{"message":"first"},{"message":"second"}]})");
}

TEST(GraphSession, FindsTheLaterOfTwoNodesWithOneIdAndRecordsBoth)
{
	FGraphBuilder Graph;
	Morvane::FToolResult Result = MakeResult();
	FBPGraphSession Session(Result);
	const FNodeHandle First = Graph.Bare();
	const FNodeHandle Second = Graph.Bare();
	Session.RecordCreatedNode(TEXT("n1"), First);
	Session.RecordCreatedNode(TEXT("N1"), Second);
	EXPECT_EQ(Session.FindNode(TEXT("n1")), Second);
	EXPECT_EQ(Session.GetCreatedNodesByRequestId().Num(), 1);
	EXPECT_EQ(Session.GetCreatedNodes(), (TArray<UEdGraphNode*>{First, Second}));
	EXPECT_EQ(Session.GetCreatedRecords()[0].NodeGuid, First->NodeGuid.ToString());
	EXPECT_EQ(Session.GetCreatedRecords()[0].ClassName, TEXT("EdGraphNode"));
}

TEST(GraphSession, AnEmptyIdNamesNothing)
{
	FGraphBuilder Graph;
	Morvane::FToolResult Result = MakeResult();
	FBPGraphSession Session(Result);
	const FNodeHandle Node = Graph.Bare();
	Session.RecordCreatedNode(TEXT(""), Node);
	Session.RecordFailedId(TEXT(""));
	EXPECT_EQ(Session.FindNode(TEXT("")), nullptr);
	EXPECT_TRUE(Session.IsSessionNode(Node));
	EXPECT_EQ(Session.GetFailedRequestIds().Num(), 0);
	Session.RecordFailedId(TEXT("a"));
	Session.RecordFailedId(TEXT("a"));
	EXPECT_EQ(Session.GetFailedRequestIds().Num(), 1);
}

TEST(GraphSession, AnExistingNodeIsKeptOnceAndNoneOfItsOwn)
{
	FGraphBuilder Graph;
	Morvane::FToolResult Result = MakeResult();
	FBPGraphSession Session(Result);
	const FNodeHandle Created = Graph.Bare();
	const FNodeHandle Existing = Graph.Bare();
	Session.RecordCreatedNode(TEXT("n"), Created);
	for (UEdGraphNode* const Node : {static_cast<UEdGraphNode*>(Created), static_cast<UEdGraphNode*>(Existing),
			 static_cast<UEdGraphNode*>(nullptr), static_cast<UEdGraphNode*>(Existing)})
	{
		Session.RecordExistingNode(Node);
	}
	EXPECT_EQ(Session.GetExistingModifiedNodes(), (TArray<UEdGraphNode*>{Existing}));
}

TEST(GraphSession, ANodeRemovedSinceReadsAsNull)
{
	FGraphBuilder Graph;
	Morvane::FToolResult Result = MakeResult();
	FBPGraphSession Session(Result);
	const FNodeHandle Node = Graph.Bare();
	Session.RecordCreatedNode(TEXT("n"), Node);
	Graph.Get()->RemoveNode(Node);
	EXPECT_EQ(Session.FindNode(TEXT("n")), nullptr);
	EXPECT_EQ(Session.GetCreatedNodes().Num(), 0);
	EXPECT_EQ(Session.GetCreatedRecords().Num(), 1) << "what was done stays recorded";
}
