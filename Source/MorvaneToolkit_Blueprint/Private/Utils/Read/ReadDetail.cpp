#include "Utils/Read/ReadDetail.h"

#include "Dom/JsonObject.h"
#include "EdGraph/EdGraphNode.h"
#include "JsonReading.h"
#include "ToolInfo.h"

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
