// Actions that a Blueprint brings: its members for everybody, its macros, component events and local variables for
// itself.

#include "Menu/ActionSources.h"

#include "BlueprintEventNodeSpawner.h"
#include "BlueprintVariableNodeSpawner.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_MacroInstance.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "Nodes/MenuWords.h"
#include "Standalone/BlueprintClassProvider.h"
#include "UObject/UnrealType.h"

namespace ActionSources
{
static const UK2Node_FunctionEntry* FindEntry(const UEdGraph& Graph)
{
	for (UEdGraphNode* const Node : Graph.Nodes)
	{
		if (const UK2Node_FunctionEntry* const Entry = Cast<UK2Node_FunctionEntry>(Node))
		{
			return Entry;
		}
	}
	return nullptr;
}

static FString MacroCategory(const UEdGraph& Graph)
{
	const FKismetUserDeclaredFunctionMetadata* const Data = UK2Node_EditablePinBase::GetGraphFunctionMetaData(&Graph);
	const FString Category = Data ? Data->Category.ToString() : FString();
	return Category.IsEmpty() ? FString(TEXT("Utilities|Macro")) : MenuWords::ReadableCategory(Category);
}

static void AddMacros(UBlueprint& Blueprint, FActionList& Out)
{
	const bool bIsLibrary = Blueprint.BlueprintType == BPTYPE_MacroLibrary;
	for (UEdGraph* const Graph : Blueprint.MacroGraphs)
	{
		const TWeakObjectPtr<UEdGraph> Held(Graph);
		UBlueprintNodeSpawner* const Spawner = UBlueprintNodeSpawner::Create(UK2Node_MacroInstance::StaticClass(),
			nullptr,
			[Held](UEdGraphNode* Node, bool) { CastChecked<UK2Node_MacroInstance>(Node)->SetMacroGraph(Held.Get()); });
		Spawner->DefaultMenuSignature.MenuName = FText::FromString(FName::NameToDisplayString(Graph->GetName(), false));
		Spawner->DefaultMenuSignature.Category = MenuWords::SharedText(MacroCategory(*Graph));
		if (FBlueprintAction* const Action = Add(Spawner, Out))
		{
			Action->RequiredClass = bIsLibrary ? Blueprint.ParentClass.Get() : nullptr;
			Action->OnlyInBlueprint = bIsLibrary ? nullptr : &Blueprint;
		}
	}
}

static void AddLocals(UBlueprint& Blueprint, FActionList& Out)
{
	for (UEdGraph* const Graph : Blueprint.FunctionGraphs)
	{
		const UK2Node_FunctionEntry* const Entry = FindEntry(*Graph);
		if (!Entry)
		{
			continue;
		}
		for (const FBPVariableDescription& Variable : Entry->LocalVariables)
		{
			for (const UClass* const NodeClass :
				{UK2Node_VariableGet::StaticClass(), UK2Node_VariableSet::StaticClass()})
			{
				if (FBlueprintAction* const Action = Add(
						UBlueprintVariableNodeSpawner::CreateFromLocal(NodeClass, Graph, Variable), Out))
				{
					Action->OnlyInGraph = Graph;
				}
			}
		}
	}
}

static bool HoldsComponentOrWidget(const FObjectProperty& Property)
{
	static const UClass* const Bases[] = {FindObject<UClass>(nullptr, TEXT("/Script/Engine.ActorComponent")),
		FindObject<UClass>(nullptr, TEXT("/Script/UMG.Widget"))};
	for (const UClass* const Base : Bases)
	{
		if (Base && Property.PropertyClass && Property.PropertyClass->IsChildOf(Base))
		{
			return true;
		}
	}
	return false;
}

/** Every dispatcher of every component or widget that the Blueprint can listen to. Native components are the parent's,
 * and as much the Blueprint's own as those that it adds. */
static void ForEachComponentEvent(const UClass& Class,
	TFunctionRef<void(const FObjectProperty& Component, const FMulticastDelegateProperty& Event)> Visit)
{
	for (TFieldIterator<FObjectProperty> It(&Class); It; ++It)
	{
		if (!HoldsComponentOrWidget(**It) || !It->HasAnyPropertyFlags(CPF_BlueprintVisible))
		{
			continue;
		}
		for (TFieldIterator<FMulticastDelegateProperty> Event(It->PropertyClass); Event; ++Event)
		{
			if (Event->HasAnyPropertyFlags(CPF_BlueprintAssignable))
			{
				Visit(**It, **Event);
			}
		}
	}
}

static void AddComponentEvents(UBlueprint& Blueprint, const UClass& Class, FActionList& Out)
{
	ForEachComponentEvent(Class,
		[&Blueprint, &Out](const FObjectProperty& Component, const FMulticastDelegateProperty& Event)
		{
			if (FBlueprintAction* const Action = Add(UBlueprintBoundEventNodeSpawner::Create(&Component, &Event), Out))
			{
				Action->OnlyInBlueprint = &Blueprint;
			}
		});
}

void AddBlueprint(UBlueprint& Blueprint, FActionList& Out)
{
	if (Blueprint.BlueprintType != BPTYPE_MacroLibrary)
	{
		if (const UClass* const Class = BlueprintClassProvider::GetSelfClass(&Blueprint))
		{
			if (Class->ClassGeneratedBy == &Blueprint)
			{
				AddMembers(*Class, Out);
			}
			AddComponentEvents(Blueprint, *Class, Out);
		}
		if (UClass* const Class = Blueprint.GeneratedClass.Get())
		{
			AddCasts(*Class, Out);
			AddComponent(*Class, Out);
		}
	}
	AddMacros(Blueprint, Out);
	AddLocals(Blueprint, Out);
}

/** Mixes what an entry's words or its reach depend on. */
class FFingerprint
{
public:
	void Mix(uint32 Value) { Sum = HashCombine(Sum, Value); }
	void Mix(FName Name) { Mix(GetTypeHash(Name)); }
	void Mix(const void* Pointer) { Mix(GetTypeHash(reinterpret_cast<uint64>(Pointer))); }
	void Mix(const FString& Text)
	{
		// Case matters to what is shown.
		for (const TCHAR Char : Text)
		{
			Mix(static_cast<uint32>(Char));
		}
		Mix(static_cast<uint32>(Text.Len()));
	}
	template <class TField>
	void MixWords(const TField& Field)
	{
		for (const FName Key : {FBlueprintMetadata::MD_FunctionCategory, FBlueprintMetadata::MD_DisplayName,
				 FBlueprintMetadata::MD_FunctionKeywords, FBlueprintMetadata::MD_Private,
				 FBlueprintMetadata::MD_Protected, FBlueprintMetadata::MD_DeprecatedFunction})
		{
			const FString* const Value = Field.FindMetaData(Key);
			Mix(Value ? *Value : FString());
		}
	}
	uint32 Get() const { return Sum; }

private:
	uint32 Sum = 0;
};

static void MixMembers(const UClass* Class, FFingerprint& Print)
{
	for (TFieldIterator<UFunction> It(Class, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		Print.Mix(It->GetName());
		Print.Mix(static_cast<uint32>(It->FunctionFlags));
		Print.MixWords(**It);
	}
	for (TFieldIterator<FProperty> It(Class, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		const FObjectProperty* const Object = CastField<FObjectProperty>(*It);
		Print.Mix(It->GetName());
		Print.Mix(static_cast<uint32>(It->PropertyFlags));
		Print.Mix(static_cast<const void*>(It->GetClass()));
		Print.Mix(Object ? Object->PropertyClass : nullptr);
		Print.MixWords(**It);
	}
}

/** Components that a parent Blueprint adds, and dispatchers of components that are Blueprints themselves, change
 * without a change here. */
static void MixComponentEvents(const UClass& Class, FFingerprint& Print)
{
	ForEachComponentEvent(Class,
		[&Print](const FObjectProperty& Component, const FMulticastDelegateProperty& Event)
		{
			Print.Mix(Component.GetFName());
			Print.Mix(Event.GetFName());
		});
}

static void MixGraphs(const UBlueprint& Blueprint, FFingerprint& Print)
{
	for (const UEdGraph* const Graph : Blueprint.MacroGraphs)
	{
		Print.Mix(static_cast<const void*>(Graph));
		Print.Mix(Graph->GetName());
		Print.Mix(MacroCategory(*Graph));
	}
	for (const UEdGraph* const Graph : Blueprint.FunctionGraphs)
	{
		const UK2Node_FunctionEntry* const Entry = FindEntry(*Graph);
		const int32 Count = Entry ? Entry->LocalVariables.Num() : 0;
		Print.Mix(static_cast<const void*>(Count > 0 ? Graph : nullptr));
		for (int32 Index = 0; Index < Count; ++Index)
		{
			const FBPVariableDescription& Variable = Entry->LocalVariables[Index];
			Print.Mix(Variable.VarName.ToString());
			Print.Mix(Variable.Category.ToString());
			Print.Mix(Variable.VarType.PinCategory);
			Print.Mix(Variable.VarType.PinSubCategory);
			Print.Mix(Variable.VarType.PinSubCategoryObject.Get());
			Print.Mix(static_cast<uint32>(Variable.VarType.ContainerType));
		}
	}
}

uint32 GetFingerprint(const UBlueprint& Blueprint)
{
	FFingerprint Print;
	Print.Mix(Blueprint.GetName());
	Print.Mix(Blueprint.ParentClass.Get());
	Print.Mix(Blueprint.GeneratedClass.Get());
	if (const UClass* const Class = BlueprintClassProvider::GetSelfClass(&Blueprint))
	{
		MixMembers(Class, Print);
		MixComponentEvents(*Class, Print);
	}
	MixGraphs(Blueprint, Print);
	return Print.Get();
}
} // namespace ActionSources
