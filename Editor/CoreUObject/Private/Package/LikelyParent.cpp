#include "Package/LikelyParent.h"

#include "Standalone/ObjectText.h"
#include "UObject/Class.h"

#include <set>
#include <unordered_map>
#include <vector>

namespace LikelyParent
{
using FView = std::string_view;

/** The parent of the kind of asset; a plug-in's kind goes by the end of its name. */
static const TCHAR* BaseOfKind(const FString& AssetClassPath)
{
	if (AssetClassPath.EndsWith(TEXT("EditorUtilityWidgetBlueprint"), ESearchCase::CaseSensitive))
	{
		return TEXT("/Script/Blutility.EditorUtilityWidget");
	}
	if (AssetClassPath.EndsWith(TEXT("WidgetBlueprint"), ESearchCase::CaseSensitive))
	{
		return TEXT("/Script/UMG.UserWidget");
	}
	if (AssetClassPath.EndsWith(TEXT("AnimBlueprint"), ESearchCase::CaseSensitive))
	{
		return TEXT("/Script/Engine.AnimInstance");
	}
	return TEXT("/Script/CoreUObject.Object");
}

/** The class of "MemberParent=...Class'/Script/X.Y'"; empty where the reference names none, or its own. */
static FView MemberParentOf(FView Reference)
{
	constexpr FView Key = "MemberParent=";
	const std::size_t At = Reference.find(Key);
	const std::size_t Open = At == FView::npos ? At : Reference.find('\'', At + Key.size());
	const std::size_t Close = Open == FView::npos ? Open : Reference.find('\'', Open + 1);
	if (Close == FView::npos || Reference.find("bSelfContext=True") != FView::npos
		|| Reference.substr(At, Open - At).find(',') != FView::npos)
	{
		return FView();
	}
	return Reference.substr(Open + 1, Close - Open - 1);
}

/** The class on the target of a node that is about its own Blueprint: the one that declares the member. */
static FView DeclarerOf(const FObjectTextRecord& Record)
{
	bool bOwn = false;
	for (const FObjectTextLine& Line : Record.Lines)
	{
		bOwn |= Line.Name.ends_with("Reference") && Line.Value.find("bSelfContext=True") != FView::npos;
		if (bOwn && Line.bCustom && Line.Value.find("PinName=\"self\"") != FView::npos)
		{
			constexpr FView Key = "PinSubCategoryObject=";
			const std::size_t At = Line.Value.find(Key);
			const std::size_t Open = At == FView::npos ? At : Line.Value.find('\'', At);
			const std::size_t Close = Open == FView::npos ? Open : Line.Value.find('\'', Open + 1);
			const bool bNamed = Close != FView::npos && Line.Value.substr(At, Open - At).find(',') == FView::npos;
			return bNamed ? Line.Value.substr(Open + 1, Close - Open - 1) : FView();
		}
	}
	return FView();
}

static bool IsOpenTarget(const FObjectTextLine& Line)
{
	return Line.bCustom && Line.Value.find("PinName=\"self\"") != FView::npos
		&& Line.Value.find("LinkedTo=(") == FView::npos && Line.Value.find("DefaultObject=") == FView::npos
		&& Line.Value.find("bHidden=True") == FView::npos && Line.Value.find("EGPD_Output") == FView::npos;
}

class FSearch
{
public:
	explicit FSearch(UClass* InBest)
		: Best(InBest)
	{
	}

	void Look(const FObjectTextRecord& Record)
	{
		FView Member;
		bool bOpen = false;
		bool bOverrides = false;
		for (const FObjectTextLine& Line : Record.Lines)
		{
			const bool bReference = Line.Name == "EventReference" || Line.Name == "FunctionReference"
				|| Line.Name == "VariableReference" || Line.Name == "DelegateReference";
			Member = bReference ? MemberParentOf(Line.Value) : Member;
			bOpen |= IsOpenTarget(Line);
			bOverrides |= Line.Name == "bOverrideFunction" && Line.Value == "True";
		}
		if ((bOpen || bOverrides) && !Member.empty())
		{
			(bOverrides ? Sure : Likely).push_back(Member);
		}
		if (const FView Declarer = DeclarerOf(Record); !Declarer.empty())
		{
			Sure.push_back(Declarer);
			Declarers.insert(Declarer);
		}
		for (const FObjectTextRecord& Inner : Record.Inner)
		{
			Look(Inner);
		}
	}

	/** What the class overrides and what its own members are declared by tell for sure; a call without a target may be
	 * one that its author has not linked yet. */
	UClass* FindBest()
	{
		for (const std::vector<FView>* const Paths : {&Sure, &Likely})
		{
			for (const FView Path : *Paths)
			{
				Take(Path);
			}
		}
		return Best;
	}

	std::set<FView> Declarers;

private:
	UClass* Best;
	std::vector<FView> Sure;
	std::vector<FView> Likely;

	void Take(FView Path)
	{
		const auto [Entry, bAdded] = Known.try_emplace(Path, nullptr);
		if (bAdded)
		{
			Entry->second = FindObject<UClass>(nullptr, FromUtf8(Path));
		}
		UClass* const Class = Entry->second;
		if (Class && !Class->HasAnyClassFlags(CLASS_Interface) && Class->IsChildOf(Best))
		{
			Best = Class;
		}
	}

	std::unordered_map<FView, UClass*> Known;
};

static bool HasComponents(const FObjectTextTree& Tree)
{
	for (const FObjectTextRecord& Record : Tree.Objects)
	{
		for (const FObjectTextRecord& Inner : Record.Inner)
		{
			if (Inner.ClassPath == "/Script/Engine.SimpleConstructionScript")
			{
				return true;
			}
		}
	}
	return false;
}

FLine Find(const FObjectTextTree& Tree, const FString& AssetClassPath)
{
	const TCHAR* Base = BaseOfKind(AssetClassPath);
	const bool bPlain = FStringView(Base).EndsWith(TEXT(".Object"));
	UClass* const Kind = FindObject<UClass>(
		nullptr, bPlain && HasComponents(Tree) ? TEXT("/Script/Engine.Actor") : Base);
	FSearch Search(Kind ? Kind : UObject::StaticClass());
	for (const FObjectTextRecord& Record : Tree.Objects)
	{
		Search.Look(Record);
	}
	FLine Line{Search.FindBest(), {}};
	for (const FView Declarer : Search.Declarers)
	{
		if (Declarer.starts_with("/Script/") && !FindObject<UClass>(nullptr, FromUtf8(Declarer)))
		{
			Line.Unknown.Add(FromUtf8(Declarer));
		}
	}
	return Line;
}
} // namespace LikelyParent
