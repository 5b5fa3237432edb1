#pragma once

#include "CoreMinimal.h"

class FJsonObject;

namespace Morvane
{
class FToolResult;
}

/**
 * Operations on the members of a Blueprint's class. Those of one kind save only what was done as a whole; the one that
 * takes all kinds saves what could be done of them.
 */
class FBlueprintVariableCreateModifyRemoveOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};

class FBlueprintComponentCreateModifyRemoveOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};

class FBlueprintInterfaceCreateModifyRemoveOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};

class FBlueprintTimelineCreateModifyRemoveOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};

class FBlueprintDelegateCreateModifyRemoveOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};

class FBlueprintModifyClassStructureOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};
