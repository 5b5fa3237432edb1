#pragma once

#include "CoreMinimal.h"

class UBlueprint;
class UBlueprintGeneratedClass;

/**
 * Makes a Blueprint's class out of its declarations: variables, timelines, components, widgets, functions, events,
 * delegate signatures, interfaces. Checks nothing; the compiler does that.
 *
 * One class object serves as skeleton and as generated class. It keeps its address and is refilled, so that references
 * to it stay good; what the default object holds beyond the parent's values is carried over by name.
 */
class FBlueprintClassBuilder
{
public:
	/** Makes the class object if there is none yet, without members. */
	static UBlueprintGeneratedClass* EnsureClass(UBlueprint& Blueprint);
	/** Refills the class and clears the mark that it is stale. */
	static void Build(UBlueprint& Blueprint);

	/** "Name__DelegateSignature" */
	static FName DelegateSignatureName(FName DelegateName);
};
