#include "ObjectText/ObjectTextWriter.h"
#include "Standalone/LoadedStructure.h"
#include "Standalone/MissingObjects.h"
#include "Standalone/ObjectText.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"

#include "Misc/FeedbackContext.h"

#include <utility>

namespace ObjectTextImporting
{
FObjectTextImport::FUnknownClassHandler UnknownClassHandler = nullptr;

/** How far an element number may lie behind the end of an array. The skipped elements get their default value. */
constexpr int32 MaxElementGap = 1024;

/** Collects why a value was refused. */
class FReasonDevice final : public FOutputDevice
{
public:
	void Serialize(const TCHAR* Text, ELogVerbosity::Type, const FName&) override
	{
		if (!Reason.IsEmpty())
		{
			Reason += TEXT("; ");
		}
		Reason += Text;
	}
	FString Reason;
};

/** A problem may quote the whole text that it is about, which may be long. */
static FString Shortened(const FString& Problem)
{
	constexpr int32 MaxLength = 400;
	return Problem.Len() > MaxLength ? Problem.Left(MaxLength) + TEXT("...") : Problem;
}

/** Tells where in the text the object stood that a problem is about. */
class FPlacedWarnings final : public FFeedbackContext
{
public:
	FPlacedWarnings(FFeedbackContext& InTarget, const UObject& InObject, int32 InLineNumber)
		: Target(InTarget)
		, Object(InObject)
		, LineNumber(InLineNumber)
	{
	}
	void Serialize(const TCHAR* Text, ELogVerbosity::Type, const FName&) override
	{
		Target.Logf(TEXT("line %d: '%s': %s"), LineNumber, *Object.GetPathName(), *Shortened(Text));
	}

private:
	FFeedbackContext& Target;
	const UObject& Object;
	const int32 LineNumber;
};

static std::string_view StripReference(std::string_view Path)
{
	const std::size_t Open = Path.find('\'');
	if (Open != std::string_view::npos && Path.back() == '\'' && Path.size() > Open + 1)
	{
		Path = Path.substr(Open + 1, Path.size() - Open - 2);
	}
	return Path.size() >= 2 && Path.front() == '"' && Path.back() == '"' ? Path.substr(1, Path.size() - 2) : Path;
}

static bool IsNameChar(char Char)
{
	return (Char >= 'a' && Char <= 'z') || (Char >= 'A' && Char <= 'Z') || (Char >= '0' && Char <= '9') || Char == '_';
}

/** Text of a person or a name may look like a reference and must stay as it is. */
static bool MayHoldReferences(const FProperty& Property)
{
	return !Property.IsA<FStrProperty>() && !Property.IsA<FTextProperty>() && !Property.IsA<FNameProperty>();
}
} // namespace ObjectTextImporting

FObjectTextImport::FObjectTextImport(FFeedbackContext& InWarn, bool bInRedirect)
	: Warn(InWarn)
	, bRedirect(bInRedirect)
{
}

FObjectTextImport::~FObjectTextImport() = default;

FObjectTextImport::FUnknownClassHandler FObjectTextImport::SetUnknownClassHandler(FUnknownClassHandler Handler)
{
	return std::exchange(ObjectTextImporting::UnknownClassHandler, Handler);
}

UClass* FObjectTextImport::FindClass(std::string_view ClassPath)
{
	const FString Path = FromUtf8(ObjectTextImporting::StripReference(ClassPath));
	if (Path.IsEmpty())
	{
		return nullptr;
	}
	if (Path[0] == TEXT('/'))
	{
		UObject* const Found = StaticFindObject(UClass::StaticClass(), nullptr, *Path);
		return static_cast<UClass*>(
			Found ? Found : StaticLoadObject(UClass::StaticClass(), nullptr, *Path, nullptr, LOAD_Quiet));
	}
	if (Path.Contains(TEXT(".")))
	{
		return static_cast<UClass*>(StaticFindObject(UClass::StaticClass(), nullptr, *(TEXT("/Script/") + Path)));
	}
	return static_cast<UClass*>(StaticFindFirstObject(UClass::StaticClass(), *Path));
}

UObject* FObjectTextImport::DefaultFactory(const FObjectTextRecord& Record, UObject* Outer)
{
	if (Record.ClassPath.empty())
	{
		return StaticFindObjectFast(UObject::StaticClass(), Outer, FName(Record.GetName()));
	}
	if (UClass* const Class = FindClass(Record.ClassPath))
	{
		const bool bUsable = Class->GetNativeClass() != nullptr;
		return bUsable ? NewObject<UObject>(Outer, Class, FName(Record.GetName()), Record.Flags) : nullptr;
	}
	UObject* const StandIn = ObjectTextImporting::UnknownClassHandler
		? ObjectTextImporting::UnknownClassHandler(Record, Outer)
		: nullptr;
	if (StandIn)
	{
		FKeptObjectText::FindOrAdd(StandIn).ClassPath = ObjectTextImporting::StripReference(Record.ClassPath);
	}
	return StandIn;
}

