// Links that need a node between: nodes of their own for casts, enums, lists and soft references, else the call of a
// library function.

#include "EdGraphSchema_K2.h"

#include "EdGraph/EdGraph.h"
#include "K2Node_CallFunction.h"
#include "K2Node_CastByteToEnum.h"
#include "K2Node_ClassDynamicCast.h"
#include "K2Node_ConvertAsset.h"
#include "K2Node_GetEnumeratorName.h"
#include "K2Node_GetEnumeratorNameAsString.h"
#include "K2Node_MakeArray.h"
#include "K2Node_VariableGet.h"
#include "UObject/UnrealType.h"

namespace PinConversions
{
using FSchema = UEdGraphSchema_K2;

/** What kind of node leads from one type to another, beside library functions. */
enum class ENode : uint8
{
	None,
	MakeArray,
	GetMember,
	EnumToString,
	EnumToName,
	ByteToEnum,
	ConvertAsset,
	CastObject,
	CastClass,
};

static const UClass* ClassOf(const FEdGraphPinType& Type)
{
	return Cast<UClass>(Type.PinSubCategoryObject.Get());
}

static bool IsEnum(const FEdGraphPinType& Type)
{
	return Type.PinCategory == FSchema::PC_Byte && Cast<UEnum>(Type.PinSubCategoryObject.Get());
}

/** Either class of a Blueprint may be the newer one, so those that stand for both are asked too. */
static bool IsChild(const UClass* Class, const UClass* Base)
{
	return Class && Base
		&& (Class->IsChildOf(Base) || Class->GetAuthoritativeClass()->IsChildOf(Base->GetAuthoritativeClass()));
}

/** The member to call on where the target that is wanted is not the object itself but a part of it: the mesh of a
 * character. Null when the pin is no target of a call or the object has no such member. */
static const FObjectProperty* FindMemberForTarget(const FEdGraphPinType& Output, const UEdGraphPin& Input)
{
	const UK2Node_CallFunction* const Call = Cast<UK2Node_CallFunction>(Input.GetOwningNode());
	const bool bHasObject = Output.PinCategory == FSchema::PC_Object && !Output.IsContainer();
	const UClass* const Target = Call && bHasObject && Call->GetSchema()->IsSelfPin(Input) ? ClassOf(Input.PinType)
																						   : nullptr;
	for (TFieldIterator<FObjectProperty> It(ClassOf(Output)); Target && It; ++It)
	{
		if (It->HasAllPropertyFlags(CPF_BlueprintVisible) && IsChild(It->PropertyClass, Target))
		{
			return *It;
		}
	}
	return nullptr;
}

static ENode FindEnumNode(const FEdGraphPinType& From, const FEdGraphPinType& To)
{
	if (IsEnum(From) && To.PinCategory == FSchema::PC_String)
	{
		return ENode::EnumToString;
	}
	if (IsEnum(From) && To.PinCategory == FSchema::PC_Name)
	{
		return ENode::EnumToName;
	}
	return From.PinCategory == FSchema::PC_Byte && !IsEnum(From) && IsEnum(To) ? ENode::ByteToEnum : ENode::None;
}

/** Soft references to what they name and back; casts where an object of the one class may be of the other. */
static ENode FindReferenceNode(const FEdGraphPinType& From, const FEdGraphPinType& To)
{
	const FName Out = From.PinCategory;
	const FName In = To.PinCategory;
	const auto Pairs = [Out, In](FName A, FName B) { return (Out == A && In == B) || (Out == B && In == A); };
	if (Pairs(FSchema::PC_SoftObject, FSchema::PC_Object) || Pairs(FSchema::PC_SoftClass, FSchema::PC_Class))
	{
		return IsChild(ClassOf(From), ClassOf(To)) ? ENode::ConvertAsset : ENode::None;
	}
	if (Out == FSchema::PC_Interface && In == FSchema::PC_Object)
	{
		// To the plain object a function leads; a cast says which class it should be.
		return ClassOf(To) != UObject::StaticClass() ? ENode::CastObject : ENode::None;
	}
	if (Out != In || !IsChild(ClassOf(To), ClassOf(From)))
	{
		return ENode::None;
	}
	return Out == FSchema::PC_Object ? ENode::CastObject : Out == FSchema::PC_Class ? ENode::CastClass : ENode::None;
}

static ENode FindNode(const FSchema& Schema, const FEdGraphPinType& From, const UEdGraphPin& Input)
{
	const FEdGraphPinType& To = Input.PinType;
	if (From.PinCategory == FSchema::PC_Exec)
	{
		return ENode::None;
	}
	if (!From.IsContainer() && To.IsArray())
	{
		return Schema.ArePinTypesCompatible(From, To, nullptr, true) ? ENode::MakeArray : ENode::None;
	}
	if (From.IsContainer() || To.IsContainer())
	{
		return ENode::None;
	}
	if (FindMemberForTarget(From, Input))
	{
		return ENode::GetMember;
	}
	const ENode EnumNode = FindEnumNode(From, To);
	return EnumNode != ENode::None ? EnumNode : FindReferenceNode(From, To);
}

/** A node to be placed, without pins. */
template <class T>
T* Make(UEdGraph& Graph)
{
	return NewObject<T>(&Graph, T::StaticClass(), NAME_None, RF_Transactional);
}

template <class T>
T* MakeCast(UEdGraph& Graph, const FEdGraphPinType& To)
{
	T* const Node = Make<T>(Graph);
	Node->TargetType = Cast<UClass>(To.PinSubCategoryObject.Get());
	// Between two value pins no execution passes, so the cast is evaluated where its value is asked for.
	Node->bIsPureCast = true;
	return Node;
}

static UK2Node* CreateNode(ENode Kind, UEdGraph& Graph, const FEdGraphPinType& From, const UEdGraphPin& Input)
{
	switch (Kind)
	{
	case ENode::MakeArray:
		return Make<UK2Node_MakeArray>(Graph);
	case ENode::EnumToString:
		return Make<UK2Node_GetEnumeratorNameAsString>(Graph);
	case ENode::EnumToName:
		return Make<UK2Node_GetEnumeratorName>(Graph);
	case ENode::ConvertAsset:
		return Make<UK2Node_ConvertAsset>(Graph);
	case ENode::CastObject:
		return MakeCast<UK2Node_DynamicCast>(Graph, Input.PinType);
	case ENode::CastClass:
		return MakeCast<UK2Node_ClassDynamicCast>(Graph, Input.PinType);
	case ENode::ByteToEnum:
	{
		UK2Node_CastByteToEnum* const Node = Make<UK2Node_CastByteToEnum>(Graph);
		Node->Enum = Cast<UEnum>(Input.PinType.PinSubCategoryObject.Get());
		return Node;
	}
	case ENode::GetMember:
	{
		UK2Node_VariableGet* const Node = Make<UK2Node_VariableGet>(Graph);
		const FObjectProperty* const Member = FindMemberForTarget(From, Input);
		Node->SetFromProperty(Member, false, Member->GetOwnerClass());
		return Node;
	}
	case ENode::None:
		break;
	}
	return nullptr;
}

/** Puts the node halfway between the two and gives it its pins. */
static void Place(UK2Node& Node, UEdGraph& Graph, const UEdGraphNode& From, const UEdGraphNode& To)
{
	Graph.Modify();
	Graph.AddNode(&Node, false, false);
	Node.NodePosX = (From.NodePosX + To.NodePosX) / 2;
	Node.NodePosY = (From.NodePosY + To.NodePosY) / 2;
	Node.CreateNewGuid();
	Node.PostPlacedNewNode();
	if (Node.Pins.IsEmpty())
	{
		Node.AllocateDefaultPins();
	}
}

/** Links the given pin to the first shown pin of the node that takes it as it is, or by a conversion where none does:
 * casts take objects, so an interface is made one before. */
static bool Wire(const FSchema& Schema, UEdGraphPin& Pin, const UK2Node& Node)
{
	UEdGraphPin* Converting = nullptr;
	for (UEdGraphPin* const Candidate : Node.Pins)
	{
		if (Candidate->Direction == Pin.Direction || Candidate->bHidden || FSchema::IsExecPin(*Candidate))
		{
			continue;
		}
		const ECanCreateConnectionResponse Response = Schema.CanCreateConnection(&Pin, Candidate).Response;
		if (Response == CONNECT_RESPONSE_MAKE_WITH_CONVERSION_NODE)
		{
			Converting = Converting ? Converting : Candidate;
		}
		else if (Response != CONNECT_RESPONSE_DISALLOW)
		{
			return Schema.TryCreateConnection(&Pin, Candidate);
		}
	}
	return Converting && Schema.TryCreateConnection(&Pin, Converting);
}

/** The call of a library function that converts, not yet placed; null when there is none. */
static UK2Node* CreateAutocastCall(
	const FSchema& Schema, UEdGraph& Graph, const FEdGraphPinType& From, const FEdGraphPinType& To)
{
	FName Function;
	UClass* Owner = nullptr;
	if (!Schema.SearchForAutocastFunction(From, To, Function, Owner))
	{
		return nullptr;
	}
	UK2Node_CallFunction* const Call = Make<UK2Node_CallFunction>(Graph);
	Call->SetFromFunction(Owner->FindFunctionByName(Function));
	return Call;
}
} // namespace PinConversions

