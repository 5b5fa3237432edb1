#include "Standalone/PackageText.h"

#include "BinaryPackage/BinaryPackageText.h"
#include "Files/AtomicFile.h"
#include "Files/PackageLookup.h"
#include "Misc/OutputDeviceRedirector.h"
#include "Misc/PackageName.h"
#include "Objects/ObjectConstruction.h"
#include "Package/BinaryGaps.h"
#include "Package/KnownFiles.h"
#include "Package/LikelyParent.h"
#include "Package/LoadWarnings.h"
#include "Package/PackageFile.h"
#include "Standalone/LoadedStructure.h"
#include "Standalone/MissingObjects.h"
#include "Standalone/ObjectProviders.h"
#include "Standalone/ObjectText.h"
#include "Standalone/PathConfinement.h"
#include "UObject/Class.h"
#include "UObject/Package.h"

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <unordered_set>

/**
 * Reading a package. Objects come first and values after, so that packages may refer to each other in circles: whoever
 * is asked for in the middle of its own load is answered with objects that exist and are not filled yet.
 *
 * What waits for PostLoad waits until the outermost package has its values. Then each package is finished, the one with
 * the parent class before the one with the child: PostLoad rebuilds the classes that the package generates, and after
 * that the objects of those classes (the class defaults) get their values.
 */
namespace PackageLoading
{
DEFINE_LOG_CATEGORY(LogPackage);

enum class EStage
{
	Making,
	Filling,
	Filled,
	Finishing,
	Finished,
};

static FString PackageNameOf(const FString& ClassPath)
{
	return FPackageName::ObjectPathToPackageName(FPackageName::ExportTextPathToObjectPath(ClassPath));
}

class FPackageLoad;
/** Packages between their first object and the end of their PostLoad, oldest first. */
static std::vector<std::shared_ptr<FPackageLoad>>& Running()
{
	static std::vector<std::shared_ptr<FPackageLoad>> List;
	return List;
}

static std::unordered_map<std::string, FString>& Errors()
{
	static std::unordered_map<std::string, FString> Table;
	return Table;
}

static std::string ErrorKey(const FString& PackageName)
{
	return ToUtf8(PackageName.ToLower());
}

UPackage* Load(const FString& PackageName, uint32 LoadFlags);
void FinishPackage(const FString& PackageName);

class FPackageLoad
{
public:
	FPackageLoad(std::string InBytes, FString InFilename)
		: Bytes(MoveTemp(InBytes))
		, Filename(MoveTemp(InFilename))
		, Warnings(Filename)
		, Import(Warnings, false)
	{
	}

	/** False when the bytes are no package, or another one than expected (empty: any will do); nothing was made then.
	 */
	bool Read(const FString& ExpectedName)
	{
		if (!FPackageText::CheckBytes(Bytes, Filename, Header, Error))
		{
			return false;
		}
		if (!ExpectedName.IsEmpty() && !Header.PackageName.Equals(ExpectedName, ESearchCase::IgnoreCase))
		{
			Error = FString::Printf(
				TEXT("%s: the file holds the package '%s', not '%s'"), *Filename, *Header.PackageName, *ExpectedName);
			return false;
		}
		OwnClassPrefix = ToUtf8(Header.PackageName) + ".";
		FObjectTextError Unreadable;
		if (!Tree.ParseView(std::string_view(Bytes).substr(static_cast<std::size_t>(Header.BodyOffset)), Unreadable,
				Header.BodyLine))
		{
			Error = FString::Printf(TEXT("%s, line %d: %s"), *Filename, Unreadable.LineNumber, *Unreadable.Message);
			return false;
		}
		return true;
	}

