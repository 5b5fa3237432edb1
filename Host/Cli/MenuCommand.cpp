#include <CLI/CLI.hpp>

#include "AssetRegistry/IAssetRegistry.h"
#include "BlueprintActionMenuItem.h"
#include "BlueprintActionMenuUtils.h"
#include "BlueprintNodeSpawner.h"
#include "Boot/EditorSession.h"
#include "Boot/ResultText.h"
#include "Cli/CommandTable.h"
#include "EdGraphSchema_K2.h"
#include "Server/JsonText.h"

namespace MenuCommandPrivate
{
/** Members of a Blueprint are known once it is in memory, and the list is meant to be whole. */
void LoadProjectBlueprints()
{
	TArray<FAssetData> Assets;
	if (const IAssetRegistry* const Registry = IAssetRegistry::Get())
	{
		Registry->GetAssetsByClass(FTopLevelAssetPath(TEXT("/Script/Engine"), TEXT("Blueprint")), Assets, true);
	}
	for (const FAssetData& Asset : Assets)
	{
		Asset.GetAsset();
	}
}

FString NodeClassOf(const FEdGraphSchemaAction& Action)
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
void FillMenu(FBlueprintActionMenuBuilder& Menu)
{
	FBlueprintActionMenuUtils::MakeContextMenu(
		FBlueprintActionContext(), false, EContextTargetFlags::ContextTargetFlagMask, Menu);
	FGraphContextMenuBuilder SchemaMenu(nullptr);
	GetDefault<UEdGraphSchema_K2>()->GetGraphContextActions(SchemaMenu);
	Menu.Append(SchemaMenu);
}

std::string Line(const FEdGraphSchemaAction& Action, bool bJson)
{
	const std::string Title = ToUtf8(Action.GetMenuDescription().ToString());
	const std::string Category = ToUtf8(Action.GetCategory().ToString());
	const std::string NodeClass = ToUtf8(NodeClassOf(Action));
	if (!bJson)
	{
		return Title + "\t" + Category + "\t" + NodeClass;
	}
	return "{\"title\":" + JsonText::Quote(Title) + ",\"category\":" + JsonText::Quote(Category)
		+ ",\"node_class\":" + JsonText::Quote(NodeClass) + "}";
}
} // namespace MenuCommandPrivate

/** morvane menu */
class FMenuCommand : public ICommand
{
public:
	void Describe(CLI::App& App) override { App.add_flag("--json", bJson, "As a JSON array of objects"); }

	EExitStatus Run(const FCommandContext& Context) override
	{
		FEditorSession Session(Context.Options);
		FString Error;
		if (!Session.OpenProject(Error))
		{
			Complain(ToUtf8(Error));
			return EExitStatus::Failed;
		}
		MenuCommandPrivate::LoadProjectBlueprints();
		FBlueprintActionMenuBuilder Menu;
		MenuCommandPrivate::FillMenu(Menu);
		std::string Text = bJson ? "[" : "";
		for (int32 Index = 0; Index < Menu.GetNumActions(); ++Index)
		{
			Text += Index == 0 ? "" : (bJson ? ",\n" : "\n");
			Text += MenuCommandPrivate::Line(*Menu.GetSchemaAction(Index), bJson);
		}
		Context.Output.WriteLine(Text + (bJson ? "]" : ""));
		return EExitStatus::Succeeded;
	}

private:
	bool bJson = false;
};

std::unique_ptr<ICommand> MakeMenuCommand()
{
	return std::make_unique<FMenuCommand>();
}
