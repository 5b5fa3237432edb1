#include "BinaryPackage/BinaryProperties.h"

#include <algorithm>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <utility>

#include "BinaryPackage/BinaryStructs.h"
#include "BinaryPackage/BinaryText.h"

namespace BinaryProperties
{
/** Structs within structs, and containers within containers. */
constexpr int MaxDepth = 48;

/** The entry of an enum, without the enum in front. */
static std::string_view EntryOf(const std::string& Name)
{
	const std::size_t At = Name.rfind("::");
	return At == std::string::npos ? std::string_view(Name) : std::string_view(Name).substr(At + 2);
}

static bool IsObject(const std::string& Kind)
{
	static constexpr std::string_view Kinds[] = {"ObjectProperty", "ClassProperty", "WeakObjectProperty",
		"InterfaceProperty", "ObjectPtrProperty", "ClassPtrProperty", "AssetObjectPtrProperty"};
	for (const std::string_view Known : Kinds)
	{
		if (Kind == Known)
		{
			return true;
		}
	}
	return false;
}
/** Before 5.4 an array of structs has one more tag for all of them, and the room tells bytes from names. */
static FBinaryType ReadElementType(
	FBinaryCursor& Cursor, const FBinaryTables& Tables, const FBinaryType& Array, const int32_t Count)
{
	const FBinaryType& Element = Array.GetParameter(0);
	if (FBinaryTag::HasWholeTypes(Tables))
	{
		return Element;
	}
	if (Element.Name == "StructProperty")
	{
		FBinaryTag OfAll;
		OfAll.Read(Cursor, Tables);
		return OfAll.Type;
	}
	const bool bNames = Element.Name == "ByteProperty" && Cursor.GetLeft() == static_cast<std::size_t>(Count) * 8;
	return bNames ? FBinaryType{"EnumProperty", {}} : Element;
}

/** Members of an author's own structs may bear any name; one that is no plain word stands in quotes. */
static std::string SpellMember(const std::string& Name)
{
	const auto IsPlain = [](const char Char)
	{
		return (Char >= 'a' && Char <= 'z') || (Char >= 'A' && Char <= 'Z') || (Char >= '0' && Char <= '9')
			|| Char == '_' || static_cast<unsigned char>(Char) >= 0x80;
	};
	return std::all_of(Name.begin(), Name.end(), IsPlain) ? Name : BinaryText::Quote(Name);
}
} // namespace BinaryProperties

bool FBinaryProperties::Read(FBinaryCursor& Cursor, std::vector<FBinaryProperty>& OutProperties)
{
	NumTextBytes = 0;
	return ReadList(Cursor, OutProperties, 0);
}

bool FBinaryProperties::ReadNamed(FBinaryCursor& Cursor, const std::string& Name, FBinaryProperty& OutProperty)
{
	NumTextBytes = 0;
	for (FBinaryTag Tag; Tag.Read(Cursor, Tables) && !Tag.bIsEnd; Tag = FBinaryTag())
	{
		if (Tag.Name != Name)
		{
			Cursor.Skip(static_cast<std::size_t>(Tag.Size));
			continue;
		}
		std::vector<FBinaryProperty> Found;
		ReadOne(Cursor, Tag, 0, Found);
		OutProperty = Found.empty() ? FBinaryProperty() : std::move(Found.front());
		return !Found.empty();
	}
	return false;
}

std::string FBinaryProperties::ReadStructText(FBinaryCursor& Cursor)
{
	std::string Text;
	NumTextBytes = 0;
	ReadTaggedStruct(Cursor, 0, Text);
	return Text;
}

std::vector<std::string> FBinaryProperties::TakePassedOver()
{
	return std::exchange(PassedOver, {});
}

bool FBinaryProperties::ReadList(FBinaryCursor& Cursor, std::vector<FBinaryProperty>& OutProperties, const int Depth)
{
	for (;;)
	{
		FBinaryTag Tag;
		if (!Tag.Read(Cursor, Tables) || Depth > BinaryProperties::MaxDepth || NumTextBytes > Tables.GetTextLimit())
		{
			Cursor.Fail();
			return false;
		}
		if (Tag.bIsEnd)
		{
			return true;
		}
		ReadOne(Cursor, Tag, Depth, OutProperties);
	}
}

