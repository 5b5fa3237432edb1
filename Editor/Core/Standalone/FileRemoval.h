#pragma once

#include "CoreMinimal.h"

/**
 * Takes a file away for good: it is gone when the answer is empty, and its folder is on the disk, so that a power cut
 * does not bring it back. A file that was not there is gone. Otherwise a sentence says why it stands, or what is
 * doubtful.
 */
FString RemoveFileForGood(const FString& File);
