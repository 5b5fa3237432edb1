#include <charconv>
#include <exception>

#include "Server/Dispatcher.h"
#include "Support/JsonText.h"
#include "ToolFace/Prompts.h"
#include "ToolFace/Resources.h"

// Resources, prompts and completion: what a client may look at besides calling tools.

namespace DispatchResources
{
constexpr size_t PageSize = 200;
/** The project may change at any time, and is nobody else's. */
constexpr std::string_view Fresh = R"(,"ttlMs":0,"cacheScope":"private")";
constexpr std::string_view Lasting = R"(,"ttlMs":3600000,"cacheScope":"public")";

static std::string WithCache(const FRequest& Request, std::string Members, const std::string_view Cache)
{
	return Request.Era == EEra::Modern ? Members.append(Cache) : Members;
}

/** A cursor is the number of entries that went before. */
static std::optional<size_t> ReadCursor(const FJsonFields& Params)
{
	if (!Params.HasValue("cursor"))
	{
		return 0;
	}
	const std::string Text = Params.FindString("cursor").value_or("");
	size_t Start = 0;
	const auto [End, Fault] = std::from_chars(Text.data(), Text.data() + Text.size(), Start);
	const bool bOurs = Fault == std::errc() && End == Text.data() + Text.size() && Start > 0 && Start % PageSize == 0;
	return bOurs ? std::optional(Start) : std::nullopt;
}

static std::string ResourcesPage(const std::vector<FResourceListing>& Listed, const size_t Start)
{
	std::string Text = R"("resources":[)";
	for (size_t Index = Start; Index < std::min(Listed.size(), Start + PageSize); ++Index)
	{
		Text += (Index > Start ? "," : "") + ResourceTemplates::Json(Listed[Index]);
	}
	Text += "]";
	return Listed.size() > Start + PageSize ? Text + R"(,"nextCursor":")" + std::to_string(Start + PageSize) + '"'
											: Text;
}

static std::string CompletionJson(const FCompletions& Found)
{
	std::string Text = R"("completion":{"values":[)";
	for (size_t Index = 0; Index < Found.Values.size(); ++Index)
	{
		Text += (Index > 0 ? "," : "") + JsonText::Quote(Found.Values[Index]);
	}
	Text += R"(],"total":)" + std::to_string(Found.Total);
	return Text + (Found.Total > Found.Values.size() ? R"(,"hasMore":true})" : R"(,"hasMore":false})");
}
} // namespace DispatchResources

void FDispatcher::Enqueue(const FRequest& Request, const size_t Bytes, std::function<void(const FRequest&)> Work)
{
	FRequest Slim{Request.Id, Request.Method, {}, Request.Era, Request.Sink};
	Queue.Push({Request.Sink, Request.Id, Bytes,
		[this, Slim = std::move(Slim), Work = std::move(Work)]
		{
			try
			{
				Work(Slim);
			}
			catch (const std::exception& Fault)
			{
				SendError(Slim, RpcError::InternalError, "Internal fault in " + Slim.Method + ": " + Fault.what());
			}
		}});
}

void FDispatcher::ListResources(const FRequest& Request)
{
	const std::optional<size_t> Start = DispatchResources::ReadCursor(Request.Params);
	if (!Start)
	{
		SendError(Request, RpcError::InvalidParams, "Invalid params: unknown cursor");
		return;
	}
	Enqueue(Request, 0,
		[this, Start = *Start](const FRequest& Slim)
		{
			std::vector<FResourceListing> Listed = ResourceTemplates::GetFixed();
			const std::vector<FResourceListing> Project = Tools.ListResources();
			Listed.insert(Listed.end(), Project.begin(), Project.end());
			if (Start > 0 && Start >= Listed.size())
			{
				SendError(Slim, RpcError::InvalidParams, "Invalid params: unknown cursor");
				return;
			}
			SendResult(Slim,
				DispatchResources::WithCache(
					Slim, DispatchResources::ResourcesPage(Listed, Start), DispatchResources::Fresh));
		});
}

void FDispatcher::ListResourceTemplates(const FRequest& Request)
{
	if (Request.Params.HasValue("cursor"))
	{
		SendError(Request, RpcError::InvalidParams, "Invalid params: unknown cursor, the list is one page");
		return;
	}
	SendResult(Request,
		DispatchResources::WithCache(
			Request, "\"resourceTemplates\":" + ResourceTemplates::Json(), DispatchResources::Lasting));
}

void FDispatcher::ReadResource(const FRequest& Request)
{
	const std::optional<std::string> Uri = Request.Params.FindString("uri");
	if (!Uri)
	{
		SendError(Request, RpcError::InvalidParams, "Invalid params: \"uri\" must be a string");
		return;
	}
	Enqueue(Request, Uri->size(), [this, Uri = *Uri](const FRequest& Slim) { AnswerResource(Slim, Uri); });
}

