// Names that are made, and texts that are set, are the same after the file was read again.

#include "BlueprintBuilder.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionEntry.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "Misc/PackageName.h"
#include "Populating.h"
#include "ToolResults.h"
#include "UObject/Package.h"

#include <random>

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace NamesAndTextsTest
{
static FString Text(const char32_t* CodePoints)
{
	std::wstring Wide;
	for (; *CodePoints; ++CodePoints)
	{
		Wide.push_back(static_cast<wchar_t>(*CodePoints));
	}
	return FString(Wide.c_str());
}

/** A JSON string of it. */
static std::string Quoted(const FString& Value)
{
	const TSharedRef<FJsonObject> Object = MakeShared<FJsonObject>();
	Object->SetStringField(TEXT("v"), Value);
	const std::string Json = JsonText(Object);
	return Json.substr(5, Json.size() - 6);
}

/** Something that a request makes under a name, and whether the Blueprint has it. */
struct FKind
{
	const char* Label;
	const TCHAR* Tool;
	/** The members of the request behind its path, with NAME in the name's place. */
	const char* Request;
	bool (*Has)(const UBlueprint&, FName);
};

static bool HasGraph(const TArray<TObjectPtr<UEdGraph>>& Graphs, FName Name)
{
	return Graphs.ContainsByPredicate([Name](const UEdGraph* Graph) { return Graph->GetFName() == Name; });
}

const FKind Kinds[] = {
	{"function", Morvane::ToolInfo::ToolName_BPCreateGraph, R"("functions":[{"name":NAME}])",
		[](const UBlueprint& Blueprint, FName Name) { return HasGraph(Blueprint.FunctionGraphs, Name); }},
	{"dispatcher", Morvane::ToolInfo::ToolName_BPCreateGraph, R"("functions":[{"name":NAME,"is_delegate":true}])",
		[](const UBlueprint& Blueprint, FName Name) { return HasGraph(Blueprint.DelegateSignatureGraphs, Name); }},
	{"event graph", Morvane::ToolInfo::ToolName_BPPopulateGraph,
		R"("graph_name":NAME,"graph_type":"event","nodes":[{"node_guid":"a","class_name":"K2Node_CallFunction","target_class":"KismetSystemLibrary","target_function":"PrintString"}])",
		[](const UBlueprint& Blueprint, FName Name) { return HasGraph(Blueprint.UbergraphPages, Name); }},
	{"custom event", Morvane::ToolInfo::ToolName_BPPopulateGraph,
		R"("graph_name":"EventGraph","nodes":[{"node_guid":"a","class_name":"K2Node_CustomEvent","node_metadata":{"event_name":NAME}}])",
		[](const UBlueprint& Blueprint, FName Name)
		{
			TArray<UK2Node_CustomEvent*> Events;
			FBlueprintEditorUtils::GetAllNodesOfClass(&Blueprint, Events);
			return Events.ContainsByPredicate(
				[Name](const UK2Node_CustomEvent* Event) { return Event->CustomFunctionName == Name; });
		}},
	{"local variable", Morvane::ToolInfo::ToolName_BPPopulateGraph,
		R"("graph_name":"Work","local_variables":[{"name":NAME,"type":{"category":"int"}}],"nodes":[{"node_guid":"a","class_name":"K2Node_CallFunction","target_class":"KismetSystemLibrary","target_function":"PrintString"}])",
		[](const UBlueprint& Blueprint, FName Name)
		{
			TArray<UK2Node_FunctionEntry*> Entries;
			FBlueprintEditorUtils::GetAllNodesOfClass(&Blueprint, Entries);
			return Entries.ContainsByPredicate(
				[Name](const UK2Node_FunctionEntry* Entry)
				{
					return Entry->LocalVariables.ContainsByPredicate(
						[Name](const FBPVariableDescription& Variable) { return Variable.VarName == Name; });
				});
		}},
};

struct FNameRow
{
	const char32_t* Name;
	bool bGood;
};

const FNameRow Names[] = {
	{U"Attack Heavy", true},
	{U"Attack: Heavy", false},
	{U"Open ", false},
	{U" Open", false},
	{U"Open\u3000", false},
	{U"Say \"Hi\"", false},
	{U"It's", false},
	{U"On.Hit", false},
	{U"Combat.Events", false},
	{U"Back\\slash", false},
	{U"Line\nbreak", false},
	{U"Tab\there", false},
	{U"None", false},
	{U"none", false},
	{U"Turn\u202Eed", false},
	{U"Zero\u200Bwidth", false},
	{U"Mark\uFEFF", false},
	{U"Cafe\u0301", false},
	{U"Line\u2028end", false},
	{U"\u0085", false},
	{U"Caf\u00E9", true},
	{U"\u65E5\u672C\u8A9E", true},
	{U"\U0001F600 Smile", true},
	{U"a,b", true},
	{U"x(1)", true},
	{U"[x]", true},
	{U"100%", true},
	{U"C++ & co", true},
	{U"a=b", true},
	{U"{a}", true},
	{U"#1", true},
	{U"Is it open?", true},
	{U"Open_01", true},
	{U"CON", true},
	{U"0", true},
};

TEST(NewNames, WhatWasMadeIsThereAfterALoadAndWhatCannotBeANameIsRefused)
{
	for (const FKind& Kind : Kinds)
	{
		FBlueprintBuilder Builder;
		RunTool(Morvane::ToolInfo::ToolName_BPCreateGraph,
			R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"Work"}]})");
		for (const FNameRow& Row : Names)
		{
			const FString Name = Text(Row.Name);
			std::string Request = Kind.Request;
			Request.replace(Request.find("NAME"), 4, Quoted(Name));
			const auto Result = RunTool(Kind.Tool, R"({"path":"/Game/Tests/BP_Test",)" + Request + "}");
			const std::string Said = testing::PrintToString(Errors(*Result))
				+ testing::PrintToString(Warnings(*Result));
			EXPECT_EQ(Kind.Has(*Builder.Get(), FName(Name)), Row.bGood)
				<< Kind.Label << " " << ToStd(Name) << " " << Said;
			if (!Row.bGood)
			{
				EXPECT_THAT(Said, HasSubstr("cannot be a name")) << Kind.Label << " " << ToStd(Name);
			}
		}
		ASSERT_TRUE(Builder.Save());
		const UBlueprint* const Again = Builder.Reload();
		ASSERT_NE(Again, nullptr);
		for (const FNameRow& Row : Names)
		{
			EXPECT_EQ(Kind.Has(*Again, FName(Text(Row.Name))), Row.bGood)
				<< Kind.Label << " " << ToStd(Text(Row.Name)) << " after a load";
		}
	}
}

