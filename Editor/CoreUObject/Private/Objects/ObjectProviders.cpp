#include "Standalone/ObjectProviders.h"

namespace ObjectProviders
{
static FLazyObjects LazyObjects;
static FPackageLoader PackageLoader;
static FTemplates Templates;

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

void SetTemplates(const FTemplates& Source)
{
	Templates = Source;
}

const FTemplates& GetTemplates()
{
	return Templates;
}
} // namespace ObjectProviders
