#include "K2Node_CustomEvent.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphSchema.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_BaseMCDelegate.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/BlueprintClassProvider.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_CustomEvent, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_CustomEvent::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("DeprecationMessage"), &UK2Node_CustomEvent::DeprecationMessage);
	Class.Property(TEXT("bIsDeprecated"), &UK2Node_CustomEvent::bIsDeprecated);
	Class.Property(TEXT("bCallInEditor"), &UK2Node_CustomEvent::bCallInEditor);
	Class.Property(TEXT("UserDefinedMetaData"), &UK2Node_CustomEvent::UserDefinedMetaData);
}

bool UK2Node_CustomEvent::IsEditable() const
{
	// The signature of a bound event is its dispatcher's; an author may not change it here.
	const UEdGraphPin* const DelegatePin = FindPin(DelegateOutputName, EGPD_Output);
	return DelegatePin && DelegatePin->LinkedTo.IsEmpty() && Super::IsEditable();
}

namespace CustomEvents
{
/** Names that a new event of the Blueprint may not take. */
static bool IsNameTaken(const UBlueprint& Blueprint, const UK2Node_CustomEvent* Except, FName Name)
{
	TArray<UEdGraph*> Graphs;
	Blueprint.GetAllGraphs(Graphs);
	for (const UEdGraph* const Graph : Graphs)
	{
		if (Graph->GetFName() == Name)
		{
			return true;
		}
		for (UEdGraphNode* const Node : Graph->Nodes)
		{
			const UK2Node_Event* const Event = Cast<UK2Node_Event>(Node);
			if (Event && Event != Except && Event->GetFunctionName() == Name)
			{
				return true;
			}
		}
	}
	if (Blueprint.NewVariables.ContainsByPredicate(
			[Name](const FBPVariableDescription& Variable) { return Variable.VarName == Name; }))
	{
		return true;
	}
	const UClass* const Parent = Blueprint.ParentClass.Get();
	return Parent && (Parent->FindFunctionByName(Name) || Parent->FindPropertyByName(Name));
}

/** The first free one of Base, Base_0, Base_1 ... */
static FName FindUniqueName(const UBlueprint& Blueprint, const UK2Node_CustomEvent* Except, const FString& Base)
{
	FName Candidate(Base);
	for (int32 Number = 0; IsNameTaken(Blueprint, Except, Candidate); ++Number)
	{
		Candidate = FName(FString::Printf(TEXT("%s_%d"), *Base, Number));
	}
	return Candidate;
}
} // namespace CustomEvents

UK2Node_CustomEvent* UK2Node_CustomEvent::CreateFromFunction(
	FVector2D GraphPosition, UEdGraph* ParentGraph, const FString& Name, const UFunction* Function, bool bSelectNewNode)
{
	if (!ParentGraph || !Function)
	{
		return nullptr;
	}
	UK2Node_CustomEvent* const Event = NewObject<UK2Node_CustomEvent>(ParentGraph, NAME_None, RF_Transactional);
	const UBlueprint* const Blueprint = ParentGraph->GetTypedOuter<UBlueprint>();
	Event->CustomFunctionName = Blueprint ? CustomEvents::FindUniqueName(*Blueprint, Event, Name) : FName(Name);
	ParentGraph->Modify();
	ParentGraph->AddNode(Event, true, bSelectNewNode);
	Event->CreateNewGuid();
	Event->SetDelegateSignature(Function);
	Event->AllocateDefaultPins();
	Event->NodePosX = static_cast<int32>(GraphPosition.X);
	Event->NodePosY = static_cast<int32>(GraphPosition.Y);
	return Event;
}

