#pragma once

#include "UObject/Class.h"

/** What an object knows of members that its class does not have while a class is missing. */
namespace KeptValues
{
/** After the object got members: kept text of them becomes values again, the rest stays. */
void Retry(UObject& Object);
/** Makes it an object of another class. Where the C++ types differ that is a new one of its name and place, which is
 * answered; references are the caller's then. */
UObject* GiveClass(UObject& Object, UClass& Class);
} // namespace KeptValues
