#pragma once

#include "Misc/PackageName.h"
#include "Misc/Paths.h"
#include "Standalone/ObjectText.h"
#include "Standalone/PackageText.h"
#include "TemporaryFolder.h"
#include "TestAssets.h"

#include <gtest/gtest.h>

/** A content folder of its own, mounted as "/Pack/". Packages that a test made in it are unloaded at its end. */
class FPackageTest : public testing::Test
{
protected:
	void SetUp() override
	{
		TestAssets::Register();
		HandlerBefore = FObjectTextImport::SetUnknownClassHandler(nullptr);
		FPackageName::RegisterMountPoint(TEXT("/Pack/"), Folder.Get());
	}
	void TearDown() override
	{
		FObjectTextImport::SetUnknownClassHandler(HandlerBefore);
		UnloadAll();
		FPackageName::UnRegisterMountPoint(TEXT("/Pack/"), Folder.Get());
	}

	static void UnloadAll()
	{
		TArray<UObject*> Packages;
		GetObjectsOfClass(UPackage::StaticClass(), Packages);
		for (UObject* const Package : Packages)
		{
			if (Package->GetName().StartsWith(TEXT("/Pack/")))
			{
				Package->MarkAsGarbage();
			}
		}
		CollectGarbage();
	}

	template <class T>
	static T* Load(const TCHAR* Path)
	{
		return LoadObject<T>(nullptr, Path, nullptr, LOAD_Quiet);
	}
	/** The error of an attempt to load that has to fail; paths in it are relative to the folder. */
	std::string LoadError(const TCHAR* PackageName) const
	{
		EXPECT_EQ(LoadPackage(nullptr, PackageName, LOAD_Quiet), nullptr);
		return Relative(FPackageText::GetLastLoadError(PackageName));
	}
	std::string Relative(const FString& Message) const
	{
		return ToUtf8(Message.Replace(*(Folder.Get() + TEXT("/")), TEXT(""), ESearchCase::CaseSensitive));
	}

	FTemporaryFolder Folder;

private:
	FObjectTextImport::FUnknownClassHandler HandlerBefore = nullptr;
};
