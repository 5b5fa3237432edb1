#include "BinaryPackage/BinaryProperties.h"

#include "BinaryPackage/BinaryStructs.h"
#include "BinaryPackage/BinaryText.h"

namespace BinaryProperties
{
/** Structs within structs, and types within types. */
constexpr int MaxDepth = 48;

static FBinaryType MakeType(std::string Name)
{
	return {std::move(Name), {}};
}

static FBinaryType MakeType(std::string Name, std::string Parameter)
{
	return {std::move(Name), {MakeType(std::move(Parameter))}};
}

/** The entry of an enum, without the enum in front. */
static std::string EntryOf(const std::string& Name)
{
	const std::size_t At = Name.rfind("::");
	return At == std::string::npos ? Name : Name.substr(At + 2);
}

static bool IsObject(const std::string& Type)
{
	return Type == "ObjectProperty" || Type == "ClassProperty" || Type == "WeakObjectProperty"
		|| Type == "InterfaceProperty" || Type == "ObjectPtrProperty" || Type == "ClassPtrProperty"
		|| Type == "AssetObjectPtrProperty";
}

static std::string JoinElement(const std::string& List, const std::string& Element)
{
	return List.empty() ? Element : List + "," + Element;
}

static std::string DescribeType(const FBinaryType& Type)
{
	return Type.Parameters.empty() ? Type.Name : Type.Name + " of " + Type.GetFirst();
}
} // namespace BinaryProperties

struct FBinaryProperties::FTag
{
	std::string Name;
	FBinaryType Type;
	int32_t Size = 0;
	int32_t Index = 0;
	/** A bool's value lies in its tag. */
	bool bValue = false;
	/** Behind the name "None": no tag. */
	bool bIsEnd = false;
};

const std::string& FBinaryType::GetFirst() const
{
	static const std::string None;
	return Parameters.empty() ? None : Parameters.front().Name;
}

bool FBinaryProperties::Read(FBinaryCursor& Cursor, std::vector<FBinaryProperty>& OutProperties)
{
	return ReadList(Cursor, OutProperties, 0);
}

std::vector<std::string> FBinaryProperties::TakePassedOver()
{
	return std::exchange(PassedOver, {});
}

bool FBinaryProperties::ReadList(FBinaryCursor& Cursor, std::vector<FBinaryProperty>& OutProperties, const int Depth)
{
	for (;;)
	{
		FTag Tag;
		if (!ReadTag(Cursor, Tag) || Depth > BinaryProperties::MaxDepth)
		{
			Cursor.Fail();
			return false;
		}
		if (Tag.bIsEnd)
		{
			return true;
		}
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
			Property.Value = ReadBounded(Part, Tag.Type, Depth);
		}
		if (Part.IsAtEnd() && !Cursor.HasFailed())
		{
			OutProperties.push_back(std::move(Property));
		}
		else
		{
			PassedOver.push_back(Tag.Name + " (" + BinaryProperties::DescribeType(Tag.Type) + ")");
		}
	}
}

bool FBinaryProperties::ReadTag(FBinaryCursor& Cursor, FTag& OutTag)
{
	OutTag.Name = Tables.ReadName(Cursor);
	OutTag.bIsEnd = OutTag.Name == "None";
	if (OutTag.bIsEnd || Cursor.HasFailed())
	{
		return !Cursor.HasFailed();
	}
	if (!HasTypeTrees())
	{
		ReadLegacyType(Cursor, OutTag);
		return !Cursor.HasFailed() && OutTag.Size >= 0;
	}
	OutTag.Type = ReadTypeTree(Cursor, 0);
	OutTag.Size = Cursor.ReadInt();
	const uint8_t Flags = Cursor.Read<uint8_t>();
	OutTag.Index = (Flags & 1) != 0 ? Cursor.ReadInt() : 0;
	Cursor.Skip((Flags & 2) != 0 ? 16 : 0);
	if ((Flags & 4) != 0 && (Cursor.Read<uint8_t>() & 2) != 0)
	{
		Cursor.Skip(5);
	}
	OutTag.bValue = (Flags & 16) != 0;
	return !Cursor.HasFailed() && OutTag.Size >= 0;
}

