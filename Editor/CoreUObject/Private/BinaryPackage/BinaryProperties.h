#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "BinaryPackage/BinaryTables.h"

/** A property's type as the file spells it: "ArrayProperty" with what it holds as parameter, and so on down. */
struct FBinaryType
{
	std::string Name;
	std::vector<FBinaryType> Parameters;

	/** The name of the first parameter, empty without one: the struct of a struct, the enum of an enum. */
	const std::string& GetFirst() const;
};

/** One property of an object, with its value as object text. */
struct FBinaryProperty
{
	std::string Name;
	/** Of a static array's element; 0 for the rest. */
	int32_t Index = 0;
	std::string Value;
	/** The object that an object property refers to; 0 for all else. */
	int32_t Object = 0;
};

/** A pin's type, as variables and pins hold it. */
struct FBinaryPinType
{
	std::string Category;
	std::string SubCategory;
	/** In quotes, or None. */
	std::string SubCategoryObject = "None";
	std::string MemberReference = "()";
	/** "(...)" of a map's value; empty for all else. */
	std::string ValueType;
	const char* Container = "None";
	bool bIsReference = false;
	bool bIsConst = false;
	bool bIsWeakPointer = false;
	bool bIsUObjectWrapper = false;
	bool bSerializeAsSinglePrecisionFloat = false;

	void Read(FBinaryCursor& Cursor, const FBinaryTables& Tables);
	/** As a struct's value. */
	std::string ToText() const;
};

/** Reads the tagged properties of objects. What it cannot read costs one value, and is noted. */
class FBinaryProperties
{
public:
	explicit FBinaryProperties(const FBinaryTables& InTables)
		: Tables(InTables)
	{
	}

	/** Up to the tag that ends them; false when the place was lost. */
	bool Read(FBinaryCursor& Cursor, std::vector<FBinaryProperty>& OutProperties);

	/** "Name (type)" of each value that was passed over since the last call. */
	std::vector<std::string> TakePassedOver();

private:
	struct FTag;

	bool ReadTag(FBinaryCursor& Cursor, FTag& OutTag);
	void ReadLegacyType(FBinaryCursor& Cursor, FTag& OutTag);
	FBinaryType ReadTypeTree(FBinaryCursor& Cursor, int Depth);
	bool ReadList(FBinaryCursor& Cursor, std::vector<FBinaryProperty>& OutProperties, int Depth);
	std::string ReadValue(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth);
	std::string ReadBounded(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth);
	std::string ReadTaggedStruct(FBinaryCursor& Cursor, int Depth);
	std::string ReadDelegate(FBinaryCursor& Cursor);
	std::string ReadFieldPath(FBinaryCursor& Cursor);
	std::string ReadByte(FBinaryCursor& Cursor, const FBinaryType& Type);
	std::string ReadArray(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth);
	std::string ReadSet(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth);
	std::string ReadMap(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth);
	std::string ReadStruct(FBinaryCursor& Cursor, const std::string& Struct, int Depth);
	bool HasTypeTrees() const { return Tables.GetVersions().Ue5 >= 1012; }

	const FBinaryTables& Tables;
	std::vector<std::string> PassedOver;
};
