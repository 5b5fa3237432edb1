#include "BlueprintFormatterService.h"

#include "EdGraph/EdGraphNode.h"
#include "EdGraph/EdGraphPin.h"
#include "EdGraphSchema_K2.h"
#include "Formatter/FormatterContext.h"

// Exec chains: columns to the right, branches downward, breadth first, so that a column of siblings is settled before
// anything deeper.

namespace FormatterExecChains
{
static TArray<UEdGraphPin*> GetExecPins(const UEdGraphNode* Node, EEdGraphPinDirection Direction)
{
	TArray<UEdGraphPin*> ExecPins;
	if (Node)
	{
		for (UEdGraphPin* const Pin : Node->Pins)
		{
			if (Pin && Pin->Direction == Direction && FBlueprintFormatterService::IsExecPin(Pin))
			{
				ExecPins.Add(Pin);
			}
		}
	}
	return ExecPins;
}

static bool IsFedByAllowedNode(const UEdGraphNode* Node, const FFormatterContext& Context)
{
	for (const UEdGraphPin* const Pin : GetExecPins(Node, EGPD_Input))
	{
		for (const UEdGraphPin* const Linked : Pin->LinkedTo)
		{
			UEdGraphNode* const Owner = Linked ? Linked->GetOwningNodeUnchecked() : nullptr;
			if (Owner && Context.IsAllowed(Owner))
			{
				return true;
			}
		}
	}
	return false;
}

static float BottomOf(const FFormatterNodeEntry& Entry)
{
	return static_cast<float>(Entry.Position.Y + Entry.Size.Y);
}
} // namespace FormatterExecChains

bool FBlueprintFormatterService::IsExecPin(const UEdGraphPin* Pin)
{
	return Pin && Pin->PinType.PinCategory == UEdGraphSchema_K2::PC_Exec;
}

TArray<UEdGraphPin*> FBlueprintFormatterService::GetExecInputPins(const UEdGraphNode* Node)
{
	return FormatterExecChains::GetExecPins(Node, EGPD_Input);
}

TArray<UEdGraphPin*> FBlueprintFormatterService::GetExecOutputPins(const UEdGraphNode* Node)
{
	return FormatterExecChains::GetExecPins(Node, EGPD_Output);
}

bool FBlueprintFormatterService::HasNoExecPins(const UEdGraphNode* Node)
{
	return Node && !Node->Pins.ContainsByPredicate([](const UEdGraphPin* Pin) { return IsExecPin(Pin); });
}

TArray<UEdGraphNode*> FBlueprintFormatterService::FindChainRoots(
	const TArray<FFormatterNodeEntry>& Entries, const FFormatterContext& Context)
{
	// Nodes in a closed loop all feed each other: they have no root and end among the orphans.
	TArray<UEdGraphNode*> Roots;
	for (const FFormatterNodeEntry& Entry : Entries)
	{
		if (Context.IsAllowed(Entry.Node) && !HasNoExecPins(Entry.Node)
			&& !FormatterExecChains::IsFedByAllowedNode(Entry.Node, Context))
		{
			Roots.Add(Entry.Node);
		}
	}
	return Roots;
}

TOptional<FVector2D> FBlueprintFormatterService::FindAnchorSeed(
	const UEdGraphNode& Root, const FFormatterContext& Context)
{
	for (const UEdGraphPin* const Pin : GetExecInputPins(&Root))
	{
		for (const UEdGraphPin* const Linked : Pin->LinkedTo)
		{
			UEdGraphNode* const Owner = Linked ? Linked->GetOwningNodeUnchecked() : nullptr;
			if (!Owner || Context.IsAllowed(Owner))
			{
				continue;
			}
			if (const FFormatterNodeEntry* const Anchor = Context.FindEntry(Owner))
			{
				return FVector2D(Anchor->Position.X + Anchor->Size.X + FormatterNumbers::ColumnGap, Anchor->Position.Y);
			}
		}
	}
	return {};
}

float FBlueprintFormatterService::PlaceExecChain(
	UEdGraphNode* Root, float X, float Y, TSet<UEdGraphNode*>& Placed, FFormatterContext& Context)
{
	if (!Root || Placed.Contains(Root) || !Context.IsAllowed(Root) || !Context.FindEntry(Root))
	{
		return Y;
	}

	TArray<FFormatterNodeEntry*> Queue;
	// What PlaceDataInputs answers is left unused: data inputs never push exec rows down.
	const auto Place = [&](FFormatterNodeEntry& Entry, const FVector2D& Desired)
	{
		Entry.Position = ResolvePlacement(Desired, Entry.Size, Context);
		Entry.bPlaced = true;
		Placed.Add(Entry.Node);
		PlaceDataInputs(Entry.Node, Entry.Position, Placed, Context, 0);
		Queue.Add(&Entry);
	};

	FFormatterNodeEntry& RootEntry = *Context.FindEntry(Root);
	Place(RootEntry, FVector2D(X, Y));
	float Bottom = FormatterExecChains::BottomOf(RootEntry);
	for (int32 Head = 0; Head < Queue.Num(); ++Head)
	{
		const FFormatterNodeEntry& Here = *Queue[Head];
		const float NextX = static_cast<float>(Here.Position.X + Here.Size.X + FormatterNumbers::ColumnGap);
		float NextY = static_cast<float>(Here.Position.Y);
		for (const UEdGraphPin* const Pin : GetExecOutputPins(Here.Node))
		{
			for (const UEdGraphPin* const Linked : Pin->LinkedTo)
			{
				UEdGraphNode* const Owner = Linked ? Linked->GetOwningNodeUnchecked() : nullptr;
				FFormatterNodeEntry* const Child = Owner && Context.IsAllowed(Owner) ? Context.FindEntry(Owner)
																					 : nullptr;
				if (!Child)
				{
					continue;
				}
				if (Placed.Contains(Owner))
				{
					// Two branches join here. The node stays where the first put it, and this branch goes on below it.
					NextY = FMath::Max(
						NextY, static_cast<float>(Child->Position.Y + Child->Size.Y + FormatterNumbers::RowGap));
				}
				else
				{
					Place(*Child, FVector2D(NextX, NextY));
					// From the wish, not from where an obstacle pushed the child.
					NextY = static_cast<float>(NextY + Child->Size.Y + FormatterNumbers::RowGap);
				}
				Bottom = FMath::Max(Bottom, NextY);
			}
		}
	}
	return Bottom;
}
