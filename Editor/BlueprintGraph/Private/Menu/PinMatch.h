#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"

class UClass;

/**
 * What could be linked to one pin, asked for thousands of candidates: the schema's answer for each pair of types is
 * kept. Lives as long as one menu is being filled.
 */
class FPinMatch
{
public:
	/** CallingContext: the class that self means. */
	FPinMatch(const UEdGraphPin& InPin, const UClass* InCallingContext);

	/** Whether a pin of the type, facing the direction, could be linked, with a conversion between if it takes one. */
	bool Takes(const FEdGraphPinType& Type, EEdGraphPinDirection Direction);
	/** Whether what comes out of the pin may turn out to be of the class; any pin but one that gives objects or
	 * classes says yes. */
	bool MayCastTo(const UClass& Target) const;

private:
	/** What tells types apart, but for signatures. */
	struct FTypeKey
	{
		FName Category;
		FName SubCategory;
		const UObject* Object = nullptr;
		FName ValueCategory;
		const UObject* ValueObject = nullptr;
		EPinContainerType Container = EPinContainerType::None;

		bool operator==(const FTypeKey& Other) const = default;
		friend uint32 GetTypeHash(const FTypeKey& Key)
		{
			const uint32 Words = HashCombine(GetTypeHash(Key.Category), GetTypeHash(Key.SubCategory));
			return HashCombine(Words, GetTypeHash(reinterpret_cast<uint64>(Key.Object)));
		}
	};

	bool Ask(const FEdGraphPinType& Type) const;

	const UEdGraphPin& Pin;
	const UClass* CallingContext;
	TMap<FTypeKey, bool> Known;
};
