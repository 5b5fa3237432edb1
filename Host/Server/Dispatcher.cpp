#include "Server/Dispatcher.h"

#include <algorithm>
#include <array>
#include <exception>

#include "Server/Identity.h"
#include "Server/Revisions.h"
#include "Support/JsonText.h"
#include "ToolFace/ResultCut.h"
#include "ToolFace/ResultObject.h"
#include "ToolFace/ToolListing.h"

struct FDispatcher::FMethod
{
	std::string_view Name;
	EEra Era;
	void (FDispatcher::*Handle)(const FRequest&);
};

namespace DispatcherPrivate
{
/** The tools are fixed for the life of the process, so any client may keep the list for an hour. */
constexpr std::string_view Cacheable = R"(,"ttlMs":3600000,"cacheScope":"public")";

static EEra TellEra(const FJsonFields& Params)
{
	const std::optional<FJsonFields> Meta = Params.FindObject("_meta");
	return Meta && Meta->Has(MetaKey::ProtocolVersion) ? EEra::Modern : EEra::Legacy;
}

static std::string SubscriptionMeta(const std::string& Id)
{
	return "{" + JsonText::Quote(MetaKey::SubscriptionId) + ":" + Id + "}";
}

static std::string CallMembers(const FToolOutcome& Outcome)
{
	std::string Members;
	Members.reserve(Outcome.ResultJson.size() * 9 / 4 + 100);
	Members += R"("content":[{"type":"text","text":)";
	JsonText::AppendString(Members, Outcome.ResultJson);
	Members.append(R"(}],"structuredContent":)").append(Outcome.ResultJson);
	return Members.append(Outcome.bSuccess ? R"(,"isError":false)" : R"(,"isError":true)");
}
} // namespace DispatcherPrivate

FDispatcher::FDispatcher(IToolHost& InTools, FCallQueue& InQueue)
	: Tools(InTools)
	, Queue(InQueue)
{
	const std::vector<FToolListing> Listed = Tools.ListTools();
	for (const FToolListing& Tool : Listed)
	{
		ToolNames.push_back(Tool.Name);
	}
	ToolsMember = "\"tools\":" + ToolListing::Json(Listed);
}

const FDispatcher::FMethod* FDispatcher::FindMethod(const std::string_view Name, const EEra Era)
{
	static constexpr std::array<FMethod, 20> Methods = {{
		{"initialize", EEra::Legacy, &FDispatcher::Initialize},
		{"ping", EEra::Legacy, &FDispatcher::Ping},
		{"tools/list", EEra::Legacy, &FDispatcher::ListTools},
		{"tools/call", EEra::Legacy, &FDispatcher::CallTool},
		{"server/discover", EEra::Modern, &FDispatcher::Discover},
		{"tools/list", EEra::Modern, &FDispatcher::ListTools},
		{"tools/call", EEra::Modern, &FDispatcher::CallTool},
		{"subscriptions/listen", EEra::Modern, &FDispatcher::Listen},
		{"resources/list", EEra::Legacy, &FDispatcher::ListResources},
		{"resources/templates/list", EEra::Legacy, &FDispatcher::ListResourceTemplates},
		{"resources/read", EEra::Legacy, &FDispatcher::ReadResource},
		{"prompts/list", EEra::Legacy, &FDispatcher::ListPrompts},
		{"prompts/get", EEra::Legacy, &FDispatcher::GetPrompt},
		{"completion/complete", EEra::Legacy, &FDispatcher::Complete},
		{"resources/list", EEra::Modern, &FDispatcher::ListResources},
		{"resources/templates/list", EEra::Modern, &FDispatcher::ListResourceTemplates},
		{"resources/read", EEra::Modern, &FDispatcher::ReadResource},
		{"prompts/list", EEra::Modern, &FDispatcher::ListPrompts},
		{"prompts/get", EEra::Modern, &FDispatcher::GetPrompt},
		{"completion/complete", EEra::Modern, &FDispatcher::Complete},
	}};
	const auto Known = std::find_if(Methods.begin(), Methods.end(),
		[&](const FMethod& Method) { return Method.Name == Name && Method.Era == Era; });
	return Known != Methods.end() ? &*Known : nullptr;
}

