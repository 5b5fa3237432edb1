#pragma once

#include "CoreMinimal.h"

class UObject;

/** Something that makes nodes and can bind them to objects, as a component's function is bound to the component. */
class IBlueprintNodeBinder
{
public:
	using FBindingSet = TSet<UObject*>;

	virtual ~IBlueprintNodeBinder() = default;
};
