// What of the menu is left where an author looks at a graph, a Blueprint or a pin.

#include "ActionMenuQueries.h"
#include "BlueprintBuilder.h"
#include "EdGraphSchema_K2.h"
#include "GraphBuilder.h"
#include "K2Node_FunctionEntry.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"

#include <gtest/gtest.h>

namespace ActionMenuContext
{
using namespace ActionMenuQueries;
using FSchema = UEdGraphSchema_K2;

static UObject* Type(const TCHAR* Path)
{
	UObject* const Object = FindObject<UObject>(nullptr, Path);
	EXPECT_NE(Object, nullptr) << ToStd(Path);
	return Object;
}

/** A pin that faces the way, of the type, on a node that the graph lists. */
static UEdGraphPin* MakePin(
	FGraphBuilder Graph, EEdGraphPinDirection Direction, FName Category, const TCHAR* ObjectPath = nullptr)
{
	UEdGraphPin* const Pin = Graph.AddPin(Graph.Bare(), Direction, TEXT("Dragged"));
	Pin->PinType = FBlueprintBuilder::Type(Category, ObjectPath ? Type(ObjectPath) : nullptr);
	if (Category == FSchema::PC_Real)
	{
		Pin->PinType.PinSubCategory = FSchema::PC_Double;
	}
	return Pin;
}

struct FPinRow
{
	EEdGraphPinDirection Direction;
	FName Category;
	const TCHAR* ObjectPath;
	TArray<const TCHAR*> Offered;
	TArray<const TCHAR*> NotOffered;
};

TEST(ActionMenuContext, AMenuForAPinOffersWhatCouldBeLinkedToIt)
{
	const TCHAR* const Actor = TEXT("/Script/Engine.Actor");
	const FPinRow Rows[] = {// Execution goes on to what is executed, and comes from events.
		{EGPD_Output, FSchema::PC_Exec, nullptr,
			{TEXT("Print String"), TEXT("Branch"), TEXT("Delay"), TEXT("Cast To Pawn"), TEXT("For Each Loop")},
			{TEXT("Get Actor Location"), TEXT("Event Tick"), TEXT("Break Hit Result"), TEXT("Make Array")}},
		{EGPD_Input, FSchema::PC_Exec, nullptr, {TEXT("Event Tick"), TEXT("Print String"), TEXT("Branch")},
			{TEXT("Get Actor Location"), TEXT("Make Array"), TEXT("Literal enum ECollisionChannel")}},
		{EGPD_Output, FSchema::PC_Boolean, nullptr, {TEXT("Branch"), TEXT("NOT Boolean"), TEXT("Print String")},
			{TEXT("Event Tick"), TEXT("Get Actor Location"), TEXT("Cast To Pawn")}},
		// A number becomes a text by itself; a text becomes no class.
		{EGPD_Output, FSchema::PC_Real, nullptr, {TEXT("Print String"), TEXT("Delay"), TEXT("Sin (Degrees)")},
			{TEXT("Branch"), TEXT("Destroy Actor"), TEXT("Switch on ECollisionChannel")}},
		{EGPD_Input, FSchema::PC_Real, nullptr, {TEXT("Event Tick"), TEXT("Sin (Degrees)"), TEXT("Get Distance To")},
			{TEXT("Delay"), TEXT("Print String"), TEXT("Destroy Actor")}},
		{EGPD_Output, FSchema::PC_Object, TEXT("/Script/Engine.Pawn"),
			{TEXT("Cast To Character"), TEXT("Get Controller"), TEXT("Destroy Actor"), TEXT("Is Valid"),
				TEXT("Print String")},
			{TEXT("Cast To StaticMesh"), TEXT("Set Static Mesh"), TEXT("Branch"), TEXT("Event Tick")}},
		{EGPD_Input, FSchema::PC_Object, Actor,
			{TEXT("Get Owner"), TEXT("Cast To Pawn"), TEXT("Spawn Actor from Class"), TEXT("Get a reference to self")},
			{TEXT("Print String"), TEXT("Cast To StaticMesh"), TEXT("Get Game Time in Seconds")}},
		{EGPD_Output, FSchema::PC_Struct, TEXT("/Script/Engine.PostProcessSettings"),
			{TEXT("Break Post Process Settings"), TEXT("Set members in Post Process Settings")},
			{TEXT("Make Post Process Settings"), TEXT("Branch"), TEXT("Set Actor Location")}},
		{EGPD_Output, FSchema::PC_Byte, TEXT("/Script/Engine.ECollisionChannel"),
			{TEXT("Switch on ECollisionChannel"), TEXT("Equal (Enum)"), TEXT("Print String")},
			{TEXT("Switch on EComponentMobility"), TEXT("Branch")}},
		{EGPD_Input, FSchema::PC_Byte, TEXT("/Script/Engine.ECollisionChannel"),
			{TEXT("Literal enum ECollisionChannel"), TEXT("Byte to Enum ECollisionChannel")},
			{TEXT("Literal enum EComponentMobility"), TEXT("Switch on ECollisionChannel")}}};
	const FBlueprintBuilder Blueprint;
	const FGraphBuilder Graph = Blueprint.EventGraph();
	for (const FPinRow& Row : Rows)
	{
		UEdGraphPin* const Pin = MakePin(Graph, Row.Direction, Row.Category, Row.ObjectPath);
		SCOPED_TRACE(ToStd(FString::Printf(TEXT("%s, direction %d"), *FSchema::TypeToText(Pin->PinType).ToString(),
			static_cast<int32>(Row.Direction))));
		const FBlueprintActionMenuBuilder Menu = MenuFor(Graph.Get(), true, Pin);
		const FBlueprintActionMenuBuilder Everything = MenuFor(Graph.Get());
		for (const TCHAR* const Title : Row.Offered)
		{
			EXPECT_TRUE(Find(Menu, Title)) << ToStd(Title);
		}
		for (const TCHAR* const Title : Row.NotOffered)
		{
			EXPECT_FALSE(Find(Menu, Title)) << ToStd(Title);
			EXPECT_TRUE(Find(Everything, Title)) << "without context " << ToStd(Title);
		}
	}
}

TEST(ActionMenuContext, AChosenEntryOfAPinsMenuCanBeLinkedToThePin)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Graph = Blueprint.EventGraph();
	const FNodeHandle Call = Graph.Call(TEXT("/Script/Engine.GameplayStatics"), TEXT("GetPlayerPawn"));
	UEdGraphPin* const Pin = Call.Output(TEXT("ReturnValue"));
	ASSERT_NE(Pin, nullptr);
	const FBlueprintActionMenuBuilder Menu = MenuFor(Graph.Get(), true, Pin);
	ASSERT_GT(Menu.GetNumActions(), 300);
	int32 NumRefused = 0;
	for (int32 Index = 0; Index < Menu.GetNumActions(); Index += 13)
	{
		const TSharedPtr<FEdGraphSchemaAction> Action = Menu.GetSchemaAction(Index);
		UEdGraphNode* const Node = Action->PerformAction(Graph.Get(), nullptr, FVector2f(400.0f, 0.0f));
		ASSERT_NE(Node, nullptr);
		const bool bLinkable = Node->Pins.ContainsByPredicate(
			[Pin](const UEdGraphPin* Other) { return !FSchema().CanCreateConnection(Pin, Other).IsDisallowed(); });
		NumRefused += bLinkable ? 0 : 1;
		EXPECT_TRUE(bLinkable) << ToStd(Action->GetMenuDescription().ToString()) << ", "
							   << ToStd(Action->GetCategory().ToString());
		Graph.Get()->RemoveNode(Node);
	}
	EXPECT_EQ(NumRefused, 0);
}

