#pragma once

/** Makes the classes of this module known by path. Start-up calls it after those of CoreUObject; calling it again does
 * nothing. */
void RegisterEngineClasses();
