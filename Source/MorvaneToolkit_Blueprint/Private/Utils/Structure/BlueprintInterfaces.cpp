// Interfaces that a Blueprint implements: one batch. First what is added, then what is removed, then one compile.

#include "AssetOperationBase.h"
#include "BlueprintCreateModifyRemoveUtils.h"
#include "BlueprintUtils.h"
#include "Engine/Blueprint.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Misc/Char.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "UObject/TopLevelAssetPath.h"
#include "UObject/UnrealType.h"
#include "Utils/Report/TrackedNames.h"
#include "Utils/Structure/MemberNodes.h"
#include "Utils/Structure/StructureBatch.h"

namespace BlueprintInterfaces
{
using namespace Morvane;

/** In C++ an interface has a second name, with an I in front, by which it is mostly known. */
static UClass* FindInterfaceClass(const FString& Name)
{
	UClass* const Class = FAssetOperationBase::GetAssetClassFromAssetName(Name);
	const bool bPrefixed = Name.Len() > 2 && Name[0] == TEXT('I') && FChar::IsUpper(Name[1]);
	return Class || !bPrefixed ? Class : FAssetOperationBase::GetAssetClassFromAssetName(Name.RightChop(1));
}

static bool CanImplement(const UBlueprint& Blueprint)
{
	return Blueprint.BlueprintType != BPTYPE_Interface && Blueprint.BlueprintType != BPTYPE_MacroLibrary
		&& Blueprint.BlueprintType != BPTYPE_FunctionLibrary;
}

/** The class's own name, with or without the suffix of Blueprint classes. */
static bool IsName(const FString& Name, const UClass& Class)
{
	FString Short = Class.GetName();
	Short.RemoveFromEnd(TEXT("_C"), ESearchCase::CaseSensitive);
	return Name.Equals(Class.GetName(), ESearchCase::IgnoreCase) || Name.Equals(Short, ESearchCase::IgnoreCase);
}

class FBatch
{
public:
	FBatch(UBlueprint& InBlueprint, FToolResult& InResult)
		: Blueprint(InBlueprint)
		, Result(InResult)
	{
	}

	void Run(const TArray<TSharedPtr<FJsonValue>>& Interfaces)
	{
		UE_LOG(LogTemp, Verbose, TEXT("Starting interface modifications for Blueprint: %s"), *Blueprint.GetName());
		const FStructureKind Kind{
			TEXT("interface"), {TEXT("name"), TEXT("action")}, TEXT("Interface entry missing 'name' field.")};
		StructureBatch::Walk(
			Interfaces, Kind, Result,
			[this](const FStructureEntry& Entry, bool bAdd) { AddOrModify(Entry.Name, bAdd); },
			[this](const FString& Name) { Remove(Name); });
		Finish();
	}

private:
	bool Implements(const UClass* Class) const
	{
		return Blueprint.ImplementedInterfaces.ContainsByPredicate(
			[Class](const FBPInterfaceDescription& Row) { return Row.Interface.Get() == Class; });
	}

	void AddOrModify(const FString& Name, bool bAdd)
	{
		UClass* const Class = FindInterfaceClass(Name);
		if (!Class)
		{
			Result.AddWarningMessage(
				FString::Printf(TEXT("Interface class not found: %s (Check logs for available interfaces)"), *Name));
			return;
		}
		const bool bImplemented = Implements(Class);
		if (!bImplemented && bAdd)
		{
			Add(Name, *Class);
		}
		else if (!bImplemented)
		{
			Result.AddWarningMessage(FString::Printf(TEXT("Interface '%s' not found for modification"), *Name));
		}
		else if (bAdd)
		{
			Result.AddWarningMessage(FString::Printf(TEXT("Interface '%s' already implemented, cannot add"), *Name));
		}
		else
		{
			Result.AddWarningMessage(
				FString::Printf(TEXT("Interface already implemented (no modifications needed): %s"), *Name));
		}
	}

	void Add(const FString& Name, UClass& Class)
	{
		UE_LOG(LogTemp, Verbose, TEXT("Adding interface: %s to blueprint"), *Name);
		if (FBlueprintEditorUtils::ImplementNewInterface(&Blueprint, FTopLevelAssetPath(&Class)))
		{
			FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(&Blueprint);
			Result.AddSuccessMessage(FString::Printf(TEXT("Added interface: %s"), *Name));
			Changed.Add(Class.GetName());
			return;
		}
		Result.AddWarningMessage(FString::Printf(TEXT("Failed to add interface: %s"), *Name));
		const FString Reason = WhyNot(Class);
		if (!Reason.IsEmpty())
		{
			Result.AddWarningMessage(FString::Printf(TEXT("Interface '%s' was not added: %s"), *Name, *Reason));
		}
	}

