// The menu follows the project: what is made, changed, renamed and deleted, in memory and on disk.

#include "ActionMenuQueries.h"
#include "BlueprintBuilder.h"
#include "EdGraphSchema_K2.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "GraphBuilder.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_FunctionEntry.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/EnumEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Kismet2/StructureEditorUtils.h"
#include "Misc/FileHelper.h"
#include "Misc/PackageName.h"
#include "Misc/Paths.h"
#include "UObject/Package.h"
#include "UObject/SavePackage.h"
#include "UObject/UnrealType.h"
#include "UserDefinedStructure/UserDefinedStructEditorData.h"

#include <gtest/gtest.h>

namespace ActionMenuFreshness
{
using namespace ActionMenuQueries;
using FSchema = UEdGraphSchema_K2;

static UClass* ClassAt(const TCHAR* Path)
{
	return FindObject<UClass>(nullptr, Path);
}

static UBlueprint* MakeBlueprint(UClass* Parent, const TCHAR* Name, EBlueprintType Type = BPTYPE_Normal)
{
	UPackage* const Package = CreatePackage(*(FString(TEXT("/Game/Tests/")) + Name));
	return FKismetEditorUtilities::CreateBlueprint(Parent, Package, FName(Name), Type);
}

static bool SaveAsset(UObject* Asset)
{
	FSavePackageArgs Args;
	Args.TopLevelFlags = static_cast<EObjectFlags>(RF_Public | RF_Standalone);
	UPackage* const Package = Asset->GetOutermost();
	const FString Filename = FPackageName::LongPackageNameToFilename(
		Package->GetName(), FPackageName::GetAssetPackageExtension());
	return UPackage::Save(Package, Asset, *Filename, Args).IsSuccessful();
}

/** As when the project is opened again: the file is all that is left. */
static void Forget(UObject* Asset)
{
	Asset->GetOutermost()->MarkAsGarbage();
	CollectGarbage();
}

static UEdGraph* AddFunction(UBlueprint* Blueprint, const TCHAR* Name)
{
	UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
		Blueprint, FName(Name), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddFunctionGraph<UClass>(Blueprint, Graph, true, nullptr);
	return Graph;
}

static UEdGraph* AddMacro(UBlueprint* Blueprint, const TCHAR* Name)
{
	UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
		Blueprint, FName(Name), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	FBlueprintEditorUtils::AddMacroGraph(Blueprint, Graph, true, nullptr);
	return Graph;
}

/** A step of an author's work, and what is in the menu after it and what is not. */
struct FStep
{
	const char* What;
	TFunction<void()> Do;
	TArray<const TCHAR*> There;
	TArray<const TCHAR*> Gone;
};

static void Play(UEdGraph* Graph, const TArray<FStep>& Steps)
{
	for (const FStep& Step : Steps)
	{
		SCOPED_TRACE(Step.What);
		Step.Do();
		const FBlueprintActionMenuBuilder Menu = MenuFor(Graph);
		for (const TCHAR* const Title : Step.There)
		{
			EXPECT_TRUE(Find(Menu, Title)) << ToStd(Title);
		}
		for (const TCHAR* const Title : Step.Gone)
		{
			EXPECT_FALSE(Find(Menu, Title)) << ToStd(Title);
		}
	}
}

TEST(ActionMenuFreshness, ABlueprintsOwnDeclarationsComeAndGo)
{
	const FBlueprintBuilder Blueprint;
	UBlueprint* const Own = Blueprint.Get();
	UEdGraph* Function = nullptr;
	const FEdGraphPinType Int = FBlueprintBuilder::Type(FSchema::PC_Int);
	Play(Blueprint.EventGraph().Get(),
		{{"nothing", [] {}, {TEXT("Print String")}, {TEXT("Get Stamina"), TEXT("Recharge Now")}},
			{"variable added", [&] { Blueprint.AddVariable(TEXT("Stamina"), Int); },
				{TEXT("Get Stamina"), TEXT("Set Stamina")}, {}},
			{"variable renamed",
				[&] { FBlueprintEditorUtils::RenameMemberVariable(Own, TEXT("Stamina"), TEXT("Breath")); },
				{TEXT("Get Breath"), TEXT("Set Breath")}, {TEXT("Get Stamina"), TEXT("Set Stamina")}},
			{"function added", [&] { Function = AddFunction(Own, TEXT("RechargeNow")); }, {TEXT("Recharge Now")}, {}},
			{"function renamed", [&] { FBlueprintEditorUtils::RenameGraph(Function, TEXT("RestABit")); },
				{TEXT("Rest ABit")}, {TEXT("Recharge Now")}},
			{"compiled", [&] { EXPECT_TRUE(Blueprint.Compiles()); },
				{TEXT("Get Breath"), TEXT("Rest ABit"), TEXT("Cast To BP_Test")}, {TEXT("Get Stamina")}},
			{"function removed", [&] { FBlueprintEditorUtils::RemoveGraph(Own, Function); }, {TEXT("Get Breath")},
				{TEXT("Rest ABit")}},
			{"macro added", [&] { AddMacro(Own, TEXT("TwiceOver")); }, {TEXT("Twice Over")}, {}},
			{"variable removed", [&] { FBlueprintEditorUtils::RemoveMemberVariable(Own, TEXT("Breath")); },
				{TEXT("Twice Over"), TEXT("Print String")}, {TEXT("Get Breath"), TEXT("Set Breath")}}});
}

TEST(ActionMenuFreshness, WhatDidNotChangeKeepsItsEntry)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	Blueprint.Function(TEXT("Wait"));
	const FBlueprintActionMenuBuilder Before = MenuFor(Graph);
	Blueprint.AddVariable(TEXT("Stamina"), FBlueprintBuilder::Type(FSchema::PC_Int));
	const FBlueprintActionMenuBuilder After = MenuFor(Graph);
	EXPECT_EQ(Find(After, TEXT("Print String")).Get(), Find(Before, TEXT("Print String")).Get());
	EXPECT_EQ(After.GetNumActions(), Before.GetNumActions() + 2);
}

