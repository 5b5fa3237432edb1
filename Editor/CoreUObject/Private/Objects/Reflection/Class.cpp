#include "UObject/Class.h"

#include "Objects/LostMembers.h"
#include "Objects/ObjectExtension.h"
#include "Objects/ObjectTable.h"
#include "Standalone/MissingObjects.h"
#include "Standalone/NativeClass.h"
#include "UObject/UnrealType.h"

void UClass::DescribeClass(FClassDescriber& Class) {}
void UInterface::DescribeClass(FClassDescriber& Class) {}

void UClass::DescribeNativeMembers()
{
	if (NativeDescribe)
	{
		FClassDescriber Describer(this);
		NativeDescribe(Describer);
	}
}

const UClass* UClass::GetNativeClass() const
{
	const UClass* Class = this;
	while (Class && !Class->NativeConstructor)
	{
		Class = Class->GetSuperClass();
	}
	return Class;
}

const TCHAR* UClass::GetPrefixCPP() const
{
	static const FName ActorName(TEXT("Actor"));
	for (const UClass* Class = this; Class; Class = Class->GetSuperClass())
	{
		if (Class->GetFName() == ActorName)
		{
			return TEXT("A");
		}
	}
	return TEXT("U");
}

UFunction* UClass::FindFunctionByName(FName Name, EIncludeSuperFlag::Type SuperFlag) const
{
	EnsureMembers();
	UFunction* const* const Own = FunctionByName.Find(Name);
	if (Own || SuperFlag == EIncludeSuperFlag::ExcludeSuper)
	{
		return Own ? *Own : nullptr;
	}
	for (const FImplementedInterface& Interface : Interfaces)
	{
		UFunction* const Function = Interface.Class ? Interface.Class->FindFunctionByName(Name) : nullptr;
		if (Function)
		{
			return Function;
		}
	}
	const UClass* const ParentClass = GetSuperClass();
	return ParentClass ? ParentClass->FindFunctionByName(Name) : nullptr;
}

bool UClass::ImplementsInterface(const UClass* SomeInterface) const
{
	if (!SomeInterface || !SomeInterface->HasAnyClassFlags(CLASS_Interface)
		|| SomeInterface == UInterface::StaticClass())
	{
		return false;
	}
	for (const UClass* Class = this; Class; Class = Class->GetSuperClass())
	{
		Class->EnsureMembers();
		for (const FImplementedInterface& Interface : Class->Interfaces)
		{
			if (Interface.Class && Interface.Class->IsChildOf(SomeInterface))
			{
				return true;
			}
		}
	}
	return false;
}

void UClass::AddFunctionToMap(UFunction* Function)
{
	FunctionByName.Add(Function->GetFName(), Function);
}

void UClass::RemoveFunctionFromMap(UFunction* Function)
{
	if (FunctionByName.FindRef(Function->GetFName()) == Function)
	{
		FunctionByName.Remove(Function->GetFName());
	}
}

void UClass::StashDefaults()
{
	const UObject* const Parent = GetSuperClass() ? GetSuperClass()->GetDefaultObject() : nullptr;
	for (TFieldIterator<FProperty> It(this); It; ++It)
	{
		const void* const Value = It->GetValuePtr(ClassDefaultObject);
		const void* const ParentValue = Parent && Parent->IsA(It->GetOwnerClass()) ? It->GetValuePtr(Parent) : nullptr;
		FString Text;
		if (!ParentValue || !It->Identical(Value, ParentValue))
		{
			It->ExportTextItem_Direct(Text, Value, nullptr, ClassDefaultObject, PPF_Delimited | PPF_ExactNumbers);
			StashedDefaults.Add(It->GetFName(), Text);
		}
	}
}

void UClass::SetSuperStruct(UStruct* NewSuper)
{
	UClass* const OldParent = GetSuperClass();
	if (NewSuper == OldParent)
	{
		return;
	}
	const UClass* const NewParent = static_cast<UClass*>(NewSuper);
	const bool bSameCode = IsNative()
		|| (NewParent && OldParent && NewParent->GetNativeClass() == OldParent->GetNativeClass());
	if (bInstanced && !bSameCode)
	{
		if (ClassDefaultObject)
		{
			StashDefaults();
			ClassDefaultObject->MarkAsGarbage();
			ClassDefaultObject = nullptr;
		}
		// Objects are C++ objects of the old native class, and stay that.
		for (UObject* const Instance : FObjectTable::Get().GetInstances(*this, false, true))
		{
			FObjectTable::Get().SetClass(*Instance, OldParent);
			FObjectExtension::Match(*Instance);
		}
	}
	const bool bComesOrGoes = bInstanced
		&& (FMissingObjects::FindMissingParent(NewParent) || FMissingObjects::FindMissingParent(OldParent));
	if (bComesOrGoes)
	{
		for (UObject* const Instance : FObjectTable::Get().GetInstances(*this, true, false))
		{
			LostMembers::Leave(*Instance, NewParent, this);
		}
	}
	SuperStruct = NewSuper;
	if (bInstanced)
	{
		FObjectExtension::MatchInstances(*this);
	}
	if (bComesOrGoes)
	{
		for (UObject* const Instance : FObjectTable::Get().GetInstances(*this, true, false))
		{
			LostMembers::Retry(*Instance);
		}
	}
}
