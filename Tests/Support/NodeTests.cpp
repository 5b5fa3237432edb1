#include "NodeTests.h"

#include "EdGraphSchema_K2.h"
#include "K2Node_MakeArray.h"

namespace NodeTests
{
const UFunction* Function(const TCHAR* ClassPath, const TCHAR* Name)
{
	return FindObject<UClass>(nullptr, ClassPath)->FindFunctionByName(FName(Name));
}

UScriptStruct* Struct(const TCHAR* Path)
{
	return FindObject<UScriptStruct>(nullptr, Path);
}

UEnum* Enum(const TCHAR* Path)
{
	return FindObject<UEnum>(nullptr, Path);
}

namespace
{
struct FSource
{
	const char* Type;
	const TCHAR* Library;
	const TCHAR* Function;
	const TCHAR* Pin;
};

const FSource Sources[] = {{"bool", Math, TEXT("RandomBool"), TEXT("ReturnValue")},
	{"byte", Math, TEXT("BMin"), TEXT("ReturnValue")}, {"int", Math, TEXT("RandomInteger"), TEXT("ReturnValue")},
	{"int64", Math, TEXT("Conv_IntToInt64"), TEXT("ReturnValue")}, {"real", Math, TEXT("FMin"), TEXT("ReturnValue")},
	{"vector", Math, TEXT("MakeVector"), TEXT("ReturnValue")},
	{"vector2d", Math, TEXT("MakeVector2D"), TEXT("ReturnValue")},
	{"rotator", Math, TEXT("MakeRotator"), TEXT("ReturnValue")},
	{"transform", Math, TEXT("MakeTransform"), TEXT("ReturnValue")},
	{"color", Math, TEXT("MakeColor"), TEXT("ReturnValue")}, {"datetime", Math, TEXT("Now"), TEXT("ReturnValue")},
	{"timespan", Math, TEXT("MakeTimespan"), TEXT("ReturnValue")},
	{"string", System, TEXT("GetObjectName"), TEXT("ReturnValue")},
	{"text", TEXT("/Script/Engine.KismetTextLibrary"), TEXT("Conv_StringToText"), TEXT("ReturnValue")},
	{"name", TEXT("/Script/Engine.KismetStringLibrary"), TEXT("Conv_StringToName"), TEXT("ReturnValue")},
	{"object", TEXT("/Script/Engine.GameplayStatics"), TEXT("GetPlayerController"), TEXT("ReturnValue")},
	{"pawn", TEXT("/Script/Engine.GameplayStatics"), TEXT("GetPlayerPawn"), TEXT("ReturnValue")}};
} // namespace

UEdGraphPin* Source(FGraphBuilder& Graph, const std::string& Type)
{
	if (Type.size() > 2 && Type.substr(Type.size() - 2) == "[]")
	{
		UK2Node_MakeArray* const Array = Graph.Add<UK2Node_MakeArray>();
		Connect(Source(Graph, Type.substr(0, Type.size() - 2)), Array->FindPin(TEXT("[0]")));
		return Array->GetOutputPin();
	}
	for (const FSource& Row : Sources)
	{
		if (Type == Row.Type)
		{
			return Graph.Call(Row.Library, Row.Function).Output(Row.Pin);
		}
	}
	return nullptr;
}

bool Connect(UEdGraphPin* From, UEdGraphPin* To)
{
	return From && To && From->GetSchema()->TryCreateConnection(From, To);
}

void Cut(UEdGraphPin* Pin)
{
	Pin->GetSchema()->BreakPinLinks(*Pin, true);
}

std::string TypeOf(const UEdGraphPin* Pin)
{
	return Pin ? ToStd(UEdGraphSchema_K2::TypeToText(Pin->PinType).ToString()) : "no pin";
}

std::string Names(const UEdGraphNode& Node, EEdGraphPinDirection Direction)
{
	std::string Text;
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		if (Pin->Direction == Direction)
		{
			Text += (Text.empty() ? "" : ",") + ToStd(Pin->GetName());
		}
	}
	return Text;
}

std::string DataPins(const UEdGraphNode& Node)
{
	std::string Text;
	for (const UEdGraphPin* const Pin : Node.Pins)
	{
		if (!Pin->bHidden && !UEdGraphSchema_K2::IsExecPin(*Pin))
		{
			Text += (Text.empty() ? "" : " ") + ToStd(Pin->GetName()) + ":" + TypeOf(Pin);
		}
	}
	return Text;
}
} // namespace NodeTests
