#pragma once

#include "CoreMinimal.h"
#include "UObject/UnrealType.h"

class UAnimGraphNode_Base;
class UEdGraphPin;

/** How the members of a run-time struct are shown on its node. */
namespace AnimNodePins
{
/** The members, those of the base first: a node's own settings follow what all nodes have. */
TArray<FProperty*> MembersOf(const UScriptStruct& Struct);

/** Whether the type is a pose or an array of poses, which is always linked and never typed in. */
bool IsPose(const FProperty& Property);

/** What a member's metadata says about its pin. */
struct FVisibility
{
	bool bShown = false;
	bool bMayChange = false;
};
FVisibility GetVisibility(const FProperty& Property);

/** Gives an input pin the values of the node and of a node as it starts; Start is null for an element that it lacks. */
void SetDefaults(UEdGraphPin& Pin, const FProperty& Property, const void* Value, const void* Start);

/** The name of a value after it was scaled, mapped, clamped and smoothed as a struct of such settings says. */
FString DescribeScale(const FString& Name, const UScriptStruct& Struct, const void* Settings);
} // namespace AnimNodePins
