#pragma once

/** Makes the classes of this module known by path and gives the lower modules what they ask of the compiler. Calling it
 * again does nothing. */
void RegisterUnrealEdClasses();
