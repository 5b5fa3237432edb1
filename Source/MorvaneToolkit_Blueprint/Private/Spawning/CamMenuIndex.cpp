#include "Spawning/CamMenuIndex.h"

#include "AssetOperationBase.h"
#include "BlueprintActionMenuItem.h"
#include "BlueprintDelegateNodeSpawner.h"
#include "BlueprintEventNodeSpawner.h"
#include "BlueprintFunctionNodeSpawner.h"
#include "BlueprintNodeSpawner.h"
#include "BlueprintVariableNodeSpawner.h"
#include "Engine/Blueprint.h"
#include "NameLetters.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"

#include <algorithm>

namespace CamMenuIndex
{
static const UBlueprintNodeSpawner* GetSpawner(const FEdGraphSchemaAction& Action)
{
	return Action.GetTypeId() == FBlueprintActionMenuItem::StaticGetTypeId()
		? static_cast<const FBlueprintActionMenuItem&>(Action).GetRawAction()
		: nullptr;
}

static FString GetNodeClassName(const FEdGraphSchemaAction& Action, const FString& Title)
{
	if (Action.GetTypeId() == FBlueprintActionMenuItem::StaticGetTypeId())
	{
		const UBlueprintNodeSpawner* const Spawner = GetSpawner(Action);
		return Spawner && Spawner->NodeClass ? Spawner->NodeClass->GetName() : FString();
	}
	if (Action.GetTypeId() == FEdGraphSchemaAction_NewNode::StaticGetTypeId())
	{
		// Known by their titles: what template a comment action carries is the schema's own business.
		if (Title.Equals(TEXT("Create Comment from Selection"), ESearchCase::IgnoreCase)
			|| Title.Equals(TEXT("Add Comment"), ESearchCase::IgnoreCase))
		{
			return TEXT("EdGraphNode_Comment");
		}
		const UEdGraphNode* const Template = static_cast<const FEdGraphSchemaAction_NewNode&>(Action).NodeTemplate;
		return Template ? Template->GetClass()->GetName() : FString();
	}
	return FString();
}

static const UClass* GetMemberOwner(const UBlueprintNodeSpawner* Spawner)
{
	if (const auto* const OfFunction = Cast<UBlueprintFunctionNodeSpawner>(Spawner))
	{
		const UFunction* const Function = OfFunction->GetFunction();
		return Function ? Function->GetOwnerClass() : nullptr;
	}
	if (const auto* const OfVariable = Cast<UBlueprintVariableNodeSpawner>(Spawner))
	{
		const FProperty* const Property = OfVariable->GetVarProperty();
		return Property ? Property->GetOwnerClass() : nullptr;
	}
	if (const auto* const OfDelegate = Cast<UBlueprintDelegateNodeSpawner>(Spawner))
	{
		const FMulticastDelegateProperty* const Property = OfDelegate->GetDelegateProperty();
		return Property ? Property->GetOwnerClass() : nullptr;
	}
	if (const auto* const OfEvent = Cast<UBlueprintEventNodeSpawner>(Spawner))
	{
		const UFunction* const Event = OfEvent->GetEventFunction();
		return Event ? Event->GetOwnerClass() : nullptr;
	}
	return nullptr;
}

/** Of the title, of what the class name means where it stands for a title, and of the class name itself. */
static TArray<FString> MakeRequestKeywords(const FString& MenuTitle, const FString& ClassName)
{
	TArray<FString> Keywords = FAssetOperationBase::CreateKeywords(MenuTitle);
	const auto AddKeywordsOf = [&Keywords](const TCHAR* Title)
	{
		for (const FString& Keyword : FAssetOperationBase::CreateKeywords(Title))
		{
			Keywords.AddUnique(Keyword);
		}
	};
	if (ClassName.Equals(TEXT("Self"), ESearchCase::IgnoreCase))
	{
		AddKeywordsOf(TEXT("Get a reference to self"));
	}
	if (ClassName.Equals(TEXT("MathExpression"), ESearchCase::IgnoreCase)
		|| ClassName.Equals(TEXT("K2Node_MathExpression"), ESearchCase::IgnoreCase))
	{
		AddKeywordsOf(TEXT("Add Math Expression"));
	}
	if (!ClassName.IsEmpty())
	{
		Keywords.Add(ClassName);
		FAssetOperationBase::AppendKeywords(ClassName, Keywords);
	}
	return Keywords;
}

/** Members are asked for with and without what the engine puts in front. */
static FStringView WithoutPrefix(FStringView Member)
{
	for (const FStringView Prefix : {FStringView(TEXT("K2_")), FStringView(TEXT("Receive"))})
	{
		if (Member.Len() > Prefix.Len() && Member.StartsWith(Prefix, ESearchCase::CaseSensitive))
		{
			return Member.RightChop(Prefix.Len());
		}
	}
	return Member;
}

/** The name of the action's member without prefix: its search words begin with it. Lives as long as the action. */
static FStringView GetMember(const FEdGraphSchemaAction& Action)
{
	const FStringView Words(Action.GetKeywords().ToString());
	int32 Blank = INDEX_NONE;
	return WithoutPrefix(Words.FindChar(TEXT(' '), Blank) ? Words.Left(Blank) : Words);
}

/** Of the letters, whatever their case. */
static uint32 GetHash(FStringView Name)
{
	uint32 Hash = 2166136261u;
	for (const TCHAR Char : Name)
	{
		Hash = (Hash ^ static_cast<uint32>(FChar::ToLower(Char))) * 16777619u;
	}
	return Hash;
}

/** "bIsOpen" is shown as "Is Open". */
static FString WithoutFlagLetter(const FString& Name)
{
	const bool bFlag = Name.Len() > 1 && Name[0] == TEXT('b') && FChar::IsUpper(Name[1]);
	return bFlag ? Name.RightChop(1) : Name;
}

static bool IsOfEditor(const UClass& Class)
{
	const FString Package = Class.GetOutermost()->GetName();
	return Package.Contains(TEXT("Editor"), ESearchCase::CaseSensitive)
		|| Package.Contains(TEXT("Blutility"), ESearchCase::CaseSensitive);
}

static bool IsLibrary(const UClass& Class)
{
	const UClass* Super = &Class;
	while (Super && !Super->GetName().Equals(TEXT("BlueprintFunctionLibrary"), ESearchCase::CaseSensitive))
	{
		Super = Super->GetSuperClass();
	}
	return Super && !IsOfEditor(Class);
}
/** Whether Blueprints of games have objects of the class to do with: components, actors, widgets and what they hold. */
static bool IsAtHand(const UClass& Class)
{
	static const TSet<FString> Families = {TEXT("ActorComponent"), TEXT("Actor"), TEXT("Widget"),
		TEXT("MaterialInterface"), TEXT("SaveGame"), TEXT("GameInstance"), TEXT("Subsystem"), TEXT("LevelStreaming"),
		TEXT("Interface")};
	const UClass* Super = &Class;
	while (Super && !Families.Contains(Super->GetName()))
	{
		Super = Super->GetSuperClass();
	}
	const bool bOwnWidget = Class.GetName().Equals(TEXT("UserWidget"), ESearchCase::CaseSensitive)
		|| Class.GetName().Equals(TEXT("HUD"), ESearchCase::CaseSensitive);
	return Super && !IsOfEditor(Class) && !bOwnWidget && !Class.GetOutermost()->GetName().Contains(TEXT("Testing"));
}

/** Tasks run on owners of tasks and in abilities; elsewhere their titles are in the way of everyday nodes. */
static bool IsTask(const FString& NodeClass)
{
	return NodeClass.Equals(TEXT("K2Node_LatentAbilityCall"), ESearchCase::CaseSensitive)
		|| NodeClass.Equals(TEXT("K2Node_LatentGameplayTaskCall"), ESearchCase::CaseSensitive);
}

/** Whether the Blueprint has no use for the action while there is another. */
static bool ComesLast(const FEdGraphSchemaAction& Action, const FString& NodeClass, const UClass* SelfClass)
{
	if (NodeClass.Equals(TEXT("K2Node_VariableGet"), ESearchCase::CaseSensitive)
		|| NodeClass.Equals(TEXT("K2Node_VariableSet"), ESearchCase::CaseSensitive))
	{
		const UClass* const Owner = GetMemberOwner(GetSpawner(Action));
		return Owner && SelfClass && !SelfClass->IsChildOf(Owner);
	}
	return IsTask(NodeClass);
}
} // namespace CamMenuIndex

