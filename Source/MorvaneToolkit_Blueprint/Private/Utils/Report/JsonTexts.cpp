#include "Utils/Report/JsonTexts.h"

TArray<TSharedPtr<FJsonValue>> ToJsonTexts(const TArray<FString>& Texts)
{
	TArray<TSharedPtr<FJsonValue>> Values;
	Values.Reserve(Texts.Num());
	for (const FString& Text : Texts)
	{
		Values.Add(MakeShared<FJsonValueString>(Text));
	}
	return Values;
}
