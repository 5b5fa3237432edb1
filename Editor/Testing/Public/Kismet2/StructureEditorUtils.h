#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"

class UUserDefinedStruct;
struct FStructVariableDescription;

/**
 * Structs that are made in the editor. Members may change as long as nobody holds a value of the struct: variables of
 * loaded Blueprints do.
 */
class FStructureEditorUtils
{
public:
	/** A struct with one bool, as the editor makes it; the caller saves it. */
	static UUserDefinedStruct* CreateUserDefinedStruct(UObject* InParent, FName Name, EObjectFlags Flags);
	/** False when no member can have the type. */
	static bool AddVariable(UUserDefinedStruct* Struct, const FEdGraphPinType& VarType);
	/** False when there is no such member, or it would be the last. */
	static bool RemoveVariable(UUserDefinedStruct* Struct, FGuid VarGuid);
	/** Changes what people read. False when there is no such member or another has that name. */
	static bool RenameVariable(UUserDefinedStruct* Struct, FGuid VarGuid, const FString& NewDisplayNameStr);
	static bool ChangeVariableDefaultValue(UUserDefinedStruct* Struct, FGuid VarGuid, const FString& NewDefaultValue);
	/** The struct must have been made in the editor. */
	static TArray<FStructVariableDescription>& GetVarDesc(UUserDefinedStruct* Struct);
};
