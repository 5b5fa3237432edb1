// The matching of loose requests against menus of growing size: one match, and taking the same menu in again.

#include "AssetOperationBase.h"
#include "KeywordIndex.h"

#include <benchmark/benchmark.h>

#include <random>

namespace KeywordBench
{
/** Titles of three to five words out of a few hundred, as menus have them; the same for each run. */
class FMenu
{
public:
	explicit FMenu(int64_t NumActions)
	{
		for (int64_t Number = 0; Number < NumActions; ++Number)
		{
			FString Title = Verbs[Random() % std::size(Verbs)];
			for (uint32 Word = 0; Word < 2 + Random() % 3; ++Word)
			{
				Title += TEXT(" ");
				Title += Nouns[Random() % std::size(Nouns)];
			}
			Titles.Add(Title);
		}
	}

	void AddTo(FKeywordIndex& Index) const
	{
		for (const FString& Title : Titles)
		{
			Index.Add(Title, TEXT("Utilities|Transformation"), TEXT("K2Node_CallFunction"));
		}
	}

private:
	static constexpr const TCHAR* Verbs[] = {TEXT("Get"), TEXT("Set"), TEXT("Add"), TEXT("Make"), TEXT("Break"),
		TEXT("Cast To"), TEXT("Find"), TEXT("Remove"), TEXT("Play"), TEXT("Spawn")};
	static constexpr const TCHAR* Nouns[] = {TEXT("Actor"), TEXT("Location"), TEXT("Rotation"), TEXT("Component"),
		TEXT("Vector"), TEXT("Sound"), TEXT("Widget"), TEXT("Input"), TEXT("Camera"), TEXT("Player"), TEXT("Pawn"),
		TEXT("Material"), TEXT("Texture"), TEXT("Distance"), TEXT("Velocity"), TEXT("Collision"), TEXT("Animation"),
		TEXT("Montage"), TEXT("Trace"), TEXT("Timer"), TEXT("Level"), TEXT("Game"), TEXT("Mode"), TEXT("Array")};

	std::mt19937 Random{11};
	TArray<FString> Titles;
};

static void MatchOneRequest(benchmark::State& State)
{
	FKeywordIndex Index;
	FMenu(State.range(0)).AddTo(Index);
	const TCHAR* const Requests[] = {TEXT("Get Actor Location"), TEXT("SetActorRotation"),
		TEXT("Play Soudn at Lcoation"), TEXT("something else entirely")};
	int64_t Number = 0;
	for (auto _ : State)
	{
		const TArray<FString> Title = FAssetOperationBase::CreateKeywords(Requests[Number++ % 4]);
		TArray<FString> Request = Title;
		Request.Add(TEXT("K2Node_CallFunction"));
		benchmark::DoNotOptimize(Index.FindBest(Request, Title, 20));
	}
}
BENCHMARK(MatchOneRequest)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMicrosecond);

static void TakeMenuInAgain(benchmark::State& State)
{
	FKeywordIndex Index;
	const FMenu Menu(State.range(0));
	Menu.AddTo(Index);
	for (auto _ : State)
	{
		Index.Reset();
		Menu.AddTo(Index);
	}
}
BENCHMARK(TakeMenuInAgain)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond);
} // namespace KeywordBench
