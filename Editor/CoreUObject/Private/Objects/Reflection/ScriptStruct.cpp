#include "UObject/Class.h"

#include "Objects/Properties/PropertyTextReader.h"
#include "Standalone/NativeClass.h"
#include "UObject/UnrealType.h"

#include <cstring>
#include <new>

namespace StructText
{
/** A struct that holds a list of itself could otherwise be nested by a text until the stack ends. */
constexpr int32 MaxDepth = 64;
static int32 Depth = 0;
} // namespace StructText

void UScriptStruct::DescribeClass(FClassDescriber& Class) {}
void UUserDefinedStruct::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("EditorData"), &UUserDefinedStruct::EditorData);
	Class.Property(TEXT("Guid"), &UUserDefinedStruct::Guid);
}

void UUserDefinedStruct::PostLoad()
{
	Super::PostLoad();
	if (EditorData)
	{
		EditorData->ConditionalPostLoad();
	}
}

UScriptStruct::~UScriptStruct()
{
	if (DefaultValue)
	{
		::operator delete (DefaultValue, std::align_val_t{16});
	}
}

void UScriptStruct::BeginDestroy()
{
	DropDefaultValue();
}

void UScriptStruct::DropDefaultValue()
{
	if (DefaultValue)
	{
		DestroyStruct(DefaultValue);
		::operator delete (DefaultValue, std::align_val_t{16});
		DefaultValue = nullptr;
	}
}

void UScriptStruct::DescribeNativeMembers()
{
	if (NativeDescribe)
	{
		FStructDescriber Describer(this);
		NativeDescribe(Describer);
	}
}

int32 UScriptStruct::GetStructureSize() const
{
	return Ops ? Ops->Size : FMath::Max(GetExtensionSize(), 1);
}

int32 UScriptStruct::GetMinAlignment() const
{
	if (Ops)
	{
		return Ops->Alignment;
	}
	const UScriptStruct* const ParentType = Cast<UScriptStruct>(GetSuperStruct());
	int32 Alignment = ParentType ? ParentType->GetMinAlignment() : 1;
	for (const FField* Field = GetChildProperties(); Field; Field = Field->Next)
	{
		Alignment = FMath::Max(Alignment, static_cast<const FProperty*>(Field)->GetMinAlignment());
	}
	return Alignment;
}

void UScriptStruct::ConstructMembers(void* Dest, bool bWithDefaults) const
{
	if (Ops)
	{
		Ops->Construct(Dest);
		return;
	}
	if (const UScriptStruct* const ParentType = Cast<UScriptStruct>(GetSuperStruct()))
	{
		ParentType->ConstructMembers(Dest, bWithDefaults);
	}
	uint8* const Bytes = static_cast<uint8*>(Dest);
	for (const FField* Field = GetChildProperties(); Field; Field = Field->Next)
	{
		const FProperty* const Property = static_cast<const FProperty*>(Field);
		Property->InitializeValue(Bytes + Property->GetOffset_ForInternal());
	}
	for (const auto& Default : MemberDefaults)
	{
		const FProperty* const Property = bWithDefaults ? FindPropertyByName(Default.Key) : nullptr;
		if (Property)
		{
			void* const Value = Bytes + Property->GetOffset_ForInternal();
			Property->ImportText_Direct(*Default.Value, Value, nullptr, PPF_None);
		}
	}
}

const void* UScriptStruct::GetDefaultValue() const
{
	EnsureMembers();
	if (!DefaultValue)
	{
		const std::size_t Size = static_cast<std::size_t>(GetStructureSize());
		uint8* const Value = static_cast<uint8*>(::operator new (Size, std::align_val_t{16}));
		std::memset(Value, 0, Size);
		ConstructMembers(Value, true);
		DefaultValue = Value;
	}
	return DefaultValue;
}

void UScriptStruct::InitializeStruct(void* Dest) const
{
	EnsureMembers();
	if (Ops)
	{
		Ops->Construct(Dest);
		return;
	}
	const void* const Default = GetDefaultValue();
	std::memset(Dest, 0, static_cast<std::size_t>(GetStructureSize()));
	ConstructMembers(Dest, false);
	CopyScriptStruct(Dest, Default);
}

void UScriptStruct::DestroyStruct(void* Dest) const
{
	if (Ops)
	{
		Ops->Destruct(Dest);
		return;
	}
	for (const FField* Field = GetChildProperties(); Field; Field = Field->Next)
	{
		const FProperty* const Property = static_cast<const FProperty*>(Field);
		Property->DestroyValue(static_cast<uint8*>(Dest) + Property->GetOffset_ForInternal());
	}
	if (const UScriptStruct* const ParentType = Cast<UScriptStruct>(GetSuperStruct()))
	{
		ParentType->DestroyStruct(Dest);
	}
}

