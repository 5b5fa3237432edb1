#include "ToolFace/ArgumentCheck.h"

#include <algorithm>
#include <map>
#include <string>

#include "Containers/StringConv.h"
#include "Dom/JsonObject.h"
#include "JsonReading.h"
#include "Standalone/JsonUtf8.h"
#include "ToolFace/ToolListing.h"
#include "ToolFace/ToolSchema.h"
#include "ToolResult.h"

namespace ArgumentCheckPrivate
{
/** Past these, an agent learns nothing more from one more of the same. */
constexpr int32 MostFindings = 25;
constexpr int32 MostListedKeys = 16;

/** Keys that the tools read and that no agent needs to hear of. */
struct FQuietKey
{
	const TCHAR* Within;
	const TCHAR* Key;
	/** Null: whichever reads such a thing. */
	const TCHAR* Tool = nullptr;
};
constexpr const TCHAR* RemoveConnections = TEXT("bp_remove_graph_connections");
constexpr FQuietKey QuietKeys[] = {
	{TEXT(""), TEXT("_internal_nodes")},
	{TEXT(""), TEXT("functions")},
	{TEXT("nodes"), TEXT("exact_match")},
	{TEXT("node_metadata"), TEXT("spawn_method")},
	{TEXT("node_metadata"), TEXT("test_category")},
	{TEXT("node_metadata"), TEXT("class_name")},
	{TEXT("node_metadata"), TEXT("target_function")},
	{TEXT("node_metadata"), TEXT("FunctionName")},
	// It is the run of bp_modify_graph_nodes, and does whatever that is asked for.
	{TEXT(""), TEXT("action"), RemoveConnections},
	{TEXT(""), TEXT("nodes"), RemoveConnections},
	{TEXT(""), TEXT("local_variables"), RemoveConnections},
	{TEXT(""), TEXT("is_pure"), RemoveConnections},
};

static bool IsQuiet(const FString& Tool, const FString& Within, const FString& Key)
{
	return std::any_of(std::begin(QuietKeys), std::end(QuietKeys),
		[&](const FQuietKey& Row)
		{ return Within == Row.Within && Key == Row.Key && (!Row.Tool || Tool == Row.Tool); });
}

/** Tools that take a number for a text, a list for an object, words and members in any case and the like, and tell what
 * they could not take. */
static bool TellsOfTypes(const std::string_view ToolName)
{
	return ToolName == "modify_blueprint_class_structure";
}

/** Null for a tool without a schema. Read once for each tool. */
static const FJsonObject* FindSchema(const std::string& ToolName)
{
	static std::map<std::string, TSharedPtr<FJsonObject>> Schemas;
	const auto Known = Schemas.find(ToolName);
	if (Known != Schemas.end())
	{
		return Known->second.Get();
	}
	TSharedPtr<FJsonObject> Schema;
	FString Ignored;
	if (ToolSchemas::Find(ToolName))
	{
		JsonUtf8::Parse(ToolListing::InputSchemaJson(ToolName), Schema, Ignored);
	}
	return Schemas.emplace(ToolName, Schema).first->second.Get();
}

static const TCHAR* Describe(EJson Type)
{
	switch (Type)
	{
	case EJson::String:
		return TEXT("a text");
	case EJson::Number:
		return TEXT("a number");
	case EJson::Boolean:
		return TEXT("true or false");
	case EJson::Array:
		return TEXT("a list");
	case EJson::Object:
		return TEXT("an object");
	default:
		return TEXT("null");
	}
}

/** None for a schema that takes any type. */
static EJson ToType(const FJsonObject& Schema)
{
	FString Word;
	MorvaneJson::TryGetStringField(Schema, TEXT("type"), Word);
	static const TPair<const TCHAR*, EJson> Rows[] = {{TEXT("string"), EJson::String}, {TEXT("number"), EJson::Number},
		{TEXT("integer"), EJson::Number}, {TEXT("boolean"), EJson::Boolean}, {TEXT("array"), EJson::Array},
		{TEXT("object"), EJson::Object}};
	for (const auto& Row : Rows)
	{
		if (Word == Row.Key)
		{
			return Row.Value;
		}
	}
	return EJson::None;
}

/** What the entry calls itself, for an agent who counts less well than it names; empty when it has no name. */
static FString NameOf(const FJsonObject& Entry)
{
	FString Name;
	for (const TCHAR* const Key : {TEXT("node_guid"), TEXT("name")})
	{
		if (MorvaneJson::TryGetStringField(Entry, Key, Name) && !Name.IsEmpty())
		{
			return Name;
		}
	}
	return FString();
}

/** A key that differs in case, blanks or underscores, or holds the other; empty when none is like it. */
static FString FindAlike(const FString& Key, const TArray<FString>& Known)
{
	const auto Squeeze = [](const FString& Text)
	{ return Text.Replace(TEXT("_"), TEXT("")).Replace(TEXT(" "), TEXT("")).ToLower(); };
	const FString Wanted = Squeeze(Key);
	for (const FString& Candidate : Known)
	{
		if (Squeeze(Candidate) == Wanted)
		{
			return Candidate;
		}
	}
	const FString* const Held = Known.FindByPredicate(
		[&](const FString& Candidate)
		{
			const FString Other = Squeeze(Candidate);
			return Wanted.Len() > 2 && (Other.Contains(Wanted) || Wanted.Contains(Other));
		});
	return Held ? *Held : FString();
}

/** Where a value stands. */
struct FPlace
{
	/** "nodes[2] ('print').pins[0]"; empty for the arguments themselves. */
	FString Path;
	/** The last key on the way, list places left out. */
	FString Key;
	/** The entry of a list or of a map that it stands in, as a tool's own message names such: "index 2", "'Health'". */
	FString Entry;

