#pragma once

#include "CoreMinimal.h"

class UObject;

/** Knows which objects are open in editor windows. */
class UAssetEditorSubsystem
{
public:
	/** How many windows were closed. */
	int32 CloseAllEditorsForAsset(UObject* Asset) { return 0; }
};
