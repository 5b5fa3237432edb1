#include "UObject/UObjectGlobals.h"

#include "Objects/ObjectPaths.h"
#include "Objects/ObjectTable.h"
#include "Standalone/ObjectProviders.h"
#include "UObject/Package.h"
#include "UObject/TopLevelAssetPath.h"

#include <algorithm>

DEFINE_LOG_CATEGORY_STATIC(LogUObjectGlobals, Log, All);

namespace ObjectFind
{
static const FStringView ScriptPrefix = TEXTVIEW("/Script/");
static const FStringView DefaultPrefix = TEXTVIEW("Default__");

static bool IsScriptPackage(FStringView Package)
{
	return Package.StartsWith(ScriptPrefix, ESearchCase::IgnoreCase);
}

static bool IsCompiledIn(const UObject* Object)
{
	const UPackage* const Package = Object->GetOutermost();
	return Package && (Package->PackageFlags & PKG_CompiledIn) != 0;
}

static UObject* FindInMemory(const UObject* Outer, FStringView Name)
{
	const FName Known(Name, FNAME_Find);
	return Known.IsNone() ? nullptr : FObjectTable::Get().Find(Outer, Known);
}

static UPackage* FindTopPackage(FStringView Name)
{
	return Cast<UPackage>(FindInMemory(nullptr, Name));
}

static UObject* FindTopLevel(FStringView PackageName, FStringView Name)
{
	const UPackage* const Package = FindTopPackage(PackageName);
	UObject* const Standing = Package ? FindInMemory(Package, Name) : nullptr;
	if (Standing)
	{
		return Standing;
	}
	if (Name.StartsWith(DefaultPrefix, ESearchCase::IgnoreCase))
	{
		const UClass* const Class = Cast<UClass>(FindTopLevel(PackageName, Name.Mid(DefaultPrefix.Len())));
		return Class ? Class->GetDefaultObject() : nullptr;
	}
	const auto FindLazy = ObjectProviders::GetLazyObjects().FindByPath;
	return FindLazy && IsScriptPackage(PackageName) ? FindLazy(PackageName, Name) : nullptr;
}

static UObject* FindInner(UObject* Outer, FStringView Name)
{
	UObject* const Standing = FindInMemory(Outer, Name);
	const UStruct* const Struct = Standing ? nullptr : Cast<UStruct>(Outer);
	if (Struct && Struct->HasPendingMembers())
	{
		Struct->EnsureMembers();
		return FindInMemory(Outer, Name);
	}
	return Standing;
}

/** Walks "A.B:C" down from Outer. */
static UObject* FindBelow(UObject* Outer, FStringView Path)
{
	while (Outer && !Path.IsEmpty())
	{
		const ObjectPaths::FParts Parts = ObjectPaths::Split(Path);
		Outer = FindInner(Outer, Parts.Package);
		Path = Parts.Object;
	}
	return Outer;
}

static UObject* FindByFullPath(FStringView Path)
{
	const ObjectPaths::FParts Parts = ObjectPaths::Split(Path);
	if (Parts.Object.IsEmpty())
	{
		return FindTopPackage(Parts.Package);
	}
	const ObjectPaths::FParts Object = ObjectPaths::Split(Parts.Object);
	UObject* Top = FindTopLevel(Parts.Package, Object.Package);
	if (!Top && !Parts.Package.IsEmpty() && Parts.Package[0] != TEXT('/'))
	{
		// Old texts name "Engine.Actor" without the prefix.
		Top = FindTopLevel(FString(ScriptPrefix) + Parts.Package, Object.Package);
	}
	return FindBelow(Top, Object.Object);
}

static UObject* IfOfClass(UObject* Object, const UClass* Class, bool bExactClass)
{
	const bool bFits = Object && (!Class || (bExactClass ? Object->GetClass() == Class : Object->IsA(Class)));
	return bFits ? Object : nullptr;
}

static bool CanBeLazy(const UClass* Class)
{
	return !Class || Class->IsChildOf(UField::StaticClass()) || Class == UObject::StaticClass();
}

/** The asset path that a package path alone stands for: "/Game/A/B" gives "/Game/A/B.B". */
static FString WithAssetName(FStringView Path)
{
	FString Full(Path);
	int32 Slash = INDEX_NONE;
	if (ObjectPaths::Split(Path).Object.IsEmpty() && Path.FindLastChar(TEXT('/'), Slash))
	{
		Full.AppendChar(TEXT('.'));
		Full.Append(Path.Mid(Slash + 1));
	}
	return Full;
}

static void MakeAllLazy(const UClass* Class)
{
	const auto MakeAll = ObjectProviders::GetLazyObjects().MakeAll;
	if (MakeAll && CanBeLazy(Class))
	{
		MakeAll(Class);
	}
}
} // namespace ObjectFind

