// The variables of a Blueprint that nobody has read yet: of the head of its file and the bytes of one object.

#include <charconv>

#include "BinaryPackage/BinaryPackageText.h"
#include "BinaryPackage/BinaryProperties.h"
#include "BinaryPackage/BinaryTableData.h"
#include "BinaryPackage/BinaryTables.h"

namespace BinaryVariables
{
/** What stands in quotes behind a key; empty when there is none. */
static std::string QuotedBehind(const std::string_view Text, const std::string_view Key)
{
	const std::size_t At = Text.find(Key);
	const std::size_t Start = At + Key.size();
	const std::size_t End = At == std::string_view::npos ? At : Text.find('"', Start);
	return End == std::string_view::npos ? std::string() : std::string(Text.substr(Start, End - Start));
}

/** The last part in quotes of the text value behind a key, which is what the text says. */
static std::string SaidBehind(const std::string_view Text, const std::string_view Key, const std::string_view EndKey)
{
	const std::size_t At = Text.find(Key);
	const std::size_t End = At == std::string_view::npos ? At : Text.find(EndKey, At);
	const std::string_view Value = End == std::string_view::npos ? std::string_view() : Text.substr(At, End - At);
	const std::size_t Close = Value.rfind('"');
	const std::size_t Open = Close == std::string_view::npos || Close == 0 ? std::string_view::npos
																		   : Value.rfind('"', Close - 1);
	return Open == std::string_view::npos ? std::string() : std::string(Value.substr(Open + 1, Close - Open - 1));
}

static FBinaryVariable Describe(const std::string_view Text)
{
	constexpr uint64_t ReadOnly = 0x10;
	FBinaryVariable Variable;
	Variable.Name = QuotedBehind(Text, "(VarName=\"");
	Variable.Category = SaidBehind(Text, ",Category=", ",PropertyFlags=");
	Variable.bIsBool = QuotedBehind(Text, "VarType=(PinCategory=\"") == "bool"
		&& Text.find("ContainerType=None") != std::string_view::npos;
	Variable.bIsPrivate = QuotedBehind(Text, "(DataKey=\"BlueprintPrivate\",DataValue=\"") == "true";
	constexpr std::string_view FlagsKey = ",PropertyFlags=";
	const std::size_t At = Text.find(FlagsKey);
	uint64_t Flags = 0;
	if (At != std::string_view::npos)
	{
		std::from_chars(Text.data() + At + FlagsKey.size(), Text.data() + Text.size(), Flags);
	}
	Variable.bIsReadOnly = (Flags & ReadOnly) != 0;
	return Variable;
}
} // namespace BinaryVariables

FBinaryRange FindBinaryAsset(const std::string_view Head, const std::string& PackageName)
{
	FBinaryTables Tables;
	std::string Ignored;
	const int32_t Asset = Tables.ReadHead(Head, PackageName, Ignored) ? Tables.GetAsset() : 0;
	if (Asset == 0)
	{
		return {};
	}
	const FBinaryExport& Export = Tables.GetExports()[static_cast<std::size_t>(Asset) - 1];
	return {Export.Offset, Export.Size};
}

std::vector<FBinaryVariable> ReadBinaryVariables(
	const std::string_view Head, const std::string& PackageName, const std::string_view AssetBytes)
{
	std::vector<FBinaryVariable> Variables;
	FBinaryTables Tables;
	std::string Ignored;
	const int32_t Asset = Tables.ReadHead(Head, PackageName, Ignored) ? Tables.GetAsset() : 0;
	if (Asset == 0)
	{
		return Variables;
	}
	FBinaryCursor Cursor(AssetBytes);
	BinaryTableData::SeekProperties(Cursor, Tables, Tables.GetExports()[static_cast<std::size_t>(Asset) - 1]);
	FBinaryProperty Found;
	if (!FBinaryProperties(Tables).ReadNamed(Cursor, "NewVariables", Found))
	{
		return Variables;
	}
	for (const std::string_view Element : BinaryTableData::SplitElements(Found.Value))
	{
		FBinaryVariable Variable = BinaryVariables::Describe(Element);
		if (!Variable.Name.empty())
		{
			Variables.push_back(std::move(Variable));
		}
	}
	return Variables;
}
