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

private:
	using FHits = TArray<FKeywordHit>;

	FHits FindHits(const FString& MenuTitle, const FString& NodeClass, bool bTargetIsWired);
	/** What was named as a whole, by the request as it stands or by a reading of it; empty when nothing was. */
	FHits FindNamed(const FString& MenuTitle, const FString& NodeClass, FRequestReadings& OutReadings);
	FHits FindReading(const FRequestReading& Reading);
	/** Structs whose making and breaking is a function's have no node of their own for it. */
	FHits FindStructFunction(const FString& Title);
	FHits FindMembers(const FString& Name, const FRequestReading& Reading);
	/** Of several of one name: the Blueprint's own, then its parents', then libraries', then the rest. */
	void PutOwnFirst(FHits& InOutHits) const;
	/** A title that differs in one letter goes first. */
	void PutSlipFirst(const FString& MenuTitle, FHits& InOutHits) const;
	bool HasOwner(int32 Entry, const FString& Owner) const;
	/** Whether the best is one of several titles that have the words by chance. */
	bool IsAmbiguous(const FHits& Hits) const;
	/** The name of a class, a struct or an enum alone says nothing about what is done with it. */
	bool IsTypeName(const FString& Text) const;
	FString GetVariableKind(const FString& Name) const;
	FString ExplainVariable(const FString& MenuTitle, const FString& NodeClass);
	FString ExplainGraph(const FString& MenuTitle, const FString& NodeClass);

	const FSharedActionMenu& Menu;
	FCamMenuIndex& Index;
	FRequestScope Scope;
};
