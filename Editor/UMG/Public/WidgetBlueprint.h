#pragma once

#include "CoreMinimal.h"
#include "Engine/Blueprint.h"

class UWidget;
class UWidgetAnimation;
class UWidgetTree;

/** A Blueprint of a user widget: a tree of widgets and animations beside what all Blueprints have. */
class UWidgetBlueprint : public UBlueprint
{
	EDITOR_CLASS(UWidgetBlueprint, UBlueprint)

public:
	UClass* GetBlueprintClass() const override;
	TArray<UWidget*> GetAllSourceWidgets() const;
	void ForEachSourceWidget(TFunctionRef<void(UWidget*)> Visit) const;

	TObjectPtr<UWidgetTree> WidgetTree;
	TArray<TObjectPtr<UWidgetAnimation>> Animations;
};
