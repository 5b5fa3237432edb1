#include "Catalogue/CatalogueObjects.h"
#include "Catalogue/CatalogueSource.h"
#include "HAL/FileManager.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "Standalone/Catalogue.h"

#include <algorithm>
#include <unordered_map>

namespace Catalogue
{
namespace ProjectCatalogue
{
/** Reads a project's files and leaves out, file by file, what does not hold; made for one run. */
class FProjectReader
{
public:
	explicit FProjectReader(TArray<FString>& InErrors)
		: Errors(InErrors)
	{
	}

	std::string Read(const FString& Folder)
	{
		TArray<FString> Paths;
		IFileManager::Get().FindFilesRecursive(Paths, *Folder, TEXT("*.jsonl"), true, false);
		for (const FString& Path : Paths)
		{
			ReadFile(Path);
		}
		RejectDuplicates();
		// A file left out takes those with it that refer to its entries, so this goes on until nothing changes.
		while (RejectUnresolved())
		{
		}
		return Files.empty() ? std::string() : BuildImage(Files);
	}

private:
	void ReadFile(const FString& Path)
	{
		std::string Text;
		FString Reason;
		if (!FFileHelper::LoadFileToBytes(Text, *Path, Reason))
		{
			Errors.Add(FString::Printf(TEXT("%s:1: %s"), *Path, *Reason));
			return;
		}
		std::vector<FFault> Faults;
		FSourceFile File = ParseFile(ToUtf8(Path), Text, Faults);
		Report(Faults);
		if (Faults.empty() && !File.Owners.empty())
		{
			Files.push_back(MoveTemp(File));
		}
	}

	void Report(const std::vector<FFault>& Faults)
	{
		for (const FFault& Fault : Faults)
		{
			Errors.Add(FromUtf8(Fault.ToString()));
		}
	}

	/** A path that the program or an earlier file has already is a fault of the later file. */
	void RejectDuplicates()
	{
		std::unordered_map<std::string, std::string> Known;
		Keep(
			[&](const FSourceFile& File, std::vector<FFault>& Faults)
			{
				for (const FSourceOwner& Owner : File.Owners)
				{
					const auto Earlier = Known.find(Owner.Path);
					if (Earlier != Known.end())
					{
						Faults.push_back({File.Name, Owner.Line,
							"'" + Owner.Path + "' is there twice, first in " + Earlier->second});
					}
					else if (IsEngineEntry(Owner.Path))
					{
						Faults.push_back({File.Name, Owner.Line, "'" + Owner.Path + "' is a class of the engine"});
					}
				}
				for (const FSourceOwner& Owner : File.Owners)
				{
					if (Faults.empty())
					{
						Known.emplace(Owner.Path, File.Name);
					}
				}
			});
	}

	/** Whether a file was left out. */
	bool RejectUnresolved()
	{
		std::unordered_map<std::string, ETarget> Own;
		for (const FSourceFile& File : Files)
		{
			for (const FSourceOwner& Owner : File.Owners)
			{
				Own.emplace(Owner.Path, TargetOf(Owner.Kind));
				for (const FSourceFunction& Function : Owner.Functions)
				{
					Own.emplace(Owner.Path + ":" + Function.Name, ETarget::Function);
				}
			}
		}
		return Keep(
			[&](const FSourceFile& File, std::vector<FFault>& Faults)
			{
				for (const FSourceOwner& Owner : File.Owners)
				{
					VisitReferences(Owner,
						[&](const std::string& Path, ETarget Target, int Line)
						{
							const auto Found = Own.find(Path);
							if (Found == Own.end() ? !IsEngineTarget(Path, Target) : Found->second != Target)
							{
								Faults.push_back({File.Name, Line, "'" + Path + "' is not known as " + NameOf(Target)});
							}
						});
				}
			});
	}

	/** Keeps the files for which Check finds no fault; answers whether one was left out. */
	template <class TCheck>
	bool Keep(TCheck&& Check)
	{
		const std::size_t NumBefore = Files.size();
		std::erase_if(Files,
			[&](const FSourceFile& File)
			{
				std::vector<FFault> Faults;
				Check(File, Faults);
				Report(Faults);
				return !Faults.empty();
			});
		return Files.size() != NumBefore;
	}

	static bool IsEngineEntry(const std::string& Path)
	{
		return FCatalogue::Get().FindOrCreate(FromUtf8(Path)) != nullptr;
	}

	static bool IsEngineTarget(const std::string& Path, ETarget Target)
	{
		const std::size_t Colon = Path.find(':');
		if (Target == ETarget::Function)
		{
			const UClass* const Class = Cast<UClass>(FCatalogue::Get().FindOrCreate(FromUtf8(Path.substr(0, Colon))));
			return Class && Colon != std::string::npos
				&& Class->FindFunctionByName(FName(Path.substr(Colon + 1).c_str()));
		}
		const UObject* const Found = FCatalogue::Get().FindOrCreate(FromUtf8(Path));
		return Found && Found->IsA(ClassOf(Target));
	}

	static const UClass* ClassOf(ETarget Target)
	{
		switch (Target)
		{
		case ETarget::Class:
			return UClass::StaticClass();
		case ETarget::Struct:
			return UScriptStruct::StaticClass();
		case ETarget::Enum:
			return UEnum::StaticClass();
		case ETarget::Delegate:
		case ETarget::Function:
			return UFunction::StaticClass();
		}
		return nullptr;
	}

	static const char* NameOf(ETarget Target)
	{
		switch (Target)
		{
		case ETarget::Class:
			return "a class";
		case ETarget::Struct:
			return "a struct";
		case ETarget::Enum:
			return "an enum";
		case ETarget::Delegate:
			return "a delegate";
		case ETarget::Function:
			return "a function";
		}
		return "";
	}

	TArray<FString>& Errors;
	std::vector<FSourceFile> Files;
};
} // namespace ProjectCatalogue

std::string LoadProjectImage(const FString& ProjectFolder, TArray<FString>& OutErrors)
{
	const FString Folder = ProjectFolder / TEXT("Config") / TEXT("Catalogue");
	if (!IFileManager::Get().DirectoryExists(*Folder))
	{
		return std::string();
	}
	return ProjectCatalogue::FProjectReader(OutErrors).Read(Folder);
}
} // namespace Catalogue
