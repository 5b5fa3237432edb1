// A node may make its pins anew when one of their values changes: whoever holds the pin goes on with its successor.

#include "BlueprintConsistency.h"
#include "EdGraphSchema_K2.h"
#include "MenuActions.h"
#include "NodeTests.h"
#include "Populating.h"
#include "Utils/Graph/PinConnections.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace PinsMadeAnew
{
struct FClassNode
{
	const char* Class;
	const char* Good;
	const char* Pin = "Class";
};

constexpr FClassNode ClassNodes[] = {
	{"K2Node_SpawnActorFromClass", "/Script/Engine.Character"},
	{"K2Node_CreateWidget", "/Script/UMG.UserWidget"},
	{"K2Node_GenericCreateObject", "/Script/Engine.DataAsset"},
	{"K2Node_AddComponentByClass", "/Script/Engine.StaticMeshComponent"},
	{"K2Node_GetClassDefaults", "/Script/Engine.Character"},
};

static std::string NodeWith(const FClassNode& Case, const std::vector<std::string>& Values, const std::string& Id = "n")
{
	std::string Pins;
	for (const std::string& Value : Values)
	{
		Pins += std::string(Pins.empty() ? "" : ",") + R"({"action":"modify","name":")" + Case.Pin + R"(","value":")"
			+ Value + R"("})";
	}
	return R"({"node_guid":")" + Id + R"(","class_name":")" + std::string(Case.Class) + R"(","pins":[)" + Pins + "]}";
}

/** The class pins of all nodes of the class, in order. */
static std::vector<const UEdGraphPin*> FindClassPins(const FPopulating& Populating, const FClassNode& Case)
{
	std::vector<const UEdGraphPin*> Pins;
	for (UEdGraphNode* const Node : Populating.Blueprint.EventGraph().Get()->Nodes)
	{
		if (ToStd(Node->GetClass()->GetName()) == Case.Class)
		{
			Pins.push_back(Node->FindPin(FName(FString(Case.Pin)), EGPD_Input));
		}
	}
	return Pins;
}

} // namespace PinsMadeAnew

using namespace PinsMadeAnew;

TEST(PinsMadeAnew, ClassPinsTakeBadAndGoodValuesInAnyOrder)
{
	const std::vector<std::string> Refused = {
		"Nope", "WBP_Hud", "/Game/Missing.Missing_C", "/Script/Engine.Pawn'", "/Script/CoreUObject.Vector"};
	for (const FClassNode& Case : ClassNodes)
	{
		SCOPED_TRACE(Case.Class);
		std::string Nodes = NodeWith(Case, {Case.Good, "None"}, "none");
		for (const std::string& Bad : Refused)
		{
			Nodes += "," + NodeWith(Case, {Bad, Case.Good, Bad, Bad}, "n" + Bad);
		}
		FPopulating Populating;
		Populating.Nodes(Nodes);
		const std::vector<const UEdGraphPin*> Pins = FindClassPins(Populating, Case);
		ASSERT_EQ(Pins.size(), Refused.size() + 1);
		EXPECT_EQ(ToStd(Pins[0]->GetDefaultAsString()), "") << "no class at all is a value";
		for (std::size_t Index = 0; Index < Refused.size(); ++Index)
		{
			EXPECT_EQ(ToStd(Pins[Index + 1]->GetDefaultAsString()), Case.Good) << Refused[Index];
		}
		EXPECT_THAT(FindInconsistenciesAfterReload(Populating.Blueprint), IsEmpty());
	}
}

TEST(PinsMadeAnew, ARefusedClassKeepsWhatHangsOnTheOldOne)
{
	FPopulating Populating;
	Populating.Populate(R"("nodes":[)" + NodeWith(ClassNodes[0], {"/Script/Engine.Character", "Nope"}) + ","
		+ CallNode("p", "Actor", "K2_DestroyActor") + R"(],"connections":[)" + Link("n", "ReturnValue", "p", "self")
		+ "]");
	EXPECT_THAT(Warnings(*Populating.Result), testing::Each(HasSubstr("Nope")));
	EXPECT_EQ(Warnings(*Populating.Result).size(), 2U);
	EXPECT_EQ(Populating.Data(TEXT("connections_created")), "1");
	const UEdGraphPin* const Pin = FindClassPins(Populating, ClassNodes[0]).at(0);
	EXPECT_EQ(Pin->GetOwningNode()->FindPin(TEXT("ReturnValue"))->PinType.PinSubCategoryObject->GetName(),
		FString(TEXT("Character")));
}

TEST(PinsMadeAnew, EveryPinOfEveryKindOfNodeMayBeHeldAcrossAChange)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	Morvane::FToolResult Result = MakeResult();
	int32 NumPins = 0;
	for (const UBlueprintNodeSpawner* const Spawner : ChooseActions(1, 499))
	{
		UEdGraphNode* const Node = Spawner->Invoke(Graph, IBlueprintNodeBinder::FBindingSet(), FVector2D(0, 0));
		TArray<FEdGraphPinReference> Inputs;
		for (UEdGraphPin* const Pin : Node ? Node->Pins : TArray<UEdGraphPin*>())
		{
			Inputs.Emplace(Pin);
		}
		for (const FEdGraphPinReference& Held : Inputs)
		{
			for (const TCHAR* const Value :
				{TEXT("Nope"), TEXT("/Script/Engine.Character"), TEXT("{A} {B}"), TEXT("1")})
			{
				UEdGraphPin* const Pin = Held.Get();
				if (!Pin || Pin->Direction != EGPD_Input)
				{
					break;
				}
				const FName Name = Pin->PinName;
				FBlueprintPinUtils::SetPinDefaultValue(Pin, Value, Result);
				EXPECT_EQ(Pin->PinName, Name) << "the pin that was held stays readable";
				EXPECT_TRUE(!Pin->WasTrashed() || (Pin->LinkedTo.IsEmpty() && !Node->Pins.Contains(Pin)));
				++NumPins;
			}
		}
		if (Node)
		{
			Node->DestroyNode();
		}
	}
	EXPECT_GT(NumPins, 500);
}

TEST(PinsMadeAnew, TrashedPinsAreFreedByTheCollection)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	const FNodeHandle From = Graph.Exec();
	const FNodeHandle To = Graph.Exec();
	FGraphBuilder::Then(From, To);
	UEdGraphPin* const Old = To.Input(TEXT("execute"));
	const FEdGraphPinReference Reference(Old);
	To->RemovePin(Old);
	EXPECT_TRUE(Old->WasTrashed());
	EXPECT_TRUE(Old->LinkedTo.IsEmpty());
	EXPECT_TRUE(From.Output(TEXT("then"))->LinkedTo.IsEmpty());
	EXPECT_EQ(Reference.Get(), nullptr);
	CollectGarbage();
}
