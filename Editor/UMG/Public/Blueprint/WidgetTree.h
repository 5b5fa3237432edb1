#pragma once

#include "Components/NamedSlotInterface.h"
#include "Components/Widget.h"
#include "CoreMinimal.h"

/** The widgets of a Widget Blueprint, from one root. */
class UWidgetTree : public UObject, public INamedSlotInterface
{
	EDITOR_CLASS(UWidgetTree, UObject)

public:
	/** A widget of the class inside the tree, standing nowhere yet. A name that a widget of the tree has gets a number;
	 * null for an abstract class. */
	UWidget* ConstructWidget(const UClass* WidgetClass, FName WidgetName = NAME_None);
	template <class T>
	T* ConstructWidget(const UClass* WidgetClass = T::StaticClass(), FName WidgetName = NAME_None)
	{
		return Cast<T>(ConstructWidget(WidgetClass, WidgetName));
	}
	UWidget* FindWidget(const FName& Name) const;
	template <class T>
	T* FindWidget(const FName& Name) const
	{
		return Cast<T>(FindWidget(Name));
	}
	/** All widgets from the root, parents before children, in child order. What an area or a user widget holds in its
	 * named slots comes behind it. */
	void GetAllWidgets(TArray<UWidget*>& Widgets) const;
	void ForEachWidget(TFunctionRef<void(UWidget*)> Visit) const;
	/** All widgets below one, in the same order. */
	static void GetChildWidgets(UWidget* Parent, TArray<UWidget*>& Widgets);
	/** Takes the widget out of its panel, or clears the root, with all below it. */
	bool RemoveWidget(UWidget* Widget);
	bool IsEmpty() const { return RootWidget == nullptr; }
	/** What was taken out of the tree and put nowhere else is not written. */
	void PreSave() override;

	/** The places that the Blueprints above leave open, which a tree without a root of its own may fill. */
	void GetSlotNames(TArray<FName>& SlotNames) const override;
	UWidget* GetContentForSlot(FName SlotName) const override;
	void SetContentForSlot(FName SlotName, UWidget* Content) override;

	TObjectPtr<UWidget> RootWidget;
	TMap<FName, TObjectPtr<UWidget>> NamedSlotBindings;

private:
	/** Those of the tree that the widget holds in named slots; its class may have no property for them here. */
	static TArray<UWidget*> FindHosted(const UWidget& Widget);
	static void Walk(UWidget* Top, TFunctionRef<void(UWidget*)> Visit);
	bool Contains(const UWidget& Widget) const;
};
