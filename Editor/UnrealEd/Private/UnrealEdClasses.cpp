#include "Standalone/UnrealEdClasses.h"

#include "BlueprintKindSetup.h"
#include "Compiler/BlueprintClassBuilder.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphNode_Comment.h"
#include "Engine/Blueprint.h"
#include "Factories/BlueprintFactory.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "Kismet2/RenamedMembers.h"
#include "Standalone/BlueprintClassProvider.h"
#include "Standalone/EdGraphNode_Placeholder.h"
#include "Standalone/NativeClass.h"
#include "Standalone/ObjectText.h"
#include "UserDefinedStructure/UserDefinedStructEditorData.h"
#include "WidgetBlueprintFactory.h"

namespace UnrealEdClasses
{
/** A Blueprint that was just read: its graphs stand, its class is an empty shell. */
void RegenerateOnLoad(UBlueprint* Blueprint)
{
	FBlueprintClassBuilder::Build(*Blueprint);
	RenamedMembers::Follow(*Blueprint);
	Blueprint->Status = BS_UpToDate;
	Blueprint->bHasBeenRegenerated = true;
}

TSharedPtr<INameValidatorInterface> MakeNameValidator(const UBlueprint* Blueprint, FName ExistingName)
{
	return MakeShared<FKismetNameValidator>(Blueprint, ExistingName);
}

/** Nodes alone are worth a stand-in: they have places and links. Other objects stay as text with their owner. */
UObject* MakePlaceholder(const FObjectTextRecord& Record, UObject* Outer)
{
	UEdGraph* const Graph = Cast<UEdGraph>(Outer);
	if (!Graph)
	{
		return nullptr;
	}
	FName Name(Record.GetName());
	if (Name.IsNone() || !IsUniqueObjectName(Name, Graph))
	{
		Name = MakeUniqueObjectName(Graph, UEdGraphNode_Placeholder::StaticClass());
	}
	return NewObject<UEdGraphNode_Placeholder>(Graph, Name, static_cast<EObjectFlags>(Record.Flags | RF_Transactional));
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
