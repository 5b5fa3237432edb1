#pragma once

#include "CoreMinimal.h"

class UBlueprint;

namespace TakenNames
{
/** The Blueprint's own variable, component or timeline of that name gets another one; what refers to it follows. */
void MoveAside(UBlueprint& Blueprint, FName Name);
} // namespace TakenNames
