#pragma once

#include "CoreMinimal.h"

class FProperty;
class UActorComponent;
class UBlueprint;
class USCS_Node;

/** The values that a Blueprint gives components which a parent Blueprint makes. */
class FInheritedComponent
{
public:
	/** The Blueprint's own template of the parent's component; it is made when there is none. */
	FInheritedComponent(UBlueprint& InBlueprint, const USCS_Node& InNode);
	/** Null where the Blueprint can have none. */
	UActorComponent* GetTemplate() const { return Template; }
	/** Takes a template that was made here and changes nothing away again. */
	void Forget();

private:
	UBlueprint& Blueprint;
	const USCS_Node& Node;
	UActorComponent* Template = nullptr;
	bool bMadeHandler = false;
	bool bMadeTemplate = false;
};

/** The templates in all Blueprints in memory that start from a parent's. Gathered once for a batch. */
class FInheritingTemplates
{
public:
	FInheritingTemplates();
	/** What starts from the template takes the new value of a property too, where it had the one from before. */
	void PassOn(const UActorComponent& Changed, const FProperty& Property, const void* ValueBefore) const;

private:
	TArray<UActorComponent*> Templates;
};
