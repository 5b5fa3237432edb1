#pragma once

#include "Curves/CurveBase.h"
