// Nodes that mix or choose between poses, and those that give poses in the space of the component.

#include "AnimGraphNode_BlendListByEnum.h"
#include "AnimGraphNode_LocalToComponentSpace.h"
#include "AnimGraphNode_MeshRefPose.h"
#include "AnimGraphNode_ModifyCurve.h"
#include "AnimGraphNode_MultiWayBlend.h"
#include "AnimGraphNode_SkeletalControlBase.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_SkeletalControlBase, "/Script/AnimGraph", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_LocalToComponentSpace, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_MeshRefPose, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_BlendListBase, "/Script/AnimGraph", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_BlendListByBool, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_BlendListByInt, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_BlendListByEnum, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_MultiWayBlend, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_ModifyCurve, "/Script/AnimGraph", CLASS_None)

void UAnimGraphNode_SkeletalControlBase::DescribeClass(FClassDescriber&) {}
void UAnimGraphNode_LocalToComponentSpace::DescribeClass(FClassDescriber&) {}
void UAnimGraphNode_MeshRefPose::DescribeClass(FClassDescriber&) {}
void UAnimGraphNode_BlendListBase::DescribeClass(FClassDescriber&) {}
void UAnimGraphNode_BlendListByBool::DescribeClass(FClassDescriber&) {}
void UAnimGraphNode_BlendListByInt::DescribeClass(FClassDescriber&) {}
void UAnimGraphNode_MultiWayBlend::DescribeClass(FClassDescriber&) {}
void UAnimGraphNode_ModifyCurve::DescribeClass(FClassDescriber&) {}

void UAnimGraphNode_BlendListByEnum::DescribeClass(FClassDescriber& Class)
{
	Class.Implements(UNodeDependingOnEnumInterface::StaticClass());
	Class.Property(TEXT("BoundEnum"), &UAnimGraphNode_BlendListByEnum::BoundEnum);
	Class.Property(TEXT("VisibleEnumEntries"), &UAnimGraphNode_BlendListByEnum::VisibleEnumEntries);
}

namespace AnimBlends
{
const FName Poses(TEXT("BlendPose"));
const FName Times(TEXT("BlendTime"));
const FName WeightedPoses(TEXT("Poses"));
const FName Weights(TEXT("DesiredAlphas"));
/** What a mix is made with: one pose needs none. */
constexpr int32 NumAtFirst = 2;
} // namespace AnimBlends

void UAnimGraphNode_SkeletalControlBase::CreateOutputPins()
{
	CreateComponentPosePin(EGPD_Output, TEXT("Pose"));
}

void UAnimGraphNode_LocalToComponentSpace::CreateOutputPins()
{
	CreateComponentPosePin(EGPD_Output, TEXT("ComponentPose"));
}

void UAnimGraphNode_MeshRefPose::CreateOutputPins()
{
	CreateComponentPosePin(EGPD_Output, TEXT("ComponentPose"));
}

void UAnimGraphNode_BlendListBase::SetNumPoses(int32 Num)
{
	GrowArray(AnimBlends::Poses, Num);
	GrowArray(AnimBlends::Times, Num);
}

void UAnimGraphNode_BlendListBase::CustomizePinData(UEdGraphPin* Pin, FName SourcePropertyName, int32 ArrayIndex) const
{
	Super::CustomizePinData(Pin, SourcePropertyName, ArrayIndex);
	const FString Choice = ArrayIndex == INDEX_NONE ? FString() : GetChoiceName(ArrayIndex);
	if (Choice.IsEmpty())
	{
		return;
	}
	if (SourcePropertyName == AnimBlends::Poses)
	{
		Pin->PinFriendlyName = FText::FromString(Choice + TEXT(" Pose"));
	}
	else if (SourcePropertyName == AnimBlends::Times)
	{
		Pin->PinFriendlyName = FText::FromString(Choice + TEXT(" Blend Time"));
	}
}

