#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

/**
 * Cuts a stream of bytes into lines. Line ends are \n or \r\n, blank lines are skipped, and a last line without an end
 * counts. A line beyond the bound is not kept: its bytes are shown as they pass, its end is reported once, and the next
 * line is read as usual.
 */
class FLineReader
{
public:
	using FOnLine = std::function<void(std::string_view Line)>;
	using FOnTooLong = std::function<void()>;
	using FOnSkipped = std::function<void(std::string_view Part)>;

	FLineReader(size_t InMaxLine, FOnLine InOnLine, FOnTooLong InOnTooLong, FOnSkipped InOnSkipped = {});

	void Feed(std::string_view Bytes);

	/** The stream has ended. */
	void Finish();

private:
	void Append(std::string_view Part);
	void Skip(std::string_view Part) const;
	void EndLine();

	const size_t MaxLine;
	const FOnLine OnLine;
	const FOnTooLong OnTooLong;
	const FOnSkipped OnSkipped;
	std::string Line;
	bool bTooLong = false;
};
