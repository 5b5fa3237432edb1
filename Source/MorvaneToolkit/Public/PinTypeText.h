#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "EdGraph/EdGraphPin.h"

/**
 * Pin types as short text: "float", "Vector", "Actor", "class Pawn", "soft object Texture2D", "array of name",
 * "map of int to /Game/Items/S_Item.S_Item", "const ref HitResult". Native types go by their name alone, others by
 * path. Whatever is written here is understood where a request gives a type.
 */
namespace PinTypeText
{
MORVANETOOLKIT_API FString Write(const FEdGraphPinType& PinType);
/** The type object that such a phrase stands for; null for a word alone and for other text. */
MORVANETOOLKIT_API TSharedPtr<FJsonObject> Read(const FString& Text);
} // namespace PinTypeText
