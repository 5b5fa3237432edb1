#pragma once

#include <string>
#include <vector>

#include "BinaryPackage/BinaryTables.h"

/** A property's type as the file spells it: "ArrayProperty" with what it holds as parameter, and so on down. */
struct FBinaryType
{
	std::string Name;
	std::vector<FBinaryType> Parameters;

	/** The name of the first parameter, empty without one: the struct of a struct, the enum of an enum. */
	const std::string& GetFirst() const;
	/** The parameter of that number; a type without a name where there is none. */
	const FBinaryType& GetParameter(std::size_t Index) const;
	/** "ArrayProperty of StructProperty", for a person. */
	std::string Describe() const;
};

/** What stands before each value of an object: its name, type and size. */
struct FBinaryTag
{
	std::string Name;
	FBinaryType Type;
	int32_t Size = 0;
	int32_t Index = 0;
	/** A bool's value lies in its tag. */
	bool bValue = false;
	/** Behind the name "None": no tag. */
	bool bIsEnd = false;

	/** False, with the cursor failed, where no tag can stand. Knows both forms, that of 5.4 and the one before it. */
	bool Read(FBinaryCursor& Cursor, const FBinaryTables& Tables);

	/** Since 5.4 a tag spells its type whole; before, what containers hold is told in part only. */
	static bool HasWholeTypes(const FBinaryTables& Tables) { return Tables.GetVersions().Ue5 >= 1012; }

private:
	void ReadWhole(FBinaryCursor& Cursor, const FBinaryTables& Tables);
	void ReadLegacy(FBinaryCursor& Cursor, const FBinaryTables& Tables);
	void ReadLegacyType(FBinaryCursor& Cursor, const FBinaryTables& Tables, std::string Kind);
};
