#include "BinaryPackage/BinaryStructs.h"

#include "Standalone/PreThirdParty.h"

#include <fmt/format.h>

#include "Standalone/PostThirdParty.h"

#include <algorithm>
#include <iterator>

#include "BinaryPackage/BinaryProperties.h"
#include "BinaryPackage/BinaryText.h"

namespace BinaryStructs
{
enum class ENumber
{
	/** Of double precision since 5.0. */
	Large,
	Float,
	Double,
	Int32,
	Int64,
	Byte,
};

/** A struct of numbers alone: the names of its members, apart by blanks, in the order of the file. */
struct FNumberStruct
{
	std::string_view Name;
	std::string_view Members;
	ENumber Number;
};

constexpr FNumberStruct NumberStructs[] = {
	{"Vector", "X Y Z", ENumber::Large},
	{"Rotator", "Pitch Yaw Roll", ENumber::Large},
	{"Vector2D", "X Y", ENumber::Large},
	{"Vector4", "X Y Z W", ENumber::Large},
	{"Quat", "X Y Z W", ENumber::Large},
	{"Plane", "X Y Z W", ENumber::Large},
	{"LinearColor", "R G B A", ENumber::Float},
	{"Vector2f", "X Y", ENumber::Float},
	{"Vector3f", "X Y Z", ENumber::Float},
	{"Vector4f", "X Y Z W", ENumber::Float},
	{"Quat4f", "X Y Z W", ENumber::Float},
	{"DeprecateSlateVector2D", "X Y", ENumber::Float},
	{"Vector3d", "X Y Z", ENumber::Double},
	{"Vector2d", "X Y", ENumber::Double},
	{"Rotator3d", "Pitch Yaw Roll", ENumber::Double},
	{"Color", "B G R A", ENumber::Byte},
	{"IntPoint", "X Y", ENumber::Int32},
	{"IntVector", "X Y Z", ENumber::Int32},
	{"IntVector2", "X Y", ENumber::Int32},
	{"IntVector4", "X Y Z W", ENumber::Int32},
	{"FrameNumber", "Value", ENumber::Int32},
};

static std::string ReadNumber(FBinaryCursor& Cursor, const FBinaryTables& Tables, const ENumber Number)
{
	switch (Number)
	{
	case ENumber::Large:
		return Tables.GetVersions().Ue5 >= 1004 ? BinaryText::Number(Cursor.Read<double>())
												: BinaryText::Number(Cursor.Read<float>());
	case ENumber::Float:
		return BinaryText::Number(Cursor.Read<float>());
	case ENumber::Double:
		return BinaryText::Number(Cursor.Read<double>());
	case ENumber::Int32:
		return std::to_string(Cursor.ReadInt());
	case ENumber::Int64:
		return std::to_string(Cursor.Read<int64_t>());
	case ENumber::Byte:
		return std::to_string(Cursor.Read<uint8_t>());
	}
	return std::string();
}

static std::string ReadNumbers(
	FBinaryCursor& Cursor, const FBinaryTables& Tables, std::string_view Members, const ENumber Number)
{
	std::string Out = "(";
	while (!Members.empty())
	{
		const std::size_t End = std::min(Members.find(' '), Members.size());
		Out.append(Out.size() > 1 ? "," : "").append(Members.substr(0, End)).append("=");
		Out += ReadNumber(Cursor, Tables, Number);
		Members.remove_prefix(std::min(End + 1, Members.size()));
	}
	return Out + ")";
}

static std::string ReadBox(FBinaryCursor& Cursor, const FBinaryTables& Tables, const std::string_view Members)
{
	const std::string Min = ReadNumbers(Cursor, Tables, Members, ENumber::Large);
	const std::string Max = ReadNumbers(Cursor, Tables, Members, ENumber::Large);
	const bool bValid = Cursor.Read<uint8_t>() != 0;
	return "(Min=" + Min + ",Max=" + Max + (bValid ? ",IsValid=True)" : ",IsValid=False)");
}

static std::string ReadCurveKey(FBinaryCursor& Cursor)
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
	std::string Out = fmt::format("(InterpMode={}", Pick(Interp));
	Out += fmt::format(",TangentMode={}", Pick(Tangent));
	Out += fmt::format(",TangentWeightMode={}", Pick(Weight));
	for (const char* const Member :
		{"Time", "Value", "ArriveTangent", "ArriveTangentWeight", "LeaveTangent", "LeaveTangentWeight"})
	{
		Out += fmt::format(",{}={}", Member, BinaryText::Number(Cursor.Read<float>()));
	}
	return Out + ")";
}

static std::string ReadTags(FBinaryCursor& Cursor, const FBinaryTables& Tables)
{
	std::string Tags;
	const int32_t Count = Cursor.ReadCount(8);
	for (int32_t Index = 0; Index < Count && !Cursor.HasFailed(); ++Index)
	{
		Tags.append(Tags.empty() ? "" : ",").append("(TagName=").append(BinaryText::Quote(Tables.ReadName(Cursor)));
		Tags += ")";
	}
	return Tags.empty() ? "()" : "(GameplayTags=(" + Tags + "))";
}

