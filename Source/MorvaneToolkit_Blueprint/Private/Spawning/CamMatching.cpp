#include "Spawning/CamMatching.h"

#include "AssetOperationBase.h"
#include "BlueprintActionFilter.h"
#include "BlueprintActionMenuItem.h"
#include "BlueprintActionMenuUtils.h"
#include "BlueprintNodeSpawner.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "HAL/PlatformTime.h"
#include "KeywordIndex.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResult.h"
#include "UObject/Package.h"
#include "Utils/Report/GraphTelemetry.h"
#include "Utils/Report/JsonTexts.h"

namespace CamMatching
{
static FString GetNodeClassName(const FEdGraphSchemaAction& Action, const FString& Title)
{
	if (Action.GetTypeId() == FBlueprintActionMenuItem::StaticGetTypeId())
	{
		const UBlueprintNodeSpawner* const Spawner =
			static_cast<const FBlueprintActionMenuItem&>(Action).GetRawAction();
		return Spawner && Spawner->NodeClass ? Spawner->NodeClass->GetName() : FString();
	}
	if (Action.GetTypeId() == FEdGraphSchemaAction_NewNode::StaticGetTypeId())
	{
		// Known by their titles: what template a comment action carries is the schema's own business.
		if (Title.Equals(TEXT("Create Comment from Selection"), ESearchCase::IgnoreCase)
			|| Title.Equals(TEXT("Add Comment"), ESearchCase::IgnoreCase))
		{
			return TEXT("EdGraphNode_Comment");
		}
		const UEdGraphNode* const Template = static_cast<const FEdGraphSchemaAction_NewNode&>(Action).NodeTemplate;
		return Template ? Template->GetClass()->GetName() : FString();
	}
	return FString();
}

/** Of the title, of what the class name means where it stands for a title, and of the class name itself. */
static TArray<FString> MakeRequestKeywords(const FString& MenuTitle, const FString& ClassName)
{
	TArray<FString> Keywords = FAssetOperationBase::CreateKeywords(MenuTitle);
	const auto AddKeywordsOf = [&Keywords](const TCHAR* Title)
	{
		for (const FString& Keyword : FAssetOperationBase::CreateKeywords(Title))
		{
			Keywords.AddUnique(Keyword);
		}
	};
	if (ClassName.Equals(TEXT("Self"), ESearchCase::IgnoreCase))
	{
		AddKeywordsOf(TEXT("Get a reference to self"));
	}
	if (ClassName.Equals(TEXT("MathExpression"), ESearchCase::IgnoreCase)
		|| ClassName.Equals(TEXT("K2Node_MathExpression"), ESearchCase::IgnoreCase))
	{
		AddKeywordsOf(TEXT("Add Math Expression"));
	}
	if (!ClassName.IsEmpty())
	{
		Keywords.Add(ClassName);
		FAssetOperationBase::AppendKeywords(ClassName, Keywords);
	}
	return Keywords;
}

/**
 * The keywords of the menu that was asked last. Menus of different runs are nearly the same, so what was learned about
 * their texts is kept for the next; answers depend on the menu alone.
 */
class FMenuIndex
{
public:
	static FMenuIndex& For(const FSharedActionMenu& Menu)
	{
		static FMenuIndex Index;
		if (Index.Serial != Menu.GetSerial())
		{
			Index.Take(Menu);
		}
		return Index;
	}

