#include "Standalone/EngineContent.h"

#include "Containers/StringConv.h"
#include "Misc/PackageName.h"
#include "Standalone/ObjectProviders.h"
#include "UObject/Class.h"
#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"

#include <string_view>

extern "C" const char MorvaneEngineContentBegin[];
extern "C" const char MorvaneEngineContentEnd[];

namespace EngineContent
{
namespace
{
/** A line that begins with a tab is a package of the class named by the last line without one. */
TArray<FEntry> ReadEntries()
{
	TArray<FEntry> Entries;
	std::string_view Text(
		MorvaneEngineContentBegin, static_cast<std::size_t>(MorvaneEngineContentEnd - MorvaneEngineContentBegin));
	FTopLevelAssetPath ClassPath;
	while (!Text.empty())
	{
		const std::string_view Line = Text.substr(0, Text.find('\n'));
		Text.remove_prefix(std::min(Line.size() + 1, Text.size()));
		if (!Line.empty() && Line.front() == '\t')
		{
			Entries.Add({FromUtf8(Line.substr(1)), ClassPath});
		}
		else if (!Line.empty())
		{
			ClassPath = FTopLevelAssetPath(FromUtf8(Line));
		}
	}
	return Entries;
}

const TMap<FString, int32>& GetIndex()
{
	static const TMap<FString, int32> Index = []
	{
		TMap<FString, int32> Made;
		for (int32 Position = 0; Position < GetEntries().Num(); ++Position)
		{
			Made.Add(GetEntries()[Position].PackageName, Position);
		}
		return Made;
	}();
	return Index;
}

/** Nothing of it is the author's to save, so it never counts as changed. */
UPackage* MakePackage(const FEntry& Entry)
{
	UClass* const Class = FindObject<UClass>(Entry.ClassPath);
	if (!Class)
	{
		return nullptr;
	}
	UPackage* const Package = CreatePackage(*Entry.PackageName);
	Package->SetFlags(RF_Transient);
	if (!StaticFindObject(Class, Package, *Entry.GetAssetName()))
	{
		NewObject<UObject>(
			Package, Class, FName(Entry.GetAssetName()), static_cast<EObjectFlags>(RF_Public | RF_Transient));
	}
	Package->SetDirtyFlag(false);
	return Package;
}

ObjectProviders::FPackageLoader Next;

/** The engine's content folder is nobody else's, so its packages are these or the next loader's. */
UPackage* LoadNextOrKnown(FStringView LongPackageName, uint32 LoadFlags)
{
	const FEntry* const Entry = LongPackageName.StartsWith(TEXTVIEW("/Engine/"), ESearchCase::IgnoreCase)
		? Find(FString(LongPackageName))
		: nullptr;
	if (!Entry)
	{
		return Next.Load ? Next.Load(LongPackageName, LoadFlags) : nullptr;
	}
	return MakePackage(*Entry);
}
} // namespace

FString FEntry::GetAssetName() const
{
	return FPackageName::GetShortName(PackageName);
}

const TArray<FEntry>& GetEntries()
{
	static const TArray<FEntry> Entries = ReadEntries();
	return Entries;
}

const FEntry* Find(const FString& PackageName)
{
	const int32* const Position = GetIndex().Find(PackageName);
	return Position ? &GetEntries()[*Position] : nullptr;
}

void Install()
{
	const ObjectProviders::FPackageLoader Current = ObjectProviders::GetPackageLoader();
	static bool bInstalled = false;
	if (bInstalled)
	{
		return;
	}
	bInstalled = true;
	Next = Current;
	ObjectProviders::FPackageLoader Mine;
	Mine.Load = &LoadNextOrKnown;
	ObjectProviders::SetPackageLoader(Mine);
}
} // namespace EngineContent
