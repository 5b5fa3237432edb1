#pragma once

#include "BlueprintNodeSpawner.h"
#include "CoreMinimal.h"

class FProperty;
class UFunction;
class UScriptStruct;

/** The pins that nodes of a kind would show, told from what they are about instead of from a node. */
namespace SpawnerPins
{
using FPinVisitor = UBlueprintNodeSpawner::FPinVisitor;

/** A visitor for whom any pin will do. */
inline bool TakeAny(const FEdGraphPinType&, EEdGraphPinDirection)
{
	return true;
}
/** The pins of a node that are in sight. */
bool AnyOf(const UEdGraphNode& Node, FPinVisitor Visit);
/** Execution in and out. */
bool AnyExec(FPinVisitor Visit);
/** A pin that carries an object of the class. */
bool AnyObject(UClass& Class, EEdGraphPinDirection Direction, FPinVisitor Visit);
/** A pin that carries what the property holds. */
bool AnyValue(const FProperty& Property, EEdGraphPinDirection Direction, FPinVisitor Visit);
/** The members of a struct that a node reads, as outputs, or writes, as inputs. */
bool AnyMember(const UScriptStruct& Struct, EEdGraphPinDirection Direction, FPinVisitor Visit);
/** A delegate pin of the signature; null for one that is not bound to any. */
bool AnyDelegate(const UFunction* Signature, EEdGraphPinDirection Direction, FPinVisitor Visit);
/** The parameters as a call shows them, but for those hidden by metadata. */
bool AnyParameter(const UFunction& Function, FPinVisitor Visit);
/** What an event gives: execution, its parameters, and itself as a delegate. */
bool AnyOfEvent(const UFunction& Signature, FPinVisitor Visit);
} // namespace SpawnerPins
