#include "Blueprint/WidgetTree.h"

#include "BlueprintBuilder.h"
#include "Components/PanelSlot.h"
#include "Components/PanelWidget.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "UObject/UnrealType.h"
#include "WidgetBlueprint.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace WidgetTreeTests
{
using testing::ElementsAre;

class FWidgets
{
public:
	UWidgetTree& Tree() const { return *CastChecked<UWidgetBlueprint>(Blueprint.Get())->WidgetTree; }
	UWidget* Make(const TCHAR* Class, const TCHAR* Name) const
	{
		return Tree().ConstructWidget(FindObject<UClass>(nullptr, Class), Name);
	}
	UPanelWidget* MakePanel(const TCHAR* Class, const TCHAR* Name) const
	{
		return CastChecked<UPanelWidget>(Make(Class, Name));
	}
	std::vector<std::string> Names() const
	{
		TArray<UWidget*> Widgets;
		Tree().GetAllWidgets(Widgets);
		std::vector<std::string> Names;
		for (const UWidget* const Widget : Widgets)
		{
			Names.push_back(ToStd(Widget->GetName()));
		}
		return Names;
	}

	const FBlueprintBuilder Blueprint{TEXT("/Script/UMG.UserWidget")};
};

constexpr const TCHAR* Canvas = TEXT("/Script/UMG.CanvasPanel");
constexpr const TCHAR* Box = TEXT("/Script/UMG.VerticalBox");
constexpr const TCHAR* Button = TEXT("/Script/UMG.Button");
constexpr const TCHAR* Text = TEXT("/Script/UMG.TextBlock");
} // namespace WidgetTreeTests

using namespace WidgetTreeTests;

TEST(WidgetTree, ChildrenHaveAPlaceAndASlotOfTheirPanelsKind)
{
	const FWidgets Widgets;
	UPanelWidget* const Root = Widgets.MakePanel(Canvas, TEXT("Root"));
	Widgets.Tree().RootWidget = Root;
	UPanelWidget* const List = Widgets.MakePanel(Box, TEXT("List"));
	UWidget* const First = Widgets.Make(Text, TEXT("First"));
	UWidget* const Second = Widgets.Make(Text, TEXT("Second"));
	EXPECT_EQ(ToStd(Root->AddChild(List)->GetClass()->GetName()), "CanvasPanelSlot");
	EXPECT_EQ(ToStd(List->AddChild(Second)->GetClass()->GetName()), "VerticalBoxSlot");
	List->InsertChildAt(0, First);
	EXPECT_THAT(Widgets.Names(), ElementsAre("Root", "List", "First", "Second"));
	EXPECT_EQ(First->GetParent(), List);
	EXPECT_EQ(List->GetChildIndex(Second), 1);

	// A widget stands in one place: another panel takes it away from the first.
	EXPECT_NE(Root->AddChild(First), nullptr);
	EXPECT_EQ(List->GetChildrenCount(), 1);
	EXPECT_EQ(First->GetParent(), Root);
	EXPECT_EQ(ToStd(First->Slot->GetClass()->GetName()), "CanvasPanelSlot");
	EXPECT_EQ(List->AddChild(Root), nullptr) << "no panel inside of itself";
}

TEST(WidgetTree, AContentWidgetHoldsOne)
{
	const FWidgets Widgets;
	UPanelWidget* const Ok = Widgets.MakePanel(Button, TEXT("Ok"));
	EXPECT_FALSE(Ok->CanHaveMultipleChildren());
	EXPECT_NE(Ok->AddChild(Widgets.Make(Text, TEXT("First"))), nullptr);
	EXPECT_EQ(Ok->AddChild(Widgets.Make(Text, TEXT("Second"))), nullptr);
	EXPECT_EQ(Ok->GetChildrenCount(), 1);
}

