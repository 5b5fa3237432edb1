#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

class FCompilerResultsLog;
class FProperty;
class UClass;
class UEdGraphSchema_K2;
class UStruct;
struct FEdGraphPinType;

/** Helpers of the compiler that others need too. */
class FKismetCompilerUtilities
{
public:
	/**
	 * A property of the type, owned by the caller until it is added to the scope; null after an error in the log when
	 * no property carries the type. SelfClass is what "self" means in it.
	 */
	static FProperty* CreatePropertyOnScope(UStruct* Scope, const FName& PropertyName, const FEdGraphPinType& Type,
		UClass* SelfClass, EPropertyFlags PropertyFlags, const UEdGraphSchema_K2* Schema,
		FCompilerResultsLog& MessageLog);
};
