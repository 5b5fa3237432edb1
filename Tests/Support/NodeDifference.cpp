#include "NodeDifference.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <regex>

namespace NodeDifference
{
static std::string Lower(std::string Text)
{
	std::transform(Text.begin(), Text.end(), Text.begin(), [](unsigned char C) { return std::tolower(C); });
	return Text;
}

static std::string FieldOf(const std::vector<std::string>& Pin, const std::string& Key)
{
	for (const std::string& Field : Pin)
	{
		if (Field.starts_with(Key + "="))
		{
			return Field.substr(Key.size() + 1);
		}
	}
	return std::string();
}

static std::string NameOf(const std::vector<std::string>& Pin)
{
	return (FieldOf(Pin, "Direction").empty() ? "in " : "out ") + FieldOf(Pin, "PinName");
}

static std::string Fields(const std::vector<std::string>& Pin, std::initializer_list<const char*> Keys)
{
	std::string Text;
	for (const char* const Key : Keys)
	{
		const std::string Value = FieldOf(Pin, Key);
		Text += (Text.empty() || Value.empty() ? "" : " ") + Value;
	}
	return Text;
}

/** Texts of before there were two precisions do not tell which one a number had. */
static std::string TypeOf(const std::vector<std::string>& Pin)
{
	const bool bReal = FieldOf(Pin, "PinType.PinCategory") == "\"real\"";
	return Fields(Pin,
		{"PinType.PinCategory", bReal ? "" : "PinType.PinSubCategory", "PinType.PinSubCategoryObject",
			bReal ? "" : "PinType.PinValueType", "PinType.ContainerType", "PinType.bIsReference", "bOrphanedPin"});
}

/** Numbers by their value: "0.0" and "0.000000" are spelled so by declarations of different engines. */
static std::string DefaultOf(const std::vector<std::string>& Pin)
{
	static const std::regex Fraction("([0-9])\\.([0-9]*[1-9])?0*(?![0-9])");
	const std::string Text = Fields(Pin, {"DefaultValue", "DefaultObject", "DefaultTextValue"});
	return std::regex_replace(Text, Fraction, "$1.$2");
}

/** The far ends of a pin's links, by node and pin name. */
static std::string LinksOf(const std::vector<FGraphTextNode>& Nodes, std::size_t Node, std::size_t Pin)
{
	std::vector<std::string> Ends;
	for (const std::string& Link : Nodes[Node].Links[Pin])
	{
		const std::size_t Dot = Link.find('.');
		const std::size_t Other = std::stoul(Link.substr(0, Dot));
		Ends.push_back(
			std::to_string(Other) + " " + Lower(NameOf(Nodes[Other].Pins[std::stoul(Link.substr(Dot + 1))])));
	}
	std::sort(Ends.begin(), Ends.end());
	std::string Text;
	for (const std::string& End : Ends)
	{
		Text += End + "; ";
	}
	return Text;
}

static std::string MemberOf(const FGraphTextNode& Node)
{
	static constexpr const char* References[] = {"FunctionReference", "VariableReference", "EventReference",
		"DelegateReference", "MacroGraphReference", "StructType", "TargetType"};
	for (const char* const Key : References)
	{
		const auto Found = Node.Properties.find(Key);
		if (Found != Node.Properties.end())
		{
			std::smatch Match;
			const bool bNamed = std::regex_search(Found->second, Match, std::regex("MemberName=\"([^\"]*)\""));
			return bNamed ? Match[1].str() : Found->second;
		}
	}
	return std::string();
}

class FComparison
{
public:
	FComparison(
		const std::vector<FGraphTextNode>& InBefore, const std::vector<FGraphTextNode>& InAfter, std::size_t InIndex)
		: Before(InBefore)
		, After(InAfter)
		, Index(InIndex)
	{
	}

