// Components of a Blueprint's actors: the native ones, then those that construction scripts add.

#include "AssetOperationBase.h"
#include "BlueprintUtils.h"
#include "Components/SceneComponent.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/InheritableComponentHandler.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "UObject/UnrealType.h"
#include "Utils/Asset/NativeComponents.h"
#include "Utils/Read/ReadDetail.h"
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
	/** The member that holds a native component; empty where there is none. */
	FString Member;
	/** The class that brings it in; null for the Blueprint's own. */
	const UClass* Owner = nullptr;
};

static FRow MakeNativeRow(const UActorComponent& Component)
{
	FRow Row{Component.GetName(), &Component, Component.GetClass(), FString(), NAME_None, FString(),
		NativeComponents::FindOwner(Component)};
	if (const FObjectProperty* const Member = NativeComponents::FindMember(Component))
	{
		Row.Member = Member->GetName();
	}
	const USceneComponent* const Scene = Cast<USceneComponent>(&Component);
	if (const USceneComponent* const Holder = Scene ? Scene->GetAttachParent() : nullptr)
	{
		Row.Parent = Holder->GetName();
		Row.Socket = Scene->GetAttachSocketName();
	}
	return Row;
}

static FRow MakeScriptRow(const USCS_Node& Node, const UActorComponent* Template, const UBlueprint& Blueprint)
{
	const UClass* const Class = Template ? Template->GetClass() : Node.ComponentClass.Get();
	FRow Row{Node.GetVariableName().ToString(), Template, Class, FString(), NAME_None, FString(), nullptr};
	const USimpleConstructionScript* const Script = Node.GetSCS();
	const bool bInherited = Script && Script != Blueprint.SimpleConstructionScript;
	Row.Owner = bInherited ? Script->GetOwnerClass() : nullptr;
	const USCS_Node* const ParentNode = Script ? Script->FindParentNode(const_cast<USCS_Node*>(&Node)) : nullptr;
	const FName Parent = ParentNode ? ParentNode->GetVariableName() : Node.ParentComponentOrVariableName;
	const bool bHangs = !Template || Template->IsA<USceneComponent>() || ReadUnresolved::IsUnresolved(Class);
	if (bHangs && !Parent.IsNone())
	{
		Row.Parent = Parent.ToString();
		Row.Socket = Node.AttachToName;
	}
	return Row;
}

/** Components that the Blueprint changes and that no construction script has: their parent is not there. */
static void AddChangedOfMissingParents(const FReadSection& Section, TArray<FRow>& Rows)
{
	const UInheritableComponentHandler* const Handler = Section.Blueprint.InheritableComponentHandler.Get();
	TArray<UActorComponent*> Templates;
	if (Handler)
	{
		Handler->GetAllTemplates(Templates);
	}
	for (UActorComponent* const Template : Templates)
	{
		const FComponentKey Key = Handler->FindKey(Template);
		const FString Name = Key.GetSCSVariableName().ToString();
		const bool bListed = Rows.ContainsByPredicate(
			[&Name](const FRow& Row) { return Row.Name.Equals(Name, ESearchCase::IgnoreCase); });
		if (!Key.GetSCSVariableName().IsNone() && !bListed)
		{
			const UClass* const Owner = Key.GetComponentOwner();
			Rows.Add(FRow{Name, Template, Template->GetClass(), FString(), NAME_None, FString(),
				Owner ? Owner : Section.Class.GetSuperClass()});
		}
	}
}

