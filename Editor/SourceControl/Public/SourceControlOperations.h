#pragma once

#include "ISourceControlOperation.h"

/** Makes files that exist ready to be changed. */
class FCheckOut : public ISourceControlOperation
{
public:
	FName GetName() const override { return TEXT("CheckOut"); }
};

/** Notes new files, so that they are part of the next submit. */
class FMarkForAdd : public ISourceControlOperation
{
public:
	FName GetName() const override { return TEXT("MarkForAdd"); }
};

/** Removes files from the disk and from what is under control. */
class FDelete : public ISourceControlOperation
{
public:
	FName GetName() const override { return TEXT("Delete"); }
};
