#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

class UUserDefinedEnum;

/** Enums that are made in the editor. */
class FEnumEditorUtils
{
public:
	/** An enum without entries; the caller saves it. */
	static UUserDefinedEnum* CreateUserDefinedEnum(UObject* InParent, FName EnumName, EObjectFlags Flags);
	/** One more entry, at the end. */
	static void AddNewEnumeratorForUserDefinedEnum(UUserDefinedEnum* Enum);
	/** False when there is no such entry or another is shown under that name. */
	static bool SetEnumeratorDisplayName(UUserDefinedEnum* Enum, int32 EnumeratorIndex, FText NewDisplayName);
};
