#include "Spawning/DeterministicSpawn.h"

#include "AssetOperationBase.h"
#include "BlueprintFunctionNodeSpawner.h"
#include "EdGraph/EdGraph.h"
#include "K2Node_CommutativeAssociativeBinaryOperator.h"
#include "K2Node_DynamicCast.h"
#include "K2Node_PromotableOperator.h"
#include "ToolResult.h"
#include "UObject/UnrealType.h"
#include "Utils/Report/GraphTelemetry.h"

namespace DeterministicSpawn
{
static FString GetDisplayName(const UFunction& Function)
{
	return UK2Node_CallFunction::GetUserFacingFunctionName(&Function).ToString();
}

/** "Get Actor Location" and "GetActorLocation" alike. */
static FString Squeeze(const FString& Text)
{
	return Text.Replace(TEXT(" "), TEXT(""), ESearchCase::CaseSensitive).ToLower();
}

static bool HasName(const UFunction& Function, const FString& Name)
{
	return Function.GetName().Equals(Name, ESearchCase::IgnoreCase);
}

/** The overload whose name and parameters have most in common with the title; null when two have as much. */
static UFunction* ChooseByTitle(const TArray<UFunction*>& Overloads, const FString& MenuTitle)
{
	const FString Wanted = DeterministicSpawn::Squeeze(MenuTitle);
	for (UFunction* const Function : Overloads)
	{
		if (Squeeze(GetDisplayName(*Function)).Equals(Wanted, ESearchCase::CaseSensitive)
			|| Squeeze(Function->GetName()).Equals(Wanted, ESearchCase::CaseSensitive))
		{
			return Function;
		}
	}
	const TArray<FString> Request = FAssetOperationBase::CreateKeywords(MenuTitle);
	UFunction* Best = nullptr;
	int32 BestCount = 0;
	for (UFunction* const Function : Overloads)
	{
		TArray<FString> Keywords = FAssetOperationBase::CreateKeywords(GetDisplayName(*Function));
		FAssetOperationBase::AppendKeywords(Function->GetName(), Keywords);
		FAssetOperationBase::AppendKeywords(FBlueprintDeterministicSpawn::DescribeSignature(*Function), Keywords);
		const int32 Count = FAssetOperationBase::CalculateKeywordSimilarity(Request, Keywords).CommonCount;
		if (Count > BestCount)
		{
			Best = Function;
			BestCount = Count;
		}
		else if (Count == BestCount)
		{
			Best = nullptr;
		}
	}
	return Best;
}

enum class ESpawnKind
{
	None,
	Cast,
	Call,
};

/** Which node classes can be spawned exactly, and what each needs for it. */
static ESpawnKind GetKind(const FBPNodeModification& Record)
{
	const FString& ClassName = Record.ClassName;
	if (ClassName.Equals(TEXT("K2Node_DynamicCast"), ESearchCase::IgnoreCase))
	{
		return Record.TargetClass.IsEmpty() ? ESpawnKind::None : ESpawnKind::Cast;
	}
	if (ClassName.Equals(TEXT("K2Node_CallFunction"), ESearchCase::IgnoreCase)
		|| ClassName.Equals(TEXT("K2Node_PromotableOperator"), ESearchCase::IgnoreCase))
	{
		return Record.TargetClass.IsEmpty() || Record.TargetFunction.IsEmpty() ? ESpawnKind::None : ESpawnKind::Call;
	}
	return ESpawnKind::None;
}

/** One request on its way from texts to a node. */
class FExactSpawn
{
public:
	FExactSpawn(UEdGraph& InGraph, const FBPNodeModification& InRecord, Morvane::FToolResult& InResult,
		FSpawnLookups& InLookups)
		: Graph(InGraph)
		, Record(InRecord)
		, Result(InResult)
		, Lookups(InLookups)
		, Position(InGraph.GetGoodPlaceForNewNode())
	{
	}

