#pragma once

#include "CoreMinimal.h"
#include "Engine/Blueprint.h"

class UUserWidget;
class UWidget;
class UWidgetAnimation;
class UWidgetTree;

/** What a bound property of a widget takes its value from. */
enum class EBindingKind : uint8
{
	Function,
	Property,
};

template <>
UEnum* StaticEnum<EBindingKind>();

/** One step of a path to a bound value. */
struct FEditorPropertyPathSegment
{
	EDITOR_STRUCT(FEditorPropertyPathSegment)

	FName GetMemberName() const { return MemberName; }
	FGuid GetMemberGuid() const { return MemberGuid; }
	UStruct* GetStruct() const { return Struct; }

	UStruct* Struct = nullptr;
	FName MemberName;
	FGuid MemberGuid;
	bool IsProperty = true;
};

struct FEditorPropertyPath
{
	EDITOR_STRUCT(FEditorPropertyPath)

	bool IsEmpty() const { return Segments.IsEmpty(); }

	TArray<FEditorPropertyPathSegment> Segments;
};

/** A property of a widget that is bound to a function or variable of the Blueprint. */
struct FDelegateEditorBinding
{
	EDITOR_STRUCT(FDelegateEditorBinding)

	/** The widget, by name. */
	FString ObjectName;
	FName PropertyName;
	FName FunctionName;
	FName SourceProperty;
	FEditorPropertyPath SourcePath;
	FGuid MemberGuid;
	EBindingKind Kind = EBindingKind::Property;
};

/** A Blueprint of a user widget: a tree of widgets and animations beside what all Blueprints have. */
class UWidgetBlueprint : public UBlueprint
{
	EDITOR_CLASS(UWidgetBlueprint, UBlueprint)

public:
	UClass* GetBlueprintClass() const override;
	TArray<UWidget*> GetAllSourceWidgets() const;
	void ForEachSourceWidget(TFunctionRef<void(UWidget*)> Visit) const;

	/** Whether a widget of another Blueprint may stand in this one: its tree, at any depth, has none of this class. */
	bool IsWidgetFreeFromCircularReferences(UUserWidget* UserWidget) const;

	/** The variables of widgets and animations have guids, so that what refers to one can follow a change of name. */
	void OnVariableRenamed(const FName& OldName, const FName& NewName);
	void NotifyGraphRenamed(UEdGraph* Graph, FName OldName, FName NewName) override;
	/** What is written has a guid for each widget and animation that is there, and no binding of one that is not. */
	void PreSave() override;

	TObjectPtr<UWidgetTree> WidgetTree;
	TArray<FDelegateEditorBinding> Bindings;
	TArray<TObjectPtr<UWidgetAnimation>> Animations;
	TMap<FName, FGuid> WidgetVariableNameToGuidMap;

private:
	void ConformVariableGuids();
	void DropBindingsOfMissingWidgets();
};
