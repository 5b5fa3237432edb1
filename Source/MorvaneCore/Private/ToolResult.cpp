#include "ToolResult.h"

#include "ModificationReadRegistry.h"
#include "Policies/CondensedJsonPrintPolicy.h"
#include "Serialization/JsonSerializer.h"
#include "Serialization/JsonWriter.h"

namespace Morvane
{
namespace ToolResultText
{
static FString FailureContent(const TArray<FString>& Reasons)
{
	FJsonObject Failure;
	Failure.SetStringField(TEXT("error"), FString::Join(Reasons, TEXT("\n")));
	FString Text;
	const TSharedRef<TJsonWriter<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>> Writer =
		TJsonWriterFactory<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>::Create(&Text);
	FJsonSerializer::Serialize(MakeShared<FJsonObject>(Failure), Writer);
	return Text;
}

static bool IsEmptyDocument(const FString& Text)
{
	const FString Trimmed = Text.TrimStartAndEnd();
	return Trimmed.IsEmpty() || Trimmed.Equals(TEXT("{}"), ESearchCase::CaseSensitive);
}
} // namespace ToolResultText

FToolResult& FToolResult::AddErrorMessage(const FString& Message)
{
	ErrorMessages.Add(Message);
	return *this;
}

FToolResult& FToolResult::AddWarningMessage(const FString& Message)
{
	WarningMessages.Add(Message);
	return *this;
}

FToolResult& FToolResult::AddSuccessMessage(const FString& Message)
{
	SuccessMessages.Add(Message);
	return *this;
}

FToolResult& FToolResult::SetData(const FString& Key, const FString& Value)
{
	EnsureDatas().SetStringField(Key, Value);
	return *this;
}

FToolResult& FToolResult::SetData(const FString& Key, const TSharedPtr<FJsonObject>& Value)
{
	EnsureDatas().SetObjectField(Key, Value);
	return *this;
}

FToolResult& FToolResult::TrackModification(const FString& ReadTool, const TSharedPtr<FJsonObject>& Parameters)
{
	if (!bModificationsClosed && Parameters.IsValid())
	{
		Modifications.Add({ReadTool, Parameters, FString()});
	}
	return *this;
}

FToolResult& FToolResult::AddModifiedObjects(const TWeakObjectPtr<UObject>& Object)
{
	ModifiedObjects.Add(Object);
	return *this;
}

FToolResult& FToolResult::FinalizeModifications()
{
	if (!bModificationsClosed)
	{
		bModificationsClosed = true;
		for (FTrackedModification& Modification : Modifications)
		{
			Modification.Content = ReadAgain(Modification);
		}
	}
	return *this;
}

FToolResult& FToolResult::DropModifications()
{
	Modifications.Empty();
	bModificationsClosed = true;
	return *this;
}

FJsonObject& FToolResult::EnsureDatas()
{
	if (!Datas.IsValid())
	{
		Datas = MakeShared<FJsonObject>();
	}
	return *Datas;
}

FString FToolResult::ReadAgain(const FTrackedModification& Modification) const
{
	// A copy, since the reader writes into what it is given and the caller is shown the parameters as tracked.
	const TSharedPtr<FJsonObject> Parameters = MakeShared<FJsonObject>(*Modification.Parameters);
	Parameters->SetBoolField(TEXT("finalize_modifications"), true);
	FToolResult ReadResult(Command);
	const FString Content = FModificationReadRegistry::Get().Read(Modification.ReadTool, Parameters, ReadResult);
	if (!ReadResult.WasSuccessful() && ToolResultText::IsEmptyDocument(Content))
	{
		return ToolResultText::FailureContent(ReadResult.GetErrorMessages());
	}
	return Content;
}
} // namespace Morvane