FCamMenuIndex& FCamMenuIndex::For(const FSharedActionMenu& InMenu)
{
	static FCamMenuIndex Slots[2];
	FCamMenuIndex& Index = Slots[InMenu.IsBeside() ? 1 : 0];
	Index.Menu = &InMenu;
	if (Index.Serial != InMenu.GetSerial())
	{
		Index.Take(InMenu);
	}
	return Index;
}

const TArray<FKeywordHit>& FCamMenuIndex::FindBest(const FString& MenuTitle, const FString& ClassName)
{
	const FString Request = MenuTitle + TEXT("\n") + ClassName;
	if (const TArray<FKeywordHit>* const Known = KnownHits.Find(Request))
	{
		return *Known;
	}
	if (KnownHits.Num() >= MaxKnownHits)
	{
		KnownHits.Reset();
	}
	return KnownHits.Add(Request,
		Keywords.FindBest(CamMenuIndex::MakeRequestKeywords(MenuTitle, ClassName),
			FAssetOperationBase::CreateKeywords(MenuTitle), MaxHits));
}

TArray<FKeywordHit> FCamMenuIndex::FindNamed(const FString& MenuTitle, const FString& ClassName, bool bOfLast) const
{
	return Keywords.FindNamed(CamMenuIndex::MakeRequestKeywords(MenuTitle, ClassName),
		FAssetOperationBase::CreateKeywords(MenuTitle), bOfLast);
}

