#include "Compiler/WidgetDeclarations.h"

#include "Components/Widget.h"
#include "Kismet2/CompilerResultsLog.h"
#include "UObject/UnrealType.h"
#include "WidgetBlueprint.h"

namespace WidgetDeclarations
{
namespace
{
/** What a parent class wants with a widget of the name of its variable. */
enum class EWish
{
	None,
	Optional,
	Required,
};

EWish GetWish(const FObjectPropertyBase& Property)
{
	static const FName Bind(TEXT("BindWidget"));
	static const FName BindOptional(TEXT("BindWidgetOptional"));
	static const FName Optional(TEXT("OptionalWidget"));
	if (Property.HasMetaData(BindOptional) || (Property.HasMetaData(Bind) && Property.GetBoolMetaData(Optional)))
	{
		return EWish::Optional;
	}
	return Property.HasMetaData(Bind) ? EWish::Required : EWish::None;
}

/** What may be bound is a property, or the delegate alone that asks for its value. */
bool IsBindable(const UClass& WidgetClass, const FString& Property)
{
	return WidgetClass.FindPropertyByName(FName(*Property))
		|| WidgetClass.FindPropertyByName(FName(*(Property + TEXT("Delegate"))));
}

class FCheck
{
public:
	FCheck(const UWidgetBlueprint& InBlueprint, FCompilerResultsLog& InLog)
		: Blueprint(InBlueprint)
		, Log(InLog)
	{
		Blueprint.ForEachSourceWidget([this](UWidget* Widget) { Widgets.Add(Widget->GetFName(), Widget); });
	}

	void Run()
	{
		for (TFieldIterator<FObjectPropertyBase> It(Blueprint.ParentClass.Get(), EFieldIteratorFlags::IncludeSuper); It;
			 ++It)
		{
			const EWish Wish = GetWish(**It);
			if (Wish != EWish::None)
			{
				CheckWantedWidget(**It, Wish);
			}
		}
		for (const FDelegateEditorBinding& Binding : Blueprint.Bindings)
		{
			CheckBinding(Binding);
		}
	}

private:
	void CheckWantedWidget(const FObjectPropertyBase& Property, EWish Wish)
	{
		const UWidget* const Widget = Widgets.FindRef(Property.GetFName());
		const FString Name = Property.GetName();
		const FString Wanted = Property.PropertyClass ? Property.PropertyClass->GetName() : FString(TEXT("Widget"));
		if (Widget && Property.PropertyClass && !Widget->GetClass()->IsChildOf(Property.PropertyClass))
		{
			Log.Error(*FString::Printf(
				TEXT("The widget '%s' is of class %s, but the parent class binds one of class %s by that name"), *Name,
				*Widget->GetClass()->GetName(), *Wanted));
		}
		else if (!Widget && Wish == EWish::Required)
		{
			Log.Error(*FString::Printf(
				TEXT("The parent class needs a widget named '%s' of type %s, and there is none in the tree"), *Name,
				*Wanted));
		}
		else if (!Widget)
		{
			Log.Note(
				*FString::Printf(TEXT("The parent class would bind a widget named '%s' of type %s"), *Name, *Wanted));
		}
	}

	void CheckBinding(const FDelegateEditorBinding& Binding)
	{
		const UWidget* const Widget = Widgets.FindRef(FName(*Binding.ObjectName));
		// One of a widget that is gone goes with the next save.
		if (!Widget)
		{
			return;
		}
		const FString Property = Binding.PropertyName.ToString();
		if (!IsBindable(*Widget->GetClass(), Property))
		{
			Log.Error(
				*FString::Printf(TEXT("The widget '%s' has a binding for '%s', which is no property of the class %s"),
					*Binding.ObjectName, *Property, *Widget->GetClass()->GetName()));
			return;
		}
		const UClass* const Class = Blueprint.GeneratedClass.Get();
		if (Binding.Kind == EBindingKind::Function && !Class->FindFunctionByName(Binding.FunctionName))
		{
			Log.Error(*FString::Printf(
				TEXT("The property '%s' of the widget '%s' is bound to the function '%s', which does not exist"),
				*Property, *Binding.ObjectName, *Binding.FunctionName.ToString()));
		}
		const bool bVariable = Binding.Kind == EBindingKind::Property && Binding.SourcePath.IsEmpty();
		if (bVariable && !Class->FindPropertyByName(Binding.SourceProperty))
		{
			Log.Error(*FString::Printf(
				TEXT("The property '%s' of the widget '%s' is bound to the variable '%s', which does not exist"),
				*Property, *Binding.ObjectName, *Binding.SourceProperty.ToString()));
		}
	}

	const UWidgetBlueprint& Blueprint;
	FCompilerResultsLog& Log;
	TMap<FName, const UWidget*> Widgets;
};
} // namespace

void Check(const UBlueprint& Blueprint, FCompilerResultsLog& Log)
{
	if (const UWidgetBlueprint* const WidgetBlueprint = Cast<UWidgetBlueprint>(&Blueprint))
	{
		FCheck(*WidgetBlueprint, Log).Run();
	}
}
} // namespace WidgetDeclarations
