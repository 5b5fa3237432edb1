#include "Schema/SchemaStructText.h"

#include "Misc/OutputDevice.h"
#include "Standalone/PinDefaultText.h"
#include "UObject/UnrealType.h"

#include <cwchar>
#include <new>

namespace SchemaStructText
{
/** Memory of one struct value for as long as it is looked at. */
class FStructValue
{
public:
	explicit FStructValue(const UScriptStruct& InStruct)
		: Struct(InStruct)
		, Memory(::operator new (static_cast<std::size_t>(InStruct.GetStructureSize()),
			  std::align_val_t{static_cast<std::size_t>(InStruct.GetMinAlignment())}))
	{
		Struct.InitializeStruct(Memory);
	}
	~FStructValue()
	{
		Struct.DestroyStruct(Memory);
		::operator delete (Memory, std::align_val_t{static_cast<std::size_t>(Struct.GetMinAlignment())});
	}
	FStructValue(const FStructValue&) = delete;
	FStructValue& operator=(const FStructValue&) = delete;
	void* Get() const { return Memory; }

private:
	const UScriptStruct& Struct;
	void* Memory;
};

/** Keeps the first complaint. */
class FFirstFault : public FOutputDevice
{
public:
	void Serialize(const TCHAR* Text, ELogVerbosity::Type, const FName&) override
	{
		Fault = Fault.IsEmpty() ? FString(Text) : Fault;
	}
	FString Fault;
};

bool ReadReal(const FString& Text, double& OutValue)
{
	FString Trimmed = Text.TrimStartAndEnd();
	if (Trimmed.Len() > 1 && Trimmed.EndsWith(TEXT("f"), ESearchCase::IgnoreCase))
	{
		Trimmed.LeftChopInline(1);
	}
	if (Trimmed.IsEmpty())
	{
		return false;
	}
	// Only digits, a sign, a point and an exponent: strtod would take "inf", "nan" and hexadecimal too.
	for (const TCHAR Char : Trimmed)
	{
		const bool bAllowed = (Char >= TEXT('0') && Char <= TEXT('9')) || Char == TEXT('.') || Char == TEXT('-')
			|| Char == TEXT('+') || Char == TEXT('e') || Char == TEXT('E');
		if (!bAllowed)
		{
			return false;
		}
	}
	wchar_t* End = nullptr;
	OutValue = std::wcstod(*Trimmed, &End);
	return End == *Trimmed + Trimmed.Len();
}

TArray<FName> GetRowNames(const UScriptStruct& Struct)
{
	static const FName Vector(TEXT("Vector"));
	static const FName Vector3f(TEXT("Vector3f"));
	static const FName Rotator(TEXT("Rotator"));
	const FName Name = Struct.GetFName();
	if (Name == Vector || Name == Vector3f)
	{
		return {FName(TEXT("X")), FName(TEXT("Y")), FName(TEXT("Z"))};
	}
	return Name == Rotator ? TArray<FName>{FName(TEXT("Pitch")), FName(TEXT("Yaw")), FName(TEXT("Roll"))}
						   : TArray<FName>();
}

bool IsRow(const UScriptStruct& Struct)
{
	return !GetRowNames(Struct).IsEmpty();
}

/** Reads "1, 2, 3". */
static bool ReadNumbers(const FString& Text, double (&OutNumbers)[3])
{
	TArray<FString> Parts;
	return Text.ParseIntoArray(Parts, TEXT(","), false) == 3 && ReadReal(Parts[0], OutNumbers[0])
		&& ReadReal(Parts[1], OutNumbers[1]) && ReadReal(Parts[2], OutNumbers[2]);
}

/** Reads "0,0,0|0,90,0|1,1,1": location, rotation in degrees, scale. */
static bool ReadTransform(const FString& Text, FString& OutNamed)
{
	TArray<FString> Parts;
	double Move[3];
	double Turn[3];
	double Scale[3];
	if (Text.ParseIntoArray(Parts, TEXT("|"), false) != 3 || !ReadNumbers(Parts[0], Move)
		|| !ReadNumbers(Parts[1], Turn) || !ReadNumbers(Parts[2], Scale))
	{
		return false;
	}
	const FQuat Quat = FRotator(Turn[0], Turn[1], Turn[2]).Quaternion();
	OutNamed = FString::Printf(
		TEXT(
			"(Rotation=(X=%.15g,Y=%.15g,Z=%.15g,W=%.15g),Translation=(X=%.15g,Y=%.15g,Z=%.15g),Scale3D=(X=%.15g,Y=%.15g,Z=%.15g))"),
		Quat.X, Quat.Y, Quat.Z, Quat.W, Move[0], Move[1], Move[2], Scale[0], Scale[1], Scale[2]);
	return true;
}

/** The text that names each member, where it was given in the short form of its struct; else the text as it is. */
static FString ToNamedForm(const UScriptStruct& Struct, const FString& Text)
{
	static const FName Transform(TEXT("Transform"));
	FString Named;
	if (Struct.GetFName() == Transform && ReadTransform(Text, Named))
	{
		return Named;
	}
	const TArray<FName> Names = GetRowNames(Struct);
	double Numbers[3];
	if (Names.IsEmpty() || !ReadNumbers(Text, Numbers))
	{
		return Text;
	}
	return FString::Printf(TEXT("(%s=%.15g,%s=%.15g,%s=%.15g)"), *Names[0].ToString(), Numbers[0], *Names[1].ToString(),
		Numbers[1], *Names[2].ToString(), Numbers[2]);
}

/** Reads the text over the struct's initial value; a text that names nothing leaves that as it is. */
static bool Import(const UScriptStruct& Struct, const FString& Text, const FStructValue& Value, FString& OutFault)
{
	if (Text.IsEmpty() || Text == TEXT("()"))
	{
		return true;
	}
	FFirstFault Faults;
	const FString Named = ToNamedForm(Struct, Text);
	const TCHAR* const End = Struct.ImportText(*Named, Value.Get(), nullptr, PPF_None, &Faults, Struct.GetName());
	OutFault = Faults.Fault;
	if (End && FString(End).TrimStart().IsEmpty())
	{
		return OutFault.IsEmpty();
	}
	OutFault = OutFault.IsEmpty() ? FString(TEXT("the text cannot be read")) : OutFault;
	return false;
}

FString FindFault(const UScriptStruct& Struct, const FString& Text)
{
	FString Fault;
	const FStructValue Value(Struct);
	if (Import(Struct, Text, Value, Fault))
	{
		return FString();
	}
	return IsRow(Struct) && !Text.Contains(TEXT("=")) ? FString(TEXT("three numbers parted by commas are wanted"))
													  : Fault;
}

bool IsSameValue(const UScriptStruct& Struct, const FString& A, const FString& B)
{
	FString Fault;
	const FStructValue ValueA(Struct);
	const FStructValue ValueB(Struct);
	return Import(Struct, A, ValueA, Fault) && Import(Struct, B, ValueB, Fault)
		&& Struct.CompareScriptStruct(ValueA.Get(), ValueB.Get(), PPF_None);
}

bool ReadMembers(const UScriptStruct& Struct, const FString& Text, TMap<FName, FString>& OutMembers)
{
	FString Fault;
	const FStructValue Value(Struct);
	if (!Import(Struct, Text, Value, Fault))
	{
		return false;
	}
	for (TFieldIterator<FProperty> It(&Struct); It; ++It)
	{
		FString Member;
		It->ExportText_Direct(Member, It->ContainerPtrToValuePtr<void>(Value.Get()), nullptr, nullptr, PPF_None);
		OutMembers.Add(It->GetFName(), Member);
	}
	return true;
}

FString WriteMembers(const UScriptStruct& Struct, const TMap<FName, FString>& Members)
{
	const TArray<FName> Row = GetRowNames(Struct);
	if (!Row.IsEmpty())
	{
		TArray<FString> Parts;
		for (const FName Name : Row)
		{
			const FString* const Part = Members.Find(Name);
			Parts.Add(Part && !Part->IsEmpty() ? *Part : FString(TEXT("0")));
		}
		return FString::Join(Parts, TEXT(","));
	}
	TArray<FString> Parts;
	for (TFieldIterator<FProperty> It(&Struct); It; ++It)
	{
		const FString* const Part = Members.Find(It->GetFName());
		if (!Part)
		{
			continue;
		}
		const bool bQuoted = It->IsA<FStrProperty>() || It->IsA<FNameProperty>();
		Parts.Add(It->GetName() + TEXT("=")
			+ (bQuoted ? TEXT("\"") + Part->ReplaceCharWithEscapedChar() + TEXT("\"") : *Part));
	}
	return TEXT("(") + FString::Join(Parts, TEXT(",")) + TEXT(")");
}

FString Normalise(const UScriptStruct& Struct, const FString& Text)
{
	TMap<FName, FString> Members;
	const bool bNamed = IsRow(Struct) && Text.TrimStart().StartsWith(TEXT("("));
	return bNamed && FindFault(Struct, Text).IsEmpty() && ReadMembers(Struct, Text, Members)
		? WriteMembers(Struct, Members)
		: Text;
}
} // namespace SchemaStructText

