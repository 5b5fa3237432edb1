#include "MorvaneToolkitModule.h"

#include "ToolExecutor.h"

namespace MorvaneToolkitState
{
static TSharedPtr<IToolExecutor>& Executor()
{
	static TSharedPtr<IToolExecutor> Instance;
	return Instance;
}
} // namespace MorvaneToolkitState

void FMorvaneToolkitModule::StartupModule()
{
	SetToolExecutor(MakeShared<FToolExecutor>());
}

void FMorvaneToolkitModule::ShutdownModule()
{
	SetToolExecutor(nullptr);
}

TSharedPtr<IToolExecutor> FMorvaneToolkitModule::GetToolExecutor()
{
	return MorvaneToolkitState::Executor();
}

void FMorvaneToolkitModule::SetToolExecutor(const TSharedPtr<IToolExecutor>& Executor)
{
	MorvaneToolkitState::Executor() = Executor;
}

IMPLEMENT_MODULE(FMorvaneToolkitModule, MorvaneToolkit);
