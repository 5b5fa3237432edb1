// Any bytes as a package file: refused with a sentence, or loaded. The first byte chooses whether the rest is the file
// as it is, or object text that gets a valid header, since chance never finds a checksum.

#include "Standalone/ObjectProviders.h"
#include "Standalone/PackageText.h"
#include "UObject/Package.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, const std::size_t Size)
{
	if (Size == 0)
	{
		return 0;
	}
	RegisterCoreUObjectClasses();
	FPackageText::RegisterLoader();
	std::string Bytes(reinterpret_cast<const char*>(Data) + 1, Size - 1);
	if (Data[0] % 2 == 0)
	{
		FPackageText::FHeader Header;
		Header.PackageName = TEXT("/Temp/Fuzz");
		Header.AssetName = TEXT("Fuzz");
		Header.AssetClassPath = TEXT("/Script/CoreUObject.Object");
		Bytes = FPackageText::MakeBytes(Header, Bytes);
	}
	FString Error;
	UPackage* const Package = FPackageText::LoadFromBytes(MoveTemp(Bytes), TEXT("Fuzz.uatext"), Error);
	if (Package)
	{
		Package->MarkAsGarbage();
	}
	else if (Error.IsEmpty())
	{
		std::abort();
	}
	CollectGarbage();
	return 0;
}
