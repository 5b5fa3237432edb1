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
	TSharedPtr<FJsonObject> Read(const UEdGraphPin& Pin);

private:
	struct FNodeName
	{
		TSharedPtr<FJsonValue> MenuTitle;
		TSharedPtr<FJsonValue> ShortId;
	};

	TSharedPtr<FJsonValue> GetType(const FEdGraphPinType& Type);
	const FNodeName& GetName(const UEdGraphNode& Node);
	TSharedPtr<FJsonValue> ReadConnection(const UEdGraphPin& Linked, const UEdGraphNode& Node);

	TArray<TPair<FEdGraphPinType, TSharedPtr<FJsonValue>>> Types;
	TMap<const UEdGraphNode*, FNodeName> Names;
};
