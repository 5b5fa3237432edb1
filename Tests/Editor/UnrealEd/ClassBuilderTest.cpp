#include "BlueprintBuilder.h"
#include "ClassMembers.h"
#include "EdGraphSchema_K2.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "GameFramework/Actor.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionEntry.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Source/EverythingBlueprint.h"
#include "UObject/Package.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ClassBuilderTests
{
static UBlueprintGeneratedClass* ClassOf(UBlueprint* Blueprint)
{
	FBlueprintEditorUtils::EnsureSkeletonIsUpToDate(Blueprint);
	return Cast<UBlueprintGeneratedClass>(Blueprint->GeneratedClass.Get());
}

static std::vector<std::string> Members(UBlueprint* Blueprint)
{
	return ClassMembers::Describe(*ClassOf(Blueprint));
}

/** The value of a property on the class default, as text. */
static std::string GetDefaultText(UBlueprint* Blueprint, const TCHAR* Name)
{
	const UClass* const Class = ClassOf(Blueprint);
	const FProperty* const Property = Class->FindPropertyByName(Name);
	FString Text;
	if (!Property)
	{
		return "no such property";
	}
	Property->ExportTextItem_Direct(Text, Property->GetValuePtr(Class->GetDefaultObject()), nullptr, nullptr, PPF_None);
	return ToStd(Text);
}

static void SetDefaultText(UBlueprint* Blueprint, const TCHAR* Name, const TCHAR* Value)
{
	UObject* const Default = ClassOf(Blueprint)->GetDefaultObject();
	Default->GetClass()->FindPropertyByName(Name)->ImportText_InContainer(Value, Default, Default, PPF_None);
}

/** A Blueprint beside the builder's own; drops it at the end. */
class FOtherBlueprint
{
public:
	explicit FOtherBlueprint(UClass* ParentClass)
		: Blueprint(FKismetEditorUtilities::CreateBlueprint(
			ParentClass, CreatePackage(TEXT("/Game/Tests/BP_Child")), TEXT("BP_Child"), BPTYPE_Normal))
	{
	}
	~FOtherBlueprint() { Blueprint->GetOutermost()->MarkAsGarbage(); }

	UBlueprint* const Blueprint;
};
} // namespace ClassBuilderTests

using namespace ClassBuilderTests;

TEST(ClassBuilder, EveryDeclarationBecomesAMember)
{
	const FBlueprintBuilder Blueprint;
	EverythingBlueprint::Fill(*Blueprint.Get());
	EXPECT_THAT(Members(Blueprint.Get()),
		testing::IsSupersetOf({"Health: double saved", "bOpen: bool class-only replicated",
			"OnOpened: FOnOpened class-only assignable", "Swing: UTimelineComponent* read-only",
			"Door: UStaticMeshComponent* read-only", "Lamp: UPointLightComponent* read-only",
			"OnOpened__DelegateSignature(By: FName) callable public delegate",
			"UserConstructionScript() callable event",
			"OpenBy(Degrees: double, return ReturnValue: bool) callable public outs",
			"Knock() callable public event"}));
	EXPECT_EQ(GetDefaultText(Blueprint.Get(), TEXT("Health")), "75.500000");
	EXPECT_EQ(GetDefaultText(Blueprint.Get(), TEXT("bOpen")), "True");
}

TEST(ClassBuilder, FunctionsSayWhatTheirEntriesSay)
{
	const FBlueprintBuilder Blueprint;
	UEdGraph* const Graph = Blueprint.Function(TEXT("Measure")).Get();
	UK2Node_FunctionEntry* const Entry = FBlueprintEditorUtils::GetEntryNode(Graph);
	Entry->SetExtraFlags(
		(Entry->GetExtraFlags() & ~FUNC_AccessSpecifiers) | FUNC_Private | FUNC_BlueprintPure | FUNC_Const);
	FEdGraphPinType List = FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int);
	List.ContainerType = EPinContainerType::Array;
	List.bIsReference = true;
	Entry->CreateUserDefinedPin(TEXT("List"), List, EGPD_Output);
	Entry->MetaData.Category = FText::FromString(TEXT("Ruler"));
	FBlueprintEditorUtils::AddLocalVariable(
		Blueprint.Get(), Graph, TEXT("Sum"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int));
	const UFunction* const Function = ClassOf(Blueprint.Get())->FindFunctionByName(TEXT("Measure"));
	ASSERT_NE(Function, nullptr);
	EXPECT_EQ(ClassMembers::Describe(*Function),
		"Measure(out List: TArray<int32>, local Sum: int32) callable pure const private outs");
	EXPECT_EQ(ToStd(Function->GetMetaData(FBlueprintMetadata::MD_FunctionCategory)), "Ruler");
}

