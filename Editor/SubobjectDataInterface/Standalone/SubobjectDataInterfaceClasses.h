#pragma once

/** Makes the classes of this module known by path. Calling it again does nothing. */
void RegisterSubobjectDataInterfaceClasses();
