#pragma once

#include "BinaryPackage/BinaryPackageText.h"
#include "SmallBlueprint.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

/** What the reader made of one package. */
struct FBinaryOutcome
{
	bool bRead = false;
	/** The objects alone, without the header of the text package. */
	std::string Body;
	std::string Head;
	FBinaryPackageFindings Findings;
	std::string Refusal;
};

inline FBinaryOutcome ReadBinary(const std::string& Bytes, const std::string& Path = "/Game/BP_Small")
{
	FBinaryOutcome Outcome;
	std::string Text;
	Outcome.bRead = MakePackageTextOfBinary(Bytes, Path, Text, Outcome.Findings, Outcome.Refusal);
	const std::size_t End = Text.find("\n\n");
	Outcome.Head = Text.substr(0, End);
	Outcome.Body = End == std::string::npos ? std::string() : Text.substr(End + 2);
	return Outcome;
}
