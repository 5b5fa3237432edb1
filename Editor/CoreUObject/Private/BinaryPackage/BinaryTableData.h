#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "BinaryPackage/BinaryProperties.h"

/** What assets that are lists of something hold behind their properties, as lines of object text. */
namespace BinaryTableData
{
/**
 * The lines of a data table's rows, a curve table's curves, a string table's entries; nothing for an object of another
 * class. The cursor stands behind the properties and the object's guid. False where the bytes are not what the class
 * says; then there are no lines.
 */
bool Read(FBinaryCursor& Cursor, const FBinaryTables& Tables, FBinaryProperties& Properties,
	const std::string& ClassPath, std::vector<std::string>& OutLines);

/** The parts of "((A, ...),(B, ...))", each with its brackets. */
std::vector<std::string_view> SplitElements(std::string_view List);
/** Puts the cursor, which stands at an object's first byte, where its tagged properties begin. */
void SeekProperties(FBinaryCursor& Cursor, const FBinaryTables& Tables, const FBinaryExport& Export);

/** Puts an enum's entries, which are told by their shown names, into the order that the native data has. */
void SortEnumEntries(FBinaryCursor& Cursor, const FBinaryTables& Tables, std::vector<FBinaryProperty>& Properties);
} // namespace BinaryTableData
