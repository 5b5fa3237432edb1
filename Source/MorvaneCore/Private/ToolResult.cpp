#include "ToolResult.h"

#include "FreshRead.h"

namespace Morvane
{
FToolResult& FToolResult::AddErrorMessage(const FString& Message)
{
	ErrorMessages.Add(Message);
	return *this;
}

FToolResult& FToolResult::AddWarningMessage(const FString& Message)
{
	WarningMessages.Add(Message);
	return *this;
}

FToolResult& FToolResult::AddSuccessMessage(const FString& Message)
{
	SuccessMessages.Add(Message);
	return *this;
}

FToolResult& FToolResult::SetData(const FString& Key, const FString& Value)
{
	EnsureDatas().SetStringField(Key, Value);
	return *this;
}

FToolResult& FToolResult::SetData(const FString& Key, const TSharedPtr<FJsonObject>& Value)
{
	EnsureDatas().SetObjectField(Key, Value);
	return *this;
}

FToolResult& FToolResult::TrackModification(const FString& ReadTool, const TSharedPtr<FJsonObject>& Parameters)
{
	if (!bModificationsClosed && Parameters.IsValid())
	{
		Modifications.Add({ReadTool, Parameters, FString()});
	}
	return *this;
}

FToolResult& FToolResult::AddModifiedObjects(const TWeakObjectPtr<UObject>& Object)
{
	ModifiedObjects.Add(Object);
	return *this;
}

FToolResult& FToolResult::AddShownNode(const FString& NodeGuid)
{
	ShownNodes.Add(NodeGuid);
	return *this;
}

FToolResult& FToolResult::FinalizeModifications()
{
	if (!bModificationsClosed)
	{
		bModificationsClosed = true;
		const FTrackedModification* Before = nullptr;
		for (FTrackedModification& Modification : Modifications)
		{
			Modification.Content = Before && FreshRead::IsShownBy(Modification, *Before)
				? FreshRead::ReferToFormer(Modification)
				: FreshRead::Read(Modification, ShownNodes, Command);
			Before = &Modification;
		}
	}
	return *this;
}

FToolResult& FToolResult::DropModifications()
{
	Modifications.Empty();
	bModificationsClosed = true;
	return *this;
}

FJsonObject& FToolResult::EnsureDatas()
{
	if (!Datas.IsValid())
	{
		Datas = MakeShared<FJsonObject>();
	}
	return *Datas;
}
} // namespace Morvane
