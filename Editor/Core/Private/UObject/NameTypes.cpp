#include "UObject/NameTypes.h"

#include "Containers/StringConv.h"
#include "Internationalization/Internationalization.h"

#include <memory>
#include <vector>

#define LOCTEXT_NAMESPACE "Core"

namespace Names
{
/** One spelling. Names that differ in case only share the comparison index, which is that of the first one made. */
struct FEntry
{
	const TCHAR* Text;
	uint32 Length;
	uint32 ComparisonIndex;

	std::wstring_view View() const { return {Text, Length}; }
};

/** Open addressing over entry numbers; holds hash and number side by side, so that a miss rarely touches an entry. */
class FIndex
{
public:
	FIndex() { Cells.resize(1u << 15); }

	template <typename MatchType>
	uint32 Find(uint32 Hash, const MatchType& Matches) const
	{
		for (std::size_t Position = Hash & Mask();; Position = (Position + 1) & Mask())
		{
			const FCell& Cell = Cells[Position];
			if (!Cell.NumberPlusOne || (Cell.Hash == Hash && Matches(Cell.NumberPlusOne - 1)))
			{
				return Cell.NumberPlusOne;
			}
		}
	}
	void Add(uint32 Hash, uint32 Number)
	{
		if (++Num * 2 > Cells.size())
		{
			std::vector<FCell> Old(Cells.size() * 2);
			Old.swap(Cells);
			for (const FCell& Cell : Old)
			{
				if (Cell.NumberPlusOne)
				{
					Put(Cell);
				}
			}
		}
		Put(FCell{Hash, Number + 1});
	}

private:
	struct FCell
	{
		uint32 Hash = 0;
		uint32 NumberPlusOne = 0;
	};
	std::size_t Mask() const { return Cells.size() - 1; }
	void Put(FCell Cell)
	{
		std::size_t Position = Cell.Hash & Mask();
		while (Cells[Position].NumberPlusOne)
		{
			Position = (Position + 1) & Mask();
		}
		Cells[Position] = Cell;
	}

	std::vector<FCell> Cells;
	std::size_t Num = 0;
};

static uint32 HashSpelling(std::wstring_view Text)
{
	return static_cast<uint32>(std::hash<std::wstring_view>()(Text));
}

class FTable
{
public:
	/** Never destroyed: names are used until the very end of the process. */
	static FTable& Get()
	{
		static FTable& Table = *new FTable;
		return Table;
	}

	const FEntry& GetEntry(uint32 Number) const { return Entries[Number]; }

	/** Answers the number of the spelling. Without bAdd that of any spelling, or of None. */
	uint32 Find(std::wstring_view Text, bool bAdd)
	{
		const uint32 Hash = HashSpelling(Text);
		const uint32 Found = Spellings.Find(Hash, [&](uint32 Number) { return Entries[Number].View() == Text; });
		if (Found)
		{
			return Found - 1;
		}
		const uint32 FoldedHash = GetTypeHash(FStringView(Text));
		const uint32 Folded = Words.Find(FoldedHash,
			[&](uint32 Number) { return FStringView(Text).Equals(Entries[Number].View(), ESearchCase::IgnoreCase); });
		if (!bAdd)
		{
			return Folded ? Folded - 1 : 0;
		}
		const uint32 Number = static_cast<uint32>(Entries.size());
		Entries.push_back({Store(Text), static_cast<uint32>(Text.size()), Folded ? Folded - 1 : Number});
		Spellings.Add(Hash, Number);
		if (!Folded)
		{
			Words.Add(FoldedHash, Number);
		}
		return Number;
	}

private:
	FTable()
	{
		Entries.reserve(1u << 14);
		Find(TEXT("None"), true);
	}

	/** Characters live in blocks that never move. */
	const TCHAR* Store(std::wstring_view Text)
	{
		const std::size_t Needed = Text.size() + 1;
		if (Needed > BlockLeft)
		{
			BlockLeft = Needed > BlockSize ? Needed : BlockSize;
			Blocks.push_back(std::unique_ptr<TCHAR[]>(new TCHAR[BlockLeft]));
			BlockNext = Blocks.back().get();
		}
		TCHAR* const Stored = BlockNext;
		Text.copy(Stored, Text.size());
		Stored[Text.size()] = 0;
		BlockNext += Needed;
		BlockLeft -= Needed;
		return Stored;
	}

