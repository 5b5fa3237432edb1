#pragma once

#include "ProjectCode/ReflectedCode.h"

#include <map>
#include <optional>
#include <string>
#include <unordered_map>

/** Which reflected type a name of the code means: one of the project's own, or one that the class catalogue knows. */
class FCodeTypes
{
public:
	/** Knows what the catalogue holds. */
	FCodeTypes();

	/** Makes the owner known as a type of the module ("/Script/Module"). */
	void Add(const std::string& Module, const ReflectedCode::FOwner& Owner);

	/** The path of a type of the code ("UDoor", "FDoorState", "EDoor::Type"); empty when nobody knows it. */
	std::string FindClass(const std::string& Name) const;
	std::string FindStruct(const std::string& Name) const;
	std::string FindEnum(const std::string& Name) const;
	/** A delegate type as it is seen from the class (may be empty). */
	std::string FindDelegate(const std::string& Name, const std::string& Class, bool& bOutMulticast) const;

	/** The type in the words of the catalogue ("array object /Script/Engine.Actor"); nothing for what the catalogue
	 * has no word for, which is counted then. */
	std::optional<std::string> Describe(const ReflectedCode::FType& Type, const std::string& Class);

	/** Names of types that were asked for and not found, with how often. */
	const std::map<std::string, int>& GetUnknown() const { return Unknown; }
	void AddUnknown(const std::string& Name) { ++Unknown[Name]; }

private:
	struct FDelegate
	{
		std::string Path;
		bool bMulticast = false;
	};
	using FPaths = std::unordered_map<std::string, std::string>;

	void AddKnown();
	std::optional<std::string> DescribeSingle(const ReflectedCode::FType& Type, const std::string& Class) const;
	std::optional<std::string> DescribeWrapper(const ReflectedCode::FType& Type) const;

	/** By the name without its prefix. */
	FPaths Classes;
	FPaths Structs;
	FPaths Enums;
	/** By "Class:Name" and, where it is the first of its name, by "Name". */
	std::unordered_map<std::string, FDelegate> Delegates;
	std::map<std::string, int> Unknown;
};
