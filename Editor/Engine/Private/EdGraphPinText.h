#pragma once

#include "EdGraph/EdGraphPin.h"
#include "UObject/UnrealType.h"

namespace PinText
{
/** The properties of the pin type, looked up once: object and struct values of pins have the same text as those of
 * objects. */
struct FTypeProperties
{
	FProperty* SubCategoryObject;
	FProperty* MemberReference;
	FProperty* ValueType;
	FProperty* DefaultObject;

	static const FTypeProperties& Get()
	{
		static const FTypeProperties Properties = []
		{
			const UScriptStruct* const Type = FEdGraphPinType::StaticStruct();
			FObjectProperty* const Object = new FObjectProperty(FFieldVariant(Type), TEXT("DefaultObject"));
			Object->PropertyClass = UObject::StaticClass();
			return FTypeProperties{Type->FindPropertyByName(TEXT("PinSubCategoryObject")),
				Type->FindPropertyByName(TEXT("PinSubCategoryMemberReference")),
				Type->FindPropertyByName(TEXT("PinValueType")), Object};
		}();
		return Properties;
	}
};

/** "None", "Array", "Set" or "Map". */
const TCHAR* ContainerName(EPinContainerType Type);
} // namespace PinText