TEST(ActionMenuFreshness, WhatIsNoAssetOffersNothing)
{
	const FBlueprintBuilder Blueprint;
	UClass* const Actor = ClassAt(TEXT("/Script/Engine.Actor"));
	UBlueprint* const Kept = MakeBlueprint(Actor, TEXT("BP_Kept"));
	UBlueprint* const Draft = FKismetEditorUtilities::CreateBlueprint(
		Actor, GetTransientPackage(), TEXT("BP_Draft"), BPTYPE_Normal);
	const FBlueprintActionMenuBuilder Menu = MenuFor(Blueprint.EventGraph().Get());
	EXPECT_TRUE(Find(Menu, TEXT("Cast To BP_Kept")));
	EXPECT_FALSE(Find(Menu, TEXT("Cast To BP_Draft")));
	Draft->MarkAsGarbage();
	Forget(Kept);
}

TEST(ActionMenuFreshness, LocalVariablesAreTheirFunctionsOwnAndOfTheTypeTheyHaveNow)
{
	const FBlueprintBuilder Blueprint;
	FGraphBuilder Function = Blueprint.Function(TEXT("Count"));
	const FEdGraphPinType Int = FBlueprintBuilder::Type(FSchema::PC_Int);
	ASSERT_TRUE(FBlueprintEditorUtils::AddLocalVariable(Blueprint.Get(), Function.Get(), TEXT("Sum"), Int));
	EXPECT_TRUE(Find(MenuFor(Function.Get()), TEXT("Get Sum"), TEXT("Variables|Default")));
	EXPECT_FALSE(Find(MenuFor(Blueprint.EventGraph().Get()), TEXT("Get Sum")));
	UEdGraphPin* const Target = Function.AddPin(Function.Bare(), EGPD_Input, TEXT("Target"));
	Target->PinType = FBlueprintBuilder::Type(FSchema::PC_Object, ClassAt(TEXT("/Script/Engine.Actor")));
	EXPECT_FALSE(Find(MenuFor(Function.Get(), true, Target), TEXT("Get Sum")));
	for (UEdGraphNode* const Node : Function.Get()->Nodes)
	{
		if (UK2Node_FunctionEntry* const Entry = Cast<UK2Node_FunctionEntry>(Node))
		{
			Entry->LocalVariables[0].VarType = Target->PinType;
		}
	}
	EXPECT_TRUE(Find(MenuFor(Function.Get(), true, Target), TEXT("Get Sum")));
}

