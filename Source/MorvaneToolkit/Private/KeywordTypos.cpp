#include "KeywordTypos.h"

namespace KeywordTypoImpl
{
static bool AreLettersOnly(const FString& Word)
{
	for (const TCHAR Char : Word)
	{
		if (!FChar::IsAlpha(Char))
		{
			return false;
		}
	}
	return true;
}

/** The first letter is hardly ever wrong, and when it is, mostly swapped with the second. */
static bool BeginAlike(const FString& Left, const FString& Right)
{
	return Left[0] == Right[0] || (Left[0] == Right[1] && Left[1] == Right[0]);
}

/** Optimal string alignment distance. */
static int32 Distance(const FString& Left, const FString& Right)
{
	int32 Rows[3][KeywordTypos::MaxLength + 1];
	int32* Before = Rows[0];
	int32* Last = Rows[1];
	int32* Now = Rows[2];
	for (int32 Column = 0; Column <= Right.Len(); ++Column)
	{
		Last[Column] = Column;
	}
	for (int32 Row = 1; Row <= Left.Len(); ++Row)
	{
		Now[0] = Row;
		for (int32 Column = 1; Column <= Right.Len(); ++Column)
		{
			const bool bSame = Left[Row - 1] == Right[Column - 1];
			Now[Column] = FMath::Min3(Last[Column] + 1, Now[Column - 1] + 1, Last[Column - 1] + (bSame ? 0 : 1));
			if (Row > 1 && Column > 1 && Left[Row - 1] == Right[Column - 2] && Left[Row - 2] == Right[Column - 1])
			{
				Now[Column] = FMath::Min(Now[Column], Before[Column - 2] + 1);
			}
		}
		int32* const Oldest = Before;
		Before = Last;
		Last = Now;
		Now = Oldest;
	}
	return Last[Right.Len()];
}
} // namespace KeywordTypoImpl

int32 KeywordTypos::GetTolerance(int32 LeftLength, int32 RightLength)
{
	const int32 Shorter = FMath::Min(LeftLength, RightLength);
	const int32 Longer = FMath::Max(LeftLength, RightLength);
	if (Shorter < 4 || Longer < 5 || Longer > MaxLength)
	{
		return 0;
	}
	return Shorter < 8 ? 1 : 2;
}

int32 KeywordTypos::CountEdits(const FString& Left, const FString& Right)
{
	const int32 Tolerance = GetTolerance(Left.Len(), Right.Len());
	if (Tolerance == 0 || FMath::Abs(Left.Len() - Right.Len()) > Tolerance || !KeywordTypoImpl::BeginAlike(Left, Right)
		|| !KeywordTypoImpl::AreLettersOnly(Left) || !KeywordTypoImpl::AreLettersOnly(Right))
	{
		return INDEX_NONE;
	}
	const int32 Edits = KeywordTypoImpl::Distance(Left, Right);
	return Edits <= Tolerance ? Edits : INDEX_NONE;
}
