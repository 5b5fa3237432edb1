// Member variables of a Blueprint: one batch, keyed by name. First what is added and modified, then what is removed,
// then one compile.

#include "AssetOperationBase.h"
#include "BlueprintCreateModifyRemoveUtils.h"
#include "BlueprintUtils.h"
#include "Components/Widget.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Engine/SimpleConstructionScript.h"
#include "JsonReading.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Report/TrackedNames.h"
#include "Utils/Structure/LostPins.h"
#include "Utils/Structure/RepNotifyFunctions.h"
#include "Utils/Structure/StructureEntry.h"
#include "Utils/Structure/StructureNames.h"
#include "Utils/Structure/VariableDefaults.h"
#include "Utils/Structure/VariableUses.h"

namespace BlueprintVariables
{
using namespace Morvane;

/** What a name means in a Blueprint. */
struct FMember
{
	/** The variable's own spelling; of a member that is none, the property's. */
	FName Name;
	bool bOwn = false;
	/** Null for an own variable, which the class may not have yet. */
	const FProperty* Property = nullptr;

	bool Exists() const { return bOwn || Property; }
};

/** The taken names of one Blueprint, gathered once, and kept up with what the batch adds. */
class FMemberNames
{
public:
	explicit FMemberNames(UBlueprint& InBlueprint)
		: Blueprint(InBlueprint)
	{
		FBlueprintEditorUtils::EnsureSkeletonIsUpToDate(&Blueprint);
		for (TFieldIterator<FProperty> It(Blueprint.GeneratedClass.Get(), EFieldIteratorFlags::IncludeSuper); It; ++It)
		{
			Add(It->GetFName());
		}
		FBlueprintEditorUtils::GetFunctionNameList(&Blueprint, Taken);
		FBlueprintEditorUtils::GetAllGraphNames(&Blueprint, Taken);
	}

	FMember Find(const FString& Name) const
	{
		if (const int32 Index = FindOwn(FName(*Name)); Index != INDEX_NONE)
		{
			return {Blueprint.NewVariables[Index].VarName, true, nullptr};
		}
		const FName* const Known = BySqueezedName.Find(Squeeze(Name));
		if (!Known)
		{
			return {};
		}
		if (const int32 Index = FindOwn(*Known); Index != INDEX_NONE)
		{
			return {Blueprint.NewVariables[Index].VarName, true, nullptr};
		}
		return {*Known, false, Blueprint.GeneratedClass.Get()->FindPropertyByName(*Known)};
	}

	void Add(FName Name)
	{
		const FString Squeezed = Squeeze(Name.ToString());
		if (!BySqueezedName.Contains(Squeezed))
		{
			BySqueezedName.Add(Squeezed, Name);
		}
	}

	/** Functions and graphs may have the name that is free among the variables. */
	FName MakeFree(const FString& Name) const
	{
		const FName Wanted(*Name);
		const bool bTaken = Taken.Contains(Wanted) || StaticFindObjectFast(nullptr, &Blueprint, Wanted);
		return bTaken ? FBlueprintEditorUtils::FindUniqueKismetName(&Blueprint, Name) : Wanted;
	}

private:
	static FString Squeeze(const FString& Name) { return Name.Replace(TEXT(" "), TEXT("")); }
	int32 FindOwn(FName Name) const { return FBlueprintEditorUtils::FindNewVariableIndex(&Blueprint, Name); }

