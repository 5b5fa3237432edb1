#pragma once

#include "Files/AtomicFile.h"

class UPackage;

/**
 * What this process has read or written of each package file, so that the doings of other programs are noticed: a
 * checkout, a second editor, a deletion. Nothing is watched; a look costs one question to the file system, and the file
 * is read again only when its stamp is another one or too young to tell.
 */
namespace KnownFiles
{
enum class EStanding
{
	/** As this process has read or written it last. */
	AsKnown,
	/** Its contents are others, or no package at all. */
	Changed,
	/** This process knows the file, and it is not there any more. */
	Gone,
	/** A file that this process has not read stands there. */
	Unknown,
	/** No file, and none was known. */
	Nothing,
	/** The file system does not say. */
	Hidden,
};

void Remember(const FString& Filename, const FString& PackageName, const AtomicFile::FStamp& Stamp, uint64 Checksum);
void Forget(const FString& Filename);

/** OutStamp is what was seen, invalid where there is no file. OutError is a phrase when the file is hidden. */
EStanding Look(const FString& Filename, AtomicFile::FStamp& OutStamp, FString& OutError);

/** Keeps that a save was refused because of what another program did: the change in memory cannot be saved any more. */
void NoteRefusal(const FString& Filename);
bool WasRefused(const FString& Filename);

/** Packages in memory that have a known file, in the order of their names. */
TArray<UPackage*> GetLoaded();
} // namespace KnownFiles
