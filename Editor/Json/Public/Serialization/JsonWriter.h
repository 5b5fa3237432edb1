#pragma once

#include "JsonFwd.h"
#include "Policies/CondensedJsonPrintPolicy.h"
#include "Policies/PrettyJsonPrintPolicy.h"
#include "Serialization/JsonTypes.h"
#include "Standalone/JsonEmitter.h"
#include "Templates/SharedPointer.h"

#include <type_traits>

/**
 * Writes JSON into a string, element by element or through FJsonSerializer::Serialize. The text reaches the string when
 * the writer is closed or destroyed, whichever is first; until then the string must live and stays as it was.
 */
template <class CharType, class PrintPolicy>
class TJsonWriter
{
public:
	explicit TJsonWriter(FString* InOut, int32 InitialIndent = 0)
		: Emitter(PrintPolicy::bPretty, InitialIndent)
		, Out(InOut)
	{
	}
	~TJsonWriter() { Close(); }
	TJsonWriter(const TJsonWriter&) = delete;
	TJsonWriter& operator=(const TJsonWriter&) = delete;

	static TSharedRef<TJsonWriter> Create(FString* Out, int32 InitialIndent = 0)
	{
		return MakeShared<TJsonWriter>(Out, InitialIndent);
	}

	void WriteObjectStart() { Emitter.BeginObject(); }
	void WriteObjectStart(FStringView Identifier)
	{
		Emitter.Key(Identifier);
		Emitter.BeginObject();
	}
	void WriteObjectEnd() { Emitter.EndObject(); }
	void WriteArrayStart() { Emitter.BeginArray(); }
	void WriteArrayStart(FStringView Identifier)
	{
		Emitter.Key(Identifier);
		Emitter.BeginArray();
	}
	void WriteArrayEnd() { Emitter.EndArray(); }

	template <typename NumberType>
	requires std::is_arithmetic_v<NumberType>
	void WriteValue(NumberType Value)
	{
		if constexpr (std::is_same_v<NumberType, bool>)
		{
			Emitter.Boolean(Value);
		}
		else if constexpr (std::is_floating_point_v<NumberType>)
		{
			Emitter.Number(static_cast<double>(Value));
		}
		else if constexpr (std::is_signed_v<NumberType>)
		{
			Emitter.Integer(Value);
		}
		else
		{
			Emitter.Unsigned(Value);
		}
	}
	void WriteValue(const FString& Value) { Emitter.String(Value); }
	void WriteValue(const TCHAR* Value) { Emitter.String(Value); }
	void WriteValue(FStringView Value) { Emitter.String(Value); }
	void WriteNull() { Emitter.Null(); }
	void WriteNull(FStringView Identifier)
	{
		Emitter.Key(Identifier);
		Emitter.Null();
	}
	/** With two arguments the first one names the member. */
	template <typename ValueType>
	void WriteValue(FStringView Identifier, const ValueType& Value)
	{
		Emitter.Key(Identifier);
		WriteValue(Value);
	}
	/** Value is JSON already and goes out as it is. */
	void WriteRawJSONValue(FStringView Value) { Emitter.Raw(Value); }
	void WriteRawJSONValue(FStringView Identifier, FStringView Value)
	{
		Emitter.Key(Identifier);
		Emitter.Raw(Value);
	}

	int32 GetIndentLevel() const { return Emitter.GetDepth(); }

	/** Hands the text over; true when every array and object has been ended. Nothing may be written afterwards. */
	bool Close()
	{
		if (Out)
		{
			if (Out->IsEmpty())
			{
				// A large document is handed over, not copied.
				*Out = FString(MoveTemp(Emitter.GetText()));
			}
			else
			{
				*Out += FStringView(Emitter.GetText());
			}
			Out = nullptr;
		}
		return Emitter.GetDepth() == 0;
	}

private:
	friend class FJsonSerializer;

	TJsonEmitter<CharType> Emitter;
	FString* Out;
};

template <class CharType = TCHAR, class PrintPolicy = TPrettyJsonPrintPolicy<CharType>>
class TJsonWriterFactory
{
public:
	static TSharedRef<TJsonWriter<CharType, PrintPolicy>> Create(FString* Out, int32 InitialIndent = 0)
	{
		return TJsonWriter<CharType, PrintPolicy>::Create(Out, InitialIndent);
	}
};

using FJsonStringWriter = TJsonWriter<TCHAR>;
