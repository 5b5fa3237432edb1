// For a build inside the editor alone: nothing of this is known, or compiled, anywhere else.
#if defined(WITH_DEV_AUTOMATION_TESTS) && WITH_DEV_AUTOMATION_TESTS

#include "CoreMinimal.h"
#include "HAL/IConsoleManager.h"
#include "Interfaces/IPluginManager.h"
#include "IToolExecutor.h"
#include "Misc/AutomationTest.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "MorvaneToolkitModule.h"
#include "ToolCommand.h"
#include "ToolResult.h"
#include "Tools/ToolScript.h"

DEFINE_LOG_CATEGORY_STATIC(LogMorvane, Log, All);

namespace EditorAutomation
{
/** The folder of the scripts, beside the plug-in's sources. */
static FString GetFolder()
{
	const TSharedPtr<IPlugin> Plugin = IPluginManager::Get().FindPlugin(TEXT("MorvaneToolkit_Blueprint"));
	return Plugin ? FPaths::Combine(Plugin->GetBaseDir(), TEXT("Tests"), TEXT("Scripts")) : FString();
}

static TArray<FString> Play(const FString& Name)
{
	FString Script;
	const FString File = FPaths::Combine(GetFolder(), Name);
	if (!FFileHelper::LoadFileToString(Script, *File))
	{
		return {FString::Printf(TEXT("the script %s cannot be read"), *File)};
	}
	const TSharedPtr<IToolExecutor> Executor = FMorvaneToolkitModule::GetToolExecutor();
	return Executor ? ToolScript::Play(Script, *Executor) : TArray<FString>{TEXT("there is no tool executor")};
}

static void RunTool(const TArray<FString>& Words)
{
	const TSharedPtr<IToolExecutor> Executor = FMorvaneToolkitModule::GetToolExecutor();
	if (!Executor || Words.Num() < 2)
	{
		UE_LOG(LogMorvane, Display, TEXT("Morvane.Tool NAME JSON"));
		return;
	}
	const FString Arguments = FString::JoinBy(
		MakeArrayView(Words).RightChop(1), TEXT(" "), [](const FString& Word) { return Word; });
	const Morvane::FToolCommand Command(TEXT("console"), Words[0], Arguments);
	const TSharedPtr<Morvane::FToolResult> Result = MakeShared<Morvane::FToolResult>(Command);
	Executor->ExecuteTool(Command, Result, [](const TSharedPtr<Morvane::FToolResult>&) {});
	for (const FString& Message : Result->GetErrorMessages())
	{
		UE_LOG(LogMorvane, Error, TEXT("%s"), *Message);
	}
	for (const FString& Message : Result->GetWarningMessages())
	{
		UE_LOG(LogMorvane, Warning, TEXT("%s"), *Message);
	}
	for (const FString& Message : Result->GetSuccessMessages())
	{
		UE_LOG(LogMorvane, Display, TEXT("%s"), *Message);
	}
}

static FAutoConsoleCommand ToolCommand(TEXT("Morvane.Tool"), TEXT("Runs one tool: Morvane.Tool NAME JSON"),
	FConsoleCommandWithArgsDelegate::CreateStatic(&RunTool));
} // namespace EditorAutomation

#define MORVANE_SCRIPT_TEST(TestClass, TestName, File) \
	IMPLEMENT_SIMPLE_AUTOMATION_TEST( \
		TestClass, TestName, EAutomationTestFlags::EditorContext | EAutomationTestFlags::ProductFilter) \
	bool TestClass::RunTest(const FString&) \
	{ \
		for (const FString& Fault : EditorAutomation::Play(TEXT(File))) \
		{ \
			AddError(Fault); \
		} \
		return !HasAnyErrors(); \
	}

MORVANE_SCRIPT_TEST(FMorvaneGraphScript, "Morvane.Scripts.Graph", "Graph.jsonl")
MORVANE_SCRIPT_TEST(FMorvaneStructureScript, "Morvane.Scripts.Structure", "Structure.jsonl")
MORVANE_SCRIPT_TEST(FMorvaneWidgetScript, "Morvane.Scripts.Widget", "Widget.jsonl")

#undef MORVANE_SCRIPT_TEST

#endif
