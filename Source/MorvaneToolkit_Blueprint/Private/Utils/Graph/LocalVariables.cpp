#include "Utils/Graph/LocalVariables.h"

#include "AssetOperationBase.h"
#include "BlueprintGraphUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "JsonReading.h"
#include "K2Node_FunctionEntry.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResult.h"
#include "Utils/Report/GraphTelemetry.h"
#include "Utils/Report/JsonTexts.h"
#include "Utils/Request/NewNames.h"
#include "Utils/Request/RecordWords.h"

namespace LocalVariables
{
/** A definition with its name, whichever shape it came in; null for one that is no object. */
struct FDefinition
{
	FString Name;
	TSharedPtr<FJsonObject> Json;
};

static TSharedPtr<FJsonObject> ToObject(const TSharedPtr<FJsonValue>& Value)
{
	const TSharedPtr<FJsonObject>* Object = nullptr;
	return Value && Value->TryGetObject(Object) ? *Object : nullptr;
}

static TArray<FDefinition> CollectDefinitions(const TSharedPtr<FJsonValue>& Value)
{
	TArray<FDefinition> Definitions;
	const TArray<TSharedPtr<FJsonValue>>* Array = nullptr;
	if (const TSharedPtr<FJsonObject> ByName = ToObject(Value))
	{
		for (const auto& Member : ByName->Values)
		{
			Definitions.Add(FDefinition{FString(Member.Key), ToObject(Member.Value)});
		}
	}
	else if (Value && Value->TryGetArray(Array))
	{
		for (const TSharedPtr<FJsonValue>& Element : *Array)
		{
			FDefinition Definition;
			Definition.Json = ToObject(Element);
			if (Definition.Json && !MorvaneJson::TryGetStringField(*Definition.Json, TEXT("name"), Definition.Name))
			{
				Definition.Json.Reset();
			}
			Definitions.Add(Definition);
		}
	}
	return Definitions;
}

/** False, reported, when the default is of a type that has no text. */
static bool ReadDefault(const FDefinition& Definition, TOptional<FString>& OutDefault, Morvane::FToolResult& Result)
{
	const TSharedPtr<FJsonValue> Value = Definition.Json->TryGetField(TEXT("default_variable_value"));
	FString Text;
	bool bFlag = false;
	double Number = 0.0;
	if (!Value)
	{
		return true;
	}
	if (MorvaneJson::TryGetString(*Value, Text))
	{
		OutDefault = Text;
	}
	else if (MorvaneJson::TryGetBool(*Value, bFlag))
	{
		OutDefault = FString(bFlag ? TEXT("true") : TEXT("false"));
	}
	else if (MorvaneJson::TryGetNumber(*Value, Number))
	{
		OutDefault = FString::SanitizeFloat(Number, 1);
	}
	else
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("Local variable '%s' has unsupported default value type"), *Definition.Name));
		return false;
	}
	return true;
}

/** False, reported, when the type is not there and must be, or is there and no type. */
static bool ReadType(const FDefinition& Definition, FBPLocalVariableModification& Record, Morvane::FToolResult& Result)
{
	const TSharedPtr<FJsonValue> Value = Definition.Json->TryGetField(TEXT("type"));
	if (!Value)
	{
		if (Record.Action != EBPNodeAction::Add)
		{
			return true;
		}
		Result.AddErrorMessage(
			FString::Printf(TEXT("Local variable '%s' is missing required 'type' definition"), *Definition.Name));
		return false;
	}
	const TSharedPtr<FJsonObject> Type = ToObject(Value);
	FEdGraphPinType PinType;
	if (!Type || !FBlueprintLocalVariableUtils::NormalizeType(*Type, PinType))
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Failed to parse type for local variable '%s'"), *Definition.Name));
		return false;
	}
	Record.Type = PinType;
	return true;
}

static bool ParseOne(
	const FDefinition& Definition, FBPLocalVariableModification& OutRecord, Morvane::FToolResult& Result)
{
	OutRecord.Name = Definition.Name;
	if (!Definition.Json)
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Invalid local variable definition for '%s'"), *Definition.Name));
		return false;
	}
	FString Word;
	if (MorvaneJson::TryGetStringField(*Definition.Json, TEXT("action"), Word))
	{
		const TOptional<EBPNodeAction> Action = RecordWords::ToNodeAction(Word);
		if (!Action)
		{
			Result.AddErrorMessage(
				FString::Printf(TEXT("Unsupported local variable action '%s' for '%s'"), *Word, *Definition.Name));
			return false;
		}
		OutRecord.Action = *Action;
	}
	return ReadDefault(Definition, OutRecord.DefaultValue, Result) && ReadType(Definition, OutRecord, Result);
}

/** One run over the records of one entry node. */
class FApplyRun
{
public:
	FApplyRun(UBlueprint& InBlueprint, UEdGraph& InGraph, UK2Node_FunctionEntry& InEntry,
		FBPLocalVariableOutcome& InOutcome, Morvane::FToolResult& InResult)
		: Blueprint(InBlueprint)
		, Graph(InGraph)
		, Entry(InEntry)
		, Outcome(InOutcome)
		, Result(InResult)
	{
	}

	void Apply(const FBPLocalVariableModification& Record)
	{
		if (Record.Name.IsEmpty())
		{
			Fail(TEXT("Local variable name cannot be empty"));
			return;
		}
		switch (Record.Action)
		{
		case EBPNodeAction::Add:
			Add(Record);
			break;
		case EBPNodeAction::Modify:
			Modify(Record);
			break;
		case EBPNodeAction::Remove:
			Remove(Record);
			break;
		}
	}

private:
	void Fail(const FString& Text)
	{
		Result.AddErrorMessage(Text);
		Outcome.Failures.Add(Text);
	}

