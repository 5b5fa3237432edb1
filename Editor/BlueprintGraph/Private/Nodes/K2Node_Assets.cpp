// Loading of assets and soft references.

#include "K2Node_ConvertAsset.h"
#include "K2Node_LoadAsset.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphSchema.h"
#include "EdGraphSchema_K2.h"
#include "Standalone/NativeClass.h"
#include "WildcardTypes.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_LoadAsset, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_LoadAssetClass, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_LoadAssets, "/Script/BlueprintGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_ConvertAsset, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_LoadAsset::DescribeClass(FClassDescriber&) {}
void UK2Node_LoadAssetClass::DescribeClass(FClassDescriber&) {}
void UK2Node_LoadAssets::DescribeClass(FClassDescriber&) {}
void UK2Node_ConvertAsset::DescribeClass(FClassDescriber&) {}

FName UK2Node_LoadAsset::GetInputPinName() const
{
	return FName(TEXT("Asset"));
}

FName UK2Node_LoadAsset::GetOutputPinName() const
{
	return FName(TEXT("Object"));
}

FName UK2Node_LoadAsset::GetInputCategory() const
{
	return UEdGraphSchema_K2::PC_SoftObject;
}

FName UK2Node_LoadAsset::GetOutputCategory() const
{
	return UEdGraphSchema_K2::PC_Object;
}

FName UK2Node_LoadAssetClass::GetInputPinName() const
{
	return FName(TEXT("AssetClass"));
}

FName UK2Node_LoadAssetClass::GetOutputPinName() const
{
	return FName(TEXT("Class"));
}

FName UK2Node_LoadAssetClass::GetInputCategory() const
{
	return UEdGraphSchema_K2::PC_SoftClass;
}

FName UK2Node_LoadAssetClass::GetOutputCategory() const
{
	return UEdGraphSchema_K2::PC_Class;
}

FName UK2Node_LoadAssets::GetInputPinName() const
{
	return FName(TEXT("Assets"));
}

FName UK2Node_LoadAssets::GetOutputPinName() const
{
	return FName(TEXT("Objects"));
}

void UK2Node_LoadAsset::AllocateDefaultPins()
{
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Execute);
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Then);
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Exec, UEdGraphSchema_K2::PN_Completed);
	FCreatePinParams Params;
	Params.ContainerType = GetContainer();
	CreatePin(EGPD_Input, GetInputCategory(), UObject::StaticClass(), GetInputPinName(), Params);
	CreatePin(EGPD_Output, GetOutputCategory(), UObject::StaticClass(), GetOutputPinName(), Params);
	Super::AllocateDefaultPins();
}

FText UK2Node_LoadAsset::GetNodeTitle(ENodeTitleType::Type) const
{
	return NSLOCTEXT("K2Node", "LoadAsset", "Async Load Asset");
}

FText UK2Node_LoadAssetClass::GetNodeTitle(ENodeTitleType::Type) const
{
	return NSLOCTEXT("K2Node", "LoadAssetClass", "Async Load Class Asset");
}

FText UK2Node_LoadAssets::GetNodeTitle(ENodeTitleType::Type) const
{
	return NSLOCTEXT("K2Node", "LoadAssets", "Async Load Assets");
}

FText UK2Node_LoadAsset::GetTooltipText() const
{
	return NSLOCTEXT("K2Node", "LoadAssetTooltip",
		"Loads a soft reference without waiting, and goes on at Completed when it is there");
}

FText UK2Node_LoadAssetClass::GetTooltipText() const
{
	return NSLOCTEXT("K2Node", "LoadAssetClassTooltip",
		"Loads a soft class reference without waiting, and goes on at Completed when it is there");
}

FText UK2Node_LoadAssets::GetTooltipText() const
{
	return NSLOCTEXT("K2Node", "LoadAssetsTooltip",
		"Loads soft references without waiting, and goes on at Completed when all are there");
}

FText UK2Node_LoadAsset::GetMenuCategory() const
{
	return NSLOCTEXT("K2Node", "LoadAssetCategory", "Utilities");
}