TArray<int32> FCamMenuIndex::FindMembers(const FString& Name)
{
	using namespace CamMenuIndex;

	if (!bMembersKnown)
	{
		TakeMembers();
	}
	const FString Bare = Name.Replace(TEXT(" "), TEXT(""), ESearchCase::CaseSensitive);
	const FStringView Asked = WithoutPrefix(FStringView(Bare));
	TArray<int32> Entries;
	const FMember* const First = Members.GetData();
	const FMember* const End = First + Members.Num();
	for (const FMember* Member = std::lower_bound(First, End, FMember(GetHash(Asked), 0));
		 !Asked.IsEmpty() && Member != End && Member->Key == GetHash(Asked); ++Member)
	{
		if (GetMember(GetAction(Member->Value)).Equals(Asked, ESearchCase::IgnoreCase))
		{
			Entries.Add(Member->Value);
		}
	}
	return Entries;
}

void FCamMenuIndex::TakeMembers()
{
	using namespace CamMenuIndex;

	Members.Reset();
	for (int32 Entry = 0; Entry < ActionByEntry.Num(); ++Entry)
	{
		const FStringView Member = ComesLast[Entry] ? FStringView() : GetMember(GetAction(Entry));
		if (!Member.IsEmpty())
		{
			Members.Emplace(GetHash(Member), Entry);
		}
	}
	std::sort(Members.GetData(), Members.GetData() + Members.Num());
	bMembersKnown = true;
}

const FEdGraphSchemaAction& FCamMenuIndex::GetAction(int32 Entry) const
{
	return *Menu->GetActionAt(ActionByEntry[Entry]);
}

FCamCandidate FCamMenuIndex::MakeCandidate(const FKeywordHit& Hit) const
{
	FCamCandidate Candidate;
	Candidate.Action = Menu->GetActionAt(ActionByEntry[Hit.Entry]);
	Candidate.MenuTitle = Candidate.Action->GetMenuDescription().ToString();
	Candidate.MenuCategory = Candidate.Action->GetCategory().ToString();
	Candidate.NodeClass = CamMenuIndex::GetNodeClassName(*Candidate.Action, Candidate.MenuTitle);
	Candidate.CommonKeywords = Hit.Similarity;
	Candidate.Confidence = Hit.Confidence;
	return Candidate;
}

FString FCamMenuIndex::GetNodeClass(int32 Entry) const
{
	const FEdGraphSchemaAction& Action = GetAction(Entry);
	return CamMenuIndex::GetNodeClassName(Action, Action.GetMenuDescription().ToString());
}

const UFunction* FCamMenuIndex::GetFunction(int32 Entry) const
{
	const auto* const Spawner = Cast<UBlueprintFunctionNodeSpawner>(CamMenuIndex::GetSpawner(GetAction(Entry)));
	return Spawner ? Spawner->GetFunction() : nullptr;
}

