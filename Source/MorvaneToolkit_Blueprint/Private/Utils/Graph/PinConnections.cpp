#include "Utils/Graph/PinConnections.h"

#include "AssetOperationBase.h"
#include "BlueprintNodeUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphNode.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node.h"
#include "ToolResult.h"
#include "UObject/UObjectGlobals.h"
#include "Utils/Graph/AuthoredValues.h"
#include "Utils/Graph/LooseNames.h"
#include "Utils/Report/GraphSession.h"
#include "Utils/Report/GraphTelemetry.h"
#include "Utils/Request/RecordWords.h"

namespace PinConnections
{
/** What agents call a pin, and the names to try for it, in order. */
struct FPinAlias
{
	const TCHAR* Requested;
	TArray<FString> PinNames;
};

/** Null for a name that is no alias. The table is made on first use and never changes. */
static const TArray<FString>* FindAliases(const FString& Requested)
{
	static const FPinAlias Rows[] = {
		{TEXT("target"), {UEdGraphSchema_K2::PN_Self.ToString()}},
		{TEXT("true"), {UEdGraphSchema_K2::PN_Then.ToString()}},
		{TEXT("false"), {UEdGraphSchema_K2::PN_Else.ToString()}},
		{TEXT("execute"), {UEdGraphSchema_K2::PN_Execute.ToString()}},
		{TEXT("completed"), {UEdGraphSchema_K2::PN_Completed.ToString()}},
		{TEXT("return value"), {UEdGraphSchema_K2::PN_ReturnValue.ToString()}},
		{TEXT("world context object"),
			{TEXT("WorldContextObject"), TEXT("WidgetContextObject"), TEXT("Context"), TEXT("WorldContext")}},
	};
	for (const FPinAlias& Row : Rows)
	{
		if (Requested.Equals(Row.Requested, ESearchCase::IgnoreCase))
		{
			return &Row.PinNames;
		}
	}
	return nullptr;
}

/** Names compare ignoring case, as FName does. */
static UEdGraphPin* FindPin(const UEdGraphNode& Node, const FString& PinName, EEdGraphPinDirection Direction)
{
	for (UEdGraphPin* const Pin : Node.Pins)
	{
		if (Pin && Pin->Direction == Direction && Pin->PinName == *PinName)
		{
			return Pin;
		}
	}
	return nullptr;
}

/** The first pin that the name is an alias of, among those that an author sees or among the others. */
static UEdGraphPin* FindPinByAlias(
	const UEdGraphNode& Node, const FString& Requested, EEdGraphPinDirection Direction, bool bHidden)
{
	const TArray<FString>* const Names = FindAliases(Requested);
	for (int32 Index = 0; Names && Index < Names->Num(); ++Index)
	{
		UEdGraphPin* const Pin = FindPin(Node, (*Names)[Index], Direction);
		if (Pin && Pin->bHidden == bHidden)
		{
			return Pin;
		}
	}
	return nullptr;
}

/** What the name means in one direction, surest reading first. A visible pin goes before its own name's hidden alias:
 * a function may have a parameter "Target" beside the object that it is called on. */
static UEdGraphPin* FindPinInDirection(
	const UEdGraphNode& Node, const FString& Requested, EEdGraphPinDirection Direction)
{
	if (UEdGraphPin* const Pin = FindPinByAlias(Node, Requested, Direction, false))
	{
		return Pin;
	}
	if (UEdGraphPin* const Pin = FindPin(Node, Requested, Direction))
	{
		return Pin;
	}
	// The hidden target of a library's call is fixed: nobody who says "target" means it.
	UEdGraphPin* const Hidden = FindPinByAlias(Node, Requested, Direction, true);
	return Hidden && Hidden->PinName != UEdGraphSchema_K2::PN_Self ? Hidden : nullptr;
}

/** Both ends of a request, each found or missed with a warning; the source is looked for first. */
struct FEnds
{
	FEnds(const UEdGraphNode* SourceNode, const FString& SourcePinName, const UEdGraphNode* TargetNode,
		const FString& TargetPinName, Morvane::FToolResult& Result, FBPGraphSession* Session)
	{
		Source = FBlueprintPinUtils::FindPinWithAliases(SourceNode, SourcePinName, EGPD_Output, Session);
		if (!Source)
		{
			Result.AddWarningMessage(FString::Printf(TEXT("[Failure] Source pin '%s' not found on node '%s'"),
				*SourcePinName, *FBlueprintNodeUtils::GetFullTitle(SourceNode)));
			RecordMiss(SourceNode, SourcePinName, EGPD_Output, Result);
			return;
		}
		Target = FBlueprintPinUtils::FindPinWithAliases(TargetNode, TargetPinName, EGPD_Input, Session);
		if (!Target)
		{
			Result.AddWarningMessage(FString::Printf(TEXT("[Failure] Target pin '%s' not found on node '%s'"),
				*TargetPinName, *FBlueprintNodeUtils::GetFullTitle(TargetNode)));
			RecordMiss(TargetNode, TargetPinName, EGPD_Input, Result);
		}
	}

