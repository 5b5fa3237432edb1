#pragma once

#include "BlueprintBuilder.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Kismet2/KismetEditorUtilities.h"

#include <string>
#include <vector>

/** One message of a compile: "error: text {Print String.InString; Branch}", with the pins and nodes that it points at.
 */
inline std::string DescribeMessage(const FTokenizedMessage& Message)
{
	std::string Targets;
	for (const TSharedRef<IMessageToken>& Token : Message.GetMessageTokens())
	{
		if (Token->GetType() != EMessageToken::EdGraph)
		{
			continue;
		}
		const FEdGraphToken& Graph = static_cast<const FEdGraphToken&>(*Token);
		const UEdGraphNode* const Node = Graph.GetPin() ? Graph.GetPin()->GetOwningNode()
														: Cast<UEdGraphNode>(Graph.GetGraphObject());
		Targets += Targets.empty() ? "" : "; ";
		Targets += Node ? ToStd(Node->GetNodeTitle(ENodeTitleType::ListView).ToString()) : "no node";
		Targets += Graph.GetPin() ? "." + ToStd(Graph.GetPin()->GetName()) : "";
	}
	const char* const Severity = Message.GetSeverity() == EMessageSeverity::Error ? "error: "
		: Message.GetSeverity() == EMessageSeverity::Info						  ? "note: "
																				  : "warning: ";
	return Severity + ToStd(Message.ToText().ToString()) + (Targets.empty() ? "" : " {" + Targets + "}");
}

inline std::vector<std::string> CompileMessages(UBlueprint* Blueprint)
{
	FCompilerResultsLog Log;
	FKismetEditorUtilities::CompileBlueprint(Blueprint, EBlueprintCompileOptions::None, &Log);
	std::vector<std::string> Messages;
	for (const TSharedRef<FTokenizedMessage>& Message : Log.Messages)
	{
		Messages.push_back(DescribeMessage(*Message));
	}
	return Messages;
}
