#pragma once

#include "CoreMinimal.h"

class FJsonObject;

namespace Morvane
{
class FToolResult;
}

/** Reads a text that a command must have; false after an error in the result that names the field. */
bool RequireStringField(const FJsonObject& Args, const TCHAR* Field, FString& OutValue, Morvane::FToolResult& Result);
