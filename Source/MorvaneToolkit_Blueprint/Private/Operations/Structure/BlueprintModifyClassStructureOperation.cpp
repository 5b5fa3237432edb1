#include "BlueprintModifyClassStructureOperation.h"

#include "AssetOperationBase.h"
#include "BlueprintCreateModifyRemoveUtils.h"
#include "Dom/JsonObject.h"
#include "Engine/Blueprint.h"
#include "HAL/PlatformTime.h"
#include "JsonReading.h"
#include "Operations/Frame/OperationFrame.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "Utils/Request/RequiredField.h"
#include "Utils/Structure/StructureEntry.h"

namespace ClassStructure
{
using namespace Morvane;
using FValues = TArray<TSharedPtr<FJsonValue>>;
using FUtils = FBlueprintCreateModifyRemoveUtils;

/** One kind of member: the field that holds its entries, what is done with them, and what a call for it alone says. */
struct FKind
{
	const TCHAR* Field;
	/** Null where the field is an object keyed by name. */
	bool (*RunList)(UBlueprint*, const FValues&, FToolResult&);
	const TCHAR* Done;
};

constexpr FKind Variables{TEXT("variables"), nullptr, TEXT("Successfully modified variables in Blueprint: %s")};
constexpr FKind Components{TEXT("components"), &FUtils::CreateModifyRemoveBlueprintComponent,
	TEXT("Successfully modified components in Blueprint: %s")};
constexpr FKind Interfaces{TEXT("interfaces"), &FUtils::CreateModifyRemoveBlueprintInterface,
	TEXT("Successfully modified interfaces in Blueprint: %s")};
constexpr FKind Timelines{TEXT("timelines"), &FUtils::CreateModifyRemoveBlueprintTimeline,
	TEXT("Successfully created timelines in Blueprint: %s")};
constexpr FKind Delegates{TEXT("delegates"), &FUtils::CreateModifyRemoveBlueprintDelegate,
	TEXT("Successfully created delegates in Blueprint: %s")};

/** Components may hold what variables describe, and delegates come last, as their names give way to all others. */
constexpr const FKind* InOrder[] = {&Variables, &Components, &Interfaces, &Timelines, &Delegates};

/** Null after an error in the result. */
static UBlueprint* Begin(const FJsonObject& Args, FToolResult& Result)
{
	FString Path;
	if (!RequireStringField(Args, ToolInfo::FieldName_Path, Path, Result))
	{
		return nullptr;
	}
	UBlueprint* const Blueprint = OperationFrame::LoadForEdit(Path, Result);
	if (Blueprint && !Blueprint->GeneratedClass.Get())
	{
		Result.AddErrorMessage(TEXT("Blueprint doesn't have a valid generated class."));
		return nullptr;
	}
	return Blueprint;
}

/** A list's own elements; an entry alone as a list of one. Unset for anything else. */
static TOptional<FValues> ReadList(const TSharedPtr<FJsonValue>& Value)
{
	TSharedPtr<FJsonObject> Single;
	FString Name;
	if (Value->Type == EJson::Array)
	{
		return MorvaneJson::AsArray(*Value);
	}
	return FStructureEntry::FindNamed(Value, Single, Name) ? TOptional<FValues>(FValues{Value}) : TOptional<FValues>();
}

/** Entries by name as a list of those that name themselves. Unset when one of them is no object. */
static TOptional<FValues> ReadMembers(const FJsonObject& ByName)
{
	FValues Entries;
	for (const auto& Member : ByName.Values)
	{
		const TSharedPtr<FJsonObject>& Entry = MorvaneJson::AsObject(*Member.Value);
		if (!Entry)
		{
			return {};
		}
		const TSharedRef<FJsonObject> Named = MakeShared<FJsonObject>(*Entry);
		Named->SetStringField(TEXT("name"), FString(Member.Key));
		Entries.Add(MakeShared<FJsonValueObject>(Named));
	}
	return Entries;
}

/** What a list says of variables, by name: as many rounds as a name comes up again, since a later entry builds on the
 * earlier one. False after warnings for entries without a name. */
static bool ReadRounds(const FValues& List, TArray<TSharedPtr<FJsonObject>>& OutRounds, FToolResult& Result)
{
	bool bAllNamed = true;
	TSharedPtr<FJsonObject> Round = MakeShared<FJsonObject>();
	TSet<FName> Names;
	for (const TSharedPtr<FJsonValue>& Element : List)
	{
		TSharedPtr<FJsonObject> Named;
		FString Name;
		if (!FStructureEntry::FindNamed(Element, Named, Name))
		{
			Result.AddWarningMessage(TEXT("Variable entry missing 'name' field."));
			bAllNamed = false;
			continue;
		}
		if (Names.Contains(FName(*Name)))
		{
			OutRounds.Add(Round);
			Round = MakeShared<FJsonObject>();
			Names.Empty();
		}
		const TSharedPtr<FJsonObject> Entry = MakeShared<FJsonObject>(*Named);
		Entry->RemoveField(TEXT("name"));
		Round->SetObjectField(Name, Entry);
		Names.Add(FName(*Name));
	}
	OutRounds.Add(Round);
	return bAllNamed;
}

/** Variables come by name; a list of entries that name themselves is taken too. */
static bool RunVariables(UBlueprint& Blueprint, const TSharedPtr<FJsonValue>& Value, FToolResult& Result)
{
	TArray<TSharedPtr<FJsonObject>> Rounds;
	bool bAllDone = true;
	if (const TOptional<FValues> List = ReadList(Value))
	{
		bAllDone = ReadRounds(*List, Rounds, Result);
	}
	else if (const TSharedPtr<FJsonObject>& ByName = MorvaneJson::AsObject(*Value))
	{
		Rounds.Add(ByName);
	}
	else
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("Field '%s' must be an object keyed by name"), ClassStructure::Variables.Field));
		return false;
	}
	for (const TSharedPtr<FJsonObject>& Round : Rounds)
	{
		bAllDone &= FUtils::CreateModifyRemoveBlueprintVariables(&Blueprint, *Round, Result);
	}
	return bAllDone;
}

