#include "K2Node_MathExpression.h"

#include "BlueprintActionDatabaseRegistrar.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_CallFunction.h"
#include "Kismet2/CompilerResultsLog.h"
#include "Kismet2/Kismet2NameValidators.h"
#include "MathExpressionFunctions.h"
#include "MathExpressionParser.h"
#include "Standalone/NativeClass.h"

IMPLEMENT_EDITOR_CLASS(UK2Node_MathExpression, "/Script/BlueprintGraph", CLASS_None)

void UK2Node_MathExpression::DescribeClass(FClassDescriber& Class)
{
	Class.Property(TEXT("Expression"), &UK2Node_MathExpression::Expression);
	Class.Property(TEXT("bMadeAfterRotChange"), &UK2Node_MathExpression::bMadeAfterRotChange);
}

namespace MathExpressions
{
/** What a part of the formula gives: the pin of a node, or a literal that becomes the default of the pin it goes to. */
struct FValue
{
	UEdGraphPin* Pin = nullptr;
	FString Literal;
	FEdGraphPinType Type;
};

static FEdGraphPinType TypeOf(FName Category)
{
	FEdGraphPinType Type;
	Type.PinCategory = Category;
	Type.PinSubCategory = Category == UEdGraphSchema_K2::PC_Real ? UEdGraphSchema_K2::PC_Double : FName();
	return Type;
}

/** Builds the calls of one formula from the innermost outwards. */
class FGenerator
{
public:
	FGenerator(UEdGraph& InGraph, UK2Node_Tunnel& InEntry)
		: Graph(InGraph)
		, Entry(InEntry)
	{
	}

	bool Build(const FMathExpression& Part, int32 Column, FValue& Out)
	{
		using EKind = FMathExpression::EKind;
		switch (Part.Kind)
		{
		case EKind::Integer:
			Out = {nullptr, Part.Text, TypeOf(UEdGraphSchema_K2::PC_Int)};
			return true;
		case EKind::Real:
			Out = {nullptr, Part.Text, TypeOf(UEdGraphSchema_K2::PC_Real)};
			return true;
		case EKind::Boolean:
			Out = {nullptr, Part.Text.ToLower(), TypeOf(UEdGraphSchema_K2::PC_Boolean)};
			return true;
		case EKind::Variable:
			Out.Pin = Entry.FindPin(FName(Part.Text), EGPD_Output);
			Out.Type = Out.Pin ? Out.Pin->PinType : FEdGraphPinType();
			return Out.Pin != nullptr;
		default:
			return BuildCall(Part, Column, Out);
		}
	}

	FString Error;

private:
	bool BuildCall(const FMathExpression& Part, int32 Column, FValue& Out)
	{
		TArray<FValue> Values;
		TArray<FEdGraphPinType> Types;
		for (const TSharedPtr<FMathExpression>& Operand : Part.Operands)
		{
			FValue Value;
			if (!Build(*Operand, Column - 1, Value))
			{
				return false;
			}
			Types.Add(Value.Type);
			Values.Add(MoveTemp(Value));
		}
		const bool bMinus = Part.Kind == FMathExpression::EKind::Unary && Part.Text == TEXT("-");
		if (bMinus && !Values[0].Pin)
		{
			Out = Values[0];
			Out.Literal = TEXT("-") + Out.Literal;
			return true;
		}
		const bool bNumber = bMinus
			&& (Types[0].PinCategory == UEdGraphSchema_K2::PC_Int
				|| Types[0].PinCategory == UEdGraphSchema_K2::PC_Real);
		if (bNumber)
		{
			// There is no function that only changes a number's sign.
			Values.Insert(FValue{nullptr, TEXT("0"), Types[0]}, 0);
			Types.Insert(FEdGraphPinType(Types[0]), 0);
		}
		const UFunction* const Function = Part.Kind == FMathExpression::EKind::Call
			? MathExpressionFunctions::FindFunction(Part.Text, Types, Error)
			: MathExpressionFunctions::FindOperator(Part.Text, Types, Error);
		return Function && Place(*Function, Values, Column, Out);
	}

