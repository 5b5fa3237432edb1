// Any bytes as a binary package of the engine's editor: refused with a sentence, or turned into text that the loader
// takes.

#include "BinaryPackage/BinaryPackageText.h"
#include "Standalone/ObjectProviders.h"
#include "Standalone/PackageText.h"
#include "UObject/Package.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, const std::size_t Size)
{
	const std::string_view Bytes(reinterpret_cast<const char*>(Data), Size);
	std::string Text;
	std::string Refusal;
	FBinaryPackageFindings Findings;
	if (!MakePackageTextOfBinary(Bytes, "/Temp/BP_Small", Text, Findings, Refusal))
	{
		if (Refusal.empty())
		{
			std::abort();
		}
		return 0;
	}
	RegisterCoreUObjectClasses();
	FPackageText::RegisterLoader();
	FString Error;
	UPackage* const Package = FPackageText::LoadFromBytes(MoveTemp(Text), TEXT("Fuzz.uasset"), Error);
	if (Package)
	{
		Package->MarkAsGarbage();
	}
	else if (Error.IsEmpty() || Error.Contains(TEXT(", line ")))
	{
		std::abort(); // what the reader writes, the parser reads
	}
	CollectGarbage();
	return 0;
}
