#pragma once

#include <string>
#include <string_view>

#include "BinaryPackage/BinaryCursor.h"

/** Layout steps of the engine's binary packages that a reader has to know. */
struct FBinaryVersions
{
	int32_t Legacy = 0;
	int32_t Ue4 = 0;
	int32_t Ue5 = 0;
	// Steps of single areas; -1 where the file does not name them.
	int32_t Framework = -1;
	int32_t Blueprints = -1;
	int32_t Release = -1;
	int32_t Core = -1;
	int32_t Editor = -1;
	int32_t Ue5Release = -1;
	int32_t Ue5Main = -1;
	int32_t FortniteMain = -1;
};

/** Where a table lies in the file. */
struct FBinaryTable
{
	int32_t Count = 0;
	int32_t Offset = 0;
};

/** The head of an uncooked binary package of engine 4.13 to 5.7. */
struct FBinarySummary
{
	FBinaryVersions Versions;
	/** From the first byte to the first object: all that a listing needs. */
	int32_t HeaderSize = 0;
	uint32_t PackageFlags = 0;
	FBinaryTable Names;
	FBinaryTable SoftPaths;
	FBinaryTable Exports;
	FBinaryTable Imports;
	int32_t RegistryOffset = 0;
	/** A file of an engine after those known; it is read as far as its bounds hold. */
	bool bNewer = false;

	/** False with a sentence that says what the file is instead: cooked, compressed, too old, damaged, no package. */
	bool Read(std::string_view Bytes, std::string& OutRefusal);
};