bool UEdGraphSchema_K2::FindSpecializedConversionNode(
	const FEdGraphPinType& OutputPinType, const UEdGraphPin& InputPin, bool bCreateNode, UK2Node*& TargetNode) const
{
	using namespace PinConversions;
	const ENode Kind = FindNode(*this, OutputPinType, InputPin);
	TargetNode = bCreateNode ? CreateNode(Kind, *InputPin.GetOwningNode()->GetGraph(), OutputPinType, InputPin)
							 : nullptr;
	return Kind != ENode::None;
}

bool UEdGraphSchema_K2::CreateAutomaticConversionNodeAndConnections(UEdGraphPin* PinA, UEdGraphPin* PinB) const
{
	using namespace PinConversions;
	UEdGraphPin* Input = nullptr;
	UEdGraphPin* Output = nullptr;
	if (!CategorizePinsByDirection<UEdGraphPin>(PinA, PinB, Input, Output))
	{
		return false;
	}
	UEdGraph* const Graph = Input->GetOwningNode()->GetGraph();
	const int32 NumNodesBefore = Graph->Nodes.Num();
	UK2Node* Node = nullptr;
	if (!FindSpecializedConversionNode(Output->PinType, *Input, true, Node))
	{
		Node = CreateAutocastCall(*this, *Graph, Output->PinType, Input->PinType);
	}
	if (!Node)
	{
		return false;
	}
	Place(*Node, *Graph, *Output->GetOwningNode(), *Input->GetOwningNode());
	if (!Wire(*this, *Output, *Node) || !Wire(*this, *Input, *Node))
	{
		// The node, and what a conversion on its way to one of the pins has placed.
		while (Graph->Nodes.Num() > NumNodesBefore)
		{
			Graph->Nodes.Last()->DestroyNode();
		}
		return false;
	}
	return true;
}
