#pragma once

#include "Misc/FeedbackContext.h"
#include "Package/BinaryGaps.h"
#include "Package/PackageFile.h"
#include "Standalone/MissingObjects.h"
#include "Standalone/PackageText.h"

/** Who hears what is said while a package is read: the log, and the call that reads the file. */
namespace PackageLoading
{
DECLARE_LOG_CATEGORY_EXTERN(LogPackage, Log, All);

/**
 * Problems with single values, under the file's name: logged, and kept for the result of the call that reads the file.
 * What is missing is told once for all references to it, at the end, since a package may only come later in the same
 * load. Of the engine's own files, whose lines nobody sees, all gaps are gathered with those of other files.
 */
class FFileWarnings final : public FFeedbackContext
{
public:
	explicit FFileWarnings(FString InFilename)
		: Filename(MoveTemp(InFilename))
		, bBinary(FPackageText::IsBinaryFile(Filename))
	{
	}
	/** What is read next. */
	void SetObject(const UObject& Object) { bUnseen = bBinary && BinaryGaps::IsUnseen(Object); }
	/** Where an object cannot be made for want of its class. */
	void AddMissingClass(const FString& Path)
	{
		if (bBinary)
		{
			BinaryGaps::AddMissing(Filename, Path);
		}
	}
	void Serialize(const TCHAR* Text, ELogVerbosity::Type, const FName&) override
	{
		const TArray<FString> Asked = FMissingObjects::TakeAsked();
		if (bBinary)
		{
			Gather(Text, Asked);
			return;
		}
		for (const FString& Path : Asked)
		{
			FMissing* const Known = Missing.FindByPredicate(
				[&Path](const FMissing& Row) { return Row.Path.Equals(Path, ESearchCase::IgnoreCase); });
			if (Known)
			{
				++Known->NumPlaces;
			}
			else
			{
				Missing.Add(FMissing{Path, PlaceIn(Text), 1});
			}
		}
		if (Asked.IsEmpty())
		{
			Say(FString::Printf(TEXT("%s: %s"), *Filename, Text));
		}
	}
	/** Tells what is still missing. */
	void Flush()
	{
		for (const FMissing& Row : Missing)
		{
			if (StaticFindObject(nullptr, nullptr, *Row.Path))
			{
				continue;
			}
			const FString Others = Row.NumPlaces == 1 ? FString()
													  : FString::Printf(TEXT(", here and in %d more place%s"),
														  Row.NumPlaces - 1, Row.NumPlaces == 2 ? TEXT("") : TEXT("s"));
			Say(FString::Printf(
				TEXT("%s, %s: '%s' is missing%s; what refers to it is kept as it is and binds again when it "
					 "is there"),
				*Filename, *Row.Place, *Row.Path, *Others));
		}
		Missing.Empty();
		if (NumSaid > MaxSaid)
		{
			PackageFile::NoteProblem(
				FString::Printf(TEXT("%s: %d more warnings stand in the log"), *Filename, NumSaid - MaxSaid));
		}
		NumSaid = 0;
	}

private:
	struct FMissing
	{
		FString Path;
		FString Place;
		int32 NumPlaces = 0;
	};
	static constexpr int32 MaxSaid = 30;

	/** "line 12" of "line 12: ...". */
	static FString PlaceIn(const FString& Text)
	{
		int32 Colon = INDEX_NONE;
		return Text.FindChar(TEXT(':'), Colon) ? Text.Left(Colon) : FString();
	}
	/** A struct that has all but a member of another engine's version was understood; and a reference into the file
	 * itself leads to an object whose class is told as missing. */
	static bool IsSmall(const FString& Text)
	{
		const FString Key(TEXT(" keeps its value: "));
		const int32 At = Text.Find(Key, ESearchCase::CaseSensitive);
		TArray<FString> Reasons;
		(At == INDEX_NONE ? Text : Text.Mid(At + Key.Len())).ParseIntoArray(Reasons, TEXT("; "));
		for (const FString& Reason : Reasons)
		{
			const bool bCutOff = Reasons.Num() > 1 && &Reason == &Reasons.Last() && Reason.EndsWith(TEXT("..."));
			if (!bCutOff && !Reason.StartsWith(TEXT("Unknown property in "), ESearchCase::CaseSensitive)
				&& !Reason.Contains(TEXT("unresolved reference to '"), ESearchCase::CaseSensitive))
			{
				return false;
			}
		}
		return true;
	}
	void Gather(const TCHAR* Text, const TArray<FString>& Asked) const
	{
		UE_LOG(LogPackage, Verbose, TEXT("%s: %s"), *Filename, Text);
		for (const FString& Path : Asked)
		{
			if (!bUnseen)
			{
				BinaryGaps::AddMissing(Filename, Path);
			}
		}
		if (Asked.IsEmpty() && !bUnseen && !IsSmall(Text))
		{
			const FString Place = PlaceIn(Text);
			BinaryGaps::AddNotUnderstood(Filename, FString(Text).RightChop(Place.IsEmpty() ? 0 : Place.Len() + 2));
		}
	}
	void Say(const FString& Warning)
	{
		UE_LOG(LogPackage, Warning, TEXT("%s"), *Warning);
		++NumSaid;
		if (NumSaid <= MaxSaid)
		{
			PackageFile::NoteProblem(Warning);
		}
	}

	const FString Filename;
	const bool bBinary;
	bool bUnseen = false;
	TArray<FMissing> Missing;
	int32 NumSaid = 0;
};

/** Takes what another line tells already. */
class FNoWarnings final : public FFeedbackContext
{
public:
	void Serialize(const TCHAR*, ELogVerbosity::Type, const FName&) override {}
};

/** Tells what was cut: in the log, and to whoever called for the package. */
class FCutWarnings final : public FFeedbackContext
{
public:
	explicit FCutWarnings(FString InFilename)
		: Filename(MoveTemp(InFilename))
	{
	}
	~FCutWarnings() override
	{
		if (NumTold > MaxTold)
		{
			Tell(FString::Printf(TEXT("%d more of the like"), NumTold - MaxTold));
		}
	}
	void Serialize(const TCHAR* Text, ELogVerbosity::Type, const FName&) override
	{
		if (++NumTold <= MaxTold)
		{
			Tell(Text);
		}
	}

private:
	static constexpr int32 MaxTold = 20;
	void Tell(const FString& Text) const
	{
		const FString Problem = FString::Printf(TEXT("%s: %s"), *Filename, *Text);
		UE_LOG(LogPackage, Warning, TEXT("%s"), *Problem);
		PackageFile::NoteProblem(Problem);
	}

	const FString Filename;
	int32 NumTold = 0;
};
} // namespace PackageLoading
