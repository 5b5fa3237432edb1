#include "Engine/MemberReference.h"

#include "EdGraph/EdGraph.h"
#include "Engine/Blueprint.h"
#include "Standalone/BlueprintClassProvider.h"
#include "Standalone/NativeClass.h"
#include "UObject/Package.h"

IMPLEMENT_EDITOR_STRUCT(FMemberReference, "/Script/Engine")

void FMemberReference::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("MemberParent"), &FMemberReference::MemberParent);
	Struct.Property(TEXT("MemberScope"), &FMemberReference::MemberScope);
	Struct.Property(TEXT("MemberName"), &FMemberReference::MemberName);
	Struct.Property(TEXT("MemberGuid"), &FMemberReference::MemberGuid);
	Struct.Property(TEXT("bSelfContext"), &FMemberReference::bSelfContext);
	Struct.Property(TEXT("bWasDeprecated"), &FMemberReference::bWasDeprecated);
}

void FMemberReference::SetExternalMember(FName InMemberName, TSubclassOf<UObject> InMemberParentClass)
{
	*this = FMemberReference();
	MemberName = InMemberName;
	MemberParent = InMemberParentClass.Get() ? InMemberParentClass.Get()->GetAuthoritativeClass() : nullptr;
}

void FMemberReference::SetExternalMember(
	FName InMemberName, TSubclassOf<UObject> InMemberParentClass, FGuid& InMemberGuid)
{
	SetExternalMember(InMemberName, InMemberParentClass);
	MemberGuid = InMemberGuid;
}

void FMemberReference::SetGlobalField(FName InFieldName, UPackage* InParentPackage)
{
	*this = FMemberReference();
	MemberName = InFieldName;
	MemberParent = InParentPackage;
}

void FMemberReference::SetSelfMember(FName InMemberName)
{
	*this = FMemberReference();
	MemberName = InMemberName;
	bSelfContext = true;
}

void FMemberReference::SetSelfMember(FName InMemberName, FGuid& InMemberGuid)
{
	SetSelfMember(InMemberName);
	MemberGuid = InMemberGuid;
}

void FMemberReference::SetLocalMember(FName InMemberName, FString InScopeName, FGuid InMemberGuid)
{
	*this = FMemberReference();
	MemberName = InMemberName;
	MemberScope = MoveTemp(InScopeName);
	MemberGuid = InMemberGuid;
}

namespace MemberReference
{
/** The guid of a Blueprint's own variable; none for native members. */
static FGuid FindVariableGuid(const UClass* Owner, FName Name)
{
	const UBlueprint* const Blueprint = UBlueprint::GetBlueprintFromClass(Owner);
	if (!Blueprint)
	{
		return FGuid();
	}
	for (const FBPVariableDescription& Variable : Blueprint->NewVariables)
	{
		if (Variable.VarName == Name)
		{
			return Variable.VarGuid;
		}
	}
	return FGuid();
}

/** The guid of a function's graph in the Blueprint that declares it; none for native functions and events. */
static FGuid FindFunctionGuid(const UClass* Owner, FName Name)
{
	const UBlueprint* const Blueprint = UBlueprint::GetBlueprintFromClass(Owner);
	if (!Blueprint)
	{
		return FGuid();
	}
	for (const UEdGraph* const Graph : Blueprint->FunctionGraphs)
	{
		if (Graph && Graph->GetFName() == Name)
		{
			return Graph->GraphGuid;
		}
	}
	return FGuid();
}
} // namespace MemberReference

void FMemberReference::SetFromField(const FProperty* InField, bool bIsConsideredSelfContext)
{
	UClass* const Owner = InField->GetOwnerClass();
	SetDirect(InField->GetFName(), MemberReference::FindVariableGuid(Owner, InField->GetFName()), Owner,
		bIsConsideredSelfContext);
}

void FMemberReference::SetFromField(const UFunction* InField, bool bIsConsideredSelfContext)
{
	UClass* const Owner = InField->GetOwnerClass();
	if (!Owner)
	{
		SetGlobalField(InField->GetFName(), InField->GetOutermost());
		return;
	}
	SetDirect(InField->GetFName(), MemberReference::FindFunctionGuid(Owner, InField->GetFName()), Owner,
		bIsConsideredSelfContext);
}

