#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "KeywordSimilarity.h"

namespace Morvane
{
class FToolResult;
}
struct FEdGraphPinType;
class FProperty;
class UClass;
class UFactory;
class UObject;

/** Helpers that every tool on assets leans on. Stateless; game thread only. */
class MORVANETOOLKIT_API FAssetOperationBase
{
public:
	// Paths

	/**
	 * The canonical form of an asset path: the long package name, "/Game/A/BP_X".
	 *
	 * Takes what agents write: blanks around, backslashes, doubled slashes, no slash in front, "Content/" for "/Game/",
	 * the file extension, the object path "/Game/A/BP_X.BP_X", the class "/Game/A/BP_X.BP_X_C", a reference
	 * "Blueprint'/Game/A/BP_X.BP_X'". Where an asset is known under another spelling or without a trailing "_C", its
	 * own name is the answer. A bare name stays a bare name, since it names an asset wherever it lies. What holds ".."
	 * or is no asset path stays as it is, for the error.
	 */
	static FString NormalizeAssetPath(const FString& Path);
	/**
	 * The path of the Blueprint that a text means, in any spelling that NormalizeAssetPath takes or as a bare name: the
	 * one place where a tool's path becomes an asset's. Of several Blueprints of a bare name an Animation Blueprint
	 * goes before a Widget Blueprint, and that before a plain one. What names none comes out normalised, for the error.
	 */
	static FString ResolveBlueprintPath(const FString& Path);
	/** The object paths of all Blueprints of that short name, ignoring case, in the registry's order. Loads nothing. */
	static TArray<FString> FindBlueprintPaths(const FString& Name);
	/** "BP_X" for "/Game/A/BP_X" and "/Game/A/BP_X.BP_X". */
	static FString GetAssetNameFromPath(const FString& Path);
	/**
	 * The class that a text means: a class path, a native class by its short name with or without prefix ("Actor",
	 * "AActor"), a Blueprint by path or bare name. Loads the Blueprint. Null, silently, when there is none.
	 */
	static UClass* GetAssetClassFromAssetName(const FString& Name);

	// Assets

	/** Whether the registry knows the asset, those in memory included. Takes any form that NormalizeAssetPath takes. */
	static bool AssetExists(const FString& Path);
	/**
	 * Makes the asset through the factory, in memory and dirty, and tells the registry; saves nothing. Refuses a path
	 * that is no place for an asset and one where something stands already. Null after an error in the result.
	 */
	static UObject* CreateAsset(
		const FString& Path, const FString& Name, UClass* AssetClass, Morvane::FToolResult& Result, UFactory* Factory);
	/**
	 * Deletes the asset that the command's path field names, from memory and disk. TypeWord ("Blueprint") is for the
	 * messages. Assets that refer to it do not stop the deletion; they are named in a warning.
	 */
	static void ExecuteDeleteOperation(const FJsonObject& Args, Morvane::FToolResult& Result, const FString& TypeWord);
	/** Saves the asset's package; false after an error in the result. */
	static bool SaveAsset(UObject* Asset, Morvane::FToolResult& Result);

	/**
	 * The file of a package as it stands on disk. Empty when there is none, and for a name that is no package's or lies
	 * in code.
	 */
	static FString FindPackageFile(const FString& PackageName);
	/** What the loader has to say about a package's file that cannot be read; empty when it can or there is none. */
	static FString AskWhyNotLoaded(const FString& PackageName);

	// Source control

	/**
	 * False with the reason when a package's file has to stay as it is: the program keeps it so, or it is read-only and
	 * there is no source control to ask.
	 */
	static bool CanWritePackageFile(const FString& PackageName, const FString& File, FString& OutError);
	/** False with the reason when source control refuses. An asset that is not on disk yet needs no check-out. */
	static bool CheckOutAssetForModify(const FString& Path, FString& OutError);
	/** False with the reason for an asset whose file is of a kind that is only read. Asks no source control. */
	static bool IsSavable(const UObject& Asset, FString& OutError);
	/** False with the reason when the file could not be added. Without source control there is nothing to do: true. */
	static bool AddAssetToSourceControl(const FString& Path, FString& OutError);

	// Pin types

	/**
	 * Reads a pin type object: category, sub_category, sub_category_object, container_type (or container),
	 * is_reference, is_const, is_weak_pointer, is_u_object_wrapper, value_type. Category words are the engine's; common
	 * other words
	 * ("float", "boolean", "vector", "actor class") and classes without their path are understood. A class that is a
	 * Blueprint is loaded. False, with the output unchanged, when no type can be made of it.
	 */
	static bool ConvertJsonToEdGraphPinType(const FJsonObject& Json, FEdGraphPinType& OutPinType);
	static bool ConvertJsonToEdGraphPinType(const TSharedPtr<FJsonObject>& Json, FEdGraphPinType& OutPinType);
	/** Never null. Keys with nothing to say are left out; only "category" always stands. */
	static TSharedPtr<FJsonObject> ConvertEdGraphPinTypeToJson(const FEdGraphPinType& PinType);
	/** False for a null property or one that no pin can carry. */
	static bool ConvertPropertyToEdGraphPinType(const FProperty* Property, FEdGraphPinType& OutPinType);

	// Property values

	/** The text form of the value; empty when either is null. Container is the object that holds the property. */
	static FString GetPropertyValueAsString(const UObject* Container, const FProperty* Property);
	/**
	 * Writes the text into the property and announces the change to the object. False, with the old value kept, when
	 * the text is no such value.
	 */
	static bool SetPropertyValueAsString(UObject* Container, const FProperty* Property, const FString& Value);

	// JSON

	/** Condensed text; "{}" for null. */
	static FString SerializeJson(const TSharedPtr<FJsonObject>& Object);

	// Keywords, see KeywordSimilarity.h

	static TArray<FString> CreateKeywords(const FString& Text);
	/** Adds the words of Text that are not there yet. Text counts as a description, so no keyword stands for it as a
	 * whole. */
	static void AppendKeywords(const FString& Text, TArray<FString>& InOutKeywords);
	static FKeywordSimilarity CalculateKeywordSimilarity(
		const TArray<FString>& Request, const TArray<FString>& Candidate);
	/** From 0 to 1. */
	static float CalculateMatchConfidence(
		const TArray<FString>& Request, const TArray<FString>& Candidate, const FKeywordSimilarity& Similarity);
	/** The number of single-character insertions, deletions and replacements between two texts, ignoring case. */
	static int32 LevenshteinDistance(const FString& Left, const FString& Right);
};
