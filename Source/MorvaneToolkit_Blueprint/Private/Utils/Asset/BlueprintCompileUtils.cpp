#include "BlueprintUtils.h"

#include "EdGraph/EdGraphNode.h"
#include "EdGraph/EdGraphPin.h"
#include "EdGraphToken.h"
#include "Engine/Blueprint.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Logging/TokenizedMessage.h"

namespace BlueprintCompileText
{
/** The single-line title. */
static FString GetTitle(const UEdGraphNode& Node)
{
	return Node.GetNodeTitle(ENodeTitleType::ListView).ToString();
}

/** The things that one message points at, as texts. */
struct FMentions
{
	TArray<FString> Nodes;
	TArray<FString> Pins;
	TArray<FString> Paths;

	void AddPin(const UEdGraphPin& Pin)
	{
		const UEdGraphNode* const Node = Pin.GetOwningNodeUnchecked();
		const FString Name = Pin.PinName.ToString();
		Pins.Add(Node ? FString::Printf(TEXT("Pin '%s' on node '%s'"), *Name, *GetTitle(*Node))
					  : FString::Printf(TEXT("Pin '%s'"), *Name));
	}

	void AddObject(const UObject& Object)
	{
		if (const UEdGraphNode* const Node = Cast<UEdGraphNode>(&Object))
		{
			Nodes.Add(GetTitle(*Node));
		}
		else
		{
			Paths.Add(Object.GetPathName());
		}
	}

	FString ToText() const
	{
		FString Text;
		if (!Nodes.IsEmpty())
		{
			Text += FString::Printf(TEXT(" [Nodes: %s]"), *FString::Join(Nodes, TEXT(", ")));
		}
		if (!Pins.IsEmpty())
		{
			Text += FString::Printf(TEXT(" [%s]"), *FString::Join(Pins, TEXT(", ")));
		}
		if (!Paths.IsEmpty())
		{
			Text += FString::Printf(TEXT(" [Paths: %s]"), *FString::Join(Paths, TEXT(", ")));
		}
		return Text;
	}
};

static FString Describe(const FTokenizedMessage& Message)
{
	FMentions Mentions;
	for (const TSharedRef<IMessageToken>& Token : Message.GetMessageTokens())
	{
		if (Token->GetType() != EMessageToken::EdGraph)
		{
			continue;
		}
		const FEdGraphToken& GraphToken = static_cast<const FEdGraphToken&>(*Token);
		if (const UEdGraphPin* const Pin = GraphToken.GetPin())
		{
			Mentions.AddPin(*Pin);
		}
		if (const UObject* const Object = GraphToken.GetGraphObject())
		{
			Mentions.AddObject(*Object);
		}
	}
	return Message.ToText().ToString() + Mentions.ToText();
}

static void Compile(UBlueprint* Blueprint, bool bSkipSave, FCompilerResultsLog& Log)
{
	Log.SetSourcePath(Blueprint->GetPathName());
	// The value of the option that callers ask for; it has no name that all engine versions share.
	const EBlueprintCompileOptions Options = static_cast<EBlueprintCompileOptions>(bSkipSave ? 2 : 0);
	FKismetEditorUtilities::CompileBlueprint(Blueprint, Options, &Log);
}
} // namespace BlueprintCompileText

bool FBlueprintUtils::CompileBlueprint(UBlueprint* Blueprint, bool bSkipSave)
{
	FCompilerResultsLog Log;
	BlueprintCompileText::Compile(Blueprint, bSkipSave, Log);
	return Log.NumErrors == 0;
}

bool FBlueprintUtils::CompileBlueprintWithResults(UBlueprint* Blueprint, bool bSkipSave, TArray<FString>& OutErrors,
	TArray<FString>& OutWarnings, TArray<FString>* OutNotes)
{
	FCompilerResultsLog Log;
	BlueprintCompileText::Compile(Blueprint, bSkipSave, Log);
	for (const TSharedRef<FTokenizedMessage>& Message : Log.Messages)
	{
		switch (Message->GetSeverity())
		{
		case EMessageSeverity::Error:
			OutErrors.Add(BlueprintCompileText::Describe(*Message));
			break;
		case EMessageSeverity::PerformanceWarning:
		case EMessageSeverity::Warning:
			OutWarnings.Add(BlueprintCompileText::Describe(*Message));
			break;
		default:
			if (OutNotes)
			{
				OutNotes->Add(BlueprintCompileText::Describe(*Message));
			}
			break;
		}
	}
	return Log.NumErrors == 0 && OutErrors.IsEmpty();
}
