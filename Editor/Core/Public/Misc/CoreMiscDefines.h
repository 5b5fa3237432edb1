#pragma once

#include "CoreTypes.h"
