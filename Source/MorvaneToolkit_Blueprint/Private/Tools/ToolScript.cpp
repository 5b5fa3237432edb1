#include "Tools/ToolScript.h"

#include "AssetOperationBase.h"
#include "Dom/JsonObject.h"
#include "IToolExecutor.h"
#include "JsonReading.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"
#include "ToolCommand.h"
#include "ToolResult.h"

namespace ToolScriptImpl
{
static TSharedPtr<FJsonObject> Parse(const FString& Text)
{
	TSharedPtr<FJsonObject> Object;
	const TSharedRef<TJsonReader<TCHAR>> Reader = TJsonReaderFactory<TCHAR>::Create(Text);
	return FJsonSerializer::Deserialize(Reader, Object) ? Object : nullptr;
}

static TSharedPtr<FJsonValue> ToValue(const TArray<FString>& Texts)
{
	TArray<TSharedPtr<FJsonValue>> Values;
	for (const FString& Text : Texts)
	{
		Values.Add(MakeShared<FJsonValueString>(Text));
	}
	return MakeShared<FJsonValueArray>(Values);
}

static TSharedRef<FJsonObject> ToJson(const Morvane::FToolResult& Result)
{
	const TSharedRef<FJsonObject> Json = MakeShared<FJsonObject>();
	Json->SetBoolField(TEXT("success"), Result.WasSuccessful());
	Json->SetField(TEXT("errors"), ToValue(Result.GetErrorMessages()));
	Json->SetField(TEXT("warnings"), ToValue(Result.GetWarningMessages()));
	Json->SetField(TEXT("messages"), ToValue(Result.GetSuccessMessages()));
	if (Result.GetDatas())
	{
		Json->SetObjectField(TEXT("data"), Result.GetDatas());
	}
	return Json;
}

/** A value as a person would write it. */
static FString Show(const TSharedPtr<FJsonValue>& Value)
{
	if (!Value)
	{
		return TEXT("nothing");
	}
	const TSharedPtr<FJsonObject> Wrapped = MakeShared<FJsonObject>();
	Wrapped->SetField(TEXT("v"), Value);
	const FString Text = FAssetOperationBase::SerializeJson(Wrapped);
	return Text.Mid(5, Text.Len() - 6);
}

/** Compares what is expected with what is there and notes each difference under its place in the result. */
class FComparison
{
public:
	TArray<FString> Faults;

	void Compare(const FString& Place, const FJsonValue& Expected, const TSharedPtr<FJsonValue>& Actual)
	{
		FString Pattern;
		FString Text;
		if (Actual && MorvaneJson::TryGetString(Expected, Pattern) && MorvaneJson::TryGetString(*Actual, Text))
		{
			Note(Text.MatchesWildcard(Pattern, ESearchCase::CaseSensitive), Place, Expected, Actual);
		}
		else if (Actual && Expected.Type == EJson::Object)
		{
			CompareMembers(Place, Expected, Actual);
		}
		else if (Actual && Expected.Type == EJson::Array && Actual->Type == EJson::Array)
		{
			CompareElements(Place, Expected, Actual);
		}
		else
		{
			Note(Actual && FJsonValue::CompareEqual(Expected, *Actual), Place, Expected, Actual);
		}
	}

private:
	void Note(bool bFits, const FString& Place, const FJsonValue& Expected, const TSharedPtr<FJsonValue>& Actual)
	{
		if (!bFits)
		{
			Faults.Add(FString::Printf(TEXT("%s is %s"), *Place, *Show(Actual)));
		}
	}

	void CompareMembers(const FString& Place, const FJsonValue& Expected, const TSharedPtr<FJsonValue>& Actual)
	{
		FString Text;
		const TSharedPtr<FJsonObject> Object = MorvaneJson::TryGetString(*Actual, Text)
			? Parse(Text)
			: MorvaneJson::AsObject(*Actual);
		Note(Object.IsValid(), Place, Expected, Actual);
		if (!Object)
		{
			return;
		}
		for (const auto& Member : MorvaneJson::AsObject(Expected)->Values)
		{
			const FString Key(Member.Key);
			Compare(Place + TEXT(".") + Key, *Member.Value, Object->TryGetField(Key));
		}
	}

	void CompareElements(const FString& Place, const FJsonValue& Expected, const TSharedPtr<FJsonValue>& Actual)
	{
		const TArray<TSharedPtr<FJsonValue>>& Wanted = MorvaneJson::AsArray(Expected);
		const TArray<TSharedPtr<FJsonValue>>& There = MorvaneJson::AsArray(*Actual);
		Note(Wanted.Num() == There.Num(), Place, Expected, Actual);
		for (int32 Index = 0; Index < FMath::Min(Wanted.Num(), There.Num()); ++Index)
		{
			Compare(FString::Printf(TEXT("%s[%d]"), *Place, Index), *Wanted[Index], There[Index]);
		}
	}
};

/** The differences of one call. */
static TArray<FString> PlayLine(const FJsonObject& Line, IToolExecutor& Executor)
{
	FString Tool;
	const TSharedPtr<FJsonObject>* Arguments = nullptr;
	const TSharedPtr<FJsonObject>* Expected = nullptr;
	if (!MorvaneJson::TryGetStringField(Line, TEXT("tool"), Tool)
		|| !Line.TryGetObjectField(TEXT("arguments"), Arguments) || !Line.TryGetObjectField(TEXT("expect"), Expected))
	{
		return {TEXT("the line has no tool, arguments and expect")};
	}
	const Morvane::FToolCommand Command(TEXT("script"), Tool, FAssetOperationBase::SerializeJson(*Arguments));
	const TSharedPtr<Morvane::FToolResult> Result = MakeShared<Morvane::FToolResult>(Command);
	Executor.ExecuteTool(Command, Result, [](const TSharedPtr<Morvane::FToolResult>&) {});
	FComparison Comparison;
	Comparison.Compare(Tool, FJsonValueObject(*Expected), MakeShared<FJsonValueObject>(ToJson(*Result)));
	return Comparison.Faults;
}
} // namespace ToolScriptImpl

TArray<FString> ToolScript::Play(const FString& Script, IToolExecutor& Executor)
{
	TArray<FString> Lines;
	Script.ParseIntoArrayLines(Lines, false);
	TArray<FString> Faults;
	for (int32 Index = 0; Index < Lines.Num(); ++Index)
	{
		const FString Line = Lines[Index].TrimStartAndEnd();
		if (Line.IsEmpty() || Line.StartsWith(TEXT("#"), ESearchCase::CaseSensitive))
		{
			continue;
		}
		const TSharedPtr<FJsonObject> Json = ToolScriptImpl::Parse(Line);
		const TArray<FString> Found = Json ? ToolScriptImpl::PlayLine(*Json, Executor)
										   : TArray<FString>{TEXT("the line is no JSON object")};
		for (const FString& Fault : Found)
		{
			Faults.Add(FString::Printf(TEXT("line %d: %s"), Index + 1, *Fault));
		}
	}
	return Faults;
}