void FDispatcher::Receive(const std::string_view Text, const FReplySinkPtr& Sink)
{
	Dispatch(ParseRpcMessage(Text), Sink);
}

void FDispatcher::Dispatch(FRpcMessage Message, const FReplySinkPtr& Sink)
{
	switch (Message.Kind)
	{
	case EMessageKind::Response:
		return;
	case EMessageKind::Malformed:
		Sink->Send({RpcText::Error(Message.Id, Message.ErrorCode, Message.ErrorText), Message.ErrorCode});
		return;
	case EMessageKind::Notification:
		HandleNotification(Message, Sink);
		return;
	case EMessageKind::Request:
		break;
	}
	const EEra Era = DispatcherPrivate::TellEra(Message.Params);
	const FRequest Request{std::move(Message.Id), std::move(Message.Method), std::move(Message.Params), Era, Sink};
	if (Era == EEra::Modern && !CheckModernEnvelope(Request))
	{
		return;
	}
	const FMethod* Method = FindMethod(Request.Method, Era);
	if (!Method)
	{
		SendError(Request, RpcError::MethodNotFound, "Method not found: " + Request.Method);
		return;
	}
	(this->*Method->Handle)(Request);
}

bool FDispatcher::CheckModernEnvelope(const FRequest& Request) const
{
	const FJsonFields Meta = Request.Params.FindObject("_meta").value_or(FJsonFields());
	const std::optional<std::string> Version = Meta.FindString(MetaKey::ProtocolVersion);
	if (!Version)
	{
		SendError(Request, RpcError::InvalidParams,
			"Invalid params: _meta[\"io.modelcontextprotocol/protocolVersion\"] must be a string");
		return false;
	}
	if (!Meta.FindObject(MetaKey::ClientCapabilities))
	{
		SendError(Request, RpcError::InvalidParams,
			"Invalid params: _meta[\"io.modelcontextprotocol/clientCapabilities\"] must be an object");
		return false;
	}
	if (*Version != Revisions::Modern)
	{
		const std::string Data =
			std::string(R"({"supported":)").append(Revisions::ListJson()).append(R"(,"requested":)")
			+ JsonText::Quote(*Version) + "}";
		SendError(Request, RpcError::UnsupportedVersion, "Unsupported protocol version: " + *Version, Data);
		return false;
	}
	return true;
}

void FDispatcher::HandleNotification(const FRpcMessage& Message, const FReplySinkPtr& Sink)
{
	const std::string* Raw = Message.Params.Find("requestId");
	if (Message.Method != "notifications/cancelled" || !Raw)
	{
		return;
	}
	const std::optional<std::string> Text = JsonRaw::DecodeString(*Raw);
	const std::string Id = Text ? JsonText::Quote(*Text) : *Raw;
	Queue.Cancel(Sink.get(), Id);
	const std::lock_guard Lock(SubscriptionMutex);
	Subscriptions.erase({Sink, Id});
}

void FDispatcher::Initialize(const FRequest& Request)
{
	const std::optional<std::string> Requested = Request.Params.FindString("protocolVersion");
	if (!Requested)
	{
		SendError(Request, RpcError::InvalidParams, "Invalid params: \"protocolVersion\" must be a string");
		return;
	}
	std::string Members = R"("protocolVersion":)" + JsonText::Quote(Revisions::Negotiate(*Requested));
	Members.append(R"(,"capabilities":)").append(Identity::CapabilitiesJson());
	Members += R"(,"serverInfo":)" + Identity::ServerInfoJson();
	Members += R"(,"instructions":)" + JsonText::Quote(Identity::Instructions());
	SendResult(Request, Members);
}

void FDispatcher::Ping(const FRequest& Request)
{
	SendResult(Request, {});
}

void FDispatcher::Discover(const FRequest& Request)
{
	std::string Members = std::string(R"("supportedVersions":)").append(Revisions::ListJson());
	Members.append(R"(,"capabilities":)").append(Identity::CapabilitiesJson());
	Members += R"(,"instructions":)" + JsonText::Quote(Identity::Instructions());
	SendResult(Request, Members.append(DispatcherPrivate::Cacheable));
}

