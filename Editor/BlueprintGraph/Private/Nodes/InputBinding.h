#pragma once

#include "Standalone/NativeClass.h"

/** What the nodes of input share. */
namespace InputBinding
{
/** How a node binds itself to input: whether it keeps it from others, listens while the game is paused, and replaces
 * the parent's binding. */
template <class TNode>
void Describe(FClassDescriber& Class)
{
	Class.Property(TEXT("bConsumeInput"), &TNode::bConsumeInput);
	Class.Property(TEXT("bExecuteWhenPaused"), &TNode::bExecuteWhenPaused);
	Class.Property(TEXT("bOverrideParentBinding"), &TNode::bOverrideParentBinding);
}
} // namespace InputBinding
