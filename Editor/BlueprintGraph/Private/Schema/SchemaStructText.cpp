#include "Schema/SchemaStructText.h"

#include "Misc/OutputDevice.h"
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
bool ReadRow(const UScriptStruct& Struct, const FString& Text, TMap<FName, FString>& OutMembers)
{
	const TArray<FName> Names = GetRowNames(Struct);
	TArray<FString> Parts;
	if (Names.IsEmpty() || Text.ParseIntoArray(Parts, TEXT(","), false) != Names.Num())
	{
		return false;
	}
	for (int32 Index = 0; Index < Names.Num(); ++Index)
	{
		double Number = 0.0;
		if (!ReadReal(Parts[Index], Number))
		{
			return false;
		}
		OutMembers.Add(Names[Index], Parts[Index].TrimStartAndEnd());
	}
	return true;
}

bool Import(const UScriptStruct& Struct, const FString& Text, const FStructValue& Value, FString& OutFault)
{
	FFirstFault Faults;
	const TCHAR* const End = Struct.ImportText(*Text, Value.Get(), nullptr, PPF_None, &Faults, Struct.GetName());
	if (End && FString(End).TrimStart().IsEmpty())
	{
		OutFault = Faults.Fault;
		return OutFault.IsEmpty();
	}
	OutFault = Faults.Fault.IsEmpty() ? FString(TEXT("the text cannot be read")) : Faults.Fault;
	return false;
}

FString FindFault(const UScriptStruct& Struct, const FString& Text)
{
	TMap<FName, FString> Members;
	if (ReadRow(Struct, Text, Members) || Text == TEXT("()"))
	{
		return FString();
	}
	FString Fault;
	const FStructValue Value(Struct);
	if (Import(Struct, Text, Value, Fault))
	{
		return FString();
	}
	return IsRow(Struct) && !Text.Contains(TEXT("=")) ? FString(TEXT("three numbers parted by commas are wanted"))
													  : Fault;
}

bool ReadMembers(const UScriptStruct& Struct, const FString& Text, TMap<FName, FString>& OutMembers)
{
	if (ReadRow(Struct, Text, OutMembers))
	{
		return true;
	}
	FString Fault;
	const FStructValue Value(Struct);
	if (!Text.IsEmpty() && Text != TEXT("()") && !Import(Struct, Text, Value, Fault))
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