void FDispatcher::ListTools(const FRequest& Request)
{
	if (Request.Params.HasValue("cursor"))
	{
		SendError(Request, RpcError::InvalidParams, "Invalid params: unknown cursor, the list of tools is one page");
		return;
	}
	SendResult(
		Request, Request.Era == EEra::Modern ? ToolsMember + std::string(DispatcherPrivate::Cacheable) : ToolsMember);
}

void FDispatcher::CallTool(const FRequest& Request)
{
	const std::optional<std::string> Name = Request.Params.FindString("name");
	if (!Name)
	{
		SendError(Request, RpcError::InvalidParams, "Invalid params: \"name\" must be a string");
		return;
	}
	if (std::find(ToolNames.begin(), ToolNames.end(), *Name) == ToolNames.end())
	{
		SendError(Request, RpcError::InvalidParams, "Unknown tool: " + *Name);
		return;
	}
	const std::string Arguments = Request.Params.HasValue("arguments") ? *Request.Params.Find("arguments") : "{}";
	if (!JsonRaw::IsObject(Arguments))
	{
		SendError(Request, RpcError::InvalidParams, "Invalid params: \"arguments\" must be an object");
		return;
	}
	Enqueue(Request, Arguments.size(),
		[this, Tool = *Name, Arguments](const FRequest& Slim) { RunTool(Slim, Tool, Arguments); });
}

void FDispatcher::RunTool(const FRequest& Request, const std::string& Name, const std::string& Arguments)
{
	FToolOutcome Outcome;
	try
	{
		Outcome = Tools.CallTool(Name, Arguments);
	}
	catch (const std::exception& Fault)
	{
		Outcome = {ResultObject::Failure(std::string("Internal fault in ") + Name + ": " + Fault.what()), false};
	}
	Outcome.ResultJson = ResultCut::Shorten(Outcome.ResultJson, MaxResultBytes);
	SendResult(Request, DispatcherPrivate::CallMembers(Outcome));
}

/**
 * No change is ever announced, so every subscription is honoured with the empty set. It is accepted all the same: some
 * clients give up their connection when listening is refused.
 */
void FDispatcher::Listen(const FRequest& Request)
{
	{
		const std::lock_guard Lock(SubscriptionMutex);
		Subscriptions.emplace(Request.Sink, Request.Id);
	}
	const std::string Params = R"({"notifications":{},"_meta":)" + DispatcherPrivate::SubscriptionMeta(Request.Id)
		+ "}";
	Request.Sink->Send({RpcText::Notification("notifications/subscriptions/acknowledged", Params), 0});
}

void FDispatcher::EndSubscriptions()
{
	std::set<std::pair<FReplySinkPtr, std::string>> Ended;
	{
		const std::lock_guard Lock(SubscriptionMutex);
		Ended.swap(Subscriptions);
	}
	for (const auto& [Sink, Id] : Ended)
	{
		const std::string Result = R"({"resultType":"complete","_meta":)" + DispatcherPrivate::SubscriptionMeta(Id)
			+ "}";
		Sink->Send({RpcText::Result(Id, Result), 0});
	}
}

void FDispatcher::SendResult(const FRequest& Request, const std::string_view Members) const
{
	std::string Result;
	Result.reserve(Members.size() + 200);
	Result += '{';
	if (Request.Era == EEra::Modern)
	{
		Result += R"("resultType":"complete",)";
	}
	Result += Members;
	if (Request.Era == EEra::Modern)
	{
		Result += ",\"_meta\":{" + JsonText::Quote(MetaKey::ServerInfo) + ":" + Identity::ServerInfoJson() + "}";
	}
	Result += '}';
	Request.Sink->Send({RpcText::Result(Request.Id, Result), 0});
}

void FDispatcher::SendError(
	const FRequest& Request, const int Code, const std::string_view Message, const std::string_view DataJson) const
{
	Request.Sink->Send({RpcText::Error(Request.Id, Code, Message, DataJson), Code});
}
