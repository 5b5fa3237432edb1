#include "Files/FileMishap.h"

#include <algorithm>

namespace FileMishap
{
using namespace std::string_view_literals;

/** The number of the first line that begins with the mark; 0 when there is none. */
static int64 FindLine(std::string_view Bytes, std::string_view Mark)
{
	int64 Line = 1;
	for (std::size_t Start = 0; Start < Bytes.size(); ++Line)
	{
		if (Bytes.substr(Start, Mark.size()) == Mark)
		{
			return Line;
		}
		const std::size_t End = Bytes.find('\n', Start);
		Start = End == std::string_view::npos ? Bytes.size() : End + 1;
	}
	return 0;
}

FString Find(std::string_view Bytes)
{
	if (Bytes.starts_with("version https://git-lfs."sv))
	{
		return TEXT("is a Git LFS pointer in place of the asset; 'git lfs pull' fetches the asset");
	}
	for (const std::string_view Mark : {"<<<<<<< "sv, ">>>>>>> "sv, "||||||| "sv})
	{
		if (const int64 Line = FindLine(Bytes, Mark))
		{
			return FString::Printf(
				TEXT("has merge conflict markers (line %lld); resolve the conflict by taking one side whole"), Line);
		}
	}
	if (Bytes.starts_with("\xEF\xBB\xBF"sv) || Bytes.starts_with("\xFF\xFE"sv) || Bytes.starts_with("\xFE\xFF"sv))
	{
		return TEXT("begins with a byte order mark: another program has saved it as text of its own; restore the file");
	}
	if (Bytes.find("\r\n"sv) != std::string_view::npos)
	{
		return TEXT(
			"has CRLF line ends, which git or another program has put in; set '*.uatext -text' in .gitattributes and check the file out again");
	}
	return FString();
}
} // namespace FileMishap
