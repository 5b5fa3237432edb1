#include "Objects/ObjectConstruction.h"
#include "Objects/ObjectTable.h"
#include "UObject/UnrealType.h"

#include <unordered_map>
#include <vector>

namespace ObjectDuplication
{
struct FRun
{
	uint32 FlagMask = 0;
	/** In order of the source tree. */
	std::vector<std::pair<const UObject*, UObject*>> Pairs;
	std::unordered_map<const UObject*, UObject*> CopyOf;

	void MakeTree(const UObject* Source, UObject* Outer, FName Name, const UClass* Class);
	void CopyValues() const;
	void CopyCustomData() const;
};

void FRun::MakeTree(const UObject* Source, UObject* Outer, FName Name, const UClass* Class)
{
	const uint32 Flags = Source->GetFlags() & FlagMask & ~(RF_Garbage | RF_ClassDefaultObject);
	UObject* const Copy = StaticConstructObject_Internal(Class, Outer, Name, static_cast<EObjectFlags>(Flags));
	Pairs.emplace_back(Source, Copy);
	CopyOf.emplace(Source, Copy);
	for (const UObject* Inner = Source->GetFirstInner(); Inner; Inner = Inner->GetNextInner())
	{
		// Members of types are rebuilt by whoever owns the type.
		if (!Inner->IsA<UField>())
		{
			MakeTree(Inner, Copy, Inner->GetFName(), Inner->GetClass());
		}
	}
}

void FRun::CopyValues() const
{
	for (const auto& [Source, Copy] : Pairs)
	{
		const UClass* const Class = Copy->IsA(Source->GetClass()) ? Source->GetClass() : nullptr;
		for (TFieldIterator<FProperty> It(Class); It; ++It)
		{
			if (!It->HasAnyPropertyFlags(CPF_DuplicateTransient))
			{
				It->CopyCompleteValue(It->GetValuePtr(Copy), It->GetValuePtr(Source));
			}
		}
		ObjectConstruction::VisitReferences(Copy,
			[this](UObject*& Reference)
			{
				const auto Found = CopyOf.find(Reference);
				Reference = Found == CopyOf.end() ? Reference : Found->second;
			});
	}
}

void FRun::CopyCustomData() const
{
	for (const auto& [Source, Copy] : Pairs)
	{
		Copy->DuplicateCustomData(Source);
	}
	for (const auto& [Source, Copy] : Pairs)
	{
		Copy->PostDuplicate(false);
	}
}
} // namespace ObjectDuplication

UObject* StaticDuplicateObject(
	const UObject* Source, UObject* DestOuter, FName DestName, EObjectFlags FlagMask, UClass* DestClass)
{
	if (!Source)
	{
		return nullptr;
	}
	FObjectTable& Table = FObjectTable::Get();
	if (!DestName.IsNone() && Table.Find(DestOuter, DestName))
	{
		DestName = Table.MakeUniqueName(DestOuter, DestName);
	}
	ObjectDuplication::FRun Run;
	Run.FlagMask = FlagMask;
	Run.MakeTree(Source, DestOuter, DestName, DestClass ? DestClass : Source->GetClass());
	Run.CopyValues();
	Run.CopyCustomData();
	return Run.Pairs.front().second;
}
