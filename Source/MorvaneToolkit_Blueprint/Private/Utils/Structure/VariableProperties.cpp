// What a request says of a variable beyond its type, written onto its description.

#include "AssetOperationBase.h"
#include "BlueprintCreateModifyRemoveUtils.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "JsonReading.h"
#include "UObject/ObjectMacros.h"
#include "Utils/Structure/RepNotifyFunctions.h"
#include "Utils/Structure/StructureEntry.h"
#include "Utils/Structure/VariableDefaults.h"

namespace VariableProperties
{
constexpr uint64 NotifyFlags = CPF_Net | CPF_RepNotify;
static_assert(NotifyFlags == 0x100000020);

struct FFlagKey
{
	const TCHAR* Key;
	uint64 Flag;
};

/** In the order in which they are written: a private variable is no business of instances, whatever was said before. */
constexpr FFlagKey FlagKeys[] = {
	{TEXT("expose_on_spawn"), 0x1000000000000},
	{TEXT("blueprint_read_only"), CPF_BlueprintReadOnly},
	{TEXT("save_game"), 0x1000000},
	{TEXT("config"), 0x4000},
	{TEXT("private"), 0x10000},
};

/** True sets; false clears what may have been set, so never on a new variable. */
static void SetFlag(FBPVariableDescription& Variable, uint64 Flag, bool bValue, bool bIsNew)
{
	if (bValue)
	{
		Variable.PropertyFlags |= Flag;
	}
	else if (!bIsNew)
	{
		Variable.PropertyFlags &= ~Flag;
	}
}

static void ApplyReplication(FBPVariableDescription& Variable, const FString& Word)
{
	Variable.PropertyFlags &= ~NotifyFlags;
	Variable.RepNotifyFunc = NAME_None;
	if (Word.Equals(TEXT("replicated"), ESearchCase::IgnoreCase))
	{
		Variable.PropertyFlags |= CPF_Net;
	}
	else if (Word.Equals(TEXT("rep_notify"), ESearchCase::IgnoreCase))
	{
		Variable.PropertyFlags |= NotifyFlags;
		Variable.RepNotifyFunc = RepNotifyFunctions::MakeName(Variable.VarName);
	}
}

static void ApplyTexts(FBPVariableDescription& Variable, const FJsonObject& Properties)
{
	FString Text;
	if (MorvaneJson::TryGetStringField(Properties, TEXT("category"), Text))
	{
		Variable.Category = Text.IsEmpty() ? UEdGraphSchema_K2::VR_DefaultCategory : FText::FromString(Text);
	}
	if (MorvaneJson::TryGetStringField(Properties, TEXT("tooltip"), Text))
	{
		if (Text.IsEmpty())
		{
			Variable.RemoveMetaData(FBlueprintMetadata::MD_Tooltip);
		}
		else
		{
			Variable.SetMetaData(FBlueprintMetadata::MD_Tooltip, Text);
		}
	}
	if (MorvaneJson::TryGetStringField(Properties, TEXT("replication"), Text))
	{
		ApplyReplication(Variable, Text);
	}
}
} // namespace VariableProperties

void FBlueprintCreateModifyRemoveUtils::ApplyVariableProperties(
	FBPVariableDescription* Variable, const FJsonObject& Properties, bool bIsNew)
{
	if (!Variable)
	{
		return;
	}
	const TSharedPtr<FJsonObject>* Type = nullptr;
	if (Properties.TryGetObjectField(TEXT("type"), Type))
	{
		FAssetOperationBase::ConvertJsonToEdGraphPinType(*Type, Variable->VarType);
	}
	if (const TSharedPtr<FJsonValue> Value = Properties.TryGetField(TEXT("default_variable_value")))
	{
		Variable->DefaultValue = VariableDefaults::ToText(Value, Variable->VarType);
	}
	VariableProperties::ApplyTexts(*Variable, Properties);
	const auto ReadBool = [&Properties](const TCHAR* Key, bool& bOutValue)
	{
		const TSharedPtr<FJsonValue> Value = Properties.TryGetField(Key);
		return Value && StructureValues::ToBool(Value, bOutValue);
	};
	bool bValue = false;
	if (ReadBool(TEXT("instance_editable"), bValue))
	{
		// The flag says the opposite of the key.
		Variable->PropertyFlags = bValue ? Variable->PropertyFlags & ~static_cast<uint64>(CPF_DisableEditOnInstance)
										 : Variable->PropertyFlags | CPF_DisableEditOnInstance;
	}
	for (const VariableProperties::FFlagKey& Row : VariableProperties::FlagKeys)
	{
		if (ReadBool(Row.Key, bValue))
		{
			VariableProperties::SetFlag(*Variable, Row.Flag, bValue, bIsNew);
		}
	}
}
