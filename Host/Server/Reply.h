#pragma once

#include <memory>
#include <string>

/** One message of ours on its way to a client. */
struct FReply
{
	/** A whole JSON-RPC message without a line end. */
	std::string Text;

	/** The JSON-RPC error that it carries; 0 for results and notifications. */
	int ErrorCode = 0;
};

/** Where the answers to one client go. Send may be called from any thread and never blocks on a tool. */
class IReplySink
{
public:
	virtual ~IReplySink() = default;

	virtual void Send(FReply Reply) = 0;
};

using FReplySinkPtr = std::shared_ptr<IReplySink>;
