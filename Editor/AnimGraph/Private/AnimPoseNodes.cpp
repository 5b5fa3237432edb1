// Poses by name: kept and taken up again, asked of whoever runs the graph, made by another graph.

#include "AnimGraphNode_LinkedAnimGraphBase.h"
#include "AnimGraphNode_LinkedInputPose.h"
#include "AnimGraphNode_SaveCachedPose.h"
#include "AnimGraphNode_UseCachedPose.h"

#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Standalone/NativeClass.h"
#include "UObject/UnrealType.h"

IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_SaveCachedPose, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_UseCachedPose, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_LinkedInputPose, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_CustomProperty, "/Script/AnimGraph", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_LinkedAnimGraphBase, "/Script/AnimGraph", CLASS_Abstract)
IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_LinkedAnimGraph, "/Script/AnimGraph", CLASS_None)
IMPLEMENT_EDITOR_CLASS(UAnimGraphNode_LinkedAnimLayer, "/Script/AnimGraph", CLASS_None)

void UAnimGraphNode_LinkedInputPose::DescribeClass(FClassDescriber&) {}
void UAnimGraphNode_LinkedAnimGraph::DescribeClass(FClassDescriber&) {}
void UAnimGraphNode_LinkedAnimLayer::DescribeClass(FClassDescriber&) {}

void UAnimGraphNode_SaveCachedPose::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("CacheName"), &UAnimGraphNode_SaveCachedPose::CacheName, CPF_Edit);
}

void UAnimGraphNode_UseCachedPose::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("SaveCachedPoseNode"), &UAnimGraphNode_UseCachedPose::SaveCachedPoseNode);
	Class.Property(TEXT("NameOfCache"), &UAnimGraphNode_UseCachedPose::NameOfCache);
}

void UAnimGraphNode_CustomProperty::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("CustomPinProperties"), &UAnimGraphNode_CustomProperty::CustomPinProperties);
}

void UAnimGraphNode_LinkedAnimGraphBase::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("FunctionReference"), &UAnimGraphNode_LinkedAnimGraphBase::FunctionReference);
}

namespace AnimPoses
{
/** The nodes of a class in all graphs of a Blueprint, in the Blueprint's order. */
template <class TNode>
TArray<TNode*> FindAll(const UEdGraphNode& Node)
{
	TArray<TNode*> Found;
	const UBlueprint* const Blueprint = Node.GetTypedOuter<UBlueprint>();
	TArray<UEdGraph*> Graphs;
	if (Blueprint)
	{
		Blueprint->GetAllGraphs(Graphs);
	}
	for (const UEdGraph* const Graph : Graphs)
	{
		Graph->GetNodesOfClass(Found);
	}
	return Found;
}

/** The name, with a number behind it when IsTaken says so. */
static FString MakeUnique(const FString& Name, TFunctionRef<bool(const FString&)> IsTaken)
{
	FString Unique = Name;
	for (int32 Number = 1; IsTaken(Unique); ++Number)
	{
		Unique = FString::Printf(TEXT("%s_%d"), *Name, Number);
	}
	return Unique;
}
} // namespace AnimPoses

UAnimGraphNode_SaveCachedPose::UAnimGraphNode_SaveCachedPose()
{
	bCanRenameNode = true;
}

FText UAnimGraphNode_SaveCachedPose::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	if (CacheName.IsEmpty() || TitleType == ENodeTitleType::MenuTitle)
	{
		return FText::FromString(TEXT("New Save cached pose..."));
	}
	return FText::FromString(TitleType == ENodeTitleType::EditableTitle
			? CacheName
			: FString::Printf(TEXT("Save cached pose '%s'"), *CacheName));
}

void UAnimGraphNode_SaveCachedPose::MakeNameUnique()
{
	const TArray<UAnimGraphNode_SaveCachedPose*> Others = AnimPoses::FindAll<UAnimGraphNode_SaveCachedPose>(*this);
	CacheName = AnimPoses::MakeUnique(CacheName,
		[this, &Others](const FString& Name)
		{
			return Others.ContainsByPredicate([this, &Name](const UAnimGraphNode_SaveCachedPose* Other)
				{ return Other != this && Other->CacheName == Name; });
		});
}

void UAnimGraphNode_SaveCachedPose::PostPlacedNewNode()
{
	if (CacheName.IsEmpty())
	{
		CacheName = TEXT("SavedPose");
	}
	MakeNameUnique();
}

