#include "Server/JsonRpc.h"

#include <simdjson.h>

#include "Server/MessageId.h"
#include "Standalone/JsonUtf8.h"
#include "Support/JsonText.h"

namespace JsonRpcPrivate
{
static FRpcMessage Malformed(const std::string& Id, const int Code, std::string Text)
{
	FRpcMessage Message;
	Message.Kind = EMessageKind::Malformed;
	Message.Id = Id;
	Message.ErrorCode = Code;
	Message.ErrorText = std::move(Text);
	return Message;
}

/** A string or an integer, brought to one spelling so that a later cancellation finds it; empty for anything else. */
static std::string ReadId(const FJsonFields& Envelope)
{
	const std::string* Raw = Envelope.Find("id");
	if (!Raw)
	{
		return {};
	}
	if (JsonRaw::IsInteger(*Raw))
	{
		return *Raw;
	}
	const std::optional<std::string> Text = JsonRaw::DecodeString(*Raw);
	return Text ? JsonText::Quote(*Text) : std::string();
}

/**
 * The text as a whole is no JSON, but its envelope may still be: one lone surrogate or too deep a nest in an argument
 * must not leave the caller waiting for an answer that carries no id. Bytes that are no text hide the envelope from the
 * parser; the id is found without it then.
 */
static FRpcMessage DescribeBrokenText(const std::string_view Text, const std::string& Reason)
{
	if (!simdjson::validate_utf8(Text.data(), Text.size()))
	{
		FMessageIdScanner Scanner;
		Scanner.Feed(Text);
		return Malformed(Scanner.GetId(), RpcError::ParseError, "Parse error: " + Reason);
	}
	FJsonFields Envelope;
	if (Envelope.Read(Text) == FJsonFields::EOutcome::Read && Envelope.FindString("method"))
	{
		const std::string Id = ReadId(Envelope);
		if (!Id.empty())
		{
			return Malformed(Id, RpcError::InvalidParams, "Malformed params: " + Reason);
		}
	}
	return Malformed({}, RpcError::ParseError, "Parse error: " + Reason);
}

static FRpcMessage ReadEnvelope(const FJsonFields& Envelope)
{
	const std::string Id = ReadId(Envelope);
	if (Envelope.FindString("jsonrpc") != "2.0")
	{
		return Malformed(Id, RpcError::InvalidRequest, "Invalid request: \"jsonrpc\" must be \"2.0\"");
	}
	if (Envelope.Has("id") && Id.empty())
	{
		return Malformed({}, RpcError::InvalidRequest, "Invalid request: \"id\" must be a string or an integer");
	}
	FRpcMessage Message;
	Message.Id = Id;
	const std::optional<std::string> Method = Envelope.FindString("method");
	if (!Method)
	{
		if (!Envelope.Has("method") && (Envelope.Has("result") || Envelope.Has("error")))
		{
			Message.Kind = EMessageKind::Response;
			return Message;
		}
		return Malformed(Id, RpcError::InvalidRequest, "Invalid request: \"method\" must be a string");
	}
	Message.Method = *Method;
	Message.Kind = Id.empty() ? EMessageKind::Notification : EMessageKind::Request;
	const std::string* Params = Envelope.Find("params");
	if (Params && Message.Params.Read(*Params) != FJsonFields::EOutcome::Read)
	{
		return Message.Kind == EMessageKind::Notification
			? Message
			: Malformed(Id, RpcError::InvalidParams, "Invalid params: \"params\" must be an object");
	}
	return Message;
}
} // namespace JsonRpcPrivate

FRpcMessage ParseRpcMessage(const std::string_view Text)
{
	std::string Reason;
	if (!JsonUtf8::Check(Text, Reason, MaxMessageValues))
	{
		return JsonRpcPrivate::DescribeBrokenText(Text, Reason);
	}
	FJsonFields Envelope;
	if (Envelope.Read(Text) != FJsonFields::EOutcome::Read)
	{
		return JsonRpcPrivate::Malformed(
			{}, RpcError::InvalidRequest, "Invalid request: a message must be one JSON object");
	}
	return JsonRpcPrivate::ReadEnvelope(Envelope);
}

std::string RpcText::Error(
	const std::string_view Id, const int Code, const std::string_view Message, const std::string_view DataJson)
{
	std::string Text = R"({"jsonrpc":"2.0")";
	if (!Id.empty())
	{
		Text.append(R"(,"id":)").append(Id);
	}
	Text.append(R"(,"error":{"code":)").append(std::to_string(Code)).append(R"(,"message":)");
	JsonText::AppendString(Text, Message);
	if (!DataJson.empty())
	{
		Text.append(R"(,"data":)").append(DataJson);
	}
	return Text.append("}}");
}

std::string RpcText::Result(const std::string_view Id, const std::string_view ResultJson)
{
	std::string Text;
	Text.reserve(ResultJson.size() + Id.size() + 40);
	return Text.append(R"({"jsonrpc":"2.0","id":)").append(Id).append(R"(,"result":)").append(ResultJson).append("}");
}

std::string RpcText::Notification(const std::string_view Method, const std::string_view ParamsJson)
{
	std::string Text = R"({"jsonrpc":"2.0","method":)";
	JsonText::AppendString(Text, Method);
	return Text.append(R"(,"params":)").append(ParamsJson).append("}");
}