	/** Runs repeat their requests, so the answers to the last ones are kept. */
	const TArray<FKeywordHit>& FindBest(const FString& MenuTitle, const FString& ClassName)
	{
		const FString Request = MenuTitle + TEXT("\n") + ClassName;
		if (const TArray<FKeywordHit>* const Known = KnownHits.Find(Request))
		{
			return *Known;
		}
		if (KnownHits.Num() >= MaxKnownHits)
		{
			KnownHits.Reset();
		}
		return KnownHits.Add(Request,
			Keywords.FindBest(MakeRequestKeywords(MenuTitle, ClassName), FAssetOperationBase::CreateKeywords(MenuTitle),
				FBlueprintCamMatching::MaxShown));
	}
	/**
	 * The title of the action whose function or event has this name, which agents know better than titles; empty when
	 * there is none.
	 */
	FString FindTitleOfMember(const FString& Name, const FSharedActionMenu& Menu)
	{
		if (TitleByMember.IsEmpty())
		{
			for (const int32 Index : ActionByEntry)
			{
				const FEdGraphSchemaAction& Action = *Menu.GetActionAt(Index);
				// The search words of a member begin with its name.
				FString Member = Action.GetKeywords().ToString();
				int32 Blank = INDEX_NONE;
				Member = Member.FindChar(TEXT(' '), Blank) ? Member.Left(Blank) : Member;
				TitleByMember.FindOrAdd(WithoutPrefix(Member), Action.GetMenuDescription().ToString());
			}
		}
		int32 Separator = INDEX_NONE;
		FString Bare = Name.Replace(TEXT(" "), TEXT(""), ESearchCase::CaseSensitive);
		Bare = Bare.FindLastChar(TEXT(':'), Separator) ? Bare.RightChop(Separator + 1) : Bare;
		Bare = Bare.FindLastChar(TEXT('.'), Separator) ? Bare.RightChop(Separator + 1) : Bare;
		const FString* const Title = Bare.IsEmpty() ? nullptr : TitleByMember.Find(WithoutPrefix(Bare));
		return Title ? *Title : FString();
	}
	/** The place in the menu: untitled actions are no entries. */
	int32 GetActionIndex(int32 Entry) const { return ActionByEntry[Entry]; }

private:
	void Take(const FSharedActionMenu& Menu)
	{
		Keywords.Reset();
		KnownHits.Reset();
		ActionByEntry.Reset();
		TitleByMember.Reset();
		for (int32 Index = 0; Index < Menu.GetNumActions(); ++Index)
		{
			const TSharedPtr<FEdGraphSchemaAction> Action = Menu.GetActionAt(Index);
			const FString Title = Action ? Action->GetMenuDescription().ToString() : FString();
			if (!Title.IsEmpty())
			{
				Keywords.Add(Title, Action->GetCategory().ToString(), GetNodeClassName(*Action, Title));
				ActionByEntry.Add(Index);
			}
		}
		Serial = Menu.GetSerial();
	}

	static FString WithoutPrefix(const FString& Member)
	{
		return Member.StartsWith(TEXT("K2_"), ESearchCase::IgnoreCase) ? Member.RightChop(3) : Member;
	}

	static constexpr int32 MaxKnownHits = 1000;

	FKeywordIndex Keywords;
	/** By title and class name as they are spelled, since case tells where words begin. */
	TMapByKeywordText<TArray<FKeywordHit>> KnownHits;
	TArray<int32> ActionByEntry;
	/** Of the first action that has the member; made when first asked for. */
	TMap<FString, FString> TitleByMember;
	/** 0: no menu yet. */
	uint64 Serial = 0;
};

static TSharedRef<FJsonObject> ToJson(const FCamCandidate& Candidate)
{
	const TSharedRef<FJsonObject> Json = MakeShared<FJsonObject>();
	Json->SetStringField(TEXT("menu_title"), Candidate.MenuTitle);
	Json->SetStringField(TEXT("node_class"), Candidate.NodeClass);
	Json->SetStringField(TEXT("menu_category"), Candidate.MenuCategory);
	Json->SetNumberField(TEXT("confidence"), Candidate.Confidence);
	Json->SetArrayField(TEXT("common_keywords"), ToJsonTexts(Candidate.CommonKeywords.CommonKeywords));
	return Json;
}

/** Joined by hand: not every version of the editor has a name for all of them. */
constexpr uint32 AllTargets = EContextTargetFlags::TARGET_Blueprint | EContextTargetFlags::TARGET_SubComponents
	| EContextTargetFlags::TARGET_NodeTarget | EContextTargetFlags::TARGET_PinObject
	| EContextTargetFlags::TARGET_SiblingPinObjects | EContextTargetFlags::TARGET_BlueprintLibraries
	| EContextTargetFlags::TARGET_NonImportedTypes;

/** What the nodes that a schema makes for its entries alone belong to. The menus keep them alive, and so their owner.
 */
static UObject* GetOwnerOfTemporaries()
{
	static TWeakObjectPtr<UEdGraph> Owner;
	if (!Owner.IsValid())
	{
		Owner = NewObject<UEdGraph>(GetTransientPackage(), NAME_None, RF_Transient);
	}
	return Owner.Get();
}

static uint64 MakeSerial()
{
	static uint64 Last = 0;
	return ++Last;
}
} // namespace CamMatching

