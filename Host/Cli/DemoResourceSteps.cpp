#include "Cli/DemoSteps.h"

const std::vector<FDemoStep>& GetDemoResourceSteps()
{
	static const std::vector<FDemoStep> Steps = {
		{"Before an edit: which actions have to do with timers", DemoResource,
			"morvane://menu?query=set%20timer&limit=3"},
		{"The pins of one of them, before it is placed", DemoResource, "morvane://node?title=Set%20Timer%20by%20Event"},
		{"What the engine has to refer to", DemoResource, "morvane://assets?path=/Engine/BasicShapes"},
		{"What the project holds", DemoResource, "morvane://assets"},
		{"A Blueprint, as it stands now", DemoResource, "morvane://blueprint/Game/Doors/BP_Door?detail=lean"},
	};
	return Steps;
}