	UBlueprint& Blueprint;
	/** Keys ignore case. */
	TMap<FString, FName> BySqueezedName;
	TSet<FName> Taken;
};

/** The type under "type", which may be a category word alone. */
static bool ReadType(const FJsonObject& Json, FEdGraphPinType& OutType)
{
	const TSharedPtr<FJsonObject>* Object = nullptr;
	FString Word;
	if (MorvaneJson::TryGetStringField(Json, TEXT("type"), Word))
	{
		FJsonObject Short;
		Short.SetStringField(TEXT("category"), Word);
		return FAssetOperationBase::ConvertJsonToEdGraphPinType(Short, OutType);
	}
	return Json.TryGetObjectField(TEXT("type"), Object)
		&& FAssetOperationBase::ConvertJsonToEdGraphPinType(*Object, OutType);
}

/** Keys of sets and maps are looked up by hash, which these have none of. */
static bool CanBeKey(const FEdGraphPinType& Type)
{
	return Type.PinCategory != UEdGraphSchema_K2::PC_Boolean && Type.PinCategory != UEdGraphSchema_K2::PC_Text;
}

static bool IsWidgetType(const FEdGraphPinType& Type)
{
	const UClass* const Class = Cast<UClass>(Type.PinSubCategoryObject.Get());
	return Type.PinCategory == UEdGraphSchema_K2::PC_Object && Class && Class->IsChildOf(UWidget::StaticClass());
}

static bool IsDelegate(const FEdGraphPinType& Type)
{
	return Type.PinCategory == UEdGraphSchema_K2::PC_Delegate || Type.PinCategory == UEdGraphSchema_K2::PC_MCDelegate;
}

/** To the letter: another case of a tooltip is another tooltip. */
static bool IsSameMetaData(const TArray<FBPVariableMetaDataEntry>& Left, const TArray<FBPVariableMetaDataEntry>& Right)
{
	bool bSame = Left.Num() == Right.Num();
	for (int32 Index = 0; bSame && Index < Left.Num(); ++Index)
	{
		bSame = Left[Index].DataKey == Right[Index].DataKey
			&& Left[Index].DataValue.Equals(Right[Index].DataValue, ESearchCase::CaseSensitive);
	}
	return bSame;
}

static bool AreSame(const FBPVariableDescription& Left, const FBPVariableDescription& Right)
{
	return Left.VarType == Right.VarType && Left.PropertyFlags == Right.PropertyFlags
		&& Left.RepNotifyFunc == Right.RepNotifyFunc && IsSameMetaData(Left.MetaDataArray, Right.MetaDataArray)
		&& Left.Category.ToString().Equals(Right.Category.ToString(), ESearchCase::CaseSensitive)
		&& Left.DefaultValue.Equals(Right.DefaultValue, ESearchCase::CaseSensitive);
}

class FBatch
{
public:
	FBatch(UBlueprint& InBlueprint, FToolResult& InResult)
		: Blueprint(InBlueprint)
		, Result(InResult)
		, Names(InBlueprint)
	{
	}

	bool Run(const FJsonObject& Variables)
	{
		TArray<FString> Removals;
		for (const auto& Member : Variables.Values)
		{
			const FString Name(Member.Key);
			const TSharedPtr<FJsonObject>* Json = nullptr;
			if (!Member.Value || !Member.Value->TryGetObject(Json) || !Json->IsValid())
			{
				Refuse(FString::Printf(TEXT("Invalid JSON format for variable: %s"), *Name));
				continue;
			}
			const FStructureEntry Entry(**Json, TEXT("variable"), Name, Result);
			// Without a word an entry changes what is there, unlike in the other batches.
			const TOptional<EBPNodeAction> Action = Entry.ReadAction(EBPNodeAction::Modify);
			if (!Action)
			{
				bAllDone = false;
			}
			else if (*Action == EBPNodeAction::Remove)
			{
				Removals.Add(Name);
			}
			else
			{
				AddOrModify(Name, Entry, *Action == EBPNodeAction::Add);
			}
		}
		RemoveAll(Removals);
		Finish();
		return bAllDone;
	}

private:
	/** No batch makes or takes such nodes, so they are gathered once. */
	const FVariableUses& GetUses()
	{
		if (!Uses)
		{
			Uses = FVariableUses(Blueprint);
		}
		return *Uses;
	}

	void Refuse(const FString& Text)
	{
		Result.AddWarningMessage(Text);
		bAllDone = false;
	}

	void AddOrModify(const FString& Name, const FStructureEntry& Entry, bool bAdd)
	{
		const FMember Member = Names.Find(Name);
		if (bAdd && Member.Exists())
		{
			Refuse(FString::Printf(TEXT("Variable '%s' already exists, cannot add"), *Name));
		}
		else if (bAdd)
		{
			Add(Name, Entry);
		}
		else if (Member.bOwn)
		{
			Modify(Member.Name, Entry, false);
		}
		else if (Member.Property)
		{
			ModifyInherited(Name, *Member.Property, Entry);
		}
		else
		{
			Refuse(FString::Printf(TEXT("Variable '%s' not found for modification"), *Name));
		}
	}

	/** What the editor's judge of names says of the name by itself; whether it is taken is another matter. */
	bool IsNameFit(const FString& Name)
	{
		if (Name.IsEmpty())
		{
			Result.AddErrorMessage(TEXT("Variable name cannot be empty"));
			return false;
		}
		const EValidatorResult Verdict = FKismetNameValidator(nullptr).IsValid(Name);
		if (Verdict != EValidatorResult::Ok)
		{
			Result.AddErrorMessage(FString::Printf(
				TEXT("%s for name '%s'"), *INameValidatorInterface::GetErrorString(Name, Verdict), *Name));
		}
		return Verdict == EValidatorResult::Ok;
	}

