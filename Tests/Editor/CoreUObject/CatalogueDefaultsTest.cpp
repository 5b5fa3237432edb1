// What objects of catalogued classes start with, as their constructors have it.

#include "Session/EditorModules.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"

#include <gtest/gtest.h>

namespace CatalogueDefaultsTests
{
struct FStartValue
{
	const TCHAR* Class;
	const TCHAR* Property;
	const TCHAR* Value;
};

class CatalogueDefaults : public testing::TestWithParam<FStartValue>
{
protected:
	static void SetUpTestSuite() { EditorModules::StartEditor(); }
};

TEST_P(CatalogueDefaults, AClassDefaultHasTheConstructorsValue)
{
	const FStartValue& Case = GetParam();
	const UClass* const Class = FindObject<UClass>(nullptr, Case.Class);
	ASSERT_NE(Class, nullptr);
	const FProperty* const Property = Class->FindPropertyByName(Case.Property);
	ASSERT_NE(Property, nullptr);
	FString Value;
	const void* const Stored = Property->GetValuePtr(Class->GetDefaultObject());
	Property->ExportTextItem_Direct(Value, Stored, Stored, nullptr, PPF_None);
	EXPECT_EQ(TCHAR_TO_UTF8(*Value), std::string(TCHAR_TO_UTF8(Case.Value)));
}

static std::string NameOf(const testing::TestParamInfo<FStartValue>& Case)
{
	const FString Class = Case.param.Class;
	int32 Dot = INDEX_NONE;
	Class.FindLastChar(TEXT('.'), Dot);
	return std::string(TCHAR_TO_UTF8(*(Class.RightChop(Dot + 1) + TEXT("_") + Case.param.Property)));
}

// Values that a class sets otherwise than its parent, with those of the parent or a sibling that keep theirs.
INSTANTIATE_TEST_SUITE_P(Components, CatalogueDefaults,
	testing::Values(FStartValue{TEXT("/Script/Engine.ActorComponent"), TEXT("bAutoActivate"), TEXT("False")},
		FStartValue{TEXT("/Script/Engine.SceneComponent"), TEXT("bAutoActivate"), TEXT("False")},
		FStartValue{TEXT("/Script/Engine.StaticMeshComponent"), TEXT("bAutoActivate"), TEXT("False")},
		FStartValue{TEXT("/Script/Engine.SkeletalMeshComponent"), TEXT("bAutoActivate"), TEXT("True")},
		FStartValue{TEXT("/Script/Engine.CharacterMovementComponent"), TEXT("bAutoActivate"), TEXT("True")},
		FStartValue{TEXT("/Script/Engine.RotatingMovementComponent"), TEXT("bAutoActivate"), TEXT("True")},
		FStartValue{TEXT("/Script/Engine.CameraComponent"), TEXT("bAutoActivate"), TEXT("True")},
		FStartValue{TEXT("/Script/Niagara.NiagaraComponent"), TEXT("bAutoActivate"), TEXT("True")},
		FStartValue{TEXT("/Script/Engine.PrimitiveComponent"), TEXT("CastShadow"), TEXT("False")},
		FStartValue{TEXT("/Script/Engine.StaticMeshComponent"), TEXT("CastShadow"), TEXT("True")},
		FStartValue{TEXT("/Script/Engine.BoxComponent"), TEXT("bHiddenInGame"), TEXT("True")},
		FStartValue{TEXT("/Script/Engine.BoxComponent"), TEXT("bGenerateOverlapEvents"), TEXT("True")},
		FStartValue{TEXT("/Script/Engine.PrimitiveComponent"), TEXT("CanCharacterStepUpOn"), TEXT("ECB_Yes")},
		FStartValue{TEXT("/Script/Engine.PointLightComponent"), TEXT("Intensity"), TEXT("5000.000000")},
		FStartValue{TEXT("/Script/Engine.DirectionalLightComponent"), TEXT("Intensity"), TEXT("10.000000")},
		FStartValue{TEXT("/Script/Engine.ProjectileMovementComponent"), TEXT("Velocity"),
			TEXT("(X=1.000000,Y=0.000000,Z=0.000000)")},
		FStartValue{TEXT("/Script/Engine.CharacterMovementComponent"), TEXT("MaxSimulationIterations"), TEXT("8")}),
	NameOf);

INSTANTIATE_TEST_SUITE_P(Actors, CatalogueDefaults,
	testing::Values(FStartValue{TEXT("/Script/Engine.Actor"), TEXT("bHidden"), TEXT("False")},
		FStartValue{TEXT("/Script/Engine.GameModeBase"), TEXT("bHidden"), TEXT("True")},
		FStartValue{TEXT("/Script/Engine.Pawn"), TEXT("bUseControllerRotationYaw"), TEXT("False")},
		FStartValue{TEXT("/Script/Engine.Character"), TEXT("bUseControllerRotationYaw"), TEXT("True")},
		FStartValue{TEXT("/Script/Engine.Character"), TEXT("NetPriority"), TEXT("3.000000")},
		FStartValue{TEXT("/Script/Engine.GameModeBase"), TEXT("GameStateClass"),
			TEXT("/Script/CoreUObject.Class'/Script/Engine.GameStateBase'")},
		FStartValue{TEXT("/Script/Engine.GameMode"), TEXT("GameStateClass"),
			TEXT("/Script/CoreUObject.Class'/Script/Engine.GameState'")},
		FStartValue{TEXT("/Script/Engine.PlayerController"), TEXT("DefaultClickTraceChannel"), TEXT("ECC_Visibility")}),
	NameOf);

INSTANTIATE_TEST_SUITE_P(Widgets, CatalogueDefaults,
	testing::Values(FStartValue{TEXT("/Script/UMG.TextBlock"), TEXT("LineHeightPercentage"), TEXT("1.000000")},
		FStartValue{TEXT("/Script/UMG.RichTextBlock"), TEXT("LineHeightPercentage"), TEXT("1.000000")},
		FStartValue{TEXT("/Script/UMG.TextBlock"), TEXT("ShadowOffset"), TEXT("(X=1.000000,Y=1.000000)")},
		FStartValue{TEXT("/Script/UMG.ButtonSlot"), TEXT("HorizontalAlignment"), TEXT("HAlign_Center")},
		FStartValue{TEXT("/Script/UMG.BorderSlot"), TEXT("HorizontalAlignment"), TEXT("HAlign_Fill")},
		FStartValue{TEXT("/Script/UMG.ScrollBox"), TEXT("ScrollbarThickness"), TEXT("(X=9.000000,Y=9.000000)")},
		FStartValue{TEXT("/Script/UMG.ScrollBox"), TEXT("Orientation"), TEXT("Orient_Vertical")},
		FStartValue{TEXT("/Script/UMG.OverlaySlot"), TEXT("VerticalAlignment"), TEXT("VAlign_Top")},
		FStartValue{TEXT("/Script/UMG.VerticalBoxSlot"), TEXT("Size"), TEXT("(Value=1.000000,SizeRule=Automatic)")},
		FStartValue{TEXT("/Script/UMG.Overlay"), TEXT("Visibility"), TEXT("SelfHitTestInvisible")},
		FStartValue{TEXT("/Script/UMG.TextBlock"), TEXT("bIsVariable"), TEXT("False")},
		FStartValue{TEXT("/Script/UMG.RichTextBlock"), TEXT("bIsVariable"), TEXT("True")},
		FStartValue{TEXT("/Script/UMG.Button"), TEXT("bIsVariable"), TEXT("True")}),
	NameOf);
} // namespace CatalogueDefaultsTests