	static constexpr std::size_t BlockSize = 16 * 1024;
	std::vector<FEntry> Entries;
	FIndex Spellings;
	FIndex Words;
	std::vector<std::unique_ptr<TCHAR[]>> Blocks;
	TCHAR* BlockNext = nullptr;
	std::size_t BlockLeft = 0;
};

/** Length of the part before a trailing "_N" that counts as a number; the whole length when there is none. */
static int32 GetPlainLength(FStringView Text)
{
	int32 Start = Text.Len();
	while (Start > 0 && FChar::IsDigit(Text[Start - 1]))
	{
		--Start;
	}
	const int32 NumDigits = Text.Len() - Start;
	const bool bIsNumber = NumDigits > 0 && NumDigits <= 10 && Start > 1 && Text[Start - 1] == TEXT('_')
		&& (NumDigits == 1 || Text[Start] != TEXT('0')) && FCString::Atoi64(Text.GetData() + Start) < MAX_int32;
	return bIsNumber ? Start - 1 : Text.Len();
}
}

FName::FName(FStringView Text, EFindName FindType)
{
	if (!Text.IsEmpty())
	{
		Names::FTable& Table = Names::FTable::Get();
		DisplayIndex = Table.Find(Text.ToStdView(), FindType == FNAME_Add);
		ComparisonIndex = Table.GetEntry(DisplayIndex).ComparisonIndex;
	}
}

FName::FName(std::string_view Utf8)
{
	TCHAR Short[128];
	if (Utf8.size() <= UE_ARRAY_COUNT(Short))
	{
		bool bAscii = true;
		for (std::size_t Index = 0; Index < Utf8.size(); ++Index)
		{
			bAscii = bAscii && static_cast<unsigned char>(Utf8[Index]) < 0x80;
			Short[Index] = static_cast<TCHAR>(Utf8[Index]);
		}
		if (bAscii)
		{
			*this = FName(FStringView(Short, static_cast<int32>(Utf8.size())));
			return;
		}
	}
	*this = FName(FromUtf8(Utf8));
}

FName::FName(FName Base, int32 Number)
	: FName(Base)
{
	if (Number != NAME_NO_NUMBER_INTERNAL)
	{
		*this = FName(FString::Printf(TEXT("%s_%d"), Base.GetView().GetData(), NAME_INTERNAL_TO_EXTERNAL(Number)));
	}
}

FStringView FName::GetView() const
{
	return Names::FTable::Get().GetEntry(DisplayIndex).View();
}

int32 FName::GetNumber() const
{
	const FStringView View = GetView();
	const int32 PlainLength = Names::GetPlainLength(View);
	return PlainLength == View.Len() ? NAME_NO_NUMBER_INTERNAL
									 : NAME_EXTERNAL_TO_INTERNAL(FCString::Atoi(View.GetData() + PlainLength + 1));
}

FString FName::GetPlainNameString() const
{
	const FStringView View = GetView();
	return FString(View.Left(Names::GetPlainLength(View)));
}

bool FName::IsEqual(FName Other, ENameCase CompareMethod, bool bCompareNumber) const
{
	if (bCompareNumber)
	{
		return CompareMethod == ENameCase::CaseSensitive ? DisplayIndex == Other.DisplayIndex : *this == Other;
	}
	const ESearchCase::Type SearchCase = CompareMethod == ENameCase::CaseSensitive ? ESearchCase::CaseSensitive
																				   : ESearchCase::IgnoreCase;
	return GetPlainNameString().Equals(Other.GetPlainNameString(), SearchCase);
}

int32 FName::Compare(FName Other) const
{
	if (*this == Other)
	{
		return 0;
	}
	const FStringView View = GetView();
	const FStringView OtherView = Other.GetView();
	const int32 Order = View.Left(Names::GetPlainLength(View))
							.Compare(OtherView.Left(Names::GetPlainLength(OtherView)), ESearchCase::IgnoreCase);
	return Order != 0 ? Order : GetNumber() < Other.GetNumber() ? -1 : 1;
}

bool FName::IsValidXName(FStringView Text, FStringView InvalidChars, FText* OutReason)
{
	for (const TCHAR Char : Text)
	{
		int32 Index = 0;
		if (InvalidChars.FindChar(Char, Index))
		{
			if (OutReason)
			{
				*OutReason = FText::Format(
					LOCTEXT("NameHoldsInvalidChar", "The name may not contain the character '{0}'"),
					FText::FromString(FString::Chr(Char).ReplaceCharWithEscapedChar()));
			}
			return false;
		}
	}
	return true;
}

#undef LOCTEXT_NAMESPACE
