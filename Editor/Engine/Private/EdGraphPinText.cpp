// The text of a pin: one bracketed list of fields, always in the same order, as graph text and saved assets have it.

#include "EdGraph/EdGraphNode.h"
#include "EdGraph/EdGraphPin.h"
#include "Misc/OutputDevice.h"
#include "Misc/Parse.h"
#include "UObject/UnrealType.h"

namespace PinText
{
/** The properties of the pin type, looked up once: object and struct values of pins have the same text as those of
 * objects. */
struct FTypeProperties
{
	FProperty* SubCategoryObject;
	FProperty* MemberReference;
	FProperty* ValueType;
	FProperty* DefaultObject;

	static const FTypeProperties& Get()
	{
		static const FTypeProperties Properties = []
		{
			const UScriptStruct* const Type = FEdGraphPinType::StaticStruct();
			FObjectProperty* const Object = new FObjectProperty(FFieldVariant(Type), TEXT("DefaultObject"));
			Object->PropertyClass = UObject::StaticClass();
			return FTypeProperties{Type->FindPropertyByName(TEXT("PinSubCategoryObject")),
				Type->FindPropertyByName(TEXT("PinSubCategoryMemberReference")),
				Type->FindPropertyByName(TEXT("PinValueType")), Object};
		}();
		return Properties;
	}
};

void AppendQuoted(FString& Out, FStringView Text)
{
	Out.AppendChar(TEXT('"'));
	for (const TCHAR Char : Text)
	{
		switch (Char)
		{
		case TEXT('\n'):
			Out.Append(FStringView(TEXT("\\n")));
			break;
		case TEXT('\r'):
			Out.Append(FStringView(TEXT("\\r")));
			break;
		case TEXT('\t'):
			Out.Append(FStringView(TEXT("\\t")));
			break;
		case TEXT('"'):
		case TEXT('\\'):
		case TEXT('\''):
			Out.AppendChar(TEXT('\\'));
			[[fallthrough]];
		default:
			Out.AppendChar(Char);
		}
	}
	Out.AppendChar(TEXT('"'));
}

class FWriter
{
public:
	FWriter(FString& InOut, const TArray<UEdGraphPin::FKeptField>& InKept)
		: Out(InOut)
		, Kept(InKept)
	{
	}

	void Key(FStringView Name)
	{
		Out.Append(Name);
		Out.AppendChar(TEXT('='));
	}
	void End() { Out.AppendChar(TEXT(',')); }
	void Name(FStringView KeyName, FName Value)
	{
		Key(KeyName);
		AppendQuoted(Out, Value.IsNone() ? FStringView() : Value.GetView());
		End();
	}
	void Text(FStringView KeyName, const FString& Value)
	{
		if (!Value.IsEmpty())
		{
			Key(KeyName);
			AppendQuoted(Out, Value);
			End();
		}
	}
	void LocalizedText(FStringView KeyName, const FText& Value)
	{
		if (!Value.IsEmpty())
		{
			Key(KeyName);
			FTextStringHelper::WriteToBuffer(Out, Value, true);
			End();
		}
	}
	void Bool(FStringView KeyName, bool bValue)
	{
		Key(KeyName);
		Out.Append(bValue ? FStringView(TEXT("True")) : FStringView(TEXT("False")));
		End();
	}
	void Guid(FStringView KeyName, const FGuid& Value)
	{
		Key(KeyName);
		Out.Append(Value.ToString());
		End();
	}
	void Value(
		FStringView KeyName, const FProperty* Property, const void* Data, UObject* Parent, bool bMembersOnly = false)
	{
		Key(KeyName);
		const int32 Before = Out.Len();
		Property->ExportTextItem_Direct(Out, Data, nullptr, Parent, PPF_Delimited);
		if (bMembersOnly && Out.Len() == Before)
		{
			Out.Append(FStringView(TEXT("()")));
		}
		const FStringView Now = FStringView(Out).Mid(Before);
		if (const UEdGraphPin::FKeptField* const Field = FindKept(KeyName);
			Field && FStringView(Field->TextAfter) == Now)
		{
			Out.LeftInline(Before);
			Out.Append(Field->Value);
		}
		End();
	}
	/** A field of which the pin has nothing, if the text had one. */
	void KeptValue(FStringView KeyName)
	{
		if (const UEdGraphPin::FKeptField* const Field = FindKept(KeyName))
		{
			Key(KeyName);
			Out.Append(Field->Value);
			End();
		}
	}
	/** What is of no key that is known here. */
	void UnknownFields()
	{
		for (const UEdGraphPin::FKeptField& Field : Kept)
		{
			if (Field.TextAfter.IsEmpty())
			{
				Key(Field.Key);
				Out.Append(Field.Value);
				End();
			}
		}
	}
	void PinReference(const UEdGraphPin* Pin)
	{
		const UEdGraphNode* const Node = Pin->GetOwningNode();
		Out.Append(Node ? Node->GetFName().GetView() : FStringView(TEXT("None")));
		Out.AppendChar(TEXT(' '));
		Out.Append(Pin->PinId.ToString());
	}
	void PinList(FStringView KeyName, const TArray<UEdGraphPin*>& Pins)
	{
		if (Pins.IsEmpty())
		{
			return;
		}
		Key(KeyName);
		Out.AppendChar(TEXT('('));
		for (const UEdGraphPin* const Pin : Pins)
		{
			PinReference(Pin);
			End();
		}
		Out.AppendChar(TEXT(')'));
		End();
	}

private:
	const UEdGraphPin::FKeptField* FindKept(FStringView KeyName) const
	{
		return Kept.FindByPredicate(
			[KeyName](const UEdGraphPin::FKeptField& Field) { return FStringView(Field.Key) == KeyName; });
	}

