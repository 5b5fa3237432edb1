#include "Spawning/CamMatching.h"

#include "BlueprintActionFilter.h"
#include "BlueprintActionMenuUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "HAL/PlatformTime.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Spawning/CamSearch.h"
#include "ToolResult.h"
#include "UObject/Package.h"
#include "Utils/Report/GraphTelemetry.h"
#include "Utils/Report/JsonTexts.h"

namespace CamMatching
{
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

FSharedActionMenu::FSharedActionMenu(UEdGraph& InGraph)
	: FSharedActionMenu()
{
	Graph = &InGraph;
	FBlueprintActionContext Context;
	Context.Graphs.Add(&InGraph);
	if (UBlueprint* const Blueprint = GetBlueprint())
	{
		Context.Blueprints.Add(Blueprint);
	}
	FBlueprintActionMenuUtils::MakeContextMenu(Context, false, CamMatching::AllTargets, *this);

	// What the schema offers beside nodes of the database, such as comments, stands in the same list.
	if (const UEdGraphSchema_K2* const Schema = Cast<UEdGraphSchema_K2>(InGraph.GetSchema()))
	{
		FGraphContextMenuBuilder SchemaMenu(&InGraph);
		SchemaMenu.OwnerOfTemporaries = CamMatching::GetOwnerOfTemporaries();
		Schema->GetGraphContextActions(SchemaMenu);
		Append(SchemaMenu);
	}
}

UBlueprint* FSharedActionMenu::GetBlueprint() const
{
	return Graph.IsValid() ? FBlueprintEditorUtils::FindBlueprintForGraph(Graph.Get()) : nullptr;
}

const FSharedActionMenu* FSharedActionMenu::GetEventMenu() const
{
	const UBlueprint* const Blueprint = GetBlueprint();
	if (!EventMenu && Blueprint)
	{
		UEdGraph* const EventGraph = FBlueprintEditorUtils::FindEventGraph(Blueprint);
		const bool bOther = EventGraph && EventGraph != Graph.Get() && !Blueprint->UbergraphPages.Contains(Graph.Get());
		if (bOther)
		{
			EventMenu = MakeShared<FSharedActionMenu>(*EventGraph);
			EventMenu->bBeside = true;
		}
	}
	return EventMenu.Get();
}

TSharedPtr<FSharedActionMenu> FBlueprintCamMatching::BuildSharedCAM(UEdGraph& Graph, Morvane::FToolResult& Result)
{
	const double Start = FPlatformTime::Seconds();
	const TSharedPtr<FSharedActionMenu> Menu = MakeShared<FSharedActionMenu>(Graph);
	const TSharedRef<FJsonObject> Telemetry = GraphTelemetry::Ensure(Result);
	Telemetry->SetNumberField(TEXT("cam_build_time_ms"), (FPlatformTime::Seconds() - Start) * 1000.0);
	Telemetry->SetNumberField(TEXT("cam_action_count"), Menu->GetNumActions());
	Telemetry->SetBoolField(TEXT("context_sensitive"), false);
	return Menu;
}

TArray<FCamCandidate> FBlueprintCamMatching::FindCamMatches(
	const FBPNodeModification& Record, const FSharedActionMenu& Menu)
{
	FCamSearch Search(Menu);
	return Search.Find(Record.MenuTitle, Record.ClassName, Record.bTargetIsWired);
}

FString FBlueprintCamMatching::ExplainRefusal(const FBPNodeModification& Record, const FSharedActionMenu& Menu)
{
	FCamSearch Search(Menu);
	return Search.Explain(Record.MenuTitle, Record.ClassName);
}

FString FBlueprintCamMatching::HintRefusal(const FBPNodeModification& Record, const FSharedActionMenu& Menu)
{
	FCamSearch Search(Menu);
	return Search.Hint(Record.MenuTitle);
}

int32 FBlueprintCamMatching::CountShown(const TArray<FCamCandidate>& Candidates)
{
	int32 Count = 0;
	while (Count < FMath::Min(Candidates.Num(), MaxShown) && Candidates[Count].Confidence >= LeastShown)
	{
		++Count;
	}
	return Count;
}

void FBlueprintCamMatching::RecordCandidateMatches(
	const TArray<FCamCandidate>& Candidates, Morvane::FToolResult& Result, const FString& Context)
{
	TArray<TSharedPtr<FJsonValue>> Values;
	for (int32 Index = 0; Index < CountShown(Candidates); ++Index)
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
