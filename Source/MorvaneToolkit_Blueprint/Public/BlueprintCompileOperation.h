#pragma once

class FJsonObject;
namespace Morvane
{
class FToolResult;
}

/** Tool: compiles a batch of Blueprints, saves those that compile, and reports what the compiler said. */
class MORVANETOOLKIT_BLUEPRINT_API FBlueprintCompileOperation
{
public:
	static void Execute(const FJsonObject& Args, Morvane::FToolResult& Result);
};
