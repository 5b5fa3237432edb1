#include "InputGraphs.h"

#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphSchema.h"
#include "Engine/Blueprint.h"

namespace InputGraphs
{
namespace
{
bool IsBelow(const UClass* Class, const TCHAR* BasePath)
{
	const UClass* const Base = FindObject<UClass>(nullptr, BasePath);
	return Class && Base && Class->IsChildOf(Base);
}
} // namespace

bool IsOfInputTaker(const UEdGraph* Graph)
{
	const UBlueprint* const Blueprint = Graph ? Graph->GetTypedOuter<UBlueprint>() : nullptr;
	const UClass* const Parent = Blueprint ? Blueprint->ParentClass.Get() : nullptr;
	return IsBelow(Parent, TEXT("/Script/Engine.Actor")) || IsBelow(Parent, TEXT("/Script/UMG.UserWidget"));
}

bool TakesInput(const UEdGraph* Graph)
{
	return Graph && Graph->GetSchema() && Graph->GetSchema()->GetGraphType(Graph) == GT_Ubergraph
		&& IsOfInputTaker(Graph);
}
} // namespace InputGraphs
