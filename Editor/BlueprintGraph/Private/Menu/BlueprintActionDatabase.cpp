#include "BlueprintActionDatabase.h"

#include "AssetRegistry/IAssetRegistry.h"
#include "BlueprintNodeSpawner.h"
#include "Engine/Blueprint.h"
#include "Menu/ActionSources.h"
#include "Menu/InputMappings.h"
#include "Standalone/Catalogue.h"
#include "Standalone/StandardMacros.h"
#include "UObject/Package.h"

namespace ActionDatabase
{
/** What the catalogue knows, in the order of modules and paths: first the members of all classes, then what types
 * offer. */
struct FTypes
{
	TArray<UClass*> Classes;
	TArray<UScriptStruct*> Structs;
};

/** The engine's types, which never go, or those of the project. */
static FTypes ReadTypes(bool bOfProject)
{
	FTypes Types;
	const int32 NumEnginePaths = FCatalogue::Get().GetNumEnginePaths();
	int32 Index = 0;
	FCatalogue::Get().ForEachPath(UField::StaticClass(),
		[&Types, &Index, NumEnginePaths, bOfProject](const FString& Path, const FString&)
		{
			const bool bIsOfProject = Index++ >= NumEnginePaths;
			UObject* const Object = bIsOfProject == bOfProject ? FCatalogue::Get().FindOrCreate(Path) : nullptr;
			if (UClass* const Class = Cast<UClass>(Object))
			{
				Types.Classes.Add(Class);
			}
			else if (UScriptStruct* const Struct = Cast<UScriptStruct>(Object))
			{
				Types.Structs.Add(Struct);
			}
		});
	return Types;
}

static void AddTypes(const FTypes& Types, TArray<FBlueprintAction>& Out)
{
	for (UClass* const Class : Types.Classes)
	{
		ActionSources::AddMembers(*Class, Out);
	}
	for (UClass* const Class : Types.Classes)
	{
		ActionSources::AddCasts(*Class, Out);
	}
	for (UClass* const Class : Types.Classes)
	{
		ActionSources::AddComponent(*Class, Out);
	}
	for (UScriptStruct* const Struct : Types.Structs)
	{
		ActionSources::AddStruct(*Struct, Out);
	}
}

/** Lets the spawners go. Menus that were made from the list hold entries still, and live no longer than the call that
 * made them. */
static void Discard(const TArray<FBlueprintAction>& Actions)
{
	for (const FBlueprintAction& Action : Actions)
	{
		const_cast<UBlueprintNodeSpawner*>(Action.Item->GetRawAction())->Discard();
	}
}

static void Drop(TArray<FBlueprintAction>& Actions)
{
	Discard(Actions);
	Actions.Empty();
}

static TArray<FAssetData> ListAssets(const TCHAR* ClassPath, bool bSearchSubClasses = false)
{
	TArray<FAssetData> Listed;
	FTopLevelAssetPath Class;
	const IAssetRegistry* const Registry = IAssetRegistry::Get();
	if (Registry && Class.TrySetPath(ClassPath))
	{
		Registry->GetAssetsByClass(Class, Listed, bSearchSubClasses);
	}
	return Listed;
}

static TArray<FAssetData> ListUnloadedBlueprints()
{
	return ListAssets(TEXT("/Script/Engine.Blueprint"), true)
		.FilterByPredicate([](const FAssetData& Asset) { return !Asset.IsAssetLoaded(); });
}

/** An asset that the menu is about, and the type that it is, if it is one. */
struct FOfferedAsset
{
	FAssetData Asset;
	UField* Type = nullptr;
	bool bIsBlueprint = false;
};

/** Blueprints that are not in memory, input actions, and the structs and enums of the project, which are loaded. */
static TArray<FOfferedAsset> ListOfferedAssets(const TArray<FAssetData>& UnloadedBlueprints)
{
	TArray<FOfferedAsset> Offered;
	for (const FAssetData& Asset : UnloadedBlueprints)
	{
		// Those that do not tell what they offer were loaded since.
		if (!Asset.IsAssetLoaded())
		{
			Offered.Add({Asset, nullptr, true});
		}
	}
	for (const FAssetData& Asset : ListAssets(TEXT("/Script/EnhancedInput.InputAction")))
	{
		Offered.Add({Asset});
	}
	for (const TCHAR* const Kind : {TEXT("/Script/Engine.UserDefinedStruct"), TEXT("/Script/Engine.UserDefinedEnum")})
	{
		for (const FAssetData& Asset : ListAssets(Kind))
		{
			if (UField* const Type = Cast<UField>(Asset.GetAsset()))
			{
				Offered.Add({Asset, Type});
			}
		}
	}
	return Offered;
}

/** Blueprints that are there to stay: assets, and libraries that are made in memory at a path of their own. */
static bool Lasts(const UBlueprint& Blueprint)
{
	return IsValid(&Blueprint) && !Blueprint.bBeingCompiled && !Blueprint.HasAnyFlags(RF_ClassDefaultObject)
		&& Blueprint.GetOutermost() != GetTransientPackage();
}
} // namespace ActionDatabase

