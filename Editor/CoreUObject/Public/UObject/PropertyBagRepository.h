#pragma once

#include "CoreMinimal.h"

class UEnum;
class UObject;
class UStruct;

namespace UE
{
/** What the editor knows of types and objects that stand in for missing ones. */
class FPropertyBagRepository
{
public:
	/** Whether the type itself is missing: it has the missing one's path and no members. False for null. */
	static bool IsPropertyBagPlaceholderType(const UStruct* Type);
	static bool IsPropertyBagPlaceholderType(const UEnum* Enum);
	/** Whether the object is of a missing class, or stands itself in for a missing object. False for null. */
	static bool IsPropertyBagPlaceholderObject(const UObject* Object);
};
} // namespace UE
