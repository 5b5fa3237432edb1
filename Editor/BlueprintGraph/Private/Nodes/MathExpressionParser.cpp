#include "MathExpressionParser.h"

namespace MathExpressionParser
{
namespace
{
struct FOperator
{
	const TCHAR* Sign;
	int32 Precedence;
};

// A longer sign stands before the one it starts with.
constexpr FOperator Operators[] = {{TEXT("||"), 1}, {TEXT("&&"), 2}, {TEXT("=="), 6}, {TEXT("!="), 6}, {TEXT("<="), 7},
	{TEXT(">="), 7}, {TEXT("<<"), 8}, {TEXT(">>"), 8}, {TEXT("|"), 3}, {TEXT("^"), 4}, {TEXT("&"), 5}, {TEXT("<"), 7},
	{TEXT(">"), 7}, {TEXT("+"), 9}, {TEXT("-"), 9}, {TEXT("*"), 10}, {TEXT("/"), 10}, {TEXT("%"), 10}};

bool IsDigit(TCHAR Char)
{
	return Char >= TEXT('0') && Char <= TEXT('9');
}

bool IsNameStart(TCHAR Char)
{
	return (Char >= TEXT('a') && Char <= TEXT('z')) || (Char >= TEXT('A') && Char <= TEXT('Z')) || Char == TEXT('_')
		|| Char > 127;
}

class FParser
{
public:
	explicit FParser(const FString& InText)
		: Text(InText)
	{
	}

	TSharedPtr<FMathExpression> ParseAll()
	{
		TSharedPtr<FMathExpression> Whole = ParseBinary(1);
		SkipBlanks();
		if (Whole && At < Text.Len())
		{
			return Fail(TEXT("did not expect '%s'"), FString::Chr(Text[At]));
		}
		return Whole;
	}

	FString Error;

private:
	/** Brackets and signs nest no deeper, so that no formula exhausts the stack. */
	static constexpr int32 MaxDepth = 200;

	TSharedPtr<FMathExpression> Fail(const TCHAR* Format, const FString& What)
	{
		if (Error.IsEmpty())
		{
			const FString Reason = FString(Format).Replace(TEXT("%s"), *What);
			Error = FString::Printf(TEXT("Parse error at character %d: %s."), At + 1, *Reason);
		}
		return nullptr;
	}

	void SkipBlanks()
	{
		while (At < Text.Len()
			&& (Text[At] == TEXT(' ') || Text[At] == TEXT('\t') || Text[At] == TEXT('\n') || Text[At] == TEXT('\r')))
		{
			++At;
		}
	}

	bool Take(TCHAR Char)
	{
		SkipBlanks();
		const bool bThere = At < Text.Len() && Text[At] == Char;
		At += bThere ? 1 : 0;
		return bThere;
	}

	const FOperator* PeekOperator()
	{
		SkipBlanks();
		for (const FOperator& Operator : Operators)
		{
			const FString Sign(Operator.Sign);
			if (Text.Mid(At, Sign.Len()).Equals(Sign))
			{
				return &Operator;
			}
		}
		return nullptr;
	}

	TSharedPtr<FMathExpression> ParseBinary(int32 MinPrecedence)
	{
		TSharedPtr<FMathExpression> Left = ParseUnary();
		while (Left)
		{
			const FOperator* const Operator = PeekOperator();
			if (!Operator || Operator->Precedence < MinPrecedence)
			{
				return Left;
			}
			At += FString(Operator->Sign).Len();
			const TSharedPtr<FMathExpression> Right = ParseBinary(Operator->Precedence + 1);
			if (!Right)
			{
				return nullptr;
			}
			Left = Make(FMathExpression::EKind::Binary, Operator->Sign, {Left, Right});
		}
		return nullptr;
	}

	TSharedPtr<FMathExpression> ParseUnary()
	{
		if (++Depth > MaxDepth)
		{
			return Fail(TEXT("the formula is nested too deep%s"), FString());
		}
		TSharedPtr<FMathExpression> Result;
		SkipBlanks();
		const TCHAR Sign = At < Text.Len() ? Text[At] : TEXT('\0');
		if (Sign == TEXT('-') || Sign == TEXT('+') || Sign == TEXT('!') || Sign == TEXT('~'))
		{
			++At;
			const TSharedPtr<FMathExpression> Operand = ParseUnary();
			Result = !Operand || Sign == TEXT('+') ? Operand
												   : Make(FMathExpression::EKind::Unary, FString::Chr(Sign), {Operand});
		}
		else
		{
			Result = ParsePrimary();
		}
		--Depth;
		return Result;
	}

