#pragma once

#include "CoreMinimal.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

/** A new empty folder that goes away with all that is in it. Paths given to the members are relative to it. */
class FTemporaryFolder
{
public:
	FTemporaryFolder()
	{
		std::string Pattern = (std::filesystem::temp_directory_path() / "editor-test-XXXXXX").string();
		Root = std::filesystem::canonical(mkdtemp(Pattern.data()));
	}
	~FTemporaryFolder()
	{
		std::error_code Ignored;
		std::filesystem::remove_all(Root, Ignored);
	}
	FTemporaryFolder(const FTemporaryFolder&) = delete;
	FTemporaryFolder& operator=(const FTemporaryFolder&) = delete;

	const std::filesystem::path& Path() const { return Root; }
	FString Get(const std::string& Relative = std::string()) const
	{
		return FromUtf8(Relative.empty() ? Root.string() : (Root / Relative).string());
	}
	/** Makes the folders above it too. */
	void Write(const std::string& Relative, const std::string& Text) const
	{
		std::filesystem::create_directories((Root / Relative).parent_path());
		std::ofstream(Root / Relative, std::ios::binary) << Text;
	}
	std::string Read(const std::string& Relative) const
	{
		std::ostringstream Text;
		Text << std::ifstream(Root / Relative, std::ios::binary).rdbuf();
		return Text.str();
	}
	bool Exists(const std::string& Relative) const { return std::filesystem::exists(Root / Relative); }

private:
	std::filesystem::path Root;
};
