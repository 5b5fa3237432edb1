#include "UObject/Object.h"

#include "Misc/StringOutputDevice.h"
#include "Objects/ObjectExtension.h"
#include "Objects/ObjectTable.h"
#include "Standalone/NativeClass.h"
#include "Standalone/ObjectProviders.h"
#include "Standalone/ObjectText.h"
#include "UObject/Package.h"

namespace ObjectCustomData
{
static const TCHAR* const Keyword = TEXT("CustomProperties ");

static void CopyAsText(UObject& Target, const FString& Text)
{
	TArray<FString> Lines;
	Text.ParseIntoArrayLines(Lines);
	for (const FString& Line : Lines)
	{
		const FString Trimmed = Line.TrimStart();
		if (Trimmed.StartsWith(Keyword, ESearchCase::CaseSensitive))
		{
			Target.ImportCustomProperties(*Trimmed + FCString::Strlen(Keyword), GWarn);
		}
	}
}
} // namespace ObjectCustomData

UObject::UObject()
{
	FObjectTable::Get().TakeConstruction(*this);
}

UObject::~UObject() = default;

void UObject::DescribeClass(FClassDescriber& Class) {}

FString UObject::GetPathName(const UObject* StopOuter) const
{
	FString Path;
	GetPathName(StopOuter, Path);
	return Path;
}

void UObject::GetPathName(const UObject* StopOuter, FString& OutPath) const
{
	if (this == StopOuter)
	{
		OutPath += TEXT("None");
		return;
	}
	if (OuterPrivate && OuterPrivate != StopOuter)
	{
		OuterPrivate->GetPathName(StopOuter, OutPath);
		const UObject* const OuterOfOuter = OuterPrivate->OuterPrivate;
		const bool bFirstBelowTop = OuterOfOuter && !OuterOfOuter->OuterPrivate && OuterOfOuter->IsA<UPackage>();
		OutPath.AppendChar(bFirstBelowTop ? TEXT(':') : TEXT('.'));
	}
	NamePrivate.AppendString(OutPath);
}

FString UObject::GetFullGroupName(bool bStartWithOuter) const
{
	const UObject* const Start = bStartWithOuter ? OuterPrivate : this;
	return Start ? Start->GetPathName(GetOutermost()) : FString();
}

UPackage* UObject::GetOutermost() const
{
	const UObject* Top = this;
	while (Top->OuterPrivate)
	{
		Top = Top->OuterPrivate;
	}
	return Cast<UPackage>(const_cast<UObject*>(Top));
}

UObject* UObject::GetTypedOuter(const UClass* Target) const
{
	UObject* Outer = OuterPrivate;
	while (Outer && !Outer->IsA(Target))
	{
		Outer = Outer->OuterPrivate;
	}
	return Outer;
}

bool UObject::IsIn(const UObject* SomeOuter) const
{
	const UObject* Outer = OuterPrivate;
	while (Outer && Outer != SomeOuter)
	{
		Outer = Outer->OuterPrivate;
	}
	return Outer != nullptr || SomeOuter == nullptr;
}

bool UObject::IsA(const UClass* SomeBase) const
{
	return ClassPrivate && ClassPrivate->IsChildOf(SomeBase);
}

bool UObject::ImplementsInterface(const UClass* SomeInterface) const
{
	return ClassPrivate && ClassPrivate->ImplementsInterface(SomeInterface);
}

bool UObject::IsTemplate(EObjectFlags TemplateTypes) const
{
	const UObject* Object = this;
	while (Object && !Object->HasAnyFlags(TemplateTypes))
	{
		Object = Object->OuterPrivate;
	}
	return Object != nullptr;
}

bool UObject::Rename(const TCHAR* NewName, UObject* NewOuter, ERenameFlags Flags)
{
	if (IsGarbage())
	{
		return true;
	}
	FObjectTable& Table = FObjectTable::Get();
	UObject* const Outer = NewOuter ? NewOuter : OuterPrivate;
	FName Name = NewName ? FName(NewName) : NamePrivate;
	if (Name.IsNone() || Outer == this || Outer->IsIn(this))
	{
		return false;
	}
	const UObject* const Occupant = Table.Find(Outer, Name);
	if (Occupant && Occupant != this)
	{
		if (NewName)
		{
			return false;
		}
		Name = Table.MakeUniqueName(Outer, Name);
	}
	if ((Flags & REN_Test) != 0)
	{
		return true;
	}
	const bool bMakeDirty = (Flags & REN_DoNotDirty) == 0;
	if (bMakeDirty)
	{
		MarkPackageDirty();
	}
	Table.Move(*this, Name, Outer);
	if (bMakeDirty)
	{
		MarkPackageDirty();
	}
	return true;
}