	bool AreFound() const { return Source && Target; }

	UEdGraphPin* Source = nullptr;
	UEdGraphPin* Target = nullptr;

private:
	static void RecordMiss(
		const UEdGraphNode* Node, const FString& PinName, EEdGraphPinDirection Direction, Morvane::FToolResult& Result)
	{
		if (Node)
		{
			FBlueprintPinUtils::RecordLookupFailure(*Node, PinName, Direction, Result);
		}
	}
};

static bool IsExecPinOfPureNode(const UEdGraphPin& Pin)
{
	const UK2Node* const Node = Cast<UK2Node>(Pin.GetOwningNodeUnchecked());
	return Pin.PinType.PinCategory == UEdGraphSchema_K2::PC_Exec && Node && Node->IsNodePure();
}

static FString GetListTitle(const UEdGraphPin& Pin)
{
	return Pin.GetOwningNode()->GetNodeTitle(ENodeTitleType::ListView).ToString();
}

/** What a link is called, taken before an attempt at it: the attempt may make pins anew. */
struct FLinkNames
{
	explicit FLinkNames(const FEnds& Ends)
		: SourceTitle(FBlueprintNodeUtils::GetFullTitle(Ends.Source->GetOwningNode()))
		, SourcePin(Ends.Source->GetName())
		, TargetTitle(FBlueprintNodeUtils::GetFullTitle(Ends.Target->GetOwningNode()))
		, TargetPin(Ends.Target->GetName())
	{
	}

	FString SourceTitle;
	FString SourcePin;
	FString TargetTitle;
	FString TargetPin;
};

/** A connection that the graph refused: to the telemetry, twice, and to the agent. */
static void ReportRefusal(
	const FLinkNames& Names, const FString& Message, const FString& Reason, Morvane::FToolResult& Result)
{
	GraphTelemetry::RecordValidationFailure(Result, Message);
	GraphTelemetry::RecordConnectionFailure(
		Result, Names.SourceTitle, Names.SourcePin, Names.TargetTitle, Names.TargetPin, Reason);
	Result.AddWarningMessage(Message);
}

static const UEdGraphSchema* GetSchemaOf(const UEdGraph& Graph)
{
	const UEdGraphSchema* const Schema = Graph.GetSchema();
	return Schema ? Schema : GetDefault<UEdGraphSchema_K2>();
}

/**
 * All three forms in which a pin may hold its default, and the pin by its id: a node may make its pins anew at each
 * change of a value, so the pin is looked up again for each step.
 */
struct FKeptDefault
{
	explicit FKeptDefault(UEdGraphPin& InPin)
		: Pin(&InPin)
		, Value(InPin.DefaultValue)
		, Object(InPin.DefaultObject)
		, Text(InPin.DefaultTextValue)
	{
	}