void UAnimGraphNode_SaveCachedPose::PostPasteNode()
{
	Super::PostPasteNode();
	MakeNameUnique();
}

void UAnimGraphNode_SaveCachedPose::OnRenameNode(const FString& NewName)
{
	CacheName = NewName;
}

FString UAnimGraphNode_UseCachedPose::GetCacheName() const
{
	const UAnimGraphNode_SaveCachedPose* const Cache = SaveCachedPoseNode.Get();
	return Cache ? Cache->CacheName : NameOfCache;
}

FText UAnimGraphNode_UseCachedPose::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	const FString Name = GetCacheName();
	return Name.IsEmpty() || TitleType == ENodeTitleType::MenuTitle
		? FText::FromString(TEXT("Use cached pose"))
		: FText::FromString(FString::Printf(TEXT("Use cached pose '%s'"), *Name));
}

void UAnimGraphNode_UseCachedPose::FindCache()
{
	const TArray<UAnimGraphNode_SaveCachedPose*> Caches = AnimPoses::FindAll<UAnimGraphNode_SaveCachedPose>(*this);
	for (UAnimGraphNode_SaveCachedPose* const Cache : Caches)
	{
		if (Cache->CacheName == NameOfCache || NameOfCache.IsEmpty())
		{
			SaveCachedPoseNode = Cache;
			NameOfCache = Cache->CacheName;
			return;
		}
	}
}

void UAnimGraphNode_UseCachedPose::PostPlacedNewNode()
{
	FindCache();
}

void UAnimGraphNode_UseCachedPose::PostPasteNode()
{
	Super::PostPasteNode();
	const UAnimGraphNode_SaveCachedPose* const Cache = SaveCachedPoseNode.Get();
	if (!Cache || Cache->GetTypedOuter<UBlueprint>() != GetTypedOuter<UBlueprint>())
	{
		SaveCachedPoseNode = nullptr;
		FindCache();
	}
}

void UAnimGraphNode_UseCachedPose::OnRenameNode(const FString& NewName)
{
	NameOfCache = NewName;
	SaveCachedPoseNode = nullptr;
	FindCache();
}

void UAnimGraphNode_UseCachedPose::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	const TArray<UAnimGraphNode_SaveCachedPose*> Caches = AnimPoses::FindAll<UAnimGraphNode_SaveCachedPose>(*this);
	const FString Name = GetCacheName();
	if (!Caches.ContainsByPredicate(
			[&Name](const UAnimGraphNode_SaveCachedPose* Cache) { return Cache->CacheName == Name; }))
	{
		MessageLog.Error(TEXT("@@ does not have an associated Save Cached Pose node"), this);
	}
}

FText UAnimGraphNode_LinkedInputPose::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	const FString Name = GetMemberText(TEXT("Name"));
	return TitleType == ENodeTitleType::MenuTitle || Name.IsEmpty()
		? Super::GetNodeTitle(TitleType)
		: FText::FromString(FString::Printf(TEXT("Input Pose (%s)"), *Name));
}

void UAnimGraphNode_LinkedInputPose::SetInputName(const FString& Name)
{
	const UScriptStruct* const Struct = GetFNodeType();
	if (const FProperty* const Member = Struct ? Struct->FindPropertyByName(FName(TEXT("Name"))) : nullptr)
	{
		Member->ImportText_Direct(
			*Name, Member->ContainerPtrToValuePtr<void>(GetFNodeProperty()->GetValuePtr(this)), this, PPF_None);
	}
}

void UAnimGraphNode_LinkedInputPose::PostPlacedNewNode()
{
	TArray<UAnimGraphNode_LinkedInputPose*> Others;
	if (const UEdGraph* const Graph = GetGraph())
	{
		Graph->GetNodesOfClass(Others);
	}
	SetInputName(AnimPoses::MakeUnique(GetInputName().ToString(),
		[this, &Others](const FString& Name)
		{
			return Others.ContainsByPredicate([this, &Name](const UAnimGraphNode_LinkedInputPose* Other)
				{ return Other != this && Other->GetInputName() == FName(Name); });
		}));
}

void UAnimGraphNode_LinkedInputPose::OnRenameNode(const FString& NewName)
{
	SetInputName(NewName);
}

