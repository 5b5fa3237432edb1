#include "K2Node_CreateDragDropOperation.h"

#include "EdGraphSchema_K2.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_CreateDragDropOperation, "/Script/UMGEditor", CLASS_None)

void UK2Node_CreateDragDropOperation::DescribeClass(FClassDescriber&) {}

UClass* UK2Node_CreateDragDropOperation::GetClassPinBaseClass() const
{
	return FindObject<UClass>(nullptr, TEXT("/Script/UMG.DragDropOperation"));
}

void UK2Node_CreateDragDropOperation::AllocateDefaultPins()
{
	Super::AllocateDefaultPins();
	UEdGraphPin* const ClassPin = GetClassPin();
	UClass* const Base = GetClassPinBaseClass();
	if (ClassPin && Base)
	{
		// The base class does for most drags, so it need not be chosen.
		ClassPin->DefaultObject = Base;
		CreatePinsForClass(Base);
	}
}

FText UK2Node_CreateDragDropOperation::GetBaseNodeTitle() const
{
	return NSLOCTEXT("UMG", "CreateDragDropOperation_BaseTitle", "Create Drag & Drop Operation");
}

FText UK2Node_CreateDragDropOperation::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	const UClass* const Class = GetClassToSpawn();
	const bool bPlain = !Class || Class == GetClassPinBaseClass();
	if (bPlain || TitleType == ENodeTitleType::ListView || TitleType == ENodeTitleType::MenuTitle)
	{
		return GetBaseNodeTitle();
	}
	return FText::FromString(TEXT("Create ") + Class->GetDisplayNameText().ToString());
}

FText UK2Node_CreateDragDropOperation::GetMenuCategory() const
{
	return NSLOCTEXT("UMG", "CreateDragDropOperation_Category", "User Interface");
}
