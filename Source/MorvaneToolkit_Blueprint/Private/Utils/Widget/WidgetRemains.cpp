#include "Utils/Widget/WidgetRemains.h"

#include "Animation/WidgetAnimation.h"
#include "Blueprint/WidgetTree.h"
#include "Components/Widget.h"
#include "K2Node_ComponentBoundEvent.h"
#include "K2Node_Variable.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Graph/NodeRefresh.h"
#include "WidgetBlueprint.h"

namespace WidgetRemains
{
namespace
{
/** The member of the parent class that graphs reach by the name when the Blueprint has no widget of it. */
bool IsInherited(const UWidgetBlueprint& Blueprint, FName Name)
{
	const UClass* const Parent = Blueprint.ParentClass.Get();
	return Parent && Parent->FindPropertyByName(Name);
}

/** The member of the Blueprint that the node stands for, as far as it may be a widget or an animation; else none. */
FName GetMember(const UK2Node& Node)
{
	if (const UK2Node_Variable* const Access = Cast<UK2Node_Variable>(&Node))
	{
		const FMemberReference& Reference = Access->VariableReference;
		return Reference.IsSelfContext() && !Reference.IsLocalScope() ? Access->GetVarName() : FName(NAME_None);
	}
	const UK2Node_ComponentBoundEvent* const Event = Cast<UK2Node_ComponentBoundEvent>(&Node);
	return Event ? Event->GetComponentPropertyName() : FName(NAME_None);
}

TArray<UK2Node*> GetNodes(const UWidgetBlueprint& Blueprint)
{
	TArray<UK2Node*> Nodes;
	FBlueprintEditorUtils::GetAllNodesOfClass(&Blueprint, Nodes);
	return Nodes;
}

/** What became of the names. */
class FFate
{
public:
	FFate(const UWidgetBlueprint& Blueprint, const TSet<FString>& Names)
	{
		for (const FString& Text : Names)
		{
			const FName Name(*Text);
			const UWidget* const Heir = Blueprint.WidgetTree ? Blueprint.WidgetTree->FindWidget(Name) : nullptr;
			if (Heir)
			{
				Heirs.Add(Name, Heir->GetClass());
			}
			else if (!IsInherited(Blueprint, Name))
			{
				Gone.Add(Name);
			}
		}
	}

	bool IsGone(FName Name) const { return Gone.Contains(Name); }

	bool IsOrphan(const UK2Node& Node) const
	{
		const FName Member = GetMember(Node);
		const UK2Node_ComponentBoundEvent* const Event = Cast<UK2Node_ComponentBoundEvent>(&Node);
		const UClass* const Heir = Event ? Heirs.FindRef(Member) : nullptr;
		return Gone.Contains(Member)
			|| (Heir && !FindFProperty<FMulticastDelegateProperty>(Heir, Event->DelegatePropertyName));
	}

private:
	TSet<FName> Gone;
	/** Classes of the widgets that have such a name now. */
	TMap<FName, const UClass*> Heirs;
};

int32 RemoveNodes(const UWidgetBlueprint& Blueprint, const FFate& Fate)
{
	int32 NumRemoved = 0;
	for (UK2Node* const Node : GetNodes(Blueprint))
	{
		if (Fate.IsOrphan(*Node))
		{
			Node->DestroyNode();
			++NumRemoved;
		}
	}
	return NumRemoved;
}

void RemoveFromAnimations(const UWidgetBlueprint& Blueprint, const FFate& Fate)
{
	for (UWidgetAnimation* const Animation : Blueprint.Animations)
	{
		if (Animation)
		{
			Animation->AnimationBindings.RemoveAll([&Fate](const FWidgetAnimationBinding& Binding)
				{ return !Binding.bIsRootWidget && Fate.IsGone(Binding.WidgetName); });
		}
	}
}
} // namespace

void Remove(UWidgetBlueprint& Blueprint, const TSet<FString>& Names, Morvane::FToolResult& Result)
{
	if (Names.IsEmpty())
	{
		return;
	}
	const FFate Fate(Blueprint, Names);
	const int32 NumRemoved = RemoveNodes(Blueprint, Fate);
	Blueprint.Bindings.RemoveAll(
		[&Fate](const FDelegateEditorBinding& Binding) { return Fate.IsGone(FName(*Binding.ObjectName)); });
	RemoveFromAnimations(Blueprint, Fate);
	if (NumRemoved > 0)
	{
		Result.AddWarningMessage(FString::Printf(TEXT("Removed %d graph node(s) that stood for what was removed: %s"),
			NumRemoved, *FString::Join(Names, TEXT(", "))));
	}
}

void TellUsers(const UWidgetBlueprint& Blueprint, const TSet<FString>& Names, Morvane::FToolResult& Result)
{
	TSet<FName> Members;
	for (const FString& Name : Names)
	{
		const UWidget* const Widget = Blueprint.WidgetTree ? Blueprint.WidgetTree->FindWidget(FName(*Name)) : nullptr;
		if (Widget && !Widget->bIsVariable && !IsInherited(Blueprint, FName(*Name)))
		{
			Members.Add(FName(*Name));
		}
	}
	TArray<UK2Node*> Users = Members.IsEmpty() ? TArray<UK2Node*>() : GetNodes(Blueprint);
	Users.RemoveAll([&Members](const UK2Node* Node) { return !Members.Contains(GetMember(*Node)); });
	if (!Users.IsEmpty())
	{
		Result.AddWarningMessage(
			FString::Printf(TEXT("Widgets that these nodes name are no variables any more, so they do nothing: %s"),
				*NodeRefresh::DescribeAll(Users)));
	}
}
} // namespace WidgetRemains
