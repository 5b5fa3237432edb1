#include "UObject/SavePackage.h"

#include "Files/AtomicFile.h"
#include "Misc/PackageName.h"
#include "Misc/Paths.h"
#include "ObjectText/ObjectTextWriter.h"
#include "Package/KnownFiles.h"
#include "Package/PackageFile.h"
#include "Standalone/ObjectText.h"
#include "Standalone/PackageText.h"
#include "Standalone/PathConfinement.h"
#include "UObject/Class.h"
#include "UObject/ObjectSaveContext.h"

#include <sys/stat.h>

namespace PackageSaving
{
FPackageText::FFileTags CollectFileTags = nullptr;
FPackageText::FSaveFault Fault;
bool bReadOnlyProject = false;

/** Says that a package is being written for as long as it lives. */
struct FSavingScope
{
	FSavingScope()
		: bBefore(GIsSavingPackage)
	{
		GIsSavingPackage = true;
	}
	~FSavingScope() { GIsSavingPackage = bBefore; }
	FSavingScope(const FSavingScope&) = delete;
	FSavingScope& operator=(const FSavingScope&) = delete;

	const bool bBefore;
};

/** Writes one package. The members are what the steps hand on; each step sets Error when it answers false. */
class FSaveRun
{
public:
	FSaveRun(UPackage& InPackage, UObject& InAsset, const FString& InFilename)
		: Package(InPackage)
		, Asset(InAsset)
		, Filename(InFilename)
	{
	}

	bool Run()
	{
		// Before the save: to gather them may bring classes up to date, and load what these name.
		if (CollectFileTags)
		{
			CollectFileTags(Asset, FileTags);
		}
		const FSavingScope Saving;
		return MayWrite() && Gather() && MakeText() && Store();
	}

	FString Error;
	int64 NumBytes = 0;

private:
	bool Refuse(const TCHAR* Problem)
	{
		Error = FString::Printf(TEXT("Cannot save '%s' to %s: %s"), *Package.GetName(), *Filename, Problem);
		return false;
	}

	bool MayWrite()
	{
		FString Reason;
		if (!FPackageName::IsPackageExtension(*FPaths::GetExtension(Filename, true)))
		{
			return Refuse(
				*FString::Printf(TEXT("packages are saved as '%s' files"), *FPackageName::GetAssetPackageExtension()));
		}
		if (!FPathConfinement::IsInside(Filename, Reason))
		{
			return Refuse(*Reason);
		}
		if (bReadOnlyProject)
		{
			return Refuse(TEXT("the project is open for reading only, as this process does not own it"));
		}
		Reason = Fault.IsSet() ? Fault(Filename) : FString();
		if (!Reason.IsEmpty())
		{
			return Refuse(*Reason);
		}
		return MayReplaceFile();
	}

