#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/PropertyPortFlags.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class FFeedbackContext;
class FProperty;

/**
 * The text form of objects: "Begin Object Class=... Name="..." ... End Object". One parser and one exporter serve the
 * clipboard and saved packages.
 *
 * Parsing makes records and touches no object, so that text of any origin can be looked at first. Records are views
 * into the text: parsing copies nothing and a tree of 10,000 objects costs a few allocations each.
 */

/** One line inside an object. The views live as long as the tree it came from. */
struct FObjectTextLine
{
	/** The property's name without quotes; empty for a custom line. */
	std::string_view Name;
	/** The property's value, or what follows "CustomProperties ". */
	std::string_view Value;
	/** The element of "Name(3)=...", else INDEX_NONE. */
	int32 Index = INDEX_NONE;
	int32 LineNumber = 0;
	bool bCustom = false;

	FString GetName() const;
};

/** One object. A nested object that the text declares first and fills later is one record. */
struct FObjectTextRecord
{
	/** As spelled: with or without "/Script/", bare or in quotes. Empty for a nested object that its class makes by
	 * itself. */
	std::string_view ClassPath;
	std::string_view Name;
	/** As spelled, with the class in front. Empty when the text has none. */
	std::string_view ExportPath;
	/** Flags of packages; none in clipboard text. */
	EObjectFlags Flags = RF_NoFlags;
	int32 LineNumber = 0;
	/** Property and custom lines, in the text's order. */
	std::vector<FObjectTextLine> Lines;
	std::vector<FObjectTextRecord> Inner;

	FString GetName() const;
	FString GetClassPath() const;
	/** The path inside ExportPath, without class and quotes. */
	FString GetExportObjectPath() const;
	/** The value of a property line, ignoring case; null when there is none. */
	const FObjectTextLine* FindLine(std::string_view PropertyName) const;
};

/** What is wrong with a text, and where. */
struct FObjectTextError
{
	int32 LineNumber = 0;
	FString Message;

	FString ToString() const;
};

class FObjectTextTree
{
public:
	std::vector<FObjectTextRecord> Objects;

	/**
	 * Reads text in UTF-8. The tree refers into Text, which has to outlive it. Bytes of any kind are safe to give: on
	 * false the tree is empty and OutError names the first line that is no object text.
	 */
	bool ParseView(std::string_view Text, FObjectTextError& OutError, int32 FirstLineNumber = 1);
	/** As above; the tree keeps the text. */
	bool Parse(std::string Text, FObjectTextError& OutError);
	bool Parse(FStringView Text, FObjectTextError& OutError);

	/** Lines that belong to no object: how many, and the first one for a message. */
	struct FPassedOver
	{
		int32 NumLines = 0;
		int32 FirstLineNumber = 0;
		FString FirstLine;
	};
	/**
	 * As Parse, for text that a person took from somewhere: a byte order mark is no part of it, and lines before,
	 * between and after the objects are passed over. Text without any object is a fault.
	 */
	bool ParseAmidOtherText(std::string Text, FObjectTextError& OutError, FPassedOver& OutPassedOver);

	/** Deeper nesting is refused when reading and when writing. */
	static constexpr int32 MaxDepth = 128;

private:
	/** Shared, so that a moved tree keeps its views. */
	std::shared_ptr<const std::string> OwnedText;
};

/** How objects are written. */
struct FObjectTextExport
{
	/** Name each outermost object's place in ExportPath, as the clipboard does. */
	bool bExportPath = false;
	/** Write the flags that a package keeps. */
	bool bFlags = false;
	uint32 PortFlags = PPF_Delimited;
	/** References to objects below it are written relative to it when PortFlags ask for that. May be null. */
	UObject* RootScope = nullptr;
	/** The package whose classes are rebuilt when it is read; values of their own properties are always written. May be
	 * null. */
	const UPackage* OwnPackage = nullptr;

	static FObjectTextExport Clipboard(UObject* Scope);
	static FObjectTextExport Package(UPackage* Package);

	/**
	 * Appends the objects and what is below them. Transient objects, garbage and the functions of classes are left out.
	 * Deterministic: the same objects give the same bytes. False when objects are nested too deep; OutError then names
	 * one.
	 */
	bool Write(const TArray<UObject*>& Objects, std::string& OutText, FString& OutError) const;
	FString ToString(const TArray<UObject*>& Objects) const;
};

/**
 * Makes objects from records in two steps, so that references among them can be told apart from references to what
 * stands elsewhere: Create for all of them, then ImportProperties once.
 */
class FObjectTextImport
{
public:
	/** Makes the object of a record below Outer, or answers null to leave it and all below it out. */
	using FFactory = TFunctionRef<UObject*(const FObjectTextRecord& Record, UObject* Outer)>;

	/**
	 * Problems with single values go to Warn, one line each, and do not stop the import. With bInRedirect, references
	 * to an object by the name or ExportPath that it has in the text lead to the object made for it, whatever that one
	 * is called.
	 */
	explicit FObjectTextImport(FFeedbackContext& InWarn, bool bInRedirect = true);
	~FObjectTextImport();
	FObjectTextImport(const FObjectTextImport&) = delete;
	FObjectTextImport& operator=(const FObjectTextImport&) = delete;

