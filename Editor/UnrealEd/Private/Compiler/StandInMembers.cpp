#include "Compiler/StandInMembers.h"

#include "Compiler/StandInFields.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_ActorBoundEvent.h"
#include "K2Node_BaseMCDelegate.h"
#include "K2Node_CallDelegate.h"
#include "K2Node_CallFunction.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_CreateDelegate.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_GetClassDefaults.h"
#include "K2Node_Message.h"
#include "K2Node_SwitchEnum.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Standalone/MissingObjects.h"
#include "UObject/UnrealType.h"

namespace StandInMembers
{
namespace
{
using FSchema = UEdGraphSchema_K2;
using StandInFields::FParameters;

class FGatherer
{
public:
	explicit FGatherer(const UBlueprint& InBlueprint)
		: Blueprint(InBlueprint)
	{
	}

	void Run()
	{
		Blueprint.GetAllGraphs(Graphs);
		GatherImplemented();
		for (const UEdGraph* const Graph : Graphs)
		{
			for (const UEdGraphNode* const Node : Graph->Nodes)
			{
				if (Node)
				{
					Gather(*Node);
					GatherEntries(*Node);
				}
			}
		}
		for (const FBPVariableDescription& Variable : Blueprint.NewVariables)
		{
			NoteEntry(Variable.VarType, Variable.DefaultValue);
		}
		for (UClass* const Class : Changed)
		{
			Class->Link();
		}
		for (const TPair<UEnum*, TArray<FName>>& Entries : EntriesByEnum)
		{
			StandInFields::AddEntries(*Entries.Key, Entries.Value);
		}
	}

private:
	/** The missing class of the line that a member must be of which no known class of it has; null when none is. */
	UClass* FindOwner(const UClass* Scope) const
	{
		const UBlueprint* const Declarer = UBlueprint::GetBlueprintFromClass(Scope);
		// One that is being read as well has its own members later.
		const bool bSettled = !Declarer || Declarer == &Blueprint || Declarer->bHasBeenRegenerated;
		return bSettled ? const_cast<UClass*>(FMissingObjects::FindMissingParent(Scope)) : nullptr;
	}

	/** As the reference says; a member that the Blueprint inherits is of the class that the node's target names. */
	UClass* FindOwner(const UEdGraphNode& Node, const FMemberReference& Reference) const
	{
		const UEdGraphPin* const Target = Reference.IsSelfContext() ? Node.FindPin(FSchema::PN_Self, EGPD_Input)
																	: nullptr;
		UClass* const Named = Target ? Cast<UClass>(Target->PinType.PinSubCategoryObject.Get()) : nullptr;
		const UClass* const Parent = Blueprint.ParentClass.Get();
		const bool bInherited = FMissingObjects::IsMissing(Named) && Parent && Parent->IsChildOf(Named);
		return bInherited ? Named : FindOwner(Reference);
	}

	UClass* FindOwner(const FMemberReference& Reference) const
	{
		if (Reference.IsLocalScope())
		{
			return nullptr;
		}
		return FindOwner(Reference.IsSelfContext() ? Blueprint.ParentClass.Get() : Reference.GetMemberParentClass());
	}

	void Note(UClass& Class, bool bAdded)
	{
		if (bAdded)
		{
			Changed.AddUnique(&Class);
		}
	}

	void Gather(const UEdGraphNode& Node)
	{
		if (const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(&Node))
		{
			GatherCall(*Call);
		}
		else if (const UK2Node_Variable* const Variable = Cast<UK2Node_Variable>(&Node))
		{
			GatherVariable(*Variable);
		}
		else if (const UK2Node_BaseMCDelegate* const Dispatcher = Cast<UK2Node_BaseMCDelegate>(&Node))
		{
			GatherDispatcher(*Dispatcher);
		}
		else if (const UK2Node_Event* const Event = Cast<UK2Node_Event>(&Node))
		{
			GatherEvent(*Event);
		}
		else if (const UK2Node_GetClassDefaults* const Defaults = Cast<UK2Node_GetClassDefaults>(&Node))
		{
			GatherDefaults(*Defaults);
		}
	}

	void GatherDefaults(const UK2Node_GetClassDefaults& Node)
	{
		const UClass* const Class = Node.GetInputClass();
		UClass* const Owner = FindOwner(Class);
		for (const UEdGraphPin* const Pin : Owner ? FParameters::Of(&Node, EGPD_Output) : TArray<const UEdGraphPin*>())
		{
			if (!Class->FindPropertyByName(Pin->PinName))
			{
				Note(*Owner, StandInFields::AddVariable(*Owner, Pin->PinName, Pin->PinType));
			}
		}
	}

