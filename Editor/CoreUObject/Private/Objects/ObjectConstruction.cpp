#include "Objects/ObjectConstruction.h"

#include "Objects/LostMembers.h"
#include "Objects/ObjectExtension.h"
#include "Objects/ObjectTable.h"
#include "Standalone/MissingObjects.h"
#include "Standalone/ObjectProviders.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"

namespace ObjectConstruction
{
/** The counterpart below NewRoot of an object below OldRoot; null when there is none. */
static UObject* FindCounterpart(const UObject* Object, const UObject* OldRoot, UObject* NewRoot)
{
	if (Object == OldRoot)
	{
		return NewRoot;
	}
	UObject* const Outer = FindCounterpart(Object->GetOuter(), OldRoot, NewRoot);
	return Outer ? FObjectTable::Get().Find(Outer, Object->GetFName()) : nullptr;
}

static void PointAtCounterparts(UObject* Object, const UObject* OldRoot, UObject* NewRoot)
{
	VisitReferences(Object,
		[OldRoot, NewRoot](UObject*& Reference)
		{
			if (Reference && Reference->IsIn(OldRoot))
			{
				UObject* const Counterpart = FindCounterpart(Reference, OldRoot, NewRoot);
				Reference = Counterpart ? Counterpart : Reference;
			}
		});
}

static void PointTreeAtCounterparts(UObject* Root, const UObject* OldRoot)
{
	PointAtCounterparts(Root, OldRoot, Root);
	ForEachObjectWithOuter(
		Root, [Root, OldRoot](UObject* Inner) { PointAtCounterparts(Inner, OldRoot, Root); }, true);
}

/** Copies what the old object had set itself, that is what differs from the parent's value, sub-objects included. */
static void TakeOverOwnValues(UObject* New, const UObject* Old, const UObject* Parent)
{
	for (TFieldIterator<FProperty> It(New->GetClass()); It && Old->IsA(New->GetClass()); ++It)
	{
		const void* const OldValue = It->GetValuePtr(Old);
		const bool bInherited = Parent && Parent->IsA(It->GetOwnerClass());
		if (!bInherited || !It->Identical(OldValue, It->GetValuePtr(Parent)))
		{
			It->CopyCompleteValue(It->GetValuePtr(New), OldValue);
		}
	}
	for (UObject* Inner = New->GetFirstInner(); Inner; Inner = Inner->GetNextInner())
	{
		const UObject* OldInner = Old->GetFirstInner();
		while (OldInner && OldInner->GetFName() != Inner->GetFName())
		{
			OldInner = OldInner->GetNextInner();
		}
		if (OldInner)
		{
			TakeOverOwnValues(Inner, OldInner, Parent ? FObjectTable::Get().Find(Parent, Inner->GetFName()) : nullptr);
		}
	}
}

/**
 * Gives the object a default sub-object for each that its archetype has, and points its references at its own ones. A
 * sub-object that the constructor made takes the archetype's values too, unless the constructor gives them all.
 */
static void InstanceSubobjects(UObject* Object, const UObject* Archetype, bool bConstructorGivesAll)
{
	const bool bInTemplate = Object->IsTemplate();
	for (UObject* Inner = Archetype->GetFirstInner(); Inner; Inner = Inner->GetNextInner())
	{
		if (!Inner->HasAnyFlags(RF_DefaultSubObject))
		{
			continue;
		}
		UObject* const Standing = FObjectTable::Get().Find(Object, Inner->GetFName());
		if (!Standing)
		{
			const uint32 Flags = (Inner->GetFlags() & ~RF_ArchetypeObject)
				| (bInTemplate ? RF_ArchetypeObject : RF_NoFlags);
			StaticConstructObject_Internal(
				Inner->GetClass(), Object, Inner->GetFName(), static_cast<EObjectFlags>(Flags), Inner);
		}
		else if (!bConstructorGivesAll)
		{
			CopyProperties(Standing, Inner, false);
			InstanceSubobjects(Standing, Inner, false);
		}
	}
}

void CopyProperties(UObject* Target, const UObject* Source, bool bExtensionOnly)
{
	const UClass* Class = Source->GetClass();
	while (Class && !Target->IsA(Class))
	{
		Class = Class->GetSuperClass();
	}
	for (TFieldIterator<FProperty> It(Class); It; ++It)
	{
		if (!bExtensionOnly || It->IsInExtension())
		{
			It->CopyCompleteValue(It->GetValuePtr(Target), It->GetValuePtr(Source));
		}
	}
}

void VisitReferences(UObject* Object, TFunctionRef<void(UObject*&)> Visit)
{
	for (TFieldIterator<FProperty> It(Object->GetClass()); It; ++It)
	{
		It->VisitObjects(It->GetValuePtr(Object), Visit);
	}
}

static bool HasExtension(const UObject& Object)
{
	return FObjectTable::GetExtension(const_cast<UObject&>(Object)) != nullptr;
}

/** Classes and packages start as their constructors leave them. */
static bool HasNoDefaults(const UClass* Class)
{
	return Class->IsChildOf(UField::StaticClass()) || Class->IsChildOf(UPackage::StaticClass());
}

static void InitializeFromArchetype(UObject* Object, UObject* Template)
{
	const UClass* const Class = Object->GetClass();
	UObject* Archetype = Template;
	if (!Archetype)
	{
		const UClass* const Source = Object->HasAnyFlags(RF_ClassDefaultObject) ? Class->GetSuperClass() : Class;
		Archetype = Source ? Source->GetDefaultObject() : nullptr;
	}
	if (!Archetype || Archetype == Object)
	{
		return;
	}
	const bool bConstructorGivesAll = !Template && Archetype->GetClass()->IsNative()
		&& !Archetype->GetClass()->HasDataDefaults();
	if (!bConstructorGivesAll || HasExtension(*Archetype))
	{
		CopyProperties(Object, Archetype, bConstructorGivesAll);
	}
	if (Archetype->GetFirstInner())
	{
		InstanceSubobjects(Object, Archetype, bConstructorGivesAll);
		PointTreeAtCounterparts(Object, Archetype);
	}
}
} // namespace ObjectConstruction

