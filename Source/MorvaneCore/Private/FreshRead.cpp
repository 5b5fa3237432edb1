#include "FreshRead.h"

#include "JsonReading.h"
#include "ModificationReadRegistry.h"
#include "Policies/CondensedJsonPrintPolicy.h"
#include "Serialization/JsonSerializer.h"
#include "Serialization/JsonWriter.h"
#include "ToolInfo.h"
#include "ToolResult.h"

namespace Morvane::FreshRead
{
constexpr int32 FullUpTo = 64 * 1024;
constexpr int32 ShownUpTo = 1024 * 1024;
/** More calls than anyone makes one after the other; the first ones show how the others go. */
constexpr int32 MostCalls = 16;

static FString ToText(const FJsonObject& Object)
{
	FString Text;
	const TSharedRef<TJsonWriter<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>> Writer =
		TJsonWriterFactory<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>::Create(&Text);
	FJsonSerializer::Serialize(MakeShared<FJsonObject>(Object), Writer);
	return Text;
}

static FString FailureContent(const TArray<FString>& Reasons)
{
	FJsonObject Failure;
	Failure.SetStringField(TEXT("error"), FString::Join(Reasons, TEXT("\n")));
	return ToText(Failure);
}

static bool IsEmptyDocument(const FString& Text)
{
	const FString Trimmed = Text.TrimStartAndEnd();
	return Trimmed.IsEmpty() || Trimmed.Equals(TEXT("{}"), ESearchCase::CaseSensitive);
}

/** One read after another of the same change, each showing less. */
class FReader
{
public:
	FReader(const FTrackedModification& InModification, const FToolCommand& InCommand)
		: Modification(InModification)
		, Command(InCommand)
	{
	}

	FString Full() const { return Run(*MakeParameters()); }

	FString Lean(const TSet<FString>& OnlyNodes) const
	{
		const TSharedRef<FJsonObject> Parameters = MakeParameters();
		Parameters->SetStringField(ToolInfo::FieldName_Detail, ToolInfo::Detail_Lean);
		if (!OnlyNodes.IsEmpty())
		{
			TArray<TSharedPtr<FJsonValue>> Nodes;
			for (const FString& Node : OnlyNodes)
			{
				Nodes.Add(MakeShared<FJsonValueString>(Node));
			}
			Parameters->SetArrayField(ToolInfo::FieldName_OnlyNodes, MoveTemp(Nodes));
		}
		return Run(*Parameters);
	}

private:
	/** A copy, since the reader writes into what it is given and the caller is shown the parameters as tracked. */
	TSharedRef<FJsonObject> MakeParameters() const
	{
		const TSharedRef<FJsonObject> Parameters = MakeShared<FJsonObject>(*Modification.Parameters);
		Parameters->SetBoolField(TEXT("finalize_modifications"), true);
		return Parameters;
	}

	FString Run(const FJsonObject& Parameters) const
	{
		FToolResult ReadResult(Command);
		const FString Content = FModificationReadRegistry::Get().Read(
			Modification.ReadTool, MakeShared<FJsonObject>(Parameters), ReadResult);
		return !ReadResult.WasSuccessful() && IsEmptyDocument(Content) ? FailureContent(ReadResult.GetErrorMessages())
																	   : Content;
	}

	const FTrackedModification& Modification;
	const FToolCommand& Command;
};

/** The calls by which an agent reads what the modification's parameters name: a tool reads one item at a time. */
class FCallList
{
public:
	explicit FCallList(const FTrackedModification& InModification)
		: Modification(InModification)
	{
		for (const auto& Member : Modification.Parameters->Values)
		{
			const TArray<TSharedPtr<FJsonValue>>* Entries = nullptr;
			if (Member.Value && Member.Value->TryGetArray(Entries))
			{
				for (const TSharedPtr<FJsonValue>& Entry : *Entries)
				{
					Add(FString(Member.Key), Entry);
				}
			}
		}
		if (Calls.IsEmpty())
		{
			Push(MakeArguments());
		}
	}

	TArray<TSharedPtr<FJsonValue>> Calls;

private:
	TSharedRef<FJsonObject> MakeArguments() const
	{
		const TSharedRef<FJsonObject> Arguments = MakeShared<FJsonObject>();
		Arguments->SetStringField(
			ToolInfo::FieldName_Path, Modification.Parameters->GetStringField(ToolInfo::FieldName_Path));
		return Arguments;
	}

