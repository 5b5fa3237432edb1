#include "AssetOperationBase.h"
#include "KeywordSet.h"

#include <gtest/gtest.h>

namespace KeywordConfidenceTest
{
static float Confidence(const TCHAR* Asked, const TCHAR* Title, const TCHAR* Category)
{
	TArray<FString> Candidate = FAssetOperationBase::CreateKeywords(Title);
	FAssetOperationBase::AppendKeywords(Category, Candidate);
	return KeywordMatch::GetConfidence(FKeywordSet(FAssetOperationBase::CreateKeywords(Asked)), FKeywordSet(Candidate));
}
} // namespace KeywordConfidenceTest

TEST(KeywordConfidence, AWordOfTheCategoryCountsForLessThanOneOfTheTitle)
{
	using KeywordConfidenceTest::Confidence;
	// Of the words asked for two are in the action, and one of them stands in its category alone.
	const float InTitle = Confidence(TEXT("Lantern Marble Quartz"), TEXT("Lantern Marble"), TEXT("Copper"));
	const float InCategory = Confidence(TEXT("Lantern Marble Quartz"), TEXT("Lantern Copper"), TEXT("Marble"));
	EXPECT_GT(InCategory, 0.0f);
	EXPECT_LT(InCategory, 0.8f * InTitle);
	// So what a category shares with a request is no node.
	EXPECT_LT(Confidence(TEXT("Marble"), TEXT("Lantern Copper"), TEXT("Marble")), 0.6f);
}
