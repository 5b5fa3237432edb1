#pragma once

#include "RequestReader.h"
#include "Spawning/CamMenuIndex.h"

/** Finds what one request means in one menu. */
class FCamSearch
{
public:
	explicit FCamSearch(const FSharedActionMenu& InMenu);

	/** Best first, as many as are shown. A request whose target is wired may mean a variable of what the wire brings.
	 */
	TArray<FCamCandidate> Find(const FString& MenuTitle, const FString& NodeClass, bool bTargetIsWired = false);
	/** Why nothing was found that exists elsewhere; empty when nothing is known of it. */
	FString Explain(const FString& MenuTitle, const FString& NodeClass);

	/** What the author of a refused request may not know; empty when there is nothing to say. */
	FString Hint(const FString& MenuTitle);

private:
	using FHits = TArray<FKeywordHit>;
	/** What is left to a request that was understood and not found: to be shown, not to be spawned. */
	static constexpr float Unsure = 0.3f;

	/**
	 * Of what is like a refused request, what could have been meant: near names of what the Blueprint has and of
	 * classes first, each title once.
	 */
	void KeepNear(const FString& MenuTitle, FHits& InOutHits);
	/** Those that fit by chance alone come last, but for the best. */
	static void PutFarLast(FHits& InOutHits);
	void PutInFront(const FHits& Near, FHits& InOutHits) const;
	/** Casts to classes and Blueprints whose names are near. */
	FHits FindNearCasts(const FString& Name) const;
	/** Accessors of variables whose names are near. */
	FHits FindNearVariables(const FString& Verb, const FString& Name);

	FHits FindHits(const FString& MenuTitle, const FString& NodeClass, bool bTargetIsWired);
	/** What was named as a whole, by the request as it stands or by a reading of it; empty when nothing was. */
	FHits FindNamed(const FString& MenuTitle, const FString& NodeClass, FRequestReadings& OutReadings);
	/** Whether the best is titled as the request is written; of a class that is not at hand, letter by letter. */
	bool IsWordForWord(const FHits& Hits, const FString& MenuTitle) const;
	/** "Get Item" is not the variable "Items", though a title's plural matters little elsewhere. */
	bool IsOfOtherNumber(int32 Entry, const FString& Title) const;
	/** Those whose title is named as a whole. */
	FHits FindTitled(const FString& Title, const FString& NodeClass) const;
	FHits FindReading(const FRequestReading& Reading);
	/** Structs whose making and breaking is a function's have no node of their own for it. */
	FHits FindStructFunction(const FString& Title);
	FHits FindMembers(const FString& Name, const FRequestReading& Reading);
	/** Of several of one name: the Blueprint's own, then its parents', then libraries', then the rest. */
	void PutOwnFirst(FHits& InOutHits) const;
	/** A title that differs in one letter goes first. */
	void PutSlipFirst(const FString& MenuTitle, FHits& InOutHits) const;
	/** Whether the entry is of the class and the kind that were read, and has the pins. */
	bool Fits(int32 Entry, const FRequestReading& Reading) const;
	/** Whether the entry cannot be had of another object than this Blueprint's. */
	bool IsOfNoOther(int32 Entry, const FString& NodeClass, const FRequestReading& Reading) const;
	bool HasPins(int32 Entry, const FString& PinWords) const;
	bool HasOwner(int32 Entry, const FString& Owner) const;
	/** Whether the best is one of several titles that have the words by chance. */
	bool IsAmbiguous(const FHits& Hits) const;
	/** The name of a class, a struct or an enum alone says nothing about what is done with it. */
	bool IsTypeName(const FString& Text) const;
	/** Of the function that the graph is of, or of the Blueprint and its parents. */
	FRequestVariable FindVariable(const FString& Name);
	FString ExplainVariable(const FString& MenuTitle, const FString& NodeClass);
	FString ExplainGraph(const FString& MenuTitle, const FString& NodeClass);

	const FSharedActionMenu& Menu;
	FCamMenuIndex& Index;
	FRequestScope Scope;
	/** The function's own variables, looked up when the first is asked for. */
	TArray<FRequestVariable> Locals;
	bool bLocalsKnown = false;
};
