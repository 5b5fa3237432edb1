// What a Blueprint refers to goes and comes back: on disk between two runs, and within one session. Nothing of it is
// lost by what is done in between.

#include "BlueprintBuilder.h"
#include "Components/ActorComponent.h"
#include "EdGraphSchema_K2.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "K2Node_CallFunction.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_MacroInstance.h"
#include "K2Node_MakeStruct.h"
#include "K2Node_SpawnActorFromClass.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/EnumEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Kismet2/StructureEditorUtils.h"
#include "Misc/PackageName.h"
#include "Populating.h"
#include "Standalone/MissingObjects.h"
#include "Standalone/PackageText.h"
#include "ToolResults.h"
#include "UObject/Package.h"
#include "UObject/PropertyBagRepository.h"
#include "UObject/SavePackage.h"

#include <filesystem>
#include <set>
#include <sstream>

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;

namespace MissingReferencesTest
{
using FSchema = UEdGraphSchema_K2;

const std::string User = "Content/Tests/BP_Test.uatext";

/** The lines of a package behind its header. */
static std::vector<std::string> BodyLines(const std::string& Text)
{
	std::vector<std::string> Lines;
	std::istringstream Stream(Text.substr(Text.find("\n\n")));
	for (std::string Line; std::getline(Stream, Line);)
	{
		Lines.push_back(Line);
	}
	return Lines;
}

/** A project with assets that BP_Test refers to in every way there is. */
class FScene
{
public:
	FScene()
	{
		MakeUsed();
		MakeUser();
		EXPECT_TRUE(Builder.Save());
		Before = Builder.Folder().Read(User);
		FMissingObjects::TakeAsked();
		FPackageText::TakeProblems();
	}
	~FScene() { DropAll(); }
	FScene(const FScene&) = delete;
	FScene& operator=(const FScene&) = delete;

	static constexpr const char* Used[] = {"BP_Base", "BP_Comp", "BPI_Used", "BML_Used", "S_Used", "E_Used"};

	static UPackage* PackageOf(const char* Name)
	{
		return CreatePackage(*(FString(TEXT("/Game/Tests/")) + FromUtf8(Name)));
	}

	void DropAll() const
	{
		for (const char* const Name : {"BP_Test", "BP_Base", "BP_Comp", "BPI_Used", "BML_Used", "S_Used", "E_Used"})
		{
			if (UPackage* const Package = FindPackage(nullptr, *(FString(TEXT("/Game/Tests/")) + FromUtf8(Name))))
			{
				Package->MarkAsGarbage();
			}
		}
		CollectGarbage();
	}
	std::filesystem::path FileOf(const std::string& Name) const
	{
		return Builder.Folder().Path() / "Content/Tests" / (Name + ".uatext");
	}
	std::string UserText() const { return Builder.Folder().Read(User); }
	void HideUsed() const
	{
		for (const char* const Name : Used)
		{
			std::filesystem::rename(FileOf(Name), Builder.Folder().Path() / (std::string(Name) + ".aside"));
		}
	}
	void ShowUsed() const
	{
		for (const char* const Name : Used)
		{
			std::filesystem::rename(Builder.Folder().Path() / (std::string(Name) + ".aside"), FileOf(Name));
		}
	}

	FBlueprintBuilder Builder;
	std::string Before;

private:
	static void SaveAsset(const char* Name, UObject* Asset)
	{
		const FString File = FPackageName::LongPackageNameToFilename(
			PackageOf(Name)->GetName(), FPackageName::GetAssetPackageExtension());
		FSavePackageArgs Args;
		Args.TopLevelFlags = RF_Standalone;
		EXPECT_TRUE(UPackage::SavePackage(PackageOf(Name), Asset, *File, Args));
	}

	static UBlueprint* MakeBlueprint(const char* Name, const TCHAR* Parent, EBlueprintType Type = BPTYPE_Normal)
	{
		return FKismetEditorUtilities::CreateBlueprint(
			FindObject<UClass>(nullptr, Parent), PackageOf(Name), FName(FromUtf8(Name)), Type);
	}

