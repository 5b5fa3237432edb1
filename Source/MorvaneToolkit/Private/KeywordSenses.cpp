#include "KeywordSenses.h"

namespace KeywordSenseTables
{
/**
 * Words that authors use for one another, the one that most titles use first. A word stands in one row only, and no two
 * words of a row tell two nodes of the menu apart.
 */
constexpr const TCHAR* Synonyms[] = {
	TEXT("location position place coordinate whereabouts"),
	TEXT("destroy delete remove erase kill despawn"),
	TEXT("hidden hide invisible conceal"),
	TEXT("visibility visible show"),
	TEXT("velocity speed"),
	TEXT("play playback"),
	TEXT("length len size count"),
	TEXT("append concat concatenate merge"),
	TEXT("begin start"),
	TEXT("end finish"),
	TEXT("contain include"),
	TEXT("item element elem entry"),
	TEXT("viewport screen"),
	TEXT("open load"),
	TEXT("quit exit"),
	TEXT("enable enabled"),
	TEXT("disable disabled"),
	TEXT("sound audio sfx"),
	TEXT("emitter particle"),
	TEXT("greater bigger larger more"),
	TEXT("less smaller fewer"),
	TEXT("substring mid"),
	TEXT("random randomize"),
	TEXT("rotation orientation"),
	TEXT("animation anim"),
	TEXT("montage montages"),
	TEXT("cursor pointer"),
	TEXT("level map"),
	TEXT("find search locate lookup"),
	TEXT("color tint"),
	TEXT("overlay overlays"),
	TEXT("create construct new"),
	TEXT("second sec"),
	TEXT("possess control"),
	TEXT("mesh model"),
	TEXT("percent percentage"),
	TEXT("opacity transparency alpha"),
	TEXT("focus focused"),
	TEXT("damage hurt"),
	TEXT("absolute abs"),
	TEXT("power exponent"),
	TEXT("truncate trunc"),
	TEXT("interp interpolate"),
	TEXT("lerp blend"),
	TEXT("upper uppercase"),
	TEXT("lower lowercase"),
	TEXT("string str"),
};

/** Pairs of which one is never meant by the other, though titles differ in nothing else. */
constexpr const TCHAR* Opposites[] = {TEXT("get set"), TEXT("add remove"), TEXT("start stop"), TEXT("begin end"),
	TEXT("open close"), TEXT("show hide"), TEXT("enable disable"), TEXT("attach detach"), TEXT("load unload"),
	TEXT("bind unbind"), TEXT("pause unpause"), TEXT("activate deactivate"), TEXT("create destroy"),
	TEXT("lock unlock"), TEXT("min max"), TEXT("less greater"), TEXT("increment decrement"), TEXT("upper lower"),
	TEXT("first last"), TEXT("enter leave"), TEXT("save load"), TEXT("push pop"), TEXT("possess unpossess"),
	TEXT("register unregister"), TEXT("crouch uncrouch"), TEXT("encode decode"), TEXT("play stop"), TEXT("in out"),
	TEXT("left right"), TEXT("up down"), TEXT("forward backward"), TEXT("mount unmount"), TEXT("press release"),
	TEXT("grab release"), TEXT("make break"), TEXT("jump fall"), TEXT("spawn destroy"), TEXT("subscribe unsubscribe"),
	TEXT("link unlink"), TEXT("equal not"), TEXT("world local"), TEXT("world relative"), TEXT("location rotation"),
	TEXT("x y")};

static bool HasVowel(const FString& Text)
{
	int32 Index = INDEX_NONE;
	for (const TCHAR Char : Text)
	{
		if (FStringView(TEXT("aeiouy")).FindChar(Char, Index))
		{
			return true;
		}
	}
	return false;
}

/** "stop" of "stopping" and "paus" of "pause", "paused" and "pausing". Digits and short words stay as they are. */
static FString GetStem(const FString& Word)
{
	FString Stem = Word;
	if (Word.Len() > 5 && Word.EndsWith(TEXT("ing"), ESearchCase::CaseSensitive) && HasVowel(Word.LeftChop(3)))
	{
		Stem = Word.LeftChop(3);
	}
	else if (Word.Len() > 4 && Word.EndsWith(TEXT("ed"), ESearchCase::CaseSensitive)
		&& !Word.EndsWith(TEXT("eed"), ESearchCase::CaseSensitive) && HasVowel(Word.LeftChop(2)))
	{
		Stem = Word.LeftChop(2);
	}
	const int32 Last = Stem.Len() - 1;
	const bool bDoubled = Last > 1 && Stem.Len() < Word.Len() && Stem[Last] == Stem[Last - 1];
	const bool bSilent = Last > 2 && Stem[Last] == TEXT('e');
	return bDoubled || bSilent ? Stem.LeftChop(1) : Stem;
}

/** The first stem of a row by the stem of each of its words. */
static const TMap<FString, FString>& GetSenseByStem()
{
	static const TMap<FString, FString> SenseByStem = []
	{
		TMap<FString, FString> Made;
		for (const TCHAR* const Row : Synonyms)
		{
			TArray<FString> Words;
			FString(Row).ParseIntoArrayWS(Words);
			for (const FString& Word : Words)
			{
				Made.FindOrAdd(GetStem(Word), GetStem(Words[0]));
			}
		}
		return Made;
	}();
	return SenseByStem;
}
} // namespace KeywordSenseTables

FString KeywordSenses::GetSense(const FString& Word)
{
	const FString Stem = KeywordSenseTables::GetStem(Word);
	const FString* const Sense = KeywordSenseTables::GetSenseByStem().Find(Stem);
	return Sense ? *Sense : Stem;
}

FString KeywordSenses::GetOpposite(const FString& Sense)
{
	static const TMap<FString, FString> OppositeBySense = []
	{
		TMap<FString, FString> Made;
		for (const TCHAR* const Row : KeywordSenseTables::Opposites)
		{
			TArray<FString> Words;
			FString(Row).ParseIntoArrayWS(Words);
			Made.FindOrAdd(GetSense(Words[0]), GetSense(Words[1]));
			Made.FindOrAdd(GetSense(Words[1]), GetSense(Words[0]));
		}
		return Made;
	}();
	const FString* const Opposite = OppositeBySense.Find(Sense);
	return Opposite ? *Opposite : FString();
}
