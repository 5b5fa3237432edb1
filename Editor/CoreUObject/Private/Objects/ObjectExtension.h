#pragma once

#include "UObject/Object.h"

#include <vector>

/**
 * Memory of an object's properties that have no C++ member: one block for each class of its line that has such
 * properties. Blocks of different classes do not depend on one another, so a class can be laid out anew without its
 * descendants noticing.
 */
struct FObjectExtension
{
	struct FBlock
	{
		const UStruct* Class = nullptr;
		uint8* Data = nullptr;
	};
	std::vector<FBlock> Blocks;

	uint8* Find(const UStruct* Class) const
	{
		for (const FBlock& Block : Blocks)
		{
			if (Block.Class == Class)
			{
				return Block.Data;
			}
		}
		return nullptr;
	}

	/** Gives the object a block for each class of its line that needs one, and takes away those of other classes. */
	static void Match(UObject& Object);
	/** Destroys all blocks. The classes must still be as they were. */
	static void Release(UObject& Object);
	/** Moves the class's blocks of all living objects to the class's present layout. */
	static void Relayout(UStruct& Class, const TArray<FProperty*>& OldProperties, int32 OldSize);
	/** Match for every living object of the class. */
	static void MatchInstances(const UStruct& Class);

private:
	static uint8* MakeBlock(const UStruct& Class);
	static void FreeBlock(const FBlock& Block);
};
