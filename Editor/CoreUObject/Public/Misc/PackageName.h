#pragma once

#include "CoreMinimal.h"

class UPackage;

/**
 * Long package names ("/Game/Doors/BP_Door") and the files they stand in. A mount point ties the front of a name to a
 * folder; "/Game/" is the project's Content folder unless something else was registered. Names compare ignoring case.
 */
class FPackageName
{
public:
	static const FString& GetAssetPackageExtension();
	static bool IsPackageExtension(const TCHAR* Extension);

	/** Empty for a name that is not valid or lies below no mount point. */
	static FString LongPackageNameToFilename(const FString& LongPackageName, const FString& Extension = FString());
	/** "/Game/A/" style folder names convert as well. */
	static bool TryConvertLongPackageNameToFilename(
		const FString& LongPackageName, FString& OutFilename, const FString& Extension = FString());
	/** Empty for a file below no mount point. */
	static FString FilenameToLongPackageName(const FString& Filename);
	static bool TryConvertFilenameToLongPackageName(
		const FString& Filename, FString& OutPackageName, FString* OutFailureReason = nullptr);

	/** The shape alone: a root, at least one more name, none empty, no character that a file or an object could not
	 * have. */
	static bool IsValidTextForLongPackageName(FStringView Name, FText* OutReason = nullptr);
	/** The shape, and a root that is mounted; those of code and of the engine count when bIncludeReadOnlyRoots. */
	static bool IsValidLongPackageName(
		FStringView Name, bool bIncludeReadOnlyRoots = false, FText* OutReason = nullptr);
	static bool IsValidObjectPath(const FString& ObjectPath, FText* OutReason = nullptr);
	static bool IsScriptPackage(FStringView PackageName);
	static bool IsTempPackage(FStringView PackageName);

	/** "/Game/Doors" of "/Game/Doors/BP_Door". */
	static FString GetLongPackagePath(const FString& LongPackageName);
	/** "BP_Door" of "/Game/Doors/BP_Door". */
	static FString GetLongPackageAssetName(const FString& LongPackageName);
	static FString GetShortName(const FString& LongName);

	/**
	 * Whether its file is on disk, or whether a script package is in memory. The file's name is as it stands on disk,
	 * which may differ from the package's in case; none for a script package.
	 */
	static bool DoesPackageExist(
		const FString& LongPackageName, FString* OutFilename = nullptr, bool bAllowTextFormats = true);
	static FString ObjectPathToPackageName(const FString& ObjectPath);
	/** "Class'/Path/To.Object'" and the same with quotes give the path; a bare path gives itself. */
	static FString ExportTextPathToObjectPath(const FString& ExportTextPath);
	static bool ParseExportTextPath(const FString& ExportTextPath, FString* OutClassName, FString* OutObjectPath);

	/** RootPath as "/Name/", ContentPath a folder. A root that is registered already gets the new folder. */
	static void RegisterMountPoint(const FString& RootPath, const FString& ContentPath);
	static void UnRegisterMountPoint(const FString& RootPath, const FString& ContentPath);
	static bool MountPointExists(const FString& RootPath);
	/** "/Game" or "/Game/" of "/Game/Doors/BP_Door"; none when it is mounted nowhere. */
	static FName GetPackageMountPoint(const FString& PackagePath, bool bWithoutSlashes = true);
	/** Every root as "/Name/", "/Game/" first, the others in order of registration. */
	static void QueryRootContentPaths(TArray<FString>& OutRootContentPaths);
	/** The folder of a root, with a slash at its end; empty when it is not mounted. */
	static FString GetContentPathForRoot(const FString& RootPath);
};
