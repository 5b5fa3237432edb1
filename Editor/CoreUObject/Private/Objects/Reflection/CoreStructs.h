#pragma once

namespace CoreStructs
{
/** Makes the native structs of /Script/CoreUObject known by path. */
void RegisterAll();
} // namespace CoreStructs
