// Reading the text of a pin. Takes the forms of all engine generations; what is not understood is kept.

#include "EdGraphPinText.h"

#include "Misc/OutputDevice.h"
#include "Misc/Parse.h"
#include "Misc/StringOutputDevice.h"

namespace PinText
{
/** Walks "Key=Value," pairs of a bracketed list. */
class FFieldReader
{
public:
	explicit FFieldReader(const TCHAR* InCursor)
		: Cursor(InCursor)
	{
	}

	bool Open()
	{
		SkipBlanks();
		return Take(TEXT('('));
	}
	/** The next pair; false at the end of the list or at a malformed place (see IsAtEnd). */
	bool Next(FStringView& OutKey, FStringView& OutValue)
	{
		SkipBlanks();
		while (Take(TEXT(',')))
		{
			SkipBlanks();
		}
		if (*Cursor == TEXT(')') || *Cursor == 0)
		{
			return false;
		}
		const TCHAR* const KeyStart = Cursor;
		while (*Cursor && *Cursor != TEXT('=') && *Cursor != TEXT(',') && *Cursor != TEXT(')'))
		{
			++Cursor;
		}
		OutKey = FStringView(KeyStart, static_cast<int32>(Cursor - KeyStart));
		if (!Take(TEXT('=')))
		{
			return false;
		}
		const TCHAR* const ValueStart = Cursor;
		SkipValue();
		OutValue = FStringView(ValueStart, static_cast<int32>(Cursor - ValueStart));
		return true;
	}
	bool Close()
	{
		SkipBlanks();
		return Take(TEXT(')'));
	}
	const TCHAR* GetCursor() const { return Cursor; }

private:
	void SkipBlanks()
	{
		while (*Cursor == TEXT(' ') || *Cursor == TEXT('\t'))
		{
			++Cursor;
		}
	}
	bool Take(TCHAR Char)
	{
		if (*Cursor != Char)
		{
			return false;
		}
		++Cursor;
		return true;
	}
	/** Up to the comma or bracket that ends the value; brackets nest, quotes hide both. */
	void SkipValue()
	{
		int32 Depth = 0;
		bool bQuoted = false;
		for (; *Cursor; ++Cursor)
		{
			const TCHAR Char = *Cursor;
			if (bQuoted)
			{
				if (Char == TEXT('\\') && Cursor[1])
				{
					++Cursor;
				}
				else if (Char == TEXT('"'))
				{
					bQuoted = false;
				}
			}
			else if (Char == TEXT('"'))
			{
				bQuoted = true;
			}
			else if (Char == TEXT('('))
			{
				++Depth;
			}
			else if (Char == TEXT(')'))
			{
				if (Depth == 0)
				{
					return;
				}
				--Depth;
			}
			else if (Char == TEXT(',') && Depth == 0)
			{
				return;
			}
		}
	}

	const TCHAR* Cursor;
};

static FString ToText(FStringView Value)
{
	if (!Value.IsEmpty() && Value[0] == TEXT('"'))
	{
		const FString Terminated(Value);
		FString Result;
		return FParse::QuotedString(*Terminated, Result) ? Result : FString();
	}
	return FString(Value);
}

static FName ToName(FStringView Value)
{
	if (Value.Len() >= 2 && Value[0] == TEXT('"') && Value[Value.Len() - 1] == TEXT('"'))
	{
		const FStringView Inner = Value.Mid(1, Value.Len() - 2);
		int32 Escape = INDEX_NONE;
		return Inner.FindChar(TEXT('\\'), Escape) ? FName(ToText(Value)) : FName(Inner);
	}
	return FName(Value);
}

static bool ToBool(FStringView Value)
{
	return !Value.IsEmpty() && (Value[0] == TEXT('T') || Value[0] == TEXT('t') || Value[0] == TEXT('1'));
}

static FGuid ToGuid(FStringView Value)
{
	return FGuid(ToText(Value));
}

/** "Node PinId" */
static TOptional<UEdGraphPin::FPendingReference> ToReference(FStringView Value)
{
	int32 Blank = INDEX_NONE;
	if (!Value.FindLastChar(TEXT(' '), Blank))
	{
		return {};
	}
	UEdGraphPin::FPendingReference Reference;
	Reference.NodeName = FString(Value.Left(Blank));
	Reference.PinId = FGuid(FString(Value.Mid(Blank + 1)));
	return Reference;
}

/** "(Node PinId,Node PinId,)" */
static void ToReferences(FStringView Value, TArray<UEdGraphPin::FPendingReference>& Out)
{
	int32 Start = 1;
	for (int32 Index = 1; Index < Value.Len(); ++Index)
	{
		if (Value[Index] == TEXT(',') || Value[Index] == TEXT(')'))
		{
			if (TOptional<UEdGraphPin::FPendingReference> Reference = ToReference(Value.Mid(Start, Index - Start)))
			{
				Out.Add(MoveTemp(*Reference));
			}
			Start = Index + 1;
		}
	}
}

static EPinContainerType ToContainer(FStringView Value)
{
	const FName Name = ToName(Value);
	for (const EPinContainerType Type : {EPinContainerType::Array, EPinContainerType::Set, EPinContainerType::Map})
	{
		if (Name == ContainerName(Type))
		{
			return Type;
		}
	}
	return EPinContainerType::None;
}

/** Reads the fields of one pin. */
class FPinImporter
{
public:
	FPinImporter(UEdGraphPin& InPin, UObject* InParent, FOutputDevice* InErrorText)
		: Pin(InPin)
		, Parent(InParent)
		, ErrorText(InErrorText)
	{
	}

