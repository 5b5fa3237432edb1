// Links that need a node between: library functions that convert, and nodes of their own for casts, enums and lists.

#include "EdGraphSchema_K2.h"

#include "EdGraph/EdGraph.h"
#include "K2Node_CallFunction.h"
#include "K2Node_DynamicCast.h"
#include "UObject/UnrealType.h"

namespace PinConversions
{
using FSchema = UEdGraphSchema_K2;

/** A function that a link may insert by itself, with the types it leads from and to. */
struct FAutocast
{
	FEdGraphPinType From;
	FEdGraphPinType To;
	const UFunction* Function = nullptr;
};

/** Libraries whose "Conv_" functions convert without being asked. Those that may lose the value's meaning carry other
 * names. */
const TCHAR* const Libraries[] = {TEXT("/Script/Engine.KismetMathLibrary"), TEXT("/Script/Engine.KismetStringLibrary"),
	TEXT("/Script/Engine.KismetTextLibrary"), TEXT("/Script/Engine.KismetSystemLibrary"),
	TEXT("/Script/Engine.KismetGuidLibrary"), TEXT("/Script/Engine.KismetInputLibrary")};

bool IsAutocast(const UFunction& Function)
{
	static const FName AutocastKey(TEXT("BlueprintAutocast"));
	// Loading what a soft reference names is a step of its own, with a node that waits for nothing.
	static const TSet<FName> Named = {FName(TEXT("FTrunc")), FName(TEXT("Key_GetDisplayName"))};
	static const TSet<FName> Never = {FName(TEXT("Conv_SoftObjectReferenceToObject")),
		FName(TEXT("Conv_SoftClassReferenceToClass")), FName(TEXT("Conv_FloatToDouble")),
		FName(TEXT("Conv_DoubleToFloat"))};
	if (!Function.HasAllFunctionFlags(static_cast<EFunctionFlags>(FUNC_Static | FUNC_BlueprintPure)))
	{
		return false;
	}
	if (Never.Contains(Function.GetFName()))
	{
		return false;
	}
	return Named.Contains(Function.GetFName()) || Function.HasMetaData(AutocastKey)
		|| Function.GetName().StartsWith(TEXT("Conv_"), ESearchCase::CaseSensitive);
}

void AddFrom(const UClass& Library, TArray<FAutocast>& Out)
{
	for (TFieldIterator<UFunction> It(&Library, EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		const FProperty* const Return = It->GetReturnProperty();
		const FProperty* First = nullptr;
		for (TFieldIterator<FProperty> Param(*It, EFieldIteratorFlags::ExcludeSuper); Param && !First; ++Param)
		{
			First = Param->HasAnyPropertyFlags(CPF_Parm) ? *Param : nullptr;
		}
		FAutocast Row;
		Row.Function = *It;
		if (First && Return && First != Return && IsAutocast(**It)
			&& FSchema::ConvertPropertyToPinTypeStatic(First, Row.From)
			&& FSchema::ConvertPropertyToPinTypeStatic(Return, Row.To))
		{
			Out.Add(Row);
		}
	}
}

const TArray<FAutocast>& Autocasts()
{
	static const TArray<FAutocast> Table = []
	{
		TArray<FAutocast> Rows;
		for (const TCHAR* const Path : Libraries)
		{
			if (const UClass* const Library = FindObject<UClass>(nullptr, Path))
			{
				AddFrom(*Library, Rows);
			}
		}
		return Rows;
	}();
	return Table;
}

/** The plain type or the very same one: what a text, a number or a struct is converted from must be just that. */
bool TakesExactly(const FEdGraphPinType& Type, const FEdGraphPinType& Param)
{
	if (Type.PinCategory != Param.PinCategory || Type.IsContainer() || Param.IsContainer())
	{
		return false;
	}
	return Type.PinCategory == FSchema::PC_Real || Type.PinSubCategoryObject == Param.PinSubCategoryObject;
}

UClass* NodeClass(const TCHAR* Name)
{
	return FindObject<UClass>(nullptr, FString(TEXT("/Script/BlueprintGraph.")) + Name);
}

/** A node to be placed, without pins; null when the class is missing. */
UK2Node* MakeNode(const TCHAR* ClassName, const UEdGraphPin& InputPin)
{
	UClass* const Class = NodeClass(ClassName);
	UEdGraph* const Graph = InputPin.GetOwningNode()->GetGraph();
	return Class && Graph ? NewObject<UK2Node>(Graph, Class, NAME_None, RF_Transactional) : nullptr;
}

void SetObject(UK2Node& Node, const TCHAR* Property, UObject* Value)
{
	if (const FObjectPropertyBase* const Member = FindFProperty<FObjectPropertyBase>(Node.GetClass(), Property))
	{
		Member->SetObjectPropertyValue_InContainer(&Node, Value);
	}
}

/** What kind of node leads from one type to another, beside library functions. */
enum class ENode : uint8
{
	None,
	MakeArray,
	EnumToString,
	EnumToName,
	ByteToEnum,
	LoadSoft,
	CastObject,
	CastClass,
};

bool IsEnum(const FEdGraphPinType& Type)
{
	return Type.PinCategory == FSchema::PC_Byte && Cast<UEnum>(Type.PinSubCategoryObject.Get());
}

/** A cast makes sense where an object of the one class may be of the other. */
bool MayBe(const FEdGraphPinType& From, const FEdGraphPinType& To)
{
	const UClass* const FromClass = Cast<UClass>(From.PinSubCategoryObject.Get());
	const UClass* const ToClass = Cast<UClass>(To.PinSubCategoryObject.Get());
	if (!FromClass || !ToClass)
	{
		return false;
	}
	return ToClass->IsChildOf(FromClass)
		|| ToClass->GetAuthoritativeClass()->IsChildOf(FromClass->GetAuthoritativeClass());
}

ENode FindReferenceNode(const FEdGraphPinType& From, const FEdGraphPinType& To)
{
	const FName Out = From.PinCategory;
	const FName In = To.PinCategory;
	const bool bSoftObject = Out == FSchema::PC_SoftObject && In == FSchema::PC_Object;
	const bool bSoftClass = Out == FSchema::PC_SoftClass && In == FSchema::PC_Class;
	if (bSoftObject || bSoftClass)
	{
		const UClass* const FromClass = Cast<UClass>(From.PinSubCategoryObject.Get());
		const UClass* const ToClass = Cast<UClass>(To.PinSubCategoryObject.Get());
		return FromClass && ToClass && FromClass->IsChildOf(ToClass) ? ENode::LoadSoft : ENode::None;
	}
	if (Out == FSchema::PC_Object && In == FSchema::PC_Object)
	{
		return MayBe(From, To) ? ENode::CastObject : ENode::None;
	}
	if (Out == FSchema::PC_Interface && In == FSchema::PC_Object)
	{
		// To the plain object a function leads; a cast says which class it should be.
		return To.PinSubCategoryObject != UObject::StaticClass() ? ENode::CastObject : ENode::None;
	}
	return Out == FSchema::PC_Class && In == FSchema::PC_Class && MayBe(From, To) ? ENode::CastClass : ENode::None;
}

ENode FindNode(const FSchema& Schema, const FEdGraphPinType& From, const FEdGraphPinType& To)
{
	if (!From.IsContainer() && To.IsArray() && To.PinCategory != FSchema::PC_Wildcard
		&& From.PinCategory != FSchema::PC_Exec && From.PinCategory != FSchema::PC_Wildcard)
	{
		return Schema.ArePinTypesCompatible(From, To, nullptr, true) ? ENode::MakeArray : ENode::None;
	}
	if (From.IsContainer() || To.IsContainer())
	{
		return ENode::None;
	}
	if (IsEnum(From) && To.PinCategory == FSchema::PC_String)
	{
		return ENode::EnumToString;
	}
	if (IsEnum(From) && To.PinCategory == FSchema::PC_Name)
	{
		return ENode::EnumToName;
	}
	if (From.PinCategory == FSchema::PC_Byte && !IsEnum(From) && IsEnum(To))
	{
		return ENode::ByteToEnum;
	}
	return FindReferenceNode(From, To);
}

UK2Node* CreateNode(ENode Kind, const UEdGraphPin& InputPin)
{
	UObject* const Object = InputPin.PinType.PinSubCategoryObject.Get();
	switch (Kind)
	{
	case ENode::MakeArray:
		return MakeNode(TEXT("K2Node_MakeArray"), InputPin);
	case ENode::EnumToString:
		return MakeNode(TEXT("K2Node_GetEnumeratorNameAsString"), InputPin);
	case ENode::EnumToName:
		return MakeNode(TEXT("K2Node_GetEnumeratorName"), InputPin);
	case ENode::LoadSoft:
		return MakeNode(TEXT("K2Node_ConvertAsset"), InputPin);
	case ENode::ByteToEnum:
		if (UK2Node* const Node = MakeNode(TEXT("K2Node_CastByteToEnum"), InputPin))
		{
			SetObject(*Node, TEXT("Enum"), Object);
			return Node;
		}
		return nullptr;
	case ENode::CastObject:
	case ENode::CastClass:
		if (UK2Node* const Node = MakeNode(
				Kind == ENode::CastObject ? TEXT("K2Node_DynamicCast") : TEXT("K2Node_ClassDynamicCast"), InputPin))
		{
			UK2Node_DynamicCast* const CastNode = static_cast<UK2Node_DynamicCast*>(Node);
			CastNode->TargetType = Cast<UClass>(Object);
			// Between two value pins no execution passes, so the cast is evaluated where its value is asked for.
			CastNode->bIsPureCast = true;
			return Node;
		}
		return nullptr;
	case ENode::None:
		break;
	}
	return nullptr;
}

bool NodeExists(ENode Kind)
{
	const TCHAR* const Names[] = {TEXT(""), TEXT("K2Node_MakeArray"), TEXT("K2Node_GetEnumeratorNameAsString"),
		TEXT("K2Node_GetEnumeratorName"), TEXT("K2Node_CastByteToEnum"), TEXT("K2Node_ConvertAsset"),
		TEXT("K2Node_DynamicCast"), TEXT("K2Node_ClassDynamicCast")};
	return Kind != ENode::None && NodeClass(Names[static_cast<int32>(Kind)]);
}

/** Puts the node halfway between the two and gives it its pins. */
void Place(UK2Node& Node, UEdGraph& Graph, const UEdGraphNode& From, const UEdGraphNode& To)
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

bool IsPlainLink(ECanCreateConnectionResponse Response)
{
	return Response == CONNECT_RESPONSE_MAKE || Response == CONNECT_RESPONSE_BREAK_OTHERS_A
		|| Response == CONNECT_RESPONSE_BREAK_OTHERS_B || Response == CONNECT_RESPONSE_BREAK_OTHERS_AB;
}

/** Links the given pin to the first shown pin of the node that takes it as it is. */
bool Wire(const FSchema& Schema, UEdGraphPin& Pin, const UK2Node& Node)
{
	const TArray<UEdGraphPin*> Candidates = Node.Pins;
	for (UEdGraphPin* const Candidate : Candidates)
	{
		if (Candidate->Direction != Pin.Direction && !Candidate->bHidden && !FSchema::IsExecPin(*Candidate)
			&& IsPlainLink(Schema.CanCreateConnection(&Pin, Candidate).Response))
		{
			return Schema.TryCreateConnection(&Pin, Candidate);
		}
	}
	return false;
}
} // namespace PinConversions

bool UEdGraphSchema_K2::SearchForAutocastFunction(const FEdGraphPinType& OutputPinType,
	const FEdGraphPinType& InputPinType, FName& TargetFunction, UClass*& FunctionOwner) const
{
	using namespace PinConversions;
	if (OutputPinType.IsContainer() || InputPinType.IsContainer() || OutputPinType.PinCategory == PC_Wildcard
		|| InputPinType.PinCategory == PC_Wildcard || OutputPinType.PinCategory == PC_Exec
		|| InputPinType.PinCategory == PC_Exec)
	{
		return false;
	}
	const FAutocast* Best = nullptr;
	for (const FAutocast& Row : Autocasts())
	{
		if (!TakesExactly(Row.To, InputPinType))
		{
			continue;
		}
		if (TakesExactly(OutputPinType, Row.From))
		{
			Best = &Row;
			break;
		}
		// An enum goes where a byte goes, and a child class where its parent does.
		if (!Best && ArePinTypesCompatible(OutputPinType, Row.From))
		{
			Best = &Row;
		}
	}
	if (!Best)
	{
		return false;
	}
	TargetFunction = Best->Function->GetFName();
	FunctionOwner = Best->Function->GetOwnerClass();
	return true;
}

bool UEdGraphSchema_K2::FindSpecializedConversionNode(
	const FEdGraphPinType& OutputPinType, const UEdGraphPin& InputPin, bool bCreateNode, UK2Node*& TargetNode) const
{
	using namespace PinConversions;
	TargetNode = nullptr;
	const ENode Kind = FindNode(*this, OutputPinType, InputPin.PinType);
	if (!NodeExists(Kind))
	{
		return false;
	}
	if (bCreateNode)
	{
		TargetNode = CreateNode(Kind, InputPin);
	}
	return !bCreateNode || TargetNode;
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
	UK2Node* Node = nullptr;
	FName FunctionName;
	UClass* Owner = nullptr;
	if (!FindSpecializedConversionNode(Output->PinType, *Input, true, Node)
		&& SearchForAutocastFunction(Output->PinType, Input->PinType, FunctionName, Owner))
	{
		UK2Node_CallFunction* const Call = NewObject<UK2Node_CallFunction>(
			Graph, UK2Node_CallFunction::StaticClass(), NAME_None, RF_Transactional);
		Call->SetFromFunction(Owner->FindFunctionByName(FunctionName));
		Node = Call;
	}
	if (!Node)
	{
		return false;
	}
	Place(*Node, *Graph, *Output->GetOwningNode(), *Input->GetOwningNode());
	if (!Wire(*this, *Output, *Node) || !Wire(*this, *Input, *Node))
	{
		Node->DestroyNode();
		return false;
	}
	return true;
}
