// The one routine behind all read tools: a document with a section for each kind of item, of which the tool in the command selects one
// in full or all in overview.

#include "BlueprintReadUtils.h"

#include "AssetOperationBase.h"
#include "Blueprint/WidgetTree.h"
#include "BlueprintUtils.h"
#include "Components/SceneComponent.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/TimelineTemplate.h"
#include "GameFramework/Actor.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Read/ReadItems.h"
#include "WidgetBlueprint.h"
#include "WidgetBlueprintUtils.h"

namespace ReadDocument
{
using Morvane::FToolResult;
namespace ToolInfo = Morvane::ToolInfo;
using FEntries = TArray<TSharedPtr<FJsonValue>>;

void AddEntry(FEntries& Entries, const TSharedPtr<FJsonObject>& Entry)
{
	Entries.Add(MakeShared<FJsonValueObject>(Entry));
}

TSharedPtr<FJsonObject> MakeEntry(const FString& Name)
{
	const TSharedPtr<FJsonObject> Entry = MakeShared<FJsonObject>();
	Entry->SetStringField(TEXT("name"), Name);
	return Entry;
}

/** One read of one Blueprint. */
class FRead
{
public:
	FRead(const TSharedPtr<FJsonObject>& InCommand, FToolResult& InResult)
		: Command(InCommand), Result(InResult), Document(MakeShared<FJsonObject>())
	{
	}

	FString Run()
	{
		static const FString Nothing(TEXT("{}"));
		if (!ReadCommand() || !LoadBlueprint())
		{
			return Nothing;
		}
		SetHead();
		const bool bComplete = AddSection(TEXT("interfaces"), ToolInfo::ToolName_ReadBlueprintInterface, ToolInfo::FieldName_InterfaceName, &FRead::AddInterfaces) &&
			AddSection(TEXT("variables"), ToolInfo::ToolName_ReadBlueprintVariable, ToolInfo::FieldName_VariableName, &FRead::AddVariables) &&
			AddSection(TEXT("components"), ToolInfo::ToolName_ReadBlueprintComponent, ToolInfo::FieldName_ComponentName, &FRead::AddComponents) &&
			AddSection(TEXT("functions"), ToolInfo::ToolName_ReadBlueprintFunction, ToolInfo::FieldName_FunctionName, &FRead::AddFunctions) &&
			AddSection(TEXT("macros"), ToolInfo::ToolName_ReadBlueprintMacro, ToolInfo::FieldName_MacroName, &FRead::AddMacros) &&
			AddSection(TEXT("delegates"), ToolInfo::ToolName_ReadBlueprintDelegate, ToolInfo::FieldName_DelegateName, &FRead::AddDelegates) &&
			AddEventGraphs() &&
			AddSection(TEXT("timelines"), ToolInfo::ToolName_ReadBlueprintTimeline, ToolInfo::FieldName_TimelineName, &FRead::AddTimelines) &&
			AddWidgetTree();
		return bComplete ? FAssetOperationBase::SerializeJson(Document) : Nothing;
	}

private:
	bool ReadCommand()
	{
		if (!Command || !Command->TryGetStringField(TEXT("path"), Path))
		{
			Result.AddErrorMessage(TEXT("Missing required field 'path'"));
			return false;
		}
		if (!Command->TryGetStringField(ToolInfo::FieldName_ReadTool, ReadTool))
		{
			Result.AddErrorMessage(FString::Printf(TEXT("Missing required field '%s'"), ToolInfo::FieldName_ReadTool));
			return false;
		}
		Command->TryGetBoolField(TEXT("finalize_modifications"), bFinalize);
		bSchema = ReadTool.Equals(ToolInfo::ToolName_ReadBlueprintSchema, ESearchCase::IgnoreCase);
		return true;
	}

	bool LoadBlueprint()
	{
		if (!FAssetOperationBase::AssetExists(Path))
		{
			Result.AddErrorMessage(FString::Printf(TEXT("Blueprint does not exist: %s"), *Path));
			Result.AddErrorMessage(TEXT("Cannot read Blueprint. The asset may have been deleted."));
			return false;
		}
		Blueprint = FBlueprintUtils::LoadBlueprint(Path, Result);
		if (!Blueprint)
		{
			return false;
		}
		// What was declared since the last compile shows too.
		FBlueprintEditorUtils::GetMostUpToDateClass(Blueprint->GeneratedClass);
		Class = Cast<UBlueprintGeneratedClass>(Blueprint->GeneratedClass.Get());
		if (!Class)
		{
			Result.AddErrorMessage(FString::Printf(TEXT("Loaded asset is not a Blueprint: %s"), *Path));
			return false;
		}
		return true;
	}

