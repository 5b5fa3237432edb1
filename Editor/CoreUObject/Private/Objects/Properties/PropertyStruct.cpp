#include "UObject/UnrealType.h"

#include <cstring>

int32 FStructProperty::GetElementSize() const
{
	return Struct ? Struct->GetStructureSize() : 1;
}

int32 FStructProperty::GetMinAlignment() const
{
	return Struct ? Struct->GetMinAlignment() : 1;
}

void FStructProperty::InitializeValue(void* Dest) const
{
	if (Struct)
	{
		Struct->InitializeStruct(Dest);
	}
}

void FStructProperty::DestroyValue(void* Dest) const
{
	if (Struct)
	{
		Struct->DestroyStruct(Dest);
	}
}

void FStructProperty::CopyCompleteValue(void* Dest, const void* Src) const
{
	if (Struct)
	{
		Struct->CopyScriptStruct(Dest, Src);
	}
}

bool FStructProperty::SameType(const FProperty* Other) const
{
	return FProperty::SameType(Other) && static_cast<const FStructProperty*>(Other)->Struct == Struct;
}

void FStructProperty::VisitTypes(TFunctionRef<void(const UObject*)> Visit) const
{
	Visit(Struct);
}

void FStructProperty::VisitObjects(void* Value, TFunctionRef<void(UObject*&)> Visit) const
{
	for (TFieldIterator<FProperty> It(Struct); It; ++It)
	{
		It->VisitObjects(static_cast<uint8*>(Value) + It->GetOffset_ForInternal(), Visit);
	}
}

bool FStructProperty::ContainsObjectReference(TArray<const FStructProperty*>& Encountered) const
{
	if (Encountered.Contains(this))
	{
		return false;
	}
	Encountered.Add(this);
	for (TFieldIterator<FProperty> It(Struct); It; ++It)
	{
		if (It->ContainsObjectReference(Encountered))
		{
			return true;
		}
	}
	return false;
}

bool FStructProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	return !Struct || Struct->CompareScriptStruct(A, B, PortFlags);
}

void FStructProperty::ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue,
	UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	if (Struct)
	{
		Struct->ExportText(ValueStr, PropertyValue, DefaultValue, Parent, PortFlags, ExportRootScope);
	}
}

const TCHAR* FStructProperty::ImportText_Direct(
	const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	return Struct ? Struct->ImportText(Buffer, PropertyPtr, OwnerObject, PortFlags, ErrorText, GetName()) : nullptr;
}

FString FStructProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return Struct ? Struct->GetStructCPPName() : FString(TEXT("void"));
}