	bool Place(const UFunction& Function, const TArray<FValue>& Values, int32 Column, FValue& Out)
	{
		static constexpr int32 ColumnWidth = 250;
		static constexpr int32 RowHeight = 120;
		FGraphNodeCreator<UK2Node_CallFunction> Creator(Graph);
		UK2Node_CallFunction* const Node = Creator.CreateNode(false);
		Node->SetFromFunction(&Function);
		Node->NodePosX = Column * ColumnWidth;
		Node->NodePosY = NextRow++ * RowHeight;
		Creator.Finalize();
		const TArray<const FProperty*> Inputs = MathExpressionFunctions::InputsOf(Function);
		const UEdGraphSchema_K2* const Schema = GetDefault<UEdGraphSchema_K2>();
		for (int32 Index = 0; Index < Values.Num(); ++Index)
		{
			UEdGraphPin* const Input = Node->FindPin(Inputs[Index]->GetFName(), EGPD_Input);
			if (Values[Index].Pin && !Schema->TryCreateConnection(Values[Index].Pin, Input))
			{
				Error = FString::Printf(TEXT("%s cannot go into '%s'."),
					*UEdGraphSchema_K2::TypeToText(Values[Index].Type).ToString(), *Input->GetName());
				return false;
			}
			if (!Values[Index].Pin)
			{
				Schema->TrySetDefaultValue(*Input, Values[Index].Literal);
			}
		}
		Out.Pin = Node->GetReturnValuePin();
		Out.Type = Out.Pin ? Out.Pin->PinType : FEdGraphPinType();
		return Out.Pin != nullptr;
	}

	UEdGraph& Graph;
	UK2Node_Tunnel& Entry;
	int32 NextRow = 0;
};

/** The types that an author gave variables before, by name. */
static TMap<FName, FEdGraphPinType> KnownTypes(const UK2Node_Tunnel& Entry)
{
	TMap<FName, FEdGraphPinType> Types;
	for (const TSharedPtr<FUserPinInfo>& Info : Entry.UserDefinedPins)
	{
		Types.Add(Info->PinName, Info->PinType);
	}
	return Types;
}

static void RemoveUserPins(UK2Node_Tunnel& Tunnel, TFunctionRef<bool(FName)> IsWanted)
{
	const TArray<TSharedPtr<FUserPinInfo>> Infos = Tunnel.UserDefinedPins;
	for (const TSharedPtr<FUserPinInfo>& Info : Infos)
	{
		if (!IsWanted(Info->PinName))
		{
			Tunnel.RemoveUserDefinedPinByName(Info->PinName);
		}
	}
}
} // namespace MathExpressions

void UK2Node_MathExpression::ClearInnerGraph()
{
	const TArray<TObjectPtr<UEdGraphNode>> Nodes = BoundGraph->Nodes;
	for (UEdGraphNode* const Node : Nodes)
	{
		if (!ExactCast<UK2Node_Tunnel>(Node))
		{
			Node->DestroyNode();
		}
	}
}

void UK2Node_MathExpression::TellError(const FString& Error)
{
	BuildError = Error;
	bHasCompilerMessage = !Error.IsEmpty();
	ErrorType = Error.IsEmpty() ? 0 : static_cast<int32>(EMessageSeverity::Error);
	ErrorMsg = Error;
}

