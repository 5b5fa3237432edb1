#include "Engine/World.h"

#include "Engine/Level.h"
#include "Engine/LevelScriptBlueprint.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UWorld, "/Script/Engine", CLASS_None)
IMPLEMENT_EDITOR_CLASS(ULevel, "/Script/Engine", CLASS_None)
IMPLEMENT_EDITOR_CLASS(ULevelScriptBlueprint, "/Script/Engine", CLASS_None)

void UWorld::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("PersistentLevel"), &UWorld::PersistentLevel, CPF_Transient);
}

void UWorld::PostLoad()
{
	Super::PostLoad();
	PersistentLevel = Cast<ULevel>(StaticFindObjectFast(ULevel::StaticClass(), this, TEXT("PersistentLevel")));
}

void ULevel::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("LevelScriptBlueprint"), &ULevel::LevelScriptBlueprint);
}

ULevelScriptBlueprint* ULevel::GetLevelScriptBlueprint(bool)
{
	return LevelScriptBlueprint;
}

void ULevelScriptBlueprint::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("FriendlyName"), &ULevelScriptBlueprint::FriendlyName);
}
