#include "Catalogue/CatalogueObjects.h"

DEFINE_LOG_CATEGORY_STATIC(LogCatalogue, Log, All);

namespace Catalogue
{
namespace CatalogueDefaults
{
static void SetObjectMember(UObject& Owner, FName MemberName, UObject* Value)
{
	const FObjectProperty* const Member = FindFProperty<FObjectProperty>(Owner.GetClass(), MemberName);
	if (Member && (!Value || !Member->PropertyClass || Value->IsA(Member->PropertyClass)))
	{
		Member->SetObjectPropertyValue_InContainer(&Owner, Value);
	}
}

/** Several members may hold one component: the general one of the parent class and the exact one of its own. */
static void SetMembers(UObject& Actor, const FString& CommaSeparatedNames, UObject* Component)
{
	TArray<FString> Names;
	CommaSeparatedNames.ParseIntoArray(Names, TEXT(","));
	for (const FString& Name : Names)
	{
		SetObjectMember(Actor, FName(Name), Component);
	}
}

/** The component of an earlier record or of a parent class, by name; null for none. */
static UObject* FindComponent(UObject& DefaultObject, FName Name)
{
	return Name.IsNone() ? nullptr : DefaultObject.GetClass()->GetDefaultSubobjectByName(Name);
}

/** Whether there is a value, and the object has the property and took it. */
static bool SetValue(FLoadedImage& Image, FTextOffset Name, FTextOffset Value, UObject& DefaultObject)
{
	if (Value == 0)
	{
		return false;
	}
	const FProperty* const Property = DefaultObject.GetClass()->FindPropertyByName(Image.Name(Name));
	if (!Property)
	{
		UE_LOG(LogCatalogue, Warning, TEXT("%s has no property '%s' to start with a value"),
			*DefaultObject.GetClass()->GetPathName(), *Image.Text(Name));
		return false;
	}
	const FString Text = Image.Text(Value);
	const bool bRead = Property->ImportText_InContainer(*Text, &DefaultObject, &DefaultObject, PPF_None) != nullptr;
	UE_CLOG(!bRead, LogCatalogue, Warning, TEXT("'%s' is no value of %s"), *Text, *Property->GetPathName());
	return bRead;
}

static bool SetValues(FLoadedImage& Image, const FOwnerRecord& Record, UObject& DefaultObject)
{
	bool bChanged = false;
	for (uint32 Index = 0; Index < Record.Defaults.Num; ++Index)
	{
		const FMetaRecord& Row = Image.GetView().Meta(Record.Defaults.First + Index);
		bChanged |= SetValue(Image, Row.Key, Row.Value, DefaultObject);
	}
	for (uint32 Index = 0; Index < Record.Properties.Num; ++Index)
	{
		const FPropertyRecord& Row = Image.GetView().Property(Record.Properties.First + Index);
		bChanged |= SetValue(Image, Row.Name, Row.Default, DefaultObject);
	}
	return bChanged;
}

static void MakeComponent(FLoadedImage& Image, const FComponentRecord& Row, UObject& Actor)
{
	UClass* const Class = Image.Resolve<UClass>(Row.Class);
	const FName Name = Image.Name(Row.Name);
	if (!Class || FindComponent(Actor, Name))
	{
		return;
	}
	static const FName RootName(TEXT("RootComponent"));
	static const FName AttachName(TEXT("AttachParent"));
	UObject* const Component = Actor.CreateDefaultSubobject(Name, Class, Class, true, false);
	SetMembers(Actor, Image.Text(Row.Property), Component);
	if (Row.Attach != 0)
	{
		SetObjectMember(*Component, AttachName, FindComponent(Actor, Image.Name(Row.Attach)));
		return;
	}
	// Only scene components have a place in the tree; the first of them is its root.
	const FObjectProperty* const Root = FindFProperty<FObjectProperty>(Actor.GetClass(), RootName);
	if (Root && Root->PropertyClass && Component->IsA(Root->PropertyClass)
		&& !Root->GetObjectPropertyValue_InContainer(&Actor))
	{
		Root->SetObjectPropertyValue_InContainer(&Actor, Component);
	}
}
} // namespace CatalogueDefaults

bool InitializeDefaults(FLoadedImage& Image, const FOwnerRecord& Record, UClass& Class, UObject& DefaultObject)
{
	using namespace CatalogueDefaults;
	for (uint32 Index = 0; Index < Record.Components.Num; ++Index)
	{
		MakeComponent(Image, Image.GetView().Component(Record.Components.First + Index), DefaultObject);
	}
	const bool bSetValues = SetValues(Image, Record, DefaultObject);
	return bSetValues || Record.Components.Num > 0;
}
} // namespace Catalogue