namespace SchemaStructText
{
/** Whether the struct has a text of its own in place of its members. */
static bool IsWrittenByItself(const UScriptStruct& Struct)
{
	return Struct.GetOps() && Struct.GetOps()->ExportText;
}

/** All members by name, whatever they hold: a pin's text does not lean on what the struct starts as. */
static void WriteWhole(const UScriptStruct& Struct, const void* Value, FString& Out)
{
	bool bFirst = true;
	Out += TEXT("(");
	for (TFieldIterator<FProperty> It(&Struct); It; ++It)
	{
		const void* const Member = It->ContainerPtrToValuePtr<void>(Value);
		const FStructProperty* const Inner = CastField<FStructProperty>(*It);
		const FNameProperty* const Name = CastField<FNameProperty>(*It);
		Out += (bFirst ? TEXT("") : TEXT(",")) + It->GetName() + TEXT("=");
		bFirst = false;
		if (Inner && Inner->Struct && !IsWrittenByItself(*Inner->Struct))
		{
			WriteWhole(*Inner->Struct, Member, Out);
		}
		else if (Name && static_cast<const FName*>(Member)->IsNone())
		{
			Out += TEXT("\"\"");
		}
		else
		{
			It->ExportTextItem_Direct(Out, Member, Member, nullptr, PPF_Delimited);
		}
	}
	Out += TEXT(")");
}
} // namespace SchemaStructText

FString PinDefaultText::Of(const FProperty& Property, const void* Value)
{
	const FStructProperty* const Member = CastField<FStructProperty>(&Property);
	if (Member && Member->Struct == TBaseStructure<FTransform>::Get())
	{
		return static_cast<const FTransform*>(Value)->ToString();
	}
	FString Text;
	if (Member && Member->Struct && !SchemaStructText::IsRow(*Member->Struct)
		&& !SchemaStructText::IsWrittenByItself(*Member->Struct))
	{
		SchemaStructText::WriteWhole(*Member->Struct, Value, Text);
		return Text;
	}
	if (!Member || !SchemaStructText::IsRow(*Member->Struct))
	{
		// Against itself: a struct is told with all its members, also those that are as in a new one.
		Property.ExportTextItem_Direct(Text, Value, Member ? Value : nullptr, nullptr, PPF_None);
		return Text;
	}
	for (TFieldIterator<FProperty> It(Member->Struct); It; ++It)
	{
		Text += Text.IsEmpty() ? TEXT("") : TEXT(",");
		It->ExportTextItem_Direct(Text, It->ContainerPtrToValuePtr<void>(Value), nullptr, nullptr, PPF_None);
	}
	return Text;
}