	/** Makes the record's object and all nested ones. Nested objects that the outer object's class made already are
	 * found and kept. */
	UObject* Create(const FObjectTextRecord& Record, UObject* Outer, FFactory Factory);
	/** With DefaultFactory. */
	UObject* Create(const FObjectTextRecord& Record, UObject* Outer);
	/** Sets the properties of everything created since the last call, in the text's order. Lines nobody knows are kept
	 * with the object. */
	void ImportProperties();
	/** Sets one object's properties from its record and does not look at nested ones. */
	void ImportInto(UObject* Object, const FObjectTextRecord& Record);

	struct FMade
	{
		const FObjectTextRecord* Record;
		UObject* Object;
	};
	/** What Create made or found, outer objects before inner ones. */
	const std::vector<FMade>& GetMade() const { return Made; }
	/** The object made for the record of that name below Outer (null: outermost records); null when there is none. */
	UObject* FindMade(std::string_view Name, const UObject* Outer = nullptr) const;

	/**
	 * The record's class and name below Outer. A class that nobody knows goes to the unknown-class handler; without one
	 * the record is kept as text with Outer and the answer is null.
	 */
	static UObject* DefaultFactory(const FObjectTextRecord& Record, UObject* Outer);
	/** The class of a spelled path, loaded when it must be; null when there is none. */
	static UClass* FindClass(std::string_view ClassPath);

	/** Makes a stand-in for an object whose class is not known; the class path is kept and written back. Null: no
	 * handler. */
	using FUnknownClassHandler = UObject* (*)(const FObjectTextRecord& Record, UObject* Outer);
	/** Answers the one before. */
	static FUnknownClassHandler SetUnknownClassHandler(FUnknownClassHandler Handler);

private:
	struct FMadeKey
	{
		const UObject* Outer;
		std::string_view Name;
		bool operator==(const FMadeKey& Other) const = default;
	};
	struct FMadeKeyHash
	{
		std::size_t operator()(const FMadeKey& Key) const
		{
			return std::hash<std::string_view>()(Key.Name) ^ (std::hash<const UObject*>()(Key.Outer) * 31);
		}
	};

	UObject* CreateOne(const FObjectTextRecord& Record, UObject* Outer, const UObject* MadeBelow, FFactory Factory);
	void ImportProperty(UObject* Object, const FObjectTextLine& Line, const FObjectTextLine* Previous);
	void* PlaceForElement(
		FProperty*& InOutProperty, void* Value, const FObjectTextLine& Line, const FObjectTextLine* Previous);
	void Complain(const UObject* Object, const FObjectTextLine& Line, const FString& Problem);
	/** Answers Value itself when nothing in it leads to a made object. */
	std::string_view RedirectReferences(std::string_view Value);
	UObject* FindReferenced(std::string_view Path) const;

	FFeedbackContext& Warn;
	const bool bRedirect;
	std::vector<FMade> Made;
	std::size_t NumImported = 0;
	std::unordered_map<FMadeKey, UObject*, FMadeKeyHash> MadeByName;
	std::unordered_map<std::string, UObject*> RootByExportPath;
	std::wstring WideScratch;
	std::string RedirectScratch;
};

/** Text that was read with an object and that no class here understands. It is written back unchanged. */
struct FKeptObjectText
{
	/** The class as read, when another class stands in for it. */
	std::string ClassPath;
	/** "Name=Value" lines of properties that the class does not have. */
	std::vector<std::string> Lines;
	/** A value that could not be read, as when it refers to an asset that is missing. It is written back as long as the
	 * property is not changed. */
	struct FUnread
	{
		FName Property;
		int32 Index = INDEX_NONE;
		std::string Value;
		/** The property's text right after the attempt. */
		FString TextAfter;
	};
	std::vector<FUnread> Unread;
	/** Entries of lists that lead to nothing: the list goes on without them, and they are written behind it. */
	struct FLeftOut
	{
		FName Property;
		std::string Value;
	};
	std::vector<FLeftOut> LeftOut;
	/** What followed "CustomProperties " in lines that the object does not take. */
	std::vector<std::string> CustomLines;
	/** Whole objects below this one, each as text. */
	std::vector<std::string> Objects;

	/** Null for most objects. */
	static const FKeptObjectText* Find(const UObject* Object);
	const FUnread* FindUnread(FName Property, int32 Index) const;
	bool HasLeftOut(FName Property) const;
	static FKeptObjectText& FindOrAdd(UObject* Object);
	/** Keeps the text of a value that the property could not take, in place of what was kept for it. */
	static void KeepUnread(UObject& Object, const FProperty& Property, FStringView Value);
	/** Keeps a record that no object could be made for with what would be its outer, and tells so. */
	static void KeepRecord(const FObjectTextRecord& Record, UObject* Outer, FFeedbackContext& Warn);
	/** The record with all below it, as one piece of text. */
	static std::string TextOf(const FObjectTextRecord& Record);
};
