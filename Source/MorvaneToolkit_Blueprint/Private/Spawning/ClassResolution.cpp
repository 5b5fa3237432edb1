#include "Spawning/ClassResolution.h"

#include "AssetRegistry/AssetRegistryModule.h"
#include "Engine/Blueprint.h"
#include "Interfaces/IPluginManager.h"
#include "UObject/Class.h"
#include "UObject/UObjectGlobals.h"

namespace ClassResolutionImpl
{
constexpr int32 MaxListedVariants = 10;

bool IsContentPath(const FString& Text)
{
	return Text.Contains(TEXT("/Game/"), ESearchCase::IgnoreCase);
}

bool IsPath(const FString& Text)
{
	return IsContentPath(Text) || Text.Contains(TEXT("/Script/"), ESearchCase::IgnoreCase);
}

/** "Actor" of "AActor" and "KismetMathLibrary" of "UKismetMathLibrary": classes are known without their type letter. */
FString DropTypeLetter(const FString& Name)
{
	const bool bHasLetter = Name.Len() > 1 && (Name[0] == TEXT('A') || Name[0] == TEXT('U')) && FChar::IsUpper(Name[1]);
	return bHasLetter ? Name.RightChop(1) : Name;
}

void AddBareNameVariants(const FString& Name, TArray<FString>& OutVariants)
{
	OutVariants.Add(Name);
	if (!Name.StartsWith(TEXT("U"), ESearchCase::CaseSensitive))
	{
		OutVariants.Add(FString::Printf(TEXT("U%s"), *Name));
	}
	const bool bSoundsLikeActor = Name.EndsWith(TEXT("Actor"), ESearchCase::CaseSensitive)
		|| Name.Contains(TEXT("Pawn"), ESearchCase::CaseSensitive);
	if (bSoundsLikeActor && !Name.StartsWith(TEXT("A"), ESearchCase::CaseSensitive))
	{
		OutVariants.Add(FString::Printf(TEXT("A%s"), *Name));
	}
	const FString Plain = DropTypeLetter(Name);
	OutVariants.Add(FString::Printf(TEXT("/Script/Engine.%s"), *Plain));
	OutVariants.Add(FString::Printf(TEXT("/Script/GameplayAbilities.%s"), *Plain));
	OutVariants.Add(FString::Printf(TEXT("/Script/UMG.%s"), *Plain));
	OutVariants.Add(FString::Printf(TEXT("/Script/AIModule.%s"), *Plain));
}

/** A bare name may be a class in the content of any plug-in. */
void AddPluginVariants(TArray<FString>& InOutVariants)
{
	const int32 NumVariants = InOutVariants.Num();
	for (const TSharedRef<IPlugin>& Plugin : IPluginManager::Get().GetEnabledPluginsWithContent())
	{
		const FString Base = Plugin->GetMountedAssetPath();
		for (int32 Index = 0; Index < NumVariants; ++Index)
		{
			const FString Variant = InOutVariants[Index];
			int32 Slash = INDEX_NONE;
			if (!Variant.FindChar(TEXT('/'), Slash))
			{
				InOutVariants.Add(FString::Printf(TEXT("%s%s"), *Base, *Variant));
				InOutVariants.Add(FString::Printf(TEXT("%s%s_C"), *Base, *Variant));
			}
		}
	}
}

UClass* FindOrLoadFirst(const TArray<FString>& Variants)
{
	for (const FString& Variant : Variants)
	{
		UObject* Found = StaticFindObject(UClass::StaticClass(), nullptr, *Variant);
		// Quiet: a miss is ordinary here, since each variant is tried in turn.
		Found = Found ? Found
					  : StaticLoadObject(UClass::StaticClass(), nullptr, *Variant, nullptr, LOAD_Quiet | LOAD_NoWarn);
		if (UClass* const Class = Cast<UClass>(Found))
		{
			return Class;
		}
	}
	return nullptr;
}

UClass* FindInMemory(const FString& Name)
{
	for (const TCHAR* const Prefix : {TEXT(""), TEXT("U"), TEXT("A")})
	{
		UObject* const Found = StaticFindFirstObject(
			UClass::StaticClass(), *(Prefix + Name), EFindFirstObjectOptions::None, 3, TEXT("BlueprintNodeSpawning"));
		if (UClass* const Class = Cast<UClass>(Found))
		{
			return Class;
		}
	}
	return nullptr;
}

/** "BP_Door" of "/Game/Doors/BP_Door.BP_Door_C". */
FString GetAssetName(const FString& Text)
{
	int32 Slash = INDEX_NONE;
	FString Name = Text.FindLastChar(TEXT('/'), Slash) ? Text.RightChop(Slash + 1) : Text;
	int32 Dot = INDEX_NONE;
	Name = Name.FindChar(TEXT('.'), Dot) ? Name.Left(Dot) : Name;
	return Name.EndsWith(TEXT("_C"), ESearchCase::CaseSensitive) ? Name.LeftChop(2) : Name;
}

TArray<FAssetData> FindBlueprintsByName(const FString& Name)
{
	FARFilter Filter;
	Filter.ClassPaths.Add(UBlueprint::StaticClass()->GetStructPathName());
	Filter.bRecursiveClasses = true;
	TArray<FAssetData> Blueprints;
	FModuleManager::LoadModuleChecked<FAssetRegistryModule>(TEXT("AssetRegistry")).Get().GetAssets(Filter, Blueprints);
	Blueprints.RemoveAll(
		[&Name](const FAssetData& Asset) { return !Asset.AssetName.ToString().Equals(Name, ESearchCase::IgnoreCase); });
	return Blueprints;
}
} // namespace ClassResolutionImpl

