// What all nodes of graphs of poses share: their pins are the shown members of their run-time struct.

#include "AnimGraphNode_Base.h"

#include "Animation/AnimNodeBase.h"
#include "AnimationGraphSchema.h"
#include "AnimNodePins.h"
#include "BlueprintActionDatabaseRegistrar.h"
#include "EdGraphSchema_K2.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_Base, "/Script/AnimGraph", CLASS_Abstract)

void UAnimGraphNode_Base::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("ShowPinForProperties"), &UAnimGraphNode_Base::ShowPinForProperties);
}

namespace AnimNodes
{
const TCHAR* const DefaultCategory = TEXT("Animation|Misc.");

static FOptionalPinFromProperty MakeRecord(const FProperty& Member)
{
	const AnimNodePins::FVisibility Visibility = AnimNodePins::GetVisibility(Member);
	const FString* const Category = Member.FindMetaData(FBlueprintMetadata::MD_FunctionCategory);
	FOptionalPinFromProperty Record;
	Record.PropertyName = Member.GetFName();
	Record.PropertyFriendlyName = Member.GetDisplayNameText().ToString();
	Record.PropertyTooltip = Member.GetToolTipText();
	Record.CategoryName = Category ? FName(*Category) : FName();
	Record.bShowPin = Visibility.bShown;
	Record.bCanToggleVisibility = Visibility.bMayChange;
	Record.bIsMarkedForAdvancedDisplay = Member.HasAnyPropertyFlags(CPF_AdvancedDisplay);
	return Record;
}

/** "BlendPose_1" is an element of "BlendPose". */
static bool IsPinOf(FName PinName, FName PropertyName)
{
	const FString Pin = PinName.ToString();
	const FString Property = PropertyName.ToString();
	return Pin.Equals(Property, ESearchCase::IgnoreCase)
		|| (Pin.StartsWith(Property + TEXT("_"), ESearchCase::IgnoreCase)
			&& Pin.RightChop(Property.Len() + 1).IsNumeric());
}
} // namespace AnimNodes

FStructProperty* UAnimGraphNode_Base::GetFNodeProperty() const
{
	static const FName Member(TEXT("Node"));
	return CastField<FStructProperty>(GetClass()->FindPropertyByName(Member));
}

UScriptStruct* UAnimGraphNode_Base::GetFNodeType() const
{
	const FStructProperty* const Member = GetFNodeProperty();
	return Member ? Member->Struct : nullptr;
}

bool UAnimGraphNode_Base::CanCreateUnderSpecifiedSchema(const UEdGraphSchema* Schema) const
{
	return Schema && Schema->IsA<UAnimationGraphSchema>();
}

void UAnimGraphNode_Base::RebuildPropertyList()
{
	const UScriptStruct* const Struct = GetFNodeType();
	if (!Struct)
	{
		return;
	}
	// What an older node lists in another order stays where its author knows it; what it does not list comes behind.
	for (const FProperty* const Member : AnimNodePins::MembersOf(*Struct))
	{
		const FName Name = Member->GetFName();
		FOptionalPinFromProperty Record = AnimNodes::MakeRecord(*Member);
		FOptionalPinFromProperty* const Before = ShowPinForProperties.FindByPredicate(
			[Name](const FOptionalPinFromProperty& Candidate) { return Candidate.PropertyName == Name; });
		if (!Before)
		{
			ShowPinForProperties.Add(MoveTemp(Record));
			continue;
		}
		Record.bShowPin = Record.bCanToggleVisibility ? Before->bShowPin : Record.bShowPin;
		Record.bPropertyIsCustomized = Before->bPropertyIsCustomized;
		*Before = MoveTemp(Record);
	}
}

