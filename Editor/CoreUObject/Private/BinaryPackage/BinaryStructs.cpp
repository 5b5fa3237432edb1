#include "BinaryPackage/BinaryStructs.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <unordered_map>

#include "BinaryPackage/BinaryProperties.h"
#include "BinaryPackage/BinaryText.h"

namespace BinaryStructs
{
enum class ENumber : uint8_t
{
	/** Of double precision since 5.0. */
	Large,
	Float,
	Double,
	Int32,
	Int64,
	Byte,
	Bool,
};

/** What a struct's reader knows of it: the names of its members in the order of the file, and their kind. */
struct FShape
{
	std::string_view Members;
	ENumber Number = ENumber::Large;
};

using FReader = void (*)(FBinaryCursor& Cursor, const FBinaryTables& Tables, const FShape& Shape, std::string& Out);

struct FNativeStruct
{
	FReader Read = nullptr;
	FShape Shape;
};

static void ReadNumber(FBinaryCursor& Cursor, const FBinaryTables& Tables, const ENumber Number, std::string& Out)
{
	switch (Number)
	{
	case ENumber::Large:
		Out += Tables.GetVersions().Ue5 >= 1004 ? BinaryText::Number(Cursor.Read<double>())
												: BinaryText::Number(Cursor.Read<float>());
		break;
	case ENumber::Float:
		Out += BinaryText::Number(Cursor.Read<float>());
		break;
	case ENumber::Double:
		Out += BinaryText::Number(Cursor.Read<double>());
		break;
	case ENumber::Int32:
		Out += std::to_string(Cursor.ReadInt());
		break;
	case ENumber::Int64:
		Out += std::to_string(Cursor.Read<int64_t>());
		break;
	case ENumber::Byte:
		Out += std::to_string(Cursor.Read<uint8_t>());
		break;
	case ENumber::Bool:
		Out += Cursor.ReadBool() ? "True" : "False";
		break;
	}
}

/** Numbers alone: "(X=1.0,Y=2.0)". */
static void ReadNumbers(FBinaryCursor& Cursor, const FBinaryTables& Tables, const FShape& Shape, std::string& Out)
{
	char Before = '(';
	for (std::string_view Left = Shape.Members; !Left.empty();)
	{
		const std::size_t End = std::min(Left.find(' '), Left.size());
		Out += Before;
		Out.append(Left.substr(0, End)).append("=");
		ReadNumber(Cursor, Tables, Shape.Number, Out);
		Left.remove_prefix(std::min(End + 1, Left.size()));
		Before = ',';
	}
	Out += ')';
}

static void ReadMatrix(FBinaryCursor& Cursor, const FBinaryTables& Tables, const FShape& Shape, std::string& Out)
{
	for (const char* const Plane : {"(XPlane=", ",YPlane=", ",ZPlane=", ",WPlane="})
	{
		Out += Plane;
		ReadNumbers(Cursor, Tables, Shape, Out);
	}
	Out += ')';
}

static void ReadTwoVectors(FBinaryCursor& Cursor, const FBinaryTables& Tables, const FShape& Shape, std::string& Out)
{
	Out += "(v1=";
	ReadNumbers(Cursor, Tables, Shape, Out);
	Out += ",v2=";
	ReadNumbers(Cursor, Tables, Shape, Out);
	Out += ')';
}

static void ReadCorners(FBinaryCursor& Cursor, const FBinaryTables& Tables, const FShape& Shape,
	const std::string_view Valid, std::string& Out)
{
	Out += "(Min=";
	ReadNumbers(Cursor, Tables, Shape, Out);
	Out += ",Max=";
	ReadNumbers(Cursor, Tables, Shape, Out);
	Out.append(",").append(Valid).append(Cursor.Read<uint8_t>() != 0 ? "=True)" : "=False)");
}

static void ReadBox(FBinaryCursor& Cursor, const FBinaryTables& Tables, const FShape& Shape, std::string& Out)
{
	ReadCorners(Cursor, Tables, Shape, "IsValid", Out);
}

/** The flat boxes have a prefix that the solid one lacks. */
static void ReadFlatBox(FBinaryCursor& Cursor, const FBinaryTables& Tables, const FShape& Shape, std::string& Out)
{
	ReadCorners(Cursor, Tables, Shape, "bIsValid", Out);
}

static void ReadCurveKey(FBinaryCursor& Cursor, const FBinaryTables&, const FShape&, std::string& Out)
{
	static constexpr const char* Interp[] = {"RCIM_Linear", "RCIM_Constant", "RCIM_Cubic", "RCIM_None"};
	static constexpr const char* Tangent[] = {"RCTM_Auto", "RCTM_User", "RCTM_Break", "RCTM_None", "RCTM_SmartAuto"};
	static constexpr const char* Weight[] = {
		"RCTWM_WeightedNone", "RCTWM_WeightedArrive", "RCTWM_WeightedLeave", "RCTWM_WeightedBoth"};
	const auto Pick = [&Cursor](const auto& Words)
	{
		const std::size_t Index = Cursor.Read<uint8_t>();
		return Index < std::size(Words) ? Words[Index] : Words[0];
	};
	Out.append("(InterpMode=").append(Pick(Interp));
	Out.append(",TangentMode=").append(Pick(Tangent));
	Out.append(",TangentWeightMode=").append(Pick(Weight));
	for (const char* const Member :
		{"Time", "Value", "ArriveTangent", "ArriveTangentWeight", "LeaveTangent", "LeaveTangentWeight"})
	{
		Out.append(",").append(Member).append("=").append(BinaryText::Number(Cursor.Read<float>()));
	}
	Out += ')';
}

static void ReadTags(FBinaryCursor& Cursor, const FBinaryTables& Tables, const FShape&, std::string& Out)
{
	const int32_t Count = Cursor.ReadCount(8);
	Out += Count > 0 ? "(GameplayTags=(" : "(";
	for (int32_t Index = 0; Index < Count && !Cursor.HasFailed() && Out.size() <= Tables.GetTextLimit(); ++Index)
	{
		Out.append(Index > 0 ? "," : "").append("(TagName=").append(BinaryText::Quote(Tables.ReadName(Cursor)));
		Out += ')';
	}
	Out += Count > 0 ? "))" : ")";
}

/** What a value is without regard to the platform; those of single platforms stay behind. */
static void ReadPerPlatform(FBinaryCursor& Cursor, const FBinaryTables& Tables, const FShape& Shape, std::string& Out)
{
	const bool bCooked = Cursor.ReadBool();
	Out += "(Default=";
	ReadNumber(Cursor, Tables, Shape.Number, Out);
	Out += ')';
	const int32_t Count = bCooked ? 0 : Cursor.ReadCount(12);
	std::string Ignored;
	for (int32_t Index = 0; Index < Count && !Cursor.HasFailed(); ++Index)
	{
		Tables.ReadName(Cursor);
		ReadNumber(Cursor, Tables, Shape.Number, Ignored);
		Ignored.clear();
	}
}

static void ReadGuidStruct(FBinaryCursor& Cursor, const FBinaryTables&, const FShape&, std::string& Out)
{
	Out += ReadGuid(Cursor);
}

static void ReadSoftPath(FBinaryCursor& Cursor, const FBinaryTables& Tables, const FShape&, std::string& Out)
{
	const std::string Path = Tables.ReadSoftPath(Cursor);
	Out += Path.empty() ? "None" : BinaryText::Quote(Path);
}

static void ReadTopLevelPath(FBinaryCursor& Cursor, const FBinaryTables& Tables, const FShape&, std::string& Out)
{
	const std::string Package = Tables.ReadName(Cursor);
	const std::string Asset = Tables.ReadName(Cursor);
	Out += Package == "None" ? "None" : BinaryText::Quote(Package + "." + Asset);
}

static void ReadPinType(FBinaryCursor& Cursor, const FBinaryTables& Tables, const FShape&, std::string& Out)
{
	FBinaryPinType Type;
	Type.Read(Cursor, Tables);
	Out += Type.ToText();
}

static const FNativeStruct* Find(const std::string& Struct)
{
	static const std::unordered_map<std::string_view, FNativeStruct> Known = {
		{"Vector", {&ReadNumbers, {"X Y Z", ENumber::Large}}},
		{"Rotator", {&ReadNumbers, {"Pitch Yaw Roll", ENumber::Large}}},
		{"Vector2D", {&ReadNumbers, {"X Y", ENumber::Large}}},
		{"Vector4", {&ReadNumbers, {"X Y Z W", ENumber::Large}}},
		{"Quat", {&ReadNumbers, {"X Y Z W", ENumber::Large}}},
		{"Plane", {&ReadNumbers, {"X Y Z W", ENumber::Large}}},
		{"LinearColor", {&ReadNumbers, {"R G B A", ENumber::Float}}},
		{"Vector2f", {&ReadNumbers, {"X Y", ENumber::Float}}},
		{"Vector3f", {&ReadNumbers, {"X Y Z", ENumber::Float}}},
		{"Vector4f", {&ReadNumbers, {"X Y Z W", ENumber::Float}}},
		{"Quat4f", {&ReadNumbers, {"X Y Z W", ENumber::Float}}},
		{"DeprecateSlateVector2D", {&ReadNumbers, {"X Y", ENumber::Float}}},
		{"Vector3d", {&ReadNumbers, {"X Y Z", ENumber::Double}}},
		{"Vector2d", {&ReadNumbers, {"X Y", ENumber::Double}}},
		{"Rotator3d", {&ReadNumbers, {"Pitch Yaw Roll", ENumber::Double}}},
		{"Color", {&ReadNumbers, {"B G R A", ENumber::Byte}}},
		{"IntPoint", {&ReadNumbers, {"X Y", ENumber::Int32}}},
		{"IntVector", {&ReadNumbers, {"X Y Z", ENumber::Int32}}},
		{"IntVector2", {&ReadNumbers, {"X Y", ENumber::Int32}}},
		{"IntVector4", {&ReadNumbers, {"X Y Z W", ENumber::Int32}}},
		{"FrameNumber", {&ReadNumbers, {"Value", ENumber::Int32}}},
		{"DateTime", {&ReadNumbers, {"Ticks", ENumber::Int64}}},
		{"Timespan", {&ReadNumbers, {"Ticks", ENumber::Int64}}},
		{"Matrix", {&ReadMatrix, {"X Y Z W", ENumber::Large}}},
		{"TwoVectors", {&ReadTwoVectors, {"X Y Z", ENumber::Large}}},
		{"Box", {&ReadBox, {"X Y Z", ENumber::Large}}},
		{"Box2D", {&ReadFlatBox, {"X Y", ENumber::Large}}},
		{"Box2f", {&ReadFlatBox, {"X Y", ENumber::Float}}},
		{"Guid", {&ReadGuidStruct, {}}},
		{"SoftObjectPath", {&ReadSoftPath, {}}},
		{"SoftClassPath", {&ReadSoftPath, {}}},
		{"StringAssetReference", {&ReadSoftPath, {}}},
		{"StringClassReference", {&ReadSoftPath, {}}},
		{"TopLevelAssetPath", {&ReadTopLevelPath, {}}},
		{"GameplayTagContainer", {&ReadTags, {}}},
		{"RichCurveKey", {&ReadCurveKey, {}}},
		{"PerPlatformInt", {&ReadPerPlatform, {"", ENumber::Int32}}},
		{"PerPlatformFloat", {&ReadPerPlatform, {"", ENumber::Float}}},
		{"PerPlatformBool", {&ReadPerPlatform, {"", ENumber::Bool}}},
		{"EdGraphPinType", {&ReadPinType, {}}},
	};
	const auto Found = Known.find(Struct);
	return Found == Known.end() ? nullptr : &Found->second;
}
} // namespace BinaryStructs

std::string BinaryStructs::ReadGuid(FBinaryCursor& Cursor)
{
	static constexpr char Digits[] = "0123456789ABCDEF";
	std::string Out;
	Out.reserve(32);
	for (int Word = 0; Word < 4; ++Word)
	{
		const uint32_t Value = Cursor.Read<uint32_t>();
		for (int Shift = 28; Shift >= 0; Shift -= 4)
		{
			Out += Digits[(Value >> Shift) & 15];
		}
	}
	return Out;
}

bool BinaryStructs::Knows(const std::string& Struct)
{
	return Find(Struct) != nullptr;
}

bool BinaryStructs::Read(
	FBinaryCursor& Cursor, const FBinaryTables& Tables, const std::string& Struct, std::string& Out)
{
	const FNativeStruct* const Native = Find(Struct);
	if (Native)
	{
		Native->Read(Cursor, Tables, Native->Shape, Out);
	}
	return Native != nullptr;
}
