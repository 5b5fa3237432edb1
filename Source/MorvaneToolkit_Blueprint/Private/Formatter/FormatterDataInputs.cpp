#include "BlueprintFormatterService.h"

#include "EdGraph/EdGraphNode.h"
#include "EdGraph/EdGraphPin.h"
#include "Formatter/FormatterContext.h"

// Pure nodes: to the left of what they feed, the first below the one before, depth first.

namespace FormatterDataInputs
{
/**
 * The walk over one node's data inputs. The walk goes as deep as the graph's longest run of pure nodes, which may be
 * tens of thousands, so its frames stand in an array instead of on the call stack.
 */
struct FWalkStep
{
	FWalkStep(UEdGraphNode* InNode, const FVector2D& Position, int32 InDepth)
		: Node(InNode)
		, Depth(InDepth)
		, ColumnX(static_cast<float>(Position.X + FormatterNumbers::DataColumnOffset))
		, NextY(static_cast<float>(InDepth == 0 ? Position.Y + FormatterNumbers::FirstDataRowOffset : Position.Y))
		, Bottom(static_cast<float>(Position.Y))
	{
	}

	/** The next input that may be placed from here; null when there is none left. */
	FFormatterNodeEntry* NextInput(const TSet<UEdGraphNode*>& Placed, const FFormatterContext& Context)
	{
		for (; PinIndex < Node->Pins.Num(); ++PinIndex, LinkIndex = 0)
		{
			const UEdGraphPin* const Pin = Node->Pins[PinIndex];
			if (!Pin || Pin->Direction != EGPD_Input || FBlueprintFormatterService::IsExecPin(Pin))
			{
				continue;
			}
			while (LinkIndex < Pin->LinkedTo.Num())
			{
				const UEdGraphPin* const Linked = Pin->LinkedTo[LinkIndex++];
				UEdGraphNode* const Owner = Linked ? Linked->GetOwningNodeUnchecked() : nullptr;
				// A node with exec pins waits for its own chain.
				if (Owner && !Placed.Contains(Owner) && Context.IsAllowed(Owner)
					&& FBlueprintFormatterService::HasNoExecPins(Owner))
				{
					if (FFormatterNodeEntry* const Entry = Context.FindEntry(Owner))
					{
						return Entry;
					}
				}
			}
		}
		return nullptr;
	}

	/** Moves the row below an input and all that was placed behind it. */
	void Advance(const FFormatterNodeEntry& Input, float Deeper)
	{
		const double Gap = Depth == 0 ? FormatterNumbers::FirstDataRowGap : FormatterNumbers::DeeperDataRowGap;
		const float Stop = FMath::Max(Deeper, static_cast<float>(NextY + Input.Size.Y + Gap));
		Bottom = FMath::Max(Bottom, Stop);
		NextY = Stop;
	}

	UEdGraphNode* Node;
	int32 Depth;
	float ColumnX;
	float NextY;
	float Bottom;
	int32 PinIndex = 0;
	int32 LinkIndex = 0;
	/** The input whose own inputs are being walked. */
	const FFormatterNodeEntry* Current = nullptr;
};
} // namespace FormatterDataInputs

float FBlueprintFormatterService::PlaceDataInputs(
	UEdGraphNode* Node, const FVector2D& Position, TSet<UEdGraphNode*>& Placed, FFormatterContext& Context, int32 Depth)
{
	using namespace FormatterDataInputs;
	if (!Node)
	{
		return static_cast<float>(Position.Y);
	}

	TArray<FWalkStep> Walk;
	Walk.Add(FWalkStep(Node, Position, Depth));
	while (true)
	{
		FWalkStep& Here = Walk.Last();
		if (FFormatterNodeEntry* const Input = Here.NextInput(Placed, Context))
		{
			Input->Position = ResolvePlacement(FVector2D(Here.ColumnX, Here.NextY), Input->Size, Context);
			Input->bPlaced = true;
			Placed.Add(Input->Node);
			Here.Current = Input;
			Walk.Add(FWalkStep(Input->Node, Input->Position, Here.Depth + 1));
			continue;
		}
		const float Bottom = Here.Bottom;
		Walk.Pop();
		if (Walk.IsEmpty())
		{
			return Bottom;
		}
		Walk.Last().Advance(*Walk.Last().Current, Bottom);
	}
}