TEST(ActionMenuFreshness, OtherBlueprintsAreOfferedAsTheyStand)
{
	const FBlueprintBuilder Blueprint;
	UBlueprint* Door = nullptr;
	Play(Blueprint.EventGraph().Get(),
		{{"made",
			 [&]
			 {
				 Door = MakeBlueprint(ClassAt(TEXT("/Script/Engine.Actor")), TEXT("BP_Door"));
				 AddFunction(Door, TEXT("OpenWide"));
			 },
			 {TEXT("Cast To BP_Door"), TEXT("Cast To BP_Door Class"), TEXT("Open Wide")}, {}},
			{"given a variable",
				[&] {
					FBlueprintEditorUtils::AddMemberVariable(
						Door, TEXT("LeafWidth"), FBlueprintBuilder::Type(FSchema::PC_Int));
				},
				{TEXT("Get Leaf Width"), TEXT("Set Leaf Width")}, {}},
			{"saved", [&] { EXPECT_TRUE(SaveAsset(Door)); }, {TEXT("Cast To BP_Door")}, {}},
			// Its file stands still, and tells what it has.
			{"dropped from memory", [&] { Forget(Door); },
				{TEXT("Cast To BP_Door"), TEXT("Cast To BP_Door Class"), TEXT("Open Wide"), TEXT("Get Leaf Width")},
				{}},
			{"loaded", [&] { Door = LoadObject<UBlueprint>(nullptr, TEXT("/Game/Tests/BP_Door")); },
				{TEXT("Cast To BP_Door"), TEXT("Open Wide"), TEXT("Get Leaf Width")}, {}}});
	const FBlueprintActionMenuBuilder Menu = MenuFor(Blueprint.EventGraph().Get());
	EXPECT_TRUE(Find(Menu, TEXT("Get Leaf Width"), TEXT("Class|BP_Door")));
	EXPECT_TRUE(
		Find(MenuFor(FBlueprintEditorUtils::FindEventGraph(Door)), TEXT("Get Leaf Width"), TEXT("Variables|Default")));
	Forget(Door);
}

TEST(ActionMenuFreshness, ACastToAFileIsThatCastOnceItIsPlaced)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	UBlueprint* const Door = MakeBlueprint(ClassAt(TEXT("/Script/Engine.Actor")), TEXT("BP_Door"));
	ASSERT_TRUE(SaveAsset(Door));
	Forget(Door);
	for (const TCHAR* const Title : {TEXT("Cast To BP_Door"), TEXT("Cast To BP_Door Class")})
	{
		const TSharedPtr<FEdGraphSchemaAction> Action = Find(MenuFor(Graph), Title);
		ASSERT_TRUE(Action) << ToStd(Title);
		EXPECT_FALSE(Action->GetTooltipDescription().IsEmpty());
		UEdGraphNode* const Node = Action->PerformAction(Graph, nullptr, FVector2f(0.0f, 0.0f));
		ASSERT_NE(Node, nullptr);
		const UClass* const Target = CastChecked<UK2Node_DynamicCast>(Node)->TargetType.Get();
		ASSERT_NE(Target, nullptr) << ToStd(Title);
		EXPECT_EQ(Target->GetName(), FString(TEXT("BP_Door_C")));
		Forget(LoadObject<UBlueprint>(nullptr, TEXT("/Game/Tests/BP_Door")));
	}
}

