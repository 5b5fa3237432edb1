#pragma once

#include "ProjectCode/ReflectedCode.h"

#include <map>
#include <string>
#include <vector>

class FCodeTypes;
class UClass;

/** The marked types of one header of a project. */
struct FCodeFile
{
	/** "/Script/Doors" */
	std::string Module;
	/** As it would be included. */
	std::string Header;
	std::vector<ReflectedCode::FOwner> Owners;
};

/** What the classes of a project's code are, by what they and those above them say. */
class FCodeClasses
{
public:
	/** Both outlive this. Types knows the project's own by the time of the first question. */
	FCodeClasses(const std::vector<FCodeFile>& Files, FCodeTypes& InTypes);

	/** The parent's path. One that nobody knows is counted as such, and a note tells what it is taken for. */
	std::string FindParent(const ReflectedCode::FOwner& Owner, std::vector<std::string>& Notes) const;
	/** In the words of the catalogue. */
	std::vector<std::string> FlagsOf(const ReflectedCode::FOwner& Owner) const;

private:
	/** The nearest ancestor that is no class of the project. */
	const UClass* FindKnownAncestor(const ReflectedCode::FOwner& Owner) const;
	const ReflectedCode::FOwner* Find(const std::string& Name) const;
	/** Whether the word, or its opposite, is said of the class or of the nearest parent that says either. */
	bool InheritsWord(
		const ReflectedCode::FOwner& Owner, const char* Word, const char* Opposite, bool bOfAncestor) const;

	FCodeTypes& Types;
	std::map<std::string, const ReflectedCode::FOwner*> OwnersByName;
};
