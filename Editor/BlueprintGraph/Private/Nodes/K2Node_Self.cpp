#include "K2Node_Self.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_Self, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_Self::DescribeClass(FClassDescriber&) {}

void UK2Node_Self::AllocateDefaultPins()
{
	CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Object, UEdGraphSchema_K2::PSC_Self, UEdGraphSchema_K2::PN_Self);
	Super::AllocateDefaultPins();
}

FText UK2Node_Self::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	return TitleType == ENodeTitleType::MenuTitle
		? NSLOCTEXT("K2Node", "SelfReferenceName_MenuTitle", "Get a reference to self")
		: NSLOCTEXT("K2Node", "SelfReferenceName", "Self-Reference");
}

FText UK2Node_Self::GetTooltipText() const
{
	return NSLOCTEXT("K2Node", "GetSelfReference", "The instance of this Blueprint that the graph runs in");
}

FText UK2Node_Self::GetKeywords() const
{
	return NSLOCTEXT("K2Node", "SelfKeywords", "This");
}

FText UK2Node_Self::GetMenuCategory() const
{
	return NSLOCTEXT("K2Node", "SelfCategory", "Variables");
}

void UK2Node_Self::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
}

void UK2Node_Self::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	const UBlueprint* const Blueprint = GetBlueprint();
	if (Blueprint && Blueprint->BlueprintType == BPTYPE_FunctionLibrary)
	{
		MessageLog.Warning(TEXT("Self node @@ cannot be used in a static function."), this);
	}
}
