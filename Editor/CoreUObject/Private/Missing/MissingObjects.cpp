#include "Standalone/MissingObjects.h"

#include "Missing/MissingTable.h"
#include "Objects/ObjectPaths.h"
#include "Objects/ObjectTable.h"
#include "Standalone/ObjectText.h"
#include "UObject/Package.h"
#include "UObject/PropertyBagRepository.h"

namespace MissingObjects
{
namespace
{
int32 NumScopes = 0;

/** Longer ones are no paths of objects; text of any origin may hold them. */
constexpr int32 MaxPathLength = 1000;

TArray<FString>& Asked()
{
	static TArray<FString> Paths;
	return Paths;
}

bool IsScript(FStringView Path)
{
	return Path.StartsWith(TEXT("/Script/"), ESearchCase::IgnoreCase);
}

/** The parts of a path: the package, then names from the outside in. Empty when it is none. */
TArray<FString> SplitPath(FStringView Path)
{
	TArray<FString> Parts;
	if (Path.Len() < 2 || Path.Len() > MaxPathLength || Path[0] != TEXT('/'))
	{
		return Parts;
	}
	while (!Path.IsEmpty())
	{
		const ObjectPaths::FParts Split = ObjectPaths::Split(Path);
		if (Split.Package.IsEmpty())
		{
			return TArray<FString>();
		}
		Parts.Add(FString(Split.Package));
		Path = Split.Object;
	}
	return Parts;
}

/** Makes an object that is in no table by which objects are found. */
UObject* MakeHidden(const UClass* Class, UObject* Outer, const FString& Name)
{
	UObject* const Object = StaticConstructObject_Internal(
		Class, Outer, FName(Name), static_cast<EObjectFlags>(RF_Public | RF_Transient | MissingFlag));
	FObjectTable::Get().Hide(*Object);
	return Object;
}

UPackage* FindOrMakePackage(const FString& Name)
{
	static std::unordered_map<std::string, UPackage*> Packages;
	UPackage*& Package = Packages[KeyOf(Name)];
	if (!Package)
	{
		// Beside a package of that name that may stand: its construction must not find that one.
		UObject* const Standing = FObjectTable::Get().Find(nullptr, FName(Name));
		const FString Unused = Standing ? Name + TEXT("\x1") : Name;
		Package = static_cast<UPackage*>(MakeHidden(UPackage::StaticClass(), nullptr, Unused));
		FObjectTable::Get().NameHidden(*Package, FName(Name));
	}
	return Package;
}

/** Parents that a missing class keeps tell what kind of class it is. */
void SetUpClass(UClass& Class, const UClass* Base)
{
	UClass* const Parent = const_cast<UClass*>(Base ? Base : UObject::StaticClass());
	Class.SetSuperStruct(Parent);
	constexpr uint32 Inherited = CLASS_Interface | CLASS_DefaultToInstanced | CLASS_EditInlineNew;
	Class.ClassFlags = static_cast<EClassFlags>(Parent->ClassFlags & Inherited);
	FString Shown = Class.GetName();
	if (Shown.RemoveFromEnd(TEXT("_C"), ESearchCase::CaseSensitive))
	{
		Class.SetMetaData(FName(TEXT("DisplayName")), Shown);
	}
}

/** The class that an object at the path most probably has, where the reference does not say. */
const UClass* GuessClass(const FString& Path, const UClass* Kind)
{
	const auto IfKind = [Kind](const TCHAR* ClassPath) -> const UClass*
	{
		const UClass* const Class = FindObject<UClass>(nullptr, ClassPath);
		return Class && Class->IsChildOf(Kind) ? Class : nullptr;
	};
	const UClass* Class = nullptr;
	if (Path.EndsWith(TEXT("_C"), ESearchCase::CaseSensitive))
	{
		Class = IfKind(TEXT("/Script/Engine.BlueprintGeneratedClass"));
	}
	else if (IsScript(Path))
	{
		Class = UClass::StaticClass()->IsChildOf(Kind) ? UClass::StaticClass() : nullptr;
	}
	return Class ? Class : Kind;
}

UObject* MakeStandIn(const TArray<FString>& Parts, int32 NumParts, const FString& Path, const UClass* Class)
{
	FEntry* const Known = FindEntry(Path, Class);
	if (Known)
	{
		Known->bUsed = true;
		return Known->StandIn;
	}
	UObject* Outer = FindOrMakePackage(Parts[0]);
	if (NumParts > 2)
	{
		int32 Cut = INDEX_NONE;
		const int32 LastLength = Parts[NumParts - 1].Len();
		Cut = Path.Len() - LastLength - 1;
		Outer = MakeStandIn(Parts, NumParts - 1, Path.Left(Cut), UObject::StaticClass());
	}
	UObject* const StandIn = MakeHidden(Class, Outer, Parts[NumParts - 1]);
	AddEntry(Path, StandIn);
	return StandIn;
}
} // namespace
} // namespace MissingObjects