TEST(NewNames, AssetsAndFoldersAreFileNamesEverywhere)
{
	const FBlueprintBuilder Builder;
	const auto Create = [](const FString& Path)
	{
		const auto Result = RunTool(Morvane::ToolInfo::ToolName_BPCreateAsset,
			R"({"path":)" + Quoted(Path)
				+ R"(,"blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})");
		const bool bMade = Result->WasSuccessful();
		EXPECT_EQ(bMade, Errors(*Result).empty());
		if (UPackage* const Package = FindPackage(nullptr, *Path))
		{
			EXPECT_TRUE(bMade) << ToStd(Path);
			Package->MarkAsGarbage();
		}
		CollectGarbage();
		return bMade;
	};
	for (const char32_t* const Bad :
		{U"/Game/CON", U"/Game/nul", U"/Game/aux/BP_A", U"/Game/Com1", U"/Game/None", U"/Game/None/BP_A",
			U"/Game/BP_\u202EA", U"/Game/Cafe\u0301", U"/Game/A\u200B/BP_B", U"/Game/A /BP_B", U"/Game/A.B/BP_C:D"})
	{
		EXPECT_FALSE(Create(Text(Bad))) << ToStd(Text(Bad));
	}
	for (const char32_t* const Good : {U"/Game/Console/BP_A", U"/Game/Caf\u00E9", U"/Game/\u65E5\u672C/BP_B"})
	{
		EXPECT_TRUE(Create(Text(Good))) << ToStd(Text(Good));
	}
}

