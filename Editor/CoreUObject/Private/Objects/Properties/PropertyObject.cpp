#include "UObject/UnrealType.h"

#include "Objects/Properties/PropertyTextReader.h"
#include "Standalone/MissingObjects.h"
#include "Standalone/ObjectText.h"
#include "UObject/Package.h"

namespace ObjectReferences
{
/** Where a path may start: at the scope that is written, when text need not stand alone. */
static const UObject* PathScope(
	const UObject* Object, const UObject* Parent, int32 PortFlags, const UObject* ExportRootScope)
{
	if ((PortFlags & PPF_ExportsNotFullyQualified) == 0)
	{
		return nullptr;
	}
	const UObject* Scope = ExportRootScope;
	if (!Scope && Parent)
	{
		Scope = Parent->GetOutermost();
	}
	return Scope && Object != Scope && Object->IsIn(Scope) ? Scope : nullptr;
}

static void Append(FString& Out, const UObject* Object, UObject* Parent, int32 PortFlags, UObject* ExportRootScope)
{
	if (!Object)
	{
		Out += TEXT("None");
		return;
	}
	const bool bDelimited = (PortFlags & PPF_Delimited) != 0;
	const UObject* const Scope = PathScope(Object, Parent, PortFlags, ExportRootScope);
	if (bDelimited)
	{
		Out.AppendChar(TEXT('"'));
	}
	if ((PortFlags & PPF_SimpleObjectText) != 0)
	{
		Object->GetPathName(Scope, Out);
	}
	else
	{
		// An object of an unknown class is still called by that class.
		const FKeptObjectText* const Kept = FKeptObjectText::Find(Object);
		if (Kept && !Kept->ClassPath.empty())
		{
			Out += FromUtf8(Kept->ClassPath);
		}
		else
		{
			Object->GetClass()->GetPathName(nullptr, Out);
		}
		Out.AppendChar(TEXT('\''));
		Object->GetPathName(Scope, Out);
		Out.AppendChar(TEXT('\''));
	}
	if (bDelimited)
	{
		Out.AppendChar(TEXT('"'));
	}
}

/** What the class in a class property must be, or null. */
static const UClass* RequiredBase(const FProperty& Property)
{
	const FClassProperty* const ClassProperty = CastField<FClassProperty>(&Property);
	return ClassProperty ? ClassProperty->MetaClass : nullptr;
}
/** The class in front of the path of a reference's text; empty when it has none. */
static FString ClassText(const TCHAR* Start, const TCHAR* End)
{
	FStringView Text(Start, static_cast<int32>(End - Start));
	Text = !Text.IsEmpty() && Text[0] == TEXT('"') ? Text.Mid(1) : Text;
	int32 Quote = INDEX_NONE;
	return Text.FindChar(TEXT('\''), Quote) ? FString(Text.Left(Quote)) : FString();
}

/** Reads a reference of any spelling; null when it is malformed or names nothing of that class. */
static const TCHAR* Read(const TCHAR* Buffer, const UClass* Class, const FProperty& Property, UObject* Owner,
	int32 PortFlags, UObject*& OutObject, FOutputDevice* ErrorText)
{
	OutObject = nullptr;
	const bool bDelimited = (PortFlags & PPF_Delimited) != 0;
	const TCHAR* const Start = PropertyText::SkipBlanks(Buffer);
	if (!*Start && !bDelimited)
	{
		return Start;
	}
	FString Path;
	const TCHAR* const End = PropertyText::ReadReference(Start, !bDelimited, Path);
	if (!End)
	{
		PropertyText::Report(ErrorText, TEXT("%s: Malformed object reference: %s"), *Property.GetName(), Buffer);
		return nullptr;
	}
	if (Path.IsEmpty() || Path.Equals(TEXT("None"), ESearchCase::IgnoreCase))
	{
		return End;
	}
	OutObject = PropertyText::FindReferenced(Path, Class, Owner);
	if (!OutObject)
	{
		PropertyText::Report(ErrorText, TEXT("%s: unresolved reference to '%s'"), *Property.GetName(), *Path);
		OutObject = FMissingObjects::IsKeeping()
			? FMissingObjects::StandInFor(ClassText(Start, End), Path, Class, RequiredBase(Property), Owner)
			: nullptr;
	}
	return OutObject ? End : nullptr;
}

static FString CppName(const UClass* Class)
{
	return Class ? FString(Class->GetPrefixCPP()) + Class->GetName() : FString(TEXT("UObject"));
}
} // namespace ObjectReferences

void FObjectPropertyBase::VisitTypes(TFunctionRef<void(const UObject*)> Visit) const
{
	Visit(PropertyClass);
}

void FObjectPropertyBase::VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const
{
	UObject* const Before = IsA<FWeakObjectProperty>() ? static_cast<FWeakObjectPtr*>(Value)->Get(true)
													   : GetObjectPropertyValue(Value);
	UObject* Object = Before;
	Visit(Object);
	if (Object != Before)
	{
		SetObjectPropertyValue(Value, Object);
	}
}

bool FObjectPropertyBase::SameType(const FProperty* Other) const
{
	return FProperty::SameType(Other) && static_cast<const FObjectPropertyBase*>(Other)->PropertyClass == PropertyClass;
}

bool FObjectPropertyBase::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	return (A ? GetObjectPropertyValue(A) : nullptr) == (B ? GetObjectPropertyValue(B) : nullptr);
}

void FObjectPropertyBase::ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue,
	UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	ObjectReferences::Append(ValueStr, GetObjectPropertyValue(PropertyValue), Parent, PortFlags, ExportRootScope);
}

