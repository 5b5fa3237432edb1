#pragma once

#include "CoreMinimal.h"
#include "ToolInfo.h"

/**
 * The seven kinds of named items that a Blueprint has and a tool reads one by one: what each is called in the document,
 * in commands and in messages.
 */
struct FItemKind
{
	/** "variable": the word in messages. */
	const TCHAR* Word;
	/** "variables": the section of the document. */
	const TCHAR* Section;
	const TCHAR* ReadTool;
	/** "variable_name": the field with the name, or the names, in the tool's command and in the read. */
	const TCHAR* NameField;
	/** A failed read is worded "from Blueprint: name" in place of "at path: path". */
	bool bFailureNamesBlueprint;
};

namespace ItemKinds
{
namespace Names = Morvane::ToolInfo;

inline constexpr FItemKind Interface{TEXT("interface"), TEXT("interfaces"), Names::ToolName_ReadBlueprintInterface,
	Names::FieldName_InterfaceName, false};
inline constexpr FItemKind Variable{
	TEXT("variable"), TEXT("variables"), Names::ToolName_ReadBlueprintVariable, Names::FieldName_VariableName, false};
inline constexpr FItemKind Component{TEXT("component"), TEXT("components"), Names::ToolName_ReadBlueprintComponent,
	Names::FieldName_ComponentName, false};
inline constexpr FItemKind Function{
	TEXT("function"), TEXT("functions"), Names::ToolName_ReadBlueprintFunction, Names::FieldName_FunctionName, true};
inline constexpr FItemKind Macro{
	TEXT("macro"), TEXT("macros"), Names::ToolName_ReadBlueprintMacro, Names::FieldName_MacroName, true};
inline constexpr FItemKind Delegate{
	TEXT("delegate"), TEXT("delegates"), Names::ToolName_ReadBlueprintDelegate, Names::FieldName_DelegateName, false};
inline constexpr FItemKind Timeline{
	TEXT("timeline"), TEXT("timelines"), Names::ToolName_ReadBlueprintTimeline, Names::FieldName_TimelineName, false};
} // namespace ItemKinds
