#include "BinaryPackage/BinaryTableData.h"

#include <algorithm>
#include <map>
#include <string_view>

#include "BinaryPackage/BinaryText.h"

namespace BinaryTableData
{
using FLines = std::vector<std::string>;

/** Keeps the lines together below what a file of this size can mean. */
class FLineList
{
public:
	FLineList(FBinaryCursor& InCursor, const FBinaryTables& Tables, FLines& InLines)
		: Cursor(InCursor)
		, Limit(Tables.GetTextLimit())
		, Lines(InLines)
	{
	}

	void Add(std::string Line)
	{
		NumBytes += Line.size();
		if (NumBytes > Limit)
		{
			Cursor.Fail();
		}
		if (!Cursor.HasFailed())
		{
			Lines.push_back(std::move(Line));
		}
	}

private:
	FBinaryCursor& Cursor;
	const std::size_t Limit;
	FLines& Lines;
	std::size_t NumBytes = 0;
};

/** Each row is a name and the row's struct, with tags. */
static void ReadRows(FBinaryCursor& Cursor, const FBinaryTables& Tables, FBinaryProperties& Properties, FLineList& Out)
{
	for (int32_t Count = Cursor.ReadCount(16); Count > 0 && !Cursor.HasFailed(); --Count)
	{
		const std::string Name = Tables.ReadName(Cursor);
		Out.Add("CustomProperties Row " + BinaryText::Quote(Name) + " " + Properties.ReadStructText(Cursor));
	}
}

static void ReadCurves(
	FBinaryCursor& Cursor, const FBinaryTables& Tables, FBinaryProperties& Properties, FLineList& Out)
{
	const int32_t Count = Cursor.ReadCount(16);
	// How the curves are made: with simple keys, rich ones, or none at all.
	Cursor.Skip(1);
	for (int32_t Index = 0; Index < Count && !Cursor.HasFailed(); ++Index)
	{
		const std::string Name = Tables.ReadName(Cursor);
		Out.Add("CustomProperties Row " + BinaryText::Quote(Name) + " " + Properties.ReadStructText(Cursor));
	}
}

static void ReadStrings(FBinaryCursor& Cursor, const FBinaryTables& Tables, FLineList& Out)
{
	Out.Add("CustomProperties Namespace " + BinaryText::Quote(Cursor.ReadString()));
	for (int32_t Count = Cursor.ReadCount(8); Count > 0 && !Cursor.HasFailed(); --Count)
	{
		const std::string Key = Cursor.ReadString();
		Out.Add("CustomProperties Entry " + BinaryText::Quote(Key) + " " + BinaryText::Quote(Cursor.ReadString()));
	}
	for (int32_t Count = Cursor.ReadCount(8); Count > 0 && !Cursor.HasFailed(); --Count)
	{
		Cursor.ReadString();
		for (int32_t NumNotes = Cursor.ReadCount(12); NumNotes > 0 && !Cursor.HasFailed(); --NumNotes)
		{
			Tables.ReadName(Cursor);
			Cursor.ReadString();
		}
	}
}

bool Read(FBinaryCursor& Cursor, const FBinaryTables& Tables, FBinaryProperties& Properties,
	const std::string& ClassPath, std::vector<std::string>& OutLines)
{
	FLineList Lines(Cursor, Tables, OutLines);
	if (ClassPath.ends_with("DataTable"))
	{
		ReadRows(Cursor, Tables, Properties, Lines);
	}
	else if (ClassPath == "/Script/Engine.CurveTable" || ClassPath == "/Script/Engine.CompositeCurveTable")
	{
		ReadCurves(Cursor, Tables, Properties, Lines);
	}
	else if (ClassPath == "/Script/Engine.StringTable")
	{
		ReadStrings(Cursor, Tables, Lines);
	}
	else
	{
		return true;
	}
	if (!Cursor.IsAtEnd())
	{
		OutLines.clear();
		return false;
	}
	return true;
}

void SeekProperties(FBinaryCursor& Cursor, const FBinaryTables& Tables, const FBinaryExport& Export)
{
	Cursor.Seek(Export.ScriptStart > 0 ? static_cast<std::size_t>(Export.ScriptStart) : 0);
	// A byte that says whether another one says how the object overrides its parent's values.
	if (Tables.GetVersions().Ue5 >= 1011 && (Cursor.Read<uint8_t>() & 2) != 0)
	{
		Cursor.Skip(1);
	}
}

std::vector<std::string_view> SplitElements(const std::string_view Map)
{
	std::vector<std::string_view> Pairs;
	int Depth = 0;
	bool bQuoted = false;
	std::size_t Start = 0;
	for (std::size_t At = 0; At < Map.size(); ++At)
	{
		const char Char = Map[At];
		At += bQuoted && Char == '\\' ? 1 : 0;
		bQuoted ^= Char == '"';
		if (bQuoted)
		{
			continue;
		}
		Depth += Char == '(' ? 1 : 0;
		Start = Char == '(' && Depth == 2 ? At : Start;
		if (Char == ')' && Depth-- == 2)
		{
			Pairs.push_back(Map.substr(Start, At + 1 - Start));
		}
	}
	return Pairs;
}

/** The first quoted text of a pair, as spelled. */
static std::string_view KeyOf(const std::string_view Pair)
{
	const std::size_t Open = Pair.find('"');
	const std::size_t Close = Open == std::string_view::npos ? Open : Pair.find('"', Open + 1);
	return Close == std::string_view::npos ? std::string_view() : Pair.substr(Open, Close + 1 - Open);
}

static std::vector<std::string> ReadEnumNames(FBinaryCursor& Cursor, const FBinaryTables& Tables)
{
	std::vector<std::string> Names;
	for (int32_t Count = Cursor.ReadCount(16); Count > 0 && !Cursor.HasFailed(); --Count)
	{
		const std::string Name = Tables.ReadName(Cursor);
		Cursor.Skip(8);
		const std::size_t At = Name.rfind("::");
		Names.push_back(BinaryText::Quote(At == std::string::npos ? Name : Name.substr(At + 2)));
	}
	return Cursor.HasFailed() ? std::vector<std::string>() : Names;
}

void SortEnumEntries(FBinaryCursor& Cursor, const FBinaryTables& Tables, std::vector<FBinaryProperty>& Properties)
{
	const auto Shown = std::find_if(Properties.begin(), Properties.end(),
		[](const FBinaryProperty& Property) { return Property.Name == "DisplayNameMap"; });
	const std::vector<std::string> Names = ReadEnumNames(Cursor, Tables);
	if (Shown == Properties.end() || Names.empty())
	{
		return;
	}
	std::map<std::string_view, std::string_view> ByKey;
	std::vector<std::string_view> Pairs = SplitElements(Shown->Value);
	for (const std::string_view Pair : Pairs)
	{
		ByKey.emplace(KeyOf(Pair), Pair);
	}
	std::string Sorted;
	for (const std::string& Name : Names)
	{
		const auto Found = ByKey.find(Name);
		if (Found != ByKey.end())
		{
			Sorted.append(Sorted.empty() ? "(" : ",").append(Found->second);
			ByKey.erase(Found);
		}
	}
	// An entry that only one of both knows stays where the author can see it.
	for (const std::string_view Pair : Pairs)
	{
		if (ByKey.contains(KeyOf(Pair)))
		{
			Sorted.append(Sorted.empty() ? "(" : ",").append(Pair);
		}
	}
	Shown->Value = Sorted.empty() ? "()" : Sorted + ")";
}
} // namespace BinaryTableData
