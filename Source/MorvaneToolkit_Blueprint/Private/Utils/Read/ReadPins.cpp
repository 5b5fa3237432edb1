#include "Utils/Read/ReadPins.h"

#include "AssetOperationBase.h"
#include "BlueprintNodeUtils.h"
#include "BlueprintReadUtils.h"
#include "EdGraph/EdGraphNode.h"

namespace ReadPins
{
/** More types than a graph has, as a rule; the search is linear. */
constexpr int32 MaxTypes = 64;

/** Moves name and text, where SetStringField would copy them. */
static void SetText(FJsonObject& Object, const TCHAR* Key, FString Text)
{
	Object.SetField(FString(Key), MakeShared<FJsonValueString>(MoveTemp(Text)));
}
} // namespace ReadPins

TSharedPtr<FJsonObject> FPinReader::Read(const UEdGraphPin& Pin)
{
	static const TSharedPtr<FJsonValue> Input = MakeShared<FJsonValueString>(TEXT("Input"));
	static const TSharedPtr<FJsonValue> Output = MakeShared<FJsonValueString>(TEXT("Output"));
	const TSharedPtr<FJsonObject> Info = MakeShared<FJsonObject>();
	ReadPins::SetText(*Info, TEXT("name"), Pin.PinName.ToString());
	ReadPins::SetText(*Info, TEXT("value"), Pin.DefaultValue);
	Info->SetField(TEXT("direction"), Pin.Direction == EGPD_Input ? Input : Output);
	Info->SetField(TEXT("type"), GetType(Pin.PinType));
	TArray<TSharedPtr<FJsonValue>> Connections;
	for (const UEdGraphPin* const Linked : Pin.LinkedTo)
	{
		if (const UEdGraphNode* const Node = Linked ? Linked->GetOwningNodeUnchecked() : nullptr)
		{
			Connections.Add(ReadConnection(*Linked, *Node));
		}
	}
	if (!Connections.IsEmpty())
	{
		Info->SetArrayField(TEXT("connections"), MoveTemp(Connections));
	}
	return Info;
}

TSharedPtr<FJsonValue> FPinReader::ReadConnection(const UEdGraphPin& Linked, const UEdGraphNode& Node)
{
	const FNodeName& Name = GetName(Node);
	const TSharedPtr<FJsonObject> Connection = MakeShared<FJsonObject>();
	Connection->SetField(TEXT("node_title"), Name.MenuTitle);
	Connection->SetField(TEXT("node_guid"), Name.ShortId);
	ReadPins::SetText(*Connection, TEXT("pin_name"), Linked.PinName.ToString());
	return MakeShared<FJsonValueObject>(Connection);
}

TSharedPtr<FJsonValue> FPinReader::GetType(const FEdGraphPinType& Type)
{
	for (const TPair<FEdGraphPinType, TSharedPtr<FJsonValue>>& Known : Types)
	{
		if (Known.Key == Type)
		{
			return Known.Value;
		}
	}
	const TSharedPtr<FJsonValue> Made = MakeShared<FJsonValueObject>(
		FAssetOperationBase::ConvertEdGraphPinTypeToJson(Type));
	if (Types.Num() < ReadPins::MaxTypes)
	{
		Types.Add(TPair<FEdGraphPinType, TSharedPtr<FJsonValue>>(Type, Made));
	}
	return Made;
}

const FPinReader::FNodeName& FPinReader::GetName(const UEdGraphNode& Node)
{
	FNodeName& Name = Names.FindOrAdd(&Node);
	if (!Name.MenuTitle)
	{
		Name.MenuTitle = MakeShared<FJsonValueString>(Node.GetNodeTitle(ENodeTitleType::MenuTitle).ToString());
		Name.ShortId = MakeShared<FJsonValueString>(FBlueprintNodeUtils::GetShortNodeId(&Node));
	}
	return Name;
}
