#include "BinaryTestValues.h"

namespace BinaryTestValues
{
static const FTypeTree IntType = {"IntProperty", {}};

static FTypeTree StructOf(const std::string& Struct)
{
	return {"StructProperty", {{Struct, {{"/Script/CoreUObject", {}}}}}};
}

static std::string Large(const FTestPackage& Package, const std::vector<double>& Values)
{
	FByteWriter Out;
	for (const double Value : Values)
	{
		Out.Raw(Package.GetLayout().Ue5 >= 1004 ? Number<double>(Value) : Number<float>(static_cast<float>(Value)));
	}
	return Out.Bytes;
}

static std::string NameBytes(FTestPackage& Package, const std::string& Text)
{
	FObjectBytes Out(Package);
	Out.Name(Text);
	return Out.Bytes;
}

static std::string Counted(const std::vector<std::string>& Elements, const bool bWithRemoved = false)
{
	FByteWriter Out;
	if (bWithRemoved)
	{
		Out.Int(0);
	}
	Out.Int(static_cast<int32_t>(Elements.size()));
	for (const std::string& Element : Elements)
	{
		Out.Raw(Element);
	}
	return Out.Bytes;
}

static std::string TextBytes(const std::string& Words)
{
	FByteWriter Out;
	Out.Text(Words);
	return Out.Bytes;
}

void WritePlainValues(FTestPackage& Package, FObjectBytes& Out)
{
	Out.Tag("I8", {"Int8Property", {}}, Number<int8_t>(-8));
	Out.Tag("I16", {"Int16Property", {}}, Number<int16_t>(-16));
	Out.Tag("I32", IntType, Number<int32_t>(-32));
	Out.Tag("I64", {"Int64Property", {}}, Number<int64_t>(-64'000'000'000));
	Out.Tag("U16", {"UInt16Property", {}}, Number<uint16_t>(65535));
	Out.Tag("U32", {"UInt32Property", {}}, Number<uint32_t>(4'000'000'000));
	Out.Tag("U64", {"UInt64Property", {}}, Number<uint64_t>(18'000'000'000'000'000'000u));
	Out.Tag("F32", {"FloatProperty", {}}, Number<float>(0.5f));
	Out.Tag("F64", {"DoubleProperty", {}}, Number<double>(-0.25));
	Out.Tag("Yes", {"BoolProperty", {}}, "", {0, false, false, true});
	Out.Tag("No", {"BoolProperty", {}}, "");
	Out.Tag("Byte", {"ByteProperty", {}}, Number<uint8_t>(9));
	Out.Tag("Kind", {"ByteProperty", {{"EKind", {{"/Script/X", {}}}}}}, NameBytes(Package, "EKind::Good"));
	Out.Tag("Enum", {"EnumProperty", {{"EKind", {{"/Script/X", {}}}}, {"ByteProperty", {}}}},
		NameBytes(Package, "EKind::Bad"));
	Out.Tag("Name", {"NameProperty", {}}, NameBytes(Package, "Some Name"));
	Out.Tag("Latin", {"StrProperty", {}}, TextBytes("a\"b\xE9"));
	FByteWriter Wide;
	Wide.WideText(u"\u00E9\u4E2D\xD83D\xDE00\xD800x");
	Out.Tag("Wide", {"StrProperty", {}}, Wide.Bytes);
	Out.Tag("Lazy", {"LazyObjectProperty", {}}, std::string("\1\0\0\0\2\0\0\0\3\0\0\0\4\0\0\0", 16));
	Out.Tag("WithGuid", IntType, Number<int32_t>(1), {0, true, false, false});
	if (Package.GetLayout().Ue5 >= 1011)
	{
		Out.Tag("Overridden", IntType, Number<int32_t>(2), {0, true, true, false});
	}
	Out.Tag("Fixed", IntType, Number<int32_t>(10));
	Out.Tag("Fixed", IntType, Number<int32_t>(11), {1, false, false, false});
	Out.Tag("With Blanks (and more)", IntType, Number<int32_t>(5));
	FObjectBytes Event(Package);
	Event.Int(SmallBlueprint::Class);
	Event.Name("OnIt");
	Out.Tag("Delegate", {"DelegateProperty", {}}, Event.Bytes);
	Out.Tag("Delegates", {"MulticastInlineDelegateProperty", {}}, Counted({Event.Bytes, Event.Bytes}));
	FObjectBytes Field(Package);
	Field.Int(1);
	Field.Name("Health");
	Field.Int(SmallBlueprint::Class);
	Out.Tag("Field", {"FieldPathProperty", {}}, Field.Bytes);
}

void WriteContainers(FTestPackage& Package, FObjectBytes& Out)
{
	const FTypeTree NameType = {"NameProperty", {}};
	const std::string One = Number<int32_t>(1);
	const std::string Two = Number<int32_t>(2);
	Out.Tag("Ints", {"ArrayProperty", {IntType}}, Counted({One, Two}));
	Out.Tag("Empty", {"ArrayProperty", {IntType}}, Counted({}));
	Out.Tag("Bools", {"ArrayProperty", {{"BoolProperty", {}}}}, Counted({"\1", std::string(1, '\0')}));
	Out.Tag("Bytes", {"ArrayProperty", {{"ByteProperty", {}}}}, Counted({"\7", "\7"}));
	Out.Tag("Kinds", {"ArrayProperty", {{"ByteProperty", {{"EKind", {{"/Script/X", {}}}}}}}},
		Counted({NameBytes(Package, "EKind::Good"), NameBytes(Package, "EKind::Bad")}));
	Out.Tag(
		"Set", {"SetProperty", {NameType}}, Counted({NameBytes(Package, "Left"), NameBytes(Package, "Right")}, true));
	Out.Tag("Map", {"MapProperty", {NameType, IntType}},
		Counted({NameBytes(Package, "Left") + One, NameBytes(Package, "Right") + Two}, true));
	Out.Tag("PropertyGuids", {"MapProperty", {NameType, StructOf("Guid")}},
		Counted({NameBytes(Package, "Left") + std::string(16, '\x11')}, true));
	FObjectBytes Member(Package);
	Member.Tag("Member", IntType, One);
	Member.Tag("Member", IntType, Two, {2, false, false, false});
	Member.Tag("Odd one?", IntType, Two);
	Member.EndTags();
	Out.Tag("Tagged", StructOf("SomeStruct"), Member.Bytes);
	Out.StructArray("Structs", "SomeStruct", {Member.Bytes, Member.Bytes});
	Out.StructArray("Points", "IntPoint", {One + Two, Two + One});
}

void WriteStructs(FTestPackage& Package, FObjectBytes& Out)
{
	const auto Struct = [&Out](const char* Name, const std::string& Bytes) { Out.Tag(Name, StructOf(Name), Bytes); };
	const auto Floats = [](const std::vector<float>& Values)
	{
		FByteWriter Bytes;
		for (const float Value : Values)
		{
			Bytes.Put(Value);
		}
		return Bytes.Bytes;
	};
	Struct("Vector", Large(Package, {1, -2, 3}));
	Struct("Rotator", Large(Package, {10, 20, 30}));
	Struct("Vector2D", Large(Package, {1, 2}));
	Struct("Vector4", Large(Package, {1, 2, 3, 4}));
	Struct("Quat", Large(Package, {0, 0, 0, 1}));
	Struct("Plane", Large(Package, {0, 0, 1, 5}));
	Struct("Matrix", Large(Package, {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}));
	Struct("TwoVectors", Large(Package, {1, 2, 3, 4, 5, 6}));
	Struct("Box", Large(Package, {1, 2, 3, 4, 5, 6}) + "\1");
	Struct("Box2D", Large(Package, {1, 2, 3, 4}) + std::string(1, '\0'));
	Struct("LinearColor", Floats({0.5f, 0, 0, 1}));
	Struct("Vector3f", Floats({1, 2, 3}));
	Struct("Color", "\1\2\3\4");
	Struct("Guid", std::string("\1\0\0\0\2\0\0\0\3\0\0\0\4\0\0\0", 16));
	Struct("IntPoint", Number<int32_t>(3) + Number<int32_t>(-4));
	Struct("IntVector", Number<int32_t>(3) + Number<int32_t>(-4) + Number<int32_t>(5));
	Struct("FrameNumber", Number<int32_t>(24000));
	Struct("DateTime", Number<int64_t>(77));
	Struct("RichCurveKey", "\2\1" + std::string(1, '\0') + Floats({1, 2, 3, 4, 5, 6}));
	Struct("MovieSceneFrameRange", "\1" + Number<int32_t>(-5) + std::string(1, '\0') + Number<int32_t>(60000));
	const auto Channel = [&Floats](const std::string& Value, const std::string& Default, const int32_t ValueSize)
	{
		const std::string Key = Value + Floats({1, 2, 3, 4}) + std::string("\1\0\0\0\2\1\0\0", 8);
		return "\4\3" + Number<int32_t>(4) + Number<int32_t>(1) + Number<int32_t>(900) + Number<int32_t>(ValueSize)
			+ Number<int32_t>(1) + Key + Default + Number<int32_t>(1) + Number<int32_t>(60000) + Number<int32_t>(1);
	};
	Struct("MovieSceneFloatChannel", Channel(Floats({0.5f}), Floats({9}), 28) + Number<int32_t>(1));
	Struct("MovieSceneDoubleChannel", Channel(Number<double>(0.25), Number<double>(9), 32));
	FObjectBytes Tags(Package);
	Tags.Int(2);
	Tags.Name("A.B");
	Tags.Name("C");
	Struct("GameplayTagContainer", Tags.Bytes);
	Struct("TopLevelAssetPath", NameBytes(Package, "/Script/Engine") + NameBytes(Package, "Actor"));
	FObjectBytes PerPlatform(Package);
	PerPlatform.Bool(false);
	PerPlatform.Put<float>(0.5f);
	PerPlatform.Int(1);
	PerPlatform.Name("Mobile");
	PerPlatform.Put<float>(2);
	Struct("PerPlatformFloat", PerPlatform.Bytes);
	FObjectBytes PinType(Package);
	PinType.PinType({"int", "", 0, 2, "", true});
	Struct("EdGraphPinType", PinType.Bytes);
	// A struct with a form of its own that is written with tags all the same.
	FObjectBytes Tagged(Package);
	Tagged.Tag("X", {"FloatProperty", {}}, Number<float>(1));
	Tagged.EndTags();
	Out.Tag("TaggedVector", StructOf("Vector"), Tagged.Bytes);
}

/** The head of a text: flags, and the kind of its history. */
static FObjectBytes TextOf(FTestPackage& Package, const int8_t History)
{
	FObjectBytes Out(Package);
	Out.Put<uint32_t>(0);
	Out.Put<int8_t>(History);
	return Out;
}

static std::string PatternText(FTestPackage& Package, const char* Pattern)
{
	FObjectBytes Out(Package);
	Out.BaseText("", "Key", Pattern);
	return Out.Bytes;
}

void WriteTexts(FTestPackage& Package, FObjectBytes& Out)
{
	const FPackageLayout& Layout = Package.GetLayout();
	const FTypeTree Type = {"TextProperty", {}};
	FObjectBytes Base(Package);
	Base.BaseText("Space", "Key", "Open \"it\"");
	Out.Tag("Base", Type, Base.Bytes);
	FObjectBytes None(Package);
	None.NoText();
	Out.Tag("NoText", Type, None.Bytes);
	if (Layout.StepOf("Editor") >= 32)
	{
		FObjectBytes Invariant = TextOf(Package, -1);
		Invariant.Bool(true);
		Invariant.Text("As it is");
		Out.Tag("Invariant", Type, Invariant.Bytes);
	}
	FObjectBytes Named = TextOf(Package, 1);
	Named.Raw(PatternText(Package, "{What} and {Unknown} {What}"));
	Named.Int(1);
	Named.Text("What");
	Named.Byte(4);
	Named.Raw(PatternText(Package, "{What}"));
	Out.Tag("Named", Type, Named.Bytes);
	FObjectBytes Ordered = TextOf(Package, 2);
	Ordered.Raw(PatternText(Package, "{0}, {1}, {2}"));
	Ordered.Int(3);
	Ordered.Byte(0);
	Ordered.Long(-5);
	Ordered.Byte(2);
	Ordered.Put<float>(0.5f);
	Ordered.Byte(3);
	Ordered.Put<double>(0.25);
	Out.Tag("Ordered", Type, Ordered.Bytes);
	FObjectBytes Data = TextOf(Package, 3);
	Data.Raw(PatternText(Package, "{N} of {M}"));
	Data.Int(2);
	Data.Text("N");
	Data.Byte(0);
	Layout.StepOf("UE5-Release") >= 12 ? Data.Long(7) : Data.Int(7);
	Data.Text("M");
	Data.Byte(1);
	Layout.StepOf("UE5-Release") >= 12 ? Data.Long(8) : Data.Int(8);
	Out.Tag("Data", Type, Data.Bytes);
	FObjectBytes AsNumber = TextOf(Package, 6);
	AsNumber.Text("EUR");
	AsNumber.Byte(0);
	AsNumber.Long(12);
	AsNumber.Bool(true);
	AsNumber.Zeros((Layout.StepOf("Editor") >= 21 ? 4 : 0) + 4 + 1 + 16);
	AsNumber.Text("en");
	Out.Tag("Currency", Type, AsNumber.Bytes);
	FObjectBytes Upper = TextOf(Package, 10);
	Upper.BaseText("", "K", "upper");
	Upper.Byte(1);
	Out.Tag("Upper", Type, Upper.Bytes);
	FObjectBytes Table = TextOf(Package, 11);
	Table.Name("/Game/ST.ST");
	Table.Text("Row");
	Out.Tag("Table", Type, Table.Bytes);
}

void WriteSoftPaths(FTestPackage& Package, FObjectBytes& Out)
{
	const FPackageLayout& Layout = Package.GetLayout();
	FObjectBytes Value(Package);
	if (Layout.Ue5 >= 1008)
	{
		Package.AddSoftPath("/Game/Other", "Other", "");
		Value.Int(Package.AddSoftPath("/Game/Doors/BP_Door", "BP_Door_C", "Part"));
	}
	else
	{
		Value.Name(Layout.Ue5 >= 1007 ? "/Game/Doors/BP_Door" : "/Game/Doors/BP_Door.BP_Door_C");
		if (Layout.Ue5 >= 1007)
		{
			Value.Name("BP_Door_C");
		}
		Value.Text("Part");
	}
	Out.Tag("Soft", {"SoftObjectProperty", {}}, Value.Bytes);
	Out.Tag("SoftPath", StructOf("SoftObjectPath"), Value.Bytes);
}

const std::vector<SmallBlueprint::FExtra>& All()
{
	static const std::vector<SmallBlueprint::FExtra> Writers = {
		&WritePlainValues, &WriteContainers, &WriteStructs, &WriteTexts, &WriteSoftPaths};
	return Writers;
}
} // namespace BinaryTestValues
