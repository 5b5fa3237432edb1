#include "Utils/Graph/LooseNames.h"

#include "EdGraph/EdGraphNode.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_CallFunction.h"
#include "K2Node_VariableSet.h"
#include "UObject/UnrealType.h"

#include <algorithm>

namespace LoosePinNames
{
using FSchema = UEdGraphSchema_K2;

/** Whether a flag is called by a name, with the b that programmers put before it or without. */
static bool IsFlagName(const FString& PinName, const FString& Wanted)
{
	return (PinName.Len() > 1 && PinName[0] == TEXT('b') && PinName.Mid(1) == Wanted)
		|| (Wanted.Len() > 1 && Wanted[0] == TEXT('b') && Wanted.Mid(1) == PinName);
}

static bool IsCalled(const UEdGraphPin& Pin, const FString& Wanted)
{
	const FString Name = LooseNames::Squeeze(Pin.PinName.ToString());
	return Name == Wanted || LooseNames::Squeeze(Pin.GetDisplayName().ToString()) == Wanted
		|| (Pin.PinType.PinCategory == FSchema::PC_Boolean && IsFlagName(Name, Wanted));
}

/** What a set node passes on is the variable, and its pin for that bears another name than the variable's. */
static UEdGraphPin* FindPassedOn(const UEdGraphNode& Node, const FString& Wanted, EEdGraphPinDirection Direction)
{
	const UK2Node_VariableSet* const Set = Direction == EGPD_Output ? Cast<UK2Node_VariableSet>(&Node) : nullptr;
	const UEdGraphPin* const Value = Set ? Node.FindPin(Set->GetVarName(), EGPD_Input) : nullptr;
	return Value && IsCalled(*Value, Wanted) ? Node.FindPin(TEXT("Output_Get"), EGPD_Output) : nullptr;
}

/** The only pin of which the test holds; null for none and for several. */
template <class TTest>
UEdGraphPin* FindOnly(const TArray<UEdGraphPin*>& Pins, TTest&& Test)
{
	UEdGraphPin* Only = nullptr;
	for (UEdGraphPin* const Pin : Pins)
	{
		if (Test(*Pin))
		{
			if (Only)
			{
				return nullptr;
			}
			Only = Pin;
		}
	}
	return Only;
}

template <std::size_t Count>
bool IsAnyOf(const FString& Name, const TCHAR* const (&Words)[Count])
{
	return std::any_of(std::begin(Words), std::end(Words), [&Name](const TCHAR* Word) { return Name == Word; });
}

static bool IsLatentCall(const UEdGraphNode& Node)
{
	const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node);
	return Call && Call->IsLatentFunction();
}

static UEdGraphPin* FindByUse(
	const UEdGraphNode& Node, const FString& Wanted, const TArray<UEdGraphPin*>& Pins, EEdGraphPinDirection Direction)
{
	static const TCHAR* const ExecWords[] = {TEXT("exec"), TEXT("execution"), TEXT("execin"), TEXT("execout"),
		TEXT("flow"), TEXT("enter"), TEXT("in"), TEXT("out"), TEXT("next"), TEXT("then"), TEXT("execute")};
	static const TCHAR* const LatentWords[] = {
		TEXT("completed"), TEXT("complete"), TEXT("finished"), TEXT("done"), TEXT("oncompleted")};
	static const TCHAR* const ResultWords[] = {
		TEXT("result"), TEXT("return"), TEXT("returnvalue"), TEXT("output"), TEXT("outputvalue"), TEXT("value")};
	static const TCHAR* const ValueWords[] = {TEXT("value"), TEXT("newvalue"), TEXT("input"), TEXT("inputvalue")};
	static const TCHAR* const IndexWords[] = {TEXT("arrayindex"), TEXT("dimension1")};
	const auto IsExec = [](const UEdGraphPin& Pin) { return FSchema::IsExecPin(Pin); };
	const auto IsData = [](const UEdGraphPin& Pin)
	{ return !FSchema::IsExecPin(Pin) && Pin.PinName != FSchema::PN_Self; };
	const bool bOutput = Direction == EGPD_Output;
	if (IsAnyOf(Wanted, ExecWords) || (bOutput && IsAnyOf(Wanted, LatentWords) && IsLatentCall(Node)))
	{
		return FindOnly(Pins, IsExec);
	}
	if (Wanted == TEXT("index"))
	{
		return FindOnly(Pins,
			[](const UEdGraphPin& Pin) { return IsAnyOf(LooseNames::Squeeze(Pin.PinName.ToString()), IndexWords); });
	}
	const bool bForOnly = bOutput ? IsAnyOf(Wanted, ResultWords) : IsAnyOf(Wanted, ValueWords);
	return bForOnly ? FindOnly(Pins, IsData) : nullptr;
}

