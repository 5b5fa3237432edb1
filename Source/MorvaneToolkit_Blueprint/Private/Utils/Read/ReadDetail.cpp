#include "Utils/Read/ReadDetail.h"

#include <charconv>

#include "AssetOperationBase.h"
#include "Dom/JsonObject.h"
#include "EdGraph/EdGraphNode.h"
#include "JsonReading.h"
#include "PinTypeText.h"
#include "ToolInfo.h"
#include "UObject/UnrealType.h"

namespace ReadDetail
{
namespace ToolInfo = Morvane::ToolInfo;

bool IsLean(const FJsonObject& Command)
{
	FString Detail;
	return MorvaneJson::TryGetStringField(Command, ToolInfo::FieldName_Detail, Detail)
		&& Detail.TrimStartAndEnd().Equals(ToolInfo::Detail_Lean, ESearchCase::IgnoreCase);
}

void Pass(const FJsonObject& Args, FJsonObject& Command)
{
	if (IsLean(Args))
	{
		Command.SetStringField(ToolInfo::FieldName_Detail, ToolInfo::Detail_Lean);
	}
}

void SetType(FJsonObject& Object, const FEdGraphPinType& Type, bool bLean)
{
	if (bLean)
	{
		Object.SetStringField(TEXT("type"), PinTypeText::Write(Type));
		return;
	}
	Object.SetObjectField(TEXT("type"), FAssetOperationBase::ConvertEdGraphPinTypeToJson(Type));
}

/** The end of the class path that begins here, where the apostrophe stands; INDEX_NONE where none begins. */
static int32 FindEndOfClass(const FString& Text, int32 Index)
{
	static const FString Start(TEXT("/Script/"));
	if (!Text.Mid(Index, Start.Len()).Equals(Start, ESearchCase::CaseSensitive))
	{
		return INDEX_NONE;
	}
	int32 End = Index + Start.Len();
	while (End < Text.Len() && (FChar::IsAlnum(Text[End]) || Text[End] == TEXT('_') || Text[End] == TEXT('.')))
	{
		++End;
	}
	return End + 1 < Text.Len() && Text[End] == TEXT('\'') && Text[End + 1] == TEXT('/') ? End : INDEX_NONE;
}

FString ShortenReferences(const FString& Text)
{
	FString Short;
	for (int32 Index = 0; Index < Text.Len(); ++Index)
	{
		const int32 Open = Text[Index] == TEXT('/') ? FindEndOfClass(Text, Index) : INDEX_NONE;
		const int32 Close = Open == INDEX_NONE
			? INDEX_NONE
			: Text.Find(TEXT("'"), ESearchCase::CaseSensitive, ESearchDir::FromStart, Open + 1);
		if (Close == INDEX_NONE)
		{
			Short.AppendChar(Text[Index]);
			continue;
		}
		Short += Text.Mid(Open + 1, Close - Open - 1);
		Index = Close;
	}
	return Short;
}

FString GetValue(const UObject& Object, const FProperty& Property, bool bLean)
{
	// Colors and margins are short; what collides with what is not.
	const int32 LongFrom = bLean ? 80 : 320;
	FString Text = FAssetOperationBase::GetPropertyValueAsString(&Object, &Property);
	if (Text.Len() > LongFrom && CastField<FStructProperty>(&Property))
	{
		Text.Empty();
		Property.ExportTextItem_Direct(Text, Property.ContainerPtrToValuePtr<void>(&Object),
			Property.ContainerPtrToValuePtr<void>(Object.GetClass()->GetDefaultObject()), const_cast<UObject*>(&Object),
			PPF_None);
	}
	return bLean ? ShortenReferences(Text) : Text;
}

void SetDisplayValue(FJsonObject& Object, const FEdGraphPinType& Type, const FString& Value)
{
	const UEnum* const Enum = Cast<UEnum>(Type.PinSubCategoryObject.Get());
	const bool bNative = Enum && Enum->GetPathName().StartsWith(TEXT("/Script/"), ESearchCase::CaseSensitive);
	const int32 Index = Enum && !bNative && !Type.IsContainer() ? Enum->GetIndexByNameString(Value) : INDEX_NONE;
	if (Index != INDEX_NONE)
	{
		Object.SetStringField(TEXT("display_value"), Enum->GetDisplayNameTextByIndex(Index).ToString());
	}
}

double ShortenFloat(double Value)
{
	const float Single = static_cast<float>(Value);
	if (static_cast<double>(Single) != Value)
	{
		return Value;
	}
	char Digits[32];
	const std::to_chars_result End = std::to_chars(std::begin(Digits), std::end(Digits), Single);
	double Short = Value;
	std::from_chars(std::begin(Digits), End.ptr, Short);
	return Short;
}
} // namespace ReadDetail

FNodeChoice::FNodeChoice(const FJsonObject& Command)
{
	TArray<FString> Names;
	if (Command.TryGetStringArrayField(Morvane::ToolInfo::FieldName_OnlyNodes, Names))
	{
		Guids.Append(Names);
	}
}

bool FNodeChoice::Holds(const UEdGraphNode& Node) const
{
	return Guids.IsEmpty() || Guids.Contains(Node.NodeGuid.ToString());
}
