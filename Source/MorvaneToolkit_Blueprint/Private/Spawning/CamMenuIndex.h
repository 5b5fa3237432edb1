#pragma once

#include "KeywordIndex.h"
#include "Spawning/CamMatching.h"

class FProperty;
class UClass;
class UFunction;

/**
 * The keywords, members and owners of a menu. Menus of different runs are nearly the same, so what was learned about
 * their texts is kept for the next; answers depend on the menu alone.
 */
class FCamMenuIndex
{
public:
	/** Two are kept: a function graph's menu is asked beside the event graph's. */
	static FCamMenuIndex& For(const FSharedActionMenu& Menu);

	/** Runs repeat their requests, so the answers to the last ones are kept. */
	const TArray<FKeywordHit>& FindBest(const FString& MenuTitle, const FString& ClassName);
	/** Those alone whose title is named as a whole: of those that the Blueprint has no use for, or of the others. */
	TArray<FKeywordHit> FindNamed(const FString& MenuTitle, const FString& ClassName, bool bOfLast = false) const;
	/** The entries of a function or an event by its name, which agents know better than titles; variables of other
	 * classes are none. */
	TArray<int32> FindMembers(const FString& Name);

	/** How many entries there are. */
	int32 Num() const { return ActionByEntry.Num(); }
	/** The names of the variables that the Blueprint itself has. */
	TArray<FName> GetOwnVariables() const;
	const FEdGraphSchemaAction& GetAction(int32 Entry) const;
	FCamCandidate MakeCandidate(const FKeywordHit& Hit) const;
	FString GetNodeClass(int32 Entry) const;
	/** The function that the action calls; null for actions that call none. */
	const UFunction* GetFunction(int32 Entry) const;
	/** A variable of the Blueprint by its name, whatever its case, its blanks and a leading "b"; null for none. */
	const FProperty* FindVariable(const FString& Name);
	/** Whether a variable of the first name is asked for by the second: case, blanks and a leading "b" do not matter.
	 */
	static bool AreSameName(const FString& Name, const FString& Asked);
	/** The class that has the action's member; null for actions of no member. */
	const UClass* GetOwner(int32 Entry) const;
	/**
	 * Whether it is a member of a class that a Blueprint of a game hardly has an object of: of the editor's, of tests,
	 * of what the engine keeps to itself.
	 */
	bool IsOfStranger(int32 Entry) const;
	/** 0 for a member of the Blueprint itself, then its parents', libraries', the rest. */
	int32 GetOwnerRank(int32 Entry) const;

private:
	void TakeMembers();
	void Take(const FSharedActionMenu& InMenu);
	/** Asked for anew, as the class is built anew with every change. */
	const UClass* GetSelfClass() const;

	static constexpr int32 MaxKnownHits = 1000;
	/** More than are shown, so that all of one title are among them. */
	static constexpr int32 MaxHits = 96;

	FKeywordIndex Keywords;
	/** By title and class name as they are spelled, since case tells where words begin. */
	TMapByKeywordText<TArray<FKeywordHit>> KnownHits;
	/** The place in the menu of each entry: untitled actions are no entries. */
	TArray<int32> ActionByEntry;
	/** Whether the Blueprint has no use for the entry while there is another. */
	TArray<bool> ComesLast;
	/** Entries by the hash of their members' names, in order; made when the first is asked for. */
	using FMember = TPair<uint32, int32>;
	TArray<FMember> Members;
	bool bMembersKnown = false;
	/** Names of variables by their letters, made when first asked for. */
	TMap<FString, FName> VariableByLetters;
	/** Of the current call's menu: entries are asked about only while it is there. */
	const FSharedActionMenu* Menu = nullptr;
	/** 0: no menu yet. */
	uint64 Serial = 0;
};
