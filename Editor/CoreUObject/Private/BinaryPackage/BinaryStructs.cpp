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

constexpr const char* InterpWords[] = {"RCIM_Linear", "RCIM_Constant", "RCIM_Cubic", "RCIM_None"};
constexpr const char* TangentWords[] = {"RCTM_Auto", "RCTM_User", "RCTM_Break", "RCTM_None", "RCTM_SmartAuto"};
constexpr const char* WeightWords[] = {
	"RCTWM_WeightedNone", "RCTWM_WeightedArrive", "RCTWM_WeightedLeave", "RCTWM_WeightedBoth"};
constexpr const char* ExtrapolationWords[] = {
	"RCCE_Cycle", "RCCE_CycleWithOffset", "RCCE_Oscillate", "RCCE_Linear", "RCCE_Constant", "RCCE_None"};

/** The enumerator that a byte stands for. */
template <std::size_t Num>
static const char* PickWord(FBinaryCursor& Cursor, const char* const (&Words)[Num])
{
	const std::size_t Index = Cursor.Read<uint8_t>();
	return Index < Num ? Words[Index] : Words[0];
}

static void ReadCurveKey(FBinaryCursor& Cursor, const FBinaryTables&, const FShape&, std::string& Out)
{
	Out.append("(InterpMode=").append(PickWord(Cursor, InterpWords));
	Out.append(",TangentMode=").append(PickWord(Cursor, TangentWords));
	Out.append(",TangentWeightMode=").append(PickWord(Cursor, WeightWords));
	for (const char* const Member :
		{"Time", "Value", "ArriveTangent", "ArriveTangentWeight", "LeaveTangent", "LeaveTangentWeight"})
	{
		Out.append(",").append(Member).append("=").append(BinaryText::Number(Cursor.Read<float>()));
	}
	Out += ')';
}

static void AppendTangent(const float (&Tangents)[4], const char* Weight, std::string& Out)
{
	static constexpr const char* Members[] = {
		"ArriveTangent", "LeaveTangent", "ArriveTangentWeight", "LeaveTangentWeight"};
	Out += "Tangent=(";
	for (std::size_t Index = 0; Index < std::size(Members); ++Index)
	{
		Out.append(Members[Index]).append("=").append(BinaryText::Number(Tangents[Index])).append(",");
	}
	Out.append("TangentWeightMode=").append(Weight).append(")");
}

/** A key of a sequence's channel as engine 4 wrote it, one member after the other. */
static void ReadChannelValue(FBinaryCursor& Cursor, const FBinaryTables&, const FShape&, std::string& Out)
{
	Out.append("(Value=").append(BinaryText::Number(Cursor.Read<float>()));
	Out.append(",InterpMode=").append(PickWord(Cursor, InterpWords));
	Out.append(",TangentMode=").append(PickWord(Cursor, TangentWords)).append(",");
	float Tangents[4] = {};
	Tangents[0] = Cursor.Read<float>();
	Tangents[1] = Cursor.Read<float>();
	const char* const Weight = PickWord(Cursor, WeightWords);
	Tangents[2] = Cursor.Read<float>();
	Tangents[3] = Cursor.Read<float>();
	AppendTangent(Tangents, Weight, Out);
	Out += ')';
}

/** The same as it lay in the memory of engine 5. */
static void ReadChannelValueInPlace(FBinaryCursor& Cursor, const bool bDouble, std::string& Out)
{
	const double Value = bDouble ? Cursor.Read<double>() : static_cast<double>(Cursor.Read<float>());
	float Tangents[4] = {};
	for (float& Tangent : Tangents)
	{
		Tangent = Cursor.Read<float>();
	}
	const char* const Weight = PickWord(Cursor, WeightWords);
	Cursor.Skip(3);
	Out.append("(Value=").append(bDouble ? BinaryText::Number(Value) : BinaryText::Number(static_cast<float>(Value)));
	Out.append(",InterpMode=").append(PickWord(Cursor, InterpWords));
	Out.append(",TangentMode=").append(PickWord(Cursor, TangentWords)).append(",");
	Cursor.Skip(2);
	AppendTangent(Tangents, Weight, Out);
	Out += ')';
}

/** Elements that lie as in memory, behind their size and their number. */
template <class TRead>
static void ReadRun(
	FBinaryCursor& Cursor, const FBinaryTables& Tables, const int32_t Size, std::string& Out, TRead Read)
{
	const bool bKnown = Cursor.ReadInt() == Size;
	const int32_t Count = Cursor.ReadCount(static_cast<std::size_t>(Size));
	if (!bKnown)
	{
		Cursor.Fail();
	}
	for (int32_t Index = 0; Index < Count && !Cursor.HasFailed() && Out.size() <= Tables.GetTextLimit(); ++Index)
	{
		Out += Index > 0 ? "," : "";
		Read(Out);
	}
}

/** A sequence's curve: the times of its keys, then what they hold. */
static void ReadChannel(FBinaryCursor& Cursor, const FBinaryTables& Tables, const FShape& Shape, std::string& Out)
{
	const bool bDouble = Shape.Number == ENumber::Double;
	Out.append("(PreInfinityExtrap=").append(PickWord(Cursor, ExtrapolationWords));
	Out.append(",PostInfinityExtrap=").append(PickWord(Cursor, ExtrapolationWords)).append(",Times=(");
	ReadRun(Cursor, Tables, 4, Out,
		[&Cursor](std::string& To) { To.append("(Value=").append(std::to_string(Cursor.ReadInt())).append(")"); });
	Out += "),Values=(";
	ReadRun(Cursor, Tables, bDouble ? 32 : 28, Out,
		[&Cursor, bDouble](std::string& To) { ReadChannelValueInPlace(Cursor, bDouble, To); });
	Out += "),DefaultValue=";
	ReadNumber(Cursor, Tables, Shape.Number, Out);
	Out.append(",bHasDefaultValue=").append(Cursor.ReadBool() ? "True" : "False");
	Out.append(",TickResolution=(Numerator=").append(std::to_string(Cursor.ReadInt()));
	Out.append(",Denominator=").append(std::to_string(Cursor.ReadInt())).append(")");
	if (Cursor.GetLeft() > 0)
	{
		Out.append(",bShowCurve=").append(Cursor.ReadBool() ? "True" : "False");
	}
	Out += ')';
}

static void ReadFrameRange(FBinaryCursor& Cursor, const FBinaryTables&, const FShape&, std::string& Out)
{
	static constexpr const char* Kinds[] = {"Exclusive", "Inclusive", "Open"};
	for (const char* const Bound : {"(LowerBound=(Type=", ",UpperBound=(Type="})
	{
		Out.append(Bound).append(PickWord(Cursor, Kinds));
		Out.append(",Value=").append(std::to_string(Cursor.ReadInt())).append(")");
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
		{"MovieSceneFloatValue", {&ReadChannelValue, {}}},
		{"MovieSceneFloatChannel", {&ReadChannel, {"", ENumber::Float}}},
		{"MovieSceneDoubleChannel", {&ReadChannel, {"", ENumber::Double}}},
		{"MovieSceneFrameRange", {&ReadFrameRange, {}}},
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