TEST(ClassBuilder, AnEventIsAFunctionOnceItIsUsed)
{
	const FBlueprintBuilder Blueprint;
	const UClass* const Actor = AActor::StaticClass();
	UK2Node_Event* const Event = FBlueprintEditorUtils::FindOverrideForFunction(
		Blueprint.Get(), Actor, TEXT("ReceiveBeginPlay"));
	ASSERT_TRUE(Event->IsAutomaticallyPlacedGhostNode());
	EXPECT_EQ(ClassOf(Blueprint.Get())->FindFunctionByName(TEXT("ReceiveBeginPlay"), EIncludeSuperFlag::ExcludeSuper),
		nullptr);
	const FNodeHandle Print = Blueprint.EventGraph().Call(
		TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("PrintString"));
	FGraphBuilder::Then({Event}, Print);
	EXPECT_TRUE(Event->IsNodeEnabled());
	EXPECT_TRUE(Event->NodeComment.IsEmpty());
	EXPECT_FALSE(Event->bCommentBubbleVisible);
	EXPECT_FALSE(Event->bCommentBubblePinned);
	EXPECT_NE(ClassOf(Blueprint.Get())->FindFunctionByName(TEXT("ReceiveBeginPlay"), EIncludeSuperFlag::ExcludeSuper),
		nullptr);
}

TEST(ClassBuilder, ARebuildKeepsDefaultValues)
{
	const FBlueprintBuilder Blueprint;
	Blueprint.AddVariable(TEXT("Count"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int));
	SetDefaultText(Blueprint.Get(), TEXT("Count"), TEXT("42"));
	SetDefaultText(Blueprint.Get(), TEXT("bReplicates"), TEXT("True"));
	const UClass* const Class = ClassOf(Blueprint.Get());
	Blueprint.AddVariable(TEXT("Another"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_String));
	EXPECT_EQ(GetDefaultText(Blueprint.Get(), TEXT("Count")), "42");
	EXPECT_EQ(GetDefaultText(Blueprint.Get(), TEXT("bReplicates")), "True");
	FKismetEditorUtilities::CompileBlueprint(Blueprint.Get());
	EXPECT_EQ(GetDefaultText(Blueprint.Get(), TEXT("Count")), "42");
	EXPECT_EQ(GetDefaultText(Blueprint.Get(), TEXT("bReplicates")), "True");
	EXPECT_EQ(ClassOf(Blueprint.Get()), Class) << "references to the class stay good";
	FBlueprintEditorUtils::ChangeMemberVariableType(
		Blueprint.Get(), TEXT("Count"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Boolean));
	EXPECT_EQ(GetDefaultText(Blueprint.Get(), TEXT("Count")), "False") << "a value of another type is none";
}

TEST(ClassBuilder, AChildFollowsItsParent)
{
	const FBlueprintBuilder Blueprint;
	Blueprint.AddVariable(TEXT("Count"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int));
	SetDefaultText(Blueprint.Get(), TEXT("Count"), TEXT("7"));
	const FOtherBlueprint Child(ClassOf(Blueprint.Get()));
	EXPECT_EQ(GetDefaultText(Child.Blueprint, TEXT("Count")), "7");
	SetDefaultText(Child.Blueprint, TEXT("bReplicates"), TEXT("True"));

	Blueprint.AddVariable(TEXT("Added"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_String));
	FKismetEditorUtilities::CompileBlueprint(Blueprint.Get());
	EXPECT_EQ(GetDefaultText(Child.Blueprint, TEXT("Added")), "");
	EXPECT_EQ(GetDefaultText(Child.Blueprint, TEXT("Count")), "7");
	EXPECT_EQ(GetDefaultText(Child.Blueprint, TEXT("bReplicates")), "True");
	EXPECT_FALSE(FBlueprintEditorUtils::AddMemberVariable(
		Child.Blueprint, TEXT("Count"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int)))
		<< "the name is the parent's";
}