UObject* FObjectTextImport::Create(const FObjectTextRecord& Record, UObject* Outer)
{
	return Create(Record, Outer,
		[this](const FObjectTextRecord& Wanted, UObject* Below) -> UObject*
		{
			UObject* const Object = DefaultFactory(Wanted, Below);
			if (!Object)
			{
				FKeptObjectText::KeepRecord(Wanted, Below, Warn);
			}
			return Object;
		});
}

UObject* FObjectTextImport::Create(const FObjectTextRecord& Record, UObject* Outer, FFactory Factory)
{
	UObject* const Object = CreateOne(Record, Outer, nullptr, Factory);
	if (Object && bRedirect && !Record.ExportPath.empty())
	{
		RootByExportPath.emplace(ToUtf8(Record.GetExportObjectPath()), Object);
	}
	return Object;
}

UObject* FObjectTextImport::CreateOne(
	const FObjectTextRecord& Record, UObject* Outer, const UObject* MadeBelow, FFactory Factory)
{
	UObject* const Object = Factory(Record, Outer);
	if (!Object)
	{
		return nullptr;
	}
	Object->SetFlags(Record.Flags);
	Made.push_back({&Record, Object});
	if (bRedirect)
	{
		MadeByName.emplace(FMadeKey{MadeBelow, Record.Name}, Object);
	}
	for (const FObjectTextRecord& Inner : Record.Inner)
	{
		CreateOne(Inner, Object, Object, Factory);
	}
	return Object;
}

UObject* FObjectTextImport::FindMade(std::string_view Name, const UObject* Outer) const
{
	const auto Found = MadeByName.find(FMadeKey{Outer, Name});
	return Found == MadeByName.end() ? nullptr : Found->second;
}

void FObjectTextImport::ImportProperties()
{
	// Reading a value can load a package, but never adds to what this import made.
	for (; NumImported < Made.size(); ++NumImported)
	{
		ImportInto(Made[NumImported].Object, *Made[NumImported].Record);
	}
	TArray<UObject*> Objects;
	for (const FMade& Entry : Made)
	{
		Objects.Add(Entry.Object);
	}
	LoadedStructure::Settle(Objects, Warn);
}

void FObjectTextImport::ImportInto(UObject* Object, const FObjectTextRecord& Record)
{
	const FObjectTextLine* Previous = nullptr;
	for (const FObjectTextLine& Line : Record.Lines)
	{
		if (Line.bCustom)
		{
			WideScratch.clear();
			FUTF8::AppendLossy(WideScratch, Line.Value);
			ObjectTextImporting::FPlacedWarnings Placed(Warn, *Object, Line.LineNumber);
			Object->ImportCustomProperties(WideScratch.c_str(), &Placed);
		}
		else
		{
			ImportProperty(Object, Line, Previous);
		}
		Previous = &Line;
	}
}

void FObjectTextImport::ImportProperty(UObject* Object, const FObjectTextLine& Line, const FObjectTextLine* Previous)
{
	FProperty* Property = Object->GetClass()->FindPropertyByName(FName(Line.Name));
	// Of a member of a missing class neither the default is known, which a value would be left out for, nor for sure
	// the type: its text stands as it is.
	if (!Property || FMissingObjects::IsMissing(Property->GetOwnerClass()))
	{
		std::string& Kept = FKeptObjectText::FindOrAdd(Object).Lines.emplace_back();
		FObjectTextWriter::AppendLine(Kept, Line);
		return;
	}
	void* Value = Property->GetValuePtr(Object);
	if (Line.Index != INDEX_NONE)
	{
		Value = PlaceForElement(Property, Value, Line, Previous);
		if (!Value)
		{
			Complain(Object, Line, TEXT("there is no such element"));
			return;
		}
	}
	const bool bLook = bRedirect && ObjectTextImporting::MayHoldReferences(*Property);
	// A value can load another package, and with it come back here; so the buffer is taken along.
	std::wstring Text = MoveTemp(WideScratch);
	Text.clear();
	FUTF8::AppendLossy(Text, bLook ? RedirectReferences(Line.Value) : Line.Value);
	ObjectTextImporting::FReasonDevice Reason;
	const bool bRead = Property->ImportText_Direct(Text.c_str(), Value, Object, PPF_Delimited, &Reason) != nullptr;
	// A struct goes on after a member that it cannot read; the whole text is kept for that member's sake.
	if (!bRead || !Reason.Reason.IsEmpty())
	{
		FKeptObjectText::FUnread& Kept = FKeptObjectText::FindOrAdd(Object).Unread.emplace_back();
		Kept.Property = FName(Line.Name);
		Kept.Index = Line.Index;
		Kept.Value = Line.Value;
		Property->ExportTextItem_Direct(Kept.TextAfter, Value, nullptr, Object, PPF_Delimited);
		Complain(Object, Line, Reason.Reason.IsEmpty() ? FString(TEXT("the value cannot be read")) : Reason.Reason);
	}
	WideScratch = MoveTemp(Text);
}

