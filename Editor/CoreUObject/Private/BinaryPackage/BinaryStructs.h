#pragma once

#include <optional>
#include <string>

#include "BinaryPackage/BinaryTables.h"

/** Structs that the engine writes in a form of their own instead of tagged properties. */
namespace BinaryStructs
{
/** The struct's value as object text; nothing for a struct that is written with tags. */
std::optional<std::string> Read(FBinaryCursor& Cursor, const FBinaryTables& Tables, const std::string& Struct);
/** 32 digits. */
std::string ReadGuid(FBinaryCursor& Cursor);
} // namespace BinaryStructs
