#include "Compiler/MacroUse.h"

#include "EdGraph/EdGraph.h"
#include "K2Node_CallFunction.h"
#include "K2Node_MacroInstance.h"

bool FMacroUse::IsEndless(const UEdGraph* Macro)
{
	return Macro && Explore(*Macro).bEndless;
}

bool FMacroUse::HoldsLatentAction(const UEdGraph* Macro)
{
	return Macro && Explore(*Macro).bLatent;
}

const FMacroUse::FFacts& FMacroUse::Explore(const UEdGraph& Macro)
{
	if (const FFacts* const Facts = Known.Find(&Macro))
	{
		return *Facts;
	}
	Known.Add(&Macro, FFacts());
	FFacts Facts;
	TArray<UEdGraph*> Graphs;
	Graphs.Add(const_cast<UEdGraph*>(&Macro));
	Macro.GetAllChildrenGraphs(Graphs);
	for (const UEdGraph* const Graph : Graphs)
	{
		for (const UEdGraphNode* const Node : Graph->Nodes)
		{
			if (Node && Node->IsNodeEnabled())
			{
				ExploreNode(*Node, Facts);
			}
		}
	}
	Facts.bOpen = false;
	return Known.Add(&Macro, Facts);
}

void FMacroUse::ExploreNode(const UEdGraphNode& Node, FFacts& Facts)
{
	if (const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node))
	{
		Facts.bLatent |= Call->IsLatentFunction();
		return;
	}
	const UK2Node_MacroInstance* const Instance = Cast<UK2Node_MacroInstance>(&Node);
	const UEdGraph* const Inner = Instance ? Instance->GetMacroGraph() : nullptr;
	if (!Inner)
	{
		return;
	}
	const FFacts InnerFacts = Explore(*Inner);
	Facts.bEndless |= InnerFacts.bEndless || InnerFacts.bOpen;
	Facts.bLatent |= InnerFacts.bLatent;
}
