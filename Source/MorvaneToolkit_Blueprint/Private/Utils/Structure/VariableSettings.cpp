#include "Utils/Structure/VariableSettings.h"

#include "BlueprintCreateModifyRemoveUtils.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "JsonReading.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResult.h"
#include "UObject/ObjectMacros.h"
#include "Utils/Structure/RepNotifyFunctions.h"
#include "Utils/Structure/StructureEntry.h"

namespace VariableSettings
{
namespace
{
/** Valid until a variable is added or removed. */
FBPVariableDescription& Describe(UBlueprint& Blueprint, FName Name)
{
	return Blueprint.NewVariables[FBlueprintEditorUtils::FindNewVariableIndex(&Blueprint, Name)];
}

FJsonObject ReadSettings(const FStructureEntry& Entry)
{
	FJsonObject Settings;
	for (const TCHAR* const Key : {TEXT("category"), TEXT("tooltip")})
	{
		if (const TOptional<FString> Text = Entry.ReadString(Key))
		{
			Settings.SetStringField(Key, *Text);
		}
	}
	for (const TCHAR* const Key : {TEXT("instance_editable"), TEXT("expose_on_spawn"), TEXT("blueprint_read_only"),
			 TEXT("save_game"), TEXT("config"), TEXT("private")})
	{
		if (const TOptional<bool> bValue = Entry.ReadBool(Key))
		{
			Settings.SetBoolField(Key, *bValue);
		}
	}
	return Settings;
}

/** A private variable shares its flag with those that are not edited on instances: what was asked for in so many words
 * holds, and making a variable public does not open it to instances. */
void SettleInstanceEditing(UBlueprint& Blueprint, FName Name, const FJsonObject& Settings, bool bWasClassOnly)
{
	bool bValue = false;
	if (MorvaneJson::TryGetBoolField(Settings, TEXT("instance_editable"), bValue))
	{
		FBlueprintEditorUtils::SetBlueprintOnlyEditableFlag(&Blueprint, Name, !bValue);
	}
	else if (MorvaneJson::TryGetBoolField(Settings, TEXT("private"), bValue) && !bValue)
	{
		FBlueprintEditorUtils::SetBlueprintOnlyEditableFlag(&Blueprint, Name, bWasClassOnly);
	}
}

void ApplyEngineSettings(UBlueprint& Blueprint, FName Name, const FJsonObject& Settings)
{
	bool bValue = false;
	const auto SetMetaData = [&](const TCHAR* Key, FName MetaKey)
	{
		if (MorvaneJson::TryGetBoolField(Settings, Key, bValue) && bValue)
		{
			FBlueprintEditorUtils::SetBlueprintVariableMetaData(&Blueprint, Name, nullptr, MetaKey, TEXT("true"));
		}
		else if (Settings.HasField(Key))
		{
			FBlueprintEditorUtils::RemoveBlueprintVariableMetaData(&Blueprint, Name, nullptr, MetaKey);
		}
	};
	SetMetaData(TEXT("expose_on_spawn"), FBlueprintMetadata::MD_ExposeOnSpawn);
	SetMetaData(TEXT("private"), FBlueprintMetadata::MD_Private);
	SetMetaData(TEXT("config"), TEXT("Config"));
	if (MorvaneJson::TryGetBoolField(Settings, TEXT("save_game"), bValue))
	{
		FBlueprintEditorUtils::SetVariableSaveGameFlag(&Blueprint, Name, bValue);
	}
	if (MorvaneJson::TryGetBoolField(Settings, TEXT("blueprint_read_only"), bValue))
	{
		FBlueprintEditorUtils::SetBlueprintPropertyReadOnlyFlag(&Blueprint, Name, bValue);
	}
}

/** The asked mode, of the words that there are; any other word is told, and stands for none. */
struct FMode
{
	FMode(const FString& Word, FName Variable, Morvane::FToolResult& Result)
		: bNotifies(Word.Equals(TEXT("rep_notify"), ESearchCase::IgnoreCase))
		, bReplicates(bNotifies || Word.Equals(TEXT("replicated"), ESearchCase::IgnoreCase))
	{
		if (!bReplicates && !Word.IsEmpty() && !Word.Equals(TEXT("none"), ESearchCase::IgnoreCase))
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT(
					"'%s', given for 'replication' of variable '%s', is not replicated, rep_notify or none; it is not replicated"),
				*Word, *Variable.ToString()));
		}
	}

	const bool bNotifies;
	const bool bReplicates;
};

/** False after a warning when the variable cannot be replicated so. */
bool IsPossible(UBlueprint& Blueprint, FName Name, const FMode& Mode, Morvane::FToolResult& Result)
{
	const FEdGraphPinType& Type = Describe(Blueprint, Name).VarType;
	if (Mode.bReplicates && (Type.IsSet() || Type.IsMap()))
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Variable '%s' cannot be replicated: sets and maps are not"), *Name.ToString()));
		return false;
	}
	const FString Obstacle = Mode.bNotifies
		? RepNotifyFunctions::FindObstacle(Blueprint, RepNotifyFunctions::MakeName(Name))
		: FString();
	if (!Obstacle.IsEmpty())
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("Variable '%s' cannot have a notify function of its name: %s"), *Name.ToString(), *Obstacle));
	}
	return Obstacle.IsEmpty();
}
} // namespace

void Apply(UBlueprint& Blueprint, FName Name, const FStructureEntry& Entry, bool bIsNew)
{
	const FJsonObject Settings = ReadSettings(Entry);
	if (Settings.Values.IsEmpty())
	{
		return;
	}
	const bool bWasClassOnly = (Describe(Blueprint, Name).PropertyFlags & CPF_DisableEditOnInstance) != 0;
	FBlueprintCreateModifyRemoveUtils::ApplyVariableProperties(&Describe(Blueprint, Name), Settings, bIsNew);
	SettleInstanceEditing(Blueprint, Name, Settings, bWasClassOnly);
	ApplyEngineSettings(Blueprint, Name, Settings);
}

bool ApplyReplication(UBlueprint& Blueprint, FName Name, const FStructureEntry& Entry, FName NotifyBefore,
	TArray<FString>& OutFunctions, Morvane::FToolResult& Result)
{
	if (const TOptional<FString> Word = Entry.ReadString(TEXT("replication")))
	{
		const FMode Mode(*Word, Name, Result);
		if (!IsPossible(Blueprint, Name, Mode, Result))
		{
			return false;
		}
		FJsonObject Only;
		Only.SetStringField(TEXT("replication"), *Word);
		FBlueprintCreateModifyRemoveUtils::ApplyVariableProperties(&Describe(Blueprint, Name), Only, false);
		if (Mode.bNotifies && RepNotifyFunctions::Ensure(Blueprint, RepNotifyFunctions::MakeName(Name)))
		{
			OutFunctions.Add(RepNotifyFunctions::MakeName(Name).ToString());
		}
	}
	const FName Function = RepNotifyFunctions::MakeName(Name);
	const bool bNotifiesStill = Describe(Blueprint, Name).RepNotifyFunc == Function;
	if (!bNotifiesStill && NotifyBefore == Function
		&& RepNotifyFunctions::RemoveUnlessUsed(Blueprint, Function, Result))
	{
		OutFunctions.Add(Function.ToString());
	}
	return true;
}
} // namespace VariableSettings
