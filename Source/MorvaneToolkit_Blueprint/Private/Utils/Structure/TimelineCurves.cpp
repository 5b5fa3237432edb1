#include "Utils/Structure/TimelineCurves.h"

#include "Curves/CurveFloat.h"
#include "Curves/CurveLinearColor.h"
#include "Curves/CurveVector.h"
#include "Curves/RichCurve.h"
#include "Engine/TimelineTemplate.h"
#include "JsonReading.h"
#include "K2Node_Timeline.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "ToolResult.h"
#include "UObject/Package.h"
#include "Utils/Structure/StructureEntry.h"

#include <cmath>

namespace TimelineCurves
{
namespace
{
enum class EKind : uint8
{
	Float,
	Vector,
	LinearColor,
};

TOptional<EKind> ToKind(const FString& Word)
{
	struct FRow
	{
		const TCHAR* Word;
		EKind Kind;
	};
	static const FRow Rows[] = {{TEXT("Float"), EKind::Float}, {TEXT("FloatCurve"), EKind::Float},
		{TEXT("Vector"), EKind::Vector}, {TEXT("VectorCurve"), EKind::Vector}, {TEXT("Linear"), EKind::LinearColor},
		{TEXT("LinearColor"), EKind::LinearColor}, {TEXT("LinearColorCurve"), EKind::LinearColor}};
	for (const FRow& Row : Rows)
	{
		if (Word.Equals(Row.Word, ESearchCase::IgnoreCase))
		{
			return Row.Kind;
		}
	}
	return TOptional<EKind>();
}

/** A number that a key can hold. */
bool ToKeyNumber(const TSharedPtr<FJsonValue>& Value, double& OutNumber)
{
	return StructureValues::ToNumber(Value, OutNumber) && std::isfinite(static_cast<float>(OutNumber));
}

/** The members of a point's value, and what a missing one is. */
struct FComponent
{
	const TCHAR* Name;
	double Missing;
};

TArray<FComponent> GetComponents(EKind Kind)
{
	if (Kind == EKind::Vector)
	{
		return {{TEXT("x"), 0.0}, {TEXT("y"), 0.0}, {TEXT("z"), 0.0}};
	}
	return {{TEXT("R"), 0.0}, {TEXT("G"), 0.0}, {TEXT("B"), 0.0}, {TEXT("A"), 1.0}};
}

/** The node of a timeline shows each track as a pin beside these. */
const TSet<FName>& GetNodePins()
{
	static const TSet<FName> Names = []
	{
		UK2Node_Timeline* const Node = NewObject<UK2Node_Timeline>(GetTransientPackage());
		Node->AllocateDefaultPins();
		TSet<FName> Pins;
		for (const UEdGraphPin* const Pin : Node->Pins)
		{
			Pins.Add(Pin->PinName);
		}
		Node->MarkAsGarbage();
		return Pins;
	}();
	return Names;
}

/** One curve of one timeline. */
class FCurve
{
public:
	FCurve(UTimelineTemplate& InTimeline, const FString& InTimelineName, const FString& InName,
		const FStructureEntry& InEntry, Morvane::FToolResult& InResult)
		: Timeline(InTimeline)
		, TimelineName(InTimelineName)
		, Name(InName)
		, Entry(InEntry)
		, Result(InResult)
	{
	}

	bool Add() const;
	bool Modify() const;

private:
	bool IsNameFit() const;
	/** Keys for each component in turn; what cannot be read is told. */
	void AddPoints(EKind Kind, TArray<FRichCurve*> Curves) const;
	bool ReadValues(EKind Kind, const TSharedPtr<FJsonValue>& Value, TArray<double>& OutValues) const;
	bool ReadComponents(EKind Kind, const FJsonObject& Object, TArray<double>& OutValues) const;

