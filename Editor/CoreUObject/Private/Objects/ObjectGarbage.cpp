#include "Objects/ObjectConstruction.h"
#include "Objects/ObjectExtension.h"
#include "Objects/ObjectTable.h"
#include "Standalone/MissingObjects.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"

#include <unordered_map>
#include <unordered_set>

bool GIsSavingPackage = false;
bool GIsGarbageCollecting = false;

namespace ObjectGarbage
{
static bool IsCode(const UObject& Object)
{
	const UPackage* const Package = Object.GetOutermost();
	const bool bCompiledIn = Package && (Package->PackageFlags & PKG_CompiledIn) != 0;
	return bCompiledIn && (Object.IsA<UField>() || Object.IsA<UPackage>());
}

template <class FVisitor>
static void VisitTree(UObject* Object, FVisitor&& Visit)
{
	Visit(Object);
	for (UObject* Inner = Object->GetFirstInner(); Inner; Inner = Inner->GetNextInner())
	{
		VisitTree(Inner, Visit);
	}
}

/** Visits the types that an object cannot be without, beside those of its own tree. Reads no pending members. */
static void VisitTypes(const UObject* Object, TFunctionRef<void(const UObject*)> Visit)
{
	Visit(Object->GetClass());
	const UStruct* const Struct = Cast<UStruct>(Object);
	if (!Struct)
	{
		return;
	}
	Visit(Struct->GetSuperStruct());
	for (const FField* Field = Struct->HasPendingMembers() ? nullptr : Struct->GetChildProperties(); Field;
		 Field = Field->Next)
	{
		static_cast<const FProperty*>(Field)->VisitTypes(Visit);
	}
	const UClass* const Class = Cast<UClass>(Object);
	for (int32 Index = 0; Class && Index < Class->Interfaces.Num(); ++Index)
	{
		Visit(Class->Interfaces[Index].Class);
	}
}
} // namespace ObjectGarbage

void FObjectTable::MarkTree(UObject& Object)
{
	Object.ObjectFlags |= RF_Garbage;
	RemoveFromBuckets(Object);
	for (UObject* Inner = Object.FirstInner; Inner; Inner = Inner->NextInner)
	{
		MarkTree(*Inner);
	}
}

void FObjectTable::MarkGarbage(UObject& Root)
{
	if (Root.IsGarbage() || Root.InternalIndex == INDEX_NONE || ObjectGarbage::IsCode(Root))
	{
		return;
	}
	UnlinkFromOuter(Root);
	MarkTree(Root);
	GarbageRoots.push_back(&Root);
	if (UFunction* const Function = Cast<UFunction>(&Root))
	{
		UClass* const Owner = Cast<UClass>(Root.OuterPrivate);
		if (Owner)
		{
			Owner->RemoveFunction(Function);
		}
	}
	// A default object stands beside its class, not below it.
	std::vector<UObject*> Defaults;
	ObjectGarbage::VisitTree(&Root,
		[&Defaults](UObject* Object)
		{
			const UClass* const Class = Cast<UClass>(Object);
			if (Class && Class->ClassDefaultObject)
			{
				Defaults.push_back(Class->ClassDefaultObject);
				Class->ClassDefaultObject = nullptr;
			}
		});
	for (UObject* const Default : Defaults)
	{
		MarkGarbage(*Default);
	}
}

std::vector<UObject*> FObjectTable::FindRootsInUse(const std::vector<UObject*>& Roots) const
{
	std::unordered_map<const UObject*, UObject*> RootOfType;
	std::unordered_set<const UObject*> Dying;
	for (UObject* const Root : Roots)
	{
		ObjectGarbage::VisitTree(Root,
			[&](UObject* Object)
			{
				Dying.insert(Object);
				if (Object->IsA<UField>())
				{
					RootOfType.emplace(Object, Root);
				}
			});
	}
	std::unordered_set<UObject*> Used;
	const auto Use = [&](const UObject* Type)
	{
		const auto Found = Type ? RootOfType.find(Type) : RootOfType.end();
		if (Found != RootOfType.end())
		{
			Used.insert(Found->second);
		}
	};
	if (!RootOfType.empty())
	{
		ForEachObject<true>(
			[&](const UObject* Object)
			{
				if (Dying.count(Object) == 0)
				{
					ObjectGarbage::VisitTypes(Object, Use);
				}
			});
	}
	return std::vector<UObject*>(Used.begin(), Used.end());
}

std::vector<UObject*> FObjectTable::TakeCollectableRoots()
{
	std::vector<UObject*> Roots;
	Roots.swap(GarbageRoots);
	// What is kept may use types of what is left, so this goes on until nothing more is kept.
	for (std::vector<UObject*> Kept = FindRootsInUse(Roots); !Kept.empty(); Kept = FindRootsInUse(Roots))
	{
		for (UObject* const Root : Kept)
		{
			GarbageRoots.push_back(Root);
			Roots.erase(std::find(Roots.begin(), Roots.end(), Root));
		}
	}
	return Roots;
}

void FObjectTable::Free(UObject* Object)
{
	const UClass* const Native = Object->GetClass()->GetNativeClass();
	const std::align_val_t Alignment{static_cast<std::size_t>(Native->NativeAlignment)};
	NameCounters.erase(Object->InternalIndex);
	Slots[static_cast<std::size_t>(Object->InternalIndex)].Object = nullptr;
	FreeSlots.push_back(Object->InternalIndex);
	UnlinkFromClass(*Object);
	Object->~UObject();
	::operator delete(Object, Alignment);
}

void FObjectTable::CollectGarbage()
{
	if (GarbageRoots.empty())
	{
		return;
	}
	const TGuardValue<bool> Collecting(GIsGarbageCollecting, true);
	FMissingObjects::ReplaceDeleted();
	std::vector<UObject*> Dead;
	for (UObject* const Root : TakeCollectableRoots())
	{
		ObjectGarbage::VisitTree(Root, [&Dead](UObject* Object) { Dead.push_back(Object); });
	}
	for (UObject* const Object : Dead)
	{
		Object->BeginDestroy();
		FObjectExtension::Release(*Object);
	}
	// Types last: freeing an object asks its class, and destroying a value its struct.
	const auto FirstType = std::stable_partition(
		Dead.begin(), Dead.end(), [](const UObject* Object) { return !Object->IsA<UField>(); });
	for (auto It = Dead.begin(); It != FirstType; ++It)
	{
		Free(*It);
	}
	for (auto It = FirstType; It != Dead.end(); ++It)
	{
		Free(*It);
	}
}

void CollectGarbage(EObjectFlags KeepFlags, bool bPerformFullPurge)
{
	if (GIsGarbageCollecting)
	{
		return;
	}
	FObjectTable::Get().CollectGarbage();
	FCoreUObjectDelegates::GetPostGarbageCollect().Broadcast();
}

FSimpleMulticastDelegate& FCoreUObjectDelegates::GetPostGarbageCollect()
{
	static FSimpleMulticastDelegate Delegate;
	return Delegate;
}
