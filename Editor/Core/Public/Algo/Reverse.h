#pragma once

#include <algorithm>

namespace Algo
{
template <typename RangeType>
void Reverse(RangeType&& Range)
{
	std::reverse(Range.begin(), Range.end());
}
}
