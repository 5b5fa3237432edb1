#pragma once

#include "CoreMinimal.h"
#include "UObject/WeakObjectPtr.h"

class UPackage;
namespace Morvane
{
class FToolResult;
}

/**
 * Packages that tools leave unsaved. Creating an asset only makes it in memory, as in the editor; here, what a
 * successful call has created is written when the call ends. What a failed call leaves behind stays in memory and is
 * written by nobody but a later save of that very asset.
 */
class FUnsavedPackages
{
public:
	/**
	 * After each call: writes what it has created if it succeeded, else remembers it as left behind. A file that cannot
	 * be written makes the call a failure.
	 */
	void EndCall(Morvane::FToolResult& Result);

	/** The assets in memory whose changes are on no disk, by package name, sorted. */
	static TArray<FString> ListUnsaved();

private:
	bool IsLeftBehind(const UPackage* Package) const;

	TArray<TWeakObjectPtr<UPackage>> LeftBehind;
};
