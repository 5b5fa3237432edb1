#include "BlueprintUtils.h"

#include "AssetOperationBase.h"
#include "Blueprint/UserWidget.h"
#include "Engine/Blueprint.h"
#include "Engine/Level.h"
#include "Engine/LevelScriptBlueprint.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/World.h"
#include "Factories/BlueprintFactory.h"
#include "GameFramework/Actor.h"
#include "JsonReading.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Misc/PackageName.h"
#include "Misc/Paths.h"
#include "ToolResult.h"
#include "UObject/Package.h"
#include "UObject/SavePackage.h"
#include "UObject/TopLevelAssetPath.h"
#include "WidgetBlueprint.h"
#include "WidgetBlueprintFactory.h"

namespace BlueprintLoading
{
/** A map's path means the Blueprint of its level; null for one without. */
static UBlueprint* OfMap(UObject* Asset)
{
	const UWorld* const World = Cast<UWorld>(Asset);
	return World && World->PersistentLevel ? World->PersistentLevel->GetLevelScriptBlueprint(true) : nullptr;
}

/** What a package is saved for: the Blueprint, or the map that it belongs to. */
static UObject* AssetOf(UBlueprint* Blueprint)
{
	UWorld* const World = Blueprint->GetTypedOuter<UWorld>();
	return World ? static_cast<UObject*>(World) : Blueprint;
}
} // namespace BlueprintLoading

namespace BlueprintMaking
{
/** The class that {"type", "parent_path"} means; false after an error in the result. Null is for the caller to judge.
 */
static bool ReadParentClass(const FJsonObject& Json, Morvane::FToolResult& Result, FString& OutPath, UClass*& OutClass)
{
	FString Type;
	if (!MorvaneJson::TryGetStringField(Json, TEXT("type"), Type))
	{
		Result.AddErrorMessage(TEXT("Missing required Parent class field: type"));
		return false;
	}
	if (!MorvaneJson::TryGetStringField(Json, TEXT("parent_path"), OutPath))
	{
		// The text names the field as agents have known it; they match on it.
		Result.AddErrorMessage(TEXT("Missing required Parent class field: name"));
		return false;
	}
	OutClass = nullptr;
	if (Type.Equals(TEXT("blueprint"), ESearchCase::IgnoreCase))
	{
		const UBlueprint* const Parent = FBlueprintUtils::LoadBlueprint(OutPath, Result);
		OutClass = Parent ? Parent->GeneratedClass.Get() : nullptr;
		return Parent != nullptr;
	}
	FTopLevelAssetPath ClassPath;
	if (ClassPath.TrySetPath(OutPath))
	{
		OutClass = Cast<UClass>(StaticFindObject(UClass::StaticClass(), ClassPath));
	}
	return true;
}

/** Tells the class that an author may have meant by what is no class's path. */
static void SuggestParent(const FString& Given, Morvane::FToolResult& Result)
{
	int32 LastDot = INDEX_NONE;
	Given.FindLastChar(TEXT('.'), LastDot);
	const UClass* Meant = FAssetOperationBase::GetAssetClassFromAssetName(Given);
	Meant = Meant ? Meant : FAssetOperationBase::GetAssetClassFromAssetName(Given.Mid(LastDot + 1));
	if (!FKismetEditorUtilities::CanCreateBlueprintOfClass(Meant))
	{
		return;
	}
	const UBlueprint* const Blueprint = UBlueprint::GetBlueprintFromClass(Meant);
	Result.AddWarningMessage(Blueprint
			? FString::Printf(TEXT("[Failure] Parent class '%s': '%s' is a Blueprint, whose type is \"blueprint\""),
				*Given, *FBlueprintUtils::GetBlueprintPath(Blueprint))
			: FString::Printf(TEXT("[Failure] Parent class '%s': a native class goes by its path, such as '%s'"),
				*Given, *Meant->GetPathName()));
}

/** Libraries and interfaces are kinds of their own, with static functions or with functions that have no body. */
static EBlueprintType GetType(const UClass* ParentClass)
{
	static const UClass* const Library = FindObject<UClass>(nullptr, TEXT("/Script/Engine.BlueprintFunctionLibrary"));
	if (ParentClass->HasAnyClassFlags(CLASS_Interface))
	{
		return BPTYPE_Interface;
	}
	return Library && ParentClass->IsChildOf(Library) ? BPTYPE_FunctionLibrary : BPTYPE_Normal;
}

template <class TFactory, class TBlueprint>
UBlueprint* Make(const FString& Path, UClass* ParentClass, Morvane::FToolResult& Result)
{
	TFactory* const Factory = NewObject<TFactory>();
	Factory->ParentClass = ParentClass;
	Factory->BlueprintType = GetType(ParentClass);
	UObject* const Asset = FAssetOperationBase::CreateAsset(
		Path, FAssetOperationBase::GetAssetNameFromPath(Path), TBlueprint::StaticClass(), Result, Factory);
	return Cast<UBlueprint>(Asset);
}

/** Of all kinds of Blueprint only the widget one has a factory of its own; the others differ by their parent class. */
static UBlueprint* MakeOfClass(const FString& Path, UClass* ParentClass, Morvane::FToolResult& Result)
{
	return ParentClass->IsChildOf(UUserWidget::StaticClass())
		? Make<UWidgetBlueprintFactory, UWidgetBlueprint>(Path, ParentClass, Result)
		: Make<UBlueprintFactory, UBlueprint>(Path, ParentClass, Result);
}
} // namespace BlueprintMaking

