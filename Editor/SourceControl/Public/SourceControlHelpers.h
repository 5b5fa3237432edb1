#pragma once

#include "CoreMinimal.h"

#include "ISourceControlState.h"

/** One call for one file. On false, LastErrorMsg tells why; the next call replaces it. Without source control nothing
 * succeeds: ask IsEnabled first. */
class USourceControlHelpers
{
public:
	static FString CurrentProvider();
	static bool IsEnabled();
	static FText LastErrorMsg();

	/** True when the file may be changed now. A file that does not exist yet may. */
	static bool CheckOutFile(const FString& File, bool bSilent = false);
	static bool MarkFileForAdd(const FString& File, bool bSilent = false);
	static bool MarkFileForDelete(const FString& File, bool bSilent = false);
};