FMissingObjects::FScope::FScope()
{
	++MissingObjects::NumScopes;
}

FMissingObjects::FScope::~FScope()
{
	--MissingObjects::NumScopes;
}

bool FMissingObjects::IsKeeping()
{
	return MissingObjects::NumScopes > 0;
}

bool FMissingObjects::IsMissing(const UObject* Object)
{
	return Object && Object->HasAnyFlags(MissingObjects::MissingFlag);
}

const UClass* FMissingObjects::FindMissingParent(const UClass* Class)
{
	while (Class && !IsMissing(Class))
	{
		Class = Class->GetSuperClass();
	}
	return Class;
}

TArray<FString> FMissingObjects::TakeAsked()
{
	TArray<FString> Taken = MoveTemp(MissingObjects::Asked());
	MissingObjects::Asked().Empty();
	return Taken;
}

UObject* FMissingObjects::StandInFor(
	FStringView ClassPath, FStringView Path, const UClass* Kind, const UClass* Base, const UObject* Owner)
{
	const TArray<FString> Parts = MissingObjects::SplitPath(Path);
	const UPackage* const Own = Owner ? Owner->GetOutermost() : nullptr;
	if (Parts.Num() < 2 || !Kind || (Own && Own->GetName().Equals(Parts[0], ESearchCase::IgnoreCase)))
	{
		return nullptr;
	}
	const FString Full(Path);
	const UClass* const Told = ClassPath.IsEmpty() ? nullptr : FObjectTextImport::FindClass(ToUtf8(FString(ClassPath)));
	const UClass* const Class = Told && Told->IsChildOf(Kind) ? Told : MissingObjects::GuessClass(Full, Kind);
	if (!Class->GetNativeClass() || Class->IsChildOf(UPackage::StaticClass()))
	{
		return nullptr;
	}
	UObject* const StandIn = MissingObjects::MakeStandIn(Parts, Parts.Num(), Full, Class);
	UClass* const AsClass = Cast<UClass>(StandIn);
	if (AsClass
		&& (!AsClass->GetSuperClass()
			|| (Base && !AsClass->IsChildOf(Base) && Base->IsChildOf(AsClass->GetSuperClass()))))
	{
		MissingObjects::SetUpClass(*AsClass, Base);
	}
	MissingObjects::Asked().AddUnique(Full);
	return StandIn;
}

UClass* FMissingObjects::StandInForClass(FStringView Path, UClass& Base, FStringView ClassPath)
{
	UClass* const Class = Cast<UClass>(StandInFor(ClassPath, Path, UClass::StaticClass(), &Base, nullptr));
	// What another reference took it for must not stand against the objects that are made of it.
	if (Class && !Class->IsChildOf(&Base))
	{
		MissingObjects::SetUpClass(*Class, &Base);
	}
	return Class;
}

UObject* FMissingObjects::StandInForDeleted(UObject& Deleted)
{
	const UClass* Base = nullptr;
	if (const UClass* Class = Cast<UClass>(&Deleted))
	{
		while (Class && Class->IsGarbage())
		{
			Class = Class->GetSuperClass();
		}
		Base = Class;
	}
	const FString Path = Deleted.GetPathName();
	const TArray<FString> Parts = MissingObjects::SplitPath(Path);
	if (Parts.Num() < 2 || !Deleted.GetClass()->GetNativeClass() || Deleted.GetClass()->IsGarbage())
	{
		return nullptr;
	}
	UObject* const StandIn = MissingObjects::MakeStandIn(Parts, Parts.Num(), Path, Deleted.GetClass());
	if (UClass* const Class = Cast<UClass>(StandIn))
	{
		MissingObjects::SetUpClass(*Class, Base);
	}
	return StandIn;
}

bool UE::FPropertyBagRepository::IsPropertyBagPlaceholderType(const UStruct* Type)
{
	return FMissingObjects::IsMissing(Type);
}

bool UE::FPropertyBagRepository::IsPropertyBagPlaceholderType(const UEnum* Enum)
{
	return FMissingObjects::IsMissing(Enum);
}

bool UE::FPropertyBagRepository::IsPropertyBagPlaceholderObject(const UObject* Object)
{
	if (!Object || FMissingObjects::IsMissing(Object) || FMissingObjects::IsMissing(Object->GetClass()))
	{
		return Object != nullptr;
	}
	const FKeptObjectText* const Kept = FKeptObjectText::Find(Object);
	return Kept && !Kept->ClassPath.empty();
}
