#include "Menu/ActionSources.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "BlueprintDelegateNodeSpawner.h"
#include "BlueprintEventNodeSpawner.h"
#include "BlueprintFunctionNodeSpawner.h"
#include "BlueprintTypePromotion.h"
#include "BlueprintVariableNodeSpawner.h"
#include "EdGraphSchema_K2.h"
#include "Engine/Blueprint.h"
#include "K2Node_AssignDelegate.h"
#include "K2Node_CallDelegate.h"
#include "K2Node_ClearDelegate.h"
#include "K2Node_RemoveDelegate.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "Nodes/MenuWords.h"
#include "Standalone/Catalogue.h"
#include "UObject/UnrealType.h"

namespace ActionSources
{
FBlueprintAction* Add(UBlueprintNodeSpawner* Spawner, FActionList& Out)
{
	if (!Spawner)
	{
		return nullptr;
	}
	FBlueprintActionUiSpec Words = Spawner->GetUiSpec();
	if (Words.MenuName.IsEmpty())
	{
		return nullptr;
	}
	FBlueprintAction& Action = Out.AddDefaulted_GetRef();
	Action.NodeClass = Spawner->NodeClass.Get();
	Action.RequiredClass = Spawner->GetRequiredClass();
	Action.Item = MakeShared<FBlueprintActionMenuItem>(
		Spawner, MoveTemp(Words.Category), MoveTemp(Words.MenuName), FText::GetEmpty(), MoveTemp(Words.Keywords));
	return &Action;
}

/** The one entry of an operator, whose overloads are chosen by what is linked: it stands where its first overload
 * would. */
static void AddOperator(UBlueprintFunctionNodeSpawner& Spawner, const UFunction& Function, FActionList& Out)
{
	const FName Operation = FTypePromotion::GetOpNameFromFunction(&Function);
	if (FTypePromotion::GetDefaultFuncForOp(Operation) == &Function)
	{
		Spawner.DefaultMenuSignature.MenuName = FTypePromotion::GetUserFacingOperatorName(Operation);
		Spawner.DefaultMenuSignature.Category = MenuWords::SharedText(TEXT("Utilities|Operators"));
		Spawner.DefaultMenuSignature.Keywords = FTypePromotion::GetKeywordsForOperator(Operation);
		Add(&Spawner, Out);
	}
}

/** Where a call of the function may stand. */
static void DescribeReach(const UFunction& Function, FBlueprintAction& Out)
{
	const bool bStatic = Function.HasAnyFunctionFlags(FUNC_Static);
	UClass& Owner = *Function.GetOwnerClass();
	// Of a native function the access in C++ says nothing about Blueprints.
	const UBlueprint* const Declarer = Cast<UBlueprint>(Owner.ClassGeneratedBy);
	Out.OnlyInBlueprint = Function.HasAnyFunctionFlags(FUNC_Private) ? Declarer : nullptr;
	Out.bIsProtected = (Declarer && Function.HasAnyFunctionFlags(FUNC_Protected))
		|| Function.GetBoolMetaData(FBlueprintMetadata::MD_Protected);
	Out.MemberOf = bStatic && !Out.bIsProtected ? nullptr : MenuWords::LastingClass(&Owner);
	Out.bIsLatent = Function.HasMetaData(FBlueprintMetadata::MD_Latent);
	Out.bIsUnsafeInConstruction = Function.GetBoolMetaData(FBlueprintMetadata::MD_UnsafeForConstructionScripts);
	Out.bNeedsWorld = bStatic && Function.HasMetaData(FBlueprintMetadata::MD_WorldContext)
		&& !Function.HasMetaData(FBlueprintMetadata::MD_CallableWithoutWorldContext);
	Out.bIsEditorOnly = Function.HasAnyFunctionFlags(FUNC_EditorOnly) || MenuWords::IsOfEditor(Owner);
}

static void AddFunctions(const UClass& Class, FActionList& Out)
{
	for (TFieldIterator<UFunction> It(&Class, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		const UFunction& Function = **It;
		// What a Blueprint's class overrides is called by its parent's entry.
		const UFunction* const Inherited = Class.GetSuperClass()
			? Class.GetSuperClass()->FindFunctionByName(Function.GetFName())
			: nullptr;
		if (UBlueprintFunctionNodeSpawner* const Spawner = Inherited ? nullptr
																	 : UBlueprintFunctionNodeSpawner::Create(&Function))
		{
			if (FTypePromotion::IsFunctionPromotionReady(&Function))
			{
				AddOperator(*Spawner, Function, Out);
			}
			else if (FBlueprintAction* const Action = Add(Spawner, Out))
			{
				DescribeReach(Function, *Action);
			}
		}
		if (!Inherited)
		{
			Add(UBlueprintEventNodeSpawner::Create(&Function), Out);
		}
	}
}

static void AddDispatcher(const FMulticastDelegateProperty& Property, FActionList& Out)
{
	TArray<const UClass*> NodeClasses;
	if (Property.HasAnyPropertyFlags(CPF_BlueprintAssignable))
	{
		NodeClasses = {UK2Node_AddDelegate::StaticClass(), UK2Node_AssignDelegate::StaticClass(),
			UK2Node_RemoveDelegate::StaticClass(), UK2Node_ClearDelegate::StaticClass()};
	}
	if (Property.HasAnyPropertyFlags(CPF_BlueprintCallable))
	{
		NodeClasses.Add(UK2Node_CallDelegate::StaticClass());
	}
	for (const UClass* const NodeClass : NodeClasses)
	{
		if (FBlueprintAction* const Action = Add(UBlueprintDelegateNodeSpawner::Create(NodeClass, &Property), Out))
		{
			Action->MemberOf = MenuWords::LastingClass(Property.GetOwnerClass());
		}
	}
}

static void AddVariable(const FProperty& Property, FActionList& Out)
{
	const UClass* const Nodes[] = {UK2Node_VariableGet::StaticClass(), UK2Node_VariableSet::StaticClass()};
	const UClass* const Owner = MenuWords::LastingClass(Property.GetOwnerClass());
	const bool bPrivate = Property.GetBoolMetaData(FBlueprintMetadata::MD_Private);
	for (const UClass* const NodeClass : Nodes)
	{
		const bool bSets = NodeClass == Nodes[1];
		if (bSets && Property.HasAnyPropertyFlags(CPF_BlueprintReadOnly) && !Owner->ClassGeneratedBy)
		{
			continue;
		}
		if (FBlueprintAction* const Action = Add(
				UBlueprintVariableNodeSpawner::CreateFromMemberOrParam(NodeClass, &Property), Out))
		{
			Action->MemberOf = Owner;
			Action->bNamedAsMember = Owner->ClassGeneratedBy != nullptr;
			Action->OtherCategory = Owner->ClassGeneratedBy
				? MenuWords::ForeignCategory(*Owner)
				: MenuWords::MemberCategory(Property.FindMetaData(FBlueprintMetadata::MD_FunctionCategory));
			Action->OnlyInBlueprint = bPrivate ? Cast<UBlueprint>(Owner->ClassGeneratedBy) : nullptr;
		}
	}
}

void AddMembers(const UClass& Class, FActionList& Out)
{
	if (Class.HasAnyClassFlags(CLASS_Deprecated))
	{
		return;
	}
	AddFunctions(Class, Out);
	for (TFieldIterator<FProperty> It(&Class, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		if (It->HasAnyPropertyFlags(CPF_Deprecated))
		{
			continue;
		}
		if (const FMulticastDelegateProperty* const Dispatcher = CastField<FMulticastDelegateProperty>(*It))
		{
			AddDispatcher(*Dispatcher, Out);
		}
		else if (It->HasAnyPropertyFlags(CPF_BlueprintVisible))
		{
			AddVariable(**It, Out);
		}
	}
}

void AddNodeClasses(FActionList& Out, TArray<FMakeEnumSpawner>& OutEnumMakers)
{
	TArray<UClass*> Classes;
	GetDerivedClasses(UK2Node::StaticClass(), Classes);
	Classes.Sort([](const UClass& A, const UClass& B) { return A.GetPathName() < B.GetPathName(); });
	TArray<UBlueprintNodeSpawner*> Spawners;
	FBlueprintActionDatabaseRegistrar Registrar(Spawners, OutEnumMakers);
	for (const UClass* const Class : Classes)
	{
		if (!Class->HasAnyClassFlags(static_cast<EClassFlags>(CLASS_Abstract | CLASS_Deprecated)))
		{
			Class->GetDefaultObject<UK2Node>()->GetMenuActions(Registrar);
		}
	}
	for (UBlueprintNodeSpawner* const Spawner : Spawners)
	{
		Add(Spawner, Out);
	}
}
} // namespace ActionSources

bool FBlueprintActionDatabaseRegistrar::AddBlueprintAction(UBlueprintNodeSpawner* NodeSpawner)
{
	if (!NodeSpawner)
	{
		return false;
	}
	Actions.Add(NodeSpawner);
	return true;
}

void FBlueprintActionDatabaseRegistrar::RegisterEnumActions(FMakeEnumSpawnerDelegate MakeActionCallback)
{
	// The catalogue names the enums that Blueprints know; others are this program's own, and those of assets come and
	// go with their assets.
	FCatalogue::Get().ForEachPath(UEnum::StaticClass(),
		[this, &MakeActionCallback](const FString& Path, const FString&)
		{
			UEnum* const Enum = Cast<UEnum>(FCatalogue::Get().FindOrCreate(Path));
			if (Enum && UEdGraphSchema_K2::IsAllowableBlueprintVariableType(Enum))
			{
				AddBlueprintAction(MakeActionCallback(*Enum));
			}
		});
	EnumMakers.Add(MoveTemp(MakeActionCallback));
}
