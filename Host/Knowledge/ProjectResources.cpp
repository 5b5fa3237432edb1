#include "Knowledge/ProjectResources.h"

#include "Containers/StringConv.h"
#include "Knowledge/AssetSearch.h"
#include "Knowledge/MenuSearch.h"
#include "Knowledge/NodeSearch.h"
#include "Standalone/JsonUtf8.h"
#include "Support/JsonFields.h"
#include "Support/JsonText.h"

namespace ProjectResourcesPrivate
{
constexpr int32 DefaultActions = 40;
constexpr int32 DefaultAssets = 200;

static FString Text(const FResourceUri& Uri, const char* const Name)
{
	return FromUtf8(Uri.Get(Name));
}

static TSharedRef<FJsonObject> DescribeAction(const FMenuHit& Hit)
{
	const TSharedRef<FJsonObject> Out = MakeShared<FJsonObject>();
	Out->SetStringField(TEXT("title"), Hit.GetTitle());
	Out->SetStringField(TEXT("category"), Hit.Action->GetCategory().ToString());
	Out->SetStringField(TEXT("node_class"), Hit.NodeClass);
	Out->SetObjectField(TEXT("request"), Hit.MakeRequest());
	return Out;
}

/** "total", and under Key the first of what was found. */
template <class TItem, class TDescribe>
TSharedRef<FJsonObject> ListDocument(
	const TCHAR* Key, const TArray<TItem>& Found, const int32 Limit, TDescribe&& Describe)
{
	const TSharedRef<FJsonObject> Out = MakeShared<FJsonObject>();
	TArray<TSharedPtr<FJsonValue>> Values;
	for (int32 Index = 0; Index < FMath::Min(Found.Num(), Limit); ++Index)
	{
		Values.Add(MakeShared<FJsonValueObject>(Describe(Found[Index])));
	}
	Out->SetNumberField(TEXT("total"), Found.Num());
	Out->SetArrayField(Key, Values);
	return Out;
}

static FResourceOutcome Document(const FJsonObject& Json)
{
	FResourceOutcome Outcome;
	JsonUtf8::Write(Json, Outcome.Text);
	return Outcome;
}

/** The texts of a list of the result, one behind the other. */
static std::string Sentences(const FJsonFields& Result, const char* const Name)
{
	const std::string* const List = Result.Find(Name);
	TSharedPtr<FJsonValue> Value;
	FString Ignored;
	std::string Text;
	if (List && JsonUtf8::ParseValue(*List, Value, Ignored))
	{
		for (const TSharedPtr<FJsonValue>& Sentence : Value->AsArray())
		{
			Text += ToUtf8(Sentence->AsString()) + " ";
		}
	}
	return Text;
}

/** The document that a read tool puts into its data. */
static FResourceOutcome ReadWithTool(IToolHost& Tools, const std::string& Tool, const std::string& ArgumentsJson)
{
	const FToolOutcome Read = Tools.CallTool(Tool, ArgumentsJson);
	FJsonFields Result;
	Result.Read(Read.ResultJson);
	const std::optional<FJsonFields> Data = Read.bSuccess ? Result.FindObject("data") : std::nullopt;
	const std::optional<std::string> Content = Data ? Data->FindString("content") : std::nullopt;
	if (Content)
	{
		return {*Content, FResourceOutcome::EFault::None, {}};
	}
	return {{}, FResourceOutcome::EFault::Unknown,
		"It cannot be read: " + Sentences(Result, "errors") + Sentences(Result, "warnings")};
}

/** What is wrong with a name of the query that the address's template does not have; empty when it has all. */
static std::string FindForeignName(const FResourceUri& Uri)
{
	for (const ResourceTemplates::FTemplate& Template : ResourceTemplates::GetAll())
	{
		const size_t Start = Template.Uri.find("{?");
		if (Template.Name != Uri.Kind || Start == std::string_view::npos)
		{
			continue;
		}
		const std::string_view Names = Template.Uri.substr(Start + 2, Template.Uri.size() - Start - 3);
		for (const auto& Asked : Uri.Query)
		{
			if (("," + std::string(Names) + ",").find("," + Asked.first + ",") == std::string::npos)
			{
				return "'" + Asked.first + "' is nothing that it takes; those are " + std::string(Names);
			}
		}
	}
	return std::string();
}

static FResourceOutcome ReadBlueprint(const FResourceUri& Uri, IToolHost& Tools)
{
	const std::string Detail = Uri.Get("detail");
	const std::string Path = R"({"path":)" + JsonText::Quote(Uri.Path)
		+ (Detail.empty() ? std::string() : R"(,"detail":)" + JsonText::Quote(Detail));
	const std::string Event = Uri.Get("event");
	const std::string Function = Uri.Get("function");
	if (!Event.empty())
	{
		return ReadWithTool(Tools, "read_blueprint_event",
			Path + R"(,"graph_name":"EventGraph","event_name":)" + JsonText::Quote(Event) + "}");
	}
	if (!Function.empty())
	{
		return ReadWithTool(
			Tools, "read_blueprint_function", Path + R"(,"function_name":)" + JsonText::Quote(Function) + "}");
	}
	return ReadWithTool(Tools, "read_blueprint_schema", Path + "}");
}
} // namespace ProjectResourcesPrivate

