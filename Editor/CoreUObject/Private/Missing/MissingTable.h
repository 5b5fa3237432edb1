#pragma once

#include "Standalone/MissingObjects.h"

#include <string>
#include <unordered_map>
#include <vector>

/** The stand-ins by path. They live as long as the process: there are as many as there are missing things. */
namespace MissingObjects
{
/** A flag that no text has and no other object bears. */
constexpr EObjectFlags MissingFlag = static_cast<EObjectFlags>(0x20000000);

struct FEntry
{
	FString Path;
	UObject* StandIn = nullptr;
	/** Whether anything may refer to it. */
	bool bUsed = true;
};

std::string KeyOf(const FString& Path);
/** The stand-in at the path that is of the class; null when there is none. */
FEntry* FindEntry(const FString& Path, const UClass* Class);
void AddEntry(const FString& Path, UObject* StandIn);
/** Those that something may refer to, oldest first. */
std::vector<FEntry*> UsedEntries();
} // namespace MissingObjects
