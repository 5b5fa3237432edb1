#include "BlueprintActionDatabase.h"

#include "AssetRegistry/IAssetRegistry.h"
#include "BlueprintNodeSpawner.h"
#include "Engine/Blueprint.h"
#include "Menu/ActionSources.h"
#include "StandardMacros.h"
#include "UObject/Catalogue.h"
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
FTypes ReadTypes(bool bOfProject)
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

void AddTypes(const FTypes& Types, TArray<FBlueprintAction>& Out)
{
	for (UClass* const Class : Types.Classes)
	{
		ActionSources::AddMembers(*Class, Out);
	}
	for (UClass* const Class : Types.Classes)
	{
		ActionSources::AddCasts(*Class, Out);
	}
	for (UScriptStruct* const Struct : Types.Structs)
	{
		ActionSources::AddStruct(*Struct, Out);
	}
}

/** Empties a list. Menus that were made from it hold entries still, and live no longer than the call that made them. */
void Drop(TArray<FBlueprintAction>& Actions)
{
	// The last one first: templates leave their graph from its end.
	for (int32 Index = Actions.Num() - 1; Index >= 0; --Index)
	{
		const_cast<UBlueprintNodeSpawner*>(Actions[Index].Item->GetRawAction())->Discard();
	}
	Actions.Empty();
}

/** Assets that the registry alone speaks for. */
TArray<FAssetData> ListAssets()
{
	TArray<FAssetData> Listed;
	if (const IAssetRegistry* const Registry = IAssetRegistry::Get())
	{
		TArray<FAssetData> Blueprints;
		Registry->GetAssetsByClass(FTopLevelAssetPath(TEXT("/Script/Engine"), TEXT("Blueprint")), Blueprints, true);
		Listed = Blueprints.FilterByPredicate([](const FAssetData& Asset) { return !Asset.IsAssetLoaded(); });
		Registry->GetAssetsByClass(FTopLevelAssetPath(TEXT("/Script/EnhancedInput"), TEXT("InputAction")), Listed);
	}
	return Listed;
}

/** Blueprints that are there to stay: assets, and libraries that are made in memory at a path of their own. */
bool Lasts(const UBlueprint& Blueprint)
{
	return IsValid(&Blueprint) && !Blueprint.bBeingCompiled && !Blueprint.HasAnyFlags(RF_ClassDefaultObject)
		&& Blueprint.GetOutermost() != GetTransientPackage();
}
} // namespace ActionDatabase

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
		ActionSources::AddNodeClasses(NodeActions);
		ActionDatabase::Drop(ProjectActions);
		ActionDatabase::AddTypes(ActionDatabase::ReadTypes(true), ProjectActions);
	}
	CatalogueGeneration = Generation;
	bBuilt = true;
}

void FBlueprintActionDatabase::UpdateBlueprints()
{
	// The library goes when a project's objects are dropped, and its macros are always offered.
	StandardMacros::GetLibrary();
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
			continue;
		}
		FBlueprintEntry& Entry = Updated.AddDefaulted_GetRef();
		Entry.Blueprint = Blueprint;
		Entry.Fingerprint = Fingerprint;
		ActionSources::AddBlueprint(*Blueprint, Entry.Actions);
	}
	Updated.Sort([](const FBlueprintEntry& A, const FBlueprintEntry& B)
		{ return A.Blueprint.Get()->GetPathName() < B.Blueprint.Get()->GetPathName(); });
	for (FBlueprintEntry& Left : Blueprints)
	{
		ActionDatabase::Drop(Left.Actions);
	}
	Blueprints = MoveTemp(Updated);
}

void FBlueprintActionDatabase::UpdateAssets()
{
	TMap<FString, int32> Standing;
	for (int32 Index = 0; Index < Assets.Num(); ++Index)
	{
		Standing.Add(Assets[Index].Path, Index);
	}
	TArray<FAssetEntry> Updated;
	for (const FAssetData& Asset : ActionDatabase::ListAssets())
	{
		FString Path = Asset.GetObjectPathString();
		const int32* const Index = Standing.Find(Path);
		if (Index && !Assets[*Index].Path.IsEmpty())
		{
			Updated.Add(MoveTemp(Assets[*Index]));
			continue;
		}
		FAssetEntry& Entry = Updated.AddDefaulted_GetRef();
		Entry.Path = MoveTemp(Path);
		ActionSources::AddAsset(Asset, Entry.Actions);
	}
	for (FAssetEntry& Left : Assets)
	{
		ActionDatabase::Drop(Left.Actions);
	}
	Assets = MoveTemp(Updated);
}

void FBlueprintActionDatabase::Update()
{
	BuildCatalogue();
	UpdateBlueprints();
	UpdateAssets();
}

void FBlueprintActionDatabase::ForEachAction(TFunctionRef<void(const FBlueprintAction&)> Visit)
{
	Update();
	const auto VisitList = [&Visit](const FActionList& List)
	{
		for (const FBlueprintAction& Action : List)
		{
			Visit(Action);
		}
	};
	VisitList(NodeActions);
	for (const FBlueprintEntry& Entry : Blueprints)
	{
		VisitList(Entry.Actions);
	}
	for (const FAssetEntry& Entry : Assets)
	{
		VisitList(Entry.Actions);
	}
	VisitList(EngineActions);
	VisitList(ProjectActions);
}

int32 FBlueprintActionDatabase::Num() const
{
	int32 Count = NodeActions.Num() + EngineActions.Num() + ProjectActions.Num();
	for (const FBlueprintEntry& Entry : Blueprints)
	{
		Count += Entry.Actions.Num();
	}
	for (const FAssetEntry& Entry : Assets)
	{
		Count += Entry.Actions.Num();
	}
	return Count;
}

void FBlueprintActionDatabase::RefreshAssetActions(const UObject* AssetObject)
{
	for (FBlueprintEntry& Entry : Blueprints)
	{
		if (Entry.Blueprint.Get() == AssetObject)
		{
			// No Blueprint has this fingerprint by more than chance, and then its actions are made anew a change later.
			Entry.Fingerprint = ~Entry.Fingerprint;
		}
	}
}

void FBlueprintActionDatabase::RefreshAll()
{
	ActionDatabase::Drop(NodeActions);
	ActionDatabase::Drop(EngineActions);
	ActionDatabase::Drop(ProjectActions);
	for (FBlueprintEntry& Entry : Blueprints)
	{
		ActionDatabase::Drop(Entry.Actions);
	}
	for (FAssetEntry& Entry : Assets)
	{
		ActionDatabase::Drop(Entry.Actions);
	}
	Blueprints.Empty();
	Assets.Empty();
	bBuilt = false;
}
