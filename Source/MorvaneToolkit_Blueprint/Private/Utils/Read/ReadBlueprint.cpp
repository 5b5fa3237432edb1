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
#include "Utils/Asset/OtherAssets.h"
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
	TSharedPtr<FJsonObject> MakeParent(const UClass& Parent) const;
	/** The road of all named sections: overview of all items, or the asked-for ones in full. False ends the whole read.
	 */
	bool AddSection(const FNamedSection& Row);
	/** Filtering by event happens within each graph, so this section has no names of its own. */
	bool AddEventGraphs();
	bool AddWidgetTree();
	/** Null when no widget of the tree was asked for. */
	TSharedPtr<FJsonObject> ReadWidgetDetails(UWidgetBlueprint& WidgetBlueprint) const;

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
		const FString Other = OtherAssets::Describe(Path);
		if (!Other.IsEmpty())
		{
			Result.AddWarningMessage(TEXT("[Failure] ") + Other);
		}
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
	if (bLean)
	{
		Document->SetStringField(ToolInfo::FieldName_Detail, ToolInfo::Detail_Lean);
	}
	else
	{
		Document->SetStringField(TEXT("path"), Path);
	}
	if (!bSchema)
	{
		return;
	}
	if (!bLean)
	{
		Document->SetStringField(TEXT("name"), Blueprint->GetPathName());
		Document->SetStringField(TEXT("class_path"), Class->GetPathName());
	}
	const UClass* const Parent = Blueprint->ParentClass;
	Document->SetObjectField(TEXT("parent_class"), Parent ? MakeParent(*Parent) : nullptr);
}

/** In lean by one of name and path: the name of a native class is a path, as is the path of a Blueprint's. */
TSharedPtr<FJsonObject> FRead::MakeParent(const UClass& Parent) const
{
	const TSharedPtr<FJsonObject> Object = MakeShared<FJsonObject>();
	const bool bOfBlueprint = Parent.IsA<UBlueprintGeneratedClass>();
	const bool bUnresolved = ReadUnresolved::IsUnresolved(&Parent);
	if (!bLean)
	{
		Object->SetStringField(TEXT("type"), bOfBlueprint ? TEXT("blueprint") : TEXT("native"));
	}
	if (!bOfBlueprint)
	{
		Object->SetStringField(TEXT("name"), Parent.GetStructPathName().ToString());
	}
	else if (!bLean)
	{
		FString Name = Parent.GetName();
		Name.RemoveFromEnd(TEXT("_C"), ESearchCase::CaseSensitive);
		Object->SetStringField(TEXT("name"), Name);
	}
	if (bOfBlueprint || (bUnresolved && !bLean))
	{
		Object->SetStringField(TEXT("path"), Parent.GetPathName());
	}
	ReadUnresolved::SetFlag(*Object, &Parent);
	return Object;
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
	if (bLean)
	{
		ReadSections::ReduceToNames(Section.Entries, TEXT("name"));
	}
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
		const TSharedPtr<FJsonObject> Graph = Page
			? FBlueprintReadUtils::ReadEventGraph(Page, Command, false, TSet<FString>())
			: nullptr;
		// An event stands in one graph; the others have no word of it.
		if (Graph && (bSchema || !bLean || Graph->HasField(TEXT("event_flows"))))
		{
			Graphs.Add(MakeShared<FJsonValueObject>(Graph));
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
	const TSharedPtr<FJsonObject> Widgets = bWidgetTool ? ReadWidgetDetails(*WidgetBlueprint) : nullptr;
	// Who asks for widgets by name has seen the tree.
	if (!bLean || !Widgets)
	{
		Tree->SetObjectField(
			TEXT("widget_hierarchy"), FWidgetBlueprintUtils::SerializeWidgetHierarchy(WidgetBlueprint, bLean));
	}
	if (Widgets)
	{
		Tree->SetObjectField(TEXT("widgets"), Widgets);
	}
	if (bWidgetTool)
	{
		AddAnimations(*Tree, *WidgetBlueprint);
	}
	Document->SetObjectField(TEXT("widget_tree"), Tree);
	return true;
}

TSharedPtr<FJsonObject> FRead::ReadWidgetDetails(UWidgetBlueprint& WidgetBlueprint) const
{
	FRequestedNames Names;
	if (!Names.Read(*Command, TEXT("widget_name")) || !WidgetBlueprint.WidgetTree)
	{
		return nullptr;
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
	return Widgets->Values.IsEmpty() ? nullptr : Widgets;
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
