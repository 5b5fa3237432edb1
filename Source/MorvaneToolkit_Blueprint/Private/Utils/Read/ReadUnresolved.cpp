#include "Utils/Read/ReadUnresolved.h"

#include "Dom/JsonObject.h"
#include "EdGraph/EdGraphNode.h"
#include "UObject/PropertyBagRepository.h"
#include "UObject/UnrealType.h"

namespace ReadUnresolved
{
/** The paths in the order of the node's properties and pins, each once. */
struct FPaths
{
	TArray<TSharedPtr<FJsonValue>> Values;
	TArray<const UObject*> Seen;

	void Add(const UObject* Object)
	{
		if (Object && !Seen.Contains(Object) && IsUnresolved(Object))
		{
			Seen.Add(Object);
			Values.Add(MakeShared<FJsonValueString>(Object->GetPathName()));
		}
	}
	/** References that the struct or object holds itself or in a struct of its own, as those to members are. */
	void AddFrom(const UStruct* Type, const void* Container, int32 Depth)
	{
		for (TFieldIterator<FProperty> It(Type); It; ++It)
		{
			if (const FObjectProperty* const Reference = CastField<FObjectProperty>(*It))
			{
				Add(Reference->GetObjectPropertyValue_InContainer(Container));
			}
			else if (const FStructProperty* const Struct = Depth > 0 ? CastField<FStructProperty>(*It) : nullptr)
			{
				AddFrom(Struct->Struct, Struct->ContainerPtrToValuePtr<void>(Container), Depth - 1);
			}
		}
	}
};

bool IsUnresolved(const UObject* Object)
{
	using FRepository = UE::FPropertyBagRepository;
	const UStruct* const Struct = Cast<UStruct>(Object);
	const UEnum* const Enum = Cast<UEnum>(Object);
	return FRepository::IsPropertyBagPlaceholderType(Struct) || FRepository::IsPropertyBagPlaceholderType(Enum)
		|| (!Struct && !Enum && FRepository::IsPropertyBagPlaceholderObject(Object));
}

void SetFlag(FJsonObject& Json, const UObject* Object)
{
	if (IsUnresolved(Object))
	{
		Json.SetBoolField(TEXT("unresolved"), true);
	}
}

void SetPaths(FJsonObject& Json, const UEdGraphNode& Node)
{
	FPaths Paths;
	Paths.AddFrom(Node.GetClass(), &Node, 1);
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		Paths.Add(Pin ? Pin->DefaultObject.Get() : nullptr);
	}
	if (!Paths.Values.IsEmpty())
	{
		Json.SetArrayField(TEXT("unresolved"), MoveTemp(Paths.Values));
	}
	else
	{
		// A node of an unknown class: its full title has the path.
		SetFlag(Json, &Node);
	}
}
} // namespace ReadUnresolved