void UAnimGraphNode_CustomProperty::CreateCustomPins(TArray<UEdGraphPin*>* OldPins)
{
	const UClass* const Target = GetTargetClass();
	for (const FOptionalPinFromProperty& Record : CustomPinProperties)
	{
		const FProperty* const Member = Target ? Target->FindPropertyByName(Record.PropertyName) : nullptr;
		UEdGraphPin* const Pin = Record.bShowPin && Member
			? CreatePinFromProperty(Member, EGPD_Input, Record.PropertyName)
			: nullptr;
		if (Pin)
		{
			Pin->PinFriendlyName = FText::FromString(Record.PropertyFriendlyName);
			GetK2Schema()->SetPinAutogeneratedDefaultValueBasedOnType(Pin);
		}
	}
	// A class that is not at hand may come back; till then its pins stay as they were read.
	if (OldPins && !Target)
	{
		KeepOldPins(*OldPins);
	}
}

UEdGraph* UAnimGraphNode_LinkedAnimGraphBase::FindLinkedGraph(FName GraphName) const
{
	const UClass* const Class = FunctionReference.GetMemberParentClass();
	const UBlueprint* const Other = Class ? Cast<UBlueprint>(Class->ClassGeneratedBy) : nullptr;
	for (const UBlueprint* const Blueprint : {static_cast<const UBlueprint*>(GetBlueprint()), Other})
	{
		TArray<UEdGraph*> Graphs;
		if (Blueprint && (Class == nullptr || Blueprint == Other))
		{
			Blueprint->GetAllGraphs(Graphs);
		}
		for (UEdGraph* const Graph : Graphs)
		{
			if (Graph->GetFName() == GraphName)
			{
				return Graph;
			}
		}
	}
	return nullptr;
}

UEdGraph* UAnimGraphNode_LinkedAnimGraphBase::GetLinkedGraph() const
{
	return FunctionReference.GetMemberName().IsNone() ? nullptr : FindLinkedGraph(FunctionReference.GetMemberName());
}

UClass* UAnimGraphNode_LinkedAnimGraphBase::GetTargetClass() const
{
	return FindObject<UClass>(nullptr, GetMemberText(TEXT("InstanceClass")));
}

FString UAnimGraphNode_LinkedAnimGraphBase::GetLinkedName() const
{
	const UClass* const Target = GetTargetClass();
	return Target ? Target->GetName() : FString();
}

FText UAnimGraphNode_LinkedAnimGraphBase::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	const FString Name = TitleType == ENodeTitleType::MenuTitle ? FString() : GetLinkedName();
	const FText Kind = Super::GetNodeTitle(TitleType);
	return Name.IsEmpty() ? Kind : FText::FromString(FString::Printf(TEXT("%s - %s"), *Kind.ToString(), *Name));
}

void UAnimGraphNode_LinkedAnimGraphBase::CreateCustomPins(TArray<UEdGraphPin*>* OldPins)
{
	const UEdGraph* const Linked = GetLinkedGraph();
	TArray<UAnimGraphNode_LinkedInputPose*> Inputs;
	if (Linked && Linked != GetGraph())
	{
		Linked->GetNodesOfClass(Inputs);
	}
	for (const UAnimGraphNode_LinkedInputPose* const Input : Inputs)
	{
		const FString Name = Input->GetInputName().ToString();
		UEdGraphPin* const Pin = CreatePosePin(EGPD_Input, *Name);
		Pin->PinFriendlyName = FText::FromString(Name);
	}
	if (OldPins && !Linked)
	{
		KeepOldPins(*OldPins);
		return;
	}
	Super::CreateCustomPins(OldPins);
}

UEdGraph* UAnimGraphNode_LinkedAnimLayer::GetLinkedGraph() const
{
	const FName Layer(GetMemberText(TEXT("Layer")));
	return Layer.IsNone() ? nullptr : FindLinkedGraph(Layer);
}

FString UAnimGraphNode_LinkedAnimLayer::GetLinkedName() const
{
	const FString Layer = GetMemberText(TEXT("Layer"));
	return Layer == TEXT("None") ? FString() : Layer;
}

void UAnimGraphNode_LinkedAnimLayer::OnRenameNode(const FString& NewName)
{
	const UScriptStruct* const Struct = GetFNodeType();
	const FProperty* const Member = Struct ? Struct->FindPropertyByName(FName(TEXT("Layer"))) : nullptr;
	if (!Member)
	{
		return;
	}
	Member->ImportText_Direct(
		*NewName, Member->ContainerPtrToValuePtr<void>(GetFNodeProperty()->GetValuePtr(this)), this, PPF_None);
	FunctionReference.SetSelfMember(FName(NewName));
	ReconstructNode();
}