TEST(NewNames, AFolderOfAnotherSpellingIsTheFolderThatStands)
{
	const FBlueprintBuilder Builder;
	const auto Result = RunTool(Morvane::ToolInfo::ToolName_BPCreateAsset,
		R"({"path":"/Game/tests/BP_Other","blueprint_parent_class":{"type":"native","parent_path":"/Script/Engine.Actor"}})");
	EXPECT_THAT(Errors(*Result), IsEmpty());
	UPackage* const Package = FindPackage(nullptr, TEXT("/Game/Tests/BP_Other"));
	ASSERT_NE(Package, nullptr);
	EXPECT_EQ(ToStd(Package->GetName()), "/Game/Tests/BP_Other");
	Package->MarkAsGarbage();
}

TEST(Texts, ANullIsRefusedByTheKeyThatHoldsIt)
{
	const FBlueprintBuilder Builder;
	struct FRow
	{
		const TCHAR* Tool;
		const char* Arguments;
		const char* Key;
	};
	for (const FRow& Row :
		{FRow{Morvane::ToolInfo::ToolName_BPCreateGraph,
			 R"({"path":"/Game/Tests/BP_Test","functions":[{"name":"A"},{"name":"B\u0000C"}]})", "functions[1].name"},
			FRow{Morvane::ToolInfo::ToolName_ReadBlueprintSchema, R"({"path":"/Game/Tests/BP_\u0000Test"})", "path"},
			FRow{Morvane::ToolInfo::ToolName_ReadBlueprintSchema, R"({"path":"/Game/Tests/BP_Test","a\u0000b":1})",
				"a\\u0000"},
			FRow{Morvane::ToolInfo::ToolName_BPPopulateGraph,
				R"({"path":"/Game/Tests/BP_Test","graph_name":"EventGraph","nodes":[{"pins":[["\u0000"]]}]})",
				"nodes[0].pins[0][0]"}})
	{
		EXPECT_THAT(Errors(*RunTool(Row.Tool, Row.Arguments)),
			ElementsAre(
				std::string("'") + Row.Key + "' holds the character U+0000, which no text of an asset can hold"));
	}
	EXPECT_FALSE(HasGraph(Builder->FunctionGraphs, TEXT("A"))) << "nothing of the call is done";
}

/** Every text field that a file has, set and read again. */
struct FTexts
{
	explicit FTexts(UBlueprint* InBlueprint)
		: Blueprint(InBlueprint)
	{
	}
	UEdGraphNode& Node() const
	{
		return **FBlueprintEditorUtils::FindEventGraph(Blueprint)->Nodes.FindByPredicate(
			[](const UEdGraphNode* Each) { return Each->NodePosX == 4321; });
	}
	UEdGraphPin& Pin() const { return *Node().FindPin(TEXT("InString")); }
	FBPVariableDescription& Variable() const { return Blueprint->NewVariables[0]; }
	FBPVariableDescription& Local() const
	{
		TArray<UK2Node_FunctionEntry*> Entries;
		FBlueprintEditorUtils::GetAllNodesOfClass(Blueprint, Entries);
		return Entries
			.FindByPredicate([](const UK2Node_FunctionEntry* Entry) { return !Entry->LocalVariables.IsEmpty(); })[0]
			->LocalVariables[0];
	}
	void Set(const FString& Value) const
	{
		Pin().DefaultValue = Value;
		Pin().PinToolTip = Value;
		Pin().DefaultTextValue = FText::FromString(Value);
		Node().NodeComment = Value;
		Blueprint->BlueprintDescription = Value;
		Variable().DefaultValue = Value;
		Variable().FriendlyName = Value;
		Variable().Category = FText::FromString(Value);
		Variable().SetMetaData(TEXT("tooltip"), Value);
		Local().DefaultValue = Value;
	}
	TArray<FString> Get() const
	{
		return {Pin().DefaultValue, Pin().PinToolTip, Pin().DefaultTextValue.ToString(), Node().NodeComment,
			Blueprint->BlueprintDescription, Variable().DefaultValue, Variable().FriendlyName,
			Variable().Category.ToString(), Variable().GetMetaData(TEXT("tooltip")), Local().DefaultValue};
	}