	/** Exec pins beside the usual two come from an enum, which the pins do not name. */
	static bool HasOwnExecPins(const UEdGraphNode& Node)
	{
		return Node.Pins.ContainsByPredicate(
			[](const UEdGraphPin* Pin)
			{
				return Pin && FSchema::IsExecPin(*Pin) && !Pin->bOrphanedPin && Pin->PinName != FSchema::PN_Execute
					&& Pin->PinName != FSchema::PN_Then;
			});
	}

	void GatherCall(const UK2Node_CallFunction& Call)
	{
		UClass* Owner = Call.GetTargetFunction() ? nullptr : FindOwner(Call, Call.FunctionReference);
		if (!Owner || HasOwnExecPins(Call))
		{
			return;
		}
		if (Call.IsA<UK2Node_Message>() && !Owner->HasAnyClassFlags(CLASS_Interface))
		{
			FMissingObjects::StandInForClass(Owner->GetPathName(), *UInterface::StaticClass());
			FMissingObjects::TakeAsked();
		}
		const UEdGraphPin* const Target = Call.FindPin(FSchema::PN_Self, EGPD_Input);
		uint32 Flags = FUNC_BlueprintCallable | FUNC_Public;
		Flags |= Call.FindPin(FSchema::PN_Execute, EGPD_Input) ? 0u : FUNC_BlueprintPure;
		Flags |= !Target || Target->bHidden ? FUNC_Static : FUNC_BlueprintEvent;
		StandInFields::AddFunction(*Owner, Call.GetFunctionName(), Flags,
			FParameters{FParameters::Of(&Call, EGPD_Input), FParameters::Of(&Call, EGPD_Output)});
	}

	void GatherVariable(const UK2Node_Variable& Node)
	{
		UClass* const Owner = Node.GetPropertyForVariable() ? nullptr : FindOwner(Node, Node.VariableReference);
		const UEdGraphPin* const Value = Owner ? Node.GetValuePin() : nullptr;
		if (Value)
		{
			FEdGraphPinType Type = Value->PinType;
			Type.bIsReference = false;
			Type.bIsConst = false;
			Note(*Owner, StandInFields::AddVariable(*Owner, Node.GetVarName(), Type));
		}
	}

	/** Where the Blueprint's own function or event of the name starts. */
	const UEdGraphNode* FindStart(FName Function) const
	{
		for (const UEdGraph* const Graph : Graphs)
		{
			for (const UEdGraphNode* const Node : Graph->Nodes)
			{
				const UK2Node_CustomEvent* const Event = Cast<UK2Node_CustomEvent>(Node);
				const bool bEntry = Graph->GetFName() == Function && Node && Node->IsA<UK2Node_FunctionEntry>();
				if (bEntry || (Event && Event->CustomFunctionName == Function))
				{
					return Node;
				}
			}
		}
		return nullptr;
	}

	/** What is bound to a dispatcher, or what it is called with, tells its parameters. */
	TArray<const UEdGraphPin*> ParametersOf(const UK2Node_BaseMCDelegate& Node) const
	{
		if (Node.IsA<UK2Node_CallDelegate>())
		{
			return FParameters::Of(&Node, EGPD_Input);
		}
		const UEdGraphPin* const Bound = Node.GetDelegatePin();
		for (const UEdGraphPin* const Link : Bound ? Bound->LinkedTo : TArray<UEdGraphPin*>())
		{
			const UEdGraphNode* const Linked = Link->GetOwningNodeUnchecked();
			const UK2Node_CreateDelegate* const Create = Cast<UK2Node_CreateDelegate>(Linked);
			const UEdGraphNode* const Start = Create ? FindStart(Create->GetFunctionName()) : Linked;
			if (Start && (Start->IsA<UK2Node_CustomEvent>() || Start->IsA<UK2Node_FunctionEntry>()))
			{
				return FParameters::Of(Start, EGPD_Output);
			}
		}
		return TArray<const UEdGraphPin*>();
	}

	void GatherDispatcher(const UK2Node_BaseMCDelegate& Node)
	{
		UClass* const Owner = Node.GetProperty() ? nullptr : FindOwner(Node, Node.DelegateReference);
		if (Owner)
		{
			const UEdGraphPin* const Bound = Node.GetDelegatePin();
			const FName Signature = Bound ? Bound->PinType.PinSubCategoryMemberReference.MemberName : NAME_None;
			Note(*Owner, StandInFields::AddDispatcher(*Owner, Node.GetPropertyName(), Signature, ParametersOf(Node)));
		}
	}