void FBinaryProperties::ReadOne(
	FBinaryCursor& Cursor, const FBinaryTag& Tag, const int Depth, std::vector<FBinaryProperty>& OutProperties)
{
	FBinaryCursor Part = Cursor.Part(static_cast<std::size_t>(Tag.Size));
	FBinaryProperty Property{Tag.Name, Tag.Index, {}, 0};
	if (Tag.Type.Name == "BoolProperty")
	{
		Property.Value = Tag.bValue ? "True" : "False";
	}
	else if (BinaryProperties::IsObject(Tag.Type.Name))
	{
		Property.Object = Part.ReadInt();
		Property.Value = Tables.QuoteReference(Property.Object);
	}
	else
	{
		ReadBounded(Part, Tag.Type, Depth, Property.Value);
	}
	NumTextBytes += Tag.Name.size() + Property.Value.size();
	if (Part.IsAtEnd() && !Cursor.HasFailed())
	{
		OutProperties.push_back(std::move(Property));
	}
	else
	{
		PassedOver.push_back(Tag.Name + " (" + Tag.Type.Describe() + ")");
	}
}

/** A struct with a form of its own may be written with tags after all, which only the end of its bytes tells. */
void FBinaryProperties::ReadBounded(FBinaryCursor& Cursor, const FBinaryType& Type, const int Depth, std::string& Out)
{
	FBinaryCursor Again = Cursor;
	const std::size_t Before = Out.size();
	ReadValue(Cursor, Type, Depth, Out);
	if (!Cursor.IsAtEnd() && HasOwnForm(Type))
	{
		Cursor = Again;
		Out.resize(Before);
		ReadTaggedStruct(Cursor, Depth, Out);
	}
}

bool FBinaryProperties::HasOwnForm(const FBinaryType& Type)
{
	return Type.Name == "StructProperty" && BinaryStructs::Knows(Type.GetFirst());
}

void FBinaryProperties::ReadValue(FBinaryCursor& Cursor, const FBinaryType& Type, const int Depth, std::string& Out)
{
	const FValueReader Reader = FindReader(Type.Name);
	if (!Reader || Depth > BinaryProperties::MaxDepth)
	{
		Cursor.Fail();
		return;
	}
	(this->*Reader)(Cursor, Type, Depth, Out);
}

FBinaryProperties::FValueReader FBinaryProperties::FindReader(const std::string& Kind)
{
	using FThis = FBinaryProperties;
	static const std::unordered_map<std::string_view, FValueReader> Readers = {
		{"ObjectProperty", &FThis::ReadObject},
		{"ClassProperty", &FThis::ReadObject},
		{"WeakObjectProperty", &FThis::ReadObject},
		{"InterfaceProperty", &FThis::ReadObject},
		{"ObjectPtrProperty", &FThis::ReadObject},
		{"ClassPtrProperty", &FThis::ReadObject},
		{"AssetObjectPtrProperty", &FThis::ReadObject},
		{"SoftObjectProperty", &FThis::ReadSoftObject},
		{"SoftClassProperty", &FThis::ReadSoftObject},
		{"LazyObjectProperty", &FThis::ReadGuid},
		{"StructProperty", &FThis::ReadStruct},
		{"ArrayProperty", &FThis::ReadArray},
		{"SetProperty", &FThis::ReadSet},
		{"MapProperty", &FThis::ReadMap},
		{"OptionalProperty", &FThis::ReadOptional},
		{"BoolProperty", &FThis::ReadBool},
		{"ByteProperty", &FThis::ReadByte},
		{"EnumProperty", &FThis::ReadEnum},
		{"NameProperty", &FThis::ReadName},
		{"StrProperty", &FThis::ReadString},
		{"TextProperty", &FThis::ReadText},
		{"FloatProperty", &FThis::ReadNumber<float>},
		{"DoubleProperty", &FThis::ReadNumber<double>},
		{"Int8Property", &FThis::ReadNumber<int8_t>},
		{"Int16Property", &FThis::ReadNumber<int16_t>},
		{"IntProperty", &FThis::ReadNumber<int32_t>},
		{"Int64Property", &FThis::ReadNumber<int64_t>},
		{"UInt16Property", &FThis::ReadNumber<uint16_t>},
		{"UInt32Property", &FThis::ReadNumber<uint32_t>},
		{"UInt64Property", &FThis::ReadNumber<uint64_t>},
		{"DelegateProperty", &FThis::ReadDelegate},
		{"MulticastDelegateProperty", &FThis::ReadDelegates},
		{"MulticastInlineDelegateProperty", &FThis::ReadDelegates},
		{"MulticastSparseDelegateProperty", &FThis::ReadDelegates},
		{"FieldPathProperty", &FThis::ReadFieldPath},
	};
	const auto Found = Readers.find(Kind);
	return Found == Readers.end() ? nullptr : Found->second;
}

