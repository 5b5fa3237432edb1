#pragma once

#include "CoreMinimal.h"
#include "UObject/Class.h"
#include "UObject/Object.h"

#include <unordered_map>
#include <vector>

/**
 * Owner of every object: slots with serial numbers for weak pointers, two hash tables chained through the objects, by
 * outer and name and by name alone, and a list of each class's own instances. One per process, never destroyed; used by
 * one thread.
 */
class FObjectTable
{
public:
	static FObjectTable& Get();

	/** What the base constructor of the object under construction takes over. */
	struct FConstruction
	{
		const UClass* Class = nullptr;
		UObject* Outer = nullptr;
		FName Name;
		EObjectFlags Flags = RF_NoFlags;
	};
	/** Memory from Native's size, constructed and entered under What's outer and name, which must be free. */
	UObject* Construct(const UClass& Native, const FConstruction& What);
	UObject* Construct(
		std::size_t Size, std::size_t Alignment, UObject* (*Constructor)(void* Memory), const FConstruction& What);
	/** Called by the base constructor. Does nothing for an object that is not made by Construct. */
	void TakeConstruction(UObject& Object);
	/** For the first classes, which are made before the class of classes is. */
	void SetClass(UObject& Object, UClass* Class);

	UObject* Find(const UObject* Outer, FName Name) const;
	/** Visits the objects of that name until Visit answers false. */
	template <class FVisitor>
	void ForEachNamed(FName Name, FVisitor&& Visit) const
	{
		UObject* Object = NameBuckets.empty() ? nullptr : NameBuckets[HashOf(Name) & BucketMask()];
		for (; Object; Object = Object->NextInNameBucket)
		{
			if (Object->NamePrivate == Name && !Visit(Object))
			{
				return;
			}
		}
	}
	/** Visits all living objects in no order. A visitor may make objects, as a class does whose members are asked for
	 * the first time; those it makes may be visited too. */
	template <bool bEvenGarbage = false, class FVisitor>
	void ForEachObject(FVisitor&& Visit) const
	{
		// By index: what the visitor makes may move the slots.
		for (std::size_t Index = 0; Index < Slots.size(); ++Index)
		{
			UObject* const Object = Slots[Index].Object;
			if (Object && (bEvenGarbage || !Object->IsGarbage()))
			{
				Visit(Object);
			}
		}
	}
	/** The instances of the class, and of those below it if asked for, in no order. */
	std::vector<UObject*> GetInstances(const UStruct& Class, bool bIncludeDerived, bool bEvenGarbage) const;
	static uint64 GetCreationOrder(const UObject& Object) { return Object.CreationOrder; }
	static uint8* FindExtension(const UObject& Object, const UStruct* OwnerClass);
	static struct FObjectExtension*& GetExtension(UObject& Object) { return Object.Extension; }

	FName MakeUniqueName(const UObject* Outer, FName Base);
	void Move(UObject& Object, FName NewName, UObject* NewOuter);
	/** Takes a new object out of everything by which objects are found, for good. It is never freed. */
	void Hide(UObject& Object);
	/** Another name for a hidden object. */
	static void NameHidden(UObject& Object, FName Name) { Object.NamePrivate = Name; }
	void MarkGarbage(UObject& Root);
	void CollectGarbage();

	UObject* Resolve(int32 Index, int32 Serial) const;
	int32 GetSerial(int32 Index) const { return Slots[static_cast<std::size_t>(Index)].Serial; }

private:
	struct FSlot
	{
		UObject* Object = nullptr;
		int32 Serial = 0;
	};
	struct FNameCounter
	{
		FName Base;
		int32 Next = 0;
	};

	static std::size_t HashOf(FName Name) { return HashMix64(Name.GetComparisonIndex()); }
	static std::size_t HashOf(const UObject* Outer, FName Name)
	{
		const uint64 NameBits = static_cast<uint64>(Name.GetComparisonIndex()) * 0xC2B2AE3D27D4EB4Full;
		return HashMix64((reinterpret_cast<UPTRINT>(Outer) >> 4) ^ (NameBits >> 20));
	}
	std::size_t BucketMask() const { return PathBuckets.size() - 1; }
	void GrowBuckets();
	void AddToBuckets(UObject& Object);
	void RemoveFromBuckets(UObject& Object);
	void LinkToClass(UObject& Object);
	void UnlinkFromClass(UObject& Object);
	static void LinkToOuter(UObject& Object);
	static void UnlinkFromOuter(UObject& Object);
	void MarkTree(UObject& Object);

	/** The roots whose types nothing living uses; the others stay marked for a later collection. */
	std::vector<UObject*> TakeCollectableRoots();
	/** Those of the roots that hold a type which an object outside of all of them needs. */
	std::vector<UObject*> FindRootsInUse(const std::vector<UObject*>& Roots) const;
	void Free(UObject* Object);

	std::vector<FSlot> Slots;
	std::vector<int32> FreeSlots;
	std::vector<UObject*> PathBuckets;
	std::vector<UObject*> NameBuckets;
	std::size_t NumInBuckets = 0;
	/** The newest instance of each class that has one. */
	std::unordered_map<const UClass*, UObject*> LastOfClass;
	uint64 NumCreated = 0;
	std::unordered_map<int32, std::vector<FNameCounter>> NameCounters;
	std::vector<UObject*> GarbageRoots;
	FConstruction* Pending = nullptr;
	void* PendingMemory = nullptr;
};
