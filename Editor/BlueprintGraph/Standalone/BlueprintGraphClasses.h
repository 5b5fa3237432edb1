#pragma once

/** Makes the classes of this module known by path. Start-up calls it after those of the engine module; calling it again
 * does nothing. */
void RegisterBlueprintGraphClasses();
