#include "ObjectText/ObjectTextWriter.h"

#include "Objects/Properties/ScriptRows.h"
#include "ObjectText/ObjectTextSyntax.h"
#include "Standalone/ObjectText.h"
#include "UObject/Class.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"

#include <optional>

namespace ObjectTextWriting
{
constexpr int32 IndentWidth = 3;

struct FFlagWord
{
	EObjectFlags Flag;
	const char* Word;
};
constexpr FFlagWord FlagWords[] = {
	{RF_Public, "Public"},
	{RF_Standalone, "Standalone"},
	{RF_ArchetypeObject, "Archetype"},
	{RF_DefaultSubObject, "DefaultSubObject"},
};

/** Takes lines from ExportCustomProperties. An object may end its lines with a line break or leave that to us. */
class FLineDevice : public FOutputDevice
{
public:
	explicit FLineDevice(std::string& InOut)
		: Out(InOut)
	{
	}
	void Serialize(const TCHAR* Text, ELogVerbosity::Type, const FName&) override
	{
		const std::size_t Start = Out.size();
		FUTF8::Append(Out, Text);
		while (Out.size() > Start && (Out.back() == '\n' || Out.back() == '\r'))
		{
			Out.pop_back();
		}
		if (Out.size() > Start)
		{
			Out.push_back('\n');
		}
	}

private:
	std::string& Out;
};

/** The object that a fresh one of the class would equal. A class default starts from its parent's. */
static UObject* FindBaseline(const UObject& Object)
{
	if (Object.HasAnyFlags(RF_ClassDefaultObject))
	{
		const UClass* const Super = Object.GetClass()->GetSuperClass();
		return Super ? Super->GetDefaultObject() : nullptr;
	}
	return Object.GetArchetype();
}
} // namespace ObjectTextWriting

FObjectTextWriter::FObjectTextWriter(const FObjectTextExport& InOptions, std::string& InOut)
	: Options(InOptions)
	, Out(InOut)
{
}

bool FObjectTextWriter::ShouldWrite(const UObject& Object) const
{
	if (Object.HasAnyFlags(static_cast<EObjectFlags>(RF_Transient | RF_Garbage))
		|| (!Options.bFlags && Object.HasAnyFlags(RF_TextExportTransient)))
	{
		return false;
	}
	// Functions and other members of a class are rebuilt with it.
	if (Object.IsA(UField::StaticClass()) && Object.GetOuter() && Object.GetOuter()->IsA(UStruct::StaticClass()))
	{
		return false;
	}
	return !Object.GetClass()->HasAnyClassFlags(CLASS_Transient);
}

bool FObjectTextWriter::WriteRoot(UObject& Object)
{
	Header(Object, 0, true, Options.bExportPath);
	const bool bWritten = Declarations(Object, 1) && Body(Object, 1);
	Footer(0);
	return bWritten;
}

void FObjectTextWriter::WriteKept(std::string_view Text)
{
	FObjectTextTree Tree;
	FObjectTextError Ignored;
	if (Tree.ParseView(Text, Ignored))
	{
		for (const FObjectTextRecord& Record : Tree.Objects)
		{
			WriteRecord(Record);
		}
	}
}

void FObjectTextWriter::WriteRecord(const FObjectTextRecord& Record)
{
	RecordHeader(Record, 0, true);
	RecordDeclarations(Record, 1);
	RecordBody(Record, 1);
	Footer(0);
}

void FObjectTextWriter::Indent(int32 Level)
{
	Out.append(static_cast<std::size_t>(Level * ObjectTextWriting::IndentWidth), ' ');
}

void FObjectTextWriter::Footer(int32 Level)
{
	Indent(Level);
	Out.append("End Object\n");
}

const std::string& FObjectTextWriter::ClassPathOf(const UClass* Class)
{
	const auto [Entry, bAdded] = ClassPaths.try_emplace(Class);
	if (bAdded)
	{
		FUTF8::Append(Entry->second, Class->GetPathName().ToStdWString());
	}
	return Entry->second;
}