bool UK2Node_LoadAsset::IsCompatibleWithGraph(const UEdGraph* Graph) const
{
	const EGraphType Type = Graph && Graph->GetSchema() ? Graph->GetSchema()->GetGraphType(Graph) : GT_MAX;
	return (Type == GT_Ubergraph || Type == GT_Macro) && Super::IsCompatibleWithGraph(Graph);
}

void UK2Node_LoadAsset::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
}

namespace ConvertAssets
{
const FName AssetPin(TEXT("Input"));
const FName ObjectPin(TEXT("Output"));
} // namespace ConvertAssets

void UK2Node_ConvertAsset::AllocateDefaultPins()
{
	CreatePin(EGPD_Input, UEdGraphSchema_K2::PC_Wildcard, ConvertAssets::AssetPin);
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Wildcard, ConvertAssets::ObjectPin);
	Super::AllocateDefaultPins();
}

void UK2Node_ConvertAsset::RefreshPinTypes()
{
	UEdGraphPin* const Asset = FindPin(ConvertAssets::AssetPin, EGPD_Input);
	UEdGraphPin* const Object = FindPin(ConvertAssets::ObjectPin, EGPD_Output);
	if (!Asset || !Object)
	{
		return;
	}
	FEdGraphPinType In = WildcardTypes::Open();
	FEdGraphPinType Out = In;
	if (WildcardTypes::FindLinkedType({Asset}, In))
	{
		struct FPair
		{
			FName From;
			FName To;
		};
		static const FPair Pairs[] = {{UEdGraphSchema_K2::PC_SoftObject, UEdGraphSchema_K2::PC_Object},
			{UEdGraphSchema_K2::PC_SoftClass, UEdGraphSchema_K2::PC_Class},
			{UEdGraphSchema_K2::PC_Object, UEdGraphSchema_K2::PC_SoftObject},
			{UEdGraphSchema_K2::PC_Class, UEdGraphSchema_K2::PC_SoftClass},
			{UEdGraphSchema_K2::PC_Interface, UEdGraphSchema_K2::PC_SoftObject}};
		Out = In;
		for (const FPair& Pair : Pairs)
		{
			if (Pair.From == In.PinCategory)
			{
				Out.PinCategory = Pair.To;
				break;
			}
		}
	}
	WildcardTypes::SetTerminal(*Asset, In);
	WildcardTypes::SetTerminal(*Object, Out);
}

void UK2Node_ConvertAsset::PostReconstructNode()
{
	Super::PostReconstructNode();
	RefreshPinTypes();
}

void UK2Node_ConvertAsset::PinConnectionListChanged(UEdGraphPin* Pin)
{
	Super::PinConnectionListChanged(Pin);
	RefreshPinTypes();
}

bool UK2Node_ConvertAsset::IsConnectionDisallowed(
	const UEdGraphPin* MyPin, const UEdGraphPin* OtherPin, FString& OutReason) const
{
	const FName Category = OtherPin->PinType.PinCategory;
	const bool bReference = Category == UEdGraphSchema_K2::PC_SoftObject || Category == UEdGraphSchema_K2::PC_SoftClass
		|| Category == UEdGraphSchema_K2::PC_Object || Category == UEdGraphSchema_K2::PC_Class
		|| Category == UEdGraphSchema_K2::PC_Interface || Category == UEdGraphSchema_K2::PC_Wildcard;
	if (MyPin->Direction == EGPD_Input && !bReference)
	{
		OutReason = TEXT("Only soft and hard references are resolved.");
		return true;
	}
	return false;
}

FText UK2Node_ConvertAsset::GetNodeTitle(ENodeTitleType::Type) const
{
	return NSLOCTEXT("K2Node", "ConvertAsset", "Resolve Soft Reference");
}

FText UK2Node_ConvertAsset::GetTooltipText() const
{
	return NSLOCTEXT("K2Node", "ConvertAssetTooltip",
		"The object of a soft reference if it is loaded, or a soft reference to an object");
}

FText UK2Node_ConvertAsset::GetMenuCategory() const
{
	return NSLOCTEXT("K2Node", "ConvertAssetCategory", "Utilities");
}

void UK2Node_ConvertAsset::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
}
