#include "Utils/Structure/ComponentProperties.h"

#include "AssetOperationBase.h"
#include "Components/SceneComponent.h"
#include "Engine/EngineTypes.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Structure/InheritedComponents.h"
#include "Utils/Structure/PropertyJson.h"
#include "Utils/Structure/StructureEntry.h"

namespace ComponentProperties
{
namespace
{
/** The keys that have a meaning of their own, and the property that each is about. */
struct FPlaceKey
{
	const TCHAR* Key;
	const TCHAR* Property;
	void (*Set)(USceneComponent& Component, const void* Value);
};

const FPlaceKey PlaceKeys[] = {
	{TEXT("relative_location"), TEXT("RelativeLocation"),
		[](USceneComponent& Component, const void* Value) {
			Component.SetRelativeLocationAndRotation(
				*static_cast<const FVector*>(Value), Component.GetRelativeRotation());
		}},
	{TEXT("relative_rotation"), TEXT("RelativeRotation"),
		[](USceneComponent& Component, const void* Value)
		{ Component.SetRelativeRotation(*static_cast<const FRotator*>(Value)); }},
	{TEXT("relative_scale_3d"), TEXT("RelativeScale3D"),
		[](USceneComponent& Component, const void* Value)
		{ Component.SetRelativeScale3D(*static_cast<const FVector*>(Value)); }},
	{TEXT("mobility"), TEXT("Mobility"),
		[](USceneComponent& Component, const void* Value)
		{ Component.SetMobility(*static_cast<const EComponentMobility::Type*>(Value)); }},
};

/** What people call properties that bear other names in the class. */
const TCHAR* FindOtherName(const FString& Key)
{
	struct FRow
	{
		const TCHAR* Said;
		const TCHAR* Property;
	};
	static const FRow Rows[] = {{TEXT("materials"), TEXT("OverrideMaterials")}, {TEXT("tags"), TEXT("ComponentTags")},
		{TEXT("location"), TEXT("RelativeLocation")}, {TEXT("rotation"), TEXT("RelativeRotation")},
		{TEXT("scale"), TEXT("RelativeScale3D")}};
	for (const FRow& Row : Rows)
	{
		if (Key.Equals(Row.Said, ESearchCase::IgnoreCase))
		{
			return Row.Property;
		}
	}
	return nullptr;
}

const FProperty* FindProperty(const UClass& Class, const FString& Key)
{
	if (const FProperty* const Exact = Class.FindPropertyByName(FName(*Key)))
	{
		return Exact;
	}
	for (TFieldIterator<FProperty> It(&Class, EFieldIteratorFlags::IncludeSuper); It; ++It)
	{
		if (PropertyJson::MeansProperty(Key, **It))
		{
			return *It;
		}
	}
	const TCHAR* const Other = FindOtherName(Key);
	return Other ? Class.FindPropertyByName(Other) : nullptr;
}

FString FindNearestName(const UClass& Class, const FString& Key)
{
	TArray<FString> Names;
	for (const FPlaceKey& Row : PlaceKeys)
	{
		Names.Add(Row.Key);
	}
	for (TFieldIterator<FProperty> It(&Class, EFieldIteratorFlags::IncludeSuper); It; ++It)
	{
		if (It->HasAnyPropertyFlags(CPF_Edit))
		{
			Names.Add(It->GetName());
		}
	}
	return StructureValues::FindNearest(Key, Names);
}

/** What an author could set: shown in the details panel, and no part of the component itself. */
bool IsEditable(const FProperty& Property)
{
	return Property.HasAnyPropertyFlags(CPF_Edit | CPF_BlueprintVisible)
		&& !Property.HasAnyPropertyFlags(CPF_EditConst | CPF_InstancedReference)
		&& !Property.IsA<FMulticastDelegateProperty>();
}

class FRun
{
public:
	FRun(UActorComponent& InTemplate, const FString& InName, const FInheritingTemplates& InInheriting,
		Morvane::FToolResult& InResult)
		: Template(InTemplate)
		, Inheriting(InInheriting)
		, Class(*InTemplate.GetClass())
		, Name(InName)
		, Result(InResult)
	{
	}