	bool MakeObjects()
	{
		Package = CreatePackage(*Header.PackageName);
		Package->FileName = Filename;
		MakeOutermost();
		if (!Asset)
		{
			Error = FString::Printf(TEXT("%s: the class '%s' of its asset '%s' is not known"), *Filename,
				*Header.AssetClassPath, *Header.AssetName);
			Abandon();
			return false;
		}
		LoadClassesOfOthers();
		bClassesOfOthersLoaded = true;
		GiveClassesTheirParent(TEXT("ParentClass"));
		const std::size_t NumOutermost = Made.size();
		for (std::size_t Index = 0; Index < NumOutermost; ++Index)
		{
			MakeInner(*Made[Index].Record, Made[Index].Object);
		}
		return true;
	}

	void Fill()
	{
		Stage = EStage::Filling;
		FillPartsOfClasses();
		FillFrom(0);
		Stage = EStage::Filled;
	}

	void Finish()
	{
		Stage = EStage::Finishing;
		if (const FString* const Parent = Header.FindTag(TEXT("ParentClass")))
		{
			FinishPackage(PackageNameOf(*Parent));
		}
		FillOverrides();
		PostLoadFrom(0);
		const std::size_t NumBefore = Made.size();
		bOwnClassesReady = true;
		const std::vector<FDeferred> Ready = MoveTemp(Deferred);
		for (const FDeferred& Waiting : Ready)
		{
			Make(*Waiting.Record, Waiting.Outer, true);
		}
		FillFrom(NumBefore);
		PostLoadFrom(NumBefore);
		Package->ClearDirtyFlag();
		Stage = EStage::Finished;
	}

	void TellWarnings() { Warnings.Flush(); }

	EStage Stage = EStage::Making;
	FPackageText::FHeader Header;
	UPackage* Package = nullptr;
	FString Error;

private:
	struct FDeferred
	{
		const FObjectTextRecord* Record;
		UObject* Outer;
	};
	struct FMade
	{
		const FObjectTextRecord* Record;
		UObject* Object;
		int32 Depth;
		bool bFilled = false;
	};

	bool IsOfOwnClass(const FObjectTextRecord& Record) const
	{
		return Record.ClassPath.substr(0, OwnClassPrefix.size()) == OwnClassPrefix;
	}

	void MakeOutermost()
	{
		for (const FObjectTextRecord& Record : Tree.Objects)
		{
			UObject* const Object = Make(Record, Package, false);
			if (Object && Object->GetName().Equals(Header.AssetName, ESearchCase::IgnoreCase))
			{
				Asset = Object;
			}
		}
		GiveClassesTheirParent(TEXT("NativeParentClass"));
	}

	/**
	 * A class shell needs a parent before it is rebuilt, so that a reference to it is one to a class of the right kind.
	 * First the native one, which is always there, then the real one when its package was read.
	 */
	void GiveClassesTheirParent(const TCHAR* TagName)
	{
		const FString* const Tag = Header.FindTag(TagName);
		UClass* Parent = Tag ? FindObject<UClass>(nullptr, FPackageName::ExportTextPathToObjectPath(*Tag)) : nullptr;
		for (const FMade& Entry : Made)
		{
			UClass* const Shell = Entry.Object->GetOuter() == Package ? Cast<UClass>(Entry.Object) : nullptr;
			const bool bCircular = Parent && Shell && Parent->IsChildOf(Shell);
			if (Shell && Parent && !bCircular)
			{
				Shell->SetSuperStruct(Parent);
			}
			else if (Shell && Tag && !Parent && bClassesOfOthersLoaded)
			{
				Shell->SetSuperStruct(MissingParent(*Tag, Shell->GetSuperClass()));
			}
			else if (Shell && !Shell->GetSuperClass())
			{
				Shell->SetSuperStruct(UObject::StaticClass());
			}
		}
	}

	/** The lowest class that must stand between the missing parent, or the native one above it, and what is known. */
	UClass* LikelyLine(const FString& Parent, const FString& Native) const
	{
		const LikelyParent::FLine Line = LikelyParent::Find(Tree, Header.AssetClassPath);
		UClass* Lowest = Line.Base;
		for (const FString& Path : Line.Unknown)
		{
			UClass* const Class = Path == Parent || Path == Native ? nullptr
																   : FMissingObjects::StandInForClass(Path, *Lowest);
			Lowest = Class && Class->IsChildOf(Lowest) ? Class : Lowest;
		}
		return Lowest;
	}