TArray<FString> ClassResolution::MakeVariants(const FString& ClassText)
{
	using namespace ClassResolutionImpl;

	TArray<FString> Variants;
	if (!IsPath(ClassText))
	{
		AddBareNameVariants(ClassText, Variants);
		AddPluginVariants(Variants);
		return Variants;
	}
	Variants.Add(ClassText);
	if (IsContentPath(ClassText) && !ClassText.EndsWith(TEXT("_C"), ESearchCase::CaseSensitive))
	{
		Variants.Add(ClassText + TEXT("_C"));
	}
	return Variants;
}

FClassResolution ClassResolution::Resolve(const FString& ClassText)
{
	using namespace ClassResolutionImpl;

	FClassResolution Resolution;
	Resolution.Variants = MakeVariants(ClassText);
	Resolution.Method = IsContentPath(ClassText) ? TEXT("blueprint_path") : TEXT("direct_path");
	Resolution.Class = FindOrLoadFirst(Resolution.Variants);
	if (!Resolution.Class)
	{
		Resolution.Class = ResolveBlueprintClassByName(ClassText, Resolution.Error);
		if (Resolution.Class)
		{
			Resolution.Method = TEXT("asset_registry");
		}
	}
	if (!Resolution.Class)
	{
		Resolution.Class = FindInMemory(ClassText);
	}
	return Resolution;
}

UClass* ClassResolution::ResolveBlueprintClassByName(const FString& Name, FString& OutError)
{
	const TArray<FAssetData> Matches = ClassResolutionImpl::FindBlueprintsByName(
		ClassResolutionImpl::GetAssetName(Name));
	if (Matches.Num() > 1)
	{
		TArray<FString> Paths;
		for (const FAssetData& Match : Matches)
		{
			Paths.Add(Match.GetObjectPathString());
		}
		OutError = FString::Printf(TEXT("Ambiguous Blueprint name '%s'. Found %d matches: %s. Use full package path."),
			*Name, Matches.Num(), *FString::Join(Paths, TEXT(", ")));
		return nullptr;
	}
	const UBlueprint* const Blueprint = Matches.IsEmpty() ? nullptr : Cast<UBlueprint>(Matches[0].GetAsset());
	return Blueprint ? Blueprint->GeneratedClass.Get() : nullptr;
}

FString ClassResolution::DescribeVariants(const TArray<FString>& Variants)
{
	TArray<FString> Lines;
	const int32 NumListed = FMath::Min(Variants.Num(), ClassResolutionImpl::MaxListedVariants);
	for (int32 Index = 0; Index < NumListed; ++Index)
	{
		Lines.Add(FString::Printf(TEXT("    - %s"), *Variants[Index]));
	}
	if (Variants.Num() > NumListed)
	{
		Lines.Add(FString::Printf(TEXT("    ... and %d more variants"), Variants.Num() - NumListed));
	}
	return FString::Join(Lines, TEXT("\n"));
}
