#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

/**
 * Reads little-endian values from a range of bytes. It never leaves the range: the first value that does not fit, or
 * cannot be one, sets the failed state, in which every further read gives a zero. Callers check once, where a fault
 * matters.
 */
class FBinaryCursor
{
public:
	explicit FBinaryCursor(std::string_view InBytes)
		: Bytes(InBytes)
	{
	}

	bool HasFailed() const { return bFailed; }
	void Fail() { bFailed = true; }
	std::size_t GetPosition() const { return Position; }
	std::size_t GetLeft() const { return bFailed ? 0 : Bytes.size() - Position; }
	bool IsAtEnd() const { return !bFailed && Position == Bytes.size(); }

	void Seek(std::size_t InPosition)
	{
		bFailed |= InPosition > Bytes.size();
		Position = bFailed ? Position : InPosition;
	}
	void Skip(std::size_t Count)
	{
		bFailed |= Count > GetLeft();
		Position += bFailed ? 0 : Count;
	}

	template <typename T>
	T Read()
	{
		T Value{};
		if (sizeof(T) > GetLeft())
		{
			bFailed = true;
			return Value;
		}
		std::memcpy(&Value, Bytes.data() + Position, sizeof(T));
		Position += sizeof(T);
		return Value;
	}
	int32_t ReadInt() { return Read<int32_t>(); }

	/** Four bytes that hold 0 or 1. Anything else is a sign of having lost the place, and fails. */
	bool ReadBool()
	{
		const uint32_t Value = Read<uint32_t>();
		bFailed |= Value > 1;
		return !bFailed && Value == 1;
	}
	/** A number of elements of at least that many bytes each; fails where so many cannot follow. */
	int32_t ReadCount(std::size_t LeastSize)
	{
		const int32_t Count = ReadInt();
		bFailed |= Count < 0 || (LeastSize > 0 && static_cast<std::size_t>(Count) > GetLeft() / LeastSize);
		return bFailed ? 0 : Count;
	}
	/** The next bytes as a cursor of their own, behind which this one goes on. */
	FBinaryCursor Part(std::size_t Size)
	{
		bFailed |= Size > GetLeft();
		const FBinaryCursor Inner(bFailed ? std::string_view() : Bytes.substr(Position, Size));
		Skip(Size);
		return Inner;
	}
	std::string_view ReadBytes(std::size_t Size)
	{
		bFailed |= Size > GetLeft();
		const std::string_view Run = bFailed ? std::string_view() : Bytes.substr(Position, Size);
		Skip(Size);
		return Run;
	}

	/** A text as UTF-8: a count with a zero behind it, negative for 16-bit units. */
	std::string ReadString();

private:
	std::string_view Bytes;
	std::size_t Position = 0;
	bool bFailed = false;
};