/** Before 5.4 a tag spells its type by what each kind needs; it becomes the tree that later files hold. */
void FBinaryProperties::ReadLegacyType(FBinaryCursor& Cursor, FTag& OutTag)
{
	const std::string Kind = Tables.ReadName(Cursor);
	OutTag.Size = Cursor.ReadInt();
	OutTag.Index = Cursor.ReadInt();
	OutTag.Type = BinaryProperties::MakeType(Kind);
	if (Kind == "StructProperty")
	{
		OutTag.Type = BinaryProperties::MakeType(Kind, Tables.ReadName(Cursor));
		Cursor.Skip(16);
	}
	else if (Kind == "BoolProperty")
	{
		OutTag.bValue = Cursor.Read<uint8_t>() != 0;
	}
	else if (Kind == "ByteProperty" || Kind == "EnumProperty")
	{
		const std::string Enum = Tables.ReadName(Cursor);
		OutTag.Type = Enum == "None" ? OutTag.Type : BinaryProperties::MakeType(Kind, Enum);
	}
	else if (Kind == "ArrayProperty" || Kind == "SetProperty" || Kind == "OptionalProperty")
	{
		OutTag.Type = BinaryProperties::MakeType(Kind, Tables.ReadName(Cursor));
	}
	else if (Kind == "MapProperty")
	{
		OutTag.Type = BinaryProperties::MakeType(Kind, Tables.ReadName(Cursor));
		OutTag.Type.Parameters.push_back(BinaryProperties::MakeType(Tables.ReadName(Cursor)));
	}
	if (Cursor.Read<uint8_t>() != 0)
	{
		Cursor.Skip(16);
	}
	if (Tables.GetVersions().Ue5 >= 1011 && (Cursor.Read<uint8_t>() & 2) != 0)
	{
		Cursor.Skip(5);
	}
}

FBinaryType FBinaryProperties::ReadTypeTree(FBinaryCursor& Cursor, const int Depth)
{
	FBinaryType Type = BinaryProperties::MakeType(Tables.ReadName(Cursor));
	const int32_t Count = Cursor.ReadCount(12);
	if (Depth > BinaryProperties::MaxDepth)
	{
		Cursor.Fail();
	}
	for (int32_t Index = 0; Index < Count && !Cursor.HasFailed(); ++Index)
	{
		Type.Parameters.push_back(ReadTypeTree(Cursor, Depth + 1));
	}
	return Type;
}

/** A struct with a form of its own may be written with tags after all, which only the end of its bytes tells. */
std::string FBinaryProperties::ReadBounded(FBinaryCursor& Cursor, const FBinaryType& Type, const int Depth)
{
	FBinaryCursor Again = Cursor;
	const std::string Value = ReadValue(Cursor, Type, Depth);
	if (Cursor.IsAtEnd() || Type.Name != "StructProperty")
	{
		return Value;
	}
	Cursor = Again;
	return ReadTaggedStruct(Cursor, Depth);
}

