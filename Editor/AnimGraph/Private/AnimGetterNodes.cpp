// Nodes of rule and event graphs that ask about the poses: getters, and values by a path of members.

#include "K2Node_AnimGetter.h"
#include "K2Node_PropertyAccess.h"
#include "K2Node_TransitionRuleGetter.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Standalone/NativeClass.h"
#include "UObject/UnrealType.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_AnimGetter, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_TransitionRuleGetter, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UK2Node_PropertyAccess, "/Script/PropertyAccessNode", CLASS_None)

template <>
UEnum* StaticEnum<ETransitionGetter::Type>()
{
	static UEnum* const Enum = NativeClass::RegisterEnum(TEXT("ETransitionGetter"), TEXT("/Script/AnimGraph"),
		UEnum::ECppForm::Namespaced,
		{{TEXT("AnimationAsset_GetCurrentTime"), 0}, {TEXT("AnimationAsset_GetLength"), 1},
			{TEXT("AnimationAsset_GetCurrentTimeFraction"), 2}, {TEXT("AnimationAsset_GetTimeFromEnd"), 3},
			{TEXT("AnimationAsset_GetTimeFromEndFraction"), 4}, {TEXT("CurrentState_ElapsedTime"), 5},
			{TEXT("CurrentState_GetBlendWeight"), 6}, {TEXT("CurrentTransitionDuration"), 7},
			{TEXT("ArbitraryState_GetBlendWeight"), 8}});
	return Enum;
}

void UK2Node_AnimGetter::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("SourceNode"), &UK2Node_AnimGetter::SourceNode);
	Class.Property(TEXT("SourceStateNode"), &UK2Node_AnimGetter::SourceStateNode);
	Class.Property(TEXT("GetterClass"), &UK2Node_AnimGetter::GetterClass);
	Class.Property(TEXT("SourceAnimBlueprint"), &UK2Node_AnimGetter::SourceAnimBlueprint);
	Class.Property(TEXT("CachedTitle"), &UK2Node_AnimGetter::CachedTitle);
	Class.Property(TEXT("Contexts"), &UK2Node_AnimGetter::Contexts);
}

void UK2Node_TransitionRuleGetter::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("GetterType"), &UK2Node_TransitionRuleGetter::GetterType);
	Class.Property(TEXT("AssociatedAnimAssetPlayerNode"), &UK2Node_TransitionRuleGetter::AssociatedAnimAssetPlayerNode);
	Class.Property(TEXT("AssociatedStateNode"), &UK2Node_TransitionRuleGetter::AssociatedStateNode);
}

void UK2Node_PropertyAccess::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("Path"), &UK2Node_PropertyAccess::Path);
	Class.Property(TEXT("TextPath"), &UK2Node_PropertyAccess::TextPath);
	Class.Property(TEXT("ResolvedPinType"), &UK2Node_PropertyAccess::ResolvedPinType);
	Class.Property(TEXT("ContextId"), &UK2Node_PropertyAccess::ContextId);
}

void UK2Node_AnimGetter::AllocateDefaultPins()
{
	Super::AllocateDefaultPins();
	// The compiler knows the indices of what the node is about.
	static const FName Filled[] = {UEdGraphSchema_K2::PN_Self, FName(TEXT("AssetPlayerIndex")),
		FName(TEXT("MachineIndex")), FName(TEXT("StateIndex")), FName(TEXT("TransitionIndex"))};
	for (const FName Name : Filled)
	{
		if (UEdGraphPin* const Pin = FindPin(Name, EGPD_Input))
		{
			Pin->bHidden = true;
		}
	}
}

FText UK2Node_AnimGetter::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	return CachedTitle.IsEmpty() ? Super::GetNodeTitle(TitleType) : CachedTitle;
}

void UK2Node_TransitionRuleGetter::AllocateDefaultPins()
{
	UEdGraphPin* const Pin = CreatePin(
		EGPD_Output, UEdGraphSchema_K2::PC_Real, UEdGraphSchema_K2::PC_Float, FName(TEXT("Output")));
	Pin->PinFriendlyName = GetNodeTitle(ENodeTitleType::ListView);
}

