#pragma once

#include "CoreMinimal.h"

/**
 * The project that this process works on: a folder with Content (mounted as "/Game/") and Plugins in it. One process
 * owns a project at a time. Not of the engine, whose project is given by its command line.
 */
class FProject
{
public:
	/**
	 * Makes a folder the project, locks it, and mounts its content and that of its plug-ins. The folder has to exist;
	 * nothing is made in it but the lock, and Content appears with the first asset. On false nothing has changed and
	 * OutError is a sentence. Opening the open project again is fine; another one closes it first.
	 */
	static bool Open(const FString& Directory, FString& OutError);
	/** Gives the lock back and takes the mounts away. Objects in memory stay. */
	static void Close();

	static bool IsOpen();
	/** Absolute, free of links, without a slash at the end; empty when none is open. */
	static const FString& GetDirectory();
	/** The folder's name. */
	static FString GetName();
	/** The lock could not be made because the folder cannot be written to; reading works, saving will tell. */
	static bool IsReadOnly();

	/** The name of the lock file in the project folder. */
	static const TCHAR* GetLockFileName();
};