UBlueprint* FBlueprintUtils::TryLoadBlueprint(const FString& Path)
{
	const FString Resolved = FAssetOperationBase::ResolveBlueprintPath(Path);
	// A bare name is nobody's by now. Quiet: a miss is ordinary to those who make what they do not find.
	if (!Resolved.Contains(TEXT("/")))
	{
		return nullptr;
	}
	UObject* const Asset = StaticLoadObject(
		UObject::StaticClass(), nullptr, *Resolved, nullptr, LOAD_Quiet | LOAD_NoWarn);
	UBlueprint* const Blueprint = Cast<UBlueprint>(Asset);
	return Blueprint ? Blueprint : BlueprintLoading::OfMap(Asset);
}

UBlueprint* FBlueprintUtils::LoadBlueprint(const FString& Path, Morvane::FToolResult& Result)
{
	UBlueprint* const Blueprint = TryLoadBlueprint(Path);
	if (!Blueprint)
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Failed to find or load blueprint: %s"), *Path));
		const FString Reason = FAssetOperationBase::AskWhyNotLoaded(FAssetOperationBase::ResolveBlueprintPath(Path));
		if (!Reason.IsEmpty())
		{
			Result.AddErrorMessage(Reason);
		}
	}
	return Blueprint;
}

bool FBlueprintUtils::BlueprintExists(const FString& Path)
{
	return !Path.IsEmpty() && FAssetOperationBase::AssetExists(FAssetOperationBase::ResolveBlueprintPath(Path));
}

UBlueprint* FBlueprintUtils::CreateBlueprint(
	const FString& Path, const TSharedPtr<FJsonObject>& ParentClassJson, Morvane::FToolResult& Result)
{
	FString ParentPath;
	UClass* ParentClass = nullptr;
	if (!BlueprintMaking::ReadParentClass(*ParentClassJson, Result, ParentPath, ParentClass))
	{
		return nullptr;
	}
	if (!FKismetEditorUtilities::CanCreateBlueprintOfClass(ParentClass))
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("Parent class '%s' is not valid for Blueprint creation."), *ParentPath));
		BlueprintMaking::SuggestParent(ParentPath, Result);
		return nullptr;
	}
	return BlueprintMaking::MakeOfClass(Path, ParentClass, Result);
}

UBlueprint* FBlueprintUtils::CreateActorBlueprint(const FString& Path, FString& OutReason)
{
	Morvane::FToolResult Making{Morvane::FToolCommand(FString(), FString(), FString())};
	UBlueprint* const Blueprint = BlueprintMaking::MakeOfClass(
		FAssetOperationBase::NormalizeAssetPath(Path), AActor::StaticClass(), Making);
	OutReason = Blueprint ? FString() : FString::Join(Making.GetErrorMessages(), TEXT("\n"));
	return Blueprint;
}

