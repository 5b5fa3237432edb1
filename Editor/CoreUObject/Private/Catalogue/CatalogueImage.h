#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/**
 * The catalogue packed for the program: tables of fixed-size records that refer to one another by index and to text by
 * offset. It is used in place, straight from the program's read-only data; only what somebody asks for becomes an
 * object. The build tool writes one from the files of Catalogue/, the loader another from those of a project, so both
 * go through one reader.
 *
 * No engine type stands here: the build tool is linked without any editor module.
 */
namespace Catalogue
{
constexpr std::uint32_t ImageMagic = 0x4C544143; // "CATL"
constexpr std::uint32_t ImageVersion = 2;
constexpr std::uint32_t NoIndex = 0xFFFFFFFF;

/** Offset into the text table; offset 0 is the empty text. */
using FTextOffset = std::uint32_t;
/** Index into the reference table; NoIndex for none. */
using FReference = std::uint32_t;

/** Consecutive records of one table. */
struct FRange
{
	std::uint32_t First = 0;
	std::uint32_t Num = 0;
};

enum class EOwnerKind : std::uint32_t
{
	Class,
	Struct,
	Enum,
	Delegate,
};

enum EOwnerFlags : std::uint32_t
{
	Owner_Abstract = 1 << 0,
	Owner_Interface = 1 << 1,
	Owner_Actor = 1 << 2,
	Owner_Component = 1 << 3,
	Owner_Spawnable = 1 << 4,
	Owner_Widget = 1 << 5,
	Owner_FunctionLibrary = 1 << 6,
	Owner_AsyncAction = 1 << 7,
	Owner_Blueprintable = 1 << 8,
	Owner_BlueprintType = 1 << 9,
	Owner_Const = 1 << 10,
	Owner_Deprecated = 1 << 11,
	Owner_Stub = 1 << 12,
	Owner_Atomic = 1 << 13,
	Owner_Bitflags = 1 << 14,
	Owner_Multicast = 1 << 15,
};

enum EPropertyFlag : std::uint32_t
{
	Property_Edit = 1 << 0,
	Property_EditConst = 1 << 1,
	Property_Visible = 1 << 2,
	Property_BlueprintRead = 1 << 3,
	Property_BlueprintWrite = 1 << 4,
	Property_ExposeOnSpawn = 1 << 5,
	Property_Instanced = 1 << 6,
	Property_Transient = 1 << 7,
	Property_Config = 1 << 8,
	Property_Replicated = 1 << 9,
	Property_RepNotify = 1 << 10,
	Property_Binding = 1 << 11,
	Property_Advanced = 1 << 12,
	Property_Deprecated = 1 << 13,
	Property_Const = 1 << 14,
	Property_RawClass = 1 << 15,
	Property_Out = 1 << 16,
	Property_Ref = 1 << 17,
	Property_Return = 1 << 18,
	Property_Callable = 1 << 19,
	Property_Authority = 1 << 20,
};

enum EFunctionFlag : std::uint32_t
{
	Function_Static = 1 << 0,
	Function_Event = 1 << 1,
	Function_NativeEvent = 1 << 2,
	Function_Callable = 1 << 3,
	Function_Pure = 1 << 4,
	Function_Latent = 1 << 5,
	Function_Const = 1 << 6,
	Function_Protected = 1 << 7,
	Function_Internal = 1 << 8,
	Function_Deprecated = 1 << 9,
};

enum class ECategory : std::uint8_t
{
	Bool,
	Byte,
	Int,
	Int64,
	Real,
	Name,
	String,
	Text,
	Wildcard,
	FieldPath,
	Struct,
	Object,
	WeakObject,
	LazyObject,
	Class,
	SoftObject,
	SoftClass,
	Interface,
	Delegate,
	MulticastDelegate,
};

enum class ESubtype : std::uint8_t
{
	None,
	Float,
	Double,
	Int8,
	Int16,
	UInt16,
	UInt32,
	UInt64,
};

enum class EContainer : std::uint8_t
{
	None,
	Array,
	Set,
	Map,
};

enum class EEnumForm : std::uint32_t
{
	Regular,
	Namespaced,
	Class,
};

struct FTypeRecord
{
	ECategory Category = ECategory::Bool;
	ESubtype Subtype = ESubtype::None;
	EContainer Container = EContainer::None;
	std::uint8_t Padding = 0;
	FReference Path = NoIndex;
	/** Of a map: the index of its value's type. */
	std::uint32_t ValueType = NoIndex;
};

struct FMetaRecord
{
	FTextOffset Key = 0;
	FTextOffset Value = 0;
};

/** A property, a parameter, a return value, or an event dispatcher (whose type is a multicast delegate). */
struct FPropertyRecord
{
	FTextOffset Name = 0;
	std::uint32_t Type = 0;
	std::uint32_t Flags = 0;
	FTextOffset Default = 0;
	FTextOffset Display = 0;
	FTextOffset Category = 0;
	FRange Meta;
};

struct FFunctionRecord
{
	FTextOffset Name = 0;
	std::uint32_t Flags = 0;
	/** The return value, if any, is the last one. */
	FRange Params;
	FTextOffset Display = 0;
	FTextOffset Category = 0;
	FTextOffset Compact = 0;
	FTextOffset Keywords = 0;
	FTextOffset WorldContext = 0;
	FRange Meta;
};

struct FValueRecord
{
	std::int64_t Value = 0;
	FTextOffset Name = 0;
	FTextOffset Display = 0;
	std::uint32_t bHidden = 0;
	std::uint32_t Padding = 0;
};

/** A default sub-object of an actor class. */
struct FComponentRecord
{
	FTextOffset Name = 0;
	FReference Class = NoIndex;
	FTextOffset Property = 0;
	FTextOffset Attach = 0;
};

/** A class, struct, enum or delegate signature. */
struct FOwnerRecord
{
	/** "/Script/Module.Name", or "/Script/Module.Class:Name" for a signature that a class declares. */
	FTextOffset Path = 0;
	EOwnerKind Kind = EOwnerKind::Class;
	std::uint32_t Flags = 0;
	FReference Parent = NoIndex;
	FTextOffset CppName = 0;
	FTextOffset Header = 0;
	FTextOffset Display = 0;
	EEnumForm EnumForm = EEnumForm::Regular;
	FTextOffset NativeMake = 0;
	FTextOffset NativeBreak = 0;
	/** Properties, then dispatchers; the parameters of a delegate. */
	FRange Properties;
	FRange Functions;
	FRange Components;
	FRange Values;
	/** Into the list of interface references. */
	FRange Interfaces;
	/** Into the table of metadata: values of inherited properties in the class default object. */
	FRange Defaults;
	/** Signatures declared in the class: owner indices. */
	FRange Nested;
	FRange Meta;
	/** Next owner whose short name has the same hash slot; NoIndex at the end. */
	std::uint32_t NextByName = NoIndex;
	std::uint32_t Padding = 0;
};

enum class ETable : std::uint32_t
{
	Text,
	Owners,
	/** Text offsets of the paths that records refer to, each once. */
	References,
	Types,
	Properties,
	Functions,
	Values,
	Components,
	Metas,
	/** References of interfaces. */
	Interfaces,
	/** Owner indices of nested signatures. */
	Nested,
	/** Owner indices by hash of the path, linear probing, NoIndex in free slots; a power of two. */
	PathSlots,
	/** First owner of each short-name hash; a power of two. */
	NameSlots,
	Num,
};

struct FImageHeader
{
	std::uint32_t Magic = ImageMagic;
	std::uint32_t Version = ImageVersion;
	struct FTable
	{
		std::uint32_t Offset = 0;
		std::uint32_t Num = 0;
	};
	FTable Tables[static_cast<std::size_t>(ETable::Num)];
};

constexpr std::uint32_t FoldAscii(std::uint32_t Char)
{
	return Char >= 'A' && Char <= 'Z' ? Char + ('a' - 'A') : Char;
}

/** Hash of text that is ASCII in the catalogue, ignoring case; the same for UTF-8 and TCHAR text, and to be continued
 * piece by piece. */
template <class TText>
constexpr std::uint32_t HashText(const TText& Text, std::uint32_t Seed = 2166136261U)
{
	std::uint32_t Hash = Seed;
	for (const auto Char : Text)
	{
		Hash = (Hash ^ FoldAscii(static_cast<std::uint32_t>(Char))) * 16777619U;
	}
	return Hash;
}

/** What stands behind the last '.' or ':' of a path. */
constexpr std::string_view ShortName(std::string_view Path)
{
	const std::size_t Separator = Path.find_last_of(".:");
	return Separator == std::string_view::npos ? Path : Path.substr(Separator + 1);
}

/** Reads an image in place. A default one is empty. */
class FImageView
{
public:
	FImageView() = default;
	/** Bytes must be aligned to 8, outlive the view and hold a whole image; the answer is empty when they are none. */
	explicit FImageView(std::string_view Bytes)
	{
		const FImageHeader* const Candidate = reinterpret_cast<const FImageHeader*>(Bytes.data());
		if (Bytes.size() >= sizeof(FImageHeader) && Candidate->Magic == ImageMagic
			&& Candidate->Version == ImageVersion)
		{
			Base = Bytes.data();
			Header = Candidate;
		}
	}

