#pragma once

#include "CoreTypes.h"

#include <cmath>

#define UE_PI (3.1415926535897932f)
#define UE_SMALL_NUMBER (1.e-8f)
#define UE_KINDA_SMALL_NUMBER (1.e-4f)
#define UE_DOUBLE_PI (3.141592653589793238462643383279502884197169399)
#define PI UE_PI
#define SMALL_NUMBER UE_SMALL_NUMBER
#define KINDA_SMALL_NUMBER UE_KINDA_SMALL_NUMBER

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

	static int32 TruncToInt(double Value) { return static_cast<int32>(Value); }
	static int32 FloorToInt(double Value) { return static_cast<int32>(std::floor(Value)); }
	/** Halves go up: 2.5 to 3, -2.5 to -2. */
	static int32 RoundToInt(float Value) { return static_cast<int32>(std::floor(Value + 0.5f)); }
	static int32 RoundToInt(double Value) { return static_cast<int32>(std::floor(Value + 0.5)); }

	/** The multiple of Grid nearest to Location; Location itself when Grid is 0. */
	template <typename T>
	static T GridSnap(T Location, T Grid)
	{
		return Grid == T(0) ? Location : static_cast<T>(std::floor((Location + Grid / T(2)) / Grid) * Grid);
	}

	static float Sin(float Value) { return std::sin(Value); }
	static double Sin(double Value) { return std::sin(Value); }
	static float Pow(float Base, float Exponent) { return std::pow(Base, Exponent); }
	static double Pow(double Base, double Exponent) { return std::pow(Base, Exponent); }
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
};
