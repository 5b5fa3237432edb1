#include "Files/PackageLookup.h"
#include "ObjectText/ObjectTextWriter.h"
#include "Package/KnownFiles.h"
#include "Package/PackageFile.h"
#include "Standalone/ObjectText.h"
#include "Standalone/PackageText.h"
#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"

#include <set>
#include <unordered_map>
#include <unordered_set>

namespace ForeignChanges
{
using FIndices = std::set<std::size_t>;

/** Calls Visit with each part of a text that looks like a package's name, once. */
template <class FVisitor>
static void VisitPackageNames(std::string_view Text, FVisitor&& Visit)
{
	// Binary packages end their texts with a zero.
	using namespace std::string_view_literals;
	constexpr std::string_view Ends = "\\:*?\"<>|' ,.&!~\n\r\t@#()=\0"sv;
	std::unordered_set<std::string_view> Seen;
	for (std::size_t At = Text.find('/'); At != std::string_view::npos; At = Text.find('/', At))
	{
		const std::size_t End = std::min(Text.find_first_of(Ends, At), Text.size());
		const std::string_view Name = Text.substr(At, End - At);
		if (Seen.insert(Name).second)
		{
			Visit(Name);
		}
		At = End;
	}
}

static std::string KeyOf(const FString& PackageName)
{
	return ToUtf8(PackageName.ToLower());
}

/** What names all that a package uses: its file, or its text where memory is ahead of the file. */
static std::string TextOf(UPackage& Package)
{
	std::string Text;
	FString Ignored;
	if (!Package.IsDirty())
	{
		AtomicFile::Read(ToUtf8(Package.FileName), Text, Ignored);
		return Text;
	}
	TArray<UObject*> Roots;
	for (UObject* Object = Package.GetFirstInner(); Object; Object = Object->GetNextInner())
	{
		Roots.Add(Object);
	}
	FObjectTextExport::Package(&Package).Write(Roots, Text, Ignored);
	return Text;
}

/** The packages with files in memory, and which of them uses which. */
class FLoadedPackages
{
public:
	FLoadedPackages()
		: Packages(KnownFiles::GetLoaded())
		, Users(static_cast<std::size_t>(Packages.Num()))
	{
	}

	const TArray<UPackage*>& Get() const { return Packages; }

	/** The package itself and whoever uses it, directly or by way of others. */
	FIndices WithUsers(std::size_t Index)
	{
		LearnUsers();
		FIndices Found = {Index};
		std::vector<std::size_t> Pending = {Index};
		while (!Pending.empty())
		{
			const std::size_t Used = Pending.back();
			Pending.pop_back();
			for (const std::size_t User : Users[Used])
			{
				if (Found.insert(User).second)
				{
					Pending.push_back(User);
				}
			}
		}
		return Found;
	}

private:
	/** Reads the text of every package, once. */
	void LearnUsers()
	{
		if (bLearned)
		{
			return;
		}
		bLearned = true;
		std::unordered_map<std::string, std::size_t> ByName;
		for (int32 Index = 0; Index < Packages.Num(); ++Index)
		{
			ByName.emplace(KeyOf(Packages[Index]->GetName()), static_cast<std::size_t>(Index));
		}
		for (int32 Index = 0; Index < Packages.Num(); ++Index)
		{
			VisitPackageNames(TextOf(*Packages[Index]),
				[&](std::string_view Name)
				{
					const auto Used = ByName.find(KeyOf(FromUtf8(Name)));
					if (Used != ByName.end())
					{
						Users[Used->second].insert(static_cast<std::size_t>(Index));
					}
				});
		}
	}

	const TArray<UPackage*> Packages;
	std::vector<FIndices> Users;
	bool bLearned = false;
};

class FTakeIn
{
public:
	void Look()
	{
		for (int32 Index = 0; Index < Loaded.Get().Num(); ++Index)
		{
			const UPackage& Package = *Loaded.Get()[Index];
			if (FPackageText::IsBinaryFile(Package.FileName) && IsOutdatedBinary(Package))
			{
				Changes.Add({Package.GetName(), Package.FileName, false, false, FString(), true});
				Changed.push_back(static_cast<std::size_t>(Index));
				continue;
			}
			AtomicFile::FStamp Ignored;
			FString Reason;
			const KnownFiles::EStanding Standing = KnownFiles::Look(Package.FileName, Ignored, Reason);
			const bool bForeign = Standing == KnownFiles::EStanding::Changed || Standing == KnownFiles::EStanding::Gone;
			if (bForeign && (!Package.IsDirty() || KnownFiles::WasRefused(Package.FileName)))
			{
				Changes.Add({Package.GetName(), Package.FileName, Standing == KnownFiles::EStanding::Gone,
					Package.IsDirty(), FString(), false});
				Changed.push_back(static_cast<std::size_t>(Index));
			}
		}
	}

	void Drop()
	{
		FIndices Dropped;
		for (std::size_t Index = 0; Index < Changed.size(); ++Index)
		{
			const FIndices Affected = Loaded.WithUsers(Changed[Index]);
			FPackageText::FForeignChange& Change = Changes[static_cast<int32>(Index)];
			Change.HeldBy = FindHolder(Affected);
			if (Change.HeldBy.IsEmpty())
			{
				Dropped.insert(Affected.begin(), Affected.end());
			}
		}
		for (const std::size_t Index : Dropped)
		{
			UPackage* const Package = Loaded.Get()[static_cast<int32>(Index)];
			KnownFiles::Forget(Package->FileName);
			Package->MarkAsGarbage();
		}
		CollectGarbage();
		for (const FPackageText::FForeignChange& Change : Changes)
		{
			if (Change.HeldBy.IsEmpty())
			{
				FPackageText::OnFileChanged().Broadcast(Change.PackageName, Change.Filename);
			}
		}
	}

	TArray<FPackageText::FForeignChange> Changes;

private:
	/** A file that is only read goes before what calls did to its objects in memory, and a text copy before the file.
	 */
	static bool IsOutdatedBinary(const UPackage& Package)
	{
		return Package.IsDirty() || !PackageLookup::FindOnDisk(Package.GetName()).IsEmpty();
	}

	/** A package that cannot be read again without losing what it holds. */
	FString FindHolder(const FIndices& Affected) const
	{
		for (const std::size_t Index : Affected)
		{
			const UPackage& Package = *Loaded.Get()[static_cast<int32>(Index)];
			const bool bGoesAnyway = std::find(Changed.begin(), Changed.end(), Index) != Changed.end();
			if (Package.IsDirty() && !bGoesAnyway)
			{
				return Package.GetName();
			}
		}
		return FString();
	}

	FLoadedPackages Loaded;
	/** Parallel to Changes. */
	std::vector<std::size_t> Changed;
};
} // namespace ForeignChanges

TArray<FPackageText::FForeignChange> FPackageText::TakeInForeignChanges()
{
	ForeignChanges::FTakeIn Run;
	Run.Look();
	if (!Run.Changes.IsEmpty())
	{
		Run.Drop();
	}
	return Run.Changes;
}

TMulticastDelegate<void(const FString&, const FString&)>& FPackageText::OnFileChanged()
{
	static TMulticastDelegate<void(const FString&, const FString&)> Listeners;
	return Listeners;
}
