#include "TablePackages.h"

namespace TablePackages
{
constexpr uint32_t PublicAsset = 1 | 2;

static FTestPackage Start(const FPackageLayout& Layout, const std::string& Path, const std::string& Class)
{
	FTestPackage Package(Layout, Path);
	Package.IndexOfName("None");
	Package.AddExport(Package.ImportClass("/Script/Engine", Class), 0, Path.substr(Path.rfind('/') + 1), PublicAsset);
	return Package;
}

static int32_t ImportAsset(FTestPackage& Package, const std::string& Path, const std::string& Class)
{
	const int32_t Outer = Package.AddImport("/Script/CoreUObject", "Package", 0, Path);
	return Package.AddImport("/Script/Engine", Class, Outer, Path.substr(Path.rfind('/') + 1));
}

FTestPackage DataTable(const FPackageLayout& Layout, const int32_t NumToldRows)
{
	FTestPackage Package = Start(Layout, "/Game/DT_Swords", "DataTable");
	FObjectBytes Rows(Package);
	Rows.Int(NumToldRows);
	for (const auto& [Name, Damage] : {std::pair("Short", 3), std::pair("Long", 7)})
	{
		Rows.Name(Name);
		Rows.Raw(FTaggedObject(Package)
					 .Int("Damage", Damage)
					 .Text("Name_2_0123456789ABCDEF0123456789ABCDEF", std::string(Name) + ", \"sharp\"")
					 .Bytes());
	}
	FTaggedObject(Package)
		.Object("RowStruct", ImportAsset(Package, "/Game/S_Sword", "UserDefinedStruct"))
		.Into(1, Rows.Bytes);
	return Package;
}

FTestPackage CompositeTable(const FPackageLayout& Layout)
{
	FTestPackage Package = Start(Layout, "/Game/DT_All", "CompositeDataTable");
	FObjectBytes NoRows(Package);
	NoRows.Int(0);
	FTaggedObject(Package)
		.Objects("ParentTables", {ImportAsset(Package, "/Game/DT_Swords", "DataTable"), 1})
		.Into(1, NoRows.Bytes);
	return Package;
}

FTestPackage CurveTable(const FPackageLayout& Layout)
{
	FTestPackage Package = Start(Layout, "/Game/CT_Health", "CurveTable");
	FObjectBytes Rows(Package);
	Rows.Int(1);
	Rows.Byte(2);
	Rows.Name("Health");
	Rows.Raw(FTaggedObject(Package).Float("DefaultValue", 4.0f).Bytes());
	FTaggedObject(Package).Into(1, Rows.Bytes);
	return Package;
}

FTestPackage StringTable(const FPackageLayout& Layout)
{
	FTestPackage Package = Start(Layout, "/Game/ST_Words", "StringTable");
	FObjectBytes Entries(Package);
	Entries.Text("Space");
	Entries.Int(1);
	Entries.Text("Hello");
	Entries.Text("Hi");
	Entries.Int(1);
	Entries.Text("Hello");
	Entries.Int(1);
	Entries.Name("Comment");
	Entries.Text("to a friend");
	FTaggedObject(Package).Into(1, Entries.Bytes);
	return Package;
}

FTestPackage Enum(const FPackageLayout& Layout)
{
	FTestPackage Package = Start(Layout, "/Game/E_Colour", "UserDefinedEnum");
	FObjectBytes Shown(Package);
	Shown.Int(0);
	Shown.Int(3);
	for (const auto& [Entry, Text] :
		{std::pair("NewEnumerator0", "Red"), std::pair("NewEnumerator4", "Blue"), std::pair("NewEnumerator2", "Green")})
	{
		Shown.Name(Entry);
		Shown.BaseText("", Entry, Text);
	}
	FObjectBytes Properties(Package);
	Properties.Tag("DisplayNameMap", {"MapProperty", {{"NameProperty", {}}, {"TextProperty", {}}}}, Shown.Bytes);
	Properties.EndTags();
	FObjectBytes Native(Package);
	Native.Bool(false);
	Native.Int(4);
	int64_t Value = 0;
	for (const char* const Entry : {"NewEnumerator0", "NewEnumerator2", "NewEnumerator4", "E_Colour_MAX"})
	{
		Native.Name(std::string("E_Colour::") + Entry);
		Native.Long(Value++);
	}
	Native.Byte(1);
	Package.SetBytes(1, Properties.Bytes, Native.Bytes);
	return Package;
}

std::vector<FTable> All(const FPackageLayout& Layout)
{
	return {{"DataTable", DataTable(Layout).Write().Bytes}, {"CompositeTable", CompositeTable(Layout).Write().Bytes},
		{"CurveTable", CurveTable(Layout).Write().Bytes}, {"StringTable", StringTable(Layout).Write().Bytes},
		{"Enum", Enum(Layout).Write().Bytes}};
}
} // namespace TablePackages
