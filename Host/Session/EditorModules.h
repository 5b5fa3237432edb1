#pragma once

/** Start-up of the standalone editor and of the modules that bring the tools. Everything here happens once per process.
 */
namespace EditorModules
{
/** Makes the tools known. Cheap: no class of the editor is looked at, no file is read. A second call does nothing. */
void StartTools();

/** Makes the editor's classes, its catalogue and its packages usable. A second call does nothing. */
void StartEditor();

/** Takes the tools back. They can be started again. */
void StopTools();
} // namespace EditorModules
