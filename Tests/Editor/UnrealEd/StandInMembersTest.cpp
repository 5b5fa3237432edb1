// Classes of a plug-in that is not here: what Blueprints use of them is known all the same, is told once when they are
// compiled, and nothing of it is lost.

#include "BlueprintBuilder.h"
#include "EdGraphSchema_K2.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "K2Node_AddDelegate.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_Event.h"
#include "K2Node_VariableGet.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/EnumEditorUtils.h"
#include "Populating.h"
#include "Standalone/MissingObjects.h"
#include "Standalone/PackageText.h"
#include "ToolResults.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"

#include <map>
#include <sstream>

using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace StandInMembersTest
{
using FSchema = UEdGraphSchema_K2;

const std::string User = "Content/Tests/BP_Test.uatext";
constexpr const char* Compile = R"({"blueprint_paths":["/Game/Tests/BP_Test"]})";

static std::string ReplaceAll(std::string Text, const std::string& From, const std::string& To)
{
	for (std::size_t At = 0; (At = Text.find(From, At)) != std::string::npos; At += To.size())
	{
		Text.replace(At, From.size(), To);
	}
	return Text;
}

static UClass* Class(const TCHAR* Path)
{
	UClass* const Found = FindObject<UClass>(nullptr, Path);
	EXPECT_NE(Found, nullptr);
	return Found;
}

/** A Blueprint of a character that the file then says is one of a plug-in's, as are a library and a component. */
class FScene
{
public:
	FScene()
		: Builder(TEXT("/Script/Engine.Character"))
	{
		UClass* const Character = Class(TEXT("/Script/Engine.Character"));
		const FGraphBuilder Graph = Builder.EventGraph();
		FGraphBuilder Nodes = Graph;
		UK2Node_CallFunction* const Jump = Nodes.Add<UK2Node_CallFunction>();
		Jump->SetFromFunction(Character->FindFunctionByName(TEXT("Jump")));
		Jump->ReconstructNode();
		UK2Node_CallFunction* const Move = Nodes.Add<UK2Node_CallFunction>();
		Move->FunctionReference.SetExternalMember(TEXT("AddMovementInput"), Class(TEXT("/Script/Engine.Pawn")));
		Move->ReconstructNode();
		UK2Node_VariableGet* const Count = Nodes.Add<UK2Node_VariableGet>();
		Count->VariableReference.SetSelfMember(TEXT("JumpMaxCount"));
		Count->ReconstructNode();
		UK2Node_Event* const Landed = Nodes.Add<UK2Node_Event>();
		Landed->EventReference.SetExternalMember(TEXT("OnLanded"), Character);
		Landed->bOverrideFunction = true;
		Landed->ReconstructNode();
		AddBinding(Nodes, Character);
		FGraphBuilder::Then(
			FNodeHandle{Landed}, Nodes.Call(TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("PrintString")));
		EXPECT_TRUE(Builder.Compiles());
		EXPECT_TRUE(Builder.Save());
		Hide();
	}

	UK2Node_CallFunction* FindCall(const TCHAR* Function) const
	{
		for (UEdGraphNode* const Node : Builder.EventGraph().Get()->Nodes)
		{
			UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(Node);
			if (Call && Call->GetFunctionName() == Function)
			{
				return Call;
			}
		}
		return nullptr;
	}
	std::string Text() const { return Builder.Folder().Read(User); }

	FBlueprintBuilder Builder;
	std::string Before;

private:
	static void AddBinding(FGraphBuilder& Nodes, UClass* Character)
	{
		UK2Node_AddDelegate* const Bind = Nodes.Add<UK2Node_AddDelegate>();
		Bind->SetFromProperty(Character->FindPropertyByName(TEXT("MovementModeChangedDelegate")), true, Character);
		Bind->ReconstructNode();
		UK2Node_CustomEvent* const Event = Nodes.Add<UK2Node_CustomEvent>();
		Event->SetDelegateSignature(Bind->GetDelegateSignature());
		Event->ReconstructNode();
		Event->FindPin(UK2Node_Event::DelegateOutputName)->MakeLinkTo(Bind->GetDelegatePin());
	}

	void Hide()
	{
		std::string Bytes = Text();
		FPackageText::FHeader Header;
		FString Error;
		EXPECT_TRUE(FPackageText::CheckBytes(Bytes, TEXT("test"), Header, Error)) << ToStd(Error);
		std::string Body = Bytes.substr(static_cast<std::size_t>(Header.BodyOffset));
		const std::map<std::string, std::string> Names = {{"/Script/Engine.Character'", "/Script/Far.Hero'"},
			{"/Script/Engine.KismetSystemLibrary", "/Script/Far.FarLibrary"},
			{"/Script/Engine.Default__KismetSystemLibrary", "/Script/Far.Default__FarLibrary"}};
		for (const auto& [Known, Unknown] : Names)
		{
			Body = ReplaceAll(Body, Known, Unknown);
		}
		// A value that is the plug-in's default or not: nobody here can say.
		Body = ReplaceAll(Body, "Name=\"Default__BP_Test_C\" Flags=Public|Archetype\n",
			"Name=\"Default__BP_Test_C\" Flags=Public|Archetype\n   JumpMaxCount=0\n   Mana=(Max=3,Now=1)\n");
		for (FPackageText::FTag& Tag : Header.Tags)
		{
			Tag.Value = Tag.Value.Replace(TEXT("/Script/Engine.Character"), TEXT("/Script/Far.Hero"));
		}
		Before = FPackageText::MakeBytes(Header, Body);
		Builder.Folder().Write(User, Before);
		EXPECT_NE(Builder.Reload(), nullptr);
		FPackageText::TakeProblems();
	}
};

/** A parameter as "type name". */
static std::string Parameters(const UFunction& Function)
{
	std::string List;
	for (TFieldIterator<FProperty> It(&Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		FEdGraphPinType Type;
		FSchema::ConvertPropertyToPinTypeStatic(*It, Type);
		List += (List.empty() ? "" : ", ") + ToStd(Type.PinCategory.ToString()) + " " + ToStd(It->GetName());
	}
	return List;
}

TEST(StandInMembers, AParentIsWhatItsChildUsesAndHasWhatItsChildUsesOfIt)
{
	const FScene Scene;
	const UClass* const Hero = Scene.Builder->ParentClass.Get();
	ASSERT_NE(Hero, nullptr);
	EXPECT_EQ(ToStd(Hero->GetPathName()), "/Script/Far.Hero");
	EXPECT_TRUE(FMissingObjects::IsMissing(Hero));
	EXPECT_EQ(Hero->GetSuperClass(), Class(TEXT("/Script/Engine.Pawn"))) << "a function of it is called on self";
	const std::pair<const TCHAR*, const char*> Functions[] = {{TEXT("Jump"), ""}, {TEXT("OnLanded"), "struct Hit"}};
	for (const auto& [Name, Expected] : Functions)
	{
		const UFunction* const Function = Hero->FindFunctionByName(Name);
		ASSERT_NE(Function, nullptr) << ToStd(FString(Name));
		EXPECT_EQ(Parameters(*Function), Expected) << ToStd(FString(Name));
	}
	const FProperty* const Count = Hero->FindPropertyByName(TEXT("JumpMaxCount"));
	ASSERT_NE(Count, nullptr);
	EXPECT_TRUE(Count->IsA<FIntProperty>());
	const FMulticastDelegateProperty* const Changed = CastField<FMulticastDelegateProperty>(
		Hero->FindPropertyByName(TEXT("MovementModeChangedDelegate")));
	ASSERT_NE(Changed, nullptr);
	ASSERT_NE(Changed->SignatureFunction, nullptr);
	EXPECT_THAT(Parameters(*Changed->SignatureFunction), HasSubstr("object Character, byte PrevMovementMode"));
}

TEST(StandInMembers, TheTargetsOfOwnMembersTellTheLineOfParents)
{
	FBlueprintBuilder Builder(TEXT("/Script/Engine.Character"));
	FGraphBuilder Nodes = Builder.EventGraph();
	UK2Node_CallFunction* const Jump = Nodes.Add<UK2Node_CallFunction>();
	Jump->FunctionReference.SetSelfMember(TEXT("Jump"));
	Jump->ReconstructNode();
	UK2Node_VariableGet* const Mana = Nodes.Add<UK2Node_VariableGet>();
	Mana->VariableReference.SetSelfMember(TEXT("JumpMaxCount"));
	Mana->ReconstructNode();
	Mana->FindPin(FSchema::PN_Self)->PinType.PinSubCategoryObject = nullptr;
	ASSERT_TRUE(Builder.Save());
	std::string Bytes = Builder.Folder().Read(User);
	FPackageText::FHeader Header;
	FString Error;
	ASSERT_TRUE(FPackageText::CheckBytes(Bytes, TEXT("test"), Header, Error)) << ToStd(Error);
	std::string Body = Bytes.substr(static_cast<std::size_t>(Header.BodyOffset));
	Body = ReplaceAll(Body, "ParentClass=\"/Script/CoreUObject.Class'/Script/Engine.Character'",
		"ParentClass=\"/Script/CoreUObject.Class'/Script/Far.Knight'");
	Body = ReplaceAll(Body, "JumpMaxCount", "Mana");
	const std::size_t Target = Body.find("PinName=\"self\"", Body.find("MemberName=\"Mana\""));
	const std::size_t None = Body.find("PinSubCategoryObject=None", Target);
	ASSERT_NE(None, std::string::npos);
	Body.replace(None, 25, "PinSubCategoryObject=\"/Script/CoreUObject.Class'/Script/Far.Mage'\"");
	for (FPackageText::FTag& Tag : Header.Tags)
	{
		Tag.Value = Tag.Value.Replace(TEXT("/Script/Engine.Character"), TEXT("/Script/Far.Knight"));
	}
	Builder.Folder().Write(User, FPackageText::MakeBytes(Header, Body));
	const UBlueprint* const Loaded = Builder.Reload();
	ASSERT_NE(Loaded, nullptr);
	FPackageText::TakeProblems();
	const UClass* const Knight = Loaded->ParentClass.Get();
	const UClass* const Mage = Knight ? Knight->GetSuperClass() : nullptr;
	ASSERT_NE(Mage, nullptr);
	EXPECT_EQ(ToStd(Knight->GetPathName()), "/Script/Far.Knight");
	EXPECT_EQ(ToStd(Mage->GetPathName()), "/Script/Far.Mage");
	EXPECT_EQ(Mage->GetSuperClass(), Class(TEXT("/Script/Engine.Character")));
	EXPECT_EQ(Knight->FindPropertyByName(TEXT("Mana"))->GetOwnerClass(), Mage) << "as its target says";
	EXPECT_EQ(Knight->FindFunctionByName(TEXT("Jump"))->GetOwnerClass(), Mage->GetSuperClass());
}

TEST(StandInMembers, ACallKeepsItsPinsWhenItIsMadeAnew)
{
	const FScene Scene;
	UK2Node_CallFunction* const Print = Scene.FindCall(TEXT("PrintString"));
	ASSERT_NE(Print, nullptr);
	ASSERT_NE(Print->GetTargetFunction(), nullptr);
	EXPECT_TRUE(Print->GetTargetFunction()->HasAnyFunctionFlags(FUNC_Static));
	const auto Describe = [Print]
	{
		std::vector<std::string> Pins;
		for (const UEdGraphPin* const Pin : Print->Pins)
		{
			Pins.push_back(ToStd(Pin->PinName.ToString() + TEXT("=") + Pin->DefaultValue)
				+ (Pin->bHidden ? " hidden" : "") + (Pin->bAdvancedView ? " advanced" : ""));
		}
		return Pins;
	};
	const std::vector<std::string> Before = Describe();
	EXPECT_GT(Before.size(), 5u);
	Print->ReconstructNode();
	EXPECT_EQ(Describe(), Before);
}

TEST(StandInMembers, ACompileTellsEachUnresolvedThingOnceAndIsNoFailure)
{
	const FScene Scene;
	const auto Result = RunTool(Morvane::ToolInfo::ToolName_CompileBlueprint, Compile);
	EXPECT_THAT(Errors(*Result), IsEmpty());
	std::map<std::string, int> Told;
	for (const std::string& Warning : Warnings(*Result))
	{
		const std::size_t End = Warning.find("' is unresolved: ");
		if (End != std::string::npos)
		{
			++Told[Warning.substr(Warning.find('\'') + 1, End - Warning.find('\'') - 1)];
		}
	}
	const std::map<std::string, int> Expected = {
		{"/Script/Far.Hero", 1}, {"/Script/Far.FarLibrary", 1}, {"/Script/Far.Default__FarLibrary", 1}};
	EXPECT_EQ(Told, Expected);
}

TEST(StandInMembers, WhatIsSetOfThemOutlivesAnEditAndASecondOne)
{
	const FScene Scene;
	for (const char* const Name : {"Extra", "More"})
	{
		RunTool(Morvane::ToolInfo::ToolName_BPCreateGraph,
			std::string(R"({"path":"/Game/Tests/BP_Test","functions":[{"name":")") + Name + R"("}]})");
		RunTool(Morvane::ToolInfo::ToolName_CompileBlueprint, Compile);
		const std::string Text = Scene.Text();
		for (const char* const Line : {"JumpMaxCount=0\n", "Mana=(Max=3,Now=1)\n", "/Script/Far.Hero'", Name})
		{
			const std::size_t At = Text.find(Line);
			EXPECT_NE(At, std::string::npos) << Line;
			const bool bValue = std::string(Line).find('=') != std::string::npos;
			EXPECT_TRUE(!bValue || Text.find(Line, At + 1) == std::string::npos) << Line << " stands there twice";
		}
	}
}

TEST(StandInMembers, AnEnumHasTheEntriesThatWereSeen)
{
	FBlueprintBuilder Builder;
	UPackage* const Package = CreatePackage(TEXT("/Game/Tests/E_Used"));
	UUserDefinedEnum* const Enum = Cast<UUserDefinedEnum>(FEnumEditorUtils::CreateUserDefinedEnum(
		Package, TEXT("E_Used"), static_cast<EObjectFlags>(RF_Public | RF_Standalone)));
	FEnumEditorUtils::AddNewEnumeratorForUserDefinedEnum(Enum);
	FEnumEditorUtils::AddNewEnumeratorForUserDefinedEnum(Enum);
	for (const TCHAR* const Name : {TEXT("First"), TEXT("Second")})
	{
		Builder.AddVariable(Name, FBlueprintBuilder::Type(FSchema::PC_Byte, Enum));
		Builder->NewVariables.Last().DefaultValue = TEXT("NewEnumerator1");
	}
	ASSERT_TRUE(Builder.Save());
	Package->MarkAsGarbage();
	const UBlueprint* const Loaded = Builder.Reload();
	ASSERT_NE(Loaded, nullptr);
	const UEnum* const StandIn = Cast<UEnum>(Loaded->NewVariables[0].VarType.PinSubCategoryObject.Get());
	ASSERT_TRUE(FMissingObjects::IsMissing(StandIn));
	ASSERT_EQ(StandIn->NumEnums(), 1);
	EXPECT_EQ(ToStd(StandIn->GetNameStringByIndex(0)), "NewEnumerator1");
}
} // namespace StandInMembersTest
