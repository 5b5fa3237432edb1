#pragma once

#include "BlueprintActionMenuBuilder.h"
#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

struct FEdGraphSchemaAction;

/** What somebody wants to see of the graph menu. Each text is empty for any, and compared ignoring case. */
struct FMenuQuery
{
	/** All of them have to stand in title, category or keywords, wherever. */
	FString Words;
	FString Title;
	FString Category;
	FString NodeClass;
};

/** One action of the menu. Stands as long as the search. */
struct FMenuHit
{
	FEdGraphSchemaAction* Action = nullptr;
	/** "K2Node_CallFunction"; empty where it is not known. */
	FString NodeClass;

	FString GetTitle() const;
	/** The members of a node of bp_populate_graph that place this action's node and no other. */
	TSharedRef<FJsonObject> MakeRequest() const;
};

/** Every action of the graph menu: the engine's and the project's, as an author without a dragged pin sees them. */
class FMenuSearch
{
public:
	FMenuSearch();

	/** Best first where words are asked for, else in the menu's order. */
	TArray<FMenuHit> Find(const FMenuQuery& Query) const;
	/** The actions of exactly that title, blanks and case aside. */
	TArray<FMenuHit> FindTitled(const FString& Title) const;
	int32 Num() const { return Menu.GetNumActions(); }
	/** How many actions each first part of a category has, in the order of the menu. */
	TMap<FString, int32> CountByCategory() const;

private:
	FBlueprintActionMenuBuilder Menu;
};
