#include "BlueprintFunctionNodeSpawner.h"

#include "BlueprintTypePromotion.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_CallFunction.h"
#include "K2Node_PromotableOperator.h"
#include "Menu/SpawnerPins.h"
#include "Nodes/FunctionPins.h"
#include "Nodes/MenuWords.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UBlueprintFunctionNodeSpawner, "/Script/BlueprintGraph", CLASS_None)

void UBlueprintFunctionNodeSpawner::DescribeClass(FClassDescriber&) {}

namespace FunctionSpawners
{
/** A node class of the module, the plain call where a process does not know it. */
static UClass* ClassNamed(const TCHAR* Name)
{
	UClass* const Found = FindObject<UClass>(nullptr, FString(TEXT("/Script/BlueprintGraph.")) + Name);
	return Found && Found->IsChildOf(UK2Node_CallFunction::StaticClass()) ? Found : UK2Node_CallFunction::StaticClass();
}

struct FClasses
{
	UClass* Plain = UK2Node_CallFunction::StaticClass();
	UClass* Operator = ClassNamed(TEXT("K2Node_CommutativeAssociativeBinaryOperator"));
	UClass* Promotable = ClassNamed(TEXT("K2Node_PromotableOperator"));
	UClass* Array = ClassNamed(TEXT("K2Node_CallArrayFunction"));
	UClass* DataTable = ClassNamed(TEXT("K2Node_CallDataTableFunction"));
	UClass* MaterialCollection = ClassNamed(TEXT("K2Node_CallMaterialParameterCollectionFunction"));
	UClass* Message = ClassNamed(TEXT("K2Node_Message"));
};

static const FClasses& Classes()
{
	static const FClasses Known;
	return Known;
}
} // namespace FunctionSpawners

UClass* UBlueprintFunctionNodeSpawner::GetNodeClassForFunction(const UFunction* Function)
{
	using namespace FunctionSpawners;
	static const FName MaterialCollectionKey(TEXT("MaterialParameterCollectionFunction"));
	static const FName DataTableKey(TEXT("DataTablePin"));
	const FClasses& Known = Classes();
	if (!Function)
	{
		return nullptr;
	}
	if (FTypePromotion::IsFunctionPromotionReady(Function))
	{
		return Known.Promotable;
	}
	if (Function->HasMetaData(FBlueprintMetadata::MD_CommutativeAssociativeBinaryOperator))
	{
		return Known.Operator;
	}
	if (Function->HasMetaData(MaterialCollectionKey))
	{
		return Known.MaterialCollection;
	}
	if (Function->HasMetaData(DataTableKey))
	{
		return Known.DataTable;
	}
	const UClass* const Owner = Function->GetOwnerClass();
	if (Owner && Owner->HasAnyClassFlags(CLASS_Interface))
	{
		return Known.Message;
	}
	return Function->HasMetaData(FBlueprintMetadata::MD_ArrayParam) ? Known.Array : Known.Plain;
}

FText UBlueprintFunctionNodeSpawner::GetMenuCategory(const UFunction* Function)
{
	const UClass* const Owner = Function->GetOwnerClass();
	FString Fallback = TEXT("Call Function");
	if (Owner && Owner->HasAnyClassFlags(CLASS_Interface))
	{
		Fallback = TEXT("Interface Messages");
	}
	else if (Owner && !Owner->ClassGeneratedBy)
	{
		Fallback = TEXT("Class|") + MenuWords::ClassName(*Owner);
	}
	const FString* const Given = Function->FindMetaData(FBlueprintMetadata::MD_FunctionCategory);
	return MenuWords::SharedText(MenuWords::CategoryOf(Given, Fallback));
}

UBlueprintFunctionNodeSpawner* UBlueprintFunctionNodeSpawner::Create(const UFunction* Function, UObject* Outer)
{
	if (!Function || !UEdGraphSchema_K2::CanUserKismetCallFunction(Function))
	{
		return nullptr;
	}
	return Create(GetNodeClassForFunction(Function), Function, Outer);
}

