// Actions about assets that are not in memory: what the registry tells is enough for their words, and a node loads what
// it needs.

#include "Menu/ActionSources.h"

#include "AssetRegistry/AssetData.h"
#include "BlueprintNodeSpawner.h"
#include "Engine/Blueprint.h"
#include "K2Node_DynamicCast.h"
#include "UObject/UnrealType.h"

namespace ActionSources
{
void AddCastToAsset(const FAssetData& Asset, FActionList& Out)
{
	const FString Path = Asset.GetObjectPathString();
	UBlueprintNodeSpawner* const Spawner = UBlueprintNodeSpawner::Create(UK2Node_DynamicCast::StaticClass(), nullptr,
		[Path](UEdGraphNode* Node, bool bIsTemplate)
		{
			const UBlueprint* const Blueprint = bIsTemplate ? nullptr : LoadObject<UBlueprint>(nullptr, *Path);
			CastChecked<UK2Node_DynamicCast>(Node)->TargetType = Blueprint ? Blueprint->GeneratedClass.Get() : nullptr;
		});
	Spawner->DefaultMenuSignature.MenuName = FText::FromString(TEXT("Cast To ") + Asset.AssetName.ToString());
	Spawner->DefaultMenuSignature.Category = FText::FromString(TEXT("Utilities|Casting"));
	Add(Spawner, Out);
}

void AddInputAction(const FAssetData& Asset, FActionList& Out)
{
	static const UClass* const NodeClass = FindObject<UClass>(
		nullptr, TEXT("/Script/InputBlueprintNodes.K2Node_EnhancedInputAction"));
	if (!NodeClass)
	{
		return;
	}
	const FString Path = Asset.GetObjectPathString();
	UBlueprintNodeSpawner* const Spawner = UBlueprintNodeSpawner::Create(NodeClass, nullptr,
		[Path](UEdGraphNode* Node, bool bIsTemplate)
		{
			const FObjectPropertyBase* const Member = FindFProperty<FObjectPropertyBase>(
				Node->GetClass(), TEXT("InputAction"));
			UObject* const Action = bIsTemplate ? nullptr : LoadObject<UObject>(nullptr, *Path);
			if (Member && Action)
			{
				Member->SetObjectPropertyValue_InContainer(Node, Action);
			}
		});
	Spawner->DefaultMenuSignature.MenuName = FText::FromString(
		TEXT("EnhancedInputAction ") + Asset.AssetName.ToString());
	Spawner->DefaultMenuSignature.Category = FText::FromString(TEXT("Input|Enhanced Action Events"));
	Add(Spawner, Out);
}

void AddAsset(const FAssetData& Asset, FActionList& Out)
{
	static const FName InputAction(TEXT("InputAction"));
	if (Asset.AssetClassPath.GetAssetName() == InputAction)
	{
		AddInputAction(Asset, Out);
	}
	else
	{
		AddCastToAsset(Asset, Out);
	}
}
} // namespace ActionSources