	FString WhyNot(UClass& Class) const
	{
		if (!FKismetEditorUtilities::IsClassABlueprintInterface(&Class))
		{
			return FString::Printf(TEXT("%s is no interface"), *Class.GetName());
		}
		if (!FKismetEditorUtilities::CanBlueprintImplementInterface(&Blueprint, &Class))
		{
			return TEXT("Blueprints cannot implement it");
		}
		const UClass* const Parent = Blueprint.ParentClass.Get();
		if (Parent && Parent->ImplementsInterface(&Class))
		{
			return FString::Printf(TEXT("the parent class %s implements it already"), *Parent->GetName());
		}
		for (TFieldIterator<UFunction> It(&Class, EFieldIteratorFlags::IncludeSuper); It; ++It)
		{
			if (FKismetNameValidator(&Blueprint).IsValid(It->GetFName()) != EValidatorResult::Ok)
			{
				return FString::Printf(
					TEXT("the Blueprint has something of its own by the name of its function '%s'"), *It->GetName());
			}
		}
		return FString();
	}

	/** By name before by a part of the path, which several may share. Null when none is meant. */
	const FBPInterfaceDescription* FindMatch(const FString& Name) const
	{
		const UClass* const Resolved = FindInterfaceClass(Name);
		const FBPInterfaceDescription* ByPath = nullptr;
		for (const FBPInterfaceDescription& Row : Blueprint.ImplementedInterfaces)
		{
			const UClass* const Class = Row.Interface.Get();
			if (!Class || Name.IsEmpty())
			{
				continue;
			}
			UE_LOG(LogTemp, Verbose, TEXT("Checking if interface %s matches %s"), *Class->GetName(), *Name);
			if (Class == Resolved || IsName(Name, *Class))
			{
				return &Row;
			}
			const bool bInPath = Class->GetPathName().Find(Name, ESearchCase::IgnoreCase) != INDEX_NONE;
			ByPath = ByPath || !bInPath ? ByPath : &Row;
		}
		return ByPath;
	}

	void Remove(const FString& Name)
	{
		const FBPInterfaceDescription* const Row = FindMatch(Name);
		if (!Row)
		{
			Result.AddWarningMessage(FString::Printf(TEXT("Interface not found for removal: %s"), *Name));
			return;
		}
		const UClass* const Class = Row->Interface.Get();
		Changed.Add(Class->GetName());
		MemberNodes::WarnOfInterfaceNodes(Blueprint, *Row, Name, Result);
		// Without the interface nobody calls its functions, so they go with it.
		FBlueprintEditorUtils::RemoveInterface(&Blueprint, FTopLevelAssetPath(Class), false);
		Result.AddSuccessMessage(FString::Printf(TEXT("Removed interface: %s"), *Name));
	}

	void Finish()
	{
		if (Changed.IsEmpty())
		{
			return;
		}
		FBlueprintUtils::CompileBlueprint(&Blueprint, false);
		TrackNames(ToolInfo::ToolName_ReadBlueprintInterface, Blueprint.GetPathName(),
			ToolInfo::FieldName_InterfaceName, Changed, Result);
	}

	UBlueprint& Blueprint;
	FToolResult& Result;
	TArray<FString> Changed;
};
} // namespace BlueprintInterfaces

bool FBlueprintCreateModifyRemoveUtils::CreateModifyRemoveBlueprintInterface(
	UBlueprint* Blueprint, const TArray<TSharedPtr<FJsonValue>>& Interfaces, Morvane::FToolResult& Result)
{
	if (!Blueprint)
	{
		Result.AddWarningMessage(TEXT("Invalid Blueprint provided."));
		return false;
	}
	if (!BlueprintInterfaces::CanImplement(*Blueprint))
	{
		Result.AddErrorMessage(FString::Printf(TEXT("A Blueprint of the type '%s' cannot implement interfaces: %s"),
			*UBlueprint::GetDisplayNameOfType(Blueprint->BlueprintType).ToString(), *Blueprint->GetName()));
		return false;
	}
	BlueprintInterfaces::FBatch(*Blueprint, Result).Run(Interfaces);
	return true;
}