	bool Spawn(UEdGraphNode*& OutNode)
	{
		const ESpawnKind Kind = GetKind(Record);
		if (Kind == ESpawnKind::None || !ResolveClass())
		{
			return false;
		}
		return Kind == ESpawnKind::Cast ? SpawnCast(OutNode) : FindFunction() && SpawnCall(OutNode);
	}

private:
	bool ResolveClass()
	{
		const FClassResolution Resolution = Lookups.ResolveClass(Record.TargetClass);
		Class = Resolution.Class;
		if (!Class)
		{
			if (!Resolution.Error.IsEmpty())
			{
				GraphTelemetry::RecordValidationFailure(Result, Resolution.Error);
			}
			GraphTelemetry::RecordValidationFailure(Result,
				FString::Printf(
					TEXT(
						"Deterministic spawn failed: Class '%s' not found.\n  Node Type: %s\n  Target Function: %s\n  Attempted class resolution paths (showing up to 10):\n%s\n  Asset Registry: No Blueprint matches found\n  Possible solutions:\n    - Verify the class name is spelled correctly\n    - Use full package path (e.g., /Game/MyFolder/BP_MyClass or /Script/Engine.Actor)\n    - Check if the class/Blueprint exists and is loaded\n    - For C++ classes, ensure the module is loaded\n    - Try fuzzy matching by omitting target_class/target_function"),
					*Record.TargetClass, *Record.ClassName, *Record.TargetFunction,
					*ClassResolution::DescribeVariants(Resolution.Variants)));
			return false;
		}
		GraphTelemetry::SetString(
			Result, FString::Printf(TEXT("class_resolution_method_%s"), *Record.TargetClass), Resolution.Method);
		GraphTelemetry::SetString(Result, TEXT("resolved_class_path"), Class->GetPathName());
		GraphTelemetry::SetString(Result, TEXT("original_class_input"), Record.TargetClass);
		if (Resolution.Method.Equals(TEXT("asset_registry"), ESearchCase::CaseSensitive))
		{
			GraphTelemetry::Increment(Result, TEXT("asset_registry_lookups"));
		}
		return true;
	}

	bool SpawnCast(UEdGraphNode*& OutNode)
	{
		FGraphNodeCreator<UK2Node_DynamicCast> Creator(Graph);
		UK2Node_DynamicCast* const Node = Creator.CreateNode(false);
		if (!Node)
		{
			Result.AddErrorMessage(FString::Printf(
				TEXT(
					"Deterministic spawn failed: Could not create K2Node_DynamicCast.\n  Target Class: %s\n  Resolved Class Path: '%s'\n  Graph: '%s'\n  Possible causes:\n    - Memory allocation failure (rare)\n    - Graph context is invalid\n    - K2Node_DynamicCast is not available in this UE version/configuration"),
				*Record.TargetClass, *Class->GetPathName(), *Graph.GetName()));
			return true;
		}
		Node->TargetType = Class;
		Creator.Finalize();
		if (!Node->TargetType)
		{
			Result.AddErrorMessage(FString::Printf(
				TEXT(
					"Deterministic spawn failed: Cast node TargetType is null after creation.\n  Target Class: %s\n  Resolved Class Path: '%s'\n  FunctionClass Valid: %s\n  Graph: '%s'\n  Possible causes:\n    - The target class was unloaded after resolution\n    - The class is abstract or cannot be cast to\n    - Graph schema restrictions prevent cast to this type"),
				*Record.TargetClass, *Class->GetPathName(), IsValid(Class) ? TEXT("Yes") : TEXT("No"),
				*Graph.GetName()));
			Node->DestroyNode();
			return true;
		}
		OutNode = Node;
		return true;
	}

	bool FindFunction()
	{
		Overloads = Lookups.FindOverloads(Class, Record.TargetFunction);
		Function = FBlueprintDeterministicSpawn::ChooseOverload(Overloads, Record.TargetFunction, Record.MenuTitle);
		if (!Function)
		{
			return Refuse(FString::Printf(
				TEXT(
					"Deterministic spawn failed: Function '%s' not found in class '%s' (or overloads exist without menu_title). Returning failure to caller."),
				*Record.TargetFunction, *Class->GetName()));
		}
		// Look-ups outlive single requests: what they hold may be gone by now.
		return IsValid(Function)
			|| Refuse(FString::Printf(
				TEXT(
					"Deterministic spawn failed: Function lookup returned null (unexpected - this should not happen).\n  Requested Function: %s::%s\n  Resolved Class: '%s'\n  Menu Title: '%s'\n  This is an internal consistency error. FindFunctionWithOverloadHandling returned success but Function is null."),
				*Record.TargetClass, *Record.TargetFunction, *Class->GetName(), *Record.MenuTitle));
	}

