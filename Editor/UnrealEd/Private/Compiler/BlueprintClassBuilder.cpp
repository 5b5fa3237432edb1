#include "Compiler/BlueprintClassBuilder.h"

#include "Compiler/PinTypeProperty.h"
#include "Components/ActorComponent.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/InheritableComponentHandler.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/TimelineTemplate.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "Misc/StringOutputDevice.h"
#include "Standalone/MissingObjects.h"
#include "Standalone/ObjectText.h"
#include "Standalone/WidgetBlueprintVariables.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"

namespace ClassBuilder
{
using FSchema = UEdGraphSchema_K2;

/** One refill of one class. */
class FBuild
{
public:
	FBuild(UBlueprint& InBlueprint, UBlueprintGeneratedClass& InClass)
		: Blueprint(InBlueprint)
		, Class(InClass)
	{
	}

	void Run()
	{
		Class.DestroyMembers();
		SetUpClass();
		// Signatures first: dispatcher variables and events refer to them.
		AddDelegateSignatures();
		AddVariables();
		AddTimelines();
		AddComponents();
		AddWidgets();
		AddFunctions();
		AddEvents();
		Class.Link();
		Class.ResetDefaultObject();
		SetDefaults();
	}

private:
	void SetUpClass()
	{
		// A Blueprint whose parent is gone still has a class to be read and edited with; compiling it is an error.
		UClass* const Parent = Blueprint.ParentClass.Get();
		Class.SetSuperStruct(Parent ? Parent : UObject::StaticClass());
		Class.ClassGeneratedBy = &Blueprint;
		uint32 Flags = CLASS_CompiledFromBlueprint;
		if (Parent)
		{
			constexpr uint32 Inherited = CLASS_Interface | CLASS_Const | CLASS_DefaultToInstanced | CLASS_EditInlineNew
				| CLASS_NotPlaceable;
			Flags |= Parent->ClassFlags & Inherited;
		}
		Flags |= Blueprint.bGenerateAbstractClass ? CLASS_Abstract : 0u;
		Flags |= Blueprint.bGenerateConstClass ? CLASS_Const : 0u;
		Flags |= Blueprint.bDeprecate ? CLASS_Deprecated : 0u;
		Class.ClassFlags = static_cast<EClassFlags>(Flags);
		Class.Interfaces.Empty();
		for (const FBPInterfaceDescription& Interface : Blueprint.ImplementedInterfaces)
		{
			if (Interface.Interface.Get())
			{
				Class.Interfaces.Add(FImplementedInterface{Interface.Interface.Get(), true});
			}
		}
		Class.SetMetaData(FBlueprintMetadata::MD_IsBlueprintBase, TEXT("true"));
		Class.SetMetaData(FBlueprintMetadata::MD_BlueprintType, TEXT("true"));
		// Without a name of its own to be shown by, the class's name is made readable where it is shown.
		Class.RemoveMetaData(FBlueprintMetadata::MD_DisplayName);
		if (!Blueprint.BlueprintDisplayName.IsEmpty())
		{
			Class.SetMetaData(FBlueprintMetadata::MD_DisplayName, Blueprint.BlueprintDisplayName);
		}
		Class.SimpleConstructionScript = Blueprint.SimpleConstructionScript;
		if (Blueprint.InheritableComponentHandler)
		{
			Blueprint.InheritableComponentHandler->ValidateTemplates();
		}
		Class.InheritableComponentHandler = Blueprint.InheritableComponentHandler;
		Class.Timelines = Blueprint.Timelines;
		Class.ComponentTemplates = Blueprint.ComponentTemplates;
		Class.PropertyGuids.Empty();
	}

	bool IsTaken(FName Name) const { return Names.Contains(Name); }

	FProperty* AddProperty(FName Name, const FEdGraphPinType& Type)
	{
		if (Name.IsNone() || IsTaken(Name))
		{
			return nullptr;
		}
		FProperty* const Property = PinTypeProperty::Create(FFieldVariant(&Class), Name, Type);
		if (Property)
		{
			Names.Add(Name);
			Class.AddProperty(Property);
		}
		return Property;
	}

	FProperty* AddObjectProperty(FName Name, UClass* ObjectClass)
	{
		FEdGraphPinType Type(
			FSchema::PC_Object, NAME_None, ObjectClass, EPinContainerType::None, false, FEdGraphTerminalType());
		return AddProperty(Name, Type);
	}

