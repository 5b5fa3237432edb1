#pragma once

#include "ProjectCode/CodeClasses.h"
#include "ProjectCode/CodeTypes.h"
#include "ProjectCode/ReflectedCode.h"

#include <map>
#include <string>
#include <vector>

class FJsonObject;

/**
 * Marked code in the words of the class catalogue: one JSON object a line, each type followed by its members, as
 * Catalogue/README.md tells. What refers to a type that nobody knows is left out and counted.
 */
class FCatalogueLines
{
public:
	FCatalogueLines(const std::vector<FCodeFile>& InFiles, const std::vector<ReflectedCode::FComponent>& InComponents);

	/** The lines of each module. Called once. */
	std::map<std::string, std::vector<std::string>> Write();

	/** What was taken otherwise than it stands in the code, in sentences. */
	const std::vector<std::string>& GetNotes() const { return Notes; }
	const std::map<std::string, int>& GetUnknownTypes() const { return Types.GetUnknown(); }

private:
	void WriteOwner(const FCodeFile& File, const ReflectedCode::FOwner& Owner);
	void WriteClass(const FCodeFile& File, const ReflectedCode::FOwner& Owner);
	void WriteStruct(const FCodeFile& File, const ReflectedCode::FOwner& Owner);
	void WriteEnum(const FCodeFile& File, const ReflectedCode::FOwner& Owner);
	void WriteDelegate(const FCodeFile& File, const ReflectedCode::FOwner& Owner);
	void WriteProperty(const ReflectedCode::FVariable& Property, const std::string& Class);
	void WriteFunction(const ReflectedCode::FFunction& Function, const std::string& Class);
	void WriteComponents(const ReflectedCode::FOwner& Owner);
	/** False when a type is unknown. */
	bool SetParams(FJsonObject& Line, const ReflectedCode::FFunction& Function, const std::string& Class);

	void AddLine(const FJsonObject& Line);

	const std::vector<FCodeFile>& Files;
	std::map<std::string, std::vector<const ReflectedCode::FComponent*>> ComponentsByOwner;
	FCodeTypes Types;
	FCodeClasses Classes;
	std::vector<std::string>* Lines = nullptr;
	std::vector<std::string> Notes;
};
