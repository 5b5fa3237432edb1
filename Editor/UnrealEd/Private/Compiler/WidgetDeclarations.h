#pragma once

#include "CoreMinimal.h"

class FCompilerResultsLog;
class UBlueprint;

/** Checks what a Widget Blueprint has beyond others: the widgets that its parent class asks for, and property bindings.
 */
namespace WidgetDeclarations
{
/** Blueprints of other kinds pass. */
void Check(const UBlueprint& Blueprint, FCompilerResultsLog& Log);
} // namespace WidgetDeclarations
