#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>

#include "Cli/CommandTable.h"
#include "Cli/DemoSteps.h"
#include "Containers/StringConv.h"
#include "Dom/JsonObject.h"
#include "JsonReading.h"
#include "Standalone/JsonUtf8.h"
#include "Standalone/PackageText.h"

namespace DemoCommandPrivate
{
constexpr size_t MaxShownLines = 40;

/** A folder that is gone with the demonstration. */
class FTemporaryFolder
{
public:
	FTemporaryFolder()
	{
		std::string Template = (std::filesystem::temp_directory_path() / "morvane-demo-XXXXXX").string();
		Path = mkdtemp(Template.data()) ? Template : std::string();
	}
	~FTemporaryFolder()
	{
		std::error_code Ignored;
		std::filesystem::remove_all(Path, Ignored);
	}
	std::string Path;
};

static TSharedPtr<FJsonValue> Parse(const std::string& Json)
{
	TSharedPtr<FJsonValue> Value;
	FString Ignored;
	JsonUtf8::ParseValue(Json, Value, Ignored);
	return Value;
}

static std::string Pretty(const FJsonValue& Value)
{
	std::string Text;
	JsonUtf8::WriteValue(Value, Text, true);
	return Text;
}

/** At most so many lines, each moved to the right. */
static std::string Excerpt(const std::string& Text)
{
	std::string Shown;
	size_t NumLines = 0;
	for (size_t Start = 0; Start < Text.size(); ++NumLines)
	{
		const size_t End = std::min(Text.find('\n', Start), Text.size());
		if (NumLines < MaxShownLines)
		{
			Shown.append("      ").append(Text, Start, End - Start).append("\n");
		}
		Start = End + 1;
	}
	if (NumLines > MaxShownLines)
	{
		Shown += "      ... and " + std::to_string(NumLines - MaxShownLines) + " more lines\n";
	}
	return Shown;
}

/** Null when there is no such object. */
static TSharedPtr<FJsonObject> GetMember(const FJsonObject& Object, const TCHAR* Name)
{
	const TSharedPtr<FJsonObject>* Member = nullptr;
	return Object.TryGetObjectField(Name, Member) ? *Member : nullptr;
}

static std::string Sentences(const FJsonObject& Result, const TCHAR* Name, const std::string& Mark)
{
	std::string Text;
	for (const TSharedPtr<FJsonValue>& Message : Result.GetArrayField(Name))
	{
		Text += "   " + Mark + ToUtf8(Message->AsString()) + "\n";
	}
	return Text;
}

/** The ids that nodes were given, by the names under which a request asked for them, and by the titles that a call
 * shows for nodes that it made by itself. */
class FNodeIds
{
public:
	/** Takes them from the result of a call that made nodes or showed them. */
	void Learn(const FToolOutcome& Outcome)
	{
		const TSharedPtr<FJsonValue> Result = Parse(Outcome.ResultJson);
		const TSharedPtr<FJsonObject> Data = Result ? GetMember(*Result->AsObject(), TEXT("data")) : nullptr;
		for (const TSharedPtr<FJsonValue>& Modification :
			Result ? Result->AsObject()->GetArrayField(TEXT("modifications")) : TArray<TSharedPtr<FJsonValue>>())
		{
			LearnTitles(Modification);
		}
		FString Content;
		if (Data && Data->TryGetStringField(TEXT("content"), Content))
		{
			if (const TSharedPtr<FJsonValue> Read = Parse(ToUtf8(Content)))
			{
				LearnTitles(Read);
			}
		}
		FString Created;
		if (!Data || !Data->TryGetStringField(TEXT("created_nodes_summary"), Created))
		{
			return;
		}
		const TSharedPtr<FJsonValue> Summary = Parse(ToUtf8(Created));
		for (const TSharedPtr<FJsonValue>& Item : Summary->AsObject()->GetArrayField(TEXT("items")))
		{
			const FJsonObject& Node = *Item->AsObject();
			Ids[ToUtf8(Node.GetStringField(TEXT("request_guid")))] = ToUtf8(Node.GetStringField(TEXT("node_guid")));
		}
	}

