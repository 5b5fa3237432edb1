#include "Knowledge/NodeSearch.h"

#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphSchema.h"
#include "EdGraphSchema_K2.h"
#include "JsonReading.h"
#include "NodeIdentity/NodeByIdentity.h"
#include "UObject/Class.h"
#include "UObject/UObjectGlobals.h"

namespace NodeSearchPrivate
{
constexpr int32 MaxNodes = 12;
constexpr int32 MaxNear = 10;

static FString TerminalWords(FName Category, FName SubCategory, const UObject* Object)
{
	FString Words = Category.ToString();
	Words += Category == UEdGraphSchema_K2::PC_Real ? TEXT(":") + SubCategory.ToString() : FString();
	return Object ? Words + TEXT(" ") + Object->GetPathName() : Words;
}

/** "array object /Script/Engine.Actor", "map name -> int". */
static FString TypeWords(const FEdGraphPinType& Type)
{
	const FString Words = TerminalWords(Type.PinCategory, Type.PinSubCategory, Type.PinSubCategoryObject.Get());
	switch (Type.ContainerType)
	{
	case EPinContainerType::Array:
		return TEXT("array ") + Words;
	case EPinContainerType::Set:
		return TEXT("set ") + Words;
	case EPinContainerType::Map:
		return TEXT("map ") + Words + TEXT(" -> ")
			+ TerminalWords(Type.PinValueType.TerminalCategory, Type.PinValueType.TerminalSubCategory,
				Type.PinValueType.TerminalSubCategoryObject.Get());
	case EPinContainerType::None:
		break;
	}
	return Words;
}

static TSharedRef<FJsonObject> DescribePin(const UEdGraphPin& Pin)
{
	const TSharedRef<FJsonObject> Out = MakeShared<FJsonObject>();
	const FString Name = Pin.PinName.ToString();
	const FString Shown = Pin.GetDisplayName().ToString();
	Out->SetStringField(TEXT("name"), Name);
	if (!Shown.IsEmpty() && Shown != Name)
	{
		Out->SetStringField(TEXT("shown"), Shown);
	}
	Out->SetStringField(TEXT("direction"), Pin.Direction == EGPD_Output ? TEXT("output") : TEXT("input"));
	Out->SetStringField(TEXT("type"), TypeWords(Pin.PinType));
	const FString Default = Pin.GetDefaultAsString();
	if (!Default.IsEmpty() && Pin.Direction == EGPD_Input)
	{
		Out->SetStringField(TEXT("default"), Default);
	}
	return Out;
}

static void DescribePins(const UEdGraphNode& Node, FJsonObject& Out)
{
	TArray<TSharedPtr<FJsonValue>> Pins;
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		if (!Pin->bHidden)
		{
			Pins.Add(MakeShared<FJsonValueObject>(DescribePin(*Pin)));
		}
	}
	Out.SetArrayField(TEXT("pins"), Pins);
}

static TSharedRef<FJsonObject> DescribeHit(const FMenuHit& Hit, UEdGraph& Graph)
{
	const TSharedRef<FJsonObject> Out = MakeShared<FJsonObject>();
	Out->SetStringField(TEXT("title"), Hit.GetTitle());
	Out->SetStringField(TEXT("category"), Hit.Action->GetCategory().ToString());
	Out->SetStringField(TEXT("node_class"), Hit.NodeClass);
	Out->SetObjectField(TEXT("request"), Hit.MakeRequest());
	if (UEdGraphNode* const Node = Hit.Action->PerformAction(&Graph, nullptr, FVector2f(0.0f, 0.0f), false))
	{
		DescribePins(*Node, *Out);
		Node->DestroyNode();
	}
	else
	{
		Out->SetStringField(TEXT("error"), TEXT("The node cannot stand in an event graph of such a Blueprint."));
	}
	return Out;
}

