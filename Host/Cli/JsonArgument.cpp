#include "Cli/JsonArgument.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "Cli/Command.h"

namespace JsonArgumentPrivate
{
struct FFileCloser
{
	void operator()(std::FILE* File) const
	{
		if (File != stdin)
		{
			std::fclose(File);
		}
	}
};
} // namespace JsonArgumentPrivate

std::optional<std::string> ReadInput(const std::string& FileOrDash)
{
	const bool bStandardInput = FileOrDash == "-";
	const std::unique_ptr<std::FILE, JsonArgumentPrivate::FFileCloser> File(
		bStandardInput ? stdin : std::fopen(FileOrDash.c_str(), "rb"));
	std::string Text;
	if (File)
	{
		char Buffer[64 << 10];
		while (const size_t Count = std::fread(Buffer, 1, sizeof(Buffer), File.get()))
		{
			Text.append(Buffer, Count);
		}
	}
	if (!File || std::ferror(File.get()))
	{
		Complain("Cannot read " + (bStandardInput ? "standard input" : FileOrDash) + ": " + std::strerror(errno));
		return std::nullopt;
	}
	return Text;
}

std::optional<std::string> ReadJsonArgument(const std::string& Argument)
{
	if (Argument == "-")
	{
		return ReadInput(Argument);
	}
	return Argument.starts_with('@') ? ReadInput(Argument.substr(1)) : Argument;
}
