#include "Engine/InheritableComponentHandler.h"

#include "Components/ActorComponent.h"
#include "ConstructionScriptNodes.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Engine/SCS_Node.h"
#include "Engine/SimpleConstructionScript.h"
#include "InheritedTemplates.h"
#include "Standalone/NativeClass.h"
#include "Standalone/ObjectProviders.h"

IMPLEMENT_EDITOR_CLASS(UInheritableComponentHandler, "/Script/Engine", CLASS_None)
IMPLEMENT_EDITOR_STRUCT(FComponentKey, "/Script/Engine")
IMPLEMENT_EDITOR_STRUCT(FComponentOverrideRecord, "/Script/Engine")

void FComponentKey::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("OwnerClass"), &FComponentKey::OwnerClass);
	Struct.Property(TEXT("SCSVariableName"), &FComponentKey::SCSVariableName);
	Struct.Property(TEXT("AssociatedGuid"), &FComponentKey::AssociatedGuid);
}

void FComponentOverrideRecord::DescribeStruct(FStructDescriber& Struct)
{
	Struct.Property(TEXT("ComponentClass"), &FComponentOverrideRecord::ComponentClass);
	Struct.Property(TEXT("ComponentTemplate"), &FComponentOverrideRecord::ComponentTemplate);
	Struct.Property(TEXT("ComponentKey"), &FComponentOverrideRecord::ComponentKey);
}

void UInheritableComponentHandler::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("Records"), &UInheritableComponentHandler::Records);
}

FComponentKey::FComponentKey(const USCS_Node* SCSNode)
{
	const USimpleConstructionScript* const Script = SCSNode ? SCSNode->GetSCS() : nullptr;
	if (Script)
	{
		OwnerClass = Script->GetOwnerClass();
		SCSVariableName = SCSNode->GetVariableName();
		AssociatedGuid = SCSNode->VariableGuid;
	}
}

bool FComponentKey::Match(const FComponentKey& OtherKey) const
{
	const bool bByGuid = AssociatedGuid.IsValid() && OtherKey.AssociatedGuid.IsValid();
	return OwnerClass == OtherKey.OwnerClass
		&& (bByGuid ? AssociatedGuid == OtherKey.AssociatedGuid : SCSVariableName == OtherKey.SCSVariableName);
}

USCS_Node* FComponentKey::FindSCSNode() const
{
	const UBlueprint* const Blueprint = UBlueprint::GetBlueprintFromClass(OwnerClass.Get());
	const USimpleConstructionScript* const Script = Blueprint ? Blueprint->SimpleConstructionScript.Get() : nullptr;
	if (!Script || !IsValid())
	{
		return nullptr;
	}
	for (USCS_Node* const Node : Script->GetAllNodes())
	{
		if (AssociatedGuid.IsValid() && Node->VariableGuid == AssociatedGuid)
		{
			return Node;
		}
	}
	return Script->FindSCSNode(SCSVariableName);
}

UActorComponent* FComponentKey::GetOriginalTemplate() const
{
	const USCS_Node* const Node = FindSCSNode();
	return Node ? Node->ComponentTemplate.Get() : nullptr;
}

UActorComponent* UInheritableComponentHandler::CreateOverridenComponentTemplate(const FComponentKey& Key)
{
	if (UActorComponent* const Present = GetOverridenComponentTemplate(Key))
	{
		return Present;
	}
	UClass* const Class = Cast<UClass>(GetOuter());
	const USCS_Node* const Node = Key.FindSCSNode();
	UActorComponent* const Nearest = Class && Node
		? Node->GetActualComponentTemplate(Cast<UBlueprintGeneratedClass>(Class->GetSuperClass()))
		: nullptr;
	if (!Nearest)
	{
		return nullptr;
	}
	Modify();
	RemoveOverridenComponentTemplate(Key);
	FName Name = ConstructionScriptNodes::TemplateName(Key.GetSCSVariableName());
	if (StaticFindObjectFast(nullptr, Class, Name))
	{
		Name = MakeUniqueObjectName(Class, Nearest->GetClass(), Name);
	}
	FComponentOverrideRecord Record;
	Record.ComponentClass = Nearest->GetClass();
	Record.ComponentTemplate = NewObject<UActorComponent>(Class, Nearest->GetClass(), Name,
		static_cast<EObjectFlags>(RF_ArchetypeObject | RF_Transactional | RF_Public), Nearest);
	Record.ComponentKey = Key;
	Records.Add(Record);
	return Record.ComponentTemplate.Get();
}

