#pragma once

#include "ProjectCode/CppCursor.h"
#include "ProjectCode/ReflectedCode.h"

#include <vector>

/** The parts that declarations of marked code are made of. Each reads from where the cursor stands. */
namespace CppDeclarations
{
/** The list in parentheses behind a mark; empty when none stands here. */
ReflectedCode::FSpecifiers ReadSpecifiers(FCppCursor& Cursor);
/** Words before a declaration that say nothing of its type. */
void SkipDeclarators(FCppCursor& Cursor);
ReflectedCode::FType ReadType(FCppCursor& Cursor, int Depth = 0);
/** The parameters of a function, with the parentheses. */
std::vector<ReflectedCode::FVariable> ReadParams(FCppCursor& Cursor);
} // namespace CppDeclarations
