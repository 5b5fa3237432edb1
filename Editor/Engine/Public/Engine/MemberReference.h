#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphPin.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"

class UBlueprint;

/**
 * A reference to a variable, function or delegate: by name in a class, in the owner's own class ("self context"), or in
 * a function's local scope. The guid survives renaming of a Blueprint's own members.
 */
struct FMemberReference
{
	EDITOR_STRUCT(FMemberReference)

	void SetExternalMember(FName InMemberName, TSubclassOf<UObject> InMemberParentClass);
	void SetExternalMember(FName InMemberName, TSubclassOf<UObject> InMemberParentClass, FGuid& InMemberGuid);
	void SetGlobalField(FName InFieldName, UPackage* InParentPackage);
	void SetSelfMember(FName InMemberName);
	void SetSelfMember(FName InMemberName, FGuid& InMemberGuid);
	void SetLocalMember(FName InMemberName, FString InScopeName, FGuid InMemberGuid);
	/** Self context when the field's owner is the Blueprint's class or above it, else external. */
	void SetFromField(const FProperty* InField, bool bIsConsideredSelfContext);
	void SetFromField(const UFunction* InField, bool bIsConsideredSelfContext);
	/** The same with the kind of member named, as in SetFromField<FProperty>(Member, true). */
	template <class TFieldType, class TScope>
	void SetFromField(const TFieldType* InField, TScope SelfContextOrScope)
	{
		if constexpr (std::is_base_of_v<FProperty, TFieldType>)
		{
			SetFromField(static_cast<const FProperty*>(InField), SelfContextOrScope);
		}
		else
		{
			SetFromField(static_cast<const UFunction*>(InField), SelfContextOrScope);
		}
	}
	void SetDirect(FName InMemberName, FGuid InMemberGuid, TSubclassOf<UObject> InMemberParentClass,
		bool bIsConsideredSelfContext);

	FName GetMemberName() const { return MemberName; }
	void SetMemberName(FName NewName) { MemberName = NewName; }
	FGuid GetMemberGuid() const { return MemberGuid; }
	/** The class the reference names; null in self context. */
	UClass* GetMemberParentClass() const;
	UClass* GetMemberParentClass(UClass* SelfScope) const;
	UObject* GetMemberParentObject() const { return MemberParent; }
	UStruct* GetMemberScope(const UClass* InMemberParentClass) const;
	FString GetMemberScopeName() const { return MemberScope; }
	bool IsSelfContext() const { return bSelfContext; }
	bool IsLocalScope() const { return !MemberScope.IsEmpty(); }
	/** The class to look in: the parent, or the given self. */
	UClass* GetScope(UClass* SelfScope) const { return bSelfContext ? SelfScope : GetMemberParentClass(); }

	/** The member itself, looked for in the scope and its supers; null when there is none. */
	UFunction* ResolveFunction(UClass* SelfScope = nullptr) const;
	FProperty* ResolveProperty(UClass* SelfScope = nullptr) const;
	template <class TFieldType>
	TFieldType* ResolveMember(UClass* SelfScope = nullptr) const
	{
		if constexpr (std::is_base_of_v<FField, TFieldType>)
		{
			return CastField<TFieldType>(ResolveProperty(SelfScope));
		}
		else
		{
			return Cast<TFieldType>(ResolveFunction(SelfScope));
		}
	}
	template <class TFieldType>
	TFieldType* ResolveMember(UBlueprint* SelfScope) const
	{
		return ResolveMember<TFieldType>(GetBlueprintSelfClass(SelfScope));
	}
	/** The skeleton class when it stands, since it knows what is not compiled yet. */
	static UClass* GetBlueprintSelfClass(UBlueprint* Blueprint);
	bool operator==(const FMemberReference& Other) const = default;
	/** Fills a pin's signature reference, and back. */
	static void FillSimpleMemberReference(const UFunction* InField, FSimpleMemberReference& OutReference);
	static UFunction* ResolveSimpleMemberReference(
		const FSimpleMemberReference& Reference, UClass* SelfScope = nullptr);

	UObject* MemberParent = nullptr;
	FString MemberScope;
	FName MemberName;
	FGuid MemberGuid;
	bool bSelfContext = false;
	bool bWasDeprecated = false;
};
