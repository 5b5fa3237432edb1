#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node.h"

#include <string>

/**
 * Pin types in a short form for tables: "int", "float" (real of single width), "double", "byte", "exec" ...; "o:Actor"
 * an object, "c:" a class, "so:" and "sc:" soft ones, "i:" an interface, "s:Vector" a struct, "e:ECollisionChannel" an
 * enum, "d:Path" a delegate of that signature; behind it "[]" for an array, "{}" for a set; "int->string" for a map;
 * "&" by reference, "const " before.
 */
FEdGraphPinType ReadPinType(const FString& Text);

/** Two bare nodes in a graph of no Blueprint, with one pin each. */
struct FPinPair
{
	FPinPair(const FString& OutputType, const FString& InputType);

	ECanCreateConnectionResponse Ask() const { return Schema->CanCreateConnection(Output, Input).Response; }
	std::string Words() const;

	const UEdGraphSchema_K2* Schema = GetDefault<UEdGraphSchema_K2>();
	UEdGraph* Graph = nullptr;
	UK2Node* OutputNode = nullptr;
	UK2Node* InputNode = nullptr;
	UEdGraphPin* Output = nullptr;
	UEdGraphPin* Input = nullptr;
};

/** A graph of no Blueprint; and a bare node in one. */
UEdGraph* MakeLooseGraph();
UK2Node* MakeBareNode(UEdGraph& Graph);
