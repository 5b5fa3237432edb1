#include "Compiler/MemberNames.h"

#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/TimelineTemplate.h"
#include "K2Node_CustomEvent.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/WidgetBlueprintVariables.h"
#include "UObject/UnrealType.h"

namespace MemberNames
{
namespace
{
/** The words that messages use for kinds of members; two names are of one kind when they are the same word. */
const TCHAR* const Variable = TEXT("variable");
const TCHAR* const Component = TEXT("component");
const TCHAR* const Widget = TEXT("widget");
const TCHAR* const Timeline = TEXT("timeline");
const TCHAR* const Function = TEXT("function");
const TCHAR* const InterfaceFunction = TEXT("interface function");
const TCHAR* const Macro = TEXT("macro");
const TCHAR* const Event = TEXT("event");
const TCHAR* const CustomEvent = TEXT("custom event");

FString WithArticle(const TCHAR* Kind)
{
	static const FString Vowels(TEXT("aeiou"));
	return FString(Vowels.Contains(FString(Kind).Left(1)) ? TEXT("an ") : TEXT("a ")) + Kind;
}

class FCheck
{
public:
	FCheck(const UBlueprint& InBlueprint, FCompilerResultsLog& InLog)
		: Blueprint(InBlueprint)
		, Log(InLog)
	{
	}

	void Run()
	{
		CheckProperties();
		CheckGraphs();
		CheckEvents();
	}

private:
	void Claim(FName Name, const TCHAR* Kind, const UObject* Where)
	{
		const TCHAR* const* const Known = Claimed.Find(Name);
		if (!Known)
		{
			Claimed.Add(Name, Kind);
			return;
		}
		const FString Users = *Known == Kind ? FString::Printf(TEXT("more than one %s"), Kind)
											 : WithArticle(*Known) + TEXT(" and by ") + WithArticle(Kind);
		const FString Text = FString::Printf(
			TEXT("The name '%s' is used by %s; every member of a Blueprint needs a name of its own"), *Name.ToString(),
			*Users);
		if (Where)
		{
			Log.Error(*(Text + TEXT(": @@")), Where);
		}
		else
		{
			Log.Error(*Text);
		}
	}

	bool IsVariableOfParent(FName Name) const
	{
		const UClass* const Parent = Blueprint.ParentClass.Get();
		return Parent && Parent->FindPropertyByName(Name);
	}

	void ClaimProperty(FName Name, const TCHAR* Kind)
	{
		if (IsVariableOfParent(Name))
		{
			Log.Error(*FString::Printf(TEXT("The %s '%s' has the name of a variable of the parent class '%s'"), Kind,
				*Name.ToString(), *Blueprint.ParentClass.Get()->GetName()));
		}
		Claim(Name, Kind, nullptr);
	}

	void CheckProperties()
	{
		for (const FBPVariableDescription& Description : Blueprint.NewVariables)
		{
			ClaimProperty(Description.VarName, Variable);
		}
		if (Blueprint.SimpleConstructionScript)
		{
			for (const USCS_Node* const Node : Blueprint.SimpleConstructionScript->GetAllNodes())
			{
				ClaimProperty(Node->GetVariableName(), Component);
			}
		}
		for (const UTimelineTemplate* const Template : Blueprint.Timelines)
		{
			if (Template)
			{
				ClaimProperty(Template->GetVariableName(), Timeline);
			}
		}
		// A widget may have the name of a variable of the parent class: that is how the parent gets hold of it.
		for (const FWidgetBlueprintVariable& Description : FWidgetBlueprintVariable::Collect(&Blueprint))
		{
			Claim(Description.Name, Widget, nullptr);
		}
	}

	void CheckGraphs()
	{
		for (const UEdGraph* const Graph : Blueprint.FunctionGraphs)
		{
			if (!Graph)
			{
				continue;
			}
			if (IsVariableOfParent(Graph->GetFName()))
			{
				Log.Error(
					*FString::Printf(TEXT("The function '%s' has the name of a variable of the parent class '%s': @@"),
						*Graph->GetName(), *Blueprint.ParentClass.Get()->GetName()),
					Graph);
			}
			Claim(Graph->GetFName(), Function, Graph);
		}
		for (const UEdGraph* const Graph : Blueprint.MacroGraphs)
		{
			if (Graph)
			{
				Claim(Graph->GetFName(), Macro, Graph);
			}
		}
		for (const FBPInterfaceDescription& Interface : Blueprint.ImplementedInterfaces)
		{
			for (const UEdGraph* const Graph : Interface.Graphs)
			{
				if (Graph)
				{
					Claim(Graph->GetFName(), InterfaceFunction, Graph);
				}
			}
		}
	}

	void CheckEvents()
	{
		TArray<UK2Node_Event*> Events;
		FBlueprintEditorUtils::GetAllNodesOfClass(&Blueprint, Events);
		for (const UK2Node_Event* const Node : Events)
		{
			if (!Node->IsNodeEnabled())
			{
				continue;
			}
			if (!Node->IsA<UK2Node_CustomEvent>())
			{
				CheckOverride(*Node);
			}
			else if (Node->GetFunctionName().IsNone())
			{
				Log.Error(TEXT("The custom event @@ has no name"), Node);
			}
			else
			{
				Claim(Node->GetFunctionName(), CustomEvent, Node);
			}
		}
	}

	void CheckOverride(const UK2Node_Event& Node)
	{
		const FName Name = Node.GetFunctionName();
		if (Name.IsNone())
		{
			return;
		}
		if (const UK2Node_Event* const* const Other = Overrides.Find(Name))
		{
			Log.Error(TEXT("Found more than one function with the same name: @@ and @@"), *Other, &Node);
			return;
		}
		Overrides.Add(Name, &Node);
		Claim(Name, Event, &Node);
	}

	const UBlueprint& Blueprint;
	FCompilerResultsLog& Log;
	TMap<FName, const TCHAR*> Claimed;
	TMap<FName, const UK2Node_Event*> Overrides;
};
} // namespace

void Check(const UBlueprint& Blueprint, FCompilerResultsLog& Log)
{
	FCheck(Blueprint, Log).Run();
}
} // namespace MemberNames
