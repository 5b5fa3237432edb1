#include "TestIsolation.h"

#include "Session/EditorModules.h"
#include "Standalone/Project.h"
#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"
#include "UObject/UObjectIterator.h"
#include "Utils/Read/ReadBudget.h"

#include <gtest/gtest.h>

#include <csignal>

void TestIsolation::CloseProject()
{
	for (TObjectIterator<UPackage> Package; Package; ++Package)
	{
		const FString Name = Package->GetName();
		if (!Name.StartsWith(TEXT("/Script/")) && !Name.StartsWith(TEXT("/Engine/")))
		{
			Package->MarkAsGarbage();
		}
	}
	FProject::Close();
	CollectGarbage();
}

namespace TestIsolation
{
class FOwnProject final : public testing::EmptyTestEventListener
{
	/** All of the editor, as in the program: a native class must be known before data of its path is asked for. */
	void OnTestProgramStart(const testing::UnitTest&) override
	{
		// Whoever runs the tests in the background hands signals down as ignored, and a server heeds that.
		for (const int Signal : {SIGHUP, SIGINT, SIGTERM})
		{
			std::signal(Signal, SIG_DFL);
		}
		EditorModules::StartEditor();
	}
	/** Tests run operations without the tool around them, which begins a call. */
	void OnTestStart(const testing::TestInfo&) override { FReadBudget::Begin(); }
	void OnTestEnd(const testing::TestInfo&) override { CloseProject(); }
};

static const bool bListening = []
{
	testing::UnitTest::GetInstance()->listeners().Append(new FOwnProject);
	return true;
}();
} // namespace TestIsolation
