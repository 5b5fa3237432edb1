#include "Standalone/Catalogue.h"

#include "Catalogue/CatalogueObjects.h"
#include "Objects/ObjectTable.h"
#include "Standalone/ObjectProviders.h"
#include "UObject/Package.h"

// The packed engine catalogue; the build links it in as read-only data.
extern "C" const char MorvaneCatalogueBegin[];
extern "C" const char MorvaneCatalogueEnd[];

namespace Catalogue
{
namespace CatalogueState
{
constexpr uint32 EngineId = 1;
/** Ids of project images; a later project gets a new one, so that what an earlier one left pending finds no wrong rows.
 */
constexpr uint32 FirstProjectId = 2;
constexpr uint32 LastProjectId = 255;

FLoadedImage* EngineImage = nullptr;
FLoadedImage* ProjectImage = nullptr;
uint32 NextProjectId = FirstProjectId;

static bool EqualsPath(std::string_view Stored, FStringView PackageName, FStringView ObjectName)
{
	const std::size_t PackageLength = PackageName.ToStdView().size();
	const std::wstring_view Pieces[] = {PackageName.ToStdView(), ObjectName.ToStdView()};
	if (Stored.size() != PackageLength + 1 + Pieces[1].size() || Stored[PackageLength] != '.')
	{
		return false;
	}
	const auto SameText = [](std::string_view Bytes, std::wstring_view Text)
	{
		for (std::size_t Index = 0; Index < Text.size(); ++Index)
		{
			if (FoldAscii(static_cast<unsigned char>(Bytes[Index])) != FoldAscii(static_cast<uint32>(Text[Index])))
			{
				return false;
			}
		}
		return true;
	};
	return SameText(Stored.substr(0, PackageLength), Pieces[0])
		&& SameText(Stored.substr(PackageLength + 1), Pieces[1]);
}

static UPackage* GetScriptPackage(FStringView Name)
{
	const FName PackageName(Name);
	if (UObject* const Found = FObjectTable::Get().Find(nullptr, PackageName))
	{
		return static_cast<UPackage*>(Found);
	}
	UPackage* const Package = CreatePackage(*PackageName.ToString());
	Package->PackageFlags |= PKG_CompiledIn;
	return Package;
}
} // namespace CatalogueState

FLoadedImage::FLoadedImage(uint32 InId, std::string_view Bytes)
	: Id(InId)
	, View(Bytes)
	, Owners(View.NumOwners())
	, References(View.Num(ETable::References))
{
}

FLoadedImage::FLoadedImage(uint32 InId, std::string&& Bytes)
	: Id(InId)
	, Storage(MoveTemp(Bytes))
	, View(Storage)
	, Owners(View.NumOwners())
	, References(View.Num(ETable::References))
{
}

uint32 FLoadedImage::FindOwner(FStringView PackageName, FStringView ObjectName) const
{
	const uint32 PackageHash = HashText(std::string_view("."), HashText(PackageName.ToStdView()));
	return View.FindByPathHash(HashText(ObjectName.ToStdView(), PackageHash),
		[&](std::string_view Stored) { return CatalogueState::EqualsPath(Stored, PackageName, ObjectName); });
}

uint32 FLoadedImage::FindOwner(FStringView Path) const
{
	int32 Dot = INDEX_NONE;
	return Path.FindChar(TEXT('.'), Dot) ? FindOwner(Path.Left(Dot), Path.RightChop(Dot + 1)) : NoIndex;
}

UObject* FLoadedImage::GetOwnerObject(uint32 Owner)
{
	UObject*& Known = Owners[Owner];
	if (Known)
	{
		return Known;
	}
	const FString Path = FromUtf8(View.Text(View.Owner(Owner).Path));
	const FStringView PathView(Path);
	int32 Dot = INDEX_NONE;
	int32 Colon = INDEX_NONE;
	PathView.FindChar(TEXT('.'), Dot);
	UObject* Outer = nullptr;
	if (PathView.FindChar(TEXT(':'), Colon))
	{
		Outer = FCatalogue::Get().FindOrCreate(PathView.Left(Colon));
	}
	else
	{
		Outer = CatalogueState::GetScriptPackage(PathView.Left(Dot));
	}
	if (!Outer)
	{
		return nullptr;
	}
	const FName Name(PathView.RightChop((Colon == INDEX_NONE ? Dot : Colon) + 1));
	Known = FObjectTable::Get().Find(Outer, Name);
	if (!Known)
	{
		Known = MakeOwner(*this, Owner, Outer, Name);
		Made.push_back(Known);
	}
	return Known;
}

void FLoadedImage::Discard()
{
	for (UObject* const Object : Made)
	{
		// The object system protects what is compiled in, which a project's data only poses as.
		UPackage* const Package = Object->GetPackage();
		const uint32 Flags = Package->PackageFlags;
		Package->PackageFlags &= ~static_cast<uint32>(PKG_CompiledIn);
		Object->MarkAsGarbage();
		Package->PackageFlags = Flags;
	}
	Made.clear();
}

UObject* FLoadedImage::Resolve(FReference Reference)
{
	if (Reference == NoIndex)
	{
		return nullptr;
	}
	if (!References[Reference])
	{
		References[Reference] = FCatalogue::Get().FindOrCreate(FromUtf8(View.Reference(Reference)));
	}
	return References[Reference];
}

FLoadedImage* FindImage(uint32 Id)
{
	using namespace CatalogueState;
	for (FLoadedImage* const Image : {EngineImage, ProjectImage})
	{
		if (Image && Image->GetId() == Id)
		{
			return Image;
		}
	}
	return nullptr;
}

UClass* KindOf(EOwnerKind Kind)
{
	switch (Kind)
	{
	case EOwnerKind::Class:
		return UClass::StaticClass();
	case EOwnerKind::Struct:
		return UScriptStruct::StaticClass();
	case EOwnerKind::Enum:
		return UEnum::StaticClass();
	case EOwnerKind::Delegate:
		return UDelegateFunction::StaticClass();
	}
	return nullptr;
}

/** The answers to the object system's questions. */
namespace CatalogueProvider
{
template <class TVisit>
void ForEachImage(TVisit&& Visit)
{
	for (FLoadedImage* const Image : {CatalogueState::EngineImage, CatalogueState::ProjectImage})
	{
		if (Image)
		{
			Visit(*Image);
		}
	}
}

static UObject* FindByPath(FStringView PackageName, FStringView ObjectName)
{
	UObject* Found = nullptr;
	ForEachImage(
		[&](FLoadedImage& Image)
		{
			const uint32 Owner = Found ? NoIndex : Image.FindOwner(PackageName, ObjectName);
			Found = Owner == NoIndex ? Found : Image.GetOwnerObject(Owner);
		});
	return Found;
}

static UObject* FindByShortName(FStringView ObjectName, const UClass* Kind)
{
	const std::string Name = ToUtf8(ObjectName);
	UObject* Found = nullptr;
	ForEachImage(
		[&](FLoadedImage& Image)
		{
			const FImageView& View = Image.GetView();
			for (uint32 Owner = View.FirstByNameHash(HashText(Name)); Owner != NoIndex && !Found;
				 Owner = View.Owner(Owner).NextByName)
			{
				const FString Candidate = FromUtf8(ShortName(View.Text(View.Owner(Owner).Path)));
				if (Candidate.Equals(FString(ObjectName), ESearchCase::IgnoreCase)
					&& KindOf(View.Owner(Owner).Kind)->IsChildOf(Kind))
				{
					Found = Image.GetOwnerObject(Owner);
				}
			}
		});
	return Found;
}

static void MakeAll(const UClass* Kind)
{
	ForEachImage(
		[Kind](FLoadedImage& Image)
		{
			bool bWanted[4] = {};
			bool bAny = false;
			for (uint32 Index = 0; Index < 4; ++Index)
			{
				bWanted[Index] = !Image.bMadeAll[Index] && KindOf(static_cast<EOwnerKind>(Index))->IsChildOf(Kind);
				Image.bMadeAll[Index] |= bWanted[Index];
				bAny |= bWanted[Index];
			}
			for (uint32 Owner = 0; bAny && Owner < Image.GetView().NumOwners(); ++Owner)
			{
				if (bWanted[static_cast<uint32>(Image.GetView().Owner(Owner).Kind)])
				{
					Image.GetOwnerObject(Owner);
				}
			}
		});
}

/** Calls Visit(Image, Record) for the record of a class or struct. */
template <class TVisit>
void WithRecord(const UStruct& Struct, TVisit&& Visit)
{
	const FString PackageName = Struct.GetOuter() ? Struct.GetOuter()->GetName() : FString();
	const FString Name = Struct.GetName();
	ForEachImage(
		[&](FLoadedImage& Image)
		{
			const uint32 Owner = Image.FindOwner(PackageName, Name);
			if (Owner != NoIndex)
			{
				Visit(Image, Image.GetView().Owner(Owner));
			}
		});
}

static void FillNativeMembers(UStruct* Struct)
{
	WithRecord(
		*Struct, [Struct](FLoadedImage& Image, const FOwnerRecord& Record) { FillStruct(Image, Record, *Struct); });
}

static bool InitializeClassDefaults(UClass* Class, UObject* DefaultObject)
{
	bool bChanged = false;
	WithRecord(*Class,
		[&](FLoadedImage& Image, const FOwnerRecord& Record)
		{ bChanged |= InitializeDefaults(Image, Record, *Class, *DefaultObject); });
	return bChanged;
}
} // namespace CatalogueProvider
} // namespace Catalogue