	/** The stand-in for a parent class that is missing, with as much of its line as the package tells. */
	UClass* MissingParent(const FString& Tag, UClass* NativeParent) const
	{
		const FString* const NativeTag = Header.FindTag(TEXT("NativeParentClass"));
		const FString Native = NativeTag ? FPackageName::ExportTextPathToObjectPath(*NativeTag) : FString();
		const bool bKnown = NativeParent && NativeParent != UObject::StaticClass();
		UClass* Base = bKnown ? NativeParent : LikelyLine(FPackageName::ExportTextPathToObjectPath(Tag), Native);
		if (NativeTag && *NativeTag != Tag && !FindObject<UClass>(nullptr, Native))
		{
			// A Blueprint stands between, and native code that is not known either.
			UClass* const Between = FMissingObjects::StandInForClass(Native, *Base);
			Base = Between && Between->IsChildOf(Base) ? Between : Base;
		}
		int32 Quote = INDEX_NONE;
		const FString ClassPath = Tag.FindChar(TEXT('\''), Quote) ? Tag.Left(Quote) : FString();
		UClass* const Parent = FMissingObjects::StandInForClass(
			FPackageName::ExportTextPathToObjectPath(Tag), *Base, ClassPath);
		return Parent ? Parent : Base;
	}

	/** The record's object, null when it waits for its class or can only be kept as text. */
	UObject* Make(const FObjectTextRecord& Record, UObject* Outer, bool bWithInner)
	{
		if (!bOwnClassesReady && IsOfOwnClass(Record))
		{
			Deferred.push_back({&Record, Outer});
			return nullptr;
		}
		UObject* const Object = MakeOrFind(Record, Outer);
		if (!Object)
		{
			const bool bIsAsset = Outer == Package
				&& Record.GetName().Equals(Header.AssetName, ESearchCase::IgnoreCase);
			if (!bIsAsset)
			{
				KeepRecord(Record, Outer);
			}
			return nullptr;
		}
		Object->SetFlags(static_cast<EObjectFlags>(Record.Flags | RF_NeedLoad | RF_NeedPostLoad | RF_WasLoaded));
		Made.push_back({&Record, Object, DepthOf(Outer)});
		if (bWithInner)
		{
			MakeInner(Record, Object);
		}
		return Object;
	}

	void KeepRecord(const FObjectTextRecord& Record, UObject* Outer)
	{
		FNoWarnings Told;
		const bool bTold = IsEngineFile() && !Record.ClassPath.empty();
		FKeptObjectText::KeepRecord(Record, Outer, bTold ? static_cast<FFeedbackContext&>(Told) : Warnings);
		if (bTold)
		{
			Warnings.AddMissingClass(Record.GetClassPath());
		}
	}

	bool IsEngineFile() const { return FPackageText::IsBinaryFile(Filename); }

	void MakeInner(const FObjectTextRecord& Record, UObject* Object)
	{
		for (const FObjectTextRecord& Inner : Record.Inner)
		{
			Make(Inner, Object, true);
		}
	}

