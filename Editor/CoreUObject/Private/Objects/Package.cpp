#include "UObject/Package.h"

#include "Objects/ObjectTable.h"
#include "Standalone/NativeClass.h"

void UPackage::DescribeClass(FClassDescriber& Class) {}

UObject* UPackage::FindAssetInPackage() const
{
	UObject* Object = GetFirstInner();
	while (Object && !Object->IsAsset())
	{
		Object = Object->GetNextInner();
	}
	return Object;
}

UPackage* CreatePackage(const TCHAR* PackageName)
{
	UPackage* const Standing = FindPackage(nullptr, PackageName);
	if (Standing)
	{
		return Standing;
	}
	UPackage* const Package = NewObject<UPackage>(nullptr, FName(PackageName), RF_Public);
	Package->PackageFlags = FStringView(PackageName).StartsWith(TEXTVIEW("/Script/")) ? PKG_CompiledIn : PKG_None;
	return Package;
}

UPackage* GetTransientPackage()
{
	static UPackage* const Package = NewObject<UPackage>(
		nullptr, FName(TEXT("/Engine/Transient")), static_cast<EObjectFlags>(RF_Public | RF_Transient));
	return Package;
}

UObject* GetTransientPackageAsObject()
{
	return GetTransientPackage();
}