std::string FBinaryProperties::ReadValue(FBinaryCursor& Cursor, const FBinaryType& Type, const int Depth)
{
	const std::string& Kind = Type.Name;
	if (Depth > BinaryProperties::MaxDepth)
	{
		Cursor.Fail();
		return std::string();
	}
	if (BinaryProperties::IsObject(Kind))
	{
		return Tables.QuoteReference(Cursor.ReadInt());
	}
	if (Kind == "StructProperty")
	{
		return ReadStruct(Cursor, Type.GetFirst(), Depth);
	}
	if (Kind == "ArrayProperty")
	{
		return ReadArray(Cursor, Type, Depth);
	}
	if (Kind == "SetProperty")
	{
		return ReadSet(Cursor, Type, Depth);
	}
	if (Kind == "MapProperty")
	{
		return ReadMap(Cursor, Type, Depth);
	}
	if (Kind == "ByteProperty")
	{
		return ReadByte(Cursor, Type);
	}
	if (Kind == "EnumProperty")
	{
		return BinaryProperties::EntryOf(Tables.ReadName(Cursor));
	}
	if (Kind == "NameProperty")
	{
		return BinaryText::Quote(Tables.ReadName(Cursor));
	}
	if (Kind == "StrProperty")
	{
		return BinaryText::Quote(Cursor.ReadString());
	}
	if (Kind == "TextProperty")
	{
		return BinaryText::ReadText(Cursor, Tables);
	}
	if (Kind == "BoolProperty")
	{
		return Cursor.Read<uint8_t>() != 0 ? "True" : "False";
	}
	if (Kind == "SoftObjectProperty" || Kind == "SoftClassProperty")
	{
		const std::string Path = Tables.ReadSoftPath(Cursor);
		return Path.empty() ? "None" : BinaryText::Quote(Path);
	}
	if (Kind == "LazyObjectProperty")
	{
		return BinaryStructs::ReadGuid(Cursor);
	}
	if (Kind == "FloatProperty")
	{
		return BinaryText::Number(Cursor.Read<float>());
	}
	if (Kind == "DoubleProperty")
	{
		return BinaryText::Number(Cursor.Read<double>());
	}
	if (Kind == "IntProperty")
	{
		return std::to_string(Cursor.ReadInt());
	}
	if (Kind == "Int64Property")
	{
		return std::to_string(Cursor.Read<int64_t>());
	}
	if (Kind == "UInt32Property")
	{
		return std::to_string(Cursor.Read<uint32_t>());
	}
	if (Kind == "UInt64Property")
	{
		return std::to_string(Cursor.Read<uint64_t>());
	}
	if (Kind == "Int16Property")
	{
		return std::to_string(Cursor.Read<int16_t>());
	}
	if (Kind == "UInt16Property")
	{
		return std::to_string(Cursor.Read<uint16_t>());
	}
	if (Kind == "Int8Property")
	{
		return std::to_string(Cursor.Read<int8_t>());
	}
	if (Kind == "DelegateProperty")
	{
		return ReadDelegate(Cursor);
	}
	if (Kind == "MulticastDelegateProperty" || Kind == "MulticastInlineDelegateProperty"
		|| Kind == "MulticastSparseDelegateProperty")
	{
		std::string List;
		for (int32_t Count = Cursor.ReadCount(12); Count > 0; --Count)
		{
			List = BinaryProperties::JoinElement(List, ReadDelegate(Cursor));
		}
		return "(" + List + ")";
	}
	if (Kind == "FieldPathProperty")
	{
		return ReadFieldPath(Cursor);
	}
	Cursor.Fail();
	return std::string();
}

std::string FBinaryProperties::ReadDelegate(FBinaryCursor& Cursor)
{
	const std::string Object = Tables.PathOf(Cursor.ReadInt());
	const std::string Function = Tables.ReadName(Cursor);
	return Object.empty() ? "(null)." + Function : Object + "." + Function;
}

/** The names come from the field up to what its owner holds. */
std::string FBinaryProperties::ReadFieldPath(FBinaryCursor& Cursor)
{
	std::string Path;
	for (int32_t Count = Cursor.ReadCount(8); Count > 0; --Count)
	{
		const std::string Name = Tables.ReadName(Cursor);
		Path = Path.empty() ? Name : Name + "." + Path;
	}
	const std::string Owner = Tables.PathOf(Cursor.ReadInt());
	return Path.empty() ? "None" : BinaryText::Quote(Owner + ":" + Path);
}

