#pragma once

#include "Dom/JsonObject.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonWriter.h"

/** Turns text into values and back. Reading is as strict as JsonUtf8 says; a failure is told by the reader. */
class FJsonSerializer
{
public:
	enum class EFlags
	{
		None = 0
	};

	/** The output is null or empty after a failure, a root of another type among them. */
	template <class CharType>
	static bool Deserialize(const TSharedRef<TJsonReader<CharType>>& Reader, TSharedPtr<FJsonObject>& OutObject,
		EFlags Options = EFlags::None)
	{
		return ReadObject(*Reader, OutObject);
	}
	template <class CharType>
	static bool Deserialize(const TSharedRef<TJsonReader<CharType>>& Reader, TArray<TSharedPtr<FJsonValue>>& OutArray,
		EFlags Options = EFlags::None)
	{
		return ReadArray(*Reader, OutArray);
	}
	template <class CharType>
	static bool Deserialize(const TSharedRef<TJsonReader<CharType>>& Reader, TSharedPtr<FJsonValue>& OutValue,
		EFlags Options = EFlags::None)
	{
		return ReadValue(*Reader, OutValue);
	}

	/** True unless the writer is closed with arrays or objects still open. */
	template <class CharType, class PrintPolicy>
	static bool Serialize(const TSharedRef<FJsonObject>& Object,
		const TSharedRef<TJsonWriter<CharType, PrintPolicy>>& Writer, bool bCloseWriter = true)
	{
		Writer->Emitter.Object(*Object);
		return !bCloseWriter || Writer->Close();
	}
	template <class CharType, class PrintPolicy>
	static bool Serialize(const TArray<TSharedPtr<FJsonValue>>& Array,
		const TSharedRef<TJsonWriter<CharType, PrintPolicy>>& Writer, bool bCloseWriter = true)
	{
		Writer->Emitter.BeginArray();
		for (const TSharedPtr<FJsonValue>& Element : Array)
		{
			WriteValue(Element, Writer->Emitter);
		}
		Writer->Emitter.EndArray();
		return !bCloseWriter || Writer->Close();
	}
	/** An empty Identifier writes the bare value. */
	template <class CharType, class PrintPolicy>
	static bool Serialize(const TSharedPtr<FJsonValue>& Value, const FString& Identifier,
		const TSharedRef<TJsonWriter<CharType, PrintPolicy>>& Writer, bool bCloseWriter = true)
	{
		if (!Identifier.IsEmpty())
		{
			Writer->Emitter.Key(Identifier);
		}
		WriteValue(Value, Writer->Emitter);
		return !bCloseWriter || Writer->Close();
	}

private:
	static bool ReadObject(TJsonReader<TCHAR>& Reader, TSharedPtr<FJsonObject>& OutObject);
	static bool ReadArray(TJsonReader<TCHAR>& Reader, TArray<TSharedPtr<FJsonValue>>& OutArray);
	static bool ReadValue(TJsonReader<TCHAR>& Reader, TSharedPtr<FJsonValue>& OutValue);
	static bool RefuseRoot(TJsonReader<TCHAR>& Reader, const TCHAR* Reason);

	template <class CharType>
	static void WriteValue(const TSharedPtr<FJsonValue>& Value, TJsonEmitter<CharType>& Emitter)
	{
		Value ? Emitter.Value(*Value) : Emitter.Null();
	}
};
