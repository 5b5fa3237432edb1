#pragma once

#include "CoreMinimal.h"

class UClass;
class UObject;

/**
 * What objects hold in members that their class loses and may get back, as when a parent is missing for a while. The
 * object system tells when; whoever keeps such values sets its functions at start-up. Until then they are lost.
 */
namespace LostMembers
{
struct FKeeper
{
	/** Before the object loses members: those declared above From (null: from its own class on) and not in the line of
	 * NewParent. */
	void (*Leave)(UObject& Object, const UClass* NewParent, const UClass* From) = nullptr;
	/** After the object got members. */
	void (*Retry)(UObject& Object) = nullptr;
	/** What was kept with the old default object of a class goes to the new one. */
	void (*Carry)(UObject& New, const UObject& Old) = nullptr;
};

void SetKeeper(const FKeeper& InKeeper);

void Leave(UObject& Object, const UClass* NewParent, const UClass* From);
void Retry(UObject& Object);
void Carry(UObject& New, const UObject& Old);
} // namespace LostMembers
