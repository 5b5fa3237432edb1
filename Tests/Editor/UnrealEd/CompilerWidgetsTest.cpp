// Widget Blueprints: the widgets that a parent class asks for by name, and what properties of widgets are bound to.

#include "Blueprint/WidgetTree.h"
#include "CompileLog.h"
#include "Components/PanelWidget.h"
#include "EdGraphSchema_K2.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Source/EverythingBlueprint.h"
#include "UObject/Package.h"
#include "WidgetBlueprint.h"

#include <gmock/gmock.h>

namespace CompilerWidgetsTests
{
/** A user widget with variables that want widgets of their name, and a Blueprint derived from it. */
class FFamily
{
public:
	FFamily()
		: Parent(TEXT("/Script/UMG.UserWidget"))
	{
		Want(TEXT("Title"), TEXT("/Script/UMG.TextBlock"), TEXT("BindWidget"));
		Want(TEXT("Icon"), TEXT("/Script/UMG.Image"), TEXT("BindWidgetOptional"));
		EXPECT_THAT(CompileMessages(Parent.Get()), testing::IsEmpty());
		UBlueprint* const Made = FKismetEditorUtilities::CreateBlueprint(
			Parent->GeneratedClass, CreatePackage(TEXT("/Game/Tests/WBP_Child")), TEXT("WBP_Child"), BPTYPE_Normal);
		Child = CastChecked<UWidgetBlueprint>(Made);
		Root = CastChecked<UPanelWidget>(Make(TEXT("/Script/UMG.CanvasPanel"), TEXT("Root")));
		Child->WidgetTree->RootWidget = Root;
	}
	~FFamily() { Child->GetOutermost()->MarkAsGarbage(); }
	FFamily(const FFamily&) = delete;
	FFamily& operator=(const FFamily&) = delete;

	void Add(const TCHAR* Class, const TCHAR* Name) const
	{
		Root->AddChild(Make(Class, Name));
		FBlueprintEditorUtils::MarkBlueprintAsStructurallyModified(Child);
	}
	void Bind(const TCHAR* Widget, const TCHAR* Property, EBindingKind Kind, const TCHAR* Source) const
	{
		FDelegateEditorBinding Binding;
		Binding.ObjectName = Widget;
		Binding.PropertyName = Property;
		Binding.Kind = Kind;
		(Kind == EBindingKind::Function ? Binding.FunctionName : Binding.SourceProperty) = Source;
		Child->Bindings.Add(Binding);
	}

	FBlueprintBuilder Parent;
	UWidgetBlueprint* Child = nullptr;
	UPanelWidget* Root = nullptr;

private:
	void Want(const TCHAR* Name, const TCHAR* Class, const TCHAR* Key) const
	{
		Parent.AddVariable(
			Name, FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Object, FindObject<UClass>(nullptr, Class)));
		FBlueprintEditorUtils::SetBlueprintVariableMetaData(Parent.Get(), Name, nullptr, Key, TEXT("true"));
	}
	UWidget* Make(const TCHAR* Class, const TCHAR* Name) const
	{
		return Child->WidgetTree->ConstructWidget(FindObject<UClass>(nullptr, Class), Name);
	}
};
} // namespace CompilerWidgetsTests

using namespace CompilerWidgetsTests;

TEST(CompilerWidgets, WantedWidgetsHaveToBeThereAndOfTheirType)
{
	const FFamily Family;
	const std::string NoIcon = "note: The parent class would bind a widget named 'Icon' of type Image";
	EXPECT_THAT(CompileMessages(Family.Child),
		testing::ElementsAre(
			"error: The parent class needs a widget named 'Title' of type TextBlock, and there is none in the tree",
			NoIcon));
	EXPECT_EQ(Family.Child->Status, BS_Error);

	Family.Add(TEXT("/Script/UMG.TextBlock"), TEXT("Title"));
	EXPECT_THAT(CompileMessages(Family.Child), testing::ElementsAre(NoIcon));
	EXPECT_EQ(Family.Child->Status, BS_UpToDate);
	const UClass* const Class = Family.Child->GeneratedClass.Get();
	EXPECT_EQ(Class->FindOwnProperty(TEXT("Title")), nullptr) << "the parent's variable is the one";
	EXPECT_NE(Class->FindPropertyByName(TEXT("Title")), nullptr);

	Family.Add(TEXT("/Script/UMG.Button"), TEXT("Icon"));
	EXPECT_THAT(CompileMessages(Family.Child),
		testing::ElementsAre(
			"error: The widget 'Icon' is of class Button, but the parent class binds one of class Image by that name"));
}

TEST(CompilerWidgets, BindingsLeadToSomething)
{
	const FFamily Family;
	Family.Add(TEXT("/Script/UMG.TextBlock"), TEXT("Title"));
	Family.Add(TEXT("/Script/UMG.Image"), TEXT("Icon"));
	FBlueprintEditorUtils::AddMemberVariable(
		Family.Child, TEXT("Caption"), FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Text));
	Family.Bind(TEXT("Title"), TEXT("Text"), EBindingKind::Property, TEXT("Caption"));
	Family.Bind(TEXT("Gone"), TEXT("Text"), EBindingKind::Property, TEXT("Nothing"));
	EXPECT_THAT(CompileMessages(Family.Child), testing::IsEmpty());

	Family.Bind(TEXT("Title"), TEXT("Text"), EBindingKind::Property, TEXT("Motto"));
	Family.Bind(TEXT("Title"), TEXT("Text"), EBindingKind::Function, TEXT("GetMotto"));
	Family.Bind(TEXT("Icon"), TEXT("Flavour"), EBindingKind::Function, TEXT("GetMotto"));
	EXPECT_THAT(CompileMessages(Family.Child),
		testing::ElementsAre(
			"error: The property 'Text' of the widget 'Title' is bound to the variable 'Motto', which does not exist",
			"error: The property 'Text' of the widget 'Title' is bound to the function 'GetMotto', which does not exist",
			"error: The widget 'Icon' has a binding for 'Flavour', which is no property of the class Image"));
}

TEST(CompilerWidgets, AWidgetAndAVariableCannotShareAName)
{
	const FBlueprintBuilder Blueprint(TEXT("/Script/UMG.UserWidget"));
	EverythingBlueprint::FillWidgets(*Blueprint.Get());
	FBPVariableDescription Variable;
	Variable.VarName = TEXT("Ok");
	Variable.VarType = FBlueprintBuilder::Type(UEdGraphSchema_K2::PC_Boolean);
	Blueprint->NewVariables.Add(Variable);
	EXPECT_THAT(CompileMessages(Blueprint.Get()),
		testing::ElementsAre(
			"error: The name 'Ok' is used by a variable and by a widget; every member of a Blueprint needs a name of its own"));
}
