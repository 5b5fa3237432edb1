#include "ProjectCode/CppDeclarations.h"
#include "ProjectCode/ReflectedCode.h"

#include <algorithm>
#include <iterator>

namespace ConstructorReader
{
using ReflectedCode::FComponent;

/** "A = CreateDefaultSubobject<T>(TEXT("Name"))" and "A->SetupAttachment(B)" in one constructor. */
class FReader
{
public:
	FReader(FCppCursor& InCursor, std::string InOwner)
		: Cursor(InCursor)
		, Owner(std::move(InOwner))
	{
	}

	std::vector<FComponent> Read()
	{
		const std::size_t Open = Cursor.Tell();
		Cursor.SkipBalanced();
		const std::size_t Close = Cursor.Tell();
		for (Cursor.Seek(Open); Cursor.Tell() < Close; Cursor.Take())
		{
			ReadStatement();
		}
		Cursor.Seek(Close);
		HangOnRoot();
		return std::move(Components);
	}

private:
	void ReadStatement()
	{
		const std::string Member = Cursor.Peek().Kind == FCppToken::EKind::Word ? std::string(Cursor.Peek().Text)
																				: std::string();
		if (Cursor.Peek(1).Is("=") && Cursor.Peek(2).IsWord("CreateDefaultSubobject"))
		{
			Cursor.Seek(Cursor.Tell() + 3);
			ReadCreation(Member);
		}
		else if (Cursor.Peek(1).Is("->") && Cursor.Peek(2).IsWord("SetupAttachment")
			&& Cursor.Peek(4).Kind == FCppToken::EKind::Word)
		{
			for (FComponent& Component : Components)
			{
				Component.AttachedTo = Component.Member == Member ? std::string(Cursor.Peek(4).Text)
																  : Component.AttachedTo;
			}
		}
		else if (Member == "RootComponent" && Cursor.Peek(1).Is("="))
		{
			Root = Cursor.Peek(2).Text;
		}
		else if (Member == "SetRootComponent" && Cursor.Peek(1).Is("("))
		{
			Root = Cursor.Peek(2).Text;
		}
	}

	/** The root comes first; what is said to hang on the root hangs on the component that it is. */
	void HangOnRoot()
	{
		std::stable_partition(Components.begin(), Components.end(),
			[this](const FComponent& Component) { return Component.Member == Root; });
		for (FComponent& Component : Components)
		{
			Component.AttachedTo = Component.AttachedTo == "RootComponent" ? Root : Component.AttachedTo;
		}
	}

	void ReadCreation(const std::string& Member)
	{
		FComponent Component;
		Component.Owner = Owner;
		Component.Member = Member;
		if (Cursor.TakeSign("<"))
		{
			Component.Class = CppDeclarations::ReadType(Cursor).Name;
			Cursor.TakeSign(">");
		}
		const std::string Arguments = Cursor.TakeCodeUntil({";", "}"});
		const std::size_t From = Arguments.find('"');
		const std::size_t To = From == std::string::npos ? From : Arguments.find('"', From + 1);
		if (To != std::string::npos && !Component.Class.empty())
		{
			Component.Name = Arguments.substr(From + 1, To - From - 1);
			Components.push_back(std::move(Component));
		}
	}

	FCppCursor& Cursor;
	const std::string Owner;
	std::string Root;
	std::vector<FComponent> Components;
};
} // namespace ConstructorReader

std::vector<ReflectedCode::FComponent> ReflectedCode::ReadConstructors(std::string_view Text)
{
	const std::vector<FCppToken> Tokens = CutIntoCppTokens(Text);
	std::vector<FComponent> Components;
	FCppCursor Cursor(Tokens);
	while (!Cursor.IsAtEnd())
	{
		const FCppToken& Name = Cursor.Peek();
		const bool bConstructor = Name.Kind == FCppToken::EKind::Word && Cursor.Peek(1).Is("::")
			&& Cursor.Peek(2).Text == Name.Text && Cursor.Peek(3).Is("(");
		if (!bConstructor)
		{
			Cursor.Take();
			continue;
		}
		const std::string Owner(Name.Text);
		Cursor.Seek(Cursor.Tell() + 3);
		Cursor.SkipBalanced();
		Cursor.TakeCodeUntil({"{", ";"});
		std::vector<FComponent> Found = ConstructorReader::FReader(Cursor, Owner).Read();
		std::move(Found.begin(), Found.end(), std::back_inserter(Components));
	}
	return Components;
}
