#include "Utils/Read/ReadBudget.h"

#include "EdGraph/EdGraphNode.h"

int32 FReadBudget::PartsLeft = FReadBudget::MaxParts;

void FReadBudget::Begin()
{
	PartsLeft = MaxParts;
}

bool FReadBudget::Take(const UEdGraphNode& Node)
{
	int32 Parts = 1;
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		Parts += Pin ? 1 + Pin->LinkedTo.Num() : 0;
	}
	PartsLeft = FMath::Max(0, PartsLeft - Parts);
	return PartsLeft > 0;
}
