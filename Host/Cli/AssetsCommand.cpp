#include "Cli/CommandTable.h"
#include "Cli/ListingCommand.h"
#include "Containers/StringConv.h"
#include "Knowledge/AssetSearch.h"
#include "Standalone/JsonUtf8.h"

namespace AssetsCommandPrivate
{
static std::string Row(const FAssetData& Asset, const bool bJson)
{
	const TSharedRef<FJsonObject> Described = AssetSearch::Describe(Asset);
	std::string Text;
	if (bJson)
	{
		JsonUtf8::Write(*Described, Text);
		return Text;
	}
	for (const auto& Pair : Described->Values)
	{
		Text += (Text.empty() ? "" : "\t") + ToUtf8(Pair.Value->AsString());
	}
	return Text;
}
} // namespace AssetsCommandPrivate

/** morvane assets */
class FAssetsCommand : public IListingCommand
{
public:
	void Describe(FArguments& Arguments) override
	{
		Arguments.Flag("--json", bJson, "As a JSON array of objects");
		Arguments.Option("--path", Folder,
			"Only assets below this folder, or what this one asset holds; /Engine lists the engine's own");
		Arguments.Option("--class", Class, "Only assets of this class, and of those that derive from it");
		Arguments.Option("--query", Word, "Only assets with this in their name");
	}

protected:
	void Answer(const FCommandContext& Context) const override
	{
		const FAssetQuery Query = {FromUtf8(Folder), FromUtf8(Class), FromUtf8(Word)};
		const TArray<FAssetData> Found = AssetSearch::Find(Query);
		if (Found.Num() == 1 && AssetSearch::IsAskedByPath(Query, Found[0]))
		{
			std::string Whole;
			JsonUtf8::Write(*AssetSearch::DescribeWhole(Found[0]), Whole, true);
			Context.Output.WriteLine(Whole);
			return;
		}
		std::vector<std::string> Rows;
		for (const FAssetData& Asset : Found)
		{
			Rows.push_back(AssetsCommandPrivate::Row(Asset, bJson));
		}
		if (bJson || !Rows.empty())
		{
			Write(Context, Rows);
		}
	}

private:
	std::string Folder;
	std::string Class;
	std::string Word;
};

std::unique_ptr<ICommand> MakeAssetsCommand()
{
	return std::make_unique<FAssetsCommand>();
}
