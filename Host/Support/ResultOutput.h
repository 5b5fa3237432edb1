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

	/** False when the reader has gone, the disk is full or standard output was closed from the start. */
	bool WriteLine(std::string_view Line) const;
	/** The system's number for why a line could not be written; 0 as long as all could. */
	int GetError() const { return ErrorNumber; }

	int GetDescriptor() const { return Output.Get(); }

private:
	FFileDescriptor Output;
	mutable int ErrorNumber = 0;
};
