#pragma once

#include "CoreMinimal.h"

namespace Morvane
{
class FToolResult;
}
class FProperty;
class UBlueprint;
class UClass;

/** What a name means in a Blueprint. */
struct FMember
{
	/** The variable's own spelling; of a member that is none, the property's. */
	FName Name;
	bool bOwn = false;
	/** Null for an own variable, which the class may not have yet. */
	const FProperty* Property = nullptr;

	bool Exists() const { return bOwn || Property; }
};

/** The taken names of one Blueprint, gathered once, and kept up with what a batch of variables adds. */
class FVariableNames
{
public:
	explicit FVariableNames(UBlueprint& InBlueprint);

	/** Blanks do not tell names apart. */
	FMember Find(const FString& Name) const;
	void Add(FName Name);
	void Remove(FName Name);
	/** Functions and graphs may have the name that is free among the variables. */
	FName MakeFree(const FString& Name) const;

	/** What the editor's judge of names says of the name by itself; whether it is taken is another matter. False after
	 * an error in the result. */
	static bool IsFit(const FString& Name, Morvane::FToolResult& Result);

private:
	int32 FindOwn(FName Name) const;
	void AddFunctions(const UClass* Interface);

	UBlueprint& Blueprint;
	/** Keys ignore case. */
	TMap<FString, FName> BySqueezedName;
	TSet<FName> Taken;
};
