#pragma once

#include "CoreTypes.h"
#include "Misc/OutputDevice.h"

extern bool GIsEditor;
