#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "BinaryPackage/BinarySummary.h"
#include "Standalone/PackageText.h"

/** What was read of a binary package. */
struct FBinaryPackageFindings
{
	/** Sentences on what is damaged, or does not agree with itself. */
	std::vector<std::string> Warnings;
	struct FLeftOut
	{
		/** The object's path. */
		std::string Object;
		/** "Name (type)". */
		std::string Value;
	};
	/** Values that were not understood: the first thousand of them. */
	std::vector<FLeftOut> LeftOut;
	int NumNodes = 0;
	/** Nodes whose pins end where their bytes do. */
	int NumNodesWithPins = 0;
	int NumPins = 0;
	int NumLinks = 0;
	/** Links that the pin at the other end knows of too. */
	int NumTwoSidedLinks = 0;
};

/**
 * Turns an uncooked binary package of the engine (.uasset, .umap) into the text of a package of ours: the same objects
 * under the same names, so that one loader serves both. Compiled functions are left out, since classes are rebuilt from
 * what authors see. False with a sentence when the file cannot be read at all.
 */
bool MakePackageTextOfBinary(std::string_view Bytes, const std::string& PackageName, std::string& OutText,
	FBinaryPackageFindings& OutFindings, std::string& OutRefusal);

/** How many bytes from the start hold all that ReadBinaryHeader asks for; 0 when these are no readable package's. */
std::size_t SizeOfBinaryHeader(std::string_view Bytes);

/** What a listing shows of a binary package: its asset, the class of it and the registry's tags. Reads no object. */
bool ReadBinaryHeader(
	std::string_view Bytes, const std::string& PackageName, FPackageText::FHeader& OutHeader, std::string& OutRefusal);

/** A variable that a Blueprint declares. */
struct FBinaryVariable
{
	std::string Name;
	/** As the author has it, in whatever language; empty for none. */
	std::string Category;
	bool bIsBool = false;
	bool bIsReadOnly = false;
	bool bIsPrivate = false;
};

/** Where the object lies in the file that the package is named after; an empty range where that cannot be told. */
struct FBinaryRange
{
	int64_t Offset = 0;
	int64_t Size = 0;
};
FBinaryRange FindBinaryAsset(std::string_view Head, const std::string& PackageName);
/** The variables of a Blueprint, of the head of its file and the bytes of that range. */
std::vector<FBinaryVariable> ReadBinaryVariables(
	std::string_view Head, const std::string& PackageName, std::string_view AssetBytes);
