#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

#include <string>
#include <string_view>

/**
 * Package files: a short header and the object text of everything in the package.
 *
 *     uatext 1
 *     Checksum=0f3c...            of all that follows this line
 *     Size=1234                   bytes of the object text
 *     Package=/Game/Doors/BP_Door
 *     Asset=BP_Door
 *     Class=/Script/Engine.Blueprint
 *     Tag.ParentClass=...         what the asset registry answers without loading
 *     Tag.Offer=...               a line for each action that menus offer of a Blueprint
 *
 *     Begin Object ...
 */
class FPackageText
{
public:
	static constexpr int32 FormatVersion = 1;

	struct FTag
	{
		FName Name;
		FString Value;
	};
	struct FHeader
	{
		FString PackageName;
		FString AssetName;
		FString AssetClassPath;
		TArray<FTag> Tags;
		uint64 Checksum = 0;
		int64 BodySize = 0;
		/** Bytes and lines before the object text. */
		int64 BodyOffset = 0;
		int32 BodyLine = 0;

		const FString* FindTag(FName Name) const;
	};

	/**
	 * Reads the first part of a file only. False when it is no package of this format; OutError is a sentence that
	 * begins with the file's path. Says nothing about the object text.
	 */
	static bool ReadHeader(const FString& Filename, FHeader& OutHeader, FString& OutError);
	/** The header of a whole package in memory, checked against it: length, checksum. Filename only words the error. */
	static bool CheckBytes(std::string_view Bytes, const FString& Filename, FHeader& OutHeader, FString& OutError);
	/** A whole package: the header's names and tags, the object text, and the length and checksum of it. */
	static std::string MakeBytes(const FHeader& Header, std::string_view Body);
	/** As Load, from bytes instead of a file. The package name is the header's. */
	static UPackage* LoadFromBytes(std::string Bytes, const FString& Filename, FString& OutError);

	/**
	 * The file of a package as it stands on disk; its spelling may differ from the name's in case. Empty when there is
	 * none, and for one outside of the project behind a link.
	 */
	static FString FindPackageFile(const FString& LongPackageName);
	/** The binary package of the engine's editor that lies at that path; empty when there is none. Such files are read
	 * and never written. */
	static FString FindEngineAsset(const FString& LongPackageName);
	/** Whether a file is one by its name. */
	static bool IsBinaryFile(const FString& Filename);
	/**
	 * Writes a text package of the name given, with what the binary file holds; none may stand there yet. Warnings tell
	 * what was not understood. False with a reason.
	 */
	static bool ImportBinary(
		const FString& Filename, const FString& LongPackageName, TArray<FString>& OutWarnings, FString& OutError);

	/** A variable of a Blueprint that is not in memory. */
	struct FVariable
	{
		FString Name;
		FString Category;
		bool bIsBool = false;
		bool bIsReadOnly = false;
	};
	/** The header of a binary Blueprint has it: which file to ask for its variables. */
	static const FName VariablesInTag;
	/** Those that other Blueprints may use, of what stands in that tag. Reads a part of the file, once for each state
	 * of it.
	 */
	static const TArray<FVariable>& ListVariables(const FString& VariablesIn);

	/** Why the last attempt to read the package failed; empty after a success and when nobody tried. */
	static FString GetLastLoadError(const FString& LongPackageName);

	/**
	 * What went wrong with files since the last call: packages that are there and could not be read, and saves that
	 * failed. Each text once. A missing package is no problem. For hosts that show the reasons beside a tool's own
	 * answer.
	 */
	static TArray<FString> TakeProblems();
	/** Keeps for TakeProblems why a package that nobody knows is none although a file stands in its place. */
	static void NoteWhyUnknown(const FString& LongPackageName);

	/** Tells the object system to read packages from files. Start-up calls it once; more calls do nothing. */
	static void RegisterLoader();

	/** What the registry knows of an asset without loading it: parent class, generated class and the like. */
	static TArray<FTag> CollectTags(const UObject& Asset);

	/** Adds what is told in files alone, since it takes work to gather: what other assets may use of this one. Several
	 * tags of one name are lines of one value. */
	using FFileTags = void (*)(const UObject& Asset, TArray<FTag>& InOutTags);
	static void SetFileTags(FFileTags Collect);

	/** What another program did to the file of a package that is in memory. */
	struct FForeignChange
	{
		FString PackageName;
		FString Filename;
		bool bDeleted = false;
		/** The package stood changed in memory, a save of it was refused for the file's sake, and it is dropped now. */
		bool bDroppedChanges = false;
		/** A package that stands changed in memory and uses this one; while it does, this one stays as it is. */
		FString HeldBy;
		/** No program did anything: it is a binary package that calls changed in memory, where nothing can save it, or
		 * one that a text package stands before now. */
		bool bOnlyRead = false;
	};
	/**
	 * Drops packages from memory whose files are no longer what was read or written here, and those that use them, so
	 * that the next use reads them afresh; tells listeners of OnFileChanged. Objects are freed here, so it belongs
	 * between calls. A package that stands changed in memory is dropped only after a save of it was refused.
	 */
	static TArray<FForeignChange> TakeInForeignChanges();
	/** A package's name and its file, which another program has replaced or deleted. */
	static TMulticastDelegate<void(const FString&, const FString&)>& OnFileChanged();

	/** Removes what killed processes left beside package files, in a folder and below it; follows no links. */
	static void SweepTemporaryFiles(const FString& Directory);

	/** Refuses every save while it is set: the project is not this process's own. */
	static void SetReadOnly(bool bReadOnly);

	/** Asked before a file is written; a text that is not empty stops the save with it. For tests of failing saves. */
	using FSaveFault = TFunction<FString(const FString& Filename)>;
	static void SetSaveFault(FSaveFault Fault);
};
