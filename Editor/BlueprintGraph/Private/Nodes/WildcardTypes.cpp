#include "WildcardTypes.h"

#include "EdGraphSchema_K2.h"

namespace WildcardTypes
{
FEdGraphPinType Open()
{
	FEdGraphPinType Type;
	Type.PinCategory = UEdGraphSchema_K2::PC_Wildcard;
	return Type;
}

bool IsOpen(const FEdGraphPinType& Type)
{
	return Type.PinCategory == UEdGraphSchema_K2::PC_Wildcard || Type.PinCategory.IsNone();
}

bool FindLinkedType(const TArray<UEdGraphPin*>& Pins, FEdGraphPinType& OutType)
{
	for (const UEdGraphPin* const Pin : Pins)
	{
		for (const UEdGraphPin* const Linked : Pin->LinkedTo)
		{
			if (!IsOpen(Linked->PinType))
			{
				OutType = Linked->PinType;
				return true;
			}
		}
		// What an author split had a type of its own, which stays.
		if (!Pin->SubPins.IsEmpty())
		{
			OutType = Pin->PinType;
			return true;
		}
	}
	return false;
}

bool SetTerminal(UEdGraphPin& Pin, const FEdGraphPinType& Type)
{
	FEdGraphPinType& Mine = Pin.PinType;
	if (Mine.PinCategory == Type.PinCategory && Mine.PinSubCategory == Type.PinSubCategory
		&& Mine.PinSubCategoryObject == Type.PinSubCategoryObject
		&& Mine.PinSubCategoryMemberReference == Type.PinSubCategoryMemberReference)
	{
		return false;
	}
	Mine.PinCategory = Type.PinCategory;
	Mine.PinSubCategory = Type.PinSubCategory;
	Mine.PinSubCategoryObject = Type.PinSubCategoryObject;
	Mine.PinSubCategoryMemberReference = Type.PinSubCategoryMemberReference;
	Mine.bIsUObjectWrapper = Type.bIsUObjectWrapper;
	return true;
}
} // namespace WildcardTypes
