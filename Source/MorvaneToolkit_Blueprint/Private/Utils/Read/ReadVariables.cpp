// Member variables of a Blueprint and of those above it.

#include "AssetOperationBase.h"
#include "Blueprint/WidgetTree.h"
#include "Components/Widget.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "UObject/UnrealType.h"
#include "Utils/Read/ReadDetail.h"
#include "Utils/Read/ReadItems.h"
#include "WidgetBlueprint.h"

namespace ReadVariables
{
/** The description of a variable in the first of the Blueprints that has one. */
static const FBPVariableDescription* FindDescription(const TArray<UBlueprint*>& Blueprints, FName Name)
{
	for (const UBlueprint* const Blueprint : Blueprints)
	{
		const int32 Index = FBlueprintEditorUtils::FindNewVariableIndex(Blueprint, Name);
		if (Index != INDEX_NONE)
		{
			return &Blueprint->NewVariables[Index];
		}
	}
	return nullptr;
}

static bool HasTrueMetaData(const FBPVariableDescription& Variable, FName Key)
{
	return Variable.HasMetaData(Key) && Variable.GetMetaData(Key).Equals(TEXT("true"), ESearchCase::IgnoreCase);
}

static TSharedPtr<FJsonObject> MakeReplication(const FBPVariableDescription& Variable)
{
	const TSharedPtr<FJsonObject> Replication = MakeShared<FJsonObject>();
	if (!Variable.RepNotifyFunc.IsNone())
	{
		Replication->SetStringField(TEXT("mode"), TEXT("rep_notify"));
		Replication->SetStringField(TEXT("notify_function"), Variable.RepNotifyFunc.ToString());
	}
	else
	{
		Replication->SetStringField(TEXT("mode"), Variable.PropertyFlags & CPF_Net ? TEXT("replicated") : TEXT("none"));
	}
	return Replication;
}

/**
 * The description of a variable that stands for a widget of the tree; false for any other property. The tree declares
 * it, so that the overview of variables has no word of it, but a read that asks for it by name finds it.
 */
static bool DescribeWidgetVariable(const FReadSection& Section, const FProperty& Property, FBPVariableDescription& Out)
{
	const UWidgetBlueprint* const WidgetBlueprint = Cast<UWidgetBlueprint>(&Section.Blueprint);
	const UWidgetTree* const Tree = Section.bFull && WidgetBlueprint ? WidgetBlueprint->WidgetTree.Get() : nullptr;
	const UWidget* const Widget = Tree ? Tree->FindWidget(Property.GetFName()) : nullptr;
	if (!Widget || !Widget->bIsVariable)
	{
		return false;
	}
	Out.VarName = Property.GetFName();
	Out.PropertyFlags = Property.GetPropertyFlags() | CPF_DisableEditOnInstance;
	Out.Category = FText::FromString(Section.Blueprint.GetName());
	return true;
}

static void SetFlag(const FReadSection& Section, FJsonObject& Entry, const TCHAR* Key, bool bValue)
{
	if (bValue || !Section.bLean)
	{
		Entry.SetBoolField(Key, bValue);
	}
}

static void SetFlags(const FReadSection& Section, FJsonObject& Entry, const FBPVariableDescription& Variable)
{
	const uint64 Flags = Variable.PropertyFlags;
	const auto Set = [&](const TCHAR* Key, bool bValue) { SetFlag(Section, Entry, Key, bValue); };
	Set(TEXT("instance_editable"), (Flags & CPF_DisableEditOnInstance) == 0);
	Set(TEXT("expose_on_spawn"), HasTrueMetaData(Variable, FBlueprintMetadata::MD_ExposeOnSpawn));
	Set(TEXT("private"), HasTrueMetaData(Variable, FBlueprintMetadata::MD_Private));
	Set(TEXT("save_game"), (Flags & CPF_SaveGame) != 0);
	Set(TEXT("blueprint_read_only"), (Flags & CPF_BlueprintReadOnly) != 0);
	Set(TEXT("config"), (Flags & CPF_Config) != 0);
}

/** The category of variables for which none was chosen. */
static bool IsDefaultCategory(const FReadSection& Section, const FString& Category)
{
	return Category.IsEmpty() || Category == TEXT("Default") || Category == Section.Blueprint.GetName();
}

/** Owner: the class that declares it; null where it is the Blueprint's own. */
static void AddVariable(FReadSection& Section, const FString& Name, const FBPVariableDescription& Variable,
	const FEdGraphPinType& Type, const FString& DefaultValue, const UClass* Owner)
{
	const TSharedPtr<FJsonObject> Entry = Section.AddEntry(Name);
	ReadDetail::SetType(*Entry, Type, Section.bLean);
	if (Section.bFull)
	{
		Entry->SetStringField(
			TEXT("default_variable_value"), Section.bLean ? ReadDetail::ShortenReferences(DefaultValue) : DefaultValue);
		ReadDetail::SetDisplayValue(*Entry, Type, DefaultValue);
	}
	const bool bReplicates = !Variable.RepNotifyFunc.IsNone() || (Variable.PropertyFlags & CPF_Net) != 0;
	if (bReplicates || !Section.bLean)
	{
		Entry->SetObjectField(TEXT("replication"), MakeReplication(Variable));
	}
	const FString Category = Variable.Category.ToString();
	if (!Section.bLean || !IsDefaultCategory(Section, Category))
	{
		Entry->SetStringField(TEXT("category"), Category);
	}
	const bool bHasTooltip = Variable.HasMetaData(FBlueprintMetadata::MD_Tooltip);
	if (bHasTooltip && !Variable.GetMetaData(FBlueprintMetadata::MD_Tooltip).IsEmpty())
	{
		Entry->SetStringField(TEXT("tooltip"), Variable.GetMetaData(FBlueprintMetadata::MD_Tooltip));
	}
	SetFlags(Section, *Entry, Variable);
	Section.SetInherited(*Entry, Owner);
}
} // namespace ReadVariables

void ReadSections::AddVariables(FReadSection& Section)
{
	TSet<FName> Listed;
	TArray<UBlueprint*> Blueprints;
	UBlueprint::GetBlueprintHierarchyFromClass(&Section.Class, Blueprints);
	const UObject* const Default = Section.Class.GetDefaultObject();
	for (TFieldIterator<FProperty> It(&Section.Class, EFieldIteratorFlags::IncludeSuper); It; ++It)
	{
		const FBPVariableDescription* Variable = ReadVariables::FindDescription(Blueprints, It->GetFName());
		FBPVariableDescription Widget;
		if (!Variable && ReadVariables::DescribeWidgetVariable(Section, **It, Widget))
		{
			Variable = &Widget;
		}
		if (Variable && Section.Stands(It->GetName()))
		{
			FEdGraphPinType Type;
			FAssetOperationBase::ConvertPropertyToEdGraphPinType(*It, Type);
			const FString Value = FAssetOperationBase::GetPropertyValueAsString(Default, *It);
			ReadVariables::AddVariable(Section, It->GetName(), *Variable, Type, Value, It->GetOwnerClass());
			Listed.Add(It->GetFName());
		}
	}
	// What was declared since the class was made.
	for (const FBPVariableDescription& Variable : Section.Blueprint.NewVariables)
	{
		const FString Name = Variable.VarName.ToString();
		if (!Listed.Contains(Variable.VarName) && Section.Stands(Name))
		{
			ReadVariables::AddVariable(Section, Name, Variable, Variable.VarType, Variable.DefaultValue, nullptr);
		}
	}
}
