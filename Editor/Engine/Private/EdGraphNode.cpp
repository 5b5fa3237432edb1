#include "EdGraph/EdGraphNode.h"

#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphSchema.h"
#include "Misc/FeedbackContext.h"
#include "Misc/Parse.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UEdGraphNode, "/Script/Engine", CLASS_None)

template <>
UEnum* StaticEnum<ENodeEnabledState>()
{
	static UEnum* const Enum = NativeClass::RegisterEnum(TEXT("ENodeEnabledState"), TEXT("/Script/Engine"),
		UEnum::ECppForm::EnumClass, {{TEXT("Enabled"), 0}, {TEXT("Disabled"), 1}, {TEXT("DevelopmentOnly"), 2}});
	return Enum;
}

template <>
UEnum* StaticEnum<ENodeAdvancedPins::Type>()
{
	static UEnum* const Enum = NativeClass::RegisterEnum(TEXT("ENodeAdvancedPins"), TEXT("/Script/Engine"),
		UEnum::ECppForm::Namespaced, {{TEXT("NoPins"), 0}, {TEXT("Shown"), 1}, {TEXT("Hidden"), 2}});
	return Enum;
}

void UEdGraphNode::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("NodePosX"), &UEdGraphNode::NodePosX);
	Class.Property(TEXT("NodePosY"), &UEdGraphNode::NodePosY);
	Class.Property(TEXT("NodeWidth"), &UEdGraphNode::NodeWidth);
	Class.Property(TEXT("NodeHeight"), &UEdGraphNode::NodeHeight);
	Class.Property(TEXT("AdvancedPinDisplay"), &UEdGraphNode::AdvancedPinDisplay);
	Class.Property(TEXT("EnabledState"), &UEdGraphNode::EnabledState);
	Class.Property(TEXT("bUserSetEnabledState"), &UEdGraphNode::bUserSetEnabledState, CPF_TextExportTransient);
	Class.Property(TEXT("bCommentBubblePinned"), &UEdGraphNode::bCommentBubblePinned);
	Class.Property(TEXT("bCommentBubbleVisible"), &UEdGraphNode::bCommentBubbleVisible);
	Class.Property(TEXT("bCanRenameNode"), &UEdGraphNode::bCanRenameNode);
	Class.Property(TEXT("NodeComment"), &UEdGraphNode::NodeComment);
	Class.Property(TEXT("ErrorType"), &UEdGraphNode::ErrorType);
	Class.Property(TEXT("ErrorMsg"), &UEdGraphNode::ErrorMsg);
	Class.Property(TEXT("NodeGuid"), &UEdGraphNode::NodeGuid);
}

UEdGraphNode::~UEdGraphNode()
{
	for (UEdGraphPin* const Pin : Pins)
	{
		delete Pin;
	}
}

UEdGraph* UEdGraphNode::GetGraph() const
{
	return Cast<UEdGraph>(GetOuter());
}

const UEdGraphSchema* UEdGraphNode::GetSchema() const
{
	const UEdGraph* const Graph = GetGraph();
	return Graph ? Graph->GetSchema() : nullptr;
}

UEdGraphPin* UEdGraphNode::FindPin(FName PinName, EEdGraphPinDirection Direction) const
{
	for (UEdGraphPin* const Pin : Pins)
	{
		if (Pin->PinName == PinName && (Direction == EGPD_MAX || Direction == Pin->Direction))
		{
			return Pin;
		}
	}
	return nullptr;
}

UEdGraphPin* UEdGraphNode::FindPinChecked(FName PinName, EEdGraphPinDirection Direction) const
{
	UEdGraphPin* const Pin = FindPin(PinName, Direction);
	check(Pin != nullptr);
	return Pin;
}

UEdGraphPin* UEdGraphNode::FindPinById(const FGuid& PinId) const
{
	for (UEdGraphPin* const Pin : Pins)
	{
		if (Pin->PinId == PinId)
		{
			return Pin;
		}
	}
	return nullptr;
}

UEdGraphPin* UEdGraphNode::CreatePin(
	EEdGraphPinDirection Dir, const FEdGraphPinType& InPinType, FName PinName, int32 Index)
{
	UEdGraphPin* const Pin = UEdGraphPin::CreatePin(this);
	Pin->PinName = PinName;
	Pin->Direction = Dir;
	Pin->PinType = InPinType;
	if (Pins.IsValidIndex(Index))
	{
		Pins.Insert(Pin, Index);
	}
	else
	{
		Pins.Add(Pin);
	}
	Modify(false);
	return Pin;
}

UEdGraphPin* UEdGraphNode::CreatePin(
	EEdGraphPinDirection Dir, FName PinCategory, FName PinName, const FCreatePinParams& PinParams)
{
	return CreatePin(Dir, PinCategory, NAME_None, nullptr, PinName, PinParams);
}

UEdGraphPin* UEdGraphNode::CreatePin(
	EEdGraphPinDirection Dir, FName PinCategory, FName PinSubCategory, FName PinName, const FCreatePinParams& PinParams)
{
	return CreatePin(Dir, PinCategory, PinSubCategory, nullptr, PinName, PinParams);
}

