#include "BlueprintActionMenuItem.h"
#include "BlueprintActionMenuUtils.h"
#include "BlueprintNodeSpawner.h"
#include "Cli/CommandTable.h"
#include "EdGraphSchema_K2.h"
#include "Session/EditorSession.h"
#include "Standalone/ContextTargets.h"
#include "Support/JsonText.h"

namespace MenuCommandPrivate
{
static FString NodeClassOf(const FEdGraphSchemaAction& Action)
{
	if (Action.GetTypeId() == FBlueprintActionMenuItem::StaticGetTypeId())
	{
		const UBlueprintNodeSpawner* const Spawner =
			static_cast<const FBlueprintActionMenuItem&>(Action).GetRawAction();
		return Spawner && Spawner->NodeClass.Get() ? Spawner->NodeClass.Get()->GetName() : FString();
	}
	if (Action.GetTypeId() == FEdGraphSchemaAction_NewNode::StaticGetTypeId())
	{
		const UEdGraphNode* const Template = static_cast<const FEdGraphSchemaAction_NewNode&>(Action).NodeTemplate;
		return Template ? Template->GetClass()->GetName() : FString();
	}
	return FString();
}

/** The database's actions, then what the schema adds. */
static void FillMenu(FBlueprintActionMenuBuilder& Menu)
{
	FBlueprintActionMenuUtils::MakeContextMenu(FBlueprintActionContext(), false, EveryContextTarget, Menu);
	FGraphContextMenuBuilder SchemaMenu(nullptr);
	GetDefault<UEdGraphSchema_K2>()->GetGraphContextActions(SchemaMenu);
	Menu.Append(SchemaMenu);
}

/** What the user wants to see of the list. */
struct FQuery
{
	/** Each empty for any, and compared ignoring case. */
	std::string Title;
	std::string Category;
	std::string NodeClass;

	bool Takes(const FEdGraphSchemaAction& Action, const FString& ActionNodeClass) const
	{
		return (Title.empty() || Action.GetMenuDescription().ToString().Contains(FromUtf8(Title)))
			&& (Category.empty() || Action.GetCategory().ToString().StartsWith(FromUtf8(Category)))
			&& (NodeClass.empty() || ActionNodeClass == FromUtf8(NodeClass));
	}
};

static std::string JsonLine(const FEdGraphSchemaAction& Action, const FString& NodeClass)
{
	const auto Field = [](const char* Name, const FString& Value)
	{ return JsonText::Quote(Name) + ":" + JsonText::Quote(ToUtf8(Value)); };
	return "{" + Field("title", Action.GetMenuDescription().ToString()) + ","
		+ Field("category", Action.GetCategory().ToString()) + "," + Field("node_class", NodeClass) + ","
		+ Field("keywords", Action.GetKeywords().ToString().TrimStartAndEnd()) + ","
		+ Field("tooltip", Action.GetTooltipDescription().ToString()) + "}";
}

static std::string PlainLine(const FEdGraphSchemaAction& Action, const FString& NodeClass)
{
	return ToUtf8(Action.GetMenuDescription().ToString()) + "\t" + ToUtf8(Action.GetCategory().ToString()) + "\t"
		+ ToUtf8(NodeClass);
}
} // namespace MenuCommandPrivate

/** morvane menu */
class FMenuCommand : public ICommand
{
public:
	void Describe(FArguments& Arguments) override
	{
		Arguments.Flag("--json", bJson, "As a JSON array of objects, with keywords and tooltips");
		Arguments.Option("--title", Query.Title, "Only actions whose title contains this");
		Arguments.Option("--category", Query.Category, "Only actions whose category begins with this");
		Arguments.Option("--node-class", Query.NodeClass, "Only actions that make nodes of this class");
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
		FBlueprintActionMenuBuilder Menu;
		MenuCommandPrivate::FillMenu(Menu);
		Context.Output.WriteLine(Print(Menu));
		return EExitStatus::Succeeded;
	}

private:
	std::string Print(const FBlueprintActionMenuBuilder& Menu) const
	{
		std::string Lines;
		for (const TSharedPtr<FEdGraphSchemaAction>& Action : Menu.GetEntries())
		{
			const FString NodeClass = MenuCommandPrivate::NodeClassOf(*Action);
			if (Query.Takes(*Action, NodeClass))
			{
				Lines += Lines.empty() ? "" : (bJson ? ",\n" : "\n");
				Lines += bJson ? MenuCommandPrivate::JsonLine(*Action, NodeClass)
							   : MenuCommandPrivate::PlainLine(*Action, NodeClass);
			}
		}
		return bJson ? "[" + Lines + "]" : Lines;
	}

	MenuCommandPrivate::FQuery Query;
	bool bJson = false;
};

std::unique_ptr<ICommand> MakeMenuCommand()
{
	return std::make_unique<FMenuCommand>();
}
