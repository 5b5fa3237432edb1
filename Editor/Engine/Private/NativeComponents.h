#pragma once

#include "CoreMinimal.h"

class AActor;

/**
 * Gives a class's default object the components that the class makes in C++, as sub-objects with their names and attachments: what a
 * Blueprint of the class inherits. Facts of the public API, one row per component in a table.
 */
namespace NativeComponents
{
void CreateFor(AActor& DefaultObject);
}
