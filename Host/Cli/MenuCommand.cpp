#include "Cli/CommandTable.h"
#include "Cli/ListingCommand.h"
#include "Containers/StringConv.h"
#include "EdGraph/EdGraphSchema.h"
#include "Knowledge/MenuSearch.h"
#include "Support/JsonText.h"

namespace MenuCommandPrivate
{
static std::string JsonRow(const FMenuHit& Hit)
{
	const auto Field = [](const char* Name, const FString& Value)
	{ return JsonText::Quote(Name) + ":" + JsonText::Quote(ToUtf8(Value)); };
	return "{" + Field("title", Hit.GetTitle()) + "," + Field("category", Hit.Action->GetCategory().ToString()) + ","
		+ Field("node_class", Hit.NodeClass) + ","
		+ Field("keywords", Hit.Action->GetKeywords().ToString().TrimStartAndEnd()) + ","
		+ Field("tooltip", Hit.Action->GetTooltipDescription().ToString()) + "}";
}

static std::string PlainRow(const FMenuHit& Hit)
{
	return ToUtf8(Hit.GetTitle()) + "\t" + ToUtf8(Hit.Action->GetCategory().ToString()) + "\t" + ToUtf8(Hit.NodeClass);
}
} // namespace MenuCommandPrivate

/** morvane menu */
class FMenuCommand : public IListingCommand
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

protected:
	void Answer(const FCommandContext& Context) const override
	{
		std::vector<std::string> Rows;
		const FMenuSearch Menu;
		for (const FMenuHit& Hit :
			Menu.Find({FromUtf8(Words), FromUtf8(Title), FromUtf8(Category), FromUtf8(NodeClass)}))
		{
			Rows.push_back(bJson ? MenuCommandPrivate::JsonRow(Hit) : MenuCommandPrivate::PlainRow(Hit));
		}
		Write(Context, Rows);
	}

private:
	std::string Words;
	std::string Title;
	std::string Category;
	std::string NodeClass;
};

std::unique_ptr<ICommand> MakeMenuCommand()
{
	return std::make_unique<FMenuCommand>();
}
