#pragma once

#include "CoreMinimal.h"

class FCompilerResultsLog;
class UEdGraphNode;
class UObject;

/**
 * What a Blueprint uses that is not here through no fault of its own: classes of a plug-in or of the project's own
 * code, content of a plug-in, and content beside that of the engine's editor, of which a checkout need not have all.
 * Each is told once, as a warning, whatever uses it, and what uses it is not judged. Anything else that is missing is
 * an error of whoever refers to it.
 */
class FUnresolvedUse
{
public:
	/** Whether the thing is missing and that is excused. */
	bool IsExcused(const UObject* Object);
	/** As IsExcused, and counts the use; the node is null where a declaration uses it. */
	bool Note(const UObject* Object, const UEdGraphNode* Node = nullptr);
	/** A node of a class that is not known. */
	void NoteNodeOf(const FString& ClassPath, const UEdGraphNode& Node) { Count(NodeClasses, ClassPath, &Node); }
	void Tell(FCompilerResultsLog& Log) const;

private:
	struct FUses
	{
		int32 Num = 0;
		const UEdGraphNode* FirstNode = nullptr;
	};
	static void Count(TMap<FString, FUses>& Uses, const FString& Path, const UEdGraphNode* Node);

	TMap<FString, FUses> Types;
	TMap<FString, FUses> NodeClasses;
	/** Roots of content that was asked for, with whether all of it would be here. */
	TMap<FString, bool> WholeRoots;
};