	UObject* MakeOrFind(const FObjectTextRecord& Record, UObject* Outer)
	{
		if (Record.ClassPath.empty())
		{
			return FObjectTextImport::DefaultFactory(Record, Outer);
		}
		const auto [Entry, bAdded] = Classes.try_emplace(Record.ClassPath, nullptr);
		if (bAdded)
		{
			Entry->second = FObjectTextImport::FindClass(Record.ClassPath);
		}
		UClass* const Class = Entry->second;
		if (!Class || !Class->GetNativeClass())
		{
			// What was asked for before is not this record's.
			FMissingObjects::TakeAsked();
			UObject* const StandIn = Class ? nullptr : FObjectTextImport::DefaultFactory(Record, Outer);
			if (StandIn && IsEngineFile())
			{
				Warnings.AddMissingClass(Record.GetClassPath());
			}
			else if (StandIn)
			{
				Warnings.Logf(TEXT("line %d: the class '%s' of '%s' is missing; the object is kept as it is"),
					Record.LineNumber, *Record.GetClassPath(), *StandIn->GetPathName());
			}
			return StandIn;
		}
		const FString Name = Record.GetName();
		if (Outer == Package && Name.StartsWith(TEXT("Default__"), ESearchCase::CaseSensitive))
		{
			UObject* const Default = Class->GetDefaultObject();
			if (Default && Default->GetName().Equals(Name, ESearchCase::IgnoreCase))
			{
				return Default;
			}
		}
		return NewObject<UObject>(Outer, Class, FName(Name), Record.Flags);
	}

	static int32 DepthOf(const UObject* Outer)
	{
		int32 Depth = 0;
		for (; Outer; Outer = Outer->GetOuter())
		{
			++Depth;
		}
		return Depth;
	}

	/** Classes that other packages generate are rebuilt before objects of them are made here. */
	void LoadClassesOfOthers()
	{
		TArray<FString> Wanted;
		if (const FString* const Parent = Header.FindTag(TEXT("ParentClass")))
		{
			Wanted.AddUnique(PackageNameOf(*Parent));
		}
		for (const FObjectTextRecord& Record : Tree.Objects)
		{
			CollectClassPackages(Record, Wanted);
		}
		for (const FString& PackageName : Wanted)
		{
			if (!FPackageName::IsScriptPackage(PackageName) && PackageName != Header.PackageName)
			{
				Load(PackageName, LOAD_None);
				FinishPackage(PackageName);
			}
		}
	}

	static void CollectClassPackages(const FObjectTextRecord& Record, TArray<FString>& OutPackages)
	{
		for (const FObjectTextRecord& Inner : Record.Inner)
		{
			if (Inner.ClassPath.substr(0, 8) != "/Script/" && Inner.ClassPath.substr(0, 1) == "/")
			{
				OutPackages.AddUnique(PackageNameOf(Inner.GetClassPath()));
			}
			CollectClassPackages(Inner, OutPackages);
		}
	}

	void FillOne(FMade& Entry)
	{
		Entry.bFilled = true;
		FMissingObjects::TakeAsked();
		Warnings.SetObject(*Entry.Object);
		Import.ImportInto(Entry.Object, *Entry.Record);
		Entry.Object->ClearFlags(RF_NeedLoad);
	}

	static bool IsPartOfClass(const FMade& Entry) { return Entry.Object->GetOuter()->IsA(UClass::StaticClass()); }

	/** What a class says of its templates is there before them. */
	void FillPartsOfClasses()
	{
		const FMissingObjects::FScope Keeping;
		for (FMade& Entry : Made)
		{
			if (IsPartOfClass(Entry) && !Entry.Object->HasAnyFlags(RF_ArchetypeObject))
			{
				FillOne(Entry);
			}
		}
	}

	static bool IsOverride(const FMade& Entry)
	{
		const auto Answer = ObjectProviders::GetTemplates().IsOverride;
		return Answer && Entry.Object->HasAnyFlags(RF_ArchetypeObject) && IsPartOfClass(Entry) && Answer(*Entry.Object);
	}

	/** Templates that change a parent's start from that one, which has its values by now. */
	void FillOverrides()
	{
		const FMissingObjects::FScope Keeping;
		for (FMade& Entry : Made)
		{
			if (!Entry.bFilled)
			{
				UObject* const Archetype = Entry.Object->GetArchetype();
				ObjectConstruction::CopyProperties(Entry.Object, Archetype, false);
				FillOne(Entry);
			}
		}
	}

