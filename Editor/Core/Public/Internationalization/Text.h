#pragma once

#include "Containers/Map.h"
#include "Containers/UnrealString.h"
#include "Misc/Optional.h"
#include "Templates/SharedPointer.h"
#include "UObject/NameTypes.h"

struct FFormatArgumentValue;
struct FTextData;
class FText;

using FFormatNamedArguments = TMap<FString, FFormatArgumentValue>;
using FFormatOrderedArguments = TArray<FFormatArgumentValue>;

namespace ETextComparisonLevel
{
enum Type
{
	Default,
	Primary,
	Secondary,
	Tertiary,
	Quaternary,
	Quinary
};
}

/**
 * Text for people: what is shown, and where it comes from (a localisation key, a string table, a format with arguments,
 * nothing), so that it can be written out again as it was read. Immutable and cheap to copy. There is no translation:
 * the source is what is shown.
 */
class FText
{
public:
	FText() = default;
	~FText() = default;

	static const FText& GetEmpty();
	static FText FromString(const FString& String);
	static FText FromString(FString&& String);
	static FText FromName(const FName& Name);
	static FText AsCultureInvariant(const FString& String);
	static FText AsCultureInvariant(FString&& String);
	static FText AsCultureInvariant(const FText& Text);
	/** With a comma between thousands; real numbers have up to three digits after the point. */
	static FText AsNumber(int32 Value);
	static FText AsNumber(int64 Value);
	static FText AsNumber(double Value);
	static FText AsNumber(float Value) { return AsNumber(static_cast<double>(Value)); }
	static FText ChangeKey(const FString& Namespace, const FString& Key, const FText& Text);
	static FText FromStringTable(const FName& TableId, const FString& Key);
	/** Puts the arguments in for {0}, {1} or {Name}; a placeholder without an argument stays as it is, ` escapes. */
	static FText Format(const FText& Pattern, const FFormatNamedArguments& Arguments);
	static FText Format(const FText& Pattern, const FFormatOrderedArguments& Arguments);
	template <typename... ArgTypes>
	requires(((
		!std::is_same_v<std::remove_cvref_t<ArgTypes>,
			FFormatNamedArguments> && !std::is_same_v<std::remove_cvref_t<ArgTypes>, FFormatOrderedArguments>)&&...)) static FText
		Format(const FText& Pattern, ArgTypes&&... Arguments);
	static FText Join(const FText& Delimiter, const TArray<FText>& Parts);

	const FString& ToString() const;
	bool IsEmpty() const { return ToString().IsEmpty(); }
	bool IsCultureInvariant() const;
	bool IsNumeric() const { return ToString().IsNumeric(); }
	bool ShouldGatherForLocalization() const;
	FText ToLower() const { return AsCultureInvariant(ToString().ToLower()); }
	FText ToUpper() const { return AsCultureInvariant(ToString().ToUpper()); }

	/** What is shown is equal, case included. */
	bool EqualTo(const FText& Other, ETextComparisonLevel::Type = ETextComparisonLevel::Default) const
	{
		return ToString().Equals(Other.ToString(), ESearchCase::CaseSensitive);
	}
	/** Shown text and origin are the same. */
	bool IdenticalTo(const FText& Other) const;

private:
	friend class FTextInspector;
	friend class FTextStringHelper;
	friend struct FTextMaker;

	explicit FText(TSharedPtr<const FTextData> InData)
		: Data(MoveTemp(InData))
	{
	}

	TSharedPtr<const FTextData> Data;
};

namespace EFormatArgumentType
{
enum Type
{
	Int,
	UInt,
	Float,
	Double,
	Text,
	Gender
};
}

/** A value for a placeholder: a text, or a number, which is shown as AsNumber shows it. */
struct FFormatArgumentValue
{
	FFormatArgumentValue() = default;
	FFormatArgumentValue(const FText& InText)
		: Text(InText)
	{
	}
	FFormatArgumentValue(int32 Value)
		: FFormatArgumentValue(static_cast<int64>(Value))
	{
	}
	FFormatArgumentValue(uint32 Value)
		: FFormatArgumentValue(static_cast<int64>(Value))
	{
	}
	FFormatArgumentValue(int64 Value)
		: Type(EFormatArgumentType::Int)
		, Integer(Value)
	{
	}
	FFormatArgumentValue(uint64 Value)
		: FFormatArgumentValue(static_cast<int64>(Value))
	{
	}
	FFormatArgumentValue(float Value)
		: Type(EFormatArgumentType::Float)
		, Real(static_cast<double>(Value))
	{
	}
	FFormatArgumentValue(double Value)
		: Type(EFormatArgumentType::Double)
		, Real(Value)
	{
	}

	EFormatArgumentType::Type GetType() const { return Type; }
	FText ToFormattedText() const;
	/** The form FTextStringHelper writes inside LOCGEN_FORMAT: a text, or a bare number with a suffix. */
	FString ToExportedString() const;

private:
	EFormatArgumentType::Type Type = EFormatArgumentType::Text;
	FText Text;
	int64 Integer = 0;
	double Real = 0.0;
};

template <typename... ArgTypes>
requires(((!std::is_same_v<std::remove_cvref_t<ArgTypes>,
			   FFormatNamedArguments> && !std::is_same_v<std::remove_cvref_t<ArgTypes>, FFormatOrderedArguments>)&&...))
	FText FText::Format(const FText& Pattern, ArgTypes&&... Arguments)
{
	return Format(Pattern, FFormatOrderedArguments{FFormatArgumentValue(Forward<ArgTypes>(Arguments))...});
}

class FTextInspector
{
public:
	/** Unset when the text has none. */
	static TOptional<FString> GetNamespace(const FText& Text);
	static TOptional<FString> GetKey(const FText& Text);
	static bool ShouldGatherForLocalization(const FText& Text) { return Text.ShouldGatherForLocalization(); }
};

/**
 * The written form of texts: NSLOCTEXT("ns", "key", "source"), INVTEXT("text"), LOCTABLE(id, "key"), LOCGEN_...(...) or
 * a plain string. A LOCGEN form that is not understood is kept and written back as it stood.
 */
class FTextStringHelper
{
public:
	/**
	 * Reads one text at the start of Buffer; answers where it ends, null when it is malformed. A plain string without
	 * quotes takes the whole buffer, unless quotes are required.
	 */
	static const TCHAR* ReadFromBuffer(const TCHAR* Buffer, FText& OutValue, const TCHAR* TextNamespace = nullptr,
		const TCHAR* PackageNamespace = nullptr, bool bRequiresQuotes = false);
	/** Like ReadFromBuffer; a malformed buffer makes a text of its characters. */
	static FText CreateFromBuffer(const TCHAR* Buffer, const TCHAR* TextNamespace = nullptr,
		const TCHAR* PackageNamespace = nullptr, bool bRequiresQuotes = false);
	/** Appends. A plain string gets quotes only when they are required. */
	static void WriteToBuffer(
		FString& OutBuffer, const FText& Value, bool bRequiresQuotes = false, bool bStripPackageNamespace = false);
	static bool IsComplexText(const TCHAR* Buffer);
};

inline FString LexToString(const FText& Text)
{
	return Text.ToString();
}
