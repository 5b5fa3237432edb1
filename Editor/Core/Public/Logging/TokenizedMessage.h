#pragma once

#include "Containers/Array.h"
#include "Internationalization/Text.h"
#include "Templates/SharedPointer.h"

namespace EMessageSeverity
{
/** The smaller, the worse. */
enum Type
{
	CriticalError = 0,
	Error = 1,
	PerformanceWarning = 2,
	Warning = 3,
	Info = 4
};
}

namespace EMessageToken
{
enum Type
{
	Action,
	Actor,
	AssetName,
	AssetData,
	DocumentationLink,
	Image,
	Object,
	Severity,
	Text,
	Tutorial,
	URL,
	EdGraph,
	DynamicText,
	Fix
};
}

/** A piece of a message: words, or something the reader can follow. */
class IMessageToken : public TSharedFromThis<IMessageToken>
{
public:
	virtual ~IMessageToken() = default;
	virtual EMessageToken::Type GetType() const = 0;
	virtual const FText& ToText() const { return CachedText; }

protected:
	FText CachedText;
};

class FTextToken : public IMessageToken
{
public:
	static TSharedRef<FTextToken> Create(const FText& Text, bool bInWithSeverity = false)
	{
		return MakeShareable(new FTextToken(Text));
	}
	EMessageToken::Type GetType() const override { return EMessageToken::Text; }

protected:
	explicit FTextToken(const FText& Text) { CachedText = Text; }
};

/** A message in pieces, with a severity. */
class FTokenizedMessage : public TSharedFromThis<FTokenizedMessage>
{
public:
	static TSharedRef<FTokenizedMessage> Create(EMessageSeverity::Type Severity, const FText& Text = FText());

	/** The texts of all tokens, a blank between, in order. */
	FText ToText() const;
	TSharedRef<FTokenizedMessage> AddToken(const TSharedRef<IMessageToken>& Token);
	TSharedRef<FTokenizedMessage> AddText(const FText& Text) { return AddToken(FTextToken::Create(Text)); }
	EMessageSeverity::Type GetSeverity() const { return Severity; }
	const TArray<TSharedRef<IMessageToken>>& GetMessageTokens() const { return Tokens; }

private:
	explicit FTokenizedMessage(EMessageSeverity::Type InSeverity)
		: Severity(InSeverity)
	{
	}

	TArray<TSharedRef<IMessageToken>> Tokens;
	EMessageSeverity::Type Severity;
};
