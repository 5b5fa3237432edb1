#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"

/**
 * What a graph request says, read from its JSON once; below this line no routine sees a key. Every string is empty and
 * every option unset where the request says nothing.
 */

enum class EBPNodeAction : uint8
{
	Add,
	Modify,
	Remove,
};

enum class EBPConnectionAction : uint8
{
	/** "add" and "create" are the same. */
	Add,
	Remove,
};

/** A type as a request writes it: words, not yet a pin type. */
struct FBPPinType
{
	FString Category;
	FString SubCategory;
	/** Path of an object. */
	FString SubCategoryObject;
	/** "array", "set" or "map", whatever the case; any other text is no container. */
	FString ContainerType;
	bool bIsReference = false;
	bool bIsConst = false;
	bool bIsWeakPointer = false;
	bool bIsUObjectWrapper = false;
	/** Of a map; null when not given. */
	TSharedPtr<FBPPinType> ValueType;
};

struct FBPPinModification
{
	EBPNodeAction Action = EBPNodeAction::Add;
	FString Name;
	FString Value;
	/** An empty value is a value; set by the strict parser alone. */
	bool bHasValue = false;
	/** The word of an added pin; empty where the node decides. */
	FString Direction;
	TOptional<FBPPinType> Type;
};

/** A pin that a request expects of a node, because it gives it a value or a wire. */
struct FBPAskedPin
{
	FString Name;
	bool bOutput = false;
	/** The other end of the wire; both empty for a value. */
	FString OtherNodeGuid;
	FString OtherPinName;
	/** The variable that the node at the other end reads, where its record tells one. */
	FString OtherVariable;
};

struct FBPNodeModification
{
	/** Null when the key is absent: a key that is present and empty is not null. */
	const FString* FindMetadata(const TCHAR* Key) const { return Metadata.Find(Key); }
	/** Empty when the key is absent. */
	FString GetMetadata(const TCHAR* Key) const { return Metadata.FindRef(Key); }

	/** The request's own id of the node, or a real node guid. */
	FString NodeGuid;
	EBPNodeAction Action = EBPNodeAction::Add;
	FString ClassName;
	FString MenuTitle;
	FString TargetClass;
	FString TargetFunction;
	FString MenuCategory;
	/** Keys ignore case, like all maps keyed by text. */
	TMap<FString, FString> Metadata;
	TOptional<int32> PositionX;
	TOptional<int32> PositionY;
	TOptional<FString> Comment;
	bool bExactMatch = false;
	/** A wire of the same request enters the node's target, so the request tells whose the member is. */
	bool bTargetIsWired = false;
	/** All pins that the request speaks of; of actions of one title, the one is meant that has them. */
	TArray<FBPAskedPin> AskedPins;
	/** In the order of the request. */
	TArray<FBPPinModification> Pins;
};

struct FBPConnectionModification
{
	EBPConnectionAction Action = EBPConnectionAction::Add;
	FString SourceNodeGuid;
	FString SourcePinName;
	FString TargetNodeGuid;
	FString TargetPinName;
};

struct FBPParameterModification
{
	FString Name;
	/** As written; what each word means is decided where the pin is made. */
	FString Direction;
	FEdGraphPinType Type;
};

struct FBPFunctionModification
{
	FString Name;
	bool bIsDelegate = false;
	bool bIsRepNotify = false;
	FString ReplicatedProperty;
	TArray<FBPParameterModification> Parameters;
	/** Names of those whose type could not be read; they are no parameters. */
	TArray<FString> UnreadableParameters;
	/** A return type was given, readable or not. */
	bool bHasReturnType = false;
	/** Unset when it was not given or could not be read. */
	TOptional<FEdGraphPinType> ReturnType;
};

struct FBPLocalVariableModification
{
	FString Name;
	EBPNodeAction Action = EBPNodeAction::Add;
	TOptional<FEdGraphPinType> Type;
	TOptional<FString> DefaultValue;
};
