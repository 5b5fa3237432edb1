#pragma once

#include "CoreTypes.h"

class FDefaultAllocator;
class FDefaultSetAllocator;
class FString;
class FStringView;

template <typename InElementType, bool bInAllowDuplicateKeys = false>
struct DefaultKeyFuncs;
template <typename KeyType, typename ValueType, bool bInAllowDuplicateKeys>
struct TDefaultMapKeyFuncs;

template <typename T, typename AllocatorType = FDefaultAllocator>
class TArray;
template <typename T>
class TArrayView;
template <typename T>
using TConstArrayView = TArrayView<const T>;
template <typename KeyType, typename ValueType, typename AllocatorType = FDefaultSetAllocator,
	typename KeyFuncs = TDefaultMapKeyFuncs<KeyType, ValueType, false>>
class TMap;
template <typename KeyType, typename KeyFuncs = DefaultKeyFuncs<KeyType>, typename AllocatorType = FDefaultSetAllocator>
class TSet;