TEST(ActionMenuFreshness, AChildListensToComponentsThatItsParentGotLater)
{
	const FBlueprintBuilder Base;
	UBlueprint* const Child = MakeBlueprint(Base->GeneratedClass.Get(), TEXT("BP_Child"));
	UEdGraph* const Graph = FBlueprintEditorUtils::FindEventGraph(Child);
	const TCHAR* const Title = TEXT("Add On Component Begin Overlap (Trigger)");
	EXPECT_FALSE(Find(MenuFor(Graph), Title));
	USimpleConstructionScript* const Script = Base->SimpleConstructionScript;
	Script->AddNode(Script->CreateNode(ClassAt(TEXT("/Script/Engine.BoxComponent")), TEXT("Trigger")));
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Base.Get());
	EXPECT_TRUE(Find(MenuFor(Graph), Title));
	EXPECT_TRUE(Find(MenuFor(Base.EventGraph().Get()), Title));
	Forget(Child);
}

TEST(ActionMenuFreshness, LibrariesOfTheProjectAreOfferedWithoutBeingOpened)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	UBlueprint* const Functions = MakeBlueprint(
		ClassAt(TEXT("/Script/Engine.BlueprintFunctionLibrary")), TEXT("BFL_Doors"), BPTYPE_FunctionLibrary);
	AddFunction(Functions, TEXT("CountDoors"));
	ASSERT_TRUE(SaveAsset(Functions));
	UBlueprint* const Macros = MakeBlueprint(
		ClassAt(TEXT("/Script/Engine.Actor")), TEXT("BML_Doors"), BPTYPE_MacroLibrary);
	AddMacro(Macros, TEXT("ForEachDoor"));
	ASSERT_TRUE(SaveAsset(Macros));
	Forget(Functions);
	Forget(Macros);
	const FBlueprintActionMenuBuilder Menu = MenuFor(Graph);
	for (const TCHAR* const Title : {TEXT("Count Doors"), TEXT("For Each Door")})
	{
		const TSharedPtr<FEdGraphSchemaAction> Action = Find(Menu, Title);
		ASSERT_TRUE(Action) << ToStd(Title);
		const UEdGraphNode* const Node = Action->PerformAction(Graph, nullptr, FVector2f(0.0f, 0.0f));
		ASSERT_NE(Node, nullptr) << ToStd(Title);
		EXPECT_EQ(Node->GetNodeTitle(ENodeTitleType::MenuTitle).ToString(), FString(Title));
	}
	// The macros are for actors, the functions for everybody.
	UBlueprint* const Widget = MakeBlueprint(ClassAt(TEXT("/Script/Engine.GameInstance")), TEXT("BP_Game"));
	const FBlueprintActionMenuBuilder Others = MenuFor(FBlueprintEditorUtils::FindEventGraph(Widget));
	EXPECT_TRUE(Find(Others, TEXT("Count Doors")));
	EXPECT_FALSE(Find(Others, TEXT("For Each Door")));
	Forget(Widget);
}

/** "title|category|node class" of each entry, in order. */
static std::vector<std::string> Entries(UEdGraph* Graph)
{
	std::vector<std::string> Lines;
	const FBlueprintActionMenuBuilder Menu = MenuFor(Graph);
	for (const TSharedPtr<FEdGraphSchemaAction>& Action : Menu.GetEntries())
	{
		Lines.push_back(ToStd(Action->GetMenuDescription().ToString() + TEXT("|") + Action->GetCategory().ToString())
			+ "|" + ToStd(ClassOf(*Action)) + "|" + ToStd(Action->GetKeywords().ToString()));
	}
	return Lines;
}