	TSharedPtr<FMathExpression> ParsePrimary()
	{
		if (Take(TEXT('(')))
		{
			const TSharedPtr<FMathExpression> Inner = ParseBinary(1);
			return !Inner || Take(TEXT(')')) ? Inner : Fail(TEXT("a closing bracket is missing%s"), FString());
		}
		if (At >= Text.Len())
		{
			return Fail(TEXT("expected a value, but the formula ends%s"), FString());
		}
		if (IsDigit(Text[At]) || Text[At] == TEXT('.'))
		{
			return ParseNumber();
		}
		return IsNameStart(Text[At]) ? ParseName()
									 : Fail(TEXT("expected a value instead of '%s'"), FString::Chr(Text[At]));
	}

	TSharedPtr<FMathExpression> ParseNumber()
	{
		const int32 Start = At;
		bool bReal = false;
		bool bDigits = false;
		while (At < Text.Len() && (IsDigit(Text[At]) || (Text[At] == TEXT('.') && !bReal)))
		{
			bReal |= Text[At] == TEXT('.');
			bDigits |= IsDigit(Text[At]);
			++At;
		}
		const FString Digits = Text.Mid(Start, At - Start);
		const bool bSuffix = At < Text.Len() && (Text[At] == TEXT('f') || Text[At] == TEXT('F'));
		At += bSuffix ? 1 : 0;
		if (!bDigits || (At < Text.Len() && (IsNameStart(Text[At]) || Text[At] == TEXT('.'))))
		{
			return Fail(TEXT("'%s' is no number"), Digits);
		}
		return Make(bReal || bSuffix ? FMathExpression::EKind::Real : FMathExpression::EKind::Integer, Digits, {});
	}

	TSharedPtr<FMathExpression> ParseName()
	{
		const int32 Start = At;
		while (At < Text.Len() && (IsNameStart(Text[At]) || IsDigit(Text[At])))
		{
			++At;
		}
		const FString Name = Text.Mid(Start, At - Start);
		if (!Take(TEXT('(')))
		{
			const bool bBoolean = Name == TEXT("true") || Name == TEXT("false");
			return Make(bBoolean ? FMathExpression::EKind::Boolean : FMathExpression::EKind::Variable, Name, {});
		}
		TArray<TSharedPtr<FMathExpression>> Arguments;
		if (Take(TEXT(')')))
		{
			return Make(FMathExpression::EKind::Call, Name, MoveTemp(Arguments));
		}
		do
		{
			const TSharedPtr<FMathExpression> Argument = ParseBinary(1);
			if (!Argument)
			{
				return nullptr;
			}
			Arguments.Add(Argument);
		} while (Take(TEXT(',')));
		return Take(TEXT(')')) ? Make(FMathExpression::EKind::Call, Name, MoveTemp(Arguments))
							   : Fail(TEXT("the arguments of '%s' have no closing bracket"), Name);
	}

	static TSharedPtr<FMathExpression> Make(
		FMathExpression::EKind Kind, FString InText, TArray<TSharedPtr<FMathExpression>> Operands)
	{
		const TSharedPtr<FMathExpression> Made = MakeShared<FMathExpression>();
		Made->Kind = Kind;
		Made->Text = MoveTemp(InText);
		Made->Operands = MoveTemp(Operands);
		return Made;
	}

	const FString& Text;
	int32 At = 0;
	int32 Depth = 0;
};
} // namespace

TSharedPtr<FMathExpression> Parse(const FString& Formula, FString& OutError)
{
	FParser Parser(Formula);
	const TSharedPtr<FMathExpression> Whole = Parser.ParseAll();
	OutError = Parser.Error;
	return Whole;
}

void CollectVariables(const FMathExpression& Expression, TArray<FString>& OutNames)
{
	if (Expression.Kind == FMathExpression::EKind::Variable)
	{
		OutNames.AddUnique(Expression.Text);
	}
	for (const TSharedPtr<FMathExpression>& Operand : Expression.Operands)
	{
		CollectVariables(*Operand, OutNames);
	}
}
} // namespace MathExpressionParser