	/** Values of a package can load others, which come back here with loads of their own; this list does not grow by
	 * that. */
	void FillFrom(std::size_t First)
	{
		const FMissingObjects::FScope Keeping;
		for (std::size_t Index = First; Index < Made.size(); ++Index)
		{
			if (!Made[Index].bFilled && !IsOverride(Made[Index]))
			{
				FillOne(Made[Index]);
			}
		}
		TArray<UObject*> Objects;
		for (std::size_t Index = First; Index < Made.size(); ++Index)
		{
			Objects.Add(Made[Index].Object);
		}
		FCutWarnings Cut(Filename);
		LoadedStructure::Settle(Objects, Cut);
	}

	/** Inner objects before outer ones and the asset last, so that whoever looks down finds everything ready. */
	void PostLoadFrom(std::size_t First)
	{
		std::vector<FMade> Order(Made.begin() + static_cast<std::ptrdiff_t>(First), Made.end());
		std::stable_sort(Order.begin(), Order.end(),
			[this](const FMade& Left, const FMade& Right) {
				return Left.Depth != Right.Depth ? Left.Depth > Right.Depth
												 : Left.Object != Asset && Right.Object == Asset;
			});
		for (const FMade& Entry : Order)
		{
			Entry.Object->ConditionalPostLoad();
		}
	}

	void Abandon()
	{
		for (const FMade& Entry : Made)
		{
			Entry.Object->MarkAsGarbage();
		}
		Package->MarkAsGarbage();
	}

