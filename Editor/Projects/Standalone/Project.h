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
	 * nothing is made in it but the lock. Content appears with the first asset and, where git is to know of the
	 * packages, .gitattributes and .gitignore beside it. What killed processes left half written is removed. On false
	 * nothing has changed and OutError is a sentence. Opening the open project again is fine; another one closes it
	 * first.
	 */
	static bool Open(const FString& Directory, FString& OutError);
	/** Gives the lock back and takes the mounts away. Objects in memory stay. */
	static void Close();

	/**
	 * Sees to it that the open project is still this process's own: takes the lock again when its file has gone. False
	 * with a sentence when another process has the project by now; nothing can be saved then, and the next call tries
	 * again.
	 */
	static bool KeepLock(FString& OutError);

	static bool IsOpen();
	/** Absolute, free of links, without a slash at the end; empty when none is open. */
	static const FString& GetDirectory();
	/** The folder's name. */
	static FString GetName();
	/** Neither the folder nor its content can be written to: there is no lock, reading works and saves are refused. */
	static bool IsReadOnly();

	/** The name of the lock file in the project folder. */
	static const TCHAR* GetLockFileName();
};
