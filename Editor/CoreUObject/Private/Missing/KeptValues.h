#pragma once

#include "UObject/Class.h"

/** What an object knows of members that its class does not have while a class is missing. */
namespace KeptValues
{
/** Before the object loses members of its class: those that are declared above From (null: from its own class on) and
 * not in the line of NewParent. Values of them that differ from the default become kept text. */
void Leave(UObject& Object, const UClass* NewParent, const UClass* From = nullptr);
/** After the object got members: kept text of them becomes values again, the rest stays. */
void Retry(UObject& Object);
/** What was kept with the old default object of a class is kept, or set, on the new one. */
void Carry(UObject& New, const UObject& Old);
/** Makes it an object of another class. Where the C++ types differ that is a new one of its name and place, which is
 * answered; references are the caller's then. */
UObject* GiveClass(UObject& Object, UClass& Class);
/** The default object of a class, that of a deleted one too; makes none. */
const UObject* FindDefault(const UClass* Class);
} // namespace KeptValues
