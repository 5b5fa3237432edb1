#pragma once

/** The editor serves one project a process, the tests many: what one of them made or loaded is gone before the next. */
namespace TestIsolation
{
/** Drops all that is not of the engine from memory and closes the project. Runs after each test, whatever it did. */
void CloseProject();
} // namespace TestIsolation