	UTimelineTemplate& Timeline;
	const FString& TimelineName;
	const FString& Name;
	const FStructureEntry& Entry;
	Morvane::FToolResult& Result;
};

bool FCurve::IsNameFit() const
{
	const EValidatorResult Verdict = FKismetNameValidator(nullptr).IsValid(Name);
	if (Verdict != EValidatorResult::Ok)
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("%s for name '%s'"), *INameValidatorInterface::GetErrorString(Name, Verdict), *Name));
		return false;
	}
	const bool bTaken = GetNodePins().Contains(FName(*Name));
	if (bTaken)
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Curve '%s' was not added to timeline '%s': timeline nodes have a pin of that name"),
				*Name, *TimelineName));
	}
	return !bTaken;
}

bool FCurve::ReadComponents(EKind Kind, const FJsonObject& Object, TArray<double>& OutValues) const
{
	int32 NumRead = 0;
	for (const FComponent& Component : GetComponents(Kind))
	{
		double Value = Component.Missing;
		for (const auto& Member : Object.Values)
		{
			if (FString(Member.Key).Equals(Component.Name, ESearchCase::IgnoreCase))
			{
				if (!Member.Value || !ToKeyNumber(Member.Value, Value))
				{
					return false;
				}
				++NumRead;
			}
		}
		OutValues.Add(Value);
	}
	// A member of another name would be lost without a word.
	return NumRead > 0 && NumRead == Object.Values.Num();
}

bool FCurve::ReadValues(EKind Kind, const TSharedPtr<FJsonValue>& Value, TArray<double>& OutValues) const
{
	double Number = 0.0;
	if (Kind == EKind::Float)
	{
		OutValues.Add(0.0);
		return ToKeyNumber(Value, OutValues[0]);
	}
	if (const TSharedPtr<FJsonObject>& Object = MorvaneJson::AsObject(*Value))
	{
		return ReadComponents(Kind, *Object, OutValues);
	}
	const int32 NumWanted = GetComponents(Kind).Num();
	for (const TSharedPtr<FJsonValue>& Element : MorvaneJson::AsArray(*Value))
	{
		if (!ToKeyNumber(Element, Number))
		{
			return false;
		}
		OutValues.Add(Number);
	}
	if (Kind == EKind::LinearColor && OutValues.Num() == 3)
	{
		OutValues.Add(1.0);
	}
	return OutValues.Num() == NumWanted;
}

/** Time and value of {"time": 0, "value": 1}, or of [0, 1] as a lean read writes it; null for what is not there. */
static TPair<TSharedPtr<FJsonValue>, TSharedPtr<FJsonValue>> SplitPoint(const FJsonValue& Point)
{
	if (const TSharedPtr<FJsonObject>& Object = MorvaneJson::AsObject(Point))
	{
		return {Object->TryGetField(TEXT("time")), Object->TryGetField(TEXT("value"))};
	}
	TArray<TSharedPtr<FJsonValue>> Numbers = MorvaneJson::AsArray(Point);
	if (Numbers.Num() < 2)
	{
		return {nullptr, nullptr};
	}
	const TSharedPtr<FJsonValue> Time = Numbers[0];
	Numbers.RemoveAt(0);
	return {Time, Numbers.Num() == 1 ? Numbers[0] : MakeShared<FJsonValueArray>(Numbers)};
}

void FCurve::AddPoints(EKind Kind, TArray<FRichCurve*> Curves) const
{
	const TArray<TSharedPtr<FJsonValue>>* const Points = Entry.ReadArray(TEXT("points"));
	for (int32 Index = 0; Points && Index < Points->Num(); ++Index)
	{
		const auto [Time, Value] = SplitPoint(*(*Points)[Index]);
		double Seconds = 0.0;
		TArray<double> Values;
		if (!Time || !Value || !ToKeyNumber(Time, Seconds) || !ReadValues(Kind, Value, Values))
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT(
					"Point %d of curve '%s' in timeline '%s' was left out: %s has no time and value of the curve's type"),
				Index, *Name, *TimelineName, *StructureValues::Show((*Points)[Index])));
			continue;
		}
		for (int32 Component = 0; Component < Curves.Num(); ++Component)
		{
			Curves[Component]->AddKey(static_cast<float>(Seconds), static_cast<float>(Values[Component]), false);
		}
	}
}

