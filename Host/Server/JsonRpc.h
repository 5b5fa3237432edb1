#pragma once

#include <string>
#include <string_view>

#include "Support/JsonFields.h"

/** The codes that a JSON-RPC error of this server may carry. */
namespace RpcError
{
constexpr int ParseError = -32700;
constexpr int InvalidRequest = -32600;
constexpr int MethodNotFound = -32601;
constexpr int InvalidParams = -32602;
constexpr int InternalError = -32603;
constexpr int UnsupportedVersion = -32022;
} // namespace RpcError

enum class EMessageKind
{
	Request,
	Notification,
	/** An answer to a request that we never sent: dropped. */
	Response,
	Malformed
};

struct FRpcMessage
{
	EMessageKind Kind = EMessageKind::Malformed;

	/** The id as a JSON token, a string or an integer; empty when there is none or it cannot be known. */
	std::string Id;

	std::string Method;

	/** The members of params; empty when params is absent. */
	FJsonFields Params;

	/** Set for a malformed message, which is answered with this. */
	int ErrorCode = 0;
	std::string ErrorText;
};

/**
 * How many values one message may hold, those in arrays and objects counted singly. With the bound on its bytes it
 * bounds what a message costs in memory, which is a good hundred bytes for each value beside its text.
 */
constexpr size_t MaxMessageValues = 500'000;

/** Never fails: a message that cannot be read comes back as Malformed, with the answer that it deserves. */
FRpcMessage ParseRpcMessage(std::string_view Text);

namespace RpcText
{
/** Id is a JSON token and is left out when empty, since a null id is not allowed. DataJson, when given, is a JSON
 * object. */
std::string Error(std::string_view Id, int Code, std::string_view Message, std::string_view DataJson = {});

std::string Result(std::string_view Id, std::string_view ResultJson);

std::string Notification(std::string_view Method, std::string_view ParamsJson);
} // namespace RpcText