void UAnimGraphNode_Base::CreatePropertyPins(TArray<UEdGraphPin*>* OldPins)
{
	const FStructProperty* const NodeMember = GetFNodeProperty();
	const UScriptStruct* const Struct = GetFNodeType();
	const void* const Value = NodeMember ? NodeMember->GetValuePtr(this) : nullptr;
	const void* const Start = NodeMember ? NodeMember->GetValuePtr(GetClass()->GetDefaultObject()) : nullptr;
	for (const FOptionalPinFromProperty& Record : ShowPinForProperties)
	{
		const FName Name = Record.PropertyName;
		const FProperty* const Member = Struct ? Struct->FindPropertyByName(Name) : nullptr;
		if (!Record.bShowPin || !Member)
		{
			continue;
		}
		const FArrayProperty* const Array = CastField<FArrayProperty>(Member);
		if (!Array)
		{
			if (UEdGraphPin* const Pin = CreatePinFromProperty(Member, EGPD_Input, Name))
			{
				AnimNodePins::SetDefaults(*Pin, *Member, Member->ContainerPtrToValuePtr<void>(Value),
					Member->ContainerPtrToValuePtr<void>(Start));
				Pin->PinFriendlyName = FText::FromString(Record.PropertyFriendlyName);
				CustomizePinData(Pin, Name, INDEX_NONE);
			}
			continue;
		}
		const FScriptArrayHelper Elements(Array, Array->ContainerPtrToValuePtr<void>(Value));
		const FScriptArrayHelper First(Array, Array->ContainerPtrToValuePtr<void>(Start));
		for (int32 Index = 0; Index < Elements.Num(); ++Index)
		{
			const FString PinName = FString::Printf(TEXT("%s_%d"), *Name.ToString(), Index);
			UEdGraphPin* const Pin = CreatePinFromProperty(Array->Inner, EGPD_Input, FName(PinName));
			if (Pin)
			{
				AnimNodePins::SetDefaults(*Pin, *Array->Inner, Elements.GetRawPtr(Index),
					First.IsValidIndex(Index) ? First.GetRawPtr(Index) : nullptr);
				Pin->PinFriendlyName = FText::FromString(
					FString::Printf(TEXT("%s %d"), *Record.PropertyFriendlyName, Index));
				CustomizePinData(Pin, Name, Index);
			}
		}
	}
	if (!OldPins)
	{
		return;
	}
	// Members that the struct is not known to have keep the pins that they were read with.
	TArray<UEdGraphPin*> Unknown = OldPins->FilterByPredicate(
		[this, Struct](const UEdGraphPin* Old)
		{
			return Old->Direction == EGPD_Input
				&& ShowPinForProperties.ContainsByPredicate(
					[Old, Struct](const FOptionalPinFromProperty& Record)
					{
						return Record.bShowPin && AnimNodes::IsPinOf(Old->PinName, Record.PropertyName)
							&& !(Struct && Struct->FindPropertyByName(Record.PropertyName));
					});
		});
	KeepOldPins(Unknown);
}

void UAnimGraphNode_Base::AllocateDefaultPins()
{
	RebuildPropertyList();
	CreatePropertyPins(nullptr);
	CreateOutputPins();
	CreateCustomPins(nullptr);
}

void UAnimGraphNode_Base::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	RebuildPropertyList();
	CreatePropertyPins(&OldPins);
	CreateOutputPins();
	CreateCustomPins(&OldPins);
	RestoreSplitPins(OldPins);
}

bool UAnimGraphNode_Base::SetPinVisibility(bool bInVisible, FName PropertyName)
{
	FOptionalPinFromProperty* const Record = ShowPinForProperties.FindByPredicate(
		[PropertyName](const FOptionalPinFromProperty& Candidate) { return Candidate.PropertyName == PropertyName; });
	if (!Record || !Record->bCanToggleVisibility)
	{
		return false;
	}
	if (Record->bShowPin != bInVisible)
	{
		Modify();
		Record->bShowPin = bInVisible;
		ReconstructNode();
	}
	return true;
}

void UAnimGraphNode_Base::CreateOutputPins()
{
	static const FName Output(TEXT("OutputPose"));
	const FString* const Space = GetClass()->FindMetaData(Output);
	if (IsSinkNode())
	{
		return;
	}
	if (Space && *Space == TEXT("Component"))
	{
		CreateComponentPosePin(EGPD_Output, TEXT("Pose"));
	}
	else
	{
		CreatePosePin(EGPD_Output, TEXT("Pose"));
	}
}

bool UAnimGraphNode_Base::IsOutOfSight(const FProperty& Member) const
{
	static const FName ShownIf(TEXT("PinShownIf"));
	const FString* const Condition = Member.FindMetaData(ShownIf);
	FString Other;
	FString Value;
	return Condition && Condition->Split(TEXT("="), &Other, &Value) && GetMemberText(FName(Other)) != Value;
}

