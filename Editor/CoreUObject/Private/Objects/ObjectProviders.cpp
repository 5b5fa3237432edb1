#include "Standalone/ObjectProviders.h"

namespace ObjectProviders
{
static FLazyObjects LazyObjects;
static FPackageLoader PackageLoader;

void SetLazyObjects(const FLazyObjects& Source)
{
	LazyObjects = Source;
}

const FLazyObjects& GetLazyObjects()
{
	return LazyObjects;
}

void SetPackageLoader(const FPackageLoader& Loader)
{
	PackageLoader = Loader;
}

const FPackageLoader& GetPackageLoader()
{
	return PackageLoader;
}
} // namespace ObjectProviders