	/** False after a warning when there can be no variable of the type. */
	bool ReadFitType(const FString& Name, const FStructureEntry& Entry, FEdGraphPinType& OutType)
	{
		const FString Invalid = FString::Printf(TEXT("Invalid variable type for variable: %s"), *Name);
		if (!ReadType(Entry.Json, OutType) || !VariableDefaults::MakeProperty(Blueprint, FName(*Name), OutType))
		{
			Refuse(Invalid);
			return false;
		}
		if (IsWidgetType(OutType))
		{
			Refuse(FString::Printf(TEXT("Variable '%s' is a widget type and must use ui_modify_widget_bp"), *Name));
			return false;
		}
		if (IsDelegate(OutType))
		{
			Refuse(Invalid + TEXT(" (event dispatchers are made with 'delegates')"));
			return false;
		}
		if ((OutType.IsSet() || OutType.IsMap()) && !CanBeKey(OutType))
		{
			Refuse(Invalid + TEXT(" (the elements of a set and the keys of a map cannot be of this type)"));
			return false;
		}
		return true;
	}

	void Add(const FString& Name, const FStructureEntry& Entry)
	{
		if (!Entry.Has(TEXT("type")))
		{
			Refuse(FString::Printf(TEXT("Variable '%s' with Add action is missing Type information"), *Name));
			return;
		}
		FEdGraphPinType Type;
		if (!ReadFitType(Name, Entry, Type))
		{
			return;
		}
		if (!IsNameFit(Name))
		{
			bAllDone = false;
			return;
		}
		const FName FreeName = Names.MakeFree(Name);
		if (!FBlueprintEditorUtils::AddMemberVariable(&Blueprint, FreeName, Type))
		{
			Refuse(FString::Printf(TEXT("Failed to create variable: %s"), *Name));
			return;
		}
		Names.Add(FreeName);
		Result.AddSuccessMessage(FString::Printf(TEXT("Created new variable: %s"), *FreeName.ToString()));
		if (FreeName != FName(*Name))
		{
			Result.AddWarningMessage(
				FString::Printf(TEXT("The name '%s' is taken by a function or graph, so the variable is named '%s'"),
					*Name, *FreeName.ToString()));
		}
		if (FBlueprintEditorUtils::FindNewVariableIndex(&Blueprint, FreeName) == INDEX_NONE)
		{
			Refuse(FString::Printf(TEXT("Failed to find newly created variable: %s"), *FreeName.ToString()));
			return;
		}
		Modify(FreeName, Entry, true);
	}

	/** Valid until a variable is added or removed. */
	FBPVariableDescription& Describe(FName Name)
	{
		return Blueprint.NewVariables[FBlueprintEditorUtils::FindNewVariableIndex(&Blueprint, Name)];
	}

	void Modify(FName Name, const FStructureEntry& Entry, bool bIsNew)
	{
		const FString Text = Name.ToString();
		const FBPVariableDescription Before = Describe(Name);
		if (!bIsNew && Entry.Has(TEXT("type")))
		{
			Retype(Name, Entry);
		}
		ApplyReplication(Name, Entry, Before.RepNotifyFunc);
		ApplySettings(Name, Entry, bIsNew);
		const TSharedPtr<FJsonValue> Value = Entry.Json.TryGetField(TEXT("default_variable_value"));
		if (Value && !VariableDefaults::Apply(Blueprint, Describe(Name), Value, Result))
		{
			bAllDone = false;
		}
		Entry.WarnOfOtherKeys({TEXT("action"), TEXT("type"), TEXT("default_variable_value"), TEXT("category"),
			TEXT("tooltip"), TEXT("replication"), TEXT("instance_editable"), TEXT("expose_on_spawn"),
			TEXT("blueprint_read_only"), TEXT("save_game"), TEXT("config"), TEXT("private")});
		if (!bIsNew && AreSame(Before, Describe(Name)))
		{
			Result.AddSuccessMessage(FString::Printf(TEXT("No changes made to variable: %s"), *Text));
			return;
		}
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
		Result.AddSuccessMessage(FString::Printf(TEXT("Modified variable: %s"), *Text));
		Changed.Add(Text);
	}

