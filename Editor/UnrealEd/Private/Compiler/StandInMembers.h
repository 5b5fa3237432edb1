#pragma once

class UBlueprint;

/**
 * Members of classes that are not here. A stand-in starts without any; each Blueprint that is read gives it those that
 * its graphs use: functions and events with the parameters that the pins show, variables, dispatchers, entries of
 * enums. So a node of a plug-in's class has its title and its pins, and can be made anew, as if the class were known.
 */
namespace StandInMembers
{
/** The Blueprint's own class must stand: what it declares itself is nobody else's. */
void AddUsedBy(const UBlueprint& Blueprint);
} // namespace StandInMembers