static TArray<FRow> GatherRows(const FReadSection& Section)
{
	TArray<FRow> Rows;
	for (const UActorComponent* const Component : NativeComponents::List(Section.Class))
	{
		Rows.Add(MakeNativeRow(*Component));
	}
	for (const USCS_Node* const Node : FBlueprintUtils::GetBlueprintComponentsFromSCS(&Section.Blueprint))
	{
		const UActorComponent* const Actual = Node->GetActualComponentTemplate(&Section.Class);
		Rows.Add(MakeScriptRow(*Node, Actual ? Actual : Node->ComponentTemplate.Get(), Section.Blueprint));
	}
	AddChangedOfMissingParents(Section, Rows);
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

static void SetParts(FJsonObject& Entry, const TCHAR* Key, std::initializer_list<TPair<const TCHAR*, double>> Parts,
	double Unset, bool bLean)
{
	const TSharedPtr<FJsonObject> Object = MakeShared<FJsonObject>();
	bool bSet = false;
	for (const TPair<const TCHAR*, double>& Part : Parts)
	{
		Object->SetNumberField(Part.Key, bLean ? ReadDetail::ShortenFloat(Part.Value) : Part.Value);
		bSet |= Part.Value != Unset;
	}
	if (bSet)
	{
		Entry.SetObjectField(Key, Object);
	}
}

/** The place in the form in which an edit sets it; what nobody moved is left out. */
static void SetPlace(FJsonObject& Entry, const USceneComponent& Scene, bool bLean)
{
	const FVector Location = Scene.GetRelativeLocation();
	const FRotator Rotation = Scene.GetRelativeRotation();
	const FVector Scale = Scene.GetRelativeScale3D();
	SetParts(Entry, TEXT("relative_location"),
		{{TEXT("x"), Location.X}, {TEXT("y"), Location.Y}, {TEXT("z"), Location.Z}}, 0.0, bLean);
	SetParts(Entry, TEXT("relative_rotation"),
		{{TEXT("pitch"), Rotation.Pitch}, {TEXT("yaw"), Rotation.Yaw}, {TEXT("roll"), Rotation.Roll}}, 0.0, bLean);
	SetParts(Entry, TEXT("relative_scale_3d"), {{TEXT("x"), Scale.X}, {TEXT("y"), Scale.Y}, {TEXT("z"), Scale.Z}}, 1.0,
		bLean);
}

/** Whether the place and the attachment say it already. */
static bool IsPlace(FName Property)
{
	static const TSet<FName> Names = {TEXT("RelativeLocation"), TEXT("RelativeRotation"), TEXT("RelativeScale3D"),
		TEXT("AttachParent"), TEXT("AttachSocketName")};
	return Names.Contains(Property);
}

/** What an edit can set and what is another than in a new component of the class, as text. */
static void SetProperties(FJsonObject& Entry, const UActorComponent& Component, bool bLean)
{
	const TSharedPtr<FJsonObject> Properties = MakeShared<FJsonObject>();
	const UObject* const Default = Component.GetClass()->GetDefaultObject();
	for (TFieldIterator<FProperty> It(Component.GetClass(), EFieldIteratorFlags::IncludeSuper); It; ++It)
	{
		const bool bShown = It->HasAnyPropertyFlags(CPF_Edit)
			&& !It->HasAnyPropertyFlags(CPF_Transient | CPF_Deprecated) && !IsPlace(It->GetFName());
		if (bShown && !It->Identical_InContainer(&Component, Default))
		{
			Properties->SetStringField(It->GetName(), ReadDetail::GetValue(Component, **It, bLean));
		}
	}
	if (!Properties->Values.IsEmpty())
	{
		Entry.SetObjectField(TEXT("properties"), Properties);
	}
}

/** Which values of an inherited component this Blueprint gives anew; the others are its parent's. */
static void SetChanged(FJsonObject& Entry, const UActorComponent& Component, const FReadSection& Section)
{
	const UObject* const Parent = Component.GetArchetype();
	const bool bOwnTemplate = Component.GetOuter() == Section.Blueprint.GeneratedClass.Get();
	TArray<TSharedPtr<FJsonValue>> Names;
	for (TFieldIterator<FProperty> It(Component.GetClass(), EFieldIteratorFlags::IncludeSuper); bOwnTemplate && It;
		 ++It)
	{
		const bool bShown = It->HasAnyPropertyFlags(CPF_Edit)
			&& !It->HasAnyPropertyFlags(CPF_Transient | CPF_Deprecated);
		if (bShown && !It->Identical_InContainer(&Component, Parent))
		{
			Names.Add(MakeShared<FJsonValueString>(It->GetName()));
		}
	}
	ReadSections::SetUnlessEmpty(Entry, TEXT("overridden"), MoveTemp(Names));
}

static void SetKind(FJsonObject& Entry, const UActorComponent& Component, bool bLean)
{
	if (bLean)
	{
		return;
	}
	Entry.SetStringField(TEXT("display_name"), Component.GetClass()->GetDisplayNameText().ToString());
	Entry.SetStringField(TEXT("group_name"), Component.GetFullGroupName(false));
	Entry.SetBoolField(TEXT("is_scene_component"), Component.IsA<USceneComponent>());
	Entry.SetBoolField(TEXT("is_editor_only"), Component.IsEditorOnly());
	Entry.SetBoolField(TEXT("is_active"), Component.bAutoActivate);
}

static void SetDetails(FJsonObject& Entry, const FRow& Row, const TArray<FRow>& Rows, bool bLean)
{
	if (Row.Component)
	{
		SetKind(Entry, *Row.Component, bLean);
	}
	if (!Row.Parent.IsEmpty())
	{
		Entry.SetStringField(TEXT("parent_component"), Row.Parent);
		if (!bLean || !Row.Socket.IsNone())
		{
			Entry.SetStringField(TEXT("attach_socket"), Row.Socket.ToString());
		}
	}
	ReadSections::SetUnlessEmpty(Entry, TEXT("children"), GetChildren(Rows, Row.Name));
	if (const USceneComponent* const Scene = Cast<USceneComponent>(Row.Component))
	{
		SetPlace(Entry, *Scene, bLean);
	}
	if (Row.Component)
	{
		SetProperties(Entry, *Row.Component, bLean);
	}
}
} // namespace ReadComponents

void ReadSections::AddComponents(FReadSection& Section)
{
	const TArray<ReadComponents::FRow> Rows = ReadComponents::GatherRows(Section);
	for (const ReadComponents::FRow& Row : Rows)
	{
		if (!Section.Stands(Row.Member.IsEmpty() ? TArray<FString>{Row.Name} : TArray<FString>{Row.Name, Row.Member}))
		{
			continue;
		}
		const TSharedPtr<FJsonObject> Entry = Section.AddEntry(Row.Name);
		Entry->SetStringField(TEXT("class_name"), Row.Class ? Row.Class->GetName() : FString());
		if (!Row.Class || ReadUnresolved::IsUnresolved(Row.Class))
		{
			if (Section.bFull || !Section.bLean)
			{
				Entry->SetStringField(TEXT("class_path"), Row.Class ? Row.Class->GetPathName() : FString());
			}
			Entry->SetBoolField(TEXT("unresolved"), true);
		}
		if (!Row.Member.IsEmpty() && Row.Member != Row.Name)
		{
			Entry->SetStringField(TEXT("variable_name"), Row.Member);
		}
		Section.SetInherited(*Entry, Row.Owner);
		if (Section.bFull)
		{
			ReadComponents::SetDetails(*Entry, Row, Rows, Section.bLean);
			if (Row.Owner && Row.Component)
			{
				ReadComponents::SetChanged(*Entry, *Row.Component, Section);
			}
		}
	}
}
