#include "Objects/ObjectExtension.h"

#include "Objects/ObjectTable.h"
#include "UObject/UnrealType.h"

#include <cstring>
#include <new>

namespace ObjectExtensionBlocks
{
constexpr std::align_val_t Alignment{16};

static bool IsInBlock(const FProperty& Property)
{
	return Property.IsInExtension();
}

static void DestroyValues(const TArray<FProperty*>& Properties, uint8* Data)
{
	for (const FProperty* const Property : Properties)
	{
		Property->DestroyValue(Data + Property->GetOffset_ForInternal());
	}
}

static TArray<FProperty*> PropertiesInBlock(const UStruct& Class)
{
	TArray<FProperty*> Properties;
	for (FField* Field = Class.GetChildProperties(); Field; Field = Field->Next)
	{
		FProperty* const Property = static_cast<FProperty*>(Field);
		if (IsInBlock(*Property))
		{
			Properties.Add(Property);
		}
	}
	return Properties;
}

static uint8* Allocate(int32 Size)
{
	uint8* const Data = static_cast<uint8*>(::operator new(static_cast<std::size_t>(Size), Alignment));
	std::memset(Data, 0, static_cast<std::size_t>(Size));
	return Data;
}

static void Deallocate(uint8* Data)
{
	::operator delete(Data, Alignment);
}

/** A property whose value goes on from an old layout to a new one. */
struct FKeptValue
{
	const FProperty* New;
	const FProperty* Old;
};

/** Values are kept where name and type are as before. */
static TArray<FKeptValue> FindKept(const TArray<FProperty*>& NewProperties, const TArray<FProperty*>& OldProperties)
{
	TMap<FName, const FProperty*> OldByName;
	for (const FProperty* const Property : OldProperties)
	{
		OldByName.Add(Property->GetFName(), Property);
	}
	TArray<FKeptValue> Kept;
	for (const FProperty* const Property : NewProperties)
	{
		const FProperty* const Source = OldByName.FindRef(Property->GetFName());
		if (Source && Property->SameType(Source))
		{
			Kept.Add({Property, Source});
		}
	}
	return Kept;
}
} // namespace ObjectExtensionBlocks

uint8* FObjectExtension::MakeBlock(const UStruct& Class)
{
	uint8* const Data = ObjectExtensionBlocks::Allocate(Class.GetExtensionSize());
	for (const FProperty* const Property : ObjectExtensionBlocks::PropertiesInBlock(Class))
	{
		Property->InitializeValue(Data + Property->GetOffset_ForInternal());
	}
	return Data;
}

void FObjectExtension::FreeBlock(const FBlock& Block)
{
	// Between DestroyMembers and Link blocks still have the layout of before.
	const bool bRetired = Block.Class->RetiredSize > 0;
	ObjectExtensionBlocks::DestroyValues(
		bRetired ? Block.Class->RetiredProperties : ObjectExtensionBlocks::PropertiesInBlock(*Block.Class), Block.Data);
	ObjectExtensionBlocks::Deallocate(Block.Data);
}

void FObjectExtension::Match(UObject& Object)
{
	std::vector<FBlock> Matched;
	FObjectExtension*& Extension = FObjectTable::GetExtension(Object);
	for (const UStruct* Class = Object.GetClass(); Class; Class = Class->GetSuperStruct())
	{
		Class->EnsureMembers();
		Class->bInstanced = true;
		uint8* const Kept = Extension ? Extension->Find(Class) : nullptr;
		if (Kept && (Class->ExtensionSize > 0 || Class->RetiredSize > 0))
		{
			Matched.push_back({Class, Kept});
		}
		else if (Class->ExtensionSize > 0)
		{
			Matched.push_back({Class, MakeBlock(*Class)});
		}
	}
	if (Extension)
	{
		for (const FBlock& Block : Extension->Blocks)
		{
			const bool bKept = std::any_of(
				Matched.begin(), Matched.end(), [&Block](const FBlock& Other) { return Other.Data == Block.Data; });
			if (!bKept)
			{
				FreeBlock(Block);
			}
		}
	}
	if (Matched.empty())
	{
		delete Extension;
		Extension = nullptr;
		return;
	}
	if (!Extension)
	{
		Extension = new FObjectExtension;
	}
	Extension->Blocks.swap(Matched);
}

void FObjectExtension::Release(UObject& Object)
{
	FObjectExtension*& Extension = FObjectTable::GetExtension(Object);
	if (Extension)
	{
		for (const FBlock& Block : Extension->Blocks)
		{
			FreeBlock(Block);
		}
		delete Extension;
		Extension = nullptr;
	}
}

void FObjectExtension::Relayout(UStruct& Class, const TArray<FProperty*>& OldProperties, int32 OldSize)
{
	const TArray<ObjectExtensionBlocks::FKeptValue> KeptValues = ObjectExtensionBlocks::FindKept(
		ObjectExtensionBlocks::PropertiesInBlock(Class), OldProperties);
	for (UObject* const Object : FObjectTable::Get().GetInstances(Class, true, true))
	{
		FObjectExtension* const Extension = FObjectTable::GetExtension(*Object);
		FBlock* Old = nullptr;
		for (std::size_t Index = 0; Extension && Index < Extension->Blocks.size(); ++Index)
		{
			Old = Extension->Blocks[Index].Class == &Class ? &Extension->Blocks[Index] : Old;
		}
		if (!Old)
		{
			Match(*Object);
			continue;
		}
		uint8* const NewData = Class.ExtensionSize > 0 ? MakeBlock(Class) : nullptr;
		for (const ObjectExtensionBlocks::FKeptValue& Value : KeptValues)
		{
			Value.New->CopyCompleteValue(
				NewData + Value.New->GetOffset_ForInternal(), Old->Data + Value.Old->GetOffset_ForInternal());
		}
		ObjectExtensionBlocks::DestroyValues(OldProperties, Old->Data);
		ObjectExtensionBlocks::Deallocate(Old->Data);
		Old->Data = NewData;
		if (!NewData)
		{
			Extension->Blocks.erase(Extension->Blocks.begin() + (Old - Extension->Blocks.data()));
		}
	}
}

void FObjectExtension::MatchInstances(const UStruct& Class)
{
	for (UObject* const Instance : FObjectTable::Get().GetInstances(Class, true, true))
	{
		Match(*Instance);
	}
}
