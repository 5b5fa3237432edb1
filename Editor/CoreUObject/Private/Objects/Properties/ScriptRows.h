#pragma once

#include "UObject/UnrealType.h"

#include <new>

/** A value of a property outside any object, for as long as this stands. */
class FScratchValue
{
public:
	explicit FScratchValue(const FProperty& InProperty)
		: Property(&InProperty)
		, Memory(::operator new (static_cast<std::size_t>(InProperty.GetElementSize()), std::align_val_t{16}))
	{
		Property->InitializeValue(Memory);
	}
	FScratchValue(const FProperty& InProperty, const void* Value)
		: FScratchValue(InProperty)
	{
		Property->CopyCompleteValue(Memory, Value);
	}
	~FScratchValue()
	{
		Property->DestroyValue(Memory);
		::operator delete (Memory, std::align_val_t{16});
	}
	FScratchValue(const FScratchValue&) = delete;
	FScratchValue& operator=(const FScratchValue&) = delete;

	void* Get() const { return Memory; }

private:
	const FProperty* Property;
	void* Memory;
};

/** The rows of a container that only data knows: an element, or a key and a value, in each. */
class FScriptRows
{
public:
	FScriptRows(const FProperty* InFirst, const FProperty* InSecond, void* InContainer);

	int32 Num() const { return Container->Num; }
	uint8* First(int32 Row) const { return Container->Data + static_cast<std::ptrdiff_t>(Row) * Stride; }
	uint8* Second(int32 Row) const { return First(Row) + SecondOffset; }
	/** Grows with default values or drops rows at the end. */
	void Resize(int32 NumRows) const;
	/** The row whose first value is equal, or INDEX_NONE. */
	int32 FindFirst(const void* Value) const;

private:
	void Construct(uint8* Row) const;
	void Destruct(uint8* Row) const;
	void Reallocate(int32 MaxRows) const;

	const FProperty* FirstProperty;
	const FProperty* SecondProperty;
	FScriptContainer* Container;
	int32 SecondOffset = 0;
	int32 Stride = 0;
};
