#include "WidgetBlueprint.h"

#include "Animation/WidgetAnimation.h"
#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetTree.h"
#include "BlueprintBuilder.h"
#include "BlueprintConsistency.h"
#include "Components/PanelSlot.h"
#include "Components/PanelWidget.h"
#include "EdGraphSchema_K2.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "MovieScene.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace WidgetBlueprintTests
{
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const TCHAR* Text = TEXT("/Script/UMG.TextBlock");
constexpr const TCHAR* Image = TEXT("/Script/UMG.Image");

/** Root(Title Ok(Label)) */
class FMenu
{
public:
	FMenu()
	{
		UPanelWidget* const Root = CastChecked<UPanelWidget>(Make(TEXT("/Script/UMG.VerticalBox"), TEXT("Root")));
		Tree().RootWidget = Root;
		Root->AddChild(Make(Text, TEXT("Title")));
		UPanelWidget* const Ok = CastChecked<UPanelWidget>(Make(TEXT("/Script/UMG.Button"), TEXT("Ok")));
		Root->AddChild(Ok);
		Ok->AddChild(Make(Text, TEXT("Label")));
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Blueprint.Get());
	}

	UWidgetBlueprint& Widgets() { return *CastChecked<UWidgetBlueprint>(Blueprint.Get()); }
	UWidgetTree& Tree() { return *Widgets().WidgetTree; }
	UPanelWidget& Root() { return *CastChecked<UPanelWidget>(Tree().RootWidget.Get()); }
	UWidget* Make(const TCHAR* Class, const TCHAR* Name)
	{
		return Tree().ConstructWidget(FindObject<UClass>(nullptr, Class), Name);
	}
	std::vector<std::string> Children()
	{
		std::vector<std::string> Names;
		for (const UWidget* const Child : Root().GetAllChildren())
		{
			Names.push_back(ToStd(Child->GetName()));
		}
		return Names;
	}
	void Bind(const TCHAR* Widget)
	{
		FDelegateEditorBinding Binding;
		Binding.ObjectName = Widget;
		Binding.PropertyName = TEXT("Text");
		Binding.FunctionName = TEXT("GetText");
		Binding.Kind = EBindingKind::Function;
		Widgets().Bindings.Add(Binding);
	}

	FBlueprintBuilder Blueprint{TEXT("/Script/UMG.UserWidget")};
};
} // namespace WidgetBlueprintTests

using namespace WidgetBlueprintTests;

TEST(WidgetBlueprint, EachWidgetKeepsItsGuid)
{
	FMenu Menu;
	EXPECT_THAT(FindInconsistenciesAfterReload(Menu.Blueprint), IsEmpty());
	const TMap<FName, FGuid> First = Menu.Widgets().WidgetVariableNameToGuidMap;
	EXPECT_EQ(First.Num(), 4);
	Menu.Tree().RemoveWidget(Menu.Tree().FindWidget(TEXT("Ok")));
	Menu.Root().AddChild(Menu.Make(Image, TEXT("Picture")));
	Menu.Widgets().OnVariableRenamed(TEXT("Root"), TEXT("Frame"));
	EXPECT_TRUE(Menu.Tree().RootWidget->Rename(TEXT("Frame")));
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Menu.Blueprint.Get());
	EXPECT_THAT(FindInconsistenciesAfterReload(Menu.Blueprint), IsEmpty());
	const TMap<FName, FGuid>& Second = Menu.Widgets().WidgetVariableNameToGuidMap;
	EXPECT_EQ(Second.Num(), 3);
	EXPECT_EQ(Second.FindRef(TEXT("Title")), First.FindRef(TEXT("Title")));
	EXPECT_EQ(Second.FindRef(TEXT("Frame")), First.FindRef(TEXT("Root")));
	EXPECT_TRUE(Second.FindRef(TEXT("Picture")).IsValid());
}

TEST(WidgetBlueprint, BindingsLiveAndDieWithTheirWidget)
{
	FMenu Menu;
	Menu.Bind(TEXT("Title"));
	Menu.Bind(TEXT("Label"));
	Menu.Bind(TEXT("BP_Test"));
	Menu.Tree().RemoveWidget(Menu.Tree().FindWidget(TEXT("Ok")));
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Menu.Blueprint.Get());
	const FGraphBuilder Function = Menu.Blueprint.Function(TEXT("GetText"));
	FBlueprintEditorUtils::RenameGraph(Function.Get(), TEXT("GetTitle"));
	EXPECT_THAT(FindInconsistenciesAfterReload(Menu.Blueprint), IsEmpty());
	ASSERT_EQ(Menu.Widgets().Bindings.Num(), 2) << "of the label's button nothing is left";
	EXPECT_EQ(ToStd(Menu.Widgets().Bindings[0].ObjectName), "Title");
	EXPECT_EQ(Menu.Widgets().Bindings[0].FunctionName, FName(TEXT("GetTitle")));
	EXPECT_EQ(Menu.Widgets().Bindings[0].Kind, EBindingKind::Function);
	EXPECT_EQ(ToStd(Menu.Widgets().Bindings[1].ObjectName), "BP_Test") << "the user widget itself";
}

