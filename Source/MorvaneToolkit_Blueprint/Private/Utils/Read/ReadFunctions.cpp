// What has graphs of its own: functions, macros, signatures of event dispatchers, interfaces.

#include "AssetOperationBase.h"
#include "BlueprintReadUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphPin.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "K2Node_Event.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_Tunnel.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"
#include "Utils/Read/ReadDetail.h"
#include "Utils/Read/ReadItems.h"
#include "Utils/Read/ReadUnresolved.h"

namespace ReadFunctions
{
using FDescribe = void (*)(const FReadSection&, FJsonObject&, const UEdGraph&);

/** The graph of the entry, in lean without the name that both have. */
static void SetGraph(const FReadSection& Section, FJsonObject& Entry, const UEdGraph& Graph)
{
	const TSharedPtr<FJsonObject> Object = FBlueprintReadUtils::ReadEdGraph(&Graph, Section.Command);
	if (Section.bLean)
	{
		Object->RemoveField(TEXT("name"));
	}
	Entry.SetObjectField(TEXT("ed_graph"), Object);
}

static void AddGraphs(FReadSection& Section, const TArray<TObjectPtr<UEdGraph>>& Graphs, FDescribe Describe = nullptr)
{
	for (const UEdGraph* const Graph : Graphs)
	{
		if (!Graph || !Section.Stands(Graph->GetName()))
		{
			continue;
		}
		const TSharedPtr<FJsonObject> Entry = Section.AddEntry(Graph->GetName());
		if (!Section.bFull)
		{
			continue;
		}
		if (Describe)
		{
			Describe(Section, *Entry, *Graph);
		}
		SetGraph(Section, *Entry, *Graph);
	}
}

static const UEdGraph* FindGraph(const UBlueprint& Blueprint, FName Name)
{
	TArray<UEdGraph*> Graphs;
	Blueprint.GetAllGraphs(Graphs);
	UEdGraph* const* const Found = Graphs.FindByPredicate(
		[Name](const UEdGraph* Graph) { return Graph->GetFName() == Name; });
	return Found ? *Found : nullptr;
}

/** The functions that events of the event graphs are: an overview shows them there. */
static void AddEvents(const UBlueprint& Blueprint, TSet<FName>& OutNames)
{
	for (const UEdGraph* const Page : Blueprint.UbergraphPages)
	{
		TArray<UK2Node_Event*> Events;
		if (Page)
		{
			Page->GetNodesOfClass(Events);
		}
		for (const UK2Node_Event* const Event : Events)
		{
			OutNames.Add(Event->GetFunctionName());
		}
	}
}

static TSharedPtr<FJsonObject> MakeParameter(const FString& Name, const FProperty* Property, bool bLean)
{
	FEdGraphPinType Type;
	FAssetOperationBase::ConvertPropertyToEdGraphPinType(Property, Type);
	const TSharedPtr<FJsonObject> Parameter = MakeShared<FJsonObject>();
	Parameter->SetStringField(TEXT("name"), Name);
	ReadDetail::SetType(*Parameter, Type, bLean);
	return Parameter;
}

static void SetParameters(FJsonObject& Entry, const UFunction& Function, bool bLean)
{
	TArray<TSharedPtr<FJsonValue>> In;
	TArray<TSharedPtr<FJsonValue>> Out;
	for (TFieldIterator<FProperty> It(&Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		if (It->HasAnyPropertyFlags(CPF_Parm) && !It->HasAnyPropertyFlags(CPF_ReturnParm))
		{
			TArray<TSharedPtr<FJsonValue>>& List = It->HasAnyPropertyFlags(CPF_OutParm) ? Out : In;
			List.Add(MakeShared<FJsonValueObject>(MakeParameter(It->GetName(), *It, bLean)));
		}
	}
	ReadSections::SetUnlessEmpty(Entry, TEXT("in_params"), MoveTemp(In));
	ReadSections::SetUnlessEmpty(Entry, TEXT("out_params"), MoveTemp(Out));
}

static void SetSignature(const FReadSection& Section, FJsonObject& Entry, const UFunction& Function)
{
	if (const FProperty* const Return = Function.GetReturnProperty())
	{
		Entry.SetObjectField(TEXT("return_type"), MakeParameter(TEXT("ReturnValue"), Return, Section.bLean));
	}
	else if (!Section.bLean)
	{
		Entry.SetStringField(TEXT("return_type"), TEXT("void"));
	}
	const bool bPure = Function.HasAnyFunctionFlags(FUNC_BlueprintPure);
	if (!Section.bLean)
	{
		Entry.SetNumberField(TEXT("function_flags_enum"), static_cast<double>(Function.FunctionFlags));
	}
	if (bPure || !Section.bLean)
	{
		Entry.SetBoolField(TEXT("is_pure"), bPure);
	}
	SetParameters(Entry, Function, Section.bLean);
}

static const TCHAR* GetAccess(int32 Flags)
{
	if ((Flags & FUNC_Private) != 0)
	{
		return TEXT("private");
	}
	return (Flags & FUNC_Protected) != 0 ? TEXT("protected") : TEXT("public");
}

/** A number that was given as such is kept with a fraction, which whole numbers have none of. */
static FString ShowDefault(const FBPVariableDescription& Variable)
{
	using K2 = UEdGraphSchema_K2;
	const FName Category = Variable.VarType.PinCategory;
	const bool bWhole = Category == K2::PC_Int || Category == K2::PC_Int64 || Category == K2::PC_Byte;
	FString Text = Variable.DefaultValue;
	if (bWhole && !Variable.VarType.IsContainer())
	{
		Text.RemoveFromEnd(TEXT(".0"), ESearchCase::CaseSensitive);
	}
	return Text;
}

static void SetLocalVariables(FJsonObject& Entry, const UK2Node_FunctionEntry& Node, bool bLean)
{
	TArray<TSharedPtr<FJsonValue>> Variables;
	for (const FBPVariableDescription& Variable : Node.LocalVariables)
	{
		const TSharedPtr<FJsonObject> Object = MakeShared<FJsonObject>();
		Object->SetStringField(TEXT("name"), Variable.VarName.ToString());
		ReadDetail::SetType(*Object, Variable.VarType, bLean);
		if (!bLean || !Variable.DefaultValue.IsEmpty())
		{
			Object->SetStringField(TEXT("default_variable_value"), ShowDefault(Variable));
			ReadDetail::SetDisplayValue(*Object, Variable.VarType, Variable.DefaultValue);
		}
		Variables.Add(MakeShared<FJsonValueObject>(Object));
	}
	ReadSections::SetUnlessEmpty(Entry, TEXT("local_variables"), MoveTemp(Variables));
}

/** What an author sets in the details of a function: who may call it, where it is listed, its own variables. */
static void SetDetails(const FReadSection& Section, FJsonObject& Entry, const UEdGraph& Graph)
{
	TArray<UK2Node_FunctionEntry*> Entries;
	Graph.GetNodesOfClass(Entries);
	if (Entries.IsEmpty())
	{
		return;
	}
	const UK2Node_FunctionEntry& Node = *Entries[0];
	const FString Access = GetAccess(Node.GetFunctionFlags());
	const FString Category = Node.MetaData.Category.ToString();
	if (!Section.bLean || Access != TEXT("public"))
	{
		Entry.SetStringField(TEXT("access"), Access);
	}
	if (!Section.bLean || (!Category.IsEmpty() && Category != TEXT("Default")))
	{
		Entry.SetStringField(TEXT("category"), Category);
	}
	if (!Node.MetaData.ToolTip.IsEmpty())
	{
		Entry.SetStringField(TEXT("tooltip"), Node.MetaData.ToolTip.ToString());
	}
	SetLocalVariables(Entry, Node, Section.bLean);
}

static void DescribeFunction(const FReadSection& Section, FJsonObject& Entry, const UEdGraph& Graph)
{
	if (const UFunction* const Function = Section.Class.FindFunctionByName(Graph.GetFName()))
	{
		SetSignature(Section, Entry, *Function);
	}
	SetDetails(Section, Entry, Graph);
}

static TSharedPtr<FJsonValue> MakeParameter(const FUserPinInfo& Pin, bool bLean)
{
	const TSharedPtr<FJsonObject> Parameter = MakeShared<FJsonObject>();
	Parameter->SetStringField(TEXT("name"), Pin.PinName.ToString());
	ReadDetail::SetType(*Parameter, Pin.PinType, bLean);
	return MakeShared<FJsonValueObject>(Parameter);
}

/** What goes into the macro and what comes out of it, execution too: the pins of its two tunnels. */
static void DescribeMacro(const FReadSection& Section, FJsonObject& Entry, const UEdGraph& Graph)
{
	TArray<UK2Node_Tunnel*> Tunnels;
	Graph.GetNodesOfClass(Tunnels);
	TArray<TSharedPtr<FJsonValue>> In;
	TArray<TSharedPtr<FJsonValue>> Out;
	for (const UK2Node_Tunnel* const Tunnel : Tunnels)
	{
		// Collapsed graphs and uses of other macros are tunnels as well.
		const bool bOwn = Tunnel->GetClass() == UK2Node_Tunnel::StaticClass();
		for (const TSharedPtr<FUserPinInfo>& Pin : bOwn ? Tunnel->UserDefinedPins : TArray<TSharedPtr<FUserPinInfo>>())
		{
			(Pin->DesiredPinDirection == EGPD_Output ? In : Out).Add(MakeParameter(*Pin, Section.bLean));
		}
	}
	ReadSections::SetUnlessEmpty(Entry, TEXT("in_params"), MoveTemp(In));
	ReadSections::SetUnlessEmpty(Entry, TEXT("out_params"), MoveTemp(Out));
}

/** The parameters of a dispatcher's events. */
static void DescribeDelegate(const FReadSection& Section, FJsonObject& Entry, const UEdGraph& Graph)
{
	const FMulticastDelegateProperty* const Delegate = CastField<FMulticastDelegateProperty>(
		Section.Class.FindPropertyByName(Graph.GetFName()));
	if (Delegate && Delegate->SignatureFunction)
	{
		SetParameters(Entry, *Delegate->SignatureFunction, Section.bLean);
	}
}

static void AddClassFunction(FReadSection& Section, const UFunction& Function)
{
	const TSharedPtr<FJsonObject> Entry = Section.AddEntry(Function.GetName());
	const UClass* const Owner = Function.GetOwnerClass();
	if (Owner && Owner != &Section.Class)
	{
		Entry->SetStringField(TEXT("owner_class"), Owner->GetName());
	}
	const bool bEvent = Function.HasAnyFunctionFlags(FUNC_BlueprintEvent);
	if (bEvent || !Section.bLean)
	{
		Entry->SetStringField(TEXT("function_type"), bEvent ? TEXT("event") : TEXT("function"));
	}
	if (Section.bFull)
	{
		SetSignature(Section, *Entry, Function);
		if (const UEdGraph* const Graph = FindGraph(Section.Blueprint, Function.GetFName()))
		{
			SetDetails(Section, *Entry, *Graph);
			SetGraph(Section, *Entry, *Graph);
		}
	}
}
} // namespace ReadFunctions

namespace ReadFunctions
{
/** An author knows an interface by its asset, and an edit takes its path. */
static TArray<FString> GetInterfaceNames(const UClass& Interface)
{
	TArray<FString> Names = {Interface.GetName(), Interface.GetPathName()};
	if (Interface.IsA<UBlueprintGeneratedClass>())
	{
		FString AssetName = Interface.GetName();
		AssetName.RemoveFromEnd(TEXT("_C"), ESearchCase::CaseSensitive);
		Names.Add(AssetName);
		Names.Add(Interface.GetOutermost()->GetName());
	}
	return Names;
}
} // namespace ReadFunctions

void ReadSections::AddInterfaces(FReadSection& Section)
{
	for (const FBPInterfaceDescription& Interface : Section.Blueprint.ImplementedInterfaces)
	{
		const UClass* const InterfaceClass = Interface.Interface;
		if (!InterfaceClass || !Section.Stands(ReadFunctions::GetInterfaceNames(*InterfaceClass)))
		{
			continue;
		}
		const TSharedPtr<FJsonObject> Entry = Section.AddEntry(InterfaceClass->GetName());
		Entry->SetStringField(TEXT("class"), InterfaceClass->GetPathName());
		ReadUnresolved::SetFlag(*Entry, InterfaceClass);
		if (!Section.bFull)
		{
			continue;
		}
		TArray<TSharedPtr<FJsonValue>> Graphs;
		for (const UEdGraph* const Graph : Interface.Graphs)
		{
			if (Graph)
			{
				const TSharedPtr<FJsonObject> Object = FBlueprintReadUtils::ReadEdGraph(Graph, Section.Command);
				Graphs.Add(MakeShared<FJsonValueObject>(Object));
			}
		}
		SetUnlessEmpty(*Entry, TEXT("graphs"), MoveTemp(Graphs));
	}
}

void ReadSections::AddFunctions(FReadSection& Section)
{
	ReadFunctions::AddGraphs(Section, Section.Blueprint.FunctionGraphs, &ReadFunctions::DescribeFunction);
	TSet<FName> Listed;
	for (const UEdGraph* const Graph : Section.Blueprint.FunctionGraphs)
	{
		if (Graph)
		{
			Listed.Add(Graph->GetFName());
		}
	}
	if (Section.bLean && !Section.bFull)
	{
		ReadFunctions::AddEvents(Section.Blueprint, Listed);
	}
	// Functions without a graph of their own: custom events, graphs of interfaces, signatures.
	constexpr EFunctionFlags Shown = static_cast<EFunctionFlags>(
		FUNC_BlueprintCallable | FUNC_BlueprintEvent | FUNC_BlueprintPure);
	for (TFieldIterator<UFunction> It(&Section.Class, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		if (It->HasAnyFunctionFlags(Shown) && !Listed.Contains(It->GetFName()) && Section.Stands(It->GetName()))
		{
			ReadFunctions::AddClassFunction(Section, **It);
		}
	}
}

void ReadSections::AddMacros(FReadSection& Section)
{
	ReadFunctions::AddGraphs(Section, Section.Blueprint.MacroGraphs, &ReadFunctions::DescribeMacro);
}

void ReadSections::AddDelegates(FReadSection& Section)
{
	ReadFunctions::AddGraphs(Section, Section.Blueprint.DelegateSignatureGraphs, &ReadFunctions::DescribeDelegate);
}
