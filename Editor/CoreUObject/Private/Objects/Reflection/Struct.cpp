#include "UObject/Class.h"

#include "Objects/ObjectExtension.h"
#include "Objects/Properties/MemoryLayout.h"
#include "Standalone/NativeClass.h"
#include "Standalone/ObjectProviders.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"

DEFINE_LOG_CATEGORY_STATIC(LogStruct, Log, All);

namespace StructMembers
{
static void DeleteAll(TArray<FProperty*>& Properties)
{
	for (const FProperty* const Property : Properties)
	{
		delete Property;
	}
	Properties.Reset();
}
} // namespace StructMembers

void UStruct::DescribeClass(FClassDescriber& Class) {}

UStruct::~UStruct()
{
	for (FField* Field = ChildProperties; Field;)
	{
		FField* const Following = Field->Next;
		delete Field;
		Field = Following;
	}
	StructMembers::DeleteAll(RetiredProperties);
}

void UStruct::FillMembers() const
{
	bMembersPending = false;
	UStruct* const Self = const_cast<UStruct*>(this);
	Self->DescribeNativeMembers();
	if (MemberFiller)
	{
		MemberFiller(Self, FillerDataIndex);
	}
	const auto FillNative = ObjectProviders::GetLazyObjects().FillNativeMembers;
	if (FillNative && HasNativeMembers())
	{
		FillNative(Self);
	}
	Self->Link();
}

FProperty* UStruct::FindPropertyByName(FName Name) const
{
	for (const UStruct* Struct = this; Struct; Struct = Struct->SuperStruct)
	{
		Struct->EnsureMembers();
		FProperty* const* const Found = Struct->PropertyByName.Find(Name);
		if (Found)
		{
			return *Found;
		}
	}
	return nullptr;
}

void UStruct::AddProperty(FProperty* Property)
{
	const bool bMemoryIsNative = HasNativeMembers() && !IsA<UClass>();
	if (bMemoryIsNative && !Property->IsNativeMember())
	{
		UE_LOG(
			LogStruct, Warning, TEXT("Native struct %s cannot hold the property %s"), *GetName(), *Property->GetName());
		delete Property;
		return;
	}
	Property->Next = nullptr;
	(LastChildProperty ? LastChildProperty->Next : ChildProperties) = Property;
	LastChildProperty = Property;
	PropertyByName.Add(Property->GetFName(), Property);
}

void UStruct::AddFunction(UFunction* Function)
{
	Function->Next = nullptr;
	(LastChild ? LastChild->Next : Children) = Function;
	LastChild = Function;
	if (UClass* const Class = Cast<UClass>(this))
	{
		Class->AddFunctionToMap(Function);
	}
}

void UStruct::RemoveFunction(UFunction* Function)
{
	UField* Previous = nullptr;
	UField* Field = Children;
	while (Field && Field != Function)
	{
		Previous = Field;
		Field = Field->Next;
	}
	if (!Field)
	{
		return;
	}
	(Previous ? Previous->Next : Children) = Function->Next;
	LastChild = LastChild == Function ? Previous : LastChild;
	Function->Next = nullptr;
	if (UClass* const Class = Cast<UClass>(this))
	{
		Class->RemoveFunctionFromMap(Function);
	}
}

void UStruct::DestroyMembers()
{
	EnsureMembers();
	while (Children)
	{
		UFunction* const Function = static_cast<UFunction*>(Children);
		RemoveFunction(Function);
		Function->MarkAsGarbage();
	}
	TArray<FProperty*> Dropped;
	for (FField* Field = ChildProperties; Field; Field = Field->Next)
	{
		Dropped.Add(static_cast<FProperty*>(Field));
	}
	ChildProperties = nullptr;
	LastChildProperty = nullptr;
	PropertyByName.Reset();
	const bool bKeepForObjects = bInstanced && ExtensionSize > 0 && RetiredSize == 0;
	if (bKeepForObjects)
	{
		RetiredProperties = MoveTemp(Dropped);
		RetiredSize = ExtensionSize;
	}
	else
	{
		StructMembers::DeleteAll(Dropped);
	}
	ExtensionSize = 0;
}

void UStruct::LinkProperties()
{
	const bool bIsClass = IsA<UClass>();
	int32 Size = ExtensionSize;
	int32 LargestAlignment = 1;
	const UScriptStruct* const SuperMemory = bIsClass ? nullptr : Cast<UScriptStruct>(SuperStruct);
	if (SuperMemory && Size == 0)
	{
		Size = SuperMemory->GetStructureSize();
		LargestAlignment = SuperMemory->GetMinAlignment();
	}
	for (FField* Field = ChildProperties; Field; Field = Field->Next)
	{
		FProperty* const Property = static_cast<FProperty*>(Field);
		LargestAlignment = FMath::Max(LargestAlignment, Property->GetMinAlignment());
		if (Property->bNativeMember || Property->bPlaced)
		{
			continue;
		}
		Property->Offset = MemoryLayout::Align(Size, Property->GetMinAlignment());
		Property->bInExtension = bIsClass;
		Property->bPlaced = true;
		Size = Property->Offset + Property->GetElementSize();
	}
	ExtensionSize = bIsClass ? Size : MemoryLayout::Align(Size, LargestAlignment);
}

void UStruct::Link()
{
	EnsureMembers();
	TArray<FProperty*> OldProperties;
	int32 OldSize = ExtensionSize;
	if (RetiredSize > 0)
	{
		OldProperties = MoveTemp(RetiredProperties);
		OldSize = RetiredSize;
	}
	else
	{
		for (FField* Field = ChildProperties; Field; Field = Field->Next)
		{
			FProperty* const Property = static_cast<FProperty*>(Field);
			if (Property->bPlaced)
			{
				OldProperties.Add(Property);
			}
		}
	}
	const bool bWasRetired = RetiredSize > 0;
	LinkProperties();
	if (bInstanced && IsA<UClass>() && (bWasRetired || ExtensionSize != OldSize))
	{
		FObjectExtension::Relayout(*this, OldProperties, OldSize);
	}
	if (bWasRetired)
	{
		StructMembers::DeleteAll(OldProperties);
	}
	RetiredProperties.Reset();
	RetiredSize = 0;
}

FTopLevelAssetPath UStruct::GetStructPathName() const
{
	return FTopLevelAssetPath(this);
}
