#include "UObject/UnrealType.h"

#include "Objects/Properties/PropertyTextReader.h"
#include "Objects/Properties/ScriptRows.h"

#include <memory>
#include <vector>

namespace ContainerText
{
/** Behind the separator or the closing bracket; null when neither stands there. */
static const TCHAR* NextElement(const TCHAR* Buffer, bool& bOutEnd)
{
	const TCHAR* const Cursor = Buffer ? PropertyText::SkipBlanks(Buffer) : nullptr;
	bOutEnd = Cursor && *Cursor == TEXT(')');
	if (!Cursor || (!bOutEnd && *Cursor != TEXT(',')))
	{
		return nullptr;
	}
	const TCHAR* const Next = bOutEnd ? Cursor + 1 : PropertyText::SkipBlanks(Cursor + 1);
	if (!bOutEnd && *Next == TEXT(')'))
	{
		bOutEnd = true;
		return Next + 1;
	}
	return Next;
}

/**
 * Reads "(element,element)"; ReadElement answers where an element ends or null. An empty text, as stands for an empty
 * list in a struct, is an empty list.
 */
static const TCHAR* ReadList(const TCHAR* Buffer, const FProperty& Property, FOutputDevice* ErrorText,
	TFunctionRef<const TCHAR*(const TCHAR*)> ReadElement)
{
	const TCHAR* Cursor = PropertyText::SkipBlanks(Buffer);
	if (!*Cursor || *Cursor == TEXT(')') || *Cursor == TEXT(','))
	{
		return Cursor;
	}
	const bool bOpens = *Cursor == TEXT('(');
	Cursor = bOpens ? PropertyText::SkipBlanks(Cursor + 1) : nullptr;
	if (Cursor && *Cursor == TEXT(')'))
	{
		return Cursor + 1;
	}
	bool bEnd = false;
	while (Cursor && !bEnd)
	{
		Cursor = NextElement(ReadElement(Cursor), bEnd);
	}
	if (!Cursor)
	{
		PropertyText::Report(ErrorText, TEXT("%s: Malformed list: %s"), *Property.GetName(), Buffer);
	}
	return Cursor;
}

/** Visits a copy of a key; true when the visit changed it. */
static bool VisitCopy(const FProperty& Property, void* Copy, TFunctionRef<void(UObject*&)> Visit)
{
	bool bChanged = false;
	Property.VisitObjects(Copy,
		[&](UObject*& Object)
		{
			UObject* const Before = Object;
			Visit(Object);
			bChanged = bChanged || Object != Before;
		});
	return bChanged;
}

using FScratchValues = std::vector<std::unique_ptr<FScratchValue>>;
} // namespace ContainerText

void FContainerProperty::InitializeValue(void* Dest) const
{
	if (Ops)
	{
		Ops->Construct(Dest);
		return;
	}
	::new (Dest) FScriptContainer();
}

void FContainerProperty::DestroyValue(void* Dest) const
{
	if (Ops)
	{
		Ops->Destruct(Dest);
		return;
	}
	FScriptRows(GetFirstInner(), GetSecondInner(), Dest).Resize(0);
}

bool FContainerProperty::SameType(const FProperty* Other) const
{
	if (!FProperty::SameType(Other))
	{
		return false;
	}
	const FContainerProperty* const Container = static_cast<const FContainerProperty*>(Other);
	const auto SameInner = [](const FProperty* Own, const FProperty* Others)
	{ return Own && Others ? Own->SameType(Others) : Own == Others; };
	return SameInner(GetFirstInner(), Container->GetFirstInner())
		&& SameInner(GetSecondInner(), Container->GetSecondInner());
}

bool FContainerProperty::ContainsObjectReference(TArray<const FStructProperty*>& Encountered) const
{
	return GetFirstInner()->ContainsObjectReference(Encountered)
		|| (GetSecondInner() && GetSecondInner()->ContainsObjectReference(Encountered));
}

void FContainerProperty::VisitTypes(TFunctionRef<void(const UObject*)> Visit) const
{
	GetFirstInner()->VisitTypes(Visit);
	if (GetSecondInner())
	{
		GetSecondInner()->VisitTypes(Visit);
	}
}

FArrayProperty::~FArrayProperty()
{
	delete Inner;
}

void FArrayProperty::CopyCompleteValue(void* Dest, const void* Src) const
{
	if (Dest == Src)
	{
		return;
	}
	const FScriptArrayHelper Source(this, Src);
	const FScriptArrayHelper Target(this, Dest);
	const int32 Count = Source.Num();
	Target.Resize(Count);
	for (int32 Index = 0; Index < Count; ++Index)
	{
		Inner->CopyCompleteValue(Target.GetRawPtr(Index), Source.GetRawPtr(Index));
	}
}

void FArrayProperty::VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const
{
	const FScriptArrayHelper Array(this, Value);
	for (int32 Index = 0; Index < Array.Num(); ++Index)
	{
		Inner->VisitObjects(Array.GetRawPtr(Index), Visit);
	}
}

