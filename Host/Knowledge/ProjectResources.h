#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "Support/ResourceUri.h"
#include "ToolFace/ToolHost.h"

/** What stands behind the addresses of the server, for a project that is open. */
namespace ProjectResources
{
/** The same documents for the command line. */
TSharedRef<FJsonObject> Menu(const FResourceUri& Uri);
TSharedRef<FJsonObject> Node(const FResourceUri& Uri);
TSharedRef<FJsonObject> Assets(const FResourceUri& Uri);

/** Tools are what Blueprints are read with. */
FResourceOutcome Read(const FResourceUri& Uri, IToolHost& Tools);

/** The Blueprints of the project. */
std::vector<FResourceListing> ListBlueprints();

FCompletions Complete(ENameKind Kind, const FString& Typed);
} // namespace ProjectResources