	/** Nodes that get and set the variable follow; what they lose by it is told. */
	void Retype(FName Name, const FStructureEntry& Entry)
	{
		FEdGraphPinType Type;
		const FString Text = Name.ToString();
		if (!ReadFitType(Text, Entry, Type) || Describe(Name).VarType == Type)
		{
			return;
		}
		if (IsDelegate(Describe(Name).VarType))
		{
			Refuse(FString::Printf(TEXT("Variable '%s' is an event dispatcher and keeps its type"), *Text));
			return;
		}
		const FString DefaultBefore = Describe(Name).DefaultValue;
		const FLostPins Lost(GetUses().Find(Name));
		FBlueprintEditorUtils::ChangeMemberVariableType(&Blueprint, Name, Type);
		Lost.TakeOut(FString::Printf(TEXT("Variable '%s' changed its type"), *Text), Result);
		RepNotifyFunctions::FollowType(Blueprint, Describe(Name), Result);
		const bool bDefaultLost = !DefaultBefore.IsEmpty() && Describe(Name).DefaultValue.IsEmpty();
		if (bDefaultLost && !Entry.Has(TEXT("default_variable_value")))
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT("Variable '%s' changed its type: its default value '%s' no longer fits and was removed"), *Text,
				*DefaultBefore));
		}
	}

	/** The notify function keeps step with the mode: it comes with it, and goes with it unless it has been filled. */
	void ApplyReplication(FName Name, const FStructureEntry& Entry, FName NotifyBefore)
	{
		const FName Function = RepNotifyFunctions::MakeName(Name);
		const TOptional<FString> Mode = Entry.ReadString(TEXT("replication"));
		const bool bNotify = Mode && Mode->Equals(TEXT("rep_notify"), ESearchCase::IgnoreCase);
		const bool bReplicated = Mode && Mode->Equals(TEXT("replicated"), ESearchCase::IgnoreCase);
		FBPVariableDescription& Variable = Describe(Name);
		if ((bNotify || bReplicated) && (Variable.VarType.IsSet() || Variable.VarType.IsMap()))
		{
			Refuse(
				FString::Printf(TEXT("Variable '%s' cannot be replicated: sets and maps are not"), *Name.ToString()));
			return;
		}
		FString Reason;
		if (bNotify && !StructureNames::IsObjectName(Function.ToString(), Reason))
		{
			Refuse(FString::Printf(
				TEXT("Variable '%s' cannot have a notify function of its name: %s"), *Name.ToString(), *Reason));
			return;
		}
		if (Mode && !bNotify && !bReplicated && !Mode->IsEmpty()
			&& !Mode->Equals(TEXT("none"), ESearchCase::IgnoreCase))
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT(
					"'%s', given for 'replication' of variable '%s', is not replicated, rep_notify or none; it is not replicated"),
				**Mode, *Name.ToString()));
		}
		if (Mode)
		{
			FJsonObject Only;
			Only.SetStringField(TEXT("replication"), *Mode);
			FBlueprintCreateModifyRemoveUtils::ApplyVariableProperties(&Variable, Only, false);
		}
		// A new type that has no replication takes the function away too.
		const bool bHasNotify = Variable.RepNotifyFunc == Function;
		if (bHasNotify && bNotify && RepNotifyFunctions::Ensure(Blueprint, Function))
		{
			ChangedFunctions.Add(Function.ToString());
		}
		if (!bHasNotify && NotifyBefore == Function
			&& RepNotifyFunctions::RemoveUnlessUsed(Blueprint, Function, Result))
		{
			ChangedFunctions.Add(Function.ToString());
		}
	}

	/** Category, tooltip and flags. What is a flag and metadata is set as both, so that every reader finds the same. */
	void ApplySettings(FName Name, const FStructureEntry& Entry, bool bIsNew)
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
		if (Settings.Values.IsEmpty())
		{
			return;
		}
		const bool bWasClassOnly = (Describe(Name).PropertyFlags & CPF_DisableEditOnInstance) != 0;
		FBlueprintCreateModifyRemoveUtils::ApplyVariableProperties(&Describe(Name), Settings, bIsNew);
		SettleInstanceEditing(Name, Settings, bWasClassOnly);
		ApplyEngineSettings(Name, Settings);
	}

	/** A private variable shares its flag with those that are not edited on instances: what was asked for in so many
	 * words holds, and making a variable public does not open it to instances. */
	void SettleInstanceEditing(FName Name, const FJsonObject& Settings, bool bWasClassOnly)
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

	void ApplyEngineSettings(FName Name, const FJsonObject& Settings)
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

	void ModifyInherited(const FString& Name, const FProperty& Property, const FStructureEntry& Entry)
	{
		if (Property.GetOwnerStruct() == Blueprint.GeneratedClass.Get())
		{
			Refuse(FString::Printf(
				TEXT(
					"'%s' is a component, timeline or widget of this Blueprint and no variable; it is changed as what it is"),
				*Name));
			return;
		}
		const TSharedPtr<FJsonValue> Value = Entry.Json.TryGetField(TEXT("default_variable_value"));
		if (Value)
		{
			if (VariableDefaults::ApplyInherited(Blueprint, Property, Property.GetName(), Value, Result))
			{
				FBlueprintEditorUtils::MarkBlueprintAsModified(&Blueprint);
				Track(Property);
			}
			else
			{
				bAllDone = false;
			}
		}
		const int32 NumKnown = (Value ? 1 : 0) + (Entry.Has(TEXT("action")) ? 1 : 0);
		if (Entry.Json.Values.Num() > NumKnown || !Value)
		{
			Refuse(FString::Printf(
				TEXT("Property '%s' is inherited. Only default values can be modified for inherited properties."),
				*Name));
		}
	}

	/** Reads know the variables of Blueprints alone. */
	void Track(const FProperty& Property)
	{
		if (UBlueprint::GetBlueprintFromClass(Property.GetOwnerClass()))
		{
			Changed.Add(Property.GetName());
		}
	}

	void RemoveAll(const TArray<FString>& Removals)
	{
		for (const FString& Name : Removals)
		{
			Remove(Name);
		}
	}

	void Remove(const FString& Name)
	{
		const FMember Member = Names.Find(Name);
		if (!Member.Exists())
		{
			Refuse(FString::Printf(TEXT("Variable '%s' not found for removal"), *Name));
			return;
		}
		if (!Member.bOwn)
		{
			Refuse(FString::Printf(
				TEXT("Property '%s' is inherited or native and cannot be removed from Blueprint"), *Name));
			return;
		}
		if (IsDelegate(Describe(Member.Name).VarType))
		{
			Refuse(
				FString::Printf(TEXT("Variable '%s' is an event dispatcher; it is removed with 'delegates'"), *Name));
			return;
		}
		const TArray<UEdGraphNode*> Nodes = GetUses().Find(Member.Name);
		if (!Nodes.IsEmpty())
		{
			RefuseRemoval(Name, Nodes);
			return;
		}
		const FName Function = RepNotifyFunctions::MakeName(Member.Name);
		if (RepNotifyFunctions::Remove(Blueprint, Function))
		{
			ChangedFunctions.Add(Function.ToString());
		}
		FBlueprintEditorUtils::RemoveMemberVariable(&Blueprint, Member.Name);
		Result.AddSuccessMessage(FString::Printf(TEXT("Removed variable: %s"), *Name));
		Changed.Add(Name);
	}

	void RefuseRemoval(const FString& Name, const TArray<UEdGraphNode*>& Nodes)
	{
		FString Text = FString::Printf(
			TEXT("Cannot remove variable '%s' because it is being used by %d node(s):"), *Name, Nodes.Num());
		for (const UEdGraphNode* const Node : Nodes)
		{
			Text += TEXT("\n") + FString::Printf(TEXT("  - %s"), *FVariableUses::Describe(*Node));
		}
		Text += TEXT("\nPlease remove all references to this variable before attempting to delete it.");
		Refuse(Text);
	}

	void Finish()
	{
		FBlueprintUtils::CompileBlueprint(&Blueprint, false);
		const FString Path = Blueprint.GetPathName();
		TrackNames(ToolInfo::ToolName_ReadBlueprintVariable, Path, ToolInfo::FieldName_VariableName, Changed, Result);
		TrackNames(
			ToolInfo::ToolName_ReadBlueprintFunction, Path, ToolInfo::FieldName_FunctionName, ChangedFunctions, Result);
	}

	UBlueprint& Blueprint;
	FToolResult& Result;
	FMemberNames Names;
	TOptional<FVariableUses> Uses;
	TArray<FString> Changed;
	TArray<FString> ChangedFunctions;
	bool bAllDone = true;
};
} // namespace BlueprintVariables

bool FBlueprintCreateModifyRemoveUtils::CreateModifyRemoveBlueprintVariables(
	UBlueprint* Blueprint, const FJsonObject& Variables, Morvane::FToolResult& Result)
{
	if (!Blueprint)
	{
		Result.AddErrorMessage(TEXT("Invalid Blueprint provided."));
		return false;
	}
	if (!Blueprint->GeneratedClass.Get())
	{
		Result.AddErrorMessage(TEXT("Blueprint doesn't have a valid generated class."));
		return false;
	}
	if (!Blueprint->SupportsGlobalVariables())
	{
		Result.AddErrorMessage(FString::Printf(TEXT("A Blueprint of the type '%s' cannot have variables: %s"),
			*UBlueprint::GetDisplayNameOfType(Blueprint->BlueprintType).ToString(), *Blueprint->GetName()));
		return false;
	}
	return BlueprintVariables::FBatch(*Blueprint, Result).Run(Variables);
}