/** What a spawner says of its pins and what its node has must be the same, or menus for pins lie. */
TEST(ActionMenuContext, SignaturesTellThePinsThatNodesHave)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	const FBlueprintActionMenuBuilder Menu = MenuFor(Graph);
	int32 NumNodes = 0;
	for (int32 Index = 0; Index < Menu.GetNumActions(); Index += 29)
	{
		const TSharedPtr<FEdGraphSchemaAction> Action = Menu.GetSchemaAction(Index);
		const FString Class = ClassOf(*Action);
		UEdGraphNode* const Node = Action->PerformAction(Graph, nullptr, FVector2f(0.0f, 0.0f));
		ASSERT_NE(Node, nullptr) << ToStd(Action->GetMenuDescription().ToString());
		++NumNodes;
		for (const UEdGraphPin* const Pin : Node->Pins)
		{
			// An assigned event stands beside its node, already linked; casts take any object, whatever its class.
			const bool bTold = SpawnerOf(*Action)->AnyPin(
				[Pin](const FEdGraphPinType& Type, EEdGraphPinDirection Direction)
				{
					return Direction == Pin->Direction
						&& (Type.PinCategory == Pin->PinType.PinCategory
							|| Pin->PinType.PinCategory == FSchema::PC_Wildcard)
						&& Type.ContainerType == Pin->PinType.ContainerType;
				});
			EXPECT_TRUE(bTold || Pin->bHidden || Pin->bAdvancedView)
				<< ToStd(Action->GetMenuDescription().ToString()) << " (" << ToStd(Class)
				<< "): " << ToStd(Pin->PinName.ToString());
		}
		Graph->RemoveNode(Node);
	}
	EXPECT_GT(NumNodes, 400);
}

