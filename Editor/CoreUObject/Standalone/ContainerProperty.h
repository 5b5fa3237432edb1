#pragma once

#include "Standalone/Property.h"

/**
 * How a container property reaches the C++ container that holds its values. Native members bring their own; values that
 * only data knows use the generic one.
 */
struct FContainerOps
{
	int32 Size = 0;
	int32 Alignment = 0;
	void (*Construct)(void* Container) = nullptr;
	void (*Destruct)(void* Container) = nullptr;
	int32 (*Num)(const void* Container) = nullptr;
	/** The element; for a map the key, with the value through ValueAt. Constant time for arrays only. */
	void* (*At)(void* Container, int32 Index) = nullptr;
	void* (*ValueAt)(void* Container, int32 Index) = nullptr;
	/** Arrays: grows with default elements or shrinks. */
	void (*Resize)(void* Container, int32 Num) = nullptr;
	void (*Empty)(void* Container) = nullptr;
	/** Sets and maps: adds a copy of the key (and of the value, which replaces that of an equal key). */
	void (*Add)(void* Container, const void* Key, const void* Value) = nullptr;
	/** Sets and maps: visits all elements in order; Value is null for a set. */
	void (*ForEach)(void* Container, TFunctionRef<void(void* Key, void* Value)> Visit) = nullptr;
};

/** Memory of a container that only data knows: elements (or pairs) in a row. */
struct FScriptContainer
{
	uint8* Data = nullptr;
	int32 Num = 0;
	int32 Max = 0;
};

/** What arrays, sets and maps share: whose memory it is, and the properties of what they hold. */
class FContainerProperty : public FProperty
{
public:
	using FProperty::FProperty;
	int32 GetElementSize() const override { return Ops ? Ops->Size : static_cast<int32>(sizeof(FScriptContainer)); }
	int32 GetMinAlignment() const override
	{
		return Ops ? Ops->Alignment : static_cast<int32>(alignof(FScriptContainer));
	}
	void InitializeValue(void* Dest) const override;
	void DestroyValue(void* Dest) const override;
	bool SameType(const FProperty* Other) const override;
	bool ContainsObjectReference(TArray<const FStructProperty*>& Encountered) const override;
	void VisitTypes(TFunctionRef<void(const UObject*)> Visit) const override;

	/** Property of an element, or of a key. */
	virtual FProperty* GetFirstInner() const = 0;
	/** Property of a map's value; null in arrays and sets. */
	virtual FProperty* GetSecondInner() const { return nullptr; }

	/** Null where only data knows the container. */
	const FContainerOps* Ops = nullptr;
};

class FArrayProperty : public FContainerProperty
{
	FIELD_CLASS(FArrayProperty, FProperty)
	using FContainerProperty::FContainerProperty;
	~FArrayProperty() override;
	PROPERTY_TEXT_OVERRIDES
	void CopyCompleteValue(void* Dest, const void* Src) const override;
	void VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const override;
	FProperty* GetFirstInner() const override { return Inner; }

	FProperty* Inner = nullptr;
};

class FSetProperty : public FContainerProperty
{
	FIELD_CLASS(FSetProperty, FProperty)
	using FContainerProperty::FContainerProperty;
	~FSetProperty() override;
	PROPERTY_TEXT_OVERRIDES
	void CopyCompleteValue(void* Dest, const void* Src) const override;
	void VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const override;
	FProperty* GetFirstInner() const override { return ElementProp; }

	FProperty* ElementProp = nullptr;
};

class FMapProperty : public FContainerProperty
{
	FIELD_CLASS(FMapProperty, FProperty)
	using FContainerProperty::FContainerProperty;
	~FMapProperty() override;
	PROPERTY_TEXT_OVERRIDES
	void CopyCompleteValue(void* Dest, const void* Src) const override;
	void VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const override;
	FProperty* GetFirstInner() const override { return KeyProp; }
	FProperty* GetSecondInner() const override { return ValueProp; }

	FProperty* KeyProp = nullptr;
	FProperty* ValueProp = nullptr;
};

/** Uniform access to an array value whatever holds it. */
class FScriptArrayHelper
{
public:
	FScriptArrayHelper(const FArrayProperty* InProperty, const void* InArray)
		: Property(InProperty)
		, Array(const_cast<void*>(InArray))
	{
	}
	int32 Num() const;
	uint8* GetRawPtr(int32 Index) const;
	void Resize(int32 Count) const;
	int32 AddValue() const;
	void EmptyValues() const { Resize(0); }
	bool IsValidIndex(int32 Index) const { return Index >= 0 && Index < Num(); }

private:
	const FArrayProperty* Property;
	void* Array;
};

class FScriptSetHelper
{
public:
	FScriptSetHelper(const FSetProperty* InProperty, const void* InSet)
		: Property(InProperty)
		, Set(const_cast<void*>(InSet))
	{
	}
	int32 Num() const;
	/** Adds a copy unless an equal element is there. */
	void AddElement(const void* Element) const;
	void EmptyElements() const;
	/** In order; the way to walk a set in linear time. */
	void ForEach(TFunctionRef<void(void* Element)> Visit) const;

private:
	const FSetProperty* Property;
	void* Set;
};

class FScriptMapHelper
{
public:
	FScriptMapHelper(const FMapProperty* InProperty, const void* InMap)
		: Property(InProperty)
		, Map(const_cast<void*>(InMap))
	{
	}
	int32 Num() const;
	/** Adds a pair; an equal key has its value replaced. */
	void AddPair(const void* Key, const void* Value) const;
	void EmptyValues() const;
	/** In order; the way to walk a map in linear time. */
	void ForEach(TFunctionRef<void(void* Key, void* Value)> Visit) const;
	/** The value of an equal key, or null. */
	uint8* FindValue(const void* Key) const;

private:
	const FMapProperty* Property;
	void* Map;
};