bool FCurve::Add() const
{
	if (!Timeline.IsNewTrackNameValid(FName(*Name)))
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Curve '%s' already exists in timeline '%s', cannot add"), *Name, *TimelineName));
		return false;
	}
	const TOptional<FString> Type = Entry.ReadString(TEXT("type"));
	const TOptional<EKind> Kind = Type ? ToKind(*Type) : TOptional<EKind>(EKind::Float);
	if (!Kind)
	{
		Entry.WarnOfValue(TEXT("type"), Entry.Json.TryGetField(TEXT("type")), TEXT("Float, Vector or LinearColor"));
		return false;
	}
	if (!IsNameFit())
	{
		return false;
	}
	Timeline.Modify();
	if (*Kind == EKind::Float)
	{
		FTTFloatTrack Track;
		Track.CurveFloat = NewObject<UCurveFloat>(&Timeline);
		Track.SetTrackName(FName(*Name), &Timeline);
		AddPoints(*Kind, {&Track.CurveFloat->FloatCurve});
		Timeline.FloatTracks.Add(Track);
		Result.AddSuccessMessage(
			FString::Printf(TEXT("Added float curve '%s' to timeline '%s'"), *Name, *TimelineName));
	}
	else if (*Kind == EKind::Vector)
	{
		FTTVectorTrack Track;
		Track.CurveVector = NewObject<UCurveVector>(&Timeline);
		Track.SetTrackName(FName(*Name), &Timeline);
		FRichCurve* const Curves = &Track.CurveVector->FloatCurves[0];
		AddPoints(*Kind, {Curves, Curves + 1, Curves + 2});
		Timeline.VectorTracks.Add(Track);
		Result.AddSuccessMessage(
			FString::Printf(TEXT("Added vector curve '%s' to timeline '%s'"), *Name, *TimelineName));
	}
	else
	{
		FTTLinearColorTrack Track;
		Track.CurveLinearColor = NewObject<UCurveLinearColor>(&Timeline);
		Track.SetTrackName(FName(*Name), &Timeline);
		FRichCurve* const Curves = &Track.CurveLinearColor->FloatCurves[0];
		AddPoints(*Kind, {Curves, Curves + 1, Curves + 2, Curves + 3});
		Timeline.LinearColorTracks.Add(Track);
		Result.AddSuccessMessage(
			FString::Printf(TEXT("Added linear color curve '%s' to timeline '%s'"), *Name, *TimelineName));
	}
	return true;
}

bool FCurve::Modify() const
{
	const FName Track(*Name);
	const int32 Index = Timeline.FindFloatTrackIndex(Track);
	if (Index == INDEX_NONE && Timeline.IsNewTrackNameValid(Track))
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Curve '%s' not found in timeline '%s' for modification"), *Name, *TimelineName));
		return false;
	}
	UCurveFloat* const Curve = Index == INDEX_NONE ? nullptr : Timeline.FloatTracks[Index].CurveFloat.Get();
	if (!Curve || Timeline.FloatTracks[Index].bIsExternalCurve)
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Curve '%s' in timeline '%s' is not a float curve of its own and was left as it is"),
				*Name, *TimelineName));
		return false;
	}
	Curve->Modify();
	const TArray<FRichCurveKey> Before = Curve->FloatCurve.GetCopyOfKeys();
	if (Entry.ReadBool(TEXT("clear_keys")).Get(false))
	{
		Curve->FloatCurve.Reset();
	}
	AddPoints(EKind::Float, {&Curve->FloatCurve});
	Result.AddSuccessMessage(FString::Printf(TEXT("Modified float curve '%s' in timeline '%s'"), *Name, *TimelineName));
	return Before != Curve->FloatCurve.GetConstRefOfKeys();
}