	/** What that entry calls itself, quoted; empty when it has no name. */
	FString EntryName;

	FPlace Member(const FString& Name) const { return {Join(Name), Name, Entry, EntryName}; }
	FPlace Named(const FString& Name) const
	{
		const FString Quoted = FString::Printf(TEXT("'%s'"), *Name);
		return {Join(Name), Name, Quoted, Quoted};
	}
	FPlace Element(int32 Index, const FString& Name) const
	{
		const FString Label = Name.IsEmpty() ? FString() : FString::Printf(TEXT(" ('%s')"), *Name);
		return {FString::Printf(TEXT("%s[%d]%s"), *Path, Index, *Label), Key, FString::Printf(TEXT("index %d"), Index),
			Name.IsEmpty() ? FString() : FString::Printf(TEXT("'%s'"), *Name)};
	}
	FString Join(const FString& Name) const { return Path.IsEmpty() ? Name : Path + TEXT(".") + Name; }
	FString Shown() const { return Path.IsEmpty() ? FString(TEXT("The call")) : Path; }
};

class FCheck
{
public:
	FCheck(const std::string_view InTool, const FJsonObject& InRoot, Morvane::FToolResult& InResult)
		: Tool(FromUtf8(InTool))
		, Root(InRoot)
		, bTypesAreTold(TellsOfTypes(InTool))
		, Result(InResult)
		, Said(InResult.GetErrorMessages())
	{
		Said.Append(InResult.GetWarningMessages());
	}

	void Walk(const FJsonObject& Raw, const FJsonValue& Value, const FPlace& Place)
	{
		const FJsonObject& Schema = Resolve(Raw);
		const TArray<TSharedPtr<FJsonValue>>* Choices = nullptr;
		if (Schema.TryGetArrayField(TEXT("anyOf"), Choices))
		{
			WalkChoice(*Choices, Value, Place);
			return;
		}
		const EJson Wanted = ToType(Schema);
		// A null is as good as nothing, and nothing is left out.
		if (Value.Type == EJson::Null)
		{
			return;
		}
		if (Wanted != EJson::None && Value.Type != Wanted)
		{
			TellType(Describe(Wanted), Value, Place);
			return;
		}
		WalkFitting(Schema, Value, Place);
	}

