#include "Package/BinaryGaps.h"

#include "UObject/Class.h"
#include "UObject/UObjectGlobals.h"

namespace BinaryGaps
{
/** What a call's files lack, in the order in which it was met. */
struct FGap
{
	void Add(const FString& Filename, const FString& What)
	{
		Files.Add(Filename);
		bool bKnown = false;
		Known.Add(What.ToLower(), &bKnown);
		if (!bKnown)
		{
			Things.Add(What);
		}
	}
	/** "X.uasset", or "X.uasset and 3 more files". */
	FString DescribeFiles() const
	{
		const int32 NumOthers = Files.Num() - 1;
		return NumOthers == 0 ? *Files.begin()
							  : FString::Printf(TEXT("%s and %d more file%s"), *(*Files.begin()), NumOthers,
								  NumOthers == 1 ? TEXT("") : TEXT("s"));
	}

	TSet<FString> Files;
	TArray<FString> Things;

private:
	TSet<FString> Known;
};

static FGap& Missing()
{
	static FGap Gap;
	return Gap;
}

static FGap& NotUnderstood()
{
	static FGap Gap;
	return Gap;
}

void AddMissing(const FString& Filename, const FString& Path)
{
	Missing().Add(Filename, Path);
}

void AddNotUnderstood(const FString& Filename, const FString& What)
{
	NotUnderstood().Add(Filename, What);
}

bool IsUnseen(const UObject& Object)
{
	return Object.GetClass()->GetNativeClass() == UObject::StaticClass();
}

static void TellMissing(TArray<FString>& Lines)
{
	constexpr int32 MaxNamed = 6;
	FGap& Gap = Missing();
	Gap.Things.RemoveAll([](const FString& Path) { return StaticFindObject(nullptr, nullptr, *Path) != nullptr; });
	if (Gap.Things.IsEmpty())
	{
		return;
	}
	FString Named;
	for (int32 Index = 0; Index < Gap.Things.Num() && Index < MaxNamed; ++Index)
	{
		Named += (Index == 0 ? TEXT("'") : TEXT(", '")) + Gap.Things[Index] + TEXT("'");
	}
	if (Gap.Things.Num() > MaxNamed)
	{
		Named += FString::Printf(TEXT(" and %d more"), Gap.Things.Num() - MaxNamed);
	}
	const bool bOfCode = Gap.Things.ContainsByPredicate(
		[](const FString& Path) { return Path.StartsWith(TEXT("/Script/"), ESearchCase::IgnoreCase); });
	Lines.Add(FString::Printf(TEXT("%s: missing and read as unresolved: %s%s"), *Gap.DescribeFiles(), *Named,
		bOfCode ? TEXT(" ('morvane catalogue' makes the classes of C++ headers known)") : TEXT("")));
}

static void TellNotUnderstood(TArray<FString>& Lines)
{
	const FGap& Gap = NotUnderstood();
	if (Gap.Things.IsEmpty())
	{
		return;
	}
	Lines.Add(Gap.Things.Num() == 1
			? FString::Printf(TEXT("%s: a value was not understood: %s"), *Gap.DescribeFiles(), *Gap.Things[0])
			: FString::Printf(TEXT("%s: %d values were not understood, the first: %s"), *Gap.DescribeFiles(),
				Gap.Things.Num(), *Gap.Things[0]));
}

TArray<FString> Take()
{
	TArray<FString> Lines;
	TellMissing(Lines);
	TellNotUnderstood(Lines);
	Missing() = FGap();
	NotUnderstood() = FGap();
	return Lines;
}
} // namespace BinaryGaps