TEST(ActionMenuContext, WithoutAPinContextLeavesTheBlueprintsOwnMembersAndLibraries)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	const FBlueprintActionMenuBuilder Menu = MenuFor(Graph, true);
	EXPECT_TRUE(Find(Menu, TEXT("Get Actor Location")));
	EXPECT_TRUE(Find(Menu, TEXT("Print String")));
	EXPECT_FALSE(Find(Menu, TEXT("Set Static Mesh")));
	EXPECT_FALSE(Find(Menu, TEXT("Get Controller")));
	// A variable stands among the Blueprint's own, and below its class for all others.
	EXPECT_TRUE(Find(Menu, TEXT("Get Instigator"), TEXT("Variables|Actor")) || Find(Menu, TEXT("Get Hidden")));
	const FBlueprintActionMenuBuilder Everything = MenuFor(Graph);
	EXPECT_TRUE(Find(Everything, TEXT("Get Static Mesh"), TEXT("Class|Static Mesh Component")));
	EXPECT_FALSE(Find(Menu, TEXT("Get Static Mesh"), nullptr, TEXT("K2Node_VariableGet")));
}

struct FGraphRow
{
	const TCHAR* Title;
	bool bInEvents;
	bool bInFunction;
	bool bInConstruction;
	bool bInMacro;
};

