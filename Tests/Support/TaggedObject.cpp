#include "TaggedObject.h"

namespace TaggedObject
{
static const FTypeTree ObjectType = {"ObjectProperty", {}};

static FTypeTree StructType(const std::string& Kind)
{
	return {"StructProperty", {{Kind, {{"/Script/CoreUObject", {}}}}}};
}

template <class TNumber>
static std::string NumberBytes(const TNumber Value)
{
	FByteWriter Out;
	Out.Put(Value);
	return Out.Bytes;
}
} // namespace TaggedObject

using namespace TaggedObject;

FTaggedObject& FTaggedObject::Object(const std::string& Property, const int32_t Reference)
{
	Out.Tag(Property, ObjectType, NumberBytes(Reference));
	return *this;
}

FTaggedObject& FTaggedObject::Objects(const std::string& Property, const std::vector<int32_t>& References)
{
	FByteWriter Value;
	Value.Int(static_cast<int32_t>(References.size()));
	for (const int32_t Reference : References)
	{
		Value.Int(Reference);
	}
	Out.Tag(Property, {"ArrayProperty", {ObjectType}}, Value.Bytes);
	return *this;
}

FTaggedObject& FTaggedObject::Name(const std::string& Property, const std::string& Value)
{
	FObjectBytes Bytes(Package);
	Bytes.Name(Value);
	Out.Tag(Property, {"NameProperty", {}}, Bytes.Bytes);
	return *this;
}

FTaggedObject& FTaggedObject::Text(const std::string& Property, const std::string& Value)
{
	FByteWriter Bytes;
	Bytes.Text(Value);
	Out.Tag(Property, {"StrProperty", {}}, Bytes.Bytes);
	return *this;
}

FTaggedObject& FTaggedObject::Int(const std::string& Property, const int32_t Value)
{
	Out.Tag(Property, {"IntProperty", {}}, NumberBytes(Value));
	return *this;
}

FTaggedObject& FTaggedObject::Float(const std::string& Property, const float Value)
{
	Out.Tag(Property, {"FloatProperty", {}}, NumberBytes(Value));
	return *this;
}

FTaggedObject& FTaggedObject::Vector(const std::string& Property, const double X, const double Y, const double Z)
{
	FByteWriter Bytes;
	for (const double Part : {X, Y, Z})
	{
		Bytes.Raw(Package.GetLayout().Ue5 >= 1004 ? NumberBytes(Part) : NumberBytes(static_cast<float>(Part)));
	}
	Out.Tag(Property, StructType("Vector"), Bytes.Bytes);
	return *this;
}

FTaggedObject& FTaggedObject::Guid(const std::string& Property, const uint32_t Id)
{
	FByteWriter Bytes;
	Bytes.Guid(FObjectBytes::GuidOf(Id));
	Out.Tag(Property, StructType("Guid"), Bytes.Bytes);
	return *this;
}

FTaggedObject& FTaggedObject::Struct(const std::string& Property, const std::string& Kind, const FTaggedObject Members)
{
	Out.Tag(Property, StructType(Kind), Members.Bytes());
	return *this;
}

FTaggedObject& FTaggedObject::Structs(
	const std::string& Property, const std::string& Kind, const std::vector<FTaggedObject>& Elements)
{
	std::vector<std::string> Bytes;
	for (const FTaggedObject& Element : Elements)
	{
		Bytes.push_back(Element.Bytes());
	}
	Out.StructArray(Property, Kind, Bytes);
	return *this;
}

std::string FTaggedObject::Bytes() const
{
	FObjectBytes Ended = Out;
	Ended.EndTags();
	return Ended.Bytes;
}

void FTaggedObject::Into(const int32_t Export, const std::string& Native)
{
	FByteWriter NoGuid;
	NoGuid.Bool(false);
	Package.SetBytes(Export, Bytes(), NoGuid.Bytes + Native);
}