	void AddVariables()
	{
		for (const FBPVariableDescription& Variable : Blueprint.NewVariables)
		{
			FEdGraphPinType Type = Variable.VarType;
			const bool bIsDispatcher = Type.PinCategory == FSchema::PC_MCDelegate;
			if (bIsDispatcher)
			{
				Type.PinSubCategoryMemberReference.MemberParent = &Class;
				Type.PinSubCategoryMemberReference.MemberName = FBlueprintClassBuilder::DelegateSignatureName(
					Variable.VarName);
			}
			FProperty* const Property = AddProperty(Variable.VarName, Type);
			if (!Property)
			{
				continue;
			}
			if (FMulticastDelegateProperty* const Dispatcher = CastField<FMulticastDelegateProperty>(Property))
			{
				Dispatcher->SignatureFunction = Class.FindFunctionByName(Type.PinSubCategoryMemberReference.MemberName);
				Property->SetPropertyFlags(CPF_BlueprintAssignable | CPF_BlueprintCallable);
			}
			Property->SetPropertyFlags(Variable.PropertyFlags | CPF_BlueprintVisible | CPF_Edit);
			Property->RepNotifyFunc = Variable.RepNotifyFunc;
			Property->SetMetaData(FBlueprintMetadata::MD_FunctionCategory, Variable.Category.ToString());
			if (!Variable.FriendlyName.IsEmpty())
			{
				Property->SetMetaData(FBlueprintMetadata::MD_DisplayName, Variable.FriendlyName);
			}
			SetMetaData(*Property, Variable);
			Class.PropertyGuids.Add(Variable.VarName, Variable.VarGuid);
		}
	}

	static void SetMetaData(FProperty& Property, const FBPVariableDescription& Variable)
	{
		for (const FBPVariableMetaDataEntry& Entry : Variable.MetaDataArray)
		{
			Property.SetMetaData(Entry.DataKey, Entry.DataValue);
		}
		if (Property.GetBoolMetaData(FBlueprintMetadata::MD_ExposeOnSpawn))
		{
			Property.SetPropertyFlags(CPF_ExposeOnSpawn);
		}
	}

	void AddTimelines()
	{
		UClass* const TimelineClass = FindObject<UClass>(nullptr, TEXT("/Script/Engine.TimelineComponent"));
		for (const UTimelineTemplate* const Timeline : Blueprint.Timelines)
		{
			if (!Timeline)
			{
				continue;
			}
			if (FProperty* const Property = AddObjectProperty(Timeline->GetVariableName(), TimelineClass))
			{
				Property->SetPropertyFlags(CPF_BlueprintVisible | CPF_BlueprintReadOnly | CPF_InstancedReference);
			}
			AddTimelineValues(*Timeline);
		}
	}

	/** What a timeline writes while it runs; the graph reads it through the timeline's node alone. */
	void AddTimelineValues(const UTimelineTemplate& Timeline)
	{
		const auto AddAll = [this](const auto& Tracks, FName Category, FName SubCategory, UObject* Object)
		{
			const FEdGraphPinType Type(
				Category, SubCategory, Object, EPinContainerType::None, false, FEdGraphTerminalType());
			for (const FTTPropertyTrack& Track : Tracks)
			{
				AddProperty(Track.GetPropertyName(), Type);
			}
		};
		AddProperty(Timeline.GetDirectionPropertyName(),
			FEdGraphPinType(FSchema::PC_Byte, NAME_None,
				FindObject<UEnum>(nullptr, TEXT("/Script/Engine.ETimelineDirection")), EPinContainerType::None, false,
				FEdGraphTerminalType()));
		AddAll(Timeline.FloatTracks, FSchema::PC_Real, FSchema::PC_Float, nullptr);
		AddAll(Timeline.VectorTracks, FSchema::PC_Struct, NAME_None, TBaseStructure<FVector>::Get());
		AddAll(Timeline.LinearColorTracks, FSchema::PC_Struct, NAME_None, TBaseStructure<FLinearColor>::Get());
	}

	void AddComponents()
	{
		if (!Blueprint.SimpleConstructionScript)
		{
			return;
		}
		for (const USCS_Node* const Node : Blueprint.SimpleConstructionScript->GetAllNodes())
		{
			FProperty* const Property = AddObjectProperty(Node->GetVariableName(), Node->ComponentClass.Get());
			if (Property)
			{
				Property->SetPropertyFlags(CPF_BlueprintVisible | CPF_BlueprintReadOnly | CPF_InstancedReference);
				Property->SetMetaData(FBlueprintMetadata::MD_FunctionCategory,
					Node->CategoryName.IsEmpty() ? FString(TEXT("Components")) : Node->CategoryName.ToString());
				Class.PropertyGuids.Add(Node->GetVariableName(), Node->VariableGuid);
			}
		}
	}

