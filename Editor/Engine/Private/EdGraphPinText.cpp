// The text of a pin: one bracketed list of fields, always in the same order, as graph text and saved assets have it.

#include "EdGraphPinText.h"

#include "EdGraph/EdGraphNode.h"

namespace PinText
{
static void AppendQuoted(FString& Out, FStringView Text)
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

static void WriteType(FWriter& Writer, FString& Out, const FEdGraphPinType& Type, UObject* Parent)
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
