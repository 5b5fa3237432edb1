#include "ProjectCode/CodeCatalogue.h"

#include "Dom/JsonObject.h"
#include "HAL/FileManager.h"
#include "JsonReading.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "ProjectCode/CatalogueLines.h"
#include "Standalone/Catalogue.h"
#include "Standalone/JsonUtf8.h"
#include "ToolResult.h"

#include <algorithm>
#include <map>
#include <set>

namespace CodeCatalogue
{
constexpr const TCHAR* GeneratedEnd = TEXT(".headers.jsonl");

static bool LoadText(const FString& Path, std::string& OutText)
{
	FString Ignored;
	return FFileHelper::LoadFileToBytes(OutText, *Path, Ignored);
}

static TArray<FString> FindFiles(const FString& Folder, const TCHAR* Pattern)
{
	TArray<FString> Files;
	IFileManager::Get().FindFilesRecursive(Files, *Folder, Pattern, true, false);
	Files.Sort();
	return Files;
}

/** What the code of a project says, read from its folders. */
class FProjectCode
{
public:
	explicit FProjectCode(const FString& Project)
	{
		for (const TCHAR* const Below : {TEXT("Source"), TEXT("Plugins")})
		{
			for (const FString& Build : FindFiles(Project / Below, TEXT("*.Build.cs")))
			{
				ReadModule(Build);
			}
		}
	}

	std::vector<FCodeFile> Files;
	std::vector<ReflectedCode::FComponent> Components;
	int32 NumHeaders = 0;

private:
	void ReadModule(const FString& Build)
	{
		const FString Folder = FPaths::GetPath(Build);
		const FString Name = FPaths::GetCleanFilename(Build).Replace(TEXT(".Build.cs"), TEXT(""));
		for (const FString& Header : FindFiles(Folder, TEXT("*.h")))
		{
			ReadHeader(Folder, Header, "/Script/" + ToUtf8(Name));
		}
		for (const FString& Source : FindFiles(Folder, TEXT("*.cpp")))
		{
			ReadConstructors(Source);
		}
	}

	void ReadHeader(const FString& Folder, const FString& Header, const std::string& Module)
	{
		std::string Text;
		if (!LoadText(Header, Text))
		{
			return;
		}
		++NumHeaders;
		std::vector<ReflectedCode::FOwner> Owners = ReflectedCode::ReadHeader(Text);
		if (!Owners.empty())
		{
			Files.push_back({Module, IncludeName(Folder, Header), std::move(Owners)});
		}
		ReadConstructors(Header);
	}

	void ReadConstructors(const FString& Source)
	{
		std::string Text;
		if (LoadText(Source, Text) && Text.find("CreateDefaultSubobject") != std::string::npos)
		{
			std::vector<ReflectedCode::FComponent> Found = ReflectedCode::ReadConstructors(Text);
			std::move(Found.begin(), Found.end(), std::back_inserter(Components));
		}
	}

	static std::string IncludeName(const FString& Folder, const FString& Header)
	{
		FString Name = Header.Mid(Folder.Len() + 1);
		for (const TCHAR* const Root : {TEXT("Public/"), TEXT("Classes/"), TEXT("Private/")})
		{
			Name = Name.StartsWith(Root, ESearchCase::CaseSensitive) ? Name.Mid(FCString::Strlen(Root)) : Name;
		}
		return ToUtf8(Name);
	}
};

/** The path that the first key of a line gives; empty for the line of a member. */
static std::string OwnerPath(const std::string& Line)
{
	TSharedPtr<FJsonObject> Object;
	FString Ignored;
	FString Path;
	if (!JsonUtf8::Parse(Line, Object, Ignored))
	{
		return std::string();
	}
	for (const TCHAR* const Kind : {TEXT("class"), TEXT("struct"), TEXT("enum"), TEXT("delegate")})
	{
		if (!Object->Values.IsEmpty() && FString(Object->Values.begin()->Key) == Kind
			&& MorvaneJson::TryGetStringField(*Object, Kind, Path))
		{
			return ToUtf8(Path);
		}
	}
	return std::string();
}

using FLines = std::vector<std::string>;

static FLines SplitLines(const std::string& Text)
{
	FLines Lines;
	for (std::size_t At = 0; At < Text.size();)
	{
		const std::size_t End = std::min(Text.find('\n', At), Text.size());
		Lines.push_back(Text.substr(At, End - At));
		At = End + 1;
	}
	return Lines;
}

/** The files of this command, written until the catalogue takes them whole. */
class FWriter
{
public:
	FWriter(const FString& InProject, Morvane::FToolResult& InResult)
		: Project(InProject)
		, Folder(InProject / TEXT("Config/Catalogue"))
		, Result(InResult)
	{
	}

