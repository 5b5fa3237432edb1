#include "RequestSets.h"

#include <fstream>
#include <map>
#include <sstream>

#include "EdGraph/EdGraph.h"
#include "GraphBuilder.h"
#include "K2Node_AddComponent.h"
#include "K2Node_BaseMCDelegate.h"
#include "K2Node_CallFunction.h"
#include "K2Node_ClassDynamicCast.h"
#include "K2Node_CustomEvent.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_InputKey.h"
#include "K2Node_MacroInstance.h"
#include "K2Node_PromotableOperator.h"
#include "K2Node_StructOperation.h"
#include "K2Node_SwitchEnum.h"
#include "K2Node_Variable.h"
#include "Standalone/K2Node_EnumNodes.h"

namespace RequestSetsImpl
{
static std::string WithoutNumber(std::string Name)
{
	const size_t End = Name.find_last_of('.');
	return End == std::string::npos ? Name : Name.substr(End + 1);
}

static std::string NameOf(const UObject* Object)
{
	return Object ? ToStd(Object->GetName()) : std::string("?");
}

static std::string NameCall(const UK2Node_CallFunction& Node)
{
	const UFunction* const Function = Node.GetTargetFunction();
	const std::string Owner = Function ? NameOf(Function->GetOuter()) : "?";
	return Owner + "." + ToStd(Node.GetFunctionName().ToString());
}

static std::string NameDelegate(const UK2Node_BaseMCDelegate& Node)
{
	static const std::map<std::string, std::string> Verbs = {{"K2Node_AddDelegate", "Bind"},
		{"K2Node_AssignDelegate", "Assign"}, {"K2Node_CallDelegate", "Call"}, {"K2Node_RemoveDelegate", "Unbind"},
		{"K2Node_ClearDelegate", "Clear"}};
	return Verbs.at(NameOf(Node.GetClass())) + "." + ToStd(Node.DelegateReference.GetMemberName().ToString());
}

static std::string NameVariable(const UK2Node_Variable& Node)
{
	const bool bSet = NameOf(Node.GetClass()) == "K2Node_VariableSet";
	const std::string Owner = Node.VariableReference.IsSelfContext()
		? ""
		: NameOf(Node.VariableReference.GetMemberParentClass()) + ".";
	return (bSet ? "Set." : "Get.") + Owner + ToStd(Node.VariableReference.GetMemberName().ToString());
}

/** "K2_SetActorLocation" stands for "Actor.K2_SetActorLocation", and a trailing star for any ending. */
static bool Fits(const std::string& Name, const std::string& Meant)
{
	if (Meant.ends_with("*"))
	{
		const std::string Stem = Meant.substr(0, Meant.size() - 1);
		return Name.starts_with(Stem) || WithoutNumber(Name).starts_with(Stem);
	}
	return Name == Meant || (Meant.find('.') == std::string::npos && WithoutNumber(Name) == Meant);
}

} // namespace RequestSetsImpl

using namespace RequestSetsImpl;

std::vector<FRequestColumns> ReadRequestSet(const std::string& FileName)
{
	const bool bPath = FileName.starts_with("/");
	std::ifstream File(bPath ? FileName : MORVANE_SOURCE_DIR "/Tests/Data/Requests/" + FileName);
	std::vector<FRequestColumns> Lines;
	for (std::string Line; std::getline(File, Line);)
	{
		if (Line.empty() || Line.starts_with("# "))
		{
			continue;
		}
		FRequestColumns& Columns = Lines.emplace_back();
		for (size_t Begin = 0; Begin <= Line.size();)
		{
			const size_t End = std::min(Line.find('\t', Begin), Line.size());
			Columns.push_back(Line.substr(Begin, End - Begin));
			Begin = End + 1;
		}
	}
	return Lines;
}

std::string NameNodeInAWord(const UEdGraphNode* Node)
{
	const std::string Class = NameOf(Node->GetClass());
	const std::string Plain = Class.starts_with("K2Node_") ? Class.substr(7) : Class;
	if (const auto* const Operator = Cast<UK2Node_PromotableOperator>(Node))
	{
		return "Op." + ToStd(Operator->OperationName.ToString());
	}
	if (const auto* const Component = Cast<UK2Node_AddComponent>(Node))
	{
		return "AddComponent." + NameOf(Component->TemplateType.Get());
	}
	if (const auto* const Call = Cast<UK2Node_CallFunction>(Node))
	{
		return NameCall(*Call);
	}
	if (Cast<UK2Node_CustomEvent>(Node))
	{
		return "CustomEvent";
	}
	if (const auto* const Event = Cast<UK2Node_Event>(Node))
	{
		return "Event." + ToStd(Event->GetFunctionName().ToString());
	}
	if (const auto* const Macro = Cast<UK2Node_MacroInstance>(Node))
	{
		return "Macro." + NameOf(Macro->GetMacroGraph());
	}
	if (const auto* const ToClass = Cast<UK2Node_ClassDynamicCast>(Node))
	{
		return "ClassCast." + NameOf(ToClass->TargetType.Get());
	}
	if (const auto* const ToObject = Cast<UK2Node_DynamicCast>(Node))
	{
		return "Cast." + NameOf(ToObject->TargetType.Get());
	}
	if (const auto* const Switch = Cast<UK2Node_SwitchEnum>(Node))
	{
		return "Switch." + NameOf(Switch->Enum.Get());
	}
	if (const auto* const OfEnum = Cast<UK2Node_EnumNodeBase>(Node))
	{
		return Plain + "." + NameOf(OfEnum->Enum.Get());
	}
	if (const auto* const Delegate = Cast<UK2Node_BaseMCDelegate>(Node))
	{
		return NameDelegate(*Delegate);
	}
	if (const auto* const Key = Cast<UK2Node_InputKey>(Node))
	{
		return "Key." + ToStd(Key->InputKey.GetFName().ToString());
	}
	if (const auto* const Struct = Cast<UK2Node_StructOperation>(Node))
	{
		return Plain + "." + NameOf(Struct->StructType.Get());
	}
	if (const auto* const Variable = Cast<UK2Node_Variable>(Node))
	{
		return NameVariable(*Variable);
	}
	return Plain;
}

bool IsOneOfTheMeant(const std::string& Word, const std::string& Meant)
{
	for (size_t Begin = 0; Begin <= Meant.size();)
	{
		const size_t End = std::min(Meant.find(" / ", Begin), Meant.size());
		if (Fits(Word, Meant.substr(Begin, End - Begin)))
		{
			return true;
		}
		Begin = End + 3;
	}
	return false;
}