	const std::string Bytes;
	const FString Filename;
	FFileWarnings Warnings;
	FObjectTextImport Import;
	FObjectTextTree Tree;
	std::string OwnClassPrefix;
	UObject* Asset = nullptr;
	bool bClassesOfOthersLoaded = false;
	bool bOwnClassesReady = false;
	std::vector<FMade> Made;
	std::vector<FDeferred> Deferred;
	std::unordered_map<std::string_view, UClass*> Classes;
};

void FinishPackage(const FString& PackageName)
{
	const std::vector<std::shared_ptr<FPackageLoad>> Now = Running();
	for (const std::shared_ptr<FPackageLoad>& Other : Now)
	{
		if (Other->Stage == EStage::Filled && Other->Header.PackageName.Equals(PackageName, ESearchCase::IgnoreCase))
		{
			Other->Finish();
		}
	}
}

/** How many packages are between their first object and their last value. */
int32 NumFilling = 0;

static void FinishAll()
{
	const std::vector<std::shared_ptr<FPackageLoad>> Now = Running();
	for (const std::shared_ptr<FPackageLoad>& Waiting : Now)
	{
		if (Waiting->Stage == EStage::Filled)
		{
			Waiting->Finish();
		}
	}
	std::erase_if(Running(), [](const std::shared_ptr<FPackageLoad>& Done) { return Done->Stage == EStage::Finished; });
	FMissingObjects::Bind();
	for (const std::shared_ptr<FPackageLoad>& Done : Now)
	{
		Done->TellWarnings();
	}
}

static UPackage* RunLoad(const std::shared_ptr<FPackageLoad>& Run, const FString& ExpectedName, FString& OutError)
{
	if (!Run->Read(ExpectedName))
	{
		OutError = Run->Error;
		return nullptr;
	}
	++NumFilling;
	Running().push_back(Run);
	const bool bMade = Run->MakeObjects();
	if (bMade)
	{
		Run->Fill();
	}
	else
	{
		std::erase(Running(), Run);
		OutError = Run->Error;
	}
	--NumFilling;
	if (NumFilling == 0)
	{
		FinishAll();
	}
	return bMade ? Run->Package : nullptr;
}

/** A package that somebody made in memory only, without anything in it, does not stand for the file. */
static UPackage* FindLoaded(const FString& PackageName)
{
	UPackage* const Package = FindPackage(nullptr, *PackageName);
	return Package && (Package->GetFirstInner() || !Package->FileName.IsEmpty()) ? Package : nullptr;
}

/** Empty, with a reason, when there is no file that may be read. */
static FString FindFile(const FString& PackageName, FString& OutError, bool& bOutMissing)
{
	const FString OwnFile = PackageLookup::FindOnDisk(PackageName);
	const FString Filename = OwnFile.IsEmpty() ? FPackageText::FindEngineAsset(PackageName) : OwnFile;
	if (Filename.IsEmpty())
	{
		bOutMissing = true;
		OutError = FString::Printf(TEXT("There is no package '%s'"), *PackageName);
		return FString();
	}
	return FPathConfinement::IsInside(Filename, OutError) ? Filename : FString();
}

/** Bytes of the engine's own package become those of one of ours. */
static bool TurnIntoText(std::string& Bytes, const FString& PackageName, const FString& Filename,
	FBinaryPackageFindings& OutFindings, FString& OutError)
{
	std::string Text;
	std::string Refusal;
	if (!MakePackageTextOfBinary(Bytes, ToUtf8(PackageName), Text, OutFindings, Refusal))
	{
		OutError = FString::Printf(TEXT("%s: %s"), *Filename, *FromUtf8(Refusal));
		return false;
	}
	Bytes = MoveTemp(Text);
	return true;
}

/** Whoever called for the package is told of damage, and once of all values that nobody knows. */
static void SayFindings(const FBinaryPackageFindings& Findings, const FString& Filename)
{
	constexpr std::size_t MaxSaid = 5;
	const auto Say = [&Filename](const FString& Text)
	{
		UE_LOG(LogPackage, Warning, TEXT("%s: %s"), *Filename, *Text);
		PackageFile::NoteProblem(FString::Printf(TEXT("%s: %s"), *Filename, *Text));
	};
	for (std::size_t Index = 0; Index < std::min(MaxSaid, Findings.Warnings.size()); ++Index)
	{
		Say(FromUtf8(Findings.Warnings[Index]));
	}
	if (Findings.Warnings.size() > MaxSaid)
	{
		Say(FString::Printf(TEXT("%d more like these"), static_cast<int32>(Findings.Warnings.size() - MaxSaid)));
	}
	for (const FBinaryPackageFindings::FLeftOut& LeftOut : Findings.LeftOut)
	{
		const UObject* const Object = StaticFindObject(nullptr, nullptr, *FromUtf8(LeftOut.Object));
		if (Object && !BinaryGaps::IsUnseen(*Object))
		{
			BinaryGaps::AddNotUnderstood(Filename, FromUtf8(LeftOut.Object + ": " + LeftOut.Value));
		}
	}
}

/** A text package goes before the engine's own of the same path, which somebody may go on working at. Told once. */
static void TellWhatItHides(const FString& Filename, const FString& PackageName, const AtomicFile::FStamp& Stamp)
{
	static std::unordered_set<std::string> Told;
	const FString Hidden = FPackageText::FindEngineAsset(PackageName);
	if (Hidden.IsEmpty() || !Told.insert(ToUtf8(Filename)).second)
	{
		return;
	}
	const AtomicFile::FStamp OfHidden = AtomicFile::StampOf(ToUtf8(Hidden));
	const bool bNewer = OfHidden.Seconds > Stamp.Seconds;
	PackageFile::NoteProblem(FString::Printf(TEXT("%s goes before the binary package %s of the same path%s"), *Filename,
		*Hidden, bNewer ? TEXT(", which was saved later") : TEXT("")));
}

static UPackage* LoadFile(const FString& PackageName, FString& OutError, bool& bOutMissing)
{
	if (GIsSavingPackage)
	{
		OutError = FString::Printf(TEXT("Cannot load '%s' while a package is being saved"), *PackageName);
		return nullptr;
	}
	const FString Filename = FindFile(PackageName, OutError, bOutMissing);
	AtomicFile::FStamp Stamp;
	std::string Bytes;
	FString Reason;
	if (Filename.IsEmpty() || !AtomicFile::Read(ToUtf8(Filename), Bytes, Reason, &Stamp))
	{
		OutError = OutError.IsEmpty() ? FString::Printf(TEXT("%s: %s"), *Filename, *Reason) : OutError;
		return nullptr;
	}
	FBinaryPackageFindings Findings;
	const bool bBinary = FPackageText::IsBinaryFile(Filename);
	const uint64 Checksum = bBinary ? PackageFile::ChecksumOf(Bytes) : 0;
	if (bBinary && !TurnIntoText(Bytes, PackageName, Filename, Findings, OutError))
	{
		return nullptr;
	}
	const auto Run = std::make_shared<FPackageLoad>(MoveTemp(Bytes), Filename);
	UPackage* const Package = RunLoad(Run, PackageName, OutError);
	SayFindings(Findings, Filename);
	if (Package)
	{
		KnownFiles::Remember(Filename, Package->GetName(), Stamp, bBinary ? Checksum : Run->Header.Checksum);
		if (!bBinary)
		{
			TellWhatItHides(Filename, Package->GetName(), Stamp);
		}
	}
	return Package;
}

UPackage* Load(const FString& PackageName, uint32 LoadFlags)
{
	if (UPackage* const Loaded = FindLoaded(PackageName))
	{
		return Loaded;
	}
	FString Error;
	bool bMissing = false;
	UPackage* const Package = LoadFile(PackageName, Error, bMissing);
	if (Package)
	{
		Errors().erase(ErrorKey(PackageName));
		return Package;
	}
	// A caller that tries several kinds of asset asks for the same file again; once told is enough, unless somebody
	// listens just now.
	FString& LastError = Errors()[ErrorKey(PackageName)];
	const bool bTold = LastError.Equals(Error, ESearchCase::CaseSensitive)
		&& !FOutputDeviceRedirector::Get()->HasOutputDevices();
	LastError = Error;
	if (bMissing)
	{
		UE_CLOG(!bTold, LogPackage, Verbose, TEXT("%s"), *Error);
		return nullptr;
	}
	PackageFile::NoteProblem(Error);
	UE_CLOG(!bTold && !(LoadFlags & (LOAD_Quiet | LOAD_NoWarn)), LogPackage, Warning, TEXT("%s"), *Error);
	return nullptr;
}

static UPackage* LoadFromView(FStringView LongPackageName, uint32 LoadFlags)
{
	return Load(FString(LongPackageName), LoadFlags);
}
} // namespace PackageLoading