	std::vector<FNodeDifference> Run()
	{
		if (Index >= After.size())
		{
			Add("node lost", "", "", "");
			return std::move(Found);
		}
		if (Before[Index].Class != After[Index].Class)
		{
			Add("class", "", Before[Index].Class, After[Index].Class);
		}
		ComparePins();
		return std::move(Found);
	}

private:
	static std::map<std::string, std::size_t> PlacesOf(const FGraphTextNode& Node)
	{
		std::map<std::string, std::size_t> Places;
		for (std::size_t Pin = 0; Pin < Node.Pins.size(); ++Pin)
		{
			// A name that stands twice: the other ones are told apart by what comes before.
			std::string Name = Lower(NameOf(Node.Pins[Pin]));
			while (!Places.emplace(Name, Pin).second)
			{
				Name += '\'';
			}
		}
		return Places;
	}

	void ComparePins()
	{
		const std::map<std::string, std::size_t> Old = PlacesOf(Before[Index]);
		const std::map<std::string, std::size_t> New = PlacesOf(After[Index]);
		for (const auto& [Name, Pin] : Old)
		{
			const auto Same = New.find(Name);
			if (Same == New.end())
			{
				const std::vector<std::string>& Fields = Before[Index].Pins[Pin];
				Add("pin lost", Name, TypeOf(Fields) + " " + DefaultOf(Fields) + " " + LinksOf(Before, Index, Pin), "");
				continue;
			}
			ComparePin(Name, Pin, Same->second);
		}
		for (const auto& [Name, Pin] : New)
		{
			if (!Old.contains(Name))
			{
				const std::vector<std::string>& Fields = After[Index].Pins[Pin];
				Add("pin new", Name, "", TypeOf(Fields) + " " + DefaultOf(Fields));
			}
		}
		CompareOrder(Old, New);
	}

	void ComparePin(const std::string& Name, std::size_t Old, std::size_t New)
	{
		const std::vector<std::string>& OldPin = Before[Index].Pins[Old];
		const std::vector<std::string>& NewPin = After[Index].Pins[New];
		AddIfOther("type", Name, TypeOf(OldPin), TypeOf(NewPin));
		AddIfOther("default", Name, DefaultOf(OldPin), DefaultOf(NewPin));
		AddIfOther("links", Name, LinksOf(Before, Index, Old), LinksOf(After, Index, New));
	}

	/** Of the pins that stand on both sides. */
	void CompareOrder(const std::map<std::string, std::size_t>& Old, const std::map<std::string, std::size_t>& New)
	{
		std::vector<std::pair<std::size_t, std::size_t>> Places;
		for (const auto& [Name, Pin] : Old)
		{
			const auto Same = New.find(Name);
			if (Same != New.end())
			{
				Places.emplace_back(Pin, Same->second);
			}
		}
		std::sort(Places.begin(), Places.end());
		for (std::size_t At = 1; At < Places.size(); ++At)
		{
			if (Places[At].second < Places[At - 1].second)
			{
				Add("order", NameOf(Before[Index].Pins[Places[At].first]), std::to_string(Places[At].first),
					std::to_string(Places[At].second));
				return;
			}
		}
	}

	void AddIfOther(const char* What, const std::string& Pin, const std::string& Old, const std::string& New)
	{
		if (Old != New)
		{
			Add(What, Pin, Old, New);
		}
	}

	void Add(const char* What, const std::string& Pin, const std::string& Old, const std::string& New)
	{
		Found.push_back(FNodeDifference{What, Before[Index].Class, MemberOf(Before[Index]), Pin, Old, New});
	}

	const std::vector<FGraphTextNode>& Before;
	const std::vector<FGraphTextNode>& After;
	const std::size_t Index;
	std::vector<FNodeDifference> Found;
};
} // namespace NodeDifference

std::string FNodeDifference::ToString() const
{
	return NodeClass.substr(NodeClass.rfind('.') + 1) + " " + Member + ": " + What + " " + Pin + ": " + Before + " -> "
		+ After;
}

std::vector<FNodeDifference> FindNodeDifferences(
	const std::vector<FGraphTextNode>& Before, const std::vector<FGraphTextNode>& After, std::size_t Index)
{
	return NodeDifference::FComparison(Before, After, Index).Run();
}
