// Members that agents know by name, whose titles have other words.

#include "Populating.h"
#include "Spawning/CamMatching.h"

TEST(MatchingMembers, AreFoundByNameAloneAndBehindTheirClass)
{
	const FBlueprintBuilder Blueprint;
	Morvane::FToolResult Result = MakeResult();
	const TSharedPtr<FSharedActionMenu> Menu = FBlueprintCamMatching::BuildSharedCAM(
		*Blueprint.EventGraph().Get(), Result);
	const std::pair<const TCHAR*, const TCHAR*> Members[] = {{TEXT("K2_SetTimer"), TEXT("Set Timer by Function Name")},
		{TEXT("Normal2D"), TEXT("Normalize 2D")}, {TEXT("FTrunc"), TEXT("Truncate")},
		{TEXT("K2_GetActorsWithinRange"), TEXT("")}};
	for (const auto& [Member, Title] : Members)
	{
		for (const TCHAR* const Form : {TEXT("%s"), TEXT("SomeLibrary.%s"), TEXT("USomeLibrary::%s")})
		{
			FBPNodeModification Record;
			Record.MenuTitle = FString(Form).Replace(TEXT("%s"), Member);
			const TArray<FCamCandidate> Found = FBlueprintCamMatching::FindCamMatches(Record, *Menu);
			ASSERT_FALSE(Found.IsEmpty());
			const bool bIsIt = *Title && Found[0].MenuTitle.Equals(Title, ESearchCase::CaseSensitive);
			EXPECT_EQ(bIsIt, *Title != TEXT('\0')) << ToStd(Record.MenuTitle) << " gave " << ToStd(Found[0].MenuTitle);
			EXPECT_EQ(Found[0].Confidence >= 1.0f, *Title != TEXT('\0')) << ToStd(Record.MenuTitle);
		}
	}
}
