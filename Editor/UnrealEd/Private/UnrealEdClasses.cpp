#include "Standalone/UnrealEdClasses.h"

#include "Blueprint/WidgetTree.h"
#include "BlueprintKindSetup.h"
#include "Compiler/BlueprintClassBuilder.h"
#include "Components/PanelSlot.h"
#include "Components/PanelWidget.h"
#include "Components/SceneComponent.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphNode_Comment.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Factories/BlueprintFactory.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "Kismet2/RenamedMembers.h"
#include "Misc/PackageName.h"
#include "Standalone/BlueprintClassProvider.h"
#include "Standalone/EdGraphNode_Placeholder.h"
#include "Standalone/MissingObjects.h"
#include "Standalone/NativeClass.h"
#include "Standalone/ObjectText.h"
#include "UserDefinedStructure/UserDefinedStructEditorData.h"
#include "WidgetBlueprintFactory.h"

namespace UnrealEdClasses
{
/** A Blueprint that was just read: its graphs stand, its class is an empty shell. */
static void RegenerateOnLoad(UBlueprint* Blueprint)
{
	FBlueprintClassBuilder::Build(*Blueprint);
	RenamedMembers::Follow(*Blueprint);
	Blueprint->Status = BS_UpToDate;
	Blueprint->bHasBeenRegenerated = true;
}

static TSharedPtr<INameValidatorInterface> MakeNameValidator(const UBlueprint* Blueprint, FName ExistingName)
{
	return MakeShared<FKismetNameValidator>(Blueprint, ExistingName);
}

static UObject* MakePlaceholderNode(const FObjectTextRecord& Record, UEdGraph& Graph)
{
	FName Name(Record.GetName());
	if (Name.IsNone() || !IsUniqueObjectName(Name, &Graph))
	{
		Name = MakeUniqueObjectName(&Graph, UEdGraphNode_Placeholder::StaticClass());
	}
	return NewObject<UEdGraphNode_Placeholder>(
		&Graph, Name, static_cast<EObjectFlags>(Record.Flags | RF_Transactional));
}

/** Whether the text sets anything that Class has and Base does not. */
static bool SetsMemberOf(const FObjectTextRecord& Record, const UClass& Class, const UClass& Base)
{
	for (const FObjectTextLine& Line : Record.Lines)
	{
		const FName Name(Line.GetName(), FNAME_Find);
		if (!Name.IsNone() && Class.FindPropertyByName(Name) && !Base.FindPropertyByName(Name))
		{
			return true;
		}
	}
	return false;
}

/** What an object of an unknown class must at least be in its place; null where nothing can be told. */
static UClass* LikelyClass(const FObjectTextRecord& Record, const UObject& Outer)
{
	if (Outer.IsA<UWidgetTree>())
	{
		const bool bPanel = SetsMemberOf(Record, *UPanelWidget::StaticClass(), *UWidget::StaticClass());
		return bPanel ? UPanelWidget::StaticClass() : UWidget::StaticClass();
	}
	if (Outer.IsA<UPanelWidget>())
	{
		return UPanelSlot::StaticClass();
	}
	if (Outer.IsA<UBlueprintGeneratedClass>() && Record.GetName().EndsWith(TEXT("_GEN_VARIABLE")))
	{
		const bool bScene = SetsMemberOf(Record, *USceneComponent::StaticClass(), *UActorComponent::StaticClass());
		return bScene ? USceneComponent::StaticClass() : UActorComponent::StaticClass();
	}
	return nullptr;
}

/**
 * Nodes, components and widgets have places and links, so there is a stand-in for one of an unknown class. Other
 * objects stay as text with their owner.
 */
static UObject* MakePlaceholder(const FObjectTextRecord& Record, UObject* Outer)
{
	if (UEdGraph* const Graph = Cast<UEdGraph>(Outer))
	{
		return MakePlaceholderNode(Record, *Graph);
	}
	UClass* const Base = Outer && !Record.GetName().IsEmpty() ? LikelyClass(Record, *Outer) : nullptr;
	const FString Path = FPackageName::ExportTextPathToObjectPath(Record.GetClassPath());
	UClass* const Class = Base ? FMissingObjects::StandInForClass(Path, *Base) : nullptr;
	const bool bFits = Class && Class->IsChildOf(Base);
	return bFits ? NewObject<UObject>(Outer, Class, FName(Record.GetName()), Record.Flags) : nullptr;
}
} // namespace UnrealEdClasses

void RegisterUnrealEdClasses()
{
	NativeClass::RegisterNativeClasses({&UFactory::StaticClass, &UBlueprintFactory::StaticClass,
		&UWidgetBlueprintFactory::StaticClass, &UEdGraphNode_Comment::StaticClass,
		&UEdGraphNode_Placeholder::StaticClass, &UUserDefinedStructEditorData::StaticClass});
	FObjectTextImport::SetUnknownClassHandler(&UnrealEdClasses::MakePlaceholder);
	BlueprintClassProvider::FFunctions Functions;
	Functions.EnsureSkeletonIsUpToDate = &FBlueprintEditorUtils::EnsureSkeletonIsUpToDate;
	Functions.RegenerateOnLoad = &UnrealEdClasses::RegenerateOnLoad;
	Functions.RemoveGraph = [](UBlueprint* Blueprint, UEdGraph* Graph)
	{ FBlueprintEditorUtils::RemoveGraph(Blueprint, Graph); };
	Functions.ReplaceFunctionReferences = &FBlueprintEditorUtils::ReplaceFunctionReferences;
	Functions.RenameTimeline = &FBlueprintEditorUtils::RenameTimeline;
	Functions.MakeNameValidator = &UnrealEdClasses::MakeNameValidator;
	BlueprintClassProvider::Set(Functions);
	RegisterBlueprintKinds();
}
