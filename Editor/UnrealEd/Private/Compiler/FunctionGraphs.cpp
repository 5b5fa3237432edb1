#include "Compiler/FunctionGraphs.h"

#include "Compiler/MemberDeclarations.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/MissingObjects.h"
#include "UObject/UnrealType.h"

namespace FunctionGraphs
{
namespace
{
bool IsParameter(const UEdGraphPin& Pin)
{
	return !UEdGraphSchema_K2::IsExecPin(Pin) && !Pin.ParentPin && !Pin.bOrphanedPin;
}

TArray<const UEdGraphPin*> ParametersOf(const UEdGraphNode& End)
{
	TArray<const UEdGraphPin*> Parameters;
	for (const UEdGraphPin* const Pin : End.Pins)
	{
		if (Pin && IsParameter(*Pin))
		{
			Parameters.Add(Pin);
		}
	}
	return Parameters;
}

bool ReturnTheSame(const UK2Node_FunctionResult& A, const UK2Node_FunctionResult& B)
{
	const TArray<const UEdGraphPin*> OfA = ParametersOf(A);
	const TArray<const UEdGraphPin*> OfB = ParametersOf(B);
	bool bSame = OfA.Num() == OfB.Num();
	for (int32 Index = 0; bSame && Index < OfA.Num(); ++Index)
	{
		bSame = OfA[Index]->PinName == OfB[Index]->PinName && OfA[Index]->PinType == OfB[Index]->PinType;
	}
	return bSame;
}

class FCheck
{
public:
	FCheck(const UBlueprint& InBlueprint, const UEdGraph& InGraph, const FOrigin& InOrigin, FCompilerResultsLog& InLog)
		: Blueprint(InBlueprint)
		, Graph(InGraph)
		, Origin(InOrigin)
		, Log(InLog)
	{
	}

	bool Run()
	{
		TArray<UK2Node_FunctionEntry*> Entries;
		TArray<UK2Node_FunctionResult*> Results;
		Graph.GetNodesOfClass(Entries);
		Graph.GetNodesOfClass(Results);
		if (Entries.Num() == 1)
		{
			CheckResults(*Entries[0], Results);
			CheckLocals(*Entries[0]);
			CheckOverride(*Entries[0]);
			return true;
		}
		CheckNumberOfEntries(Entries);
		return !Entries.IsEmpty();
	}

private:
	void CheckNumberOfEntries(const TArray<UK2Node_FunctionEntry*>& Entries)
	{
		// A function of an interface is told as not implemented then.
		if (Entries.IsEmpty() && !Origin.bInterface)
		{
			Log.Error(
				*FString::Printf(TEXT("Could not find a function entry node in the graph '%s'"), *Graph.GetName()));
		}
		for (int32 Index = 1; Index < Entries.Num(); ++Index)
		{
			Log.Error(TEXT("Expected only one function entry node in the graph, but found both @@ and @@"), Entries[0],
				Entries[Index]);
		}
	}

	void CheckResults(const UK2Node_FunctionEntry& Entry, const TArray<UK2Node_FunctionResult*>& Results)
	{
		if (Results.IsEmpty())
		{
			return;
		}
		for (int32 Index = 1; Index < Results.Num(); ++Index)
		{
			if (!ReturnTheSame(*Results[0], *Results[Index]))
			{
				Log.Error(TEXT("@@ and @@ return different things; all return nodes of a function need the same pins"),
					Results[0], Results[Index]);
			}
		}
		for (const UEdGraphPin* const Pin : ParametersOf(*Results[0]))
		{
			const UEdGraphPin* const Input = Entry.FindPin(Pin->PinName, EGPD_Output);
			// A value that goes in and out by reference has a pin on both sides.
			if (Input && !Input->PinType.bIsReference)
			{
				Log.Warning(*FString::Printf(TEXT("The function '%s' has an input and an output of one name, which its "
												  "callers cannot tell apart: @@"),
								*Graph.GetName()),
					Pin);
			}
		}
	}

	const UFunction* FindFunction() const
	{
		return Blueprint.GeneratedClass.Get()->FindFunctionByName(Graph.GetFName(), EIncludeSuperFlag::ExcludeSuper);
	}

