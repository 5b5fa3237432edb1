#include "Kismet2/CompilerResultsLog.h"

#include "EdGraph/EdGraphNode.h"

namespace CompilerLog
{
/** Execution pins show no name of their own; a reader still has to know which one is meant. */
static FText NameOf(const UEdGraphPin& Pin)
{
	if (Pin.PinName.IsNone())
	{
		return FText::FromString(TEXT("the unnamed pin"));
	}
	const FText Shown = Pin.GetDisplayName();
	return Shown.ToString().TrimStartAndEnd().IsEmpty() ? FText::FromName(Pin.PinName) : Shown;
}
} // namespace CompilerLog

TSharedRef<IMessageToken> FEdGraphToken::Create(const UObject* InObject)
{
	return MakeShareable(new FEdGraphToken(InObject, nullptr));
}

TSharedRef<IMessageToken> FEdGraphToken::Create(const UEdGraphPin* InPin)
{
	return MakeShareable(new FEdGraphToken(nullptr, InPin));
}

FEdGraphToken::FEdGraphToken(const UObject* InObject, const UEdGraphPin* InPin)
	: ObjectBeingReferenced(const_cast<UObject*>(InObject))
{
	if (InPin)
	{
		PinBeingReferenced.SetPin(InPin);
		CachedText = CompilerLog::NameOf(*InPin);
	}
	else if (const UEdGraphNode* const Node = Cast<UEdGraphNode>(InObject))
	{
		CachedText = Node->GetNodeTitle(ENodeTitleType::ListView);
	}
	else
	{
		CachedText = FText::FromString(InObject ? InObject->GetName() : FString(TEXT("None")));
	}
}

namespace CompilerLog
{
/** Adds words unless there are none. Tokens are joined by a blank, so those at the cut go. */
static void AddWords(FTokenizedMessage& Message, const FString& Words)
{
	const FString Trimmed = Words.TrimStartAndEnd();
	if (!Trimmed.IsEmpty())
	{
		Message.AddText(FText::FromString(Trimmed));
	}
}

static UEdGraphNode* NodeOf(const FCompilerResultsLog::FArgument& Argument)
{
	if (Argument.Pin)
	{
		return Argument.Pin->GetOwningNode();
	}
	return const_cast<UEdGraphNode*>(Cast<UEdGraphNode>(Argument.Object));
}

/** The worst message stays on the node; several of one severity stand below each other. */
static void Annotate(UEdGraphNode& Node, EMessageSeverity::Type Severity, const FString& Text)
{
	if (Node.bHasCompilerMessage && Node.ErrorType < Severity)
	{
		return;
	}
	const bool bAppend = Node.bHasCompilerMessage && Node.ErrorType == Severity;
	Node.ErrorMsg = bAppend ? Node.ErrorMsg + TEXT("\n") + Text : Text;
	Node.ErrorType = Severity;
	Node.bHasCompilerMessage = true;
}

static TSharedRef<IMessageToken> TokenOf(const FCompilerResultsLog::FArgument& Argument)
{
	if (Argument.Pin)
	{
		return FEdGraphToken::Create(Argument.Pin);
	}
	if (Argument.Object)
	{
		return FEdGraphToken::Create(Argument.Object);
	}
	return FTextToken::Create(FText::FromString(Argument.Text));
}
} // namespace CompilerLog

TSharedRef<FTokenizedMessage> FCompilerResultsLog::Add(
	EMessageSeverity::Type Severity, const TCHAR* Format, std::initializer_list<FArgument> Arguments)
{
	static const FString Mark(TEXT("@@"));
	const TSharedRef<FTokenizedMessage> Message = FTokenizedMessage::Create(Severity);
	FString Rest(Format);
	TArray<UEdGraphNode*> Mentioned;
	for (const FArgument& Argument : Arguments)
	{
		const int32 At = Rest.Find(Mark, ESearchCase::CaseSensitive);
		if (At == INDEX_NONE)
		{
			break;
		}
		CompilerLog::AddWords(*Message, Rest.Left(At));
		Message->AddToken(CompilerLog::TokenOf(Argument));
		Rest = Rest.Mid(At + Mark.Len());
		UEdGraphNode* const Node = CompilerLog::NodeOf(Argument);
		if (Node)
		{
			Mentioned.AddUnique(Node);
		}
	}
	CompilerLog::AddWords(*Message, Rest);
	NumErrors += Severity <= EMessageSeverity::Error ? 1 : 0;
	NumWarnings += Severity == EMessageSeverity::Warning || Severity == EMessageSeverity::PerformanceWarning ? 1 : 0;
	if (bAnnotateMentionedNodes)
	{
		const FString Text = Message->ToText().ToString();
		for (UEdGraphNode* const Node : Mentioned)
		{
			CompilerLog::Annotate(*Node, Severity, Text);
		}
	}
	Messages.Add(Message);
	return Message;
}
