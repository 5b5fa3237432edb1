#include <set>

#include <gtest/gtest.h>

#include "Containers/StringConv.h"
#include "Dom/JsonObject.h"
#include "Standalone/JsonUtf8.h"
#include "ToolFace/ResultObject.h"
#include "ToolFace/ToolListing.h"
#include "ToolFace/ToolSchema.h"

namespace ToolSchemaTest
{
static TSharedPtr<FJsonValue> Parse(const std::string_view Text)
{
	TSharedPtr<FJsonValue> Value;
	FString Error;
	EXPECT_TRUE(JsonUtf8::ParseValue(Text, Value, Error)) << ToUtf8(Error) << "\n" << Text;
	return Value ? Value : TSharedPtr<FJsonValue>(MakeShared<FJsonValueNull>());
}

/** Looks for what some client would reject or no model could use. Collects the shared types that are pointed to. */
class FSchemaCheck
{
public:
	explicit FSchemaCheck(std::string InLabel)
		: Label(std::move(InLabel))
	{
	}

	void Check(const TSharedPtr<FJsonValue>& Schema, const std::string& Where)
	{
		ASSERT_TRUE(Schema && Schema->Type == EJson::Object) << Label << Where << " is not an object";
		const FJsonObject& Object = *Schema->AsObject();
		for (const auto& Pair : Object.Values)
		{
			const std::string Key = ToUtf8(Pair.Key);
			EXPECT_TRUE(Known.contains(Key)) << Label << Where << " uses the keyword " << Key;
			EXPECT_FALSE(Pair.Value->IsNull()) << Label << Where << "/" << Key;
		}
		CheckChildren(Object, Where);
		CheckRequired(Object, Where);
		if (const TSharedPtr<FJsonValue> Reference = Object.TryGetField(TEXT("$ref")))
		{
			const std::string Target = ToUtf8(Reference->AsString());
			EXPECT_TRUE(Target.starts_with("#/$defs/")) << Label << Target;
			References.insert(Target.substr(std::string("#/$defs/").size()));
		}
	}

	std::set<std::string> References;

private:
	void CheckChildren(const FJsonObject& Object, const std::string& Where)
	{
		for (const TCHAR* Name : {TEXT("properties"), TEXT("$defs")})
		{
			const TSharedPtr<FJsonObject>* Children = nullptr;
			if (Object.TryGetObjectField(Name, Children))
			{
				for (const auto& Pair : (*Children)->Values)
				{
					Check(Pair.Value, Where + "/" + ToUtf8(Pair.Key));
				}
			}
		}
		for (const TCHAR* Name : {TEXT("items"), TEXT("additionalProperties")})
		{
			if (const TSharedPtr<FJsonValue> Child = Object.TryGetField(Name))
			{
				Check(Child, Where + "/" + ToUtf8(FString(Name)));
			}
		}
		const TArray<TSharedPtr<FJsonValue>>* Choices = nullptr;
		if (Object.TryGetArrayField(TEXT("anyOf"), Choices))
		{
			for (const TSharedPtr<FJsonValue>& Choice : *Choices)
			{
				Check(Choice, Where + "/anyOf");
			}
		}
	}

	void CheckRequired(const FJsonObject& Object, const std::string& Where) const
	{
		const TSharedPtr<FJsonObject>* Properties = nullptr;
		const TArray<TSharedPtr<FJsonValue>>* Names = nullptr;
		if (!Object.TryGetArrayField(TEXT("required"), Names))
		{
			return;
		}
		ASSERT_TRUE(Object.TryGetObjectField(TEXT("properties"), Properties)) << Label << Where;
		for (const TSharedPtr<FJsonValue>& Name : *Names)
		{
			EXPECT_TRUE((*Properties)->HasField(Name->AsString()))
				<< Label << Where << " requires " << ToUtf8(Name->AsString()) << ", which it does not describe";
		}
	}

	const std::string Label;
	/** What every engine in use understands in the same way. */
	const std::set<std::string> Known = {"type", "properties", "required", "items", "enum", "const", "oneOf", "anyOf",
		"allOf", "minimum", "maximum", "minItems", "pattern", "description", "default", "additionalProperties", "$defs",
		"$ref"};
};
} // namespace ToolSchemaTest

