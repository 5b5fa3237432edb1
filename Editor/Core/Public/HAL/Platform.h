#pragma once

#include <cstddef>
#include <cstdint>

using int8 = std::int8_t;
using int16 = std::int16_t;
using int32 = std::int32_t;
using int64 = long long;
using uint8 = std::uint8_t;
using uint16 = std::uint16_t;
using uint32 = std::uint32_t;
using uint64 = unsigned long long;
using UPTRINT = std::uintptr_t;
using PTRINT = std::intptr_t;
using SIZE_T = std::size_t;
using SSIZE_T = std::ptrdiff_t;

using ANSICHAR = char;
using WIDECHAR = wchar_t;
using TCHAR = WIDECHAR;
using UTF8CHAR = char8_t;
using UTF16CHAR = char16_t;
using UTF32CHAR = char32_t;

#define TEXT_PASTE(Literal) L##Literal
#define TEXT(Literal) TEXT_PASTE(Literal)

#define FORCEINLINE inline
#define FORCENOINLINE
#define UE_NODISCARD [[nodiscard]]
#define PRAGMA_DISABLE_DEPRECATION_WARNINGS
#define PRAGMA_ENABLE_DEPRECATION_WARNINGS
#define LINE_TERMINATOR TEXT("\n")

#define WITH_EDITOR 1
#define WITH_EDITORONLY_DATA 1