TEST(WidgetTree, RemovingTakesWhatIsBelow)
{
	const FWidgets Widgets;
	UPanelWidget* const Root = Widgets.MakePanel(Canvas, TEXT("Root"));
	Widgets.Tree().RootWidget = Root;
	UPanelWidget* const List = Widgets.MakePanel(Box, TEXT("List"));
	Root->AddChild(List);
	List->AddChild(Widgets.Make(Text, TEXT("Title")));
	EXPECT_TRUE(Widgets.Tree().RemoveWidget(List));
	EXPECT_THAT(Widgets.Names(), ElementsAre("Root"));
	EXPECT_FALSE(Widgets.Tree().RemoveWidget(List));
	EXPECT_TRUE(Widgets.Tree().RemoveWidget(Root));
	EXPECT_EQ(Widgets.Tree().RootWidget, nullptr);
}

TEST(WidgetTree, VariablesOfTheClassFollowTheTree)
{
	const FWidgets Widgets;
	UPanelWidget* const Root = Widgets.MakePanel(Canvas, TEXT("Root"));
	Widgets.Tree().RootWidget = Root;
	UWidget* const Title = Widgets.Make(Text, TEXT("Title"));
	Root->AddChild(Title);
	Title->bIsVariable = false;
	Root->bIsVariable = true;
	const auto Has = [&Widgets](const TCHAR* Name)
	{
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Widgets.Blueprint.Get());
		FBlueprintEditorUtils::EnsureSkeletonIsUpToDate(Widgets.Blueprint.Get());
		return Widgets.Blueprint->SkeletonGeneratedClass.Get()->FindPropertyByName(Name) != nullptr;
	};
	EXPECT_TRUE(Has(TEXT("Root")));
	EXPECT_FALSE(Has(TEXT("Title")));
	Title->bIsVariable = true;
	EXPECT_TRUE(Has(TEXT("Title")));
	Widgets.Tree().RemoveWidget(Title);
	EXPECT_FALSE(Has(TEXT("Title")));
}

TEST(WidgetTree, WhatAMemberHoldsStandsInTheTreeAndOutlivesASave)
{
	FBlueprintBuilder Blueprint(TEXT("/Script/UMG.UserWidget"));
	const auto Tree = [&Blueprint]() -> UWidgetTree&
	{ return *CastChecked<UWidgetBlueprint>(Blueprint.Get())->WidgetTree; };
	const auto Make = [&Tree](const TCHAR* Class, const TCHAR* Name)
	{ return Tree().ConstructWidget(FindObject<UClass>(nullptr, Class), Name); };
	UWidget* const Area = Make(TEXT("/Script/UMG.ExpandableArea"), TEXT("Area"));
	UPanelWidget* const Body = CastChecked<UPanelWidget>(Make(Box, TEXT("Body")));
	Body->AddChild(Make(Button, TEXT("Push")));
	Tree().RootWidget = Area;
	const std::pair<const TCHAR*, UWidget*> Held[] = {
		{TEXT("HeaderContent"), Make(Text, TEXT("Header"))}, {TEXT("BodyContent"), Body}};
	for (const auto& [Member, Widget] : Held)
	{
		const FObjectProperty* const Property = CastField<FObjectProperty>(
			Area->GetClass()->FindPropertyByName(Member));
		ASSERT_NE(Property, nullptr);
		Property->SetObjectPropertyValue(Property->ContainerPtrToValuePtr<void>(Area), Widget);
	}
	const auto Names = [&Tree]
	{
		TArray<UWidget*> Widgets;
		Tree().GetAllWidgets(Widgets);
		std::vector<std::string> List;
		for (const UWidget* const Widget : Widgets)
		{
			List.push_back(ToStd(Widget->GetName()));
		}
		return List;
	};
	EXPECT_THAT(Names(), ElementsAre("Area", "Header", "Body", "Push"));
	ASSERT_TRUE(Blueprint.Save());
	ASSERT_NE(Blueprint.Reload(), nullptr);
	EXPECT_THAT(Names(), ElementsAre("Area", "Header", "Body", "Push"));
}
