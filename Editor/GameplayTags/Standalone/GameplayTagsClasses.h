#pragma once

/** Makes the classes and structs of this module known by path. Calling it again does nothing. */
void RegisterGameplayTagsClasses();
