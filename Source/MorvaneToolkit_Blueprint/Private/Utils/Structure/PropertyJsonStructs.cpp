// Structs from JSON: by the names of their members, and the short forms of those that are rows of numbers.

#include "JsonReading.h"
#include "UObject/UnrealType.h"
#include "Utils/Structure/PropertyJson.h"
#include "Utils/Structure/StructureEntry.h"

namespace PropertyJsonStructs
{
namespace
{
using FJson = TSharedPtr<FJsonValue>;

bool IsStruct(const UScriptStruct& Struct, const TCHAR* Name)
{
	return Struct.GetFName() == Name;
}

/** The members of a struct that is known as a row of numbers, in the order in which it is written. */
TArray<FName> GetRow(const UScriptStruct& Struct)
{
	struct FRow
	{
		std::initializer_list<const TCHAR*> Structs;
		std::initializer_list<const TCHAR*> Members;
	};
	static const FRow Rows[] = {
		{{TEXT("Vector"), TEXT("Vector3f"), TEXT("Vector3d"), TEXT("IntVector"), TEXT("Vector_NetQuantize")},
			{TEXT("X"), TEXT("Y"), TEXT("Z")}},
		{{TEXT("Vector2D"), TEXT("Vector2f"), TEXT("IntPoint")}, {TEXT("X"), TEXT("Y")}},
		{{TEXT("Vector4"), TEXT("Quat"), TEXT("Plane")}, {TEXT("X"), TEXT("Y"), TEXT("Z"), TEXT("W")}},
		{{TEXT("Rotator"), TEXT("Rotator3f")}, {TEXT("Pitch"), TEXT("Yaw"), TEXT("Roll")}},
		{{TEXT("LinearColor"), TEXT("Color")}, {TEXT("R"), TEXT("G"), TEXT("B"), TEXT("A")}},
	};
	TArray<FName> Names;
	for (const FRow& Row : Rows)
	{
		for (const TCHAR* const Name : Row.Structs)
		{
			for (const TCHAR* const Member : Row.Members)
			{
				if (IsStruct(Struct, Name))
				{
					Names.Add(Member);
				}
			}
		}
	}
	return Names;
}

bool IsColor(const UScriptStruct& Struct)
{
	return IsStruct(Struct, TEXT("LinearColor")) || IsStruct(Struct, TEXT("Color"));
}

/** Who does not speak of a colour's alpha means a colour that is seen. */
void MakeOpaque(const UScriptStruct& Struct, void* Value)
{
	if (IsStruct(Struct, TEXT("Color")))
	{
		static_cast<FColor*>(Value)->A = 255;
	}
	else if (IsColor(Struct))
	{
		static_cast<FLinearColor*>(Value)->A = 1.0f;
	}
}

bool WriteMember(const UScriptStruct& Struct, const FProperty& Member, const FJson& Json, void* Value, UObject* Owner,
	FString& OutFault)
{
	if (PropertyJson::Write(Member, Json, Member.ContainerPtrToValuePtr<void>(Value), Owner, OutFault))
	{
		return true;
	}
	OutFault = FString::Printf(TEXT("in %s of %s: %s"), *Member.GetName(), *Struct.GetName(), *OutFault);
	return false;
}

const FProperty* FindMember(const UScriptStruct& Struct, const FString& Name)
{
	if (const FProperty* const Exact = Struct.FindPropertyByName(FName(*Name)))
	{
		return Exact;
	}
	for (TFieldIterator<FProperty> It(&Struct); It; ++It)
	{
		if (PropertyJson::MeansProperty(Name, **It)
			|| Struct.GetAuthoredNameForField(*It).Equals(Name, ESearchCase::IgnoreCase))
		{
			return *It;
		}
	}
	return nullptr;
}

/** The words that people use for the members of a transform. */
FString NameInTransform(const UScriptStruct& Struct, const FString& Key)
{
	if (IsStruct(Struct, TEXT("Transform")) || IsStruct(Struct, TEXT("Transform3f")))
	{
		if (Key.Equals(TEXT("location"), ESearchCase::IgnoreCase))
		{
			return TEXT("Translation");
		}
		if (Key.Equals(TEXT("scale"), ESearchCase::IgnoreCase) || Key.Equals(TEXT("scale_3d"), ESearchCase::IgnoreCase))
		{
			return TEXT("Scale3D");
		}
	}
	return Key;
}

/** Rotations are told in degrees, which a quaternion does not hold. */
bool IsDegrees(const UScriptStruct& Struct, const FJson& Json)
{
	if (!IsStruct(Struct, TEXT("Quat")))
	{
		return false;
	}
	FString Text;
	if (MorvaneJson::TryGetString(*Json, Text))
	{
		TArray<FString> Pieces;
		return Text.Contains(TEXT("Yaw")) || Text.ParseIntoArray(Pieces, TEXT(","), false) == 3;
	}
	const TSharedPtr<FJsonObject>& Object = MorvaneJson::AsObject(*Json);
	const auto IsAngle = [](const auto& Member)
	{
		const FString Key = FString(Member.Key).ToLower();
		return Key == TEXT("pitch") || Key == TEXT("yaw") || Key == TEXT("roll");
	};
	bool bAngles = MorvaneJson::AsArray(*Json).Num() == 3;
	if (Object)
	{
		for (const auto& Member : Object->Values)
		{
			bAngles |= IsAngle(Member);
		}
	}
	return bAngles;
}

bool WriteDegrees(const FJson& Json, void* Value, FString& OutFault)
{
	FQuat& Quat = *static_cast<FQuat*>(Value);
	FStructProperty Turn(FFieldVariant(), TEXT("Rotation"));
	Turn.Struct = TBaseStructure<FRotator>::Get();
	FRotator Angles = Quat.Rotator();
	if (!Write(Turn, Json, &Angles, nullptr, OutFault))
	{
		return false;
	}
	const FQuat Turned = Angles.Quaternion();
	// Zeros without a sign, as an author would write them.
	Quat = FQuat(Turned.X + 0.0, Turned.Y + 0.0, Turned.Z + 0.0, Turned.W + 0.0);
	return true;
}

bool WriteObject(const UScriptStruct& Struct, const FJsonObject& Object, void* Value, UObject* Owner, FString& OutFault)
{
	MakeOpaque(Struct, Value);
	for (const auto& Pair : Object.Values)
	{
		const FString Key(Pair.Key);
		const FProperty* const Member = FindMember(Struct, NameInTransform(Struct, Key));
		if (!Member)
		{
			OutFault = FString::Printf(TEXT("%s has no member '%s'"), *Struct.GetName(), *Key);
			return false;
		}
		if (!WriteMember(Struct, *Member, Pair.Value, Value, Owner, OutFault))
		{
			return false;
		}
	}
	return true;
}

bool WriteRow(const UScriptStruct& Struct, const TArray<FJson>& Numbers, void* Value, FString& OutFault)
{
	const TArray<FName> Row = GetRow(Struct);
	const bool bAlphaLeftOut = IsColor(Struct) && Numbers.Num() == 3;
	if (Row.IsEmpty() || (Numbers.Num() != Row.Num() && !bAlphaLeftOut))
	{
		OutFault = FString::Printf(TEXT("%s does not have %d numbers"), *Struct.GetName(), Numbers.Num());
		return false;
	}
	MakeOpaque(Struct, Value);
	for (int32 Index = 0; Index < Numbers.Num(); ++Index)
	{
		const FProperty* const Member = Struct.FindPropertyByName(Row[Index]);
		if (!Member || !WriteMember(Struct, *Member, Numbers[Index], Value, nullptr, OutFault))
		{
			return false;
		}
	}
	return true;
}

/** "1, 2, 3" */
TArray<FJson> SplitNumbers(const FString& Text)
{
	TArray<FString> Pieces;
	Text.ParseIntoArray(Pieces, TEXT(","), false);
	TArray<FJson> Numbers;
	for (const FString& Piece : Pieces)
	{
		Numbers.Add(MakeShared<FJsonValueString>(Piece));
	}
	return Numbers;
}

/** "0,0,0|0,90,0|1,1,1": location, rotation in degrees, scale. */
bool WriteTransformRow(const UScriptStruct& Struct, const FString& Text, void* Value, FString& OutFault)
{
	TArray<FString> Parts;
	if (Text.ParseIntoArray(Parts, TEXT("|"), false) != 3)
	{
		OutFault = FString::Printf(TEXT("'%s' is not a location, a rotation and a scale with | between"), *Text);
		return false;
	}
	FJsonObject Object;
	Object.SetStringField(TEXT("Translation"), Parts[0]);
	Object.SetStringField(TEXT("Rotation"), Parts[1]);
	Object.SetStringField(TEXT("Scale3D"), Parts[2]);
	return WriteObject(Struct, Object, Value, nullptr, OutFault);
}

/** "X=1 Y=2 Z=3", as values are printed: the same with brackets and commas is the form that is read. */
FString ToNamedForm(const FString& Text)
{
	TArray<FString> Pieces;
	Text.Replace(TEXT(","), TEXT(" ")).ParseIntoArray(Pieces, TEXT(" "));
	return TEXT("(") + FString::Join(Pieces, TEXT(",")) + TEXT(")");
}

/** "#FF8000" and the other lengths that colours are written in. */
bool WriteHexColor(const UScriptStruct& Struct, const FString& Text, void* Value, FString& OutFault)
{
	const FString Digits = Text.RightChop(1);
	bool bHex = Digits.Len() == 3 || Digits.Len() == 4 || Digits.Len() == 6 || Digits.Len() == 8;
	for (const TCHAR Digit : Digits)
	{
		bHex = bHex && FString(TEXT("0123456789abcdef")).Contains(FString::Chr(Digit));
	}
	if (!bHex)
	{
		OutFault = FString::Printf(TEXT("'%s' is not a colour such as #FF8000"), *Text);
		return false;
	}
	const FColor Color = FColor::FromHex(Text);
	if (IsStruct(Struct, TEXT("Color")))
	{
		*static_cast<FColor*>(Value) = Color;
	}
	else
	{
		*static_cast<FLinearColor*>(Value) = FLinearColor(Color);
	}
	return true;
}

bool WriteString(const FStructProperty& Property, const FString& Given, void* Value, UObject* Owner, FString& OutFault)
{
	const UScriptStruct& Struct = *Property.Struct;
	const FString Text = Given.TrimStartAndEnd();
	if (Text.IsEmpty() || Text == TEXT("()"))
	{
		Property.ClearValue(Value);
		return true;
	}
	if (IsColor(Struct) && Text.StartsWith(TEXT("#")))
	{
		return WriteHexColor(Struct, Text, Value, OutFault);
	}
	const bool bNamed = Text.Contains(TEXT("="));
	if (!bNamed && IsStruct(Struct, TEXT("Transform")))
	{
		return WriteTransformRow(Struct, Text, Value, OutFault);
	}
	if (!bNamed && !GetRow(Struct).IsEmpty())
	{
		return WriteRow(Struct, SplitNumbers(Text), Value, OutFault);
	}
	const bool bPrinted = bNamed && !GetRow(Struct).IsEmpty() && !Text.StartsWith(TEXT("("));
	return PropertyJson::Import(Property, bPrinted ? ToNamedForm(Text) : Text, Value, Owner, OutFault);
}

/** A tag is its name, and a container of tags a list of them. */
bool WriteTags(const UScriptStruct& Struct, const FJson& Json, void* Value, FString& OutFault)
{
	const bool bContainer = IsStruct(Struct, TEXT("GameplayTagContainer"));
	const FProperty* const Member = Struct.FindPropertyByName(bContainer ? TEXT("GameplayTags") : TEXT("TagName"));
	FJson Held = Json;
	if (bContainer && Json->Type == EJson::String)
	{
		Held = MakeShared<FJsonValueArray>(SplitNumbers(Json->AsString()));
	}
	return Member && WriteMember(Struct, *Member, Held, Value, nullptr, OutFault);
}

bool IsTagText(const UScriptStruct& Struct, const FJson& Json)
{
	if (!IsStruct(Struct, TEXT("GameplayTag")) && !IsStruct(Struct, TEXT("GameplayTagContainer")))
	{
		return false;
	}
	FString Text;
	return Json->Type == EJson::Array
		|| (MorvaneJson::TryGetString(*Json, Text) && !Text.IsEmpty() && !Text.TrimStart().StartsWith(TEXT("(")));
}
} // namespace

bool Write(const FStructProperty& Property, const FJson& Json, void* Value, UObject* Owner, FString& OutFault)
{
	if (!Property.Struct)
	{
		OutFault = TEXT("the struct is gone");
		return false;
	}
	const UScriptStruct& Struct = *Property.Struct;
	if (IsTagText(Struct, Json))
	{
		return WriteTags(Struct, Json, Value, OutFault);
	}
	if (IsDegrees(Struct, Json))
	{
		return WriteDegrees(Json, Value, OutFault);
	}
	FString Text;
	if (MorvaneJson::TryGetString(*Json, Text))
	{
		return WriteString(Property, Text, Value, Owner, OutFault);
	}
	if (Json->Type == EJson::Array)
	{
		return WriteRow(Struct, MorvaneJson::AsArray(*Json), Value, OutFault);
	}
	const TSharedPtr<FJsonObject>& Object = MorvaneJson::AsObject(*Json);
	if (!Object)
	{
		OutFault = FString::Printf(
			TEXT("%s is not a valid %s"), *StructureValues::Show(Json), *PropertyJson::TypeText(Property));
		return false;
	}
	return WriteObject(Struct, *Object, Value, Owner, OutFault);
}
} // namespace PropertyJsonStructs
