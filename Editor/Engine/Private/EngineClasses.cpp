#include "Standalone/EngineClasses.h"

#include "Animation/AnimBlueprint.h"
#include "Components/SceneComponent.h"
#include "Curves/CurveFloat.h"
#include "Curves/CurveLinearColor.h"
#include "Curves/CurveVector.h"
#include "EdGraph/EdGraphSchema.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/CompositeDataTable.h"
#include "Engine/InheritableComponentHandler.h"
#include "Engine/Level.h"
#include "Engine/LevelScriptBlueprint.h"
#include "Engine/MemberReference.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/TimelineTemplate.h"
#include "Engine/World.h"
#include "GameFramework/Actor.h"
#include "InheritedTemplates.h"
#include "InputCoreTypes.h"
#include "LoadedBlueprints.h"
#include "MissingReferences.h"
#include "Standalone/NativeClass.h"

void RegisterEngineClasses()
{
	NativeClass::RegisterNativeClasses(
		{&UEdGraph::StaticClass, &UEdGraphNode::StaticClass, &UEdGraphSchema::StaticClass, &UBlueprintCore::StaticClass,
			&UBlueprint::StaticClass, &UAnimBlueprint::StaticClass, &UBlueprintGeneratedClass::StaticClass,
			&UAnimBlueprintGeneratedClass::StaticClass, &UWidgetBlueprintGeneratedClass::StaticClass,
			&USimpleConstructionScript::StaticClass, &USCS_Node::StaticClass, &UDataTable::StaticClass,
			&UCompositeDataTable::StaticClass, &UInheritableComponentHandler::StaticClass, &AActor::StaticClass,
			&UActorComponent::StaticClass, &USceneComponent::StaticClass, &UTimelineTemplate::StaticClass,
			&UCurveBase::StaticClass, &UCurveFloat::StaticClass, &UCurveVector::StaticClass,
			&UCurveLinearColor::StaticClass, &UWorld::StaticClass, &ULevel::StaticClass,
			&ULevelScriptBlueprint::StaticClass});
	MissingReferences::Register();
	InheritedTemplates::Register();
	FKey::StaticStruct();
	FMemberReference::StaticStruct();
	FEdGraphPinType::StaticStruct();
	StaticEnum<EComponentMobility::Type>();
	[[maybe_unused]] static const bool bChecksAdded = (AddBlueprintStructureChecks(), true);
}