	void Read(FStringView Key, FStringView Value)
	{
		static const FStringView TypePrefix(TEXT("PinType."));
		if (Key.StartsWith(TypePrefix))
		{
			ReadType(Key.Mid(TypePrefix.Len()), Value);
		}
		else if (!ReadIdentity(Key, Value) && !ReadReferences(Key, Value) && !ReadFlag(Key, Value))
		{
			Pin.KeptFields.Add(UEdGraphPin::FKeptField{FString(Key), FString(Value), FString()});
		}
	}

private:
	bool ReadIdentity(FStringView Key, FStringView Value)
	{
		if (Is(Key, TEXT("PinId")))
		{
			Pin.PinId = ToGuid(Value);
		}
		else if (Is(Key, TEXT("PinName")))
		{
			Pin.PinName = ToName(Value);
		}
		else if (Is(Key, TEXT("PinFriendlyName")))
		{
			Pin.PinFriendlyName = ReadText(Value);
		}
		else if (Is(Key, TEXT("PinToolTip")))
		{
			Pin.PinToolTip = ToText(Value);
		}
		else if (Is(Key, TEXT("Direction")))
		{
			Pin.Direction = ToName(Value) == TEXT("EGPD_Output") ? EGPD_Output : EGPD_Input;
		}
		else if (Is(Key, TEXT("DefaultValue")))
		{
			Pin.DefaultValue = ToText(Value);
		}
		else if (Is(Key, TEXT("AutogeneratedDefaultValue")))
		{
			Pin.AutogeneratedDefaultValue = ToText(Value);
		}
		else if (Is(Key, TEXT("DefaultObject")))
		{
			ReadValue(Key, FTypeProperties::Get().DefaultObject, &Pin.DefaultObject, Value);
		}
		else if (Is(Key, TEXT("DefaultTextValue")))
		{
			Pin.DefaultTextValue = ReadText(Value);
		}
		else if (Is(Key, TEXT("PersistentGuid")))
		{
			Pin.PersistentGuid = ToGuid(Value);
		}
		else
		{
			return false;
		}
		return true;
	}

	bool ReadReferences(FStringView Key, FStringView Value)
	{
		if (Is(Key, TEXT("LinkedTo")))
		{
			ToReferences(Value, Pending().LinkedTo);
		}
		else if (Is(Key, TEXT("SubPins")))
		{
			ToReferences(Value, Pending().SubPins);
		}
		else if (Is(Key, TEXT("ParentPin")))
		{
			Pending().ParentPin = ToReference(Value);
		}
		else if (Is(Key, TEXT("ReferencePassThroughConnection")))
		{
			Pending().PassThrough = ToReference(Value);
		}
		else
		{
			return false;
		}
		return true;
	}

	bool ReadFlag(FStringView Key, FStringView Value)
	{
		struct FFlag
		{
			FStringView Key;
			void (*Set)(UEdGraphPin& Pin, bool bValue);
		};
		static const FFlag Flags[] = {{TEXT("bHidden"), [](UEdGraphPin& To, bool bValue) { To.bHidden = bValue; }},
			{TEXT("bNotConnectable"), [](UEdGraphPin& To, bool bValue) { To.bNotConnectable = bValue; }},
			{TEXT("bDefaultValueIsReadOnly"),
				[](UEdGraphPin& To, bool bValue) { To.bDefaultValueIsReadOnly = bValue; }},
			{TEXT("bDefaultValueIsIgnored"), [](UEdGraphPin& To, bool bValue) { To.bDefaultValueIsIgnored = bValue; }},
			{TEXT("bAdvancedView"), [](UEdGraphPin& To, bool bValue) { To.bAdvancedView = bValue; }},
			{TEXT("bOrphanedPin"), [](UEdGraphPin& To, bool bValue) { To.bOrphanedPin = bValue; }}};
		for (const FFlag& Flag : Flags)
		{
			if (Key == Flag.Key)
			{
				Flag.Set(Pin, ToBool(Value));
				return true;
			}
		}
		return false;
	}

