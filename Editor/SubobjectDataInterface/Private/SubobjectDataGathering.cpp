#include "SubobjectDataGathering.h"

#include "Components/SceneComponent.h"
#include "Engine/Blueprint.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "GameFramework/Actor.h"

FSubobjectDataGathering::FSubobjectDataGathering(UBlueprint& InBlueprint)
	: Blueprint(InBlueprint)
{
	UClass* const Class = Blueprint.GeneratedClass.Get();
	AActor* const Default = Class ? Cast<AActor>(Class->GetDefaultObject()) : nullptr;
	if (!Default)
	{
		return;
	}
	Add(*Default, nullptr, FSubobjectDataHandle());
	AddNativeComponents(*Default);
	TArray<UBlueprint*> Line;
	UBlueprint::GetBlueprintHierarchyFromClass(Class, Line);
	for (int32 Index = Line.Num() - 1; Index >= 0; --Index)
	{
		if (Line[Index]->SimpleConstructionScript)
		{
			AddScript(*Line[Index]->SimpleConstructionScript);
		}
	}
	Sort();
}

FSubobjectDataHandle FSubobjectDataGathering::Add(UObject& Object, USCS_Node* Node, const FSubobjectDataHandle& Parent)
{
	const TSharedPtr<FSubobjectData> Data = MakeShared<FSubobjectData>();
	Data->Object = &Object;
	Data->Node = Node;
	const USimpleConstructionScript* const Script = Node ? Node->GetSCS() : nullptr;
	Data->Blueprint = Script ? Script->GetBlueprint() : &Blueprint;
	Data->bIsInherited = Node && Data->Blueprint.Get() != &Blueprint;
	Data->ParentHandle = Parent;
	const FSubobjectDataHandle Handle(Data);
	if (!SceneRoot.IsValid() && Data->IsSceneComponent())
	{
		Data->bIsRootComponent = true;
		SceneRoot = Handle;
	}
	if (Parent.IsValid())
	{
		Children.FindOrAdd(Parent.GetData()).Add(Handle);
	}
	Handles.Add(Handle);
	return Handle;
}

FSubobjectDataHandle FSubobjectDataGathering::FindByObject(const UObject* Object) const
{
	const FSubobjectDataHandle* const Found = Handles.FindByPredicate(
		[Object](const FSubobjectDataHandle& Handle) { return Object && Handle.GetData()->GetObject() == Object; });
	return Found ? *Found : FSubobjectDataHandle();
}

void FSubobjectDataGathering::AddNativeComponents(const AActor& Default)
{
	TArray<UActorComponent*> Components;
	Default.GetComponents(Components);
	// A component may stand before the one it hangs on, so each round adds what has its parent by now.
	if (USceneComponent* const Root = Default.GetRootComponent())
	{
		Components.Remove(Root);
		Components.Insert(Root, 0);
	}
	for (bool bMore = true; bMore;)
	{
		bMore = false;
		for (UActorComponent* const Component : Components)
		{
			const USceneComponent* const Scene = Cast<USceneComponent>(Component);
			const UObject* const Above = Scene && Scene->GetAttachParent() ? Scene->GetAttachParent() : nullptr;
			const FSubobjectDataHandle Parent = Above ? FindByObject(Above) : Handles[0];
			if (Parent.IsValid() && !FindByObject(Component).IsValid())
			{
				Add(*Component, nullptr, Parent);
				bMore = true;
			}
		}
	}
}

FSubobjectDataHandle FSubobjectDataGathering::FindParentOfRoot(const USCS_Node& Node) const
{
	if (!Cast<USceneComponent>(Node.ComponentTemplate.Get()))
	{
		return Handles[0];
	}
	const FName Name = Node.ParentComponentOrVariableName;
	const FSubobjectDataHandle* const Named = Name.IsNone()
		? nullptr
		: Handles.FindByPredicate(
			[Name](const FSubobjectDataHandle& Handle) { return Handle.GetData()->GetVariableName() == Name; });
	if (Named)
	{
		return *Named;
	}
	return SceneRoot.IsValid() ? SceneRoot : Handles[0];
}

void FSubobjectDataGathering::AddScript(USimpleConstructionScript& Script)
{
	for (USCS_Node* const Root : Script.GetRootNodes())
	{
		if (Root)
		{
			AddNode(*Root, FindParentOfRoot(*Root));
		}
	}
}

void FSubobjectDataGathering::AddNode(USCS_Node& Node, const FSubobjectDataHandle& Parent)
{
	if (!Node.ComponentTemplate)
	{
		return;
	}
	const FSubobjectDataHandle Handle = Add(*Node.ComponentTemplate, &Node, Parent);
	for (USCS_Node* const Child : Node.GetChildNodes())
	{
		AddNode(*Child, Handle);
	}
}

void FSubobjectDataGathering::Sort()
{
	TArray<FSubobjectDataHandle> Stack = {Handles[0]};
	Handles.Empty();
	while (!Stack.IsEmpty())
	{
		const FSubobjectDataHandle Handle = Stack.Pop();
		Handles.Add(Handle);
		const TArray<FSubobjectDataHandle>* const Below = Children.Find(Handle.GetData());
		for (int32 Index = Below ? Below->Num() - 1 : INDEX_NONE; Index >= 0; --Index)
		{
			Stack.Add((*Below)[Index]);
		}
	}
}
