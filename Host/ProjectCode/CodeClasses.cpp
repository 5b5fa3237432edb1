#include "ProjectCode/CodeClasses.h"

#include "Kismet2/KismetEditorUtilities.h"
#include "ProjectCode/CodeTypes.h"
#include "Standalone/Catalogue.h"
#include "UObject/Class.h"

using namespace ReflectedCode;

namespace CodeClasses
{
/** What a class that nobody knows is most likely to be. */
static std::string StandInFor(const std::string& Parent)
{
	const auto Has = [&Parent](const char* Word) { return Parent.find(Word) != std::string::npos; };
	return Parent.starts_with("A") ? "/Script/Engine.Actor"
		: Has("Component")		   ? "/Script/Engine.ActorComponent"
		: Has("Widget")			   ? "/Script/UMG.UserWidget"
								   : "/Script/CoreUObject.Object";
}

/** Children of these say for themselves whether Blueprints may derive from them. */
static bool IsBaseByName(const UClass& Class)
{
	const FString Path = Class.GetPathName();
	return Path == TEXT("/Script/CoreUObject.Object") || Path == TEXT("/Script/Engine.ActorComponent")
		|| Path == TEXT("/Script/Engine.SceneComponent");
}
} // namespace CodeClasses

FCodeClasses::FCodeClasses(const std::vector<FCodeFile>& Files, FCodeTypes& InTypes)
	: Types(InTypes)
{
	for (const FCodeFile& File : Files)
	{
		for (const FOwner& Owner : File.Owners)
		{
			OwnersByName.emplace(Owner.Name, &Owner);
		}
	}
}

const FOwner* FCodeClasses::Find(const std::string& Name) const
{
	const auto Found = OwnersByName.find(Name);
	return Found == OwnersByName.end() ? nullptr : Found->second;
}

std::string FCodeClasses::FindParent(const FOwner& Owner, std::vector<std::string>& Notes) const
{
	const std::string Name = Owner.Parents.empty() ? std::string("UObject") : Owner.Parents[0];
	const std::string Path = Types.FindClass(Name);
	if (!Path.empty())
	{
		return Path;
	}
	const std::string Instead = CodeClasses::StandInFor(Name);
	Types.AddUnknown(Name);
	Notes.push_back(
		"'" + Owner.Name + "' derives from '" + Name + "', which is not known; it is taken as one of " + Instead);
	return Instead;
}

const UClass* FCodeClasses::FindKnownAncestor(const FOwner& Owner) const
{
	const FOwner* Class = &Owner;
	// A circle of parents would be a fault of the code.
	for (std::size_t Depth = 0; Class && Depth <= OwnersByName.size(); ++Depth)
	{
		const std::string Parent = Class->Parents.empty() ? std::string("UObject") : Class->Parents[0];
		Class = Find(Parent);
		if (!Class)
		{
			const std::string Known = Types.FindClass(Parent);
			return Cast<UClass>(
				FCatalogue::Get().FindOrCreate(FromUtf8(Known.empty() ? CodeClasses::StandInFor(Parent) : Known)));
		}
	}
	return nullptr;
}

bool FCodeClasses::InheritsWord(const FOwner& Owner, const char* Word, const char* Opposite, bool bOfAncestor) const
{
	const FOwner* Class = &Owner;
	for (std::size_t Depth = 0; Class && Depth <= OwnersByName.size(); ++Depth)
	{
		if (Class->Specifiers.Has(Opposite))
		{
			return false;
		}
		if (Class->Specifiers.Has(Word) || Class->Specifiers.HasMeta(Word))
		{
			return true;
		}
		Class = Class->Parents.empty() ? nullptr : Find(Class->Parents[0]);
	}
	return bOfAncestor;
}

std::vector<std::string> FCodeClasses::FlagsOf(const FOwner& Owner) const
{
	const UClass* const Ancestor = FindKnownAncestor(Owner);
	const auto IsA = [Ancestor](const TCHAR* Path)
	{
		const UClass* const Class = Cast<UClass>(FCatalogue::Get().FindOrCreate(Path));
		return Ancestor && Class && Ancestor->IsChildOf(Class);
	};
	const bool bComponent = IsA(TEXT("/Script/Engine.ActorComponent"));
	const bool bParentMayBeType = Ancestor
		&& (IsA(TEXT("/Script/Engine.Actor")) || bComponent
			|| (!CodeClasses::IsBaseByName(*Ancestor) && Ancestor->GetBoolMetaData(TEXT("BlueprintType"))));
	const bool bSpawnable = bComponent && InheritsWord(Owner, "BlueprintSpawnableComponent", "NotSpawnable", false);
	const bool bBlueprintable = bSpawnable
		|| InheritsWord(Owner, "Blueprintable", "NotBlueprintable",
			Ancestor && !CodeClasses::IsBaseByName(*Ancestor)
				&& FKismetEditorUtilities::CanCreateBlueprintOfClass(Ancestor));
	const std::pair<const char*, bool> Rows[] = {{"abstract", Owner.Specifiers.Has("Abstract")},
		{"interface", Owner.Kind == EOwner::Interface}, {"deprecated", Owner.Specifiers.Has("Deprecated")},
		{"actor", IsA(TEXT("/Script/Engine.Actor"))}, {"component", bComponent},
		{"widget", IsA(TEXT("/Script/UMG.Widget"))},
		{"function_library", IsA(TEXT("/Script/Engine.BlueprintFunctionLibrary"))},
		{"async_action", IsA(TEXT("/Script/Engine.BlueprintAsyncActionBase"))}, {"spawnable", bSpawnable},
		{"blueprintable",
			bBlueprintable
				|| (Owner.Kind == EOwner::Interface
					&& !Owner.Specifiers.HasMeta("CannotImplementInterfaceInBlueprint"))},
		{"blueprint_type",
			bBlueprintable || InheritsWord(Owner, "BlueprintType", "NotBlueprintType", bParentMayBeType)}};
	std::vector<std::string> Flags;
	for (const auto& [Flag, bSet] : Rows)
	{
		if (bSet)
		{
			Flags.emplace_back(Flag);
		}
	}
	return Flags;
}
