#include <iostream>

#include "Cli/CommandTable.h"
#include "NodeIdentity/NodeByIdentity.h"
#include "Session/EditorModules.h"
#include "Standalone/JsonUtf8.h"

namespace NodeCommandPrivate
{
/** One identity to one line of JSON. */
static std::string DescribeLine(FNodeByIdentity& Nodes, const std::string& Line, bool& bOutFailed)
{
	TSharedPtr<FJsonObject> Identity;
	FString Error;
	TSharedPtr<FJsonObject> Answer;
	if (JsonUtf8::Parse(Line, Identity, Error))
	{
		Answer = Nodes.Describe(*Identity);
	}
	else
	{
		Answer = MakeShared<FJsonObject>();
		Answer->SetStringField(TEXT("error"), Error);
	}
	bOutFailed |= Answer->HasField(TEXT("error"));
	std::string Text;
	JsonUtf8::Write(*Answer, Text);
	return Text;
}
} // namespace NodeCommandPrivate

/** morvane node IDENTITY|- */
class FNodeCommand : public ICommand
{
public:
	void Describe(FArguments& Arguments) override
	{
		Arguments.Word("IDENTITY", Identity, "The node as a JSON object; - reads one from each line of standard input");
	}

	EExitStatus Run(const FCommandContext& Context) override
	{
		EditorModules::StartEditor();
		FNodeByIdentity Nodes;
		bool bFailed = false;
		if (Identity != "-")
		{
			Context.Output.WriteLine(NodeCommandPrivate::DescribeLine(Nodes, Identity, bFailed));
			return bFailed ? EExitStatus::Failed : EExitStatus::Succeeded;
		}
		std::string Line;
		while (std::getline(std::cin, Line))
		{
			if (Line.find_first_not_of(" \t\r") != std::string::npos)
			{
				Context.Output.WriteLine(NodeCommandPrivate::DescribeLine(Nodes, Line, bFailed));
			}
		}
		return bFailed ? EExitStatus::Failed : EExitStatus::Succeeded;
	}

private:
	std::string Identity;
};

std::unique_ptr<ICommand> MakeNodeCommand()
{
	return std::make_unique<FNodeCommand>();
}
