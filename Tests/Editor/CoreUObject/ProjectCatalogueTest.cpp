#include "Standalone/Catalogue.h"

#include "HAL/FileManager.h"
#include "Misc/FileHelper.h"
#include "Misc/Guid.h"
#include "Misc/Paths.h"
#include "Session/EditorModules.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ProjectCatalogueTests
{
/** A project folder with catalogue files; gone at the end of the test. */
class ProjectCatalogue : public testing::Test
{
protected:
	// All of the editor: a native class must be known before data of its path is asked for.
	static void SetUpTestSuite() { EditorModules::StartEditor(); }

	void TearDown() override
	{
		FCatalogue::Get().UnloadProjectCatalogue();
		IFileManager::Get().DeleteDirectory(*Folder, false, true);
	}

	void Write(const char* Name, const std::string& Text) const
	{
		ASSERT_TRUE(FFileHelper::SaveStringToFile(FromUtf8(Text), *PathOf(Name)));
	}

	FString PathOf(const char* Name) const { return Folder / TEXT("Config/Catalogue") / FromUtf8(Name); }

	/** The errors, each with the folder left out: "File.jsonl:1: reason". */
	std::vector<std::string> Load()
	{
		TArray<FString> Errors;
		bSucceeded = FCatalogue::Get().LoadProjectCatalogue(Folder, Errors);
		std::vector<std::string> Texts;
		for (const FString& Error : Errors)
		{
			Texts.push_back(ToUtf8(Error.Replace(*(Folder / TEXT("Config/Catalogue/")), TEXT(""))));
		}
		return Texts;
	}

	FString Folder = FString(testing::TempDir().c_str()) / FGuid::NewGuid().ToString();
	bool bSucceeded = false;
};

const char* const DoorLines =
	R"({"class": "/Script/Doors.DoorActor", "parent": "/Script/Engine.Actor", "flags": ["actor", "blueprintable", "blueprint_type"]}
{"property": "OpenAngle", "type": "real:double", "flags": ["edit", "bp_read", "bp_write"], "default": "90.000000"}
{"property": "Hinges", "type": "map name -> struct /Script/CoreUObject.Transform"}
{"dispatcher": "OnOpened", "signature": "/Script/Doors.DoorActor:DoorOpened__DelegateSignature"}
{"function": "Open", "flags": ["callable"], "params": [{"name": "Speed", "type": "real:float", "default": "1.000000"}], "returns": {"type": "byte /Script/Doors.EDoorState"}}
{"enum": "/Script/Doors.EDoorState", "form": "class", "values": [{"name": "Closed"}, {"name": "Open", "value": 5}]}
{"delegate": "/Script/Doors.DoorActor:DoorOpened__DelegateSignature", "flags": ["multicast"], "params": [{"name": "Door", "type": "object /Script/Doors.DoorActor"}]}
)";