	FBPVariableDescription* Find(const FString& Name)
	{
		return Entry.LocalVariables.FindByPredicate(
			[&Name](const FBPVariableDescription& Variable) { return Variable.VarName == *Name; });
	}

	void Add(const FBPLocalVariableModification& Record)
	{
		if (!Record.Type)
		{
			Fail(FString::Printf(TEXT("Local variable '%s' requires a 'type' field for add action"), *Record.Name));
			return;
		}
		if (Find(Record.Name))
		{
			Fail(FString::Printf(TEXT("Local variable '%s' already exists"), *Record.Name));
			return;
		}
		const FString Fault = NewNames::FindFault(Record.Name);
		if (!Fault.IsEmpty())
		{
			Fail(FString::Printf(TEXT("Failed to create local variable '%s': %s"), *Record.Name, *Fault));
			return;
		}
		if (!FBlueprintEditorUtils::AddLocalVariable(
				&Blueprint, &Graph, FName(*Record.Name), *Record.Type, Record.DefaultValue.Get(FString())))
		{
			Fail(FString::Printf(
				TEXT("Failed to create local variable '%s' (a parameter of the function has this name)"),
				*Record.Name));
			return;
		}
		++Outcome.Added;
	}

	void Modify(const FBPLocalVariableModification& Record)
	{
		FBPVariableDescription* const Variable = Find(Record.Name);
		if (!Variable)
		{
			Fail(FString::Printf(TEXT("Local variable '%s' not found for modification"), *Record.Name));
			return;
		}
		Entry.Modify();
		if (Record.Type)
		{
			// Its gets and sets follow, so that what is linked in this call meets the new type.
			const UClass* const Class = FBlueprintEditorUtils::GetMostUpToDateClass(Blueprint.GeneratedClass);
			FBlueprintEditorUtils::ChangeLocalVariableType(&Blueprint,
				Class ? Class->FindFunctionByName(Graph.GetFName()) : nullptr, Variable->VarName, *Record.Type);
		}
		if (Record.DefaultValue)
		{
			Variable->DefaultValue = *Record.DefaultValue;
		}
		++Outcome.Modified;
	}

	void Remove(const FBPLocalVariableModification& Record)
	{
		const FBPVariableDescription* const Variable = Find(Record.Name);
		if (!Variable)
		{
			Fail(FString::Printf(TEXT("Local variable '%s' not found for removal"), *Record.Name));
			return;
		}
		Entry.Modify();
		const FName Name = Variable->VarName;
		Entry.LocalVariables.RemoveAll(
			[Name](const FBPVariableDescription& Candidate) { return Candidate.VarName == Name; });
		++Outcome.Removed;
	}

	UBlueprint& Blueprint;
	UEdGraph& Graph;
	UK2Node_FunctionEntry& Entry;
	FBPLocalVariableOutcome& Outcome;
	Morvane::FToolResult& Result;
};
} // namespace LocalVariables

bool FBlueprintLocalVariableUtils::Parse(
	const TSharedPtr<FJsonValue>& Value, TArray<FBPLocalVariableModification>& OutRecords, Morvane::FToolResult& Result)
{
	for (const LocalVariables::FDefinition& Definition : LocalVariables::CollectDefinitions(Value))
	{
		FBPLocalVariableModification Record;
		if (!LocalVariables::ParseOne(Definition, Record, Result))
		{
			return false;
		}
		OutRecords.Add(MoveTemp(Record));
	}
	return true;
}

bool FBlueprintLocalVariableUtils::NormalizeType(const FJsonObject& Type, FEdGraphPinType& OutPinType)
{
	return FAssetOperationBase::ConvertJsonToEdGraphPinType(Type, OutPinType);
}

bool FBlueprintLocalVariableUtils::Apply(UBlueprint* Blueprint, UEdGraph* Graph,
	const TArray<FBPLocalVariableModification>& Records, FBPLocalVariableOutcome& OutOutcome,
	Morvane::FToolResult& Result)
{
	if (!Blueprint || !Graph)
	{
		Result.AddErrorMessage(TEXT("Cannot modify local variables without a valid Blueprint and graph"));
		return false;
	}
	UK2Node_FunctionEntry* const Entry = FBlueprintGraphUtils::FindFunctionEntry(Graph);
	if (!Entry || FBlueprintGraphUtils::IsDelegateSignatureGraph(Blueprint, Graph))
	{
		Result.AddWarningMessage(TEXT("Local variables are only supported in function graphs"));
		return true;
	}

	LocalVariables::FApplyRun Run(*Blueprint, *Graph, *Entry, OutOutcome, Result);
	for (const FBPLocalVariableModification& Record : Records)
	{
		Run.Apply(Record);
	}
	if (OutOutcome.Added + OutOutcome.Modified + OutOutcome.Removed > 0)
	{
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	}
	return true;
}

void FBlueprintLocalVariableUtils::WriteTelemetry(const FBPLocalVariableOutcome& Outcome, Morvane::FToolResult& Result)
{
	if (!Outcome.HasAny())
	{
		return;
	}
	GraphTelemetry::SetNumber(Result, TEXT("local_variables_added"), Outcome.Added);
	GraphTelemetry::SetNumber(Result, TEXT("local_variables_modified"), Outcome.Modified);
	GraphTelemetry::SetNumber(Result, TEXT("local_variables_removed"), Outcome.Removed);
	if (!Outcome.Failures.IsEmpty())
	{
		GraphTelemetry::Ensure(Result)->SetArrayField(TEXT("local_variable_failures"), ToJsonTexts(Outcome.Failures));
	}
}
