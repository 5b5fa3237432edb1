// What Blueprints offer to others, as text: written into the header of a file when it is saved, and read from there
// where the Blueprint is not in memory. So a menu is the same whatever happens to be loaded, and loads nothing itself.

#include "AssetRegistry/AssetData.h"
#include "Engine/Blueprint.h"
#include "Menu/ActionSources.h"
#include "Menu/OfferNodeSpawner.h"
#include "Misc/PackageName.h"
#include "Standalone/NativeClass.h"
#include "Standalone/PackageText.h"

IMPLEMENT_EDITOR_CLASS(UOfferNodeSpawner, "/Script/BlueprintGraph", CLASS_None)

void UOfferNodeSpawner::DescribeClass(FClassDescriber&) {}

namespace ActionOffers
{
/** The form of the lines below. A file that has another one, or none, is loaded to be asked. */
const TCHAR* const Form = TEXT("1");

/** What is told of an action beside its words. */
enum EFlag : uint32
{
	Member = 1,
	NamedAsMember = 2,
	Latent = 4,
	UnsafeInConstruction = 8,
	NeedsWorld = 16,
	EditorOnly = 32,
};

/** Title, category, category among strangers, keywords, node class, required class, flags. */
constexpr int32 NumFields = 7;

static FString Clean(const FText& Text)
{
	return Text.ToString().Replace(TEXT("\t"), TEXT(" ")).Replace(TEXT("\n"), TEXT(" "));
}

/** Other Blueprints have no use for what is private, for the class's own events, and for what stands in one graph. */
static bool IsForOthers(const FBlueprintAction& Action, const UBlueprint& Blueprint)
{
	const UBlueprint* const Required = UBlueprint::GetBlueprintFromClass(Action.RequiredClass);
	return !Action.OnlyInBlueprint && !Action.OnlyInGraph && !Action.bIsProtected && Required != &Blueprint
		&& Action.NodeClass;
}

static FString Describe(const FBlueprintAction& Action)
{
	uint32 Flags = Action.MemberOf ? Member : 0u;
	Flags |= Action.bNamedAsMember ? NamedAsMember : 0u;
	Flags |= Action.bIsLatent ? Latent : 0u;
	Flags |= Action.bIsUnsafeInConstruction ? UnsafeInConstruction : 0u;
	Flags |= Action.bNeedsWorld ? NeedsWorld : 0u;
	Flags |= Action.bIsEditorOnly ? EditorOnly : 0u;
	const FString Fields[NumFields] = {Clean(Action.Item->GetMenuDescription()), Clean(Action.Item->GetCategory()),
		Clean(Action.OtherCategory), Clean(Action.Item->GetKeywords()), Action.NodeClass->GetPathName(),
		Action.RequiredClass ? Action.RequiredClass->GetPathName() : FString(),
		FString::FromInt(static_cast<int32>(Flags))};
	FString Line = Fields[0];
	for (int32 Index = 1; Index < NumFields; ++Index)
	{
		Line += TEXT("\t") + Fields[Index];
	}
	return Line;
}

static void Discard(ActionSources::FActionList& Actions)
{
	for (const FBlueprintAction& Action : Actions)
	{
		const_cast<UBlueprintNodeSpawner*>(Action.Item->GetRawAction())->Discard();
	}
}

/** False for a line of another form, and for an action that no Blueprint in memory could have. */
static bool AddLine(const FString& BlueprintPath, const FString& Line, ActionSources::FActionList& Out)
{
	TArray<FString> Fields;
	Line.ParseIntoArray(Fields, TEXT("\t"), false);
	UClass* const NodeClass = Fields.Num() == NumFields ? FindObject<UClass>(nullptr, *Fields[4]) : nullptr;
	const UClass* const Required = NodeClass && !Fields[5].IsEmpty() ? FindObject<UClass>(nullptr, *Fields[5])
																	 : nullptr;
	if (!NodeClass || (!Fields[5].IsEmpty() && !Required))
	{
		return false;
	}
	UOfferNodeSpawner* const Spawner = UOfferNodeSpawner::Create(*NodeClass, BlueprintPath);
	Spawner->DefaultMenuSignature.MenuName = FText::FromString(Fields[0]);
	Spawner->DefaultMenuSignature.Category = FText::FromString(Fields[1]);
	Spawner->DefaultMenuSignature.Keywords = FText::FromString(Fields[3]);
	Spawner->DefaultMenuSignature.Tooltip = FText::FromString(
		FString::Printf(TEXT("Of the Blueprint %s"), *BlueprintPath));
	FBlueprintAction* const Action = ActionSources::Add(Spawner, Out);
	if (Action)
	{
		const uint32 Flags = static_cast<uint32>(FCString::Atoi(*Fields[6]));
		Action->OtherCategory = FText::FromString(Fields[2]);
		Action->RequiredClass = Required;
		Action->bOfUnloadedClass = (Flags & Member) != 0;
		Action->bNamedAsMember = (Flags & NamedAsMember) != 0;
		Action->bIsLatent = (Flags & Latent) != 0;
		Action->bIsUnsafeInConstruction = (Flags & UnsafeInConstruction) != 0;
		Action->bNeedsWorld = (Flags & NeedsWorld) != 0;
		Action->bIsEditorOnly = (Flags & EditorOnly) != 0;
	}
	return Action != nullptr;
}

/** Of files of the engine's own form: the names of what the Blueprint declares, and no more. */
const FName MemberNamesTag(TEXT("MemberNames"));

static FString MakeLine(const FString& Title, const TCHAR* Category, const FString& Keywords, const TCHAR* NodeClass,
	const uint32 Flags = 0, const TCHAR* RequiredClass = TEXT(""))
{
	return FString::Printf(TEXT("%s\t%s\t\t%s\t/Script/BlueprintGraph.%s\t%s\t%u"), *Title, Category, *Keywords,
		NodeClass, RequiredClass, Flags);
}

static TArray<FString> NamesIn(const FAssetData& Asset, const TCHAR* Tag)
{
	TArray<FString> Names;
	Asset.GetTagValueRef<FString>(FName(Tag)).ParseIntoArray(Names, TEXT("\n"), true);
	return Names;
}

/** Whether the Blueprint's nearest native parent is of the class at that path. */
static bool IsBelow(const FAssetData& Asset, const TCHAR* BasePath)
{
	const FString Parent = FPackageName::ExportTextPathToObjectPath(
		Asset.GetTagValueRef<FString>(TEXT("NativeParentClass")));
	const UClass* const Base = FindObject<UClass>(nullptr, BasePath);
	const UClass* const Native = Parent.IsEmpty() ? nullptr : FindObject<UClass>(nullptr, *Parent);
	return Base && Native && Native->IsChildOf(Base);
}

static void DescribeDispatcher(const FString& Name, TArray<FString>& Lines)
{
	static const struct
	{
		const TCHAR* Words;
		const TCHAR* NodeClass;
	} Kinds[] = {{TEXT("Call %s"), TEXT("K2Node_CallDelegate")}, {TEXT("Bind Event to %s"), TEXT("K2Node_AddDelegate")},
		{TEXT("Assign %s"), TEXT("K2Node_AssignDelegate")},
		{TEXT("Unbind Event from %s"), TEXT("K2Node_RemoveDelegate")},
		{TEXT("Unbind all Events from %s"), TEXT("K2Node_ClearDelegate")}};
	const FString Shown = FName::NameToDisplayString(Name, false);
	for (const auto& Kind : Kinds)
	{
		Lines.Add(MakeLine(
			FString(Kind.Words).Replace(TEXT("%s"), *Shown), TEXT("Event Dispatchers"), Name, Kind.NodeClass, Member));
	}
}

static void DescribeVariable(const FPackageText::FVariable& Variable, const FAssetData& Asset, TArray<FString>& Lines)
{
	const FString Shown = FName::NameToDisplayString(Variable.Name, Variable.bIsBool);
	const FString Category = TEXT("Variables|")
		+ (Variable.Category.IsEmpty() ? FString(TEXT("Default")) : Variable.Category);
	const FString Elsewhere = TEXT("Class|") + Asset.AssetName.ToString();
	for (const TCHAR* const Kind : {TEXT("Get"), TEXT("Set")})
	{
		if (Variable.bIsReadOnly && FCString::Stricmp(Kind, TEXT("Set")) == 0)
		{
			continue;
		}
		Lines.Add(FString::Printf(TEXT("%s %s\t%s\t%s\t%s\t/Script/BlueprintGraph.K2Node_Variable%s\t\t%u"), Kind,
			*Shown, *Category, *Elsewhere, *Variable.Name, Kind, Member | NamedAsMember));
	}
}

/**
 * The lines that the names alone allow. Categories and who may call what stand in the objects; the first node that is
 * made of a line loads them, and from then on they are known.
 */
static TArray<FString> DescribeByNames(const FAssetData& Asset)
{
	TArray<FString> Lines;
	const FString Type = Asset.GetTagValueRef<FString>(TEXT("BlueprintType"));
	if (Type == TEXT("BPTYPE_MacroLibrary"))
	{
		for (const FString& Name : NamesIn(Asset, TEXT("Graphs")))
		{
			Lines.Add(MakeLine(
				FName::NameToDisplayString(Name, false), TEXT("Utilities|Macro"), Name, TEXT("K2Node_MacroInstance")));
		}
		return Lines;
	}
	const uint32 OfMember = Type == TEXT("BPTYPE_FunctionLibrary") ? 0u : Member;
	for (const FString& Name : NamesIn(Asset, TEXT("Functions")))
	{
		Lines.Add(MakeLine(FName::NameToDisplayString(Name, false), TEXT("Call Function"), Name,
			TEXT("K2Node_CallFunction"), OfMember));
	}
	for (const FString& Name : NamesIn(Asset, TEXT("Dispatchers")))
	{
		DescribeDispatcher(Name, Lines);
	}
	const FString VariablesIn = Asset.GetTagValueRef<FString>(FPackageText::VariablesInTag);
	for (const FPackageText::FVariable& Variable : FPackageText::ListVariables(VariablesIn))
	{
		DescribeVariable(Variable, Asset, Lines);
	}
	for (const FString& Name : NamesIn(Asset, TEXT("Components")))
	{
		DescribeVariable({Name, TEXT("Components")}, Asset, Lines);
	}
	const FString Cast = TEXT("Cast To ") + Asset.AssetName.ToString();
	Lines.Add(MakeLine(Cast, TEXT("Utilities|Casting"), FString(), TEXT("K2Node_DynamicCast")));
	Lines.Add(MakeLine(Cast + TEXT(" Class"), TEXT("Utilities|Casting"), FString(), TEXT("K2Node_ClassDynamicCast")));
	if (IsBelow(Asset, TEXT("/Script/Engine.ActorComponent")))
	{
		Lines.Add(MakeLine(TEXT("Add ") + FName::NameToDisplayString(Asset.AssetName.ToString(), false),
			TEXT("Add Component"), TEXT("AddComponent"), TEXT("K2Node_AddComponent"), 0, TEXT("/Script/Engine.Actor")));
	}
	return Lines;
}

static void CollectTags(const UObject& Asset, TArray<FPackageText::FTag>& Tags)
{
	const UBlueprint* const Blueprint = Cast<UBlueprint>(&Asset);
	if (!Blueprint)
	{
		return;
	}
	Tags.Add({ActionSources::OffersTag, Form});
	for (FString& Line : ActionSources::DescribeOffers(*const_cast<UBlueprint*>(Blueprint)))
	{
		Tags.Add({ActionSources::OfferTag, MoveTemp(Line)});
	}
}
} // namespace ActionOffers