template <class TTrack>
UObject* CurveOf(const TTrack& Track)
{
	if constexpr (std::is_same_v<TTrack, FTTFloatTrack>)
	{
		return Track.CurveFloat;
	}
	else if constexpr (std::is_same_v<TTrack, FTTVectorTrack>)
	{
		return Track.CurveVector;
	}
	else if constexpr (std::is_same_v<TTrack, FTTLinearColorTrack>)
	{
		return Track.CurveLinearColor;
	}
	else
	{
		return Track.CurveKeys;
	}
}

template <class TTrack>
bool RemoveTrack(TArray<TTrack>& Tracks, FName Name)
{
	const int32 Index = Tracks.IndexOfByPredicate([Name](const TTrack& Track) { return Track.GetTrackName() == Name; });
	if (Index == INDEX_NONE)
	{
		return false;
	}
	UObject* const Curve = CurveOf(Tracks[Index]);
	if (Curve && !Tracks[Index].bIsExternalCurve)
	{
		Curve->MarkAsGarbage();
	}
	Tracks.RemoveAt(Index);
	return true;
}

bool RemoveTrack(UTimelineTemplate& Timeline, FName Name)
{
	Timeline.Modify();
	return RemoveTrack(Timeline.FloatTracks, Name) || RemoveTrack(Timeline.VectorTracks, Name)
		|| RemoveTrack(Timeline.LinearColorTracks, Name) || RemoveTrack(Timeline.EventTracks, Name);
}

bool ApplyOne(UTimelineTemplate& Timeline, const FString& TimelineName, const TSharedPtr<FJsonValue>& Value,
	TArray<FString>& OutLeaving, Morvane::FToolResult& Result)
{
	TSharedPtr<FJsonObject> Json;
	FString Name;
	if (!FStructureEntry::FindNamed(Value, Json, Name) || Name.IsEmpty())
	{
		Result.AddWarningMessage(TEXT("Curve entry missing 'name' field."));
		return false;
	}
	const FStructureEntry Entry(*Json, TEXT("curve"), Name, Result);
	const TOptional<EBPNodeAction> Action = Entry.ReadAction(EBPNodeAction::Add);
	Entry.WarnOfOtherKeys({TEXT("name"), TEXT("type"), TEXT("action"), TEXT("points"), TEXT("clear_keys")});
	if (Action == EBPNodeAction::Remove)
	{
		OutLeaving.Add(Name);
	}
	if (!Action || *Action == EBPNodeAction::Remove)
	{
		return false;
	}
	const FCurve Curve(Timeline, TimelineName, Name, Entry, Result);
	return *Action == EBPNodeAction::Add ? Curve.Add() : Curve.Modify();
}
} // namespace

bool Apply(UTimelineTemplate& Timeline, const FString& TimelineName, const TArray<TSharedPtr<FJsonValue>>& Curves,
	TArray<FString>& OutLeaving, Morvane::FToolResult& Result)
{
	bool bChanged = false;
	for (const TSharedPtr<FJsonValue>& Value : Curves)
	{
		bChanged |= ApplyOne(Timeline, TimelineName, Value, OutLeaving, Result);
	}
	return bChanged;
}

bool Remove(UTimelineTemplate& Timeline, const FString& TimelineName, const TArray<FString>& Curves,
	Morvane::FToolResult& Result)
{
	bool bChanged = false;
	for (const FString& Name : Curves)
	{
		if (RemoveTrack(Timeline, FName(*Name)))
		{
			bChanged = true;
			Result.AddSuccessMessage(
				FString::Printf(TEXT("Also removed curve: %s from timeline: %s"), *Name, *TimelineName));
		}
		else
		{
			Result.AddWarningMessage(
				FString::Printf(TEXT("Curve '%s' not found in timeline '%s' for removal"), *Name, *TimelineName));
		}
	}
	return bChanged;
}
} // namespace TimelineCurves