TEST(ToolSchemas, InputSchemasStayInTheCommonPartOfJsonSchema)
{
	std::set<std::string_view> Names;
	for (const FToolSchema* Schema : ToolSchemas::All())
	{
		const std::string Name(Schema->Name);
		EXPECT_TRUE(Names.insert(Schema->Name).second) << Name;
		const TSharedPtr<FJsonValue> Input = ToolSchemaTest::Parse(ToolListing::InputSchemaJson(Name));
		ToolSchemaTest::FSchemaCheck Check(Name);
		Check.Check(Input, "");
		EXPECT_EQ(ToUtf8(Input->AsObject()->GetStringField(TEXT("type"))), "object") << Name;
		const TSharedPtr<FJsonObject>* Shared = nullptr;
		const bool bShared = Input->AsObject()->TryGetObjectField(TEXT("$defs"), Shared);
		EXPECT_EQ(bShared ? static_cast<size_t>((*Shared)->Values.Num()) : 0u, Check.References.size()) << Name;
		for (const std::string& Reference : Check.References)
		{
			EXPECT_TRUE(bShared && (*Shared)->HasField(FromUtf8(Reference))) << Name << " points to " << Reference;
		}
	}
	EXPECT_EQ(Names.size(), 19u);
}

TEST(ToolSchemas, ResultSchemaFitsEveryClient)
{
	const TSharedPtr<FJsonValue> Result = ToolSchemaTest::Parse(ResultObject::Schema());
	ToolSchemaTest::FSchemaCheck("result").Check(Result, "");
	EXPECT_EQ(ToUtf8(Result->AsObject()->GetStringField(TEXT("type"))), "object");
}

TEST(ToolSchemas, HintsTellWhatAToolMayDo)
{
	struct FCase
	{
		const char* Name;
		bool bReadOnly;
		bool bDestructive;
		bool bIdempotent;
	};
	const FCase Cases[] = {
		{"read_blueprint_schema", true, false, true},
		{"read_blueprint_widget_tree", true, false, true},
		{"modify_blueprint_class_structure", false, true, false},
		{"ui_modify_widget_bp", false, true, false},
		{"bp_populate_graph", false, true, false},
		{"bp_create_graph", false, true, false},
		{"bp_modify_graph_nodes", false, true, false},
		{"bp_remove_graph_connections", false, true, false},
		{"bp_create_asset", false, false, false},
		{"delete_blueprint", false, true, true},
		{"compile_blueprint", false, false, true},
	};
	for (const FCase& Case : Cases)
	{
		const TSharedPtr<FJsonValue> Listed = ToolSchemaTest::Parse(ToolListing::Json({{Case.Name, "text"}}));
		const TSharedPtr<FJsonObject> Hints = Listed->AsArray()[0]->AsObject()->GetObjectField(TEXT("annotations"));
		ASSERT_TRUE(Hints.IsValid()) << Case.Name;
		EXPECT_EQ(Hints->GetBoolField(TEXT("readOnlyHint")), Case.bReadOnly) << Case.Name;
		EXPECT_EQ(Hints->GetBoolField(TEXT("destructiveHint")), Case.bDestructive) << Case.Name;
		EXPECT_EQ(Hints->GetBoolField(TEXT("idempotentHint")), Case.bIdempotent) << Case.Name;
		EXPECT_TRUE(Hints->HasTypedField<EJson::Boolean>(TEXT("openWorldHint"))) << Case.Name;
		EXPECT_FALSE(Hints->GetBoolField(TEXT("openWorldHint"))) << Case.Name;
	}
}

TEST(ToolSchemas, ToolWithoutASchemaIsListedAllTheSame)
{
	EXPECT_EQ(ToolListing::Json({}), "[]");
	const TSharedPtr<FJsonObject> Tool =
		ToolSchemaTest::Parse(ToolListing::Json({{"own", "a \"tool\""}}))->AsArray()[0]->AsObject();
	EXPECT_EQ(ToUtf8(Tool->GetStringField(TEXT("description"))), "a \"tool\"");
	EXPECT_EQ(ToUtf8(Tool->GetObjectField(TEXT("inputSchema"))->GetStringField(TEXT("type"))), "object");
	EXPECT_FALSE(Tool->HasField(TEXT("title")));
	EXPECT_FALSE(Tool->HasField(TEXT("annotations")));
}