	void SetHead()
	{
		Document->SetStringField(TEXT("path"), Path);
		if (!bSchema)
		{
			return;
		}
		Document->SetStringField(TEXT("name"), Blueprint->GetPathName());
		Document->SetStringField(TEXT("class_path"), Class->GetPathName());
		const UClass* const Parent = Blueprint->ParentClass;
		if (!Parent)
		{
			Document->SetField(TEXT("parent_class"), MakeShared<FJsonValueNull>());
			return;
		}
		const TSharedPtr<FJsonObject> ParentObject = MakeShared<FJsonObject>();
		if (Parent->IsA<UBlueprintGeneratedClass>())
		{
			FString Name = Parent->GetName();
			Name.RemoveFromEnd(TEXT("_C"), ESearchCase::CaseSensitive);
			ParentObject->SetStringField(TEXT("type"), TEXT("blueprint"));
			ParentObject->SetStringField(TEXT("name"), Name);
		}
		else
		{
			ParentObject->SetStringField(TEXT("type"), TEXT("native"));
			ParentObject->SetStringField(TEXT("name"), Parent->GetStructPathName().ToString());
		}
		Document->SetObjectField(TEXT("parent_class"), ParentObject);
	}

	bool IsTool(const TCHAR* Tool) const { return ReadTool.Equals(Tool, ESearchCase::IgnoreCase); }

	/** The road of all sections: overview of all items, or the asked-for ones in full. False ends the whole read. */
	bool AddSection(const TCHAR* Key, const TCHAR* Tool, const TCHAR* NameField, void (FRead::*AddItems)(FEntries&))
	{
		bFull = IsTool(Tool);
		if (!bSchema && !bFull)
		{
			return true;
		}
		Requested = FRequestedNames();
		if (bFull && !Requested.Read(*Command, NameField))
		{
			Result.AddErrorMessage(FString::Printf(TEXT("Field '%s' array is empty"), NameField));
			return false;
		}
		FEntries Entries;
		(this->*AddItems)(Entries);
		if (bFull)
		{
			Requested.AddMissing(Entries, bFinalize);
		}
		if (!Entries.IsEmpty())
		{
			Document->SetArrayField(Key, MoveTemp(Entries));
		}
		return true;
	}

	bool Stands(const FString& Name) { return !bFull || Requested.Take(Name); }

	void AddInterfaces(FEntries& Entries)
	{
		for (const FBPInterfaceDescription& Interface : Blueprint->ImplementedInterfaces)
		{
			const UClass* const InterfaceClass = Interface.Interface;
			if (!InterfaceClass || !Stands(InterfaceClass->GetName()))
			{
				continue;
			}
			const TSharedPtr<FJsonObject> Entry = MakeEntry(InterfaceClass->GetName());
			Entry->SetStringField(TEXT("class"), InterfaceClass->GetPathName());
			if (bFull)
			{
				FEntries Graphs;
				for (const UEdGraph* const Graph : Interface.Graphs)
				{
					if (Graph)
					{
						AddEntry(Graphs, FBlueprintReadUtils::ReadEdGraph(Graph, Command));
					}
				}
				Entry->SetArrayField(TEXT("graphs"), MoveTemp(Graphs));
			}
			AddEntry(Entries, Entry);
		}
	}

	/** The description of a variable in the Blueprint or in those above it. */
	const FBPVariableDescription* FindDescription(FName Name) const
	{
		TArray<UBlueprint*> Blueprints;
		UBlueprint::GetBlueprintHierarchyFromClass(Class, Blueprints);
		for (const UBlueprint* const Above : Blueprints)
		{
			const int32 Index = FBlueprintEditorUtils::FindNewVariableIndex(Above, Name);
			if (Index != INDEX_NONE)
			{
				return &Above->NewVariables[Index];
			}
		}
		return nullptr;
	}

