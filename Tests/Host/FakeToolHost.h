#pragma once

#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "ToolFace/ToolHost.h"

/** Tools made of lambdas, and a record of what was called. */
class FFakeToolHost : public IToolHost
{
public:
	using FBody = std::function<FToolOutcome(std::string_view Arguments)>;

	/** One tool, "echo", whose result data is its arguments. */
	FFakeToolHost();

	void Add(const std::string& Name, FBody Body);

	std::vector<FToolListing> ListTools() override { return Listed; }
	FToolOutcome CallTool(std::string_view Name, std::string_view ArgumentsJson) override;

	std::vector<FResourceListing> ListResources() override { return Resources; }
	/** "morvane://echo" is the one address; "morvane://locked" cannot be read now. */
	FResourceOutcome ReadResource(std::string_view Uri) override;
	/** Two names, "one" and "two", for any kind. */
	FCompletions Complete(ENameKind Kind, std::string_view Typed) override;

	/** A result object with these data. */
	static FToolOutcome Success(std::string_view DataJson);

	std::vector<std::string> Calls;
	std::vector<FResourceListing> Resources;

private:
	std::vector<FToolListing> Listed;
	std::map<std::string, FBody, std::less<>> Bodies;
};

/** Opens once, from any thread. */
class FGate
{
public:
	void Open();
	/** False after ten seconds. */
	bool Wait();

private:
	std::mutex Mutex;
	std::condition_variable Changed;
	bool bOpen = false;
};