FText UK2Node_TransitionRuleGetter::GetNodeTitle(ENodeTitleType::Type) const
{
	static const TCHAR* const Titles[] = {TEXT("CurrentTime"), TEXT("Length"), TEXT("CurrentTimeFraction"),
		TEXT("TimeFromEnd"), TEXT("TimeFromEndFraction"), TEXT("ElapsedTime"), TEXT("BlendWeight"),
		TEXT("CrossfadeDuration"), TEXT("BlendWeight")};
	return FText::FromString(Titles[GetterType]);
}

FText UK2Node_TransitionRuleGetter::GetTooltipText() const
{
	return GetNodeTitle(ENodeTitleType::FullTitle);
}

UEdGraphPin* UK2Node_PropertyAccess::CreateValuePin()
{
	if (ResolvedPinType.PinCategory.IsNone())
	{
		return CreatePin(EGPD_Output, UEdGraphSchema_K2::PC_Wildcard, FName(TEXT("Value")));
	}
	return CreatePin(EGPD_Output, ResolvedPinType, FName(TEXT("Value")));
}

void UK2Node_PropertyAccess::AllocateDefaultPins()
{
	CreateValuePin();
}

void UK2Node_PropertyAccess::ReallocatePinsDuringReconstruction(TArray<UEdGraphPin*>& OldPins)
{
	CreateValuePin();
	RestoreSplitPins(OldPins);
}

namespace PropertyPaths
{
/** The member of a name, or what a function of it returns; null when there is none. */
static const FProperty* FindStep(const UStruct& In, const FString& Step)
{
	int32 Bracket = INDEX_NONE;
	const FName Name(Step.FindChar(TEXT('['), Bracket) ? Step.Left(Bracket) : Step);
	const FProperty* Found = In.FindPropertyByName(Name);
	const UClass* const Class = Cast<UClass>(&In);
	const UFunction* const Function = !Found && Class ? Class->FindFunctionByName(Name) : nullptr;
	Found = Function ? Function->GetReturnProperty() : Found;
	const FArrayProperty* const Array = Bracket == INDEX_NONE ? nullptr : CastField<FArrayProperty>(Found);
	return Array ? Array->Inner : Found;
}

static const UStruct* StructOf(const FProperty& Property)
{
	if (const FStructProperty* const Struct = CastField<FStructProperty>(&Property))
	{
		return Struct->Struct;
	}
	const FObjectPropertyBase* const Object = CastField<FObjectPropertyBase>(&Property);
	return Object ? Object->PropertyClass : nullptr;
}
} // namespace PropertyPaths

void UK2Node_PropertyAccess::SetPath(TArray<FString> InPath)
{
	Modify();
	Path = MoveTemp(InPath);
	TextPath = FText::FromString(FString::Join(Path, TEXT(".")));
	ResolvedPinType = FEdGraphPinType();
	const UStruct* Struct = GetBlueprintClassFromNode();
	const FProperty* Last = nullptr;
	for (const FString& Step : Path)
	{
		Last = Struct ? PropertyPaths::FindStep(*Struct, Step) : nullptr;
		Struct = Last ? PropertyPaths::StructOf(*Last) : nullptr;
	}
	if (Last)
	{
		UEdGraphSchema_K2::ConvertPropertyToPinTypeStatic(Last, ResolvedPinType);
	}
	ReconstructNode();
}

FText UK2Node_PropertyAccess::GetNodeTitle(ENodeTitleType::Type) const
{
	return FText::FromString(TEXT("Property Access"));
}

FText UK2Node_PropertyAccess::GetTooltipText() const
{
	return FText::FromString(TEXT("Access properties according to a path"));
}

FText UK2Node_PropertyAccess::GetMenuCategory() const
{
	return FText::FromString(TEXT("Variables"));
}

bool UK2Node_PropertyAccess::IsCompatibleWithGraph(const UEdGraph* Graph) const
{
	const UClass* const AnimInstance = FindObject<UClass>(nullptr, TEXT("/Script/Engine.AnimInstance"));
	const UBlueprint* const Blueprint = Graph ? Graph->GetTypedOuter<UBlueprint>() : nullptr;
	return Super::IsCompatibleWithGraph(Graph) && Blueprint && Blueprint->ParentClass.Get() && AnimInstance
		&& Blueprint->ParentClass->IsChildOf(AnimInstance);
}

void UK2Node_PropertyAccess::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
}
