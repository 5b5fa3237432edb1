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
class MORVANETOOLKIT_BLUEPRINT_API FBlueprintVariableCreateModifyRemoveOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};

class MORVANETOOLKIT_BLUEPRINT_API FBlueprintComponentCreateModifyRemoveOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};

class MORVANETOOLKIT_BLUEPRINT_API FBlueprintInterfaceCreateModifyRemoveOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};

class MORVANETOOLKIT_BLUEPRINT_API FBlueprintTimelineCreateModifyRemoveOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};

class MORVANETOOLKIT_BLUEPRINT_API FBlueprintDelegateCreateModifyRemoveOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};

class MORVANETOOLKIT_BLUEPRINT_API FBlueprintModifyClassStructureOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};
