#pragma once

#include "UObject/WeakObjectPtr.h"