TEST(ClassBuilder, EventsSayWhereTheyRun)
{
	const FBlueprintBuilder Blueprint;
	const std::pair<const TCHAR*, uint32> Events[] = {{TEXT("Here"), 0},
		{TEXT("OnServer"), FUNC_Net | FUNC_NetServer | FUNC_NetReliable}, {TEXT("OnOwner"), FUNC_Net | FUNC_NetClient},
		{TEXT("Everywhere"), FUNC_Net | FUNC_NetMulticast}};
	for (const auto& [Name, Flags] : Events)
	{
		UK2Node_CustomEvent* const Event = Blueprint.EventGraph().Add<UK2Node_CustomEvent>();
		Event->CustomFunctionName = Name;
		Event->FunctionFlags = Flags;
		Event->CreateUserDefinedPin(TEXT("Names"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Name), EGPD_Output);
	}
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint.Get());
	for (const auto& [Name, Flags] : Events)
	{
		const UFunction* const Function = ClassOf(Blueprint.Get())->FindFunctionByName(Name);
		ASSERT_NE(Function, nullptr) << ToStd(Name);
		constexpr uint32 Net = FUNC_NetFuncFlags | FUNC_NetReliable;
		EXPECT_EQ(static_cast<uint32>(Function->FunctionFlags) & Net, Flags) << ToStd(Name);
		EXPECT_EQ(Function->NumParms, 1) << ToStd(Name);
		EXPECT_TRUE(Function->HasAllFunctionFlags(
			static_cast<EFunctionFlags>(FUNC_Event | FUNC_BlueprintEvent | FUNC_BlueprintCallable)))
			<< ToStd(Name);
	}
}

TEST(ClassBuilder, VariablesSayWhatTheirDescriptionsSay)
{
	const FBlueprintBuilder Blueprint;
	Blueprint.AddVariable(TEXT("Speed"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int));
	FBPVariableDescription& Speed = Blueprint->NewVariables[0];
	Speed.PropertyFlags = CPF_Edit | CPF_BlueprintVisible | CPF_Net | CPF_RepNotify | CPF_Transient;
	Speed.RepNotifyFunc = TEXT("OnRep_Speed");
	Speed.FriendlyName = TEXT("How fast");
	Speed.Category = FText::FromString(TEXT("Motion"));
	Speed.SetMetaData(FBlueprintMetadata::MD_ExposeOnSpawn, TEXT("true"));
	Speed.SetMetaData(TEXT("ClampMin"), TEXT("0"));
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint.Get());
	const FProperty* const Property = ClassOf(Blueprint.Get())->FindPropertyByName(TEXT("Speed"));
	ASSERT_NE(Property, nullptr);
	EXPECT_TRUE(Property->HasAllPropertyFlags(
		CPF_Edit | CPF_BlueprintVisible | CPF_Net | CPF_RepNotify | CPF_Transient | CPF_ExposeOnSpawn));
	EXPECT_FALSE(Property->HasAnyPropertyFlags(CPF_DisableEditOnInstance | CPF_BlueprintReadOnly | CPF_SaveGame));
	EXPECT_EQ(ToStd(Property->RepNotifyFunc.ToString()), "OnRep_Speed");
	EXPECT_EQ(ToStd(Property->GetDisplayNameText().ToString()), "How fast");
	EXPECT_EQ(ToStd(Property->GetMetaData(FBlueprintMetadata::MD_FunctionCategory)), "Motion");
	EXPECT_EQ(ToStd(Property->GetMetaData(TEXT("ClampMin"))), "0");
	EXPECT_EQ(ClassOf(Blueprint.Get())->PropertyGuids.FindRef(TEXT("Speed")), Blueprint->NewVariables[0].VarGuid);
}

