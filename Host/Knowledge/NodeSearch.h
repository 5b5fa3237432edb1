#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "Knowledge/MenuSearch.h"

/** Which node is to be shown. */
struct FNodeQuery
{
	/** Of the menu; blanks and case do not count. */
	FString Title;
	/** "KismetSystemLibrary.PrintString", "/Script/Engine.Actor:K2_DestroyActor"; goes before the title. */
	FString Function;
	/** Empty for any. */
	FString NodeClass;
	/** Class of the Blueprint that the node would stand in, by path or short name; empty for Actor. */
	FString ParentClass;
};

/** Shows nodes with their pins before any is placed: each is made in a Blueprint that nobody keeps. */
namespace NodeSearch
{
/**
 * "nodes": title, category, the request that places it, and its pins as an agent may name them. When nothing is so
 * called, "error" and the titles that come near.
 */
TSharedRef<FJsonObject> Describe(const FMenuSearch& Menu, const FNodeQuery& Query);
} // namespace NodeSearch