	void Restore(const UEdGraphSchema_K2& Schema) const
	{
		if (UEdGraphPin* const Found = Pin.Get())
		{
			Schema.TrySetDefaultValue(*Found, Value);
		}
		// The text form of an object or a text pin is empty: what it held has to go back by its own way.
		UEdGraphPin* const AfterValue = Pin.Get();
		if (AfterValue && AfterValue->DefaultObject != Object)
		{
			Schema.TrySetDefaultObject(*AfterValue, Object);
		}
		UEdGraphPin* const AfterObject = Pin.Get();
		if (AfterObject && !AfterObject->DefaultTextValue.EqualTo(Text))
		{
			Schema.TrySetDefaultText(*AfterObject, Text);
		}
	}

	FEdGraphPinReference Pin;
	FString Value;
	TObjectPtr<UObject> Object;
	FText Text;
};

/**
 * Gives a class pin's value, which agents write as they name classes anywhere, the path of the class that it means.
 * What names no class stays for the schema to refuse. False, reported, when it could mean several Blueprints.
 */
static bool ResolveClassValue(const UEdGraphPin& Pin, FString& InOutValue, Morvane::FToolResult& Result)
{
	const FName Category = Pin.PinType.PinCategory;
	const bool bIsClassPin = !Pin.PinType.IsContainer()
		&& (Category == UEdGraphSchema_K2::PC_Class || Category == UEdGraphSchema_K2::PC_SoftClass);
	const UClass* const Class = bIsClassPin ? FAssetOperationBase::GetAssetClassFromAssetName(InOutValue) : nullptr;
	if (!Class)
	{
		return true;
	}
	const UBlueprint* const Blueprint = UBlueprint::GetBlueprintFromClass(Class);
	if (Blueprint && !InOutValue.Contains(TEXT("/")) && !InOutValue.Contains(TEXT("\\")))
	{
		const TArray<FString> Paths = FAssetOperationBase::FindBlueprintPaths(Blueprint->GetName());
		if (Paths.Num() > 1)
		{
			Result.AddWarningMessage(
				FString::Printf(TEXT("Ambiguous Blueprint name '%s'. Found %d matches: %s. Use full package path."),
					*InOutValue, Paths.Num(), *FString::Join(Paths, TEXT(", "))));
			return false;
		}
	}
	InOutValue = Class->GetPathName();
	return true;
}

static FString JoinNames(const TArray<UEdGraphPin*>& Pins)
{
	TArray<FString> Names;
	for (const UEdGraphPin* const Pin : Pins)
	{
		Names.Add(Pin->GetName());
	}
	return FString::Join(Names, TEXT(", "));
}

/** "float" and "double" are no pin categories any more: what they mean is a real of that precision. */
static void SetCategory(const FBPPinType& Record, FName& OutCategory, FName& OutSubCategory)
{
	OutCategory = FName(*Record.Category);
	OutSubCategory = FName(*Record.SubCategory);
	if (OutCategory == UEdGraphSchema_K2::PC_Float || OutCategory == UEdGraphSchema_K2::PC_Double)
	{
		OutSubCategory = OutSubCategory.IsNone() ? OutCategory : OutSubCategory;
		OutCategory = UEdGraphSchema_K2::PC_Real;
	}
}

static UObject* FindSubCategoryObject(const FBPPinType& Record)
{
	return Record.SubCategoryObject.IsEmpty()
		? nullptr
		: StaticFindObject(UObject::StaticClass(), nullptr, *Record.SubCategoryObject);
}
} // namespace PinConnections

