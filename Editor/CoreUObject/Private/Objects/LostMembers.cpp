#include "Objects/LostMembers.h"

namespace LostMembers
{
static FKeeper Keeper;

void SetKeeper(const FKeeper& InKeeper)
{
	Keeper = InKeeper;
}

void Leave(UObject& Object, const UClass* NewParent, const UClass* From)
{
	if (Keeper.Leave)
	{
		Keeper.Leave(Object, NewParent, From);
	}
}

void Retry(UObject& Object)
{
	if (Keeper.Retry)
	{
		Keeper.Retry(Object);
	}
}

void Carry(UObject& New, const UObject& Old)
{
	if (Keeper.Carry)
	{
		Keeper.Carry(New, Old);
	}
}
} // namespace LostMembers