void FBinaryProperties::Bound(FBinaryCursor& Cursor, const std::string& Out) const
{
	if (Out.size() > Tables.GetTextLimit())
	{
		Cursor.Fail();
	}
}

template <class TNumber>
void FBinaryProperties::ReadNumber(FBinaryCursor& Cursor, const FBinaryType&, int, std::string& Out)
{
	if constexpr (std::is_floating_point_v<TNumber>)
	{
		Out += BinaryText::Number(Cursor.Read<TNumber>());
	}
	else
	{
		Out += std::to_string(Cursor.Read<TNumber>());
	}
}

void FBinaryProperties::ReadObject(FBinaryCursor& Cursor, const FBinaryType&, int, std::string& Out)
{
	Out += Tables.QuoteReference(Cursor.ReadInt());
}

void FBinaryProperties::ReadBool(FBinaryCursor& Cursor, const FBinaryType&, int, std::string& Out)
{
	Out += Cursor.Read<uint8_t>() != 0 ? "True" : "False";
}

/** A number, or the name of an entry where there is an enum; a single byte is a number whatever its type says. */
void FBinaryProperties::ReadByte(FBinaryCursor& Cursor, const FBinaryType& Type, int, std::string& Out)
{
	if (Type.Parameters.empty() || Cursor.GetLeft() == 1)
	{
		Out += std::to_string(Cursor.Read<uint8_t>());
		return;
	}
	Out += BinaryProperties::EntryOf(Tables.ReadName(Cursor));
}

void FBinaryProperties::ReadEnum(FBinaryCursor& Cursor, const FBinaryType&, int, std::string& Out)
{
	Out += BinaryProperties::EntryOf(Tables.ReadName(Cursor));
}

void FBinaryProperties::ReadName(FBinaryCursor& Cursor, const FBinaryType&, int, std::string& Out)
{
	Out += BinaryText::Quote(Tables.ReadName(Cursor));
}

void FBinaryProperties::ReadString(FBinaryCursor& Cursor, const FBinaryType&, int, std::string& Out)
{
	Out += BinaryText::Quote(Cursor.ReadString());
}

void FBinaryProperties::ReadText(FBinaryCursor& Cursor, const FBinaryType&, int, std::string& Out)
{
	Out += BinaryText::ReadText(Cursor, Tables);
}

void FBinaryProperties::ReadSoftObject(FBinaryCursor& Cursor, const FBinaryType&, int, std::string& Out)
{
	const std::string Path = Tables.ReadSoftPath(Cursor);
	Out += Path.empty() ? "None" : BinaryText::Quote(Path);
}

void FBinaryProperties::ReadGuid(FBinaryCursor& Cursor, const FBinaryType&, int, std::string& Out)
{
	Out += BinaryStructs::ReadGuid(Cursor);
}

void FBinaryProperties::ReadDelegate(FBinaryCursor& Cursor, const FBinaryType&, int, std::string& Out)
{
	const std::string Object = Tables.PathOf(Cursor.ReadInt());
	Out.append(Object.empty() ? "(null)" : Object).append(".").append(Tables.ReadName(Cursor));
}

void FBinaryProperties::ReadDelegates(FBinaryCursor& Cursor, const FBinaryType&, const int Depth, std::string& Out)
{
	const FBinaryType Single{"DelegateProperty", {}};
	Out += '(';
	ReadElements(Cursor, Cursor.ReadCount(12), Single, Depth, Out);
	Out += ')';
}

/** The names come from the field up to what its owner holds. */
void FBinaryProperties::ReadFieldPath(FBinaryCursor& Cursor, const FBinaryType&, int, std::string& Out)
{
	std::string Path;
	for (int32_t Count = Cursor.ReadCount(8); Count > 0 && !Cursor.HasFailed(); --Count)
	{
		const std::string Name = Tables.ReadName(Cursor);
		Path = Path.empty() ? Name : Name + "." + Path;
		Bound(Cursor, Path);
	}
	const std::string Owner = Tables.PathOf(Cursor.ReadInt());
	Out += Path.empty() ? "None" : BinaryText::Quote(Owner + ":" + Path);
}