/** A number, or the name of an entry where there is an enum; the room that a single value has tells in doubt. */
std::string FBinaryProperties::ReadByte(FBinaryCursor& Cursor, const FBinaryType& Type)
{
	return Type.Parameters.empty() ? std::to_string(Cursor.Read<uint8_t>())
								   : BinaryProperties::EntryOf(Tables.ReadName(Cursor));
}

std::string FBinaryProperties::ReadArray(FBinaryCursor& Cursor, const FBinaryType& Type, const int Depth)
{
	const int32_t Count = Cursor.ReadCount(0);
	FBinaryType Element = Type.Parameters.empty() ? FBinaryType() : Type.Parameters.front();
	if (!HasTypeTrees() && Element.Name == "StructProperty")
	{
		FTag Inner;
		ReadTag(Cursor, Inner);
		Element = Inner.Type;
	}
	else if (!HasTypeTrees() && Element.Name == "ByteProperty"
		&& Cursor.GetLeft() == static_cast<std::size_t>(Count) * 8)
	{
		Element = Count > 0 ? BinaryProperties::MakeType("EnumProperty") : Element;
	}
	std::string List;
	for (int32_t Index = 0; Index < Count && !Cursor.HasFailed(); ++Index)
	{
		const std::size_t Before = Cursor.GetLeft();
		List = BinaryProperties::JoinElement(List, ReadValue(Cursor, Element, Depth + 1));
		if (Cursor.GetLeft() == Before)
		{
			Cursor.Fail();
		}
	}
	return "(" + List + ")";
}

std::string FBinaryProperties::ReadSet(FBinaryCursor& Cursor, const FBinaryType& Type, const int Depth)
{
	const FBinaryType Element = Type.Parameters.empty() ? FBinaryType() : Type.Parameters.front();
	for (int32_t NumRemoved = Cursor.ReadCount(1); NumRemoved > 0 && !Cursor.HasFailed(); --NumRemoved)
	{
		ReadValue(Cursor, Element, Depth + 1);
	}
	std::string List;
	for (int32_t Count = Cursor.ReadCount(1); Count > 0 && !Cursor.HasFailed(); --Count)
	{
		List = BinaryProperties::JoinElement(List, ReadValue(Cursor, Element, Depth + 1));
	}
	return "(" + List + ")";
}

std::string FBinaryProperties::ReadMap(FBinaryCursor& Cursor, const FBinaryType& Type, const int Depth)
{
	if (Type.Parameters.size() < 2)
	{
		Cursor.Fail();
		return std::string();
	}
	for (int32_t NumRemoved = Cursor.ReadCount(1); NumRemoved > 0 && !Cursor.HasFailed(); --NumRemoved)
	{
		ReadValue(Cursor, Type.Parameters[0], Depth + 1);
	}
	std::string List;
	for (int32_t Count = Cursor.ReadCount(1); Count > 0 && !Cursor.HasFailed(); --Count)
	{
		const std::string Key = ReadValue(Cursor, Type.Parameters[0], Depth + 1);
		const std::string Value = ReadValue(Cursor, Type.Parameters[1], Depth + 1);
		List = BinaryProperties::JoinElement(List, "(" + Key + ", " + Value + ")");
	}
	return "(" + List + ")";
}

std::string FBinaryProperties::ReadStruct(FBinaryCursor& Cursor, const std::string& Struct, const int Depth)
{
	if (std::optional<std::string> Native = BinaryStructs::Read(Cursor, Tables, Struct))
	{
		return *Native;
	}
	return ReadTaggedStruct(Cursor, Depth);
}

std::string FBinaryProperties::ReadTaggedStruct(FBinaryCursor& Cursor, const int Depth)
{
	std::vector<FBinaryProperty> Members;
	ReadList(Cursor, Members, Depth + 1);
	std::string List;
	for (const FBinaryProperty& Member : Members)
	{
		const std::string Place = Member.Index > 0 ? "[" + std::to_string(Member.Index) + "]" : std::string();
		List = BinaryProperties::JoinElement(List, Member.Name + Place + "=" + Member.Value);
	}
	return "(" + List + ")";
}
