#include "GameplayTagsManager.h"

#include "HAL/FileManager.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "Standalone/GameplayTagsClasses.h"
#include "Standalone/NativeClass.h"
#include "Standalone/Project.h"

IMPLEMENT_EDITOR_CLASS(UGameplayTagsManager, "/Script/GameplayTags", CLASS_None)

namespace GameplayTagFiles
{
DEFINE_LOG_CATEGORY_STATIC(LogGameplayTags, Log, All);

/** The tag of a line such as: +GameplayTagList=(Tag="Ability.Melee",DevComment="..."). Empty for any other line. */
static FString TagOfLine(const FString& Line)
{
	static const FString Key(TEXT("GameplayTagList="));
	static const FString Open(TEXT("Tag=\""));
	const FString Trimmed = Line.TrimStartAndEnd();
	const int32 KeyAt = Trimmed.StartsWith(TEXT("+")) ? 1 : 0;
	if (!Trimmed.RightChop(KeyAt).StartsWith(Key))
	{
		return FString();
	}
	const int32 OpenAt = Trimmed.Find(Open);
	const int32 Start = OpenAt + Open.Len();
	const int32 End = OpenAt == INDEX_NONE
		? INDEX_NONE
		: Trimmed.Find(TEXT("\""), ESearchCase::CaseSensitive, ESearchDir::FromStart, Start);
	return End == INDEX_NONE ? FString() : Trimmed.Mid(Start, End - Start);
}
} // namespace GameplayTagFiles

void UGameplayTagsManager::DescribeClass(FClassDescriber&) {}

UGameplayTagsManager& UGameplayTagsManager::Get()
{
	return *GetMutableDefault<UGameplayTagsManager>();
}

FGameplayTag UGameplayTagsManager::RequestGameplayTag(FName TagName, bool bErrorIfNotFound)
{
	EnsureProjectWasRead();
	if (Known.Contains(TagName))
	{
		return FGameplayTag(TagName);
	}
	if (bErrorIfNotFound)
	{
		using GameplayTagFiles::LogGameplayTags;
		UE_LOG(LogGameplayTags, Warning, TEXT("The project has no gameplay tag '%s'"), *TagName.ToString());
	}
	return FGameplayTag();
}

const TArray<FName>& UGameplayTagsManager::RequestAllTagNames()
{
	EnsureProjectWasRead();
	return Names;
}

void UGameplayTagsManager::AddNativeGameplayTag(FName TagName)
{
	EnsureProjectWasRead();
	NativeNames.AddUnique(TagName);
	AddWithParents(TagName.ToString());
}

void UGameplayTagsManager::EditorRefreshGameplayTagTree()
{
	bWasRead = false;
	EnsureProjectWasRead();
}

void UGameplayTagsManager::EnsureProjectWasRead()
{
	if (bWasRead && ReadDirectory == FProject::GetDirectory())
	{
		return;
	}
	bWasRead = true;
	ReadDirectory = FProject::GetDirectory();
	Known.Empty();
	Names.Empty();
	for (const FName Name : NativeNames)
	{
		AddWithParents(Name.ToString());
	}
	if (ReadDirectory.IsEmpty())
	{
		return;
	}
	const FString Config = ReadDirectory / TEXT("Config");
	ReadFile(Config / TEXT("DefaultGameplayTags.ini"));
	TArray<FString> Files;
	IFileManager::Get().FindFilesRecursive(Files, *(Config / TEXT("Tags")), TEXT("*.ini"), true, false);
	Files.Sort();
	for (const FString& File : Files)
	{
		ReadFile(File);
	}
}

void UGameplayTagsManager::ReadFile(const FString& Path)
{
	FString Text;
	if (!IFileManager::Get().FileExists(*Path) || !FFileHelper::LoadFileToString(Text, *Path))
	{
		return;
	}
	TArray<FString> Lines;
	Text.ParseIntoArray(Lines, TEXT("\n"));
	for (const FString& Line : Lines)
	{
		AddWithParents(GameplayTagFiles::TagOfLine(Line));
	}
}

void UGameplayTagsManager::AddWithParents(const FString& Name)
{
	for (int32 End = 0; End < Name.Len(); ++End)
	{
		const int32 Dot = Name.Find(TEXT("."), ESearchCase::CaseSensitive, ESearchDir::FromStart, End);
		End = Dot == INDEX_NONE ? Name.Len() : Dot;
		const FName Part(Name.Left(End));
		if (!Part.IsNone() && !Known.Contains(Part))
		{
			Known.Add(Part);
			Names.Add(Part);
		}
	}
}

void RegisterGameplayTagsClasses()
{
	NativeClass::RegisterNativeClasses({&UGameplayTagsManager::StaticClass});
	FGameplayTag::StaticStruct();
	FGameplayTagContainer::StaticStruct();
}
