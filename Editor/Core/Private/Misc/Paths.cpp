#include "Misc/Paths.h"

#include "Containers/StringConv.h"
#include "HAL/FileManager.h"
#include "Standalone/ProjectPaths.h"

#include <filesystem>
#include <system_error>

namespace PathParts
{
static bool IsSlash(TCHAR Char)
{
	return Char == TEXT('/') || Char == TEXT('\\');
}

/** INDEX_NONE when there is no slash. */
static int32 FindLastSlash(const FString& Path)
{
	return Path.FindLastCharByPredicate(&IsSlash);
}

/** Of the last part only; INDEX_NONE when it has no dot. */
static int32 FindExtensionDot(const FString& Path)
{
	int32 Dot = INDEX_NONE;
	return Path.FindLastChar(TEXT('.'), Dot) && Dot > FindLastSlash(Path) ? Dot : static_cast<int32>(INDEX_NONE);
}

static FString& ProjectDirectory()
{
	static FString Directory;
	return Directory;
}
}

void FProjectPaths::SetProjectDir(const FString& Directory)
{
	PathParts::ProjectDirectory() = FPaths::ConvertRelativePathToFull(Directory);
}

FString FPaths::GetBaseFilename(const FString& Path, bool bRemovePath)
{
	const FString Name = bRemovePath ? GetCleanFilename(Path) : Path;
	const int32 Dot = PathParts::FindExtensionDot(Name);
	return Dot == INDEX_NONE ? Name : Name.Left(Dot);
}

FString FPaths::GetCleanFilename(const FString& Path)
{
	return Path.Mid(PathParts::FindLastSlash(Path) + 1);
}

FString FPaths::GetPath(const FString& Path)
{
	const int32 Slash = PathParts::FindLastSlash(Path);
	return Slash == INDEX_NONE ? FString() : Path.Left(Slash);
}

FString FPaths::GetExtension(const FString& Path, bool bIncludeDot)
{
	const int32 Dot = PathParts::FindExtensionDot(Path);
	return Dot == INDEX_NONE ? FString() : Path.Mid(bIncludeDot ? Dot : Dot + 1);
}

void FPaths::NormalizeFilename(FString& Path)
{
	Path.ReplaceCharInline(TEXT('\\'), TEXT('/'), ESearchCase::CaseSensitive);
}

void FPaths::NormalizeDirectoryName(FString& Path)
{
	NormalizeFilename(Path);
	if (Path.Len() > 1)
	{
		Path.RemoveFromEnd(TEXT("/"));
	}
}

FString FPaths::ConvertRelativePathToFull(const FString& Path)
{
	std::error_code Error;
	const std::filesystem::path Absolute = std::filesystem::absolute(ToUtf8(Path), Error);
	FString Full = Error ? Path : FromUtf8(Absolute.lexically_normal().generic_string());
	NormalizeFilename(Full);
	return Full;
}

bool FPaths::FileExists(const FString& Path)
{
	return IFileManager::Get().FileExists(*Path);
}

FString FPaths::ProjectDir()
{
	FString& Directory = PathParts::ProjectDirectory();
	if (Directory.IsEmpty())
	{
		Directory = ConvertRelativePathToFull(TEXT("."));
	}
	return Directory.EndsWith(TEXT("/")) ? Directory : Directory + TEXT("/");
}

FString FPaths::ProjectContentDir()
{
	return ProjectDir() + TEXT("Content/");
}

FString FPaths::ProjectPluginsDir()
{
	return ProjectDir() + TEXT("Plugins/");
}

FString FPaths::ProjectConfigDir()
{
	return ProjectDir() + TEXT("Config/");
}