UEdGraphPin* FBlueprintPinUtils::FindPinWithAliases(
	const UEdGraphNode* Node, const FString& PinName, EEdGraphPinDirection Direction, FBPGraphSession* Session)
{
	if (!Node || (Direction != EGPD_Input && Direction != EGPD_Output))
	{
		return nullptr;
	}
	if (UEdGraphPin* const Pin = PinConnections::FindPinInDirection(*Node, PinName, Direction))
	{
		return Pin;
	}
	if (UEdGraphPin* const Pin = LooseNames::FindPin(*Node, PinName, Direction))
	{
		return Pin;
	}
	const EEdGraphPinDirection Opposite = Direction == EGPD_Input ? EGPD_Output : EGPD_Input;
	UEdGraphPin* const Pin = PinConnections::FindPin(*Node, PinName, Opposite);
	if (Pin && Session)
	{
		Session->CountPinDirectionFallback();
	}
	// An alias has a meaning of its own, which its words do not: the "return value" is no "Value" that goes in.
	return Pin || PinConnections::FindAliases(PinName) ? Pin
													   : LooseNames::FindPinByLastWords(*Node, PinName, Direction);
}

TArray<FString> FBlueprintPinUtils::RecordLookupFailure(
	const UEdGraphNode& Node, const FString& PinName, EEdGraphPinDirection Direction, Morvane::FToolResult& Result)
{
	TArray<FString> Available;
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		if (Pin && Pin->Direction == Direction && !Pin->bHidden && !Pin->bOrphanedPin)
		{
			Available.Add(Pin->GetName());
		}
	}
	GraphTelemetry::RecordPinLookupFailure(Result, FBlueprintNodeUtils::GetFullTitle(&Node), PinName, Available);
	return Available;
}

bool FBlueprintPinUtils::ConnectPins(UEdGraph* Graph, UEdGraphNode* SourceNode, const FString& SourcePinName,
	UEdGraphNode* TargetNode, const FString& TargetPinName, Morvane::FToolResult& Result, FBPGraphSession* Session)
{
	using namespace PinConnections;
	if (!Graph)
	{
		Result.AddErrorMessage(TEXT("Graph is null"));
		return false;
	}
	const FEnds Ends(SourceNode, SourcePinName, TargetNode, TargetPinName, Result, Session);
	if (!Ends.AreFound())
	{
		return false;
	}
	if (IsExecPinOfPureNode(*Ends.Source))
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("[Failure] Attempted to connect execution pin on pure node '%s'. Pure nodes have no execution flow."),
			*GetListTitle(*Ends.Source)));
		return false;
	}
	if (IsExecPinOfPureNode(*Ends.Target))
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("[Failure] Attempted to connect execution pin to pure node '%s'. Pure nodes have no execution flow."),
			*GetListTitle(*Ends.Target)));
		return false;
	}

	const FLinkNames Names(Ends);
	const UEdGraphSchema* const Schema = GetSchemaOf(*Graph);
	const FPinConnectionResponse Response = Schema->CanCreateConnection(Ends.Source, Ends.Target);
	if (Response.Response == CONNECT_RESPONSE_DISALLOW)
	{
		const FString Reason = Response.Message.ToString();
		ReportRefusal(Names, FString::Printf(TEXT("[Failure] Schema forbids connection: %s"), *Reason), Reason, Result);
		return false;
	}
	if (!Schema->TryCreateConnection(Ends.Source, Ends.Target))
	{
		const FString Message = FString::Printf(TEXT("[Failure] TryCreateConnection failed: %s.%s -> %s.%s"),
			*Names.SourceTitle, *Names.SourcePin, *Names.TargetTitle, *Names.TargetPin);
		ReportRefusal(Names, Message, TEXT("TryCreateConnection returned false"), Result);
		return false;
	}
	return true;
}