TEST(ClassBuilder, LibrariesAndInterfacesHaveFunctionsOfTheirKind)
{
	const FBlueprintBuilder Blueprint;
	struct FKindOfFunctions
	{
		const TCHAR* Parent;
		EBlueprintType Type;
		EFunctionFlags Flags;
		bool bInterface;
	};
	for (const FKindOfFunctions& Kind :
		{FKindOfFunctions{TEXT("/Script/Engine.BlueprintFunctionLibrary"), BPTYPE_FunctionLibrary, FUNC_Static, false},
			FKindOfFunctions{TEXT("/Script/CoreUObject.Interface"), BPTYPE_Interface, FUNC_BlueprintEvent, true}})
	{
		UPackage* const Package = CreatePackage(TEXT("/Game/Tests/BP_Kind"));
		UBlueprint* const Made = FKismetEditorUtilities::CreateBlueprint(
			FindObject<UClass>(nullptr, Kind.Parent), Package, TEXT("BP_Kind"), Kind.Type);
		UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
			Made, TEXT("Act"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
		FBlueprintEditorUtils::AddFunctionGraph<UClass>(Made, Graph, true, nullptr);
		FKismetEditorUtilities::CompileBlueprint(Made);
		EXPECT_EQ(Made->Status, BS_UpToDate) << ToStd(Kind.Parent);
		const UFunction* const Function = Made->GeneratedClass->FindFunctionByName(TEXT("Act"));
		ASSERT_NE(Function, nullptr) << ToStd(Kind.Parent);
		EXPECT_TRUE(Function->HasAnyFunctionFlags(Kind.Flags)) << ToStd(Kind.Parent);
		EXPECT_EQ(Made->GeneratedClass->HasAnyClassFlags(CLASS_Interface), Kind.bInterface) << ToStd(Kind.Parent);
		Package->MarkAsGarbage();
		CollectGarbage();
	}
}

TEST(ClassBuilder, TheStatusFollowsChangesAndCompiles)
{
	const FBlueprintBuilder Blueprint;
	FKismetEditorUtilities::CompileBlueprint(Blueprint.Get());
	EXPECT_EQ(Blueprint->Status, BS_UpToDate);
	Blueprint.AddVariable(TEXT("Broken"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Struct));
	EXPECT_EQ(Blueprint->Status, BS_Dirty);
	FKismetEditorUtilities::CompileBlueprint(Blueprint.Get());
	EXPECT_EQ(Blueprint->Status, BS_Error);
	FBlueprintEditorUtils::RemoveMemberVariable(Blueprint.Get(), TEXT("Broken"));
	FBlueprintEditorUtils::AddMemberVariable(
		Blueprint.Get(), TEXT("Count"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Int), TEXT("many"));
	FKismetEditorUtilities::CompileBlueprint(Blueprint.Get());
	EXPECT_EQ(Blueprint->Status, BS_UpToDateWithWarnings);
	FBlueprintEditorUtils::MarkBlueprintAsModified(Blueprint.Get());
	EXPECT_EQ(Blueprint->Status, BS_Dirty);
	Blueprint->ParentClass = nullptr;
	FKismetEditorUtilities::CompileBlueprint(Blueprint.Get());
	EXPECT_EQ(Blueprint->Status, BS_Error);
}

namespace ClassBuilderTests
{
struct FKind
{
	const char* Name;
	const TCHAR* Parent;
	void (*Fill)(UBlueprint& Blueprint);
};

class FPersistence : public testing::TestWithParam<FKind>
{
};

static void PrintTo(const FKind& Kind, std::ostream* Out)
{
	*Out << Kind.Name;
}
} // namespace ClassBuilderTests

TEST_P(FPersistence, AReadBlueprintIsTheOneThatWasWritten)
{
	FBlueprintBuilder Blueprint(GetParam().Parent);
	GetParam().Fill(*Blueprint.Get());
	FKismetEditorUtilities::CompileBlueprint(Blueprint.Get());
	const std::vector<std::string> Before = Members(Blueprint.Get());
	ASSERT_TRUE(Blueprint.Save());
	const std::string Written = Blueprint.Folder().Read("Content/Tests/BP_Test.uatext");
	ASSERT_NE(Blueprint.Reload(), nullptr);
	EXPECT_FALSE(Blueprint->GetOutermost()->IsDirty()) << "reading changes nothing";
	EXPECT_THAT(Members(Blueprint.Get()), testing::ElementsAreArray(Before));
	ASSERT_TRUE(Blueprint.Save());
	EXPECT_EQ(Blueprint.Folder().Read("Content/Tests/BP_Test.uatext"), Written);
	FKismetEditorUtilities::CompileBlueprint(Blueprint.Get());
	EXPECT_THAT(Members(Blueprint.Get()), testing::ElementsAreArray(Before));
	ASSERT_TRUE(Blueprint.Save());
	EXPECT_EQ(Blueprint.Folder().Read("Content/Tests/BP_Test.uatext"), Written) << "after a compile";
}

const FKind Kinds[] = {
	{"Actor", TEXT("/Script/Engine.Actor"), &EverythingBlueprint::Fill},
	{"Animation", TEXT("/Script/Engine.AnimInstance"),
		[](UBlueprint& Blueprint) { EverythingBlueprint::FillStateMachines(Blueprint, 3); }},
	{"Widget", TEXT("/Script/UMG.UserWidget"), &EverythingBlueprint::FillWidgets},
	{"Task", TEXT("/Script/AIModule.BTTask_BlueprintBase"), [](UBlueprint&) {}},
};

INSTANTIATE_TEST_SUITE_P(All, FPersistence, testing::ValuesIn(Kinds),
	[](const testing::TestParamInfo<FKind>& Kind) { return Kind.param.Name; });
