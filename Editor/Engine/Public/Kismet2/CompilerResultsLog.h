#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"
#include "EdGraphToken.h"
#include "Logging/TokenizedMessage.h"

class UEdGraphNode;

/** What a compile has to say, in order. "@@" in a text stands for the next argument: a node, a pin, an object or a
 * text. */
class FCompilerResultsLog
{
public:
	FCompilerResultsLog() = default;

	template <class... TArgs>
	TSharedRef<FTokenizedMessage> Error(const TCHAR* Format, TArgs... Args)
	{
		return Add(EMessageSeverity::Error, Format, {FArgument(Args)...});
	}
	template <class... TArgs>
	TSharedRef<FTokenizedMessage> Warning(const TCHAR* Format, TArgs... Args)
	{
		return Add(EMessageSeverity::Warning, Format, {FArgument(Args)...});
	}
	template <class... TArgs>
	TSharedRef<FTokenizedMessage> Note(const TCHAR* Format, TArgs... Args)
	{
		return Add(EMessageSeverity::Info, Format, {FArgument(Args)...});
	}

	void SetSourcePath(const FString& InPath) { SourcePath = InPath; }
	/** Writes the messages on their nodes (ErrorType, ErrorMsg, bHasCompilerMessage). */
	bool bAnnotateMentionedNodes = true;
	bool bSilentMode = false;

	TArray<TSharedRef<FTokenizedMessage>> Messages;
	int32 NumErrors = 0;
	int32 NumWarnings = 0;

	/** What "@@" may stand for. */
	struct FArgument
	{
		FArgument(const UEdGraphPin* InPin)
			: Pin(InPin)
		{
		}
		FArgument(const UObject* InObject)
			: Object(InObject)
		{
		}
		FArgument(const FString& InText)
			: Text(InText)
		{
		}
		FArgument(const TCHAR* InText)
			: Text(InText)
		{
		}
		FArgument(const FText& InText)
			: Text(InText.ToString())
		{
		}

		const UEdGraphPin* Pin = nullptr;
		const UObject* Object = nullptr;
		FString Text;
	};

private:
	TSharedRef<FTokenizedMessage> Add(
		EMessageSeverity::Type Severity, const TCHAR* Format, std::initializer_list<FArgument> Arguments);

	FString SourcePath;
};