UBlueprintFunctionNodeSpawner* UBlueprintFunctionNodeSpawner::Create(
	TSubclassOf<UEdGraphNode> InNodeClass, const UFunction* Function, UObject* Outer)
{
	if (!Function || !InNodeClass.Get() || !Function->GetOwnerClass())
	{
		return nullptr;
	}
	UBlueprintFunctionNodeSpawner* const Spawner = NewObject<UBlueprintFunctionNodeSpawner>(
		Outer ? Outer : GetTransientPackageAsObject());
	Spawner->NodeClass = InNodeClass;
	Spawner->FunctionOwner = MenuWords::LastingClass(Function->GetOwnerClass());
	Spawner->FunctionName = Function->GetFName();
	FBlueprintActionUiSpec& Words = Spawner->DefaultMenuSignature;
	Words.MenuName = UK2Node_CallFunction::GetUserFacingFunctionName(Function);
	if (InNodeClass.Get() == FunctionSpawners::Classes().Message
		&& Function->GetOwnerClass()->HasAnyClassFlags(CLASS_Interface))
	{
		Words.MenuName = FText::FromString(Words.MenuName.ToString() + TEXT(" (Message)"));
	}
	Words.Category = GetMenuCategory(Function);
	Words.Keywords = UK2Node_CallFunction::GetKeywordsForFunction(Function);
	return Spawner;
}

const UFunction* UBlueprintFunctionNodeSpawner::GetFunction() const
{
	const UClass* const Class = MenuWords::LookupClass(FunctionOwner.Get());
	return Class ? Class->FindFunctionByName(FunctionName) : nullptr;
}

bool UBlueprintFunctionNodeSpawner::IsBindable() const
{
	return GetFunction() != nullptr;
}

void UBlueprintFunctionNodeSpawner::Bind(UEdGraphNode& Node, bool) const
{
	CastChecked<UK2Node_CallFunction>(&Node)->SetFromFunction(GetFunction());
}

namespace FunctionSpawners
{
/** An operator's pins are of any type, but links only what one of its overloads takes or gives. */
static bool AnyOperand(const UFunction& Function, UBlueprintNodeSpawner::FPinVisitor Visit)
{
	for (const UFunction* const Overload :
		FTypePromotion::GetAllFuncsForOp(FTypePromotion::GetOpNameFromFunction(&Function)))
	{
		if (Visit(FTypePromotion::GetParamType(*Overload, 0), EGPD_Input)
			|| Visit(FTypePromotion::GetParamType(*Overload, 1), EGPD_Input)
			|| Visit(FTypePromotion::GetParamType(*Overload, 2), EGPD_Output))
		{
			return true;
		}
	}
	return false;
}
} // namespace FunctionSpawners

bool UBlueprintFunctionNodeSpawner::AnyPin(FPinVisitor Visit) const
{
	const FunctionSpawners::FClasses& Known = FunctionSpawners::Classes();
	const UFunction* const Function = GetFunction();
	if (Function && NodeClass.Get() == Known.Promotable)
	{
		return FunctionSpawners::AnyOperand(*Function, Visit);
	}
	const bool bMessage = NodeClass.Get() == Known.Message;
	if (!Function || (NodeClass.Get() != Known.Plain && !bMessage) || FunctionPins::Get(*Function).bWantsExpansion)
	{
		// Calls on containers show other pins than their functions have.
		return Super::AnyPin(Visit);
	}
	const bool bPure = Function->HasAnyFunctionFlags(FUNC_BlueprintPure) && !bMessage;
	if (!bPure && SpawnerPins::AnyExec(Visit))
	{
		return true;
	}
	// A message goes to any object, as nobody knows which classes will implement its interface.
	UClass* const Target = bMessage ? UObject::StaticClass() : FunctionOwner.Get();
	return (!Function->HasAnyFunctionFlags(FUNC_Static) && SpawnerPins::AnyObject(*Target, EGPD_Input, Visit))
		|| SpawnerPins::AnyParameter(*Function, Visit);
}
