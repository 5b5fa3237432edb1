#include "Utils/Structure/StructureNames.h"

#include "ToolResult.h"

namespace StructureNames
{
bool IsObjectName(const FString& Name, FString& OutReason)
{
	FText Reason;
	const bool bFit = FName::IsValidXName(Name, TEXT("\"'/:.,|\n\r\t"), &Reason);
	OutReason = Reason.ToString();
	return bFit;
}

bool VerifyObjectName(const FString& Name, Morvane::FToolResult& Result)
{
	FString Reason;
	const bool bFit = IsObjectName(Name, Reason);
	if (!bFit)
	{
		Result.AddErrorMessage(FString::Printf(TEXT("%s for name '%s'"), *Reason, *Name));
	}
	return bFit;
}
} // namespace StructureNames
