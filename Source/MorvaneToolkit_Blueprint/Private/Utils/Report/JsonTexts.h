#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonValue.h"

/** The texts as JSON strings, in their order. */
TArray<TSharedPtr<FJsonValue>> ToJsonTexts(const TArray<FString>& Texts);
