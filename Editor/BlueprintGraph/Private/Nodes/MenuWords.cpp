#include "Nodes/MenuWords.h"

#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "Standalone/BlueprintClassProvider.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"

namespace MenuWords
{
/** Texts are the same when they are shown the same. */
struct FExactTextKeyFuncs : TDefaultMapKeyFuncs<FString, FText, false>
{
	static bool Matches(const FString& Left, const FString& Right)
	{
		return Left.Equals(Right, ESearchCase::CaseSensitive);
	}
};

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

const FText& SharedText(const FString& Words)
{
	static TMap<FString, FText, FDefaultSetAllocator, FExactTextKeyFuncs> Known;
	const FText* const Found = Known.Find(Words);
	return Found ? *Found : Known.Add(Words, FText::FromString(Words));
}

const FText& MemberCategory(const FString* Category)
{
	return SharedText(TEXT("Variables|") + CategoryOf(Category, TEXT("Default")));
}

const FText& ForeignCategory(const UClass& Class)
{
	return SharedText(TEXT("Class|") + ClassName(Class));
}

bool IsOfEditor(const UClass& Class)
{
	static const TSet<FName> Modules = {FName(TEXT("/Script/AssetTools")),
		FName(TEXT("/Script/BlueprintEditorLibrary")), FName(TEXT("/Script/Blutility")),
		FName(TEXT("/Script/EditorScriptingUtilities")), FName(TEXT("/Script/EditorSubsystem")),
		FName(TEXT("/Script/MovieSceneTools")), FName(TEXT("/Script/SubobjectDataInterface")),
		FName(TEXT("/Script/UnrealEd"))};
	return Modules.Contains(Class.GetOutermost()->GetFName());
}

UClass* LastingClass(UClass* Class)
{
	return Class ? Class->GetAuthoritativeClass() : nullptr;
}

bool IsMemberOf(const UClass* LastingClass, const UBlueprint* Blueprint)
{
	const UClass* const Self = LastingClass ? BlueprintClassProvider::GetSelfClass(Blueprint) : nullptr;
	return Self
		&& (Self->IsChildOf(LastingClass) || Self->GetAuthoritativeClass()->IsChildOf(LastingClass)
			|| LastingClass->ClassGeneratedBy == Blueprint);
}

UClass* LookupClass(UClass* LastingClass)
{
	const UBlueprint* const Blueprint = LastingClass ? Cast<UBlueprint>(LastingClass->ClassGeneratedBy) : nullptr;
	return Blueprint ? BlueprintClassProvider::GetSelfClass(Blueprint) : LastingClass;
}
} // namespace MenuWords