	FString& Out;
	const TArray<UEdGraphPin::FKeptField>& Kept;
};

const TCHAR* ContainerName(EPinContainerType Type)
{
	switch (Type)
	{
	case EPinContainerType::None:
		return TEXT("None");
	case EPinContainerType::Array:
		return TEXT("Array");
	case EPinContainerType::Set:
		return TEXT("Set");
	case EPinContainerType::Map:
		return TEXT("Map");
	}
	return TEXT("None");
}

void WriteType(FWriter& Writer, FString& Out, const FEdGraphPinType& Type, UObject* Parent)
{
	const FTypeProperties& Properties = FTypeProperties::Get();
	Writer.Name(TEXT("PinType.PinCategory"), Type.PinCategory);
	Writer.Name(TEXT("PinType.PinSubCategory"), Type.PinSubCategory);
	Writer.Value(
		TEXT("PinType.PinSubCategoryObject"), Properties.SubCategoryObject, &Type.PinSubCategoryObject, Parent);
	Writer.Value(TEXT("PinType.PinSubCategoryMemberReference"), Properties.MemberReference,
		&Type.PinSubCategoryMemberReference, Parent, true);
	Writer.Value(TEXT("PinType.PinValueType"), Properties.ValueType, &Type.PinValueType, Parent, true);
	Writer.Key(TEXT("PinType.ContainerType"));
	Out.Append(FStringView(ContainerName(Type.ContainerType)));
	Writer.End();
	Writer.Bool(TEXT("PinType.bIsReference"), Type.bIsReference);
	Writer.Bool(TEXT("PinType.bIsConst"), Type.bIsConst);
	Writer.Bool(TEXT("PinType.bIsWeakPointer"), Type.bIsWeakPointer);
	Writer.Bool(TEXT("PinType.bIsUObjectWrapper"), Type.bIsUObjectWrapper);
	Writer.Bool(TEXT("PinType.bSerializeAsSinglePrecisionFloat"), Type.bSerializeAsSinglePrecisionFloat);
}

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

FString ToText(FStringView Value)
{
	if (!Value.IsEmpty() && Value[0] == TEXT('"'))
	{
		const FString Terminated(Value);
		FString Result;
		return FParse::QuotedString(*Terminated, Result) ? Result : FString();
	}
	return FString(Value);
}

FName ToName(FStringView Value)
{
	if (Value.Len() >= 2 && Value[0] == TEXT('"') && Value[Value.Len() - 1] == TEXT('"'))
	{
		const FStringView Inner = Value.Mid(1, Value.Len() - 2);
		int32 Escape = INDEX_NONE;
		return Inner.FindChar(TEXT('\\'), Escape) ? FName(ToText(Value)) : FName(Inner);
	}
	return FName(Value);
}

bool ToBool(FStringView Value)
{
	return !Value.IsEmpty() && (Value[0] == TEXT('T') || Value[0] == TEXT('t') || Value[0] == TEXT('1'));
}

FGuid ToGuid(FStringView Value)
{
	return FGuid(ToText(Value));
}

/** "Node PinId" */
TOptional<UEdGraphPin::FPendingReference> ToReference(FStringView Value)
{
	int32 Blank = INDEX_NONE;
	if (!Value.FindChar(TEXT(' '), Blank))
	{
		return {};
	}
	UEdGraphPin::FPendingReference Reference;
	Reference.NodeName = FString(Value.Left(Blank));
	Reference.PinId = FGuid(FString(Value.Mid(Blank + 1)));
	return Reference;
}

/** "(Node PinId,Node PinId,)" */
void ToReferences(FStringView Value, TArray<UEdGraphPin::FPendingReference>& Out)
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

EPinContainerType ToContainer(FStringView Value)
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

