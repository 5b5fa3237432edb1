#include "Math/Color.h"
#include "Math/IntPoint.h"
#include "Math/IntVector.h"
#include "Math/Transform.h"
#include "Math/Vector2D.h"
#include "Misc/Parse.h"

FString FVector::ToString() const
{
	return FString::Printf(TEXT("X=%3.3f Y=%3.3f Z=%3.3f"), X, Y, Z);
}

bool FVector::InitFromString(const FString& Text)
{
	return FParse::Value(*Text, TEXT("X="), X) && FParse::Value(*Text, TEXT("Y="), Y)
		&& FParse::Value(*Text, TEXT("Z="), Z);
}

bool FVector::Equals(const FVector& Other, double Tolerance) const
{
	return FMath::Abs(X - Other.X) <= Tolerance && FMath::Abs(Y - Other.Y) <= Tolerance
		&& FMath::Abs(Z - Other.Z) <= Tolerance;
}