	void AddVariables(FEntries& Entries)
	{
		TSet<FName> Listed;
		const UObject* const Default = Class->GetDefaultObject();
		for (TFieldIterator<FProperty> It(Class, EFieldIteratorFlags::IncludeSuper); It; ++It)
		{
			const FBPVariableDescription* const Variable = FindDescription(It->GetFName());
			FEdGraphPinType Type;
			if (!Variable || !Stands(It->GetName()))
			{
				continue;
			}
			FAssetOperationBase::ConvertPropertyToEdGraphPinType(*It, Type);
			AddVariable(Entries, It->GetName(), *Variable, Type, FAssetOperationBase::GetPropertyValueAsString(Default, *It));
			Listed.Add(It->GetFName());
		}
		for (const FBPVariableDescription& Variable : Blueprint->NewVariables)
		{
			if (!Listed.Contains(Variable.VarName) && Stands(Variable.VarName.ToString()))
			{
				AddVariable(Entries, Variable.VarName.ToString(), Variable, Variable.VarType, Variable.DefaultValue);
			}
		}
	}

	static bool HasTrueMetaData(const FBPVariableDescription& Variable, FName Key)
	{
		return Variable.HasMetaData(Key) && Variable.GetMetaData(Key).Equals(TEXT("true"), ESearchCase::IgnoreCase);
	}

	static TSharedPtr<FJsonObject> MakeReplication(const FBPVariableDescription& Variable)
	{
		const TSharedPtr<FJsonObject> Replication = MakeShared<FJsonObject>();
		if (!Variable.RepNotifyFunc.IsNone())
		{
			Replication->SetStringField(TEXT("mode"), TEXT("rep_notify"));
			Replication->SetStringField(TEXT("notify_function"), Variable.RepNotifyFunc.ToString());
		}
		else
		{
			Replication->SetStringField(TEXT("mode"), Variable.PropertyFlags & CPF_Net ? TEXT("replicated") : TEXT("none"));
		}
		return Replication;
	}

	void AddVariable(FEntries& Entries, const FString& Name, const FBPVariableDescription& Variable,
		const FEdGraphPinType& Type, const FString& DefaultValue) const
	{
		const TSharedPtr<FJsonObject> Entry = MakeEntry(Name);
		Entry->SetObjectField(TEXT("type"), FAssetOperationBase::ConvertEdGraphPinTypeToJson(Type));
		if (bFull)
		{
			Entry->SetStringField(TEXT("default_variable_value"), DefaultValue);
		}
		Entry->SetObjectField(TEXT("replication"), MakeReplication(Variable));
		Entry->SetStringField(TEXT("category"), Variable.Category.ToString());
		const bool bHasTooltip = Variable.HasMetaData(FBlueprintMetadata::MD_Tooltip);
		if (bHasTooltip && !Variable.GetMetaData(FBlueprintMetadata::MD_Tooltip).IsEmpty())
		{
			Entry->SetStringField(TEXT("tooltip"), Variable.GetMetaData(FBlueprintMetadata::MD_Tooltip));
		}
		const uint64 Flags = Variable.PropertyFlags;
		Entry->SetBoolField(TEXT("instance_editable"), (Flags & CPF_DisableEditOnInstance) == 0);
		Entry->SetBoolField(TEXT("expose_on_spawn"), HasTrueMetaData(Variable, FBlueprintMetadata::MD_ExposeOnSpawn));
		Entry->SetBoolField(TEXT("private"), HasTrueMetaData(Variable, FBlueprintMetadata::MD_Private));
		Entry->SetBoolField(TEXT("save_game"), (Flags & CPF_SaveGame) != 0);
		Entry->SetBoolField(TEXT("blueprint_read_only"), (Flags & CPF_BlueprintReadOnly) != 0);
		Entry->SetBoolField(TEXT("config"), (Flags & CPF_Config) != 0);
		AddEntry(Entries, Entry);
	}

	/** A component and where it hangs; what hangs where is told by the construction script for the components that it adds. */
	struct FAttachment
	{
		FString Parent;
		FString Socket;
		TArray<FString> Children;
	};

