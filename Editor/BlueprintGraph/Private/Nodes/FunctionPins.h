#pragma once

#include "CoreMinimal.h"
#include "UObject/Class.h"

class UBlueprint;

/** What a function's metadata says about the pins of its call, worked out once for each function. */
struct FFunctionPinFacts
{
	/** Latent info and what the metadata hides; the world context is told apart, as it depends on the caller. */
	TSet<FName> HiddenByMetaData;
	TSet<FName> AutoCreated;
	TSet<FName> CustomStructures;
	/** Sets, maps, their elements, keys and values: of the type that is linked. */
	TSet<FName> ContainerParams;
	TSet<FName> Advanced;
	FName WorldContext;
	/** The enum or bool that becomes exec pins; null when there is none. */
	const FProperty* Expanded = nullptr;
	bool bLatent = false;
	bool bWantsExpansion = false;
	/** The class pin that types the outputs, and those outputs. */
	FName DynamicTypePicker;
	TArray<FName> DynamicOutputs;
	bool bHasContainerParams = false;
	/** What tooltips say of the function; worked out when first asked for. */
	mutable TOptional<FString> Description;
};

namespace FunctionPins
{
/** Facts of native functions are kept; a Blueprint's function may change, so its facts are worked out again when its
 * members were rebuilt. */
const FFunctionPinFacts& Get(const UFunction& Function);
/** The names of a comma separated list in the function's metadata. */
TSet<FName> NamesInMetaData(const UFunction& Function, FName Key);
/** Whether objects of the class live in a world, so that each serves as a world context. */
bool HasWorld(const UClass* Class);
/** Whether the calling object serves as world context, so that the pin is not shown. */
bool IsWorldContextHidden(const UFunction& Function, const UBlueprint* Caller);
} // namespace FunctionPins
