#include "Logging/TokenizedMessage.h"

#include "Internationalization/Internationalization.h"

#define LOCTEXT_NAMESPACE "Core.MessageLog"

TSharedRef<FTokenizedMessage> FTokenizedMessage::Create(EMessageSeverity::Type Severity, const FText& Text)
{
	const TSharedRef<FTokenizedMessage> Message = MakeShareable(new FTokenizedMessage(Severity));
	if (!Text.IsEmpty())
	{
		Message->AddText(Text);
	}
	return Message;
}

FText FTokenizedMessage::ToText() const
{
	FString Joined;
	for (const TSharedRef<IMessageToken>& Token : Tokens)
	{
		Joined += Joined.IsEmpty() ? TEXT("") : TEXT(" ");
		Joined += Token->ToText().ToString();
	}
	return FText::FromString(MoveTemp(Joined));
}

TSharedRef<FTokenizedMessage> FTokenizedMessage::AddToken(const TSharedRef<IMessageToken>& Token)
{
	Tokens.Add(Token);
	return AsShared();
}

#undef LOCTEXT_NAMESPACE
