#include "UObject/UnrealType.h"

#include "Objects/Properties/PropertyTextReader.h"

namespace DelegateText
{
static void Append(FString& Out, const FScriptDelegate& Delegate)
{
	const UObject* const Object = Delegate.Object.Get();
	if (Object)
	{
		Object->GetPathName(nullptr, Out);
	}
	else
	{
		Out += TEXT("(null)");
	}
	Out.AppendChar(TEXT('.'));
	Delegate.FunctionName.AppendString(Out);
}

/** Behind "(null).None", "Path.Function" or a function's name alone, which means one of the owner. */
static const TCHAR* Read(const TCHAR* Buffer, UObject* Owner, FScriptDelegate& OutDelegate)
{
	static const FStringView NullObject = TEXTVIEW("(null).");
	const TCHAR* Cursor = PropertyText::SkipBlanks(Buffer);
	OutDelegate = FScriptDelegate();
	const bool bNull = FStringView(Cursor).Left(NullObject.Len()).Equals(NullObject, ESearchCase::IgnoreCase);
	Cursor += bNull ? NullObject.Len() : 0;
	FString Token;
	const TCHAR* const End = PropertyText::ReadToken(Cursor, Token);
	if (!End || bNull || Token == TEXT("None"))
	{
		return End;
	}
	int32 Dot = INDEX_NONE;
	const bool bHasObject = Token.FindLastChar(TEXT('.'), Dot);
	UObject* const Object = bHasObject ? PropertyText::FindReferenced(Token.Left(Dot), UObject::StaticClass(), Owner)
									   : Owner;
	const FName Function(bHasObject ? Token.Mid(Dot + 1) : Token);
	if (!Object || Function.IsNone())
	{
		return nullptr;
	}
	OutDelegate.BindUFunction(Object, Function);
	return End;
}

static FString CppName(const UFunction* Signature, const TCHAR* Fallback)
{
	FString Name = Signature ? Signature->GetName() : FString();
	Name.RemoveFromEnd(TEXTVIEW("__DelegateSignature"), ESearchCase::CaseSensitive);
	return Name.IsEmpty() ? FString(Fallback) : TEXT("F") + Name;
}

static void VisitObject(FScriptDelegate& Delegate, TFunctionRef<void(UObject*&)> Visit)
{
	UObject* const Before = Delegate.Object.Get();
	UObject* Object = Before;
	Visit(Object);
	if (Object != Before)
	{
		Delegate.Object = Object;
	}
}
} // namespace DelegateText

void FDelegateProperty::VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const
{
	DelegateText::VisitObject(*static_cast<FScriptDelegate*>(Value), Visit);
}

void FDelegateProperty::VisitTypes(TFunctionRef<void(const UObject*)> Visit) const
{
	Visit(SignatureFunction);
}

bool FDelegateProperty::SameType(const FProperty* Other) const
{
	return FProperty::SameType(Other)
		&& static_cast<const FDelegateProperty*>(Other)->SignatureFunction == SignatureFunction;
}

bool FDelegateProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	static const FScriptDelegate Unbound;
	return (A ? GetPropertyValue(A) : Unbound) == (B ? GetPropertyValue(B) : Unbound);
}

void FDelegateProperty::ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue,
	UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	DelegateText::Append(ValueStr, GetPropertyValue(PropertyValue));
}

const TCHAR* FDelegateProperty::ImportText_Direct(
	const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	FScriptDelegate Delegate;
	const TCHAR* const End = DelegateText::Read(Buffer, OwnerObject, Delegate);
	if (!End)
	{
		PropertyText::Report(ErrorText, TEXT("%s: unresolved delegate: %s"), *GetName(), Buffer);
	}
	SetPropertyValue(PropertyPtr, Delegate);
	return End;
}

FString FDelegateProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return DelegateText::CppName(SignatureFunction, TEXT("FScriptDelegate"));
}

void FMulticastDelegateProperty::VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const
{
	for (FScriptDelegate& Delegate : static_cast<FMulticastScriptDelegate*>(Value)->InvocationList)
	{
		DelegateText::VisitObject(Delegate, Visit);
	}
}

void FMulticastDelegateProperty::VisitTypes(TFunctionRef<void(const UObject*)> Visit) const
{
	Visit(SignatureFunction);
}

bool FMulticastDelegateProperty::SameType(const FProperty* Other) const
{
	return FProperty::SameType(Other)
		&& static_cast<const FMulticastDelegateProperty*>(Other)->SignatureFunction == SignatureFunction;
}

bool FMulticastDelegateProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	static const FMulticastScriptDelegate Unbound;
	return (A ? GetPropertyValue(A) : Unbound) == (B ? GetPropertyValue(B) : Unbound);
}

void FMulticastDelegateProperty::ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue,
	const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	ValueStr.AppendChar(TEXT('('));
	bool bFirst = true;
	for (const FScriptDelegate& Delegate : GetPropertyValue(PropertyValue).InvocationList)
	{
		if (!bFirst)
		{
			ValueStr.AppendChar(TEXT(','));
		}
		bFirst = false;
		DelegateText::Append(ValueStr, Delegate);
	}
	ValueStr.AppendChar(TEXT(')'));
}

const TCHAR* FMulticastDelegateProperty::ImportText_Direct(
	const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	TArray<FScriptDelegate>& Delegates = static_cast<FMulticastScriptDelegate*>(PropertyPtr)->InvocationList;
	Delegates.Reset();
	const TCHAR* Cursor = PropertyText::SkipBlanks(Buffer);
	const bool bHasList = *Cursor == TEXT('(');
	Cursor = bHasList ? PropertyText::SkipBlanks(Cursor + 1) : nullptr;
	while (Cursor && *Cursor != TEXT(')'))
	{
		FScriptDelegate Delegate;
		const TCHAR* const End = DelegateText::Read(Cursor, OwnerObject, Delegate);
		if (End && Delegate.IsBound())
		{
			Delegates.Add(Delegate);
		}
		// One that cannot be resolved is left out, the others stay.
		Cursor = End ? End : PropertyText::SkipValue(Cursor);
		Cursor = Cursor ? PropertyText::SkipBlanks(Cursor) : nullptr;
		const bool bMore = Cursor && *Cursor == TEXT(',');
		Cursor = bMore ? PropertyText::SkipBlanks(Cursor + 1) : Cursor && *Cursor == TEXT(')') ? Cursor : nullptr;
	}
	if (!Cursor)
	{
		PropertyText::Report(ErrorText, TEXT("%s: Malformed list of delegates: %s"), *GetName(), Buffer);
		return nullptr;
	}
	return Cursor + 1;
}

FString FMulticastDelegateProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return DelegateText::CppName(SignatureFunction, TEXT("FMulticastScriptDelegate"));
}
