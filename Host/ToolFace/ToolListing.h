#pragma once

#include <string>
#include <vector>

#include "ToolFace/ToolHost.h"

namespace ToolListing
{
/** The tools as the protocol lists them: name, title, description, schemas and annotations. One JSON array on one line.
 */
std::string Json(const std::vector<FToolListing>& Tools);

/** The schema of a tool's arguments with the shared types it points to; a bare object for a tool without one. */
std::string InputSchemaJson(const std::string& ToolName);
} // namespace ToolListing