UEdGraphPin* UEdGraphNode::CreatePin(EEdGraphPinDirection Dir, FName PinCategory, UObject* PinSubCategoryObject,
	FName PinName, const FCreatePinParams& PinParams)
{
	return CreatePin(Dir, PinCategory, NAME_None, PinSubCategoryObject, PinName, PinParams);
}

UEdGraphPin* UEdGraphNode::CreatePin(EEdGraphPinDirection Dir, FName PinCategory, FName PinSubCategory,
	UObject* PinSubCategoryObject, FName PinName, const FCreatePinParams& PinParams)
{
	FEdGraphPinType Type(PinCategory, PinSubCategory, PinSubCategoryObject, PinParams.ContainerType,
		PinParams.bIsReference, PinParams.ValueTerminalType);
	Type.bIsConst = PinParams.bIsConst;
	return CreatePin(Dir, Type, PinName, PinParams.Index);
}

FName UEdGraphNode::CreateUniquePinName(FName SourcePinName) const
{
	FName Candidate = SourcePinName;
	for (int32 Number = 1; FindPin(Candidate); ++Number)
	{
		Candidate = FName(FString::Printf(TEXT("%s%d"), *SourcePinName.ToString(), Number));
	}
	return Candidate;
}

bool UEdGraphNode::RemovePin(UEdGraphPin* Pin)
{
	if (!Pin || !Pins.Contains(Pin))
	{
		return false;
	}
	Modify();
	const TArray<UEdGraphPin*> SubPins = Pin->SubPins;
	for (UEdGraphPin* const SubPin : SubPins)
	{
		RemovePin(SubPin);
	}
	Pins.Remove(Pin);
	Pin->BreakAllPinLinks();
	Pin->MarkAsGarbage();
	return true;
}

void UEdGraphNode::BreakAllNodeLinks()
{
	TArray<UEdGraphNode*> Changed = {this};
	for (UEdGraphPin* const Pin : Pins)
	{
		for (const UEdGraphPin* const Linked : Pin->LinkedTo)
		{
			Changed.AddUnique(Linked->GetOwningNode());
		}
		Pin->BreakAllPinLinks();
	}
	for (UEdGraphNode* const Node : Changed)
	{
		Node->NodeConnectionListChanged();
	}
}

void UEdGraphNode::CreateNewGuid()
{
	NodeGuid = FGuid::NewGuid();
}

void UEdGraphNode::DestroyNode()
{
	if (UEdGraph* const Graph = GetGraph())
	{
		Graph->RemoveNode(this);
	}
	else
	{
		BreakAllNodeLinks();
		MarkAsGarbage();
	}
}

TSharedPtr<INameValidatorInterface> UEdGraphNode::MakeNameValidator() const
{
	return nullptr;
}

FText UEdGraphNode::GetNodeTitle(ENodeTitleType::Type) const
{
	return FText::FromString(GetClass()->GetName());
}

FText UEdGraphNode::GetTooltipText() const
{
	return GetClass()->GetToolTipText();
}

FText UEdGraphNode::GetPinDisplayName(const UEdGraphPin* Pin) const
{
	return Pin->GetSchema() ? Pin->GetSchema()->GetPinDisplayName(Pin) : FText::FromName(Pin->PinName);
}

void UEdGraphNode::MakeAutomaticallyPlacedGhostNode()
{
	EnabledState = ENodeEnabledState::Disabled;
	bUserSetEnabledState = false;
	NodeComment = TEXT("This node is disabled and will not be called.\nDrag off pins to build functionality.");
	bCommentBubblePinned = true;
	bCommentBubbleVisible = true;
}

bool UEdGraphNode::Modify(bool bAlwaysMarkDirty)
{
	return UObject::Modify(bAlwaysMarkDirty);
}

void UEdGraphNode::PostInitProperties()
{
	UObject::PostInitProperties();
}

void UEdGraphNode::PostLoad()
{
	UObject::PostLoad();
}

void UEdGraphNode::PostEditImport()
{
	UObject::PostEditImport();
}

void UEdGraphNode::ExportCustomProperties(FOutputDevice& Out, uint32 Indent)
{
	FString Line;
	for (const UEdGraphPin* const Pin : Pins)
	{
		Line.Reset();
		for (uint32 Blank = 0; Blank < Indent; ++Blank)
		{
			Line.AppendChar(TEXT(' '));
		}
		Line.Append(FStringView(TEXT("CustomProperties Pin ")));
		Pin->ExportTextItem(Line, PPF_Delimited);
		Line.AppendChar(TEXT('\n'));
		Out.Log(*Line);
	}
}

void UEdGraphNode::ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn)
{
	const TCHAR* Cursor = SourceText;
	if (!FParse::Command(&Cursor, TEXT("Pin")))
	{
		UObject::ImportCustomProperties(SourceText, Warn);
		return;
	}
	UEdGraphPin* const Pin = UEdGraphPin::CreatePin(this);
	Pins.Add(Pin);
	Pin->ImportTextItem(Cursor, PPF_Delimited, this, Warn);
}