	/** Before anything is read: what an earlier run wrote is no knowledge of this one. */
	void ForgetEarlier()
	{
		for (const FString& File : FindFiles(Folder, TEXT("*.jsonl")))
		{
			if (File.EndsWith(GeneratedEnd, ESearchCase::CaseSensitive))
			{
				IFileManager::Get().Delete(*File);
				continue;
			}
			std::string Text;
			LoadText(File, Text);
			for (const std::string& Line : SplitLines(Text))
			{
				Stated.insert(OwnerPath(Line));
			}
		}
		Load();
	}

	void Write(std::map<std::string, FLines> Modules)
	{
		for (auto& [Module, Lines] : Modules)
		{
			LeaveOutStated(Lines);
			const std::string Name = Module.substr(Module.rfind('/') + 1);
			if (!Lines.empty())
			{
				Texts[ToUtf8(Folder / FromUtf8(Name) + GeneratedEnd)] = std::move(Lines);
			}
		}
		bool bRefused = true;
		while (bRefused && SaveAll())
		{
			bRefused = LeaveOutRefused(Load());
		}
	}

	int32 CountOwners() const
	{
		int32 Count = 0;
		for (const auto& [Path, Lines] : Texts)
		{
			Count += static_cast<int32>(std::count_if(
				Lines.begin(), Lines.end(), [](const std::string& Line) { return !OwnerPath(Line).empty(); }));
		}
		return Count;
	}

	const std::map<std::string, FLines>& GetTexts() const { return Texts; }

private:
	TArray<FString> Load()
	{
		TArray<FString> Errors;
		FCatalogue::Get().LoadProjectCatalogue(Project, Errors);
		return Errors;
	}

	void LeaveOutStated(FLines& Lines) const
	{
		bool bStated = false;
		std::erase_if(Lines,
			[&](const std::string& Line)
			{
				const std::string Path = OwnerPath(Line);
				bStated = Path.empty() ? bStated : Stated.count(Path) != 0;
				return bStated;
			});
	}

	bool SaveAll()
	{
		for (const auto& [Path, Lines] : Texts)
		{
			std::string Text;
			for (const std::string& Line : Lines)
			{
				Text += Line + "\n";
			}
			if (!FFileHelper::SaveStringToFile(FromUtf8(Text), *FromUtf8(Path)))
			{
				Result.AddErrorMessage(FString::Printf(TEXT("Cannot write %s"), *FromUtf8(Path)));
				return false;
			}
		}
		return true;
	}

	/** The catalogue refuses a file for one line, so that line goes, with what belongs to it; true when any went. */
	bool LeaveOutRefused(const TArray<FString>& Errors)
	{
		std::map<std::string, std::map<std::size_t, std::string>> Refused;
		for (const FString& Error : Errors)
		{
			const std::string Text = ToUtf8(Error);
			for (const auto& [Path, Lines] : Texts)
			{
				if (Text.starts_with(Path + ":") && !LacksWhatIsWritten(Text))
				{
					const std::size_t Number = std::strtoul(Text.c_str() + Path.size() + 1, nullptr, 10);
					Refused[Path].emplace(Number, Text.substr(Text.find(": ", Path.size()) + 2));
				}
			}
		}
		bool bAnyWent = false;
		for (const auto& [Path, Numbers] : Refused)
		{
			const std::size_t Before = Texts[Path].size();
			LeaveOut(Texts[Path], Numbers);
			bAnyWent |= Texts[Path].size() < Before;
		}
		return bAnyWent;
	}

