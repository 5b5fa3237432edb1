#pragma once

#include "BinaryPackageWriter.h"

/** The tagged properties of one object of a package, one call each. */
class FTaggedObject
{
public:
	explicit FTaggedObject(FTestPackage& InPackage)
		: Package(InPackage)
		, Out(InPackage)
	{
	}

	FTaggedObject& Object(const std::string& Property, int32_t Reference);
	FTaggedObject& Objects(const std::string& Property, const std::vector<int32_t>& References);
	FTaggedObject& Name(const std::string& Property, const std::string& Value);
	FTaggedObject& Text(const std::string& Property, const std::string& Value);
	FTaggedObject& Int(const std::string& Property, int32_t Value);
	FTaggedObject& Float(const std::string& Property, float Value);
	FTaggedObject& Vector(const std::string& Property, double X, double Y, double Z);
	FTaggedObject& Guid(const std::string& Property, uint32_t Id);
	/** A struct that is written with tags. */
	FTaggedObject& Struct(const std::string& Property, const std::string& Kind, FTaggedObject Members);
	FTaggedObject& Structs(
		const std::string& Property, const std::string& Kind, const std::vector<FTaggedObject>& Elements);
	/** Properties up to the tag that ends them. */
	std::string Bytes() const;
	/** Puts them into the export; what is native follows them and the object's guid, which is none. */
	void Into(int32_t Export, const std::string& Native = std::string());

private:
	FTestPackage& Package;
	FObjectBytes Out;
};

/** Actors of Blueprints with a component each, for tests of what a child says of its parent's. */
namespace ActorPackages
{
/** "/Game/BP_Lamp": a light component "Lamp" of 100 units at (1, 2, 3). */
FTestPackage Parent(const FPackageLayout& Layout);
/** A child whose handler gives the parent's "Lamp" one value of its own. */
FTestPackage Child(const FPackageLayout& Layout, const std::string& Path, const std::string& ParentPath,
	void (*Values)(FTaggedObject& Template));
} // namespace ActorPackages
