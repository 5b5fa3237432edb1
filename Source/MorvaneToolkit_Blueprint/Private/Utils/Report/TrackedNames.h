#pragma once

#include "CoreMinimal.h"

namespace Morvane
{
class FToolResult;
}

/**
 * Records that the read tool, asked for these names of the asset, shows what the call changed. Without names nothing is
 * recorded.
 */
void TrackNames(const TCHAR* ReadTool, const FString& Path, const TCHAR* NameField, const TArray<FString>& Names,
	Morvane::FToolResult& Result);