namespace ActionSources
{
const FName OffersTag(TEXT("Offers"));
const FName OfferTag(TEXT("Offer"));

TArray<FString> DescribeOffers(UBlueprint& Blueprint)
{
	FActionList Actions;
	AddBlueprint(Blueprint, Actions);
	TArray<FString> Lines;
	for (const FBlueprintAction& Action : Actions)
	{
		if (ActionOffers::IsForOthers(Action, Blueprint))
		{
			Lines.Add(ActionOffers::Describe(Action));
		}
	}
	ActionOffers::Discard(Actions);
	return Lines;
}

bool TellsOffers(const FAssetData& Asset)
{
	return Asset.TagsAndValues.Find(ActionOffers::MemberNamesTag)
		|| Asset.GetTagValueRef<FString>(OffersTag).Equals(ActionOffers::Form, ESearchCase::CaseSensitive);
}

FString GetOffers(const FAssetData& Asset)
{
	return Asset.TagsAndValues.Find(ActionOffers::MemberNamesTag)
		? FString::Join(ActionOffers::DescribeByNames(Asset), TEXT("\n"))
		: Asset.GetTagValueRef<FString>(OfferTag);
}

void AddOffers(const FAssetData& Asset, FActionList& Out)
{
	const FString Path = Asset.GetObjectPathString();
	TArray<FString> Lines;
	GetOffers(Asset).ParseIntoArray(Lines, TEXT("\n"), true);
	for (const FString& Line : Lines)
	{
		ActionOffers::AddLine(Path, Line, Out);
	}
}

void TellOffersInFiles()
{
	FPackageText::SetFileTags(&ActionOffers::CollectTags);
}
} // namespace ActionSources

