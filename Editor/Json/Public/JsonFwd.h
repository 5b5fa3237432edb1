#pragma once

#include "CoreTypes.h"

class FJsonObject;
class FJsonValue;

template <class CharType>
struct TCondensedJsonPrintPolicy;

template <class CharType>
struct TPrettyJsonPrintPolicy;

template <class CharType = TCHAR>
class TJsonReader;

template <class CharType = TCHAR, class PrintPolicy = TPrettyJsonPrintPolicy<CharType>>
class TJsonWriter;