TEST_F(ProjectCatalogue, ClassesOfAProjectStandBesideThoseOfTheEngine)
{
	Write("Doors.jsonl", DoorLines);
	EXPECT_THAT(Load(), testing::IsEmpty());
	EXPECT_TRUE(bSucceeded);
	const UClass* const Door = FindObject<UClass>(nullptr, TEXT("/Script/Doors.DoorActor"));
	ASSERT_NE(Door, nullptr);
	EXPECT_EQ(Door->GetSuperClass(), FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor")));
	const FMulticastDelegateProperty* const OnOpened = FindFProperty<FMulticastDelegateProperty>(
		Door, TEXT("OnOpened"));
	ASSERT_NE(OnOpened, nullptr);
	EXPECT_EQ(OnOpened->SignatureFunction,
		FindObject<UFunction>(const_cast<UClass*>(Door), TEXT("DoorOpened__DelegateSignature")));
	const UFunction* const Open = Door->FindFunctionByName(TEXT("Open"));
	ASSERT_NE(Open, nullptr);
	const FEnumProperty* const Result = CastField<FEnumProperty>(Open->GetReturnProperty());
	ASSERT_NE(Result, nullptr);
	EXPECT_EQ(Result->GetEnum()->GetValueByNameString(TEXT("Open")), 5);
	const FDoubleProperty* const Angle = FindFProperty<FDoubleProperty>(Door, TEXT("OpenAngle"));
	ASSERT_NE(Angle, nullptr);
	EXPECT_EQ(Angle->GetPropertyValue_InContainer(Door->GetDefaultObject()), 90.0);
}

TEST_F(ProjectCatalogue, AClassMayStartWithOtherValuesThanItsParent)
{
	Write(
		"Doors.jsonl", R"({"class": "/Script/Doors.Hatch", "parent": "/Script/Doors.Door", "defaults": {"Width": "60"}}
{"class": "/Script/Doors.Door", "parent": "/Script/Engine.Actor", "defaults": {"bHidden": "true", "NoSuch": "1"}}
{"property": "Width", "type": "int", "default": "90"}
{"class": "/Script/Doors.Gate", "parent": "/Script/Doors.Door"}
)");
	EXPECT_THAT(Load(), testing::IsEmpty());
	const auto WidthOf = [](const TCHAR* Path)
	{
		const UClass* const Class = FindObject<UClass>(nullptr, Path);
		const FIntProperty* const Width = FindFProperty<FIntProperty>(Class, TEXT("Width"));
		return Width ? Width->GetPropertyValue_InContainer(Class->GetDefaultObject()) : 0;
	};
	EXPECT_EQ(WidthOf(TEXT("/Script/Doors.Door")), 90);
	EXPECT_EQ(WidthOf(TEXT("/Script/Doors.Hatch")), 60);
	EXPECT_EQ(WidthOf(TEXT("/Script/Doors.Gate")), 90);
	const UClass* const Gate = FindObject<UClass>(nullptr, TEXT("/Script/Doors.Gate"));
	const FBoolProperty* const Hidden = FindFProperty<FBoolProperty>(Gate, TEXT("bHidden"));
	ASSERT_NE(Hidden, nullptr);
	EXPECT_TRUE(Hidden->GetPropertyValue_InContainer(Gate->GetDefaultObject()));
}

TEST_F(ProjectCatalogue, AProjectWithoutFilesHasNoFaults)
{
	EXPECT_THAT(Load(), testing::IsEmpty());
	EXPECT_TRUE(bSucceeded);
}

TEST_F(ProjectCatalogue, EachFaultNamesFileLineAndReason)
{
	const struct FCase
	{
		const char* Text;
		std::vector<std::string> Expected;
	} Cases[] = {
		{"\n[1]\n", {"A.jsonl:2: a line must be one JSON object with a kind as its first key"}},
		{"{\"klass\": \"/Script/A.B\"}", {"A.jsonl:1: unknown kind of line 'klass'"}},
		{"{\"class\": \"/Script/A.B\", \"parent\": \"/Script/Engine.Actor\", \"colour\": \"red\"}",
			{"A.jsonl:1: unknown key 'colour'"}},
		{"{\"class\": \"/Script/A.B\", \"parent\": \"/Script/Engine.Actor\", \"parent\": \"/Script/Engine.Pawn\"}",
			{"A.jsonl:1: key 'parent' is there twice"}},
		{"{\"class\": \"/Script/A.B\", \"parent\": \"/Script/Engine.Actor\", \"flags\": [\"shiny\"]}",
			{"A.jsonl:1: unknown flag 'shiny'"}},
		{"{\"class\": \"/Script/A.B\", \"parent\": 3}",
			{"A.jsonl:1: 'parent' must be a text", "A.jsonl:1: a class needs 'parent'"}},
		{"{\"class\": \"/Game/A.B\", \"parent\": \"/Script/Engine.Actor\"}",
			{"A.jsonl:1: '/Game/A.B' is no path like /Script/Module.Name"}},
		{"{\"class\": \"/Script/Engine.Pawn\", \"parent\": \"/Script/Engine.Actor\"}",
			{"A.jsonl:1: '/Script/Engine.Pawn' is a class of the engine"}},
		{"{\"class\": \"/Script/A.B\", \"parent\": \"/Script/A.C\"}",
			{"A.jsonl:1: '/Script/A.C' is not known as a class"}},
		{"{\"class\": \"/Script/A.B\", \"parent\": \"/Script/CoreUObject.Vector\"}",
			{"A.jsonl:1: '/Script/CoreUObject.Vector' is not known as a class"}},
		{"{\"property\": \"X\", \"type\": \"int\"}",
			{"A.jsonl:1: a property must stand below the class or struct it belongs to"}},
		{"{\"struct\": \"/Script/A.S\"}\n{\"property\": \"X\", \"type\": \"integer\"}\n{\"property\": \"x\", \"type\": \"real\"}\n{\"property\": \"Y\", \"type\": \"struct\"}",
			{"A.jsonl:2: unknown type 'integer'", "A.jsonl:3: 'x' is there twice in '/Script/A.S'",
				"A.jsonl:3: unknown subtype in type 'real'",
				"A.jsonl:4: type 'struct' needs a path like /Script/Module.Name"}},
		{"{\"struct\": \"/Script/A.S\"}\n{\"function\": \"F\", \"flags\": []}",
			{"A.jsonl:2: a function must stand below the class it belongs to"}},
		{"{\"struct\": \"/Script/A.S\"}\n{\"struct\": \"/Script/a.s\"}",
			{"A.jsonl:2: '/Script/a.s' is there twice, first in line 1"}},
		{"{\"enum\": \"/Script/A.E\", \"form\": \"round\", \"values\": [{\"name\": \"X\"}, {\"name\": \"x\"}]}",
			{"A.jsonl:1: unknown form 'round'", "A.jsonl:1: value 'x' is there twice"}},
	};
	for (const FCase& Case : Cases)
	{
		Write("A.jsonl", Case.Text);
		EXPECT_EQ(Load(), Case.Expected) << Case.Text;
		EXPECT_FALSE(bSucceeded);
		EXPECT_EQ(FindObject<UField>(nullptr, TEXT("/Script/A.B")), nullptr);
		EXPECT_EQ(FindObject<UField>(nullptr, TEXT("/Script/A.S")), nullptr);
	}
}

TEST_F(ProjectCatalogue, ALineThatIsNoJsonIsNamed)
{
	Write("A.jsonl", std::string(DoorLines) + "{\"class\": \n");
	EXPECT_THAT(Load(), testing::ElementsAre(testing::StartsWith("A.jsonl:8: not valid JSON: ")));
}

TEST_F(ProjectCatalogue, AFaultyFileTakesThoseThatNeedItAndNoOther)
{
	Write(
		"Base.jsonl", "{\"class\": \"/Script/B.Base\", \"parent\": \"/Script/Engine.Actor\"}\n{\"property\": \"X\"}\n");
	Write("Middle.jsonl", "{\"class\": \"/Script/M.Middle\", \"parent\": \"/Script/B.Base\"}\n");
	Write("Top.jsonl",
		"{\"struct\": \"/Script/T.Top\"}\n{\"property\": \"M\", \"type\": \"array object /Script/M.Middle\"}\n");
	Write("Free.jsonl", "{\"class\": \"/Script/F.Free\", \"parent\": \"/Script/Engine.Pawn\"}\n");
	EXPECT_THAT(Load(),
		testing::ElementsAre("Base.jsonl:2: 'type' is missing",
			"Middle.jsonl:1: '/Script/B.Base' is not known as a class",
			"Top.jsonl:2: '/Script/M.Middle' is not known as a class"));
	EXPECT_EQ(FindObject<UClass>(nullptr, TEXT("/Script/M.Middle")), nullptr);
	EXPECT_EQ(FindObject<UScriptStruct>(nullptr, TEXT("/Script/T.Top")), nullptr);
	EXPECT_NE(FindObject<UClass>(nullptr, TEXT("/Script/F.Free")), nullptr);
}

TEST_F(ProjectCatalogue, ASecondFileMayNotDescribeTheSameClass)
{
	Write("A.jsonl", "{\"class\": \"/Script/D.Twice\", \"parent\": \"/Script/Engine.Actor\"}\n");
	Write("B.jsonl", "\n{\"class\": \"/Script/D.Twice\", \"parent\": \"/Script/Engine.Pawn\"}\n");
	EXPECT_EQ(Load(), std::vector<std::string>{"B.jsonl:2: '/Script/D.Twice' is there twice, first in A.jsonl"});
}

TEST_F(ProjectCatalogue, ALaterReadingReplacesAnEarlierOne)
{
	Write("A.jsonl",
		"{\"class\": \"/Script/P.Changing\", \"parent\": \"/Script/Engine.Actor\"}\n{\"property\": \"X\", \"type\": \"int\"}\n");
	EXPECT_THAT(Load(), testing::IsEmpty());
	const UClass* const Before = FindObject<UClass>(nullptr, TEXT("/Script/P.Changing"));
	ASSERT_NE(Before, nullptr);
	Write("A.jsonl",
		"{\"class\": \"/Script/P.Changing\", \"parent\": \"/Script/Engine.Actor\"}\n{\"property\": \"Y\", \"type\": \"int\"}\n");
	EXPECT_THAT(Load(), testing::IsEmpty());
	const UClass* const After = FindObject<UClass>(nullptr, TEXT("/Script/P.Changing"));
	ASSERT_NE(After, nullptr);
	EXPECT_NE(Before, After);
	EXPECT_EQ(Before->FindPropertyByName(TEXT("X")), nullptr) << "its data is gone, so nothing may be read from it";
	EXPECT_NE(After->FindPropertyByName(TEXT("Y")), nullptr);
	FCatalogue::Get().UnloadProjectCatalogue();
	EXPECT_EQ(FindObject<UClass>(nullptr, TEXT("/Script/P.Changing")), nullptr);
}
} // namespace ProjectCatalogueTests
