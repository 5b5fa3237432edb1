#pragma once

#include "ProjectCode/ReflectedCode.h"

#include "CoreMinimal.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

class FJsonObject;

/** How marks of the code are said in the class catalogue. */
namespace CatalogueWords
{
/** Sets nothing for an empty text. */
void SetText(FJsonObject& Line, const TCHAR* Key, const std::string& Text);
void SetFlags(FJsonObject& Line, const std::vector<std::string>& Flags);
/** Hints that the graph and its nodes go by; the others are for details panels. */
void SetMeta(FJsonObject& Line, const ReflectedCode::FSpecifiers& Specifiers);

std::vector<std::string> PropertyFlags(const ReflectedCode::FSpecifiers& Specifiers);
/** Empty for a function that no Blueprint sees. */
std::vector<std::string> FunctionFlags(const ReflectedCode::FFunction& Function);
std::vector<std::string> ParamFlags(const ReflectedCode::FVariable& Param);
/** What numbers, earlier entries and the operators between them come to; nothing for other code. */
std::optional<std::int64_t> ReadEnumValue(const std::string& Code, const std::map<std::string, std::int64_t>& Earlier);
} // namespace CatalogueWords