bool UObject::MarkPackageDirty() const
{
	UPackage* const Package = GetOutermost();
	if (!Package || Package->HasAnyFlags(RF_Transient) || (Package->PackageFlags & PKG_CompiledIn) != 0)
	{
		return false;
	}
	Package->SetDirtyFlag(true);
	return true;
}

bool UObject::Modify(bool bAlwaysMarkDirty)
{
	return bAlwaysMarkDirty && MarkPackageDirty();
}

void UObject::PreEditChange(FProperty* PropertyAboutToChange)
{
	Modify();
}

void UObject::PostEditChange()
{
	FPropertyChangedEvent Event(nullptr);
	PostEditChangeProperty(Event);
}

void UObject::PostEditChangeProperty(FPropertyChangedEvent& Event) {}

bool UObject::IsAsset() const
{
	return HasAnyFlags(RF_Public) && !HasAnyFlags(RF_Transient | RF_ClassDefaultObject | RF_Garbage) && OuterPrivate
		&& OuterPrivate->IsA<UPackage>();
}

void UObject::ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext*)
{
	FKeptObjectText::FindOrAdd(this).CustomLines.push_back(ToUtf8(FString(SourceText)));
}

void UObject::DuplicateCustomData(const UObject* Source)
{
	if (const FKeptObjectText* const Kept = FKeptObjectText::Find(Source))
	{
		const FKeptObjectText Copy = *Kept;
		FKeptObjectText::FindOrAdd(this) = Copy;
	}
	FStringOutputDevice Text;
	const_cast<UObject*>(Source)->ExportCustomProperties(Text, 0);
	ObjectCustomData::CopyAsText(*this, Text);
}

void UObject::MarkAsGarbage()
{
	FObjectTable::Get().MarkGarbage(*this);
}

UObject* UObject::GetArchetype() const
{
	if (HasAnyFlags(RF_ClassDefaultObject))
	{
		const UClass* const Super = ClassPrivate->GetSuperClass();
		return Super ? Super->GetDefaultObject() : nullptr;
	}
	if (HasAnyFlags(RF_DefaultSubObject) && OuterPrivate)
	{
		const UObject* const OuterArchetype = OuterPrivate->GetArchetype();
		UObject* const Template = OuterArchetype ? FObjectTable::Get().Find(OuterArchetype, NamePrivate) : nullptr;
		if (Template && IsA(Template->GetClass()))
		{
			return Template;
		}
	}
	const auto FindArchetype = ObjectProviders::GetTemplates().FindArchetype;
	const bool bTemplate = HasAnyFlags(RF_ArchetypeObject) && OuterPrivate && OuterPrivate->IsA(UClass::StaticClass());
	UObject* const Inherited = bTemplate && FindArchetype ? FindArchetype(*this) : nullptr;
	return Inherited && IsA(Inherited->GetClass()) ? Inherited : ClassPrivate->GetDefaultObject();
}

uint8* UObject::FindExtension(const UStruct* OwnerClass) const
{
	return FObjectTable::FindExtension(*this, OwnerClass);
}

bool UE::Object::IsObjectA(const UObject* Object, const UClass* Class)
{
	return Object && Object->IsA(Class);
}

FWeakObjectPtr::FWeakObjectPtr(const UObject* Object)
{
	if (Object && Object->GetInternalIndex() != INDEX_NONE)
	{
		ObjectIndex = Object->GetInternalIndex();
		ObjectSerialNumber = FObjectTable::Get().GetSerial(ObjectIndex);
	}
}

UObject* FWeakObjectPtr::Get() const
{
	return Get(false);
}

UObject* FWeakObjectPtr::Get(bool bEvenIfGarbage) const
{
	UObject* const Object = FObjectTable::Get().Resolve(ObjectIndex, ObjectSerialNumber);
	return Object && (bEvenIfGarbage || !Object->IsGarbage()) ? Object : nullptr;
}

bool FWeakObjectPtr::operator==(const FWeakObjectPtr& Other) const
{
	return (ObjectIndex == Other.ObjectIndex && ObjectSerialNumber == Other.ObjectSerialNumber)
		|| (!Get() && !Other.Get());
}
