#pragma once

#include "CoreMinimal.h"

class FJsonObject;
class UEdGraphNode;

/**
 * How much a read shows of what it shows. Full is everything. Lean keeps what identifies, names, is valued or linked: a
 * pin stands when it has a link or a value of its own, links are "id.pin", a type stands at the first value that has
 * it, and what is as it is in most nodes and variables is left out.
 */
namespace ReadDetail
{
/** Full, unless the command asks for lean, in any case of letters. */
bool IsLean(const FJsonObject& Command);
/** Takes the wish from the arguments of a tool into the command of its read. */
void Pass(const FJsonObject& Args, FJsonObject& Command);
} // namespace ReadDetail

/** The nodes that a read is narrowed to: those of the command, or all where it names none. */
class FNodeChoice
{
public:
	explicit FNodeChoice(const FJsonObject& Command);
	bool Holds(const UEdGraphNode& Node) const;

private:
	TSet<FString> Guids;
};
