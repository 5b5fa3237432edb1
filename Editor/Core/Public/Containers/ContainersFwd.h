#pragma once

#include "CoreTypes.h"

class FDefaultAllocator;
class FDefaultSetAllocator;
class FString;
class FStringView;

template <typename KeyType>
struct TDefaultKeyFuncs;

template <typename T, typename AllocatorType = FDefaultAllocator>
class TArray;
template <typename T>
class TArrayView;
template <typename T>
using TConstArrayView = TArrayView<const T>;
template <typename KeyType, typename ValueType, typename AllocatorType = FDefaultSetAllocator,
	typename KeyFuncs = TDefaultKeyFuncs<KeyType>>
class TMap;
template <typename KeyType, typename KeyFuncs = TDefaultKeyFuncs<KeyType>,
	typename AllocatorType = FDefaultSetAllocator>
class TSet;
