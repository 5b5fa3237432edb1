#include "Menu/ActionAudience.h"

#include "BlueprintActionDatabase.h"
#include "BlueprintNodeSpawner.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node.h"
#include "Nodes/FunctionPins.h"
#include "Nodes/MenuWords.h"
#include "Standalone/BlueprintClassProvider.h"

namespace ActionAudiences
{
static void AddLine(const UClass* Class, TSet<const UClass*>& Out)
{
	for (; Class; Class = Class->GetSuperClass())
	{
		Out.Add(Class);
		Out.Add(Class->GetAuthoritativeClass());
		for (const FImplementedInterface& Interface : Class->Interfaces)
		{
			Out.Add(Interface.Class);
		}
	}
}

static bool IsBelowEditorClass(const UClass* Class)
{
	for (; Class; Class = Class->GetSuperClass())
	{
		if (MenuWords::IsOfEditor(*Class))
		{
			return true;
		}
	}
	return false;
}
/** Whether calls of the class's Blueprints can name a world: the caller's own, or one given on a pin. */
static bool ReachesWorld(const UClass* Class)
{
	bool bAsksOnPin = !Class;
	for (const UClass* Step = Class; Step && !bAsksOnPin; Step = Step->GetSuperClass())
	{
		bAsksOnPin = Step->HasMetaData(FBlueprintMetadata::MD_ShowWorldContextPin);
	}
	return bAsksOnPin || FunctionPins::HasWorld(Class);
}
} // namespace ActionAudiences

FActionAudience::FActionAudience(const FBlueprintActionFilter& Filter)
	: bContextSensitive(Filter.bContextSensitive)
{
	const FBlueprintActionContext& Context = Filter.Context;
	Graph = Context.Graphs.IsEmpty() ? nullptr : Context.Graphs[0];
	Blueprint = Context.Blueprints.IsEmpty() ? nullptr : Context.Blueprints[0];
	if (!Blueprint && Graph)
	{
		Blueprint = Graph->GetTypedOuter<UBlueprint>();
	}
	for (const UEdGraph* Above = Graph; Above; Above = Above->GetParentGraph())
	{
		TopGraph = Above;
	}
	if (Graph && Graph->GetSchema())
	{
		GraphType = Graph->GetSchema()->GetGraphType(Graph);
		bInConstructionScript = UEdGraphSchema_K2::IsConstructionScript(Graph);
	}
	const UClass* const Self = BlueprintClassProvider::GetSelfClass(Blueprint);
	if (Blueprint)
	{
		const UClass* const Parent = Blueprint->ParentClass.Get();
		ActionAudiences::AddLine(Self, OwnClasses);
		ActionAudiences::AddLine(Parent, OwnClasses);
		for (const FBPInterfaceDescription& Interface : Blueprint->ImplementedInterfaces)
		{
			ActionAudiences::AddLine(Interface.Interface.Get(), OwnClasses);
		}
		bHasWorld = Blueprint->BlueprintType == BPTYPE_FunctionLibrary || ActionAudiences::ReachesWorld(Parent);
		bIsOfEditor = ActionAudiences::IsBelowEditorClass(Parent);
	}
	Classes = OwnClasses;
	for (const UEdGraphPin* const Pin : Context.Pins)
	{
		ActionAudiences::AddLine(Cast<UClass>(Pin->PinType.PinSubCategoryObject.Get()), Classes);
		if (bContextSensitive)
		{
			Pins.Emplace(*Pin, Self);
		}
	}
}

bool FActionAudience::FitsGraph(const UClass& NodeClass)
{
	if (!Graph)
	{
		return true;
	}
	if (const bool* const Known = NodeClassFits.Find(&NodeClass))
	{
		return *Known;
	}
	const UEdGraphNode* const Default = NodeClass.GetDefaultObject<UEdGraphNode>();
	const UEdGraphSchema* const Schema = Graph->GetSchema();
	const bool bFits = (!Schema || Default->CanCreateUnderSpecifiedSchema(Schema))
		&& Default->IsCompatibleWithGraph(Graph);
	NodeClassFits.Add(&NodeClass, bFits);
	return bFits;
}

bool FActionAudience::CanHave(const FBlueprintAction& Action)
{
	const bool bOthers = (Action.OnlyInBlueprint && Action.OnlyInBlueprint != Blueprint)
		|| (Action.OnlyInGraph && Action.OnlyInGraph != TopGraph)
		|| (Action.bIsProtected && !OwnClasses.Contains(Action.MemberOf));
	if (bOthers || (Action.bIsLatent && GraphType == GT_Function))
	{
		return false;
	}
	if ((Action.bIsUnsafeInConstruction && bInConstructionScript) || (Action.bNeedsWorld && !bHasWorld)
		|| (Action.bIsEditorOnly && !bIsOfEditor))
	{
		return false;
	}
	if (Action.RequiredClass && !OwnClasses.Contains(Action.RequiredClass))
	{
		return false;
	}
	return !Action.NodeClass || FitsGraph(*Action.NodeClass);
}

bool FActionAudience::IsRelevant(const FBlueprintAction& Action)
{
	if (Action.bOfUnloadedClass || (Action.MemberOf && !Classes.Contains(Action.MemberOf)))
	{
		return false;
	}
	const UClass* const CastTarget = Action.CastTarget.Get();
	for (FPinMatch& Pin : Pins)
	{
		if (CastTarget && !Pin.MayCastTo(*CastTarget))
		{
			return false;
		}
		if (!Action.Item->GetRawAction()->AnyPin([&Pin](const FEdGraphPinType& Type, EEdGraphPinDirection Direction)
				{ return Pin.Takes(Type, Direction); }))
		{
			return false;
		}
	}
	return true;
}

bool FActionAudience::IsOffered(const FBlueprintAction& Action)
{
	// A menu for nobody lists everything there is.
	if (!Blueprint && !Graph)
	{
		return true;
	}
	return CanHave(Action) && (!bContextSensitive || IsRelevant(Action));
}

TSharedPtr<FBlueprintActionMenuItem> FActionAudience::GetItem(const FBlueprintAction& Action) const
{
	const bool bHasOtherWords = Blueprint && !Action.OtherCategory.IsEmpty();
	if (!bHasOtherWords || Classes.Contains(Action.MemberOf) == Action.bNamedAsMember)
	{
		return Action.Item;
	}
	if (!Action.OtherItem)
	{
		Action.OtherItem = MakeShared<FBlueprintActionMenuItem>(*Action.Item);
		Action.OtherItem->Category = Action.OtherCategory;
	}
	return Action.OtherItem;
}
