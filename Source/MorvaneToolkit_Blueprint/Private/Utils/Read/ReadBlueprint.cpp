// The one routine behind all read tools: a document with a section for each kind of item, of which the tool in the
// command selects one in full or all in overview.

#include "Animation/WidgetAnimation.h"
#include "AssetOperationBase.h"
#include "Blueprint/WidgetTree.h"
#include "BlueprintReadUtils.h"
#include "BlueprintUtils.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "JsonReading.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolInfo.h"
#include "ToolResult.h"
#include "UObject/TopLevelAssetPath.h"
#include "Utils/Read/ItemKinds.h"
#include "Utils/Read/ReadBudget.h"
#include "Utils/Read/ReadDetail.h"
#include "Utils/Read/ReadItems.h"
#include "Utils/Read/ReadUnresolved.h"
#include "WidgetBlueprint.h"
#include "WidgetBlueprintUtils.h"

namespace ReadDocument
{
using Morvane::FToolResult;
namespace ToolInfo = Morvane::ToolInfo;

/** A section whose items have names, and what fills it. */
struct FNamedSection
{
	const FItemKind& Kind;
	void (*AddItems)(FReadSection&);
};

constexpr FNamedSection Interfaces{ItemKinds::Interface, &ReadSections::AddInterfaces};
constexpr FNamedSection Variables{ItemKinds::Variable, &ReadSections::AddVariables};
constexpr FNamedSection Components{ItemKinds::Component, &ReadSections::AddComponents};
constexpr FNamedSection Functions{ItemKinds::Function, &ReadSections::AddFunctions};
constexpr FNamedSection Macros{ItemKinds::Macro, &ReadSections::AddMacros};
constexpr FNamedSection Delegates{ItemKinds::Delegate, &ReadSections::AddDelegates};
constexpr FNamedSection Timelines{ItemKinds::Timeline, &ReadSections::AddTimelines};

/** One read of one Blueprint. */
class FRead
{
public:
	FRead(const TSharedPtr<FJsonObject>& InCommand, FToolResult& InResult)
		: Command(InCommand)
		, Result(InResult)
		, Document(MakeShared<FJsonObject>())
	{
	}

	FString Run()
	{
		static const FString Nothing(TEXT("{}"));
		if (!ReadCommand() || !LoadBlueprint())
		{
			return Nothing;
		}
		if (bFinalize && bLean)
		{
			// It takes the place of a full read, which goes into no answer.
			FReadBudget::Begin();
		}
		SetHead();
		const bool bComplete = AddSection(Interfaces) && AddSection(Variables) && AddSection(Components)
			&& AddSection(Functions) && AddSection(Macros) && AddSection(Delegates) && AddEventGraphs()
			&& AddSection(Timelines) && AddWidgetTree();
		return bComplete ? FAssetOperationBase::SerializeJson(Document) : Nothing;
	}

private:
	bool ReadCommand();
	bool LoadBlueprint();
	void SetHead();
	/** The road of all named sections: overview of all items, or the asked-for ones in full. False ends the whole read.
	 */
	bool AddSection(const FNamedSection& Row);
	/** Filtering by event happens within each graph, so this section has no names of its own. */
	bool AddEventGraphs();
	bool AddWidgetTree();
	void AddWidgetDetails(FJsonObject& Tree, UWidgetBlueprint& WidgetBlueprint) const;

	void AddAnimations(FJsonObject& Tree, const UWidgetBlueprint& WidgetBlueprint) const;

	bool IsTool(const TCHAR* Tool) const { return ReadTool.Equals(Tool, ESearchCase::IgnoreCase); }

	const TSharedPtr<FJsonObject>& Command;
	FToolResult& Result;
	TSharedPtr<FJsonObject> Document;
	FString Path;
	FString ReadTool;
	bool bFinalize = false;
	bool bSchema = false;
	bool bLean = false;
	/** Both not null once the Blueprint is loaded. */
	UBlueprint* Blueprint = nullptr;
	UBlueprintGeneratedClass* Class = nullptr;
};

bool FRead::ReadCommand()
{
	if (!Command || !MorvaneJson::TryGetStringField(*Command, TEXT("path"), Path))
	{
		Result.AddErrorMessage(TEXT("Missing required field 'path'"));
		return false;
	}
	if (!MorvaneJson::TryGetStringField(*Command, ToolInfo::FieldName_ReadTool, ReadTool))
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Missing required field '%s'"), ToolInfo::FieldName_ReadTool));
		return false;
	}
	MorvaneJson::TryGetBoolField(*Command, TEXT("finalize_modifications"), bFinalize);
	bLean = ReadDetail::IsLean(*Command);
	bSchema = IsTool(ToolInfo::ToolName_ReadBlueprintSchema);
	return true;
}

bool FRead::LoadBlueprint()
{
	if (!FBlueprintUtils::BlueprintExists(Path))
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Blueprint does not exist: %s"), *Path));
		Result.AddErrorMessage(TEXT("Cannot read Blueprint. The asset may have been deleted."));
		return false;
	}
	Blueprint = FBlueprintUtils::LoadBlueprint(Path, Result);
	if (!Blueprint)
	{
		return false;
	}
	// Brings the class up to date with what was declared since the last compile.
	FBlueprintEditorUtils::GetMostUpToDateClass(Blueprint->GeneratedClass);
	Class = Cast<UBlueprintGeneratedClass>(Blueprint->GeneratedClass.Get());
	if (!Class)
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Loaded asset is not a Blueprint: %s"), *Path));
		return false;
	}
	return true;
}

