#pragma once

#include "CoreMinimal.h"

/** Metadata keys that records stand for, as names made once. */
namespace Catalogue
{
struct FMetaKeys
{
	const FName AllowPrivateAccess{TEXT("AllowPrivateAccess")};
	const FName Bitflags{TEXT("Bitflags")};
	const FName BlueprintInternalUseOnly{TEXT("BlueprintInternalUseOnly")};
	const FName BlueprintProtected{TEXT("BlueprintProtected")};
	const FName BlueprintSpawnableComponent{TEXT("BlueprintSpawnableComponent")};
	const FName BlueprintType{TEXT("BlueprintType")};
	const FName Category{TEXT("Category")};
	const FName CompactNodeTitle{TEXT("CompactNodeTitle")};
	const FName DeprecatedFunction{TEXT("DeprecatedFunction")};
	const FName DeprecatedProperty{TEXT("DeprecatedProperty")};
	const FName DisplayName{TEXT("DisplayName")};
	const FName ExposeOnSpawn{TEXT("ExposeOnSpawn")};
	const FName HasNativeBreak{TEXT("HasNativeBreak")};
	const FName HasNativeMake{TEXT("HasNativeMake")};
	const FName IncludePath{TEXT("IncludePath")};
	const FName IsBlueprintBase{TEXT("IsBlueprintBase")};
	const FName Keywords{TEXT("Keywords")};
	const FName Latent{TEXT("Latent")};
	const FName NotBlueprintType{TEXT("NotBlueprintType")};
	const FName WorldContext{TEXT("WorldContext")};

	static const FMetaKeys& Get()
	{
		static const FMetaKeys Keys;
		return Keys;
	}
};
} // namespace Catalogue
