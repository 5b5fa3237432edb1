#pragma once

class UEdGraphPin;
class UTimelineTemplate;

/** Tracks of a timeline that is known by the pins of its node alone. */
namespace PastedTracks
{
/** An empty track of the pin's name, of the kind that has such a pin; nothing for a pin that no track has. */
void Add(UTimelineTemplate& Timeline, const UEdGraphPin& Pin);
} // namespace PastedTracks
