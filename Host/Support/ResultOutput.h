#pragma once

#include <string_view>

#include "Support/FileDescriptor.h"

/**
 * Standard output, kept for results. From construction on, whatever else in the process prints to standard output lands
 * on standard error, so a stray line never ends up between the results.
 */
class FResultOutput
{
public:
	FResultOutput();

	/** False when the reader has gone or the disk is full. */
	bool WriteLine(std::string_view Line) const;

	int GetDescriptor() const { return Output.Get(); }

private:
	FFileDescriptor Output;
};