	void AddWidgets()
	{
		for (const FWidgetBlueprintVariable& Widget : FWidgetBlueprintVariable::Collect(&Blueprint))
		{
			// A widget that the parent class has a variable for is reached through that one.
			if (Blueprint.ParentClass.Get() && Blueprint.ParentClass.Get()->FindPropertyByName(Widget.Name))
			{
				continue;
			}
			if (FProperty* const Property = AddObjectProperty(Widget.Name, Widget.Class))
			{
				Property->SetPropertyFlags(
					CPF_BlueprintVisible | CPF_BlueprintReadOnly | CPF_RepSkip | CPF_PersistentInstance);
				Property->SetMetaData(FBlueprintMetadata::MD_FunctionCategory, Blueprint.GetName());
			}
		}
	}

	UFunction* AddFunction(FName Name, uint32 Flags, UClass* FunctionClass = UFunction::StaticClass())
	{
		if (Name.IsNone() || Class.FindFunctionByName(Name, EIncludeSuperFlag::ExcludeSuper))
		{
			return nullptr;
		}
		UFunction* const Function = NewObject<UFunction>(
			&Class, FunctionClass, Name, static_cast<EObjectFlags>(RF_Public | RF_Transient));
		Function->FunctionFlags = static_cast<EFunctionFlags>(Flags);
		if (UClass* const Super = Class.GetSuperClass())
		{
			Function->SetSuperStruct(nullptr);
			if (const UFunction* const Overridden = Super->FindFunctionByName(Name))
			{
				Function->FunctionFlags |= static_cast<EFunctionFlags>(Overridden->FunctionFlags & FUNC_FuncInherit);
			}
		}
		Class.AddFunction(Function);
		return Function;
	}

	static FProperty* AddParameter(UFunction& Function, FName Name, const FEdGraphPinType& Type, uint64 Flags)
	{
		FProperty* const Property = PinTypeProperty::Create(FFieldVariant(&Function), Name, Type);
		if (!Property)
		{
			return nullptr;
		}
		Property->SetPropertyFlags(CPF_Parm | CPF_BlueprintVisible | Flags);
		if (Type.bIsConst)
		{
			Property->SetPropertyFlags(CPF_ConstParm);
		}
		if (Type.bIsUObjectWrapper)
		{
			Property->SetPropertyFlags(CPF_UObjectWrapper);
		}
		Function.AddProperty(Property);
		++Function.NumParms;
		return Property;
	}

	/** Parameters that a node's output pins declare: entries and events. */
	static void AddInputs(UFunction& Function, const UEdGraphNode& Node)
	{
		for (const UEdGraphPin* const Pin : Node.Pins)
		{
			const FName Category = Pin->PinType.PinCategory;
			if (Pin->Direction != EGPD_Output || Category == FSchema::PC_Exec || Pin->ParentPin || Pin->bOrphanedPin
				|| Pin->PinName == UK2Node_Event::DelegateOutputName)
			{
				continue;
			}
			const uint64 Flags = Pin->PinType.bIsReference ? CPF_OutParm | CPF_ReferenceParm : CPF_None;
			if (AddParameter(Function, Pin->PinName, Pin->PinType, Flags) && !Pin->DefaultValue.IsEmpty())
			{
				Function.SetMetaData(FName(TEXT("CPP_Default_") + Pin->GetName()), Pin->DefaultValue);
			}
		}
	}

	static void AddOutputs(UFunction& Function, const UK2Node_FunctionResult& Result)
	{
		for (const UEdGraphPin* const Pin : Result.Pins)
		{
			if (Pin->Direction != EGPD_Input || Pin->PinType.PinCategory == FSchema::PC_Exec || Pin->ParentPin
				|| Pin->bOrphanedPin)
			{
				continue;
			}
			FEdGraphPinType Type = Pin->PinType;
			Type.bIsReference = false;
			const bool bIsReturn = Pin->PinName == FSchema::PN_ReturnValue;
			AddParameter(Function, Pin->PinName, Type, bIsReturn ? CPF_OutParm | CPF_ReturnParm : CPF_OutParm);
		}
	}

	static void AddLocals(UFunction& Function, const UK2Node_FunctionEntry& Entry)
	{
		for (const FBPVariableDescription& Local : Entry.LocalVariables)
		{
			if (Function.FindPropertyByName(Local.VarName))
			{
				continue;
			}
			if (FProperty* const Property = PinTypeProperty::Create(
					FFieldVariant(&Function), Local.VarName, Local.VarType))
			{
				Property->SetPropertyFlags(CPF_BlueprintVisible);
				Function.AddProperty(Property);
			}
		}
	}