	UBlueprint* Blueprint;
};

/** All classes of code points: each end of each, with what a text form gives a meaning to. */
static std::vector<uint32> CodePoints()
{
	std::vector<uint32> List;
	for (uint32 Code = 1; Code < 0x180; ++Code)
	{
		List.push_back(Code);
	}
	for (const uint32 Code : {0x300u, 0x5D0u, 0x627u, 0x200Bu, 0x200Du, 0x2028u, 0x2029u, 0x202Eu, 0x2066u, 0x3000u,
			 0xAC00u, 0xD7FFu, 0xE000u, 0xF8FFu, 0xFDD0u, 0xFEFFu, 0xFFFDu, 0xFFFEu, 0xFFFFu, 0x10000u, 0x1F600u,
			 0x1FFFFu, 0xE0001u, 0xF0000u, 0x10FFFEu, 0x10FFFFu})
	{
		List.push_back(Code);
	}
	return List;
}

TEST(Texts, EveryClassOfCodePointsIsTheSameAfterALoad)
{
	FBlueprintBuilder Builder;
	const FNodeHandle Print = Builder.EventGraph().Call(
		TEXT("/Script/Engine.KismetSystemLibrary"), TEXT("PrintString"));
	FGraphBuilder::Move(Print, 4321, 0);
	Builder.AddVariable(TEXT("Label"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_String));
	FBPVariableDescription Local;
	Local.VarName = TEXT("Local");
	Local.VarGuid = FGuid::NewGuid();
	Local.VarType = FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_String);
	FBlueprintEditorUtils::GetEntryNode(Builder.Function(TEXT("Work")).Get())->LocalVariables.Add(Local);

	const std::vector<uint32> All = CodePoints();
	std::mt19937 Random(7);
	std::vector<std::wstring> Cases(8);
	// Each alone among letters, then any beside any other.
	for (const uint32 Code : All)
	{
		Cases[0] += L"a";
		Cases[0] += static_cast<wchar_t>(Code);
	}
	for (std::size_t Index = 1; Index < Cases.size(); ++Index)
	{
		for (int32 Length = 0; Length < 300; ++Length)
		{
			Cases[Index] += static_cast<wchar_t>(All[Random() % All.size()]);
		}
	}
	for (const wchar_t* const Edge :
		{L"\\", L"\"", L"\n", L" ", L"\\\"", L"x\\", L"None", L"()", L"NSLOCTEXT(\"a\", \"b\", \"c\")",
			L"INVTEXT(\"x\")", L"LOCTEXT(", L"'", L"/Script/Engine.Actor'x'", L"\r\n", L",)", L"\uFEFF"})
	{
		Cases.emplace_back(Edge);
	}
	for (const std::wstring& Case : Cases)
	{
		const FString Value(Case.c_str());
		FTexts(Builder.Get()).Set(Value);
		ASSERT_TRUE(Builder.Save()) << ToStd(Value);
		ASSERT_NE(Builder.Reload(), nullptr) << ToStd(Value);
		const TArray<FString> Read = FTexts(Builder.Get()).Get();
		for (int32 Index = 0; Index < Read.Num(); ++Index)
		{
			EXPECT_TRUE(Read[Index].Equals(Value, ESearchCase::CaseSensitive))
				<< "field " << Index << ": '" << ToStd(Value) << "' is '" << ToStd(Read[Index]) << "'";
		}
	}
}
} // namespace NamesAndTextsTest
