#pragma once

#include "CoreMinimal.h"

/** Names that a request gives to what it makes. */
namespace NewNames
{
/** Why the text cannot be a name; empty when it can. Whether the name is free is another question. */
FString FindFault(const FString& Name);
} // namespace NewNames
