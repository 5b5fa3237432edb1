#include "UObject/Class.h"

#include "Standalone/NativeClass.h"
#include "UObject/UnrealType.h"

void UFunction::DescribeClass(FClassDescriber& Class) {}
void UDelegateFunction::DescribeClass(FClassDescriber& Class) {}

namespace FunctionSignatures
{
static const FProperty* NextParameter(const FField* Field)
{
	while (Field && !static_cast<const FProperty*>(Field)->HasAnyPropertyFlags(CPF_Parm))
	{
		Field = Field->Next;
	}
	return static_cast<const FProperty*>(Field);
}

static bool AreInterchangeable(const FProperty* A, const FProperty* B, uint64 IgnoreFlags)
{
	constexpr uint64 Direction = CPF_OutParm | CPF_ReturnParm | CPF_ReferenceParm | CPF_ConstParm | CPF_Parm;
	const uint64 Compared = Direction & ~IgnoreFlags;
	return A->SameType(B) && (A->PropertyFlags & Compared) == (B->PropertyFlags & Compared);
}
} // namespace FunctionSignatures

FProperty* UFunction::GetReturnProperty() const
{
	for (FField* Field = GetChildProperties(); Field; Field = Field->Next)
	{
		FProperty* const Property = static_cast<FProperty*>(Field);
		if (Property->HasAnyPropertyFlags(CPF_ReturnParm))
		{
			return Property;
		}
	}
	return nullptr;
}

uint64 UFunction::GetDefaultIgnoredSignatureCompatibilityFlags()
{
	return CPF_PersistentInstance | CPF_ExposeOnSpawn | CPF_InstancedReference | CPF_ReferenceParm | CPF_ConstParm;
}

bool UFunction::IsSignatureCompatibleWith(const UFunction* Other) const
{
	return IsSignatureCompatibleWith(Other, GetDefaultIgnoredSignatureCompatibilityFlags());
}

bool UFunction::IsSignatureCompatibleWith(const UFunction* Other, uint64 IgnoreFlags) const
{
	if (this == Other || !Other)
	{
		return this == Other;
	}
	const FProperty* Mine = FunctionSignatures::NextParameter(GetChildProperties());
	const FProperty* Theirs = FunctionSignatures::NextParameter(Other->GetChildProperties());
	while (Mine && Theirs && FunctionSignatures::AreInterchangeable(Mine, Theirs, IgnoreFlags))
	{
		Mine = FunctionSignatures::NextParameter(Mine->Next);
		Theirs = FunctionSignatures::NextParameter(Theirs->Next);
	}
	return !Mine && !Theirs;
}
