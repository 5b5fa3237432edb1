#pragma once

#include "BlueprintBuilder.h"

/**
 * Blueprints that hold one of everything that reads show. Ids are made from a fixed seed, so that what a read of one
 * gives is the same text in every run.
 */
namespace EverythingBlueprint
{
/** Starts the fixed sequence of ids; call it before the builder. */
void SeedIds();
/** Fills an Actor Blueprint: variables, components, functions, macros, an interface, dispatchers, timelines, event
 * pages. */
void Fill(UBlueprint& Blueprint);
/** Fills a Character Blueprint: components hung on native ones, an override of a function that gives a value. */
void FillCharacter(UBlueprint& Blueprint);
/** Fills an animation Blueprint with a state machine nested as deep as asked for. */
void FillStateMachines(UBlueprint& Blueprint, int32 Depth);
/** Fills a Widget Blueprint with a small tree. */
void FillWidgets(UBlueprint& Blueprint);
} // namespace EverythingBlueprint