/** The functions of that owner and name, as the menu offers them. */
static TArray<FMenuHit> FindFunction(const FMenuSearch& Menu, const FString& Function)
{
	int32 Dot = INDEX_NONE;
	const bool bParted = Function.FindLastChar(TEXT(':'), Dot) || Function.FindLastChar(TEXT('.'), Dot);
	const FString Owner = bParted ? Function.Left(Dot) : FString();
	const FString Name = bParted ? Function.Mid(Dot + 1) : Function;
	TArray<FMenuHit> Hits = Menu.Find(FMenuQuery());
	Hits.RemoveAll(
		[&](const FMenuHit& Hit)
		{
			const TSharedRef<FJsonObject> Request = Hit.MakeRequest();
			FString OwnName;
			FString OwnOwner;
			MorvaneJson::TryGetStringField(*Request, TEXT("target_function"), OwnName);
			MorvaneJson::TryGetStringField(*Request, TEXT("target_class"), OwnOwner);
			return OwnName != Name || !(Owner.IsEmpty() || OwnOwner == Owner || OwnOwner.EndsWith(TEXT(".") + Owner));
		});
	return Hits;
}

static UClass* FindParent(const FString& Name)
{
	UClass* const Class = Name.IsEmpty() ? nullptr
		: Name.StartsWith(TEXT("/"))	 ? LoadObject<UClass>(nullptr, *Name)
										 : FindFirstObject<UClass>(*Name);
	return Class || !Name.IsEmpty() ? Class : FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor"));
}

static void TellNothingFound(const FMenuSearch& Menu, const FString& Asked, FJsonObject& Out)
{
	FMenuQuery Near;
	Near.Words = Asked;
	TArray<FString> Titles;
	for (const FMenuHit& Hit : Menu.Find(Near))
	{
		if (Titles.Num() < MaxNear)
		{
			Titles.AddUnique(Hit.GetTitle());
		}
	}
	Out.SetStringField(TEXT("error"), FString::Printf(TEXT("No action of the menu is called '%s'."), *Asked));
	TArray<TSharedPtr<FJsonValue>> Values;
	for (const FString& Title : Titles)
	{
		Values.Add(MakeShared<FJsonValueString>(Title));
	}
	Out.SetArrayField(TEXT("near"), Values);
}
} // namespace NodeSearchPrivate

TSharedRef<FJsonObject> NodeSearch::Describe(const FMenuSearch& Menu, const FNodeQuery& Query)
{
	const TSharedRef<FJsonObject> Out = MakeShared<FJsonObject>();
	TArray<FMenuHit> Hits = Query.Function.IsEmpty() ? Menu.FindTitled(Query.Title)
													 : NodeSearchPrivate::FindFunction(Menu, Query.Function);
	Hits.RemoveAll([&](const FMenuHit& Hit) { return !Query.NodeClass.IsEmpty() && Hit.NodeClass != Query.NodeClass; });
	if (Hits.IsEmpty())
	{
		NodeSearchPrivate::TellNothingFound(Menu, Query.Function.IsEmpty() ? Query.Title : Query.Function, *Out);
		return Out;
	}
	FNodeByIdentity Scratch;
	UClass* const Parent = NodeSearchPrivate::FindParent(Query.ParentClass);
	UEdGraph* const Graph = Parent ? Scratch.GetEventGraph(*Parent) : nullptr;
	if (!Graph)
	{
		Out->SetStringField(
			TEXT("error"), FString::Printf(TEXT("No Blueprint of '%s' can be made."), *Query.ParentClass));
		return Out;
	}
	TArray<TSharedPtr<FJsonValue>> Nodes;
	for (int32 Index = 0; Index < FMath::Min(Hits.Num(), NodeSearchPrivate::MaxNodes); ++Index)
	{
		Nodes.Add(MakeShared<FJsonValueObject>(NodeSearchPrivate::DescribeHit(Hits[Index], *Graph)));
	}
	Out->SetNumberField(TEXT("total"), Hits.Num());
	Out->SetArrayField(TEXT("nodes"), Nodes);
	return Out;
}