UObject* StaticFindObjectFast(UClass* Class, UObject* Outer, FName Name, bool bExactClass)
{
	return ObjectFind::IfOfClass(FObjectTable::Get().Find(Outer, Name), Class, bExactClass);
}

UObject* StaticFindObject(UClass* Class, UObject* Outer, const TCHAR* Name, bool bExactClass)
{
	const FStringView Path = ObjectPaths::StripReference(FStringView(Name));
	if (Path.IsEmpty())
	{
		return nullptr;
	}
	if (Outer == ANY_PACKAGE)
	{
		return StaticFindFirstObject(
			Class, Name, bExactClass ? EFindFirstObjectOptions::ExactClass : EFindFirstObjectOptions::None);
	}
	const bool bFromOuter = Outer && Path[0] != TEXT('/');
	UObject* const Object = bFromOuter ? ObjectFind::FindBelow(Outer, Path) : ObjectFind::FindByFullPath(Path);
	return ObjectFind::IfOfClass(Object, Class, bExactClass);
}

UObject* StaticFindObject(UClass* Class, const FTopLevelAssetPath& Path, bool bExactClass)
{
	if (Path.IsNull())
	{
		return nullptr;
	}
	UObject* const Object = Path.GetAssetName().IsNone()
		? ObjectFind::FindTopPackage(Path.GetPackageName().GetView())
		: ObjectFind::FindTopLevel(Path.GetPackageName().GetView(), Path.GetAssetName().GetView());
	return ObjectFind::IfOfClass(Object, Class, bExactClass);
}

UObject* StaticFindFirstObject(UClass* Class, const TCHAR* Name, EFindFirstObjectOptions Options,
	ELogVerbosity::Type AmbiguousMessageVerbosity, const TCHAR* InCurrentOperation)
{
	const FStringView Text = ObjectPaths::StripReference(FStringView(Name));
	const bool bExact = EnumHasAnyFlags(Options, EFindFirstObjectOptions::ExactClass);
	if (Text.IsEmpty() || !ObjectPaths::Split(Text).Object.IsEmpty() || Text[0] == TEXT('/'))
	{
		return Text.IsEmpty() ? nullptr : StaticFindObject(Class, nullptr, Name, bExact);
	}
	UObject* BestNative = nullptr;
	UObject* BestOther = nullptr;
	const FName Known(Text, FNAME_Find);
	FObjectTable::Get().ForEachNamed(Known,
		[&](UObject* Object)
		{
			if (!Known.IsNone() && ObjectFind::IfOfClass(Object, Class, bExact))
			{
				// The chain is newest first, so the last hit is the oldest.
				(ObjectFind::IsCompiledIn(Object) ? BestNative : BestOther) = Object;
			}
			return true;
		});
	if (!BestNative && ObjectFind::CanBeLazy(Class))
	{
		const auto FindLazy = ObjectProviders::GetLazyObjects().FindByShortName;
		UObject* const Lazy = FindLazy ? FindLazy(Text, Class ? Class : UObject::StaticClass()) : nullptr;
		BestNative = ObjectFind::IfOfClass(Lazy, Class, bExact);
	}
	return BestNative ? BestNative : BestOther;
}

