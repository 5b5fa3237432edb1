#pragma once

#include "CoreMinimal.h"
#include "ToolResult.h"

/** Names that a request gives to what it makes. */
namespace NewNames
{
/** Why the text cannot be a name; empty when it can. Whether the name is free is another question. */
FString FindFault(const FString& Name);
/** False, with the reason as an error, when the text cannot be a name. */
bool Check(const FString& Name, Morvane::FToolResult& Result);
} // namespace NewNames