/** What a value is without regard to the platform; those of single platforms stay behind. */
static std::string ReadPerPlatform(FBinaryCursor& Cursor, const FBinaryTables& Tables, const std::string& Struct)
{
	const bool bFloat = Struct.ends_with("Float");
	const bool bBool = Struct.ends_with("Bool");
	const auto ReadOne = [&Cursor, bFloat, bBool]() -> std::string
	{
		if (bBool)
		{
			return Cursor.ReadBool() ? "True" : "False";
		}
		return bFloat ? BinaryText::Number(Cursor.Read<float>()) : std::to_string(Cursor.ReadInt());
	};
	const bool bCooked = Cursor.ReadBool();
	const std::string Default = ReadOne();
	const int32_t Count = bCooked ? 0 : Cursor.ReadCount(12);
	for (int32_t Index = 0; Index < Count && !Cursor.HasFailed(); ++Index)
	{
		Tables.ReadName(Cursor);
		ReadOne();
	}
	return "(Default=" + Default + ")";
}

static std::string QuotePath(const std::string& Path)
{
	return Path.empty() ? "None" : BinaryText::Quote(Path);
}

static std::string ReadTopLevelPath(FBinaryCursor& Cursor, const FBinaryTables& Tables)
{
	const std::string Package = Tables.ReadName(Cursor);
	const std::string Asset = Tables.ReadName(Cursor);
	return Package == "None" ? "None" : BinaryText::Quote(Package + "." + Asset);
}
} // namespace BinaryStructs

std::string BinaryStructs::ReadGuid(FBinaryCursor& Cursor)
{
	std::string Out;
	for (int Word = 0; Word < 4; ++Word)
	{
		Out += fmt::format("{:08X}", Cursor.Read<uint32_t>());
	}
	return Out;
}

std::optional<std::string> BinaryStructs::Read(
	FBinaryCursor& Cursor, const FBinaryTables& Tables, const std::string& Struct)
{
	for (const FNumberStruct& Known : NumberStructs)
	{
		if (Struct == Known.Name)
		{
			return ReadNumbers(Cursor, Tables, Known.Members, Known.Number);
		}
	}
	if (Struct == "Guid")
	{
		return ReadGuid(Cursor);
	}
	if (Struct == "Matrix")
	{
		std::string Out;
		for (const char* const Plane : {"XPlane", "YPlane", "ZPlane", "WPlane"})
		{
			Out.append(Out.empty() ? "(" : ",").append(Plane).append("=");
			Out += ReadNumbers(Cursor, Tables, "X Y Z W", ENumber::Large);
		}
		return Out + ")";
	}
	if (Struct == "Box" || Struct == "Box2D")
	{
		return ReadBox(Cursor, Tables, Struct == "Box" ? "X Y Z" : "X Y");
	}
	if (Struct == "Box2f")
	{
		const std::string Min = ReadNumbers(Cursor, Tables, "X Y", ENumber::Float);
		const std::string Max = ReadNumbers(Cursor, Tables, "X Y", ENumber::Float);
		return "(Min=" + Min + ",Max=" + Max + (Cursor.Read<uint8_t>() != 0 ? ",bIsValid=True)" : ",bIsValid=False)");
	}
	if (Struct == "TwoVectors")
	{
		const std::string First = ReadNumbers(Cursor, Tables, "X Y Z", ENumber::Large);
		return "(v1=" + First + ",v2=" + ReadNumbers(Cursor, Tables, "X Y Z", ENumber::Large) + ")";
	}
	if (Struct == "DateTime" || Struct == "Timespan")
	{
		return "(Ticks=" + ReadNumber(Cursor, Tables, ENumber::Int64) + ")";
	}
	if (Struct == "SoftObjectPath" || Struct == "SoftClassPath" || Struct == "StringAssetReference"
		|| Struct == "StringClassReference")
	{
		return QuotePath(Tables.ReadSoftPath(Cursor));
	}
	if (Struct == "TopLevelAssetPath")
	{
		return ReadTopLevelPath(Cursor, Tables);
	}
	if (Struct == "GameplayTagContainer")
	{
		return ReadTags(Cursor, Tables);
	}
	if (Struct == "RichCurveKey")
	{
		return ReadCurveKey(Cursor);
	}
	if (Struct == "PerPlatformInt" || Struct == "PerPlatformFloat" || Struct == "PerPlatformBool")
	{
		return ReadPerPlatform(Cursor, Tables, Struct);
	}
	if (Struct == "EdGraphPinType")
	{
		FBinaryPinType Type;
		Type.Read(Cursor, Tables);
		return Type.ToText();
	}
	return std::nullopt;
}