void UInheritableComponentHandler::RemoveOverridenComponentTemplate(const FComponentKey& Key)
{
	for (int32 Index = Records.Num() - 1; Index >= 0; --Index)
	{
		if (Records[Index].ComponentKey.Match(Key))
		{
			if (Records[Index].ComponentTemplate)
			{
				Records[Index].ComponentTemplate->MarkAsGarbage();
			}
			Records.RemoveAt(Index);
		}
	}
}

void UInheritableComponentHandler::ValidateTemplates()
{
	const TArray<FComponentOverrideRecord> Present = Records;
	for (const FComponentOverrideRecord& Record : Present)
	{
		const FComponentKey& Key = Record.ComponentKey;
		const UBlueprint* const Owner = UBlueprint::GetBlueprintFromClass(Key.GetComponentOwner());
		if (Owner && Owner->SimpleConstructionScript && !Key.FindSCSNode())
		{
			RemoveOverridenComponentTemplate(Key);
		}
	}
}

UActorComponent* UInheritableComponentHandler::GetOverridenComponentTemplate(const FComponentKey& InKey) const
{
	for (const FComponentOverrideRecord& Record : Records)
	{
		if (Record.ComponentKey.Match(InKey))
		{
			return Record.ComponentTemplate.Get();
		}
	}
	return nullptr;
}

FComponentKey UInheritableComponentHandler::FindKey(UActorComponent* ComponentTemplate) const
{
	for (const FComponentOverrideRecord& Record : Records)
	{
		if (Record.ComponentTemplate.Get() == ComponentTemplate)
		{
			return Record.ComponentKey;
		}
	}
	return FComponentKey();
}

void UInheritableComponentHandler::GetAllTemplates(TArray<UActorComponent*>& OutArray) const
{
	for (const FComponentOverrideRecord& Record : Records)
	{
		if (Record.ComponentTemplate)
		{
			OutArray.Add(Record.ComponentTemplate.Get());
		}
	}
}

namespace InheritedTemplates
{
/** A handler bears the name of its class; while its package is read, neither class nor Blueprint knows of it yet. */
static UInheritableComponentHandler* FindHandler(const UObject& Class)
{
	return Cast<UInheritableComponentHandler>(StaticFindObjectFast(UInheritableComponentHandler::StaticClass(),
		const_cast<UObject*>(&Class), TEXT("InheritableComponentHandler")));
}

static bool IsOverride(const UObject& Object)
{
	UActorComponent* const Template = Cast<UActorComponent>(const_cast<UObject*>(&Object));
	const UInheritableComponentHandler* const Handler = Template ? FindHandler(*Template->GetOuter()) : nullptr;
	return Handler && !Handler->FindKey(Template).GetSCSVariableName().IsNone();
}

/** The nearest parent's values go before those of the class that brings the component in. */
static UObject* FindArchetype(const UObject& Object)
{
	UActorComponent* const Template = Cast<UActorComponent>(const_cast<UObject*>(&Object));
	const UInheritableComponentHandler* const Handler = Template ? FindHandler(*Template->GetOuter()) : nullptr;
	const FComponentKey Key = Handler ? Handler->FindKey(Template) : FComponentKey();
	if (!Key.IsValid())
	{
		return nullptr;
	}
	const UClass* Class = static_cast<const UClass*>(Template->GetOuter())->GetSuperClass();
	for (; Class && Class != Key.GetComponentOwner(); Class = Class->GetSuperClass())
	{
		const UInheritableComponentHandler* const Above = FindHandler(*Class);
		if (UActorComponent* const Nearest = Above ? Above->GetOverridenComponentTemplate(Key) : nullptr)
		{
			return Nearest;
		}
	}
	return Class ? Key.GetOriginalTemplate() : nullptr;
}

void Register()
{
	ObjectProviders::SetTemplates({&IsOverride, &FindArchetype});
}
} // namespace InheritedTemplates
