#include "Misc/Char.h"
#include "UObject/NameTypes.h"

namespace NameDisplayString
{
/** Words that stay small inside a title. */
constexpr FStringView SmallWords[] = {TEXT("In"), TEXT("As"), TEXT("To"), TEXT("Or"), TEXT("At"), TEXT("On"),
	TEXT("If"), TEXT("Be"), TEXT("By"), TEXT("The"), TEXT("For"), TEXT("And"), TEXT("With"), TEXT("When"),
	TEXT("From")};

/** Whether Rest starts with a small word that another word follows. */
static bool StartsWithSmallWord(FStringView Rest)
{
	for (const FStringView Word : SmallWords)
	{
		// Hardly any word gets past its first letter.
		if (Word[0] == Rest[0] && Rest.Len() > Word.Len() && Rest.StartsWith(Word, ESearchCase::CaseSensitive)
			&& !FChar::IsLower(Rest[Word.Len()]))
		{
			return true;
		}
	}
	return false;
}

/** Puts a title together, character by character; a run of capitals and digits stays one word. */
class FTitleWriter
{
public:
	void Write(FStringView Rest)
	{
		TCHAR Char = Rest[0];
		const bool bDigit = FChar::IsDigit(Char);
		const TCHAR Last = Title.IsEmpty() ? TEXT('\0') : Title[Title.Len() - 1];
		const bool bNumber = FChar::IsDigit(Last) || Last == TEXT('.');
		const bool bStartsRun = FChar::IsUpper(Char) || (bDigit && Last != TEXT('-'));
		if (bStartsRun && !bInRun && Last != TEXT('(') && !(bDigit && bNumber))
		{
			if (Last != TEXT(' ') && Last != TEXT('\0'))
			{
				Title += TEXT(' ');
			}
			bInRun = true;
		}
		if (FChar::IsLower(Char))
		{
			bInRun = false;
		}
		if (FChar::IsUnderscore(Char))
		{
			Char = TEXT(' ');
			bInRun = true;
		}
		const TCHAR Before = Title.IsEmpty() ? TEXT('\0') : Title[Title.Len() - 1];
		if (Before == TEXT('\0'))
		{
			Char = FChar::ToUpper(Char);
		}
		else if (Before == TEXT(' ') || Before == TEXT('('))
		{
			Char = StartsWithSmallWord(Rest) ? FChar::ToLower(Char) : FChar::ToUpper(Char);
		}
		Title += Char;
	}

	FString Title;

private:
	bool bInRun = false;
};
} // namespace NameDisplayString

FString FName::NameToDisplayString(const FString& InDisplayName, bool bIsBool)
{
	FStringView Rest(InDisplayName);
	if (bIsBool && Rest.Len() > 1 && Rest[0] == TEXT('b') && FChar::IsUpper(Rest[1]))
	{
		Rest.RemovePrefix(1);
	}
	NameDisplayString::FTitleWriter Writer;
	constexpr int32 RoomForBlanks = 8;
	Writer.Title.Reserve(Rest.Len() + RoomForBlanks);
	for (; !Rest.IsEmpty(); Rest.RemovePrefix(1))
	{
		Writer.Write(Rest);
	}
	return Writer.Title;
}
