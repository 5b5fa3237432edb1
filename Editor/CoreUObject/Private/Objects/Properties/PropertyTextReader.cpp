#include "Objects/Properties/PropertyTextReader.h"

#include "Misc/Parse.h"
#include "Objects/ObjectPaths.h"
#include "Standalone/MissingObjects.h"
#include "UObject/Class.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"

namespace PropertyText
{
const TCHAR* SkipBlanks(const TCHAR* Buffer)
{
	while (FChar::IsWhitespace(*Buffer))
	{
		++Buffer;
	}
	return Buffer;
}

static bool IsWordChar(TCHAR Char)
{
	switch (Char)
	{
	case TEXT('_'):
	case TEXT('-'):
	case TEXT('+'):
	case TEXT('.'):
	case TEXT('/'):
	case TEXT(':'):
		return true;
	default:
		return FChar::IsAlnum(Char);
	}
}

const TCHAR* ReadWord(const TCHAR* Buffer, FStringView& OutWord)
{
	const TCHAR* End = Buffer;
	while (IsWordChar(*End))
	{
		++End;
	}
	OutWord = FStringView(Buffer, static_cast<int32>(End - Buffer));
	return End == Buffer ? nullptr : End;
}

const TCHAR* ReadToken(const TCHAR* Buffer, FString& OutToken)
{
	if (*Buffer == TEXT('"'))
	{
		int32 NumRead = 0;
		return FParse::QuotedString(Buffer, OutToken, &NumRead) ? Buffer + NumRead : nullptr;
	}
	FStringView Word;
	const TCHAR* const End = ReadWord(Buffer, Word);
	OutToken = FString(Word);
	return End;
}

/** Behind the closing quote; null when there is none. */
static const TCHAR* SkipQuoted(const TCHAR* Buffer)
{
	const TCHAR Quote = *Buffer++;
	while (*Buffer && *Buffer != Quote)
	{
		Buffer += *Buffer == TEXT('\\') && Buffer[1] ? 2 : 1;
	}
	return *Buffer ? Buffer + 1 : nullptr;
}

const TCHAR* SkipValue(const TCHAR* Buffer)
{
	int32 Depth = 0;
	while (*Buffer)
	{
		const TCHAR Char = *Buffer;
		if (Char == TEXT('"'))
		{
			Buffer = SkipQuoted(Buffer);
			if (!Buffer)
			{
				return nullptr;
			}
			continue;
		}
		if (Depth == 0 && (Char == TEXT(',') || Char == TEXT(')')))
		{
			return Buffer;
		}
		Depth += Char == TEXT('(') ? 1 : Char == TEXT(')') ? -1 : 0;
		++Buffer;
	}
	return Depth == 0 ? Buffer : nullptr;
}

void AppendQuoted(FString& Out, FStringView Text)
{
	Out.AppendChar(TEXT('"'));
	for (const TCHAR Char : Text)
	{
		switch (Char)
		{
		case TEXT('"'):
			Out += TEXT("\\\"");
			break;
		case TEXT('\\'):
			Out += TEXT("\\\\");
			break;
		case TEXT('\n'):
			Out += TEXT("\\n");
			break;
		case TEXT('\r'):
			Out += TEXT("\\r");
			break;
		case TEXT('\t'):
			Out += TEXT("\\t");
			break;
		default:
			Out.AppendChar(Char);
		}
	}
	Out.AppendChar(TEXT('"'));
}

void AppendSoftPath(FString& Out, const FSoftObjectPath& Path, int32 PortFlags)
{
	if (Path.IsNull())
	{
		Out += TEXT("None");
	}
	else if ((PortFlags & PPF_Delimited) != 0)
	{
		AppendQuoted(Out, Path.ToString());
	}
	else
	{
		Path.AppendString(Out);
	}
}

const void* ElementDefault(const FProperty& Element)
{
	const FStructProperty* const Struct = CastField<FStructProperty>(&Element);
	return Struct && Struct->Struct ? Struct->Struct->GetDefaultValue() : nullptr;
}

FString NestedCppType(const FProperty& Element)
{
	FString Extended;
	const FString Type = Element.GetCPPType(&Extended);
	return Type + Extended;
}

/** From the opening quote of Class'Path' or Class'"Path"' to behind the closing one. */
static const TCHAR* ReadQuotedPath(const TCHAR* Buffer, FString& OutPath)
{
	++Buffer;
	if (*Buffer == TEXT('"'))
	{
		int32 NumRead = 0;
		if (!FParse::QuotedString(Buffer, OutPath, &NumRead) || Buffer[NumRead] != TEXT('\''))
		{
			return nullptr;
		}
		return Buffer + NumRead + 1;
	}
	const TCHAR* End = Buffer;
	while (*End && *End != TEXT('\'') && !FChar::IsLinebreak(*End))
	{
		++End;
	}
	OutPath = FString(static_cast<int32>(End - Buffer), Buffer);
	return *End == TEXT('\'') ? End + 1 : nullptr;
}

static bool EndsBarePath(TCHAR Char, bool bToEnd)
{
	if (bToEnd)
	{
		return FChar::IsLinebreak(Char);
	}
	return Char == TEXT(',') || Char == TEXT(')') || Char == TEXT('(') || FChar::IsWhitespace(Char);
}

const TCHAR* ReadReference(const TCHAR* Buffer, bool bToEnd, FString& OutPath)
{
	if (*Buffer == TEXT('"'))
	{
		int32 NumRead = 0;
		FString Quoted;
		if (!FParse::QuotedString(Buffer, Quoted, &NumRead))
		{
			return nullptr;
		}
		OutPath = FString(ObjectPaths::StripReference(Quoted));
		return Buffer + NumRead;
	}
	const TCHAR* End = Buffer;
	while (*End && *End != TEXT('\'') && *End != TEXT('"') && !EndsBarePath(*End, bToEnd))
	{
		++End;
	}
	if (*End == TEXT('\''))
	{
		return ReadQuotedPath(End, OutPath);
	}
	OutPath = FString(FStringView(Buffer, static_cast<int32>(End - Buffer)).TrimStartAndEnd());
	return OutPath.IsEmpty() || *End == TEXT('"') ? nullptr : End;
}

UObject* FindReferenced(const FString& Path, const UClass* InClass, const UObject* Owner)
{
	UClass* const Class = const_cast<UClass*>(InClass);
	if (Path.IsEmpty())
	{
		return nullptr;
	}
	// A native module is meant itself: delegates that stand outside of classes belong to it. Elsewhere a package's path
	// is short for its asset.
	int32 Dot = INDEX_NONE;
	if (Path.StartsWith(TEXT("/Script/")) && !Path.FindChar(TEXT('.'), Dot))
	{
		UObject* const Module = FindPackage(nullptr, *Path);
		return Module && (!Class || Module->IsA(Class)) ? Module : nullptr;
	}
	if (Path[0] == TEXT('/'))
	{
		return StaticLoadObject(Class, nullptr, *Path, nullptr, LOAD_NoWarn);
	}
	for (const UObject* Outer = Owner; Outer; Outer = Outer->GetOuter())
	{
		UObject* const Below = StaticFindObject(Class, const_cast<UObject*>(Outer), *Path);
		if (Below)
		{
			return Below;
		}
	}
	UObject* const Named = StaticFindObject(Class, nullptr, *Path);
	const bool bIsType = Class && Class->IsChildOf(UField::StaticClass());
	return Named || !bIsType ? Named : StaticFindFirstObject(Class, *Path);
}

/** Behind "[0]" or "(0)", which mark the first element of a fixed array. */
static const TCHAR* SkipIndex(const TCHAR* Buffer)
{
	const TCHAR Close = *Buffer == TEXT('[') ? TEXT(']') : *Buffer == TEXT('(') ? TEXT(')') : TEXT('\0');
	if (!Close)
	{
		return Buffer;
	}
	const TCHAR* End = Buffer + 1;
	while (FChar::IsDigit(*End))
	{
		++End;
	}
	return *End == Close ? End + 1 : nullptr;
}

static bool IsReference(const FProperty& Property)
{
	return Property.IsA<FObjectPropertyBase>() || Property.IsA<FInterfaceProperty>()
		|| Property.IsA<FDelegateProperty>();
}

const TCHAR* ImportNested(const FProperty& Property, const TCHAR* Buffer, void* Value, UObject* Owner, int32 PortFlags,
	FOutputDevice* ErrorText)
{
	const TCHAR* const End = Property.ImportText_Direct(Buffer, Value, Owner, PortFlags | PPF_Delimited, ErrorText);
	return End || !IsReference(Property) ? End : SkipValue(Buffer);
}

const TCHAR* ImportMember(const UScriptStruct& Struct, const TCHAR* Buffer, void* StructMemory, UObject* Owner,
	int32 PortFlags, FOutputDevice* ErrorText)
{
	FString Name;
	const TCHAR* Cursor = ReadToken(Buffer, Name);
	Cursor = Cursor ? SkipIndex(Cursor) : nullptr;
	Cursor = Cursor ? SkipBlanks(Cursor) : nullptr;
	if (!Cursor || *Cursor != TEXT('='))
	{
		Report(ErrorText, TEXT("ImportText (%s): Missing key name in: %s"), *Struct.GetName(), Buffer);
		return nullptr;
	}
	const TCHAR* const Value = SkipBlanks(Cursor + 1);
	const FName Key(Name, FNAME_Find);
	const FProperty* const Property = Key.IsNone() ? nullptr : Struct.FindPropertyByName(Key);
	if (!Property)
	{
		Report(ErrorText, TEXT("Unknown property in %s: %s"), *Struct.GetName(), *Name);
		return SkipValue(Value);
	}
	void* const Member = static_cast<uint8*>(StructMemory) + Property->GetOffset_ForInternal();
	const TCHAR* const End = ImportNested(*Property, Value, Member, Owner, PortFlags, ErrorText);
	if (End || !FMissingObjects::IsKeeping())
	{
		return End;
	}
	// In a file, a member that says nothing here does not take the others with it.
	Report(ErrorText, TEXT("The value of %s in %s cannot be read"), *Name, *Struct.GetName());
	return SkipValue(Value);
}
} // namespace PropertyText