	void AddComponents(FEntries& Entries)
	{
		if (Class->IsChildOf(AActor::StaticClass()))
		{
			TArray<UActorComponent*> Components;
			static_cast<const AActor*>(Class->GetDefaultObject())->GetComponents(Components);
			for (UActorComponent* const Component : Components)
			{
				if (Stands(Component->GetName()))
				{
					AddComponent(Entries, Component->GetName(), *Component, NativeAttachment(Cast<USceneComponent>(Component)));
				}
			}
		}
		for (USCS_Node* const Node : FBlueprintUtils::GetBlueprintComponentsFromSCS(Blueprint))
		{
			UActorComponent* const Actual = Node->GetActualComponentTemplate(Class);
			UActorComponent* const Template = Actual ? Actual : Node->ComponentTemplate.Get();
			if (Template && Stands(Node->GetVariableName().ToString()))
			{
				AddComponent(Entries, Node->GetVariableName().ToString(), *Template, ScriptAttachment(*Node));
			}
		}
	}

	static FAttachment NativeAttachment(const USceneComponent* Component)
	{
		FAttachment Attachment;
		if (!Component)
		{
			return Attachment;
		}
		if (const USceneComponent* const Parent = Component->GetAttachParent())
		{
			Attachment.Parent = Parent->GetName();
			Attachment.Socket = Component->GetAttachSocketName().ToString();
		}
		for (const USceneComponent* const Child : Component->GetAttachChildren())
		{
			Attachment.Children.Add(Child->GetName());
		}
		return Attachment;
	}

	static FAttachment ScriptAttachment(const USCS_Node& Node)
	{
		FAttachment Attachment;
		const USimpleConstructionScript* const Script = Node.GetSCS();
		if (const USCS_Node* const Parent = Script ? Script->FindParentNode(&Node) : nullptr)
		{
			Attachment.Parent = Parent->GetVariableName().ToString();
		}
		else if (!Node.ParentComponentOrVariableName.IsNone())
		{
			Attachment.Parent = Node.ParentComponentOrVariableName.ToString();
		}
		Attachment.Socket = Node.AttachToName.ToString();
		for (const USCS_Node* const Child : Node.GetChildNodes())
		{
			Attachment.Children.Add(Child->GetVariableName().ToString());
		}
		return Attachment;
	}

	void AddComponent(FEntries& Entries, const FString& Name, const UActorComponent& Component, const FAttachment& Attachment) const
	{
		const TSharedPtr<FJsonObject> Entry = MakeEntry(Name);
		Entry->SetStringField(TEXT("class_name"), Component.GetClass()->GetName());
		if (bFull)
		{
			const bool bIsScene = Component.IsA<USceneComponent>();
			Entry->SetStringField(TEXT("display_name"), Component.GetClass()->GetDisplayNameText().ToString());
			Entry->SetStringField(TEXT("group_name"), Component.GetFullGroupName(false));
			Entry->SetBoolField(TEXT("is_scene_component"), bIsScene);
			Entry->SetBoolField(TEXT("is_editor_only"), Component.IsEditorOnly());
			Entry->SetBoolField(TEXT("is_active"), Component.bAutoActivate);
			if (bIsScene && !Attachment.Parent.IsEmpty())
			{
				Entry->SetStringField(TEXT("parent_component"), Attachment.Parent);
				Entry->SetStringField(TEXT("attach_socket"), Attachment.Socket);
			}
			FEntries Children;
			for (const FString& Child : Attachment.Children)
			{
				Children.Add(MakeShared<FJsonValueString>(Child));
			}
			if (!Children.IsEmpty())
			{
				Entry->SetArrayField(TEXT("children"), MoveTemp(Children));
			}
		}
		AddEntry(Entries, Entry);
	}

	void AddFunctions(FEntries& Entries)
	{
		TSet<FName> Listed;
		for (const UEdGraph* const Graph : Blueprint->FunctionGraphs)
		{
			if (Graph && Stands(Graph->GetName()))
			{
				AddGraphEntry(Entries, *Graph);
			}
			if (Graph)
			{
				Listed.Add(Graph->GetFName());
			}
		}
		constexpr EFunctionFlags Shown = static_cast<EFunctionFlags>(FUNC_BlueprintCallable | FUNC_BlueprintEvent | FUNC_BlueprintPure);
		for (TFieldIterator<UFunction> It(Class, EFieldIteratorFlags::ExcludeSuper); It; ++It)
		{
			if (It->HasAnyFunctionFlags(Shown) && !Listed.Contains(It->GetFName()) && Stands(It->GetName()))
			{
				AddClassFunction(Entries, **It);
			}
		}
	}

