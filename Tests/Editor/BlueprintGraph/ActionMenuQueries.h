#pragma once

#include "BlueprintActionMenuItem.h"
#include "BlueprintActionMenuUtils.h"
#include "BlueprintNodeSpawner.h"
#include "CoreMinimal.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "Standalone/ContextTargets.h"

/** Asking for menus and for their entries. */
namespace ActionMenuQueries
{
inline FBlueprintActionMenuBuilder MenuFor(UEdGraph* Graph, bool bContextSensitive = false, UEdGraphPin* Pin = nullptr)
{
	FBlueprintActionContext Context;
	Context.Graphs.Add(Graph);
	if (UBlueprint* const Blueprint = Graph->GetTypedOuter<UBlueprint>())
	{
		Context.Blueprints.Add(Blueprint);
	}
	if (Pin)
	{
		Context.Pins.Add(Pin);
	}
	FBlueprintActionMenuBuilder Menu;
	FBlueprintActionMenuUtils::MakeContextMenu(Context, bContextSensitive, EveryContextTarget, Menu);
	return Menu;
}

inline const UBlueprintNodeSpawner* SpawnerOf(const FEdGraphSchemaAction& Action)
{
	return static_cast<const FBlueprintActionMenuItem&>(Action).GetRawAction();
}

inline FString ClassOf(const FEdGraphSchemaAction& Action)
{
	return SpawnerOf(Action)->NodeClass.Get()->GetName();
}

/** The first entry of that title; of that category too unless it is null, and of that node class. */
inline TSharedPtr<FEdGraphSchemaAction> Find(const FBlueprintActionMenuBuilder& Menu, const FString& Title,
	const TCHAR* Category = nullptr, const TCHAR* NodeClass = nullptr)
{
	for (const TSharedPtr<FEdGraphSchemaAction>& Action : Menu.GetEntries())
	{
		if (Action->GetMenuDescription().ToString().Equals(Title)
			&& (!Category || Action->GetCategory().ToString().Equals(Category))
			&& (!NodeClass || ClassOf(*Action) == NodeClass))
		{
			return Action;
		}
	}
	return nullptr;
}
} // namespace ActionMenuQueries
