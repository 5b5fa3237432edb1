// Turning references: from what is deleted to stand-ins, and from stand-ins to what came back.

#include "Files/AtomicFile.h"
#include "Files/PackageLookup.h"
#include "Missing/KeptValues.h"
#include "Missing/MissingTable.h"
#include "Objects/ObjectPaths.h"
#include "Objects/ObjectTable.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"

#include <unordered_set>

namespace MissingObjects
{
namespace
{
std::vector<FMissingObjects::FVisitExtra>& Extras()
{
	static std::vector<FMissingObjects::FVisitExtra> List;
	return List;
}

std::vector<FMissingObjects::FOnChanged>& Listeners()
{
	static std::vector<FMissingObjects::FOnChanged> List;
	return List;
}

bool HoldsReferences(const FProperty& Property, TArray<const FStructProperty*>& Encountered);

bool MembersHoldReferences(const FStructProperty& Property, TArray<const FStructProperty*>& Encountered)
{
	const bool bSeen = Encountered.ContainsByPredicate(
		[&Property](const FStructProperty* Other) { return Other->Struct == Property.Struct; });
	if (bSeen || !Property.Struct)
	{
		return false;
	}
	Encountered.Add(&Property);
	for (TFieldIterator<FProperty> It(Property.Struct); It; ++It)
	{
		if (HoldsReferences(**It, Encountered))
		{
			return true;
		}
	}
	return false;
}

/** As ContainsObjectReference, and weak pointers count too. */
bool HoldsReferences(const FProperty& Property, TArray<const FStructProperty*>& Encountered)
{
	if (const FStructProperty* const Struct = CastField<FStructProperty>(&Property))
	{
		return MembersHoldReferences(*Struct, Encountered);
	}
	if (Property.IsA<FArrayProperty>() || Property.IsA<FSetProperty>() || Property.IsA<FMapProperty>())
	{
		const FContainerProperty* const Container = static_cast<const FContainerProperty*>(&Property);
		return HoldsReferences(*Container->GetFirstInner(), Encountered)
			|| (Container->GetSecondInner() && HoldsReferences(*Container->GetSecondInner(), Encountered));
	}
	return Property.IsA<FWeakObjectProperty>() || Property.ContainsObjectReference(Encountered);
}

using FProperties = std::vector<const FProperty*>;

/** The properties of each class that can hold references, found once for a walk. */
class FReferenceProperties
{
public:
	const FProperties& Of(const UClass* Class)
	{
		const auto [Entry, bIsNew] = ByClass.try_emplace(Class);
		if (bIsNew)
		{
			for (TFieldIterator<FProperty> It(Class); It; ++It)
			{
				TArray<const FStructProperty*> Encountered;
				if (HoldsReferences(**It, Encountered))
				{
					Entry->second.push_back(*It);
				}
			}
		}
		return Entry->second;
	}

private:
	std::unordered_map<const UClass*, FProperties> ByClass;
};

/** Visits with the property (null for what no property tells). */
template <class FVisitor>
void VisitAll(UObject& Owner, const FProperties& Properties, FVisitor&& Visit)
{
	for (const FProperty* const Property : Properties)
	{
		Property->VisitObjects(Property->GetValuePtr(&Owner), [&](UObject*& Reference) { Visit(Property, Reference); });
	}
	for (const FMissingObjects::FVisitExtra Extra : Extras())
	{
		Extra(Owner, [&](UObject*& Reference) { Visit(nullptr, Reference); });
	}
}

void Tell(const std::vector<UObject*>& Changed)
{
	for (UObject* const Owner : Changed)
	{
		for (const FMissingObjects::FOnChanged Listener : Listeners())
		{
			Listener(*Owner);
		}
	}
}

/** Whether the object is work of a project: menus, templates of the editor and code refer to things only for a while.
 */
bool IsContent(const UObject& Object)
{
	const UPackage* const Package = Object.GetOutermost();
	return Package && !Package->HasAnyFlags(RF_Transient) && (Package->PackageFlags & PKG_CompiledIn) == 0
		&& !FMissingObjects::IsMissing(&Object) && !Package->IsGarbage();
}

/** What a reference to a deleted object becomes; null for one that went without its asset. */
UObject* ReplacementFor(UObject& Deleted)
{
	const UPackage* const Package = Deleted.GetOutermost();
	const bool bWholeAsset = Package && Package != &Deleted && Package->IsGarbage()
		&& !Package->HasAnyFlags(RF_Transient) && !Deleted.HasAnyFlags(RF_ClassDefaultObject);
	return bWholeAsset ? FMissingObjects::StandInForDeleted(Deleted) : nullptr;
}

/** The object at a stand-in's path that its references may be turned to; null while there is none. */
UObject* FindReal(const FEntry& Entry)
{
	UObject* const Real = StaticFindObject(nullptr, nullptr, *Entry.Path);
	if (!Real || Real->IsGarbage())
	{
		return nullptr;
	}
	for (const UClass* const Kind : {UClass::StaticClass(), UScriptStruct::StaticClass(), UEnum::StaticClass()})
	{
		if (Entry.StandIn->IsA(Kind))
		{
			return Real->IsA(Kind) ? Real : nullptr;
		}
	}
	return Real->IsA(Entry.StandIn->GetClass()->GetNativeClass()) ? Real : nullptr;
}

using FReplacements = std::unordered_map<const UObject*, UObject*>;

FReplacements FindAll()
{
	FReplacements Found;
	for (FEntry* const Entry : UsedEntries())
	{
		if (UObject* const Real = FindReal(*Entry))
		{
			Found.emplace(Entry->StandIn, Real);
			Entry->bUsed = false;
		}
	}
	return Found;
}

template <class T>
T* ReplacementOf(const FReplacements& Replacements, const T* Object)
{
	const auto Found = Object ? Replacements.find(Object) : Replacements.end();
	return Found == Replacements.end() ? nullptr : static_cast<T*>(Found->second);
}

void TurnAll(const FReplacements& Replacements)
{
	FReplacements Remade;
	FReferenceProperties Properties;
	std::vector<UObject*> Changed;
	FObjectTable::Get().ForEachObject(
		[&](UObject* Object)
		{
			if (FMissingObjects::IsMissing(Object->GetOutermost()))
			{
				return;
			}
			bool bChanged = false;
			UClass* const AsClass = Cast<UClass>(Object);
			UClass* const Parent = AsClass ? ReplacementOf(Replacements, AsClass->GetSuperClass()) : nullptr;
			// What came may descend from what waited for it; a class is no parent of itself.
			if (Parent && !Parent->IsChildOf(AsClass))
			{
				AsClass->SetSuperStruct(Parent);
				bChanged = true;
			}
			if (UClass* const Class = ReplacementOf(Replacements, Object->GetClass()))
			{
				UObject* const Now = KeptValues::GiveClass(*Object, *Class);
				bChanged |= Now == Object;
				if (Now != Object)
				{
					Remade.emplace(Object, Now);
					return;
				}
			}
			VisitAll(*Object, Properties.Of(Object->GetClass()),
				[&](const FProperty*, UObject*& Reference)
				{
					if (UObject* const Real = ReplacementOf(Replacements, Reference))
					{
						Reference = Real;
						bChanged = true;
					}
				});
			if (bChanged)
			{
				Changed.push_back(Object);
			}
		});
	if (!Remade.empty())
	{
		TurnAll(Remade);
	}
	for (UObject* const Object : Changed)
	{
		KeptValues::Retry(*Object);
	}
	Tell(Changed);
}
} // namespace
} // namespace MissingObjects

