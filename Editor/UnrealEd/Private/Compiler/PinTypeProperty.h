#pragma once

#include "CoreMinimal.h"
#include "UObject/Field.h"

class FProperty;
struct FEdGraphPinType;

/** Properties made of pin types: the reverse of what the schema does with a property. */
namespace PinTypeProperty
{
/**
 * A property that carries the type, owned by the caller until it is added to a struct; null when no property does
 * (exec, wildcard, a struct or enum that is gone).
 */
FProperty* Create(FFieldVariant Owner, FName Name, const FEdGraphPinType& Type);
/** Whether there is a property for the type. */
bool CanCarry(const FEdGraphPinType& Type);
} // namespace PinTypeProperty
