#pragma once

class UBlueprint;
class UK2Node_Event;

namespace BlueprintEvents
{
/** A custom event of the same name takes over the place, parameters and links of an event whose declaration is gone or
 * goes; the event is removed. */
void ReplaceWithCustomEvent(UBlueprint& Blueprint, UK2Node_Event& Event);
} // namespace BlueprintEvents