	void AddGraphEntry(FEntries& Entries, const UEdGraph& Graph) const
	{
		const TSharedPtr<FJsonObject> Entry = MakeEntry(Graph.GetName());
		if (bFull)
		{
			Entry->SetObjectField(TEXT("ed_graph"), FBlueprintReadUtils::ReadEdGraph(&Graph, Command));
		}
		AddEntry(Entries, Entry);
	}

	void AddClassFunction(FEntries& Entries, const UFunction& Function) const
	{
		const TSharedPtr<FJsonObject> Entry = MakeEntry(Function.GetName());
		const UClass* const Owner = Function.GetOwnerClass();
		if (Owner && Owner != Class)
		{
			Entry->SetStringField(TEXT("owner_class"), Owner->GetName());
		}
		Entry->SetStringField(TEXT("function_type"), Function.HasAnyFunctionFlags(FUNC_BlueprintEvent) ? TEXT("event") : TEXT("function"));
		if (bFull)
		{
			SetSignature(*Entry, Function);
			if (const UEdGraph* const Graph = FindGraph(Function.GetFName()))
			{
				Entry->SetObjectField(TEXT("ed_graph"), FBlueprintReadUtils::ReadEdGraph(Graph, Command));
			}
		}
		AddEntry(Entries, Entry);
	}

	const UEdGraph* FindGraph(FName Name) const
	{
		TArray<UEdGraph*> Graphs;
		Blueprint->GetAllGraphs(Graphs);
		UEdGraph* const* const Found = Graphs.FindByPredicate([Name](const UEdGraph* Graph) { return Graph->GetFName() == Name; });
		return Found ? *Found : nullptr;
	}

	static TSharedPtr<FJsonObject> MakeParameter(const FString& Name, const FProperty* Property)
	{
		FEdGraphPinType Type;
		FAssetOperationBase::ConvertPropertyToEdGraphPinType(Property, Type);
		const TSharedPtr<FJsonObject> Parameter = MakeEntry(Name);
		Parameter->SetObjectField(TEXT("type"), FAssetOperationBase::ConvertEdGraphPinTypeToJson(Type));
		return Parameter;
	}

