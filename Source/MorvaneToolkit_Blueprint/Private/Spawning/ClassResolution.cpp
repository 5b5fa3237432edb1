#include "Spawning/ClassResolution.h"

#include "AssetOperationBase.h"
#include "BlueprintUtils.h"
#include "Engine/Blueprint.h"
#include "Interfaces/IPluginManager.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "UObject/Class.h"
#include "UObject/UObjectGlobals.h"

namespace ClassResolutionImpl
{
constexpr int32 MaxListedVariants = 10;

static bool IsContentPath(const FString& Text)
{
	return Text.Contains(TEXT("/Game/"), ESearchCase::IgnoreCase);
}

static bool IsPath(const FString& Text)
{
	return IsContentPath(Text) || Text.Contains(TEXT("/Script/"), ESearchCase::IgnoreCase);
}

/** "Actor" of "AActor" and "KismetMathLibrary" of "UKismetMathLibrary": classes are known without their type letter. */
static FString DropTypeLetter(const FString& Name)
{
	const bool bHasLetter = Name.Len() > 1 && (Name[0] == TEXT('A') || Name[0] == TEXT('U')) && FChar::IsUpper(Name[1]);
	return bHasLetter ? Name.RightChop(1) : Name;
}

static void AddBareNameVariants(const FString& Name, TArray<FString>& OutVariants)
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
static void AddPluginVariants(TArray<FString>& InOutVariants)
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

static UClass* FindOrLoadFirst(const TArray<FString>& Variants)
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

static UClass* FindInMemory(const FString& Name)
{
	for (const TCHAR* const Prefix : {TEXT(""), TEXT("U"), TEXT("A")})
	{
		UObject* const Found = StaticFindFirstObject(UClass::StaticClass(), *(Prefix + Name),
			EFindFirstObjectOptions::None, ELogVerbosity::Warning, TEXT("BlueprintNodeSpawning"));
		if (UClass* const Class = Cast<UClass>(Found))
		{
			return Class;
		}
	}
	return nullptr;
}

/** "BP_Door" of "/Game/Doors/BP_Door.BP_Door_C". */
static FString GetAssetName(const FString& Text)
{
	int32 Slash = INDEX_NONE;
	FString Name = Text.FindLastChar(TEXT('/'), Slash) ? Text.RightChop(Slash + 1) : Text;
	int32 Dot = INDEX_NONE;
	Name = Name.FindChar(TEXT('.'), Dot) ? Name.Left(Dot) : Name;
	return Name.EndsWith(TEXT("_C"), ESearchCase::CaseSensitive) ? Name.LeftChop(2) : Name;
}

/** A path that leaves nothing open: it names one asset or none, and never a namesake in another folder. */
static bool IsFullPath(const FString& Text)
{
	return Text.StartsWith(TEXT("/"), ESearchCase::CaseSensitive);
}

static UClass* LoadClassOf(const FString& BlueprintPath)
{
	const UBlueprint* const Blueprint = FBlueprintUtils::TryLoadBlueprint(BlueprintPath);
	return Blueprint ? Blueprint->GeneratedClass.Get() : nullptr;
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
		Resolution.Class = IsFullPath(ClassText) ? LoadClassOf(ClassText)
												 : ResolveBlueprintClassByName(ClassText, Resolution.Error);
		if (Resolution.Class)
		{
			Resolution.Method = TEXT("asset_registry");
		}
	}
	if (!Resolution.Class)
	{
		Resolution.Class = FindInMemory(ClassText);
	}
	// What a Blueprint declared since, also in this very call, stands in its class once somebody asks.
	FBlueprintEditorUtils::GetMostUpToDateClass(Resolution.Class);
	return Resolution;
}

UClass* ClassResolution::ResolveBlueprintClassByName(const FString& Name, FString& OutError)
{
	const TArray<FString> Paths = FAssetOperationBase::FindBlueprintPaths(ClassResolutionImpl::GetAssetName(Name));
	if (Paths.Num() > 1)
	{
		OutError = FString::Printf(TEXT("Ambiguous Blueprint name '%s'. Found %d matches: %s. Use full package path."),
			*Name, Paths.Num(), *FString::Join(Paths, TEXT(", ")));
		return nullptr;
	}
	return Paths.IsEmpty() ? nullptr : ClassResolutionImpl::LoadClassOf(Paths[0]);
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
