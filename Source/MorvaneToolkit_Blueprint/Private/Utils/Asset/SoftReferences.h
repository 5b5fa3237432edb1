#pragma once

#include "CoreMinimal.h"

namespace SoftReferences
{
/**
 * "/Game/Art/T_Wood.T_Wood" for "/Game/Art/T_Wood": a package alone would lead to no asset. Other text as it is; what
 * it leads to need not be there.
 */
FString ToObjectPath(const FString& Text);
} // namespace SoftReferences
