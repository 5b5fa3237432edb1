#include "Containers/StringConv.h"
#include "UObject/NameTypes.h"

#include <gtest/gtest.h>

namespace NameDisplayTests
{
TEST(NameDisplayString, PartsWordsAsTheEditorShowsThem)
{
	const struct FCase
	{
		const TCHAR* Name;
		bool bIsBool;
		const char* Expected;
	} Cases[] = {
		{TEXT("PrintString"), false, "Print String"},
		{TEXT("bIsOpen"), true, "Is Open"},
		{TEXT("bIsOpen"), false, "B Is Open"},
		{TEXT("below"), true, "Below"},
		{TEXT("PlaySoundAtLocation"), false, "Play Sound at Location"},
		{TEXT("AddToViewport"), false, "Add to Viewport"},
		{TEXT("InString"), false, "In String"},
		{TEXT("PlaySound2D"), false, "Play Sound 2D"},
		{TEXT("SetActorScale3D"), false, "Set Actor Scale 3D"},
		{TEXT("AIController"), false, "AIController"},
		{TEXT("Completed_Later"), false, "Completed Later"},
		{TEXT("my_value"), false, "My Value"},
		{TEXT("Instance"), false, "Instance"},
		{TEXT("SpawnInstance"), false, "Spawn Instance"},
		{TEXT(""), true, ""},
	};
	for (const FCase& Case : Cases)
	{
		EXPECT_EQ(ToUtf8(FName::NameToDisplayString(Case.Name, Case.bIsBool)), Case.Expected)
			<< TCHAR_TO_UTF8(Case.Name);
	}
}
} // namespace NameDisplayTests
