#pragma once

#include "CoreMinimal.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace AtomicFile
{
/** Changes whenever a file is replaced, written to or handled otherwise. Invalid when there is no such file. */
struct FStamp
{
	int64 Seconds = 0;
	int64 Nanoseconds = 0;
	/** Of the last change to anything about the file, which no program can set back. */
	int64 ChangeSeconds = 0;
	int64 ChangeNanoseconds = 0;
	int64 Size = -1;
	uint64 Device = 0;
	uint64 Node = 0;

	bool IsValid() const { return Size >= 0; }
	bool operator==(const FStamp& Other) const = default;
};
/** Invalid, too, when the file cannot be looked at; OutErrorNumber is then another than the one of a missing file. */
FStamp StampOf(const std::string& Path, int* OutErrorNumber = nullptr);
/**
 * Whether a later write would have to change the stamp. A clock that ticks slowly gives two writes within one tick the
 * same time, so the stamp of a file that has just been written tells nothing yet.
 */
bool IsSettled(const FStamp& Stamp);

/**
 * Puts the pieces into a file in one step: they are written to a new temporary file beside it, flushed to the disk and
 * renamed. Whatever fails or whenever the process dies, the file is the old one or the new one.
 *
 * Replaced is what was seen to stand there, an invalid stamp for nothing. What stands there by the time of the rename
 * is looked at once more: another file is not replaced, and where nothing was, nothing is replaced.
 *
 * The temporary file has one fixed name, and whatever bears it is unlinked, never opened. OutStamp is the new file's
 * own, whoever replaces it meanwhile. OutError is a phrase without the file's name.
 */
bool Write(const std::string& Path, std::initializer_list<std::string_view> Pieces, const FStamp& Replaced,
	FStamp& OutStamp, FString& OutError);

/** Makes the folder and those above it; OutError as above. */
bool MakeFolders(const std::string& Folder, FString& OutError);

/** Whether a file's name is one that Write gives to its temporary files beside a file with the extension. */
bool IsTemporaryName(std::string_view Name, std::string_view Extension);

/** OutStamp, if given, is the one of the bytes. */
bool Read(const std::string& Path, std::string& OutBytes, FString& OutError, FStamp* OutStamp = nullptr);
/** The first part of a file, at most MaxBytes of it. */
bool ReadStart(const std::string& Path, std::size_t MaxBytes, std::string& OutBytes, FString& OutError,
	FStamp* OutStamp = nullptr);
/** Some bytes out of the middle; false where the file does not reach so far, or cannot be read. */
bool ReadPart(const std::string& Path, int64 Offset, std::size_t Size, std::string& OutBytes);
} // namespace AtomicFile
