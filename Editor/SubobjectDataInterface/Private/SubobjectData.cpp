#include "SubobjectData.h"

#include "Components/SceneComponent.h"
#include "Engine/Blueprint.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"

const FSubobjectDataHandle FSubobjectDataHandle::InvalidHandle;

bool FSubobjectDataHandle::operator==(const FSubobjectDataHandle& Other) const
{
	if (!IsValid() || !Other.IsValid())
	{
		return IsValid() == Other.IsValid();
	}
	return DataPtr->GetObject() == Other.DataPtr->GetObject();
}

const UActorComponent* FSubobjectData::GetComponentTemplate() const
{
	return Cast<UActorComponent>(Object.Get());
}

FName FSubobjectData::GetVariableName() const
{
	if (const USCS_Node* const ScriptNode = GetSCSNode())
	{
		return ScriptNode->GetVariableName();
	}
	return IsValid() ? GetObject()->GetFName() : FName();
}

bool FSubobjectData::IsSceneComponent() const
{
	return Cast<USceneComponent>(Object.Get()) != nullptr;
}

bool FSubobjectData::IsDefaultSceneRoot() const
{
	const USCS_Node* const ScriptNode = GetSCSNode();
	return ScriptNode && ScriptNode->GetSCS() && ScriptNode->GetSCS()->GetDefaultSceneRootNode() == ScriptNode;
}

bool FSubobjectData::IsAttachedTo(const FSubobjectDataHandle& InHandle) const
{
	for (const FSubobjectData* Above = ParentHandle.GetData(); Above && InHandle.IsValid();
		 Above = Above->ParentHandle.GetData())
	{
		if (Above->GetObject() == InHandle.GetData()->GetObject())
		{
			return true;
		}
	}
	return false;
}