	void GatherEvent(const UK2Node_Event& Event)
	{
		if (const UK2Node_ComponentBoundEvent* const Bound = Cast<UK2Node_ComponentBoundEvent>(&Event))
		{
			GatherBound(Event, Bound->DelegateOwnerClass.Get(), Bound->DelegatePropertyName);
			UClass* const Parent = FindOwner(Blueprint.ParentClass.Get());
			const bool bOwn = Blueprint.GeneratedClass.Get()->FindPropertyByName(Bound->ComponentPropertyName)
				!= nullptr;
			if (Parent && !bOwn)
			{
				Note(*Parent,
					StandInFields::AddObjectVariable(
						*Parent, Bound->ComponentPropertyName, Bound->DelegateOwnerClass.Get()));
			}
		}
		else if (const UK2Node_ActorBoundEvent* const OfActor = Cast<UK2Node_ActorBoundEvent>(&Event))
		{
			GatherBound(Event, OfActor->DelegateOwnerClass.Get(), OfActor->DelegatePropertyName);
		}
		else if (Event.bOverrideFunction && !Event.FindEventSignatureFunction())
		{
			if (UClass* const Owner = FindOwner(Event.EventReference))
			{
				AddOverridable(*Owner, Event.EventReference.GetMemberName(),
					FParameters{FParameters::Of(&Event, EGPD_Output), {}});
			}
		}
	}

	void GatherBound(const UK2Node_Event& Event, const UClass* Class, FName Dispatcher)
	{
		UClass* const Owner = Class && Class->FindPropertyByName(Dispatcher) ? nullptr : FindOwner(Class);
		if (Owner)
		{
			Note(*Owner,
				StandInFields::AddDispatcher(
					*Owner, Dispatcher, Event.EventReference.GetMemberName(), FParameters::Of(&Event, EGPD_Output)));
		}
	}

	static void AddOverridable(UClass& Owner, FName Name, const FParameters& Parameters)
	{
		StandInFields::AddFunction(
			Owner, Name, FUNC_BlueprintCallable | FUNC_BlueprintEvent | FUNC_Event | FUNC_Public, Parameters);
	}

	/** Functions of parents and interfaces that graphs here give a body. */
	void GatherImplemented()
	{
		for (const UEdGraph* const Graph : Blueprint.FunctionGraphs)
		{
			const UK2Node_FunctionEntry* const Entry = FBlueprintEditorUtils::GetEntryNode(Graph);
			if (Entry && Entry->FunctionReference.GetMemberParentClass() && !Entry->FindSignatureFunction())
			{
				GatherBody(*Graph, *Entry, FindOwner(Entry->FunctionReference));
			}
		}
		for (const FBPInterfaceDescription& Interface : Blueprint.ImplementedInterfaces)
		{
			for (const UEdGraph* const Graph : Interface.Graphs)
			{
				if (const UK2Node_FunctionEntry* const Entry = FBlueprintEditorUtils::GetEntryNode(Graph))
				{
					GatherBody(*Graph, *Entry, FindOwner(Interface.Interface.Get()));
				}
			}
		}
	}

	static void GatherBody(const UEdGraph& Graph, const UK2Node_FunctionEntry& Entry, UClass* Owner)
	{
		if (Owner)
		{
			TArray<UK2Node_FunctionResult*> Results;
			Graph.GetNodesOfClass(Results);
			FParameters Parameters{FParameters::Of(&Entry, EGPD_Output), {}};
			if (!Results.IsEmpty())
			{
				Parameters.Outputs = FParameters::Of(Results[0], EGPD_Input);
			}
			AddOverridable(*Owner, Graph.GetFName(), Parameters);
		}
	}

	void GatherEntries(const UEdGraphNode& Node)
	{
		for (const UEdGraphPin* const Pin : Node.Pins)
		{
			if (Pin)
			{
				NoteEntry(Pin->PinType, Pin->DefaultValue);
			}
		}
		const UK2Node_SwitchEnum* const Switch = Cast<UK2Node_SwitchEnum>(&Node);
		if (Switch && FMissingObjects::IsMissing(Switch->Enum))
		{
			for (const FName Entry : Switch->EnumEntries)
			{
				EntriesByEnum.FindOrAdd(Switch->Enum.Get()).Add(Entry);
			}
		}
	}

	/** The default of a container lists several, in a form of its own; those are not taken apart. */
	void NoteEntry(const FEdGraphPinType& Type, const FString& Value)
	{
		UEnum* const Enum = Cast<UEnum>(Type.PinSubCategoryObject.Get());
		if (FMissingObjects::IsMissing(Enum) && !Value.IsEmpty() && Type.ContainerType == EPinContainerType::None
			&& !Value.Contains(TEXT("(")) && !Value.IsNumeric())
		{
			EntriesByEnum.FindOrAdd(Enum).Add(FName(Value));
		}
	}

	const UBlueprint& Blueprint;
	TArray<UEdGraph*> Graphs;
	TArray<UClass*> Changed;
	TMap<UEnum*, TArray<FName>> EntriesByEnum;
};
} // namespace

void AddUsedBy(const UBlueprint& Blueprint)
{
	FGatherer(Blueprint).Run();
}
} // namespace StandInMembers
