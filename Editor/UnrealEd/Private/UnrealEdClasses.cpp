#include "Standalone/UnrealEdClasses.h"

#include "Animation/AnimBlueprint.h"
#include "Blueprint/WidgetTree.h"
#include "BlueprintKindSetup.h"
#include "Compiler/BlueprintClassBuilder.h"
#include "Compiler/StandInMembers.h"
#include "Components/PanelSlot.h"
#include "Components/PanelWidget.h"
#include "Components/SceneComponent.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphNode_Comment.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/Level.h"
#include "Factories/BlueprintFactory.h"
#include "GameFramework/Actor.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "Kismet2/RenamedMembers.h"
#include "Misc/PackageName.h"
#include "Standalone/BlueprintClassProvider.h"
#include "Standalone/EdGraphNode_Placeholder.h"
#include "Standalone/MissingObjects.h"
#include "Standalone/NativeClass.h"
#include "Standalone/ObjectText.h"
#include "UObject/Package.h"
#include "UserDefinedStructure/UserDefinedStructEditorData.h"
#include "WidgetBlueprint.h"
#include "WidgetBlueprintFactory.h"

#include <algorithm>

namespace UnrealEdClasses
{
/** A graph whose schema is not here, as those of widgets and abilities, is one of Blueprint nodes: what its schema adds
 * is the editor's business. */
static void SettleSchemas(const UBlueprint& Blueprint)
{
	TArray<UEdGraph*> Graphs;
	Blueprint.GetAllGraphs(Graphs);
	for (const UEdGraph* const Graph : Graphs)
	{
		const UClass* const Schema = Graph->Schema.Get();
		if (FMissingObjects::IsMissing(Schema) && !Schema->IsChildOf(UEdGraphSchema_K2::StaticClass()))
		{
			FMissingObjects::StandInForClass(Schema->GetPathName(), *UEdGraphSchema_K2::StaticClass());
		}
	}
	// The load told of them when it read the graphs.
	FMissingObjects::TakeAsked();
}

/** A Blueprint that was just read: its graphs stand, its class is an empty shell. */
static void RegenerateOnLoad(UBlueprint* Blueprint)
{
	SettleSchemas(*Blueprint);
	FBlueprintClassBuilder::Build(*Blueprint);
	RenamedMembers::Follow(*Blueprint);
	StandInMembers::AddUsedBy(*Blueprint);
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

static bool HasLine(const FObjectTextRecord& Record, std::string_view Name)
{
	return std::any_of(
		Record.Lines.begin(), Record.Lines.end(), [Name](const FObjectTextLine& Line) { return Line.Name == Name; });
}

static bool IsGraph(const FObjectTextRecord& Record)
{
	return HasLine(Record, "Schema") || HasLine(Record, "GraphGuid");
}

/** An asset, or the class that it generates, of a plug-in's own kind of Blueprint: told by what it is made of. */
static UClass* LikelyAssetClass(const FObjectTextRecord& Record)
{
	const bool bGenerated = HasLine(Record, "GeneratedClass") || HasLine(Record, "ParentClass");
	if (bGenerated && HasLine(Record, "WidgetTree"))
	{
		return UWidgetBlueprint::StaticClass();
	}
	if (bGenerated)
	{
		return HasLine(Record, "TargetSkeleton") ? UAnimBlueprint::StaticClass() : UBlueprint::StaticClass();
	}
	const bool bClass = Record.GetName().EndsWith(TEXT("_C"), ESearchCase::CaseSensitive)
		&& Record.GetClassPath().EndsWith(TEXT("GeneratedClass"), ESearchCase::CaseSensitive);
	return bClass ? UBlueprintGeneratedClass::StaticClass() : nullptr;
}

/** What an object of an unknown class inside an actor, or a class's template for one, must at least be. */
static UClass* LikelyComponentClass(const FObjectTextRecord& Record)
{
	if (SetsMemberOf(Record, *USceneComponent::StaticClass(), *UActorComponent::StaticClass()))
	{
		return USceneComponent::StaticClass();
	}
	const bool bTemplate = Record.GetName().EndsWith(TEXT("_GEN_VARIABLE"));
	const bool bNamed = Record.GetClassPath().EndsWith(TEXT("Component"), ESearchCase::CaseSensitive)
		|| SetsMemberOf(Record, *UActorComponent::StaticClass(), *UObject::StaticClass());
	return bTemplate || bNamed ? UActorComponent::StaticClass() : nullptr;
}

/** What an object of an unknown class must at least be in its place; null where nothing can be told. */
static UClass* LikelyClass(const FObjectTextRecord& Record, const UObject& Outer)
{
	if (Outer.IsA<UPackage>())
	{
		return LikelyAssetClass(Record);
	}
	if (IsGraph(Record) && (Outer.IsA<UBlueprint>() || Outer.IsA<UEdGraph>() || Outer.IsA<UEdGraphNode>()))
	{
		return UEdGraph::StaticClass();
	}
	if (Outer.IsA<UWidgetTree>())
	{
		const bool bPanel = SetsMemberOf(Record, *UPanelWidget::StaticClass(), *UWidget::StaticClass());
		return bPanel ? UPanelWidget::StaticClass() : UWidget::StaticClass();
	}
	if (Outer.IsA<UPanelWidget>())
	{
		return UPanelSlot::StaticClass();
	}
	if (Outer.IsA<ULevel>())
	{
		return SetsMemberOf(Record, *AActor::StaticClass(), *UObject::StaticClass()) ? AActor::StaticClass() : nullptr;
	}
	const bool bTemplate = Outer.IsA<UBlueprintGeneratedClass>() && Record.GetName().EndsWith(TEXT("_GEN_VARIABLE"));
	return bTemplate || Outer.IsA<AActor>() ? LikelyComponentClass(Record) : nullptr;
}

/**
 * Nodes, components and widgets have places and links, so there is a stand-in for one of an unknown class. Other
 * objects stay as text with their owner.
 */
static UObject* MakePlaceholder(const FObjectTextRecord& Record, UObject* Outer)
{
	UEdGraph* const Graph = Cast<UEdGraph>(Outer);
	if (Graph && !IsGraph(Record))
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
