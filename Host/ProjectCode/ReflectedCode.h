#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/**
 * What a project's C++ headers say to the reflection: the types that are marked with UCLASS, UINTERFACE, USTRUCT and
 * UENUM, the delegate types declared by macro, and their members marked with UPROPERTY and UFUNCTION. Names are those
 * of the code, with their prefixes.
 */
namespace ReflectedCode
{
/** The words in the parentheses of a mark. Words ignore case, as the engine's do. */
struct FSpecifiers
{
	std::vector<std::pair<std::string, std::string>> Words;
	std::vector<std::pair<std::string, std::string>> Meta;

	bool Has(std::string_view Word) const;
	bool HasMeta(std::string_view Key) const;
	/** Empty when it is not there or has no value. */
	std::string Get(std::string_view Word) const;
	std::string GetMeta(std::string_view Key) const;
};

struct FType
{
	/** Without qualifiers: "TArray", "UDoor", "EDoor::Type". */
	std::string Name;
	std::vector<FType> Arguments;
	bool bConst = false;
	bool bPointer = false;
	bool bReference = false;
};

struct FVariable
{
	std::string Name;
	FType Type;
	/** The default's code; empty when there is none. */
	std::string Default;
	FSpecifiers Specifiers;
	int Line = 0;
};

struct FFunction
{
	std::string Name;
	FType Return;
	std::vector<FVariable> Params;
	FSpecifiers Specifiers;
	bool bStatic = false;
	bool bConst = false;
	bool bProtected = false;
	int Line = 0;
};

struct FEnumerator
{
	std::string Name;
	/** The code of its value; empty when it is one more than the last. */
	std::string Value;
	FSpecifiers Specifiers;
};

enum class EOwner
{
	Class,
	Interface,
	Struct,
	Enum,
	Delegate,
};

enum class EEnumForm
{
	Regular,
	Namespaced,
	Class,
};

struct FOwner
{
	EOwner Kind = EOwner::Class;
	std::string Name;
	/** Classes and structs that it derives from, in order. */
	std::vector<std::string> Parents;
	/** The class that a delegate type is declared in. */
	std::string Outer;
	FSpecifiers Specifiers;
	std::vector<FVariable> Variables;
	/** Of a delegate one: its signature. */
	std::vector<FFunction> Functions;
	std::vector<FEnumerator> Enumerators;
	EEnumForm EnumForm = EEnumForm::Regular;
	bool bMulticast = false;
	int Line = 0;
};

/** A component that a constructor makes. */
struct FComponent
{
	std::string Owner;
	std::string Name;
	std::string Class;
	std::string Member;
	/** The member that holds what it hangs on. */
	std::string AttachedTo;
};

/** The marked types of a header. Reads what it can of any text; what it cannot make out is passed over. */
std::vector<FOwner> ReadHeader(std::string_view Text);

/** The default sub-objects that constructors in a source or header make. */
std::vector<FComponent> ReadConstructors(std::string_view Text);

bool EqualsIgnoringCase(std::string_view Left, std::string_view Right);
} // namespace ReflectedCode