void FDispatcher::AnswerResource(const FRequest& Request, const std::string& Uri)
{
	FResourceOutcome Outcome = Tools.ReadResource(Uri);
	const std::string Data = R"({"uri":)" + JsonText::Quote(Uri) + "}";
	if (Outcome.Text.size() > MaxResultBytes)
	{
		Outcome.Fault = FResourceOutcome::EFault::Unavailable;
		Outcome.Message = "It is " + std::to_string(Outcome.Text.size())
			+ " bytes, too long for one answer; ask for a part of it";
	}
	if (Outcome.Fault == FResourceOutcome::EFault::Unknown)
	{
		SendError(Request, RpcError::InvalidParams, "Resource not found: " + Uri + ". " + Outcome.Message, Data);
		return;
	}
	if (Outcome.Fault == FResourceOutcome::EFault::Unavailable)
	{
		SendError(Request, RpcError::InternalError, "Resource cannot be read: " + Outcome.Message, Data);
		return;
	}
	std::string Members = R"("contents":[{"uri":)" + JsonText::Quote(Uri) + R"(,"mimeType":"application/json","text":)";
	JsonText::AppendString(Members, Outcome.Text);
	SendResult(Request, DispatchResources::WithCache(Request, Members + "}]", DispatchResources::Fresh));
}

void FDispatcher::ListPrompts(const FRequest& Request)
{
	if (Request.Params.HasValue("cursor"))
	{
		SendError(Request, RpcError::InvalidParams, "Invalid params: unknown cursor, the list is one page");
		return;
	}
	SendResult(
		Request, DispatchResources::WithCache(Request, "\"prompts\":" + Prompts::Json(), DispatchResources::Lasting));
}

void FDispatcher::GetPrompt(const FRequest& Request)
{
	const std::optional<std::string> Name = Request.Params.FindString("name");
	const Prompts::FPrompt* const Prompt = Name ? Prompts::Find(*Name) : nullptr;
	if (!Prompt)
	{
		SendError(Request, RpcError::InvalidParams,
			Name ? "Unknown prompt: " + *Name : std::string("Invalid params: \"name\" must be a string"));
		return;
	}
	const FJsonFields Given = Request.Params.FindObject("arguments").value_or(FJsonFields());
	for (const Prompts::FArgument& Argument : Prompt->Arguments)
	{
		if (Argument.bRequired && Given.FindString(Argument.Name).value_or("").empty())
		{
			SendError(Request, RpcError::InvalidParams,
				"Invalid params: the prompt needs \"" + std::string(Argument.Name) + "\", a text");
			return;
		}
	}
	const std::string Text = Prompts::Fill(
		*Prompt, [&Given](const std::string_view Argument) { return Given.FindString(Argument); });
	SendResult(Request,
		R"("description":)" + JsonText::Quote(Prompt->Description)
			+ R"(,"messages":[{"role":"user","content":{"type":"text","text":)" + JsonText::Quote(Text) + "}}]");
}

std::optional<ENameKind> FDispatcher::FindNameKind(const FJsonFields& Reference, const std::string_view Argument)
{
	const std::string Type = Reference.FindString("type").value_or("");
	if (Type == "ref/prompt")
	{
		const Prompts::FPrompt* const Prompt = Prompts::Find(Reference.FindString("name").value_or(""));
		const Prompts::FArgument* const Known = Prompt ? Prompts::FindArgument(*Prompt, Argument) : nullptr;
		return !Prompt ? std::nullopt : std::optional(Known ? Known->Kind : ENameKind::None);
	}
	const ResourceTemplates::FTemplate* const Template = Type == "ref/resource"
		? ResourceTemplates::Find(Reference.FindString("uri").value_or(""))
		: nullptr;
	if (!Template)
	{
		return std::nullopt;
	}
	for (const auto& [Name, Kind] : Template->Names)
	{
		if (Name == Argument)
		{
			return Kind;
		}
	}
	return ENameKind::None;
}

void FDispatcher::Complete(const FRequest& Request)
{
	const std::optional<FJsonFields> Reference = Request.Params.FindObject("ref");
	const std::optional<FJsonFields> Argument = Request.Params.FindObject("argument");
	const std::optional<std::string> Name = Argument ? Argument->FindString("name") : std::nullopt;
	if (!Reference || !Name)
	{
		SendError(Request, RpcError::InvalidParams,
			"Invalid params: \"ref\" must be an object, \"argument\" one with \"name\" and \"value\"");
		return;
	}
	const std::optional<ENameKind> Kind = FindNameKind(*Reference, *Name);
	if (!Kind)
	{
		SendError(Request, RpcError::InvalidParams, "Invalid params: \"ref\" names no prompt and no resource template");
		return;
	}
	const std::string Typed = Argument->FindString("value").value_or("");
	Enqueue(Request, Typed.size(),
		[this, Kind = *Kind, Typed](const FRequest& Slim)
		{ SendResult(Slim, DispatchResources::CompletionJson(Tools.Complete(Kind, Typed))); });
}
