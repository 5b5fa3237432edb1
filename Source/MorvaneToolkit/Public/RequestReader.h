#pragma once

#include "CoreMinimal.h"

/** One thing that a request may mean, in the menu's own words. */
struct FRequestReading
{
	/** A title, a member's name, or both at once: "Delay", "SetVisibility". */
	FString Title;
	/** The class that has the member, as the author wrote it; empty for any. */
	FString Owner;
	/** Whether only an action of that very name will do. Otherwise one that is near enough will. */
	bool bWhole = true;
};

/** What a request was found to say. */
struct FRequestReadings
{
	/** By falling likelihood. The request as it was written is not among them. */
	TArray<FRequestReading> Readings;
	/** Whether the request was understood: if no reading is there, what is like it is something else. */
	bool bOnlyReadings = false;
	/** Whether it was code, which is like a title by chance alone. */
	bool bCode = false;
};

/** What the reader may ask about the Blueprint that a request is for. */
struct FRequestScope
{
	/**
	 * The kind of a variable of the Blueprint: "array", "map", "set", "string", "text", "vector", "rotator", "boolean",
	 * "dispatcher", the name of its class, "value" for the rest; empty when there is no such variable.
	 */
	TFunction<FString(const FString& Name)> GetVariableKind;
};

/**
 * Reads requests as authors write them who know the editor or a language, but not the titles of the menu: calls with
 * their arguments, qualified names, operators with operands, casts, loops, declarations, and plain words.
 */
class MORVANETOOLKIT_API FRequestReader
{
public:
	static FRequestReadings Read(const FString& Text, const FRequestScope& Scope);
	/** Whether a node class has one title, so that it says what is meant and the text is for the node to read. */
	static bool IsOfOneTitle(const FString& NodeClass);
	/** What the node class, where it is one of a family, makes of a bare name: "Set Health" of a variable set. */
	static TArray<FRequestReading> ReadAsMember(const FString& Text, const FString& NodeClass);
};
