// Nodes made from their identity, against a table of what the editor's own nodes look like.

#include "GraphBuilder.h"
#include "NodeFactTable.h"
#include "NodeIdentity/NodeByIdentity.h"
#include "Session/EditorModules.h"
#include "ToolResults.h"

#include <gtest/gtest.h>

namespace NodeFactsTests
{
/** What a pin has nothing of is left out. */
static FString Text(const FJsonObject& Pin, const TCHAR* Field)
{
	return Pin.HasTypedField<EJson::String>(Field) ? Pin.GetStringField(Field) : FString();
}

static std::string Container(const FJsonObject& Pin)
{
	const std::string Kind = ToStd(Text(Pin, TEXT("container")));
	return Kind == "Array" ? " []" : Kind == "Set" ? " {}" : Kind == "Map" ? " {:}" : "";
}

/** As the table writes a pin. Categories are names, whose spelling depends on who used them first. */
static std::string Describe(const FJsonObject& Pin)
{
	std::string Line = ToStd(Text(Pin, TEXT("dir"))) == "out" ? ">" : "<";
	Line += ToStd(Text(Pin, TEXT("name"))) + ": " + ToStd(Text(Pin, TEXT("cat")).ToLower());
	const std::string Sub = ToStd(Text(Pin, TEXT("sub")));
	const std::string Object = ToStd(Text(Pin, TEXT("obj")));
	Line += Sub.empty() ? "" : "/" + Sub;
	Line += Object.empty() ? "" : " " + Object;
	Line += Container(Pin);
	Line += Pin.GetBoolField(TEXT("hidden")) ? " hidden" : "";
	Line += Pin.GetBoolField(TEXT("advanced")) ? " advanced" : "";
	return Line;
}

static std::string DescribePins(FNodeByIdentity& Nodes, const std::string& Identity)
{
	const TSharedRef<FJsonObject> Answer = Nodes.Describe(*Json(Identity));
	if (Answer->HasField(TEXT("error")))
	{
		return "error: " + ToStd(Answer->GetStringField(TEXT("error")));
	}
	std::string Text;
	for (const TSharedPtr<FJsonValue>& Pin : Answer->GetArrayField(TEXT("pins")))
	{
		Text += (Text.empty() ? "" : "; ") + Describe(*Pin->AsObject());
	}
	return Text;
}

static std::string Folded(const std::string& Text)
{
	return ToStd(FString(FUTF8ToTCHAR(Text.c_str()).Get()).ToLower());
}

TEST(NodeFacts, PinsAreThoseOfTheEditor)
{
	EditorModules::StartEditor();
	FNodeByIdentity Nodes;
	for (const FNodeFact& Fact : NodeFacts)
	{
		EXPECT_EQ(Folded(DescribePins(Nodes, Fact.Identity)), Folded(Fact.Pins)) << Fact.Identity;
	}
}

TEST(NodeFacts, WhatIsNotKnownIsNamed)
{
	EditorModules::StartEditor();
	FNodeByIdentity Nodes;
	const FNodeFact Cases[] = {
		{R"({"node_class":"K2Node_Nothing"})", "error: There is no node class 'K2Node_Nothing'."},
		{R"({"node_class":"K2Node_CallFunction","function":"Fly","function_parent":"/Script/Engine.Actor"})",
			"error: The function 'Fly' is not known."},
		{R"({"node_class":"K2Node_MacroInstance","macro":"/Game/Mine.Mine:Loop"})",
			"error: The macro '/Game/Mine.Mine:Loop' is not known."},
		{R"({"node_class":"K2Node_VariableGet","variable":"Mana","self_context":true})",
			"error: The variable 'Mana' is not known."}};
	for (const FNodeFact& Case : Cases)
	{
		EXPECT_EQ(DescribePins(Nodes, Case.Identity), Case.Pins);
	}
}

TEST(NodeFacts, OlderTextIsTakenInItsPresentForm)
{
	EditorModules::StartEditor();
	FNodeByIdentity Nodes;
	const std::string Pins = DescribePins(Nodes,
		R"({"node_class":"K2Node_CallFunction","function":"Multiply_FloatFloat","function_parent":"/Script/Engine.KismetMathLibrary","props":{"bIsPureFunc":"True"}})");
	EXPECT_EQ(Pins,
		"<self: object /Script/Engine.KismetMathLibrary hidden; <A: real/double; <B: real/double; >ReturnValue: real/double");
}
} // namespace NodeFactsTests