/** Values that follow one another. One that takes no bytes would go on for ever, and is none. */
void FBinaryProperties::ReadElements(
	FBinaryCursor& Cursor, const int32_t Count, const FBinaryType& Type, const int Depth, std::string& Out)
{
	const FValueReader Reader = FindReader(Type.Name);
	if (Depth > BinaryProperties::MaxDepth || (!Reader && Count > 0))
	{
		Cursor.Fail();
	}
	for (int32_t Index = 0; Index < Count && !Cursor.HasFailed(); ++Index)
	{
		const std::size_t Before = Cursor.GetLeft();
		Out.append(Index > 0 ? "," : "");
		(this->*Reader)(Cursor, Type, Depth, Out);
		Bound(Cursor, Out);
		if (Cursor.GetLeft() == Before)
		{
			Cursor.Fail();
		}
	}
}

/** What a set or map lost against its parent's; it has no place in text. */
void FBinaryProperties::SkipRemoved(FBinaryCursor& Cursor, const FBinaryType& Type, const int Depth)
{
	std::string Ignored;
	ReadElements(Cursor, Cursor.ReadCount(1), Type, Depth + 1, Ignored);
}

void FBinaryProperties::ReadArray(FBinaryCursor& Cursor, const FBinaryType& Type, const int Depth, std::string& Out)
{
	const int32_t Count = Cursor.ReadCount(1);
	const FBinaryType Element = BinaryProperties::ReadElementType(Cursor, Tables, Type, Count);
	Out += '(';
	FBinaryCursor Again = Cursor;
	const std::size_t Before = Out.size();
	ReadElements(Cursor, Count, Element, Depth + 1, Out);
	if (!Cursor.IsAtEnd() && HasOwnForm(Element))
	{
		Cursor = Again;
		Out.resize(Before);
		ReadElements(Cursor, Count, {"StructProperty", {}}, Depth + 1, Out);
	}
	Out += ')';
}

void FBinaryProperties::ReadSet(FBinaryCursor& Cursor, const FBinaryType& Type, const int Depth, std::string& Out)
{
	SkipRemoved(Cursor, Type.GetParameter(0), Depth);
	Out += '(';
	ReadElements(Cursor, Cursor.ReadCount(1), Type.GetParameter(0), Depth + 1, Out);
	Out += ')';
}

void FBinaryProperties::ReadMap(FBinaryCursor& Cursor, const FBinaryType& Type, const int Depth, std::string& Out)
{
	SkipRemoved(Cursor, Type.GetParameter(0), Depth);
	const int32_t Count = Cursor.ReadCount(2);
	Out += '(';
	for (int32_t Index = 0; Index < Count && !Cursor.HasFailed(); ++Index)
	{
		Out.append(Index > 0 ? ",(" : "(");
		ReadValue(Cursor, Type.GetParameter(0), Depth + 1, Out);
		Out.append(", ");
		ReadValue(Cursor, Type.GetParameter(1), Depth + 1, Out);
		Out += ')';
		Bound(Cursor, Out);
	}
	Out += ')';
}

void FBinaryProperties::ReadOptional(FBinaryCursor& Cursor, const FBinaryType& Type, const int Depth, std::string& Out)
{
	Out += '(';
	if (Cursor.ReadBool())
	{
		ReadValue(Cursor, Type.GetParameter(0), Depth + 1, Out);
	}
	Out += ')';
}

void FBinaryProperties::ReadStruct(FBinaryCursor& Cursor, const FBinaryType& Type, const int Depth, std::string& Out)
{
	if (!BinaryStructs::Read(Cursor, Tables, Type.GetFirst(), Out))
	{
		ReadTaggedStruct(Cursor, Depth, Out);
	}
}

void FBinaryProperties::ReadTaggedStruct(FBinaryCursor& Cursor, const int Depth, std::string& Out)
{
	std::vector<FBinaryProperty> Members;
	ReadList(Cursor, Members, Depth + 1);
	Out += '(';
	for (const FBinaryProperty& Member : Members)
	{
		Out.append(&Member == Members.data() ? "" : ",").append(BinaryProperties::SpellMember(Member.Name));
		Out.append(Member.Index > 0 ? "[" + std::to_string(Member.Index) + "]" : std::string());
		Out.append("=").append(Member.Value);
	}
	Out += ')';
}