FBlueprintActionDatabase::FBlueprintActionDatabase() = default;
FBlueprintActionDatabase::~FBlueprintActionDatabase() = default;

FBlueprintActionDatabase& FBlueprintActionDatabase::Get()
{
	// Entries name classes of static lifetime, so it is never destroyed.
	static FBlueprintActionDatabase* const Instance = new FBlueprintActionDatabase;
	return *Instance;
}

void FBlueprintActionDatabase::BuildCatalogue()
{
	const uint32 Generation = FCatalogue::Get().GetGeneration();
	if (!bBuilt)
	{
		ActionDatabase::AddTypes(ActionDatabase::ReadTypes(false), EngineActions);
	}
	if (!bBuilt || Generation != CatalogueGeneration)
	{
		// Node classes offer one entry for each enum or task class, the project's among them.
		ActionDatabase::Drop(NodeActions);
		EnumMakers.Empty();
		ActionSources::AddNodeClasses(NodeActions, EnumMakers);
		ActionDatabase::Drop(ProjectActions);
		ActionDatabase::AddTypes(ActionDatabase::ReadTypes(true), ProjectActions);
	}
	CatalogueGeneration = Generation;
	bBuilt = true;
}

void FBlueprintActionDatabase::UpdateBlueprints()
{
	// The libraries go when a project's objects are dropped, and their macros are always offered.
	StandardMacros::MakeLibraries();
	TArray<UObject*> Objects;
	GetObjectsOfClass(UBlueprint::StaticClass(), Objects);
	TMap<const UObject*, int32> Standing;
	for (int32 Index = 0; Index < Blueprints.Num(); ++Index)
	{
		Standing.Add(Blueprints[Index].Blueprint.Get(), Index);
	}
	TArray<FBlueprintEntry> Updated;
	for (UObject* const Object : Objects)
	{
		UBlueprint* const Blueprint = static_cast<UBlueprint*>(Object);
		if (!ActionDatabase::Lasts(*Blueprint))
		{
			continue;
		}
		const int32* const Index = Standing.Find(Blueprint);
		const uint32 Fingerprint = ActionSources::GetFingerprint(*Blueprint);
		if (Index && Blueprints[*Index].Fingerprint == Fingerprint)
		{
			Updated.Add(MoveTemp(Blueprints[*Index]));
			Updated.Last().Path = Blueprint->GetPathName();
			continue;
		}
		FBlueprintEntry& Entry = Updated.AddDefaulted_GetRef();
		Entry.Path = Blueprint->GetPathName();
		Entry.Blueprint = Blueprint;
		Entry.Fingerprint = Fingerprint;
		ActionSources::AddBlueprint(*Blueprint, Entry.Actions);
	}
	for (FBlueprintEntry& Left : Blueprints)
	{
		ActionDatabase::Drop(Left.Actions);
	}
	Blueprints = MoveTemp(Updated);
}

void FBlueprintActionDatabase::LoadUntold(const TArray<FAssetData>& UnloadedBlueprints)
{
	TSet<FString> NowUnreadable;
	for (const FAssetData& Asset : UnloadedBlueprints)
	{
		if (ActionSources::TellsOffers(Asset))
		{
			continue;
		}
		FString Path = Asset.GetObjectPathString();
		if (Unreadable.Contains(Path) || !Asset.GetAsset())
		{
			NowUnreadable.Add(MoveTemp(Path));
		}
	}
	Unreadable = MoveTemp(NowUnreadable);
}

void FBlueprintActionDatabase::OrderBlueprints()
{
	TArray<TPair<FString, const FActionList*>> Lists;
	for (const FBlueprintEntry& Entry : Blueprints)
	{
		Lists.Emplace(Entry.Path, &Entry.Actions);
	}
	for (const FAssetEntry& Entry : Assets)
	{
		if (Entry.bIsBlueprint)
		{
			Lists.Emplace(Entry.Path, &Entry.Actions);
		}
	}
	Lists.Sort([](const auto& Left, const auto& Right) { return Left.Key < Right.Key; });
	BlueprintLists.Empty();
	for (const auto& [Path, List] : Lists)
	{
		BlueprintLists.Add(List);
	}
}

