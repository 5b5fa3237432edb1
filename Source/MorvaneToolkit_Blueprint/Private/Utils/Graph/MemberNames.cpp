#include "Utils/Graph/MemberNames.h"

#include "Blueprint/WidgetTree.h"
#include "BlueprintGraphUtils.h"
#include "BlueprintMatchingUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphSchema.h"
#include "Engine/Blueprint.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/TimelineTemplate.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "UObject/UObjectGlobals.h"
#include "WidgetBlueprint.h"

namespace MemberNamesImpl
{
/** "a function library", for the kinds of Blueprint that lack something. */
static const TCHAR* NameKind(const UBlueprint& Blueprint)
{
	switch (Blueprint.BlueprintType)
	{
	case BPTYPE_FunctionLibrary:
		return TEXT("a function library");
	case BPTYPE_MacroLibrary:
		return TEXT("a macro library");
	case BPTYPE_Interface:
		return TEXT("an interface");
	default:
		return TEXT("a Blueprint of this type");
	}
}

/** Who has the name among the Blueprint's own members; empty when it is somebody else. */
static FString FindOwnHolder(const UBlueprint& Blueprint, FName Name)
{
	if (const UEdGraph* const Graph = FBlueprintMatchingUtils::FindGraphByName(&Blueprint, Name.ToString()))
	{
		return MemberNames::DescribeGraph(Blueprint, *Graph);
	}
	if (FBlueprintEditorUtils::FindNewVariableIndex(&Blueprint, Name) != INDEX_NONE)
	{
		return TEXT("a variable");
	}
	if (Blueprint.SimpleConstructionScript && Blueprint.SimpleConstructionScript->FindSCSNode(Name))
	{
		return TEXT("a component");
	}
	const UWidgetBlueprint* const WidgetBlueprint = Cast<UWidgetBlueprint>(&Blueprint);
	if (WidgetBlueprint && WidgetBlueprint->WidgetTree && WidgetBlueprint->WidgetTree->FindWidget(Name))
	{
		return TEXT("a widget");
	}
	const bool bTimeline = Blueprint.Timelines.ContainsByPredicate(
		[Name](const UTimelineTemplate* Timeline) { return Timeline && Timeline->GetVariableName() == Name; });
	if (bTimeline)
	{
		return TEXT("a timeline");
	}
	return FBlueprintEditorUtils::FindCustomEventNode(&Blueprint, Name) ? TEXT("a custom event") : FString();
}

static FString FindInheritedHolder(const UBlueprint& Blueprint, FName Name)
{
	const UClass* const Parent = Blueprint.ParentClass;
	if (Parent && Parent->FindFunctionByName(Name))
	{
		return FString::Printf(TEXT("a function of the parent class '%s'"), *Parent->GetName());
	}
	if (Parent && Parent->FindPropertyByName(Name))
	{
		return FString::Printf(TEXT("a variable of the parent class '%s'"), *Parent->GetName());
	}
	for (const FBPInterfaceDescription& Interface : Blueprint.ImplementedInterfaces)
	{
		if (Interface.Interface && Interface.Interface->FindFunctionByName(Name))
		{
			return FString::Printf(TEXT("a function of the interface '%s'"), *Interface.Interface->GetName());
		}
	}
	return FString();
}
} // namespace MemberNamesImpl

FString MemberNames::DescribeObstacle(const UBlueprint& Blueprint, const FString& Name)
{
	// Asked for each event of a batch, so the Blueprint's own class, which is stale after each, is left alone: whatever
	// stands in it was declared in one of the places below.
	const EValidatorResult Verdict = FKismetNameValidator(nullptr).IsValid(Name);
	if (Verdict != EValidatorResult::Ok)
	{
		return INameValidatorInterface::GetErrorString(Name, Verdict);
	}
	const FName MemberName(*Name);
	FString Holder = MemberNamesImpl::FindOwnHolder(Blueprint, MemberName);
	Holder = Holder.IsEmpty() ? MemberNamesImpl::FindInheritedHolder(Blueprint, MemberName) : Holder;
	if (Holder.IsEmpty() && StaticFindObjectFast(nullptr, const_cast<UBlueprint*>(&Blueprint), MemberName))
	{
		Holder = TEXT("something else");
	}
	return Holder.IsEmpty() ? FString() : Holder + TEXT(" has this name already");
}

FString MemberNames::DescribeGraph(const UBlueprint& Blueprint, const UEdGraph& Graph)
{
	const UEdGraph* const Top = FBlueprintEditorUtils::GetTopLevelGraph(&Graph);
	if (Top && Top != &Graph)
	{
		return FString::Printf(TEXT("a graph inside '%s'"), *Top->GetName());
	}
	if (FBlueprintGraphUtils::IsUbergraphPage(&Blueprint, &Graph))
	{
		return TEXT("an event graph");
	}
	if (FBlueprintGraphUtils::IsDelegateSignatureGraph(&Blueprint, &Graph))
	{
		return TEXT("an event dispatcher");
	}
	const EGraphType Type = Graph.GetSchema() ? Graph.GetSchema()->GetGraphType(&Graph) : GT_MAX;
	if (Type == GT_Macro)
	{
		return TEXT("a macro");
	}
	return Type == GT_Function ? TEXT("a function") : TEXT("an animation graph");
}

FString MemberNames::WhyNoEventGraph(const UBlueprint& Blueprint)
{
	return FBlueprintEditorUtils::DoesSupportEventGraphs(&Blueprint)
		? FString()
		: FString::Printf(TEXT("%s has no event graph"), MemberNamesImpl::NameKind(Blueprint));
}

FString MemberNames::WhyNoDispatchers(const UBlueprint& Blueprint)
{
	return FBlueprintEditorUtils::DoesSupportEventGraphs(&Blueprint)
		? FString()
		: FString::Printf(TEXT("%s has no event dispatchers"), MemberNamesImpl::NameKind(Blueprint));
}
