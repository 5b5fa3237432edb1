#pragma once

#include <string>
#include <vector>

class UEdGraphNode;

// Requests that lie as tab separated files in Tests/Data/Requests: a set is data, and a line costs nothing to add.

/** One line of a set, by its columns. */
using FRequestColumns = std::vector<std::string>;

/** The lines of a set; what begins with "# " is a remark. Another file when its path is absolute. */
std::vector<FRequestColumns> ReadRequestSet(const std::string& FileName);

/** What a node is and does, in a word: "Actor.K2_SetActorLocation", "Set.Health", "Macro.ForLoop", "Cast.Pawn". */
std::string NameNodeInAWord(const UEdGraphNode* Node);

/** Whether the word is one of those that are meant, which " / " parts; a trailing star stands for any ending. */
bool IsOneOfTheMeant(const std::string& Word, const std::string& Meant);