UObject* StaticLoadObject(UClass* Class, UObject* Outer, const TCHAR* Name, const TCHAR* Filename, uint32 LoadFlags)
{
	const FStringView Path = ObjectPaths::StripReference(FStringView(Name));
	if (Path.IsEmpty() || Outer == ANY_PACKAGE)
	{
		return Path.IsEmpty() ? nullptr : StaticFindObject(Class, Outer, Name);
	}
	const bool bWantsPackage = Class && Class->IsChildOf(UPackage::StaticClass());
	const bool bFromOuter = Outer && Path[0] != TEXT('/');
	const FString Full = bFromOuter ? Outer->GetPathName() + TEXT(".") + Path
		: bWantsPackage				? FString(Path)
									: ObjectFind::WithAssetName(Path);
	UObject* const Standing = bFromOuter ? ObjectFind::IfOfClass(ObjectFind::FindBelow(Outer, Path), Class, false)
										 : StaticFindObject(Class, nullptr, *Full);
	if (Standing)
	{
		return Standing;
	}
	const FStringView Package = ObjectPaths::Split(Full).Package;
	const auto Load = ObjectProviders::GetPackageLoader().Load;
	const bool bHasFile = Load && Package.Len() > 1 && Package[0] == TEXT('/') && !ObjectFind::IsScriptPackage(Package);
	UObject* const Loaded = bHasFile && Load(Package, LoadFlags) ? StaticFindObject(Class, nullptr, *Full) : nullptr;
	UE_CLOG(!Loaded && (LoadFlags & (LOAD_NoWarn | LOAD_Quiet)) == 0, LogUObjectGlobals, Verbose,
		TEXT("There is no %s at '%s'"), Class ? *Class->GetName() : TEXT("object"), *Full);
	return Loaded;
}

UPackage* FindPackage(UObject* Outer, const TCHAR* PackageName)
{
	return Cast<UPackage>(ObjectFind::FindInMemory(Outer, FStringView(PackageName)));
}

UPackage* LoadPackage(UPackage* Outer, const TCHAR* LongPackageName, uint32 LoadFlags)
{
	const FStringView Name = ObjectPaths::Split(ObjectPaths::StripReference(FStringView(LongPackageName))).Package;
	if (ObjectFind::IsScriptPackage(Name))
	{
		return ObjectFind::FindTopPackage(Name);
	}
	const auto Load = ObjectProviders::GetPackageLoader().Load;
	return Load && !Name.IsEmpty() ? Load(Name, LoadFlags) : ObjectFind::FindTopPackage(Name);
}

void ForEachObjectWithOuter(const UObject* Outer, TFunctionRef<void(UObject*)> Operation, bool bIncludeNestedObjects)
{
	for (UObject* Inner = Outer->GetFirstInner(); Inner;)
	{
		UObject* const Next = Inner->GetNextInner();
		Operation(Inner);
		if (bIncludeNestedObjects)
		{
			ForEachObjectWithOuter(Inner, Operation, true);
		}
		Inner = Next;
	}
}

void GetObjectsWithOuter(const UObject* Outer, TArray<UObject*>& Results, bool bIncludeNestedObjects)
{
	ForEachObjectWithOuter(
		Outer, [&Results](UObject* Object) { Results.Add(Object); }, bIncludeNestedObjects);
}

void GetObjectsOfClass(const UClass* Class, TArray<UObject*>& Results, bool bIncludeDerived)
{
	ObjectFind::MakeAllLazy(Class);
	std::vector<UObject*> Instances = FObjectTable::Get().GetInstances(*Class, bIncludeDerived, false);
	std::sort(Instances.begin(), Instances.end(),
		[](const UObject* Left, const UObject* Right)
		{ return FObjectTable::GetCreationOrder(*Left) < FObjectTable::GetCreationOrder(*Right); });
	for (UObject* const Instance : Instances)
	{
		Results.Add(Instance);
	}
}

void GetDerivedClasses(const UClass* Class, TArray<UClass*>& Results, bool bRecursive)
{
	TArray<UObject*> Classes;
	GetObjectsOfClass(UClass::StaticClass(), Classes, true);
	for (UObject* const Object : Classes)
	{
		UClass* const Candidate = static_cast<UClass*>(Object);
		if (bRecursive ? Candidate != Class && Candidate->IsChildOf(Class) : Candidate->GetSuperClass() == Class)
		{
			Results.Add(Candidate);
		}
	}
}
