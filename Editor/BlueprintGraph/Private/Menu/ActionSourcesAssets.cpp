// Actions about what the project holds beside its Blueprints' members. Of assets that are not in memory the registry
// tells enough for their words, and a node loads what it needs.

#include "Menu/ActionSources.h"

#include "AssetRegistry/AssetData.h"
#include "BlueprintNodeSpawner.h"
#include "Engine/Blueprint.h"
#include "K2Node_ClassDynamicCast.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_GetInputAxisValue.h"
#include "K2Node_InputAction.h"
#include "K2Node_InputAxisEvent.h"
#include "Menu/InputMappings.h"
#include "Nodes/MenuWords.h"
#include "UObject/UnrealType.h"

namespace ActionSources
{
static void AddCastToAsset(const FAssetData& Asset, const UClass* NodeClass, const FString& Title, FActionList& Out)
{
	const FString Path = Asset.GetObjectPathString();
	UBlueprintNodeSpawner* const Spawner = UBlueprintNodeSpawner::Create(NodeClass, nullptr,
		[Path](UEdGraphNode* Node, bool bIsTemplate)
		{
			const UBlueprint* const Blueprint = bIsTemplate ? nullptr : LoadObject<UBlueprint>(nullptr, *Path);
			CastChecked<UK2Node_DynamicCast>(Node)->TargetType = Blueprint ? Blueprint->GeneratedClass.Get() : nullptr;
		});
	Spawner->DefaultMenuSignature.MenuName = FText::FromString(Title);
	Spawner->DefaultMenuSignature.Category = MenuWords::SharedText(TEXT("Utilities|Casting"));
	Spawner->DefaultMenuSignature.Tooltip = FText::FromString(
		FString::Printf(TEXT("Gives access to what it gets as %s, when it is that"), *Asset.AssetName.ToString()));
	Add(Spawner, Out);
}

/** A node of the Enhanced Input plug-in about an input action. */
static void AddInputAction(
	const FAssetData& Asset, const TCHAR* NodeClassPath, const TCHAR* Verb, const TCHAR* Category, FActionList& Out)
{
	const UClass* const NodeClass = FindObject<UClass>(nullptr, NodeClassPath);
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
	Spawner->DefaultMenuSignature.MenuName = FText::FromString(Verb + Asset.AssetName.ToString());
	Spawner->DefaultMenuSignature.Category = MenuWords::SharedText(Category);
	Add(Spawner, Out);
}

void AddAsset(const FAssetData& Asset, FActionList& Out)
{
	static const FName InputAction(TEXT("InputAction"));
	if (Asset.AssetClassPath.GetAssetName() == InputAction)
	{
		AddInputAction(Asset, TEXT("/Script/InputBlueprintNodes.K2Node_EnhancedInputAction"),
			TEXT("EnhancedInputAction "), TEXT("Input|Enhanced Action Events"), Out);
		AddInputAction(Asset, TEXT("/Script/InputBlueprintNodes.K2Node_GetInputActionValue"), TEXT("Get "),
			TEXT("Input|Enhanced Action Values"), Out);
		return;
	}
	const FString Title = TEXT("Cast To ") + Asset.AssetName.ToString();
	AddCastToAsset(Asset, UK2Node_DynamicCast::StaticClass(), Title, Out);
	AddCastToAsset(Asset, UK2Node_ClassDynamicCast::StaticClass(), Title + TEXT(" Class"), Out);
}

void AddInputMappings(const FInputMappings& Mappings, FActionList& Out)
{
	for (const FString& Name : Mappings.Actions)
	{
		Add(UBlueprintNodeSpawner::Create<UK2Node_InputAction>(nullptr,
				[Name](UEdGraphNode* Node, bool)
				{ CastChecked<UK2Node_InputAction>(Node)->InputActionName = FName(Name); }),
			Out);
	}
	for (const FString& Name : Mappings.Axes)
	{
		Add(UBlueprintNodeSpawner::Create<UK2Node_GetInputAxisValue>(nullptr,
				[Name](UEdGraphNode* Node, bool)
				{ CastChecked<UK2Node_GetInputAxisValue>(Node)->Initialize(FName(Name)); }),
			Out);
		Add(UBlueprintNodeSpawner::Create<UK2Node_InputAxisEvent>(nullptr,
				[Name](UEdGraphNode* Node, bool)
				{ CastChecked<UK2Node_InputAxisEvent>(Node)->Initialize(FName(Name)); }),
			Out);
	}
}
} // namespace ActionSources
