#include "KeywordWords.h"
#include "RequestForms.h"
#include "RequestLexicon.h"

// "integer to string" is directed: nothing but that conversion will do, and an unknown pair means nothing.

namespace RequestConversionImpl
{
struct FPair
{
	FString From;
	FString To;
};

/** Types as people call them; "number" may be either, the first is tried first. */
static TArray<FString> GetTypes(const FString& Word)
{
	struct FTypeName
	{
		const TCHAR* Names;
		const TCHAR* Types;
	};
	static constexpr FTypeName Names[] = {
		{TEXT("number num numeric"), TEXT("integer float")},
		{TEXT("decimal double real"), TEXT("float")},
		{TEXT("int whole"), TEXT("integer")},
		{TEXT("bool flag"), TEXT("boolean")},
		{TEXT("color colour linearcolor"), TEXT("linearcolor color")},
		{TEXT("location position direction"), TEXT("vector")},
		{TEXT("rotation"), TEXT("rotator")},
		{TEXT("actor component"), TEXT("object")},
	};
	for (const FTypeName& Row : Names)
	{
		TArray<FString> Known;
		FString(Row.Names).ParseIntoArrayWS(Known);
		if (Known.Contains(Word))
		{
			TArray<FString> Types;
			FString(Row.Types).ParseIntoArrayWS(Types);
			return Types;
		}
	}
	return {Word};
}

static bool IsType(const FString& Word)
{
	return KeywordWords::IsTypeWord(Word) || !GetTypes(Word)[0].Equals(Word);
}

/** Verbs and nouns around the two types. */
static TArray<FString> StripShell(const TArray<FString>& Words)
{
	static const TSet<FString> Before = {
		TEXT("convert"), TEXT("parse"), TEXT("conversion"), TEXT("cast"), TEXT("turn"), TEXT("transform")};
	static const TSet<FString> Behind = {TEXT("conversion"), TEXT("convert"), TEXT("cast")};
	TArray<FString> Rest = Words;
	while (Rest.Num() > 3 && (Before.Contains(Rest[0]) || Rest[0].Equals(TEXT("from"))))
	{
		Rest.RemoveAt(0);
	}
	while (Rest.Num() > 3 && Behind.Contains(Rest.Last()))
	{
		Rest.Pop();
	}
	return Rest;
}

static bool FindPair(const TArray<FString>& Words, FPair& OutPair)
{
	static const TSet<FString> Doing = {TEXT("cast"), TEXT("convert"), TEXT("parse"), TEXT("add"), TEXT("bind"),
		TEXT("append"), TEXT("print"), TEXT("set"), TEXT("attach"), TEXT("go"), TEXT("move"), TEXT("log"), TEXT("enum"),
		TEXT("get"), TEXT("make"), TEXT("break"), TEXT("remove"), TEXT("find"), TEXT("ceil"), TEXT("floor"),
		TEXT("round"), TEXT("truncate"), TEXT("snap"), TEXT("clamp"), TEXT("distance")};
	const TArray<FString> Rest = StripShell(Words);
	if (Rest.Num() != 3 || Doing.Contains(Rest[0]))
	{
		return false;
	}
	const bool bForward = Rest[1].Equals(TEXT("to")) || Rest[1].Equals(TEXT("into"));
	const bool bTypes = IsType(Rest[0]) && IsType(Rest[2]);
	if (bForward || (bTypes && Rest[1].Equals(TEXT("as"))))
	{
		OutPair = {Rest[0], Rest[2]};
		return (IsType(Rest[0]) && IsType(Rest[2])) || KeywordWords::IsTypeWord(Rest[0])
			|| KeywordWords::IsTypeWord(Rest[2]);
	}
	OutPair = {Rest[2], Rest[0]};
	return bTypes && Rest[1].Equals(TEXT("from")); // "string from integer"
}
} // namespace RequestConversionImpl

bool RequestForms::ReadConversion(
	const TArray<FString>& Words, const FRequestScope& Scope, TArray<FRequestReading>& OutReadings)
{
	using namespace RequestConversionImpl;

	FPair Pair;
	if (!FindPair(Words, Pair))
	{
		return false;
	}
	const FString Kind = IsType(Pair.From) ? FString() : Scope.GetVariableKind(Pair.From);
	Pair.From = Kind.IsEmpty() ? Pair.From : Kind;
	// "text to upper" is no conversion of types.
	const FString Family = RequestLexicon::GetFamily(Pair.From);
	if (!Family.IsEmpty())
	{
		OutReadings.Append(RequestLexicon::FindVerb(Family, TEXT("to") + Pair.To));
	}
	for (const FString& From : GetTypes(Pair.From))
	{
		for (const FString& To : GetTypes(Pair.To))
		{
			OutReadings.Append(RequestLexicon::FindVerb(TEXT("conversion"), From + TEXT("to") + To));
			OutReadings.Add({From + TEXT(" to ") + To, FString()});
		}
	}
	return true;
}