void UK2Node_CustomEvent::SetDelegateSignature(const UFunction* DelegateSignature)
{
	UserDefinedPins.Empty();
	if (!DelegateSignature)
	{
		return;
	}
	for (TFieldIterator<FProperty> It(DelegateSignature, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		const bool bOutput = It->HasAnyPropertyFlags(CPF_OutParm) && !It->HasAnyPropertyFlags(CPF_ReferenceParm);
		FEdGraphPinType Type;
		if (It->HasAnyPropertyFlags(CPF_Parm) && !bOutput
			&& UEdGraphSchema_K2::ConvertPropertyToPinTypeStatic(*It, Type))
		{
			const TSharedPtr<FUserPinInfo> Info = MakeShared<FUserPinInfo>();
			Info->PinName = It->GetFName();
			Info->PinType = Type;
			Info->DesiredPinDirection = EGPD_Output;
			UserDefinedPins.Add(Info);
		}
	}
}

void UK2Node_CustomEvent::RenameCustomEventCloseToName(int32)
{
	const UBlueprint* const Blueprint = GetBlueprint();
	if (Blueprint && !bHasExplicitName)
	{
		CustomFunctionName = CustomEvents::FindUniqueName(*Blueprint, this, CustomFunctionName.ToString());
	}
}

void UK2Node_CustomEvent::OnRenameNode(const FString& NewName)
{
	const FName OldName = CustomFunctionName;
	CustomFunctionName = FName(NewName);
	UpdateDelegatePin();
	const auto ReplaceReferences = BlueprintClassProvider::Get().ReplaceFunctionReferences;
	UBlueprint* const Blueprint = GetBlueprint();
	if (ReplaceReferences && Blueprint && !OldName.IsNone())
	{
		ReplaceReferences(Blueprint, OldName, CustomFunctionName);
		Blueprint->bSkeletonIsStale = true;
	}
	if (UEdGraph* const Graph = GetGraph())
	{
		Graph->NotifyNodeChanged(this);
	}
}

TSharedPtr<INameValidatorInterface> UK2Node_CustomEvent::MakeNameValidator() const
{
	return BlueprintClassProvider::MakeNameValidator(GetBlueprint(), CustomFunctionName);
}

bool UK2Node_CustomEvent::CanCreateUserDefinedPin(
	const FEdGraphPinType& InPinType, EEdGraphPinDirection InDesiredDirection, FText& OutErrorMessage)
{
	if (!IsEditable())
	{
		OutErrorMessage = NSLOCTEXT(
			"K2Node", "EditCustomEventBound", "Cannot edit the parameters of an event that is bound to a dispatcher.");
		return false;
	}
	if (InDesiredDirection == EGPD_Input)
	{
		OutErrorMessage = NSLOCTEXT("K2Node", "AddInputPinError", "Cannot add input pins to function entry node!");
		return false;
	}
	if (InPinType.PinCategory == UEdGraphSchema_K2::PC_Exec)
	{
		OutErrorMessage = NSLOCTEXT("K2Node", "MultipleExecPinError", "Cannot support more exec pins!");
		return false;
	}
	return true;
}

UEdGraphPin* UK2Node_CustomEvent::CreatePinFromUserDefinitionInternal(const TSharedPtr<FUserPinInfo> NewPinInfo)
{
	// A signature's container parameter is passed by reference, so that no copy is made for each listener.
	FEdGraphPinType Type = NewPinInfo->PinType;
	if (Type.IsArray() && ShouldUseConstRefParams())
	{
		Type.bIsConst = true;
		Type.bIsReference = true;
	}
	return CreatePin(EGPD_Output, Type, NewPinInfo->PinName);
}

void UK2Node_CustomEvent::AllocateDefaultPins()
{
	Super::AllocateDefaultPins();
}

namespace CustomEvents
{
/** The signature of the dispatcher that the event is bound to; null when it is bound to none. */
static const UFunction* FindBoundSignature(const UEdGraphPin* DelegatePin)
{
	const UEdGraphPin* const Linked = DelegatePin && !DelegatePin->LinkedTo.IsEmpty() ? DelegatePin->LinkedTo[0]
																					  : nullptr;
	const UK2Node_BaseMCDelegate* const Dispatcher = Linked ? Cast<UK2Node_BaseMCDelegate>(Linked->GetOwningNode())
															: nullptr;
	return Dispatcher ? Dispatcher->GetDelegateSignature() : nullptr;
}
} // namespace CustomEvents

void UK2Node_CustomEvent::ReconstructNode()
{
	const UFunction* const Signature = CustomEvents::FindBoundSignature(FindPin(DelegateOutputName, EGPD_Output));
	if (Signature && !FindEventSignatureFunction())
	{
		SetDelegateSignature(Signature);
	}
	Super::ReconstructNode();
}

void UK2Node_CustomEvent::PostPlacedNewNode()
{
	Super::PostPlacedNewNode();
	if (CustomFunctionName.IsNone())
	{
		const UBlueprint* const Blueprint = GetBlueprint();
		static const FString Base(TEXT("CustomEvent"));
		CustomFunctionName = Blueprint ? CustomEvents::FindUniqueName(*Blueprint, this, Base) : FName(Base);
		UpdateDelegatePin();
	}
}

void UK2Node_CustomEvent::PostPasteNode()
{
	Super::PostPasteNode();
	RenameCustomEventCloseToName();
	UpdateDelegatePin();
}

FText UK2Node_CustomEvent::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	if (TitleType == ENodeTitleType::MenuTitle && CustomFunctionName.IsNone())
	{
		return NSLOCTEXT("K2Node", "AddCustomEvent", "Add Custom Event...");
	}
	if (TitleType != ENodeTitleType::FullTitle)
	{
		return FText::FromName(CustomFunctionName);
	}
	const FString Net = GetLocalizedNetString(FunctionFlags, false).ToString();
	const FString Lines = Net.IsEmpty() ? FString(TEXT("\nCustom Event")) : TEXT("\n") + Net + TEXT("\nCustom Event");
	return FText::FromString(CustomFunctionName.ToString() + Lines);
}