bool FArrayProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	const int32 NumA = A ? FScriptArrayHelper(this, A).Num() : 0;
	const int32 NumB = B ? FScriptArrayHelper(this, B).Num() : 0;
	bool bEqual = NumA == NumB;
	for (int32 Index = 0; bEqual && Index < NumA; ++Index)
	{
		bEqual = Inner->Identical(
			FScriptArrayHelper(this, A).GetRawPtr(Index), FScriptArrayHelper(this, B).GetRawPtr(Index), PortFlags);
	}
	return bEqual;
}

void FArrayProperty::ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue,
	UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	// An empty array is written as nothing at all, as the engine does; import takes it back as such.
	const FScriptArrayHelper Array(this, PropertyValue);
	const void* const ElementDefault = PropertyText::ElementDefault(*Inner);
	for (int32 Index = 0; Index < Array.Num(); ++Index)
	{
		ValueStr.AppendChar(Index == 0 ? TEXT('(') : TEXT(','));
		Inner->ExportTextItem_Direct(
			ValueStr, Array.GetRawPtr(Index), ElementDefault, Parent, PortFlags | PPF_Delimited, ExportRootScope);
	}
	if (Array.Num() > 0)
	{
		ValueStr.AppendChar(TEXT(')'));
	}
}

const TCHAR* FArrayProperty::ImportText_Direct(
	const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	const FScriptArrayHelper Array(this, PropertyPtr);
	Array.EmptyValues();
	return ContainerText::ReadList(Buffer, *this, ErrorText,
		[&](const TCHAR* Cursor)
		{
			const int32 Index = Array.AddValue();
			return PropertyText::ImportNested(
				*Inner, Cursor, Array.GetRawPtr(Index), OwnerObject, PortFlags, ErrorText);
		});
}

FString FArrayProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	if (ExtendedTypeText)
	{
		*ExtendedTypeText = TEXT("<") + PropertyText::NestedCppType(*Inner) + TEXT(">");
	}
	return TEXT("TArray");
}

FSetProperty::~FSetProperty()
{
	delete ElementProp;
}

void FSetProperty::CopyCompleteValue(void* Dest, const void* Src) const
{
	if (Dest == Src)
	{
		return;
	}
	const FScriptSetHelper Target(this, Dest);
	Target.EmptyElements();
	FScriptSetHelper(this, Src).ForEach([&Target](const void* Element) { Target.AddElement(Element); });
}

void FSetProperty::VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const
{
	const FScriptSetHelper Set(this, Value);
	ContainerText::FScratchValues Elements;
	bool bChanged = false;
	Set.ForEach(
		[&](void* Element)
		{
			Elements.push_back(std::make_unique<FScratchValue>(*ElementProp, Element));
			bChanged = ContainerText::VisitCopy(*ElementProp, Elements.back()->Get(), Visit) || bChanged;
		});
	if (bChanged)
	{
		// Elements are found by hash, so they cannot change in place.
		Set.EmptyElements();
		for (const std::unique_ptr<FScratchValue>& Element : Elements)
		{
			Set.AddElement(Element->Get());
		}
	}
}

bool FSetProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	const int32 NumA = A ? FScriptSetHelper(this, A).Num() : 0;
	const int32 NumB = B ? FScriptSetHelper(this, B).Num() : 0;
	if (NumA != NumB || NumA == 0)
	{
		return NumA == NumB;
	}
	// The order is kept and written, so it is part of the value here.
	std::vector<const void*> ElementsOfB;
	FScriptSetHelper(this, B).ForEach([&ElementsOfB](const void* Element) { ElementsOfB.push_back(Element); });
	std::size_t Index = 0;
	bool bEqual = true;
	FScriptSetHelper(this, A).ForEach(
		[&](const void* Element)
		{
			bEqual = bEqual && ElementProp->Identical(Element, ElementsOfB[Index], PortFlags);
			++Index;
		});
	return bEqual;
}

void FSetProperty::ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue,
	UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	const void* const ElementDefault = PropertyText::ElementDefault(*ElementProp);
	ValueStr.AppendChar(TEXT('('));
	bool bFirst = true;
	FScriptSetHelper(this, PropertyValue)
		.ForEach(
			[&](const void* Element)
			{
				if (!bFirst)
				{
					ValueStr.AppendChar(TEXT(','));
				}
				bFirst = false;
				ElementProp->ExportTextItem_Direct(
					ValueStr, Element, ElementDefault, Parent, PortFlags | PPF_Delimited, ExportRootScope);
			});
	ValueStr.AppendChar(TEXT(')'));
}

const TCHAR* FSetProperty::ImportText_Direct(
	const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	const FScriptSetHelper Set(this, PropertyPtr);
	Set.EmptyElements();
	return ContainerText::ReadList(Buffer, *this, ErrorText,
		[&](const TCHAR* Cursor)
		{
			const FScratchValue Element(*ElementProp);
			const TCHAR* const End = PropertyText::ImportNested(
				*ElementProp, Cursor, Element.Get(), OwnerObject, PortFlags, ErrorText);
			if (End)
			{
				Set.AddElement(Element.Get());
			}
			return End;
		});
}

FString FSetProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	if (ExtendedTypeText)
	{
		*ExtendedTypeText = TEXT("<") + PropertyText::NestedCppType(*ElementProp) + TEXT(">");
	}
	return TEXT("TSet");
}