	std::string Fill(std::string_view Arguments) const
	{
		std::string Text(Arguments);
		for (const auto& [Name, Id] : Ids)
		{
			const std::string Place = "\"$" + Name + "\"";
			for (size_t At = Text.find(Place); At != std::string::npos; At = Text.find(Place, At))
			{
				Text.replace(At, Place.size(), "\"" + Id + "\"");
			}
		}
		return Text;
	}

private:
	/** From every node in the value, at any depth. */
	void LearnTitles(const TSharedPtr<FJsonValue>& Value)
	{
		for (const TSharedPtr<FJsonValue>& Element : MorvaneJson::AsArray(*Value))
		{
			LearnTitles(Element);
		}
		const TSharedPtr<FJsonObject>& Object = MorvaneJson::AsObject(*Value);
		FString Title;
		FString Id;
		if (Object && Object->TryGetStringField(TEXT("full_title"), Title)
			&& Object->TryGetStringField(TEXT("node_guid"), Id))
		{
			Ids[ToUtf8(Title)] = ToUtf8(Id);
		}
		else if (Object)
		{
			for (const auto& Pair : Object->Values)
			{
				LearnTitles(Pair.Value);
			}
		}
	}

	std::map<std::string, std::string> Ids;
};

/** Tools set some values as JSON text; a person would rather see what it says. */
static std::string DescribeData(const FJsonObject& Data)
{
	std::string Text;
	for (const auto& Pair : Data.Values)
	{
		FString Json;
		const TSharedPtr<FJsonValue> Inner = MorvaneJson::TryGetString(*Pair.Value, Json) ? Parse(ToUtf8(Json))
																						  : nullptr;
		Text += "   " + ToUtf8(Pair.Key) + ":\n" + Excerpt(Pretty(Inner ? *Inner : *Pair.Value));
	}
	return Text;
}

static std::string DescribeResult(const FToolOutcome& Outcome)
{
	const TSharedPtr<FJsonValue> Value = Parse(Outcome.ResultJson);
	const TSharedPtr<FJsonObject> Result = Value ? MorvaneJson::AsObject(*Value) : nullptr;
	if (!Result)
	{
		return Outcome.ResultJson + "\n";
	}
	std::string Text = Outcome.bSuccess ? "   -> success\n" : "   -> failure\n";
	Text += Sentences(*Result, TEXT("errors"), "error: ");
	Text += Sentences(*Result, TEXT("warnings"), "warning: ");
	Text += Sentences(*Result, TEXT("messages"), "");
	if (const TSharedPtr<FJsonObject> Data = GetMember(*Result, TEXT("data")))
	{
		Text += DescribeData(*Data);
	}
	return Text;
}

/** Copies one of the engine's own files into the project, if a folder of such is at hand; its asset path, else nothing.
 */
static std::string PutSample(const std::string& Project)
{
	namespace fs = std::filesystem;
	const char* const Folder = std::getenv("MORVANE_BINARY_SAMPLES");
	std::error_code Error;
	std::vector<fs::path> Found;
	for (const fs::directory_entry& Entry : fs::recursive_directory_iterator(Folder ? Folder : "", Error))
	{
		// Blueprints by the names that authors give them.
		if (Entry.path().extension() == ".uasset" && Entry.path().string().find("BP_") != std::string::npos)
		{
			Found.push_back(Entry.path());
		}
	}
	const auto Smallest = std::min_element(Found.begin(), Found.end(),
		[&Error](const fs::path& Left, const fs::path& Right)
		{ return fs::file_size(Left, Error) < fs::file_size(Right, Error); });
	FPackageText::FHeader Header;
	FString Ignored;
	if (Smallest == Found.end() || !FPackageText::ReadHeader(FromUtf8(Smallest->string()), Header, Ignored))
	{
		return std::string();
	}
	// A collection may have filed it under another name than its asset's.
	const std::string Name = ToUtf8(Header.AssetName);
	const fs::path Target = fs::path(Project) / "Content" / "Samples" / (Name + ".uasset");
	fs::create_directories(Target.parent_path(), Error);
	return fs::copy_file(*Smallest, Target, Error) ? "/Game/Samples/" + Name : std::string();
}

static std::string ListFiles(const std::string& Folder)
{
	std::vector<std::string> Lines;
	std::error_code Ignored;
	for (const auto& Entry : std::filesystem::recursive_directory_iterator(Folder, Ignored))
	{
		if (Entry.is_regular_file(Ignored) && Entry.path().filename().string().front() != '.')
		{
			Lines.push_back("   " + std::filesystem::relative(Entry.path(), Folder, Ignored).string() + "  "
				+ std::to_string(Entry.file_size(Ignored)) + " bytes\n");
		}
	}
	std::sort(Lines.begin(), Lines.end());
	std::string Text = "== The project's files\n";
	for (const std::string& Line : Lines)
	{
		Text += Line;
	}
	return Text;
}
} // namespace DemoCommandPrivate