namespace ActorPackages
{
constexpr uint32_t Template = 1 | 0x20;
constexpr uint32_t LampGuid = 0x1A;

struct FActor
{
	int32_t Blueprint = 0;
	int32_t Class = 0;
};

static std::string LastName(const std::string& Path)
{
	return Path.substr(Path.rfind('/') + 1);
}

static FActor AddActor(FTestPackage& Package, const std::string& Name)
{
	FActor Actor;
	Actor.Blueprint = Package.AddExport(Package.ImportClass("/Script/Engine", "Blueprint"), 0, Name, 1 | 2);
	Actor.Class = Package.AddExport(
		Package.ImportClass("/Script/Engine", "BlueprintGeneratedClass"), 0, Name + "_C", 1);
	return Actor;
}

FTestPackage Parent(const FPackageLayout& Layout)
{
	FTestPackage Package(Layout, "/Game/BP_Lamp");
	Package.IndexOfName("None");
	const FActor Actor = AddActor(Package, "BP_Lamp");
	const int32_t Light = Package.ImportClass("/Script/Engine", "PointLightComponent");
	const int32_t Script = Package.AddExport(
		Package.ImportClass("/Script/Engine", "SimpleConstructionScript"), Actor.Class, "SimpleConstructionScript_0");
	const int32_t Node = Package.AddExport(Package.ImportClass("/Script/Engine", "SCS_Node"), Script, "SCS_Node_0");
	const int32_t Lamp = Package.AddExport(Light, Actor.Class, "Lamp_GEN_VARIABLE", Template);
	FTaggedObject(Package)
		.Object("ParentClass", Package.ImportClass("/Script/Engine", "Actor"))
		.Object("SimpleConstructionScript", Script)
		.Object("GeneratedClass", Actor.Class)
		.Into(Actor.Blueprint);
	FTaggedObject(Package).Into(Actor.Class);
	FTaggedObject(Package).Objects("RootNodes", {Node}).Objects("AllNodes", {Node}).Into(Script);
	FTaggedObject(Package)
		.Object("ComponentClass", Light)
		.Object("ComponentTemplate", Lamp)
		.Guid("VariableGuid", LampGuid)
		.Name("InternalVariableName", "Lamp")
		.Into(Node);
	FTaggedObject(Package).Float("Intensity", 100.0f).Vector("RelativeLocation", 1, 2, 3).Into(Lamp);
	return Package;
}

FTestPackage Child(const FPackageLayout& Layout, const std::string& Path, const std::string& ParentPath,
	void (*const Values)(FTaggedObject& Template))
{
	FTestPackage Package(Layout, Path);
	Package.IndexOfName("None");
	const FActor Actor = AddActor(Package, LastName(Path));
	const auto ImportBlueprintClass = [&Package](const std::string& Of)
	{
		const int32_t Outer = Package.AddImport("/Script/CoreUObject", "Package", 0, Of);
		return Package.AddImport("/Script/Engine", "BlueprintGeneratedClass", Outer, LastName(Of) + "_C");
	};
	const int32_t Owner = ImportBlueprintClass("/Game/BP_Lamp");
	const int32_t ParentClass = ParentPath == "/Game/BP_Lamp" ? Owner : ImportBlueprintClass(ParentPath);
	const int32_t Light = Package.ImportClass("/Script/Engine", "PointLightComponent");
	// The template goes before what says whose it is, as the order of a file's objects means nothing.
	const int32_t Lamp = Package.AddExport(Light, Actor.Class, "Lamp_GEN_VARIABLE", Template);
	const int32_t Handler = Package.AddExport(Package.ImportClass("/Script/Engine", "InheritableComponentHandler"),
		Actor.Class, "InheritableComponentHandler");
	FTaggedObject(Package)
		.Object("ParentClass", ParentClass)
		.Object("InheritableComponentHandler", Handler)
		.Object("GeneratedClass", Actor.Class)
		.Into(Actor.Blueprint);
	FTaggedObject(Package).Into(Actor.Class);
	FTaggedObject Key(Package);
	Key.Object("OwnerClass", Owner).Name("SCSVariableName", "Lamp").Guid("AssociatedGuid", LampGuid);
	FTaggedObject Record(Package);
	Record.Object("ComponentClass", Light)
		.Object("ComponentTemplate", Lamp)
		.Struct("ComponentKey", "ComponentKey", Key);
	FTaggedObject(Package).Structs("Records", "ComponentOverrideRecord", {Record}).Into(Handler);
	FTaggedObject Own(Package);
	Values(Own);
	Own.Into(Lamp);
	return Package;
}
} // namespace ActorPackages
