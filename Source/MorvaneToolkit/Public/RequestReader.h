#pragma once

#include "CoreMinimal.h"

/** How near a title has to be to what was read. */
enum class ERequestFit : uint8
{
	/** Named as a whole. */
	Whole,
	/** With every word that was read, and hardly any other. */
	Close,
	/** As near as a request has to be that is not read at all. */
	Near,
};

/** One thing that a request may mean, in the menu's own words. */
struct FRequestReading
{
	/** A title, a member's name, or both at once: "Delay", "SetVisibility". */
	FString Title;
	/** The class that has the member, as the author wrote it; empty for any. */
	FString Owner;
	ERequestFit Fit = ERequestFit::Whole;
	/** The node class that is meant; empty for any. */
	FString NodeClass = FString();
	/** What was said of its pins behind the title: the action must have such pins. Empty when nothing was. */
	FString PinWords = FString();
	/** Asked of another object: a variable of this Blueprint is not meant, however well it is named. */
	bool bOfAnother = false;
	/** What it is called on then. */
	FString Receiver = FString();
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

/** A variable of the Blueprint that a request is for; the name is empty when there is none. */
struct FRequestVariable
{
	FString Name;
	/**
	 * "array", "map", "set", "string", "text", "vector", "rotator", "boolean", "dispatcher", the name of its class,
	 * "value" for the rest.
	 */
	FString Kind;
};

/** What the reader may ask about the Blueprint. */
struct FRequestScope
{
	/** Takes the name as it is shown and as it is written, whatever its case, its blanks and a leading "b". */
	TFunction<FRequestVariable(const FString& Name)> FindVariable;

	FRequestVariable Find(const FString& Name) const { return FindVariable ? FindVariable(Name) : FRequestVariable(); }
	/** Empty when there is no such variable. */
	FString GetVariableKind(const FString& Name) const { return Find(Name).Kind; }
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