	static void SetMetaData(UFunction& Function, const FKismetUserDeclaredFunctionMetadata& MetaData)
	{
		const auto Set = [&Function](FName Key, const FText& Value)
		{
			if (!Value.IsEmpty())
			{
				Function.SetMetaData(Key, Value.ToString());
			}
		};
		Set(FBlueprintMetadata::MD_ToolTip, MetaData.ToolTip);
		Set(FBlueprintMetadata::MD_FunctionCategory, MetaData.Category);
		Set(FBlueprintMetadata::MD_FunctionKeywords, MetaData.Keywords);
		Set(FBlueprintMetadata::MD_CompactNodeTitle, MetaData.CompactNodeTitle);
		if (MetaData.bIsDeprecated)
		{
			Function.SetMetaData(FBlueprintMetadata::MD_DeprecatedFunction, TEXT("true"));
			Function.SetMetaData(FBlueprintMetadata::MD_DeprecationMessage, MetaData.DeprecationMessage);
		}
		for (const auto& Pair : MetaData.MetaDataMap)
		{
			Function.SetMetaData(Pair.Key, Pair.Value);
		}
	}

	static void FindEnds(const UEdGraph& Graph, UK2Node_FunctionEntry*& OutEntry, UK2Node_FunctionResult*& OutResult)
	{
		OutEntry = nullptr;
		OutResult = nullptr;
		for (UEdGraphNode* const Node : Graph.Nodes)
		{
			OutEntry = OutEntry ? OutEntry : Cast<UK2Node_FunctionEntry>(Node);
			OutResult = OutResult ? OutResult : Cast<UK2Node_FunctionResult>(Node);
		}
	}

	UFunction* AddGraphFunction(
		const UEdGraph& Graph, FName Name, uint32 Flags, UClass* FunctionClass = UFunction::StaticClass())
	{
		UK2Node_FunctionEntry* Entry = nullptr;
		UK2Node_FunctionResult* Result = nullptr;
		FindEnds(Graph, Entry, Result);
		if (!Entry)
		{
			return nullptr;
		}
		const uint32 OwnFlags = Flags | static_cast<uint32>(Entry->GetFunctionFlags());
		UFunction* const Function = AddFunction(Name, OwnFlags, FunctionClass);
		if (!Function)
		{
			return nullptr;
		}
		AddInputs(*Function, *Entry);
		if (const UEdGraphPin* const World = Entry->GetAutoWorldContextPin())
		{
			Function->SetMetaData(FBlueprintMetadata::MD_WorldContext, World->PinName.ToString());
		}
		if (Result)
		{
			AddOutputs(*Function, *Result);
		}
		AddLocals(*Function, *Entry);
		SetMetaData(*Function, Entry->MetaData);
		Finish(*Function);
		return Function;
	}

