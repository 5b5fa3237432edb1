#pragma once

#include "Files/AtomicFile.h"
#include "Standalone/PackageText.h"

#include <string>
#include <string_view>

namespace PackageFile
{
/** Of bytes in their order; any changed byte changes it. Fast enough to be no matter beside reading the file. */
uint64 ChecksumOf(std::string_view Bytes, uint64 Seed = 0);

/** The header for an object text; everything but the text itself. */
std::string MakeHeader(const FPackageText::FHeader& Header, std::string_view Body, uint64& OutChecksum);

/** Keeps a problem for TakeProblems; the oldest are dropped when nobody takes them. */
void NoteProblem(const FString& Problem);

/** What a file is, told by its first bytes. */
bool IsEngineBinary(std::string_view Bytes);
/**
 * Whether a whole package of this format and this name stands there. OutError is a sentence that begins with the path.
 */
bool IsReadable(const FString& Filename, const FString& PackageName, FString& OutError);
} // namespace PackageFile
