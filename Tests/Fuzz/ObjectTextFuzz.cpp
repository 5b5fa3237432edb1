// Any bytes: parsing them either fails with a line and a reason or gives records that are written and read again as
// themselves, and that can be made into objects.

#include "Misc/FeedbackContext.h"
#include "Standalone/ObjectProviders.h"
#include "Standalone/ObjectText.h"
#include "UObject/Package.h"

#include <cstdint>
#include <cstdlib>

namespace ObjectTextFuzz
{
void Require(const bool bCondition)
{
	if (!bCondition)
	{
		std::abort();
	}
}

class FSilence final : public FFeedbackContext
{
public:
	void Serialize(const TCHAR*, ELogVerbosity::Type, const FName&) override {}
};

void MakeObjects(const FObjectTextTree& Tree)
{
	UPackage* const Package = CreatePackage(TEXT("/Temp/Fuzz"));
	FSilence Silence;
	FObjectTextImport Import(Silence);
	TArray<UObject*> Made;
	for (const FObjectTextRecord& Record : Tree.Objects)
	{
		Made.Add(Import.Create(Record, Package));
	}
	Import.ImportProperties();
	std::string Text;
	FString Error;
	FObjectTextExport::Clipboard(Package).Write(Made, Text, Error);
	Package->MarkAsGarbage();
	CollectGarbage();
}
} // namespace ObjectTextFuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, const std::size_t Size)
{
	RegisterCoreUObjectClasses();
	FObjectTextTree Tree;
	FObjectTextError Error;
	if (!Tree.ParseView(std::string_view(reinterpret_cast<const char*>(Data), Size), Error))
	{
		ObjectTextFuzz::Require(Error.LineNumber > 0 && !Error.Message.IsEmpty() && Tree.Objects.empty());
		return 0;
	}
	for (const FObjectTextRecord& Record : Tree.Objects)
	{
		const std::string Written = FKeptObjectText::TextOf(Record);
		FObjectTextTree Again;
		ObjectTextFuzz::Require(
			Again.ParseView(Written, Error) && FKeptObjectText::TextOf(Again.Objects.front()) == Written);
	}
	ObjectTextFuzz::MakeObjects(Tree);
	return 0;
}
