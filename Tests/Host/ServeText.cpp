#include "Host/ServeText.h"

#include <sys/mman.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "Server/StdioServer.h"
#include "Support/FileDescriptor.h"

namespace ServeTextPrivate
{
static std::vector<std::string> ReadLines(const int Handle)
{
	std::string Text(static_cast<size_t>(lseek(Handle, 0, SEEK_END)), '\0');
	EXPECT_EQ(pread(Handle, Text.data(), Text.size(), 0), static_cast<ssize_t>(Text.size()));
	std::vector<std::string> Lines;
	for (size_t Start = 0; Start < Text.size();)
	{
		const size_t End = Text.find('\n', Start);
		EXPECT_NE(End, std::string::npos) << "the last line has no end";
		Lines.push_back(Text.substr(Start, End - Start));
		Start = End == std::string::npos ? Text.size() : End + 1;
	}
	return Lines;
}
} // namespace ServeTextPrivate

int OpenTextFile(const std::string_view Content)
{
	const int Handle = memfd_create("text", MFD_CLOEXEC);
	EXPECT_EQ(write(Handle, Content.data(), Content.size()), static_cast<ssize_t>(Content.size()));
	lseek(Handle, 0, SEEK_SET);
	return Handle;
}

std::vector<std::string> ServeText(IToolHost& Tools, const std::string_view Input)
{
	const FFileDescriptor In(OpenTextFile(Input));
	const FFileDescriptor Out(memfd_create("answers", MFD_CLOEXEC));
	const FStopSignal Stop;
	FStdioServer(Tools, Stop, In.Get(), Out.Get()).Run();
	return ServeTextPrivate::ReadLines(Out.Get());
}

std::string JoinLines(const std::vector<std::string>& Lines)
{
	std::string Text;
	for (const std::string& Line : Lines)
	{
		Text += Line + "\n";
	}
	return Text;
}
