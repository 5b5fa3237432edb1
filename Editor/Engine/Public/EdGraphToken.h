#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"
#include "Logging/TokenizedMessage.h"

/** The part of a message that stands for a node, a pin or another object of a graph. Reads as the thing's title. */
class FEdGraphToken : public IMessageToken
{
public:
	static TSharedRef<IMessageToken> Create(const UObject* InObject);
	static TSharedRef<IMessageToken> Create(const UEdGraphPin* InPin);
	FEdGraphToken(const UObject* InObject, const UEdGraphPin* InPin);

	EMessageToken::Type GetType() const override { return EMessageToken::EdGraph; }
	const UEdGraphPin* GetPin() const { return PinBeingReferenced.Get(); }
	/** The node or other object; for a pin its owning node. */
	const UObject* GetGraphObject() const { return ObjectBeingReferenced.Get(); }

private:
	TWeakObjectPtr<UObject> ObjectBeingReferenced;
	FEdGraphPinReference PinBeingReferenced;
};