	bool MayReplaceFile()
	{
		struct stat Info;
		const bool bExists = lstat(TCHAR_TO_UTF8(*Filename), &Info) == 0;
		if (bExists && !S_ISREG(Info.st_mode))
		{
			return Refuse(TEXT("a folder, link or device of that name stands there"));
		}
		if (bExists && (Info.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0)
		{
			return Refuse(TEXT("the file is read-only"));
		}
		const FString EngineAsset = FPackageText::FindEngineAsset(Package.GetName());
		if (!EngineAsset.IsEmpty() && (!bExists || FPackageText::IsBinaryFile(Package.FileName)))
		{
			return Refuse(*FString::Printf(TEXT("the engine's binary asset %s stands at that path"), *EngineAsset));
		}
		const FString Present = bExists ? FString() : FPackageText::FindPackageFile(Package.GetName());
		if (!Present.IsEmpty() && Present.Equals(Filename, ESearchCase::IgnoreCase))
		{
			return Refuse(*FString::Printf(TEXT("the file %s differs from it in case only"), *Present));
		}
		return bExists ? IsOwnFile() : IsNotGone();
	}

	/** What this process knows to stand there is replaced, and nothing else. */
	bool IsOwnFile()
	{
		FString Reason;
		switch (KnownFiles::Look(Filename, Replaced, Reason))
		{
		case KnownFiles::EStanding::AsKnown:
		case KnownFiles::EStanding::Nothing:
		case KnownFiles::EStanding::Gone: // since the first look; the last step sees to it
			return true;
		case KnownFiles::EStanding::Hidden:
			return Refuse(*Reason);
		case KnownFiles::EStanding::Changed:
		case KnownFiles::EStanding::Unknown:
			break;
		}
		if (!PackageFile::IsReadable(Filename, Package.GetName(), Reason))
		{
			KnownFiles::NoteRefusal(Filename);
			return Refuse(*Reason);
		}
		if (!Package.FileName.Equals(Filename, ESearchCase::CaseSensitive))
		{
			return Refuse(TEXT("a file that was not read here stands there, so nothing was written; read it first"));
		}
		KnownFiles::NoteRefusal(Filename);
		return Refuse(TEXT(
			"another program has changed the file since it was read here, so nothing was written. The next call drops what stands changed in memory and reads the file as it is now: make the change again on that"));
	}

	bool IsNotGone()
	{
		FString Reason;
		const KnownFiles::EStanding Standing = KnownFiles::Look(Filename, Replaced, Reason);
		if (Standing == KnownFiles::EStanding::Hidden)
		{
			return Refuse(*Reason);
		}
		if (Standing != KnownFiles::EStanding::Gone || !Package.FileName.Equals(Filename, ESearchCase::CaseSensitive))
		{
			return true;
		}
		KnownFiles::NoteRefusal(Filename);
		return Refuse(TEXT(
			"another program has deleted the file since it was read here, so nothing was written. The next call drops the asset from memory: create it anew if it is still wanted"));
	}

	/** Objects of classes that stand in the package itself come last: reading makes them when those classes are
	 * rebuilt. */
	bool Gather()
	{
		TArray<UObject*> All;
		GetObjectsWithOuter(&Package, All, true);
		for (UObject* const Object : All)
		{
			if (!Object->HasAnyFlags(RF_Transient))
			{
				Object->PreSave();
			}
		}
		TArray<UObject*> OfOwnClass;
		for (UObject* Object = Package.GetFirstInner(); Object; Object = Object->GetNextInner())
		{
			(Object->GetClass()->GetOutermost() == &Package ? OfOwnClass : Roots).Add(Object);
		}
		Roots.Append(OfOwnClass);
		return Asset.GetOuter() == &Package || Refuse(TEXT("its asset lies in another package"));
	}

	bool MakeText()
	{
		FString Reason;
		if (!FObjectTextExport::Package(&Package).Write(Roots, Body, Reason))
		{
			return Refuse(*Reason);
		}
		const FKeptObjectText* const KeptOutermost = FKeptObjectText::Find(&Package);
		FObjectTextWriter Writer(FObjectTextExport::Package(&Package), Body);
		for (std::size_t Index = 0; KeptOutermost && Index < KeptOutermost->Objects.size(); ++Index)
		{
			Writer.WriteKept(KeptOutermost->Objects[Index]);
		}
		// Nothing reaches the disk that could not be read again.
		FObjectTextTree Tree;
		FObjectTextError Unreadable;
		if (!Tree.ParseView(Body, Unreadable))
		{
			return Refuse(*FString::Printf(TEXT("its text could not be read back, %s"), *Unreadable.ToString()));
		}
		Header.PackageName = Package.GetName();
		Header.AssetName = Asset.GetName();
		const FKeptObjectText* const Kept = FKeptObjectText::Find(&Asset);
		Header.AssetClassPath = Kept && !Kept->ClassPath.empty() ? FromUtf8(Kept->ClassPath)
																 : Asset.GetClass()->GetPathName();
		Header.Tags = FPackageText::CollectTags(Asset);
		Header.Tags.Append(FileTags);
		return true;
	}

	bool Store()
	{
		const std::string Path = ToUtf8(Filename);
		const std::string Head = PackageFile::MakeHeader(Header, Body, Header.Checksum);
		AtomicFile::FStamp Stamp;
		FString Reason;
		if (!AtomicFile::MakeFolders(Path.substr(0, Path.rfind('/')), Reason)
			|| !AtomicFile::Write(Path, {Head, Body}, Replaced, Stamp, Reason))
		{
			return Refuse(*Reason);
		}
		KnownFiles::Remember(Filename, Package.GetName(), Stamp, Header.Checksum);
		NumBytes = static_cast<int64>(Head.size() + Body.size());
		return true;
	}

	UPackage& Package;
	UObject& Asset;
	const FString Filename;
	TArray<UObject*> Roots;
	std::string Body;
	FPackageText::FHeader Header;
	TArray<FPackageText::FTag> FileTags;
	/** What was seen to stand at the file's place. */
	AtomicFile::FStamp Replaced;
};

static UObject* FindAsset(UPackage& Package, UObject* Asset, EObjectFlags TopLevelFlags)
{
	if (Asset)
	{
		return Asset;
	}
	UObject* const Found = Package.FindAssetInPackage();
	return Found && (TopLevelFlags == RF_NoFlags || Found->HasAnyFlags(TopLevelFlags)) ? Found : nullptr;
}
} // namespace PackageSaving

void FPackageText::SetFileTags(FFileTags Collect)
{
	PackageSaving::CollectFileTags = Collect;
}

FSavePackageResultStruct UPackage::Save(
	UPackage* InOuter, UObject* InAsset, const TCHAR* Filename, const FSavePackageArgs& SaveArgs)
{
	FSavePackageResultStruct Result;
	UObject* const Asset = InOuter ? PackageSaving::FindAsset(*InOuter, InAsset, SaveArgs.TopLevelFlags) : nullptr;
	if (!Asset)
	{
		Result.ErrorMessage = InOuter
			? FString::Printf(TEXT("Cannot save '%s': the package holds no asset"), *InOuter->GetName())
			: FString(TEXT("Cannot save: there is no package"));
	}
	else
	{
		PackageSaving::FSaveRun Run(*InOuter, *Asset, FPaths::ConvertRelativePathToFull(Filename));
		if (Run.Run())
		{
			Result.Result = ESavePackageResult::Success;
			Result.TotalFileSize = Run.NumBytes;
			InOuter->FileName = FPaths::ConvertRelativePathToFull(Filename);
			InOuter->PackageFlags &= ~static_cast<uint32>(PKG_NewlyCreated);
			InOuter->ClearDirtyFlag();
			PackageSavedWithContextEvent.Broadcast(InOuter->FileName, InOuter, FObjectPostSaveContext());
			return Result;
		}
		Result.ErrorMessage = Run.Error;
	}
	PackageFile::NoteProblem(Result.ErrorMessage);
	if (SaveArgs.Error)
	{
		SaveArgs.Error->Log(ELogVerbosity::Error, Result.ErrorMessage);
	}
	return Result;
}

bool UPackage::SavePackage(UPackage* InOuter, UObject* InAsset, const TCHAR* Filename, const FSavePackageArgs& SaveArgs)
{
	return Save(InOuter, InAsset, Filename, SaveArgs).IsSuccessful();
}

UPackage::FOnPackageSaved UPackage::PackageSavedWithContextEvent;

void FPackageText::SetReadOnly(bool bReadOnly)
{
	PackageSaving::bReadOnlyProject = bReadOnly;
}

void FPackageText::SetSaveFault(FSaveFault InFault)
{
	PackageSaving::Fault = MoveTemp(InFault);
}

namespace PackagesKept
{
static bool MayBeSaved(UPackage*, const FString& File, FOutputDevice* Error)
{
	if (!File.EndsWith(TEXT(".uasset")) && !File.EndsWith(TEXT(".umap")))
	{
		return true;
	}
	if (Error)
	{
		Error->Log(FString::Printf(
			TEXT(
				"%s is a binary package of the engine's editor, which is only read here. 'morvane import PATH [--to /Game/...]' "
				"makes a text copy to work on; 'morvane copy PATH GRAPH' gives a graph as clipboard text for the editor."),
			*File));
	}
	return false;
}
} // namespace PackagesKept

FCoreUObjectDelegates::FIsPackageOKToSaveDelegate FCoreUObjectDelegates::IsPackageOKToSaveDelegate =
	FCoreUObjectDelegates::FIsPackageOKToSaveDelegate::CreateStatic(&PackagesKept::MayBeSaved);
