#pragma once

#include "CoreMinimal.h"

namespace Morvane
{
class FToolCommand;
struct FTrackedModification;
} // namespace Morvane

/** What a change looks like afterwards, in a length that fits beside the rest of an answer. */
namespace Morvane::FreshRead
{
/**
 * The document that the modification's read answers. Past 64 KB it is lean. What is still as long, or past 1 MB in
 * full, is narrowed to the shown nodes, given by guid, with a note and the calls that read all of it; past 1 MB and
 * without such nodes the note stands alone. A read that failed is an object with the one key "error".
 */
FString Read(const FTrackedModification& Modification, const TSet<FString>& ShownNodes, const FToolCommand& Command);
/** Whether the read that stands before it shows what this one would: floating nodes stand beside the events. */
bool IsShownBy(const FTrackedModification& Modification, const FTrackedModification& Former);
/** What stands in place of such a read. */
FString ReferToFormer(const FTrackedModification& Modification);
} // namespace Morvane::FreshRead
