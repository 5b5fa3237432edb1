#include "BlueprintComponentNodeSpawner.h"

#include "Components/ActorComponent.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_AddComponent.h"
#include "Menu/SpawnerPins.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UBlueprintComponentNodeSpawner, "/Script/BlueprintGraph", CLASS_None)

void UBlueprintComponentNodeSpawner::DescribeClass(FClassDescriber&) {}

namespace ComponentSpawners
{
static UClass* ActorClass()
{
	static UClass* const Class = FindObject<UClass>(nullptr, TEXT("/Script/Engine.Actor"));
	return Class;
}

/** "NODE_AddStaticMeshComponent-0": the first such name that the Blueprint has no template of. */
static FName MakeTemplateName(const UBlueprint& Blueprint, const UClass& Class)
{
	int32 Number = 0;
	FName Name;
	do
	{
		Name = FName(FString::Printf(TEXT("NODE_Add%s-%d"), *Class.GetName(), Number++));
	} while (Blueprint.FindTemplateByName(Name));
	return Name;
}

static void AddTemplate(UBlueprint& Blueprint, UK2Node_AddComponent& Node)
{
	UClass* const Class = Node.TemplateType.Get();
	UObject* const Owner = Blueprint.GeneratedClass.Get();
	if (!Owner || !Class)
	{
		return;
	}
	const FName Name = MakeTemplateName(Blueprint, *Class);
	Blueprint.Modify();
	Blueprint.ComponentTemplates.Add(NewObject<UActorComponent>(
		Owner, Class, Name, static_cast<EObjectFlags>(RF_ArchetypeObject | RF_Public | RF_Transactional)));
	Node.TemplateBlueprint = Blueprint.GetPathName();
	if (UEdGraphPin* const Pin = Node.GetTemplateNamePinChecked())
	{
		Pin->DefaultValue = Name.ToString();
	}
}
} // namespace ComponentSpawners

UBlueprintComponentNodeSpawner* UBlueprintComponentNodeSpawner::Create(UClass& InComponentClass, UObject* Outer)
{
	UBlueprintComponentNodeSpawner* const Spawner = NewObject<UBlueprintComponentNodeSpawner>(
		Outer ? Outer : GetTransientPackageAsObject());
	Spawner->NodeClass = UK2Node_AddComponent::StaticClass();
	Spawner->ComponentClass = &InComponentClass;
	return Spawner;
}

bool UBlueprintComponentNodeSpawner::IsSpawnable(const UClass& Class)
{
	return Class.IsChildOf(UActorComponent::StaticClass())
		&& !Class.HasAnyClassFlags(static_cast<EClassFlags>(CLASS_Abstract | CLASS_Deprecated))
		&& (Class.ClassGeneratedBy || Class.HasMetaData(FBlueprintMetadata::MD_BlueprintSpawnableComponent));
}

const UClass* UBlueprintComponentNodeSpawner::GetRequiredClass() const
{
	return ComponentSpawners::ActorClass();
}

void UBlueprintComponentNodeSpawner::Bind(UEdGraphNode& NewNode, bool) const
{
	UK2Node_AddComponent* const Node = CastChecked<UK2Node_AddComponent>(&NewNode);
	Node->SetFromFunction(ComponentSpawners::ActorClass()->FindFunctionByName(FName(TEXT("AddComponent"))));
	Node->TemplateType = GetComponentClass();
}

UEdGraphNode* UBlueprintComponentNodeSpawner::Invoke(
	UEdGraph* ParentGraph, const FBindingSet& Bindings, const FVector2D Location) const
{
	UK2Node_AddComponent* const Node = static_cast<UK2Node_AddComponent*>(
		Super::Invoke(ParentGraph, Bindings, Location));
	UBlueprint* const Blueprint = Node ? Node->GetBlueprint() : nullptr;
	if (Blueprint)
	{
		ComponentSpawners::AddTemplate(*Blueprint, *Node);
	}
	return Node;
}

bool UBlueprintComponentNodeSpawner::AnyPin(FPinVisitor Visit) const
{
	const UFunction* const Function = ComponentSpawners::ActorClass()->FindFunctionByName(FName(TEXT("AddComponent")));
	UClass* const Class = GetComponentClass();
	return Class && Function
		&& (SpawnerPins::AnyExec(Visit) || SpawnerPins::AnyObject(*Class, EGPD_Output, Visit)
			|| SpawnerPins::AnyObject(*ComponentSpawners::ActorClass(), EGPD_Input, Visit)
			|| SpawnerPins::AnyParameter(*Function, Visit));
}