void UAnimGraphNode_Base::CustomizePinData(UEdGraphPin* Pin, FName SourcePropertyName, int32) const
{
	// How much a node counts is said by a number, a switch or a curve; the pins of the other two are out of sight.
	static const struct
	{
		FName Member;
		const TCHAR* Kind;
	} Kinds[] = {{TEXT("Alpha"), TEXT("Float")}, {TEXT("bAlphaBoolEnabled"), TEXT("Bool")},
		{TEXT("AlphaCurveName"), TEXT("Curve")}};
	const FString Chosen = GetMemberText(TEXT("AlphaInputType"));
	for (const auto& Kind : Kinds)
	{
		if (SourcePropertyName == Kind.Member && !Chosen.IsEmpty())
		{
			Pin->bHidden = Chosen != Kind.Kind;
		}
	}
	const UScriptStruct* const Struct = GetFNodeType();
	const FProperty* const Source = Struct ? Struct->FindPropertyByName(SourcePropertyName) : nullptr;
	if (Source && IsOutOfSight(*Source))
	{
		Pin->bHidden = true;
	}
	if (SourcePropertyName != Kinds[0].Member || Pin->bHidden || !Struct)
	{
		return;
	}
	FString Name = Pin->PinFriendlyName.ToString();
	for (const TCHAR* const Scale : {TEXT("AlphaScaleBias"), TEXT("AlphaScaleBiasClamp")})
	{
		if (const FStructProperty* const Member = CastField<FStructProperty>(Struct->FindPropertyByName(FName(Scale))))
		{
			Name = AnimNodePins::DescribeScale(
				Name, *Member->Struct, Member->ContainerPtrToValuePtr<void>(GetFNodeProperty()->GetValuePtr(this)));
		}
	}
	Pin->PinFriendlyName = FText::FromString(Name);
}

UEdGraphPin* UAnimGraphNode_Base::CreatePosePin(EEdGraphPinDirection Direction, const TCHAR* Name)
{
	return CreatePin(Direction, UEdGraphSchema_K2::PC_Struct, UAnimationGraphSchema::GetPoseLinkStruct(), FName(Name));
}

UEdGraphPin* UAnimGraphNode_Base::CreateComponentPosePin(EEdGraphPinDirection Direction, const TCHAR* Name)
{
	return CreatePin(Direction, UEdGraphSchema_K2::PC_Struct, FComponentSpacePoseLink::StaticStruct(), FName(Name));
}

void UAnimGraphNode_Base::GrowArray(FName ArrayName, int32 Num)
{
	const UScriptStruct* const Struct = GetFNodeType();
	if (const FArrayProperty* const Array = Struct ? CastField<FArrayProperty>(Struct->FindPropertyByName(ArrayName))
												   : nullptr)
	{
		const FScriptArrayHelper Elements(
			Array, Array->ContainerPtrToValuePtr<void>(GetFNodeProperty()->GetValuePtr(this)));
		if (Elements.Num() < Num)
		{
			Elements.Resize(Num);
		}
	}
}

FString UAnimGraphNode_Base::GetMemberText(FName MemberName) const
{
	const UScriptStruct* const Struct = GetFNodeType();
	FString Text;
	if (const FProperty* const Member = Struct ? Struct->FindPropertyByName(MemberName) : nullptr)
	{
		Member->ExportTextItem_Direct(Text, Member->ContainerPtrToValuePtr<void>(GetFNodeProperty()->GetValuePtr(this)),
			nullptr, nullptr, PPF_None);
	}
	return Text;
}

void UAnimGraphNode_Base::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	if (IsInMenu())
	{
		ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
	}
}

FText UAnimGraphNode_Base::GetNodeTitle(ENodeTitleType::Type) const
{
	return GetClass()->GetDisplayNameText();
}

FText UAnimGraphNode_Base::GetTooltipText() const
{
	return FText::FromString(
		FString::Printf(TEXT("%s: a node of graphs of poses"), *GetNodeTitle(ENodeTitleType::ListView).ToString()));
}

FText UAnimGraphNode_Base::GetKeywords() const
{
	static const FName Key(TEXT("Keywords"));
	return FText::FromString(GetClass()->GetMetaData(Key));
}

FText UAnimGraphNode_Base::GetMenuCategory() const
{
	return FText::FromString(GetNodeCategory());
}

FString UAnimGraphNode_Base::GetNodeCategory() const
{
	const FString* const Own = GetClass()->FindMetaData(FBlueprintMetadata::MD_FunctionCategory);
	return Own ? *Own : FString(AnimNodes::DefaultCategory);
}