void UScriptStruct::CopyScriptStruct(void* Dest, const void* Src) const
{
	if (Ops)
	{
		Ops->Copy(Dest, Src);
		return;
	}
	if (const UScriptStruct* const ParentType = Cast<UScriptStruct>(GetSuperStruct()))
	{
		ParentType->CopyScriptStruct(Dest, Src);
	}
	for (const FField* Field = GetChildProperties(); Field; Field = Field->Next)
	{
		const FProperty* const Property = static_cast<const FProperty*>(Field);
		const int32 Offset = Property->GetOffset_ForInternal();
		Property->CopyCompleteValue(static_cast<uint8*>(Dest) + Offset, static_cast<const uint8*>(Src) + Offset);
	}
}

bool UScriptStruct::CompareScriptStruct(const void* A, const void* B, uint32 PortFlags) const
{
	if (A && B && Ops && Ops->Identical)
	{
		return Ops->Identical(A, B);
	}
	for (TFieldIterator<FProperty> It(this); It; ++It)
	{
		const int32 Offset = It->GetOffset_ForInternal();
		const void* const MemberA = A ? static_cast<const uint8*>(A) + Offset : nullptr;
		const void* const MemberB = B ? static_cast<const uint8*>(B) + Offset : nullptr;
		if (!It->Identical(MemberA, MemberB, PortFlags))
		{
			return false;
		}
	}
	return true;
}

void UScriptStruct::ExportText(FString& ValueStr, const void* Value, const void* Defaults, UObject* OwnerObject,
	int32 PortFlags, UObject* ExportRootScope) const
{
	EnsureMembers();
	if (Ops && Ops->ExportText && Ops->ExportText(ValueStr, Value, Defaults, OwnerObject, PortFlags, ExportRootScope))
	{
		return;
	}
	// Such a struct is one value: all its members or none.
	const void* const Delta = (StructFlags & STRUCT_Atomic) != 0 ? Value : Defaults;
	ValueStr.AppendChar(TEXT('('));
	bool bFirst = true;
	for (TFieldIterator<FProperty> It(this); It; ++It)
	{
		const int32 Offset = It->GetOffset_ForInternal();
		const void* const Member = static_cast<const uint8*>(Value) + Offset;
		const void* const MemberDelta = Delta ? static_cast<const uint8*>(Delta) + Offset : nullptr;
		const bool bWritten = It->ShouldPort(static_cast<uint32>(PortFlags))
			&& (Member == MemberDelta || !It->Identical(Member, MemberDelta, static_cast<uint32>(PortFlags)));
		if (!bWritten)
		{
			continue;
		}
		if (!bFirst)
		{
			ValueStr.AppendChar(TEXT(','));
		}
		bFirst = false;
		It->GetFName().AppendString(ValueStr);
		ValueStr.AppendChar(TEXT('='));
		It->ExportTextItem_Direct(
			ValueStr, Member, MemberDelta, OwnerObject, PortFlags | PPF_Delimited, ExportRootScope);
	}
	ValueStr.AppendChar(TEXT(')'));
}

const TCHAR* UScriptStruct::ImportText(const TCHAR* Buffer, void* Value, UObject* OwnerObject, int32 PortFlags,
	FOutputDevice* ErrorText, const FString& StructName) const
{
	EnsureMembers();
	if (Ops && Ops->ImportText)
	{
		return Ops->ImportText(Buffer, Value, PortFlags, OwnerObject, ErrorText) ? Buffer : nullptr;
	}
	const TGuardValue<int32> Nested(StructText::Depth, StructText::Depth + 1);
	if (StructText::Depth > StructText::MaxDepth)
	{
		PropertyText::Report(ErrorText, TEXT("ImportText (%s): Nested too deep"), *StructName);
		return nullptr;
	}
	const TCHAR* Cursor = PropertyText::SkipBlanks(Buffer);
	if (*Cursor != TEXT('('))
	{
		PropertyText::Report(ErrorText, TEXT("ImportText (%s): Missing opening parenthesis: %s"), *StructName, Buffer);
		return nullptr;
	}
	Cursor = PropertyText::SkipBlanks(Cursor + 1);
	while (*Cursor != TEXT(')'))
	{
		Cursor = PropertyText::ImportMember(*this, Cursor, Value, OwnerObject, PortFlags, ErrorText);
		Cursor = Cursor ? PropertyText::SkipBlanks(Cursor) : nullptr;
		if (!Cursor || (*Cursor != TEXT(',') && *Cursor != TEXT(')')))
		{
			PropertyText::Report(
				ErrorText, TEXT("ImportText (%s): Missing closing parenthesis: %s"), *StructName, Buffer);
			return nullptr;
		}
		Cursor = *Cursor == TEXT(',') ? PropertyText::SkipBlanks(Cursor + 1) : Cursor;
	}
	if (Ops && Ops->PostImportText)
	{
		Ops->PostImportText(Value);
	}
	return Cursor + 1;
}
