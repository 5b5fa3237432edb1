#pragma once

#include "BlueprintBuilder.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

/** Something wrong with a Blueprint, and all that the compiler says to it, as DescribeMessage writes it. */
struct FFault
{
	const char* Name;
	void (*Make)(const FBlueprintBuilder& Blueprint);
	std::vector<std::string> Expected;
};

inline void PrintTo(const FFault& Fault, std::ostream* Out)
{
	*Out << Fault.Name;
}

inline std::string FaultName(const testing::TestParamInfo<FFault>& Fault)
{
	return Fault.param.Name;
}

/** Each table of faults is an instantiation of this one suite. */
class FCompileFault : public testing::TestWithParam<FFault>
{
};