bool FBlueprintPinUtils::DisconnectPins(UEdGraph* Graph, UEdGraphNode* SourceNode, const FString& SourcePinName,
	UEdGraphNode* TargetNode, const FString& TargetPinName, Morvane::FToolResult& Result)
{
	using namespace PinConnections;
	if (!Graph)
	{
		Result.AddWarningMessage(TEXT("[Failure] Graph is null"));
		return false;
	}
	const FEnds Ends(SourceNode, SourcePinName, TargetNode, TargetPinName, Result, nullptr);
	if (!Ends.AreFound())
	{
		return false;
	}
	const FLinkNames Names(Ends);
	if (!Ends.Source->LinkedTo.Contains(Ends.Target))
	{
		Result.AddWarningMessage(FString::Printf(TEXT("No connection found between %s.%s and %s.%s"),
			*Names.SourceTitle, *Names.SourcePin, *Names.TargetTitle, *Names.TargetPin));
		return true;
	}
	Ends.Source->BreakLinkTo(Ends.Target);
	Result.AddSuccessMessage(FString::Printf(TEXT("Removed connection: %s.%s -> %s.%s"), *Names.SourceTitle,
		*Names.SourcePin, *Names.TargetTitle, *Names.TargetPin));
	// Breaking a link tells nobody; wildcard pins lose their type only when their node hears of it, and may be made
	// anew then.
	const FEdGraphPinReference Target(Ends.Target);
	SourceNode->PinConnectionListChanged(Ends.Source);
	if (UEdGraphPin* const Found = Target.Get())
	{
		TargetNode->PinConnectionListChanged(Found);
	}
	return true;
}

bool FBlueprintPinUtils::SetPinDefaultValue(UEdGraphPin* Pin, const FString& Value, Morvane::FToolResult& Result)
{
	if (!Pin || (Pin->Direction != EGPD_Input && Pin->Direction != EGPD_Output))
	{
		return false;
	}
	if (!Pin->LinkedTo.IsEmpty())
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT(
				"Failed to set value of pin '%s' to '%s'. Pin is connected to another pin. Break the connection if you want to set a manual value."),
			*Pin->GetName(), *Value));
		return false;
	}

	if (!Pin->SubPins.IsEmpty())
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("Failed to set value of pin '%s' to '%s'. Pin is split, and its parts have values: %s"),
			*Pin->GetName(), *Value, *PinConnections::JoinNames(Pin->SubPins)));
		return false;
	}

	FString Written = Value;
	if (!PinConnections::ResolveClassValue(*Pin, Written, Result))
	{
		return false;
	}
	const UEdGraphSchema_K2* const Schema = GetDefault<UEdGraphSchema_K2>();
	const PinConnections::FKeptDefault Kept(*Pin);
	Schema->TrySetDefaultValue(*Pin, AuthoredValues::ToPinText(*Pin, Written), true);
	const UEdGraphPin* const Changed = Kept.Pin.Get();
	if (!Changed)
	{
		return false;
	}
	const FString Refusal = Schema->IsCurrentPinDefaultValid(Changed);
	if (Refusal.IsEmpty())
	{
		return true;
	}
	Kept.Restore(*Schema);
	Result.AddWarningMessage(Refusal);
	if (Refusal.Contains(TEXT("must have an input wired into"), ESearchCase::IgnoreCase))
	{
		Result.AddWarningMessage(
			TEXT("You can use Make literal Name node to set the value and connect it to this pin"));
	}
	return false;
}

FEdGraphPinType FBlueprintPinUtils::ConvertPinType(const FBPPinType& Record)
{
	FEdGraphPinType Type;
	PinConnections::SetCategory(Record, Type.PinCategory, Type.PinSubCategory);
	Type.PinSubCategoryObject = PinConnections::FindSubCategoryObject(Record);
	Type.ContainerType = RecordWords::ToContainerType(Record.ContainerType);
	Type.bIsReference = Record.bIsReference;
	Type.bIsConst = Record.bIsConst;
	Type.bIsWeakPointer = Record.bIsWeakPointer;
	Type.bIsUObjectWrapper = Record.bIsUObjectWrapper;
	if (Type.IsMap() && Record.ValueType)
	{
		PinConnections::SetCategory(
			*Record.ValueType, Type.PinValueType.TerminalCategory, Type.PinValueType.TerminalSubCategory);
		Type.PinValueType.TerminalSubCategoryObject = PinConnections::FindSubCategoryObject(*Record.ValueType);
	}
	return Type;
}
