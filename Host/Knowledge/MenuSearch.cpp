#include "Knowledge/MenuSearch.h"

#include "BlueprintActionMenuItem.h"
#include "BlueprintActionMenuUtils.h"
#include "BlueprintFunctionNodeSpawner.h"
#include "BlueprintNodeSpawner.h"
#include "EdGraphSchema_K2.h"
#include "Standalone/ContextTargets.h"
#include "UObject/Class.h"

namespace MenuSearchPrivate
{
static const UBlueprintNodeSpawner* SpawnerOf(const FEdGraphSchemaAction& Action)
{
	return Action.GetTypeId() == FBlueprintActionMenuItem::StaticGetTypeId()
		? static_cast<const FBlueprintActionMenuItem&>(Action).GetRawAction()
		: nullptr;
}

static FString NodeClassOf(const FEdGraphSchemaAction& Action)
{
	if (const UBlueprintNodeSpawner* const Spawner = SpawnerOf(Action))
	{
		return Spawner->NodeClass.Get() ? Spawner->NodeClass.Get()->GetName() : FString();
	}
	if (Action.GetTypeId() == FEdGraphSchemaAction_NewNode::StaticGetTypeId())
	{
		const UEdGraphNode* const Template = static_cast<const FEdGraphSchemaAction_NewNode&>(Action).NodeTemplate;
		return Template ? Template->GetClass()->GetName() : FString();
	}
	return FString();
}

/** Lower letters without blanks and underscores, so that "PrintString" and "print string" are one. */
static FString Squeeze(const FString& Text)
{
	FString Squeezed;
	Squeezed.Reserve(Text.Len());
	for (const TCHAR Letter : Text)
	{
		if (Letter != TEXT(' ') && Letter != TEXT('_'))
		{
			Squeezed.AppendChar(FChar::ToLower(Letter));
		}
	}
	return Squeezed;
}

/** The words of a query, and how well an action has them. */
class FWords
{
public:
	explicit FWords(const FString& Text)
		: Whole(Squeeze(Text))
	{
		Text.ParseIntoArray(Words, TEXT(" "), true);
		for (FString& Word : Words)
		{
			Word = Squeeze(Word);
		}
	}

	/** 0 for the title itself, then titles that begin so, titles with all words, and the rest; -1 for none. */
	int32 Rank(const FEdGraphSchemaAction& Action) const
	{
		const FString Title = Squeeze(Action.GetMenuDescription().ToString());
		if (Title == Whole)
		{
			return 0;
		}
		if (Title.StartsWith(Whole))
		{
			return 1;
		}
		if (HasAll(Title))
		{
			return 2;
		}
		return HasAll(Title + TEXT("\n") + Squeeze(Action.GetCategory().ToString()) + TEXT("\n")
				   + Squeeze(Action.GetKeywords().ToString()))
			? 3
			: -1;
	}

private:
	bool HasAll(const FString& Text) const
	{
		return !Words.ContainsByPredicate(
			[&Text](const FString& Word) { return !Text.Contains(Word, ESearchCase::CaseSensitive); });
	}

	FString Whole;
	TArray<FString> Words;
};

static bool Takes(const FMenuQuery& Query, const FEdGraphSchemaAction& Action, const FString& NodeClass)
{
	return (Query.NodeClass.IsEmpty() || NodeClass == Query.NodeClass)
		&& (Query.Title.IsEmpty() || Action.GetMenuDescription().ToString().Contains(Query.Title))
		&& (Query.Category.IsEmpty() || Action.GetCategory().ToString().StartsWith(Query.Category));
}
} // namespace MenuSearchPrivate

FString FMenuHit::GetTitle() const
{
	return Action->GetMenuDescription().ToString();
}

TSharedRef<FJsonObject> FMenuHit::MakeRequest() const
{
	const TSharedRef<FJsonObject> Request = MakeShared<FJsonObject>();
	const UBlueprintFunctionNodeSpawner* const Call = Cast<UBlueprintFunctionNodeSpawner>(
		MenuSearchPrivate::SpawnerOf(*Action));
	const UFunction* const Function = Call ? Call->GetFunction() : nullptr;
	const UClass* const Owner = Function ? Function->GetOwnerClass() : nullptr;
	if (Owner && NodeClass != TEXT("K2Node_Message") && NodeClass != TEXT("K2Node_CallArrayFunction"))
	{
		Request->SetStringField(TEXT("class_name"), TEXT("K2Node_CallFunction"));
		Request->SetStringField(TEXT("target_class"), Owner->GetPathName());
		Request->SetStringField(TEXT("target_function"), Function->GetName());
		return Request;
	}
	if (!NodeClass.IsEmpty())
	{
		Request->SetStringField(TEXT("class_name"), NodeClass);
	}
	Request->SetStringField(TEXT("menu_title"), GetTitle());
	return Request;
}

FMenuSearch::FMenuSearch()
{
	FBlueprintActionMenuUtils::MakeContextMenu(FBlueprintActionContext(), false, EveryContextTarget, Menu);
	FGraphContextMenuBuilder SchemaMenu(nullptr);
	GetDefault<UEdGraphSchema_K2>()->GetGraphContextActions(SchemaMenu);
	Menu.Append(SchemaMenu);
}

TArray<FMenuHit> FMenuSearch::Find(const FMenuQuery& Query) const
{
	const MenuSearchPrivate::FWords Words(Query.Words);
	TArray<FMenuHit> Ranks[4];
	for (const TSharedPtr<FEdGraphSchemaAction>& Action : Menu.GetEntries())
	{
		FString NodeClass = MenuSearchPrivate::NodeClassOf(*Action);
		const int32 Rank = !MenuSearchPrivate::Takes(Query, *Action, NodeClass) ? -1
			: Query.Words.IsEmpty()												? 0
																				: Words.Rank(*Action);
		if (Rank >= 0)
		{
			Ranks[Rank].Add({Action.Get(), MoveTemp(NodeClass)});
		}
	}
	for (int32 Rank = 1; Rank < 4; ++Rank)
	{
		Ranks[0].Append(Ranks[Rank]);
	}
	return MoveTemp(Ranks[0]);
}

TArray<FMenuHit> FMenuSearch::FindTitled(const FString& Title) const
{
	const FString Wanted = MenuSearchPrivate::Squeeze(Title);
	TArray<FMenuHit> Hits;
	for (const TSharedPtr<FEdGraphSchemaAction>& Action : Menu.GetEntries())
	{
		if (MenuSearchPrivate::Squeeze(Action->GetMenuDescription().ToString()) == Wanted)
		{
			Hits.Add({Action.Get(), MenuSearchPrivate::NodeClassOf(*Action)});
		}
	}
	return Hits;
}

TMap<FString, int32> FMenuSearch::CountByCategory() const
{
	TMap<FString, int32> Counts;
	for (const TSharedPtr<FEdGraphSchemaAction>& Action : Menu.GetEntries())
	{
		FString First = Action->GetCategory().ToString();
		int32 Bar = INDEX_NONE;
		First = First.FindChar(TEXT('|'), Bar) ? First.Left(Bar) : First;
		++Counts.FindOrAdd(First);
	}
	return Counts;
}
