#include "BinaryPackage/BinaryCursor.h"

namespace BinaryCursor
{
static void AppendUtf8(std::string& Out, uint32_t Code)
{
	if (Code < 0x80)
	{
		Out += static_cast<char>(Code);
		return;
	}
	if (Code < 0x800)
	{
		Out += static_cast<char>(0xC0 | (Code >> 6));
	}
	else if (Code < 0x10000)
	{
		Out += static_cast<char>(0xE0 | (Code >> 12));
		Out += static_cast<char>(0x80 | ((Code >> 6) & 0x3F));
	}
	else
	{
		Out += static_cast<char>(0xF0 | (Code >> 18));
		Out += static_cast<char>(0x80 | ((Code >> 12) & 0x3F));
		Out += static_cast<char>(0x80 | ((Code >> 6) & 0x3F));
	}
	Out += static_cast<char>(0x80 | (Code & 0x3F));
}

static std::string FromUtf16(std::string_view Units)
{
	std::string Out;
	const auto UnitAt = [Units](std::size_t Index)
	{
		return static_cast<uint32_t>(static_cast<unsigned char>(Units[2 * Index]))
			| static_cast<uint32_t>(static_cast<unsigned char>(Units[2 * Index + 1])) << 8;
	};
	const std::size_t Count = Units.size() / 2;
	for (std::size_t Index = 0; Index < Count; ++Index)
	{
		const uint32_t Unit = UnitAt(Index);
		const bool bHigh = Unit >= 0xD800 && Unit < 0xDC00;
		const uint32_t Low = bHigh && Index + 1 < Count ? UnitAt(Index + 1) : 0;
		if (bHigh && Low >= 0xDC00 && Low < 0xE000)
		{
			AppendUtf8(Out, 0x10000 + ((Unit - 0xD800) << 10) + (Low - 0xDC00));
			++Index;
		}
		else
		{
			// Half of a pair stands for no character.
			AppendUtf8(Out, Unit >= 0xD800 && Unit < 0xE000 ? 0xFFFD : Unit);
		}
	}
	return Out;
}

static std::string FromLatin1(std::string_view Units)
{
	std::string Out;
	Out.reserve(Units.size());
	for (const char Unit : Units)
	{
		AppendUtf8(Out, static_cast<unsigned char>(Unit));
	}
	return Out;
}
} // namespace BinaryCursor

std::string FBinaryCursor::ReadString()
{
	const int64_t Count = ReadInt();
	if (Count == 0)
	{
		return std::string();
	}
	const std::size_t Width = Count < 0 ? 2 : 1;
	const std::size_t NumUnits = static_cast<std::size_t>(Count < 0 ? -Count : Count);
	bFailed |= NumUnits > GetLeft() / Width;
	std::string_view Units = ReadBytes(bFailed ? 0 : NumUnits * Width);
	bFailed |= Units.size() < Width
		|| Units.substr(Units.size() - Width).find_first_not_of('\0') != std::string_view::npos;
	if (bFailed)
	{
		return std::string();
	}
	Units.remove_suffix(Width);
	return Width == 2 ? BinaryCursor::FromUtf16(Units) : BinaryCursor::FromLatin1(Units);
}
