#pragma once

#include <functional>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Server/CallQueue.h"
#include "Server/JsonRpc.h"
#include "Server/Reply.h"
#include "ToolFace/ToolHost.h"

/** Whether a message is written in the revision that needs no handshake. Told from each message alone; nothing is
 * remembered. */
enum class EEra
{
	Legacy,
	Modern
};

struct FRequest
{
	std::string Id;
	std::string Method;
	FJsonFields Params;
	EEra Era = EEra::Legacy;
	FReplySinkPtr Sink;
};

/**
 * The protocol: takes one message, answers it at once or puts what needs the editor into the queue. It knows nothing of
 * how messages travel, and serves the handshake-less revision and those reached by initialize from one table of
 * methods.
 *
 * Receive may be called from any thread while the game thread runs what the queue hands out.
 */
class FDispatcher
{
public:
	/** On the game thread. Tools and Queue must outlive the dispatcher. */
	FDispatcher(IToolHost& InTools, FCallQueue& InQueue);

	void Receive(std::string_view Text, const FReplySinkPtr& Sink);
	void Dispatch(FRpcMessage Message, const FReplySinkPtr& Sink);

	/** Ends the subscriptions that are still open, once no further message will come. */
	void EndSubscriptions();

	/** Largest result object that goes out whole, a larger one is cut; clients drop the connection over longer lines.
	 */
	static constexpr size_t MaxResultBytes = 3u << 20;

private:
	struct FMethod;
	static const FMethod* FindMethod(std::string_view Name, EEra Era);

	void HandleNotification(const FRpcMessage& Message, const FReplySinkPtr& Sink);
	bool CheckModernEnvelope(const FRequest& Request) const;

	void Initialize(const FRequest& Request);
	void Ping(const FRequest& Request);
	void Discover(const FRequest& Request);
	void ListTools(const FRequest& Request);
	void CallTool(const FRequest& Request);
	void Listen(const FRequest& Request);
	void ListResources(const FRequest& Request);
	void ListResourceTemplates(const FRequest& Request);
	void ReadResource(const FRequest& Request);
	void ListPrompts(const FRequest& Request);
	void GetPrompt(const FRequest& Request);
	void Complete(const FRequest& Request);

	void RunTool(const FRequest& Request, const std::string& Name, const std::string& Arguments);
	void AnswerResource(const FRequest& Request, const std::string& Uri);
	/** What the argument of a prompt or a template names; nothing when there is no such prompt or template. */
	static std::optional<ENameKind> FindNameKind(const FJsonFields& Reference, std::string_view Argument);

	/** Work runs on the game thread and answers; Bytes is what it keeps in memory until then. */
	void Enqueue(const FRequest& Request, size_t Bytes, std::function<void(const FRequest&)> Work);

	/** Members are the result's own, without braces; what the era adds to every result is added here. */
	void SendResult(const FRequest& Request, std::string_view Members) const;
	void SendError(const FRequest& Request, int Code, std::string_view Message, std::string_view DataJson = {}) const;

	IToolHost& Tools;
	FCallQueue& Queue;
	std::vector<std::string> ToolNames;
	std::string ToolsMember;

	std::mutex SubscriptionMutex;
	std::set<std::pair<FReplySinkPtr, std::string>> Subscriptions;
};