void FMemberReference::SetDirect(
	FName InMemberName, FGuid InMemberGuid, TSubclassOf<UObject> InMemberParentClass, bool bIsConsideredSelfContext)
{
	*this = FMemberReference();
	MemberName = InMemberName;
	MemberGuid = InMemberGuid;
	bSelfContext = bIsConsideredSelfContext;
	if (!bSelfContext && InMemberParentClass.Get())
	{
		MemberParent = InMemberParentClass.Get()->GetAuthoritativeClass();
	}
}

UClass* FMemberReference::GetMemberParentClass() const
{
	return Cast<UClass>(MemberParent);
}

UClass* FMemberReference::GetMemberParentClass(UClass* SelfScope) const
{
	return bSelfContext ? SelfScope : GetMemberParentClass();
}

UStruct* FMemberReference::GetMemberScope(const UClass* InMemberParentClass) const
{
	return InMemberParentClass ? InMemberParentClass->FindFunctionByName(FName(MemberScope)) : nullptr;
}

UClass* FMemberReference::GetBlueprintSelfClass(UBlueprint* Blueprint)
{
	return BlueprintClassProvider::GetSelfClass(Blueprint);
}

namespace MemberReference
{
/** The class to search: the skeleton of a Blueprint class, which knows declarations that were not compiled. */
static UClass* MostUpToDate(UClass* Class)
{
	UBlueprint* const Blueprint = UBlueprint::GetBlueprintFromClass(Class);
	return Blueprint ? BlueprintClassProvider::GetSelfClass(Blueprint) : Class;
}

/** The signature of an event dispatcher that a class declares for itself; it is no function of the class. */
static UFunction* FindSignature(UClass& Class, FName Name)
{
	UFunction* Signature = nullptr;
	for (UClass* Scope = &Class; Scope && !Signature; Scope = Scope->GetSuperClass())
	{
		Signature = FindObject<UFunction>(Scope, *Name.ToString());
	}
	return Signature;
}
} // namespace MemberReference

UFunction* FMemberReference::ResolveFunction(UClass* SelfScope) const
{
	if (UPackage* const Package = Cast<UPackage>(MemberParent))
	{
		return FindObject<UFunction>(nullptr, Package->GetName() + TEXT(".") + MemberName.ToString());
	}
	UClass* const Scope = MemberReference::MostUpToDate(GetScope(SelfScope));
	UFunction* const Function = Scope ? Scope->FindFunctionByName(MemberName) : nullptr;
	return Function || !Scope ? Function : MemberReference::FindSignature(*Scope, MemberName);
}

FProperty* FMemberReference::ResolveProperty(UClass* SelfScope) const
{
	UClass* const Scope = MemberReference::MostUpToDate(IsLocalScope() ? SelfScope : GetScope(SelfScope));
	if (!Scope)
	{
		return nullptr;
	}
	if (!IsLocalScope())
	{
		return Scope->FindPropertyByName(MemberName);
	}
	const UStruct* const Function = GetMemberScope(Scope);
	return Function ? Function->FindPropertyByName(MemberName) : nullptr;
}

void FMemberReference::FillSimpleMemberReference(const UFunction* InField, FSimpleMemberReference& OutReference)
{
	OutReference.Reset();
	if (!InField)
	{
		return;
	}
	OutReference.MemberName = InField->GetFName();
	UClass* const Owner = InField->GetOwnerClass();
	OutReference.MemberParent = Owner ? static_cast<UObject*>(Owner->GetAuthoritativeClass())
									  : static_cast<UObject*>(InField->GetOutermost());
}

UFunction* FMemberReference::ResolveSimpleMemberReference(const FSimpleMemberReference& Reference, UClass* SelfScope)
{
	FMemberReference Full;
	Full.MemberParent = Reference.MemberParent;
	Full.MemberName = Reference.MemberName;
	Full.MemberGuid = Reference.MemberGuid;
	Full.bSelfContext = Reference.MemberParent == nullptr;
	return Full.ResolveFunction(SelfScope);
}
