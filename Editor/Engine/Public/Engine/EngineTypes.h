#pragma once

#include "CoreMinimal.h"
#include "UObject/Class.h"

namespace EComponentMobility
{
enum Type : uint8
{
	Static,
	Stationary,
	Movable,
};
}

template <>
UEnum* StaticEnum<EComponentMobility::Type>();
