#include "Cli/CommandTable.h"
#include "Containers/StringConv.h"
#include "EdGraph/EdGraphSchema.h"
#include "Knowledge/MenuSearch.h"
#include "Session/EditorSession.h"
#include "Support/JsonText.h"

namespace MenuCommandPrivate
{
static std::string JsonLine(const FMenuHit& Hit)
{
	const auto Field = [](const char* Name, const FString& Value)
	{ return JsonText::Quote(Name) + ":" + JsonText::Quote(ToUtf8(Value)); };
	return "{" + Field("title", Hit.GetTitle()) + "," + Field("category", Hit.Action->GetCategory().ToString()) + ","
		+ Field("node_class", Hit.NodeClass) + ","
		+ Field("keywords", Hit.Action->GetKeywords().ToString().TrimStartAndEnd()) + ","
		+ Field("tooltip", Hit.Action->GetTooltipDescription().ToString()) + "}";
}

static std::string PlainLine(const FMenuHit& Hit)
{
	return ToUtf8(Hit.GetTitle()) + "\t" + ToUtf8(Hit.Action->GetCategory().ToString()) + "\t" + ToUtf8(Hit.NodeClass);
}
} // namespace MenuCommandPrivate

/** morvane menu */
class FMenuCommand : public ICommand
{
public:
	void Describe(FArguments& Arguments) override
	{
		Arguments.Flag("--json", bJson, "As a JSON array of objects, with keywords and tooltips");
		Arguments.Option("--query", Words, "Only actions that have all these words, the best first");
		Arguments.Option("--title", Title, "Only actions whose title contains this");
		Arguments.Option("--category", Category, "Only actions whose category begins with this");
		Arguments.Option("--node-class", NodeClass, "Only actions that make nodes of this class");
	}

	EExitStatus Run(const FCommandContext& Context) override
	{
		FEditorSession Session(Context.Options);
		FString Error;
		if (!Session.OpenProject(Error))
		{
			Complain(ToUtf8(Error));
			return EExitStatus::Failed;
		}
		const FMenuSearch Menu;
		Context.Output.WriteLine(
			Print(Menu.Find({FromUtf8(Words), FromUtf8(Title), FromUtf8(Category), FromUtf8(NodeClass)})));
		return EExitStatus::Succeeded;
	}

private:
	std::string Print(const TArray<FMenuHit>& Hits) const
	{
		std::string Lines;
		for (const FMenuHit& Hit : Hits)
		{
			Lines += Lines.empty() ? "" : (bJson ? ",\n" : "\n");
			Lines += bJson ? MenuCommandPrivate::JsonLine(Hit) : MenuCommandPrivate::PlainLine(Hit);
		}
		return bJson ? "[" + Lines + "]" : Lines;
	}

	std::string Words;
	std::string Title;
	std::string Category;
	std::string NodeClass;
	bool bJson = false;
};

std::unique_ptr<ICommand> MakeMenuCommand()
{
	return std::make_unique<FMenuCommand>();
}
