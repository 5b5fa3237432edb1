#include <iostream>

#include "Cli/CommandTable.h"
#include "Containers/StringConv.h"
#include "Knowledge/NodeSearch.h"
#include "NodeIdentity/NodeByIdentity.h"
#include "Session/EditorModules.h"
#include "Session/EditorSession.h"
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

/** morvane node TITLE|IDENTITY|- */
class FNodeCommand : public ICommand
{
public:
	void Describe(FArguments& Arguments) override
	{
		Arguments.Word("IDENTITY", Identity,
			"The node's title in the menu, or the node as a JSON object; - reads objects from standard input, one a line");
		Arguments.Option("--parent", ParentClass, "With a title: class of the Blueprint that it stands in");
	}

	EExitStatus Run(const FCommandContext& Context) override
	{
		if (Identity != "-" && Identity.find_first_not_of(" \t") != Identity.find('{'))
		{
			return DescribeTitled(Context);
		}
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
	EExitStatus DescribeTitled(const FCommandContext& Context) const
	{
		FEditorSession Session(Context.Options);
		FString Error;
		if (!Session.OpenProject(Error))
		{
			Complain(ToUtf8(Error));
			return EExitStatus::Failed;
		}
		const TSharedRef<FJsonObject> Found = NodeSearch::Describe(
			FMenuSearch(), {FromUtf8(Identity), FString(), FString(), FromUtf8(ParentClass)});
		std::string Text;
		JsonUtf8::Write(*Found, Text);
		Context.Output.WriteLine(Text);
		return Found->HasField(TEXT("error")) ? EExitStatus::Failed : EExitStatus::Succeeded;
	}

	std::string Identity;
	std::string ParentClass;
};

std::unique_ptr<ICommand> MakeNodeCommand()
{
	return std::make_unique<FNodeCommand>();
}