FCatalogue::FCatalogue()
	: Engine(MakeUnique<Catalogue::FLoadedImage>(Catalogue::CatalogueState::EngineId,
		std::string_view(MorvaneCatalogueBegin, static_cast<std::size_t>(MorvaneCatalogueEnd - MorvaneCatalogueBegin))))
{
	check(!Engine->GetView().IsEmpty());
	Catalogue::CatalogueState::EngineImage = Engine.Get();
}

FCatalogue& FCatalogue::Get()
{
	// Reflection objects of static lifetime are filled from it, so it is never destroyed.
	static FCatalogue* const Instance = new FCatalogue;
	return *Instance;
}

void FCatalogue::Install()
{
	if (bInstalled)
	{
		return;
	}
	bInstalled = true;
	ObjectProviders::FLazyObjects Source;
	Source.FindByPath = &Catalogue::CatalogueProvider::FindByPath;
	Source.FindByShortName = &Catalogue::CatalogueProvider::FindByShortName;
	Source.MakeAll = &Catalogue::CatalogueProvider::MakeAll;
	Source.FillNativeMembers = &Catalogue::CatalogueProvider::FillNativeMembers;
	Source.InitializeDefaults = &Catalogue::CatalogueProvider::InitializeClassDefaults;
	ObjectProviders::SetLazyObjects(Source);
}

