#pragma once

#include "TaggedObject.h"

/** Assets that are lists of something, as binary packages. */
namespace TablePackages
{
/** "/Game/DT_Swords": rows "Short" and "Long" of a struct of Damage and Name_2_..., and as many as it says of itself.
 */
FTestPackage DataTable(const FPackageLayout& Layout, int32_t NumToldRows = 2);
/** "/Game/DT_All": of "/Game/DT_Swords" and itself, without rows of its own. */
FTestPackage CompositeTable(const FPackageLayout& Layout);
FTestPackage CurveTable(const FPackageLayout& Layout);
/** "/Game/ST_Words": "Hi" for "Hello". */
FTestPackage StringTable(const FPackageLayout& Layout);
/** "/Game/E_Colour": Red, Green, Blue, whose shown names stand in another order. */
FTestPackage Enum(const FPackageLayout& Layout);

struct FTable
{
	std::string Name;
	std::string Bytes;
};
std::vector<FTable> All(const FPackageLayout& Layout);
} // namespace TablePackages
