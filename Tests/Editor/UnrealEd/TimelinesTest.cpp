#include "EditedBlueprint.h"

#include "Curves/CurveFloat.h"
#include "Curves/CurveLinearColor.h"
#include "Curves/CurveVector.h"
#include "EdGraphUtilities.h"
#include "Engine/TimelineTemplate.h"
#include "K2Node_Timeline.h"
#include "UObject/UnrealType.h"

using namespace EditedBlueprint;

namespace TimelinesTests
{
/** A timeline "Fade" with a track of each kind, shown by a node. */
class FFade
{
public:
	FFade()
	{
		UTimelineTemplate* const Timeline = FUtils::AddNewTimeline(Blueprint.Get(), TEXT("Fade"));
		AddTrack(Timeline, Timeline->FloatTracks, &FTTFloatTrack::CurveFloat, TEXT("Alpha"));
		AddTrack(Timeline, Timeline->VectorTracks, &FTTVectorTrack::CurveVector, TEXT("Offset"));
		AddTrack(Timeline, Timeline->LinearColorTracks, &FTTLinearColorTrack::CurveLinearColor, TEXT("Tint"));
		AddTrack(Timeline, Timeline->EventTracks, &FTTEventTrack::CurveKeys, TEXT("Beep"));
		Timeline->FloatTracks[0].CurveFloat->FloatCurve.AddKey(1.0f, 2.0f);
		AddNode();
	}

	UK2Node_Timeline* AddNode(const FGraphBuilder& Graph)
	{
		return Add<UK2Node_Timeline>(Graph, [](UK2Node_Timeline& Each) { Each.TimelineName = TEXT("Fade"); });
	}
	void AddNode() { Node = AddNode(Blueprint.EventGraph()); }
	UTimelineTemplate* Find(const TCHAR* Name) { return Blueprint->FindTimelineTemplateByVariableName(FName(Name)); }

	FBlueprintBuilder Blueprint;
	UK2Node_Timeline* Node = nullptr;

private:
	template <class TTrack, class TCurve>
	static void AddTrack(
		UTimelineTemplate* Timeline, TArray<TTrack>& Tracks, TObjectPtr<TCurve> TTrack::*Curve, FName Name)
	{
		TTrack Track;
		Track.SetTrackName(Name, Timeline);
		Track.*Curve = NewObject<TCurve>(Timeline, NAME_None, RF_Public);
		Tracks.Add(Track);
	}
};
} // namespace TimelinesTests

using namespace TimelinesTests;

TEST(Timelines, ARenameReachesTracksNodesAndReferences)
{
	FFade Fade;
	UK2Node_VariableGet* const Get = AddAccess<UK2Node_VariableGet>(Fade.Blueprint.EventGraph(), TEXT("Fade"));
	UTimelineTemplate* const Timeline = Fade.Find(TEXT("Fade"));
	const FString Guid = Timeline->TimelineGuid.ToString();
	ASSERT_TRUE(FUtils::RenameTimeline(Fade.Blueprint.Get(), TEXT("Fade"), TEXT("Glow")));
	EXPECT_EQ(Get->GetVarName(), FName(TEXT("Glow")));
	EXPECT_EQ(Fade.Node->GetTimelineTemplate(), Timeline);
	struct FName_
	{
		FName Actual;
		FString Expected;
	};
	for (const FName_& Row : {FName_{Timeline->GetFName(), TEXT("Glow_Template")},
			 FName_{Timeline->GetUpdateFunctionName(), TEXT("Glow__UpdateFunc")},
			 FName_{Timeline->GetFinishedFunctionName(), TEXT("Glow__FinishedFunc")},
			 FName_{Timeline->GetDirectionPropertyName(), TEXT("Glow__Direction_") + Guid},
			 FName_{Timeline->FloatTracks[0].GetPropertyName(), TEXT("Glow_Alpha_") + Guid},
			 FName_{Timeline->VectorTracks[0].GetPropertyName(), TEXT("Glow_Offset_") + Guid},
			 FName_{Timeline->LinearColorTracks[0].GetPropertyName(), TEXT("Glow_Tint_") + Guid},
			 FName_{Timeline->EventTracks[0].GetFunctionName(), TEXT("Glow__Beep__EventFunc")}})
	{
		EXPECT_EQ(ToStd(Row.Actual.ToString()), ToStd(Row.Expected));
	}
	EXPECT_THAT(FindInconsistenciesAfterReload(Fade.Blueprint), IsEmpty());
	ASSERT_NE(Fade.Find(TEXT("Glow")), nullptr);
	EXPECT_EQ(Fade.Find(TEXT("Glow"))->FloatTracks[0].CurveFloat->FloatCurve.Eval(1.0f), 2.0f);
}