	/** Whether the fault is only that another of these files was refused: with that one mended it is none. */
	bool LacksWhatIsWritten(const std::string& Fault) const
	{
		const std::size_t End = Fault.find("' is not known as ");
		const std::size_t Begin = End == std::string::npos ? End : Fault.rfind('\'', End - 1);
		const std::string Path = Begin == std::string::npos ? std::string() : Fault.substr(Begin + 1, End - Begin - 1);
		return std::any_of(Texts.begin(), Texts.end(),
			[&Path](const auto& File)
			{
				return !Path.empty()
					&& std::any_of(File.second.begin(), File.second.end(),
						[&Path](const std::string& Line) { return OwnerPath(Line) == Path; });
			});
	}

	void LeaveOut(FLines& Lines, const std::map<std::size_t, std::string>& Numbers)
	{
		FLines Kept;
		bool bOwnerGone = false;
		for (std::size_t Index = 0; Index < Lines.size(); ++Index)
		{
			const bool bOwner = !OwnerPath(Lines[Index]).empty();
			const auto Fault = Numbers.find(Index + 1);
			bOwnerGone = bOwner ? Fault != Numbers.end() : bOwnerGone;
			if (Fault != Numbers.end())
			{
				Result.AddWarningMessage(FString::Printf(TEXT("Left out, as the catalogue cannot hold it: %s (%s)"),
					*FromUtf8(Lines[Index].substr(0, 120)), *FromUtf8(Fault->second)));
			}
			else if (!bOwnerGone)
			{
				Kept.push_back(std::move(Lines[Index]));
			}
		}
		Lines = std::move(Kept);
	}

	const FString Project;
	const FString Folder;
	Morvane::FToolResult& Result;
	/** Paths of types that other files state. */
	std::set<std::string> Stated;
	std::map<std::string, FLines> Texts;
};

static void TellUnknown(const std::map<std::string, int>& Unknown, Morvane::FToolResult& Result)
{
	std::vector<std::pair<std::string, int>> Names(Unknown.begin(), Unknown.end());
	std::stable_sort(
		Names.begin(), Names.end(), [](const auto& Left, const auto& Right) { return Left.second > Right.second; });
	constexpr std::size_t MaxNamed = 20;
	std::string List;
	for (std::size_t Index = 0; Index < std::min(Names.size(), MaxNamed); ++Index)
	{
		List += (Index == 0 ? "" : ", ") + Names[Index].first + " (" + std::to_string(Names[Index].second) + ")";
	}
	if (!Names.empty())
	{
		const std::string More = Names.size() > MaxNamed ? " and " + std::to_string(Names.size() - MaxNamed) + " more"
														 : "";
		Result.AddWarningMessage(FString::Printf(
			TEXT("Members with types that are not known were left out: %s%s"), *FromUtf8(List), *FromUtf8(More)));
	}
}

void Make(const FString& ProjectDirectory, Morvane::FToolResult& Result)
{
	const FProjectCode Code(ProjectDirectory);
	if (Code.NumHeaders == 0)
	{
		Result.AddErrorMessage(FString::Printf(
			TEXT(
				"No module with C++ headers was found below %s: there is no Source or Plugins folder with a *.Build.cs file beside headers"),
			*ProjectDirectory));
		return;
	}
	FWriter Writer(ProjectDirectory, Result);
	Writer.ForgetEarlier();
	FCatalogueLines Lines(Code.Files, Code.Components);
	Writer.Write(Lines.Write());
	for (const std::string& Note : Lines.GetNotes())
	{
		Result.AddWarningMessage(FromUtf8(Note));
	}
	TellUnknown(Lines.GetUnknownTypes(), Result);
	for (const auto& [Path, Written] : Writer.GetTexts())
	{
		Result.AddSuccessMessage(
			FString::Printf(TEXT("Wrote %s: %d lines"), *FromUtf8(Path), static_cast<int32>(Written.size())));
	}
	Result.AddSuccessMessage(FString::Printf(
		TEXT("%d headers hold %d types that Blueprints may know"), Code.NumHeaders, Writer.CountOwners()));
}
} // namespace CodeCatalogue
