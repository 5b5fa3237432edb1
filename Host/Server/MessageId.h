#pragma once

#include <string>
#include <string_view>

/**
 * Finds the id of a message that cannot be read as a whole: one that is too long to keep, or holds bytes that are no
 * text. Takes the bytes in pieces and remembers little, so that the length of the message costs nothing.
 *
 * A client that gets an answer without its id waits for ever; so the id is looked for in whatever there is. It counts
 * when it is a plain string or an integer and a member of the outermost object.
 */
class FMessageIdScanner
{
public:
	void Feed(std::string_view Bytes);

	/** The id as a JSON token; empty when none was found. */
	const std::string& GetId() const { return Id; }
	/** Starts over with the next message. */
	void Reset() { *this = FMessageIdScanner(); }

private:
	void Take(char Byte);
	void TakeInString(char Byte);
	void EndValue();

	int Depth = 0;
	bool bInString = false;
	bool bEscaped = false;
	/** Behind the colon of a member of the outermost object. */
	bool bAtValue = false;
	/** The token of the outermost object that is being read, or was read last. */
	std::string Token;
	std::string Name;
	std::string Id;
};