void* FObjectTextImport::PlaceForElement(
	FProperty*& InOutProperty, void* Value, const FObjectTextLine& Line, const FObjectTextLine* Previous)
{
	const FArrayProperty* const Array = CastField<FArrayProperty>(InOutProperty);
	if (!Array)
	{
		return Line.Index == 0 ? Value : nullptr;
	}
	const FScriptArrayHelper Elements(Array, Value);
	// A list that starts over replaces what the class gave; one that starts further on changes single elements.
	const bool bContinues = Previous && !Previous->bCustom && Previous->Name == Line.Name
		&& Previous->Index != INDEX_NONE;
	if (Line.Index == 0 && !bContinues)
	{
		Elements.EmptyValues();
	}
	if (Line.Index >= Elements.Num())
	{
		if (Line.Index - Elements.Num() > ObjectTextImporting::MaxElementGap)
		{
			return nullptr;
		}
		Elements.Resize(Line.Index + 1);
	}
	InOutProperty = Array->Inner;
	return Elements.GetRawPtr(Line.Index);
}

void FObjectTextImport::Complain(const UObject* Object, const FObjectTextLine& Line, const FString& Problem)
{
	Warn.Logf(TEXT("line %d: property '%s' of '%s' keeps its value: %s"), Line.LineNumber, *Line.GetName(),
		*Object->GetPathName(), *ObjectTextImporting::Shortened(Problem));
}

std::string_view FObjectTextImport::RedirectReferences(std::string_view Value)
{
	std::size_t Copied = 0;
	RedirectScratch.clear();
	for (std::size_t Open = Value.find('\'', 1); Open != std::string_view::npos && Open > 0;
		 Open = Value.find('\'', Open + 1))
	{
		const std::size_t Close = Value.find('\'', Open + 1);
		if (Close == std::string_view::npos)
		{
			break;
		}
		if (!ObjectTextImporting::IsNameChar(Value[Open - 1]))
		{
			continue;
		}
		std::size_t Start = Open + 1;
		std::size_t End = Close;
		if (End - Start >= 2 && Value[Start] == '"' && Value[End - 1] == '"')
		{
			++Start;
			--End;
		}
		if (const UObject* const Target = FindReferenced(Value.substr(Start, End - Start)))
		{
			RedirectScratch.append(Value.substr(Copied, Start - Copied));
			FUTF8::Append(RedirectScratch, Target->GetPathName().ToStdWString());
			Copied = End;
		}
		Open = Close;
	}
	if (Copied == 0)
	{
		return Value;
	}
	RedirectScratch.append(Value.substr(Copied));
	return RedirectScratch;
}

UObject* FObjectTextImport::FindReferenced(std::string_view Path) const
{
	// No object has a longer path; text of any origin may have one that takes all day to look up.
	constexpr std::size_t MaxPathLength = 4096;
	if (Path.size() > MaxPathLength)
	{
		return nullptr;
	}
	std::size_t Length = Path.size();
	UObject* Object = nullptr;
	while (!Object && Length > 0)
	{
		const std::string_view Front = Path.substr(0, Length);
		if (Front.find('/') != std::string_view::npos)
		{
			const auto Found = RootByExportPath.find(std::string(Front));
			Object = Found == RootByExportPath.end() ? nullptr : Found->second;
		}
		else
		{
			Object = FindMade(Front);
		}
		if (!Object)
		{
			const std::size_t Cut = Front.find_last_of(".:");
			Length = Cut == std::string_view::npos ? 0 : Cut;
		}
	}
	std::string_view Rest = Path.substr(Length);
	while (Object && !Rest.empty())
	{
		Rest.remove_prefix(1);
		const std::size_t Next = std::min(Rest.find_first_of(".:"), Rest.size());
		Object = FindMade(Rest.substr(0, Next), Object);
		Rest = Rest.substr(Next);
	}
	return Object;
}
