#pragma once

#include "UObject/Object.h"

/** What construction, duplication and collection share. */
namespace ObjectConstruction
{
/** Copies all values that the two objects' classes have in common. */
void CopyProperties(UObject* Target, const UObject* Source, bool bExtensionOnly);
/** Visits every object that the object's properties refer to. */
void VisitReferences(UObject* Object, TFunctionRef<void(UObject*&)> Visit);
} // namespace ObjectConstruction
