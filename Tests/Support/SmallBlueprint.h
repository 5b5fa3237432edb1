#pragma once

#include "BinaryPackageWriter.h"

/** A Blueprint of an actor as a binary package: an event that calls a function and casts, with all kinds of pin data.
 */
namespace SmallBlueprint
{
struct FOptions
{
	std::string Path = "/Game/BP_Small";
	/** The class that it derives from, and the package of that class. */
	std::string ParentPackage = "/Script/Engine";
	std::string ParentClass = "Actor";
	bool bWithRegistryTags = true;
};

/** Exports by what they are. */
constexpr int32_t Blueprint = 1;
constexpr int32_t Class = 2;
constexpr int32_t Graph = 3;
constexpr int32_t Event = 4;
constexpr int32_t Call = 5;
constexpr int32_t Cast = 6;
constexpr int32_t NumExports = 6;

/** Further properties of the Blueprint itself. */
using FExtra = void (*)(FTestPackage& Package, FObjectBytes& Out);

FTestPackage Make(const FPackageLayout& Layout, const FOptions& Options, FExtra Extra = nullptr);
FTestPackage Make(const FPackageLayout& Layout, FExtra Extra = nullptr);
} // namespace SmallBlueprint