	void Add(const FString& Key, const TSharedPtr<FJsonValue>& Entry)
	{
		const TSharedRef<FJsonObject> Arguments = MakeArguments();
		const TSharedPtr<FJsonObject>* Event = nullptr;
		FString Name;
		if (Entry && Entry->TryGetObject(Event))
		{
			// Floating nodes are shown beside any event, so that the name of the entry for them reads them alone.
			Name = TEXT("nodes_not_attached_to_an_event");
			MorvaneJson::TryGetStringField(**Event, ToolInfo::FieldName_EventName, Name);
			Arguments->SetStringField(
				ToolInfo::FieldName_GraphName, (*Event)->GetStringField(ToolInfo::FieldName_GraphName));
			Arguments->SetStringField(ToolInfo::FieldName_EventName, Name);
			Push(Arguments);
		}
		else if (Entry && MorvaneJson::TryGetString(*Entry, Name))
		{
			Arguments->SetStringField(Key, Name);
			Push(Arguments);
		}
	}

	void Push(const TSharedRef<FJsonObject>& Arguments)
	{
		if (Calls.Num() == MostCalls)
		{
			return;
		}
		Arguments->SetStringField(ToolInfo::FieldName_Detail, ToolInfo::Detail_Lean);
		const TSharedRef<FJsonObject> Call = MakeShared<FJsonObject>();
		Call->SetStringField(TEXT("tool"), Modification.ReadTool);
		Call->SetObjectField(TEXT("arguments"), Arguments);
		Calls.Add(MakeShared<FJsonValueObject>(Call));
	}

	const FTrackedModification& Modification;
};

static FJsonObject MakeNote(const FTrackedModification& Modification, const FString& Text)
{
	FJsonObject Note;
	Note.SetStringField(TEXT("note"), Text);
	Note.SetArrayField(TEXT("calls"), FCallList(Modification).Calls);
	return Note;
}

/** The note's members before those of the document. */
static FString Precede(const FJsonObject& Note, const FString& Document)
{
	return ToText(Note).LeftChop(1) + TEXT(",") + Document.RightChop(1);
}

FString Read(const FTrackedModification& Modification, const TSet<FString>& ShownNodes, const FToolCommand& Command)
{
	const FReader Reader(Modification, Command);
	const FString Full = Reader.Full();
	if (Full.Len() <= FullUpTo)
	{
		return Full;
	}
	const FString Lean = Full.Len() <= ShownUpTo ? Reader.Lean({}) : FString();
	if (!Lean.IsEmpty() && Lean.Len() <= FullUpTo)
	{
		return Lean;
	}
	const FString Narrow = ShownNodes.IsEmpty() ? FString() : Reader.Lean(ShownNodes);
	if (!Narrow.IsEmpty() && Narrow.Len() <= FullUpTo)
	{
		const FString Text = FString::Printf(
			TEXT(
				"The whole document has %d KB. Here are the nodes that the call touched and those they are linked to; the calls read all of it."),
			Full.Len() / 1024);
		return Precede(MakeNote(Modification, Text), Narrow);
	}
	if (!Lean.IsEmpty() && Lean.Len() <= ShownUpTo)
	{
		return Lean;
	}
	return ToText(MakeNote(Modification,
		FString::Printf(
			TEXT("The document has %d KB, too many for this answer; the calls read it."), Full.Len() / 1024)));
}

bool IsShownBy(const FTrackedModification& Modification, const FTrackedModification& Former)
{
	const TArray<TSharedPtr<FJsonValue>>* Events = nullptr;
	const bool bOfOneAsset = Modification.ReadTool.Equals(Former.ReadTool, ESearchCase::CaseSensitive)
		&& Modification.Parameters->GetStringField(ToolInfo::FieldName_Path)
			== Former.Parameters->GetStringField(ToolInfo::FieldName_Path);
	if (!bOfOneAsset || !Former.Parameters->HasField(ToolInfo::FieldName_Events)
		|| !Modification.Parameters->TryGetArrayField(ToolInfo::FieldName_Events, Events))
	{
		return false;
	}
	return !Events->ContainsByPredicate(
		[](const TSharedPtr<FJsonValue>& Entry)
		{
			const TSharedPtr<FJsonObject>* Object = nullptr;
			return !Entry || !Entry->TryGetObject(Object) || (*Object)->HasField(ToolInfo::FieldName_EventName);
		});
}

FString ReferToFormer(const FTrackedModification& Modification)
{
	FJsonObject Reference;
	Reference.SetStringField(
		ToolInfo::FieldName_Path, Modification.Parameters->GetStringField(ToolInfo::FieldName_Path));
	Reference.SetStringField(
		TEXT("note"), TEXT("These nodes stand in the document before this one, beside its events."));
	return ToText(Reference);
}
} // namespace Morvane::FreshRead