void FMissingObjects::AddReferences(FVisitExtra Visit)
{
	MissingObjects::Extras().push_back(Visit);
}

void FMissingObjects::AddListener(FOnChanged Listener)
{
	MissingObjects::Listeners().push_back(Listener);
}

void FMissingObjects::VisitReferences(UObject& Owner, TFunctionRef<void(UObject*&)> Visit)
{
	MissingObjects::FReferenceProperties Properties;
	MissingObjects::VisitAll(
		Owner, Properties.Of(Owner.GetClass()), [&](const FProperty*, UObject*& Reference) { Visit(Reference); });
}

void FMissingObjects::Bind()
{
	const MissingObjects::FReplacements Found = MissingObjects::FindAll();
	if (!Found.empty())
	{
		MissingObjects::TurnAll(Found);
	}
}

namespace MissingObjects
{
/** Whether the package's file came, or changed, since it was last looked for here. */
static bool HasNewFile(const FString& Package)
{
	static std::unordered_map<std::string, AtomicFile::FStamp> Seen;
	const FString File = PackageLookup::FindOnDisk(Package);
	const AtomicFile::FStamp Now = File.IsEmpty() ? AtomicFile::FStamp() : AtomicFile::StampOf(ToUtf8(File));
	AtomicFile::FStamp& Before = Seen[KeyOf(Package)];
	const bool bChanged = Now.IsValid() && !(Now == Before);
	Before = Now;
	return bChanged;
}
} // namespace MissingObjects

void FMissingObjects::LoadAndBind()
{
	std::unordered_set<std::string> Tried;
	for (const MissingObjects::FEntry* const Entry : MissingObjects::UsedEntries())
	{
		const FString Package(ObjectPaths::Split(Entry->Path).Package);
		const bool bIsScript = Package.StartsWith(TEXT("/Script/"), ESearchCase::IgnoreCase);
		if (!bIsScript && Tried.insert(MissingObjects::KeyOf(Package)).second && MissingObjects::HasNewFile(Package))
		{
			LoadPackage(nullptr, *Package, LOAD_Quiet);
		}
	}
	Bind();
}

void FMissingObjects::ReplaceDeleted()
{
	MissingObjects::FReferenceProperties Properties;
	std::vector<UObject*> Changed;
	FObjectTable::Get().ForEachObject(
		[&](UObject* Object)
		{
			const bool bContent = MissingObjects::IsContent(*Object);
			bool bChanged = false;
			const auto Replace = [&](const FProperty* Property, UObject*& Reference)
			{
				if (!Reference || !Reference->IsGarbage())
				{
					return;
				}
				const bool bKeep = bContent && !(Property && Property->HasAnyPropertyFlags(CPF_Transient));
				Reference = bKeep ? MissingObjects::ReplacementFor(*Reference) : nullptr;
				bChanged = true;
			};
			MissingObjects::VisitAll(*Object, Properties.Of(Object->GetClass()), Replace);
			UClass* const Class = bContent ? Cast<UClass>(Object) : nullptr;
			if (Class && Class->GetSuperClass() && Class->GetSuperClass()->IsGarbage())
			{
				if (UObject* const Parent = MissingObjects::ReplacementFor(*Class->GetSuperClass()))
				{
					Class->SetSuperStruct(static_cast<UClass*>(Parent));
					bChanged = true;
				}
			}
			if (bContent && Object->GetClass()->IsGarbage())
			{
				UObject* const Own = MissingObjects::ReplacementFor(*Object->GetClass());
				bChanged |= Own && KeptValues::GiveClass(*Object, *static_cast<UClass*>(Own)) == Object;
			}
			if (bChanged && bContent)
			{
				Changed.push_back(Object);
			}
		});
	MissingObjects::Tell(Changed);
}
