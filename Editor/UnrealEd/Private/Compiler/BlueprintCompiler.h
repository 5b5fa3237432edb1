#pragma once

#include "CoreMinimal.h"

class FCompilerResultsLog;
class UBlueprint;

/** Compiles a Blueprint: rebuilds its class and validates every graph, node and pin. Nothing is ever executed. */
class FBlueprintCompiler
{
public:
	/** Messages go to the log (null: to one that is dropped), the outcome to the Blueprint's status. */
	static void Compile(UBlueprint* Blueprint, FCompilerResultsLog* Log);
};
