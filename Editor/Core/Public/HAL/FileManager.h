#pragma once

#include "Containers/Array.h"
#include "Containers/UnrealString.h"

/** Files by path. All of it is silent: the answers tell. */
class IFileManager
{
public:
	static IFileManager& Get();

	bool FileExists(const TCHAR* Path);
	bool DirectoryExists(const TCHAR* Path);
	/** Also true when nothing may be written to the file; false when there is no such file. */
	bool IsReadOnly(const TCHAR* Path);
	/** True when the directory stands afterwards. Tree makes the parents too. */
	bool MakeDirectory(const TCHAR* Path, bool Tree = false);
	/** True when the file is gone afterwards; EvenReadOnly clears the flag first. */
	bool Delete(const TCHAR* Path, bool RequireExists = false, bool EvenReadOnly = false, bool Quiet = false);
	bool DeleteDirectory(const TCHAR* Path, bool RequireExists = false, bool Tree = false);
	/** -1 when there is no such file. */
	int64 FileSize(const TCHAR* Path);
	/** The path with each part spelled as the entry of that name stands on disk, in any case; what does not stand
	 * stays. */
	FString GetFilenameOnDisk(const TCHAR* Filename);
	/** Full paths below StartDirectory whose file name matches the wildcard, sorted. */
	void FindFilesRecursive(TArray<FString>& OutFiles, const TCHAR* StartDirectory, const TCHAR* Wildcard, bool bFiles,
		bool bDirectories, bool bClearFileNames = true);
};