TEST(WidgetBlueprint, ARemovedWidgetIsNotWrittenAndItsNameIsFree)
{
	FMenu Menu;
	const FProperty* const Opacity = FindObject<UClass>(nullptr, Text)->FindPropertyByName(TEXT("RenderOpacity"));
	ASSERT_NE(Opacity, nullptr);
	UWidget* const Old = Menu.Tree().FindWidget(TEXT("Title"));
	Opacity->ImportText_InContainer(TEXT("0.25"), Old, Old, PPF_None);
	Menu.Tree().RemoveWidget(Old);
	UWidget* const Again = Menu.Make(Text, TEXT("Title"));
	EXPECT_EQ(ToStd(Again->GetName()), "Title");
	EXPECT_NE(Again, Old) << "a new widget, not the old one with its values";
	Menu.Root().AddChild(Again);
	Menu.Tree().RemoveWidget(Menu.Tree().FindWidget(TEXT("Ok")));
	UWidget* const Picture = Menu.Make(Image, TEXT("Ok"));
	EXPECT_EQ(ToStd(Picture->GetName()), "Ok") << "the name of a widget of another class";
	EXPECT_NE(ToStd(Menu.Make(Text, TEXT("Title"))->GetName()), "Title") << "a name that is in use";
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Menu.Blueprint.Get());
	EXPECT_THAT(FindInconsistenciesAfterReload(Menu.Blueprint), IsEmpty());
	const std::string File = ReadBlueprintFile(Menu.Blueprint);
	for (const char* const Gone : {"0.25", "Label", "UMG.Button", "UMG.Image"})
	{
		EXPECT_EQ(File.find(Gone), std::string::npos) << Gone;
	}
	EXPECT_EQ(Menu.Tree().ConstructWidget(FindObject<UClass>(nullptr, TEXT("/Script/UMG.PanelWidget")), TEXT("None")),
		nullptr)
		<< "an abstract class";
}

TEST(WidgetBlueprint, NoWidgetHoldsItself)
{
	FMenu Menu;
	UClass* const UserWidget = FindObject<UClass>(nullptr, TEXT("/Script/UMG.UserWidget"));
	UPackage* const Package = CreatePackage(TEXT("/Game/Tests/WBP_Page"));
	UWidgetBlueprint* const Page = CastChecked<UWidgetBlueprint>(
		FKismetEditorUtilities::CreateBlueprint(UserWidget, Package, TEXT("WBP_Page"), BPTYPE_Normal));
	const auto MakeFrom = [](UWidgetBlueprint& In, const UWidgetBlueprint& Maker)
	{
		return In.WidgetTree->ConstructWidget<UUserWidget>(
			Maker.GeneratedClass.Get(), *(Maker.GetName() + TEXT("Inside")));
	};
	UUserWidget* const MenuInPage = MakeFrom(*Page, Menu.Widgets());
	EXPECT_TRUE(Page->IsWidgetFreeFromCircularReferences(MenuInPage));
	Page->WidgetTree->RootWidget = MenuInPage;
	EXPECT_FALSE(Menu.Widgets().IsWidgetFreeFromCircularReferences(MakeFrom(Menu.Widgets(), *Page)));
	EXPECT_FALSE(Menu.Widgets().IsWidgetFreeFromCircularReferences(MakeFrom(Menu.Widgets(), Menu.Widgets())));
	EXPECT_FALSE(Menu.Widgets().IsWidgetFreeFromCircularReferences(nullptr));
	Package->MarkAsGarbage();
}

TEST(WidgetBlueprint, AnAnimationIsAMemberOfItsOwnName)
{
	FMenu Menu;
	UWidgetAnimation* const Animation = NewObject<UWidgetAnimation>(
		Menu.Blueprint.Get(), TEXT("FadeIn"), RF_Transactional);
	Animation->MovieScene = NewObject<UMovieScene>(Animation, TEXT("FadeIn"), RF_Transactional);
	Animation->SetDisplayLabel(TEXT("Fade in slowly"));
	const FFrameRate Ticks = Animation->MovieScene->GetTickResolution();
	Animation->MovieScene->SetPlaybackRange(TRange<FFrameNumber>(Ticks.AsFrameNumber(0.0), Ticks.AsFrameNumber(5.0)));
	Menu.Widgets().Animations.Add(Animation);
	FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Menu.Blueprint.Get());
	EXPECT_THAT(FindInconsistenciesAfterReload(Menu.Blueprint), IsEmpty());
	FBlueprintEditorUtils::EnsureSkeletonIsUpToDate(Menu.Blueprint.Get());
	EXPECT_NE(Menu.Blueprint->GeneratedClass->FindPropertyByName(TEXT("FadeIn")), nullptr);
	ASSERT_EQ(Menu.Widgets().Animations.Num(), 1);
	EXPECT_EQ(ToStd(Menu.Widgets().Animations[0]->GetDisplayName().ToString()), "Fade in slowly");
	EXPECT_FLOAT_EQ(Menu.Widgets().Animations[0]->GetEndTime(), 5.0f);
}