TEST(ActionMenuFreshness, TheListIsOneWhateverIsInMemory)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	const FEdGraphPinType Int = FBlueprintBuilder::Type(FSchema::PC_Int);
	UClass* const Actor = ClassAt(TEXT("/Script/Engine.Actor"));
	UBlueprint* const Gate = MakeBlueprint(Actor, TEXT("BP_Gate"));
	AddFunction(Gate, TEXT("OpenGate"));
	FBlueprintEditorUtils::AddMemberVariable(Gate, TEXT("GateWidth"), Int);
	FBlueprintEditorUtils::AddMemberVariable(Gate, TEXT("OnGate"), FBlueprintBuilder::Type(FSchema::PC_MCDelegate));
	AddMacro(Gate, TEXT("GateMacro"));
	UBlueprint* const Child = MakeBlueprint(Gate->GeneratedClass.Get(), TEXT("BP_GateChild"));
	FBlueprintEditorUtils::AddMemberVariable(Child, TEXT("ChildWidth"), Int);
	UBlueprint* const Part = MakeBlueprint(ClassAt(TEXT("/Script/Engine.ActorComponent")), TEXT("BP_GatePart"));
	UBlueprint* const Functions = MakeBlueprint(
		ClassAt(TEXT("/Script/Engine.BlueprintFunctionLibrary")), TEXT("BFL_Gate"), BPTYPE_FunctionLibrary);
	AddFunction(Functions, TEXT("CountGates"));
	UBlueprint* const Macros = MakeBlueprint(Actor, TEXT("BML_Gate"), BPTYPE_MacroLibrary);
	AddMacro(Macros, TEXT("ForEachGate"));
	UBlueprint* const Interface = MakeBlueprint(
		ClassAt(TEXT("/Script/CoreUObject.Interface")), TEXT("BPI_Gate"), BPTYPE_Interface);
	AddFunction(Interface, TEXT("UseGate"));
	const TArray<UBlueprint*> All = {Gate, Child, Part, Functions, Macros, Interface};
	for (UBlueprint* const Each : All)
	{
		ASSERT_TRUE(SaveAsset(Each));
	}
	const std::vector<std::string> Loaded = Entries(Graph);
	for (UBlueprint* const Each : All)
	{
		Each->GetOutermost()->MarkAsGarbage();
	}
	CollectGarbage();
	EXPECT_EQ(Entries(Graph), Loaded);
	EXPECT_EQ(FindPackage(nullptr, TEXT("/Game/Tests/BP_Gate")), nullptr) << "no menu loads";
	for (const auto& [Title, NodeTitle] : {std::pair(TEXT("Open Gate"), TEXT("Open Gate")),
			 {TEXT("Get Child Width"), TEXT("Get Child Width")}, {TEXT("Add BP Gate Part"), TEXT("Add BP Gate Part")}})
	{
		const TSharedPtr<FEdGraphSchemaAction> Action = Find(MenuFor(Graph), Title);
		ASSERT_TRUE(Action) << ToStd(Title);
		const UEdGraphNode* const Node = Action->PerformAction(Graph, nullptr, FVector2f(0.0f, 0.0f));
		ASSERT_NE(Node, nullptr) << ToStd(Title);
		EXPECT_EQ(Node->GetNodeTitle(ENodeTitleType::MenuTitle).ToString(), FString(NodeTitle));
	}
	EXPECT_EQ(Entries(Graph), Loaded) << "with some of them loaded again";
	for (const TCHAR* const Name : {TEXT("BP_Gate"), TEXT("BP_GateChild"), TEXT("BP_GatePart")})
	{
		if (UPackage* const Package = FindPackage(nullptr, *(FString(TEXT("/Game/Tests/")) + Name)))
		{
			Package->MarkAsGarbage();
		}
	}
	CollectGarbage();
}

TEST(ActionMenuFreshness, InterfacesOfferMessagesToAllAndEventsToThoseWhoImplementThem)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	UBlueprint* const Interface = MakeBlueprint(
		ClassAt(TEXT("/Script/CoreUObject.Interface")), TEXT("BPI_Usable"), BPTYPE_Interface);
	AddFunction(Interface, TEXT("UseIt"));
	FKismetEditorUtilities::CompileBlueprint(Interface);
	EXPECT_TRUE(Find(MenuFor(Graph), TEXT("Use It (Message)"), nullptr, TEXT("K2Node_Message")));
	EXPECT_FALSE(Find(MenuFor(Graph), TEXT("Event Use It")));
	EXPECT_TRUE(FBlueprintEditorUtils::ImplementNewInterface(
		Blueprint.Get(), FTopLevelAssetPath(Interface->GeneratedClass.Get()->GetPathName())));
	EXPECT_TRUE(Find(MenuFor(Graph), TEXT("Event Use It")));
	Forget(Interface);
}

