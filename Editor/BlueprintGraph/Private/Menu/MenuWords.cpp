#include "Menu/MenuWords.h"

#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintClassProvider.h"
#include "UObject/UnrealType.h"

namespace MenuWords
{
FString ReadableCategory(const FString& Category)
{
	// Thousands of members share a few hundred categories.
	static TMap<FString, FString> Known;
	if (const FString* const Found = Known.Find(Category))
	{
		return *Found;
	}
	TArray<FString> Parts;
	Category.ParseIntoArray(Parts, TEXT("|"));
	for (FString& Part : Parts)
	{
		Part = FName::NameToDisplayString(Part.TrimStartAndEnd(), false);
	}
	return Known.Add(Category, FString::Join(Parts, TEXT("|")));
}

FString CategoryOf(const FString* Category, const FString& Fallback)
{
	return Category && !Category->IsEmpty() ? ReadableCategory(*Category) : Fallback;
}

FString ClassName(const UClass& Class)
{
	return Class.ClassGeneratedBy ? Class.ClassGeneratedBy->GetName() : Class.GetDisplayNameText().ToString();
}

FText VariableCategory(const FProperty& Property)
{
	const UClass* const Owner = Property.GetOwnerClass();
	const FString* const Given = Property.FindMetaData(FBlueprintMetadata::MD_FunctionCategory);
	if (!Owner || Owner->ClassGeneratedBy)
	{
		return FText::FromString(TEXT("Variables|") + CategoryOf(Given, TEXT("Default")));
	}
	const FString Class = TEXT("Class|") + ClassName(*Owner);
	return FText::FromString(Given && !Given->IsEmpty() ? Class + TEXT("|") + ReadableCategory(*Given) : Class);
}

UClass* LastingClass(UClass* Class)
{
	return Class ? Class->GetAuthoritativeClass() : nullptr;
}

UClass* LookupClass(UClass* LastingClass)
{
	const UBlueprint* const Blueprint = LastingClass ? Cast<UBlueprint>(LastingClass->ClassGeneratedBy) : nullptr;
	return Blueprint ? BlueprintClassProvider::GetSelfClass(Blueprint) : LastingClass;
}
} // namespace MenuWords
