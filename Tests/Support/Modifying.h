#pragma once

#include "BlueprintMatchingUtils.h"
#include "Populating.h"

#include <map>

/** One saved Blueprint, and calls that change what stands in it. Nodes go by the request ids of the calls that made
 * them. */
struct FModifying : FPopulating
{
	using FPopulating::FPopulating;

	Morvane::FToolResult& Call(const TCHAR* Tool, const std::string& Members, const std::string& Graph = "EventGraph")
	{
		Result = RunTool(Tool,
			R"({"path":")" + ToStd(Blueprint.Path()) + R"(","blueprint_name":"BP_Test","graph_name":")" + Graph + "\""
				+ (Members.empty() ? "" : ",") + Members + "}");
		return *Result;
	}
	Morvane::FToolResult& Modify(const std::string& Members, const std::string& Graph = "EventGraph")
	{
		return Call(Morvane::ToolInfo::ToolName_BPModifyGraphNodes, Members, Graph);
	}
	/** Entries of "nodes". */
	Morvane::FToolResult& ModifyNodes(const std::string& List, const std::string& Graph = "EventGraph")
	{
		return Modify("\"nodes\":[" + List + "]", Graph);
	}
	Morvane::FToolResult& Unlink(const std::string& List, const std::string& Graph = "EventGraph")
	{
		return Call(Morvane::ToolInfo::ToolName_BPRemoveGraphConnections, "\"connections\":[" + List + "]", Graph);
	}
	/** Populates, and remembers the ids that nodes got. */
	void Make(const std::string& Members, const std::string& Graph = "EventGraph")
	{
		Populate(Members, Graph);
		EXPECT_THAT(Errors(*Result), testing::IsEmpty());
		const TSharedRef<FJsonObject> Summary = Json(Data(TEXT("created_nodes_summary")));
		for (const TSharedPtr<FJsonValue>& Item : Summary->GetArrayField(TEXT("items")))
		{
			const FJsonObject& Object = *Item->AsObject();
			Ids[ToStd(Object.GetStringField(TEXT("request_guid")))] = ToStd(Object.GetStringField(TEXT("node_guid")));
		}
	}
	std::string Id(const std::string& RequestId) const
	{
		const auto Found = Ids.find(RequestId);
		EXPECT_NE(Found, Ids.end()) << RequestId;
		return Found != Ids.end() ? Found->second : "";
	}

	/** An entry with action modify. */
	std::string Change(const std::string& RequestId, const std::string& Members) const
	{
		return R"({"action":"modify","node_guid":")" + Id(RequestId) + "\"," + Members + "}";
	}
	std::string Pins(const std::string& RequestId, const std::string& List) const
	{
		return Change(RequestId, "\"pins\":[" + List + "]");
	}
	std::string Drop(const std::string& RequestId) const
	{
		return R"({"action":"remove","node_guid":")" + Id(RequestId) + "\"}";
	}
	std::string Cut(const std::string& Source, const std::string& SourcePin, const std::string& Target,
		const std::string& TargetPin) const
	{
		return R"({"action":"remove",)" + Link(Id(Source), SourcePin, Id(Target), TargetPin).substr(1);
	}

	UEdGraph* Graph(const TCHAR* Name = TEXT("EventGraph")) const
	{
		return FBlueprintMatchingUtils::FindGraphByName(Blueprint.Get(), Name);
	}
	/** Null for one that is gone. */
	UEdGraphNode* Node(const std::string& RequestId, const TCHAR* GraphName = TEXT("EventGraph")) const
	{
		return FBlueprintMatchingUtils::FindNodeByGuid(Graph(GraphName), UTF8_TO_TCHAR(Id(RequestId).c_str()));
	}
	/** Names of the pins that an author sees, in order. */
	static std::vector<std::string> PinNames(const UEdGraphNode* Node)
	{
		std::vector<std::string> Names;
		for (const UEdGraphPin* const Pin : Node ? Node->Pins : TArray<UEdGraphPin*>())
		{
			if (!Pin->bHidden)
			{
				Names.push_back(ToStd(Pin->PinName.ToString()));
			}
		}
		return Names;
	}
	std::string Closing() const { return Successes(*Result).empty() ? "" : Successes(*Result).back(); }

	std::map<std::string, std::string> Ids;
};

inline std::string Pin(const std::string& Action, const std::string& Name, const std::string& More = "")
{
	return R"({"action":")" + Action + R"(","name":")" + Name + "\"" + (More.empty() ? "" : ",") + More + "}";
}

inline std::string Value(const std::string& Name, const std::string& Text)
{
	return Pin("modify", Name, R"("value":")" + Text + "\"");
}

/** A node of a class by the title of the action menu. */
inline std::string ClassNode(const std::string& Id, const std::string& Class, const std::string& Title)
{
	return R"({"node_guid":")" + Id + R"(","class_name":")" + Class + R"(","menu_title":")" + Title + "\"}";
}