FString UAnimGraphNode_BlendListByBool::GetChoiceName(int32 Index) const
{
	return Index == 0 ? TEXT("True") : TEXT("False");
}

void UAnimGraphNode_BlendListByInt::AllocateDefaultPins()
{
	SetNumPoses(AnimBlends::NumAtFirst);
	Super::AllocateDefaultPins();
}

FString UAnimGraphNode_BlendListByEnum::GetChoiceName(int32 Index) const
{
	if (Index == 0)
	{
		return TEXT("Default");
	}
	const int32 Entry = BoundEnum && VisibleEnumEntries.IsValidIndex(Index - 1)
		? BoundEnum->GetIndexByName(VisibleEnumEntries[Index - 1])
		: INDEX_NONE;
	return Entry == INDEX_NONE ? FString() : BoundEnum->GetDisplayNameTextByIndex(Entry).ToString();
}

void UAnimGraphNode_BlendListByEnum::ExposeEnumElementAsPin(FName EnumElementName)
{
	if (VisibleEnumEntries.Contains(EnumElementName))
	{
		return;
	}
	Modify();
	VisibleEnumEntries.Add(EnumElementName);
	SetNumPoses(VisibleEnumEntries.Num() + 1);
	ReconstructNode();
}

FText UAnimGraphNode_BlendListByEnum::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	return BoundEnum ? FText::FromString(FString::Printf(TEXT("Blend Poses (%s)"), *BoundEnum->GetName()))
					 : Super::GetNodeTitle(TitleType);
}

void UAnimGraphNode_BlendListByEnum::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.RegisterEnumActions(
		[NodeClass = GetClass()](UEnum& Enum)
		{
			const TWeakObjectPtr<UEnum> Held(&Enum);
			UBlueprintNodeSpawner* const Spawner = UBlueprintNodeSpawner::Create(NodeClass, nullptr,
				[Held](UEdGraphNode* Node, bool)
				{ CastChecked<UAnimGraphNode_BlendListByEnum>(Node)->BoundEnum = Held.Get(); });
			Spawner->DefaultMenuSignature.MenuName = FText::FromString(
				FString::Printf(TEXT("Blend Poses (%s)"), *Enum.GetName()));
			Spawner->DefaultMenuSignature.Category = FText::FromString(TEXT("Animation|Blends"));
			return Spawner;
		});
}

void UAnimGraphNode_BlendListByEnum::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	if (!BoundEnum)
	{
		MessageLog.Error(TEXT("@@ references an unknown enum; please delete the node and recreate it"), this);
	}
}

void UAnimGraphNode_MultiWayBlend::SetNumPoses(int32 Num)
{
	GrowArray(AnimBlends::WeightedPoses, Num);
	GrowArray(AnimBlends::Weights, Num);
}

void UAnimGraphNode_MultiWayBlend::AllocateDefaultPins()
{
	SetNumPoses(AnimBlends::NumAtFirst);
	Super::AllocateDefaultPins();
}

void UAnimGraphNode_ModifyCurve::CustomizePinData(UEdGraphPin* Pin, FName SourcePropertyName, int32 ArrayIndex) const
{
	Super::CustomizePinData(Pin, SourcePropertyName, ArrayIndex);
	static const FName Values(TEXT("CurveValues"));
	static const FName Names(TEXT("CurveNames"));
	const FArrayProperty* const Array = CastField<FArrayProperty>(GetFNodeType()->FindPropertyByName(Names));
	if (SourcePropertyName != Values || !Array)
	{
		return;
	}
	const FScriptArrayHelper Curves(Array, Array->ContainerPtrToValuePtr<void>(GetFNodeProperty()->GetValuePtr(this)));
	if (Curves.IsValidIndex(ArrayIndex))
	{
		const FName Curve = *reinterpret_cast<const FName*>(Curves.GetRawPtr(ArrayIndex));
		Pin->PinFriendlyName = FText::FromString(Curve.ToString());
	}
}
