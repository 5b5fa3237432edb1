#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ToolFace/Resources.h"

/** What a client is told about one tool. All text is UTF-8. */
struct FToolListing
{
	std::string Name;
	std::string Description;
};

struct FToolOutcome
{
	/** The result object as one line of JSON: success, errors, warnings, messages, data, modifications. */
	std::string ResultJson;
	bool bSuccess = false;
};

/**
 * The tools as the protocol and the command line see them: names, and text in, text out.
 *
 * Everything is called from the game thread. An implementation reports every failure inside the result object.
 */
class IToolHost
{
public:
	virtual ~IToolHost() = default;

	/** In the order of registration, the same for the whole life of the process. Starts nothing and takes no lock. */
	virtual std::vector<FToolListing> ListTools() = 0;

	/** ArgumentsJson is handed to the tool as it is; the tool's own messages say what is wrong with it. */
	virtual FToolOutcome CallTool(std::string_view Name, std::string_view ArgumentsJson) = 0;

	/** What the project alone has to offer, by address; nothing before its first use, since listing takes no lock. */
	virtual std::vector<FResourceListing> ListResources() = 0;

	virtual FResourceOutcome ReadResource(std::string_view Uri) = 0;

	/** Names of a kind that fit what is typed so far; none when the project cannot be opened. */
	virtual FCompletions Complete(ENameKind Kind, std::string_view Typed) = 0;
};
