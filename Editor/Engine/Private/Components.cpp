#include "Components/ActorComponent.h"
#include "Components/SceneComponent.h"
#include "GameFramework/Actor.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UActorComponent, "/Script/Engine", CLASS_DefaultToInstanced)
IMPLEMENT_EDITOR_CLASS(USceneComponent, "/Script/Engine", CLASS_None)

template <>
UEnum* StaticEnum<EComponentMobility::Type>()
{
	static UEnum* const Enum = NativeClass::RegisterEnum(TEXT("EComponentMobility"), TEXT("/Script/Engine"),
		UEnum::ECppForm::Namespaced, {{TEXT("Static"), 0}, {TEXT("Stationary"), 1}, {TEXT("Movable"), 2}});
	return Enum;
}

void UActorComponent::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("bAutoActivate"), &UActorComponent::bAutoActivate, CPF_Edit | CPF_BlueprintVisible);
	Class.Property(TEXT("bIsEditorOnly"), &UActorComponent::bIsEditorOnly, CPF_Edit);
	Class.Property(TEXT("bEditableWhenInherited"), &UActorComponent::bEditableWhenInherited, CPF_Edit);
	Class.Property(TEXT("bReplicates"), &UActorComponent::bReplicates, CPF_Edit | CPF_BlueprintVisible | CPF_Net);
	Class.Property(TEXT("ComponentTags"), &UActorComponent::ComponentTags, CPF_Edit | CPF_BlueprintVisible);
}

void USceneComponent::DescribeClass(FClassDescriber& Class)
{
	constexpr uint64 Editable = CPF_Edit | CPF_BlueprintVisible | CPF_BlueprintReadOnly;
	Class.Property(TEXT("AttachParent"), &USceneComponent::AttachParent, CPF_Net);
	Class.Property(TEXT("AttachSocketName"), &USceneComponent::AttachSocketName, CPF_Net);
	Class.Property(TEXT("RelativeLocation"), &USceneComponent::RelativeLocation, Editable | CPF_Net);
	Class.Property(TEXT("RelativeRotation"), &USceneComponent::RelativeRotation, Editable | CPF_Net);
	Class.Property(TEXT("RelativeScale3D"), &USceneComponent::RelativeScale3D, Editable | CPF_Net);
	Class.Property(TEXT("Mobility"), &USceneComponent::Mobility, Editable);
	Class.Property(TEXT("bVisible"), &USceneComponent::bVisible, Editable | CPF_Net);
	Class.Property(TEXT("bHiddenInGame"), &USceneComponent::bHiddenInGame, Editable);
}

void USceneComponent::SetRelativeLocationAndRotation(FVector NewLocation, FRotator NewRotation)
{
	RelativeLocation = NewLocation;
	RelativeRotation = NewRotation;
}
