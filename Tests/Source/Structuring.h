#pragma once

#include "AssetOperationBase.h"
#include "BlueprintConsistency.h"
#include "Components/ActorComponent.h"
#include "EdGraphSchema_K2.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Populating.h"
#include "UObject/UnrealType.h"

/** One saved Blueprint, and calls that change its class. */
struct FStructuring : FPopulating
{
	using FPopulating::FPopulating;

	/** Members is what stands in the arguments behind the path. */
	Morvane::FToolResult& Change(const std::string& Members)
	{
		Result = RunTool(Morvane::ToolInfo::ToolName_ModifyBlueprintClassStructure,
			R"({"path":")" + ToStd(Blueprint.Path()) + "\"," + Members + "}");
		return *Result;
	}
	Morvane::FToolResult& Variables(const std::string& Entries) { return Change("\"variables\":{" + Entries + "}"); }
	Morvane::FToolResult& Components(const std::string& Entries) { return Change("\"components\":[" + Entries + "]"); }
	Morvane::FToolResult& Interfaces(const std::string& Entries) { return Change("\"interfaces\":[" + Entries + "]"); }
	Morvane::FToolResult& Delegates(const std::string& Entries) { return Change("\"delegates\":[" + Entries + "]"); }
	Morvane::FToolResult& Timelines(const std::string& Entries) { return Change("\"timelines\":[" + Entries + "]"); }

	std::vector<std::string> Told() const { return Warnings(*Result); }
	std::vector<std::string> Refused() const { return Errors(*Result); }
	/** The successes without the last, which is about the call as a whole. */
	std::vector<std::string> Done() const
	{
		std::vector<std::string> Texts = Successes(*Result);
		if (!Texts.empty() && Texts.back().rfind("Successfully modified class structure", 0) == 0)
		{
			Texts.pop_back();
		}
		return Texts;
	}

	const FBPVariableDescription* Variable(const TCHAR* Name) const
	{
		const int32 Index = FBlueprintEditorUtils::FindNewVariableIndex(Blueprint.Get(), Name);
		return Index == INDEX_NONE ? nullptr : &Blueprint->NewVariables[Index];
	}
	/** What the class default object has, as text; "none" where the class has no such property. */
	std::string Default(const TCHAR* Name) const
	{
		UClass* const Class = FBlueprintEditorUtils::GetMostUpToDateClass(Blueprint->GeneratedClass);
		const FProperty* const Property = Class->FindPropertyByName(Name);
		return Property ? ToStd(FAssetOperationBase::GetPropertyValueAsString(Class->GetDefaultObject(), Property))
						: "none";
	}
	USCS_Node* Component(const TCHAR* Name) const { return Blueprint->SimpleConstructionScript->FindSCSNode(Name); }
	/** A property of a component's template, as text. */
	std::string Value(const TCHAR* ComponentName, const TCHAR* Property) const
	{
		const USCS_Node* const Node = Component(ComponentName);
		const UObject* const Template = Node ? Node->ComponentTemplate.Get() : nullptr;
		return Template ? ToStd(FAssetOperationBase::GetPropertyValueAsString(
				   Template, Template->GetClass()->FindPropertyByName(Property)))
						: "none";
	}
	/** What a component hangs on: a node here or one elsewhere; empty for a root. */
	std::string ParentOf(const TCHAR* ComponentName) const
	{
		USCS_Node* const Node = Component(ComponentName);
		if (!Node)
		{
			return "none";
		}
		const USCS_Node* const Parent = Blueprint->SimpleConstructionScript->FindParentNode(Node);
		if (Parent)
		{
			return ToStd(Parent->GetVariableName().ToString());
		}
		return Node->ParentComponentOrVariableName.IsNone() ? ""
															: ToStd(Node->ParentComponentOrVariableName.ToString());
	}
	/** Everything that is wrong in the Blueprint, as it is and as it is read again; it compiles too. */
	std::vector<std::string> Faults()
	{
		std::vector<std::string> Lines = FindInconsistenciesAfterReload(Blueprint);
		if (!Blueprint.Compiles())
		{
			Lines.push_back("does not compile");
		}
		return Lines;
	}
};
