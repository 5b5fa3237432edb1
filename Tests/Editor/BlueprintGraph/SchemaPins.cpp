#include "SchemaPins.h"

#include "Engine/MemberReference.h"
#include "GraphBuilder.h"
#include "Session/EditorModules.h"
#include "UObject/Package.h"

#include <gtest/gtest.h>

namespace SchemaPins
{
template <class T>
static UObject* Find(const FString& Name)
{
	UObject* const Found = Name.Contains(TEXT("/")) ? StaticFindObject(T::StaticClass(), nullptr, *Name)
													: StaticFindFirstObject(T::StaticClass(), *Name);
	EXPECT_NE(Found, nullptr) << ToStd(Name);
	return Found;
}

static FEdGraphPinType ReadTerminal(const FString& Text)
{
	using FSchema = UEdGraphSchema_K2;
	FEdGraphPinType Type;
	FString Kind = Text;
	FString Name;
	if (!Text.Split(TEXT(":"), &Kind, &Name))
	{
		const bool bReal = Text == TEXT("float") || Text == TEXT("double");
		Type.PinCategory = bReal ? FSchema::PC_Real : Text == TEXT("index") ? FSchema::PC_Wildcard : FName(*Text);
		Type.PinSubCategory = bReal ? FName(*Text) : Text == TEXT("index") ? FSchema::PSC_Index : FName();
		return Type;
	}
	if (Kind == TEXT("d"))
	{
		Type.PinCategory = FSchema::PC_Delegate;
		FMemberReference::FillSimpleMemberReference(
			static_cast<UFunction*>(Find<UFunction>(Name)), Type.PinSubCategoryMemberReference);
		return Type;
	}
	const TPair<const TCHAR*, FName> Kinds[] = {{TEXT("o"), FSchema::PC_Object}, {TEXT("c"), FSchema::PC_Class},
		{TEXT("so"), FSchema::PC_SoftObject}, {TEXT("sc"), FSchema::PC_SoftClass}, {TEXT("i"), FSchema::PC_Interface},
		{TEXT("s"), FSchema::PC_Struct}, {TEXT("e"), FSchema::PC_Byte}};
	for (const TPair<const TCHAR*, FName>& Each : Kinds)
	{
		if (Kind == Each.Key)
		{
			Type.PinCategory = Each.Value;
		}
	}
	Type.PinSubCategoryObject = Type.PinCategory == FSchema::PC_Struct ? Find<UScriptStruct>(Name)
		: Type.PinCategory == FSchema::PC_Byte						   ? Find<UEnum>(Name)
																	   : Find<UClass>(Name);
	return Type;
}
} // namespace SchemaPins

FEdGraphPinType ReadPinType(const FString& Text)
{
	FString Rest = Text;
	const bool bConst = Rest.RemoveFromStart(TEXT("const "));
	const bool bReference = Rest.RemoveFromEnd(TEXT("&"));
	EPinContainerType Container = EPinContainerType::None;
	Container = Rest.RemoveFromEnd(TEXT("[]")) ? EPinContainerType::Array : Container;
	Container = Rest.RemoveFromEnd(TEXT("{}")) ? EPinContainerType::Set : Container;
	FString Key;
	FString Value;
	FEdGraphPinType Type;
	if (Rest.Split(TEXT("->"), &Key, &Value))
	{
		Type = SchemaPins::ReadTerminal(Key);
		Type.PinValueType = FEdGraphTerminalType::FromPinType(SchemaPins::ReadTerminal(Value));
		Container = EPinContainerType::Map;
	}
	else
	{
		Type = SchemaPins::ReadTerminal(Rest);
	}
	Type.ContainerType = Container;
	Type.bIsReference = bReference;
	Type.bIsConst = bConst;
	return Type;
}

UEdGraph* MakeLooseGraph()
{
	EditorModules::StartEditor();
	UEdGraph* const Graph = NewObject<UEdGraph>(GetTransientPackageAsObject());
	Graph->Schema = UEdGraphSchema_K2::StaticClass();
	return Graph;
}

UK2Node* MakeBareNode(UEdGraph& Graph)
{
	return static_cast<UK2Node*>(Graph.CreateNode(UK2Node::StaticClass(), false));
}

FPinPair::FPinPair(const FString& OutputType, const FString& InputType)
{
	Graph = MakeLooseGraph();
	OutputNode = MakeBareNode(*Graph);
	InputNode = MakeBareNode(*Graph);
	InputNode->NodePosX = 400;
	Output = OutputNode->CreatePin(EGPD_Output, ReadPinType(OutputType), TEXT("Out"));
	Input = InputNode->CreatePin(EGPD_Input, ReadPinType(InputType), TEXT("In"));
}

std::string FPinPair::Words() const
{
	return ToStd(Schema->CanCreateConnection(Output, Input).Message.ToString());
}
