#pragma once

#include <string>
#include <vector>

#include "BinaryPackage/BinaryTables.h"
#include "BinaryPackage/BinaryTags.h"

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

	/** Passes over the properties before the one of that name; false when there is none, or the place was lost. */
	bool ReadNamed(FBinaryCursor& Cursor, const std::string& Name, FBinaryProperty& OutProperty);

	/** A struct of tagged members that stands by itself, as "(A=1,B=2)"; fails the cursor where the place is lost. */
	std::string ReadStructText(FBinaryCursor& Cursor);

	/** "Name (type)" of each value that was passed over since the last call. */
	std::vector<std::string> TakePassedOver();

private:
	/** Appends one value as object text; fails the cursor where the bytes are none of that kind. */
	using FValueReader = void (FBinaryProperties::*)(
		FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);

	/** Null for a kind that is not known. */
	static FValueReader FindReader(const std::string& Kind);

	bool ReadList(FBinaryCursor& Cursor, std::vector<FBinaryProperty>& OutProperties, int Depth);
	void ReadOne(FBinaryCursor& Cursor, const FBinaryTag& Tag, int Depth, std::vector<FBinaryProperty>& OutProperties);
	void ReadValue(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	void ReadBounded(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	/** Whether the engine writes such a struct without tags, most of the time. */
	static bool HasOwnForm(const FBinaryType& Type);
	void ReadElements(FBinaryCursor& Cursor, int32_t Count, const FBinaryType& Type, int Depth, std::string& Out);
	void SkipRemoved(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth);
	void ReadTaggedStruct(FBinaryCursor& Cursor, int Depth, std::string& Out);
	/** Fails the cursor when a value has outgrown what a file of this size can mean. */
	void Bound(FBinaryCursor& Cursor, const std::string& Out) const;

	template <class TNumber>
	void ReadNumber(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	void ReadObject(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	void ReadStruct(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	void ReadArray(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	void ReadSet(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	void ReadMap(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	void ReadOptional(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	void ReadBool(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	void ReadByte(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	void ReadEnum(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	void ReadName(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	void ReadString(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	void ReadText(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	void ReadSoftObject(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	void ReadGuid(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	void ReadDelegate(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	void ReadDelegates(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);
	void ReadFieldPath(FBinaryCursor& Cursor, const FBinaryType& Type, int Depth, std::string& Out);

	const FBinaryTables& Tables;
	std::vector<std::string> PassedOver;
	/** Of all values so far, inner ones counted with each struct around them. */
	std::size_t NumTextBytes = 0;
};
