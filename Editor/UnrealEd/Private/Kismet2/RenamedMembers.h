#pragma once

class UBlueprint;

namespace RenamedMembers
{
/** Points nodes of a Blueprint that was just read at members of other Blueprints that got another name while it was
 * not in memory. They are known by their guids. */
void Follow(UBlueprint& Blueprint);
} // namespace RenamedMembers
