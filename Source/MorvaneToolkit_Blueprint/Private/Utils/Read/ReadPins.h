#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "EdGraph/EdGraphPin.h"

class UEdGraphNode;

/**
 * Reads the pins of one graph. Few types and few nodes stand behind many pins and links, so the JSON of a type, and of
 * the name of a node, is made once and shared by all that say it: it is not to be changed afterwards. Lives no longer
 * than the read, since names change between reads.
 */
class FPinReader
{
public:
	explicit FPinReader(bool bInLean = false)
		: bLean(bInLean)
	{
	}

	/** Null for a pin that a lean read leaves out; never in a full one. */
	TSharedPtr<FJsonObject> Read(const UEdGraphPin& Pin);

private:
	struct FNodeName
	{
		TSharedPtr<FJsonValue> MenuTitle;
		TSharedPtr<FJsonValue> ShortId;
	};

	TSharedPtr<FJsonObject> ReadFull(const UEdGraphPin& Pin);
	TSharedPtr<FJsonObject> ReadLean(const UEdGraphPin& Pin);
	TSharedPtr<FJsonValue> GetType(const FEdGraphPinType& Type);
	/** True once for each type. */
	bool IsFirstOfType(const FEdGraphPinType& Type);
	const FNodeName& GetName(const UEdGraphNode& Node);
	TSharedPtr<FJsonValue> ReadConnection(const UEdGraphPin& Linked, const UEdGraphNode& Node);

	bool bLean;
	TArray<TPair<FEdGraphPinType, TSharedPtr<FJsonValue>>> Types;
	TArray<FEdGraphPinType> ShownTypes;
	TMap<const UEdGraphNode*, FNodeName> Names;
};
