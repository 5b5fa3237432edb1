#pragma once

namespace MissingReferences
{
/** Start-up calls it once; more calls do nothing. */
void Register();
} // namespace MissingReferences
