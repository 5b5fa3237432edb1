#include "Objects/ObjectTable.h"

#include "Objects/ObjectExtension.h"

#include <new>

FObjectTable& FObjectTable::Get()
{
	// Objects of static lifetime point into it, so it must outlive them all.
	static FObjectTable* const Table = new FObjectTable;
	return *Table;
}

UObject* FObjectTable::Construct(const UClass& Native, const FConstruction& What)
{
	return Construct(static_cast<std::size_t>(Native.NativeSize), static_cast<std::size_t>(Native.NativeAlignment),
		Native.NativeConstructor, What);
}

UObject* FObjectTable::Construct(
	std::size_t Size, std::size_t Alignment, UObject* (*Constructor)(void* Memory), const FConstruction& What)
{
	void* const Memory = ::operator new(Size, static_cast<std::align_val_t>(Alignment));
	FConstruction Taken = What;
	// Constructors make sub-objects, so this is entered again before it is left.
	const TGuardValue<FConstruction*> KeepPending(Pending, &Taken);
	const TGuardValue<void*> KeepMemory(PendingMemory, Memory);
	UObject* const Object = Constructor(Memory);
	checkf(Object == Memory, TEXT("UObject must be the first base of a native class"));
	return Object;
}

void FObjectTable::TakeConstruction(UObject& Object)
{
	if (PendingMemory != &Object)
	{
		return;
	}
	const FConstruction What = *Pending;
	PendingMemory = nullptr;
	Object.ClassPrivate = const_cast<UClass*>(What.Class);
	Object.OuterPrivate = What.Outer;
	Object.NamePrivate = What.Name;
	Object.ObjectFlags = What.Flags;
	Object.CreationOrder = ++NumCreated;
	if (FreeSlots.empty())
	{
		Object.InternalIndex = static_cast<int32>(Slots.size());
		Slots.push_back({&Object, 1});
	}
	else
	{
		Object.InternalIndex = FreeSlots.back();
		FreeSlots.pop_back();
		FSlot& Slot = Slots[static_cast<std::size_t>(Object.InternalIndex)];
		Slot.Object = &Object;
		++Slot.Serial;
	}
	LinkToClass(Object);
	LinkToOuter(Object);
	AddToBuckets(Object);
	if (What.Class && (What.Flags & RF_ClassDefaultObject) != 0)
	{
		What.Class->ClassDefaultObject = &Object;
	}
}

UObject* FObjectTable::Find(const UObject* Outer, FName Name) const
{
	UObject* Object = PathBuckets.empty() ? nullptr : PathBuckets[HashOf(Outer, Name) & BucketMask()];
	while (Object && (Object->OuterPrivate != Outer || Object->NamePrivate != Name))
	{
		Object = Object->NextInPathBucket;
	}
	return Object;
}

UObject* FObjectTable::Resolve(int32 Index, int32 Serial) const
{
	if (Index < 0 || static_cast<std::size_t>(Index) >= Slots.size())
	{
		return nullptr;
	}
	const FSlot& Slot = Slots[static_cast<std::size_t>(Index)];
	return Slot.Serial == Serial ? Slot.Object : nullptr;
}

void FObjectTable::GrowBuckets()
{
	std::vector<UObject*> Objects;
	Objects.reserve(NumInBuckets);
	// Chains are newest first; walked backwards below, they come out the same way.
	for (UObject* Head : PathBuckets)
	{
		for (; Head; Head = Head->NextInPathBucket)
		{
			Objects.push_back(Head);
		}
	}
	const std::size_t NumBuckets = PathBuckets.empty() ? 4096 : PathBuckets.size() * 2;
	PathBuckets.assign(NumBuckets, nullptr);
	NameBuckets.assign(NumBuckets, nullptr);
	NumInBuckets = 0;
	for (auto It = Objects.rbegin(); It != Objects.rend(); ++It)
	{
		AddToBuckets(**It);
	}
}

void FObjectTable::AddToBuckets(UObject& Object)
{
	if (NumInBuckets >= PathBuckets.size())
	{
		GrowBuckets();
	}
	UObject*& PathHead = PathBuckets[HashOf(Object.OuterPrivate, Object.NamePrivate) & BucketMask()];
	Object.NextInPathBucket = PathHead;
	PathHead = &Object;
	UObject*& NameHead = NameBuckets[HashOf(Object.NamePrivate) & BucketMask()];
	Object.NextInNameBucket = NameHead;
	NameHead = &Object;
	++NumInBuckets;
}