FText UK2Node_CustomEvent::GetTooltipText() const
{
	return UserDefinedMetaData.ToolTip.IsEmpty() ? NSLOCTEXT(
			   "K2Node", "AddCustomEvent_Tooltip", "An event of its own name and parameters, to be called or bound")
												 : UserDefinedMetaData.ToolTip;
}

FText UK2Node_CustomEvent::GetMenuCategory() const
{
	return UserDefinedMetaData.Category.IsEmpty() ? NSLOCTEXT("K2Node", "AddEventCategory", "Add Event")
												  : UserDefinedMetaData.Category;
}

FText UK2Node_CustomEvent::GetKeywords() const
{
	return UserDefinedMetaData.Keywords;
}

void UK2Node_CustomEvent::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	const UBlueprint* const Blueprint = GetBlueprint();
	const UClass* const Parent = Blueprint ? Blueprint->ParentClass.Get() : nullptr;
	if (Parent && !bOverrideFunction && Parent->FindFunctionByName(CustomFunctionName))
	{
		MessageLog.Error(*FString::Printf(TEXT("@@ name conflicts with existing '%s' of the parent class"),
							 *CustomFunctionName.ToString()),
			this);
	}
	for (const TSharedPtr<FUserPinInfo>& Info : UserDefinedPins)
	{
		if (!FindPin(Info->PinName, EGPD_Output))
		{
			MessageLog.Error(*FString::Printf(TEXT("The parameter '%s' of @@ has no pin. Refresh the node."),
								 *Info->PinName.ToString()),
				this);
		}
	}
}

bool UK2Node_CustomEvent::IsCompatibleWithGraph(const UEdGraph* Graph) const
{
	const UBlueprint* const Blueprint = Graph ? Graph->GetTypedOuter<UBlueprint>() : nullptr;
	const bool bHasNoEvents = Blueprint
		&& (Blueprint->BlueprintType == BPTYPE_MacroLibrary || Blueprint->BlueprintType == BPTYPE_FunctionLibrary
			|| Blueprint->BlueprintType == BPTYPE_Interface);
	return !bHasNoEvents && Super::IsCompatibleWithGraph(Graph);
}

void UK2Node_CustomEvent::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
}
