#pragma once

/** One member or element a line, indented by tabs. */
template <class CharType>
struct TPrettyJsonPrintPolicy
{
	static constexpr bool bPretty = true;
};