const TCHAR* FObjectPropertyBase::ImportText_Direct(
	const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	UObject* Object = nullptr;
	const TCHAR* End = ObjectReferences::Read(Buffer, PropertyClass, *this, OwnerObject, PortFlags, Object, ErrorText);
	const UClass* const Base = ObjectReferences::RequiredBase(*this);
	const UClass* const AsClass = Base ? Cast<UClass>(Object) : nullptr;
	if (AsClass && !AsClass->IsChildOf(Base) && !FMissingObjects::IsMissing(AsClass))
	{
		PropertyText::Report(ErrorText, TEXT("%s: %s is no %s"), *GetName(), *AsClass->GetName(), *Base->GetName());
		Object = nullptr;
		End = nullptr;
	}
	SetObjectPropertyValue(PropertyPtr, Object);
	return End;
}

FString FObjectPropertyBase::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	const FString Name = ObjectReferences::CppName(PropertyClass);
	return IsA<FWeakObjectProperty>() ? TEXT("TWeakObjectPtr<") + Name + TEXT(">") : Name + TEXT("*");
}

bool FClassProperty::SameType(const FProperty* Other) const
{
	return FObjectProperty::SameType(Other) && static_cast<const FClassProperty*>(Other)->MetaClass == MetaClass;
}

void FClassProperty::VisitTypes(TFunctionRef<void(const UObject*)> Visit) const
{
	FObjectProperty::VisitTypes(Visit);
	Visit(MetaClass);
}

FString FClassProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	const bool bNarrowed = MetaClass && MetaClass != UObject::StaticClass();
	return bNarrowed || HasAnyPropertyFlags(CPF_UObjectWrapper)
		? TEXT("TSubclassOf<") + ObjectReferences::CppName(MetaClass) + TEXT("> ")
		: FString(TEXT("UClass*"));
}

void FSoftObjectProperty::SetObjectPropertyValue(void* Data, UObject* Value) const
{
	static_cast<FSoftObjectPtr*>(Data)->Path = FSoftObjectPath(Value);
}

void FSoftObjectProperty::VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const
{
	// A path is a name, not a reference: it stays what it is.
}

bool FSoftObjectProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	static const FSoftObjectPtr Null;
	return (A ? *static_cast<const FSoftObjectPtr*>(A) : Null) == (B ? *static_cast<const FSoftObjectPtr*>(B) : Null);
}

void FSoftObjectProperty::ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue,
	UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	PropertyText::AppendSoftPath(ValueStr, static_cast<const FSoftObjectPtr*>(PropertyValue)->Path, PortFlags);
}

const TCHAR* FSoftObjectProperty::ImportText_Direct(
	const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	const bool bDelimited = (PortFlags & PPF_Delimited) != 0;
	const TCHAR* const Start = PropertyText::SkipBlanks(Buffer);
	FSoftObjectPath& Path = static_cast<FSoftObjectPtr*>(PropertyPtr)->Path;
	if (!*Start && !bDelimited)
	{
		Path.Reset();
		return Start;
	}
	FString Text;
	const TCHAR* const End = PropertyText::ReadReference(Start, !bDelimited, Text);
	if (!End)
	{
		PropertyText::Report(ErrorText, TEXT("%s: Malformed path: %s"), *GetName(), Buffer);
		return nullptr;
	}
	Path.SetPath(Text);
	return End;
}

FString FSoftObjectProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return TEXT("TSoftObjectPtr<") + ObjectReferences::CppName(PropertyClass) + TEXT(">");
}

void FSoftClassProperty::VisitTypes(TFunctionRef<void(const UObject*)> Visit) const
{
	FSoftObjectProperty::VisitTypes(Visit);
	Visit(MetaClass);
}

FString FSoftClassProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return TEXT("TSoftClassPtr<") + ObjectReferences::CppName(MetaClass) + TEXT("> ");
}

void FInterfaceProperty::VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const
{
	Visit(static_cast<FScriptInterface*>(Value)->Object);
}

void FInterfaceProperty::VisitTypes(TFunctionRef<void(const UObject*)> Visit) const
{
	Visit(InterfaceClass);
}

bool FInterfaceProperty::SameType(const FProperty* Other) const
{
	return FProperty::SameType(Other)
		&& static_cast<const FInterfaceProperty*>(Other)->InterfaceClass == InterfaceClass;
}

bool FInterfaceProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	return (A ? GetPropertyValue(A) : FScriptInterface()) == (B ? GetPropertyValue(B) : FScriptInterface());
}

void FInterfaceProperty::ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue,
	UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	ObjectReferences::Append(ValueStr, GetPropertyValue(PropertyValue).GetObject(), Parent, PortFlags, ExportRootScope);
}

const TCHAR* FInterfaceProperty::ImportText_Direct(
	const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	UObject* Object = nullptr;
	const TCHAR* End = ObjectReferences::Read(
		Buffer, UObject::StaticClass(), *this, OwnerObject, PortFlags, Object, ErrorText);
	const bool bAnyFits = !InterfaceClass || InterfaceClass == UInterface::StaticClass();
	if (Object && !bAnyFits && !FMissingObjects::IsMissing(Object) && !Object->ImplementsInterface(InterfaceClass))
	{
		PropertyText::Report(ErrorText, TEXT("%s: %s does not implement %s"), *GetName(), *Object->GetName(),
			*InterfaceClass->GetName());
		Object = nullptr;
		End = nullptr;
	}
	static_cast<FScriptInterface*>(PropertyPtr)->SetObject(Object);
	return End;
}

FString FInterfaceProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	if (ExtendedTypeText)
	{
		*ExtendedTypeText = TEXT("<I") + (InterfaceClass ? InterfaceClass->GetName() : FString(TEXT("Interface")))
			+ TEXT(">");
	}
	return TEXT("TScriptInterface");
}
