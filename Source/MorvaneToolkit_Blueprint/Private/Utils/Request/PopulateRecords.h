#pragma once

#include "CoreMinimal.h"
#include "Utils/Request/GraphRecords.h"

class FJsonObject;
class FJsonValue;

/**
 * The element parsers of the tools that add: one JSON element becomes one record. They are forgiving: a key of a wrong
 * type and an action word that is not known leave the default. None reports; false means that the element is no record
 * at all.
 */
namespace PopulateRecords
{
/** False only for a value that is not an object. */
bool ParseNode(const TSharedPtr<FJsonValue>& Value, FBPNodeModification& OutRecord);
bool ParseConnection(const TSharedPtr<FJsonValue>& Value, FBPConnectionModification& OutRecord);

/**
 * False without a name; OutRecord.Name is then empty. A parameter without a readable type is left out, a return type
 * that cannot be read leaves only its flag.
 */
bool ParseFunction(const FJsonObject& Json, FBPFunctionModification& OutRecord);
/** "parameters" and "return_type" alone, for requests that carry a signature without a function around it. */
void ParseSignature(const FJsonObject& Json, FBPFunctionModification& OutRecord);
} // namespace PopulateRecords
