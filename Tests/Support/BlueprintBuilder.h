#pragma once

#include "CoreMinimal.h"
#include "Engine/Blueprint.h"
#include "GraphBuilder.h"
#include "TemporaryFolder.h"

/**
 * A project in a temporary folder with one Blueprint in it, saved: an Actor one unless the test says otherwise. The
 * project is closed and its objects are dropped at the end.
 */
class FBlueprintBuilder
{
public:
	/** The parent by its class path; null for an Actor. */
	explicit FBlueprintBuilder(const TCHAR* ParentPath = nullptr);
	~FBlueprintBuilder();

	UBlueprint* Get() const { return Blueprint; }
	UBlueprint* operator->() const { return Blueprint; }
	FString Path() const;
	const FTemporaryFolder& Folder() const { return Project; }

	/** The main event graph. */
	FGraphBuilder EventGraph() const;
	/** A new user function, with its entry. */
	FGraphBuilder Function(const TCHAR* Name) const;
	void AddVariable(const TCHAR* Name, const FEdGraphPinType& Type) const;
	/** False when the save failed. */
	bool Save() const;
	/** Compiles, prints what the compiler says when it is an error, and answers whether there was none. */
	bool Compiles() const;
	/** Drops everything from memory and reads the Blueprint again, to see what the file holds. Null when there is none.
	 */
	UBlueprint* Reload();

	static FEdGraphPinType Type(const FName& Category, UObject* Object = nullptr);

private:
	FTemporaryFolder Project;
	UBlueprint* Blueprint = nullptr;
};