TSharedRef<FJsonObject> ProjectResources::Menu(const FResourceUri& Uri)
{
	using namespace ProjectResourcesPrivate;
	const FMenuSearch Menu;
	const FMenuQuery Query{Text(Uri, "query"), Text(Uri, "title"), Text(Uri, "category"), Text(Uri, "node_class")};
	if (!Uri.Query.empty())
	{
		return ListDocument(TEXT("actions"), Menu.Find(Query), Uri.GetNumber("limit", DefaultActions), &DescribeAction);
	}
	const TSharedRef<FJsonObject> Out = MakeShared<FJsonObject>();
	const TSharedRef<FJsonObject> Categories = MakeShared<FJsonObject>();
	for (const TPair<FString, int32>& Pair : Menu.CountByCategory())
	{
		Categories->SetNumberField(Pair.Key, Pair.Value);
	}
	Out->SetNumberField(TEXT("total"), Menu.Num());
	Out->SetObjectField(TEXT("categories"), Categories);
	return Out;
}

TSharedRef<FJsonObject> ProjectResources::Node(const FResourceUri& Uri)
{
	using namespace ProjectResourcesPrivate;
	return NodeSearch::Describe(
		FMenuSearch(), {Text(Uri, "title"), Text(Uri, "function"), Text(Uri, "node_class"), Text(Uri, "parent")});
}

TSharedRef<FJsonObject> ProjectResources::Assets(const FResourceUri& Uri)
{
	using namespace ProjectResourcesPrivate;
	const FAssetQuery Query = {Text(Uri, "path"), Text(Uri, "class"), Text(Uri, "query")};
	const TArray<FAssetData> Found = AssetSearch::Find(Query);
	const bool bOne = Found.Num() == 1 && AssetSearch::IsAskedByPath(Query, Found[0]);
	return ListDocument(TEXT("assets"), Found, Uri.GetNumber("limit", DefaultAssets),
		bOne ? &AssetSearch::DescribeWhole : &AssetSearch::Describe);
}

FResourceOutcome ProjectResources::Read(const FResourceUri& Uri, IToolHost& Tools)
{
	using namespace ProjectResourcesPrivate;
	if (const std::string Fault = FindForeignName(Uri); !Fault.empty())
	{
		return {{}, FResourceOutcome::EFault::Unknown, Fault};
	}
	if (Uri.Kind == "blueprint" && Uri.Path.size() > 1)
	{
		return ReadBlueprint(Uri, Tools);
	}
	if (Uri.Path.empty() && Uri.Kind == "menu")
	{
		return Document(*Menu(Uri));
	}
	if (Uri.Path.empty() && Uri.Kind == "assets")
	{
		return Document(*Assets(Uri));
	}
	if (Uri.Path.empty() && Uri.Kind == "node" && !(Uri.Get("title") + Uri.Get("function")).empty())
	{
		return Document(*Node(Uri));
	}
	return {{}, FResourceOutcome::EFault::Unknown,
		Uri.Kind == "node" ? "A node is asked for by title or function: morvane://node?title=Delay"
						   : "Nothing has this address"};
}

std::vector<FResourceListing> ProjectResources::ListBlueprints()
{
	std::vector<FResourceListing> Listed;
	for (const FAssetData& Asset : AssetSearch::Find({FString(), TEXT("/Script/Engine.Blueprint"), FString()}))
	{
		const std::string Path = ToUtf8(Asset.PackageName.ToString());
		Listed.push_back({"morvane://blueprint" + FResourceUri::Encode(Path), Path, ToUtf8(Asset.AssetName.ToString()),
			ToUtf8(Asset.AssetClassPath.GetAssetName().ToString())});
	}
	return Listed;
}
