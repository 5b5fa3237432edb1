#pragma once

#include "Containers/StringView.h"
#include "Containers/UnrealString.h"

#include <string>

class FJsonObject;
class FJsonValue;

/**
 * Writes JSON text element by element into a buffer of its own, as TCHARs or straight as UTF-8. It puts commas, line
 * ends and escapes; that the elements come in an order that makes sense is the caller's business.
 *
 * Numbers are written with the fewest digits that read back as the same double, whole numbers without a fraction.
 * Infinities and NaN, which JSON cannot say, become null. UTF-8 output is always valid: lone surrogates become the
 * replacement character.
 */
template <typename CharType>
class TJsonEmitter
{
public:
	explicit TJsonEmitter(bool bInPretty = false, int32 InDepth = 0);

	void BeginObject();
	void EndObject();
	void BeginArray();
	void EndArray();
	/** The value follows. */
	void Key(FStringView Name);
	void String(FStringView Text);
	void Number(double Value);
	void Integer(int64 Value);
	void Unsigned(uint64 Value);
	void Boolean(bool bValue);
	void Null();
	/** Text that is JSON already. */
	void Raw(FStringView Json);

	void Value(const FJsonValue& Json);
	void Object(const FJsonObject& Json);

	int32 GetDepth() const { return Depth; }
	std::basic_string<CharType>& GetText() { return Text; }

private:
	void BeginElement();
	void Open(char Bracket);
	void Close(char Bracket);
	void BreakLine();
	void Ascii(std::string_view Chars);
	void Quoted(FStringView Chars);
	void Escape(TCHAR Char);

	std::basic_string<CharType> Text;
	const bool bPretty;
	int32 Depth;
	/** Nothing stands in the innermost array or object yet. */
	bool bFirst = true;
	bool bAfterKey = false;
};

extern template class TJsonEmitter<char>;
extern template class TJsonEmitter<TCHAR>;
