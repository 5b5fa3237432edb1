#include "NativeComponents.h"

#include "Components/SceneComponent.h"
#include "GameFramework/Actor.h"
#include "UObject/Class.h"

namespace NativeComponents
{
namespace
{
struct FRow
{
	const TCHAR* ActorClass;
	const TCHAR* ComponentClass;
	const TCHAR* Name;
	/** The component it hangs on; null for the root and for what has no place. */
	const TCHAR* AttachTo = nullptr;
	bool bEditorOnly = false;
};

/** In order of creation within a class. The first scene component that hangs on nothing is the root. */
const FRow Rows[] = {
	{TEXT("/Script/Engine.Character"), TEXT("/Script/Engine.CapsuleComponent"), TEXT("CollisionCylinder")},
	{TEXT("/Script/Engine.Character"), TEXT("/Script/Engine.ArrowComponent"), TEXT("Arrow"), TEXT("CollisionCylinder"), true},
	{TEXT("/Script/Engine.Character"), TEXT("/Script/Engine.CharacterMovementComponent"), TEXT("CharMoveComp")},
	{TEXT("/Script/Engine.Character"), TEXT("/Script/Engine.SkeletalMeshComponent"), TEXT("CharacterMesh0"), TEXT("CollisionCylinder")},
	{TEXT("/Script/Engine.DefaultPawn"), TEXT("/Script/Engine.SphereComponent"), TEXT("CollisionComponent0")},
	{TEXT("/Script/Engine.DefaultPawn"), TEXT("/Script/Engine.FloatingPawnMovement"), TEXT("MovementComponent0")},
	{TEXT("/Script/Engine.DefaultPawn"), TEXT("/Script/Engine.StaticMeshComponent"), TEXT("MeshComponent0"), TEXT("CollisionComponent0")},
	{TEXT("/Script/Engine.Controller"), TEXT("/Script/Engine.SceneComponent"), TEXT("TransformComponent0")},
	{TEXT("/Script/Engine.StaticMeshActor"), TEXT("/Script/Engine.StaticMeshComponent"), TEXT("StaticMeshComponent0")},
	{TEXT("/Script/Engine.SkeletalMeshActor"), TEXT("/Script/Engine.SkeletalMeshComponent"), TEXT("SkeletalMeshComponent0")},
	{TEXT("/Script/Engine.PointLight"), TEXT("/Script/Engine.PointLightComponent"), TEXT("LightComponent0")},
	{TEXT("/Script/Engine.SpotLight"), TEXT("/Script/Engine.SpotLightComponent"), TEXT("LightComponent0")},
	{TEXT("/Script/Engine.DirectionalLight"), TEXT("/Script/Engine.DirectionalLightComponent"), TEXT("LightComponent0")},
	{TEXT("/Script/Engine.RectLight"), TEXT("/Script/Engine.RectLightComponent"), TEXT("LightComponent0")},
	{TEXT("/Script/Engine.SkyLight"), TEXT("/Script/Engine.SkyLightComponent"), TEXT("SkyLightComponent0")},
	{TEXT("/Script/Engine.ExponentialHeightFog"), TEXT("/Script/Engine.ExponentialHeightFogComponent"), TEXT("HeightFogComponent0")},
	{TEXT("/Script/Engine.CameraActor"), TEXT("/Script/Engine.SceneComponent"), TEXT("SceneComponent")},
	{TEXT("/Script/Engine.CameraActor"), TEXT("/Script/Engine.CameraComponent"), TEXT("CameraComponent"), TEXT("SceneComponent")},
	{TEXT("/Script/Engine.TriggerBox"), TEXT("/Script/Engine.BoxComponent"), TEXT("CollisionComp")},
	{TEXT("/Script/Engine.TriggerSphere"), TEXT("/Script/Engine.SphereComponent"), TEXT("CollisionComp")},
	{TEXT("/Script/Engine.TriggerCapsule"), TEXT("/Script/Engine.CapsuleComponent"), TEXT("CollisionComp")},
	{TEXT("/Script/Engine.Volume"), TEXT("/Script/Engine.BrushComponent"), TEXT("BrushComponent0")},
	{TEXT("/Script/Engine.DecalActor"), TEXT("/Script/Engine.DecalComponent"), TEXT("NewDecalComponent")},
	{TEXT("/Script/Engine.TargetPoint"), TEXT("/Script/Engine.SceneComponent"), TEXT("SceneComp")},
	{TEXT("/Script/Engine.AmbientSound"), TEXT("/Script/Engine.AudioComponent"), TEXT("AudioComponent0")},
	{TEXT("/Script/Engine.TextRenderActor"), TEXT("/Script/Engine.TextRenderComponent"), TEXT("NewTextRenderComponent")},
	{TEXT("/Script/Engine.PlayerStart"), TEXT("/Script/Engine.CapsuleComponent"), TEXT("CollisionCapsule")},
	{TEXT("/Script/Engine.PlayerStart"), TEXT("/Script/Engine.ArrowComponent"), TEXT("Arrow"), TEXT("CollisionCapsule"), true},
	{TEXT("/Script/AIModule.AIController"), TEXT("/Script/AIModule.PathFollowingComponent"), TEXT("PathFollowingComponent")},
	{TEXT("/Script/Engine.PostProcessVolume"), TEXT("/Script/Engine.BrushComponent"), TEXT("BrushComponent0")},
};

bool HasComponentFor(const UClass* Class, const FRow& Row)
{
	for (; Class; Class = Class->GetSuperClass())
	{
		if (Class->GetPathName() == Row.ActorClass)
		{
			return true;
		}
	}
	return false;
}

void Create(AActor& Actor, const FRow& Row)
{
	UClass* const Class = FindObject<UClass>(nullptr, Row.ComponentClass);
	if (!Class || StaticFindObjectFast(nullptr, &Actor, FName(Row.Name)))
	{
		return;
	}
	UActorComponent* const Component = static_cast<UActorComponent*>(
		Actor.CreateDefaultSubobject(FName(Row.Name), UActorComponent::StaticClass(), Class, true, false));
	Component->bIsEditorOnly = Row.bEditorOnly;
	USceneComponent* const Scene = Cast<USceneComponent>(Component);
	if (!Scene)
	{
		return;
	}
	if (Row.AttachTo)
	{
		Scene->SetupAttachment(FindObjectFast<USceneComponent>(&Actor, FName(Row.AttachTo)));
	}
	else if (!Actor.RootComponent)
	{
		Actor.RootComponent = Scene;
	}
}
} // namespace

void CreateFor(AActor& DefaultObject)
{
	for (const FRow& Row : Rows)
	{
		if (HasComponentFor(DefaultObject.GetClass(), Row))
		{
			Create(DefaultObject, Row);
		}
	}
}
} // namespace NativeComponents