	bool SpawnCall(UEdGraphNode*& OutNode)
	{
		UBlueprintFunctionNodeSpawner* const Spawner = UBlueprintFunctionNodeSpawner::Create(Function, nullptr);
		if (!Spawner)
		{
			Result.AddErrorMessage(FString::Printf(
				TEXT(
					"Deterministic spawn failed: Could not create UBlueprintFunctionNodeSpawner.\n  Function: %s::%s\n  Display Name: '%s'\n  Menu Title (requested): '%s'\n  Function Valid: %s\n  Function Flags: 0x%08X\n  Owning Class: %s\n  Possible causes:\n    - The function is deprecated or hidden from Blueprints\n    - Function flags prevent Blueprint usage (check FUNC_BlueprintCallable)\n    - UBlueprintFunctionNodeSpawner::Create internal validation failed\n    - The function is not compatible with Blueprint node spawning"),
				*Record.TargetClass, *Record.TargetFunction, *GetDisplayName(*Function), *Record.MenuTitle,
				IsValid(Function) ? TEXT("Yes") : TEXT("No"), static_cast<uint32>(Function->FunctionFlags),
				*GetOwnerName(*Function)));
			return true;
		}
		UEdGraphNode* const Node = Spawner->Invoke(&Graph, IBlueprintNodeBinder::FBindingSet(), Position);
		if (!Node)
		{
			Result.AddErrorMessage(FString::Printf(
				TEXT(
					"Deterministic spawn failed: Spawner->Invoke returned null.\n  Function: %s::%s\n  Display Name: '%s'\n  Menu Title (requested): '%s'\n  Graph: '%s'\n  Position: (%.0f, %.0f)\n  Spawner Type: %s\n  Possible causes:\n    - The node type is incompatible with this graph context\n    - The function signature is invalid or unsupported\n    - The spawner encountered an internal error during node creation\n    - Graph schema restrictions prevent this node type\n    - Try spawning via fuzzy matching (omit target_class/target_function) as fallback"),
				*Record.TargetClass, *Record.TargetFunction, *GetDisplayName(*Function), *Record.MenuTitle,
				*Graph.GetName(), Position.X, Position.Y, *Spawner->GetClass()->GetName()));
			return true;
		}
		if (!VerifyFunction(*Node))
		{
			return false;
		}
		WarnOfOverloads();
		OutNode = Node;
		return true;
	}

	/** Whether the node calls what was asked for; one that does not is taken out again. */
	bool VerifyFunction(UEdGraphNode& Node)
	{
		// Operators are calls as well; they stand in the list because they are what a request may name.
		const bool bSupported = Node.IsA<UK2Node_CallFunction>() || Node.IsA<UK2Node_PromotableOperator>()
			|| Node.IsA<UK2Node_CommutativeAssociativeBinaryOperator>();
		if (!bSupported)
		{
			return Discard(Node,
				FString::Printf(TEXT("Deterministic spawn failed: Unsupported node class '%s' for %s::%s"),
					*Node.GetClass()->GetName(), *Record.TargetClass, *Record.TargetFunction));
		}
		const UFunction* const Spawned = CastChecked<UK2Node_CallFunction>(&Node)->GetTargetFunction();
		if (!Spawned)
		{
			return Discard(Node,
				FString::Printf(
					TEXT("Deterministic spawn failed: Could not resolve function reference on node class '%s'"),
					*Node.GetClass()->GetName()));
		}
		if (Spawned == Function)
		{
			return true;
		}
		// A class that was rebuilt since has the same function as another object.
		if (Spawned->GetName().Equals(Function->GetName(), ESearchCase::IgnoreCase)
			&& GetOwnerName(*Spawned).Equals(GetOwnerName(*Function), ESearchCase::IgnoreCase))
		{
			GraphTelemetry::Increment(Result, TEXT("pointer_mismatch_allowed"));
			return true;
		}
		return Discard(Node,
			FString::Printf(
				TEXT(
					"Deterministic spawn returned different function '%s' (requested '%s'). Returning failure to caller."),
				*Spawned->GetName(), *Function->GetName()));
	}

	void WarnOfOverloads()
	{
		if (Overloads.Num() < 2 || !Record.MenuTitle.IsEmpty())
		{
			return;
		}
		TArray<FString> Names;
		for (const UFunction* const Overload : Overloads)
		{
			Names.Add(GetDisplayName(*Overload));
		}
		Result.AddWarningMessage(FString::Printf(
			TEXT(
				"Overloaded function '%s::%s' spawned without menu_title. Consider adding menu_title for accuracy. Available: %s"),
			*Record.TargetClass, *Record.TargetFunction, *FString::Join(Names, TEXT(", "))));
	}

	bool Refuse(const FString& Text)
	{
		GraphTelemetry::RecordValidationFailure(Result, Text);
		return false;
	}

	bool Discard(UEdGraphNode& Node, const FString& Text)
	{
		// The node's own way: what it made beside itself, a graph or a timeline, goes with it.
		Node.DestroyNode();
		return Refuse(Text);
	}

	static FString GetOwnerName(const UFunction& Of)
	{
		const UClass* const Owner = Of.GetOwnerClass();
		return Owner ? Owner->GetName() : TEXT("Unknown");
	}