	/** Pin types of before the two precisions were told apart. */
	void UpgradeOldForms()
	{
		static const FName Float(TEXT("float"));
		static const FName Double(TEXT("double"));
		static const FName Real(TEXT("real"));
		FEdGraphPinType& Type = Pin.PinType;
		if (Type.PinCategory == Float)
		{
			Type.PinCategory = Real;
			Type.PinSubCategory = Double;
		}
		if (Type.PinValueType.TerminalCategory == Float)
		{
			Type.PinValueType.TerminalCategory = Real;
			Type.PinValueType.TerminalSubCategory = Double;
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
			bool UEdGraphPin::*Member;
		};
		static const FFlag Flags[] = {{TEXT("bHidden"), &UEdGraphPin::bHidden},
			{TEXT("bNotConnectable"), &UEdGraphPin::bNotConnectable},
			{TEXT("bDefaultValueIsReadOnly"), &UEdGraphPin::bDefaultValueIsReadOnly},
			{TEXT("bDefaultValueIsIgnored"), &UEdGraphPin::bDefaultValueIsIgnored},
			{TEXT("bAdvancedView"), &UEdGraphPin::bAdvancedView}, {TEXT("bOrphanedPin"), &UEdGraphPin::bOrphanedPin}};
		for (const FFlag& Flag : Flags)
		{
			if (Key == Flag.Key)
			{
				Pin.*Flag.Member = ToBool(Value);
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

bool UEdGraphPin::ExportTextItem(FString& ValueStr, int32 PortFlags) const
{
	PinText::FWriter Writer(ValueStr, KeptFields);
	ValueStr.AppendChar(TEXT('('));
	Writer.Guid(TEXT("PinId"), PinId);
	if (!PinName.IsNone())
	{
		Writer.Name(TEXT("PinName"), PinName);
	}
	Writer.LocalizedText(TEXT("PinFriendlyName"), PinFriendlyName);
	Writer.Text(TEXT("PinToolTip"), PinToolTip);
	if (Direction == EGPD_Output)
	{
		Writer.Text(TEXT("Direction"), TEXT("EGPD_Output"));
	}
	PinText::WriteType(Writer, ValueStr, PinType, OwningNode);
	Writer.Text(TEXT("DefaultValue"), DefaultValue);
	Writer.Text(TEXT("AutogeneratedDefaultValue"), AutogeneratedDefaultValue);
	if (DefaultObject)
	{
		Writer.Text(TEXT("DefaultObject"), DefaultObject->GetPathName());
	}
	else
	{
		Writer.KeptValue(TEXT("DefaultObject"));
	}
	Writer.LocalizedText(TEXT("DefaultTextValue"), DefaultTextValue);
	Writer.PinList(TEXT("LinkedTo"), LinkedTo);
	Writer.PinList(TEXT("SubPins"), SubPins);
	if (ParentPin)
	{
		Writer.Key(TEXT("ParentPin"));
		Writer.PinReference(ParentPin);
		Writer.End();
	}
	if (ReferencePassThroughConnection)
	{
		Writer.Key(TEXT("ReferencePassThroughConnection"));
		Writer.PinReference(ReferencePassThroughConnection);
		Writer.End();
	}
	Writer.Guid(TEXT("PersistentGuid"), PersistentGuid);
	Writer.Bool(TEXT("bHidden"), bHidden);
	Writer.Bool(TEXT("bNotConnectable"), bNotConnectable);
	Writer.Bool(TEXT("bDefaultValueIsReadOnly"), bDefaultValueIsReadOnly);
	Writer.Bool(TEXT("bDefaultValueIsIgnored"), bDefaultValueIsIgnored);
	Writer.Bool(TEXT("bAdvancedView"), bAdvancedView);
	Writer.Bool(TEXT("bOrphanedPin"), bOrphanedPin);
	Writer.UnknownFields();
	ValueStr.AppendChar(TEXT(')'));
	return true;
}

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
	Importer.UpgradeOldForms();
	const bool bClosed = Reader.Close();
	if (!bClosed && ErrorText)
	{
		ErrorText->Logf(TEXT("the list of pin '%s' is not closed"), *PinName.ToString());
	}
	Buffer = Reader.GetCursor();
	return bClosed;
}
