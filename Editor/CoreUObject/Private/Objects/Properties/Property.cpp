#include "UObject/UnrealType.h"

#include "Objects/Properties/PropertyTextReader.h"

void* FProperty::GetValuePtr(UObject* Container) const
{
	return LocateIn(Container);
}

void* FProperty::LocateIn(void* Container) const
{
	if (bInExtension)
	{
		const UStruct* const OwnerStruct = static_cast<const UStruct*>(GetOwnerVariant().ToUObject());
		uint8* const Block = static_cast<UObject*>(Container)->FindExtension(OwnerStruct);
		return Block ? Block + Offset : nullptr;
	}
	return static_cast<uint8*>(Container) + Offset;
}

void FProperty::ClearValue(void* Dest) const
{
	DestroyValue(Dest);
	InitializeValue(Dest);
}

bool FProperty::Identical_InContainer(const void* A, const void* B) const
{
	return Identical(ContainerPtrToValuePtr<void>(A), B ? ContainerPtrToValuePtr<void>(B) : nullptr);
}

bool FProperty::ExportText_Direct(FString& ValueStr, const void* Data, const void* Delta, UObject* Parent,
	int32 PortFlags, UObject* ExportRootScope) const
{
	if (Data != Delta && Identical(Data, Delta, static_cast<uint32>(PortFlags)))
	{
		return false;
	}
	ExportTextItem_Direct(ValueStr, Data, Delta, Parent, PortFlags, ExportRootScope);
	return true;
}

bool FProperty::ExportText_InContainer(int32 Index, FString& ValueStr, const void* Data, const void* Delta,
	UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	return ExportText_Direct(ValueStr, ContainerPtrToValuePtr<void>(Data),
		Delta ? ContainerPtrToValuePtr<void>(Delta) : nullptr, Parent, PortFlags, ExportRootScope);
}

const TCHAR* FProperty::ImportText_InContainer(
	const TCHAR* Buffer, void* Container, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	return ImportText_Direct(Buffer, ContainerPtrToValuePtr<void>(Container), OwnerObject, PortFlags, ErrorText);
}

bool FProperty::ValidateImportFlags(uint32 PortFlags, FOutputDevice* ErrorHandler) const
{
	return true;
}

bool FProperty::ShouldPort(uint32 PortFlags) const
{
	const uint64 LeftOut = (PortFlags & PPF_IncludeTransient) != 0 ? CPF_Deprecated : CPF_Deprecated | CPF_Transient;
	return !HasAnyPropertyFlags(LeftOut | CPF_TextExportTransient);
}