	static void SetSignature(FJsonObject& Entry, const UFunction& Function)
	{
		if (const FProperty* const Return = Function.GetReturnProperty())
		{
			Entry.SetObjectField(TEXT("return_type"), MakeParameter(TEXT("ReturnValue"), Return));
		}
		else
		{
			Entry.SetStringField(TEXT("return_type"), TEXT("void"));
		}
		Entry.SetNumberField(TEXT("function_flags_enum"), static_cast<double>(Function.FunctionFlags));
		Entry.SetBoolField(TEXT("is_pure"), Function.HasAnyFunctionFlags(FUNC_BlueprintPure));
		FEntries In;
		FEntries Out;
		for (TFieldIterator<FProperty> It(&Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
		{
			if (It->HasAnyPropertyFlags(CPF_Parm) && !It->HasAnyPropertyFlags(CPF_ReturnParm))
			{
				AddEntry(It->HasAnyPropertyFlags(CPF_OutParm) ? Out : In, MakeParameter(It->GetName(), *It));
			}
		}
		if (!In.IsEmpty())
		{
			Entry.SetArrayField(TEXT("in_params"), MoveTemp(In));
		}
		if (!Out.IsEmpty())
		{
			Entry.SetArrayField(TEXT("out_params"), MoveTemp(Out));
		}
	}

	void AddGraphs(FEntries& Entries, const TArray<TObjectPtr<UEdGraph>>& Graphs)
	{
		for (const UEdGraph* const Graph : Graphs)
		{
			if (Graph && Stands(Graph->GetName()))
			{
				AddGraphEntry(Entries, *Graph);
			}
		}
	}

	void AddMacros(FEntries& Entries) { AddGraphs(Entries, Blueprint->MacroGraphs); }
	void AddDelegates(FEntries& Entries) { AddGraphs(Entries, Blueprint->DelegateSignatureGraphs); }

	/** Filtering by event happens within each graph, so this section has no names of its own. */
	bool AddEventGraphs()
	{
		if (!bSchema && !IsTool(ToolInfo::ToolName_ReadBlueprintEvent))
		{
			return true;
		}
		FEntries Graphs;
		for (const UEdGraph* const Page : Blueprint->UbergraphPages)
		{
			if (Page)
			{
				AddEntry(Graphs, FBlueprintReadUtils::ReadEventGraph(Page, Command, false, TSet<FString>()));
			}
		}
		if (!Graphs.IsEmpty())
		{
			Document->SetArrayField(TEXT("graphs"), MoveTemp(Graphs));
		}
		return true;
	}

	void AddTimelines(FEntries& Entries)
	{
		for (const UTimelineTemplate* const Timeline : Blueprint->Timelines)
		{
			if (!Timeline)
			{
				continue;
			}
			const FString Name = Timeline->GetName().Replace(TEXT("_Template"), TEXT(""), ESearchCase::IgnoreCase);
			if (!Stands(Name))
			{
				continue;
			}
			const TSharedPtr<FJsonObject> Entry = MakeEntry(Name);
			if (bFull)
			{
				Entry->SetNumberField(TEXT("length"), static_cast<double>(Timeline->TimelineLength));
				Entry->SetBoolField(TEXT("auto_play"), Timeline->bAutoPlay);
				Entry->SetBoolField(TEXT("loop"), Timeline->bLoop);
			}
			AddEntry(Entries, Entry);
		}
	}

	bool AddWidgetTree()
	{
		const bool bWidgetTool = IsTool(ToolInfo::ToolName_ReadBlueprintWidgetTree);
		if (!bSchema && !bWidgetTool)
		{
			return true;
		}
		UWidgetBlueprint* const WidgetBlueprint = Cast<UWidgetBlueprint>(Blueprint);
		if (!WidgetBlueprint)
		{
			if (bWidgetTool)
			{
				Result.AddErrorMessage(FString::Printf(TEXT("Blueprint at '%s' is not a Widget Blueprint"), *Path));
				return false;
			}
			return true;
		}
		const TSharedPtr<FJsonObject> Tree = MakeShared<FJsonObject>();
		Tree->SetObjectField(TEXT("widget_hierarchy"), FWidgetBlueprintUtils::SerializeWidgetHierarchy(WidgetBlueprint));
		if (bWidgetTool)
		{
			AddWidgetDetails(*Tree, *WidgetBlueprint);
		}
		Document->SetObjectField(TEXT("widget_tree"), Tree);
		return true;
	}

	void AddWidgetDetails(FJsonObject& Tree, UWidgetBlueprint& WidgetBlueprint)
	{
		FRequestedNames Names;
		if (!Names.Read(*Command, TEXT("widget_name")) || !WidgetBlueprint.WidgetTree)
		{
			return;
		}
		const TSharedPtr<FJsonObject> Widgets = MakeShared<FJsonObject>();
		TArray<UWidget*> All;
		WidgetBlueprint.WidgetTree->GetAllWidgets(All);
		for (UWidget* const Widget : All)
		{
			if (Names.Take(Widget->GetName()))
			{
				Widgets->SetObjectField(Widget->GetName(), FWidgetBlueprintUtils::SerializeWidgetDetails(Widget, &WidgetBlueprint));
			}
		}
		if (!Widgets->Values.IsEmpty())
		{
			Tree.SetObjectField(TEXT("widgets"), Widgets);
		}
	}

	TSharedPtr<FJsonObject> Command;
	FToolResult& Result;
	TSharedPtr<FJsonObject> Document;
	FString Path;
	FString ReadTool;
	bool bFinalize = false;
	bool bSchema = false;
	UBlueprint* Blueprint = nullptr;
	UBlueprintGeneratedClass* Class = nullptr;
	/** Of the section at hand: whether its items are asked for by name and shown in full. */
	bool bFull = false;
	FRequestedNames Requested;
};
} // namespace ReadDocument

FString FBlueprintReadUtils::ReadBlueprint(const TSharedPtr<FJsonObject>& Command, Morvane::FToolResult& Result)
{
	return ReadDocument::FRead(Command, Result).Run();
}
