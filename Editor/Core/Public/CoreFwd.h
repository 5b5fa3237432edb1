#pragma once

#include "CoreTypes.h"

class FString;
class FStringView;
class FName;
class FText;
class FOutputDevice;
class FFeedbackContext;
struct FGuid;
struct FColor;
struct FLinearColor;
struct FVector;
struct FVector2D;
struct FVector4;
struct FRotator;
struct FQuat;
struct FTransform;
