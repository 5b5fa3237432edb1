// Event nodes for the delegates of widgets, in the Blueprint's event graph.

#include "Utils/Widget/WidgetEvents.h"

#include "Blueprint/WidgetTree.h"
#include "Components/Widget.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "JsonReading.h"
#include "K2Node_ComponentBoundEvent.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Widget/QuotedValue.h"
#include "WidgetBlueprint.h"
#include "WidgetBlueprintService.h"
#include "WidgetBlueprintUtils.h"

namespace WidgetEvents
{
namespace
{
using Morvane::FToolResult;

/** Nodes stand in a column, each below the last. */
constexpr int32 ColumnX = 400;
constexpr int32 FirstY = 100;
constexpr int32 StepY = 250;

/** Buttons of one family call the same events by other names than those that authors know. */
struct FFallback
{
	const TCHAR* Asked;
	const TCHAR* Used;
};
constexpr FFallback Fallbacks[] = {
	{TEXT("OnClicked"), TEXT("OnButtonBaseClicked")},
	{TEXT("OnHovered"), TEXT("OnButtonBaseHovered")},
	{TEXT("OnUnhovered"), TEXT("OnButtonBaseUnhovered")},
};

const FMulticastDelegateProperty* FindDelegate(const UClass& Class, const FString& Name)
{
	return !Name.IsEmpty() && Name.Len() < NAME_SIZE ? FindFProperty<FMulticastDelegateProperty>(&Class, FName(*Name))
													 : nullptr;
}

UEdGraph* FindEventGraph(const UWidgetBlueprint& Blueprint)
{
	for (UEdGraph* const Page : Blueprint.UbergraphPages)
	{
		if (Page && Page->GetFName() == UEdGraphSchema_K2::GN_EventGraph)
		{
			return Page;
		}
	}
	return nullptr;
}

/** Tells once for each class what delegates there are; the names are kept for the life of the process. */
void ListDelegates(const UClass& Class, FToolResult& Result)
{
	static TSet<FString> ListedClasses;
	const FString Path = Class.GetPathName();
	if (ListedClasses.Contains(Path))
	{
		return;
	}
	ListedClasses.Add(Path);
	TArray<FString> Lines;
	for (TFieldIterator<FMulticastDelegateProperty> It(&Class, EFieldIteratorFlags::IncludeSuper); It; ++It)
	{
		Lines.Add(FString::Printf(TEXT("  - %s"), *It->GetName()));
	}
	Result.AddWarningMessage(Lines.IsEmpty()
			? FString::Printf(TEXT("No multicast delegate properties found in widget class '%s'"), *Class.GetName())
			: FString::Printf(TEXT("Available delegates in widget class '%s':\n%s"), *Class.GetName(),
				*FString::Join(Lines, TEXT("\n"))));
}

/** The delegate that a name means on a widget; null after a warning. */
const FMulticastDelegateProperty* ResolveDelegate(
	const UClass& Class, const FString& Asked, const FString& WidgetName, FToolResult& Result)
{
	if (const FMulticastDelegateProperty* const Delegate = FindDelegate(Class, Asked))
	{
		return Delegate;
	}
	for (const FFallback& Row : Fallbacks)
	{
		const FMulticastDelegateProperty* const Delegate = Asked.Equals(Row.Asked, ESearchCase::IgnoreCase)
			? FindDelegate(Class, Row.Used)
			: nullptr;
		if (Delegate)
		{
			Result.AddWarningMessage(
				FString::Printf(TEXT("Event '%s' not found on widget class, using fallback '%s' for widget '%s'"),
					*Asked, Row.Used, *WidgetName));
			return Delegate;
		}
	}
	Result.AddWarningMessage(FString::Printf(TEXT("Event '%s' not found on widget class '%s' for widget '%s'"),
		*QuotedValue::Shorten(Asked), *Class.GetName(), *WidgetName));
	ListDelegates(Class, Result);
	return nullptr;
}

/** The bound events of one graph, and where the next one goes. */
class FColumn
{
public:
	explicit FColumn(const UEdGraph& Graph)
	{
		for (const UEdGraphNode* const Node : Graph.Nodes)
		{
			if (!Node)
			{
				continue;
			}
			if (Node->NodePosX == ColumnX && Node->NodePosY >= NextY)
			{
				NextY = Node->NodePosY + StepY;
			}
			if (const UK2Node_ComponentBoundEvent* const Event = Cast<UK2Node_ComponentBoundEvent>(Node))
			{
				Add(*Event);
			}
		}
	}

	bool Has(FName Widget, FName Delegate) const
	{
		const TSet<FName>* const Delegates = DelegatesByWidget.Find(Widget);
		return Delegates && Delegates->Contains(Delegate);
	}
	void Add(const UK2Node_ComponentBoundEvent& Event)
	{
		DelegatesByWidget.FindOrAdd(Event.GetComponentPropertyName()).Add(Event.DelegatePropertyName);
	}
	int32 GetNextY() const { return NextY; }
	void Advance() { NextY += StepY; }

private:
	TMap<FName, TSet<FName>> DelegatesByWidget;
	int32 NextY = FirstY;
};

/** One run over the requests. */
class FRun
{
public:
	FRun(UWidgetBlueprint& InBlueprint, UEdGraph& InGraph, FToolResult& InResult, TSet<FString>* InCreated)
		: Blueprint(InBlueprint)
		, Graph(InGraph)
		, Result(InResult)
		, Created(InCreated)
		, Column(InGraph)
	{
	}

