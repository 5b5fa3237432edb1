#pragma once

#include <algorithm>
#include <functional>

namespace Algo
{
template <typename RangeType>
void Sort(RangeType&& Range)
{
	std::sort(Range.begin(), Range.end(), std::less<>());
}
template <typename RangeType, typename Predicate>
void Sort(RangeType&& Range, Predicate Less)
{
	std::sort(Range.begin(), Range.end(), Less);
}
template <typename RangeType, typename Predicate>
void StableSort(RangeType&& Range, Predicate Less)
{
	std::stable_sort(Range.begin(), Range.end(), Less);
}
}