void FObjectTextWriter::Header(const UObject& Object, int32 Level, bool bDeclare, bool bWithPath)
{
	Indent(Level);
	Out.append("Begin Object");
	const FKeptObjectText* const Kept = bDeclare ? FKeptObjectText::Find(&Object) : nullptr;
	const std::string& ClassPath = Kept && !Kept->ClassPath.empty() ? Kept->ClassPath : ClassPathOf(Object.GetClass());
	if (bDeclare)
	{
		Out.append(" Class=").append(ClassPath);
	}
	Out.append(" Name=\"");
	QuotedName(Object.GetFName());
	Out.push_back('"');
	if (bDeclare && Options.bFlags)
	{
		Flags(Object.GetFlags());
	}
	if (bWithPath)
	{
		Out.append(" ExportPath=\"").append(ClassPath).push_back('\'');
		FUTF8::Append(Out, Object.GetPathName().ToStdWString());
		Out.append("'\"");
	}
	Out.push_back('\n');
}

void FObjectTextWriter::QuotedName(FName Name)
{
	const std::size_t Start = Out.size();
	FUTF8::Append(Out, Name.GetView().ToStdView());
	for (std::size_t At = Start; (At = Out.find_first_of("\"\\", At)) != std::string::npos; At += 2)
	{
		Out.insert(At, 1, '\\');
	}
}

void FObjectTextWriter::Flags(EObjectFlags Set)
{
	const char* Lead = " Flags=";
	for (const ObjectTextWriting::FFlagWord& Row : ObjectTextWriting::FlagWords)
	{
		if (Set & Row.Flag)
		{
			Out.append(Lead).append(Row.Word);
			Lead = "|";
		}
	}
}

bool FObjectTextWriter::Declarations(const UObject& Object, int32 Level)
{
	if (Level > FObjectTextTree::MaxDepth)
	{
		Error = FString::Printf(
			TEXT("the object '%s' is nested deeper than %d levels"), *Object.GetPathName(), FObjectTextTree::MaxDepth);
		return false;
	}
	for (UObject* Inner = Object.GetFirstInner(); Inner; Inner = Inner->GetNextInner())
	{
		if (ShouldWrite(*Inner))
		{
			Header(*Inner, Level, true, false);
			if (!Declarations(*Inner, Level + 1))
			{
				return false;
			}
			Footer(Level);
		}
	}
	ForEachKept(Object,
		[&](const FObjectTextRecord& Record)
		{
			RecordHeader(Record, Level, true);
			RecordDeclarations(Record, Level + 1);
			Footer(Level);
		});
	return true;
}

bool FObjectTextWriter::Body(UObject& Object, int32 Level)
{
	for (UObject* Inner = Object.GetFirstInner(); Inner; Inner = Inner->GetNextInner())
	{
		if (ShouldWrite(*Inner))
		{
			Header(*Inner, Level, false, false);
			if (!Body(*Inner, Level + 1))
			{
				return false;
			}
			Footer(Level);
		}
	}
	ForEachKept(Object,
		[&](const FObjectTextRecord& Record)
		{
			RecordHeader(Record, Level, false);
			RecordBody(Record, Level + 1);
			Footer(Level);
		});
	return Properties(Object, Level) && CustomProperties(Object, Level);
}

void FObjectTextWriter::ForEachKept(const UObject& Object, TFunctionRef<void(const FObjectTextRecord&)> Visit)
{
	const FKeptObjectText* const Kept = FKeptObjectText::Find(&Object);
	if (!Kept)
	{
		return;
	}
	for (const std::string& Text : Kept->Objects)
	{
		FObjectTextTree Tree;
		FObjectTextError Ignored;
		if (Tree.ParseView(Text, Ignored) && !Tree.Objects.empty())
		{
			Visit(Tree.Objects.front());
		}
	}
}