	static UEdGraph* AddGraph(UBlueprint* Blueprint, const TCHAR* Name)
	{
		UEdGraph* const Graph = FBlueprintEditorUtils::CreateNewGraph(
			Blueprint, FName(Name), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
		if (Blueprint->BlueprintType == BPTYPE_MacroLibrary)
		{
			FBlueprintEditorUtils::AddMacroGraph(Blueprint, Graph, true, nullptr);
		}
		else
		{
			FBlueprintEditorUtils::AddFunctionGraph<UClass>(Blueprint, Graph, true, nullptr);
		}
		return Graph;
	}

	void MakeUsed()
	{
		Base = MakeBlueprint("BP_Base", TEXT("/Script/Engine.Actor"));
		AddGraph(Base, TEXT("OpenBy"));
		FBlueprintEditorUtils::AddMemberVariable(
			Base, TEXT("Speed"), FBlueprintBuilder::Type(FSchema::PC_Int), TEXT("3"));
		Component = MakeBlueprint("BP_Comp", TEXT("/Script/Engine.SceneComponent"));
		FBlueprintEditorUtils::AddMemberVariable(
			Component, TEXT("Power"), FBlueprintBuilder::Type(FSchema::PC_Int), TEXT("1"));
		Interface = MakeBlueprint("BPI_Used", TEXT("/Script/CoreUObject.Interface"), BPTYPE_Interface);
		AddGraph(Interface, TEXT("Interact"));
		Library = MakeBlueprint("BML_Used", TEXT("/Script/Engine.Actor"), BPTYPE_MacroLibrary);
		Macro = AddGraph(Library, TEXT("Twice"));
		Struct = FStructureEditorUtils::CreateUserDefinedStruct(
			PackageOf("S_Used"), TEXT("S_Used"), static_cast<EObjectFlags>(RF_Public | RF_Standalone));
		Enum = FEnumEditorUtils::CreateUserDefinedEnum(
			PackageOf("E_Used"), TEXT("E_Used"), static_cast<EObjectFlags>(RF_Public | RF_Standalone));
		FEnumEditorUtils::AddNewEnumeratorForUserDefinedEnum(Enum);
		FEnumEditorUtils::AddNewEnumeratorForUserDefinedEnum(Enum);
		for (UBlueprint* const Blueprint : {Base, Component, Interface, Library})
		{
			FKismetEditorUtilities::CompileBlueprint(Blueprint);
			SaveAsset(ToStd(Blueprint->GetName()).c_str(), Blueprint);
		}
		SaveAsset("S_Used", Struct);
		SaveAsset("E_Used", Enum);
	}

	void MakeUser()
	{
		UBlueprint* const Blueprint = Builder.Get();
		UClass* const BaseClass = Base->GeneratedClass.Get();
		Blueprint->ParentClass = BaseClass;
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
		FBlueprintEditorUtils::ImplementNewInterface(Blueprint, FTopLevelAssetPath(Interface->GeneratedClass.Get()));
		Builder.AddVariable(TEXT("Door"), FBlueprintBuilder::Type(FSchema::PC_Object, BaseClass));
		Builder.AddVariable(TEXT("Kind"), FBlueprintBuilder::Type(FSchema::PC_Class, BaseClass));
		Blueprint->NewVariables.Last().DefaultValue = BaseClass->GetPathName();
		Builder.AddVariable(TEXT("Data"), FBlueprintBuilder::Type(FSchema::PC_Struct, Struct));
		Builder.AddVariable(TEXT("Mode"), FBlueprintBuilder::Type(FSchema::PC_Byte, Enum));
		Blueprint->NewVariables.Last().DefaultValue = TEXT("NewEnumerator1");
		USCS_Node* const Node = Blueprint->SimpleConstructionScript->CreateNode(
			Component->GeneratedClass.Get(), TEXT("Lamp"));
		Blueprint->SimpleConstructionScript->AddNode(Node);
		FProperty* const Power = Node->ComponentTemplate->GetClass()->FindPropertyByName(TEXT("Power"));
		Power->ImportText_InContainer(TEXT("7"), Node->ComponentTemplate, Node->ComponentTemplate, PPF_None);
		MakeFunction(BaseClass);
		MakeGraph(BaseClass);
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
		FKismetEditorUtilities::CompileBlueprint(Blueprint);
		FProperty* const Speed = Blueprint->GeneratedClass.Get()->FindPropertyByName(TEXT("Speed"));
		UObject* const Default = Blueprint->GeneratedClass.Get()->GetDefaultObject();
		Speed->ImportText_InContainer(TEXT("9"), Default, Default, PPF_None);
	}

	void MakeFunction(UClass* BaseClass) const
	{
		const FGraphBuilder Function = Builder.Function(TEXT("Use"));
		UK2Node_FunctionEntry* const Entry = FBlueprintEditorUtils::GetEntryNode(Function.Get());
		Entry->CreateUserDefinedPin(
			TEXT("Door"), FBlueprintBuilder::Type(FSchema::PC_Object, BaseClass), EGPD_Output, false);
		Entry->CreateUserDefinedPin(
			TEXT("Data"), FBlueprintBuilder::Type(FSchema::PC_Struct, Struct), EGPD_Output, false);
		FBPVariableDescription Local;
		Local.VarName = TEXT("Mode");
		Local.VarGuid = FGuid::NewGuid();
		Local.VarType = FBlueprintBuilder::Type(FSchema::PC_Byte, Enum);
		Entry->LocalVariables.Add(Local);
	}

	void MakeGraph(UClass* BaseClass) const
	{
		FGraphBuilder Graph = Builder.Function(TEXT("Doing"));
		UK2Node_DynamicCast* const Cast = Graph.Add<UK2Node_DynamicCast>();
		Cast->TargetType = BaseClass;
		Cast->ReconstructNode();
		UK2Node_CallFunction* const Call = Graph.Add<UK2Node_CallFunction>();
		Call->FunctionReference.SetExternalMember(TEXT("OpenBy"), BaseClass);
		Call->ReconstructNode();
		Cast->GetCastResultPin()->MakeLinkTo(Call->FindPin(FSchema::PN_Self));
		UK2Node_MacroInstance* const Use = Graph.Add<UK2Node_MacroInstance>();
		Use->SetMacroGraph(Macro);
		Use->ReconstructNode();
		UK2Node_SpawnActorFromClass* const Spawn = Graph.Add<UK2Node_SpawnActorFromClass>();
		Spawn->GetClassPin()->DefaultObject = BaseClass;
		Spawn->ReconstructNode();
		UK2Node_MakeStruct* const Make = Graph.Add<UK2Node_MakeStruct>();
		Make->StructType = Struct;
		Make->ReconstructNode();
	}

	UBlueprint* Base = nullptr;
	UBlueprint* Component = nullptr;
	UBlueprint* Interface = nullptr;
	UBlueprint* Library = nullptr;
	UEdGraph* Macro = nullptr;
	UUserDefinedStruct* Struct = nullptr;
	UUserDefinedEnum* Enum = nullptr;
};

/** An edit of something else, through the tools, and a compile. */
static void EditAndCompile(const std::string& Function)
{
	const auto Created = RunTool(Morvane::ToolInfo::ToolName_BPCreateGraph,
		R"({"path":"/Game/Tests/BP_Test","functions":[{"name":")" + Function + R"("}]})");
	EXPECT_TRUE(Created->WasSuccessful()) << testing::PrintToString(Errors(*Created));
	RunTool(Morvane::ToolInfo::ToolName_CompileBlueprint, R"({"blueprint_paths":["/Game/Tests/BP_Test"]})");
	RunTool(Morvane::ToolInfo::ToolName_BPCreateGraph,
		R"({"path":"/Game/Tests/BP_Test","functions":[{"name":")" + Function + R"(2"}]})");
}

/** What compiling says: the errors. */
static std::vector<std::string> CompileErrors()
{
	return Errors(
		*RunTool(Morvane::ToolInfo::ToolName_CompileBlueprint, R"({"blueprint_paths":["/Game/Tests/BP_Test"]})"));
}

/** Lines of before that are not there any more, but for those that an edit is about. */
static std::vector<std::string> LostLines(const std::string& Before, const std::string& After)
{
	const std::vector<std::string> Now = BodyLines(After);
	const std::multiset<std::string> Present(Now.begin(), Now.end());
	std::vector<std::string> Lost;
	for (const std::string& Line : BodyLines(Before))
	{
		// What the last compile said of a node is its business.
		if (Present.count(Line) == 0 && Line.find(" Error") == std::string::npos)
		{
			Lost.push_back(Line);
		}
	}
	return Lost;
}

static void ExpectAllBound()
{
	EXPECT_THAT(CompileErrors(), IsEmpty());
	const UBlueprint* const Blueprint = LoadObject<UBlueprint>(nullptr, TEXT("/Game/Tests/BP_Test.BP_Test"));
	ASSERT_NE(Blueprint, nullptr);
	EXPECT_EQ(Blueprint->ParentClass.Get(), FindObject<UClass>(nullptr, TEXT("/Game/Tests/BP_Base.BP_Base_C")));
	const UClass* const Class = Blueprint->GeneratedClass.Get();
	const FProperty* const Speed = Class->FindPropertyByName(TEXT("Speed"));
	ASSERT_NE(Speed, nullptr);
	FString Text;
	Speed->ExportTextItem_Direct(Text, Speed->GetValuePtr(Class->GetDefaultObject()), nullptr, nullptr, PPF_None);
	EXPECT_EQ(ToStd(Text), "9") << "what the child set of its parent's variable";
	const USCS_Node* const Lamp = Blueprint->SimpleConstructionScript->FindSCSNode(TEXT("Lamp"));
	ASSERT_NE(Lamp, nullptr);
	const FProperty* const Power = Lamp->ComponentTemplate->GetClass()->FindPropertyByName(TEXT("Power"));
	ASSERT_NE(Power, nullptr);
	Text.Reset();
	Power->ExportTextItem_Direct(Text, Power->GetValuePtr(Lamp->ComponentTemplate), nullptr, nullptr, PPF_None);
	EXPECT_EQ(ToStd(Text), "7") << "what was set on the component";
}

TEST(MissingReferences, WhatIsGoneAtLoadIsKeptThroughAnEditAndBoundWhenItIsThere)
{
	const FScene Scene;
	Scene.DropAll();
	Scene.HideUsed();
	ASSERT_NE(LoadObject<UBlueprint>(nullptr, TEXT("/Game/Tests/BP_Test.BP_Test")), nullptr);
	const std::vector<std::string> Problems = ToStdList(FPackageText::TakeProblems());
	for (const char* const Path :
		{"/Game/Tests/BP_Base.BP_Base_C", "/Game/Tests/BP_Comp.BP_Comp_C", "/Game/Tests/BPI_Used.BPI_Used_C",
			"/Game/Tests/BML_Used.BML_Used:Twice", "/Game/Tests/S_Used.S_Used", "/Game/Tests/E_Used.E_Used"})
	{
		EXPECT_THAT(Problems,
			Contains(testing::AllOf(
				HasSubstr("BP_Test.uatext, line "), HasSubstr(std::string("'") + Path + "' is missing"))))
			<< Path;
	}
	EditAndCompile("Extra");
	EXPECT_THAT(LostLines(Scene.Before, Scene.UserText()), IsEmpty());
	EXPECT_THAT(CompileErrors(), Not(IsEmpty()));

	Scene.ShowUsed();
	FMissingObjects::LoadAndBind();
	ExpectAllBound();
	EditAndCompile("More");
	EXPECT_THAT(LostLines(Scene.Before, Scene.UserText()), IsEmpty());
	Scene.DropAll();
	EXPECT_NE(LoadObject<UBlueprint>(nullptr, TEXT("/Game/Tests/BP_Test.BP_Test")), nullptr);
	EXPECT_THAT(ToStdList(FPackageText::TakeProblems()), IsEmpty());
	ExpectAllBound();
}

TEST(MissingReferences, WhatIsDeletedInTheSessionIsKeptThroughAnEditAndBoundWhenItIsMadeAgain)
{
	const FScene Scene;
	Scene.HideUsed();
	for (const char* const Name : FScene::Used)
	{
		FScene::PackageOf(Name)->MarkAsGarbage();
	}
	CollectGarbage();
	EditAndCompile("Extra");
	EXPECT_THAT(LostLines(Scene.Before, Scene.UserText()), IsEmpty());

	Scene.ShowUsed();
	FMissingObjects::LoadAndBind();
	ExpectAllBound();
	EditAndCompile("More");
	EXPECT_THAT(LostLines(Scene.Before, Scene.UserText()), IsEmpty());
}
TEST(MissingReferences, NodesAndComponentsOfUnknownClassesAreKeptAndTold)
{
	FBlueprintBuilder Builder;
	Builder.EventGraph().Call(TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("PrintString"));
	ASSERT_TRUE(Builder.Save());
	std::string Bytes = Builder.Folder().Read(User);
	FPackageText::FHeader Header;
	FString Error;
	ASSERT_TRUE(FPackageText::CheckBytes(Bytes, TEXT("test"), Header, Error)) << ToStd(Error);
	std::string Body = Bytes.substr(static_cast<std::size_t>(Header.BodyOffset));
	for (const auto& [Known, Unknown] :
		{std::pair<std::string, std::string>{"BlueprintGraph.K2Node_CallFunction", "Far.K2Node_Fancy"},
			{"Engine.SceneComponent", "Far.LampComponent"}})
	{
		for (std::size_t At = 0; (At = Body.find(Known, At)) != std::string::npos; At += Unknown.size())
		{
			Body.replace(At, Known.size(), Unknown);
		}
	}
	Bytes = FPackageText::MakeBytes(Header, Body);
	Builder.Folder().Write(User, Bytes);
	FPackageText::TakeProblems();
	ASSERT_NE(Builder.Reload(), nullptr);
	const std::vector<std::string> Problems = ToStdList(FPackageText::TakeProblems());
	EXPECT_THAT(Problems, Contains(HasSubstr("the class '/Script/Far.K2Node_Fancy' of ")));
	EXPECT_THAT(Problems, Contains(HasSubstr("'/Script/Far.LampComponent' is missing")));
	EditAndCompile("Extra");
	EXPECT_THAT(LostLines(Bytes, Builder.Folder().Read(User)), IsEmpty());
}

TEST(MissingReferences, ReadsLeaveNothingOutAndSayWhatIsUnresolved)
{
	const FScene Scene;
	Scene.DropAll();
	Scene.HideUsed();
	const auto Read = [](const TCHAR* Tool, const std::string& Arguments)
	{
		const auto Result = RunTool(
			Tool, R"({"path":"/Game/Tests/BP_Test")" + (Arguments.empty() ? "" : "," + Arguments) + "}");
		FString Content;
		EXPECT_THAT(Errors(*Result), IsEmpty());
		if (!Result->GetDatas())
		{
			return std::string();
		}
		Result->GetDatas()->TryGetStringField(TEXT("content"), Content);
		return ToStd(Content);
	};
	const std::string Schema = Read(TEXT("read_blueprint_schema"), "");
	for (const char* const Part : {R"("path":"/Game/Tests/BP_Base.BP_Base_C","unresolved":true)",
			 R"("class":"/Game/Tests/BPI_Used.BPI_Used_C","unresolved":true)",
			 R"("class_name":"BP_Comp_C","class_path":"/Game/Tests/BP_Comp.BP_Comp_C","unresolved":true)",
			 R"("sub_category_object":"/Game/Tests/S_Used.S_Used","unresolved":true)"})
	{
		EXPECT_THAT(Schema, HasSubstr(Part));
	}
	const std::string Doing = Read(TEXT("read_blueprint_function"), R"("function_name":"Doing")");
	EXPECT_THAT(Doing, HasSubstr(R"("unresolved":["/Game/Tests/BP_Base.BP_Base_C"])"));
	EXPECT_THAT(Doing, HasSubstr("/Game/Tests/BML_Used.BML_Used:Twice"));
	Scene.ShowUsed();
}
} // namespace MissingReferencesTest