UObject* StaticConstructObject_Internal(
	const UClass* Class, UObject* Outer, FName Name, EObjectFlags Flags, UObject* Template)
{
	check(Class != nullptr);
	FObjectTable& Table = FObjectTable::Get();
	if (Name.IsNone())
	{
		Name = Table.MakeUniqueName(Outer, Class->GetFName());
	}
	else if (UObject* const Standing = Table.Find(Outer, Name))
	{
		if (Standing->IsA(Class))
		{
			Standing->SetFlags(Flags);
			return Standing;
		}
		Name = Table.MakeUniqueName(Outer, Name);
	}
	const UClass* const Native = Class->GetNativeClass();
	checkf(Native != nullptr, TEXT("A class without a native ancestor cannot be instanced"));
	UObject* const Object = Table.Construct(*Native, {Class, Outer, Name, Flags});
	if (!ObjectConstruction::HasNoDefaults(Class))
	{
		FObjectExtension::Match(*Object);
		ObjectConstruction::InitializeFromArchetype(Object, Template);
	}
	Object->PostInitProperties();
	return Object;
}

UObject* UObject::CreateDefaultSubobject(
	FName SubobjectFName, const UClass* ReturnType, const UClass* ClassToCreate, bool bIsRequired, bool bIsTransient)
{
	uint32 Flags = RF_Public | RF_DefaultSubObject;
	Flags |= IsTemplate() ? RF_ArchetypeObject : RF_NoFlags;
	Flags |= bIsTransient ? RF_Transient : RF_NoFlags;
	return StaticConstructObject_Internal(ClassToCreate, this, SubobjectFName, static_cast<EObjectFlags>(Flags));
}

UObject* UClass::GetDefaultObject(bool bCreateIfNeeded) const
{
	if (!ClassDefaultObject && bCreateIfNeeded)
	{
		const_cast<UClass*>(this)->CreateDefaultObject();
	}
	return ClassDefaultObject;
}

void UClass::CreateDefaultObject()
{
	EnsureMembers();
	const UClass* const ParentClass = GetSuperClass();
	if (ParentClass)
	{
		ParentClass->GetDefaultObject();
		bHasDataDefaults = ParentClass->bHasDataDefaults;
	}
	if (ClassDefaultObject)
	{
		return; // A constructor of the parent's line asked for it.
	}
	const FName Name(TEXT("Default__") + GetName());
	constexpr uint32 Flags = RF_Public | RF_ClassDefaultObject | RF_ArchetypeObject;
	ClassDefaultObject = StaticConstructObject_Internal(this, GetOuter(), Name, static_cast<EObjectFlags>(Flags));
	const UPackage* const Package = GetOutermost();
	const bool bFromCode = Package && (Package->PackageFlags & PKG_CompiledIn) != 0;
	const auto InitializeDefaults = ObjectProviders::GetLazyObjects().InitializeDefaults;
	if (bFromCode && InitializeDefaults && InitializeDefaults(this, ClassDefaultObject))
	{
		bHasDataDefaults = true;
	}
}

UObject* UClass::GetDefaultSubobjectByName(FName Name) const
{
	UObject* const Subobject = FObjectTable::Get().Find(GetDefaultObject(), Name);
	return Subobject && Subobject->HasAnyFlags(RF_DefaultSubObject) ? Subobject : nullptr;
}

void UClass::ResetDefaultObject()
{
	UObject* const Old = ClassDefaultObject;
	ClassDefaultObject = nullptr;
	if (Old)
	{
		Old->MarkAsGarbage();
	}
	UObject* const New = GetDefaultObject();
	if (Old && GetSuperClass())
	{
		ObjectConstruction::TakeOverOwnValues(New, Old, GetSuperClass()->GetDefaultObject());
		ObjectConstruction::PointTreeAtCounterparts(New, Old);
		LostMembers::Carry(*New, *Old);
	}
	const FMissingObjects::FScope Keeping;
	for (const auto& Stashed : StashedDefaults)
	{
		const FProperty* const Property = FindPropertyByName(Stashed.Key);
		if (Property)
		{
			Property->ImportText_Direct(*Stashed.Value, Property->GetValuePtr(New), New, PPF_Delimited);
		}
	}
	StashedDefaults.Reset();
}

FName MakeUniqueObjectName(UObject* Outer, const UClass* Class, FName BaseName)
{
	return FObjectTable::Get().MakeUniqueName(Outer, BaseName.IsNone() && Class ? Class->GetFName() : BaseName);
}

bool IsUniqueObjectName(FName Name, const UObject* Outer)
{
	return FObjectTable::Get().Find(Outer, Name) == nullptr;
}
