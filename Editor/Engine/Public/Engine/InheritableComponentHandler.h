#pragma once

#include "CoreMinimal.h"
#include "Templates/SubclassOf.h"
#include "UObject/Object.h"

class UActorComponent;
class UBlueprint;
class USCS_Node;

/** Which component of a parent's construction script is meant: by the class that has it, and its variable. */
struct FComponentKey
{
	EDITOR_STRUCT(FComponentKey)

	FComponentKey() = default;
	explicit FComponentKey(const USCS_Node* SCSNode);

	/** The guid outlives a rename of the variable; where one of both has none, the name counts. */
	bool Match(const FComponentKey& OtherKey) const;
	bool IsValid() const { return OwnerClass && !SCSVariableName.IsNone(); }
	UClass* GetComponentOwner() const { return OwnerClass.Get(); }
	FName GetSCSVariableName() const { return SCSVariableName; }
	USCS_Node* FindSCSNode() const;
	/** The values that the class of the key gives it, before any child's. */
	UActorComponent* GetOriginalTemplate() const;

private:
	TObjectPtr<UClass> OwnerClass;
	FName SCSVariableName;
	FGuid AssociatedGuid;
};

/** The values that one class gives one inherited component. */
struct FComponentOverrideRecord
{
	EDITOR_STRUCT(FComponentOverrideRecord)

	TSubclassOf<UActorComponent> ComponentClass;
	TObjectPtr<UActorComponent> ComponentTemplate;
	FComponentKey ComponentKey;
};

/** What a Blueprint's class changes of components that it inherits from other Blueprints. */
class UInheritableComponentHandler : public UObject
{
	EDITOR_CLASS(UInheritableComponentHandler, UObject)

public:
	/** The class's own template of the component, made with the values of the nearest parent where there is none. Null
	 * for a component that no parent has. */
	UActorComponent* CreateOverridenComponentTemplate(const FComponentKey& Key);
	/** The component takes its parent's values again. */
	void RemoveOverridenComponentTemplate(const FComponentKey& Key);
	/** Drops what is about components that their own Blueprints have no more. */
	void ValidateTemplates();
	bool IsEmpty() const { return Records.IsEmpty(); }
	/** Null for a component that keeps its parent's values. */
	UActorComponent* GetOverridenComponentTemplate(const FComponentKey& InKey) const;
	/** The key of a template of this handler; not valid for another's. */
	FComponentKey FindKey(UActorComponent* ComponentTemplate) const;
	/** All templates, in the order of the records. */
	void GetAllTemplates(TArray<UActorComponent*>& OutArray) const;

private:
	TArray<FComponentOverrideRecord> Records;
};