	UEdGraph& Graph;
	const FBPNodeModification& Record;
	Morvane::FToolResult& Result;
	FSpawnLookups& Lookups;
	FVector2D Position;
	/** Valid once the class is resolved. */
	UClass* Class = nullptr;
	/** All that the function's name fits; valid once the function is found, like the one chosen among them. */
	TArray<UFunction*> Overloads;
	UFunction* Function = nullptr;
};
} // namespace DeterministicSpawn

FClassResolution FSpawnLookups::ResolveClass(const FString& ClassText)
{
	if (const FClassResolution* const Known = ClassByText.Find(ClassText))
	{
		return *Known;
	}
	FClassResolution Resolution = ClassResolution::Resolve(ClassText);
	if (!Resolution.Class || !Resolution.Class->ClassGeneratedBy)
	{
		ClassByText.Add(ClassText, Resolution);
	}
	return Resolution;
}

TArray<UFunction*> FSpawnLookups::FindOverloads(const UClass* Class, const FString& FunctionName)
{
	const TPair<const UClass*, FString> Key(Class, FunctionName);
	if (const TArray<UFunction*>* const Known = OverloadsByName.Find(Key))
	{
		return *Known;
	}
	TArray<UFunction*> Overloads = FBlueprintDeterministicSpawn::FindOverloads(Class, FunctionName);
	if (Class && !Class->ClassGeneratedBy)
	{
		OverloadsByName.Add(Key, Overloads);
	}
	return Overloads;
}

bool FBlueprintDeterministicSpawn::SpawnDeterministicNode(UEdGraph& Graph, const FBPNodeModification& Record,
	Morvane::FToolResult& Result, FSpawnLookups& Lookups, UEdGraphNode*& OutNode)
{
	OutNode = nullptr;
	return DeterministicSpawn::FExactSpawn(Graph, Record, Result, Lookups).Spawn(OutNode);
}

bool FBlueprintDeterministicSpawn::FindFunctionWithOverloadHandling(
	const UClass* Class, const FString& FunctionName, const FString& MenuTitle, UFunction*& OutFunction)
{
	OutFunction = ChooseOverload(FindOverloads(Class, FunctionName), FunctionName, MenuTitle);
	return OutFunction != nullptr;
}

UFunction* FBlueprintDeterministicSpawn::ChooseOverload(
	const TArray<UFunction*>& Overloads, const FString& FunctionName, const FString& MenuTitle)
{
	if (Overloads.Num() == 1)
	{
		return Overloads[0];
	}
	if (UFunction* const Titled = MenuTitle.IsEmpty() ? nullptr
													  : DeterministicSpawn::ChooseByTitle(Overloads, MenuTitle))
	{
		return Titled;
	}
	// A function of just this name is meant, whatever other functions are called in menus.
	UFunction* const* const Named = Overloads.FindByPredicate(
		[&FunctionName](const UFunction* Candidate) { return DeterministicSpawn::HasName(*Candidate, FunctionName); });
	return Named ? *Named : nullptr;
}

TArray<UFunction*> FBlueprintDeterministicSpawn::FindOverloads(const UClass* Class, const FString& FunctionName)
{
	TArray<UFunction*> Overloads;
	if (!Class || FunctionName.IsEmpty())
	{
		return Overloads;
	}
	const FString Wanted = DeterministicSpawn::Squeeze(FunctionName);
	TSet<FName> Known;
	for (TFieldIterator<UFunction> It(Class); It; ++It)
	{
		UFunction* const Function = *It;
		// What a class overrides stands again in its supers.
		if (Known.Contains(Function->GetFName()))
		{
			continue;
		}
		Known.Add(Function->GetFName());
		const bool bFits = DeterministicSpawn::HasName(*Function, FunctionName)
			|| DeterministicSpawn::Squeeze(DeterministicSpawn::GetDisplayName(*Function))
				   .Equals(Wanted, ESearchCase::CaseSensitive);
		if (bFits)
		{
			Overloads.Add(Function);
		}
	}
	return Overloads;
}

FString FBlueprintDeterministicSpawn::DescribeSignature(const UFunction& Function)
{
	TArray<FString> Parameters;
	for (TFieldIterator<FProperty> It(&Function); It; ++It)
	{
		if (It->HasAnyPropertyFlags(CPF_Parm) && !It->HasAnyPropertyFlags(CPF_ReturnParm))
		{
			Parameters.Add(FString::Printf(TEXT("%s %s"), *It->GetCPPType(), *It->GetName()));
		}
	}
	return Parameters.IsEmpty() ? TEXT("None") : FString::Join(Parameters, TEXT(", "));
}
