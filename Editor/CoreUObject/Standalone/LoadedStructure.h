#pragma once

#include "CoreMinimal.h"
#include "Misc/FeedbackContext.h"

#include <unordered_map>

class UObject;

/**
 * Text of any origin, a merge of two versions above all, may say what no walk over an asset would survive: a list with
 * a hole, a thing that is listed twice, a thing that holds itself. It is set right once, when the objects have their
 * values and before anything else looks at them; every walk relies on that and looks for none of it. What is cut is
 * told, and what could not be found by its name is kept as text and written back.
 */
namespace LoadedStructure
{
using FCheck = void (*)(TConstArrayView<UObject*> Objects, FFeedbackContext& Warn);

/** A module's rules for its own classes; added once at start-up. */
void AddCheck(FCheck Check);

/** All rules, for objects that were read together. */
void Settle(TConstArrayView<UObject*> Objects, FFeedbackContext& Warn);

/** Keeps a reference that an object's list loses as text: it is written back behind the list's entries. */
void KeepEntry(UObject& Owner, FName Property, const UObject& Entry);

/**
 * Who holds whom, while it is built: each child has one parent, nobody is below itself, and nothing is deeper than any
 * author would nest it, so that walks may call themselves.
 */
class FForest
{
public:
	static constexpr int32 MaxDepth = 128;

	/** False when the child has a parent already or would be below itself; nothing changes then. */
	bool Adopt(const UObject* Parent, const UObject* Child);
	bool IsTooDeep(const UObject* Child) const;

private:
	std::unordered_map<const UObject*, const UObject*> ParentOf;
};
} // namespace LoadedStructure