UObject* FCatalogue::FindOrCreate(FStringView Path)
{
	int32 Dot = INDEX_NONE;
	if (!Path.FindChar(TEXT('.'), Dot))
	{
		return nullptr;
	}
	const FStringView PackageName = Path.Left(Dot);
	const FStringView ObjectName = Path.RightChop(Dot + 1);
	if (UObject* const Known = Catalogue::CatalogueProvider::FindByPath(PackageName, ObjectName))
	{
		return Known;
	}
	// Native classes that no data describes.
	const UObject* const Package = FObjectTable::Get().Find(nullptr, FName(PackageName));
	return Package ? FObjectTable::Get().Find(Package, FName(ObjectName)) : nullptr;
}

void FCatalogue::ForEachPath(
	const UClass* Kind, TFunctionRef<void(const FString& Path, const FString& ParentPath)> Visit) const
{
	Catalogue::CatalogueProvider::ForEachImage(
		[&](const Catalogue::FLoadedImage& Image)
		{
			const Catalogue::FImageView& View = Image.GetView();
			for (uint32 Index = 0; Index < View.NumOwners(); ++Index)
			{
				const Catalogue::FOwnerRecord& Owner = View.Owner(Index);
				if (Catalogue::KindOf(Owner.Kind)->IsChildOf(Kind))
				{
					const bool bHasParent = Owner.Parent != Catalogue::NoIndex;
					Visit(Image.Text(Owner.Path), bHasParent ? FromUtf8(View.Reference(Owner.Parent)) : FString());
				}
			}
		});
}

int32 FCatalogue::GetNumEnginePaths() const
{
	return static_cast<int32>(Engine->GetView().NumOwners());
}

bool FCatalogue::LoadProjectCatalogue(const FString& ProjectFolder, TArray<FString>& OutErrors)
{
	using namespace Catalogue;
	UnloadProjectCatalogue();
	const int32 NumErrorsBefore = OutErrors.Num();
	std::string Bytes = LoadProjectImage(ProjectFolder, OutErrors);
	if (!Bytes.empty() && CatalogueState::NextProjectId > CatalogueState::LastProjectId)
	{
		OutErrors.Add(
			FString::Printf(TEXT("%s: too many project catalogues were loaded by this process"), *ProjectFolder));
	}
	else if (!Bytes.empty())
	{
		Project = MakeUnique<FLoadedImage>(CatalogueState::NextProjectId++, MoveTemp(Bytes));
		CatalogueState::ProjectImage = Project.Get();
		++Generation;
	}
	return OutErrors.Num() == NumErrorsBefore;
}

void FCatalogue::UnloadProjectCatalogue()
{
	Catalogue::CatalogueState::ProjectImage = nullptr;
	if (Project)
	{
		Project->Discard();
		Project.Reset();
		++Generation;
	}
}

int32 FCatalogue::GetNumFilled() const
{
	return Catalogue::NumFilledStructs;
}
