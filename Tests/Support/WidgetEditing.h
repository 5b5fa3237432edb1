#pragma once

#include "Blueprint/WidgetTree.h"
#include "BlueprintConsistency.h"
#include "Components/PanelSlot.h"
#include "Components/PanelWidget.h"
#include "Populating.h"
#include "UObject/UnrealType.h"
#include "WidgetBlueprint.h"

/** One saved Widget Blueprint, and calls of the tool that edits it. */
struct FWidgetEditing
{
	FBlueprintBuilder Blueprint{TEXT("/Script/UMG.UserWidget")};
	TSharedPtr<Morvane::FToolResult> Result;

	/** Members is what stands in the arguments behind the path. */
	Morvane::FToolResult& Call(const std::string& Members)
	{
		Result = RunTool(Morvane::ToolInfo::ToolName_UIModifyWidgetBP,
			R"({"path":")" + ToStd(Blueprint.Path()) + "\"" + (Members.empty() ? "" : "," + Members) + "}");
		return *Result;
	}
	Morvane::FToolResult& Widgets(const std::string& Operations)
	{
		return Call(R"("widget_tree":{"widgets":[)" + Operations + "]}");
	}
	/** A new tree with this root and these operations. */
	Morvane::FToolResult& Tree(const std::string& RootClass, const std::string& Operations = "")
	{
		return Call(R"("widget_tree":{"root_widget":{"name":"Root","class":")" + RootClass + R"("},"widgets":[)"
			+ Operations + "]}");
	}

	UWidgetBlueprint& Get() { return *CastChecked<UWidgetBlueprint>(Blueprint.Get()); }
	UWidget* Find(const std::string& Name) { return Get().WidgetTree->FindWidget(FName(UTF8_TO_TCHAR(Name.c_str()))); }
	/** "Root(List(First Second) Ok)", children in order; empty without a root. */
	std::string Shape() { return Get().WidgetTree->RootWidget ? ShapeOf(*Get().WidgetTree->RootWidget) : ""; }
	/** A property of the widget as text, "Slot." in front of one of its slot's. */
	std::string Value(const std::string& Widget, const std::string& Property)
	{
		const UWidget* const Found = Find(Widget);
		if (!Found)
		{
			return "no widget";
		}
		const bool bSlot = Property.starts_with("Slot.");
		const UObject* const Owner = bSlot ? static_cast<const UObject*>(Found->Slot.Get()) : Found;
		const std::string Name = bSlot ? Property.substr(5) : Property;
		const FProperty* const Known = Owner ? Owner->GetClass()->FindPropertyByName(FName(UTF8_TO_TCHAR(Name.c_str())))
											 : nullptr;
		return Known ? ExportWhole(*Known, *Owner) : "no property";
	}
	/** Compiles, saves, reads again: what is wrong by then. */
	std::vector<std::string> Faults()
	{
		EXPECT_TRUE(Blueprint.Compiles());
		return FindInconsistenciesAfterReload(Blueprint);
	}
	std::string File() const { return ReadBlueprintFile(Blueprint); }

private:
	static std::string ExportWhole(const FProperty& Property, const UObject& Owner)
	{
		// Against itself as the default, as reads do, so that structs tell all of their members.
		FString Text;
		const void* const Value = Property.ContainerPtrToValuePtr<void>(&Owner);
		Property.ExportText_Direct(Text, Value, Value, const_cast<UObject*>(&Owner), PPF_None);
		return ToStd(Text);
	}
	static std::string ShapeOf(const UWidget& Widget)
	{
		std::string Text = ToStd(Widget.GetName());
		const UPanelWidget* const Panel = Cast<UPanelWidget>(&Widget);
		for (int32 Index = 0; Panel && Index < Panel->GetChildrenCount(); ++Index)
		{
			Text += (Index == 0 ? "(" : " ") + ShapeOf(*Panel->GetChildAt(Index));
		}
		return Text + (Panel && Panel->HasAnyChildren() ? ")" : "");
	}
};

/** One operation: AddWidget("Ok", "Button", "List", "\"slot\":{...}"). */
inline std::string AddWidget(
	const std::string& Name, const std::string& Class, const std::string& Parent, const std::string& More = "")
{
	return R"({"action":"add","name":")" + Name + R"(","class":")" + Class + "\""
		+ (Parent.empty() ? "" : R"(,"parent":")" + Parent + "\"") + (More.empty() ? "" : "," + More) + "}";
}

inline std::string ModifyWidget(const std::string& Name, const std::string& More)
{
	return R"({"action":"modify","name":")" + Name + "\"," + More + "}";
}

inline std::string MoveWidget(const std::string& Name, const std::string& Parent, const std::string& More = "")
{
	return R"({"action":"reorder","name":")" + Name + R"(","parent":")" + Parent + "\""
		+ (More.empty() ? "" : "," + More) + "}";
}

inline std::string RemoveWidget(const std::string& Name)
{
	return R"({"action":"remove","name":")" + Name + "\"}";
}