void FRead::SetHead()
{
	Document->SetStringField(TEXT("path"), Path);
	if (bLean)
	{
		Document->SetStringField(ToolInfo::FieldName_Detail, ToolInfo::Detail_Lean);
	}
	if (!bSchema)
	{
		return;
	}
	Document->SetStringField(TEXT("name"), Blueprint->GetPathName());
	Document->SetStringField(TEXT("class_path"), Class->GetPathName());
	const UClass* const Parent = Blueprint->ParentClass;
	if (!Parent)
	{
		Document->SetObjectField(TEXT("parent_class"), nullptr);
		return;
	}
	const TSharedPtr<FJsonObject> ParentObject = MakeShared<FJsonObject>();
	if (Parent->IsA<UBlueprintGeneratedClass>())
	{
		FString Name = Parent->GetName();
		Name.RemoveFromEnd(TEXT("_C"), ESearchCase::CaseSensitive);
		ParentObject->SetStringField(TEXT("type"), TEXT("blueprint"));
		ParentObject->SetStringField(TEXT("name"), Name);
		ParentObject->SetStringField(TEXT("path"), Parent->GetPathName());
	}
	else
	{
		ParentObject->SetStringField(TEXT("type"), TEXT("native"));
		ParentObject->SetStringField(TEXT("name"), Parent->GetStructPathName().ToString());
	}
	if (ReadUnresolved::IsUnresolved(Parent))
	{
		ParentObject->SetStringField(TEXT("path"), Parent->GetPathName());
		ReadUnresolved::SetFlag(*ParentObject, Parent);
	}
	Document->SetObjectField(TEXT("parent_class"), ParentObject);
}

bool FRead::AddSection(const FNamedSection& Row)
{
	FReadSection Section{*Blueprint, *Class, Command, IsTool(Row.Kind.ReadTool), bLean, {}, {}};
	if (!bSchema && !Section.bFull)
	{
		return true;
	}
	if (Section.bFull && !Section.Requested.Read(*Command, Row.Kind.NameField))
	{
		Result.AddErrorMessage(FString::Printf(TEXT("Field '%s' array is empty"), Row.Kind.NameField));
		return false;
	}
	Row.AddItems(Section);
	Section.Requested.AddMissing(Section.Entries, bFinalize);
	ReadSections::SetUnlessEmpty(*Document, Row.Kind.Section, MoveTemp(Section.Entries));
	return true;
}

bool FRead::AddEventGraphs()
{
	if (!bSchema && !IsTool(ToolInfo::ToolName_ReadBlueprintEvent))
	{
		return true;
	}
	TArray<TSharedPtr<FJsonValue>> Graphs;
	for (const UEdGraph* const Page : Blueprint->UbergraphPages)
	{
		if (Page)
		{
			Graphs.Add(MakeShared<FJsonValueObject>(
				FBlueprintReadUtils::ReadEventGraph(Page, Command, false, TSet<FString>())));
		}
	}
	ReadSections::SetUnlessEmpty(*Document, TEXT("graphs"), MoveTemp(Graphs));
	return true;
}

bool FRead::AddWidgetTree()
{
	const bool bWidgetTool = IsTool(ToolInfo::ToolName_ReadBlueprintWidgetTree);
	if (!bSchema && !bWidgetTool)
	{
		return true;
	}
	UWidgetBlueprint* const WidgetBlueprint = Cast<UWidgetBlueprint>(Blueprint);
	if (!WidgetBlueprint)
	{
		if (bWidgetTool)
		{
			Result.AddErrorMessage(FString::Printf(TEXT("Blueprint at '%s' is not a Widget Blueprint"), *Path));
			return false;
		}
		return true;
	}
	const TSharedPtr<FJsonObject> Tree = MakeShared<FJsonObject>();
	Tree->SetObjectField(TEXT("widget_hierarchy"), FWidgetBlueprintUtils::SerializeWidgetHierarchy(WidgetBlueprint));
	if (bWidgetTool)
	{
		AddWidgetDetails(*Tree, *WidgetBlueprint);
		AddAnimations(*Tree, *WidgetBlueprint);
	}
	Document->SetObjectField(TEXT("widget_tree"), Tree);
	return true;
}

void FRead::AddWidgetDetails(FJsonObject& Tree, UWidgetBlueprint& WidgetBlueprint) const
{
	FRequestedNames Names;
	if (!Names.Read(*Command, TEXT("widget_name")) || !WidgetBlueprint.WidgetTree)
	{
		return;
	}
	const TSharedPtr<FJsonObject> Widgets = MakeShared<FJsonObject>();
	TArray<UWidget*> All;
	WidgetBlueprint.WidgetTree->GetAllWidgets(All);
	for (UWidget* const Widget : All)
	{
		if (Names.Take(Widget->GetName()))
		{
			Widgets->SetObjectField(
				Widget->GetName(), FWidgetBlueprintUtils::SerializeWidgetDetails(Widget, &WidgetBlueprint, bLean));
		}
	}
	if (!Widgets->Values.IsEmpty())
	{
		Tree.SetObjectField(TEXT("widgets"), Widgets);
	}
}

void FRead::AddAnimations(FJsonObject& Tree, const UWidgetBlueprint& WidgetBlueprint) const
{
	TArray<TSharedPtr<FJsonValue>> Names;
	for (const UWidgetAnimation* const Animation : WidgetBlueprint.Animations)
	{
		if (Animation)
		{
			Names.Add(MakeShared<FJsonValueString>(Animation->GetName()));
		}
	}
	ReadSections::SetUnlessEmpty(Tree, TEXT("animations"), MoveTemp(Names));
}
} // namespace ReadDocument

FString FBlueprintReadUtils::ReadBlueprint(const TSharedPtr<FJsonObject>& Command, Morvane::FToolResult& Result)
{
	return ReadDocument::FRead(Command, Result).Run();
}
