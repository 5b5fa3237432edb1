// Member variables of a Blueprint: one batch, keyed by name. First what is added and modified, then what is removed,
// then one compile.

#include "BlueprintCreateModifyRemoveUtils.h"
#include "BlueprintUtils.h"
#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Report/TrackedNames.h"
#include "Utils/Structure/LostPins.h"
#include "Utils/Structure/MemberNodes.h"
#include "Utils/Structure/RepNotifyFunctions.h"
#include "Utils/Structure/StructureBatch.h"
#include "Utils/Structure/VariableDefaults.h"
#include "Utils/Structure/VariableNames.h"
#include "Utils/Structure/VariableSettings.h"
#include "Utils/Structure/VariableTypes.h"
#include "Utils/Structure/VariableUses.h"

namespace BlueprintVariables
{
using namespace Morvane;

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
		// Without a word an entry changes what is there, unlike in the other batches.
		const FStructureKind Kind{TEXT("variable"),
			{TEXT("action"), TEXT("type"), TEXT("default_variable_value"), TEXT("category"), TEXT("tooltip"),
				TEXT("replication"), TEXT("instance_editable"), TEXT("expose_on_spawn"), TEXT("blueprint_read_only"),
				TEXT("save_game"), TEXT("config"), TEXT("private")},
			TEXT(""), EBPNodeAction::Modify};
		const bool bAllTaken = StructureBatch::Walk(
			Variables, Kind, Result,
			[this](const FStructureEntry& Entry, bool bAdd) { AddOrModify(Entry.Name, Entry, bAdd); },
			[this](const FString& Name) { Remove(Name); });
		Finish();
		return bAllTaken && bAllDone;
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

	void Add(const FString& Name, const FStructureEntry& Entry)
	{
		if (!Entry.Has(TEXT("type")))
		{
			Refuse(FString::Printf(TEXT("Variable '%s' with Add action is missing Type information"), *Name));
			return;
		}
		FEdGraphPinType Type;
		FString Fault;
		if (!VariableTypes::Read(Blueprint, Name, Entry, Type, Fault))
		{
			Refuse(Fault);
			return;
		}
		if (!FVariableNames::IsFit(Name, Result))
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
		bAllDone &= VariableSettings::ApplyReplication(
			Blueprint, Name, Entry, Before.RepNotifyFunc, ChangedFunctions, Result);
		VariableSettings::Apply(Blueprint, Name, Entry, bIsNew);
		const TSharedPtr<FJsonValue> Value = Entry.Json.TryGetField(TEXT("default_variable_value"));
		if (Value && !VariableDefaults::Apply(Blueprint, Describe(Name), Value, Result))
		{
			bAllDone = false;
		}
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
		FString Fault;
		const FString Text = Name.ToString();
		if (!VariableTypes::Read(Blueprint, Text, Entry, Type, Fault))
		{
			Refuse(Fault);
			return;
		}
		if (Describe(Name).VarType == Type)
		{
			return;
		}
		if (VariableTypes::IsDelegate(Describe(Name).VarType))
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
		const int32 NumKnown = (Value ? 1 : 0) + (Entry.Json.HasField(TEXT("action")) ? 1 : 0);
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
		if (VariableTypes::IsDelegate(Describe(Member.Name).VarType))
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
		Names.Remove(Member.Name);
		Gone.Add(Member.Name);
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
		MemberNodes::WarnOfNodesElsewhere(Blueprint, Gone, Result);
		FBlueprintUtils::CompileBlueprint(&Blueprint, false);
		const FString Path = Blueprint.GetPathName();
		TrackNames(ToolInfo::ToolName_ReadBlueprintVariable, Path, ToolInfo::FieldName_VariableName, Changed, Result);
		TrackNames(
			ToolInfo::ToolName_ReadBlueprintFunction, Path, ToolInfo::FieldName_FunctionName, ChangedFunctions, Result);
	}

	UBlueprint& Blueprint;
	FToolResult& Result;
	FVariableNames Names;
	TOptional<FVariableUses> Uses;
	TSet<FName> Gone;
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