	void Finish()
	{
		if (NumFindings > MostFindings)
		{
			Result.AddWarningMessage(
				FString::Printf(TEXT("[Ignored] %d more of the arguments were not read."), NumFindings - MostFindings));
		}
	}

private:
	const FJsonObject& Resolve(const FJsonObject& Schema) const
	{
		FString Reference;
		const TSharedPtr<FJsonObject>* Definitions = nullptr;
		const TSharedPtr<FJsonObject>* Definition = nullptr;
		const bool bFound = Schema.TryGetStringField(TEXT("$ref"), Reference)
			&& Root.TryGetObjectField(TEXT("$defs"), Definitions)
			&& (*Definitions)->TryGetObjectField(Reference.RightChop(FString(TEXT("#/$defs/")).Len()), Definition);
		return bFound ? **Definition : Schema;
	}

	void WalkChoice(const TArray<TSharedPtr<FJsonValue>>& Choices, const FJsonValue& Value, const FPlace& Place)
	{
		TArray<FString> Wanted;
		for (const TSharedPtr<FJsonValue>& Choice : Choices)
		{
			const FJsonObject& Schema = Resolve(*Choice->AsObject());
			const EJson Type = ToType(Schema);
			if (Type == EJson::None || Type == Value.Type || Value.Type == EJson::Null)
			{
				Walk(Schema, Value, Place);
				return;
			}
			Wanted.Add(Describe(Type));
		}
		TellType(FString::Join(Wanted, TEXT(" or ")), Value, Place);
	}

	void WalkFitting(const FJsonObject& Schema, const FJsonValue& Value, const FPlace& Place)
	{
		if (Value.Type == EJson::String)
		{
			CheckWord(Schema, Value.AsString(), Place);
		}
		else if (Value.Type == EJson::Object)
		{
			WalkMembers(Schema, *Value.AsObject(), Place);
		}
		else if (Value.Type == EJson::Array)
		{
			WalkElements(Schema, Value.AsArray(), Place);
		}
	}

	void CheckWord(const FJsonObject& Schema, const FString& Word, const FPlace& Place)
	{
		const TArray<TSharedPtr<FJsonValue>>* Words = nullptr;
		if (!Schema.TryGetArrayField(TEXT("enum"), Words))
		{
			return;
		}
		TArray<FString> Known;
		for (const TSharedPtr<FJsonValue>& Entry : *Words)
		{
			Known.Add(Entry->AsString());
			const bool bTrimmed = bTypesAreTold && Place.Key == TEXT("action");
			if (Known.Last().Equals(bTrimmed ? Word.TrimStartAndEnd() : Word, ESearchCase::IgnoreCase))
			{
				return;
			}
		}
		Tell(FString::Printf(TEXT("'%s'"), *Word),
			FString::Printf(TEXT("[Ignored] %s: '%s' is none of the words it takes: %s."), *Place.Shown(), *Word,
				*FString::Join(Known, TEXT(", "))));
	}

	void WalkElements(const FJsonObject& Schema, const TArray<TSharedPtr<FJsonValue>>& Elements, const FPlace& Place)
	{
		const TSharedPtr<FJsonObject>* Items = nullptr;
		if (!Schema.TryGetObjectField(TEXT("items"), Items))
		{
			return;
		}
		for (int32 Index = 0; Index < Elements.Num(); ++Index)
		{
			const FJsonValue& Element = *Elements[Index];
			const bool bObject = Element.Type == EJson::Object;
			const FPlace Inner = Place.Element(Index, bObject ? NameOf(*Element.AsObject()) : FString());
			if (Element.Type == EJson::Null)
			{
				TellType(TEXT("an entry"), Element, Inner);
				continue;
			}
			Walk(**Items, Element, Inner);
		}
	}

