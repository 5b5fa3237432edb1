#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ToolFace/Resources.h"

/** The usual sessions with these tools, as requests that a person picks from a list and sends to the agent. */
namespace Prompts
{
struct FArgument
{
	std::string_view Name;
	std::string_view Description;
	bool bRequired = false;
	/** What it names, for completion. */
	ENameKind Kind = ENameKind::None;
};

struct FPrompt
{
	std::string_view Name;
	std::string_view Title;
	std::string_view Description;
	std::vector<FArgument> Arguments;
	/** "{asset}" stands for the argument of that name; a line with one that is not given goes. */
	std::string_view Text;
};

const std::vector<FPrompt>& GetAll();
/** Null when there is none of that name. */
const FPrompt* Find(std::string_view Name);
/** Null when the prompt has no such argument. */
const FArgument* FindArgument(const FPrompt& Prompt, std::string_view Name);
/** As the value of "prompts". */
std::string Json();
/** The text with its arguments in place; ValueOf answers nothing for one that is not given. */
std::string Fill(const FPrompt& Prompt, const std::function<std::optional<std::string>(std::string_view)>& ValueOf);
} // namespace Prompts
