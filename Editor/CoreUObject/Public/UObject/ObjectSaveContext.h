#pragma once

#include "CoreMinimal.h"

/** What those who hear of a save are told about it. Only a save that succeeded is told of. */
class FObjectPostSaveContext
{
};
