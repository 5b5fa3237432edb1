#include "UObject/UnrealType.h"

#include "Objects/Properties/PropertyTextReader.h"
#include "Objects/Properties/ScriptRows.h"

#include <memory>
#include <vector>

namespace MapText
{
/** Behind Expected and the blanks around it; null when it does not stand there. */
static const TCHAR* Expect(const TCHAR* Buffer, TCHAR Expected)
{
	const TCHAR* const Cursor = Buffer ? PropertyText::SkipBlanks(Buffer) : nullptr;
	return Cursor && *Cursor == Expected ? PropertyText::SkipBlanks(Cursor + 1) : nullptr;
}
} // namespace MapText

FMapProperty::~FMapProperty()
{
	delete KeyProp;
	delete ValueProp;
}

void FMapProperty::CopyCompleteValue(void* Dest, const void* Src) const
{
	if (Dest == Src)
	{
		return;
	}
	const FScriptMapHelper Target(this, Dest);
	Target.EmptyValues();
	FScriptMapHelper(this, Src).ForEach([&Target](const void* Key, const void* Value) { Target.AddPair(Key, Value); });
}

void FMapProperty::VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const
{
	struct FPair
	{
		std::unique_ptr<FScratchValue> Key;
		std::unique_ptr<FScratchValue> Value;
	};
	const FScriptMapHelper Map(this, Value);
	std::vector<FPair> Pairs;
	bool bKeysChanged = false;
	const auto VisitKey = [&](UObject*& Object)
	{
		UObject* const Before = Object;
		Visit(Object);
		bKeysChanged = bKeysChanged || Object != Before;
	};
	Map.ForEach(
		[&](void* Key, void* MapValue)
		{
			ValueProp->VisitObjects(MapValue, Visit);
			Pairs.push_back({std::make_unique<FScratchValue>(*KeyProp, Key), nullptr});
			KeyProp->VisitObjects(Pairs.back().Key->Get(), VisitKey);
			Pairs.back().Value = std::make_unique<FScratchValue>(*ValueProp, MapValue);
		});
	if (bKeysChanged)
	{
		// Keys are found by hash, so they cannot change in place.
		Map.EmptyValues();
		for (const FPair& Pair : Pairs)
		{
			Map.AddPair(Pair.Key->Get(), Pair.Value->Get());
		}
	}
}

bool FMapProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	const int32 NumA = A ? FScriptMapHelper(this, A).Num() : 0;
	const int32 NumB = B ? FScriptMapHelper(this, B).Num() : 0;
	if (NumA != NumB || NumA == 0)
	{
		return NumA == NumB;
	}
	// The order is kept and written, so it is part of the value here.
	std::vector<std::pair<const void*, const void*>> PairsOfB;
	FScriptMapHelper(this, B).ForEach(
		[&PairsOfB](const void* Key, const void* Value) { PairsOfB.emplace_back(Key, Value); });
	std::size_t Index = 0;
	bool bEqual = true;
	FScriptMapHelper(this, A).ForEach(
		[&](const void* Key, const void* Value)
		{
			const auto& [OtherKey, OtherValue] = PairsOfB[Index++];
			bEqual = bEqual && KeyProp->Identical(Key, OtherKey, PortFlags)
				&& ValueProp->Identical(Value, OtherValue, PortFlags);
		});
	return bEqual;
}

void FMapProperty::ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue,
	UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	const void* const KeyDefault = PropertyText::ElementDefault(*KeyProp);
	const void* const ValueDefault = PropertyText::ElementDefault(*ValueProp);
	const int32 NestedFlags = PortFlags | PPF_Delimited;
	ValueStr.AppendChar(TEXT('('));
	bool bFirst = true;
	FScriptMapHelper(this, PropertyValue)
		.ForEach(
			[&](const void* Key, const void* Value)
			{
				ValueStr += bFirst ? TEXT("(") : TEXT(",(");
				bFirst = false;
				KeyProp->ExportTextItem_Direct(ValueStr, Key, KeyDefault, Parent, NestedFlags, ExportRootScope);
				ValueStr += TEXT(", ");
				ValueProp->ExportTextItem_Direct(ValueStr, Value, ValueDefault, Parent, NestedFlags, ExportRootScope);
				ValueStr.AppendChar(TEXT(')'));
			});
	ValueStr.AppendChar(TEXT(')'));
}

const TCHAR* FMapProperty::ImportText_Direct(
	const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	const FScriptMapHelper Map(this, PropertyPtr);
	Map.EmptyValues();
	const TCHAR* Cursor = PropertyText::SkipBlanks(Buffer);
	if (!*Cursor || *Cursor == TEXT(')') || *Cursor == TEXT(','))
	{
		return Cursor;
	}
	Cursor = MapText::Expect(Cursor, TEXT('('));
	while (Cursor && *Cursor != TEXT(')'))
	{
		const FScratchValue Key(*KeyProp);
		const FScratchValue Value(*ValueProp);
		Cursor = MapText::Expect(Cursor, TEXT('('));
		Cursor = Cursor ? PropertyText::ImportNested(*KeyProp, Cursor, Key.Get(), OwnerObject, PortFlags, ErrorText)
						: nullptr;
		Cursor = MapText::Expect(Cursor, TEXT(','));
		Cursor = Cursor ? PropertyText::ImportNested(*ValueProp, Cursor, Value.Get(), OwnerObject, PortFlags, ErrorText)
						: nullptr;
		Cursor = MapText::Expect(Cursor, TEXT(')'));
		if (Cursor)
		{
			Map.AddPair(Key.Get(), Value.Get());
			const TCHAR* const AfterComma = MapText::Expect(Cursor, TEXT(','));
			Cursor = AfterComma ? AfterComma : *Cursor == TEXT(')') ? Cursor : nullptr;
		}
	}
	if (!Cursor)
	{
		PropertyText::Report(ErrorText, TEXT("%s: Malformed map: %s"), *GetName(), Buffer);
		return nullptr;
	}
	return Cursor + 1;
}

FString FMapProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	if (ExtendedTypeText)
	{
		*ExtendedTypeText = TEXT("<") + PropertyText::NestedCppType(*KeyProp) + TEXT(",")
			+ PropertyText::NestedCppType(*ValueProp) + TEXT(">");
	}
	return TEXT("TMap");
}