/** The other kinds come as a list; entries by name are taken too. */
static bool RunList(const FKind& Kind, UBlueprint& Blueprint, const TSharedPtr<FJsonValue>& Value, FToolResult& Result)
{
	TOptional<FValues> Entries = ReadList(Value);
	const TSharedPtr<FJsonObject>& ByName = MorvaneJson::AsObject(*Value);
	if (!Entries && ByName)
	{
		Entries = ReadMembers(*ByName);
	}
	if (!Entries)
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Field '%s' must be an array of objects with a name"), Kind.Field));
		return false;
	}
	return Kind.RunList(&Blueprint, *Entries, Result);
}

/** False when the routine says so, or after an error for a field that holds something else. */
static bool Run(const FKind& Kind, UBlueprint& Blueprint, const TSharedPtr<FJsonValue>& Value, FToolResult& Result)
{
	return Kind.RunList ? RunList(Kind, Blueprint, Value, Result) : RunVariables(Blueprint, Value, Result);
}

static TSharedPtr<FJsonValue> FindEntries(const FKind& Kind, const FJsonObject& Args)
{
	const TSharedPtr<FJsonValue> Value = Args.TryGetField(Kind.Field);
	return Value && !Value->IsNull() ? Value : nullptr;
}

/** A call for one kind alone. */
static void ExecuteKind(const FKind& Kind, const FJsonObject& Args, FToolResult& Result)
{
	UBlueprint* const Blueprint = Begin(Args, Result);
	if (!Blueprint)
	{
		return;
	}
	const TSharedPtr<FJsonValue> Entries = FindEntries(Kind, Args);
	if (!Entries)
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Missing required field '%s'"), Kind.Field));
		return;
	}
	if (Run(Kind, *Blueprint, Entries, Result) && FAssetOperationBase::SaveAsset(Blueprint, Result))
	{
		Result.AddSuccessMessage(
			FString::Printf(Kind.Done, *FAssetOperationBase::GetAssetNameFromPath(Blueprint->GetPathName())));
		Result.FinalizeModifications();
	}
}

static void SetDuration(double Start, FToolResult& Result)
{
	const TSharedPtr<FJsonObject> Telemetry = MakeShared<FJsonObject>();
	Telemetry->SetNumberField(TEXT("duration_ms"), (FPlatformTime::Seconds() - Start) * 1000.0);
	Result.SetData(TEXT("telemetry"), Telemetry);
}

/** A partly done batch is saved: what could be done stands, and the messages tell the rest. */
static void Finish(UBlueprint& Blueprint, bool bAllDone, FToolResult& Result)
{
	const FString Name = FAssetOperationBase::GetAssetNameFromPath(Blueprint.GetPathName());
	const bool bSaved = FAssetOperationBase::SaveAsset(&Blueprint, Result);
	if (bAllDone && bSaved)
	{
		Result.AddSuccessMessage(
			FString::Printf(TEXT("Successfully modified class structure in Blueprint: %s"), *Name));
	}
	else if (!bAllDone)
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Some class structure modifications failed in Blueprint: %s"), *Name));
	}
	Result.FinalizeModifications();
}
} // namespace ClassStructure

void FBlueprintVariableCreateModifyRemoveOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ClassStructure::ExecuteKind(ClassStructure::Variables, Args, Result);
}

void FBlueprintComponentCreateModifyRemoveOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ClassStructure::ExecuteKind(ClassStructure::Components, Args, Result);
}

void FBlueprintInterfaceCreateModifyRemoveOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ClassStructure::ExecuteKind(ClassStructure::Interfaces, Args, Result);
}

void FBlueprintTimelineCreateModifyRemoveOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ClassStructure::ExecuteKind(ClassStructure::Timelines, Args, Result);
}

void FBlueprintDelegateCreateModifyRemoveOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	ClassStructure::ExecuteKind(ClassStructure::Delegates, Args, Result);
}

void FBlueprintModifyClassStructureOperation::Execute(const FJsonObject& Args, Morvane::FToolResult& Result)
{
	using namespace ClassStructure;
	const double Start = FPlatformTime::Seconds();
	UBlueprint* const Blueprint = Begin(Args, Result);
	if (!Blueprint)
	{
		return;
	}
	bool bAnyGiven = false;
	bool bAllDone = true;
	for (const FKind* const Kind : InOrder)
	{
		if (const TSharedPtr<FJsonValue> Entries = FindEntries(*Kind, Args))
		{
			bAnyGiven = true;
			bAllDone &= Run(*Kind, *Blueprint, Entries, Result);
		}
	}
	FStructureEntry(Args, TEXT("the call for"), Blueprint->GetName(), Result)
		.WarnOfOtherKeys({Morvane::ToolInfo::FieldName_Path, Variables.Field, Components.Field, Interfaces.Field,
			Timelines.Field, Delegates.Field});
	if (!bAnyGiven)
	{
		Result.AddErrorMessage(
			TEXT("At least one of variables, components, interfaces, timelines, or delegates must be provided"));
		return;
	}
	SetDuration(Start, Result);
	Finish(*Blueprint, bAllDone, Result);
}