void FBlueprintActionDatabase::AddType(UField* Type, FActionList& Out) const
{
	if (UScriptStruct* const Struct = Cast<UScriptStruct>(Type))
	{
		ActionSources::AddStruct(*Struct, Out);
	}
	else if (UEnum* const Enum = Cast<UEnum>(Type))
	{
		for (const FBlueprintActionDatabaseRegistrar::FMakeEnumSpawnerDelegate& Make : EnumMakers)
		{
			ActionSources::Add(Make(*Enum), Out);
		}
	}
}

void FBlueprintActionDatabase::UpdateAssets(const TArray<FAssetData>& UnloadedBlueprints)
{
	TMap<FString, int32> Standing;
	for (int32 Index = 0; Index < Assets.Num(); ++Index)
	{
		Standing.Add(Assets[Index].Path, Index);
	}
	TArray<FAssetEntry> Updated;
	for (const ActionDatabase::FOfferedAsset& Offered : ActionDatabase::ListOfferedAssets(UnloadedBlueprints))
	{
		FString Path = Offered.Asset.GetObjectPathString();
		const int32* const Index = Standing.Find(Path);
		FAssetEntry* const Known = Index ? &Assets[*Index] : nullptr;
		const FString Offers = Offered.bIsBlueprint ? ActionSources::GetOffers(Offered.Asset) : FString();
		// A change of case is a change of words.
		if (Known && Known->Path.Equals(Path, ESearchCase::CaseSensitive) && Known->Type.Get() == Offered.Type
			&& Known->Offers.Equals(Offers, ESearchCase::CaseSensitive))
		{
			Updated.Add(MoveTemp(*Known));
			continue;
		}
		FAssetEntry& Entry = Updated.AddDefaulted_GetRef();
		Entry.Path = MoveTemp(Path);
		Entry.Type = Offered.Type;
		Entry.Offers = Offers;
		Entry.bIsBlueprint = Offered.bIsBlueprint;
		if (Offered.Type)
		{
			AddType(Offered.Type, Entry.Actions);
		}
		else if (Offered.bIsBlueprint && ActionSources::TellsOffers(Offered.Asset))
		{
			ActionSources::AddOffers(Offered.Asset, Entry.Actions);
		}
		else
		{
			ActionSources::AddAsset(Offered.Asset, Entry.Actions);
		}
	}
	for (FAssetEntry& Left : Assets)
	{
		ActionDatabase::Drop(Left.Actions);
	}
	Assets = MoveTemp(Updated);
}

void FBlueprintActionDatabase::UpdateInputMappings()
{
	FInputMappings Mappings = FInputMappings::Read();
	if (!InputMappings || !(*InputMappings == Mappings))
	{
		ActionDatabase::Drop(InputActions);
		ActionSources::AddInputMappings(Mappings, InputActions);
		InputMappings = MakeUnique<FInputMappings>(MoveTemp(Mappings));
	}
}

void FBlueprintActionDatabase::Update()
{
	const TArray<FAssetData> UnloadedBlueprints = ActionDatabase::ListUnloadedBlueprints();
	BuildCatalogue();
	LoadUntold(UnloadedBlueprints);
	UpdateBlueprints();
	UpdateAssets(UnloadedBlueprints);
	UpdateInputMappings();
	OrderBlueprints();
}

void FBlueprintActionDatabase::ForEachList(TFunctionRef<void(const FActionList&)> Visit) const
{
	Visit(NodeActions);
	for (const FActionList* const List : BlueprintLists)
	{
		Visit(*List);
	}
	for (const FAssetEntry& Entry : Assets)
	{
		if (!Entry.bIsBlueprint)
		{
			Visit(Entry.Actions);
		}
	}
	Visit(InputActions);
	Visit(EngineActions);
	Visit(ProjectActions);
}

void FBlueprintActionDatabase::ForEachAction(TFunctionRef<void(const FBlueprintAction&)> Visit)
{
	Update();
	ForEachList(
		[&Visit](const FActionList& List)
		{
			for (const FBlueprintAction& Action : List)
			{
				Visit(Action);
			}
		});
}

int32 FBlueprintActionDatabase::Num() const
{
	int32 Count = 0;
	ForEachList([&Count](const FActionList& List) { Count += List.Num(); });
	return Count;
}

void FBlueprintActionDatabase::RefreshAll()
{
	ForEachList([](const FActionList& List) { ActionDatabase::Discard(List); });
	NodeActions.Empty();
	EnumMakers.Empty();
	EngineActions.Empty();
	ProjectActions.Empty();
	InputActions.Empty();
	InputMappings.Reset();
	Unreadable.Empty();
	BlueprintLists.Empty();
	Blueprints.Empty();
	Assets.Empty();
	bBuilt = false;
}
