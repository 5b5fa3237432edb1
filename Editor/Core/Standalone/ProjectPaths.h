#pragma once

#include "Containers/UnrealString.h"

/** Says which folder is the project. Not of the engine, which learns it from its command line. */
struct FProjectPaths
{
	/** The current folder until this is called. */
	static void SetProjectDir(const FString& Directory);
};
