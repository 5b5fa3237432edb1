#include "SmallBlueprint.h"

namespace SmallBlueprint
{
using FPin = FObjectBytes::FPin;
using FPinType = FObjectBytes::FPinType;

static std::string IntBytes(const int32_t Value)
{
	FByteWriter Out;
	Out.Int(Value);
	return Out.Bytes;
}

static const FTypeTree ObjectType = {"ObjectProperty", {}};

static std::string ObjectArray(const std::vector<int32_t>& References)
{
	FByteWriter Out;
	Out.Int(static_cast<int32_t>(References.size()));
	for (const int32_t Reference : References)
	{
		Out.Int(Reference);
	}
	return Out.Bytes;
}

static std::string BlueprintProperties(FTestPackage& Package, const int32_t ParentClass, const FExtra Extra)
{
	FObjectBytes Out(Package);
	Out.Tag("ParentClass", ObjectType, IntBytes(ParentClass));
	Out.Tag("UbergraphPages", {"ArrayProperty", {ObjectType}}, ObjectArray({Graph}));
	Out.Tag("GeneratedClass", {"ClassProperty", {}}, IntBytes(Class));
	if (Extra)
	{
		Extra(Package, Out);
	}
	Out.EndTags();
	return Out.Bytes;
}

static std::string GraphProperties(FTestPackage& Package)
{
	FObjectBytes Out(Package);
	Out.Tag("Nodes", {"ArrayProperty", {ObjectType}}, ObjectArray({Event, Call, Cast}));
	Out.EndTags();
	return Out.Bytes;
}

/** Position, and what a node has of its own. */
static FObjectBytes NodeProperties(FTestPackage& Package, const int32_t X)
{
	FObjectBytes Out(Package);
	Out.Tag("NodePosX", {"IntProperty", {}}, IntBytes(X));
	FObjectBytes Guid(Package);
	Guid.Guid({1, 2, 3, static_cast<uint32_t>(X)});
	Out.Tag("NodeGuid", {"StructProperty", {{"Guid", {{"/Script/CoreUObject", {}}}}}}, Guid.Bytes);
	return Out;
}

static std::string MemberReference(FTestPackage& Package, const std::string& Member)
{
	FObjectBytes Out(Package);
	FObjectBytes Name(Package);
	Name.Name(Member);
	Out.Tag("MemberName", {"NameProperty", {}}, Name.Bytes);
	Out.EndTags();
	return Out.Bytes;
}

static FPin Make(const uint32_t Id, const char* Name, const bool bOutput, const FPinType& Type)
{
	FPin Pin;
	Pin.Id = Id;
	Pin.Name = Name;
	Pin.bOutput = bOutput;
	Pin.Type = Type;
	return Pin;
}

static FPinType TypeOf(const char* Category)
{
	FPinType Type;
	Type.Category = Category;
	return Type;
}

static std::string Pins(FTestPackage& Package, const int32_t Node, const std::vector<FPin>& List)
{
	FObjectBytes Out(Package);
	Out.Bool(false); // no object guid
	Out.Int(static_cast<int32_t>(List.size()) + 1);
	for (const FPin& Pin : List)
	{
		Out.Pin(Node, Pin);
	}
	Out.Bool(true); // a pin that is none
	return Out.Bytes;
}

static void WriteEvent(FTestPackage& Package)
{
	FObjectBytes Out = NodeProperties(Package, 16);
	FObjectBytes Name(Package);
	Name.Name("Do_It", 3);
	Out.Tag("CustomFunctionName", {"NameProperty", {}}, Name.Bytes);
	Out.EndTags();
	FPin Then = Make(0x41, "then", true, TypeOf("exec"));
	Then.Links = {{Call, 0x51}};
	FPin Numbers = Make(0x42, "Numbers", true, TypeOf("int"));
	Numbers.Type.Container = 1;
	FPin Names = Make(0x43, "Names", true, TypeOf("name"));
	Names.Type.Container = 3;
	Names.Type.ValueCategory = "string";
	FObjectBytes Native(Package);
	Native.Raw(Pins(Package, Event, {Then, Numbers, Names}));
	// Pins that the author gave the event.
	Native.Int(1);
	if (Package.GetLayout().StepOf("Framework") >= 31)
	{
		Native.Name("Numbers");
	}
	else
	{
		Native.Text("Numbers");
	}
	Native.PinType(Numbers.Type);
	Native.Byte(1);
	Native.Text("7");
	Package.SetBytes(Event, Out.Bytes, Native.Bytes);
}

static void WriteCall(FTestPackage& Package)
{
	FObjectBytes Out = NodeProperties(Package, 320);
	Out.Tag("FunctionReference", {"StructProperty", {{"MemberReference", {{"/Script/Engine", {}}}}}},
		MemberReference(Package, "PrintString"));
	Out.EndTags();
	FPin Execute = Make(0x51, "execute", false, TypeOf("exec"));
	Execute.Links = {{Event, 0x41}};
	FPin Then = Make(0x52, "then", true, TypeOf("exec"));
	Then.Links = {{Cast, 0x61}};
	FPin Words = Make(0x53, "InString", false, TypeOf("string"));
	Words.Default = "Hello \"world\"";
	FPin Where = Make(0x54, "Where", false, TypeOf("struct"));
	Where.SubPins = {{Call, 0x55}};
	FPin Part = Make(0x55, "Where_X", false, TypeOf("byte"));
	Part.Parent = {Call, 0x54};
	Part.Bits = 1 | 16;
	Package.SetBytes(Call, Out.Bytes, Pins(Package, Call, {Execute, Then, Words, Where, Part}));
}

static void WriteCast(FTestPackage& Package)
{
	FObjectBytes Out = NodeProperties(Package, 640);
	Out.EndTags();
	FPin Execute = Make(0x61, "execute", false, TypeOf("exec"));
	Execute.Links = {{Call, 0x52}};
	std::string Native = Pins(Package, Cast, {Execute});
	if (Package.GetLayout().StepOf("Fortnite-Main") >= 85)
	{
		Native += '\1';
	}
	Package.SetBytes(Cast, Out.Bytes, Native);
}

FTestPackage Make(const FPackageLayout& Layout, const FOptions& Options, const FExtra Extra)
{
	const std::string Name = Options.Path.substr(Options.Path.rfind('/') + 1);
	FTestPackage Package(Layout, Options.Path);
	Package.IndexOfName("None");
	const int32_t Parent = Package.ImportClass(Options.ParentPackage, Options.ParentClass);
	constexpr uint32_t PublicAsset = 1 | 2 | 8;
	Package.AddExport(Package.ImportClass("/Script/Engine", "Blueprint"), 0, Name, PublicAsset);
	Package.AddExport(Package.ImportClass("/Script/Engine", "BlueprintGeneratedClass"), 0, Name + "_C", 1);
	Package.AddExport(Package.ImportClass("/Script/Engine", "EdGraph"), Blueprint, "EventGraph");
	Package.AddExport(Package.ImportClass("/Script/BlueprintGraph", "K2Node_CustomEvent"), Graph, "Event");
	Package.AddExport(Package.ImportClass("/Script/BlueprintGraph", "K2Node_CallFunction"), Graph, "Call");
	Package.AddExport(Package.ImportClass("/Script/BlueprintGraph", "K2Node_DynamicCast"), Graph, "Cast");
	Package.SetBytes(Blueprint, BlueprintProperties(Package, Parent, Extra));
	FObjectBytes Nothing(Package);
	Nothing.EndTags();
	Package.SetBytes(Class, Nothing.Bytes);
	Package.SetBytes(Graph, GraphProperties(Package));
	WriteEvent(Package);
	WriteCall(Package);
	WriteCast(Package);
	if (Options.bWithRegistryTags)
	{
		Package.AddRegistryTag("ParentClass", "Class'" + Options.ParentPackage + "." + Options.ParentClass + "'");
		Package.AddRegistryTag("BlueprintType", "BPTYPE_Normal");
		Package.AddRegistryTag("FiBData", "of no use here");
	}
	return Package;
}

FTestPackage Make(const FPackageLayout& Layout, const FExtra Extra)
{
	return Make(Layout, FOptions(), Extra);
}
} // namespace SmallBlueprint