TEST(ActionMenuFreshness, EnumsOfTheProjectHaveAllNodesThatEnumsHave)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	UUserDefinedEnum* Enum = FEnumEditorUtils::CreateUserDefinedEnum(CreatePackage(TEXT("/Game/Tests/E_Door")),
		TEXT("E_Door"), static_cast<EObjectFlags>(RF_Public | RF_Standalone));
	for (int32 Index = 0; Index < 2; ++Index)
	{
		FEnumEditorUtils::AddNewEnumeratorForUserDefinedEnum(Enum);
	}
	EXPECT_TRUE(FEnumEditorUtils::SetEnumeratorDisplayName(Enum, 0, FText::FromString(TEXT("Open"))));
	EXPECT_TRUE(FEnumEditorUtils::SetEnumeratorDisplayName(Enum, 1, FText::FromString(TEXT("Shut"))));
	EXPECT_FALSE(FEnumEditorUtils::SetEnumeratorDisplayName(Enum, 1, FText::FromString(TEXT("Open"))));
	ASSERT_TRUE(SaveAsset(Enum));
	Forget(Enum);
	const FBlueprintActionMenuBuilder Menu = MenuFor(Graph);
	for (const TCHAR* const Title : {TEXT("Literal enum E_Door"), TEXT("ForEach E_Door"), TEXT("Byte to Enum E_Door"),
			 TEXT("Get number of entries in E_Door")})
	{
		EXPECT_TRUE(Find(Menu, Title)) << ToStd(Title);
	}
	const TSharedPtr<FEdGraphSchemaAction> Action = Find(Menu, TEXT("Switch on E_Door"));
	ASSERT_TRUE(Action);
	const UEdGraphNode* const Switch = Action->PerformAction(Graph, nullptr, FVector2f(0.0f, 0.0f));
	ASSERT_NE(Switch, nullptr);
	// The pins bear the names that never change, and show what the author wrote.
	Enum = LoadObject<UUserDefinedEnum>(nullptr, TEXT("/Game/Tests/E_Door"));
	ASSERT_NE(Enum, nullptr);
	EXPECT_EQ(Enum->GetDisplayNameTextByIndex(1).ToString(), FString(TEXT("Shut")));
	EXPECT_EQ(Enum->GetValueByNameString(TEXT("NewEnumerator1")), 1);
	EXPECT_TRUE(Switch->FindPin(TEXT("NewEnumerator0"), EGPD_Output));
	EXPECT_TRUE(Switch->FindPin(TEXT("NewEnumerator1"), EGPD_Output));
	EXPECT_FALSE(Switch->FindPin(TEXT("E_Door_MAX"), EGPD_Output));
	Forget(Enum);
	EXPECT_TRUE(Find(MenuFor(Graph), TEXT("Switch on E_Door")));
}