bool FBlueprintUtils::SaveBlueprint(UBlueprint* Blueprint)
{
	UPackage* const Package = GetBlueprintPackage(Blueprint);
	if (!Package)
	{
		return false;
	}
	const FString Filename = FPackageName::LongPackageNameToFilename(
		Package->GetName(), FPackageName::GetAssetPackageExtension());
	FSavePackageArgs Args;
	Args.TopLevelFlags = static_cast<EObjectFlags>(RF_Public | RF_Standalone);
	return UPackage::Save(Package, BlueprintLoading::AssetOf(Blueprint), *Filename, Args).IsSuccessful();
}

void FBlueprintUtils::MarkBlueprintDirty(UBlueprint* Blueprint)
{
	if (Blueprint)
	{
		Blueprint->MarkPackageDirty();
	}
}

FString FBlueprintUtils::GetBlueprintPath(const UBlueprint* Blueprint)
{
	return Blueprint ? Blueprint->GetOutermost()->GetName() : FString();
}

FString FBlueprintUtils::GetBlueprintName(const FString& Path)
{
	FString Name = Path;
	int32 Slash = INDEX_NONE;
	if (Name.FindLastChar(TEXT('/'), Slash))
	{
		Name.RightChopInline(Slash + 1);
	}
	int32 Dot = INDEX_NONE;
	if (Name.FindLastChar(TEXT('.'), Dot))
	{
		Name.LeftInline(Dot);
	}
	return Name;
}

UPackage* FBlueprintUtils::GetBlueprintPackage(UBlueprint* Blueprint)
{
	return Blueprint ? Blueprint->GetOutermost() : nullptr;
}

bool FBlueprintUtils::VerifyBlueprintVariableName(
	UBlueprint* Blueprint, const FString& Name, Morvane::FToolResult& Result)
{
	if (!Blueprint)
	{
		Result.AddErrorMessage(TEXT("Invalid Blueprint provided"));
		return false;
	}
	if (Name.IsEmpty())
	{
		Result.AddErrorMessage(TEXT("Variable name cannot be empty"));
		return false;
	}
	const FName VariableName(*Name);
	if (FBlueprintEditorUtils::FindNewVariableIndex(Blueprint, VariableName) != INDEX_NONE)
	{
		Result.AddErrorMessage(FString::Printf(TEXT("A variable with name '%s' already exists"), *Name));
		return false;
	}
	// A list of all functions is made only for a name that somebody has.
	const EValidatorResult Verdict = FKismetNameValidator(Blueprint).IsValid(Name);
	TSet<FName> Functions;
	if (Verdict != EValidatorResult::Ok)
	{
		FBlueprintEditorUtils::GetFunctionNameList(Blueprint, Functions);
	}
	if (Functions.Contains(VariableName))
	{
		Result.AddErrorMessage(FString::Printf(TEXT("A function with name '%s' already exists"), *Name));
		return false;
	}
	if (Blueprint->SimpleConstructionScript && Blueprint->SimpleConstructionScript->FindSCSNode(VariableName))
	{
		Result.AddErrorMessage(FString::Printf(TEXT("A component with name '%s' already exists"), *Name));
		return false;
	}
	if (Blueprint->ParentClass && Blueprint->ParentClass->FindPropertyByName(VariableName))
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("A property with name '%s' already exists in the parent class"), *Name));
		return false;
	}
	if (Verdict != EValidatorResult::Ok)
	{
		Result.AddErrorMessage(
			FString::Printf(TEXT("%s for name '%s'"), *INameValidatorInterface::GetErrorString(Name, Verdict), *Name));
		return false;
	}
	return true;
}

TArray<USCS_Node*> FBlueprintUtils::GetBlueprintComponentsFromSCS(const UBlueprint* Blueprint, bool bWithInherited)
{
	TArray<USCS_Node*> Nodes;
	if (!Blueprint)
	{
		return Nodes;
	}
	if (bWithInherited)
	{
		Nodes = GetBlueprintComponentsFromSCS(UBlueprint::GetBlueprintFromClass(Blueprint->ParentClass));
	}
	if (Blueprint->SimpleConstructionScript)
	{
		Nodes.Append(Blueprint->SimpleConstructionScript->GetAllNodes());
	}
	return Nodes;
}
