#pragma once

#include "CoreMinimal.h"
#include "Engine/Blueprint.h"

class FCompilerResultsLog;
class UBlueprintGeneratedClass;
class UEdGraph;
class UK2Node_Event;

/** Making, compiling and showing Blueprints. */
class FKismetEditorUtilities
{
public:
	/** Whether a Blueprint may have the class as parent: it exists, is marked as a base (or a parent is), and is no
	 * skeleton, deprecated or final one. */
	static bool CanCreateBlueprintOfClass(const UClass* Class);
	/** A Blueprint asset with what its kind starts with: event graph with ghost events, construction script, default
	 * scene root. */
	static UBlueprint* CreateBlueprint(UClass* ParentClass, UObject* Outer, const FName NewBPName,
		EBlueprintType BlueprintType, TSubclassOf<UBlueprint> BlueprintClassType,
		TSubclassOf<UBlueprintGeneratedClass> BlueprintGeneratedClassType, FName CallingContext = NAME_None);
	static UBlueprint* CreateBlueprint(UClass* ParentClass, UObject* Outer, const FName NewBPName,
		EBlueprintType BlueprintType, FName CallingContext = NAME_None);
	/** Rebuilds the generated class and checks every node and pin; messages go to the log, the outcome to the
	 * Blueprint's status. */
	static void CompileBlueprint(UBlueprint* BlueprintObj,
		EBlueprintCompileOptions CompileFlags = EBlueprintCompileOptions::None,
		FCompilerResultsLog* pResults = nullptr);
	/** There is no window here: notes the object as the last one shown, which a host may ask for. */
	static void BringKismetToFocusAttentionOnObject(const UObject* ObjectToFocus, bool bRequestRename = false);
	static UK2Node_Event* AddDefaultEventNode(
		UBlueprint* InBlueprint, UEdGraph* InGraph, FName InEventName, UClass* InEventClass, int32& InOutNodePosY);
	static bool IsClassABlueprintInterface(const UClass* Class);
	static bool CanBlueprintImplementInterface(const UBlueprint* Blueprint, const UClass* Class);
	static const UK2Node_Event* FindBoundEventForComponent(
		const UBlueprint* Blueprint, FName EventName, FName PropertyName);
	static void CreateNewBoundEventForClass(
		UClass* Class, FName EventName, UBlueprint* Blueprint, class FObjectProperty* ComponentProperty);
};
