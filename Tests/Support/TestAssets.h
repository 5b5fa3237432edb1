#pragma once

#include "UObject/Class.h"
#include "UObject/Object.h"
#include "UObject/Package.h"

#include <string>

/** An asset with a value of each kind that text treats differently. Used as an asset, as an object inside one and as a
 * parent class. */
class UTestAsset : public UObject
{
	EDITOR_CLASS(UTestAsset, UObject)

public:
	void PostLoad() override;
	void ExportCustomProperties(FOutputDevice& Out, uint32 Indent) override;
	void ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn) override;

	int32 Count = 7;
	FString Title;
	FName Label;
	FVector Where = FVector(1.0, 2.0, 3.0);
	TArray<FString> Lines;
	TArray<int32> Numbers = {1, 2, 3};
	UObject* Link = nullptr;
	TArray<UObject*> Links;
	int32 Scratch = 0;

	/** Lines that are no properties. */
	TArray<FString> Custom;
	/** Objects in the order of their PostLoad, since the list was cleared. */
	static TArray<FString> PostLoadOrder;
};

class UTestSpecialAsset : public UTestAsset
{
	EDITOR_CLASS(UTestSpecialAsset, UTestAsset)

public:
	int32 Extra = 0;
};

/** Generates a class as a Blueprint does: the package holds a shell, and the class is built again after reading. */
class UTestBlueprint : public UObject
{
	EDITOR_CLASS(UTestBlueprint, UObject)

public:
	void PostLoad() override;
	/** Gives the class its parent and an integer property for each variable. */
	void Rebuild();

	UClass* ParentClass = nullptr;
	UClass* GeneratedClass = nullptr;
	TArray<FName> Variables;
	UObject* Other = nullptr;
};

namespace TestAssets
{
/** Makes the classes known by path; more calls do nothing. Every fixture that uses them calls it. */
void Register();

/** A package with one asset in it, flagged as assets are. */
UTestAsset* MakeAsset(const TCHAR* PackageName);
UTestBlueprint* MakeBlueprint(const TCHAR* PackageName, UClass* ParentClass, const TArray<FName>& Variables);
UTestAsset* MakeInner(UObject* Outer, const TCHAR* Name);

/** The value of an integer variable on a class default. */
int32 GetDefaultValue(const UTestBlueprint& Blueprint, const TCHAR* Variable);
void SetDefaultValue(UTestBlueprint& Blueprint, const TCHAR* Variable, int32 Value);

/** Drops the package of that name from memory, so that the next use reads its file. */
void Unload(const TCHAR* PackageName);
/** The same for every package of the project. */
void UnloadGame();

/** Empty on success, else the save's message. */
FString Save(UObject* Asset, const FString& Filename);
FString Save(UObject* Asset);
} // namespace TestAssets
