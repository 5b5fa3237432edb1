#include "ReflectedThings.h"

#include "Standalone/ObjectText.h"

#include <gtest/gtest.h>

namespace ObjectTextNumbers
{
TEST(ObjectTextNumbers, FilesKeepEveryDigitAndTheClipboardHasSix)
{
	const FThingPackage Package;
	UThing* const Thing = Package.Make(TEXT("A"));
	Thing->Distance = 1.0 / 3.0;
	Thing->Ratio = 0.25f;
	Thing->Vector = FVector(1e-9, 2.0, 0.0);
	std::string File;
	std::string Copied;
	FString Error;
	ASSERT_TRUE(FObjectTextExport::Package(Package.Get()).Write({Thing}, File, Error)) << Error;
	ASSERT_TRUE(FObjectTextExport::Clipboard(Package.Get()).Write({Thing}, Copied, Error)) << Error;
	EXPECT_NE(File.find("Distance=0.3333333333333333\n"), std::string::npos) << File;
	EXPECT_NE(File.find("Ratio=0.250000\n"), std::string::npos) << File;
	EXPECT_NE(File.find("Vector=(X=0.000000001,Y=2.000000,Z=0.000000)\n"), std::string::npos) << File;
	EXPECT_NE(Copied.find("Distance=0.333333\n"), std::string::npos) << Copied;
}
} // namespace ObjectTextNumbers