const FProperty* FCamMenuIndex::FindVariable(const FString& Name)
{
	const UClass* const SelfClass = GetSelfClass();
	if (!SelfClass || Name.IsEmpty())
	{
		return nullptr;
	}
	if (VariableByLetters.IsEmpty())
	{
		for (TFieldIterator<FProperty> It(SelfClass); It; ++It)
		{
			const FString Own = It->GetName();
			VariableByLetters.FindOrAdd(GetNameLetters(Own), It->GetFName());
			const FString Bare = CamMenuIndex::WithoutFlagLetter(Own);
			VariableByLetters.FindOrAdd(GetNameLetters(Bare), It->GetFName());
		}
	}
	for (const FString& Spelling : {Name, CamMenuIndex::WithoutFlagLetter(Name)})
	{
		if (const FName* const Known = VariableByLetters.Find(GetNameLetters(Spelling)))
		{
			return SelfClass->FindPropertyByName(*Known);
		}
	}
	return nullptr;
}

bool FCamMenuIndex::AreSameName(const FString& Name, const FString& Asked)
{
	using namespace CamMenuIndex;

	const FString Bare = GetNameLetters(WithoutFlagLetter(Name));
	const FString Letters = GetNameLetters(Asked);
	return !Letters.IsEmpty()
		&& (Letters.Equals(GetNameLetters(Name)) || Letters.Equals(Bare)
			|| GetNameLetters(WithoutFlagLetter(Asked)).Equals(Bare));
}

TArray<FName> FCamMenuIndex::GetOwnVariables() const
{
	TArray<FName> Names;
	const UClass* const SelfClass = GetSelfClass();
	for (TFieldIterator<FProperty> It(SelfClass); It && SelfClass; ++It)
	{
		if (It->GetOwnerClass() == SelfClass)
		{
			Names.Add(It->GetFName());
		}
	}
	return Names;
}

const UClass* FCamMenuIndex::GetOwner(int32 Entry) const
{
	return CamMenuIndex::GetMemberOwner(CamMenuIndex::GetSpawner(GetAction(Entry)));
}

int32 FCamMenuIndex::GetOwnerRank(int32 Entry) const
{
	const UClass* const Owner = GetOwner(Entry);
	if (!Owner)
	{
		return 2;
	}
	const UClass* const SelfClass = GetSelfClass();
	if (SelfClass && Owner->GetOutermost() == SelfClass->GetOutermost())
	{
		return 0;
	}
	if (SelfClass && SelfClass->IsChildOf(Owner))
	{
		return 1;
	}
	return CamMenuIndex::IsLibrary(*Owner) ? 2 : 3;
}

bool FCamMenuIndex::IsOfStranger(int32 Entry) const
{
	const UClass* const Owner = GetOwner(Entry);
	return Owner && GetOwnerRank(Entry) > 2 && !CamMenuIndex::IsAtHand(*Owner);
}

const UClass* FCamMenuIndex::GetSelfClass() const
{
	const UBlueprint* const Blueprint = Menu->GetBlueprint();
	return Blueprint ? Blueprint->SkeletonGeneratedClass.Get() : nullptr;
}

void FCamMenuIndex::Take(const FSharedActionMenu& InMenu)
{
	Keywords.Reset();
	KnownHits.Reset();
	ActionByEntry.Reset();
	ComesLast.Reset();
	bMembersKnown = false;
	VariableByLetters.Reset();
	const UClass* const SelfClass = GetSelfClass();
	for (int32 Index = 0; Index < InMenu.GetNumActions(); ++Index)
	{
		const TSharedPtr<FEdGraphSchemaAction> Action = InMenu.GetActionAt(Index);
		const FString Title = Action ? Action->GetMenuDescription().ToString() : FString();
		if (!Title.IsEmpty())
		{
			const FString NodeClass = CamMenuIndex::GetNodeClassName(*Action, Title);
			ComesLast.Add(CamMenuIndex::ComesLast(*Action, NodeClass, SelfClass));
			Keywords.Add(Title, Action->GetCategory().ToString(), NodeClass, ComesLast.Last());
			ActionByEntry.Add(Index);
		}
	}
	Serial = InMenu.GetSerial();
}