UOfferNodeSpawner* UOfferNodeSpawner::Create(UClass& InNodeClass, const FString& InBlueprintPath)
{
	UOfferNodeSpawner* const Spawner = NewObject<UOfferNodeSpawner>(GetTransientPackageAsObject());
	Spawner->NodeClass = &InNodeClass;
	Spawner->BlueprintPath = InBlueprintPath;
	return Spawner;
}

void UOfferNodeSpawner::Use(TFunctionRef<void(const UBlueprintNodeSpawner&)> Do) const
{
	UBlueprint* const Blueprint = LoadObject<UBlueprint>(nullptr, *BlueprintPath);
	if (!Blueprint)
	{
		return;
	}
	ActionSources::FActionList Actions;
	ActionSources::AddBlueprint(*Blueprint, Actions);
	const auto HasTitle = [this](const FBlueprintAction& Action)
	{
		return Action.NodeClass == NodeClass.Get()
			&& Action.Item->GetMenuDescription().EqualTo(DefaultMenuSignature.MenuName);
	};
	const FBlueprintAction* Found = Actions.FindByPredicate(
		[this, &HasTitle](const FBlueprintAction& Action)
		{
			return HasTitle(Action)
				&& ActionOffers::Clean(Action.Item->GetKeywords())
					   .Equals(DefaultMenuSignature.Keywords.ToString(), ESearchCase::CaseSensitive);
		});
	// Names alone do not tell all keywords.
	Found = Found ? Found : Actions.FindByPredicate(HasTitle);
	if (Found)
	{
		Do(*Found->Item->GetRawAction());
	}
	ActionOffers::Discard(Actions);
}

UEdGraphNode* UOfferNodeSpawner::Invoke(
	UEdGraph* ParentGraph, const FBindingSet& Bindings, const FVector2D Location) const
{
	UEdGraphNode* Node = nullptr;
	Use([&](const UBlueprintNodeSpawner& Spawner) { Node = Spawner.Invoke(ParentGraph, Bindings, Location); });
	return Node;
}

bool UOfferNodeSpawner::AnyPin(FPinVisitor Visit) const
{
	bool bTaken = false;
	Use([&](const UBlueprintNodeSpawner& Spawner) { bTaken = Spawner.AnyPin(Visit); });
	return bTaken;
}