void FObjectTable::RemoveFromBuckets(UObject& Object)
{
	UObject** PathLink = &PathBuckets[HashOf(Object.OuterPrivate, Object.NamePrivate) & BucketMask()];
	while (*PathLink != &Object)
	{
		PathLink = &(*PathLink)->NextInPathBucket;
	}
	*PathLink = Object.NextInPathBucket;
	UObject** NameLink = &NameBuckets[HashOf(Object.NamePrivate) & BucketMask()];
	while (*NameLink != &Object)
	{
		NameLink = &(*NameLink)->NextInNameBucket;
	}
	*NameLink = Object.NextInNameBucket;
	Object.NextInPathBucket = nullptr;
	Object.NextInNameBucket = nullptr;
	--NumInBuckets;
}

void FObjectTable::LinkToClass(UObject& Object)
{
	if (!Object.ClassPrivate)
	{
		return;
	}
	UObject*& Last = LastOfClass[Object.ClassPrivate];
	Object.PrevOfClass = Last;
	if (Last)
	{
		Last->NextOfClass = &Object;
	}
	Last = &Object;
}

void FObjectTable::UnlinkFromClass(UObject& Object)
{
	if (!Object.ClassPrivate)
	{
		return;
	}
	if (Object.PrevOfClass)
	{
		Object.PrevOfClass->NextOfClass = Object.NextOfClass;
	}
	if (Object.NextOfClass)
	{
		Object.NextOfClass->PrevOfClass = Object.PrevOfClass;
	}
	else if (Object.PrevOfClass)
	{
		LastOfClass[Object.ClassPrivate] = Object.PrevOfClass;
	}
	else
	{
		LastOfClass.erase(Object.ClassPrivate);
	}
	Object.NextOfClass = nullptr;
	Object.PrevOfClass = nullptr;
}

void FObjectTable::SetClass(UObject& Object, UClass* Class)
{
	UnlinkFromClass(Object);
	Object.ClassPrivate = Class;
	LinkToClass(Object);
}

std::vector<UObject*> FObjectTable::GetInstances(const UStruct& Class, bool bIncludeDerived, bool bEvenGarbage) const
{
	std::vector<UObject*> Found;
	for (const auto& [Candidate, Last] : LastOfClass)
	{
		if (Candidate != &Class && !(bIncludeDerived && Candidate->IsChildOf(&Class)))
		{
			continue;
		}
		for (UObject* Object = Last; Object; Object = Object->PrevOfClass)
		{
			if (bEvenGarbage || !Object->IsGarbage())
			{
				Found.push_back(Object);
			}
		}
	}
	return Found;
}

void FObjectTable::LinkToOuter(UObject& Object)
{
	UObject* const Outer = Object.OuterPrivate;
	if (!Outer)
	{
		return;
	}
	Object.PrevInner = Outer->LastInner;
	(Outer->LastInner ? Outer->LastInner->NextInner : Outer->FirstInner) = &Object;
	Outer->LastInner = &Object;
}

void FObjectTable::UnlinkFromOuter(UObject& Object)
{
	UObject* const Outer = Object.OuterPrivate;
	if (!Outer)
	{
		return;
	}
	(Object.PrevInner ? Object.PrevInner->NextInner : Outer->FirstInner) = Object.NextInner;
	(Object.NextInner ? Object.NextInner->PrevInner : Outer->LastInner) = Object.PrevInner;
	Object.NextInner = nullptr;
	Object.PrevInner = nullptr;
}

void FObjectTable::Move(UObject& Object, FName NewName, UObject* NewOuter)
{
	RemoveFromBuckets(Object);
	if (NewOuter != Object.OuterPrivate)
	{
		UnlinkFromOuter(Object);
		Object.OuterPrivate = NewOuter;
		LinkToOuter(Object);
	}
	Object.NamePrivate = NewName;
	AddToBuckets(Object);
}

void FObjectTable::Hide(UObject& Object)
{
	UnlinkFromOuter(Object);
	RemoveFromBuckets(Object);
	UnlinkFromClass(Object);
}

FName FObjectTable::MakeUniqueName(const UObject* Outer, FName Base)
{
	if (Base.GetNumber() != NAME_NO_NUMBER_INTERNAL)
	{
		Base = FName(Base.GetPlainNameString());
	}
	std::vector<FNameCounter>& Counters = NameCounters[Outer ? Outer->InternalIndex : static_cast<int32>(INDEX_NONE)];
	FNameCounter* Counter = nullptr;
	for (FNameCounter& Candidate : Counters)
	{
		if (Candidate.Base == Base)
		{
			Counter = &Candidate;
			break;
		}
	}
	if (!Counter)
	{
		Counter = &Counters.emplace_back(FNameCounter{Base, 0});
	}
	while (true)
	{
		const FName Name(Base, NAME_EXTERNAL_TO_INTERNAL(Counter->Next++));
		if (!Find(Outer, Name))
		{
			return Name;
		}
	}
}

uint8* FObjectTable::FindExtension(const UObject& Object, const UStruct* OwnerClass)
{
	return Object.Extension ? Object.Extension->Find(OwnerClass) : nullptr;
}
