#pragma once

#include "CoreMinimal.h"
#include "Spawning/ClassResolution.h"
#include "Utils/Request/GraphRecords.h"

class UClass;
class UEdGraph;
class UEdGraphNode;
class UFunction;

namespace Morvane
{
class FToolResult;
}

/**
 * What the requests of one run have looked up already. Requests repeat themselves, and a class text or a function name
 * of a large library costs far more to look up than a node to make. Only what cannot change in a run is kept: native
 * classes and misses, never a Blueprint's class, which is rebuilt when its declarations change.
 */
class FSpawnLookups
{
public:
	FClassResolution ResolveClass(const FString& ClassText);
	TArray<UFunction*> FindOverloads(const UClass* Class, const FString& FunctionName);

private:
	TMap<FString, FClassResolution> ClassByText;
	TMap<TPair<const UClass*, FString>, TArray<UFunction*>> OverloadsByName;
};

/** Spawns exactly what a request names: a function of a class, or a cast to a class. Nothing here asks the menu. */
class FBlueprintDeterministicSpawn
{
public:
	/**
	 * False: the request names no class or function that can be spawned. The reason stands in the telemetry's
	 * validation failures alone; the warning is the caller's. True with a null node: class and function stand, and yet
	 * no node came of it, which is an error in the result.
	 */
	static bool SpawnDeterministicNode(UEdGraph& Graph, const FBPNodeModification& Record, Morvane::FToolResult& Result,
		FSpawnLookups& Lookups, UEdGraphNode*& OutNode);

	/**
	 * The function of the class or its supers that a name means. Names and display names count, whatever their case and
	 * blanks. Of several, the menu title chooses; without one, only a function of just that name can be meant. Silent.
	 */
	static bool FindFunctionWithOverloadHandling(
		const UClass* Class, const FString& FunctionName, const FString& MenuTitle, UFunction*& OutFunction);

	/** Which of the functions that the name fits is meant; null when none is. */
	static UFunction* ChooseOverload(
		const TArray<UFunction*>& Overloads, const FString& FunctionName, const FString& MenuTitle);

	/** All functions that the name fits, each name once, the most derived class first. */
	static TArray<UFunction*> FindOverloads(const UClass* Class, const FString& FunctionName);

	/** "Type Name, Type Name" of the parameters, "None" without any. */
	static FString DescribeSignature(const UFunction& Function);
};
