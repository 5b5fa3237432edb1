#pragma once

#include "Standalone/NativeClass.h"

namespace NativeClass
{
/** The second half of Register, for a class object that exists. */
void SetUp(UClass& Class, const FClassInfo& Info, UClass* Super);
} // namespace NativeClass