	void WalkMembers(const FJsonObject& Schema, const FJsonObject& Object, const FPlace& Place)
	{
		const TSharedPtr<FJsonObject>* Properties = nullptr;
		const TSharedPtr<FJsonObject>* Others = nullptr;
		const bool bNamed = Schema.TryGetObjectField(TEXT("properties"), Properties);
		const bool bOthers = Schema.TryGetObjectField(TEXT("additionalProperties"), Others);
		for (const auto& Member : Object.Values)
		{
			const FString Key(Member.Key);
			const TSharedPtr<FJsonObject>* Known = nullptr;
			if (bNamed && (*Properties)->TryGetObjectField(Key, Known))
			{
				Walk(**Known, *Member.Value, Place.Member(Key));
			}
			else if (bNamed && bTypesAreTold && HasInAnyCase(**Properties, Key))
			{
				continue;
			}
			else if (bOthers)
			{
				Walk(**Others, *Member.Value, Place.Named(Key));
			}
			else if (bNamed && !IsQuiet(Tool, Place.Key, Key))
			{
				TellUnknown(Key, **Properties, Place);
			}
		}
	}

	static bool HasInAnyCase(const FJsonObject& Properties, const FString& Key)
	{
		for (const auto& Property : Properties.Values)
		{
			if (Key.Equals(FString(Property.Key), ESearchCase::IgnoreCase))
			{
				return true;
			}
		}
		return false;
	}

	void TellUnknown(const FString& Key, const FJsonObject& Properties, const FPlace& Place)
	{
		TArray<FString> Known;
		for (const auto& Property : Properties.Values)
		{
			Known.Add(FString(Property.Key));
		}
		const FString Alike = FindAlike(Key, Known);
		FString Advice;
		if (!Alike.IsEmpty())
		{
			Advice = FString::Printf(TEXT(" Did you mean '%s'?"), *Alike);
		}
		else if (Known.Num() <= MostListedKeys)
		{
			Advice = FString::Printf(TEXT(" It takes %s."), *FString::Join(Known, TEXT(", ")));
		}
		Tell(FString::Printf(TEXT("'%s'"), *Key),
			FString::Printf(TEXT("[Ignored] %s has no key '%s'; it was not read.%s"), *Place.Shown(), *Key, *Advice));
	}

	void TellType(const FString& Wanted, const FJsonValue& Value, const FPlace& Place)
	{
		// Told of the entry by its place, or of this key of the entry by its name.
		const bool bTold = (bTypesAreTold && Place.Key != TEXT("path")) || IsTold(Place.Entry)
			|| (!Place.EntryName.IsEmpty() && IsTold(Place.EntryName, Place.Key));
		Add(bTold,
			FString::Printf(TEXT("[Ignored] %s must be %s and is %s; it was not read."), *Place.Shown(), *Wanted,
				Describe(Value.Type)));
	}

	/** Subject: what the tool's own messages would hold if they spoke of this. */
	void Tell(const FString& Subject, const FString& Text) { Add(IsTold(Subject), Text); }

	bool IsTold(const FString& Subject, const FString& Also = FString()) const
	{
		return !Subject.IsEmpty()
			&& Said.ContainsByPredicate(
				[&](const FString& Message)
				{
					return Message.Contains(Subject, ESearchCase::IgnoreCase)
						&& (Also.IsEmpty() || Message.Contains(Also, ESearchCase::IgnoreCase));
				});
	}

	void Add(const bool bTold, const FString& Text)
	{
		if (!bTold && ++NumFindings <= MostFindings)
		{
			Result.AddWarningMessage(Text);
		}
	}

	const FString Tool;
	const FJsonObject& Root;
	const bool bTypesAreTold;
	Morvane::FToolResult& Result;
	/** What the tool has told by itself, for which it needs no second voice. */
	TArray<FString> Said;
	int32 NumFindings = 0;
};
} // namespace ArgumentCheckPrivate

void ArgumentCheck::AddWarnings(
	const std::string_view ToolName, const FJsonObject& Arguments, Morvane::FToolResult& Result)
{
	const FJsonObject* const Schema = ArgumentCheckPrivate::FindSchema(std::string(ToolName));
	if (!Schema)
	{
		return;
	}
	ArgumentCheckPrivate::FCheck Check(ToolName, *Schema, Result);
	const TSharedRef<FJsonObject> Shared = MakeShared<FJsonObject>(Arguments);
	Check.Walk(*Schema, FJsonValueObject(Shared), {});
	Check.Finish();
}
