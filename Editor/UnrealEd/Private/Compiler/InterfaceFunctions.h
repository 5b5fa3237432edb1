#pragma once

#include "EdGraphSchema_K2.h"

namespace InterfaceFunctions
{
/** Functions that are no events have a graph each; an author fills it and cannot remove it. */
inline bool NeedsGraph(const UFunction& Function)
{
	return UEdGraphSchema_K2::CanKismetOverrideFunction(&Function)
		&& !UEdGraphSchema_K2::FunctionCanBePlacedAsEvent(&Function);
}
} // namespace InterfaceFunctions