bool FObjectTextWriter::Properties(UObject& Object, int32 Level)
{
	const UObject* const Baseline = ObjectTextWriting::FindBaseline(Object);
	const bool bIsDefault = Object.HasAnyFlags(RF_ClassDefaultObject);
	const FKeptObjectText* const Kept = FKeptObjectText::Find(&Object);
	// First, as derived classes' properties stand before those of their parents: what a stand-in does not know is
	// mostly of the class that it stands for.
	for (std::size_t Index = 0; Kept && Index < Kept->Lines.size(); ++Index)
	{
		Indent(Level);
		Out.append(Kept->Lines[Index]).push_back('\n');
	}
	for (TFieldIterator<FProperty> It(Object.GetClass()); It; ++It)
	{
		const FProperty& Property = **It;
		if (Property.HasAnyPropertyFlags(CPF_Transient | CPF_TextExportTransient | CPF_Deprecated))
		{
			continue;
		}
		const UClass* const Declarer = Property.GetOwnerClass();
		const bool bInBaseline = Baseline && Declarer && Baseline->IsA(Declarer);
		// A variable's first value can also come from its description, so what the default object holds is always told.
		const bool bAlways = bIsDefault && Options.OwnPackage && Declarer
			&& Declarer->GetOutermost() == Options.OwnPackage;
		const void* const Value = Property.GetValuePtr(&Object);
		const void* const Default = bInBaseline ? Property.GetValuePtr(Baseline) : nullptr;
		const bool bUnread = Kept
			&& (Kept->FindUnread(Property.GetFName(), INDEX_NONE) || Kept->HasLeftOut(Property.GetFName()));
		if ((bAlways || bUnread || !Property.Identical(Value, Default, Options.PortFlags))
			&& !WriteProperty(Object, Property, Value, Default, Level))
		{
			return false;
		}
	}
	return true;
}

bool FObjectTextWriter::WriteProperty(
	UObject& Object, const FProperty& Property, const void* Value, const void* Default, int32 Level)
{
	const FArrayProperty* const Array = CastField<FArrayProperty>(&Property);
	if (!Array)
	{
		return PropertyLine(Object, Property, Property, Value, Default, INDEX_NONE, Level);
	}
	const FScriptArrayHelper Elements(Array, Value);
	const FKeptObjectText* const Kept = FKeptObjectText::Find(&Object);
	// Nothing else tells a reader that an inherited list is empty now.
	if (Elements.Num() == 0 && !(Kept && Kept->HasLeftOut(Property.GetFName())))
	{
		LineStart(Property, INDEX_NONE, Level);
		Out.append("()\n");
	}
	// What a reader starts an element with: the members of a struct have values of their own, which need not be zero.
	std::optional<FScratchValue> NewElement;
	if (Array->Inner->IsA<FStructProperty>())
	{
		NewElement.emplace(*Array->Inner);
	}
	for (int32 Index = 0; Index < Elements.Num(); ++Index)
	{
		const void* const Element = Elements.GetRawPtr(Index);
		if (!PropertyLine(
				Object, Property, *Array->Inner, Element, NewElement ? NewElement->Get() : nullptr, Index, Level))
		{
			return false;
		}
	}
	int32 Behind = Elements.Num();
	for (std::size_t Index = 0; Kept && Index < Kept->LeftOut.size(); ++Index)
	{
		if (Kept->LeftOut[Index].Property == Property.GetFName())
		{
			LineStart(Property, Behind++, Level);
			Out.append(Kept->LeftOut[Index].Value).push_back('\n');
		}
	}
	return true;
}

void FObjectTextWriter::LineStart(const FProperty& Property, int32 Index, int32 Level)
{
	Indent(Level);
	FUTF8::Append(Out, Property.GetFName().GetView().ToStdView());
	if (Index != INDEX_NONE)
	{
		Out.append("(").append(std::to_string(Index)).append(")");
	}
	Out.push_back('=');
}

bool FObjectTextWriter::PropertyLine(UObject& Object, const FProperty& Named, const FProperty& Property,
	const void* Value, const void* Default, int32 Index, int32 Level)
{
	LineStart(Named, Index, Level);
	if (const std::string* const Unread = FindUnread(Object, Named, Property, Value, Index))
	{
		Out.append(*Unread).push_back('\n');
		return true;
	}
	Scratch.Reset();
	Property.ExportTextItem_Direct(
		Scratch, Value, Default, &Object, static_cast<int32>(Options.PortFlags), Options.RootScope);
	const std::size_t Start = Out.size();
	FUTF8::Append(Out, Scratch.ToStdWString());
	if (Out.find_first_of("\n\r", Start) != std::string::npos)
	{
		Error = FString::Printf(
			TEXT("the text of property '%s' of '%s' holds a line break"), *Named.GetName(), *Object.GetPathName());
		return false;
	}
	Out.push_back('\n');
	return true;
}

