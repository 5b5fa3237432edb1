#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

/** Little-endian bytes, as the engine's binary packages hold them. */
class FByteWriter
{
public:
	using FGuidWords = std::array<uint32_t, 4>;

	template <class TNumber>
	void Put(const TNumber Value)
	{
		char Raw[sizeof(TNumber)];
		std::memcpy(Raw, &Value, sizeof(TNumber));
		Bytes.append(Raw, sizeof(TNumber));
	}
	void Int(const int32_t Value) { Put<int32_t>(Value); }
	void Long(const int64_t Value) { Put<int64_t>(Value); }
	void Byte(const uint8_t Value) { Put<uint8_t>(Value); }
	/** Four bytes. */
	void Bool(const bool bValue) { Put<uint32_t>(bValue ? 1 : 0); }
	void Guid(const FGuidWords& Words)
	{
		for (const uint32_t Word : Words)
		{
			Put(Word);
		}
	}
	void Zeros(const std::size_t Count) { Bytes.append(Count, '\0'); }
	void Raw(const std::string_view Run) { Bytes.append(Run); }

	/** One byte a character. */
	void Text(const std::string_view Latin)
	{
		Int(Latin.empty() ? 0 : static_cast<int32_t>(Latin.size()) + 1);
		Bytes.append(Latin).append(Latin.empty() ? 0 : 1, '\0');
	}
	/** Two bytes a character. */
	void WideText(const std::u16string_view Units)
	{
		Int(-static_cast<int32_t>(Units.size()) - 1);
		for (const char16_t Unit : Units)
		{
			Put<uint16_t>(Unit);
		}
		Put<uint16_t>(0);
	}

	std::string Bytes;
};
