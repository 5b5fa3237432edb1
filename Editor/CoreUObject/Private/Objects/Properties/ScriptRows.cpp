#include "Objects/Properties/ScriptRows.h"

#include "Objects/Properties/MemoryLayout.h"

FScriptRows::FScriptRows(const FProperty* InFirst, const FProperty* InSecond, void* InContainer)
	: FirstProperty(InFirst)
	, SecondProperty(InSecond)
	, Container(static_cast<FScriptContainer*>(InContainer))
{
	int32 Alignment = FirstProperty->GetMinAlignment();
	int32 Size = FirstProperty->GetElementSize();
	if (SecondProperty)
	{
		SecondOffset = MemoryLayout::Align(Size, SecondProperty->GetMinAlignment());
		Alignment = FMath::Max(Alignment, SecondProperty->GetMinAlignment());
		Size = SecondOffset + SecondProperty->GetElementSize();
	}
	Stride = MemoryLayout::Align(Size, Alignment);
}

void FScriptRows::Construct(uint8* Row) const
{
	FirstProperty->InitializeValue(Row);
	if (SecondProperty)
	{
		SecondProperty->InitializeValue(Row + SecondOffset);
	}
}

void FScriptRows::Destruct(uint8* Row) const
{
	FirstProperty->DestroyValue(Row);
	if (SecondProperty)
	{
		SecondProperty->DestroyValue(Row + SecondOffset);
	}
}

void FScriptRows::Reallocate(int32 MaxRows) const
{
	uint8* NewData = nullptr;
	if (MaxRows > 0)
	{
		const std::size_t Size = static_cast<std::size_t>(MaxRows) * static_cast<std::size_t>(Stride);
		NewData = static_cast<uint8*>(::operator new (Size, std::align_val_t{16}));
	}
	// Values may hold pointers into themselves, so they are copied and not moved as bytes.
	for (int32 Row = 0; Row < Container->Num; ++Row)
	{
		uint8* const Target = NewData + static_cast<std::ptrdiff_t>(Row) * Stride;
		Construct(Target);
		FirstProperty->CopyCompleteValue(Target, First(Row));
		if (SecondProperty)
		{
			SecondProperty->CopyCompleteValue(Target + SecondOffset, Second(Row));
		}
		Destruct(First(Row));
	}
	::operator delete (Container->Data, std::align_val_t{16});
	Container->Data = NewData;
	Container->Max = MaxRows;
}

void FScriptRows::Resize(int32 NumRows) const
{
	while (Container->Num > NumRows)
	{
		--Container->Num;
		Destruct(First(Container->Num));
	}
	if (NumRows > Container->Max)
	{
		Reallocate(FMath::Max(NumRows, Container->Max * 2));
	}
	while (Container->Num < NumRows)
	{
		Construct(First(Container->Num));
		++Container->Num;
	}
	if (NumRows == 0 && Container->Data)
	{
		Reallocate(0);
	}
}

int32 FScriptRows::FindFirst(const void* Value) const
{
	for (int32 Row = 0; Row < Num(); ++Row)
	{
		if (FirstProperty->Identical(First(Row), Value))
		{
			return Row;
		}
	}
	return INDEX_NONE;
}

int32 FScriptArrayHelper::Num() const
{
	return Property->Ops ? Property->Ops->Num(Array) : static_cast<const FScriptContainer*>(Array)->Num;
}

uint8* FScriptArrayHelper::GetRawPtr(int32 Index) const
{
	return Property->Ops ? static_cast<uint8*>(Property->Ops->At(Array, Index))
						 : FScriptRows(Property->Inner, nullptr, Array).First(Index);
}

void FScriptArrayHelper::Resize(int32 Count) const
{
	if (Property->Ops)
	{
		Property->Ops->Resize(Array, Count);
		return;
	}
	FScriptRows(Property->Inner, nullptr, Array).Resize(Count);
}

int32 FScriptArrayHelper::AddValue() const
{
	const int32 Index = Num();
	Resize(Index + 1);
	return Index;
}

int32 FScriptSetHelper::Num() const
{
	return Property->Ops ? Property->Ops->Num(Set) : static_cast<const FScriptContainer*>(Set)->Num;
}

void FScriptSetHelper::AddElement(const void* Element) const
{
	if (Property->Ops)
	{
		Property->Ops->Add(Set, Element, nullptr);
		return;
	}
	const FScriptRows Rows(Property->ElementProp, nullptr, Set);
	if (Rows.FindFirst(Element) == INDEX_NONE)
	{
		const FScratchValue Copy(*Property->ElementProp, Element);
		Rows.Resize(Rows.Num() + 1);
		Property->ElementProp->CopyCompleteValue(Rows.First(Rows.Num() - 1), Copy.Get());
	}
}

void FScriptSetHelper::EmptyElements() const
{
	if (Property->Ops)
	{
		Property->Ops->Empty(Set);
		return;
	}
	FScriptRows(Property->ElementProp, nullptr, Set).Resize(0);
}

void FScriptSetHelper::ForEach(TFunctionRef<void(void* Element)> Visit) const
{
	if (Property->Ops)
	{
		Property->Ops->ForEach(Set, [&Visit](void* Element, void*) { Visit(Element); });
		return;
	}
	const FScriptRows Rows(Property->ElementProp, nullptr, Set);
	for (int32 Row = 0; Row < Rows.Num(); ++Row)
	{
		Visit(Rows.First(Row));
	}
}

int32 FScriptMapHelper::Num() const
{
	return Property->Ops ? Property->Ops->Num(Map) : static_cast<const FScriptContainer*>(Map)->Num;
}

void FScriptMapHelper::AddPair(const void* Key, const void* Value) const
{
	if (Property->Ops)
	{
		Property->Ops->Add(Map, Key, Value);
		return;
	}
	const FScriptRows Rows(Property->KeyProp, Property->ValueProp, Map);
	const FScratchValue KeyCopy(*Property->KeyProp, Key);
	const FScratchValue ValueCopy(*Property->ValueProp, Value);
	int32 Row = Rows.FindFirst(KeyCopy.Get());
	if (Row == INDEX_NONE)
	{
		Row = Rows.Num();
		Rows.Resize(Row + 1);
		Property->KeyProp->CopyCompleteValue(Rows.First(Row), KeyCopy.Get());
	}
	Property->ValueProp->CopyCompleteValue(Rows.Second(Row), ValueCopy.Get());
}

void FScriptMapHelper::EmptyValues() const
{
	if (Property->Ops)
	{
		Property->Ops->Empty(Map);
		return;
	}
	FScriptRows(Property->KeyProp, Property->ValueProp, Map).Resize(0);
}

void FScriptMapHelper::ForEach(TFunctionRef<void(void* Key, void* Value)> Visit) const
{
	if (Property->Ops)
	{
		Property->Ops->ForEach(Map, Visit);
		return;
	}
	const FScriptRows Rows(Property->KeyProp, Property->ValueProp, Map);
	for (int32 Row = 0; Row < Rows.Num(); ++Row)
	{
		Visit(Rows.First(Row), Rows.Second(Row));
	}
}

uint8* FScriptMapHelper::FindValue(const void* Key) const
{
	uint8* Found = nullptr;
	ForEach([&](void* Candidate, void* Value)
		{ Found = !Found && Property->KeyProp->Identical(Candidate, Key) ? static_cast<uint8*>(Value) : Found; });
	return Found;
}