void FPackageText::RegisterLoader()
{
	// Others may have put theirs before this one by now.
	if (ObjectProviders::GetPackageLoader().Load)
	{
		return;
	}
	ObjectProviders::FPackageLoader Loader;
	Loader.Load = &PackageLoading::LoadFromView;
	ObjectProviders::SetPackageLoader(Loader);
}

FString FPackageText::GetLastLoadError(const FString& LongPackageName)
{
	const auto Found = PackageLoading::Errors().find(PackageLoading::ErrorKey(LongPackageName));
	return Found == PackageLoading::Errors().end() ? FString() : Found->second;
}

void FPackageText::NoteWhyUnknown(const FString& LongPackageName)
{
	FString Error;
	FHeader Header;
	bool bMissing = false;
	const FString Filename = PackageLoading::FindFile(LongPackageName, Error, bMissing);
	if (!bMissing && (Filename.IsEmpty() || !ReadHeader(Filename, Header, Error)))
	{
		PackageFile::NoteProblem(Error);
	}
}

UPackage* FPackageText::LoadFromBytes(std::string Bytes, const FString& Filename, FString& OutError)
{
	return PackageLoading::RunLoad(
		std::make_shared<PackageLoading::FPackageLoad>(MoveTemp(Bytes), Filename), FString(), OutError);
}
