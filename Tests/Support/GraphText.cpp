#include "GraphText.h"

#include "Standalone/ObjectText.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>

namespace GraphText
{
/** One spelling of references for all engine generations: the newest. */
static std::string NormaliseReferences(const std::string& Value)
{
	static const std::regex Inner(R"re(([A-Za-z0-9_/.]+)'"([^"']*)"')re");
	return std::regex_replace(Value, Inner, R"re("$1'$2'")re");
}

/** "(A=1,B=(C,D),)" to "A=1", "B=(C,D)". */
static std::vector<std::string> SplitFields(std::string_view List)
{
	std::vector<std::string> Fields;
	std::string Field;
	int Depth = 0;
	bool bQuoted = false;
	for (std::size_t At = 1; At + 1 < List.size(); ++At)
	{
		const char Char = List[At];
		if (bQuoted && Char == '\\')
		{
			Field += Char;
			Field += List[++At];
			continue;
		}
		bQuoted = Char == '"' ? !bQuoted : bQuoted;
		Depth += bQuoted ? 0 : (Char == '(') - (Char == ')');
		if (Char == ',' && Depth == 0 && !bQuoted)
		{
			Fields.push_back(Field);
			Field.clear();
			continue;
		}
		Field += Char;
	}
	if (!Field.empty())
	{
		Fields.push_back(Field);
	}
	return Fields;
}

struct FPinPlace
{
	std::size_t Node;
	std::size_t Pin;
};

using FPinPlaces = std::map<std::string, FPinPlace>;

/** "(Node Id,Node Id,)" as places in the text. */
static std::vector<std::string> ReadLinks(const std::string& List, const FPinPlaces& Places)
{
	std::vector<std::string> Links;
	for (const std::string& Link : SplitFields(List))
	{
		const auto Found = Places.find(Link);
		if (Found != Places.end())
		{
			Links.push_back(std::to_string(Found->second.Node) + "." + std::to_string(Found->second.Pin));
		}
	}
	std::sort(Links.begin(), Links.end());
	return Links;
}

static std::string KeyOf(const std::string& Field)
{
	return Field.substr(0, Field.find('='));
}

/** What differs between texts of the same graph, or says how the last compile went. */
static bool IsIncidental(std::string_view Property)
{
	return Property == "NodeGuid" || Property == "ErrorType" || Property == "ErrorMsg"
		|| Property == "bHasCompilerMessage";
}

static void ReadPin(const std::string& Value, const FPinPlaces& Places, FGraphTextNode& OutNode)
{
	std::vector<std::string>& Fields = OutNode.Pins.emplace_back();
	std::vector<std::string>& Links = OutNode.Links.emplace_back();
	for (const std::string& Field : SplitFields(Value.substr(Value.find('('))))
	{
		const std::string Key = KeyOf(Field);
		if (Key == "LinkedTo")
		{
			Links = ReadLinks(Field.substr(Key.size() + 1), Places);
		}
		else if (Key != "PinId" && Key != "SubPins" && Key != "ParentPin")
		{
			Fields.push_back(NormaliseReferences(Field));
		}
	}
}

static bool IsPin(const FObjectTextLine& Line)
{
	return Line.bCustom && Line.Value.substr(0, 4) == "Pin ";
}

static FPinPlaces FindPins(const FObjectTextTree& Tree)
{
	FPinPlaces Places;
	for (std::size_t Node = 0; Node < Tree.Objects.size(); ++Node)
	{
		std::size_t Pin = 0;
		for (const FObjectTextLine& Line : Tree.Objects[Node].Lines)
		{
			if (IsPin(Line))
			{
				const std::string Id(Line.Value.substr(Line.Value.find("PinId=") + 6, 32));
				Places[std::string(Tree.Objects[Node].Name) + " " + Id] = FPinPlace{Node, Pin++};
			}
		}
	}
	return Places;
}

static FGraphTextNode ReadNode(const FObjectTextRecord& Record, const FPinPlaces& Places)
{
	FGraphTextNode Node;
	Node.Class = std::string(Record.ClassPath);
	for (const FObjectTextLine& Line : Record.Lines)
	{
		if (IsPin(Line))
		{
			ReadPin(std::string(Line.Value), Places, Node);
		}
		else if (!IsIncidental(Line.Name))
		{
			const std::string Element = Line.Index == INDEX_NONE ? "" : "(" + std::to_string(Line.Index) + ")";
			// Two generations' words for one thing; the newer is written.
			const std::string Name = Line.Name == "bIsPureFunc" ? "bDefaultsToPureFunc" : std::string(Line.Name);
			Node.Properties[Name + Element] = NormaliseReferences(std::string(Line.Value));
		}
	}
	return Node;
}

static std::string Join(const std::vector<std::string>& Parts)
{
	std::string Text;
	for (const std::string& Part : Parts)
	{
		Text += Part + ",";
	}
	return Text;
}

static std::string Join(const std::map<std::string, std::string>& Parts)
{
	std::string Text;
	for (const auto& [Key, Value] : Parts)
	{
		Text += Key + "=" + Value + "\n";
	}
	return Text;
}

static std::string ComparePins(const FGraphTextNode& Expected, const FGraphTextNode& Actual)
{
	if (Expected.Pins.size() != Actual.Pins.size())
	{
		return "number of pins: " + std::to_string(Expected.Pins.size()) + " became "
			+ std::to_string(Actual.Pins.size());
	}
	for (std::size_t Pin = 0; Pin < Expected.Pins.size(); ++Pin)
	{
		if (Expected.Pins[Pin] != Actual.Pins[Pin])
		{
			return "pin\n" + Join(Expected.Pins[Pin]) + "\nbecame\n" + Join(Actual.Pins[Pin]);
		}
		if (Expected.Links[Pin] != Actual.Links[Pin])
		{
			return "links of pin " + Expected.Pins[Pin].front() + ": " + Join(Expected.Links[Pin]) + " became "
				+ Join(Actual.Links[Pin]);
		}
	}
	return std::string();
}
} // namespace GraphText

std::vector<FGraphTextNode> ReadGraphText(const std::string& Text)
{
	FObjectTextTree Tree;
	FObjectTextError Error;
	const bool bRead = Tree.Parse(Text, Error);
	EXPECT_TRUE(bRead) << ToUtf8(Error.ToString());
	const GraphText::FPinPlaces Places = GraphText::FindPins(Tree);
	std::vector<FGraphTextNode> Nodes;
	for (const FObjectTextRecord& Record : Tree.Objects)
	{
		Nodes.push_back(GraphText::ReadNode(Record, Places));
	}
	return Nodes;
}

std::string FindDifference(const std::vector<FGraphTextNode>& Expected, const std::vector<FGraphTextNode>& Actual)
{
	if (Expected.size() != Actual.size())
	{
		return "number of nodes: " + std::to_string(Expected.size()) + " became " + std::to_string(Actual.size());
	}
	for (std::size_t Node = 0; Node < Expected.size(); ++Node)
	{
		const std::string Where = "node " + std::to_string(Node) + " " + Expected[Node].Class + ": ";
		if (Expected[Node].Class != Actual[Node].Class)
		{
			return Where + "class became " + Actual[Node].Class;
		}
		if (Expected[Node].Properties != Actual[Node].Properties)
		{
			return Where + "properties\n" + GraphText::Join(Expected[Node].Properties) + "became\n"
				+ GraphText::Join(Actual[Node].Properties);
		}
		const std::string Pins = GraphText::ComparePins(Expected[Node], Actual[Node]);
		if (!Pins.empty())
		{
			return Where + Pins;
		}
	}
	return std::string();
}

std::string ReadTestData(const std::string& RelativePath)
{
	std::ostringstream Text;
	std::ifstream File(std::string(MORVANE_SOURCE_DIR) + "/Tests/Data/" + RelativePath, std::ios::binary);
	EXPECT_TRUE(File.good()) << RelativePath;
	Text << File.rdbuf();
	return Text.str();
}
