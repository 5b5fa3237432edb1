#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

/**
 * What references name and is not there: a class whose plugin is absent, an asset that was deleted or never checked
 * out. No reference is forgotten for that. It leads to a stand-in: a type without members, or an empty object, at the
 * missing one's path. No search finds a stand-in, no walk over objects of a class meets it and no file holds it, so
 * that nothing new can be built on it; references to it are written as the text that they were read from.
 *
 * When the missing thing comes, by a load or by being made, every reference to the stand-in is turned to it. The owners
 * of changed references are told to the listeners, which rebuild what they derive from them.
 */
class FMissingObjects
{
public:
	/** While one lives, references that are read stood before: what they name and is not there gets a stand-in. */
	class FScope
	{
	public:
		FScope();
		~FScope();
		FScope(const FScope&) = delete;
		FScope& operator=(const FScope&) = delete;
	};
	static bool IsKeeping();

	static bool IsMissing(const UObject* Object);
	/** The nearest class in the line of parents, the class itself included, that is missing; null when none is. */
	static const UClass* FindMissingParent(const UClass* Class);

	/**
	 * The stand-in for a reference. ClassPath is the class in front of the path, empty when the text had none; Kind is
	 * what the reference may lead to, Base what a class must descend from (may be null). Null for a path that no object
	 * can have, and for one in the package of Owner: what is missing there is damage to that file.
	 */
	static UObject* StandInFor(
		FStringView ClassPath, FStringView Path, const UClass* Kind, const UClass* Base, const UObject* Owner);
	/** The stand-in for the class of an object. Base has the C++ type that the objects of it shall be. */
	static UClass* StandInForClass(FStringView Path, UClass& Base, FStringView ClassPath = FStringView());
	/** The stand-in for an object that is being deleted. */
	static UObject* StandInForDeleted(UObject& Deleted);

	/** Paths that stand-ins were asked for since the last call, in that order. */
	static TArray<FString> TakeAsked();

	/** Turns references to whatever is there by now. Cheap while nothing is missing. */
	static void Bind();
	/** As Bind, after looking for files of what is missing. */
	static void LoadAndBind();
	/** For what was just deleted: references to it lead to stand-ins from now on, objects of its classes become objects
	 * of those. References that are not worth keeping, such as those of menus, are cleared. */
	static void ReplaceDeleted();

	/** Visits references of an object that its properties do not tell, as those of a node's pins. */
	using FVisitExtra = void (*)(UObject& Owner, TFunctionRef<void(UObject*&)> Visit);
	static void AddReferences(FVisitExtra Visit);
	/** Told of each object whose references changed, once for all of its changes. */
	using FOnChanged = void (*)(UObject& Owner);
	static void AddListener(FOnChanged Listener);

	/** Visits every reference of an object, weak ones too; Visit may put another in its place. */
	static void VisitReferences(UObject& Owner, TFunctionRef<void(UObject*&)> Visit);
};