/** Whether one name is the other with words before it: "New Rotation" and "Rotation", either way round. */
static bool EndsWithWords(const FString& Long, const FString& Short)
{
	TArray<FString> Words;
	FName::NameToDisplayString(Long, false).ParseIntoArrayWS(Words);
	FString End;
	for (int32 Index = Words.Num() - 1; Index > 0 && End.Len() < Short.Len(); --Index)
	{
		End = LooseNames::Squeeze(Words[Index]) + End;
		if (End == Short)
		{
			return true;
		}
	}
	return false;
}

/** Visible pins of a direction that stand for something now. */
static TArray<UEdGraphPin*> GetShown(const UEdGraphNode& Node, EEdGraphPinDirection Direction)
{
	return Node.Pins.FilterByPredicate([Direction](const UEdGraphPin* Pin)
		{ return Pin && Pin->Direction == Direction && !Pin->bHidden && !Pin->bOrphanedPin; });
}
} // namespace LoosePinNames

FString LooseNames::Squeeze(const FString& Name)
{
	FString Squeezed;
	Squeezed.Reserve(Name.Len());
	for (const TCHAR Char : Name)
	{
		if (Char != TEXT(' ') && Char != TEXT('_') && Char != TEXT('\t'))
		{
			Squeezed.AppendChar(FChar::ToLower(Char));
		}
	}
	return Squeezed;
}

UEdGraphPin* LooseNames::FindPin(const UEdGraphNode& Node, const FString& Name, EEdGraphPinDirection Direction)
{
	const FString Wanted = Squeeze(Name);
	const TArray<UEdGraphPin*> Pins = LoosePinNames::GetShown(Node, Direction);
	if (Wanted.IsEmpty())
	{
		return nullptr;
	}
	if (UEdGraphPin* const PassedOn = LoosePinNames::FindPassedOn(Node, Wanted, Direction))
	{
		return PassedOn;
	}
	const bool bCalled = Pins.ContainsByPredicate(
		[&Wanted](const UEdGraphPin* Pin) { return LoosePinNames::IsCalled(*Pin, Wanted); });
	return bCalled ? LoosePinNames::FindOnly(
			   Pins, [&Wanted](const UEdGraphPin& Pin) { return LoosePinNames::IsCalled(Pin, Wanted); })
				   : LoosePinNames::FindByUse(Node, Wanted, Pins, Direction);
}

UEdGraphPin* LooseNames::FindPinByLastWords(
	const UEdGraphNode& Node, const FString& Name, EEdGraphPinDirection Direction)
{
	// Two letters, such as the X of a vector, end too much.
	const FString Wanted = Squeeze(Name);
	const auto Fits = [&](const UEdGraphPin& Pin)
	{
		const FString Own = Squeeze(Pin.PinName.ToString());
		return !UEdGraphSchema_K2::IsExecPin(Pin)
			&& ((Wanted.Len() > 2 && LoosePinNames::EndsWithWords(Pin.PinName.ToString(), Wanted))
				|| (Own.Len() > 2 && LoosePinNames::EndsWithWords(Name, Own)));
	};
	return LoosePinNames::FindOnly(LoosePinNames::GetShown(Node, Direction), Fits);
}

UFunction* LooseNames::FindFunction(const UClass* Class, const FString& Shown)
{
	FString Name = Shown.TrimStartAndEnd();
	Name.RemoveFromStart(TEXT("Parent:"), ESearchCase::IgnoreCase);
	Name = Name.TrimStartAndEnd();
	Name.RemoveFromStart(TEXT("Event "), ESearchCase::IgnoreCase);
	const FString Wanted = Squeeze(Name);
	const FString WithVerb = TEXT("receive") + Wanted;
	UFunction* Found = nullptr;
	for (TFieldIterator<UFunction> It(Class); It; ++It)
	{
		const FString Own = Squeeze(It->GetName());
		const bool bFits = Own == Wanted || Own == WithVerb
			|| Squeeze(UK2Node_CallFunction::GetUserFacingFunctionName(*It).ToString()) == Wanted;
		// What a class overrides stands again in its parents.
		if (!bFits || (Found && Found->GetFName() == It->GetFName()))
		{
			continue;
		}
		if (Found)
		{
			return nullptr;
		}
		Found = *It;
	}
	return Found;
}
