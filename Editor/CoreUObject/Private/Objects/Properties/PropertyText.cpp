#include "UObject/UnrealType.h"

#include "Objects/Properties/PropertyTextReader.h"

namespace TextProperties
{
/** Without delimiters a text is all that is left of the buffer. */
static const TCHAR* ReadWhole(const TCHAR* Buffer, FStringView& OutText)
{
	OutText = FStringView(Buffer);
	return Buffer + OutText.Len();
}

static bool IsOneOf(const FString& Word, std::initializer_list<const TCHAR*> Words)
{
	for (const TCHAR* const Candidate : Words)
	{
		if (Word.Equals(Candidate, ESearchCase::IgnoreCase))
		{
			return true;
		}
	}
	return false;
}

static const TCHAR* ReadString(
	const TCHAR* Buffer, int32 PortFlags, const FProperty& Property, FString& OutText, FOutputDevice* ErrorText)
{
	if ((PortFlags & PPF_Delimited) == 0)
	{
		FStringView Whole;
		const TCHAR* const End = ReadWhole(Buffer, Whole);
		OutText = FString(Whole);
		return End;
	}
	const TCHAR* const Start = PropertyText::SkipBlanks(Buffer);
	if (*Start != TEXT('"'))
	{
		PropertyText::Report(
			ErrorText, TEXT("%s: Missing opening '\"' in string property value: %s"), *Property.GetName(), Buffer);
		return nullptr;
	}
	const TCHAR* const End = PropertyText::ReadToken(Start, OutText);
	if (!End)
	{
		PropertyText::Report(
			ErrorText, TEXT("%s: Missing terminating '\"' in string property value: %s"), *Property.GetName(), Buffer);
	}
	return End;
}

static void AppendString(FString& Out, FStringView Text, int32 PortFlags)
{
	if ((PortFlags & PPF_Delimited) != 0)
	{
		PropertyText::AppendQuoted(Out, Text);
		return;
	}
	Out.Append(Text);
}
} // namespace TextProperties

bool FBoolProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	return (A && GetPropertyValue(A)) == (B && GetPropertyValue(B));
}

void FBoolProperty::ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue,
	UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	ValueStr += GetPropertyValue(PropertyValue) ? TEXT("True") : TEXT("False");
}

const TCHAR* FBoolProperty::ImportText_Direct(
	const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	FString Word;
	const TCHAR* const End = PropertyText::ReadToken(PropertyText::SkipBlanks(Buffer), Word);
	const bool bTrue = End && TextProperties::IsOneOf(Word, {TEXT("True"), TEXT("Yes"), TEXT("1"), TEXT("On")});
	const bool bFalse = End && TextProperties::IsOneOf(Word, {TEXT("False"), TEXT("No"), TEXT("0"), TEXT("Off")});
	if (!bTrue && !bFalse)
	{
		PropertyText::Report(ErrorText, TEXT("%s: Neither True nor False: %s"), *GetName(), Buffer);
		return nullptr;
	}
	SetPropertyValue(PropertyPtr, bTrue);
	return End;
}

FString FBoolProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return TEXT("bool");
}

bool FNameProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	const FName NameA = A ? GetPropertyValue(A) : FName();
	const FName NameB = B ? GetPropertyValue(B) : FName();
	// A change of case alone is a change all the same: it would be lost on the way through text.
	return NameA.GetDisplayIndex() == NameB.GetDisplayIndex();
}

void FNameProperty::ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue,
	UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	TextProperties::AppendString(ValueStr, GetPropertyValue(PropertyValue).GetView(), PortFlags);
}

const TCHAR* FNameProperty::ImportText_Direct(
	const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	if ((PortFlags & PPF_Delimited) == 0)
	{
		FStringView Whole;
		const TCHAR* const End = TextProperties::ReadWhole(Buffer, Whole);
		SetPropertyValue(PropertyPtr, FName(Whole));
		return End;
	}
	FString Token;
	const TCHAR* const End = PropertyText::ReadToken(PropertyText::SkipBlanks(Buffer), Token);
	if (!End)
	{
		PropertyText::Report(ErrorText, TEXT("%s: Missing name in: %s"), *GetName(), Buffer);
		return nullptr;
	}
	SetPropertyValue(PropertyPtr, FName(Token));
	return End;
}

FString FNameProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return TEXT("FName");
}

bool FStrProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	static const FString Empty;
	const FString& TextA = A ? GetPropertyValue(A) : Empty;
	return TextA.Equals(B ? GetPropertyValue(B) : Empty, ESearchCase::CaseSensitive);
}

void FStrProperty::ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue,
	UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	TextProperties::AppendString(ValueStr, GetPropertyValue(PropertyValue), PortFlags);
}

const TCHAR* FStrProperty::ImportText_Direct(
	const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	return TextProperties::ReadString(Buffer, PortFlags, *this, *static_cast<FString*>(PropertyPtr), ErrorText);
}

FString FStrProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return TEXT("FString");
}

bool FTextProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	const FText& TextA = A ? GetPropertyValue(A) : FText::GetEmpty();
	const FText& TextB = B ? GetPropertyValue(B) : FText::GetEmpty();
	return TextA.IdenticalTo(TextB) || (TextA.IsEmpty() && TextB.IsEmpty());
}

void FTextProperty::ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue,
	UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	FTextStringHelper::WriteToBuffer(ValueStr, GetPropertyValue(PropertyValue), (PortFlags & PPF_Delimited) != 0);
}

const TCHAR* FTextProperty::ImportText_Direct(
	const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	const bool bDelimited = (PortFlags & PPF_Delimited) != 0;
	const TCHAR* const Start = bDelimited ? PropertyText::SkipBlanks(Buffer) : Buffer;
	FText Value;
	const TCHAR* const End = FTextStringHelper::ReadFromBuffer(Start, Value, nullptr, nullptr, bDelimited);
	if (!End)
	{
		PropertyText::Report(ErrorText, TEXT("%s: Malformed text: %s"), *GetName(), Buffer);
		return nullptr;
	}
	SetPropertyValue(PropertyPtr, Value);
	return End;
}

FString FTextProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return TEXT("FText");
}

bool FFieldPathProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	static const FString Empty;
	const FString& TextA = A ? GetPropertyValue(A) : Empty;
	return TextA.Equals(B ? GetPropertyValue(B) : Empty, ESearchCase::IgnoreCase);
}

void FFieldPathProperty::ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue,
	UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	TextProperties::AppendString(ValueStr, GetPropertyValue(PropertyValue), PortFlags);
}

const TCHAR* FFieldPathProperty::ImportText_Direct(
	const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	return TextProperties::ReadString(Buffer, PortFlags, *this, *static_cast<FString*>(PropertyPtr), ErrorText);
}

FString FFieldPathProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return TEXT("TFieldPath<FProperty>");
}
