// What a compile leaves behind for the next one, and for Blueprints that use the compiled one.

#include "CompileLog.h"
#include "CompileScene.h"
#include "Engine/TimelineTemplate.h"
#include "GameFramework/Actor.h"
#include "NodeTests.h"
#include "UObject/Package.h"

#include <gmock/gmock.h>

namespace CompilerAgainTests
{
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/** A Blueprint beside the builder's, dropped at the end. */
struct FBeside
{
	FBeside(const TCHAR* Name, UClass* Parent)
		: Blueprint(FKismetEditorUtilities::CreateBlueprint(
			Parent, CreatePackage(*(FString(TEXT("/Game/Tests/")) + Name)), FName(Name), BPTYPE_Normal))
	{
	}
	~FBeside() { Blueprint->GetOutermost()->MarkAsGarbage(); }
	FBeside(const FBeside&) = delete;
	FBeside& operator=(const FBeside&) = delete;

	UBlueprint* const Blueprint;
};

TEST(CompileAgain, AMendedNodeSaysNothingMore)
{
	const FBlueprintBuilder Blueprint;
	FCompileScene Scene(Blueprint);
	Scene.Event("begin", TEXT("ReceiveBeginPlay"));
	Scene.Call("delay", NodeTests::System, TEXT("Delay"));
	Scene.Wire({"begin.then > delay.execute"});
	Scene.Pin("delay.Duration")->DefaultValue = TEXT("soon");
	EXPECT_THAT(CompileMessages(Blueprint.Get()), ElementsAre(HasSubstr("'soon' is not a valid number")));
	EXPECT_TRUE(Scene["delay"]->bHasCompilerMessage);
	EXPECT_FALSE(Scene["delay"]->ErrorMsg.IsEmpty());
	Scene.Pin("delay.Duration")->DefaultValue = TEXT("2");
	EXPECT_THAT(CompileMessages(Blueprint.Get()), IsEmpty());
	EXPECT_FALSE(Scene["delay"]->bHasCompilerMessage);
	EXPECT_EQ(ToStd(Scene["delay"]->ErrorMsg), "");
	EXPECT_EQ(Blueprint->Status, BS_UpToDate);
}

TEST(CompileAgain, AValueThatNoLongerFitsIsAWarningAndALinkAnError)
{
	const FBlueprintBuilder Blueprint;
	for (const bool bLinked : {false, true})
	{
		FCompileScene Scene(Blueprint);
		Scene.Event("begin", TEXT("ReceiveBeginPlay"));
		Scene.Call("abs", NodeTests::Math, TEXT("Abs_Int"));
		Scene.Call("delay", NodeTests::System, TEXT("Delay"));
		if (bLinked)
		{
			ASSERT_TRUE(NodeTests::Connect(NodeTests::Source(Scene.Graph, "int"), Scene.Pin("abs.A")));
		}
		else
		{
			Scene.Type("abs.A", TEXT("7"));
		}
		UK2Node_CallFunction* const Abs = CastChecked<UK2Node_CallFunction>(Scene["abs"]);
		Abs->SetFromFunction(NodeTests::Function(NodeTests::Math, TEXT("Abs")));
		Abs->ReconstructNode();
		Scene.Wire({"begin.then > delay.execute", "abs.ReturnValue > delay.Duration"});
		EXPECT_THAT(CompileMessages(Blueprint.Get()),
			ElementsAre(bLinked
					? "error: The type of A on node Absolute (Float) was Integer and is Float (double-precision) now. Please break the old link or connect the new pin. {Absolute (Float).A; Absolute (Float)}"
					: "warning: The type of A on node Absolute (Float) was Integer and is Float (double-precision) now, so its old value is lost. Please refresh node. {Absolute (Float).A; Absolute (Float)}"));
		Scene["delay"]->DestroyNode();
		Abs->DestroyNode();
	}
}

TEST(CompileAgain, ATimelineMayNotHaveTheNameOfAnotherMember)
{
	const FBlueprintBuilder Blueprint;
	UTimelineTemplate* const Timeline = FBlueprintEditorUtils::AddNewTimeline(Blueprint.Get(), TEXT("Open"));
	ASSERT_TRUE(Timeline);
	Blueprint.AddVariable(TEXT("Wide"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int));
	Blueprint->NewVariables[0].VarName = Timeline->GetVariableName();
	EXPECT_THAT(CompileMessages(Blueprint.Get()),
		testing::Contains(HasSubstr("The name 'Open' is used by a variable and by a timeline")));
}

TEST(CompileAgain, AConstFunctionChangesNothingOfItsOwnObject)
{
	const FBlueprintBuilder Blueprint;
	Blueprint.AddVariable(TEXT("Health"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int));
	for (const bool bOfAnother : {false, true})
	{
		FGraphBuilder Graph = Blueprint.Function(bOfAnother ? TEXT("Others") : TEXT("Own"));
		FCompileScene Scene(Blueprint, Graph.Get());
		UK2Node_FunctionEntry* const Entry = CastChecked<UK2Node_FunctionEntry>(Scene["entry"]);
		Entry->bEnforceConstCorrectness = true;
		Entry->AddExtraFlags(FUNC_Const);
		Scene.Set("set", TEXT("Health"));
		Scene.Wire({"entry.then > set.execute"});
		if (bOfAnother)
		{
			FEdGraphPinType Type = FBlueprintBuilder::Type(
				UEdGraphSchema_K2::PC_Object, Blueprint->GeneratedClass.Get());
			Entry->CreateUserDefinedPin(TEXT("Other"), Type, EGPD_Output);
			Scene.Wire({"entry.Other > set.self"});
		}
		const std::vector<std::string> Messages = CompileMessages(Blueprint.Get());
		EXPECT_EQ(
			std::count_if(Messages.begin(), Messages.end(),
				[](const std::string& Message) { return Message.find("in a const function") != std::string::npos; }),
			1)
			<< testing::PrintToString(Messages) << ": of the object itself, not of another";
	}
}

TEST(CompileAgain, UsersOfAChangedBlueprintAreFoundByEveryPlaceOfAType)
{
	const FBlueprintBuilder Used;
	UClass* const Class = Used->GeneratedClass.Get();
	const FEdGraphPinType Object = FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Object, Class);
	FEdGraphPinType Map = FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Name);
	Map.ContainerType = EPinContainerType::Map;
	Map.PinValueType = FEdGraphTerminalType::FromPinType(Object);
	FEdGraphPinType Keys = Object;
	Keys.ContainerType = EPinContainerType::Map;
	Keys.PinValueType = FEdGraphTerminalType::FromPinType(FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int));
	for (const FEdGraphPinType& Type : {Object, Map, Keys, FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int)})
	{
		CollectGarbage(); // the one of before
		const FBeside User(TEXT("BP_User"), AActor::StaticClass());
		ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(User.Blueprint, TEXT("Held"), Type));
		FBlueprintEditorUtils::EnsureSkeletonIsUpToDate(User.Blueprint);
		TArray<UBlueprint*> Users;
		FBlueprintEditorUtils::GetDependentBlueprints(Used.Get(), Users);
		const bool bUses = Type.PinCategory != UEdGraphSchema_K2::PC_Int;
		EXPECT_EQ(Users.Contains(User.Blueprint), bUses) << ToStd(UEdGraphSchema_K2::TypeToText(Type).ToString());
		ASSERT_FALSE(User.Blueprint->bSkeletonIsStale);
		CompileMessages(Used.Get());
		EXPECT_EQ(User.Blueprint->bSkeletonIsStale, bUses) << "its class is looked at anew";
	}
}
} // namespace CompilerAgainTests
