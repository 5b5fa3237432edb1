#pragma once

#include "CoreMinimal.h"

class UEdGraphNode;

namespace Morvane
{
class FToolResult;
}

/** The cases of switches on a gameplay tag or on a container of them: each is called after its tag. */
namespace TagSwitchPins
{
bool IsTagSwitch(const UEdGraphNode& Node);
/** A case for the tag of that name; false after a warning. */
bool Add(UEdGraphNode& Node, const FString& TagName, Morvane::FToolResult& Result);
/** Takes the case of the tag away; false after a warning. */
bool Remove(UEdGraphNode& Node, const FString& TagName, Morvane::FToolResult& Result);
} // namespace TagSwitchPins
