#include "ISourceControlModule.h"

#include "GitSourceControl.h"
#include "Misc/Paths.h"
#include "Modules/ModuleManager.h"
#include "NoSourceControl.h"

namespace SourceControlModules
{
class FSourceControlModule final : public ISourceControlModule
{
public:
	ISourceControlProvider& GetProvider() const override
	{
		if (Override)
		{
			return *Override;
		}
		const FString Directory = FPaths::ConvertRelativePathToFull(FPaths::ProjectDir());
		if (!bPicked || !Directory.Equals(PickedFor, ESearchCase::CaseSensitive))
		{
			Git = FGitSourceControl::Find(Directory);
			PickedFor = Directory;
			bPicked = true;
		}
		if (Git.IsValid())
		{
			return *Git;
		}
		return None;
	}

	bool IsEnabled() const override { return GetProvider().IsEnabled(); }
	void OverrideProvider(ISourceControlProvider* Provider) override { Override = Provider; }

private:
	/** Picked again when the project is another one. */
	mutable FString PickedFor;
	mutable bool bPicked = false;
	mutable TUniquePtr<FGitSourceControl> Git;
	mutable FNoSourceControl None;
	ISourceControlProvider* Override = nullptr;
};

/** What the module manager starts; the state is the one of ISourceControlModule::Get. */
class FModuleEntry final : public IModuleInterface
{
};
} // namespace SourceControlModules

ISourceControlModule& ISourceControlModule::Get()
{
	static SourceControlModules::FSourceControlModule Module;
	return Module;
}

IModuleInterface* CreateModule_SourceControl()
{
	return new SourceControlModules::FModuleEntry;
}