	void CheckLocals(const UK2Node_FunctionEntry& Entry)
	{
		const UFunction* const Function = FindFunction();
		TSet<FName> Names;
		for (const UEdGraphPin* const Pin : ParametersOf(Entry))
		{
			Names.Add(Pin->PinName);
		}
		for (const FBPVariableDescription& Local : Entry.LocalVariables)
		{
			const FString Name = Local.VarName.ToString();
			const FProperty* const Property = Function ? Function->FindPropertyByName(Local.VarName) : nullptr;
			if (Names.Contains(Local.VarName))
			{
				Log.Error(
					*FString::Printf(TEXT("The function @@ has another local variable or parameter named '%s'"), *Name),
					&Entry);
			}
			else if (!Property && !FMissingObjects::IsMissing(Local.VarType.PinSubCategoryObject.Get()))
			{
				Log.Error(*FString::Printf(TEXT("The local variable '%s' of @@ has an invalid type: %s"), *Name,
							  *UEdGraphSchema_K2::TypeToText(Local.VarType).ToString()),
					&Entry);
			}
			else if (Property && !MemberDeclarations::IsDefaultValid(Local, *Property))
			{
				Log.Warning(
					*FString::Printf(TEXT("The default value '%s' of the local variable '%s' of @@ is not a valid %s"),
						*Local.DefaultValue, *Name, *UEdGraphSchema_K2::TypeToText(Local.VarType).ToString()),
					&Entry);
			}
			Names.Add(Local.VarName);
		}
	}

	/** Whether native code has got more parameters since the graph was made, and all else is as it was. */
	static bool LacksNewParameters(const UFunction& Function, const UFunction& Overridden)
	{
		const UClass* const Owner = Overridden.GetOwnerClass();
		bool bLacks = false;
		for (TFieldIterator<FProperty> It(&Overridden, EFieldIteratorFlags::ExcludeSuper); It; ++It)
		{
			const FProperty* const Own = Function.FindPropertyByName(It->GetFName());
			if (Own && !Own->SameType(*It))
			{
				return false;
			}
			bLacks |= !Own && It->HasAnyPropertyFlags(CPF_Parm) && !It->HasAnyPropertyFlags(CPF_ReturnParm);
		}
		for (TFieldIterator<FProperty> It(&Function, EFieldIteratorFlags::ExcludeSuper); It; ++It)
		{
			if (It->HasAnyPropertyFlags(CPF_Parm) && !Overridden.FindPropertyByName(It->GetFName()))
			{
				return false;
			}
		}
		return bLacks && Owner && !Owner->ClassGeneratedBy;
	}

	/** A function of a name that the declaring class knows stands for that one, and has to be callable as that one is.
	 */
	void CheckOverride(const UK2Node_FunctionEntry& Entry)
	{
		const UFunction* const Overridden = Origin.Class ? Origin.Class->FindFunctionByName(Graph.GetFName()) : nullptr;
		const UFunction* const Function = FindFunction();
		if (!Overridden || !Function)
		{
			return;
		}
		const FString Owner = Overridden->GetOwnerClass() ? Overridden->GetOwnerClass()->GetName() : FString();
		const bool bOverridable = Origin.bInterface
			|| (Overridden->HasAnyFunctionFlags(FUNC_BlueprintEvent) && !Overridden->HasAnyFunctionFlags(FUNC_Final));
		if (!bOverridable)
		{
			Log.Error(*FString::Printf(TEXT("'%s' is a function of '%s' that cannot be overridden; rename @@"),
						  *Graph.GetName(), *Owner),
				&Entry);
		}
		else if (LacksNewParameters(*Function, *Overridden))
		{
			Log.Warning(*FString::Printf(TEXT("@@ overrides a function of '%s' that has more parameters by now; the "
											  "node gets them when it is refreshed"),
							*Owner),
				&Entry);
		}
		else if (!Function->IsSignatureCompatibleWith(Overridden))
		{
			Log.Error(
				*FString::Printf(TEXT("@@ overrides a function of '%s', but its inputs and outputs are not those of "
									  "the function there"),
					*Owner),
				&Entry);
		}
	}

	const UBlueprint& Blueprint;
	const UEdGraph& Graph;
	const FOrigin& Origin;
	FCompilerResultsLog& Log;
};
} // namespace

TMap<const UEdGraph*, FOrigin> Collect(const UBlueprint& Blueprint)
{
	TMap<const UEdGraph*, FOrigin> Origins;
	for (const UEdGraph* const Graph : Blueprint.FunctionGraphs)
	{
		Origins.Add(Graph, FOrigin{Blueprint.ParentClass.Get(), false});
	}
	for (const FBPInterfaceDescription& Interface : Blueprint.ImplementedInterfaces)
	{
		for (const UEdGraph* const Graph : Interface.Graphs)
		{
			Origins.Add(Graph, FOrigin{Interface.Interface.Get(), true});
		}
	}
	return Origins;
}

bool Check(const UBlueprint& Blueprint, const UEdGraph& Graph, const FOrigin& Origin, FCompilerResultsLog& Log)
{
	return FCheck(Blueprint, Graph, Origin, Log).Run();
}
} // namespace FunctionGraphs