	void ReadType(FStringView Key, FStringView Value)
	{
		const FTypeProperties& Properties = FTypeProperties::Get();
		FEdGraphPinType& Type = Pin.PinType;
		if (Is(Key, TEXT("PinCategory")))
		{
			Type.PinCategory = ToName(Value);
		}
		else if (Is(Key, TEXT("PinSubCategory")))
		{
			Type.PinSubCategory = ToName(Value);
		}
		else if (Is(Key, TEXT("PinSubCategoryObject")))
		{
			ReadValue(
				TEXT("PinType.PinSubCategoryObject"), Properties.SubCategoryObject, &Type.PinSubCategoryObject, Value);
		}
		else if (Is(Key, TEXT("PinSubCategoryMemberReference")))
		{
			ReadValue(TEXT("PinType.PinSubCategoryMemberReference"), Properties.MemberReference,
				&Type.PinSubCategoryMemberReference, Value);
		}
		else if (Is(Key, TEXT("PinValueType")))
		{
			ReadValue(TEXT("PinType.PinValueType"), Properties.ValueType, &Type.PinValueType, Value);
		}
		else if (Is(Key, TEXT("ContainerType")))
		{
			Type.ContainerType = ToContainer(Value);
		}
		else
		{
			ReadTypeFlag(Key, Value);
		}
	}

	void ReadTypeFlag(FStringView Key, FStringView Value)
	{
		FEdGraphPinType& Type = Pin.PinType;
		if (Is(Key, TEXT("bIsReference")))
		{
			Type.bIsReference = ToBool(Value);
		}
		else if (Is(Key, TEXT("bIsConst")))
		{
			Type.bIsConst = ToBool(Value);
		}
		else if (Is(Key, TEXT("bIsWeakPointer")))
		{
			Type.bIsWeakPointer = ToBool(Value);
		}
		else if (Is(Key, TEXT("bIsUObjectWrapper")))
		{
			Type.bIsUObjectWrapper = ToBool(Value);
		}
		else if (Is(Key, TEXT("bSerializeAsSinglePrecisionFloat")))
		{
			Type.bSerializeAsSinglePrecisionFloat = ToBool(Value);
		}
		else if (Is(Key, TEXT("bIsArray")) && ToBool(Value) && !Type.IsContainer())
		{
			Type.ContainerType = EPinContainerType::Array;
		}
	}

	FText ReadText(FStringView Value) const
	{
		const FString Terminated(Value);
		FText Text;
		FTextStringHelper::ReadFromBuffer(*Terminated, Text, nullptr, nullptr, Terminated.StartsWith(TEXT("\"")));
		return Text;
	}

	void ReadValue(FStringView Key, const FProperty* Property, void* Data, FStringView Value) const
	{
		static const FStringView None(TEXT("None"));
		static const FStringView Empty(TEXT("()"));
		if (Value == None || Value == Empty)
		{
			return;
		}
		const FString Terminated(Value);
		FStringOutputDevice Complaints;
		const bool bRead = Property->ImportText_Direct(*Terminated, Data, Parent, PPF_Delimited, &Complaints)
			!= nullptr;
		// A struct goes on after a member that it cannot read; the whole text is kept for that member's sake.
		if (!bRead || !Complaints.IsEmpty())
		{
			if (ErrorText)
			{
				ErrorText->Logf(TEXT("pin '%s': %s"), *Pin.PinName.ToString(), *Complaints);
			}
			UEdGraphPin::FKeptField& Field = Pin.KeptFields.Add_GetRef({FString(Key), Terminated, FString()});
			Property->ExportTextItem_Direct(Field.TextAfter, Data, nullptr, Parent, PPF_Delimited);
			if (Field.TextAfter.IsEmpty())
			{
				Field.TextAfter = TEXT("()");
			}
		}
	}

	UEdGraphPin::FPendingReferences& Pending()
	{
		if (!Pin.Pending)
		{
			Pin.Pending = MakeUnique<UEdGraphPin::FPendingReferences>();
		}
		return *Pin.Pending;
	}

	static bool Is(FStringView Key, FStringView Name) { return Key == Name; }

	UEdGraphPin& Pin;
	UObject* Parent;
	FOutputDevice* ErrorText;
};
} // namespace PinText

bool UEdGraphPin::ImportTextItem(const TCHAR*& Buffer, int32 PortFlags, UObject* Parent, FOutputDevice* ErrorText)
{
	PinText::FFieldReader Reader(Buffer);
	if (!Reader.Open())
	{
		if (ErrorText)
		{
			ErrorText->Logf(TEXT("a pin must be a list in brackets, '(PinId=...)', found '%.40s'"), Buffer);
		}
		return false;
	}
	PinText::FPinImporter Importer(*this, Parent, ErrorText);
	FStringView Key;
	FStringView Value;
	while (Reader.Next(Key, Value))
	{
		Importer.Read(Key, Value);
	}
	PinType.PostImportText();
	const bool bClosed = Reader.Close();
	if (!bClosed && ErrorText)
	{
		ErrorText->Logf(TEXT("the list of pin '%s' is not closed"), *PinName.ToString());
	}
	Buffer = Reader.GetCursor();
	return bClosed;
}
