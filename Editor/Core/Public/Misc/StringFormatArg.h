#pragma once

#include "CoreTypes.h"

/**
 * One argument of a Printf, tagged with what it is, so that formatting is done by one routine for all calls.
 * Texts are passed as const TCHAR*: *MyString, never MyString.
 */
struct FPrintfArg
{
	enum class EKind : uint8
	{
		Signed,
		Unsigned,
		Real,
		Wide,
		Ansi,
		Pointer
	};

	union
	{
		int64 Signed;
		uint64 Unsigned;
		double Real;
		const TCHAR* Wide;
		const ANSICHAR* Ansi;
		const void* Pointer;
	};
	EKind Kind;
	uint8 NumBytes;

	template <typename T>
	requires(std::is_integral_v<T>&& std::is_signed_v<T>) FPrintfArg(T Value)
		: Signed(Value)
		, Kind(EKind::Signed)
		, NumBytes(sizeof(T))
	{
	}
	template <typename T>
	requires(std::is_integral_v<T> && !std::is_signed_v<T>) FPrintfArg(T Value)
		: Unsigned(Value)
		, Kind(EKind::Unsigned)
		, NumBytes(sizeof(T))
	{
	}
	template <typename T>
	requires std::is_enum_v<T> FPrintfArg(T Value)
		: FPrintfArg(static_cast<std::underlying_type_t<T>>(Value))
	{
	}
	FPrintfArg(double Value)
		: Real(Value)
		, Kind(EKind::Real)
		, NumBytes(sizeof(double))
	{
	}
	FPrintfArg(float Value)
		: FPrintfArg(static_cast<double>(Value))
	{
	}
	FPrintfArg(const TCHAR* Value)
		: Wide(Value)
		, Kind(EKind::Wide)
		, NumBytes(sizeof(void*))
	{
	}
	FPrintfArg(const ANSICHAR* Value)
		: Ansi(Value)
		, Kind(EKind::Ansi)
		, NumBytes(sizeof(void*))
	{
	}
	FPrintfArg(const void* Value)
		: Pointer(Value)
		, Kind(EKind::Pointer)
		, NumBytes(sizeof(void*))
	{
	}
	FPrintfArg(std::nullptr_t)
		: FPrintfArg(static_cast<const void*>(nullptr))
	{
	}
	template <typename T>
	requires(std::is_class_v<T> || std::is_union_v<T>) FPrintfArg(const T&)
	{
		static_assert(!std::is_class_v<T>, "Printf takes plain values; pass *MyString for an FString");
	}
};