	bool IsEmpty() const { return Header == nullptr; }
	std::uint32_t Num(ETable Table) const { return Header ? Header->Tables[static_cast<std::size_t>(Table)].Num : 0; }
	std::uint32_t NumOwners() const { return Num(ETable::Owners); }
	const FOwnerRecord& Owner(std::uint32_t Index) const { return Rows<FOwnerRecord>(ETable::Owners)[Index]; }
	const FTypeRecord& Type(std::uint32_t Index) const { return Rows<FTypeRecord>(ETable::Types)[Index]; }
	const FPropertyRecord& Property(std::uint32_t Index) const
	{
		return Rows<FPropertyRecord>(ETable::Properties)[Index];
	}
	const FFunctionRecord& Function(std::uint32_t Index) const
	{
		return Rows<FFunctionRecord>(ETable::Functions)[Index];
	}
	const FValueRecord& Value(std::uint32_t Index) const { return Rows<FValueRecord>(ETable::Values)[Index]; }
	const FComponentRecord& Component(std::uint32_t Index) const
	{
		return Rows<FComponentRecord>(ETable::Components)[Index];
	}
	const FMetaRecord& Meta(std::uint32_t Index) const { return Rows<FMetaRecord>(ETable::Metas)[Index]; }
	FReference Interface(std::uint32_t Index) const { return Rows<FReference>(ETable::Interfaces)[Index]; }
	std::uint32_t Nested(std::uint32_t Index) const { return Rows<std::uint32_t>(ETable::Nested)[Index]; }
	std::string_view Reference(FReference Index) const { return Text(Rows<FTextOffset>(ETable::References)[Index]); }
	/** UTF-8. */
	std::string_view Text(FTextOffset Offset) const
	{
		const char* const Entry = Rows<char>(ETable::Text) + Offset;
		return std::string_view(Entry + sizeof(std::uint32_t), *reinterpret_cast<const std::uint32_t*>(Entry));
	}
	/** The owner whose path has this hash and passes the test; NoIndex when there is none. */
	template <class TTest>
	std::uint32_t FindByPathHash(std::uint32_t Hash, TTest&& Matches) const
	{
		const std::uint32_t NumSlots = Num(ETable::PathSlots);
		for (std::uint32_t Step = 0; Step < NumSlots; ++Step)
		{
			const std::uint32_t Index = Rows<std::uint32_t>(ETable::PathSlots)[(Hash + Step) & (NumSlots - 1)];
			if (Index == NoIndex || Matches(Text(Owner(Index).Path)))
			{
				return Index;
			}
		}
		return NoIndex;
	}
	/** First owner in the chain of this short-name hash; the others follow by NextByName. Names in the chain may
	 * differ. */
	std::uint32_t FirstByNameHash(std::uint32_t Hash) const
	{
		const std::uint32_t NumSlots = Num(ETable::NameSlots);
		return NumSlots == 0 ? NoIndex : Rows<std::uint32_t>(ETable::NameSlots)[Hash & (NumSlots - 1)];
	}

private:
	template <class TRow>
	const TRow* Rows(ETable Table) const
	{
		return reinterpret_cast<const TRow*>(Base + Header->Tables[static_cast<std::size_t>(Table)].Offset);
	}

	const char* Base = nullptr;
	const FImageHeader* Header = nullptr;
};
} // namespace Catalogue
