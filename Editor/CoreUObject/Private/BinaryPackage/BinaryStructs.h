#pragma once

#include <string>

#include "BinaryPackage/BinaryTables.h"

/** Structs that the engine writes in a form of their own instead of tagged properties. */
namespace BinaryStructs
{
/** Whether a struct has a form of its own. */
bool Knows(const std::string& Struct);
/** Appends the struct's value as object text; false, with nothing read, for a struct that is written with tags. */
bool Read(FBinaryCursor& Cursor, const FBinaryTables& Tables, const std::string& Struct, std::string& Out);
/** 32 digits. */
std::string ReadGuid(FBinaryCursor& Cursor);
} // namespace BinaryStructs
