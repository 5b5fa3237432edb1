#include "UnrealEdClasses.h"

#include "Compiler/BlueprintClassBuilder.h"
#include "EdGraphNode_Comment.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintClassProvider.h"
#include "Factories/BlueprintFactory.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "UObject/NativeClass.h"
#include "BlueprintKindSetup.h"
#include "WidgetBlueprintFactory.h"

namespace UnrealEdClasses
{
/** A Blueprint that was just read: its graphs stand, its class is an empty shell. */
void RegenerateOnLoad(UBlueprint* Blueprint)
{
	FBlueprintClassBuilder::Build(*Blueprint);
	Blueprint->Status = BS_UpToDate;
	Blueprint->bHasBeenRegenerated = true;
}

TSharedPtr<INameValidatorInterface> MakeNameValidator(const UBlueprint* Blueprint, FName ExistingName)
{
	return MakeShared<FKismetNameValidator>(Blueprint, ExistingName);
}
} // namespace UnrealEdClasses

void RegisterUnrealEdClasses()
{
	NativeClass::RegisterNativeClasses({&UFactory::StaticClass, &UBlueprintFactory::StaticClass,
		&UWidgetBlueprintFactory::StaticClass, &UEdGraphNode_Comment::StaticClass});
	BlueprintClassProvider::FFunctions Functions;
	Functions.EnsureSkeletonIsUpToDate = &FBlueprintEditorUtils::EnsureSkeletonIsUpToDate;
	Functions.RegenerateOnLoad = &UnrealEdClasses::RegenerateOnLoad;
	Functions.MakeNameValidator = &UnrealEdClasses::MakeNameValidator;
	BlueprintClassProvider::Set(Functions);
	RegisterBlueprintKinds();
}