TEST(ActionMenuContext, AGraphIsOfferedWhatItsKindCanHave)
{
	const FGraphRow Rows[] = {{TEXT("Print String"), true, true, true, true}, {TEXT("Delay"), true, false, false, true},
		{TEXT("Event Tick"), true, false, false, false}, {TEXT("Add Custom Event..."), true, false, false, false},
		{TEXT("Add Timeline..."), true, false, false, false}, {TEXT("Space Bar"), true, false, false, false},
		{TEXT("Play Sound 2D"), true, true, false, true}, {TEXT("Spawn Emitter at Location"), true, true, false, true},
		{TEXT("Branch"), true, true, true, true}, {TEXT("Add Return Node..."), false, true, false, false},
		{TEXT("Async Load Asset"), true, false, false, true}};
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Macro = FBlueprintEditorUtils::CreateNewGraph(
		Blueprint.Get(), TEXT("Again"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddMacroGraph(Blueprint.Get(), Macro, true, nullptr);
	const FBlueprintActionMenuBuilder Events = MenuFor(Blueprint.EventGraph().Get());
	const FBlueprintActionMenuBuilder Function = MenuFor(Blueprint.Function(TEXT("Open")).Get());
	const FBlueprintActionMenuBuilder Construction = MenuFor(
		FBlueprintEditorUtils::FindUserConstructionScript(Blueprint.Get()));
	const FBlueprintActionMenuBuilder Macros = MenuFor(Macro);
	for (const FGraphRow& Row : Rows)
	{
		SCOPED_TRACE(ToStd(Row.Title));
		EXPECT_EQ(Find(Events, Row.Title) != nullptr, Row.bInEvents) << "events";
		EXPECT_EQ(Find(Function, Row.Title) != nullptr, Row.bInFunction) << "function";
		EXPECT_EQ(Find(Construction, Row.Title) != nullptr, Row.bInConstruction) << "construction script";
		EXPECT_EQ(Find(Macros, Row.Title) != nullptr, Row.bInMacro) << "macro";
	}
}

TEST(ActionMenuContext, ABlueprintWithoutAWorldIsOfferedNothingThatNeedsOne)
{
	const TCHAR* const NeedsWorld[] = {
		TEXT("Get Game Time in Seconds"), TEXT("Get Player Pawn"), TEXT("Open Level (by Name)")};
	{
		const FBlueprintBuilder Object(TEXT("/Script/CoreUObject.Object"));
		UEdGraph* const Graph = Object.Function(TEXT("Count")).Get();
		const FBlueprintActionMenuBuilder Menu = MenuFor(Graph);
		for (const TCHAR* const Title : NeedsWorld)
		{
			EXPECT_FALSE(Find(Menu, Title)) << ToStd(Title);
		}
		// It prints to the log where there is no world to print into.
		EXPECT_TRUE(Find(Menu, TEXT("Print String")));
		EXPECT_TRUE(Find(Menu, TEXT("For Loop")));
		EXPECT_FALSE(Find(Menu, TEXT("Add Static Mesh Component")));
	}
	const FBlueprintBuilder Actor;
	const FBlueprintActionMenuBuilder Menu = MenuFor(Actor.Function(TEXT("Count")).Get());
	for (const TCHAR* const Title : NeedsWorld)
	{
		EXPECT_TRUE(Find(Menu, Title)) << ToStd(Title);
	}
}

TEST(ActionMenuContext, WhatOnlyTheEditorHasIsForItsOwnBlueprints)
{
	const TCHAR* const Title = TEXT("Get Selected Asset Data");
	{
		const FBlueprintBuilder Actor;
		EXPECT_FALSE(Find(MenuFor(Actor.EventGraph().Get()), Title));
	}
	const FBlueprintBuilder Utility(TEXT("/Script/Blutility.EditorUtilityObject"));
	EXPECT_TRUE(Find(MenuFor(Utility.Function(TEXT("Run")).Get()), Title));
}

TEST(ActionMenuContext, WhatIsHiddenOrOldIsNotOffered)
{
	const FBlueprintBuilder Blueprint;
	const FBlueprintActionMenuBuilder Menu = MenuFor(Blueprint.EventGraph().Get());
	TSet<FString> Names;
	for (const TSharedPtr<FEdGraphSchemaAction>& Action : Menu.GetEntries())
	{
		if (ClassOf(*Action) == TEXT("K2Node_CallFunction"))
		{
			Names.Add(Action->GetMenuDescription().ToString());
		}
	}
	// A node of its own stands for each of these.
	for (const TCHAR* const Internal : {TEXT("Begin Deferred Actor Spawn from Class"), TEXT("Finish Spawning Actor"),
			 TEXT("Get Input Axis Value"), TEXT("Make Literal Enum")})
	{
		EXPECT_FALSE(Names.Contains(Internal)) << ToStd(Internal);
	}
	TArray<UObject*> Functions;
	GetObjectsOfClass(UFunction::StaticClass(), Functions);
	int32 NumDeprecated = 0;
	for (const UObject* const Object : Functions)
	{
		const UFunction* const Function = static_cast<const UFunction*>(Object);
		if (Function->HasMetaData(FBlueprintMetadata::MD_DeprecatedFunction))
		{
			++NumDeprecated;
			EXPECT_FALSE(FSchema::CanUserKismetCallFunction(Function)) << ToStd(Function->GetPathName());
		}
	}
	EXPECT_GT(NumDeprecated, 0);
}

static void SetAccess(UEdGraph* Graph, int32 Flag)
{
	for (UEdGraphNode* const Node : Graph->Nodes)
	{
		if (UK2Node_FunctionEntry* const Entry = Cast<UK2Node_FunctionEntry>(Node))
		{
			Entry->ClearExtraFlags(FUNC_AccessSpecifiers);
			Entry->AddExtraFlags(Flag);
		}
	}
}

TEST(ActionMenuContext, AccessDecidesWhoMayCallABlueprintsFunction)
{
	const FBlueprintBuilder Base;
	for (const TPair<const TCHAR*, int32>& Row : {TPair<const TCHAR*, int32>(TEXT("ForAll"), FUNC_Public),
			 TPair<const TCHAR*, int32>(TEXT("ForKin"), FUNC_Protected),
			 TPair<const TCHAR*, int32>(TEXT("ForMe"), FUNC_Private)})
	{
		SetAccess(Base.Function(Row.Key).Get(), Row.Value);
	}
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Base.Get());
	ASSERT_TRUE(Base.Compiles());
	const auto MakeBlueprint = [](UClass* Parent, const TCHAR* Name)
	{
		UPackage* const Package = CreatePackage(*(FString(TEXT("/Game/Tests/")) + Name));
		return FKismetEditorUtilities::CreateBlueprint(Parent, Package, FName(Name), BPTYPE_Normal);
	};
	UBlueprint* const Child = MakeBlueprint(Base->GeneratedClass.Get(), TEXT("BP_Child"));
	UBlueprint* const Stranger = MakeBlueprint(
		FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor")), TEXT("BP_Far"));
	struct FRow
	{
		UBlueprint* Caller;
		bool bKin;
		bool bMe;
	};
	for (const FRow& Row : {FRow{Base.Get(), true, true}, FRow{Child, true, false}, FRow{Stranger, false, false}})
	{
		const FBlueprintActionMenuBuilder Menu = MenuFor(FBlueprintEditorUtils::FindEventGraph(Row.Caller));
		SCOPED_TRACE(ToStd(Row.Caller->GetName()));
		EXPECT_TRUE(Find(Menu, TEXT("For All")));
		EXPECT_EQ(Find(Menu, TEXT("For Kin")) != nullptr, Row.bKin);
		EXPECT_EQ(Find(Menu, TEXT("For Me")) != nullptr, Row.bMe);
	}
	Child->GetOutermost()->MarkAsGarbage();
	Stranger->GetOutermost()->MarkAsGarbage();
}
} // namespace ActionMenuContext