	bool Apply(const FString& Key, const TSharedPtr<FJsonValue>& Json)
	{
		for (const FPlaceKey& Row : PlaceKeys)
		{
			if (Key.Equals(Row.Key, ESearchCase::IgnoreCase))
			{
				return ApplyPlace(Row, Json);
			}
		}
		const FProperty* const Property = FindProperty(Class, Key);
		if (!Property)
		{
			const FString Nearest = FindNearestName(Class, Key);
			Result.AddWarningMessage(FString::Printf(TEXT("Property '%s' not found on component '%s' of class %s%s"),
				*Key, *Name, *Class.GetName(),
				*(Nearest.IsEmpty() ? FString() : FString::Printf(TEXT("; did you mean '%s'?"), *Nearest))));
			return false;
		}
		if (!IsEditable(*Property) || !Property->ValidateImportFlags(PPF_None))
		{
			Refuse(*Property, TEXT("it cannot be edited"));
			return false;
		}
		return ApplyProperty(*Property, Json);
	}

private:
	void Refuse(const FProperty& Property, const FString& Fault)
	{
		Result.AddWarningMessage(FString::Printf(
			TEXT("Property '%s' of component '%s' was left as it is: %s"), *Property.GetName(), *Name, *Fault));
	}

	/** False, told, when the JSON is no such value. */
	bool Read(const FProperty& Property, const TSharedPtr<FJsonValue>& Json, void* Value)
	{
		FString Fault;
		const bool bRead = PropertyJson::Write(Property, Json, Value, &Template, Fault);
		if (!bRead)
		{
			Refuse(Property, Fault);
		}
		return bRead;
	}

	bool ApplyPlace(const FPlaceKey& Row, const TSharedPtr<FJsonValue>& Json)
	{
		USceneComponent* const Scene = Cast<USceneComponent>(&Template);
		const FProperty* const Property = Scene ? Class.FindPropertyByName(Row.Property) : nullptr;
		if (!Property)
		{
			Result.AddWarningMessage(
				FString::Printf(TEXT("Component '%s' of class %s has no place, so '%s' was left out"), *Name,
					*Class.GetName(), Row.Key));
			return false;
		}
		const void* const Present = Property->ContainerPtrToValuePtr<void>(&Template);
		const FPropertyScratch Value(*Property, Present);
		if (!Read(*Property, Json, Value.Get()) || Property->Identical(Value.Get(), Present))
		{
			return false;
		}
		Template.Modify();
		const FPropertyScratch Before(*Property, Present);
		Row.Set(*Scene, Value.Get());
		Inheriting.PassOn(Template, *Property, Before.Get());
		return true;
	}

	bool ApplyProperty(const FProperty& Property, const TSharedPtr<FJsonValue>& Json)
	{
		const void* const Present = Property.ContainerPtrToValuePtr<void>(&Template);
		const FPropertyScratch Value(Property, Present);
		if (!Read(Property, Json, Value.Get()) || Property.Identical(Value.Get(), Present))
		{
			return false;
		}
		Template.Modify();
		const FPropertyScratch Before(Property, Present);
		if (!FAssetOperationBase::SetPropertyValueAsString(
				&Template, &Property, PropertyJson::ToText(Property, Value.Get(), &Template)))
		{
			Refuse(Property, TEXT("the component did not take the value"));
			return false;
		}
		Inheriting.PassOn(Template, Property, Before.Get());
		return true;
	}

	UActorComponent& Template;
	const FInheritingTemplates& Inheriting;
	const UClass& Class;
	FString Name;
	Morvane::FToolResult& Result;
};
} // namespace

bool Apply(UActorComponent& Template, const FString& Name, const FJsonObject& Properties,
	const FInheritingTemplates& Inheriting, Morvane::FToolResult& Result)
{
	FRun Run(Template, Name, Inheriting, Result);
	bool bChanged = false;
	for (const auto& Member : Properties.Values)
	{
		bChanged |= Member.Value && Run.Apply(FString(Member.Key), Member.Value);
	}
	return bChanged;
}
} // namespace ComponentProperties
