// Components of a Blueprint's actors: the native ones, then those that construction scripts add.

#include "BlueprintUtils.h"
#include "Components/SceneComponent.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/SimpleConstructionScript.h"
#include "GameFramework/Actor.h"
#include "Utils/Read/ReadItems.h"
#include "Utils/Read/ReadUnresolved.h"

namespace ReadComponents
{
/** A component with where it hangs. Templates of scripts are not attached to one another; their nodes tell. */
struct FRow
{
	FString Name;
	/** Null where a script's node has no template. */
	const UActorComponent* Component = nullptr;
	const UClass* Class = nullptr;
	/** Empty where it hangs on nothing. */
	FString Parent;
	FName Socket;
};

static FRow MakeNativeRow(const UActorComponent& Component)
{
	FRow Row{Component.GetName(), &Component, Component.GetClass(), FString(), NAME_None};
	const USceneComponent* const Scene = Cast<USceneComponent>(&Component);
	if (const USceneComponent* const Parent = Scene ? Scene->GetAttachParent() : nullptr)
	{
		Row.Parent = Parent->GetName();
		Row.Socket = Scene->GetAttachSocketName();
	}
	return Row;
}

static FRow MakeScriptRow(const USCS_Node& Node, const UActorComponent* Template)
{
	const UClass* const Class = Template ? Template->GetClass() : Node.ComponentClass.Get();
	FRow Row{Node.GetVariableName().ToString(), Template, Class, FString(), NAME_None};
	const USimpleConstructionScript* const Script = Node.GetSCS();
	const USCS_Node* const ParentNode = Script ? Script->FindParentNode(&Node) : nullptr;
	const FName Parent = ParentNode ? ParentNode->GetVariableName() : Node.ParentComponentOrVariableName;
	const bool bHangs = !Template || Template->IsA<USceneComponent>() || ReadUnresolved::IsUnresolved(Class);
	if (bHangs && !Parent.IsNone())
	{
		Row.Parent = Parent.ToString();
		Row.Socket = Node.AttachToName;
	}
	return Row;
}

static TArray<FRow> GatherRows(const FReadSection& Section)
{
	TArray<FRow> Rows;
	if (Section.Class.IsChildOf(AActor::StaticClass()))
	{
		TArray<UActorComponent*> Components;
		static_cast<const AActor*>(Section.Class.GetDefaultObject())->GetComponents(Components);
		for (const UActorComponent* const Component : Components)
		{
			Rows.Add(MakeNativeRow(*Component));
		}
	}
	for (const USCS_Node* const Node : FBlueprintUtils::GetBlueprintComponentsFromSCS(&Section.Blueprint))
	{
		const UActorComponent* const Actual = Node->GetActualComponentTemplate(&Section.Class);
		Rows.Add(MakeScriptRow(*Node, Actual ? Actual : Node->ComponentTemplate.Get()));
	}
	return Rows;
}

static TArray<TSharedPtr<FJsonValue>> GetChildren(const TArray<FRow>& Rows, const FString& Parent)
{
	TArray<TSharedPtr<FJsonValue>> Children;
	for (const FRow& Row : Rows)
	{
		if (Row.Parent.Equals(Parent, ESearchCase::IgnoreCase))
		{
			Children.Add(MakeShared<FJsonValueString>(Row.Name));
		}
	}
	return Children;
}

static void SetDetails(FJsonObject& Entry, const FRow& Row, const TArray<FRow>& Rows)
{
	if (Row.Component)
	{
		const UActorComponent& Component = *Row.Component;
		Entry.SetStringField(TEXT("display_name"), Component.GetClass()->GetDisplayNameText().ToString());
		Entry.SetStringField(TEXT("group_name"), Component.GetFullGroupName(false));
		Entry.SetBoolField(TEXT("is_scene_component"), Component.IsA<USceneComponent>());
		Entry.SetBoolField(TEXT("is_editor_only"), Component.IsEditorOnly());
		Entry.SetBoolField(TEXT("is_active"), Component.bAutoActivate);
	}
	if (!Row.Parent.IsEmpty())
	{
		Entry.SetStringField(TEXT("parent_component"), Row.Parent);
		Entry.SetStringField(TEXT("attach_socket"), Row.Socket.ToString());
	}
	ReadSections::SetUnlessEmpty(Entry, TEXT("children"), GetChildren(Rows, Row.Name));
}
} // namespace ReadComponents

void ReadSections::AddComponents(FReadSection& Section)
{
	const TArray<ReadComponents::FRow> Rows = ReadComponents::GatherRows(Section);
	for (const ReadComponents::FRow& Row : Rows)
	{
		if (!Section.Stands(Row.Name))
		{
			continue;
		}
		const TSharedPtr<FJsonObject> Entry = Section.AddEntry(Row.Name);
		Entry->SetStringField(TEXT("class_name"), Row.Class ? Row.Class->GetName() : FString());
		if (!Row.Class || ReadUnresolved::IsUnresolved(Row.Class))
		{
			Entry->SetStringField(TEXT("class_path"), Row.Class ? Row.Class->GetPathName() : FString());
			Entry->SetBoolField(TEXT("unresolved"), true);
		}
		if (Section.bFull)
		{
			ReadComponents::SetDetails(*Entry, Row, Rows);
		}
	}
}
