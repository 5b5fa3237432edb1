#pragma once

#include "CoreMinimal.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace AtomicFile
{
/**
 * Puts the pieces into a file in one step: they are written to a temporary file beside it, flushed to the disk and
 * renamed. Whatever fails or whenever the process dies, the file is the old one or the new one. The temporary file has
 * one fixed name, so that what a killed process left is used up by the next write. OutError is a phrase without the
 * file's name.
 */
bool Write(const std::string& Path, std::initializer_list<std::string_view> Pieces, FString& OutError);

/** Makes the folder and those above it; OutError as above. */
bool MakeFolders(const std::string& Folder, FString& OutError);

bool Read(const std::string& Path, std::string& OutBytes, FString& OutError);
/** The first part of a file, at most MaxBytes of it. */
bool ReadStart(const std::string& Path, std::size_t MaxBytes, std::string& OutBytes, FString& OutError);

/** Changes whenever a file is replaced or written to. Invalid when there is no such file. */
struct FStamp
{
	int64 Seconds = 0;
	int64 Nanoseconds = 0;
	int64 Size = -1;
	uint64 Node = 0;

	bool IsValid() const { return Size >= 0; }
	bool operator==(const FStamp& Other) const = default;
};
FStamp StampOf(const std::string& Path);
} // namespace AtomicFile