FSharedActionMenu::FSharedActionMenu()
	: Serial(CamMatching::MakeSerial())
{
}

TSharedPtr<FSharedActionMenu> FBlueprintCamMatching::BuildSharedCAM(UEdGraph& Graph, Morvane::FToolResult& Result)
{
	const double Start = FPlatformTime::Seconds();
	FBlueprintActionContext Context;
	Context.Graphs.Add(&Graph);
	if (UBlueprint* const Blueprint = FBlueprintEditorUtils::FindBlueprintForGraph(&Graph))
	{
		Context.Blueprints.Add(Blueprint);
	}
	const TSharedPtr<FSharedActionMenu> Menu = MakeShared<FSharedActionMenu>();
	FBlueprintActionMenuUtils::MakeContextMenu(Context, false, CamMatching::AllTargets, *Menu);

	// What the schema offers beside nodes of the database, such as comments, stands in the same list.
	if (const UEdGraphSchema_K2* const Schema = Cast<UEdGraphSchema_K2>(Graph.GetSchema()))
	{
		FGraphContextMenuBuilder SchemaMenu(&Graph);
		SchemaMenu.OwnerOfTemporaries = CamMatching::GetOwnerOfTemporaries();
		Schema->GetGraphContextActions(SchemaMenu);
		Menu->Append(SchemaMenu);
	}

	const TSharedRef<FJsonObject> Telemetry = GraphTelemetry::Ensure(Result);
	Telemetry->SetNumberField(TEXT("cam_build_time_ms"), (FPlatformTime::Seconds() - Start) * 1000.0);
	Telemetry->SetNumberField(TEXT("cam_action_count"), Menu->GetNumActions());
	Telemetry->SetBoolField(TEXT("context_sensitive"), false);
	return Menu;
}

TArray<FCamCandidate> FBlueprintCamMatching::FindCamMatches(
	const FBPNodeModification& Record, const FSharedActionMenu& Menu)
{
	CamMatching::FMenuIndex& Index = CamMatching::FMenuIndex::For(Menu);
	TArray<FKeywordHit> Hits = Index.FindBest(Record.MenuTitle, Record.ClassName);
	if (!Hits.IsEmpty() && Hits[0].Confidence < 1.0f)
	{
		const FString Title = Index.FindTitleOfMember(Record.MenuTitle, Menu);
		Hits = Title.IsEmpty() ? Hits : Index.FindBest(Title, Record.ClassName);
	}
	TArray<FCamCandidate> Candidates;
	for (const FKeywordHit& Hit : Hits)
	{
		FCamCandidate& Candidate = Candidates.AddDefaulted_GetRef();
		Candidate.Action = Menu.GetActionAt(Index.GetActionIndex(Hit.Entry));
		Candidate.MenuTitle = Candidate.Action->GetMenuDescription().ToString();
		Candidate.MenuCategory = Candidate.Action->GetCategory().ToString();
		Candidate.NodeClass = CamMatching::GetNodeClassName(*Candidate.Action, Candidate.MenuTitle);
		Candidate.CommonKeywords = Hit.Similarity;
		Candidate.Confidence = Hit.Confidence;
	}
	return Candidates;
}

void FBlueprintCamMatching::RecordCandidateMatches(
	const TArray<FCamCandidate>& Candidates, Morvane::FToolResult& Result, const FString& Context)
{
	TArray<TSharedPtr<FJsonValue>> Values;
	for (int32 Index = 0; Index < FMath::Min(Candidates.Num(), MaxShown); ++Index)
	{
		Values.Add(MakeShared<FJsonValueObject>(CamMatching::ToJson(Candidates[Index])));
	}
	const TSharedRef<FJsonObject> Entry = MakeShared<FJsonObject>();
	if (!Context.IsEmpty())
	{
		Entry->SetStringField(TEXT("context"), Context);
	}
	Entry->SetArrayField(TEXT("candidates"), MoveTemp(Values));
	GraphTelemetry::Append(Result, TEXT("candidate_matches"), Entry);
}
