#include "KismetCompilerMisc.h"

#include "Compiler/PinTypeProperty.h"
#include "EdGraphSchema_K2.h"
#include "Kismet2/CompilerResultsLog.h"
#include "UObject/UnrealType.h"

FProperty* FKismetCompilerUtilities::CreatePropertyOnScope(UStruct* Scope, const FName& PropertyName,
	const FEdGraphPinType& Type, UClass* SelfClass, EPropertyFlags PropertyFlags, const UEdGraphSchema_K2*,
	FCompilerResultsLog& MessageLog)
{
	FEdGraphPinType Settled = Type;
	if (Settled.PinSubCategory == UEdGraphSchema_K2::PSC_Self)
	{
		Settled.PinSubCategory = NAME_None;
		Settled.PinSubCategoryObject = SelfClass;
	}
	FProperty* const Property = PinTypeProperty::Create(FFieldVariant(Scope), PropertyName, Settled);
	if (!Property)
	{
		MessageLog.Error(*FString::Printf(TEXT("The property '%s' cannot be of the type %s"), *PropertyName.ToString(),
			*UEdGraphSchema_K2::TypeToText(Type).ToString()));
		return nullptr;
	}
	Property->SetPropertyFlags(PropertyFlags);
	return Property;
}
