#pragma once

class FJsonObject;
namespace Morvane
{
class FToolResult;
}

/** Tool: makes a new Blueprint asset of any kind, in memory; the kind follows from the parent class. */
class MORVANETOOLKIT_BLUEPRINT_API FBlueprintCreateOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};