	void Run(const FWidgetChanges::FPendingEvents& Request)
	{
		for (const auto& Pair : Request.Events->Values)
		{
			bool bWanted = false;
			const UWidget* const Widget = Pair.Value && MorvaneJson::TryGetBool(*Pair.Value, bWanted) && bWanted
				? Blueprint.WidgetTree->FindWidget(FName(*Request.Widget))
				: nullptr;
			if (Widget)
			{
				Make(*Widget, Pair.Key);
			}
		}
	}

	bool HasMade() const { return bMade; }

private:
	void Make(const UWidget& Widget, const FString& Asked)
	{
		const FString WidgetName = Widget.GetName();
		const UClass* const Class = FBlueprintEditorUtils::GetMostUpToDateClass(Widget.GetClass());
		const FMulticastDelegateProperty* const Delegate = ResolveDelegate(*Class, Asked, WidgetName, Result);
		if (!Delegate)
		{
			return;
		}
		const FString Name = Delegate->GetName();
		if (Column.Has(Widget.GetFName(), Delegate->GetFName()))
		{
			Result.AddWarningMessage(FString::Printf(
				TEXT("Event '%s' already exists for widget '%s' - skipping duplicate creation"), *Name, *WidgetName));
			return;
		}
		const UK2Node_ComponentBoundEvent* const Node = Cast<UK2Node_ComponentBoundEvent>(
			FWidgetBlueprintUtils::CreateComponentBoundEventNode(
				&Graph, WidgetName, Name, ColumnX, Column.GetNextY(), Result));
		if (!Node)
		{
			return;
		}
		Column.Add(*Node);
		Column.Advance();
		bMade = true;
		Result.AddSuccessMessage(FString::Printf(TEXT("Created event node '%s' for widget '%s'"), *Name, *WidgetName));
		if (Created)
		{
			Created->Add(Node->GetNodeTitle(ENodeTitleType::FullTitle).ToString());
		}
	}

	UWidgetBlueprint& Blueprint;
	UEdGraph& Graph;
	FToolResult& Result;
	TSet<FString>* const Created;
	FColumn Column;
	bool bMade = false;
};
} // namespace

bool Create(UWidgetBlueprint* Blueprint, const TArray<FWidgetChanges::FPendingEvents>& Requests,
	Morvane::FToolResult& Result, TSet<FString>* OutCreatedEvents)
{
	if (!Blueprint)
	{
		Result.AddErrorMessage(TEXT("WidgetBlueprint is null"));
		return false;
	}
	UEdGraph* const Graph = FindEventGraph(*Blueprint);
	if (!Graph)
	{
		Result.AddWarningMessage(TEXT("EventGraph not found in Widget Blueprint"));
		return false;
	}
	FRun Run(*Blueprint, *Graph, Result, OutCreatedEvents);
	for (const FWidgetChanges::FPendingEvents& Request : Requests)
	{
		if (Blueprint->WidgetTree && Request.Events)
		{
			Run.Run(Request);
		}
	}
	if (Run.HasMade())
	{
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint);
	}
	return true;
}
} // namespace WidgetEvents

bool FWidgetBlueprintService::CreateWidgetEventNodes(UWidgetBlueprint* Blueprint, const FString& WidgetName,
	const TSharedPtr<FJsonObject>& Events, Morvane::FToolResult& Result, TSet<FString>* OutCreatedEvents)
{
	return WidgetEvents::Create(Blueprint, {{WidgetName, Events}}, Result, OutCreatedEvents);
}

UEdGraphNode* FWidgetBlueprintUtils::CreateComponentBoundEventNode(UEdGraph* Graph, const FString& WidgetName,
	const FString& DelegateName, int32 PosX, int32 PosY, Morvane::FToolResult& Result)
{
	if (!Graph)
	{
		Result.AddErrorMessage(TEXT("Graph is null"));
		return nullptr;
	}
	const UBlueprint* const Blueprint = FBlueprintEditorUtils::FindBlueprintForGraph(Graph);
	if (!Blueprint)
	{
		Result.AddErrorMessage(TEXT("Cannot find Blueprint for graph"));
		return nullptr;
	}
	const UClass* const Class = FBlueprintEditorUtils::GetMostUpToDateClass(Blueprint->GeneratedClass);
	const FObjectProperty* const Variable = Class ? FindFProperty<FObjectProperty>(Class, FName(*WidgetName)) : nullptr;
	if (!Variable)
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Widget component '%s' not found in blueprint"), *QuotedValue::Shorten(WidgetName)));
		return nullptr;
	}
	const UClass* const ComponentClass = FBlueprintEditorUtils::GetMostUpToDateClass(Variable->PropertyClass);
	if (!ComponentClass)
	{
		Result.AddErrorMessage(TEXT("Component class is null"));
		return nullptr;
	}
	const FMulticastDelegateProperty* const Delegate = WidgetEvents::FindDelegate(*ComponentClass, DelegateName);
	if (!Delegate)
	{
		Result.AddWarningMessage(FString::Printf(TEXT("Delegate '%s' not found on component class '%s'"),
			*QuotedValue::Shorten(DelegateName), *ComponentClass->GetName()));
		return nullptr;
	}
	FGraphNodeCreator<UK2Node_ComponentBoundEvent> Creator(*Graph);
	UK2Node_ComponentBoundEvent* const Node = Creator.CreateNode(false);
	if (!Node)
	{
		Result.AddErrorMessage(TEXT("Failed to create component bound event node"));
		return nullptr;
	}
	Node->InitializeComponentBoundEventParams(Variable, Delegate);
	Node->NodePosX = PosX;
	Node->NodePosY = PosY;
	Creator.Finalize(); // gives it an id and its pins
	return Node;
}
