#include "PackageTest.h"
#include "Standalone/ObjectText.h"

#include <csignal>
#include <random>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

class PackageKill : public FPackageTest
{
protected:
	/** Saves the asset over and over, each time with all its values changed together. Never returns. */
	[[noreturn]] static void SaveForEver(UTestAsset* Asset)
	{
		for (int32 Round = 1;; ++Round)
		{
			for (UObject* Inner = Asset->GetFirstInner(); Inner; Inner = Inner->GetNextInner())
			{
				static_cast<UTestAsset*>(Inner)->Count = 1000 + Round;
			}
			if (!TestAssets::Save(Asset).IsEmpty())
			{
				_exit(1);
			}
		}
	}

	/** How many different values the objects in the file have; 0 when the file is not whole. */
	static std::size_t CountValues(const std::string& Bytes)
	{
		FPackageText::FHeader Header;
		FString Error;
		FObjectTextTree Tree;
		FObjectTextError Unreadable;
		if (!FPackageText::CheckBytes(Bytes, TEXT("F"), Header, Error)
			|| !Tree.ParseView(std::string_view(Bytes).substr(static_cast<std::size_t>(Header.BodyOffset)), Unreadable))
		{
			return 0;
		}
		std::set<std::string_view> Values;
		for (const FObjectTextRecord& Record : Tree.Objects.front().Inner)
		{
			const FObjectTextLine* const Line = Record.FindLine("Count");
			Values.insert(Line ? Line->Value : std::string_view());
		}
		return Values.size();
	}
};

TEST_F(PackageKill, AKilledSaveLeavesTheOldFileOrTheNewOne)
{
	constexpr int32 NumKills = 300;
	UTestAsset* Asset = TestAssets::MakeAsset(TEXT("/Pack/Thing"));
	for (int32 Index = 0; Index < 50; ++Index)
	{
		TestAssets::MakeInner(Asset, *FString::Printf(TEXT("Object_%d"), Index))->Count = 1000;
	}
	ASSERT_EQ(Relative(TestAssets::Save(Asset)), "");
	std::mt19937 Random(7);
	std::set<std::string> Seen;
	int32 NumCaughtWriting = 0;
	for (int32 Kill = 0; Kill < NumKills; ++Kill)
	{
		const pid_t Child = fork();
		ASSERT_GE(Child, 0);
		if (Child == 0)
		{
			SaveForEver(Asset);
		}
		usleep(Random() % 20000);
		kill(Child, SIGKILL);
		int Status = 0;
		waitpid(Child, &Status, 0);
		ASSERT_TRUE(WIFSIGNALED(Status)) << "the saving process gave up by itself";
		const std::string Bytes = Folder.Read("Thing.uatext");
		ASSERT_EQ(CountValues(Bytes), 1u) << "after kill " << Kill;
		Seen.insert(Bytes);
		FPackageText::TakeInForeignChanges();
		Asset = Load<UTestAsset>(TEXT("/Pack/Thing"));
		ASSERT_TRUE(Asset);
		NumCaughtWriting += Folder.Exists(".Thing.uatext.tmp") ? 1 : 0;
	}
	EXPECT_GT(Seen.size(), 1u) << "no save ever finished, so nothing was tried";
	EXPECT_GT(NumCaughtWriting, 0) << "no save was ever caught in the middle";
	EXPECT_EQ(Relative(TestAssets::Save(Asset)), "");
	EXPECT_FALSE(Folder.Exists(".Thing.uatext.tmp")) << "what a killed save left is used up by the next one";
}
