#pragma once

/** Makes the classes of UMG and of its editor module known by path. Calling it again does nothing. */
void RegisterUMGClasses();