/** morvane demo */
class FDemoCommand : public ICommand
{
public:
	void Describe(FArguments&) override {}

	/** Without a project given, one in a temporary folder is made and thrown away. */
	EExitStatus Run(const FCommandContext& Context) override
	{
		const DemoCommandPrivate::FTemporaryFolder Folder;
		FHostOptions Options = Context.Options;
		Options.ProjectDir = Options.ProjectDir.empty() ? Folder.Path : Options.ProjectDir;
		const std::string Sample = DemoCommandPrivate::PutSample(Options.ProjectDir);
		const std::unique_ptr<IToolHost> Tools = Context.MakeToolHost(Options);
		DemoCommandPrivate::FNodeIds NodeIds;
		bool bAllSucceeded = true;
		for (const FDemoStep& Step : GetDemoSteps())
		{
			bAllSucceeded = Play(Step, *Tools, NodeIds, Context) && bAllSucceeded;
		}
		if (!Sample.empty())
		{
			const std::string Read = R"({"path": ")" + Sample + R"("})";
			const std::string Change = R"({"path": ")" + Sample + R"(", "functions": [{"name": "Open"}]})";
			const FDemoStep Reading = {"A file of the engine's own editor lies in the project: read as any other",
				"read_blueprint_schema", Read};
			const FDemoStep Changing = {
				"It is only read: a change is refused, and the two roads are told", "bp_create_graph", Change};
			bAllSucceeded = Play(Reading, *Tools, NodeIds, Context) && bAllSucceeded;
			// A refusal is what this one shows.
			bAllSucceeded = !Play(Changing, *Tools, NodeIds, Context) && bAllSucceeded;
		}
		Context.Output.WriteLine(DemoCommandPrivate::ListFiles(Options.ProjectDir));
		return bAllSucceeded ? EExitStatus::Succeeded : EExitStatus::Failed;
	}

private:
	static bool Play(
		const FDemoStep& Step, IToolHost& Tools, DemoCommandPrivate::FNodeIds& NodeIds, const FCommandContext& Context)
	{
		const std::string Arguments = NodeIds.Fill(Step.Arguments);
		Context.Output.WriteLine(std::string("== ").append(Step.Story));
		Context.Output.WriteLine(std::string("   ").append(Step.Tool).append(" ").append(Arguments));
		if (Step.Tool == DemoResource)
		{
			return Look(Arguments, Tools, Context);
		}
		const FToolOutcome Outcome = Tools.CallTool(Step.Tool, Arguments);
		NodeIds.Learn(Outcome);
		Context.Output.WriteLine(DemoCommandPrivate::DescribeResult(Outcome));
		return Outcome.bSuccess;
	}

	static bool Look(const std::string& Uri, IToolHost& Tools, const FCommandContext& Context)
	{
		const FResourceOutcome Outcome = Tools.ReadResource(Uri);
		const TSharedPtr<FJsonValue> Document = DemoCommandPrivate::Parse(Outcome.Text);
		Context.Output.WriteLine(Document ? DemoCommandPrivate::Excerpt(DemoCommandPrivate::Pretty(*Document))
										  : "   " + Outcome.Message + "\n");
		return Outcome.Fault == FResourceOutcome::EFault::None;
	}
};

std::unique_ptr<ICommand> MakeDemoCommand()
{
	return std::make_unique<FDemoCommand>();
}