TEST(ActionMenuFreshness, StructsOfTheProjectAreMadeBrokenAndHeld)
{
	FBlueprintBuilder Blueprint;
	UUserDefinedStruct* Struct = FStructureEditorUtils::CreateUserDefinedStruct(
		CreatePackage(TEXT("/Game/Tests/ST_Door")), TEXT("ST_Door"),
		static_cast<EObjectFlags>(RF_Public | RF_Standalone));
	ASSERT_TRUE(FStructureEditorUtils::AddVariable(Struct, FBlueprintBuilder::Type(FSchema::PC_Int)));
	EXPECT_FALSE(FStructureEditorUtils::AddVariable(Struct, FBlueprintBuilder::Type(FSchema::PC_Exec)));
	EXPECT_FALSE(FStructureEditorUtils::AddVariable(Struct, FBlueprintBuilder::Type(FSchema::PC_Struct, Struct)));
	const FGuid Width = FStructureEditorUtils::GetVarDesc(Struct)[1].VarGuid;
	const FName WidthName = FStructureEditorUtils::GetVarDesc(Struct)[1].VarName;
	EXPECT_TRUE(FStructureEditorUtils::RenameVariable(Struct, Width, TEXT("Width")));
	EXPECT_TRUE(FStructureEditorUtils::ChangeVariableDefaultValue(Struct, Width, TEXT("90")));
	ASSERT_TRUE(SaveAsset(Struct));
	Forget(Struct);

	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	const FBlueprintActionMenuBuilder Menu = MenuFor(Graph);
	const TSharedPtr<FEdGraphSchemaAction> Break = Find(Menu, TEXT("Break ST Door"), TEXT("Utilities|Struct"));
	ASSERT_TRUE(Break);
	EXPECT_TRUE(Find(Menu, TEXT("Make ST Door")));
	EXPECT_TRUE(Find(Menu, TEXT("Set members in ST Door")));
	const UEdGraphNode* const Node = Break->PerformAction(Graph, nullptr, FVector2f(0.0f, 0.0f));
	ASSERT_NE(Node, nullptr);
	const UEdGraphPin* const Member = Node->FindPin(WidthName, EGPD_Output);
	ASSERT_NE(Member, nullptr);
	EXPECT_EQ(Member->PinType.PinCategory, FSchema::PC_Int);
	EXPECT_EQ(Member->GetDisplayName().ToString(), FString(TEXT("Width")));

	// A variable of it keeps its size, its default and its type over a reload, whichever of the two is read first.
	Struct = LoadObject<UUserDefinedStruct>(nullptr, TEXT("/Game/Tests/ST_Door"));
	Blueprint.AddVariable(TEXT("Door"), FBlueprintBuilder::Type(FSchema::PC_Struct, Struct));
	ASSERT_TRUE(Blueprint.Compiles());
	ASSERT_TRUE(Blueprint.Save());
	Struct->GetOutermost()->MarkAsGarbage();
	const UBlueprint* const Reloaded = Blueprint.Reload();
	ASSERT_NE(Reloaded, nullptr);
	const UClass* const Class = Reloaded->GeneratedClass.Get();
	const FStructProperty* const Door = FindFProperty<FStructProperty>(Class, TEXT("Door"));
	ASSERT_NE(Door, nullptr);
	const FIntProperty* const Value = FindFProperty<FIntProperty>(Door->Struct, WidthName);
	ASSERT_NE(Value, nullptr);
	EXPECT_EQ(Value->GetPropertyValue_InContainer(Door->GetValuePtr(Class->GetDefaultObject<UObject>())), 90);
}

TEST(ActionMenuFreshness, InputSettingsAreReadAgain)
{
	const FBlueprintBuilder Blueprint;
	const auto Write = [](const TCHAR* Text)
	{ return FFileHelper::SaveStringToFile(Text, *(FPaths::ProjectConfigDir() + TEXT("DefaultInput.ini"))); };
	Play(Blueprint.EventGraph().Get(),
		{{"no settings", [] {}, {}, {TEXT("LeapUp"), TEXT("StrideOn")}},
			{"settings written",
				[&]
				{
					EXPECT_TRUE(
						Write(TEXT("[/Script/Engine.InputSettings]\n"
								   "+ActionMappings=(ActionName=\"LeapUp\",bShift=False,Key=SpaceBar)\n"
								   "+ActionMappings=(ActionName=\"LeapUp\",bShift=False,Key=Gamepad_Special_Left)\n"
								   "-ActionMappings=(ActionName=\"CreepOn\",Key=C)\n"
								   "+AxisMappings=(AxisName=\"StrideOn\",Scale=1.0,Key=W)\n")));
				},
				{TEXT("LeapUp"), TEXT("StrideOn")}, {TEXT("CreepOn")}},
			{"settings changed", [&] { EXPECT_TRUE(Write(TEXT("+ActionMappings=(ActionName=\"DuckDown\",Key=C)\n"))); },
				{TEXT("DuckDown")}, {TEXT("LeapUp"), TEXT("StrideOn")}}});
	UEdGraph* const Graph = Blueprint.EventGraph().Get();
	const TSharedPtr<FEdGraphSchemaAction> Action = Find(
		MenuFor(Graph), TEXT("DuckDown"), TEXT("Input|Action Events"), TEXT("K2Node_InputAction"));
	ASSERT_TRUE(Action);
	const UEdGraphNode* const Node = Action->PerformAction(Graph, nullptr, FVector2f(0.0f, 0.0f));
	ASSERT_NE(Node, nullptr);
	EXPECT_TRUE(Node->FindPin(TEXT("Pressed"), EGPD_Output));
}
} // namespace ActionMenuFreshness
