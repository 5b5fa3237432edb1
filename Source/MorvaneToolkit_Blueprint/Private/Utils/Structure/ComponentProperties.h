#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"

namespace Morvane
{
class FToolResult;
}
class FInheritingTemplates;
class UActorComponent;

/** The "properties" of a component entry, written onto the component's template. */
namespace ComponentProperties
{
/** True when the template is another than before. What cannot be set is told, and the others are set. */
bool Apply(UActorComponent& Template, const FString& Name, const FJsonObject& Properties,
	const FInheritingTemplates& Inheriting, Morvane::FToolResult& Result);
} // namespace ComponentProperties