void UK2Node_MathExpression::RebuildExpression(FString InExpression)
{
	Modify();
	Expression = MoveTemp(InExpression);
	FixUpTunnels();
	UK2Node_Tunnel* const Entry = GetEntryNode();
	UK2Node_Tunnel* const Exit = GetExitNode();
	if (!BoundGraph || !Entry || !Exit)
	{
		return;
	}
	const TMap<FName, FEdGraphPinType> Types = MathExpressions::KnownTypes(*Entry);
	ClearInnerGraph();
	FString Error;
	const TSharedPtr<FMathExpression> Formula = MathExpressionParser::Parse(Expression, Error);
	TArray<FString> Variables;
	if (Formula)
	{
		MathExpressionParser::CollectVariables(*Formula, Variables);
	}
	MathExpressions::RemoveUserPins(*Entry, [](FName) { return false; });
	MathExpressions::RemoveUserPins(*Exit, [](FName) { return false; });
	for (const FString& Name : Variables)
	{
		const FEdGraphPinType* const Known = Types.Find(FName(Name));
		Entry->CreateUserDefinedPin(
			FName(Name), Known ? *Known : MathExpressions::TypeOf(UEdGraphSchema_K2::PC_Real), EGPD_Output, false);
	}
	MathExpressions::FValue Result;
	MathExpressions::FGenerator Generator(*BoundGraph, *Entry);
	const bool bBuilt = Formula && Generator.Build(*Formula, 0, Result);
	if (bBuilt)
	{
		UEdGraphPin* const Output = Exit->CreateUserDefinedPin(
			UEdGraphSchema_K2::PN_ReturnValue, Result.Type, EGPD_Input, false);
		if (Result.Pin)
		{
			GetK2Schema()->TryCreateConnection(Result.Pin, Output);
		}
		else
		{
			GetK2Schema()->TrySetDefaultValue(*Output, Result.Literal);
		}
	}
	else
	{
		ClearInnerGraph();
	}
	TellError(bBuilt ? FString() : Error.IsEmpty() ? Generator.Error : Error);
	Super::ReconstructNode();
}

void UK2Node_MathExpression::OnRenameNode(const FString& NewName)
{
	RebuildExpression(NewName);
}

TSharedPtr<INameValidatorInterface> UK2Node_MathExpression::MakeNameValidator() const
{
	return MakeShared<FDummyNameValidator>(EValidatorResult::Ok);
}

void UK2Node_MathExpression::PostPlacedNewNode()
{
	Super::PostPlacedNewNode();
	bMadeAfterRotChange = true;
	bIsEditable = true;
}

void UK2Node_MathExpression::ReconstructNode()
{
	if (Expression.IsEmpty() || !BoundGraph)
	{
		Super::ReconstructNode();
		return;
	}
	RebuildExpression(Expression);
}

FText UK2Node_MathExpression::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	if (Expression.IsEmpty())
	{
		return TitleType == ENodeTitleType::MenuTitle
			? NSLOCTEXT("K2Node", "MathExpressionMenuTitle", "Add Math Expression...")
			: NSLOCTEXT("K2Node", "MathExpressionTitle", "Math Expression");
	}
	return FText::FromString(
		TitleType == ENodeTitleType::FullTitle ? Expression + TEXT("\nMath Expression") : Expression);
}

FText UK2Node_MathExpression::GetTooltipText() const
{
	return Expression.IsEmpty()
		? NSLOCTEXT("K2Node", "MathExpressionTooltip", "A formula as one node; its name is the formula")
		: FText::FromString(Expression);
}

FText UK2Node_MathExpression::GetMenuCategory() const
{
	return FText::GetEmpty();
}

void UK2Node_MathExpression::GetMenuActions(FBlueprintActionDatabaseRegistrar& ActionRegistrar) const
{
	ActionRegistrar.AddBlueprintAction(UBlueprintNodeSpawner::Create(GetClass()));
}

void UK2Node_MathExpression::ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const
{
	Super::ValidateNodeDuringCompilation(MessageLog);
	FString Error = BuildError;
	if (Error.IsEmpty() && !MathExpressionParser::Parse(Expression, Error))
	{
		Error = Expression.IsEmpty() ? FString(TEXT("The formula is empty.")) : Error;
	}
	if (!Error.IsEmpty())
	{
		MessageLog.Error(*FString::Printf(TEXT("%s (in @@)"), *Error), this);
	}
}
