#pragma once

#include "CoreTypes.h"

#include <cmath>

#define UE_PI (3.1415926535897932f)
#define UE_SMALL_NUMBER (1.e-8f)
#define UE_KINDA_SMALL_NUMBER (1.e-4f)
#define UE_DOUBLE_PI (3.141592653589793238462643383279502884197169399)
#define UE_DOUBLE_SMALL_NUMBER (1.e-8)
#define UE_DOUBLE_KINDA_SMALL_NUMBER (1.e-4)
#define PI UE_PI
#define SMALL_NUMBER UE_SMALL_NUMBER
#define KINDA_SMALL_NUMBER UE_KINDA_SMALL_NUMBER
#define BIG_NUMBER (3.4e+38f)

struct FMath
{
	template <typename T>
	static constexpr T Max(const T A, const T B)
	{
		return B < A ? A : B;
	}
	template <typename T>
	static constexpr T Min(const T A, const T B)
	{
		return A < B ? A : B;
	}
	static constexpr double Max(double A, float B) { return B < A ? A : static_cast<double>(B); }
	static constexpr double Max(float A, double B) { return B < A ? static_cast<double>(A) : B; }
	static constexpr double Min(double A, float B) { return A < B ? A : static_cast<double>(B); }
	static constexpr double Min(float A, double B) { return A < B ? static_cast<double>(A) : B; }
	template <typename T>
	static constexpr T Max3(const T A, const T B, const T C)
	{
		return Max(Max(A, B), C);
	}
	template <typename T>
	static constexpr T Min3(const T A, const T B, const T C)
	{
		return Min(Min(A, B), C);
	}
	template <typename T>
	static constexpr T Clamp(const T Value, const T Low, const T High)
	{
		return Max(Min(Value, High), Low);
	}
	template <typename T>
	static constexpr T Abs(const T Value)
	{
		return Value < T(0) ? static_cast<T>(-Value) : Value;
	}
	template <typename T>
	static constexpr T Sign(const T Value)
	{
		return Value > T(0) ? T(1) : Value < T(0) ? T(-1) : T(0);
	}
	template <typename T>
	static constexpr T Square(const T Value)
	{
		return Value * Value;
	}
	template <typename T>
	static constexpr T DivideAndRoundUp(T Dividend, T Divisor)
	{
		return (Dividend + Divisor - 1) / Divisor;
	}

	static int32 TruncToInt(double Value) { return static_cast<int32>(Value); }
	static int32 TruncToInt32(double Value) { return static_cast<int32>(Value); }
	static int64 TruncToInt64(double Value) { return static_cast<int64>(Value); }
	static int32 FloorToInt(double Value) { return static_cast<int32>(std::floor(Value)); }
	static int32 FloorToInt32(double Value) { return FloorToInt(Value); }
	static int64 FloorToInt64(double Value) { return static_cast<int64>(std::floor(Value)); }
	static int32 CeilToInt(double Value) { return static_cast<int32>(std::ceil(Value)); }
	static int32 CeilToInt32(double Value) { return CeilToInt(Value); }
	/** Halves go up: 2.5 to 3, -2.5 to -2. */
	static int32 RoundToInt(float Value) { return static_cast<int32>(std::floor(Value + 0.5f)); }
	static int32 RoundToInt(double Value) { return static_cast<int32>(std::floor(Value + 0.5)); }
	static int32 RoundToInt32(double Value) { return RoundToInt(Value); }
	static int64 RoundToInt64(double Value) { return static_cast<int64>(std::floor(Value + 0.5)); }
	static float FloorToFloat(float Value) { return std::floor(Value); }
	static float RoundToFloat(float Value) { return std::floor(Value + 0.5f); }
	static float CeilToFloat(float Value) { return std::ceil(Value); }
	static double RoundToDouble(double Value) { return std::floor(Value + 0.5); }
	static float Floor(float Value) { return std::floor(Value); }
	static double Floor(double Value) { return std::floor(Value); }
	static float Fractional(float Value) { return Value - std::trunc(Value); }
	static double Fractional(double Value) { return Value - std::trunc(Value); }

	static bool IsNearlyEqual(float A, float B, float Tolerance = UE_SMALL_NUMBER) { return Abs(A - B) <= Tolerance; }
	static bool IsNearlyEqual(double A, double B, double Tolerance = UE_DOUBLE_SMALL_NUMBER)
	{
		return Abs(A - B) <= Tolerance;
	}
	static bool IsNearlyZero(float Value, float Tolerance = UE_SMALL_NUMBER) { return Abs(Value) <= Tolerance; }
	static bool IsNearlyZero(double Value, double Tolerance = UE_DOUBLE_SMALL_NUMBER)
	{
		return Abs(Value) <= Tolerance;
	}
	static bool IsFinite(double Value) { return std::isfinite(Value); }
	static bool IsNaN(double Value) { return std::isnan(Value); }
	/** The multiple of Grid nearest to Location; Location itself when Grid is 0. */
	template <typename T>
	static T GridSnap(T Location, T Grid)
	{
		return Grid == T(0) ? Location : static_cast<T>(std::floor((Location + Grid / T(2)) / Grid) * Grid);
	}

	static float Sqrt(float Value) { return std::sqrt(Value); }
	static double Sqrt(double Value) { return std::sqrt(Value); }
	static float Sin(float Value) { return std::sin(Value); }
	static double Sin(double Value) { return std::sin(Value); }
	static float Cos(float Value) { return std::cos(Value); }
	static double Cos(double Value) { return std::cos(Value); }
	static float Atan2(float Y, float X) { return std::atan2(Y, X); }
	static double Atan2(double Y, double X) { return std::atan2(Y, X); }
	static float Pow(float Base, float Exponent) { return std::pow(Base, Exponent); }
	static double Pow(double Base, double Exponent) { return std::pow(Base, Exponent); }
	static float Loge(float Value) { return std::log(Value); }
	static double Loge(double Value) { return std::log(Value); }
	static float Log2(float Value) { return std::log2(Value); }
	static float Exp(float Value) { return std::exp(Value); }
	static float Fmod(float X, float Y) { return std::fmod(X, Y); }
	static double Fmod(double X, double Y) { return std::fmod(X, Y); }
	template <typename T>
	static constexpr T DegreesToRadians(T Degrees)
	{
		return static_cast<T>(static_cast<double>(Degrees) * (UE_DOUBLE_PI / 180.0));
	}
	template <typename T>
	static constexpr T RadiansToDegrees(T Radians)
	{
		return static_cast<T>(static_cast<double>(Radians) * (180.0 / UE_DOUBLE_PI));
	}
	template <typename T, typename U>
	static T Lerp(const T& A, const T& B, const U& Alpha)
	{
		return static_cast<T>(A + Alpha * (B - A));
	}
	static bool IsPowerOfTwo(uint32 Value) { return (Value & (Value - 1)) == 0; }
};
