#include "BinaryPackage/BinaryTags.h"

namespace BinaryTags
{
/** Types within types, and how many of them one tag may spell: far more than any property has. */
constexpr int MaxDepth = 16;
constexpr int MaxTypes = 64;
/** Of an element of a static array. */
constexpr int32_t MaxIndex = 0xFFFF;

/** Bits of the one byte of flags of 5.4. */
enum EFlag : uint8_t
{
	HasIndex = 1,
	HasGuid = 2,
	HasExtension = 4,
	IsTrue = 16,
};

static FBinaryType MakeType(std::string Name)
{
	return {std::move(Name), {}};
}

static FBinaryType ReadTree(FBinaryCursor& Cursor, const FBinaryTables& Tables, const int Depth, int& InOutNumTypes)
{
	FBinaryType Type = MakeType(Tables.ReadName(Cursor));
	const int32_t Count = Cursor.ReadCount(12);
	if (Depth > MaxDepth || ++InOutNumTypes > MaxTypes)
	{
		Cursor.Fail();
	}
	for (int32_t Index = 0; Index < Count && !Cursor.HasFailed(); ++Index)
	{
		Type.Parameters.push_back(ReadTree(Cursor, Tables, Depth + 1, InOutNumTypes));
	}
	return Type;
}

/** How a value overrides its parent's, which nothing here asks for. */
static void SkipExtension(FBinaryCursor& Cursor)
{
	if ((Cursor.Read<uint8_t>() & 2) != 0)
	{
		Cursor.Skip(1 + 4);
	}
}

/** What maps of structs hold in files that do not name it, by the map's own name. */
static const char* StructOfMap(const std::string& Property)
{
	return Property == "PropertyGuids" ? "Guid" : nullptr;
}
} // namespace BinaryTags

const std::string& FBinaryType::GetFirst() const
{
	return GetParameter(0).Name;
}

const FBinaryType& FBinaryType::GetParameter(const std::size_t Index) const
{
	static const FBinaryType None;
	return Index < Parameters.size() ? Parameters[Index] : None;
}

std::string FBinaryType::Describe() const
{
	return Parameters.empty() ? Name : Name + " of " + GetFirst();
}

bool FBinaryTag::Read(FBinaryCursor& Cursor, const FBinaryTables& Tables)
{
	Name = Tables.ReadName(Cursor);
	bIsEnd = Name == "None";
	if (!bIsEnd && !Cursor.HasFailed())
	{
		HasWholeTypes(Tables) ? ReadWhole(Cursor, Tables) : ReadLegacy(Cursor, Tables);
	}
	if (Name.empty() || Size < 0 || Index < 0 || Index > BinaryTags::MaxIndex)
	{
		Cursor.Fail();
	}
	return !Cursor.HasFailed();
}

void FBinaryTag::ReadWhole(FBinaryCursor& Cursor, const FBinaryTables& Tables)
{
	int NumTypes = 0;
	Type = BinaryTags::ReadTree(Cursor, Tables, 0, NumTypes);
	Size = Cursor.ReadInt();
	const uint8_t Flags = Cursor.Read<uint8_t>();
	Index = (Flags & BinaryTags::HasIndex) != 0 ? Cursor.ReadInt() : 0;
	Cursor.Skip((Flags & BinaryTags::HasGuid) != 0 ? 16 : 0);
	if ((Flags & BinaryTags::HasExtension) != 0)
	{
		BinaryTags::SkipExtension(Cursor);
	}
	bValue = (Flags & BinaryTags::IsTrue) != 0;
}

void FBinaryTag::ReadLegacy(FBinaryCursor& Cursor, const FBinaryTables& Tables)
{
	std::string Kind = Tables.ReadName(Cursor);
	Size = Cursor.ReadInt();
	Index = Cursor.ReadInt();
	ReadLegacyType(Cursor, Tables, std::move(Kind));
	if (Cursor.Read<uint8_t>() != 0)
	{
		Cursor.Skip(16);
	}
	if (Tables.GetVersions().Ue5 >= 1011)
	{
		BinaryTags::SkipExtension(Cursor);
	}
}

/** Each kind spells what it needs; that becomes the tree which later files hold. */
void FBinaryTag::ReadLegacyType(FBinaryCursor& Cursor, const FBinaryTables& Tables, std::string Kind)
{
	Type = BinaryTags::MakeType(std::move(Kind));
	const auto AddParameter = [this, &Cursor, &Tables]
	{ Type.Parameters.push_back(BinaryTags::MakeType(Tables.ReadName(Cursor))); };
	if (Type.Name == "StructProperty")
	{
		AddParameter();
		Cursor.Skip(16);
	}
	else if (Type.Name == "BoolProperty")
	{
		bValue = Cursor.Read<uint8_t>() != 0;
	}
	else if (Type.Name == "ByteProperty" || Type.Name == "EnumProperty")
	{
		AddParameter();
		if (Type.GetFirst() == "None")
		{
			Type.Parameters.clear();
		}
	}
	else if (Type.Name == "ArrayProperty" || Type.Name == "SetProperty" || Type.Name == "OptionalProperty")
	{
		AddParameter();
	}
	else if (Type.Name == "MapProperty")
	{
		AddParameter();
		AddParameter();
		const char* const Struct = BinaryTags::StructOfMap(Name);
		FBinaryType& Value = Type.Parameters[1];
		if (Struct && Value.Name == "StructProperty")
		{
			Value.Parameters.push_back(BinaryTags::MakeType(Struct));
		}
	}
}
