#pragma once

/** One line, no blanks. */
template <class CharType>
struct TCondensedJsonPrintPolicy
{
	static constexpr bool bPretty = false;
};