TEST(Timelines, TheClassHoldsWhatOneWritesWhileItRuns)
{
	FFade Fade;
	const UTimelineTemplate* const Timeline = Fade.Find(TEXT("Fade"));
	FUtils::EnsureSkeletonIsUpToDate(Fade.Blueprint.Get());
	struct FCase
	{
		FName Name;
		const char* Type;
	};
	for (const FCase& Case : {FCase{Timeline->GetVariableName(), "TimelineComponent*"},
			 FCase{Timeline->GetDirectionPropertyName(), "ETimelineDirection"},
			 FCase{Timeline->FloatTracks[0].GetPropertyName(), "float"},
			 FCase{Timeline->VectorTracks[0].GetPropertyName(), "FVector"},
			 FCase{Timeline->LinearColorTracks[0].GetPropertyName(), "FLinearColor"}})
	{
		const FProperty* const Property = Fade.Blueprint->GeneratedClass->FindPropertyByName(Case.Name);
		ASSERT_NE(Property, nullptr) << Case.Type;
		EXPECT_THAT(ToStd(Property->GetCPPType()), testing::HasSubstr(Case.Type));
		EXPECT_EQ(Property->HasAnyPropertyFlags(CPF_BlueprintVisible), Case.Name == TEXT("Fade")) << Case.Type;
	}
}

TEST(Timelines, ANodesTitleIsTheTimelinesName)
{
	FFade Fade;
	Fade.Blueprint.AddVariable(TEXT("Door"), FBlueprintBuilder::Type(FSchema::PC_Boolean));
	Fade.Node->OnRenameNode(TEXT("Door"));
	EXPECT_EQ(Fade.Node->TimelineName, FName(TEXT("Fade"))) << "a variable has that name";
	Fade.Node->OnRenameNode(TEXT("Glow"));
	EXPECT_EQ(Fade.Node->TimelineName, FName(TEXT("Glow")));
	EXPECT_THAT(FindInconsistenciesAfterReload(Fade.Blueprint), IsEmpty());
}

TEST(Timelines, OneGoesWithWhateverShowsIt)
{
	struct FCase
	{
		const char* Name;
		void (*Remove)(FFade& Fade);
	};
	const FCase Cases[] = {
		{"node", [](FFade& Fade) { FUtils::RemoveNode(Fade.Blueprint.Get(), Fade.Node); }},
		{"node, told later", [](FFade& Fade) { FUtils::RemoveNode(Fade.Blueprint.Get(), Fade.Node, true); }},
		{"timeline, then node",
			[](FFade& Fade)
			{
				FUtils::RemoveTimeline(Fade.Blueprint.Get(), Fade.Find(TEXT("Fade")));
				FUtils::RemoveNode(Fade.Blueprint.Get(), Fade.Node, true);
				FUtils::MarkBlueprintAsStructurallyModified(Fade.Blueprint.Get());
			}},
		{"page of the node",
			[](FFade& Fade)
			{
				UEdGraph* const Page = FUtils::CreateNewGraph(
					Fade.Blueprint.Get(), TEXT("Page"), UEdGraph::StaticClass(), FSchema::StaticClass());
				FUtils::AddUbergraphPage(Fade.Blueprint.Get(), Page);
				Fade.Blueprint.EventGraph().Get()->Nodes.Remove(Fade.Node);
				Page->AddNode(Fade.Node);
				FUtils::RemoveGraph(Fade.Blueprint.Get(), Page);
			}},
	};
	for (const FCase& Case : Cases)
	{
		FFade Fade;
		Case.Remove(Fade);
		EXPECT_TRUE(Fade.Blueprint->Timelines.IsEmpty()) << Case.Name;
		EXPECT_NE(FUtils::AddNewTimeline(Fade.Blueprint.Get(), TEXT("Fade")), nullptr)
			<< Case.Name << ": the name is free";
		EXPECT_THAT(FindInconsistenciesAfterReload(Fade.Blueprint), IsEmpty()) << Case.Name;
		EXPECT_EQ(ReadBlueprintFile(Fade.Blueprint).find("Alpha"), std::string::npos) << Case.Name;
	}
}

TEST(Timelines, ACopiedNodeHasATimelineOfItsOwn)
{
	FFade Fade;
	FString Text;
	FEdGraphUtilities::ExportNodesToText({Fade.Node}, Text);
	TSet<UEdGraphNode*> Pasted;
	FEdGraphUtilities::ImportNodesFromText(Fade.Blueprint.EventGraph().Get(), Text, Pasted);
	FEdGraphUtilities::PostProcessPastedNodes(Pasted);
	ASSERT_EQ(Pasted.Num(), 1);
	const UK2Node_Timeline* const Copy = Cast<UK2Node_Timeline>(*Pasted.begin());
	ASSERT_NE(Copy, nullptr);
	ASSERT_NE(Copy->GetTimelineTemplate(), nullptr);
	EXPECT_NE(Copy->GetTimelineTemplate(), Fade.Node->GetTimelineTemplate());
	EXPECT_EQ(Copy->GetTimelineTemplate()->FloatTracks.Num(), 1);
	EXPECT_THAT(FindInconsistenciesAfterReload(Fade.Blueprint), IsEmpty());
}
