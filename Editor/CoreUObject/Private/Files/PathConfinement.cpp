#include "Standalone/PathConfinement.h"

#include <cstdlib>
#include <memory>
#include <string>
#include <sys/stat.h>

namespace PathConfinement
{
FString Root;

/** Where an existing path really is; empty when it does not exist or runs in circles. */
static std::string RealPath(const std::string& Path)
{
	const std::unique_ptr<char, decltype(&std::free)> Resolved(realpath(Path.c_str(), nullptr), &std::free);
	return Resolved ? std::string(Resolved.get()) : std::string();
}

static bool Exists(const std::string& Path)
{
	struct stat Info;
	return lstat(Path.c_str(), &Info) == 0;
}

static bool HasParentStep(std::string_view Path)
{
	while (!Path.empty())
	{
		const std::size_t Length = std::min(Path.find('/'), Path.size());
		if (Path.substr(0, Length) == "..")
		{
			return true;
		}
		Path.remove_prefix(std::min(Length + 1, Path.size()));
	}
	return false;
}

/** The deepest part of the path that exists: a file, a folder or a link, wherever it leads. */
static std::string DeepestExisting(std::string Path)
{
	while (!Path.empty() && !Exists(Path))
	{
		const std::size_t Slash = Path.rfind('/');
		Path.resize(Slash == std::string::npos ? 0 : Slash);
	}
	return Path.empty() ? "/" : Path;
}
} // namespace PathConfinement

void FPathConfinement::SetRoot(const FString& Directory)
{
	PathConfinement::Root = FromUtf8(PathConfinement::RealPath(ToUtf8(Directory)));
}

FString FPathConfinement::Resolve(const FString& Path)
{
	return FromUtf8(PathConfinement::RealPath(ToUtf8(Path)));
}

bool FPathConfinement::IsInside(const FString& Path, FString& OutReason)
{
	if (PathConfinement::Root.IsEmpty())
	{
		return true;
	}
	const std::string Bytes = ToUtf8(Path);
	if (Bytes.empty() || Bytes[0] != '/' || Bytes.find('\0') != std::string::npos
		|| PathConfinement::HasParentStep(Bytes))
	{
		OutReason = FString::Printf(TEXT("'%s' is no plain absolute path"), *Path);
		return false;
	}
	const std::string Root = ToUtf8(PathConfinement::Root);
	const std::string Real = PathConfinement::RealPath(PathConfinement::DeepestExisting(Bytes));
	if (Real == Root
		|| (Real.size() > Root.size() && Real.compare(0, Root.size(), Root) == 0 && Real[Root.size()] == '/'))
	{
		return true;
	}
	OutReason = FString::Printf(TEXT("'%s' leads out of the project folder '%s'"), *Path, *PathConfinement::Root);
	return false;
}
