#include "Utils/Request/PopulateRecords.h"

#include "AssetOperationBase.h"
#include "JsonReading.h"
#include "Utils/Request/RecordWords.h"

namespace PopulateRecordsParsing
{
static FBPPinModification ParsePin(const FJsonObject& Json)
{
	FBPPinModification Record;
	FString Action;
	const TSharedPtr<FJsonValue> Value = Json.TryGetField(TEXT("value"));
	RecordWords::ReadValue(Value, Record.Value);
	// Who gives a value and says nothing else wants it set.
	const bool bSetsOnly = Value && !Json.HasField(TEXT("action"));
	const EBPNodeAction Default = bSetsOnly ? EBPNodeAction::Modify : EBPNodeAction::Add;
	RecordWords::ReadString(Json, TEXT("action"), Action);
	Record.Action = RecordWords::ToNodeAction(Action).Get(Default);
	RecordWords::ReadString(Json, TEXT("name"), Record.Name);
	const TSharedPtr<FJsonObject>* Type = nullptr;
	if (Json.TryGetObjectField(TEXT("type"), Type))
	{
		Record.Type = RecordWords::ReadPinTypeWords(**Type);
	}
	return Record;
}

/** Metadata is text, but for keys that are a number or a flag by nature: agents write them as such. */
static TMap<FString, FString> ParseMetadata(const FJsonObject& Json)
{
	TMap<FString, FString> Metadata = RecordWords::ReadStringMap(Json, TEXT("node_metadata"));
	const TSharedPtr<FJsonObject>* Object = nullptr;
	if (Json.TryGetObjectField(TEXT("node_metadata"), Object))
	{
		for (const TCHAR* const Key : {TEXT("minimum_confidence"), TEXT("allow_duplicate"), TEXT("reliable")})
		{
			FString Value;
			if (RecordWords::ReadText((*Object)->TryGetField(Key), Value))
			{
				Metadata.Add(Key, Value);
			}
		}
	}
	return Metadata;
}

static TOptional<FEdGraphPinType> ParseType(const FJsonObject& Json, const TCHAR* Key)
{
	const TSharedPtr<FJsonObject>* Type = nullptr;
	FEdGraphPinType PinType;
	if (Json.TryGetObjectField(Key, Type) && FAssetOperationBase::ConvertJsonToEdGraphPinType(**Type, PinType))
	{
		return PinType;
	}
	return {};
}
} // namespace PopulateRecordsParsing

namespace PopulateRecords
{
using namespace PopulateRecordsParsing;

bool ParseNode(const TSharedPtr<FJsonValue>& Value, FBPNodeModification& OutRecord)
{
	const TSharedPtr<FJsonObject>* Object = nullptr;
	if (!Value || !Value->TryGetObject(Object))
	{
		return false;
	}
	const FJsonObject& Json = **Object;
	FString Action;
	RecordWords::ReadString(Json, TEXT("node_guid"), OutRecord.NodeGuid);
	RecordWords::ReadString(Json, TEXT("action"), Action);
	OutRecord.Action = RecordWords::ToNodeAction(Action).Get(EBPNodeAction::Add);
	RecordWords::ReadString(Json, TEXT("class_name"), OutRecord.ClassName);
	RecordWords::ReadString(Json, TEXT("menu_title"), OutRecord.MenuTitle);
	RecordWords::ReadString(Json, TEXT("target_class"), OutRecord.TargetClass);
	RecordWords::ReadString(Json, TEXT("target_function"), OutRecord.TargetFunction);
	RecordWords::ReadString(Json, TEXT("menu_category"), OutRecord.MenuCategory);
	OutRecord.Metadata = ParseMetadata(Json);
	RecordWords::ReadPosition(Json, OutRecord);

	const TArray<TSharedPtr<FJsonValue>>* Pins = nullptr;
	if (Json.TryGetArrayField(TEXT("pins"), Pins))
	{
		for (const TSharedPtr<FJsonValue>& Pin : *Pins)
		{
			const TSharedPtr<FJsonObject>* PinObject = nullptr;
			if (Pin && Pin->TryGetObject(PinObject))
			{
				OutRecord.Pins.Add(ParsePin(**PinObject));
			}
		}
	}
	return true;
}

bool ParseConnection(const TSharedPtr<FJsonValue>& Value, FBPConnectionModification& OutRecord)
{
	const TSharedPtr<FJsonObject>* Object = nullptr;
	if (!Value || !Value->TryGetObject(Object))
	{
		return false;
	}
	const FJsonObject& Json = **Object;
	FString Action;
	RecordWords::ReadString(Json, TEXT("action"), Action);
	OutRecord.Action = RecordWords::ToConnectionAction(Action).Get(EBPConnectionAction::Add);
	RecordWords::ReadString(Json, TEXT("source_node_guid"), TEXT("source_node_id"), OutRecord.SourceNodeGuid);
	RecordWords::ReadString(Json, TEXT("target_node_guid"), TEXT("target_node_id"), OutRecord.TargetNodeGuid);
	RecordWords::ReadString(Json, TEXT("source_pin_name"), OutRecord.SourcePinName);
	RecordWords::ReadString(Json, TEXT("target_pin_name"), OutRecord.TargetPinName);
	return true;
}

bool ParseFunction(const FJsonObject& Json, FBPFunctionModification& OutRecord)
{
	RecordWords::ReadString(Json, TEXT("name"), OutRecord.Name);
	MorvaneJson::TryGetBoolField(Json, TEXT("is_delegate"), OutRecord.bIsDelegate);
	MorvaneJson::TryGetBoolField(Json, TEXT("is_rep_notify"), OutRecord.bIsRepNotify);
	RecordWords::ReadString(Json, TEXT("replicated_property"), OutRecord.ReplicatedProperty);
	ParseSignature(Json, OutRecord);
	return !OutRecord.Name.IsEmpty();
}

void ParseSignature(const FJsonObject& Json, FBPFunctionModification& OutRecord)
{
	const TArray<TSharedPtr<FJsonValue>>* Parameters = nullptr;
	if (Json.TryGetArrayField(TEXT("parameters"), Parameters))
	{
		for (int32 Index = 0; Index < Parameters->Num(); ++Index)
		{
			const TSharedPtr<FJsonValue>& Value = (*Parameters)[Index];
			const TSharedPtr<FJsonObject>* Object = nullptr;
			const FString Place = FString::Printf(TEXT("#%d"), Index);
			if (!Value || !Value->TryGetObject(Object))
			{
				OutRecord.UnreadableParameters.Add(Place);
				continue;
			}
			FBPParameterModification Parameter;
			RecordWords::ReadString(**Object, TEXT("name"), Parameter.Name);
			RecordWords::ReadString(**Object, TEXT("direction"), Parameter.Direction);
			if (const TOptional<FEdGraphPinType> Type = ParseType(**Object, TEXT("type")))
			{
				Parameter.Type = *Type;
				OutRecord.Parameters.Add(Parameter);
			}
			else
			{
				OutRecord.UnreadableParameters.Add(Parameter.Name.IsEmpty() ? Place : Parameter.Name);
			}
		}
	}
	// A null is as good as no return type: agents write it for a void function.
	OutRecord.bHasReturnType = Json.HasField(TEXT("return_type"))
		&& !Json.HasTypedField<EJson::Null>(TEXT("return_type"));
	OutRecord.ReturnType = ParseType(Json, TEXT("return_type"));
}
} // namespace PopulateRecords
