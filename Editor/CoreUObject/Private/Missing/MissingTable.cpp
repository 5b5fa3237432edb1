#include "Missing/MissingTable.h"

#include "UObject/Class.h"

#include <memory>

namespace MissingObjects
{
namespace
{
struct FTable
{
	std::vector<std::unique_ptr<FEntry>> Entries;
	std::unordered_map<std::string, std::vector<FEntry*>> ByPath;
};

FTable& Table()
{
	static FTable* const Instance = new FTable;
	return *Instance;
}
} // namespace

std::string KeyOf(const FString& Path)
{
	return ToUtf8(Path.ToLower());
}

FEntry* FindEntry(const FString& Path, const UClass* Class)
{
	const auto Found = Table().ByPath.find(KeyOf(Path));
	if (Found == Table().ByPath.end())
	{
		return nullptr;
	}
	for (FEntry* const Entry : Found->second)
	{
		if (Entry->StandIn->IsA(Class))
		{
			return Entry;
		}
	}
	return nullptr;
}

void AddEntry(const FString& Path, UObject* StandIn)
{
	FEntry* const Entry = Table().Entries.emplace_back(std::make_unique<FEntry>()).get();
	Entry->Path = Path;
	Entry->StandIn = StandIn;
	Table().ByPath[KeyOf(Path)].push_back(Entry);
}

std::vector<FEntry*> UsedEntries()
{
	std::vector<FEntry*> Used;
	for (const std::unique_ptr<FEntry>& Entry : Table().Entries)
	{
		if (Entry->bUsed)
		{
			Used.push_back(Entry.get());
		}
	}
	return Used;
}
} // namespace MissingObjects