const std::string* FObjectTextWriter::FindUnread(
	UObject& Object, const FProperty& Named, const FProperty& Property, const void* Value, int32 Index)
{
	const FKeptObjectText* const Kept = FKeptObjectText::Find(&Object);
	const FKeptObjectText::FUnread* const Unread = Kept ? Kept->FindUnread(Named.GetFName(), Index) : nullptr;
	if (!Unread)
	{
		return nullptr;
	}
	FString Now;
	Property.ExportTextItem_Direct(Now, Value, nullptr, &Object, PPF_Delimited);
	return Now.Equals(Unread->TextAfter) ? &Unread->Value : nullptr;
}

bool FObjectTextWriter::CustomProperties(UObject& Object, int32 Level)
{
	ObjectTextWriting::FLineDevice Device(Out);
	Object.ExportCustomProperties(Device, static_cast<uint32>(Level * ObjectTextWriting::IndentWidth));
	const FKeptObjectText* const Kept = FKeptObjectText::Find(&Object);
	for (std::size_t Index = 0; Kept && Index < Kept->CustomLines.size(); ++Index)
	{
		Indent(Level);
		Out.append("CustomProperties ").append(Kept->CustomLines[Index]).push_back('\n');
	}
	return true;
}

void FObjectTextWriter::RecordHeader(const FObjectTextRecord& Record, int32 Level, bool bDeclare)
{
	Indent(Level);
	Out.append("Begin Object");
	if (bDeclare && !Record.ClassPath.empty())
	{
		Out.append(" Class=");
		const bool bQuote = ObjectTextParsing::FieldLength(Record.ClassPath) != Record.ClassPath.size();
		Out.append(bQuote ? "\"" : "").append(Record.ClassPath).append(bQuote ? "\"" : "");
	}
	Out.append(" Name=\"").append(Record.Name).push_back('"');
	if (bDeclare && Options.bFlags)
	{
		Flags(Record.Flags);
	}
	Out.push_back('\n');
}

void FObjectTextWriter::RecordDeclarations(const FObjectTextRecord& Record, int32 Level)
{
	for (const FObjectTextRecord& Inner : Record.Inner)
	{
		RecordHeader(Inner, Level, true);
		RecordDeclarations(Inner, Level + 1);
		Footer(Level);
	}
}

void FObjectTextWriter::RecordBody(const FObjectTextRecord& Record, int32 Level)
{
	for (const FObjectTextRecord& Inner : Record.Inner)
	{
		RecordHeader(Inner, Level, false);
		RecordBody(Inner, Level + 1);
		Footer(Level);
	}
	for (const FObjectTextLine& Line : Record.Lines)
	{
		Indent(Level);
		AppendLine(Out, Line);
		Out.push_back('\n');
	}
}

void FObjectTextWriter::AppendLine(std::string& OutText, const FObjectTextLine& Line)
{
	if (Line.bCustom)
	{
		OutText.append("CustomProperties ").append(Line.Value);
		return;
	}
	const bool bQuote = ObjectTextParsing::NeedsQuotes(Line.Name);
	OutText.append(bQuote ? "\"" : "").append(Line.Name).append(bQuote ? "\"" : "");
	if (Line.Index != INDEX_NONE)
	{
		OutText.append("(").append(std::to_string(Line.Index)).append(")");
	}
	OutText.append("=").append(Line.Value);
}

FObjectTextExport FObjectTextExport::Clipboard(UObject* Scope)
{
	FObjectTextExport Result;
	Result.bExportPath = true;
	Result.PortFlags = PPF_Delimited | PPF_Copy | PPF_ExportsNotFullyQualified;
	Result.RootScope = Scope;
	return Result;
}

FObjectTextExport FObjectTextExport::Package(UPackage* Package)
{
	FObjectTextExport Result;
	Result.bFlags = true;
	// A file is all that stays of a number.
	Result.PortFlags = PPF_Delimited | PPF_ExactNumbers;
	Result.OwnPackage = Package;
	return Result;
}

bool FObjectTextExport::Write(const TArray<UObject*>& Objects, std::string& OutText, FString& OutError) const
{
	FObjectTextWriter Writer(*this, OutText);
	for (UObject* const Object : Objects)
	{
		if (Object && Writer.ShouldWrite(*Object) && !Writer.WriteRoot(*Object))
		{
			OutError = Writer.GetError();
			return false;
		}
	}
	return true;
}

FString FObjectTextExport::ToString(const TArray<UObject*>& Objects) const
{
	std::string Text;
	FString Error;
	return Write(Objects, Text, Error) ? FromUtf8(Text) : FString();
}
