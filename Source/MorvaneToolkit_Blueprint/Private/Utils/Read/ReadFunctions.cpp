// What has graphs of its own: functions, macros, signatures of event dispatchers, interfaces.

#include "AssetOperationBase.h"
#include "BlueprintReadUtils.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphPin.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "UObject/UnrealType.h"
#include "Utils/Read/ReadItems.h"
#include "Utils/Read/ReadUnresolved.h"

namespace ReadFunctions
{
static void AddGraph(FReadSection& Section, const UEdGraph& Graph)
{
	const TSharedPtr<FJsonObject> Entry = Section.AddEntry(Graph.GetName());
	if (Section.bFull)
	{
		Entry->SetObjectField(TEXT("ed_graph"), FBlueprintReadUtils::ReadEdGraph(&Graph, Section.Command));
	}
}

static void AddGraphs(FReadSection& Section, const TArray<TObjectPtr<UEdGraph>>& Graphs)
{
	for (const UEdGraph* const Graph : Graphs)
	{
		if (Graph && Section.Stands(Graph->GetName()))
		{
			AddGraph(Section, *Graph);
		}
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

static TSharedPtr<FJsonObject> MakeParameter(const FString& Name, const FProperty* Property)
{
	FEdGraphPinType Type;
	FAssetOperationBase::ConvertPropertyToEdGraphPinType(Property, Type);
	const TSharedPtr<FJsonObject> Parameter = MakeShared<FJsonObject>();
	Parameter->SetStringField(TEXT("name"), Name);
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
	TArray<TSharedPtr<FJsonValue>> In;
	TArray<TSharedPtr<FJsonValue>> Out;
	for (TFieldIterator<FProperty> It(&Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		if (It->HasAnyPropertyFlags(CPF_Parm) && !It->HasAnyPropertyFlags(CPF_ReturnParm))
		{
			TArray<TSharedPtr<FJsonValue>>& List = It->HasAnyPropertyFlags(CPF_OutParm) ? Out : In;
			List.Add(MakeShared<FJsonValueObject>(MakeParameter(It->GetName(), *It)));
		}
	}
	ReadSections::SetUnlessEmpty(Entry, TEXT("in_params"), MoveTemp(In));
	ReadSections::SetUnlessEmpty(Entry, TEXT("out_params"), MoveTemp(Out));
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
	Entry->SetStringField(TEXT("function_type"), bEvent ? TEXT("event") : TEXT("function"));
	if (Section.bFull)
	{
		SetSignature(*Entry, Function);
		if (const UEdGraph* const Graph = FindGraph(Section.Blueprint, Function.GetFName()))
		{
			Entry->SetObjectField(TEXT("ed_graph"), FBlueprintReadUtils::ReadEdGraph(Graph, Section.Command));
		}
	}
}
} // namespace ReadFunctions

void ReadSections::AddInterfaces(FReadSection& Section)
{
	for (const FBPInterfaceDescription& Interface : Section.Blueprint.ImplementedInterfaces)
	{
		const UClass* const InterfaceClass = Interface.Interface;
		if (!InterfaceClass || !Section.Stands(InterfaceClass->GetName()))
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
	ReadFunctions::AddGraphs(Section, Section.Blueprint.FunctionGraphs);
	TSet<FName> Listed;
	for (const UEdGraph* const Graph : Section.Blueprint.FunctionGraphs)
	{
		if (Graph)
		{
			Listed.Add(Graph->GetFName());
		}
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
	ReadFunctions::AddGraphs(Section, Section.Blueprint.MacroGraphs);
}

void ReadSections::AddDelegates(FReadSection& Section)
{
	ReadFunctions::AddGraphs(Section, Section.Blueprint.DelegateSignatureGraphs);
}