	static void Finish(UFunction& Function)
	{
		for (TFieldIterator<FProperty> It(&Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
		{
			if (It->HasAllPropertyFlags(CPF_Parm | CPF_OutParm))
			{
				Function.FunctionFlags |= FUNC_HasOutParms;
			}
		}
		Function.Link();
	}

	void AddDelegateSignatures()
	{
		for (const UEdGraph* const Graph : Blueprint.DelegateSignatureGraphs)
		{
			if (Graph)
			{
				AddGraphFunction(*Graph, FBlueprintClassBuilder::DelegateSignatureName(Graph->GetFName()),
					FUNC_Delegate | FUNC_MulticastDelegate | FUNC_Public, UDelegateFunction::StaticClass());
			}
		}
	}

	void AddFunctions()
	{
		const uint32 LibraryFlags = Blueprint.BlueprintType == BPTYPE_FunctionLibrary ? FUNC_Static : 0u;
		for (const UEdGraph* const Graph : Blueprint.FunctionGraphs)
		{
			if (Graph)
			{
				AddGraphFunction(
					*Graph, Graph->GetFName(), FUNC_BlueprintCallable | FUNC_BlueprintEvent | LibraryFlags);
			}
		}
		for (const FBPInterfaceDescription& Interface : Blueprint.ImplementedInterfaces)
		{
			for (const UEdGraph* const Graph : Interface.Graphs)
			{
				if (Graph)
				{
					AddGraphFunction(
						*Graph, Graph->GetFName(), FUNC_BlueprintCallable | FUNC_BlueprintEvent | FUNC_Public);
				}
			}
		}
	}

	void AddEvent(const UK2Node_Event& Event)
	{
		UFunction* const Function = AddFunction(Event.GetFunctionName(), EventFlags(Event));
		if (!Function)
		{
			return;
		}
		AddInputs(*Function, Event);
		if (const UK2Node_CustomEvent* const Custom = Cast<UK2Node_CustomEvent>(&Event))
		{
			SetMetaData(*Function, Custom->UserDefinedMetaData);
		}
		Finish(*Function);
	}

	static uint32 EventFlags(const UK2Node_Event& Event)
	{
		uint32 Flags = FUNC_BlueprintEvent | FUNC_Event | FUNC_Public | Event.FunctionFlags;
		if (!Event.bOverrideFunction && !Event.bInternalEvent)
		{
			Flags |= FUNC_BlueprintCallable;
		}
		return Flags;
	}

	void AddEvents()
	{
		for (const UEdGraph* const Page : Blueprint.UbergraphPages)
		{
			TArray<UEdGraph*> Graphs;
			if (Page)
			{
				Graphs.Add(const_cast<UEdGraph*>(Page));
				Page->GetAllChildrenGraphs(Graphs);
			}
			for (const UEdGraph* const Graph : Graphs)
			{
				for (UEdGraphNode* const Node : Graph->Nodes)
				{
					const UK2Node_Event* const Event = Cast<UK2Node_Event>(Node);
					if (Event && Event->IsNodeEnabled())
					{
						AddEvent(*Event);
					}
				}
			}
		}
	}

	/** The description's text is what counts for the Blueprint's own variables. */
	void SetDefaults()
	{
		const FMissingObjects::FScope Keeping;
		UObject* const Default = Class.GetDefaultObject();
		for (const FBPVariableDescription& Variable : Blueprint.NewVariables)
		{
			const FProperty* const Property = Variable.DefaultValue.IsEmpty()
				? nullptr
				: Class.FindPropertyByName(Variable.VarName);
			if (Property && Property->GetOwnerStruct() == &Class)
			{
				SetDefault(Variable, *Property, *Default);
			}
		}
	}

	static void SetDefault(const FBPVariableDescription& Variable, const FProperty& Property, UObject& Default)
	{
		FStringOutputDevice Complaints;
		const bool bRead = Property.ImportText_InContainer(
							   *Variable.DefaultValue, &Default, &Default, PPF_None, &Complaints)
			!= nullptr;
		// Of a missing struct or enum the text is all that there is of a value.
		const UObject* const Type = Variable.VarType.PinSubCategoryObject.Get();
		const bool bHasText = FMissingObjects::IsMissing(Type) && !Type->IsA<UClass>();
		if (bHasText && (!bRead || !Complaints.IsEmpty()))
		{
			FKeptObjectText::KeepUnread(Default, Property, *Variable.DefaultValue);
		}
	}

	UBlueprint& Blueprint;
	UBlueprintGeneratedClass& Class;
	TSet<FName> Names;
};
} // namespace ClassBuilder

FName FBlueprintClassBuilder::DelegateSignatureName(FName DelegateName)
{
	return FName(DelegateName.ToString() + TEXT("__DelegateSignature"));
}

UBlueprintGeneratedClass* FBlueprintClassBuilder::EnsureClass(UBlueprint& Blueprint)
{
	UBlueprintGeneratedClass* Class = Cast<UBlueprintGeneratedClass>(Blueprint.GeneratedClass.Get());
	if (!Class)
	{
		const FName ClassName(Blueprint.GetName() + TEXT("_C"));
		Class = Cast<UBlueprintGeneratedClass>(
			StaticFindObjectFast(UBlueprintGeneratedClass::StaticClass(), Blueprint.GetOuter(), ClassName));
	}
	if (!Class)
	{
		Class = NewObject<UBlueprintGeneratedClass>(Blueprint.GetOuter(), Blueprint.GetBlueprintClass(),
			FName(Blueprint.GetName() + TEXT("_C")), static_cast<EObjectFlags>(RF_Public | RF_Transactional));
	}
	Class->ClassGeneratedBy = &Blueprint;
	Class->SetSuperStruct(Blueprint.ParentClass.Get());
	Blueprint.GeneratedClass = Class;
	Blueprint.SkeletonGeneratedClass = Class;
	return Class;
}

void FBlueprintClassBuilder::Build(UBlueprint& Blueprint)
{
	UBlueprintGeneratedClass* const Class = EnsureClass(Blueprint);
	// Cleared first: what is built asks for the class again.
	Blueprint.bSkeletonIsStale = false;
	ClassBuilder::FBuild(Blueprint, *Class).Run();
}
