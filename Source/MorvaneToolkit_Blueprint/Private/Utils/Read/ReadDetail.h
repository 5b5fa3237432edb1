#pragma once

#include "CoreMinimal.h"

class FJsonObject;
class FProperty;
class UEdGraphNode;
class UObject;
struct FEdGraphPinType;

/**
 * How much a read shows of what it shows. Full is everything. Lean keeps what identifies, names, is valued or linked,
 * under the names that a full read has for it:
 * - nothing that the call said, such as the path, and nothing that is as in a new item of its kind;
 * - a pin stands when it has a link or a value of its own, links are "id.pin";
 * - types are short text, which requests understand, in pins at the first value of each;
 * - of a struct that is longer than a vector the members that somebody set;
 * - what only has a name is that name alone.
 */
namespace ReadDetail
{
/** Full, unless the command asks for lean, in any case of letters. */
bool IsLean(const FJsonObject& Command);
/** Takes the wish from the arguments of a tool into the command of its read. */
void Pass(const FJsonObject& Args, FJsonObject& Command);
/** The type under "type": an object, in lean short text. */
void SetType(FJsonObject& Object, const FEdGraphPinType& Type, bool bLean);
/**
 * The value as text. A long struct tells only the members that are not as in the class's default object, in lean one
 * that is longer than a vector. A lean value names objects by their path alone.
 */
FString GetValue(const UObject& Object, const FProperty& Property, bool bLean);
/** The text with paths in place of references that name the class too: /Script/Engine.Texture2D'/Game/T_A.T_A'. */
FString ShortenReferences(const FString& Text);
/**
 * Entries of an enum that the project has made are called NewEnumerator3; beside such a value "display_value" is what
 * its author sees. Nothing for other types.
 */
void SetDisplayValue(FJsonObject& Object, const FEdGraphPinType& Type, const FString& Value);
/** A number that came from a float, in as few digits as tell it apart: 0.1 and not 0.10000000149. */
double ShortenFloat(double Value);
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
